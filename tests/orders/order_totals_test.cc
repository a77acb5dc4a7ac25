// clsDataBOrderi's demand and totals questions against the sandbox server:
// the whole statement texts, what they compute over real rows, and what a
// failure half way leaves behind.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "corvane/orders/order_lines.h"
#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::LengthReport;
using ::corvane::testing::PlainReport;
using ::corvane::testing::SandboxTest;
using Rows = std::vector<std::vector<std::string>>;
using Texts = std::vector<std::string>;

constexpr double kOrder = 20260105001;
const char kOpenFailure[] = "Operation is not allowed when the object is open";

// clang-format off
// The demand statement, piece by piece.
std::string BuyStatement() {
  return std::string(" select orderi.f_orderno,orderi.f_itemno,F_ordqty,f_bkqty,f_reqqty from ") +
    "    (select t1.f_orderno,t1.f_itemno, sum(t1.F_ordqty) as F_ordqty  , sum(t1.f_bkqty) as f_bkqty" +
    "    from T_Borderh t0 inner join T_Borderi t1 on t0.f_approve<>'' and t0.F_Orderno=t1.F_orderno and t0.F_flags=0 and t1.f_status=0" +
    "    group by t1.f_orderno,t1.f_itemno) as orderi" +
    "    Left Join" +
    "    (select f_remark,f_itemno,sum(f_reqqty) as f_reqqty" +
    "    from t_mreqbuyi group by f_remark,f_itemno) as rebuyi" +
    "    on orderi.f_orderno=rebuyi.f_remark and orderi.f_itemno=rebuyi.f_itemno" +
    "    Where orderi.F_ordqty + orderi.f_bkqty > ifnull(rebuyi.f_reqqty, 0)";
}

const char kGoodsOutJoin[] =
    "    left join (select f_basecode,f_baseline,f_itemno,sum(F_outqty) as F_outqty,sum(f_outbkqty) as f_outbkqty from t_wouti group by f_basecode,f_baseline,f_itemno) t2 on t1.F_orderno=t2.f_basecode and t1.f_no=t2.f_baseline and t1.f_itemno=t2.f_itemno";
const char kReturnsJoin[] =
    "    left join (select t31.f_basecode,t31.f_baseline,t32.f_itemno,sum(t32.f_outbkqty) as f_outbkqty from t_wouti t31 inner join t_woutbacki t32 on t31.f_outno=t32.f_basecode and t31.f_no=t32.f_baseline and t31.f_itemno=t32.f_itemno group by t31.f_basecode,t31.f_baseline,t31.f_itemno) t3 on t2.f_basecode=t3.f_basecode and t2.f_baseline=t3.f_baseline and t2.f_itemno=t3.f_itemno ";

// The goods-out statement of one order.
std::string OutStatement(const std::string& order_no, const std::string& card_code) {
  return std::string("select t0.F_custno,t4.f_prodno,  t1.f_orderno,t1.f_no,t1.f_itemno,t1.f_Custitemno,t1.f_custorderno , t1.F_ordqty  , t1.f_bkqty,t2.F_outqty,t2.f_outbkqty ,t3.f_outbkqty as Reqty") +
    "    from T_Borderh t0 inner join T_Borderi t1 on t0.F_approve<>'' and t0.F_Orderno=t1.F_orderno and t1.f_orderno='" + order_no + "' and t1.f_status=0 left join t_porder t4 on t1.f_prodno=t4.f_prodno" +
    kGoodsOutJoin +
    kReturnsJoin +
    "    where t0.f_custno='" + card_code + "'";
}

// The goods-out statement of all the customer's orders.
std::string OutStatementAll(const std::string& card_code) {
  return std::string("select t0.F_custno,t4.f_prodno,  t1.f_orderno,t1.f_no,t1.f_itemno,t1.f_Custitemno,t1.f_custorderno , t1.F_ordqty  , t1.f_bkqty,t2.F_outqty,t2.f_outbkqty,t3.f_outbkqty as Reqty") +
    "    from T_Borderh t0 inner join T_Borderi t1 on t0.F_approve<>'' and t0.F_Orderno=t1.F_orderno and t1.f_status=0 left join t_porder t4 on t1.f_prodno=t4.f_prodno" +
    kGoodsOutJoin +
    kReturnsJoin +
    "    where t0.f_custno='" + card_code + "'";
}

// The four statements of the totals.
Texts TotalsStatements(const std::string& n) {
  return {
    "update t_borderi set f_fctotal =F_OrdQty*F_Price*(1-ifnull(F_disPerRow,0)/100),f_lctotal =F_OrdQty*F_Price*(1-ifnull(F_disPerRow,0)/100)*(1+F_Tax/100)*if(ifnull(F_Rate,0)=0,1,F_Rate) where F_OrderNo=" + n,
    "update t_borderh t0 inner join (select f_orderno, sum(f_fctotal*if(ifnull(F_Rate,0)=0,1,F_Rate)) as sumtotal from t_Borderi where f_orderno=" + n + "  group by F_OrderNo ) t1 on t0.f_orderno=t1.f_orderno  set t0.F_TotalBefore=t1.sumtotal where t0.f_orderno=" + n,
    "update t_borderh t0 inner join (select f_orderno, sum(f_fctotal*if(ifnull(F_Rate,0)=0,1,F_Rate)*F_Tax/100) as sumtotal from t_Borderi where f_orderno=" + n + "  group by F_OrderNo ) t1 on t0.f_orderno=t1.f_orderno  set t0.F_Tax=t1.sumtotal where t0.f_orderno=" + n,
    "update t_borderh  set F_Total=F_TotalBefore*(1-F_DisCount/100)+F_greight+F_Tax  where F_OrderNo=" + n,
  };
}
// clang-format on

// Reports as comparable texts: text, style and title.
Texts Shown(const std::vector<Report>& reports) {
  Texts out;
  for (const Report& r : reports) {
    out.push_back(r.text + " | " + std::to_string(r.style) + " | " + r.title);
  }
  return out;
}

class OrderTotalsTest : public SandboxTest {
 protected:
  // A header: approve and flags are SQL values ('boss', '', NULL, 0...).
  void Header(const std::string& no, const std::string& cust, const std::string& approve,
              const std::string& flags) {
    db().Exec("insert into t_borderh (F_OrderNo, F_CustNo, F_approve, F_Flags) values (" + no +
              ", '" + cust + "', " + approve + ", " + flags + ")");
  }
  // A line: values are SQL values.
  void Line(const std::string& order, const std::string& item, const std::string& no,
            const std::string& ord_qty, const std::string& bk_qty, const std::string& status,
            const std::string& prod_no = "0", const std::string& cust_item = "NULL",
            const std::string& cust_order = "NULL") {
    db().Exec(
        "insert into t_borderi (F_OrderNo, F_ItemNo, F_No, F_OrdQty, F_BkQty, F_Status, F_ProdNo, "
        "F_CustItemNo, F_CustOrderNo) values (" +
        order + ", '" + item + "', " + no + ", " + ord_qty + ", " + bk_qty + ", " + status + ", " +
        prod_no + ", " + cust_item + ", " + cust_order + ")");
  }
  void Request(const std::string& remark, const std::string& item, const std::string& qty) {
    db().Exec("insert into t_mreqbuyi (f_remark, f_itemno, f_reqqty) values ('" + remark +
              "', '" + item + "', " + qty + ")");
  }
  void LeaveRsOpen(clsDataBOrderi& repo) {
    ASSERT_EQ(repo.DeleteAllRecorder(20991231999), 2);
    Clear();
  }
  static void ExpectServerReport(const Report& r, const std::string& words) {
    EXPECT_EQ(r.style, 64);
    EXPECT_EQ(r.title, "塔恩维克");
    EXPECT_NE(r.text.find(words), std::string::npos) << r.text;
  }
};

// The demand rows as (order, item, ordered, bk, requested), sorted.
using Demand = std::tuple<double, std::string, double, double, double>;
std::vector<Demand> DemandOf(const Collection<clsEntBOrderi>& c, std::size_t from = 1) {
  std::vector<Demand> out;
  for (std::size_t i = from; i <= c.Count(); ++i) {
    const clsEntBOrderi& e = c.Item(i);
    out.emplace_back(e.OrderNo, e.ItemNo, e.OrdQty, e.BkQty, e.OutQty);
  }
  std::sort(out.begin(), out.end());
  return out;
}

// ---------------------------------------------------------------- QueryBuyForMreqBuy

TEST_F(OrderTotalsTest, BuyForMreqBuyWithoutApprovedOrders) {
  Header("20260105001", "C01", "''", "0");
  Header("20260105002", "C01", "NULL", "0");
  Line("20260105001", "A", "'1'", "10", "0", "0");
  Line("20260105002", "B", "'1'", "10", "0", "0");
  clsDataBOrderi repo;
  Collection<clsEntBOrderi> need;
  need.Add(std::make_shared<clsEntBOrderi>());
  EXPECT_EQ(repo.QueryBuyForMreqBuy(&need), 0);
  EXPECT_EQ(Commands(), Texts{BuyStatement()});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(need.Count(), 1u);
  // rs was closed: the same call works again.
  EXPECT_EQ(repo.QueryBuyForMreqBuy(&need), 0);
  EXPECT_TRUE(Reports().empty());
  // An empty reference is not touched when there are no rows.
  EXPECT_EQ(repo.QueryBuyForMreqBuy(nullptr), 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderTotalsTest, BuyForMreqBuyComputesWhatIsStillToBuy) {
  Header("20260105001", "C01", "'boss'", "0");
  Line("20260105001", "A", "'1'", "10", "2", "0");
  Line("20260105001", "A", "'2'", "5", "0", "0");     // same item: summed
  Line("20260105001", "B", "'3'", "4", "1", "0");     // no request
  Line("20260105001", "C", "'4'", "3", "0", "1");     // closed line
  Line("20260105001", "G", "'5'", "3", "0", "NULL");  // no status
  Line("20260105001", "D", "'6'", "6", "0", "0");     // requested exactly
  Line("20260105001", "E", "'7'", "8", "1", "0");     // requested in part
  Line("20260105001", "F", "'8'", "2", "0", "0");     // requested beyond
  Request("20260105001", "A", "10");
  Request("20260105001", "D", "6");
  Request("20260105001", "E", "5");
  Request("20260105001", "E", "3");
  Request("20260105001", "F", "3");
  Header("20260105002", "C01", "'boss'", "1");     // flags not 0
  Header("20260105003", "C01", "'boss'", "NULL");  // flags null
  Line("20260105002", "A", "'1'", "9", "0", "0");
  Line("20260105003", "A", "'1'", "9", "0", "0");
  Header("20260105004", "C02", "'chief'", "0");
  Line("20260105004", "A", "'1'", "7", "0", "0");  // the request of another order does not count
  Request("20260105004", "Z", "1");
  clsDataBOrderi repo;
  Collection<clsEntBOrderi> need;
  auto first = std::make_shared<clsEntBOrderi>();
  first->ItemNo = "already there";
  need.Add(first);
  EXPECT_EQ(repo.QueryBuyForMreqBuy(&need), 1);
  EXPECT_EQ(Commands(), Texts{BuyStatement()});
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(need.Count(), 5u);
  EXPECT_EQ(need.Item(1).ItemNo, "already there");
  EXPECT_EQ(DemandOf(need, 2), (std::vector<Demand>{
                                   {20260105001, "A", 15, 2, 10},
                                   {20260105001, "B", 4, 1, 0},
                                   {20260105001, "E", 8, 1, 8},
                                   {20260105004, "A", 7, 0, 0},
                               }));
  // Only the five properties are read.
  for (std::size_t i = 2; i <= need.Count(); ++i) {
    EXPECT_EQ(need.Item(i).No, "");
    EXPECT_EQ(need.Item(i).InQty, 0);
    EXPECT_EQ(need.Item(i).ProdNo, 0);
  }
}

TEST_F(OrderTotalsTest, BuyForMreqBuyNullBkQtyDropsTheItem) {
  // ordered + null is null, and null is not greater than anything.
  Header("20260105001", "C01", "'boss'", "0");
  Line("20260105001", "A", "'1'", "10", "NULL", "0");
  Line("20260105001", "B", "'2'", "10", "0", "0");
  clsDataBOrderi repo;
  Collection<clsEntBOrderi> need;
  EXPECT_EQ(repo.QueryBuyForMreqBuy(&need), 1);
  EXPECT_EQ(DemandOf(need), (std::vector<Demand>{{20260105001, "B", 10, 0, 0}}));
}

TEST_F(OrderTotalsTest, BuyForMreqBuyAfterOpenRsFailsOnceThenWorks) {
  Header("20260105001", "C01", "'boss'", "0");
  Line("20260105001", "A", "'1'", "10", "0", "0");
  clsDataBOrderi repo;
  LeaveRsOpen(repo);
  Collection<clsEntBOrderi> need;
  EXPECT_EQ(repo.QueryBuyForMreqBuy(&need), 2);
  EXPECT_TRUE(Commands().empty());
  EXPECT_EQ(Shown(Reports()), Shown({PlainReport(kOpenFailure)}));
  EXPECT_EQ(need.Count(), 0u);
  Clear();
  EXPECT_EQ(repo.QueryBuyForMreqBuy(&need), 1);
  EXPECT_EQ(Commands(), Texts{BuyStatement()});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(need.Count(), 1u);
}

TEST_F(OrderTotalsTest, BuyForMreqBuyServerFailure) {
  db().Exec("drop table t_mreqbuyi");
  clsDataBOrderi repo;
  Collection<clsEntBOrderi> need;
  EXPECT_EQ(repo.QueryBuyForMreqBuy(&need), 2);
  EXPECT_EQ(Commands(), Texts{BuyStatement()});
  ASSERT_EQ(Reports().size(), 1u);
  ExpectServerReport(Reports()[0], "doesn't exist");
  // The handler reset rs.
  db().Exec(
      "create table t_mreqbuyi (f_remark varchar(255), f_itemno varchar(50), f_reqqty double)");
  Clear();
  EXPECT_EQ(repo.QueryBuyForMreqBuy(&need), 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderTotalsTest, BuyForMreqBuyWithoutCollection) {
  Header("20260105001", "C01", "'boss'", "0");
  Line("20260105001", "A", "'1'", "10", "0", "0");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.QueryBuyForMreqBuy(nullptr), 2);
  EXPECT_EQ(Shown(Reports()), Shown({PlainReport("Object required")}));
}

// ---------------------------------------------------------------- QueryOutForOrder

class OrderOutTest : public OrderTotalsTest {
 protected:
  void SetUp() override {
    OrderTotalsTest::SetUp();
    Header("20260105001", "C01", "'boss'", "0");
    // Two goods-out lines, each with a return.
    Line("20260105001", "A", "'1'", "10", "1", "0", "5001", "'CA'", "'PO-1'");
    // Goods out without returns; its production order is unknown.
    Line("20260105001", "B", "'2'", "5", "0", "0", "5002", "'CB'", "'PO-2'");
    // Nothing gone out; nulls in the text columns.
    Line("20260105001", "C", "NULL", "2", "NULL", "0", "0", "NULL", "NULL");
    // A closed line.
    Line("20260105001", "D", "'4'", "1", "0", "1");
    db().Exec("insert into t_porder (F_ProdNo, f_orderno) values (5001, 20260105001)");
    db().Exec(
        "insert into t_wouti (f_outno, f_no, f_basecode, f_baseline, f_itemno, F_outqty, "
        "f_outbkqty) values (9001, '1', 20260105001, '1', 'A', 4, 1), (9002, '1', 20260105001, "
        "'1', 'A', 2, 0), (9003, '1', 20260105001, '2', 'B', 3, NULL)");
    db().Exec(
        "insert into t_woutbacki (f_basecode, f_baseline, f_itemno, f_outbkqty) values "
        "(9001, '1', 'A', 0.5), (9002, '1', 'A', 1)");
    // Another approved order of the customer, with flags set.
    Header("20260105002", "C01", "'boss'", "1");
    Line("20260105002", "E", "'1'", "9", "0", "0");
    // Orders not approved.
    Header("20260105003", "C01", "''", "0");
    Line("20260105003", "F", "'1'", "9", "0", "0");
    Header("20260105004", "C01", "NULL", "0");
    Line("20260105004", "G", "'1'", "9", "0", "0");
    // Another customer's order.
    Header("20260105005", "C02", "'boss'", "0");
    Line("20260105005", "H", "'1'", "9", "0", "0");
  }
  static std::vector<const clsEntBOrderi*> ByItem(const Collection<clsEntBOrderi>& c) {
    std::vector<const clsEntBOrderi*> out;
    for (const auto& e : c) out.push_back(e.get());
    std::sort(out.begin(), out.end(),
              [](const clsEntBOrderi* a, const clsEntBOrderi* b) { return a->ItemNo < b->ItemNo; });
    return out;
  }
};

TEST_F(OrderOutTest, OneOrderOfTheCustomer) {
  clsDataBOrderi repo;
  Collection<clsEntBOrderi> out;
  EXPECT_EQ(repo.QueryOutForOrder(&out, "C01", kOrder), 1);
  EXPECT_EQ(Commands(), Texts{OutStatement("20260105001", "C01")});
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(out.Count(), 3u);
  const auto lines = ByItem(out);
  const clsEntBOrderi& a = *lines[0];
  EXPECT_EQ(a.ItemNo, "A");
  EXPECT_EQ(a.ProdNo, 5001);
  EXPECT_EQ(a.OrderNo, kOrder);
  EXPECT_EQ(a.No, "1");
  EXPECT_EQ(a.OrdQty, 10);
  EXPECT_EQ(a.BkQty, 1);
  EXPECT_EQ(a.OutQty, 7);  // 4 + 2 out, plus 1 of goods-out returns
  EXPECT_EQ(a.InQty, 1.5);
  EXPECT_EQ(a.CustOrderNo, "PO-1");
  EXPECT_EQ(a.CustItemNo, "CA");
  const clsEntBOrderi& b = *lines[1];
  EXPECT_EQ(b.ItemNo, "B");
  EXPECT_EQ(b.ProdNo, 0);  // no production order
  EXPECT_EQ(b.No, "2");
  EXPECT_EQ(b.OrdQty, 5);
  EXPECT_EQ(b.OutQty, 3);  // the null return sum counts as 0
  EXPECT_EQ(b.InQty, 0);   // no returns
  EXPECT_EQ(b.CustOrderNo, "PO-2");
  EXPECT_EQ(b.CustItemNo, "CB");
  const clsEntBOrderi& c = *lines[2];
  EXPECT_EQ(c.ItemNo, "C");
  EXPECT_EQ(c.ProdNo, 0);
  EXPECT_EQ(c.OrderNo, kOrder);
  EXPECT_EQ(c.No, "");
  EXPECT_EQ(c.OrdQty, 2);
  EXPECT_EQ(c.BkQty, 0);
  EXPECT_EQ(c.OutQty, 0);  // nothing out
  EXPECT_EQ(c.InQty, 0);
  EXPECT_EQ(c.CustOrderNo, "");
  EXPECT_EQ(c.CustItemNo, "");
  // rs was closed: the same call works again.
  Clear();
  EXPECT_EQ(repo.QueryOutForOrder(&out, "C01", kOrder), 1);
  EXPECT_EQ(out.Count(), 6u);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderOutTest, AllOrdersOfTheCustomer) {
  clsDataBOrderi repo;
  Collection<clsEntBOrderi> out;
  auto first = std::make_shared<clsEntBOrderi>();
  first->ItemNo = "0 already there";
  out.Add(first);
  EXPECT_EQ(repo.QueryOutForOrder(&out, "C01", 0), 1);
  EXPECT_EQ(Commands(), Texts{OutStatementAll("C01")});
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(out.Count(), 5u);
  EXPECT_EQ(out.Item(1).ItemNo, "0 already there");
  const auto lines = ByItem(out);
  Texts items;
  for (const clsEntBOrderi* e : lines) items.push_back(e->ItemNo);
  EXPECT_EQ(items, (Texts{"0 already there", "A", "B", "C", "E"}));
  EXPECT_EQ(lines[1]->OutQty, 7);
  EXPECT_EQ(lines[1]->InQty, 1.5);
  EXPECT_EQ(lines[4]->OrderNo, 20260105002);
  EXPECT_EQ(lines[4]->OutQty, 0);
}

TEST_F(OrderOutTest, TheTwoStatementsDifferByOneBlank) {
  const std::string one = OutStatement("20260105001", "C01");
  const std::string all = OutStatementAll("C01");
  EXPECT_NE(one.find("t2.f_outbkqty ,t3.f_outbkqty as Reqty"), std::string::npos);
  EXPECT_NE(all.find("t2.f_outbkqty,t3.f_outbkqty as Reqty"), std::string::npos);
}

TEST_F(OrderOutTest, UnknownCustomerGivesNothing) {
  clsDataBOrderi repo;
  Collection<clsEntBOrderi> out;
  EXPECT_EQ(repo.QueryOutForOrder(&out, "C99", 0), 0);
  EXPECT_EQ(Commands(), Texts{OutStatementAll("C99")});
  EXPECT_EQ(out.Count(), 0u);
  EXPECT_TRUE(Reports().empty());
  // Another customer's order by its number gives nothing either.
  EXPECT_EQ(repo.QueryOutForOrder(&out, "C02", kOrder), 0);
  EXPECT_EQ(out.Count(), 0u);
  // An order that is not approved gives nothing.
  EXPECT_EQ(repo.QueryOutForOrder(&out, "C01", 20260105003), 0);
  EXPECT_EQ(repo.QueryOutForOrder(&out, "C01", 20260105004), 0);
  EXPECT_EQ(out.Count(), 0u);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderOutTest, QuoteInCardCodeIsPlainReport) {
  clsDataBOrderi repo;
  Collection<clsEntBOrderi> out;
  EXPECT_EQ(repo.QueryOutForOrder(&out, "O'Brien", kOrder), 2);
  EXPECT_EQ(Commands(), Texts{OutStatement("20260105001", "O'Brien")});
  ASSERT_EQ(Reports().size(), 1u);
  ExpectServerReport(Reports()[0], "You have an error in your SQL syntax");
  EXPECT_EQ(out.Count(), 0u);
  // The handler reset rs.
  Clear();
  EXPECT_EQ(repo.QueryOutForOrder(&out, "C01", kOrder), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderOutTest, AfterOpenRsFailsOnceThenWorks) {
  clsDataBOrderi repo;
  LeaveRsOpen(repo);
  Collection<clsEntBOrderi> out;
  EXPECT_EQ(repo.QueryOutForOrder(&out, "C01", kOrder), 2);
  EXPECT_TRUE(Commands().empty());
  EXPECT_EQ(Shown(Reports()), Shown({PlainReport(kOpenFailure)}));
  Clear();
  EXPECT_EQ(repo.QueryOutForOrder(&out, "C01", kOrder), 1);
  EXPECT_EQ(out.Count(), 3u);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderOutTest, WithoutCollection) {
  clsDataBOrderi repo;
  EXPECT_EQ(repo.QueryOutForOrder(nullptr, "C01", kOrder), 2);
  EXPECT_EQ(Shown(Reports()), Shown({PlainReport("Object required")}));
  Clear();
  EXPECT_EQ(repo.QueryOutForOrder(nullptr, "C99", kOrder), 0);
  EXPECT_TRUE(Reports().empty());
}

// ---------------------------------------------------------------- UpdateFCorLC

class OrderMoneyTest : public OrderTotalsTest {
 protected:
  // A header with discount, freight and stale totals.
  void MoneyHeader(const std::string& no, const std::string& discount, const std::string& freight,
                   const std::string& total_before, const std::string& tax) {
    db().Exec(
        "insert into t_borderh (F_OrderNo, F_DisCount, F_Greight, F_TotalBefore, F_Tax, F_Total) "
        "values (" +
        no + ", " + discount + ", " + freight + ", " + total_before + ", " + tax + ", -1)");
  }
  void MoneyLine(const std::string& order, const std::string& item, const std::string& qty,
                 const std::string& price, const std::string& discount, const std::string& tax,
                 const std::string& rate) {
    db().Exec(
        "insert into t_borderi (F_OrderNo, F_ItemNo, F_OrdQty, F_Price, F_DisPerRow, F_Tax, "
        "F_Rate, F_FcTotal, F_LcTotal) values (" +
        order + ", '" + item + "', " + qty + ", " + price + ", " + discount + ", " + tax + ", " +
        rate + ", -1, -1)");
  }
  Rows LineTotals() {
    return db().Rows("select F_OrderNo, F_ItemNo, F_FcTotal, F_LcTotal from t_borderi order by "
                     "F_OrderNo, F_ItemNo");
  }
  Rows HeaderTotals() {
    return db().Rows("select F_OrderNo, F_TotalBefore, F_Tax, F_Total from t_borderh order by "
                     "F_OrderNo");
  }
  // Order 001 with four lines, order 002 left alone.
  void TwoOrders() {
    MoneyHeader("20260105001", "25", "3", "0", "0");
    MoneyLine("20260105001", "A", "4", "2.5", "50", "25", "2");     // rate 2
    MoneyLine("20260105001", "B", "2", "3", "NULL", "0", "0");      // rate 0, no discount, no tax
    MoneyLine("20260105001", "C", "1", "8", "0", "50", "NULL");     // rate null
    MoneyLine("20260105001", "D", "2", "5", "0", "NULL", "1");      // tax null
    MoneyHeader("20260105002", "0", "0", "11", "22");
    MoneyLine("20260105002", "X", "1", "1", "0", "0", "1");
  }
};

TEST_F(OrderMoneyTest, RecomputesLinesAndHeader) {
  TwoOrders();
  clsDataBOrderi repo;
  EXPECT_EQ(repo.UpdateFCorLC(kOrder), 1);
  EXPECT_EQ(Commands(), TotalsStatements("20260105001"));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(LineTotals(), (Rows{
                              {"20260105001", "A", "5", "12.5"},  // 4*2.5*0.5; *1.25*2
                              {"20260105001", "B", "6", "6"},     // rate 0 counts as 1
                              {"20260105001", "C", "8", "12"},    // rate null counts as 1
                              {"20260105001", "D", "10", "NULL"}, // tax null: no local total
                              {"20260105002", "X", "-1", "-1"},
                          }));
  // Before discount: 5*2 + 6 + 8 + 10 = 34. Tax: 10*25% + 0 + 8*50%, line D
  // dropped = 6.5. Total: 34*(1-25%) + 3 + 6.5, the tax not discounted = 35.
  EXPECT_EQ(HeaderTotals(), (Rows{{"20260105001", "34", "6.5", "35"},
                                  {"20260105002", "11", "22", "-1"}}));
  // Calling again gives the same.
  Clear();
  EXPECT_EQ(repo.UpdateFCorLC(kOrder), 1);
  EXPECT_EQ(HeaderTotals()[0], (Texts{"20260105001", "34", "6.5", "35"}));
}

TEST_F(OrderMoneyTest, OrderWithoutLinesKeepsItsSumsAndRecomputesTheTotal) {
  MoneyHeader("20260105001", "50", "1", "100", "7");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.UpdateFCorLC(kOrder), 1);
  EXPECT_EQ(Commands(), TotalsStatements("20260105001"));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(HeaderTotals(), (Rows{{"20260105001", "100", "7", "58"}}));
}

TEST_F(OrderMoneyTest, UnknownOrderChangesNothing) {
  TwoOrders();
  const Rows lines = LineTotals();
  const Rows headers = HeaderTotals();
  clsDataBOrderi repo;
  EXPECT_EQ(repo.UpdateFCorLC(20260105009), 1);
  EXPECT_EQ(Commands(), TotalsStatements("20260105009"));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(LineTotals(), lines);
  EXPECT_EQ(HeaderTotals(), headers);
}

TEST_F(OrderMoneyTest, NullHeaderDiscountLeavesTheTotalNull) {
  db().Exec("insert into t_borderh (F_OrderNo, F_Greight) values (20260105001, 1)");
  MoneyLine("20260105001", "A", "1", "10", "0", "10", "1");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.UpdateFCorLC(kOrder), 1);
  EXPECT_EQ(HeaderTotals(), (Rows{{"20260105001", "10", "1", "NULL"}}));
}

TEST_F(OrderMoneyTest, FailureInTheSecondStatementLeavesTheLinesRecomputed) {
  TwoOrders();
  db().Exec(
      "create trigger header_locked before update on t_borderh for each row "
      "signal sqlstate '45000' set message_text = 'header is locked'");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.UpdateFCorLC(kOrder), 0);
  const Texts all = TotalsStatements("20260105001");
  EXPECT_EQ(Commands(), (Texts{all[0], all[1]}));
  EXPECT_EQ(Shown(Reports()), Shown({PlainReport("header is locked")}));
  EXPECT_EQ(LineTotals()[0], (Texts{"20260105001", "A", "5", "12.5"}));
  EXPECT_EQ(HeaderTotals()[0], (Texts{"20260105001", "0", "0", "-1"}));
  // Calling again once the header may change repairs it.
  db().Exec("drop trigger header_locked");
  Clear();
  EXPECT_EQ(repo.UpdateFCorLC(kOrder), 1);
  EXPECT_EQ(Commands(), all);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(HeaderTotals()[0], (Texts{"20260105001", "34", "6.5", "35"}));
}

TEST_F(OrderMoneyTest, FailureInTheFourthStatementLeavesTheSumsStored) {
  // The total overflows a double.
  MoneyHeader("20260105001", "0", "1.7e308", "0", "0");
  MoneyLine("20260105001", "A", "1", "1e308", "0", "0", "1");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.UpdateFCorLC(kOrder), 0);
  EXPECT_EQ(Commands(), TotalsStatements("20260105001"));
  ASSERT_EQ(Reports().size(), 1u);
  ExpectServerReport(Reports()[0], "out of range");
  EXPECT_EQ(LineTotals(), (Rows{{"20260105001", "A", "1e308", "1e308"}}));
  EXPECT_EQ(HeaderTotals(), (Rows{{"20260105001", "1e308", "0", "-1"}}));
}

TEST_F(OrderMoneyTest, StartsOnAFreshRs) {
  TwoOrders();
  clsDataBOrderi repo;
  LeaveRsOpen(repo);
  EXPECT_EQ(repo.UpdateFCorLC(kOrder), 1);
  EXPECT_EQ(Commands(), TotalsStatements("20260105001"));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(HeaderTotals()[0], (Texts{"20260105001", "34", "6.5", "35"}));
  // Each statement ended in a reset: a method that uses rs as it stands
  // works next.
  Collection<clsEntBOrderi> need;
  EXPECT_EQ(repo.QueryBuyForMreqBuy(&need), 0);
  EXPECT_TRUE(Reports().empty());
}

// ---------------------------------------------------------------- reset and report

// Whether rs was still open while the report of failing() was shown (see
// the line tests): 0 reset before the report, 2 after.
std::int16_t ProbeAtReport(clsDataBOrderi& repo, const std::function<void()>& failing) {
  std::int16_t probe = -1;
  bool probing = false;
  SetReportHandler([&](const Report&) {
    if (probing) return;
    probing = true;
    clsEntBOrderi missing;
    missing.OrderNo = 1;
    missing.ItemNo = "probe";
    probe = repo.QueryByID(missing);
    probing = false;
  });
  failing();
  return probe;
}

TEST_F(OrderOutTest, DemandResetsBeforeAndGoodsOutAfterTheReport) {
  clsDataBOrderi repo;
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_EQ(repo.QueryBuyForMreqBuy(nullptr), 2); }), 0);
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_EQ(repo.QueryOutForOrder(nullptr, "C01", 0), 2); }),
            2);
}

}  // namespace
}  // namespace corvane
