// clsDataBOutMakei's quantity questions against the sandbox server:
// ChkInputCount (what a production number may still give out) and
// QueryProdNo (what of a work order, outsource order or purchase order is
// still open for a supplier), with the statements sent, the results, the
// reports and what the entity holds afterwards.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "corvane/outsource/outsource_lines.h"
#include "tests/outsource/outsource_support.h"

namespace corvane {
namespace {

using namespace ::corvane::outsource_testing;
using ::corvane::testing::AlertReport;
using ::corvane::testing::PlainReport;
using ::testing::HasSubstr;

std::string ProducedSql(const std::string& prod) {
  return "select f_Ordqty from t_porder where f_prodno='" + prod + "'";
}
std::string SoldBackSql(const std::string& prod) {
  return "select F_BKQty from t_Borderi where f_prodno='" + prod + "'";
}
std::string GivenOutSql(const std::string& prod) {
  return "select sum(f_OrdoutQty) as f_OrdoutQty from t_boutmakei where f_prodno='" + prod + "'";
}
Strings InputCountSql(const std::string& prod) {
  return {ProducedSql(prod), SoldBackSql(prod), GivenOutSql(prod)};
}

std::string WorkOrderSql(const std::string& wo) {
  return "select Mh.* from T_MMakePlanh Mh Where mh.F_WoNo='" + wo + "' ";
}
std::string WorkWaitingSql(const std::string& item, const std::string& prod,
                           const std::string& wo) {
  return "Select Sum(F_WaitQty) As F_WaitQty From T_WItemi Wi,( select * From T_WItemh Where "
         "F_QType=1) Wh  Where Wi.F_WaitTestNo=Wh.F_WaitTestNo And Wi.F_ItemNo='" +
         item + "' And Wi.F_ProdNo='" + prod + "' And Wi.F_WoNo='" + wo + "'";
}
std::string OutsourceSql(const std::string& provider, const std::string& order,
                         const std::string& prod) {
  return "select * from T_BOutMakei,(select F_OrderOutNo as PurNo from T_BOutMakeh where "
         "F_Approve<>'' and F_ProviderNo='" +
         provider + "' ) h where F_OrderOutNo='" + order + "' And F_ProdNo='" + prod +
         "' and F_OrderOutNo=h.PurNo and F_Status=0";
}
std::string OutsourceWaitingSql(const std::string& order, const std::string& item,
                                const std::string& prod) {
  return "Select Sum(F_WaitQty) As F_WaitQty From T_WItemi Wi,( select * From T_WItemh Where "
         "F_QType=2) Wh  Where Wi.F_WaitTestNo=Wh.F_WaitTestNo And  Wi.F_OrderOutNo='" +
         order + "' And Wi.F_ItemNo='" + item + "' And Wi.F_ProdNo='" + prod + "'";
}
std::string PurchaseSql(const std::string& provider, const std::string& pur,
                        const std::string& item) {
  return "select T_CPuri.* from T_CPuri,(select F_PurNo as PurNo from T_CPurh where "
         "F_Approve<>'' and F_Status=2 and F_ProviderNo='" +
         provider + "') h where F_PurNo='" + pur + "' And F_ItemNo= '" + item +
         "' and F_PurNo=h.PurNo and F_Status=2";
}
std::string PurchaseWaitingSql(const std::string& pur, const std::string& item) {
  return "Select Sum(i.F_WaitQty) As F_WaitQty From T_WItemi i  Where  i.F_PurNo='" + pur +
         "' And i.F_ItemNo='" + item + "'";
}

class OutsourceQuantitiesTest : public OutsourceTest {
 protected:
  void Produced(const std::string& prod, const std::string& qty) {
    db().Exec("insert into t_porder (F_ProdNo, F_OrdQty) values (" + prod + ", " + qty + ")");
  }
  void SoldBack(const std::string& prod, const std::string& qty) {
    db().Exec("insert into t_borderi (F_ProdNo, F_BkQty) values (" + prod + ", " + qty + ")");
  }
  void WorkOrder(const std::string& wo, const std::string& item, const std::string& prod,
                 const std::string& qty) {
    db().Exec("insert into t_mmakeplanh values (" + wo + ", '" + item + "', " + prod + ", " +
              qty + ")");
  }
  // A waiting-test document of type qtype with one line.
  void Waiting(const std::string& no, const std::string& qtype, const std::string& qty,
               const std::string& pur, const std::string& item, const std::string& order,
               const std::string& prod, const std::string& wo) {
    db().Exec("insert into t_witemh values (" + no + ", " + qtype + ")");
    db().Exec("insert into t_witemi values (" + no + ", " + qty + ", " + pur + ", '" + item +
              "', " + order + ", " + prod + ", " + wo + ")");
  }
  void Header(const std::string& no, const std::string& provider, const std::string& approve) {
    db().Exec("insert into t_boutmakeh (F_OrderOutNo, F_ProviderNo, F_Approve) values (" + no +
              ", '" + provider + "', " + approve + ")");
  }
  void Purchase(const std::string& pur, const std::string& provider, const std::string& approve,
                const std::string& status) {
    db().Exec("insert into t_cpurh values (" + pur + ", " + approve + ", " + status + ", '" +
              provider + "')");
  }
  void PurchaseLine(const std::string& pur, const std::string& item, const std::string& status,
                    const std::string& qty, const std::string& prod) {
    db().Exec("insert into t_cpuri values (" + pur + ", '" + item + "', " + status + ", " + qty +
              ", " + prod + ")");
  }
};

// ------------------------------------------------------------ ChkInputCount

TEST_F(OutsourceQuantitiesTest, ChkInputCountIsProducedPlusSoldBackLessGivenOut) {
  Produced("7001", "100");
  SoldBack("7001", "5");
  Line("2026110201", "7001", "30");
  Line("2026110301", "7001", "20", "1");  // any order, any status
  Line("2026110301", "7002", "99");
  clsDataBOutMakei repo;
  clsEntBOutMakei e = FullLine(2026110201, 7001);
  EXPECT_EQ(1, repo.ChkInputCount(e));
  EXPECT_EQ(55, e.OrdoutQty);
  // Only OrdoutQty changed.
  clsEntBOutMakei expected = FullLine(2026110201, 7001);
  expected.OrdoutQty = 55;
  ExpectSameLine(expected, e);
  EXPECT_EQ(InputCountSql("7001"), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceQuantitiesTest, ChkInputCountOfANumberInNoTableGivesZero) {
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.ProdNo = 7009;
  e.OrdoutQty = 12;
  EXPECT_EQ(1, repo.ChkInputCount(e));
  EXPECT_EQ(0, e.OrdoutQty);
  EXPECT_EQ(InputCountSql("7009"), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceQuantitiesTest, ChkInputCountWithoutLinesReadsTheNullSumAsZero) {
  Produced("7001", "100");
  SoldBack("7001", "5");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.ProdNo = 7001;
  EXPECT_EQ(1, repo.ChkInputCount(e));
  EXPECT_EQ(105, e.OrdoutQty);
}

TEST_F(OutsourceQuantitiesTest, ChkInputCountGoesNegativeWhenMoreWasGivenOut) {
  Produced("7001", "100");
  Line("2026110201", "7001", "120.5");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.ProdNo = 7001;
  EXPECT_EQ(1, repo.ChkInputCount(e));
  EXPECT_EQ(-20.5, e.OrdoutQty);
}

TEST_F(OutsourceQuantitiesTest, ChkInputCountTakesTheFirstRowAndNullsAsZero) {
  db().Exec("insert into t_porder (F_ProdNo, F_OrdQty) values (7001, null), (7001, 500)");
  SoldBack("7001", "8");
  SoldBack("7001", "1000");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.ProdNo = 7001;
  EXPECT_EQ(1, repo.ChkInputCount(e));
  EXPECT_EQ(8, e.OrdoutQty);
}

TEST_F(OutsourceQuantitiesTest, ChkInputCountReportsAFailureAndGivesTwo) {
  db().Exec("drop table t_borderi");
  Produced("7001", "100");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.ProdNo = 7001;
  e.OrdoutQty = 12;
  EXPECT_EQ(2, repo.ChkInputCount(e));
  EXPECT_EQ(12, e.OrdoutQty);
  EXPECT_EQ((Strings{ProducedSql("7001"), SoldBackSql("7001")}), Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("doesn't exist"));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
}

TEST_F(OutsourceQuantitiesTest, ChkInputCountAfterQueryByProdNoFailsOnceThenWorks) {
  Produced("7001", "100");
  Line("2026110201", "7001", "30");
  clsDataBOutMakei repo;
  Collection<clsEntBOutMakei> coll;
  ASSERT_EQ(1, repo.QueryByProdNo(&coll, 7001));
  clsEntBOutMakei e;
  e.ProdNo = 7001;
  EXPECT_EQ(2, repo.ChkInputCount(e));
  EXPECT_EQ(ReportList{PlainReport(kOpenWords)}, Reports());
  EXPECT_EQ(0, e.OrdoutQty);
  EXPECT_EQ(1, repo.ChkInputCount(e));
  EXPECT_EQ(70, e.OrdoutQty);
}

// ------------------------------------------------------------ QueryProdNo: kinds

TEST_F(OutsourceQuantitiesTest, QueryProdNoOfAnUnknownKindSendsNothingAndGivesZero) {
  WorkOrder("5001", "GEAR-40", "7001", "100");
  clsDataBOutMakei repo;
  for (const std::int16_t kind : {std::int16_t{0}, std::int16_t{4}, std::int16_t{-1}}) {
    clsEntBOutMakei e = FullLine(5001, 7001);
    EXPECT_EQ(0, repo.QueryProdNo(e, kind)) << kind;
    ExpectSameLine(FullLine(5001, 7001), e);
  }
  EXPECT_TRUE(Sent().empty());
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ QueryProdNo: work orders

TEST_F(OutsourceQuantitiesTest, QueryProdNoOfAWorkOrderGivesItsQuantityLessTheWaiting) {
  WorkOrder("5001", "GEAR-40", "7001", "100");
  Waiting("1", "1", "30", "0", "GEAR-40", "0", "7001", "5001");
  Waiting("2", "1", "10", "0", "GEAR-40", "0", "7001", "5001");
  Waiting("3", "2", "50", "0", "GEAR-40", "0", "7001", "5001");  // an outsource document
  Waiting("4", "1", "40", "0", "GEAR-40", "0", "7001", "5002");  // another work order
  Waiting("5", "1", "40", "0", "GEAR-41", "0", "7001", "5001");  // another item
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.OrderoutNo = 5001;
  e.ItemNo = "ignored";
  EXPECT_EQ(1, repo.QueryProdNo(e, 1));
  EXPECT_EQ(60, e.OrdoutQty);
  EXPECT_EQ(5001, e.OrderoutNo);
  EXPECT_EQ("GEAR-40", e.ItemNo);
  EXPECT_EQ(7001, e.ProdNo);
  EXPECT_EQ((Strings{WorkOrderSql("5001"), WorkWaitingSql("GEAR-40", "7001", "5001")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceQuantitiesTest, QueryProdNoOfAWorkOrderWithoutWaitingGivesTheWholeQuantity) {
  WorkOrder("5001", "GEAR-40", "7001", "100");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.OrderoutNo = 5001;
  EXPECT_EQ(1, repo.QueryProdNo(e, 1));
  EXPECT_EQ(100, e.OrdoutQty);
}

TEST_F(OutsourceQuantitiesTest, QueryProdNoOfAWorkOrderAllWaitingGivesTwo) {
  WorkOrder("5001", "GEAR-40", "7001", "100");
  Waiting("1", "1", "100", "0", "GEAR-40", "0", "7001", "5001");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.OrderoutNo = 5001;
  e.OrdoutQty = 77;
  EXPECT_EQ(2, repo.QueryProdNo(e, 1));
  // Item and production number were set; the quantity was not.
  EXPECT_EQ(77, e.OrdoutQty);
  EXPECT_EQ("GEAR-40", e.ItemNo);
  EXPECT_EQ(7001, e.ProdNo);
  // More waiting than ordered: 2 as well.
  Waiting("2", "1", "5", "0", "GEAR-40", "0", "7001", "5001");
  EXPECT_EQ(2, repo.QueryProdNo(e, 1));
  EXPECT_EQ(77, e.OrdoutQty);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceQuantitiesTest, QueryProdNoOfAnUnknownWorkOrderGivesTwo) {
  WorkOrder("5001", "GEAR-40", "7001", "100");
  clsDataBOutMakei repo;
  clsEntBOutMakei e = FullLine(5009, 7001);
  EXPECT_EQ(2, repo.QueryProdNo(e, 1));
  ExpectSameLine(FullLine(5009, 7001), e);
  EXPECT_EQ(Strings{WorkOrderSql("5009")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceQuantitiesTest, QueryProdNoOfAWorkOrderReadsNullsAsZeroAndEmpty) {
  db().Exec("insert into t_mmakeplanh values (5001, null, null, null)");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.OrderoutNo = 5001;
  e.ItemNo = "x";
  e.ProdNo = 9;
  EXPECT_EQ(2, repo.QueryProdNo(e, 1));  // a null quantity is 0: nothing open
  EXPECT_EQ("", e.ItemNo);
  EXPECT_EQ(0, e.ProdNo);
  EXPECT_EQ(WorkWaitingSql("", "0", "5001"), Commands().back());
}

// ------------------------------------------------------------ QueryProdNo: outsource orders

TEST_F(OutsourceQuantitiesTest, QueryProdNoOfAnOutsourceOrderGivesTheOpenLineQuantity) {
  Header("2026110201", "P01", "'li'");
  Line("2026110201", "7001", "40", "0", "GEAR-40");
  Waiting("1", "2", "15", "0", "GEAR-40", "2026110201", "7001", "0");
  Waiting("2", "1", "20", "0", "GEAR-40", "2026110201", "7001", "0");  // a work order document
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.CustNo = "P01";
  e.OrderoutNo = 2026110201;
  e.ProdNo = 7001;
  EXPECT_EQ(1, repo.QueryProdNo(e, 2));
  EXPECT_EQ(25, e.OrdoutQty);
  EXPECT_EQ("GEAR-40", e.ItemNo);
  EXPECT_EQ(2026110201, e.OrderoutNo);
  EXPECT_EQ(7001, e.ProdNo);
  EXPECT_EQ((Strings{OutsourceSql("P01", "2026110201", "7001"),
                     OutsourceWaitingSql("2026110201", "GEAR-40", "7001")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceQuantitiesTest, QueryProdNoOfAnUnapprovedOrAnotherSuppliersOrderGivesTwo) {
  Header("2026110201", "P01", "''");
  Header("2026110202", "P01", "null");
  Header("2026110203", "P01", "'li'");
  Line("2026110201", "7001", "40");
  Line("2026110202", "7001", "40");
  Line("2026110203", "7001", "40");
  Line("2026110203", "7002", "40", "1");  // a line no longer open
  clsDataBOutMakei repo;
  const auto ask = [&](const std::string& provider, double order, double prod) {
    clsEntBOutMakei e;
    e.CustNo = provider;
    e.OrderoutNo = order;
    e.ProdNo = prod;
    return repo.QueryProdNo(e, 2);
  };
  EXPECT_EQ(2, ask("P01", 2026110201, 7001));
  EXPECT_EQ(2, ask("P01", 2026110202, 7001));
  EXPECT_EQ(2, ask("P02", 2026110203, 7001));
  EXPECT_EQ(2, ask("P01", 2026110203, 7002));
  EXPECT_EQ(1, ask("P01", 2026110203, 7001));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceQuantitiesTest, QueryProdNoOfAnOutsourceOrderAllWaitingKeepsTheLinesValues) {
  Header("2026110201", "P01", "'li'");
  Line("2026110201", "7001", "40", "0", "GEAR-40");
  Waiting("1", "2", "40", "0", "GEAR-40", "2026110201", "7001", "0");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.CustNo = "P01";
  e.OrderoutNo = 2026110201;
  e.ProdNo = 7001;
  e.OrdoutQty = 77;
  EXPECT_EQ(2, repo.QueryProdNo(e, 2));
  EXPECT_EQ(77, e.OrdoutQty);
  EXPECT_EQ("GEAR-40", e.ItemNo);
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ QueryProdNo: purchase orders

TEST_F(OutsourceQuantitiesTest, QueryProdNoOfAPurchaseOrderGivesTheOpenLineQuantity) {
  Purchase("9001", "P01", "'li'", "2");
  PurchaseLine("9001", "BOLT-8", "2", "100", "7001");
  Waiting("1", "1", "30", "9001", "BOLT-8", "0", "0", "0");
  Waiting("2", "2", "10", "9001", "BOLT-8", "0", "0", "0");  // any type counts here
  Waiting("3", "1", "50", "9001", "BOLT-9", "0", "0", "0");  // another item
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.CustNo = "P01";
  e.OrderoutNo = 9001;
  e.ItemNo = "BOLT-8";
  EXPECT_EQ(1, repo.QueryProdNo(e, 3));
  EXPECT_EQ(60, e.OrdoutQty);
  EXPECT_EQ("BOLT-8", e.ItemNo);
  EXPECT_EQ(7001, e.ProdNo);
  EXPECT_EQ(9001, e.OrderoutNo);
  EXPECT_EQ((Strings{PurchaseSql("P01", "9001", "BOLT-8"), PurchaseWaitingSql("9001", "BOLT-8")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceQuantitiesTest, QueryProdNoOfAPurchaseOrderAllWaitingLeavesTheEntity) {
  Purchase("9001", "P01", "'li'", "2");
  PurchaseLine("9001", "BOLT-8", "2", "100", "7001");
  Waiting("1", "1", "120", "9001", "BOLT-8", "0", "0", "0");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.CustNo = "P01";
  e.OrderoutNo = 9001;
  e.ItemNo = "BOLT-8";
  e.ProdNo = 5;
  e.OrdoutQty = 77;
  EXPECT_EQ(2, repo.QueryProdNo(e, 3));
  EXPECT_EQ(5, e.ProdNo);
  EXPECT_EQ(77, e.OrdoutQty);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceQuantitiesTest, QueryProdNoOfAPurchaseOrderNeedsApprovalAndStatusTwo) {
  Purchase("9001", "P01", "''", "2");
  Purchase("9002", "P01", "'li'", "1");
  Purchase("9003", "P01", "'li'", "2");
  PurchaseLine("9001", "BOLT-8", "2", "100", "7001");
  PurchaseLine("9002", "BOLT-8", "2", "100", "7001");
  PurchaseLine("9003", "BOLT-8", "1", "100", "7001");
  PurchaseLine("9003", "BOLT-9", "2", "100", "7001");
  clsDataBOutMakei repo;
  const auto ask = [&](const std::string& provider, double pur, const std::string& item) {
    clsEntBOutMakei e;
    e.CustNo = provider;
    e.OrderoutNo = pur;
    e.ItemNo = item;
    return repo.QueryProdNo(e, 3);
  };
  EXPECT_EQ(2, ask("P01", 9001, "BOLT-8"));
  EXPECT_EQ(2, ask("P01", 9002, "BOLT-8"));
  EXPECT_EQ(2, ask("P01", 9003, "BOLT-8"));
  EXPECT_EQ(2, ask("P02", 9003, "BOLT-9"));
  EXPECT_EQ(1, ask("P01", 9003, "BOLT-9"));
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ QueryProdNo: failures

TEST_F(OutsourceQuantitiesTest, QueryProdNoWithAQuoteGivesTheAlertReportAndZero) {
  Header("2026110201", "P01", "'li'");
  Line("2026110201", "7001", "40");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.CustNo = "P'01";
  e.OrderoutNo = 2026110201;
  e.ProdNo = 7001;
  EXPECT_EQ(0, repo.QueryProdNo(e, 2));
  EXPECT_EQ(Strings{OutsourceSql("P'01", "2026110201", "7001")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr(kSyntax));
  EXPECT_EQ(16, Reports()[0].style);
  EXPECT_EQ("错误提示", Reports()[0].title);
  // The next call works.
  e.CustNo = "P01";
  EXPECT_EQ(1, repo.QueryProdNo(e, 2));
}

TEST_F(OutsourceQuantitiesTest, QueryProdNoFailingOnTheWaitingKeepsWhatWasSet) {
  WorkOrder("5001", "GEAR-40", "7001", "100");
  db().Exec("drop table t_witemi");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.OrderoutNo = 5001;
  e.OrdoutQty = 77;
  EXPECT_EQ(0, repo.QueryProdNo(e, 1));
  EXPECT_EQ((Strings{WorkOrderSql("5001"), WorkWaitingSql("GEAR-40", "7001", "5001")}),
            Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ(AlertReport(Reports()[0].text), Reports()[0]);
  EXPECT_THAT(Reports()[0].text, HasSubstr("t_witemi' doesn't exist"));
  EXPECT_EQ("GEAR-40", e.ItemNo);
  EXPECT_EQ(7001, e.ProdNo);
  EXPECT_EQ(77, e.OrdoutQty);
  // rs was reset and the local recordset released: other calls work.
  Produced("7001", "100");
  EXPECT_EQ(1, repo.ChkInputCount(e));
  EXPECT_EQ(100, e.OrdoutQty);
}

TEST_F(OutsourceQuantitiesTest, QueryProdNoShowsTheAlertBeforeItResetsRs) {
  // The waiting sum fails while the work order is open on rs; a method that
  // uses rs as it stands, called from the report, still finds it open.
  WorkOrder("5001", "GEAR-40", "7001", "100");
  Produced("7001", "100");
  db().Exec("drop table t_witemi");
  clsDataBOutMakei repo;
  ReportList shown;
  std::vector<std::int16_t> inner;
  SetReportHandler([&](const Report& r) {
    shown.push_back(r);
    if (shown.size() == 1) {
      clsEntBOutMakei probe;
      probe.ProdNo = 7001;
      inner.push_back(repo.ChkInputCount(probe));
    }
  });
  clsEntBOutMakei e;
  e.OrderoutNo = 5001;
  EXPECT_EQ(0, repo.QueryProdNo(e, 1));
  EXPECT_EQ(std::vector<std::int16_t>{2}, inner);
  ASSERT_EQ(2u, shown.size());
  EXPECT_EQ(AlertReport(shown[0].text), shown[0]);
  EXPECT_THAT(shown[0].text, HasSubstr("t_witemi' doesn't exist"));
  EXPECT_EQ(PlainReport(kOpenWords), shown[1]);
  // Reset after the report: the object works again.
  clsEntBOutMakei probe;
  probe.ProdNo = 7001;
  EXPECT_EQ(1, repo.ChkInputCount(probe));
  EXPECT_EQ(100, probe.OrdoutQty);
  EXPECT_EQ(2u, shown.size());
}

TEST_F(OutsourceQuantitiesTest, QueryProdNoLeavesRsClosedOnEveryPath) {
  WorkOrder("5001", "GEAR-40", "7001", "100");
  Produced("7001", "10");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.OrderoutNo = 5009;
  EXPECT_EQ(2, repo.QueryProdNo(e, 1));  // no such work order
  EXPECT_EQ(1, repo.ChkInputCount(e));
  e.OrderoutNo = 5001;
  EXPECT_EQ(1, repo.QueryProdNo(e, 1));  // open quantity
  EXPECT_EQ(1, repo.ChkInputCount(e));
  EXPECT_TRUE(Reports().empty());
}

}  // namespace
}  // namespace corvane
