// clsDataBCosth against the sandbox server: every path of its ten methods,
// with the statements sent, the row changes, the results, the reports, the
// arrays and what T_BCosth holds afterwards, and rs as one call leaves it for
// the next.
#include "corvane/costing/cost_header.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::LengthReport;
using ::corvane::testing::PlainReport;
using ::corvane::testing::SandboxTest;
using ::testing::HasSubstr;
using Rows = std::vector<std::vector<std::string>>;
using Strings = std::vector<std::string>;
using Reports_ = std::vector<Report>;
using Doubles = std::vector<double>;

constexpr char kTitle[] = "塔恩维克";
constexpr char kSyntax[] = "You have an error in your SQL syntax";
constexpr char kOpenWords[] = "Operation is not allowed when the object is open";

// The statements of the class, with the values put in.
std::string ByNoSql(const std::string& no) {
  return "select * from T_BCosth where F_EstNo = '" + no + "'";
}
std::string DeleteSql(const std::string& no) {
  return "select * from T_BCosth where F_EstNo ='" + no + "' ";
}
const std::string kAllSql = "select * from T_BCosth";
std::string MaxSql(const std::string& day) {
  return "select max(F_EstNo) as dd from T_BCosth where F_EstDate = '" + day + "'";
}
std::string DateSql(const std::string& day) {
  return "select * from T_BCosth where F_EstDate = '" + day + "'";
}
std::string RightsTest(const std::string& user) {
  return "select * from t_dataright where F_ModuleID='C' and f_userid='" + user + "'";
}
std::string EstNosFiltered(const std::string& user, const std::string& item) {
  return "select t0.F_EstNo from T_BCosth t0 inner join t_dataright t1 on t1.f_moduleid='C' and "
         "t1.f_rightid=t0.f_custno and t1.f_userid='" +
         user + "' and F_ItemNo = '" + item + "' order by F_EstNo desc";
}
std::string EstNosUnfiltered(const std::string& item) {
  return "select F_EstNo from T_BCosth where F_ItemNo = '" + item + "' order by F_EstNo desc";
}
std::string ItemsFiltered(const std::string& user) {
  return "select distinct t0.F_ItemNo from T_BCosth t0 inner join t_dataright t1 on "
         "t1.f_moduleid='C' and t1.f_rightid=t0.f_custno and t1.f_userid='" +
         user + "' ";
}
const std::string kItemsUnfiltered = "select distinct F_ItemNo from T_BCosth";

// An estimate with every column set.
clsEntBCosth FullEstimate(double no) {
  clsEntBCosth e;
  e.EstNo = no;
  e.EstDate = Date::FromParts(2024, 3, 15);
  e.ItemNo = "GEAR-40";
  e.CustNo = "C001";
  e.Remark = "first try";
  e.Tabler = "ann";
  e.TableTime = Date::FromParts(2024, 3, 15, 9, 30, 5);
  e.CurrencyID = "USD";
  e.PartCost = 100.5;
  e.WageCost = 20.25;
  e.ManageCost = 5;
  e.TotCost = 125.75;
  e.QuotPrice_1 = 130;
  e.QuotPrice_2 = 131;
  e.QuotPrice_3 = 132;
  e.QuotPrice_4 = 133;
  e.QuotPrice_5 = 134;
  e.ProFit_1 = 1.5;
  e.ProFit_2 = 2.5;
  e.ProFit_3 = 3.5;
  e.ProFit_4 = 4.5;
  e.ProFit_5 = 5.5;
  e.TaxPrice = 147.13;
  e.SalePrice_1 = 150;
  e.SalePrice_2 = 151;
  e.SalePrice_3 = 152;
  e.SalePrice_4 = 153;
  e.SalePrice_5 = 154;
  return e;
}

// FullEstimate(20240315001) as the table holds it.
const std::vector<std::string> kFullRow{
    "20240315001", "2024-03-15 00:00:00", "GEAR-40", "C001", "first try", "ann",
    "2024-03-15 09:30:05", "USD", "100.5", "20.25", "5", "125.75", "130", "131", "132", "133",
    "134", "1.5", "2.5", "3.5", "4.5", "5.5", "147.13", "150", "151", "152", "153", "154"};

// The same row put in directly.
const char kInsertFull[] =
    "insert into t_bcosth values (20240315001,'2024-03-15','GEAR-40','C001','first try','ann',"
    "'2024-03-15 09:30:05','USD',100.5,20.25,5,125.75,130,131,132,133,134,1.5,2.5,3.5,4.5,5.5,"
    "147.13,150,151,152,153,154)";

// The column list and the values of FullEstimate(no) in a row change.
const char kColumns[] =
    "`F_EstNo`,`F_EstDate`,`F_ItemNo`,`F_CustNo`,`F_Remark`,`F_Tabler`,`F_TableTime`,"
    "`F_CurrencyID`,`F_PartCost`,`F_WageCost`,`F_ManageCost`,`F_TotCost`,`F_QuotPrice_1`,"
    "`F_QuotPrice_2`,`F_QuotPrice_3`,`F_QuotPrice_4`,`F_QuotPrice_5`,`F_ProFit_1`,`F_ProFit_2`,"
    "`F_ProFit_3`,`F_ProFit_4`,`F_ProFit_5`,`F_TaxPrice`,`F_SalePrice_1`,`F_SalePrice_2`,"
    "`F_SalePrice_3`,`F_SalePrice_4`,`F_SalePrice_5`";
const char kValuesAfterNo[] =
    ",'2024-03-15 00:00:00','GEAR-40','C001','first try','ann','2024-03-15 09:30:05','USD',"
    "100.5,20.25,5,125.75,130,131,132,133,134,1.5,2.5,3.5,4.5,5.5,147.13,150,151,152,153,154";

void ExpectSameColumns2To28(const clsEntBCosth& a, const clsEntBCosth& b) {
  EXPECT_EQ(a.EstDate, b.EstDate);
  EXPECT_EQ(a.ItemNo, b.ItemNo);
  EXPECT_EQ(a.CustNo, b.CustNo);
  EXPECT_EQ(a.Remark, b.Remark);
  EXPECT_EQ(a.Tabler, b.Tabler);
  EXPECT_EQ(a.TableTime, b.TableTime);
  EXPECT_EQ(a.CurrencyID, b.CurrencyID);
  EXPECT_EQ(a.PartCost, b.PartCost);
  EXPECT_EQ(a.WageCost, b.WageCost);
  EXPECT_EQ(a.ManageCost, b.ManageCost);
  EXPECT_EQ(a.TotCost, b.TotCost);
  EXPECT_EQ(a.QuotPrice_1, b.QuotPrice_1);
  EXPECT_EQ(a.QuotPrice_2, b.QuotPrice_2);
  EXPECT_EQ(a.QuotPrice_3, b.QuotPrice_3);
  EXPECT_EQ(a.QuotPrice_4, b.QuotPrice_4);
  EXPECT_EQ(a.QuotPrice_5, b.QuotPrice_5);
  EXPECT_EQ(a.ProFit_1, b.ProFit_1);
  EXPECT_EQ(a.ProFit_2, b.ProFit_2);
  EXPECT_EQ(a.ProFit_3, b.ProFit_3);
  EXPECT_EQ(a.ProFit_4, b.ProFit_4);
  EXPECT_EQ(a.ProFit_5, b.ProFit_5);
  EXPECT_EQ(a.TaxPrice, b.TaxPrice);
  EXPECT_EQ(a.SalePrice_1, b.SalePrice_1);
  EXPECT_EQ(a.SalePrice_2, b.SalePrice_2);
  EXPECT_EQ(a.SalePrice_3, b.SalePrice_3);
  EXPECT_EQ(a.SalePrice_4, b.SalePrice_4);
  EXPECT_EQ(a.SalePrice_5, b.SalePrice_5);
}

void ExpectSame(const clsEntBCosth& a, const clsEntBCosth& b) {
  EXPECT_EQ(a.EstNo, b.EstNo);
  ExpectSameColumns2To28(a, b);
}

// What nulls from F_Remark on read as.
void ExpectNullRead(const clsEntBCosth& e) {
  EXPECT_EQ(e.Remark, "");
  EXPECT_EQ(e.Tabler, "0");      // unlike the other texts
  EXPECT_EQ(e.TableTime, Date());
  EXPECT_EQ(e.CurrencyID, "0");  // unlike the other texts
  EXPECT_EQ(e.PartCost, 0);
  EXPECT_EQ(e.TotCost, 0);
  EXPECT_EQ(e.QuotPrice_5, 0);
  EXPECT_EQ(e.ProFit_1, 0);
  EXPECT_EQ(e.TaxPrice, 0);
  EXPECT_EQ(e.SalePrice_5, 0);
}

class CostHeaderTest : public SandboxTest {
 protected:
  std::string Table() const {
    std::string d = database();
    std::transform(d.begin(), d.end(), d.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return "`" + d + "`.`t_bcosth`";
  }
  // An estimate with number, day, item and customer; the rest null.
  void Insert(const std::string& no, const std::string& day, const std::string& item,
              const std::string& cust) {
    db().Exec("insert into t_bcosth (F_EstNo,F_EstDate,F_ItemNo,F_CustNo) values (" + no + ",'" +
              day + "','" + item + "','" + cust + "')");
  }
  void Right(const std::string& module, const std::string& user, const std::string& id) {
    db().Exec("insert into t_dataright values ('" + module + "','" + user + "','" + id + "')");
  }
  Rows Estimate(const std::string& no) {
    return db().Rows("select * from t_bcosth where F_EstNo=" + no);
  }
  Strings RowChanges() const {
    Strings out;
    for (const auto& s : Sent()) {
      if (s.kind == StatementKind::kRowChange) out.push_back(s.text);
    }
    return out;
  }
  void ExpectOneReport(const std::string& part, int style = 64) {
    ASSERT_EQ(Reports().size(), 1u);
    EXPECT_THAT(Reports()[0].text, HasSubstr(part));
    EXPECT_EQ(Reports()[0].style, style);
    EXPECT_EQ(Reports()[0].title, kTitle);
  }
  // Leaves rs of repo open: a delete of an estimate that is not there.
  void LeaveOpen(clsDataBCosth& repo) {
    clsEntBCosth missing;
    missing.EstNo = 1;
    ASSERT_EQ(repo.DeleteRecord(missing), 2);
    ASSERT_TRUE(Reports().empty());
    Clear();
  }
};

// --- GetBCostBySql -----------------------------------------------------------

TEST_F(CostHeaderTest, GetBCostBySqlReadsAllColumnsOfTheFirstRowOfTheCallersStatement) {
  db().Exec(kInsertFull);
  Insert("20240315002", "2024-03-15", "NUT-8", "C002");
  clsDataBCosth repo;
  clsEntBCosth e;
  const std::string sql = "SELECT *  FROM t_bcosth ORDER BY F_EstNo";
  EXPECT_EQ(repo.GetBCostBySql(e, sql), 1);
  EXPECT_EQ(Commands(), Strings{sql});
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  ExpectSame(e, FullEstimate(20240315001));
  // The second row is not read.
  clsEntBCosth last;
  EXPECT_EQ(repo.GetBCostBySql(last, "select * from T_BCosth order by F_EstNo desc"), 1);
  EXPECT_EQ(last.EstNo, 20240315002);
  EXPECT_EQ(last.ItemNo, "NUT-8");
  ExpectNullRead(last);
}

TEST_F(CostHeaderTest, GetBCostBySqlWithNoRowGivesZeroAndLeavesTheEntity) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  clsEntBCosth e = FullEstimate(7);
  EXPECT_EQ(repo.GetBCostBySql(e, "select * from T_BCosth where F_EstNo = 1"), 0);
  ExpectSame(e, FullEstimate(7));
  EXPECT_TRUE(Reports().empty());
  // rs was closed: the object goes on.
  EXPECT_EQ(repo.GetBCostBySql(e, kAllSql), 1);
  EXPECT_EQ(e.EstNo, 20240315001);
}

TEST_F(CostHeaderTest, GetBCostBySqlWithAMissingColumnFailsOnItsLookUp) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  clsEntBCosth e;
  EXPECT_EQ(repo.GetBCostBySql(e, "select F_EstNo, F_ItemNo from T_BCosth"), 2);
  ExpectOneReport("Item cannot be found in the collection corresponding to the requested name or "
                  "ordinal: F_EstDate");
  // The reads before the missing column were done.
  EXPECT_EQ(e.EstNo, 20240315001);
  EXPECT_EQ(e.ItemNo, "");
  // rs was reset.
  Clear();
  EXPECT_EQ(repo.GetBCostBySql(e, kAllSql), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostHeaderTest, GetBCostBySqlReportsAServerFailure) {
  clsDataBCosth repo;
  clsEntBCosth e;
  EXPECT_EQ(repo.GetBCostBySql(e, "select * form T_BCosth"), 2);
  ExpectOneReport(kSyntax);
  EXPECT_EQ(e.EstNo, 0);
}

// --- DeleteRecord ------------------------------------------------------------

TEST_F(CostHeaderTest, DeleteRecordDeletesTheEstimateButNotItsDetails) {
  db().Exec(kInsertFull);
  Insert("20240315002", "2024-03-15", "NUT-8", "C002");
  db().Exec("insert into t_bcosti (F_EstNo,F_ItemNo) values (20240315001,'STEEL')");
  db().Exec("insert into t_bcosts (F_EstNo,F_WageItem) values (20240315001,'LATHE')");
  clsDataBCosth repo;
  clsEntBCosth e;
  e.EstNo = 20240315001;
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  ASSERT_EQ(Sent().size(), 3u);
  EXPECT_EQ(Sent()[0].kind, StatementKind::kCommand);
  EXPECT_EQ(Sent()[0].text, DeleteSql("20240315001"));
  EXPECT_EQ(Sent()[1].kind, StatementKind::kCatalog);
  EXPECT_EQ(Sent()[2].kind, StatementKind::kRowChange);
  EXPECT_EQ(Sent()[2].text,
            "DELETE FROM " + Table() + " WHERE `F_EstNo` <=> 20240315001 LIMIT 1");
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_EstNo from t_bcosth"), Rows{{"20240315002"}});
  EXPECT_EQ(db().Count("t_bcosti"), 1);
  EXPECT_EQ(db().Count("t_bcosts"), 1);
  // rs was closed: the next call that uses it as it stands works.
  EXPECT_EQ(repo.QueryByEstNo(e), 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostHeaderTest, DeleteRecordOfAMissingEstimateGivesTwoAndLeavesRsOpen) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  clsEntBCosth missing;
  missing.EstNo = 20240315009;
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(Commands(), Strings{DeleteSql("20240315009")});
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Count("t_bcosth"), 1);
  // The next call that uses rs as it stands fails on the open recordset,
  // sends nothing, reports and resets; the call after it works.
  Clear();
  clsEntBCosth e;
  e.EstNo = 20240315001;
  EXPECT_EQ(repo.QueryByEstNo(e), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(e.ItemNo, "");
  EXPECT_EQ(repo.QueryByEstNo(e), 1);
  EXPECT_EQ(e.ItemNo, "GEAR-40");
  EXPECT_EQ(Commands(), Strings{ByNoSql("20240315001")});
  EXPECT_EQ(Reports().size(), 1u);
}

TEST_F(CostHeaderTest, DeleteRecordAfterAnOpenRsFailsWithZeroThenDeletes) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  LeaveOpen(repo);
  clsEntBCosth e;
  e.EstNo = 20240315001;
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(db().Count("t_bcosth"), 1);
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  EXPECT_EQ(db().Count("t_bcosth"), 0);
  EXPECT_EQ(Reports().size(), 1u);
}

TEST_F(CostHeaderTest, DeleteRecordReportsAServerFailureAndGivesZero) {
  db().Exec("drop table t_bcosth");
  clsDataBCosth repo;
  clsEntBCosth e;
  e.EstNo = 20240315001;
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  ExpectOneReport("t_bcosth' doesn't exist");
  EXPECT_EQ(Commands(), Strings{DeleteSql("20240315001")});
}

TEST_F(CostHeaderTest, DeleteRecordTakesOnlyTheFirstOfRowsAlike) {
  // Without the key two rows can hold one number; the delete removes the
  // current row only.
  db().Exec("alter table t_bcosth drop primary key");
  db().Exec(kInsertFull);
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  clsEntBCosth e;
  e.EstNo = 20240315001;
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  EXPECT_EQ(Commands(), Strings{DeleteSql("20240315001")});
  EXPECT_EQ(RowChanges().size(), 1u);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select * from t_bcosth"), Rows{kFullRow});
}

// --- UpdateRecord ------------------------------------------------------------

TEST_F(CostHeaderTest, UpdateRecordWritesAll28ColumnsFoundByTheNumber) {
  Insert("20240315001", "2024-03-01", "OLD", "C009");
  clsDataBCosth repo;
  clsEntBCosth e = FullEstimate(20240315001);
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(Commands(), Strings{ByNoSql("20240315001")});
  const std::string set =
      "`F_EstNo`=20240315001,`F_EstDate`='2024-03-15 00:00:00',`F_ItemNo`='GEAR-40',"
      "`F_CustNo`='C001',`F_Remark`='first try',`F_Tabler`='ann',"
      "`F_TableTime`='2024-03-15 09:30:05',`F_CurrencyID`='USD',`F_PartCost`=100.5,"
      "`F_WageCost`=20.25,`F_ManageCost`=5,`F_TotCost`=125.75,`F_QuotPrice_1`=130,"
      "`F_QuotPrice_2`=131,`F_QuotPrice_3`=132,`F_QuotPrice_4`=133,`F_QuotPrice_5`=134,"
      "`F_ProFit_1`=1.5,`F_ProFit_2`=2.5,`F_ProFit_3`=3.5,`F_ProFit_4`=4.5,`F_ProFit_5`=5.5,"
      "`F_TaxPrice`=147.13,`F_SalePrice_1`=150,`F_SalePrice_2`=151,`F_SalePrice_3`=152,"
      "`F_SalePrice_4`=153,`F_SalePrice_5`=154";
  EXPECT_EQ(RowChanges(), Strings{"UPDATE " + Table() + " SET " + set +
                                  " WHERE `F_EstNo` <=> 20240315001 LIMIT 1"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Estimate("20240315001"), Rows{kFullRow});
  // rs was closed.
  clsEntBCosth read;
  read.EstNo = 20240315001;
  EXPECT_EQ(repo.QueryByEstNo(read), 1);
  ExpectSame(read, e);
}

TEST_F(CostHeaderTest, UpdateRecordWritesZeroDatesAndEmptyTextsAsTheyStand) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  clsEntBCosth e;
  e.EstNo = 20240315001;
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(Estimate("20240315001"),
            (Rows{{"20240315001", "1899-12-30 00:00:00", "", "", "", "", "1899-12-30 00:00:00",
                   "", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0", "0",
                   "0", "0", "0", "0", "0"}}));
}

TEST_F(CostHeaderTest, UpdateRecordOfAnUnknownNumberGivesTwoAndWritesNothing) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  clsEntBCosth e = FullEstimate(20240315002);
  e.Remark = "changed";
  EXPECT_EQ(repo.UpdateRecord(e), 2);
  EXPECT_EQ(Commands(), Strings{ByNoSql("20240315002")});
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select * from t_bcosth"), Rows{kFullRow});
  // rs was closed: the next call works.
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Count("t_bcosth"), 2);
}

TEST_F(CostHeaderTest, UpdateRecordOfATextTooLongShowsTheLengthReport) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  clsEntBCosth e = FullEstimate(20240315001);
  e.Remark = "changed";
  e.Tabler = std::string(51, 'x');
  EXPECT_EQ(repo.UpdateRecord(e), 0);
  EXPECT_EQ(Reports(), Reports_{LengthReport()});
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(db().Rows("select * from t_bcosth"), Rows{kFullRow});
  // rs was reset: the same call with a fitting value works.
  e.Tabler = std::string(50, 'x');
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(Reports().size(), 1u);
  EXPECT_EQ(db().Scalar("select F_Remark from t_bcosth"), "changed");
}

TEST_F(CostHeaderTest, UpdateRecordAfterAnOpenRsFailsWithZeroThenWorks) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  LeaveOpen(repo);
  clsEntBCosth e = FullEstimate(20240315001);
  e.Remark = "changed";
  EXPECT_EQ(repo.UpdateRecord(e), 0);
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});  // the length report's other words
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(db().Scalar("select F_Remark from t_bcosth"), "changed");
}

// --- AddRecord ---------------------------------------------------------------

TEST_F(CostHeaderTest, AddRecordTestsTheNumberThenAddsAll28Columns) {
  clsDataBCosth repo;
  clsEntBCosth e = FullEstimate(20240315001);
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(Commands(), (Strings{ByNoSql("20240315001"), kAllSql}));
  EXPECT_EQ(RowChanges(), Strings{"INSERT INTO " + Table() + " (" + kColumns +
                                  ") VALUES (20240315001" + kValuesAfterNo + ")"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select * from t_bcosth"), Rows{kFullRow});
}

TEST_F(CostHeaderTest, AddRecordOfAnExistingNumberGivesTwoWithoutAReport) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  clsEntBCosth e = FullEstimate(20240315001);
  e.Remark = "again";
  EXPECT_EQ(repo.AddRecord(e), 2);
  EXPECT_EQ(Commands(), Strings{ByNoSql("20240315001")});
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select * from t_bcosth"), Rows{kFullRow});
  // The refusal closed rs.
  e.EstNo = 20240315002;
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(db().Count("t_bcosth"), 2);
}

TEST_F(CostHeaderTest, AddRecordOfATextTooLongShowsTheLengthReportAndStoresNothing) {
  clsDataBCosth repo;
  clsEntBCosth e = FullEstimate(20240315001);
  e.CurrencyID = std::string(51, 'x');
  EXPECT_EQ(repo.AddRecord(e), 0);
  EXPECT_EQ(Reports(), Reports_{LengthReport()});
  EXPECT_EQ(Commands(), (Strings{ByNoSql("20240315001"), kAllSql}));
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(db().Count("t_bcosth"), 0);
  e.CurrencyID = "USD";
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(db().Rows("select * from t_bcosth"), Rows{kFullRow});
}

TEST_F(CostHeaderTest, AddRecordReportsAServerFailureWithItsDescription) {
  db().Exec("drop table t_bcosth");
  clsDataBCosth repo;
  clsEntBCosth e = FullEstimate(20240315001);
  EXPECT_EQ(repo.AddRecord(e), 0);
  ExpectOneReport("t_bcosth' doesn't exist");
}

TEST_F(CostHeaderTest, AddRecordAfterAKeysetEditReadsWithTheCursorItLeft) {
  // An update of an unknown number sets CursorType 1 and LockType 3 on rs;
  // the add's read-open takes them over and reads as ever.
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  clsEntBCosth e = FullEstimate(20240315002);
  EXPECT_EQ(repo.UpdateRecord(e), 2);
  EXPECT_EQ(repo.AddRecord(e), 1);
  clsEntBCosth same = FullEstimate(20240315001);
  EXPECT_EQ(repo.AddRecord(same), 2);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Count("t_bcosth"), 2);
}

// --- QueryMaxEstNo -----------------------------------------------------------

TEST_F(CostHeaderTest, QueryMaxEstNoGivesTheLargestNumberOfTheDay) {
  Insert("20240315001", "2024-03-15", "A", "C001");
  Insert("20240315003", "2024-03-15", "B", "C001");
  Insert("20240315002", "2024-03-15", "C", "C002");
  Insert("20240316001", "2024-03-16", "D", "C001");
  clsDataBCosth repo;
  double max = -1;
  EXPECT_EQ(repo.QueryMaxEstNo(Date::FromParts(2024, 3, 15), max), 1);
  EXPECT_EQ(max, 20240315003);
  EXPECT_EQ(Commands(), Strings{MaxSql("2024-03-15")});
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostHeaderTest, QueryMaxEstNoOnADayWithoutEstimatesKeepsTheCallersValue) {
  Insert("20240315001", "2024-03-15", "A", "C001");
  clsDataBCosth repo;
  double max = 42;
  EXPECT_EQ(repo.QueryMaxEstNo(Date::FromParts(2024, 3, 14), max), 0);
  EXPECT_EQ(max, 42);
  EXPECT_EQ(Commands(), Strings{MaxSql("2024-03-14")});
  EXPECT_TRUE(Reports().empty());
  // The statement gives one row holding null.
  EXPECT_EQ(db().Rows(MaxSql("2024-03-14")), Rows{{"NULL"}});
  // A time in the date goes into the text and is compared too.
  db().Exec("update t_bcosth set F_EstDate='2024-03-15 10:00:00'");
  EXPECT_EQ(repo.QueryMaxEstNo(Date::FromParts(2024, 3, 15), max), 0);
  EXPECT_EQ(repo.QueryMaxEstNo(Date::FromParts(2024, 3, 15, 10), max), 1);
  EXPECT_EQ(max, 20240315001);
  EXPECT_EQ(Commands(), (Strings{MaxSql("2024-03-14"), MaxSql("2024-03-15"),
                                 MaxSql("2024-03-15 10:00:00")}));
}

TEST_F(CostHeaderTest, QueryMaxEstNoReportsAFailureAndKeepsTheCallersValue) {
  clsDataBCosth repo;
  LeaveOpen(repo);
  double max = 42;
  EXPECT_EQ(repo.QueryMaxEstNo(Date::FromParts(2024, 3, 15), max), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});
  EXPECT_EQ(max, 42);
  db().Exec("drop table t_bcosth");
  EXPECT_EQ(repo.QueryMaxEstNo(Date::FromParts(2024, 3, 15), max), 2);
  EXPECT_EQ(Reports().size(), 2u);
  EXPECT_THAT(Reports()[1].text, HasSubstr("t_bcosth' doesn't exist"));
  EXPECT_EQ(max, 42);
}

// --- QueryDate ---------------------------------------------------------------

TEST_F(CostHeaderTest, QueryDateWalksTheRowsOfABusyDayAndTellsThatThereAreSome) {
  for (int i = 1; i <= 5; ++i) Insert("2024031500" + std::to_string(i), "2024-03-15", "A", "C");
  clsDataBCosth repo;
  EXPECT_EQ(repo.QueryDate(Date::FromParts(2024, 3, 15)), 1);
  Insert("20240316001", "2024-03-16", "A", "C");
  EXPECT_EQ(repo.QueryDate(Date::FromParts(2024, 3, 16)), 1);
  EXPECT_EQ(repo.QueryDate(Date::FromParts(2024, 3, 17)), 0);
  EXPECT_EQ(Commands(),
            (Strings{DateSql("2024-03-15"), DateSql("2024-03-16"), DateSql("2024-03-17")}));
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostHeaderTest, QueryDateReportsAFailureWithTwo) {
  clsDataBCosth repo;
  LeaveOpen(repo);
  EXPECT_EQ(repo.QueryDate(Date::FromParts(2024, 3, 15)), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});
  EXPECT_EQ(repo.QueryDate(Date::FromParts(2024, 3, 15)), 0);
  EXPECT_EQ(Reports().size(), 1u);
}

// --- QueryByEstNo ------------------------------------------------------------

TEST_F(CostHeaderTest, QueryByEstNoFillsColumns2To28) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  clsEntBCosth e;
  e.EstNo = 20240315001;
  EXPECT_EQ(repo.QueryByEstNo(e), 1);
  EXPECT_EQ(Commands(), Strings{ByNoSql("20240315001")});
  EXPECT_TRUE(Reports().empty());
  ExpectSame(e, FullEstimate(20240315001));
}

TEST_F(CostHeaderTest, QueryByEstNoReadsNullTablerAndCurrencyAsTheTextZero) {
  Insert("20240315001", "2024-03-15", "A", "C001");
  db().Exec("update t_bcosth set F_EstDate=null, F_ItemNo=null, F_CustNo=null");
  clsDataBCosth repo;
  clsEntBCosth e = FullEstimate(20240315001);
  EXPECT_EQ(repo.QueryByEstNo(e), 1);
  EXPECT_EQ(e.EstNo, 20240315001);
  EXPECT_EQ(e.EstDate, Date());
  EXPECT_EQ(e.ItemNo, "");
  EXPECT_EQ(e.CustNo, "");
  ExpectNullRead(e);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostHeaderTest, QueryByEstNoOfAnUnknownNumberGivesZeroAndLeavesTheEntity) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  clsEntBCosth e;
  e.EstNo = 20240315002;
  e.Remark = "mine";
  EXPECT_EQ(repo.QueryByEstNo(e), 0);
  EXPECT_EQ(e.Remark, "mine");
  EXPECT_EQ(e.ItemNo, "");
  EXPECT_EQ(Commands(), Strings{ByNoSql("20240315002")});
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostHeaderTest, QueryByEstNoReportsAServerFailureWithTwo) {
  db().Exec("alter table t_bcosth drop column F_TaxPrice");
  db().Exec(
      "insert into t_bcosth (F_EstNo, F_ItemNo, F_Tabler) values (20240315001, 'GEAR-40', 'ann')");
  clsDataBCosth repo;
  clsEntBCosth e;
  e.EstNo = 20240315001;
  EXPECT_EQ(repo.QueryByEstNo(e), 2);
  ExpectOneReport("ordinal: F_TaxPrice");
  // The reads before it were done.
  EXPECT_EQ(e.ItemNo, "GEAR-40");
  EXPECT_EQ(e.Tabler, "ann");
}

// --- QueryEstNoByItemNo ------------------------------------------------------

class CostListsTest : public CostHeaderTest {
 protected:
  void SetUp() override {
    CostHeaderTest::SetUp();
    Insert("20240315002", "2024-03-15", "GEAR-40", "C001");
    Insert("20240316001", "2024-03-16", "GEAR-40", "C002");
    Insert("20240315001", "2024-03-15", "GEAR-40", "C003");
    Insert("20240317001", "2024-03-17", "NUT-8", "C001");
    Insert("20240317002", "2024-03-17", "BOLT-3", "C002");
  }
};

TEST_F(CostListsTest, QueryEstNoByItemNoWithoutRightsGivesAllNumbersLargestFirstFromIndexOne) {
  clsDataBCosth repo;
  Doubles nos{7, 8, 9, 10, 11, 12};  // thrown away
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "GEAR-40", "ann"), 1);
  EXPECT_EQ(nos, (Doubles{0, 20240316001, 20240315002, 20240315001}));
  EXPECT_EQ(Commands(), (Strings{RightsTest("ann"), EstNosUnfiltered("GEAR-40")}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_TRUE(RowChanges().empty());
}

TEST_F(CostListsTest, QueryEstNoByItemNoWithOneMatchHasUpperBoundOne) {
  clsDataBCosth repo;
  Doubles nos;
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "NUT-8", ""), 1);
  ASSERT_EQ(nos.size(), 2u);  // upper bound 1
  EXPECT_EQ(nos[0], 0);
  EXPECT_EQ(nos[1], 20240317001);
  EXPECT_EQ(Commands(), (Strings{RightsTest(""), EstNosUnfiltered("NUT-8")}));
}

TEST_F(CostListsTest, QueryEstNoByItemNoWithoutAMatchLeavesElementZeroOnly) {
  clsDataBCosth repo;
  Doubles nos{5, 6};
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "NOTHING", "nobody"), 0);
  EXPECT_EQ(nos, Doubles{0});
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostListsTest, QueryEstNoByItemNoWithRightsGivesTheAllowedCustomersOnly) {
  Right("C", "ann", "C001");
  Right("C", "ann", "C003");
  Right("C", "bob", "C002");
  Right("S", "ann", "C002");
  clsDataBCosth repo;
  Doubles nos;
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "GEAR-40", "ann"), 1);
  EXPECT_EQ(nos, (Doubles{0, 20240315002, 20240315001}));
  EXPECT_EQ(Commands(), (Strings{RightsTest("ann"), EstNosFiltered("ann", "GEAR-40")}));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostListsTest, QueryEstNoByItemNoWithRightsForOtherCustomersOnlyGivesNothing) {
  Right("C", "ann", "C777");
  clsDataBCosth repo;
  Doubles nos{1, 2, 3};
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "GEAR-40", "ann"), 0);
  EXPECT_EQ(nos, Doubles{0});
  EXPECT_EQ(Commands(), (Strings{RightsTest("ann"), EstNosFiltered("ann", "GEAR-40")}));
}

TEST_F(CostListsTest, QueryEstNoByItemNoWithSupplierRightsOnlyIsUnrestricted) {
  Right("S", "ann", "C001");
  clsDataBCosth repo;
  Doubles nos;
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "GEAR-40", "ann"), 1);
  EXPECT_EQ(nos.size(), 4u);
  EXPECT_EQ(Commands(), (Strings{RightsTest("ann"), EstNosUnfiltered("GEAR-40")}));
}

TEST_F(CostListsTest, QueryEstNoByItemNoGivesANumberTwiceForTwoLikeRights) {
  Right("C", "ann", "C001");
  Right("C", "ann", "C001");
  clsDataBCosth repo;
  Doubles nos;
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "GEAR-40", "ann"), 1);
  EXPECT_EQ(nos, (Doubles{0, 20240315002, 20240315002}));
}

TEST_F(CostListsTest, QueryEstNoByItemNoStopsAtANullNumberWithTheArrayAsFarAsItWasFilled) {
  db().Exec("alter table t_bcosth drop primary key, modify F_EstNo double null");
  db().Exec("insert into t_bcosth (F_EstNo, F_ItemNo, F_CustNo) values (null, 'GEAR-40', 'C001')");
  clsDataBCosth repo;
  Doubles nos;
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "GEAR-40", "ann"), 2);
  // The null sorts last.
  EXPECT_EQ(nos, (Doubles{0, 20240316001, 20240315002, 20240315001}));
  EXPECT_EQ(Reports(), Reports_{PlainReport("Type mismatch")});
  // rs was reset: the next call works.
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "NUT-8", "ann"), 1);
  EXPECT_EQ(nos, (Doubles{0, 20240317001}));
}

TEST_F(CostListsTest, QueryEstNoByItemNoAfterAnOpenRsFailsInTheRightsTestWithTheArrayRedone) {
  clsDataBCosth repo;
  LeaveOpen(repo);
  Doubles nos{1, 2, 3};
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "GEAR-40", "ann"), 2);
  EXPECT_EQ(nos, Doubles{0});
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "GEAR-40", "ann"), 1);
  EXPECT_EQ(nos.size(), 4u);
}

TEST_F(CostListsTest, QueryEstNoByItemNoWithAQuoteFailsOnTheStatement) {
  clsDataBCosth repo;
  Doubles nos{1};
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "O'Brien", "ann"), 2);
  EXPECT_EQ(Commands(), (Strings{RightsTest("ann"), EstNosUnfiltered("O'Brien")}));
  ExpectOneReport(kSyntax);
  EXPECT_EQ(nos, Doubles{0});
  // A quote in the user fails the rights test itself: no fall back.
  Clear();
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "GEAR-40", "O'Brien"), 2);
  EXPECT_EQ(Commands(), Strings{RightsTest("O'Brien")});
  ExpectOneReport(kSyntax);
}

TEST_F(CostListsTest, QueryEstNoByItemNoComparesTheUserAsTheDatabaseComparesText) {
  Right("C", "ann", "C003");
  clsDataBCosth repo;
  Doubles nos;
  // The collation ignores case and trailing blanks; the id goes in as given.
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "GEAR-40", "ANN "), 1);
  EXPECT_EQ(nos, (Doubles{0, 20240315001}));
  EXPECT_EQ(Commands(), (Strings{RightsTest("ANN "), EstNosFiltered("ANN ", "GEAR-40")}));
  // A leading blank makes another user, who has no rights.
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "GEAR-40", " ann"), 1);
  EXPECT_EQ(nos.size(), 4u);
}

// --- QueryItemNo -------------------------------------------------------------

TEST_F(CostListsTest, QueryItemNoWithoutRightsGivesEachItemOnceFromIndexOne) {
  clsDataBCosth repo;
  Strings items{"x", "y"};
  EXPECT_EQ(repo.QueryItemNo(items, "ann"), 1);
  ASSERT_EQ(items.size(), 4u);
  EXPECT_EQ(items[0], "");
  Strings listed(items.begin() + 1, items.end());
  std::sort(listed.begin(), listed.end());
  EXPECT_EQ(listed, (Strings{"BOLT-3", "GEAR-40", "NUT-8"}));
  EXPECT_EQ(Commands(), (Strings{RightsTest("ann"), kItemsUnfiltered}));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostListsTest, QueryItemNoWithRightsGivesTheItemsOfTheAllowedCustomers) {
  Right("C", "bob", "C002");
  Right("C", "bob", "C002");  // distinct: still once
  clsDataBCosth repo;
  Strings items;
  EXPECT_EQ(repo.QueryItemNo(items, "bob"), 1);
  ASSERT_EQ(items.size(), 3u);
  Strings listed(items.begin() + 1, items.end());
  std::sort(listed.begin(), listed.end());
  EXPECT_EQ(listed, (Strings{"BOLT-3", "GEAR-40"}));
  EXPECT_EQ(Commands(), (Strings{RightsTest("bob"), ItemsFiltered("bob")}));
}

TEST_F(CostListsTest, QueryItemNoWithRightsForOtherCustomersOnlyGivesNothing) {
  Right("C", "bob", "C777");
  clsDataBCosth repo;
  Strings items{"x"};
  EXPECT_EQ(repo.QueryItemNo(items, "bob"), 0);
  EXPECT_EQ(items, Strings{""});
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostListsTest, QueryItemNoOfAnEmptyOrSupplierOnlyUserIsUnrestricted) {
  Right("S", "sam", "C001");
  clsDataBCosth repo;
  Strings items;
  EXPECT_EQ(repo.QueryItemNo(items, "sam"), 1);
  EXPECT_EQ(items.size(), 4u);
  Strings all;
  EXPECT_EQ(repo.QueryItemNo(all, ""), 1);
  EXPECT_EQ(all.size(), 4u);
  EXPECT_EQ(Commands(),
            (Strings{RightsTest("sam"), kItemsUnfiltered, RightsTest(""), kItemsUnfiltered}));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostListsTest, QueryItemNoStoresANullItemAsTheEmptyText) {
  db().Exec("delete from t_bcosth");
  Insert("20240315001", "2024-03-15", "GEAR-40", "C001");
  db().Exec("insert into t_bcosth (F_EstNo, F_ItemNo) values (20240315002, null)");
  clsDataBCosth repo;
  Strings items;
  EXPECT_EQ(repo.QueryItemNo(items, "ann"), 1);
  ASSERT_EQ(items.size(), 3u);
  Strings listed(items.begin() + 1, items.end());
  std::sort(listed.begin(), listed.end());
  EXPECT_EQ(listed, (Strings{"", "GEAR-40"}));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostListsTest, QueryItemNoOnAnEmptyTableGivesElementZeroOnly) {
  db().Exec("delete from t_bcosth");
  clsDataBCosth repo;
  Strings items{"a", "b"};
  EXPECT_EQ(repo.QueryItemNo(items, "ann"), 0);
  EXPECT_EQ(items, Strings{""});
}

TEST_F(CostListsTest, QueryItemNoAfterAnOpenRsFailsInTheRightsTestWithTheArrayRedone) {
  clsDataBCosth repo;
  LeaveOpen(repo);
  Strings items{"a", "b"};
  EXPECT_EQ(repo.QueryItemNo(items, "ann"), 2);
  EXPECT_EQ(items, Strings{""});
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(repo.QueryItemNo(items, "ann"), 1);
  EXPECT_EQ(items.size(), 4u);
}

TEST_F(CostListsTest, QueryItemNoWithAQuoteInTheUserFailsTheRightsTest) {
  clsDataBCosth repo;
  Strings items{"a"};
  EXPECT_EQ(repo.QueryItemNo(items, "O'Brien"), 2);
  EXPECT_EQ(Commands(), Strings{RightsTest("O'Brien")});
  ExpectOneReport(kSyntax);
  EXPECT_EQ(items, Strings{""});
}

// --- QueryAll ----------------------------------------------------------------

TEST_F(CostHeaderTest, QueryAllAppendsEveryEstimateWithAll28Columns) {
  db().Exec(kInsertFull);
  Insert("20240315002", "2024-03-15", "NUT-8", "C002");
  clsDataBCosth repo;
  Collection<clsEntBCosth> all;
  all.Add(std::make_shared<clsEntBCosth>());
  EXPECT_EQ(repo.QueryAll(&all), 1);
  EXPECT_EQ(Commands(), Strings{kAllSql});
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(all.Count(), 3u);
  EXPECT_EQ(all.Item(1).EstNo, 0);  // what was there stays
  ExpectSame(all.Item(2), FullEstimate(20240315001));
  EXPECT_EQ(all.Item(3).EstNo, 20240315002);
  EXPECT_EQ(all.Item(3).ItemNo, "NUT-8");
  EXPECT_EQ(all.Item(3).CustNo, "C002");
  EXPECT_EQ(all.Item(3).Tabler, "0");
  EXPECT_EQ(all.Item(3).CurrencyID, "0");  // a null currency reads as "0"
  EXPECT_EQ(all.Item(3).Remark, "");
  EXPECT_EQ(all.Item(3).TableTime, Date());
}

TEST_F(CostHeaderTest, QueryAllOfNoEstimatesGivesZeroAndLeavesTheCollection) {
  clsDataBCosth repo;
  Collection<clsEntBCosth> all;
  all.Add(std::make_shared<clsEntBCosth>());
  EXPECT_EQ(repo.QueryAll(&all), 0);
  EXPECT_EQ(all.Count(), 1u);
  EXPECT_EQ(repo.QueryAll(nullptr), 0);  // no row touches no collection
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Commands(), (Strings{kAllSql, kAllSql}));
}

TEST_F(CostHeaderTest, QueryAllWithANullCollectionFailsOnTheFirstRow) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  EXPECT_EQ(repo.QueryAll(nullptr), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport("Object required")});
  Collection<clsEntBCosth> all;
  EXPECT_EQ(repo.QueryAll(&all), 1);
  EXPECT_EQ(all.Count(), 1u);
}

TEST_F(CostHeaderTest, QueryAllStopsAtAFailingRowWithTheEarlierRowsInTheCollection) {
  // A date that is no date fails its conversion.
  db().Exec("alter table t_bcosth modify F_EstDate varchar(20) null");
  Insert("20240315001", "2024-03-15", "A", "C001");
  Insert("20240315002", "soon", "B", "C001");
  clsDataBCosth repo;
  Collection<clsEntBCosth> all;
  EXPECT_EQ(repo.QueryAll(&all), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport("Type mismatch")});
  ASSERT_EQ(all.Count(), 1u);
  EXPECT_EQ(all.Item(1).ItemNo, "A");
}

TEST_F(CostHeaderTest, GetBCostBySqlAddRecordAndQueryAllFailOnceAfterAMissedDelete) {
  db().Exec(kInsertFull);
  clsDataBCosth repo;
  clsEntBCosth e;
  LeaveOpen(repo);
  EXPECT_EQ(repo.GetBCostBySql(e, kAllSql), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(e.EstNo, 0);
  EXPECT_EQ(repo.GetBCostBySql(e, kAllSql), 1);
  EXPECT_EQ(e.EstNo, 20240315001);

  Clear();
  LeaveOpen(repo);
  clsEntBCosth fresh = FullEstimate(20240315002);
  EXPECT_EQ(repo.AddRecord(fresh), 0);
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});  // the length report's other words
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(db().Count("t_bcosth"), 1);
  EXPECT_EQ(repo.AddRecord(fresh), 1);
  EXPECT_EQ(db().Count("t_bcosth"), 2);

  Clear();
  LeaveOpen(repo);
  Collection<clsEntBCosth> all;
  EXPECT_EQ(repo.QueryAll(&all), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(all.Count(), 0u);
  EXPECT_EQ(repo.QueryAll(&all), 1);
  EXPECT_EQ(all.Count(), 2u);
  EXPECT_EQ(Reports().size(), 1u);
}

// --- the class as a whole ---------------------------------------------------

TEST_F(CostHeaderTest, ConstructionFailsWithoutAReport) {
  const testing::ServerAddress a = testing::ServerAddress::FromEnvironment();
  SetSessionConnectionString("SERVER=" + a.server + ";PORT=" + std::to_string(a.port) +
                             ";DATABASE=" + database() + ";UID=" + a.user + ";PWD=not" +
                             a.password);
  try {
    clsDataBCosth repo;
    ADD_FAILURE() << "the constructor returned";
  } catch (const Error& e) {
    EXPECT_EQ(e.Number(), errc::kProvider);
    EXPECT_THAT(e.Description(), HasSubstr("Access denied"));
  }
  EXPECT_TRUE(Reports().empty());
  EXPECT_TRUE(Sent().empty());
}

TEST_F(CostHeaderTest, AnEstimateFromAddToDelete) {
  clsDataBCosth repo;
  double max = 0;
  const Date day = Date::FromParts(2024, 3, 15);
  EXPECT_EQ(repo.QueryDate(day), 0);
  EXPECT_EQ(repo.QueryMaxEstNo(day, max), 0);
  clsEntBCosth e = FullEstimate(20240315001);
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(repo.QueryDate(day), 1);
  EXPECT_EQ(repo.QueryMaxEstNo(day, max), 1);
  EXPECT_EQ(max, 20240315001);
  e.EstNo = max + 1;
  EXPECT_EQ(repo.AddRecord(e), 1);
  e.TotCost = 200;
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  Doubles nos;
  EXPECT_EQ(repo.QueryEstNoByItemNo(nos, "GEAR-40", ""), 1);
  EXPECT_EQ(nos, (Doubles{0, 20240315002, 20240315001}));
  Strings items;
  EXPECT_EQ(repo.QueryItemNo(items, ""), 1);
  EXPECT_EQ(items, (Strings{"", "GEAR-40"}));
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  EXPECT_EQ(repo.DeleteRecord(e), 2);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_EstNo, F_TotCost from t_bcosth"),
            (Rows{{"20240315001", "125.75"}}));
}

}  // namespace
}  // namespace corvane
