// clsDataBOutMakeh against the sandbox server: the supplier check, the full
// reads with the null value of each column, the status test, the server's
// time and the three ways of changing an order, with the statements sent,
// the results, the reports and the table contents afterwards.
#include "corvane/outsource/outsource_header.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/outsource/outsource_support.h"

namespace corvane {
namespace {

using namespace ::corvane::outsource_testing;
using ::corvane::testing::LengthReport;
using ::corvane::testing::PlainReport;
using ::testing::HasSubstr;

// The statements of the class, with the values put in.
std::string ChkProviderSql(const std::string& name, const std::string& no) {
  return "select F_orderoutNo from t_boutmakeh where F_ProviderNo in(select F_ProviderNo from "
         "t_cprovider where F_Name='" +
         name + "') and F_orderoutNo='" + no + "'";
}
std::string ChkItemSql(const std::string& no) {
  return "select * from t_boutmakeh where F_OrderoutNo ='" + no + "'";
}
const std::string kMaxItemSql =
    "select * from t_boutmakeh where F_OrderoutNo in (select max(F_OrderoutNo) from t_boutmakeh)";
std::string OrderoutNoSql(const std::string& date) {
  return "select max(F_OrderoutNo) AS F_OrderoutNo from t_boutmakeh where F_OrderoutDate='" +
         date + "'";
}
const std::string kDateTimeSql = "select now() as f_datetime";
std::string StatusSql(const std::string& no) {
  return "select F_Flags from t_boutmakeh where F_OrderOutNo ='" + no + "'";
}
std::string EditSql(const std::string& no) {
  return "select * from t_boutmakeh where F_OrderoutNo ='" + no + "'";
}
std::string CheckerSql(const std::string& checker, const std::string& no) {
  return "update t_boutmakeh set F_Checker='" + checker +
         "',F_CheckerTime = now() where F_OrderoutNo ='" + no + "'";
}
std::string ApproveSql(const std::string& approve, const std::string& no) {
  return "update t_boutmakeh set F_Approve='" + approve +
         "',F_ApproveTime = now() where F_OrderoutNo ='" + no + "'";
}
std::string FlagsSql(const std::string& flags, const std::string& no) {
  return "update t_boutmakeh set F_Flags='" + flags + "' where F_OrderoutNo ='" + no + "'";
}

class OutsourceHeaderTest : public OutsourceTest {};

// ------------------------------------------------------------ ChkNoByProviderName

TEST_F(OutsourceHeaderTest, ChkNoByProviderNameFindsTheOrderUnderTheNamedSupplier) {
  db().Exec("insert into t_cprovider values ('P01', 'Foundry'), ('P02', 'Press')");
  Order("2026110201", "2026-11-02", "P01");
  clsDataBOutMakeh repo;
  EXPECT_EQ(1, repo.ChkNoByProviderName(2026110201, "Foundry"));
  EXPECT_EQ(0, repo.ChkNoByProviderName(2026110201, "Press"));
  EXPECT_EQ(0, repo.ChkNoByProviderName(2026110202, "Foundry"));
  EXPECT_EQ(0, repo.ChkNoByProviderName(2026110201, "Nobody"));
  EXPECT_EQ((Strings{ChkProviderSql("Foundry", "2026110201"), ChkProviderSql("Press", "2026110201"),
                     ChkProviderSql("Foundry", "2026110202"),
                     ChkProviderSql("Nobody", "2026110201")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceHeaderTest, ChkNoByProviderNameFindsTheNumberUnderAnySupplierOfASharedName) {
  db().Exec("insert into t_cprovider values ('P01', 'Foundry'), ('P07', 'Foundry')");
  Order("2026110201", "2026-11-02", "P01");
  Order("2026110202", "2026-11-02", "P07");
  clsDataBOutMakeh repo;
  EXPECT_EQ(1, repo.ChkNoByProviderName(2026110201, "Foundry"));
  EXPECT_EQ(1, repo.ChkNoByProviderName(2026110202, "Foundry"));
}

TEST_F(OutsourceHeaderTest, ChkNoByProviderNameWithAQuoteReportsAndGivesTwoThenRecovers) {
  db().Exec("insert into t_cprovider values ('P01', 'Foundry')");
  Order("2026110201", "2026-11-02", "P01");
  clsDataBOutMakeh repo;
  EXPECT_EQ(2, repo.ChkNoByProviderName(2026110201, "O'Neil"));
  EXPECT_EQ(Strings{ChkProviderSql("O'Neil", "2026110201")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
  EXPECT_EQ(1, repo.ChkNoByProviderName(2026110201, "Foundry"));
  EXPECT_EQ(1u, Reports().size());
}

// ------------------------------------------------------------ QueryChkItem

TEST_F(OutsourceHeaderTest, QueryChkItemReadsAllThirtyThreeColumns) {
  InsertFullOrder("2026110201");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 2026110201;
  EXPECT_EQ(1, repo.QueryChkItem(e));
  ExpectSameOrder(FullOrder(2026110201), e);
  EXPECT_EQ(Strings{ChkItemSql("2026110201")}, Commands());
  EXPECT_TRUE(Reports().empty());
  // The recordset was closed: the next call opens it again.
  EXPECT_EQ(1, repo.QueryChkItem(e));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceHeaderTest, QueryChkItemOfAnUnknownNumberGivesZeroAndLeavesTheEntity) {
  InsertFullOrder("2026110201");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 2026110299;
  e.Tabler = "kept";
  EXPECT_EQ(0, repo.QueryChkItem(e));
  EXPECT_EQ(2026110299, e.OrderoutNo);
  EXPECT_EQ("kept", e.Tabler);
  EXPECT_EQ(Strings{ChkItemSql("2026110299")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceHeaderTest, QueryChkItemReadsNullsAsEachColumnsOwnValue) {
  db().Exec("insert into t_boutmakeh (F_OrderOutNo) values (2026110201)");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110201);
  EXPECT_EQ(1, repo.QueryChkItem(e));
  // The delivery mode and the supplier read as the text "0", everything
  // else as the empty text, 0 or the zero date.
  clsEntBOutMakeh expected;
  expected.OrderoutNo = 2026110201;
  expected.DeliverMode = "0";
  expected.ProviderNo = "0";
  ExpectSameOrder(expected, e);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceHeaderTest, QueryChkItemReportsAFailureAndGivesZero) {
  db().Exec("drop table t_boutmakeh");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 2026110201;
  EXPECT_EQ(0, repo.QueryChkItem(e));
  EXPECT_EQ(Strings{ChkItemSql("2026110201")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("t_boutmakeh' doesn't exist"));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
}

// ------------------------------------------------------------ QueryMaxItem

TEST_F(OutsourceHeaderTest, QueryMaxItemOfAnEmptyTableGivesZero) {
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.Tabler = "kept";
  EXPECT_EQ(0, repo.QueryMaxItem(e));
  EXPECT_EQ("kept", e.Tabler);
  EXPECT_EQ(Strings{kMaxItemSql}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceHeaderTest, QueryMaxItemReadsTheNewestOrderOfAllDays) {
  Order("2026110301", "2026-11-03");
  InsertFullOrder("2026120101");
  Order("2026110201", "2026-11-02");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  ExpectSameOrder(FullOrder(2026120101), e);
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  EXPECT_EQ(Strings(2, kMaxItemSql), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceHeaderTest, QueryMaxItemReadsNullsAsEachColumnsOwnValue) {
  db().Exec("insert into t_boutmakeh (F_OrderOutNo) values (2026110201)");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(1);
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  clsEntBOutMakeh expected;
  expected.OrderoutNo = 2026110201;
  expected.DeliverMode = "0";
  expected.ProviderNo = "0";
  ExpectSameOrder(expected, e);
}

TEST_F(OutsourceHeaderTest, QueryMaxItemReportsAFailureAndGivesZero) {
  db().Exec("drop table t_boutmakeh");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  EXPECT_EQ(0, repo.QueryMaxItem(e));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("t_boutmakeh' doesn't exist"));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
}

// ------------------------------------------------------------ QueryOrderoutNo

TEST_F(OutsourceHeaderTest, QueryOrderoutNoGivesTheLargestNumberOfTheDay) {
  Order("2026110201", "2026-11-02");
  Order("2026110202", "2026-11-02");
  Order("2026110301", "2026-11-03");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  EXPECT_EQ(1, repo.QueryOrderoutNo(e, Date::FromParts(2026, 11, 2)));
  EXPECT_EQ(2026110202, e.OrderoutNo);
  EXPECT_EQ(Strings{OrderoutNoSql("2026-11-02")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceHeaderTest, QueryOrderoutNoOnADayWithoutOrdersSetsZeroAndGivesZero) {
  Order("2026110201", "2026-11-02");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 77;
  EXPECT_EQ(0, repo.QueryOrderoutNo(e, Date::FromParts(2026, 11, 5)));
  EXPECT_EQ(0, e.OrderoutNo);
  EXPECT_EQ(Strings{OrderoutNoSql("2026-11-05")}, Commands());
  EXPECT_TRUE(Reports().empty());
  // A date with a time compares with its time.
  e.OrderoutNo = 77;
  EXPECT_EQ(0, repo.QueryOrderoutNo(e, Date::FromParts(2026, 11, 2, 8, 30, 0)));
  EXPECT_EQ(0, e.OrderoutNo);
  EXPECT_EQ(OrderoutNoSql("2026-11-02 08:30:00"), Commands().back());
}

TEST_F(OutsourceHeaderTest, QueryOrderoutNoReportsAFailureAndGivesTwo) {
  db().Exec("drop table t_boutmakeh");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 77;
  EXPECT_EQ(2, repo.QueryOrderoutNo(e, Date::FromParts(2026, 11, 2)));
  EXPECT_EQ(77, e.OrderoutNo);
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("doesn't exist"));
  EXPECT_EQ(64, Reports()[0].style);
}

// ------------------------------------------------------------ QueryDateTime

TEST_F(OutsourceHeaderTest, QueryDateTimeGivesTheServersDateAndTime) {
  clsDataBOutMakeh repo;
  const Date now = repo.QueryDateTime();
  EXPECT_EQ(Strings{kDateTimeSql}, Commands());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ("1", db().Scalar("select abs(timestampdiff(second, '" + ServerText(now) +
                             "', now())) < 60"));
  // Closed after reading: it runs again.
  EXPECT_NE(Date(), repo.QueryDateTime());
}

TEST_F(OutsourceHeaderTest, QueryDateTimeOnAnOpenRsReportsAndGivesTheZeroDate) {
  // A day without orders makes QueryMaxItemDelete fail with rs still open;
  // its report is shown before the reset, and QueryDateTime called from the
  // report finds rs open.
  Order("2026110201", "2026-11-02");
  clsDataBOutMakeh repo;
  ReportList shown;
  std::vector<Date> inner;
  SetReportHandler([&](const Report& r) {
    shown.push_back(r);
    if (shown.size() == 1) inner.push_back(repo.QueryDateTime());
  });
  clsEntBOutMakeh e;
  EXPECT_EQ(0, repo.QueryMaxItemDelete(e, Date::FromParts(2026, 11, 5)));
  EXPECT_EQ(std::vector<Date>{Date()}, inner);
  EXPECT_EQ((ReportList{PlainReport("Invalid use of Null"), PlainReport(kOpenWords)}), shown);
  // The failing QueryDateTime sent nothing.
  EXPECT_EQ(Strings{"select max(F_OrderoutNo) as F_OrderoutNo from t_boutmakeh where "
                    "F_OrderoutDate ='2026-11-05'"},
            Commands());
  // Both handlers reset rs: the next call works.
  EXPECT_NE(Date(), repo.QueryDateTime());
  EXPECT_EQ(2u, shown.size());
}

// ------------------------------------------------------------ QueryStatus

TEST_F(OutsourceHeaderTest, QueryStatusTellsFlagOneFromEveryOtherState) {
  Order("2026110201", "2026-11-02");
  Order("2026110202", "2026-11-02");
  Order("2026110203", "2026-11-02");
  Order("2026110204", "2026-11-02");
  db().Exec("update t_boutmakeh set F_Flags=1 where F_OrderOutNo=2026110201");
  db().Exec("update t_boutmakeh set F_Flags=0 where F_OrderOutNo=2026110202");
  db().Exec("update t_boutmakeh set F_Flags=2 where F_OrderOutNo=2026110203");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 2026110201;
  EXPECT_EQ(1, repo.QueryStatus(e));
  e.OrderoutNo = 2026110202;
  EXPECT_EQ(2, repo.QueryStatus(e));
  e.OrderoutNo = 2026110203;
  EXPECT_EQ(2, repo.QueryStatus(e));
  e.OrderoutNo = 2026110204;  // F_Flags null
  EXPECT_EQ(2, repo.QueryStatus(e));
  e.OrderoutNo = 2026110299;  // no such order
  EXPECT_EQ(2, repo.QueryStatus(e));
  EXPECT_EQ((Strings{StatusSql("2026110201"), StatusSql("2026110202"), StatusSql("2026110203"),
                     StatusSql("2026110204"), StatusSql("2026110299")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(0, e.Flags);  // the entity is not filled
}

TEST_F(OutsourceHeaderTest, QueryStatusReportsAFailureAndGivesZero) {
  db().Exec("drop table t_boutmakeh");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 2026110201;
  EXPECT_EQ(0, repo.QueryStatus(e));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_THAT(Reports()[0].text, HasSubstr("doesn't exist"));
}

// ------------------------------------------------------------ UpdateRecord

TEST_F(OutsourceHeaderTest, UpdateRecordOneWritesTheEnteredColumnsOnly) {
  InsertFullOrder("2026110201");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;  // all defaults: what is written shows as blanks and zeros
  e.OrderoutNo = 2026110201;
  e.Tabler = "zz";
  e.Tabletime = Date::FromParts(2030, 1, 1);
  e.Approve = "zz";
  e.Checker = "zz";
  e.Flags = 9;
  e.DocType = "zz";
  e.UpdataUser = "zz";
  e.ProviderNo = "P02";
  e.PayDay = 15;
  e.Comments = "it's";  // a quote goes into a column write as it stands
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", 1));
  EXPECT_EQ(Strings{EditSql("2026110201")}, Commands());
  // The row change names the columns as the table does, in its order.
  EXPECT_EQ(Strings{"UPDATE " + Table("t_boutmakeh") +
                    " SET `F_OrderOutNo`=2026110201,`F_DeliverAddr`='',`F_DeliverMode`='',"
                    "`F_OrderoutDate`='1899-12-30 00:00:00',`F_PayDay`=15,`F_PayMode`='',"
                    "`F_ProviderNo`='P02',`F_BuYerID`='',`F_SOrderNo`='',`F_OrderType`='',"
                    "`F_Package`='',`F_TotalBefore`=0,`F_DisCount`=0,`F_Greight`=0,`F_Tax`=0,"
                    "`F_Total`=0,`F_ProviderName`='',`F_jrnlMemo`='',"
                    "`F_DueDate`='1899-12-30 00:00:00',`F_TaxDate`='1899-12-30 00:00:00',"
                    "`F_PayMonth`=0,`F_Comments`='it\\'s',`F_Attn`='',`F_Currency`=''"
                    " WHERE `F_OrderOutNo` <=> 2026110201 LIMIT 1"},
            SentOf(StatementKind::kRowChange));
  EXPECT_TRUE(Reports().empty());
  // The signatures, the flags, the entry and the columns never written stay.
  EXPECT_EQ((Rows{{"2026110201", "li", "2026-11-02 10:00:00", "wang", "2026-11-02 09:00:00", "",
                   "", "3", "1899-12-30 00:00:00", "15", "", "P02", "ann", "2026-11-01 08:00:00",
                   "", "", "", "", "0", "0", "0", "0", "0", "OM", "", "", "1899-12-30 00:00:00",
                   "1899-12-30 00:00:00", "dan", "0", "it's", "", ""}}),
            OrderRow("2026110201"));
}

TEST_F(OutsourceHeaderTest, UpdateRecordOneWritesEveryEnteredValue) {
  Order("2026110201", "2026-11-01", "P09");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110201);
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", 1));
  Strings cells = FullOrderCells();
  // Not written: the signatures, the flags, the entry and DocType, UpdataUser.
  for (int i : {0, 1, 2, 3, 6, 11, 12, 22, 27}) cells[i] = "NULL";
  cells.insert(cells.begin(), "2026110201");
  EXPECT_EQ(Rows{cells}, OrderRow("2026110201"));
}

TEST_F(OutsourceHeaderTest, UpdateRecordOneMovesTheOrderToTheEntitysNumberAlone) {
  Order("2026110201", "2026-11-02");
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110201, '2026-11-02')");
  Line("2026110201", "7001", "40");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110209);
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", 1));
  EXPECT_EQ((Rows{{"2026110209", "2026-11-02"}}), Orders());
  // Neither the day's row nor the lines follow.
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110201", "2026-11-02 00:00:00"}}), Counters());
  EXPECT_EQ((Rows{{"2026110201", "7001", "40"}}), Lines());
}

TEST_F(OutsourceHeaderTest, UpdateRecordOneOfAnUnknownNumberGivesZeroAndWritesNothing) {
  Order("2026110201", "2026-11-02");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110201);
  // The key is the argument, not the entity's number.
  EXPECT_EQ(0, repo.UpdateRecord(e, "2026110299", 1));
  EXPECT_EQ(Strings{EditSql("2026110299")}, Commands());
  EXPECT_TRUE(SentOf(StatementKind::kRowChange).empty());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{{"2026110201", "2026-11-02"}}), Orders());
  // Closed on that path: the next call works.
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", 1));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceHeaderTest, UpdateRecordOneWithAValueTooLongGivesTheLengthReportAndZero) {
  InsertFullOrder("2026110201");
  const Rows before = OrderRow("2026110201");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110201);
  e.Currency = std::string(51, 'x');
  EXPECT_EQ(0, repo.UpdateRecord(e, "2026110201", 1));
  EXPECT_EQ(ReportList{LengthReport()}, Reports());
  EXPECT_TRUE(SentOf(StatementKind::kRowChange).empty());
  EXPECT_EQ(before, OrderRow("2026110201"));
  // The pending edit went with the reset: the next call starts clean.
  e.Currency = "USD";
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", 1));
  EXPECT_EQ(1u, Reports().size());
  EXPECT_EQ("USD", db().Scalar("select F_Currency from t_boutmakeh"));
}

TEST_F(OutsourceHeaderTest, UpdateRecordTwoAndThreeSignAtTheServersTime) {
  Order("2026110201", "2026-11-02");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 1;  // not used: the key is the argument
  e.Checker = "wang";
  e.Approve = "li";
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", 2));
  EXPECT_EQ((Rows{{"wang", "NULL", "1", "0"}}),
            db().Rows("select F_Checker, ifnull(F_Approve,'NULL'), "
                      "abs(timestampdiff(second, F_CheckerTime, now())) < 60, "
                      "F_ApproveTime is not null from t_boutmakeh"));
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", 3));
  EXPECT_EQ((Rows{{"wang", "li", "1"}}),
            db().Rows("select F_Checker, F_Approve, "
                      "abs(timestampdiff(second, F_ApproveTime, now())) < 60 from t_boutmakeh"));
  EXPECT_EQ((Strings{CheckerSql("wang", "2026110201"), ApproveSql("li", "2026110201")}),
            Commands());
  EXPECT_TRUE(SentOf(StatementKind::kRowChange).empty());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceHeaderTest, UpdateRecordFourWritesTheFlagsAsNumberText) {
  Order("2026110201", "2026-11-02");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.Flags = -3;
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", 4));
  EXPECT_EQ("-3", db().Scalar("select F_Flags from t_boutmakeh"));
  e.Flags = 1;
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", 4));
  EXPECT_EQ((Strings{FlagsSql("-3", "2026110201"), FlagsSql("1", "2026110201")}), Commands());
  e.OrderoutNo = 2026110201;
  EXPECT_EQ(1, repo.QueryStatus(e));
}

TEST_F(OutsourceHeaderTest, UpdateRecordTwoToFourOfAnUnknownNumberStillGiveOne) {
  Order("2026110201", "2026-11-02");
  const Rows before = OrderRow("2026110201");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110201);
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110299", 2));
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110299", 3));
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110299", 4));
  EXPECT_EQ((Strings{CheckerSql("wang", "2026110299"), ApproveSql("li", "2026110299"),
                     FlagsSql("3", "2026110299")}),
            Commands());
  EXPECT_EQ(before, OrderRow("2026110201"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceHeaderTest, UpdateRecordWithAnyOtherConditionWritesNothingAndGivesOne) {
  InsertFullOrder("2026110201");
  const Rows before = OrderRow("2026110201");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", 0));
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", 5));
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", -1));
  EXPECT_TRUE(Sent().empty());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(before, OrderRow("2026110201"));
}

TEST_F(OutsourceHeaderTest, UpdateRecordSetsTheCursorBeforeItLooksAtTheCondition) {
  // CursorType and LockType are set whatever UpdateCondition says: on an rs
  // left open (here by the report of a failing QueryMaxItemDelete, shown
  // before its reset) even the condition that runs nothing fails.
  Order("2026110201", "2026-11-02");
  clsDataBOutMakeh repo;
  ReportList shown;
  std::vector<std::int16_t> inner;
  SetReportHandler([&](const Report& r) {
    shown.push_back(r);
    if (shown.size() == 1) {
      clsEntBOutMakeh e;
      inner.push_back(repo.UpdateRecord(e, "2026110201", 0));
    }
  });
  clsEntBOutMakeh e;
  EXPECT_EQ(0, repo.QueryMaxItemDelete(e, Date::FromParts(2026, 11, 5)));
  EXPECT_EQ(std::vector<std::int16_t>{0}, inner);
  // The length report shows the recordset's own words.
  EXPECT_EQ((ReportList{PlainReport("Invalid use of Null"), Described(kOpenWords)}), shown);
  EXPECT_EQ(1u, Commands().size());
  // With rs reset the same call gives 1.
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201", 0));
  EXPECT_EQ(2u, shown.size());
}

TEST_F(OutsourceHeaderTest, UpdateRecordWithAQuoteInTheSignatureReportsAndGivesZero) {
  Order("2026110201", "2026-11-02");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.Checker = "O'Neil";
  EXPECT_EQ(0, repo.UpdateRecord(e, "2026110201", 2));
  EXPECT_EQ(Strings{CheckerSql("O'Neil", "2026110201")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  // Not a value too long: the length report shows the failure's words.
  EXPECT_THAT(Reports()[0].text, HasSubstr(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
  EXPECT_EQ((Rows{{"NULL"}}), db().Rows("select F_Checker from t_boutmakeh"));
}

TEST_F(OutsourceHeaderTest, UpdateRecordTwoWithASignatureTooLongGivesTheLengthReport) {
  Order("2026110201", "2026-11-02");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.Checker = std::string(51, 'c');
  // The server refuses the value; a value that does not fit its column is
  // the failure with the fixed words.
  EXPECT_EQ(0, repo.UpdateRecord(e, "2026110201", 2));
  EXPECT_EQ(ReportList{LengthReport()}, Reports());
  EXPECT_EQ((Rows{{"NULL"}}), db().Rows("select F_Checker from t_boutmakeh"));
}

}  // namespace
}  // namespace corvane
