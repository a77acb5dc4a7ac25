// Sales orders of the same day added by several threads at once, each with
// its own repository objects, each turn as a client takes it: QueryTF and
// QueryChkitemiNo to choose the next number, AddRecord, and UpdateAddSitemNo
// after a stored order. Nothing is locked, so turns collide; the outcomes must
// be those the day numbering allows and no others:
// - AddRecord stores (1), or is refused (2) because the number is stored, or,
//   when another thread stored the number between the check and the insert,
//   fails on the key with one report (0);
// - no number is stored twice, and the stored numbers are the day's first
//   ones without a gap, each with the columns of the turn that stored it;
// - t_sitemno holds, for today, one row per counter opened at once, the
//   first of them advanced by every other turn.
// The day's first order is stored by one thread alone, before the others
// start: when two turns open the day's row at once, both rows hold 001 while
// two orders are stored, the counter stays one behind, and every later choice
// is refused, so that the clients of this loop never finish (nothing in the
// numbering guards against it; seen on a loaded machine).
// Run under ThreadSanitizer by scripts/tsan.sh.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "corvane/orders/order_header.h"
#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;

constexpr int kThreads = 4;
constexpr int kOrdersPerThread = 12;
constexpr int kMaxTurns = 400;  // per thread: ends the run if turns never succeed

struct Outcome {
  int thread = 0;
  double number = 0;
  std::int16_t result = 0;
  std::vector<Report> reports;
};

// The reports of the calling thread's current call.
thread_local std::vector<Report>* g_thread_reports = nullptr;

class DayNumbersTest : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    // The recorders of the fixture are not made for several threads: reports
    // go to the thread that made the call, statements are not recorded.
    SetStatementObserver(nullptr);
    SetReportHandler([](const Report& r) {
      if (g_thread_reports != nullptr) g_thread_reports->push_back(r);
    });
    today_ = db().Scalar("select curdate()+0").value();
  }

  // One thread's run: its own objects, kOrdersPerThread stored orders.
  // go: 1 lets thread 0 begin, 2 lets every thread go on.
  void Run(int thread, std::vector<Outcome>* outcomes, std::atomic<int>* go) {
    std::vector<Report> reports;
    g_thread_reports = &reports;
    clsDataBOrderh chooser;  // kept for the whole run
    while (go->load() < (thread == 0 ? 1 : 2)) std::this_thread::yield();
    int stored = 0;
    for (int turn = 0; turn < kMaxTurns && stored < kOrdersPerThread; ++turn) {
      // Choose the number as the client does.
      const std::int16_t tf = chooser.QueryTF();
      clsEntSitemNo last;
      chooser.QueryChkitemiNo(last);
      const double number = tf == 1 ? last.no : last.no + 1;
      // Store it with an object of the turn's own.
      clsDataBOrderh adder;
      clsEntBOrderh order;
      order.OrderNo = number;
      order.CustNo = "T" + std::to_string(thread);
      order.CorderNo = std::to_string(turn);
      reports.clear();
      const std::int16_t r = adder.AddRecord(order);
      outcomes->push_back(Outcome{thread, number, r, reports});
      if (r == 1) {
        ++stored;
        adder.UpdateAddSitemNo();
      }
      if (thread == 0) go->store(2);  // the day's row is open
    }
    if (thread == 0) go->store(2);
    g_thread_reports = nullptr;
  }

  std::string today_;
};

TEST_F(DayNumbersTest, SeveralThreadsAddOrdersOfTheSameDay) {
  std::vector<std::vector<Outcome>> outcomes(kThreads);
  std::atomic<int> go{0};
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([this, t, &outcomes, &go] { Run(t, &outcomes[t], &go); });
  }
  // Thread 0's first turn opens the day's row before the others begin.
  go = 1;
  for (std::thread& t : threads) t.join();

  // What the table holds: number -> (customer, the customer's order number).
  std::map<std::string, std::pair<std::string, std::string>> stored;
  for (const auto& row : db().Rows("select cast(F_OrderNo as char), F_CustNo, F_CorderNo from "
                                   "T_BOrderh order by F_OrderNo")) {
    stored[row[0]] = {row[1], row[2]};
  }

  long calls = 0, added = 0, refused = 0, key_failures = 0;
  std::set<std::string> acknowledged;
  for (int t = 0; t < kThreads; ++t) {
    int turn = 0;
    for (const Outcome& o : outcomes[t]) {
      ++calls;
      const std::string number = Text(o.number);
      ASSERT_EQ(today_, number.substr(0, 8)) << number;
      switch (o.result) {
        case 1:
          ++added;
          EXPECT_TRUE(o.reports.empty());
          EXPECT_TRUE(acknowledged.insert(number).second) << number << " stored twice";
          // The row is the one this turn wrote.
          EXPECT_EQ((std::pair<std::string, std::string>{"T" + std::to_string(t),
                                                         std::to_string(turn)}),
                    stored[number])
              << number;
          break;
        case 2:
          ++refused;
          EXPECT_TRUE(o.reports.empty());
          EXPECT_EQ(1u, stored.count(number)) << "refused " << number << " that nobody stored";
          break;
        case 0:
          // The number was stored by another thread between check and insert.
          ++key_failures;
          ASSERT_EQ(1u, o.reports.size()) << number;
          EXPECT_NE(std::string::npos, o.reports[0].text.find("Duplicate entry"))
              << o.reports[0].text;
          EXPECT_EQ(64, o.reports[0].style);
          EXPECT_EQ(1u, stored.count(number)) << number;
          break;
        default:
          ADD_FAILURE() << "AddRecord answered " << o.result;
      }
      ++turn;
    }
  }
  const long n = kThreads * kOrdersPerThread;
  EXPECT_EQ(n, added) << "not every thread stored its orders";
  EXPECT_EQ(static_cast<std::size_t>(added), stored.size());
  // The day's first n numbers, no gap.
  std::set<std::string> first_n;
  for (long k = 1; k <= n; ++k) {
    char suffix[24];
    std::snprintf(suffix, sizeof suffix, "%03ld", k);
    first_n.insert(today_ + suffix);
  }
  EXPECT_EQ(first_n, acknowledged);

  // The counter: m rows opened at once, the first advanced by every other
  // turn, so the largest holds n - m + 1; all of today.
  const auto counters = db().Rows(
      "select cast(F_No as char), cast(F_FnDate as date) = curdate() from t_sitemno where "
      "F_TableName='T_BOrderh' order by F_No desc");
  ASSERT_FALSE(counters.empty());
  const long m = static_cast<long>(counters.size());
  char largest[24];
  std::snprintf(largest, sizeof largest, "%03ld", n - m + 1);
  EXPECT_EQ(today_ + largest, counters[0][0]);
  for (const auto& row : counters) {
    EXPECT_EQ(today_, row[0].substr(0, 8));
    EXPECT_LE(row[0], counters[0][0]);
    EXPECT_EQ("1", row[1]);
  }
  std::printf("threads: %d threads, AddRecord calls %ld, stored %ld, refused %ld, key failures "
              "%ld, counter rows %ld\n",
              kThreads, calls, added, refused, key_failures, m);
}

}  // namespace
}  // namespace corvane
