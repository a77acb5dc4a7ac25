// clsDataBCosti (the parts of a cost estimate) and clsDataBCosts (its wages)
// against the sandbox server: every path of their five methods each, with the
// statements sent, the row changes, the results, the reports, what the tables
// hold afterwards, and rs as a missed delete leaves it for the next call. The
// two classes share the steps but not the meaning of QueryByEstNo: one part
// by its full key in clsDataBCosti, the wages of an estimate in
// clsDataBCosts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <memory>
#include <string>
#include <vector>

#include "corvane/costing/cost_header.h"
#include "corvane/costing/cost_parts.h"
#include "corvane/costing/cost_wages.h"
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

constexpr char kTitle[] = "塔恩维克";
constexpr char kSyntax[] = "You have an error in your SQL syntax";
constexpr char kOpenWords[] = "Operation is not allowed when the object is open";

// The statements of clsDataBCosti, with the values put in.
std::string PartDeleteSql(const std::string& no, const std::string& item) {
  return "select * from T_BCosti where F_EstNo ='" + no + "' and F_ItemNo = '" + item + "'";
}
std::string PartKeySql(const std::string& no, const std::string& item) {
  return "select * from T_BCosti where F_EstNo = '" + no + "' and F_ItemNo = '" + item + "'";
}
const std::string kPartTable = "select * from T_BCosti";
std::string PartListSql(const std::string& no) {
  return "select * from T_BCosti where F_EstNo  = '" + no + "'";
}

// The statements of clsDataBCosts, with the values put in.
std::string WageDeleteSql(const std::string& no, const std::string& item) {
  return "select * from T_BCosts where F_EstNo ='" + no + "' and F_WageItem = '" + item + "'";
}
std::string WageKeySql(const std::string& no, const std::string& item) {
  return "select * from T_BCosts where F_EstNo = '" + no + "' and F_WageItem = '" + item + "'";
}
const std::string kWageTable = "select * from T_BCosts";
std::string WageListSql(const std::string& no) {
  return "select * from T_BCosts where F_EstNo  = '" + no + "'";
}

clsEntBCosti Part(double no, const std::string& item) {
  clsEntBCosti e;
  e.EstNo = no;
  e.ItemNo = item;
  e.CurrencyID = "USD";
  e.Dosage = 2.5;
  e.Waste = 0.25;
  e.Price = 12.5;
  e.CostPrice = 34.375;
  return e;
}

clsEntBCosts Wage(double no, const std::string& item, double wage) {
  clsEntBCosts e;
  e.EstNo = no;
  e.WageItem = item;
  e.Wage = wage;
  return e;
}

class CostDetailsTest : public SandboxTest {
 protected:
  std::string Table(const std::string& name) const {
    std::string d = database();
    std::transform(d.begin(), d.end(), d.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return "`" + d + "`.`" + name + "`";
  }
  Strings RowChanges() const {
    Strings out;
    for (const auto& s : Sent()) {
      if (s.kind == StatementKind::kRowChange) out.push_back(s.text);
    }
    return out;
  }
  void ExpectOneReport(const std::string& part) {
    ASSERT_EQ(Reports().size(), 1u);
    EXPECT_THAT(Reports()[0].text, HasSubstr(part));
    EXPECT_EQ(Reports()[0].style, 64);
    EXPECT_EQ(Reports()[0].title, kTitle);
  }
  // Two parts of estimate 20240315001 and one of 20240315002.
  void InsertParts() {
    db().Exec(
        "insert into t_bcosti values (20240315001,'STEEL','CNY',3,0.5,8,28),"
        "(20240315001,'PAINT','USD',0.2,0,40,8),(20240315002,'STEEL','CNY',1,0,8,8)");
  }
  // Two wages of estimate 20240315001 and one of 20240315002.
  void InsertWages() {
    db().Exec(
        "insert into t_bcosts values (20240315001,'LATHE',12.5),(20240315001,'PAINTING',4),"
        "(20240315002,'LATHE',9)");
  }
  Rows Parts() { return db().Rows("select * from t_bcosti order by F_EstNo, F_ItemNo"); }
  Rows Wages() { return db().Rows("select * from t_bcosts order by F_EstNo, F_WageItem"); }
};

const Rows kParts{{"20240315001", "PAINT", "USD", "0.2", "0", "40", "8"},
                  {"20240315001", "STEEL", "CNY", "3", "0.5", "8", "28"},
                  {"20240315002", "STEEL", "CNY", "1", "0", "8", "8"}};
const Rows kWages{{"20240315001", "LATHE", "12.5"},
                  {"20240315001", "PAINTING", "4"},
                  {"20240315002", "LATHE", "9"}};

// ============================================================ clsDataBCosti

// --- DeleteRecord ------------------------------------------------------------

TEST_F(CostDetailsTest, PartsDeleteRecordDeletesThePartByEstimateAndItem) {
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti e;
  e.EstNo = 20240315001;
  e.ItemNo = "STEEL";
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  EXPECT_EQ(Commands(), Strings{PartDeleteSql("20240315001", "STEEL")});
  EXPECT_EQ(RowChanges(), Strings{"DELETE FROM " + Table("t_bcosti") +
                                  " WHERE `F_EstNo` <=> 20240315001 AND `F_ItemNo` <=> 'STEEL' "
                                  "LIMIT 1"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Parts(), (Rows{kParts[0], kParts[2]}));
  // rs was closed.
  Collection<clsEntBCosti> parts;
  EXPECT_EQ(repo.QueryAll(&parts, 20240315001), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostDetailsTest, PartsDeleteRecordOfAMissingPartGivesTwoAndLeavesRsOpen) {
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti missing;
  missing.EstNo = 20240315002;
  missing.ItemNo = "PAINT";
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(Commands(), Strings{PartDeleteSql("20240315002", "PAINT")});
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Parts(), kParts);
  // Each method that uses rs as it stands fails once on the open recordset.
  Clear();
  Collection<clsEntBCosti> parts;
  EXPECT_EQ(repo.QueryAll(&parts, 20240315001), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(parts.Count(), 0u);
  EXPECT_EQ(repo.QueryAll(&parts, 20240315001), 1);
  EXPECT_EQ(parts.Count(), 2u);
  EXPECT_EQ(Reports().size(), 1u);
}

TEST_F(CostDetailsTest, PartsEveryMethodFailsOnceAfterAMissedDelete) {
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti missing;
  missing.EstNo = 1;
  clsEntBCosti there = Part(20240315001, "STEEL");
  clsEntBCosti fresh = Part(20240315003, "GLUE");
  // DeleteRecord, UpdateRecord and AddRecord fail with 0, QueryByEstNo with 2.
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(repo.DeleteRecord(there), 0);
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(repo.UpdateRecord(there), 0);
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(repo.AddRecord(fresh), 0);
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(repo.QueryByEstNo(there), 2);
  EXPECT_EQ(Reports(), Reports_(4, PlainReport(kOpenWords)));
  EXPECT_EQ(Commands(), Strings(4, PartDeleteSql("1", "")));
  EXPECT_EQ(Parts(), kParts);
  // The length report gives the same words for a failure of another number.
  EXPECT_EQ(Reports()[1], PlainReport(kOpenWords));
}

TEST_F(CostDetailsTest, PartsDeleteRecordWithAQuoteFailsOnTheStatement) {
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti e;
  e.EstNo = 20240315001;
  e.ItemNo = "O'Brien";
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(), Strings{PartDeleteSql("20240315001", "O'Brien")});
  ExpectOneReport(kSyntax);
  EXPECT_EQ(Parts(), kParts);
}

// --- UpdateRecord ------------------------------------------------------------

TEST_F(CostDetailsTest, PartsUpdateRecordWritesAllColumnsTheKeyIncluded) {
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti e = Part(20240315001, "STEEL");
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(Commands(), Strings{PartKeySql("20240315001", "STEEL")});
  EXPECT_EQ(RowChanges(),
            Strings{"UPDATE " + Table("t_bcosti") +
                    " SET `F_EstNo`=20240315001,`F_ItemNo`='STEEL',`F_CurrencyID`='USD',"
                    "`F_Dosage`=2.5,`F_Waste`=0.25,`F_Price`=12.5,`F_CostPrice`=34.375"
                    " WHERE `F_EstNo` <=> 20240315001 AND `F_ItemNo` <=> 'STEEL' LIMIT 1"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Parts(), (Rows{kParts[0],
                           {"20240315001", "STEEL", "USD", "2.5", "0.25", "12.5", "34.375"},
                           kParts[2]}));
}

TEST_F(CostDetailsTest, PartsUpdateRecordRewritesTheKeyAsTheEntityHoldsIt) {
  // The server finds "STEEL" by "steel"; the write then stores the entity's
  // spelling.
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti e = Part(20240315002, "steel");
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(Commands(), Strings{PartKeySql("20240315002", "steel")});
  EXPECT_EQ(db().Rows("select F_ItemNo, F_CurrencyID from t_bcosti where F_EstNo=20240315002"),
            (Rows{{"steel", "USD"}}));
}

TEST_F(CostDetailsTest, PartsUpdateRecordOfAMissingPartGivesTwoAndWritesNothing) {
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti e = Part(20240315002, "PAINT");
  EXPECT_EQ(repo.UpdateRecord(e), 2);
  EXPECT_EQ(Commands(), Strings{PartKeySql("20240315002", "PAINT")});
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Parts(), kParts);
  // rs was closed.
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostDetailsTest, PartsUpdateRecordOfATextTooLongShowsTheLengthReport) {
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti e = Part(20240315001, "STEEL");
  e.CurrencyID = std::string(51, 'x');
  EXPECT_EQ(repo.UpdateRecord(e), 0);
  EXPECT_EQ(Reports(), Reports_{LengthReport()});
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(Parts(), kParts);
  e.CurrencyID = "EUR";
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(Reports().size(), 1u);
}

TEST_F(CostDetailsTest, PartsUpdateRecordWithAQuoteFailsOnTheStatement) {
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti e = Part(20240315001, "it's");
  EXPECT_EQ(repo.UpdateRecord(e), 0);
  EXPECT_EQ(Commands(), Strings{PartKeySql("20240315001", "it's")});
  ExpectOneReport(kSyntax);
  EXPECT_EQ(Parts(), kParts);
}

// --- AddRecord ---------------------------------------------------------------

TEST_F(CostDetailsTest, PartsAddRecordTestsTheKeyThenAddsAllColumns) {
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti e = Part(20240315002, "PAINT");
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(Commands(), (Strings{PartKeySql("20240315002", "PAINT"), kPartTable}));
  EXPECT_EQ(RowChanges(),
            Strings{"INSERT INTO " + Table("t_bcosti") +
                    " (`F_EstNo`,`F_ItemNo`,`F_CurrencyID`,`F_Dosage`,`F_Waste`,`F_Price`,"
                    "`F_CostPrice`) VALUES (20240315002,'PAINT','USD',2.5,0.25,12.5,34.375)"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select * from t_bcosti where F_EstNo=20240315002 order by F_ItemNo"),
            (Rows{{"20240315002", "PAINT", "USD", "2.5", "0.25", "12.5", "34.375"}, kParts[2]}));
}

TEST_F(CostDetailsTest, PartsAddRecordOfAnExistingKeyGivesTwoWithoutAReport) {
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti e = Part(20240315001, "STEEL");
  EXPECT_EQ(repo.AddRecord(e), 2);
  EXPECT_EQ(Commands(), Strings{PartKeySql("20240315001", "STEEL")});
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Parts(), kParts);
}

TEST_F(CostDetailsTest, PartsAddRecordOfATextTooLongShowsTheLengthReportAndStoresNothing) {
  clsDataBCosti repo;
  clsEntBCosti e = Part(20240315001, std::string(51, 'p'));
  EXPECT_EQ(repo.AddRecord(e), 0);
  EXPECT_EQ(Reports(), Reports_{LengthReport()});
  EXPECT_EQ(Commands(), (Strings{PartKeySql("20240315001", std::string(51, 'p')), kPartTable}));
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(db().Count("t_bcosti"), 0);
}

TEST_F(CostDetailsTest, PartsAddRecordWithAQuoteFailsOnTheStatement) {
  clsDataBCosti repo;
  clsEntBCosti e = Part(20240315001, "O'Brien");
  EXPECT_EQ(repo.AddRecord(e), 0);
  EXPECT_EQ(Commands(), Strings{PartKeySql("20240315001", "O'Brien")});
  ExpectOneReport(kSyntax);
  EXPECT_EQ(db().Count("t_bcosti"), 0);
}

// --- QueryAll ----------------------------------------------------------------

TEST_F(CostDetailsTest, PartsQueryAllAppendsThePartsOfTheEstimate) {
  InsertParts();
  clsDataBCosti repo;
  Collection<clsEntBCosti> parts;
  parts.Add(std::make_shared<clsEntBCosti>(Part(1, "mine")));
  EXPECT_EQ(repo.QueryAll(&parts, 20240315001), 1);
  EXPECT_EQ(Commands(), Strings{PartListSql("20240315001")});
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(parts.Count(), 3u);
  EXPECT_EQ(parts.Item(1).ItemNo, "mine");
  std::vector<std::string> got;
  for (std::size_t i = 2; i <= 3; ++i) {
    const clsEntBCosti& p = parts.Item(i);
    got.push_back(Text(p.EstNo) + " " + p.ItemNo + " " + p.CurrencyID + " " + Text(p.Dosage) +
                  " " + Text(p.Waste) + " " + Text(p.Price) + " " + Text(p.CostPrice));
  }
  std::sort(got.begin(), got.end());
  EXPECT_EQ(got, (Strings{"20240315001 PAINT USD 0.2 0 40 8", "20240315001 STEEL CNY 3 0.5 8 28"}));
}

TEST_F(CostDetailsTest, PartsQueryAllOfAnEstimateWithoutPartsGivesZero) {
  InsertParts();
  clsDataBCosti repo;
  Collection<clsEntBCosti> parts;
  parts.Add(std::make_shared<clsEntBCosti>());
  EXPECT_EQ(repo.QueryAll(&parts, 20240315009), 0);
  EXPECT_EQ(parts.Count(), 1u);
  EXPECT_EQ(repo.QueryAll(nullptr, 20240315009), 0);
  EXPECT_EQ(Commands(), (Strings{PartListSql("20240315009"), PartListSql("20240315009")}));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostDetailsTest, PartsQueryAllReadsANullItemAndCurrencyAsTheEmptyText) {
  db().Exec("alter table t_bcosti drop primary key, modify F_ItemNo varchar(50) null");
  db().Exec("insert into t_bcosti (F_EstNo) values (20240315001)");
  clsDataBCosti repo;
  Collection<clsEntBCosti> parts;
  EXPECT_EQ(repo.QueryAll(&parts, 20240315001), 1);
  ASSERT_EQ(parts.Count(), 1u);
  EXPECT_EQ(parts.Item(1).EstNo, 20240315001);
  EXPECT_EQ(parts.Item(1).ItemNo, "");
  EXPECT_EQ(parts.Item(1).CurrencyID, "");
  EXPECT_EQ(parts.Item(1).Dosage, 0);
  EXPECT_EQ(parts.Item(1).CostPrice, 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostDetailsTest, PartsQueryAllWithANullCollectionFailsOnTheFirstRow) {
  InsertParts();
  clsDataBCosti repo;
  EXPECT_EQ(repo.QueryAll(nullptr, 20240315002), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport("Object required")});
}

TEST_F(CostDetailsTest, PartsQueryAllReportsAServerFailure) {
  db().Exec("drop table t_bcosti");
  clsDataBCosti repo;
  Collection<clsEntBCosti> parts;
  EXPECT_EQ(repo.QueryAll(&parts, 20240315001), 2);
  ExpectOneReport("t_bcosti' doesn't exist");
}

// --- QueryByEstNo (one part by its full key) ---------------------------------

TEST_F(CostDetailsTest, PartsQueryByEstNoFillsTheFiveColumnsOfThePart) {
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti e;
  e.EstNo = 20240315001;
  e.ItemNo = "steel";
  EXPECT_EQ(repo.QueryByEstNo(e), 1);
  EXPECT_EQ(Commands(), Strings{PartKeySql("20240315001", "steel")});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(e.EstNo, 20240315001);
  EXPECT_EQ(e.ItemNo, "steel");  // the key is not read back
  EXPECT_EQ(e.CurrencyID, "CNY");
  EXPECT_EQ(e.Dosage, 3);
  EXPECT_EQ(e.Waste, 0.5);
  EXPECT_EQ(e.Price, 8);
  EXPECT_EQ(e.CostPrice, 28);
}

TEST_F(CostDetailsTest, PartsQueryByEstNoReadsNullsAsEmptyTextAndZero) {
  db().Exec("insert into t_bcosti (F_EstNo, F_ItemNo) values (20240315001, 'STEEL')");
  clsDataBCosti repo;
  clsEntBCosti e = Part(20240315001, "STEEL");
  EXPECT_EQ(repo.QueryByEstNo(e), 1);
  EXPECT_EQ(e.CurrencyID, "");
  EXPECT_EQ(e.Dosage, 0);
  EXPECT_EQ(e.Waste, 0);
  EXPECT_EQ(e.Price, 0);
  EXPECT_EQ(e.CostPrice, 0);
}

TEST_F(CostDetailsTest, PartsQueryByEstNoOfAMissingPartGivesZeroAndLeavesTheEntity) {
  InsertParts();
  clsDataBCosti repo;
  clsEntBCosti e = Part(20240315002, "PAINT");
  EXPECT_EQ(repo.QueryByEstNo(e), 0);
  EXPECT_EQ(e.CurrencyID, "USD");
  EXPECT_EQ(e.CostPrice, 34.375);
  EXPECT_TRUE(Reports().empty());
  // rs was closed.
  EXPECT_EQ(repo.QueryByEstNo(e), 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostDetailsTest, PartsQueryByEstNoWithAQuoteFailsOnTheStatement) {
  clsDataBCosti repo;
  clsEntBCosti e = Part(20240315001, "O'Brien");
  EXPECT_EQ(repo.QueryByEstNo(e), 2);
  EXPECT_EQ(Commands(), Strings{PartKeySql("20240315001", "O'Brien")});
  ExpectOneReport(kSyntax);
}

// ============================================================ clsDataBCosts

// --- DeleteRecord ------------------------------------------------------------

TEST_F(CostDetailsTest, WagesDeleteRecordDeletesTheWageByEstimateAndItem) {
  InsertWages();
  clsDataBCosts repo;
  clsEntBCosts e = Wage(20240315001, "LATHE", 0);
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  EXPECT_EQ(Commands(), Strings{WageDeleteSql("20240315001", "LATHE")});
  EXPECT_EQ(RowChanges(), Strings{"DELETE FROM " + Table("t_bcosts") +
                                  " WHERE `F_EstNo` <=> 20240315001 AND `F_WageItem` <=> 'LATHE' "
                                  "LIMIT 1"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Wages(), (Rows{kWages[1], kWages[2]}));
}

TEST_F(CostDetailsTest, WagesDeleteRecordOfAMissingWageGivesTwoAndLeavesRsOpen) {
  InsertWages();
  clsDataBCosts repo;
  clsEntBCosts missing = Wage(20240315002, "PAINTING", 0);
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(Commands(), Strings{WageDeleteSql("20240315002", "PAINTING")});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Wages(), kWages);
  Clear();
  Collection<clsEntBCosts> wages;
  EXPECT_EQ(repo.QueryByEstNo(&wages, 20240315001), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(repo.QueryByEstNo(&wages, 20240315001), 1);
  EXPECT_EQ(wages.Count(), 2u);
  EXPECT_EQ(Reports().size(), 1u);
}

TEST_F(CostDetailsTest, WagesEveryMethodFailsOnceAfterAMissedDelete) {
  InsertWages();
  clsDataBCosts repo;
  clsEntBCosts missing = Wage(1, "X", 0);
  clsEntBCosts there = Wage(20240315001, "LATHE", 99);
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(repo.DeleteRecord(there), 0);
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(repo.UpdateRecord(there), 0);
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(repo.AddRecord(there), 0);
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(repo.QueryByEstNoWage(there), 2);
  EXPECT_EQ(there.Wage, 99);
  EXPECT_EQ(Reports(), Reports_(4, PlainReport(kOpenWords)));
  EXPECT_EQ(Commands(), Strings(4, WageDeleteSql("1", "X")));
  EXPECT_EQ(Wages(), kWages);
}

TEST_F(CostDetailsTest, WagesDeleteRecordWithAQuoteFailsOnTheStatement) {
  InsertWages();
  clsDataBCosts repo;
  clsEntBCosts e = Wage(20240315001, "O'Brien", 0);
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(), Strings{WageDeleteSql("20240315001", "O'Brien")});
  ExpectOneReport(kSyntax);
  EXPECT_EQ(Wages(), kWages);
}

// --- UpdateRecord ------------------------------------------------------------

TEST_F(CostDetailsTest, WagesUpdateRecordWritesAllColumnsTheKeyIncluded) {
  InsertWages();
  clsDataBCosts repo;
  clsEntBCosts e = Wage(20240315001, "lathe", 15.75);
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(Commands(), Strings{WageKeySql("20240315001", "lathe")});
  EXPECT_EQ(RowChanges(),
            Strings{"UPDATE " + Table("t_bcosts") +
                    " SET `F_EstNo`=20240315001,`F_WageItem`='lathe',`F_Wage`=15.75"
                    " WHERE `F_EstNo` <=> 20240315001 AND `F_WageItem` <=> 'LATHE' LIMIT 1"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Wages(), (Rows{{"20240315001", "lathe", "15.75"}, kWages[1], kWages[2]}));
}

TEST_F(CostDetailsTest, WagesUpdateRecordOfAMissingWageGivesTwoAndWritesNothing) {
  InsertWages();
  clsDataBCosts repo;
  clsEntBCosts e = Wage(20240315002, "PAINTING", 1);
  EXPECT_EQ(repo.UpdateRecord(e), 2);
  EXPECT_EQ(Commands(), Strings{WageKeySql("20240315002", "PAINTING")});
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Wages(), kWages);
  EXPECT_EQ(repo.QueryByEstNoWage(e), 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostDetailsTest, WagesUpdateRecordOfATextTooLongShowsTheLengthReport) {
  // The server does not count trailing blanks: the item with 46 blanks after
  // it finds the row, and its write does not fit the column.
  InsertWages();
  clsDataBCosts repo;
  const std::string padded = "LATHE" + std::string(46, ' ');
  clsEntBCosts e = Wage(20240315001, padded, 99);
  EXPECT_EQ(repo.UpdateRecord(e), 0);
  EXPECT_EQ(Commands(), Strings{WageKeySql("20240315001", padded)});
  EXPECT_EQ(Reports(), Reports_{LengthReport()});
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(Wages(), kWages);
  // rs was reset: with 45 blanks the item fits, and is stored with them.
  e.WageItem = "LATHE" + std::string(45, ' ');
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(Reports().size(), 1u);
  EXPECT_EQ(db().Rows("select length(F_WageItem), F_Wage from t_bcosts where F_Wage = 99"),
            (Rows{{"50", "99"}}));
}

TEST_F(CostDetailsTest, WagesUpdateRecordWithAQuoteFailsOnTheStatement) {
  InsertWages();
  clsDataBCosts repo;
  clsEntBCosts e = Wage(20240315001, "it's", 1);
  EXPECT_EQ(repo.UpdateRecord(e), 0);
  EXPECT_EQ(Commands(), Strings{WageKeySql("20240315001", "it's")});
  ExpectOneReport(kSyntax);
}

// --- AddRecord ---------------------------------------------------------------

TEST_F(CostDetailsTest, WagesAddRecordAddsANewWageItemOfAnEstimate) {
  InsertWages();
  clsDataBCosts repo;
  clsEntBCosts e = Wage(20240315002, "PAINTING", 3.5);
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(Commands(), (Strings{WageKeySql("20240315002", "PAINTING"), kWageTable}));
  EXPECT_EQ(RowChanges(), Strings{"INSERT INTO " + Table("t_bcosts") +
                                  " (`F_EstNo`,`F_WageItem`,`F_Wage`) VALUES "
                                  "(20240315002,'PAINTING',3.5)"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Wages(), (Rows{kWages[0], kWages[1], kWages[2], {"20240315002", "PAINTING", "3.5"}}));
}

TEST_F(CostDetailsTest, WagesAddRecordOfAnExistingKeyGivesTwoWithoutAReport) {
  InsertWages();
  clsDataBCosts repo;
  clsEntBCosts e = Wage(20240315001, "Lathe", 99);
  EXPECT_EQ(repo.AddRecord(e), 2);
  EXPECT_EQ(Commands(), Strings{WageKeySql("20240315001", "Lathe")});
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Wages(), kWages);
}

TEST_F(CostDetailsTest, WagesAddRecordOfATextTooLongShowsTheLengthReportAndStoresNothing) {
  clsDataBCosts repo;
  clsEntBCosts e = Wage(20240315001, std::string(51, 'w'), 1);
  EXPECT_EQ(repo.AddRecord(e), 0);
  EXPECT_EQ(Reports(), Reports_{LengthReport()});
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(db().Count("t_bcosts"), 0);
}

TEST_F(CostDetailsTest, WagesAddRecordWithAQuoteFailsOnTheStatement) {
  clsDataBCosts repo;
  clsEntBCosts e = Wage(20240315001, "O'Brien", 1);
  EXPECT_EQ(repo.AddRecord(e), 0);
  EXPECT_EQ(Commands(), Strings{WageKeySql("20240315001", "O'Brien")});
  ExpectOneReport(kSyntax);
  EXPECT_EQ(db().Count("t_bcosts"), 0);
}

// --- QueryByEstNoWage (one wage by its full key) -----------------------------

TEST_F(CostDetailsTest, WagesQueryByEstNoWageFillsTheWageOnly) {
  InsertWages();
  clsDataBCosts repo;
  clsEntBCosts e = Wage(20240315001, "painting", 0);
  EXPECT_EQ(repo.QueryByEstNoWage(e), 1);
  EXPECT_EQ(Commands(), Strings{WageKeySql("20240315001", "painting")});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(e.EstNo, 20240315001);
  EXPECT_EQ(e.WageItem, "painting");
  EXPECT_EQ(e.Wage, 4);
}

TEST_F(CostDetailsTest, WagesQueryByEstNoWageOfAMissingWageGivesZero) {
  InsertWages();
  db().Exec("insert into t_bcosts values (20240315003, 'IDLE', null)");
  clsDataBCosts repo;
  clsEntBCosts e = Wage(20240315002, "PAINTING", 7);
  EXPECT_EQ(repo.QueryByEstNoWage(e), 0);
  EXPECT_EQ(e.Wage, 7);
  // A null wage reads as 0.
  clsEntBCosts idle = Wage(20240315003, "IDLE", 7);
  EXPECT_EQ(repo.QueryByEstNoWage(idle), 1);
  EXPECT_EQ(idle.Wage, 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostDetailsTest, WagesQueryByEstNoWageWithAQuoteFailsOnTheStatement) {
  clsDataBCosts repo;
  clsEntBCosts e = Wage(20240315001, "O'Brien", 7);
  EXPECT_EQ(repo.QueryByEstNoWage(e), 2);
  ExpectOneReport(kSyntax);
  EXPECT_EQ(e.Wage, 7);
}

// --- QueryByEstNo (the wages of an estimate) ---------------------------------

TEST_F(CostDetailsTest, WagesQueryByEstNoAppendsTheWagesOfTheEstimate) {
  InsertWages();
  clsDataBCosts repo;
  Collection<clsEntBCosts> wages;
  wages.Add(std::make_shared<clsEntBCosts>(Wage(1, "mine", 1)));
  EXPECT_EQ(repo.QueryByEstNo(&wages, 20240315001), 1);
  EXPECT_EQ(Commands(), Strings{WageListSql("20240315001")});
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(wages.Count(), 3u);
  EXPECT_EQ(wages.Item(1).WageItem, "mine");
  Strings got;
  for (std::size_t i = 2; i <= 3; ++i) {
    got.push_back(Text(wages.Item(i).EstNo) + " " + wages.Item(i).WageItem + " " +
                  Text(wages.Item(i).Wage));
  }
  std::sort(got.begin(), got.end());
  EXPECT_EQ(got, (Strings{"20240315001 LATHE 12.5", "20240315001 PAINTING 4"}));
}

TEST_F(CostDetailsTest, WagesQueryByEstNoReadsANullWageItemAsTheTextZero) {
  db().Exec("alter table t_bcosts drop primary key, modify F_WageItem varchar(50) null");
  db().Exec("insert into t_bcosts values (20240315001, null, null)");
  clsDataBCosts repo;
  Collection<clsEntBCosts> wages;
  EXPECT_EQ(repo.QueryByEstNo(&wages, 20240315001), 1);
  ASSERT_EQ(wages.Count(), 1u);
  EXPECT_EQ(wages.Item(1).EstNo, 20240315001);
  EXPECT_EQ(wages.Item(1).WageItem, "0");
  EXPECT_EQ(wages.Item(1).Wage, 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostDetailsTest, WagesQueryByEstNoOfAnEstimateWithoutWagesGivesZero) {
  InsertWages();
  clsDataBCosts repo;
  Collection<clsEntBCosts> wages;
  wages.Add(std::make_shared<clsEntBCosts>());
  EXPECT_EQ(repo.QueryByEstNo(&wages, 20240315009), 0);
  EXPECT_EQ(wages.Count(), 1u);
  EXPECT_EQ(Commands(), Strings{WageListSql("20240315009")});
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostDetailsTest, WagesQueryByEstNoWithANullCollectionFailsOnTheFirstRow) {
  InsertWages();
  clsDataBCosts repo;
  EXPECT_EQ(repo.QueryByEstNo(nullptr, 20240315002), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport("Object required")});
  EXPECT_EQ(repo.QueryByEstNo(nullptr, 20240315009), 0);
  EXPECT_EQ(Reports().size(), 1u);
}

// ============================================================ together

TEST_F(CostDetailsTest, DeletingAnEstimateLeavesItsPartsAndWages) {
  db().Exec("insert into t_bcosth (F_EstNo, F_ItemNo) values (20240315001, 'GEAR-40')");
  InsertParts();
  InsertWages();
  clsDataBCosth headers;
  clsEntBCosth h;
  h.EstNo = 20240315001;
  EXPECT_EQ(headers.DeleteRecord(h), 1);
  EXPECT_EQ(db().Count("t_bcosth"), 0);
  clsDataBCosti parts;
  clsDataBCosts wages;
  Collection<clsEntBCosti> p;
  Collection<clsEntBCosts> w;
  EXPECT_EQ(parts.QueryAll(&p, 20240315001), 1);
  EXPECT_EQ(wages.QueryByEstNo(&w, 20240315001), 1);
  EXPECT_EQ(p.Count(), 2u);
  EXPECT_EQ(w.Count(), 2u);
  EXPECT_EQ(Parts(), kParts);
  EXPECT_EQ(Wages(), kWages);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CostDetailsTest, TheTwoQueryByEstNoMeanDifferentThings) {
  InsertParts();
  InsertWages();
  // In clsDataBCosti: one part, by estimate and item, into the entity.
  clsDataBCosti parts;
  clsEntBCosti part;
  part.EstNo = 20240315001;
  part.ItemNo = "PAINT";
  EXPECT_EQ(parts.QueryByEstNo(part), 1);
  EXPECT_EQ(part.Price, 40);
  // In clsDataBCosts: the wages of an estimate, into a collection.
  clsDataBCosts wages;
  Collection<clsEntBCosts> list;
  EXPECT_EQ(wages.QueryByEstNo(&list, 20240315001), 1);
  EXPECT_EQ(list.Count(), 2u);
  EXPECT_EQ(Commands(), (Strings{PartKeySql("20240315001", "PAINT"),
                                 WageListSql("20240315001")}));
}

}  // namespace
}  // namespace corvane
