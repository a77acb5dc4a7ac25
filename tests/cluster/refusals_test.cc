// Galera's refusals end in the method's report and failure result, never in a
// hang or a crash: a node that has left the primary component (1047), and an
// update that lost against another node's update of the same row (1213). A
// node that is up but not synced is passed over when a link is made.
#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <string>
#include <thread>

#include "corvane/frame/internal/link.h"
#include "corvane/orders/order_header.h"
#include "corvane/orders/order_type.h"
#include "tests/cluster/cluster_test.h"

namespace corvane {
namespace {

using ::corvane::testing::ClusterCounts;
using ::corvane::testing::ClusterScript;
using ::corvane::testing::ClusterTest;
using ::corvane::testing::ClusterText;
using ::corvane::testing::kNodes;
using ::corvane::testing::Node;
using ::corvane::testing::NodeSynced;
using Clock = std::chrono::steady_clock;

// Waits for a condition at most limit; true when it came.
template <typename F>
bool WaitFor(F condition, std::chrono::seconds limit) {
  const auto deadline = Clock::now() + limit;
  while (Clock::now() < deadline) {
    if (condition()) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }
  return condition();
}

std::string Status(int n, const char* name) {
  try {
    const auto rows = Node(n).Rows(std::string("SHOW STATUS LIKE '") + name + "'");
    return rows.empty() ? "" : rows[0][1];
  } catch (const std::exception&) {
    return "";
  }
}

class RefusalsTest : public ClusterTest {
 protected:
  void TearDown() override {
    // A node cut off from the others is let back and waited for.
    if (isolated_ != 0) {
      try {
        Node(isolated_).Exec("SET GLOBAL wsrep_provider_options='gmcast.isolate=0'");
      } catch (const std::exception&) {
      }
      if (!WaitFor([&] { return NodeSynced(isolated_); }, std::chrono::seconds(60))) {
        ClusterScript("restart " + std::to_string(isolated_));
      }
    }
    ClusterTest::TearDown();
  }
  int isolated_ = 0;
  double number_ = 0;
};

TEST_F(RefusalsTest, ANodeOutOfThePrimaryComponentRefusesAndTheNextCallGoesToASyncedOne) {
  SetSessionConnectionString(ClusterText(database(), 3));
  clsDataBOrderType types;
  clsDbSession probe;
  probe.Open();
  const internal::Link& link = probe.Connection()->link();
  ASSERT_EQ("127.0.0.1:4308", link.ServerInUse());
  clsEntBOrderType before{"before"};
  ASSERT_EQ(1, types.AddRecord(before));

  // Node 3 is cut off from the group: it stays up but leaves the primary
  // component.
  Node(3).Exec("SET GLOBAL wsrep_provider_options='gmcast.isolate=1'");
  isolated_ = 3;
  ASSERT_TRUE(WaitFor([] { return Status(3, "wsrep_ready") == "OFF"; }, std::chrono::seconds(60)));

  // The call on it fails with its report and its failure result.
  clsEntBOrderType during{"during"};
  EXPECT_EQ(0, types.AddRecord(during));
  ASSERT_EQ(1u, reports().size());
  EXPECT_EQ("WSREP has not yet prepared node for application use", reports()[0].text);
  EXPECT_EQ(64, reports()[0].style);
  EXPECT_EQ("塔恩维克", reports()[0].title);

  // The next call goes out on a link to node 1: node 3 is up, not synced.
  EXPECT_EQ(1, types.AddRecord(during));
  EXPECT_EQ("127.0.0.1:4306", link.ServerInUse());
  EXPECT_EQ(1u, link.failovers());
  EXPECT_EQ(1u, reports().size());

  // A new link passes node 3 over as well.
  SetSessionConnectionString(ClusterText(database(), 3) + ";OPTION=3");
  clsDbSession fresh;
  fresh.Open();
  EXPECT_EQ("127.0.0.1:4306", fresh.Connection()->link().ServerInUse());

  ClusterCounts counts{4, 2, 0, static_cast<long>(reports().size()),
                       static_cast<long>(link.failovers())};
  for (int n = 1; n <= 2; ++n) {
    EXPECT_EQ("before,during", OnNode(n)->Value("select group_concat(F_OrderType order by "
                                                 "F_OrderType) from t_bordertype"));
  }
  // Node 3 comes back, catches up and has both rows.
  Node(3).Exec("SET GLOBAL wsrep_provider_options='gmcast.isolate=0'");
  ASSERT_TRUE(WaitFor([] { return NodeSynced(3); }, std::chrono::seconds(60)));
  isolated_ = 0;
  EXPECT_EQ("before,during", OnNode(3)->Value("select group_concat(F_OrderType order by "
                                               "F_OrderType) from t_bordertype"));
  counts.found = 2;
  ::corvane::testing::PrintCounts("node out of the primary component", counts);
}

TEST_F(RefusalsTest, AConflictingUpdateFromTwoNodesOneWinsTheOtherReports) {
  // One order, and a trigger that holds an update to 'slow' for a while, so
  // that the update of the other node lands while it is under way.
  {
    clsDataBOrderh orders;
    clsEntSitemNo last;
    orders.QueryChkitemiNo(last);
    clsEntBOrderh order;
    order.OrderNo = last.no;
    order.OrderDate = last.fndate;
    order.CustNo = "C001";
    order.Currency = "CNY";
    ASSERT_EQ(1, orders.AddRecord(order));
    number_ = last.no;
  }
  OnNode(1)->Exec(
      "CREATE TRIGGER slow_approve BEFORE UPDATE ON t_borderh FOR EACH ROW SET NEW.F_Approve = "
      "IF(NEW.F_Approve = 'slow' AND SLEEP(5) = 0, 'slow', NEW.F_Approve)");

  // The loser: an object on node 2, on a thread of its own.
  SetSessionConnectionString(ClusterText(database(), 2));
  std::promise<void> made;
  long loser_reports = 0;
  std::int16_t loser = -1;
  std::thread slow([&] {
    clsDataBOrderh orders;
    made.set_value();
    const long before = ::corvane::testing::tl_reports;
    loser = orders.UpdateApprove("slow", number_);
    loser_reports = ::corvane::testing::tl_reports - before;
  });
  made.get_future().wait();
  SetSessionConnectionString(ClusterText(database(), 1));
  // The update on node 2 holds the row, sleeping in the trigger.
  const auto node2 = OnNode(2);
  const bool sleeping = WaitFor(
      [&] {
        return !node2->Rows("select id from information_schema.processlist where info like "
                            "'update T_BOrderh set F_Approve=''slow''%'")
                    .empty();
      },
      std::chrono::seconds(20));
  if (!sleeping) slow.join();
  ASSERT_TRUE(sleeping) << "the update on node 2 returned " << loser;
  // The winner: the same row updated on node 1.
  clsDataBOrderh orders;
  const auto started = Clock::now();
  const std::int16_t winner = orders.UpdateApprove("fast", number_);
  slow.join();
  const double waited = std::chrono::duration<double>(Clock::now() - started).count();

  EXPECT_EQ(1, winner);
  EXPECT_EQ(0, loser);
  EXPECT_EQ(1, loser_reports);
  ASSERT_EQ(1u, reports().size());
  EXPECT_EQ("Deadlock found when trying to get lock; try restarting transaction",
            reports()[0].text);
  EXPECT_EQ(64, reports()[0].style);
  EXPECT_EQ("塔恩维克", reports()[0].title);
  // The loser did not sit out its sleep: the other node's write ended it.
  EXPECT_LT(waited, 4.5);
  for (int n = 1; n <= kNodes; ++n) {
    EXPECT_EQ("fast", OnNode(n)->Value("select F_Approve from t_borderh")) << "node " << n;
  }
  ::corvane::testing::PrintCounts("conflicting update", ClusterCounts{2, 1, 1, 1, 0});
}

}  // namespace
}  // namespace corvane
