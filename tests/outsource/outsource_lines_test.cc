// clsDataBOutMakei's reads and writes of lines against the sandbox server:
// QueryByProdNo (which leaves rs open, with what the next calls then do),
// QueryBOutMakei with its work entity and its failing nulls, AddRecord,
// UpdateRecord, DeleteRecord and ChkProdNobyOrderOutNo, with the statements
// sent, the results, the reports and the table contents afterwards.
#include "corvane/outsource/outsource_lines.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/outsource/outsource_support.h"

namespace corvane {
namespace {

using namespace ::corvane::outsource_testing;
using ::corvane::testing::LengthReport;
using ::corvane::testing::PlainReport;
using ::testing::HasSubstr;

std::string ByProdNoSql(const std::string& prod) {
  return "select * from T_BOutMakei where F_ProdNo = '" + prod + "'";
}
std::string OfOrderSql(const std::string& order) {
  return "select * from t_boutmakei where F_OrderOutNo='" + order + "'";
}
std::string AddSql(const std::string& order, const std::string& prod) {
  return "select * from t_boutmakei where F_OrderOutNo='" + order + "'and F_prodno='" + prod + "'";
}
std::string EditSql(const std::string& order, const std::string& prod) {
  return "select * from t_boutmakei where F_OrderOutNo ='" + order + "'and F_prodno='" + prod +
         "'";
}
std::string DeleteSql(const std::string& order, const std::string& prod) {
  return "delete from t_boutmakei where F_OrderOutNo ='" + order + "'and F_prodno='" + prod + "'";
}
std::string ChkSql(const std::string& prod, const std::string& order) {
  return "select * from T_BOutMakei where F_ProdNo='" + prod + "' and F_OrderOutNo='" + order +
         "'";
}

class OutsourceLinesTest : public OutsourceTest {
 protected:
  // The full line with its keys, as the server prints it.
  static Strings FullCells(const std::string& order, const std::string& prod) {
    Strings cells = FullLineCells();
    cells.insert(cells.begin(), {order, prod});
    return cells;
  }
};

// ------------------------------------------------------------ QueryByProdNo

TEST_F(OutsourceLinesTest, QueryByProdNoAppendsEveryLineOfTheNumberWithAllColumns) {
  InsertFullLine("2026110201", "7001");
  InsertFullLine("2026110301", "7001");
  InsertFullLine("2026110301", "7002");
  clsDataBOutMakei repo;
  Collection<clsEntBOutMakei> coll;
  coll.Add(std::make_shared<clsEntBOutMakei>());
  EXPECT_EQ(1, repo.QueryByProdNo(&coll, 7001));
  ASSERT_EQ(3u, coll.Count());
  ExpectSameLine(FullLine(2026110201, 7001), coll.Item(2));
  ExpectSameLine(FullLine(2026110301, 7001), coll.Item(3));
  EXPECT_EQ(Strings{ByProdNoSql("7001")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceLinesTest, QueryByProdNoReadsNullsAsTheCommonValues) {
  db().Exec("insert into t_boutmakei (F_OrderoutNo, F_ProdNo) values (2026110201, 7001)");
  clsDataBOutMakei repo;
  Collection<clsEntBOutMakei> coll;
  EXPECT_EQ(1, repo.QueryByProdNo(&coll, 7001));
  ASSERT_EQ(1u, coll.Count());
  clsEntBOutMakei expected;
  expected.OrderoutNo = 2026110201;
  expected.ProdNo = 7001;
  ExpectSameLine(expected, coll.Item(1));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceLinesTest, QueryByProdNoWithoutLinesGivesZeroAndLeavesTheCollection) {
  InsertFullLine("2026110201", "7001");
  clsDataBOutMakei repo;
  Collection<clsEntBOutMakei> coll;
  EXPECT_EQ(0, repo.QueryByProdNo(&coll, 7009));
  EXPECT_EQ(0u, coll.Count());
  EXPECT_EQ(Strings{ByProdNoSql("7009")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceLinesTest, QueryByProdNoLeavesRsOpenSoTheNextCallFailsOnceThenWorks) {
  InsertFullLine("2026110201", "7001");
  clsDataBOutMakei repo;
  Collection<clsEntBOutMakei> coll;
  EXPECT_EQ(1, repo.QueryByProdNo(&coll, 7001));
  // The next method that uses rs as it stands fails on the open recordset.
  clsEntBOutMakei e;
  e.OrderoutNo = 2026110201;
  e.ProdNo = 7001;
  EXPECT_EQ(2, repo.ChkProdNobyOrderOutNo(e));
  EXPECT_EQ(ReportList{PlainReport(kOpenWords)}, Reports());
  EXPECT_EQ("", e.ItemNo);
  // The handler reset rs: the same call works again.
  EXPECT_EQ(1, repo.ChkProdNobyOrderOutNo(e));
  EXPECT_EQ("GEAR-40", e.ItemNo);
  EXPECT_EQ(1u, Reports().size());
  // The failing call sent nothing.
  EXPECT_EQ((Strings{ByProdNoSql("7001"), ChkSql("7001", "2026110201")}), Commands());
}

TEST_F(OutsourceLinesTest, QueryByProdNoLeavesRsOpenEvenWithoutLines) {
  clsDataBOutMakei repo;
  Collection<clsEntBOutMakei> coll;
  EXPECT_EQ(0, repo.QueryByProdNo(&coll, 7001));
  // It fails itself the next time, then works.
  EXPECT_EQ(2, repo.QueryByProdNo(&coll, 7001));
  EXPECT_EQ(ReportList{PlainReport(kOpenWords)}, Reports());
  EXPECT_EQ(0, repo.QueryByProdNo(&coll, 7001));
  EXPECT_EQ(Strings(2, ByProdNoSql("7001")), Commands());
}

TEST_F(OutsourceLinesTest, AfterQueryByProdNoEachWriteFailsOnceWithItsOwnReport) {
  InsertFullLine("2026110201", "7001");
  clsDataBOutMakei repo;
  Collection<clsEntBOutMakei> coll;
  clsEntBOutMakei e = FullLine(2026110201, 7002);

  ASSERT_EQ(1, repo.QueryByProdNo(&coll, 7001));
  EXPECT_EQ(2, repo.AddRecord(e));  // the length report gives the failure's words
  EXPECT_EQ(1, repo.AddRecord(e));

  ASSERT_EQ(1, repo.QueryByProdNo(&coll, 7001));
  e.Remark = "changed";
  EXPECT_EQ(2, repo.UpdateRecord(e, 2026110201, 7002));
  EXPECT_EQ(1, repo.UpdateRecord(e, 2026110201, 7002));

  ASSERT_EQ(1, repo.QueryByProdNo(&coll, 7001));
  EXPECT_EQ(2, repo.DeleteRecord(2026110201, e));
  EXPECT_EQ(2u, Lines().size());
  EXPECT_EQ(1, repo.DeleteRecord(2026110201, e));
  EXPECT_EQ(1u, Lines().size());

  ASSERT_EQ(1, repo.QueryByProdNo(&coll, 7001));
  std::shared_ptr<clsEntBOutMakei> work;
  EXPECT_EQ(2, repo.QueryBOutMakei(work, 2026110201, &coll));
  EXPECT_EQ(1, repo.QueryBOutMakei(work, 2026110201, &coll));

  EXPECT_EQ(ReportList(4, Described(kOpenWords)), Reports());
}

TEST_F(OutsourceLinesTest, AfterQueryByProdNoQueryProdNoWorksAtOnce) {
  InsertFullLine("2026110201", "7001");
  clsDataBOutMakei repo;
  Collection<clsEntBOutMakei> coll;
  ASSERT_EQ(1, repo.QueryByProdNo(&coll, 7001));
  // It starts with a new recordset; an unknown kind sends nothing.
  clsEntBOutMakei e;
  e.OrderoutNo = 1;
  EXPECT_EQ(2, repo.QueryProdNo(e, 1));  // no such work order
  EXPECT_TRUE(Reports().empty());
  // And it left rs closed behind it.
  EXPECT_EQ(1, repo.QueryByProdNo(&coll, 7001));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceLinesTest, QueryByProdNoWithANullCollectionFailsOnTheFirstRow) {
  InsertFullLine("2026110201", "7001");
  clsDataBOutMakei repo;
  EXPECT_EQ(2, repo.QueryByProdNo(nullptr, 7001));
  EXPECT_EQ(ReportList{PlainReport("Object required")}, Reports());
  // The failure reset rs: the next call works, and with no rows a null
  // collection is not touched.
  EXPECT_EQ(0, repo.QueryByProdNo(nullptr, 7009));
  EXPECT_EQ(1u, Reports().size());
}

TEST_F(OutsourceLinesTest, QueryByProdNoReportsAServerFailureAndGivesTwo) {
  db().Exec("drop table t_boutmakei");
  clsDataBOutMakei repo;
  Collection<clsEntBOutMakei> coll;
  EXPECT_EQ(2, repo.QueryByProdNo(&coll, 7001));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("doesn't exist"));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
}

// ------------------------------------------------------------ QueryBOutMakei

TEST_F(OutsourceLinesTest, QueryBOutMakeiCollectsTheLinesAndLeavesTheEntityEmpty) {
  InsertFullLine("2026110201", "7001");
  InsertFullLine("2026110201", "7002");
  InsertFullLine("2026110301", "7003");
  clsDataBOutMakei repo;
  auto work = std::make_shared<clsEntBOutMakei>(FullLine(5, 5));
  const auto passed = work;
  Collection<clsEntBOutMakei> coll;
  EXPECT_EQ(1, repo.QueryBOutMakei(work, 2026110201, &coll));
  EXPECT_EQ(nullptr, work);
  ASSERT_EQ(2u, coll.Count());
  // Each line is a new entity; the order number is not read.
  EXPECT_NE(passed.get(), &coll.Item(1));
  clsEntBOutMakei expected = FullLine(0, 7001);
  ExpectSameLine(expected, coll.Item(1));
  expected.ProdNo = 7002;
  ExpectSameLine(expected, coll.Item(2));
  EXPECT_EQ(5, passed->OrderoutNo);  // what the caller passed is untouched
  EXPECT_EQ(Strings{OfOrderSql("2026110201")}, Commands());
  EXPECT_TRUE(Reports().empty());
  // Closed after the loop: the next call works.
  EXPECT_EQ(1, repo.QueryBOutMakei(work, 2026110301, &coll));
  EXPECT_EQ(3u, coll.Count());
}

TEST_F(OutsourceLinesTest, QueryBOutMakeiWithoutLinesGivesZeroAndLeavesTheEntity) {
  InsertFullLine("2026110201", "7001");
  clsDataBOutMakei repo;
  auto work = std::make_shared<clsEntBOutMakei>(FullLine(5, 5));
  const auto passed = work;
  Collection<clsEntBOutMakei> coll;
  EXPECT_EQ(0, repo.QueryBOutMakei(work, 2026110299, &coll));
  EXPECT_EQ(passed, work);
  ExpectSameLine(FullLine(5, 5), *work);
  EXPECT_EQ(0u, coll.Count());
  EXPECT_EQ(Strings{OfOrderSql("2026110299")}, Commands());
  // With no rows a null collection is not touched.
  EXPECT_EQ(0, repo.QueryBOutMakei(work, 2026110299, nullptr));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceLinesTest, QueryBOutMakeiReadsTheOtherNullsAsTheCommonValues) {
  db().Exec("insert into t_boutmakei (F_OrderoutNo, F_ProdNo, F_Price, F_OrdoutQty, "
            "F_DeliverDate, F_SupportPart) values (2026110201, 7001, 2.5, 4, '2026-12-05', 3)");
  clsDataBOutMakei repo;
  std::shared_ptr<clsEntBOutMakei> work;
  Collection<clsEntBOutMakei> coll;
  EXPECT_EQ(1, repo.QueryBOutMakei(work, 2026110201, &coll));
  ASSERT_EQ(1u, coll.Count());
  clsEntBOutMakei expected;
  expected.ProdNo = 7001;
  expected.Price = 2.5;
  expected.OrdoutQty = 4;
  expected.DeliverDate = Date::FromParts(2026, 12, 5);
  expected.SupportPart = 3;
  ExpectSameLine(expected, coll.Item(1));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceLinesTest, QueryBOutMakeiStopsAtANullInAnyOfTheFiveMarkedColumns) {
  for (const std::string column : {"F_Price", "F_OrdoutQty", "F_DeliverDate", "F_SupportPart"}) {
    db().Exec("delete from t_boutmakei");
    InsertFullLine("2026110201", "7001");
    InsertFullLine("2026110201", "7002");
    InsertFullLine("2026110201", "7003");
    db().Exec("update t_boutmakei set " + column + "=null where F_ProdNo=7002");
    Clear();
    clsDataBOutMakei repo;
    std::shared_ptr<clsEntBOutMakei> work;
    Collection<clsEntBOutMakei> coll;
    EXPECT_EQ(2, repo.QueryBOutMakei(work, 2026110201, &coll)) << column;
    EXPECT_EQ(ReportList{PlainReport("Type mismatch")}, Reports()) << column;
    // The row before stays collected; the failing one is left in the work
    // entity, half read.
    ASSERT_EQ(1u, coll.Count()) << column;
    EXPECT_EQ(7001, coll.Item(1).ProdNo);
    ASSERT_NE(nullptr, work);
    EXPECT_EQ(7002, work->ProdNo);
    // rs was reset: the next call works.
    db().Exec("update t_boutmakei set " + column + "=" +
              (column == "F_DeliverDate" ? "'2026-12-05'" : "1") + " where F_ProdNo=7002");
    EXPECT_EQ(1, repo.QueryBOutMakei(work, 2026110201, &coll));
    EXPECT_EQ(4u, coll.Count());
  }
}

TEST_F(OutsourceLinesTest, QueryBOutMakeiStopsAtANullProductionNumber) {
  // Without the key the production number may be null.
  db().Exec("alter table t_boutmakei drop primary key, modify F_ProdNo double null");
  InsertFullLine("2026110201", "7001");
  InsertFullLine("2026110201", "null");
  clsDataBOutMakei repo;
  std::shared_ptr<clsEntBOutMakei> work;
  Collection<clsEntBOutMakei> coll;
  EXPECT_EQ(2, repo.QueryBOutMakei(work, 2026110201, &coll));
  EXPECT_EQ(ReportList{PlainReport("Type mismatch")}, Reports());
  EXPECT_EQ(1u, coll.Count());
  EXPECT_EQ(7001, coll.Item(1).ProdNo);
}

TEST_F(OutsourceLinesTest, QueryBOutMakeiWithANullCollectionFailsOnTheFirstRow) {
  InsertFullLine("2026110201", "7001");
  clsDataBOutMakei repo;
  std::shared_ptr<clsEntBOutMakei> work;
  EXPECT_EQ(2, repo.QueryBOutMakei(work, 2026110201, nullptr));
  EXPECT_EQ(ReportList{PlainReport("Object required")}, Reports());
  ASSERT_NE(nullptr, work);
  EXPECT_EQ(7001, work->ProdNo);
}

// ------------------------------------------------------------ AddRecord

TEST_F(OutsourceLinesTest, AddRecordStoresANewLineWithoutReceivedQuantities) {
  clsDataBOutMakei repo;
  clsEntBOutMakei e = FullLine(2026110201, 7001);
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ(Strings{AddSql("2026110201", "7001")}, Commands());
  EXPECT_EQ(Strings{"INSERT INTO " + Table("t_boutmakei") +
                    " (`F_OrderoutNo`,`F_ProdNo`,`F_ItemNo`,`F_CurrencyID`,`F_Price`,"
                    "`F_OrdoutQty`,`F_DeliverDate`,`F_SupportPart`,`F_Remark`,`F_Status`,"
                    "`F_CustNo`,`F_CorderNo`,`F_ItemName`,`F_BKQty`,`F_SItemNo`,`F_DisPerRow`,"
                    "`F_Rate`,`F_TaxSort`,`F_Tax`,`F_FcTotal`,`F_LcTotal`,`F_StepCode`,`F_Eitem`,"
                    "`F_Ename`) VALUES (2026110201,7001,'GEAR-40','CNY',12.5,40,"
                    "'2026-12-05 00:00:00',1,'cast only',2,'C001','PO-7','Gear 40',3,'S-40',1.5,"
                    "7.25,'VAT',85,500,3625,'ST1','E40','Gear forty')"},
            SentOf(StatementKind::kRowChange));
  EXPECT_TRUE(Reports().empty());
  Strings cells = FullCells("2026110201", "7001");
  cells[9] = "NULL";   // F_InQty
  cells[10] = "NULL";  // F_InDate
  EXPECT_EQ(Rows{cells}, LineRow("2026110201", "7001"));
}

TEST_F(OutsourceLinesTest, AddRecordOfAnExistingLineGivesZeroWithoutAReport) {
  Line("2026110201", "7001", "10");
  clsDataBOutMakei repo;
  clsEntBOutMakei e = FullLine(2026110201, 7001);
  EXPECT_EQ(0, repo.AddRecord(e));
  EXPECT_EQ(Strings{AddSql("2026110201", "7001")}, Commands());
  EXPECT_TRUE(SentOf(StatementKind::kRowChange).empty());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{{"2026110201", "7001", "10"}}), Lines());
  // Closed on that path; the same production number in another order is a
  // new line.
  e.OrderoutNo = 2026110202;
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ(2u, Lines().size());
}

TEST_F(OutsourceLinesTest, AddRecordWithAValueTooLongGivesTheLengthReportAndTwo) {
  clsDataBOutMakei repo;
  clsEntBOutMakei e = FullLine(2026110201, 7001);
  e.ItemName = std::string(101, 'n');
  EXPECT_EQ(2, repo.AddRecord(e));
  EXPECT_EQ(ReportList{LengthReport()}, Reports());
  EXPECT_TRUE(Lines().empty());
  e.ItemName = "Gear";
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ(1u, Lines().size());
}

// ------------------------------------------------------------ UpdateRecord

TEST_F(OutsourceLinesTest, UpdateRecordOverwritesTheLineReceivedQuantitiesIncluded) {
  Line("2026110201", "7001", "10");
  clsDataBOutMakei repo;
  clsEntBOutMakei e = FullLine(2026110201, 7001);
  EXPECT_EQ(1, repo.UpdateRecord(e, 2026110201, 7001));
  EXPECT_EQ(Strings{EditSql("2026110201", "7001")}, Commands());
  EXPECT_EQ(Strings{"UPDATE " + Table("t_boutmakei") +
                    " SET `F_OrderoutNo`=2026110201,`F_ProdNo`=7001,`F_ItemNo`='GEAR-40',`F_CurrencyID`='CNY',`F_Price`=12.5,`F_OrdoutQty`=40,"
                    "`F_DeliverDate`='2026-12-05 00:00:00',`F_SupportPart`=1,"
                    "`F_Remark`='cast only',`F_InQty`=15,`F_InDate`='2026-12-06 14:30:00',"
                    "`F_Status`=2,`F_CustNo`='C001',`F_CorderNo`='PO-7',`F_ItemName`='Gear 40',"
                    "`F_BKQty`=3,`F_SItemNo`='S-40',`F_DisPerRow`=1.5,`F_Rate`=7.25,"
                    "`F_TaxSort`='VAT',`F_Tax`=85,`F_FcTotal`=500,`F_LcTotal`=3625,"
                    "`F_StepCode`='ST1',`F_Eitem`='E40',`F_Ename`='Gear forty'"
                    " WHERE `F_OrderoutNo` <=> 2026110201 AND `F_ProdNo` <=> 7001 LIMIT 1"},
            SentOf(StatementKind::kRowChange));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Rows{FullCells("2026110201", "7001")}, LineRow("2026110201", "7001"));
}

TEST_F(OutsourceLinesTest, UpdateRecordWritesTheEntitysKeysAndSoCanMoveTheLine) {
  Line("2026110201", "7001", "10");
  clsDataBOutMakei repo;
  clsEntBOutMakei e = FullLine(2026110202, 7005);
  EXPECT_EQ(1, repo.UpdateRecord(e, 2026110201, 7001));
  EXPECT_EQ((Rows{{"2026110202", "7005", "40"}}), Lines());
}

TEST_F(OutsourceLinesTest, UpdateRecordOfAMissingLineGivesZeroAndWritesNothing) {
  Line("2026110201", "7001", "10");
  clsDataBOutMakei repo;
  clsEntBOutMakei e = FullLine(2026110201, 7001);
  EXPECT_EQ(0, repo.UpdateRecord(e, 2026110201, 7002));
  EXPECT_EQ(Strings{EditSql("2026110201", "7002")}, Commands());
  EXPECT_TRUE(SentOf(StatementKind::kRowChange).empty());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{{"2026110201", "7001", "10"}}), Lines());
  // Closed on that path: the next call works.
  EXPECT_EQ(1, repo.UpdateRecord(e, 2026110201, 7001));
}

TEST_F(OutsourceLinesTest, UpdateRecordWithAValueTooLongGivesTheLengthReportAndTwo) {
  Line("2026110201", "7001", "10");
  clsDataBOutMakei repo;
  clsEntBOutMakei e = FullLine(2026110201, 7001);
  e.Ename = std::string(101, 'e');
  EXPECT_EQ(2, repo.UpdateRecord(e, 2026110201, 7001));
  EXPECT_EQ(ReportList{LengthReport()}, Reports());
  EXPECT_TRUE(SentOf(StatementKind::kRowChange).empty());
  EXPECT_EQ((Rows{{"2026110201", "7001", "10"}}), Lines());
  e.Ename = "Gear";
  EXPECT_EQ(1, repo.UpdateRecord(e, 2026110201, 7001));
  EXPECT_EQ(1u, Reports().size());
}

// ------------------------------------------------------------ DeleteRecord

TEST_F(OutsourceLinesTest, DeleteRecordRemovesTheLineOfTheOrderAndTheEntitysNumber) {
  Line("2026110201", "7001", "10");
  Line("2026110201", "7002", "20");
  Line("2026110202", "7001", "30");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.OrderoutNo = 2026110202;  // not used: the order is the argument
  e.ProdNo = 7001;
  EXPECT_EQ(1, repo.DeleteRecord(2026110201, e));
  EXPECT_EQ(Strings{DeleteSql("2026110201", "7001")}, Commands());
  EXPECT_EQ((Rows{{"2026110201", "7002", "20"}, {"2026110202", "7001", "30"}}), Lines());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceLinesTest, DeleteRecordOfAMissingLineGivesOne) {
  Line("2026110201", "7001", "10");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.ProdNo = 7009;
  EXPECT_EQ(1, repo.DeleteRecord(2026110201, e));
  EXPECT_EQ(1, repo.DeleteRecord(2026110201, e));
  EXPECT_EQ(1u, Lines().size());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceLinesTest, DeleteRecordReportsAServerFailureAndGivesTwo) {
  db().Exec("drop table t_boutmakei");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.ProdNo = 7001;
  EXPECT_EQ(2, repo.DeleteRecord(2026110201, e));
  EXPECT_EQ(Strings{DeleteSql("2026110201", "7001")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("doesn't exist"));
  EXPECT_EQ(64, Reports()[0].style);
}

// ------------------------------------------------------------ ChkProdNobyOrderOutNo

TEST_F(OutsourceLinesTest, ChkProdNobyOrderOutNoFillsTheEntityButTheKeys) {
  InsertFullLine("2026110201", "7001");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.OrderoutNo = 2026110201;
  e.ProdNo = 7001;
  EXPECT_EQ(1, repo.ChkProdNobyOrderOutNo(e));
  ExpectSameLine(FullLine(2026110201, 7001), e);
  EXPECT_EQ(Strings{ChkSql("7001", "2026110201")}, Commands());
  EXPECT_TRUE(Reports().empty());
  // Closed: it runs again.
  EXPECT_EQ(1, repo.ChkProdNobyOrderOutNo(e));
}

TEST_F(OutsourceLinesTest, ChkProdNobyOrderOutNoReadsNullsAsTheCommonValues) {
  db().Exec("insert into t_boutmakei (F_OrderoutNo, F_ProdNo) values (2026110201, 7001)");
  clsDataBOutMakei repo;
  clsEntBOutMakei e = FullLine(2026110201, 7001);
  EXPECT_EQ(1, repo.ChkProdNobyOrderOutNo(e));
  clsEntBOutMakei expected;
  expected.OrderoutNo = 2026110201;
  expected.ProdNo = 7001;
  ExpectSameLine(expected, e);
}

TEST_F(OutsourceLinesTest, ChkProdNobyOrderOutNoOfAMissingLineGivesZero) {
  InsertFullLine("2026110201", "7001");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  e.OrderoutNo = 2026110202;
  e.ProdNo = 7001;
  e.ItemNo = "kept";
  EXPECT_EQ(0, repo.ChkProdNobyOrderOutNo(e));
  EXPECT_EQ("kept", e.ItemNo);
  EXPECT_EQ(Strings{ChkSql("7001", "2026110202")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OutsourceLinesTest, ChkProdNobyOrderOutNoReportsAServerFailureAndGivesTwo) {
  db().Exec("drop table t_boutmakei");
  clsDataBOutMakei repo;
  clsEntBOutMakei e;
  EXPECT_EQ(2, repo.ChkProdNobyOrderOutNo(e));
  EXPECT_EQ(Strings{ChkSql("0", "0")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ(64, Reports()[0].style);
}

}  // namespace
}  // namespace corvane
