// The whole road of a sales order over a connection text that names the three
// nodes of the cluster: every step gives the result it gives on one server,
// and what it wrote is on every node when the call has returned.
#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "corvane/frame/internal/link.h"
#include "corvane/orders/order_header.h"
#include "corvane/orders/order_lines.h"
#include "corvane/orders/order_type.h"
#include "tests/cluster/cluster_test.h"

namespace corvane {
namespace {

using ::corvane::testing::ClusterCounts;
using ::corvane::testing::ClusterTest;
using ::corvane::testing::ClusterText;
using ::corvane::testing::kNodes;
using ::corvane::testing::Node;
using Rows = std::vector<std::vector<std::string>>;

class OrderRoadTest : public ClusterTest {};

TEST_F(OrderRoadTest, TheRoadOverThreeServersIsOnEveryNode) {
  // The observer sees the statements of the methods only: the link's own
  // statements that make a cluster wire ready are not among them.
  std::vector<std::string> sent;
  SetStatementObserver([&](StatementKind kind, const std::string& sql) {
    if (kind == StatementKind::kCommand) sent.push_back(sql);
  });
  ClusterCounts counts;
  std::vector<double> numbers;
  {
    clsDataBOrderh orders;
    clsDataBOrderi lines;
    clsDbSession probe;  // the same connection as the objects of this thread
    probe.Open();
    EXPECT_EQ("127.0.0.1:4306", probe.Connection()->link().ServerInUse());
    ASSERT_TRUE(sent.empty());
    for (int i = 0; i < 3; ++i) {
      const std::int16_t today = orders.QueryTF();
      EXPECT_EQ(i == 0 ? 1 : 2, today);
      clsEntSitemNo last;
      orders.QueryChkitemiNo(last);
      const double number = today == 2 ? last.no + 1 : last.no;
      clsEntBOrderh order;
      order.OrderNo = number;
      order.OrderDate = last.fndate;
      order.CustNo = "C001";
      order.SalerId = "S01";
      order.Tabler = "wang";
      order.Currency = "CNY";
      ASSERT_EQ(1, orders.AddRecord(order));
      orders.UpdateAddSitemNo();
      clsEntBOrderi line;
      line.OrderNo = number;
      line.ItemNo = "GEAR-40";
      line.Price = 12.5;
      line.OrdQty = 80;
      line.No = "1";
      line.Tax = 13;
      line.Rate = 1;
      lines.AddBOrderi(line);
      line.ItemNo = "SHAFT-12";
      line.No = "2";
      lines.AddBOrderi(line);
      EXPECT_EQ(1, lines.UpdateFCorLC(number));
      EXPECT_EQ(1, orders.UpdateChecke("wang", number));
      EXPECT_EQ(1, orders.UpdateApprove("li", number));
      counts.calls += 9;
      ++counts.acknowledged;
      numbers.push_back(number);
      // Numbers of the day follow each other from 001.
      EXPECT_EQ(numbers.front() + i, number);
    }
    EXPECT_EQ(0u, probe.Connection()->link().failovers());
  }
  SetStatementObserver(nullptr);
  for (const std::string& sql : sent) EXPECT_EQ(std::string::npos, sql.find("wsrep")) << sql;
  EXPECT_TRUE(reports().empty());
  counts.reports = static_cast<long>(reports().size());

  // Every node has the three orders, their six lines, the day's counter.
  for (int n = 1; n <= kNodes; ++n) {
    const auto node = OnNode(n);
    const Rows orders = node->Rows(
        "select cast(F_OrderNo as char), F_Checker, F_Approve from t_borderh order by F_OrderNo");
    ASSERT_EQ(3u, orders.size()) << "node " << n;
    for (std::size_t i = 0; i < orders.size(); ++i) {
      EXPECT_EQ(Text(numbers[i]), orders[i][0]) << "node " << n;
      EXPECT_EQ("wang", orders[i][1]);
      EXPECT_EQ("li", orders[i][2]);
    }
    EXPECT_EQ("6", node->Value("select count(*) from t_borderi")) << "node " << n;
    EXPECT_EQ(Text(numbers.back()),
              node->Value("select cast(F_No as char) from t_sitemno where F_TableName='T_BOrderh'"))
        << "node " << n;
  }
  counts.found = 3;
  ::corvane::testing::PrintCounts("order road", counts);
}

TEST_F(OrderRoadTest, TheListIsTriedInTheTextsOrder) {
  for (int first = 1; first <= kNodes; ++first) {
    SetSessionConnectionString(ClusterText(database(), first));
    clsDataBOrderType types;
    clsDbSession probe;
    probe.Open();
    EXPECT_EQ("127.0.0.1:" + std::to_string(4305 + first),
              probe.Connection()->link().ServerInUse());
    clsEntBOrderType type{"T" + std::to_string(first)};
    EXPECT_EQ(1, types.AddRecord(type));
  }
  // A write on any node is read on every other.
  for (int n = 1; n <= kNodes; ++n) {
    EXPECT_EQ("T1,T2,T3", OnNode(n)->Value("select group_concat(F_OrderType order by F_OrderType) "
                                            "from t_bordertype"));
  }
  EXPECT_TRUE(reports().empty());
}

TEST_F(OrderRoadTest, LoadBalanceRandomStartsFromAnyServerOfTheList) {
  // Each session dials a connection of its own.
  SetSessionPool(SessionPoolOptions{.enabled = false, .share_within_thread = false});
  SetSessionConnectionString(ClusterText(database()) + ";LOADBALANCE=random");
  std::set<std::string> used;
  for (int i = 0; i < 24; ++i) {
    clsDbSession probe;
    probe.Open();
    const std::string server = probe.Connection()->link().ServerInUse();
    EXPECT_TRUE(server == "127.0.0.1:4306" || server == "127.0.0.1:4307" ||
                server == "127.0.0.1:4308")
        << server;
    used.insert(server);
    clsDataBOrderType types;
    Collection<clsEntBOrderType> all;
    EXPECT_EQ(0, types.QueryAll(&all));
  }
  SetSessionPool(SessionPoolOptions{});
  // Three starts equally likely: one server 24 times in a row is 1 in 10^11.
  EXPECT_GE(used.size(), 2u);
  EXPECT_TRUE(reports().empty());
}

TEST_F(OrderRoadTest, ADeadServerInTheListIsPassedOver) {
  // Nothing listens on the first port: the next server of the list is used.
  SetSessionConnectionString("SERVER=127.0.0.1:4399,127.0.0.1:4307;DATABASE=" + database() +
                             ";UID=corvane;PWD=corvane;CONNECT_TIMEOUT=5");
  clsDataBOrderType types;
  clsDbSession probe;
  probe.Open();
  EXPECT_EQ("127.0.0.1:4307", probe.Connection()->link().ServerInUse());
  Collection<clsEntBOrderType> all;
  EXPECT_EQ(0, types.QueryAll(&all));
  EXPECT_TRUE(reports().empty());
}

TEST_F(OrderRoadTest, NoServerOfTheListAnswersFailsTheSessionWithEveryServersWords) {
  SetSessionConnectionString(
      "SERVER=127.0.0.1:4398,127.0.0.1:4399;UID=corvane;PWD=corvane;CONNECT_TIMEOUT=5");
  clsDbSession session;
  try {
    session.Open();
    FAIL() << "no server answers";
  } catch (const Error& e) {
    EXPECT_EQ(errc::kProvider, e.Number());
    EXPECT_NE(std::string::npos, e.Description().find("127.0.0.1:4398: ")) << e.Description();
    EXPECT_NE(std::string::npos, e.Description().find("127.0.0.1:4399: ")) << e.Description();
  }
}

}  // namespace
}  // namespace corvane
