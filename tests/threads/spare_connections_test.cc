// Several threads append to a large table at once, each with its own
// repository object, while the pool's options change under them: each add
// gives up the connection of the table's unread rows and takes a spare that
// the pool's own thread dialled, or dials in place when none is there. Every
// add must be stored exactly once with no report, and the pool must end
// within its limit.
// Run under ThreadSanitizer by scripts/tsan.sh.
#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "corvane/frame/internal/session_pool.h"
#include "corvane/orders/order_type.h"
#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;

constexpr int kThreads = 4;
constexpr int kAddsPerThread = 8;

thread_local int* g_thread_reports = nullptr;

class SpareConnectionsTest : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    // The fixture's recorders are not made for several threads.
    SetStatementObserver(nullptr);
    SetReportHandler([](const Report&) {
      if (g_thread_reports != nullptr) ++*g_thread_reports;
    });
  }
};

TEST_F(SpareConnectionsTest, SeveralThreadsAppendToALargeTableWhileThePoolChanges) {
  db().Exec("insert into t_bordertype select concat('N', seq) from seq_1_to_20000");
  std::atomic<int> stored{0};
  std::atomic<int> refused{0};
  std::atomic<int> reports{0};
  std::atomic<int> running{kThreads};
  std::vector<std::thread> threads;
  for (int t = 0; t < kThreads; ++t) {
    threads.emplace_back([&, t] {
      int mine = 0;
      g_thread_reports = &mine;
      clsDataBOrderType repo;
      for (int i = 0; i < kAddsPerThread; ++i) {
        clsEntBOrderType e{"T" + std::to_string(t) + "-" + std::to_string(i)};
        (repo.AddRecord(e) == 1 ? stored : refused).fetch_add(1);
      }
      g_thread_reports = nullptr;
      reports.fetch_add(mine);
      running.fetch_sub(1);
    });
  }
  // The options change while the threads give up connections and ask for
  // spares: a smaller limit, then the defaults again.
  while (running.load() > 0) {
    SetSessionPool(SessionPoolOptions{.max_idle = 1});
    std::this_thread::yield();
    SetSessionPool(SessionPoolOptions{});
    std::this_thread::yield();
  }
  for (auto& th : threads) th.join();

  EXPECT_EQ(kThreads * kAddsPerThread, stored.load());
  EXPECT_EQ(0, refused.load());
  EXPECT_EQ(0, reports.load());
  EXPECT_EQ(20000 + kThreads * kAddsPerThread, db().Count("t_bordertype"));
  EXPECT_EQ(std::to_string(kThreads * kAddsPerThread),
            db().Scalar("select count(distinct F_OrderType) from t_bordertype where "
                        "F_OrderType like 'T%'"));
  internal::SettleSpares();
  EXPECT_LE(internal::IdleConnections(), SessionPoolOptions{}.max_idle);
}

}  // namespace
}  // namespace corvane
