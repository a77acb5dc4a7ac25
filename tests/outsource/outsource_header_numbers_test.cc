// clsDataBOutMakeh's numbers against the sandbox server: storing an order
// with the day's row of t_sitemno, the largest number of a day, and deleting
// an order with the day's row following, with the statements sent, the
// results, the reports and what the tables hold afterwards.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "corvane/outsource/outsource_header.h"
#include "tests/outsource/outsource_support.h"

namespace corvane {
namespace {

using namespace ::corvane::outsource_testing;
using ::corvane::testing::LengthReport;
using ::corvane::testing::PlainReport;
using ::testing::HasSubstr;

std::string TakenSql(const std::string& no) {
  return "select * from t_boutmakeh where F_OrderoutNo='" + no + "'";
}
std::string InsertCounterSql(const std::string& table, const std::string& no,
                             const std::string& date) {
  return "insert into t_sitemno values ('" + table + "' ,'" + no + "','" + date + "')";
}
std::string UpdateCounterSql(const std::string& table, const std::string& no,
                             const std::string& date) {
  return "update t_sitemno set F_No='" + no + "' where F_FnDate='" + date +
         "' and F_TableName='" + table + "'";
}
std::string MaxOfDaySql(const std::string& date) {
  return "select max(F_OrderoutNo) as F_OrderoutNo from t_boutmakeh where F_OrderoutDate ='" +
         date + "'";
}
std::string DeleteSql(const std::string& no) {
  return "delete from t_boutmakeh where F_OrderoutNo ='" + no + "' ";
}
std::string LeftOfDaySql(const std::string& date) {
  return "select * from t_boutmakeh where F_OrderoutDate='" + date + "'";
}
std::string FollowSql(const std::string& date, const std::string& table) {
  return "update t_sitemno set F_No= (select max(F_OrderoutNo) from t_boutmakeh where "
         "F_OrderoutDate='" +
         date + "') where F_FnDate='" + date + "' and F_TableName='" + table + "'";
}
std::string RemoveCounterSql(const std::string& date, const std::string& table) {
  return "delete from t_sitemno where F_FnDate ='" + date + "' and F_TableName='" + table + "'";
}

class OutsourceNumbersTest : public OutsourceTest {
 protected:
  // The time columns of the stored entry, as the server prints it.
  std::string Tabletime(const std::string& no) {
    return db().Scalar("select F_Tabletime from t_boutmakeh where F_OrderOutNo=" + no).value();
  }
};

// ------------------------------------------------------------ AddRecord

TEST_F(OutsourceNumbersTest, AddRecordStoresTheOrderAndInsertsTheDaysRow) {
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110201);
  const std::string before = ServerText(Date::Now());
  EXPECT_EQ(1, repo.AddRecord(e, "t_boutmakeh", 0));
  const std::string after = ServerText(Date::Now());
  EXPECT_EQ((Strings{TakenSql("2026110201"),
                     InsertCounterSql("t_boutmakeh", "2026110201", "2026-11-02")}),
            Commands());
  EXPECT_TRUE(Reports().empty());

  // The row change names the columns as the table does, in its order; the
  // entry time is the client's, not the entity's.
  const Strings changes = SentOf(StatementKind::kRowChange);
  ASSERT_EQ(1u, changes.size());
  const std::string head =
      "INSERT INTO " + Table("t_boutmakeh") +
      " (`F_OrderOutNo`,`F_DeliverAddr`,`F_DeliverMode`,`F_OrderoutDate`,`F_PayDay`,`F_PayMode`,"
      "`F_ProviderNo`,`F_Tabler`,`F_Tabletime`,`F_BuYerID`,`F_SOrderNo`,`F_OrderType`,"
      "`F_Package`,`F_TotalBefore`,`F_DisCount`,`F_Greight`,`F_Tax`,`F_Total`,`F_ProviderName`,"
      "`F_jrnlMemo`,`F_DueDate`,`F_TaxDate`,`F_PayMonth`,`F_Comments`,`F_Attn`,`F_Currency`) "
      "VALUES (2026110201,'Dock 4','Truck','2026-11-02 00:00:00',30,'T/T','P01','ann','";
  const std::string tail =
      "','B7','SO-9','Cast','Crate',1000.5,2.5,30.25,170.75,1176.5,'Foundry','memo',"
      "'2026-12-01 00:00:00','2026-12-02 00:00:00',2,'rush','Mr. Li','CNY')";
  ASSERT_GT(changes[0].size(), head.size() + tail.size());
  EXPECT_EQ(head, changes[0].substr(0, head.size()));
  EXPECT_EQ(tail, changes[0].substr(changes[0].size() - tail.size()));
  const std::string stamp =
      changes[0].substr(head.size(), changes[0].size() - head.size() - tail.size());
  EXPECT_LE(before, stamp);
  EXPECT_GE(after, stamp);
  EXPECT_EQ(stamp, Tabletime("2026110201"));

  // Not written: the signatures, the flags, DocType, UpdataUser.
  Strings cells = FullOrderCells();
  for (int i : {0, 1, 2, 3, 6, 22, 27}) cells[i] = "NULL";
  cells[12] = stamp;
  cells.insert(cells.begin(), "2026110201");
  EXPECT_EQ(Rows{cells}, OrderRow("2026110201"));
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110201", "2026-11-02 00:00:00"}}), Counters());
}

TEST_F(OutsourceNumbersTest, AddRecordWithStatusZeroTrimsTheTableNameAndTheDate) {
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110201);
  e.OrderoutDate = Date::FromParts(2026, 11, 2, 8, 15, 0);
  EXPECT_EQ(1, repo.AddRecord(e, "  t_boutmakeh ", 0));
  EXPECT_EQ(InsertCounterSql("t_boutmakeh", "2026110201", "2026-11-02 08:15:00"),
            Commands().back());
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110201", "2026-11-02 08:15:00"}}), Counters());
}

TEST_F(OutsourceNumbersTest, AddRecordWithAnotherStatusPointsTheDaysRowAtTheNumber) {
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110201, '2026-11-02')");
  Order("2026110201", "2026-11-02");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110202);
  EXPECT_EQ(1, repo.AddRecord(e, "t_boutmakeh", 1));
  EXPECT_EQ((Strings{TakenSql("2026110202"),
                     UpdateCounterSql("t_boutmakeh", "2026110202", "2026-11-02")}),
            Commands());
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110202", "2026-11-02 00:00:00"}}), Counters());
  EXPECT_EQ((Rows{{"2026110201", "2026-11-02"}, {"2026110202", "2026-11-02"}}), Orders());
  // Any value but 0 updates; the name is not trimmed there.
  e = FullOrder(2026110203);
  EXPECT_EQ(1, repo.AddRecord(e, " t_boutmakeh", -7));
  EXPECT_EQ(UpdateCounterSql(" t_boutmakeh", "2026110203", "2026-11-02"), Commands().back());
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110202", "2026-11-02 00:00:00"}}), Counters());
  EXPECT_EQ(3u, Orders().size());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceNumbersTest, AddRecordWithAnotherStatusOnADayWithoutARowRemembersNothing) {
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110201);
  EXPECT_EQ(1, repo.AddRecord(e, "t_boutmakeh", 1));
  EXPECT_EQ((Rows{{"2026110201", "2026-11-02"}}), Orders());
  EXPECT_TRUE(Counters().empty());
}

TEST_F(OutsourceNumbersTest, AddRecordWithStatusZeroOnADayWithARowInsertsASecondRow) {
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110201, '2026-11-02')");
  Order("2026110201", "2026-11-02");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110202);
  EXPECT_EQ(1, repo.AddRecord(e, "t_boutmakeh", 0));
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110201", "2026-11-02 00:00:00"},
                  {"t_boutmakeh", "2026110202", "2026-11-02 00:00:00"}}),
            Counters());
}

TEST_F(OutsourceNumbersTest, AddRecordOfATakenNumberGivesZeroAndWritesNothing) {
  Order("2026110201", "2026-11-02", "P09");
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110201, '2026-11-02')");
  const Rows before = OrderRow("2026110201");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110201);
  EXPECT_EQ(0, repo.AddRecord(e, "t_boutmakeh", 0));
  EXPECT_EQ(Strings{TakenSql("2026110201")}, Commands());
  EXPECT_TRUE(SentOf(StatementKind::kRowChange).empty());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(before, OrderRow("2026110201"));
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110201", "2026-11-02 00:00:00"}}), Counters());
  // Closed on that path: the next add works.
  e.OrderoutNo = 2026110202;
  EXPECT_EQ(1, repo.AddRecord(e, "t_boutmakeh", 1));
}

TEST_F(OutsourceNumbersTest, AddRecordWithAValueTooLongGivesTheLengthReportAndTwo) {
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110201);
  e.Attn = std::string(101, 'a');
  EXPECT_EQ(2, repo.AddRecord(e, "t_boutmakeh", 0));
  EXPECT_EQ(ReportList{LengthReport()}, Reports());
  EXPECT_EQ(Strings{TakenSql("2026110201")}, Commands());
  EXPECT_TRUE(Orders().empty());
  EXPECT_TRUE(Counters().empty());
  // The half-added row went with the reset.
  e.Attn = "Ms. Wu";
  EXPECT_EQ(1, repo.AddRecord(e, "t_boutmakeh", 0));
  EXPECT_EQ(1u, Orders().size());
}

TEST_F(OutsourceNumbersTest, AddRecordFailingOnTheDaysRowLeavesTheOrderStored) {
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e = FullOrder(2026110201);
  EXPECT_EQ(2, repo.AddRecord(e, "it's", 0));
  EXPECT_EQ((Strings{TakenSql("2026110201"), InsertCounterSql("it's", "2026110201", "2026-11-02")}),
            Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
  EXPECT_EQ((Rows{{"2026110201", "2026-11-02"}}), Orders());
  EXPECT_TRUE(Counters().empty());
}

TEST_F(OutsourceNumbersTest, TheTurnOfADayNumbersOrdersAsTheCallerSays) {
  clsDataBOutMakeh repo;
  const Date day = Date::FromParts(2026, 11, 2);
  clsEntBOutMakeh probe;
  // No order on the day: the caller starts the day with its own number.
  EXPECT_EQ(0, repo.QueryOrderoutNo(probe, day));
  clsEntBOutMakeh first = FullOrder(2026110201);
  EXPECT_EQ(1, repo.AddRecord(first, "t_boutmakeh", 0));
  EXPECT_EQ(1, repo.QueryOrderoutNo(probe, day));
  EXPECT_EQ(2026110201, probe.OrderoutNo);
  clsEntBOutMakeh second = FullOrder(probe.OrderoutNo + 1);
  EXPECT_EQ(1, repo.AddRecord(second, "t_boutmakeh", 1));
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110202", "2026-11-02 00:00:00"}}), Counters());
  EXPECT_EQ(1, repo.QueryMaxItem(probe));
  EXPECT_EQ(2026110202, probe.OrderoutNo);
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ QueryMaxItemDelete

TEST_F(OutsourceNumbersTest, QueryMaxItemDeleteGivesTheLargestNumberOfTheDay) {
  Order("2026110201", "2026-11-02");
  Order("2026110202", "2026-11-02");
  Order("2026110301", "2026-11-03");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  EXPECT_EQ(1, repo.QueryMaxItemDelete(e, Date::FromParts(2026, 11, 2)));
  EXPECT_EQ(2026110202, e.OrderoutNo);
  EXPECT_EQ(Strings{MaxOfDaySql("2026-11-02")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceNumbersTest, QueryMaxItemDeleteOnADayWithoutOrdersFailsOnTheNull) {
  Order("2026110201", "2026-11-02");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 77;
  EXPECT_EQ(0, repo.QueryMaxItemDelete(e, Date::FromParts(2026, 11, 5)));
  EXPECT_EQ(77, e.OrderoutNo);
  EXPECT_EQ(Strings{MaxOfDaySql("2026-11-05")}, Commands());
  EXPECT_EQ(ReportList{PlainReport("Invalid use of Null")}, Reports());
  // rs was reset: the next call works.
  EXPECT_EQ(1, repo.QueryMaxItemDelete(e, Date::FromParts(2026, 11, 2)));
  EXPECT_EQ(2026110201, e.OrderoutNo);
  EXPECT_EQ(1u, Reports().size());
}

// ------------------------------------------------------------ DeleteRecord

TEST_F(OutsourceNumbersTest, DeleteRecordWithAStatusOtherThanOneLeavesTheDaysRow) {
  Order("2026110201", "2026-11-02");
  Order("2026110202", "2026-11-02");
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110202, '2026-11-02')");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 2026110202;
  e.OrderoutDate = Date::FromParts(2026, 11, 2);
  EXPECT_EQ(1, repo.DeleteRecord(e, 0, "t_boutmakeh"));
  EXPECT_EQ(Strings{DeleteSql("2026110202")}, Commands());
  EXPECT_EQ((Rows{{"2026110201", "2026-11-02"}}), Orders());
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110202", "2026-11-02 00:00:00"}}), Counters());
  // An unknown number: 1 all the same.
  e.OrderoutNo = 2026110299;
  EXPECT_EQ(1, repo.DeleteRecord(e, 2, "t_boutmakeh"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceNumbersTest, DeleteRecordWithStatusOneLetsTheDaysRowFollowTheLargestLeft) {
  Order("2026110201", "2026-11-02");
  Order("2026110202", "2026-11-02");
  Order("2026110203", "2026-11-02");
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110203, '2026-11-02'), "
            "('t_bpriceh', 2026110203, '2026-11-02')");
  Line("2026110203", "7001", "40");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 2026110203;
  e.OrderoutDate = Date::FromParts(2026, 11, 2);
  EXPECT_EQ(1, repo.DeleteRecord(e, 1, "t_boutmakeh"));
  EXPECT_EQ((Strings{DeleteSql("2026110203"), LeftOfDaySql("2026-11-02"),
                     FollowSql("2026-11-02", "t_boutmakeh")}),
            Commands());
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110202", "2026-11-02 00:00:00"},
                  {"t_bpriceh", "2026110203", "2026-11-02 00:00:00"}}),
            Counters());
  // The lines of the order stay.
  EXPECT_EQ((Rows{{"2026110203", "7001", "40"}}), Lines());
  // Deleting an earlier number: the row still follows the largest.
  e.OrderoutNo = 2026110201;
  EXPECT_EQ(1, repo.DeleteRecord(e, 1, "t_boutmakeh"));
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110202", "2026-11-02 00:00:00"},
                  {"t_bpriceh", "2026110203", "2026-11-02 00:00:00"}}),
            Counters());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceNumbersTest, DeleteRecordWithStatusOneRemovesTheRowOfAnEmptiedDay) {
  Order("2026110201", "2026-11-02");
  Order("2026110301", "2026-11-03");
  db().Exec("insert into t_sitemno values ('t_boutmakeh', 2026110201, '2026-11-02'), "
            "('t_boutmakeh', 2026110301, '2026-11-03')");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 2026110201;
  e.OrderoutDate = Date::FromParts(2026, 11, 2);
  EXPECT_EQ(2, repo.DeleteRecord(e, 1, "t_boutmakeh"));
  EXPECT_EQ((Strings{DeleteSql("2026110201"), LeftOfDaySql("2026-11-02"),
                     RemoveCounterSql("2026-11-02", "t_boutmakeh")}),
            Commands());
  EXPECT_EQ((Rows{{"t_boutmakeh", "2026110301", "2026-11-03 00:00:00"}}), Counters());
  EXPECT_EQ((Rows{{"2026110301", "2026-11-03"}}), Orders());
  EXPECT_TRUE(Reports().empty());
  // The next call finds rs closed and works.
  e.OrderoutNo = 2026110301;
  e.OrderoutDate = Date::FromParts(2026, 11, 3);
  EXPECT_EQ(2, repo.DeleteRecord(e, 1, "t_boutmakeh"));
  EXPECT_TRUE(Counters().empty());
}

TEST_F(OutsourceNumbersTest, DeleteRecordFailingHalfWayKeepsWhatRanAndGivesZero) {
  Order("2026110201", "2026-11-02");
  Order("2026110202", "2026-11-02");
  db().Exec("drop table t_sitemno");
  clsDataBOutMakeh repo;
  clsEntBOutMakeh e;
  e.OrderoutNo = 2026110202;
  e.OrderoutDate = Date::FromParts(2026, 11, 2);
  EXPECT_EQ(0, repo.DeleteRecord(e, 1, "t_boutmakeh"));
  EXPECT_EQ((Strings{DeleteSql("2026110202"), LeftOfDaySql("2026-11-02"),
                     FollowSql("2026-11-02", "t_boutmakeh")}),
            Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("t_sitemno' doesn't exist"));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
  EXPECT_EQ((Rows{{"2026110201", "2026-11-02"}}), Orders());
}

}  // namespace
}  // namespace corvane
