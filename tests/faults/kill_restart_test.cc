// The server killed with SIGKILL while a client adds order types, and started
// again: every call either returns its success code, and its row is there
// after the restart, or shows a report and returns its failure code; no call
// hangs or crashes, and an object kept through the kills works again.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "corvane/orders/order_type.h"
#include "tests/faults/fault_test.h"

namespace corvane {
namespace {

using ::corvane::testing::FaultCounts;
using ::corvane::testing::FaultTest;
using Clock = std::chrono::steady_clock;

class KillRestartTest : public FaultTest {
 protected:
  // One AddRecord; checks that its result and its reports agree.
  std::int16_t Add(clsDataBOrderType& repo, const std::string& name) {
    const std::size_t before = reports().size();
    clsEntBOrderType e{name};
    const std::int16_t r = repo.AddRecord(e);
    ++counts_.calls;
    const std::size_t shown = reports().size() - before;
    if (r == 1) {
      EXPECT_EQ(0u, shown) << name;
      acknowledged_.insert(name);
    } else {
      EXPECT_EQ(0, r) << name;  // the names are new: never 2
      EXPECT_EQ(1u, shown) << name;
      if (shown == 1) {
        EXPECT_EQ(64, reports().back().style);
        EXPECT_EQ("塔恩维克", reports().back().title);
      }
    }
    return r;
  }

  void ReadBack(clsDataBOrderType& repo) {
    const std::size_t before = reports().size();
    Collection<clsEntBOrderType> all;
    EXPECT_EQ(0, repo.QueryAll(&all));
    ++counts_.calls;
    if (reports().size() != before) {
      EXPECT_EQ(before + 1, reports().size());
      return;
    }
    ++reads_whole_;
    std::set<std::string> read;
    for (const auto& e : all) read.insert(e->OrderType);
    for (const std::string& name : acknowledged_) {
      EXPECT_EQ(1u, read.count(name)) << "a read without a report lacks " << name;
    }
  }

  FaultCounts counts_;
  std::set<std::string> acknowledged_;
  long reads_whole_ = 0;
};

TEST_F(KillRestartTest, AcknowledgedRowsSurviveKillsAndKeptObjectsWorkAgain) {
  StartServer();
  clsDataBOrderType keeper;  // kept through every kill
  constexpr int kKills = 3;
  constexpr long kAcksBetweenKills = 40;
  std::atomic<long> acks{0};
  std::atomic<int> restarts{0};
  std::atomic<bool> stop{false};
  std::string killer_failure;
  const auto deadline = Clock::now() + std::chrono::seconds(75);

  // Kills the server after every kAcksBetweenKills acknowledged adds, at
  // whatever point the client's statement is, and starts it again at once.
  std::thread killer([&] {
    try {
      for (int k = 1; k <= kKills && !stop; ++k) {
        while (acks < k * kAcksBetweenKills && !stop) {
          std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        if (stop) return;
        server().Kill();
        server().Start();
        ++restarts;
      }
    } catch (const std::exception& e) {
      killer_failure = e.what();
      stop = true;
    }
  });

  long creations_refused = 0;
  long after_last_restart = 0;
  for (long i = 0; Clock::now() < deadline && !stop; ++i) {
    const std::string name = "K" + std::to_string(i);
    std::int16_t r = 0;
    if (i % 2 == 0) {
      r = Add(keeper, name);
    } else {
      // A short-lived object: its creation fails while the server is down.
      try {
        clsDataBOrderType once;
        r = Add(once, name);
      } catch (const Error&) {
        ++creations_refused;
      }
    }
    if (r == 1) ++acks;
    // Now and then the kept object reads the table: a read without a report
    // holds every row acknowledged so far.
    if (i % 10 == 9) ReadBack(keeper);
    if (restarts == kKills && r == 1 && ++after_last_restart >= 20) break;
  }
  stop = true;
  killer.join();
  ASSERT_EQ("", killer_failure);
  ASSERT_EQ(kKills, restarts.load()) << "the run did not reach its kills in time";

  // One more kill with nothing running, and the rows are read after it.
  server().Kill();
  server().Start();
  const std::set<std::string> found = OrderTypes();
  long missing = 0;
  for (const std::string& name : acknowledged_) {
    if (found.count(name) == 0) {
      ++missing;
      ADD_FAILURE() << "acknowledged but missing: " << name;
    }
  }
  EXPECT_EQ(0, missing);
  counts_.acknowledged = static_cast<long>(acknowledged_.size());
  counts_.found = static_cast<long>(found.size());
  counts_.reports = static_cast<long>(reports().size());

  // The kept object works again after the restart, without a report.
  const std::size_t before = reports().size();
  for (int i = 0; i < 5; ++i) EXPECT_EQ(1, Add(keeper, "after" + std::to_string(i)));
  Collection<clsEntBOrderType> all;
  EXPECT_EQ(0, keeper.QueryAll(&all));
  EXPECT_EQ(OrderTypes().size(), all.Count());
  EXPECT_EQ(before, reports().size());

  Print("kill and restart", counts_);
  std::printf(
      "faults kill and restart: kills %d, objects refused at creation %ld, whole reads %ld, "
      "missing %ld\n",
      kKills, creations_refused, reads_whole_, missing);
}

}  // namespace
}  // namespace corvane
