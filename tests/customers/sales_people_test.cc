// clsDataBSaler against the sandbox server: every path of its six methods
// with the statements sent, the row changes, the results, the reports, the
// state rs is left in, what T_BSaler holds afterwards, and the work entity
// that a failure carries over to the next listing.
#include "corvane/customers/sales_people.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::LengthReport;
using ::corvane::testing::PlainReport;
using ::corvane::testing::SandboxTest;
using ::corvane::testing::ServerAddress;
using ::testing::StartsWith;
using Rows = std::vector<std::vector<std::string>>;
using Strings = std::vector<std::string>;
using Reports_ = std::vector<Report>;

constexpr char kOpenWords[] = "Operation is not allowed when the object is open";
constexpr char kSyntax[] = "You have an error in your SQL syntax";
constexpr char kObjectRequired[] = "Object required";

// The statements of the class, with the values put in.
std::string ByIdSql(const std::string& id) {
  return "select * from T_BSaler where F_SalerID = '" + id + "'";
}
const char kAllSql[] = "select * from T_BSaler";
std::string AddCheckSql(const std::string& id) {
  return "select * from T_BSaler where F_SalerId= '" + id + "'";
}
const char kAddRowsetSql[] = "select * from T_BSaler";
std::string UpdateSql(const std::string& name, const std::string& id, const std::string& old) {
  return "update T_BSaler set F_Saler_1st= '" + name + "',F_SalerId='" + id +
         "' where F_SalerId ='" + old + "'";
}
std::string DeleteSql(const std::string& id) {
  return "select * from T_BSaler where F_SalerId ='" + id + "' ";
}
std::string NameSql(const std::string& id) {
  return "select F_salerid,concat_ws('-',f_salerid ,f_saler_1st) as f_saler_1st from T_BSaler "
         "where f_salerid='" +
         id + "'";
}

// The length report of a failure other than a value that does not fit.
Report DescriptionReport(const std::string& text) { return Report{text, 64, "塔恩维克"}; }

std::string Lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::tolower(c); });
  return s;
}

clsEntBSaler Saler(const std::string& id, const std::string& first = "",
                   const std::string& m = "", const std::string& last = "") {
  clsEntBSaler e;
  e.SalerId = id;
  e.Saler_1st = first;
  e.Saler_m = m;
  e.Saler_last = last;
  return e;
}
// The four properties, SalerId first.
Strings Cells(const clsEntBSaler& e) { return {e.SalerId, e.Saler_1st, e.Saler_m, e.Saler_last}; }
std::vector<Strings> AllCells(const Collection<clsEntBSaler>& c) {
  std::vector<Strings> out;
  for (const auto& e : c) out.push_back(Cells(*e));
  return out;
}

class SalesPeopleTest : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    db().Exec("insert into t_bsaler values ('S01','Wang Wei','M.','Wang'), "
              "('S02','Li Na',null,null), ('S03',null,'x','y')");
  }
  // Every row, between brackets so that blanks show, NULL as it is.
  Rows Salers() {
    return db().Rows(
        "select concat('[',F_SalerId,']'), ifnull(concat('[',F_Saler_1st,']'),'NULL'), "
        "ifnull(F_Saler_m,'NULL'), ifnull(F_Saler_last,'NULL') from t_bsaler order by 1");
  }
  Strings RowChanges() const {
    Strings out;
    for (const auto& s : Sent()) {
      if (s.kind == StatementKind::kRowChange) out.push_back(s.text);
    }
    return out;
  }
  std::string Table() const { return "`" + Lower(database()) + "`.`t_bsaler`"; }
  // Leaves rs open on repo: a delete that finds no row.
  void LeaveRsOpen(clsDataBSaler& repo) {
    clsEntBSaler missing = Saler("none");
    ASSERT_EQ(0, repo.DeleteRecord(missing));
  }
};

const Rows kStart = {{"[S01]", "[Wang Wei]", "M.", "Wang"},
                     {"[S02]", "[Li Na]", "NULL", "NULL"},
                     {"[S03]", "NULL", "x", "y"}};

// ============================================================ QueryByID

TEST_F(SalesPeopleTest, QueryByIDReadsAllFourColumns) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S01");
  EXPECT_EQ(1, repo.QueryByID(e));
  EXPECT_EQ((Strings{"S01", "Wang Wei", "M.", "Wang"}), Cells(e));
  EXPECT_EQ(Strings{ByIdSql("S01")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  // Nulls read as the empty text; the identifier as the table holds it.
  clsEntBSaler s2 = Saler("s02", "old", "old", "old");
  EXPECT_EQ(1, repo.QueryByID(s2));
  EXPECT_EQ((Strings{"S02", "Li Na", "", ""}), Cells(s2));
  clsEntBSaler s3 = Saler("S03", "old");
  EXPECT_EQ(1, repo.QueryByID(s3));
  EXPECT_EQ((Strings{"S03", "", "x", "y"}), Cells(s3));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SalesPeopleTest, QueryByIDOfAMissingIdentifierReturns0AndLeavesTheEntity) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S09", "keep", "keep m", "keep last");
  EXPECT_EQ(0, repo.QueryByID(e));
  EXPECT_EQ((Strings{"S09", "keep", "keep m", "keep last"}), Cells(e));
  EXPECT_EQ(Strings{ByIdSql("S09")}, Commands());
  EXPECT_TRUE(Reports().empty());
  // rs was closed: the next call works.
  clsEntBSaler s1 = Saler("S01");
  EXPECT_EQ(1, repo.QueryByID(s1));
}

TEST_F(SalesPeopleTest, QueryByIDAfterAnOpenRsFailsOnceWith2) {
  clsDataBSaler repo;
  LeaveRsOpen(repo);
  Clear();
  clsEntBSaler e = Saler("S01");
  EXPECT_EQ(2, repo.QueryByID(e));
  EXPECT_EQ(Reports_{PlainReport(kOpenWords)}, Reports());
  EXPECT_TRUE(Commands().empty());
  EXPECT_EQ((Strings{"S01", "", "", ""}), Cells(e));
  EXPECT_EQ(1, repo.QueryByID(e));
  EXPECT_EQ(1u, Reports().size());
  EXPECT_EQ("Wang Wei", e.Saler_1st);
}

TEST_F(SalesPeopleTest, QueryByIDWithAQuoteFailsWith2) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("O'S");
  EXPECT_EQ(2, repo.QueryByID(e));
  EXPECT_EQ(Strings{ByIdSql("O'S")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ("塔恩维克", Reports()[0].title);
}

// ============================================================ QueryAll

TEST_F(SalesPeopleTest, QueryAllAppendsIdentifierAndBareNameOfEveryRow) {
  clsDataBSaler repo;
  Collection<clsEntBSaler> c;
  c.Add(std::make_shared<clsEntBSaler>(Saler("mine", "mine", "m", "l")));
  EXPECT_TRUE(repo.QueryAll(&c).IsEmpty());
  EXPECT_EQ(Strings{kAllSql}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  // Saler_m and Saler_last are not read.
  EXPECT_EQ((std::vector<Strings>{{"mine", "mine", "m", "l"},
                                  {"S01", "Wang Wei", "", ""},
                                  {"S02", "Li Na", "", ""},
                                  {"S03", "", "", ""}}),
            AllCells(c));
  // Each row has an entity of its own.
  EXPECT_NE(&c.Item(2), &c.Item(3));
  // Again: appended again.
  EXPECT_TRUE(repo.QueryAll(&c).IsEmpty());
  EXPECT_EQ(7u, c.Count());
  EXPECT_EQ((Strings{"S03", "", "", ""}), Cells(c.Item(7)));
}

TEST_F(SalesPeopleTest, QueryAllOnAnEmptyTableLeavesTheCollection) {
  db().Exec("delete from t_bsaler");
  clsDataBSaler repo;
  Collection<clsEntBSaler> c;
  EXPECT_TRUE(repo.QueryAll(&c).IsEmpty());
  EXPECT_TRUE(repo.QueryAll(nullptr).IsEmpty());
  EXPECT_EQ(0u, c.Count());
  EXPECT_EQ((Strings{kAllSql, kAllSql}), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SalesPeopleTest, QueryAllAfterAnOpenRsFailsOnce) {
  clsDataBSaler repo;
  LeaveRsOpen(repo);
  Clear();
  Collection<clsEntBSaler> c;
  EXPECT_TRUE(repo.QueryAll(&c).IsEmpty());
  EXPECT_EQ(Reports_{DescriptionReport(kOpenWords)}, Reports());
  EXPECT_EQ(0u, c.Count());
  EXPECT_TRUE(repo.QueryAll(&c).IsEmpty());
  EXPECT_EQ(3u, c.Count());
  EXPECT_EQ(1u, Reports().size());
  EXPECT_EQ(Strings{kAllSql}, Commands());
}

// ============================================================ QuerySalerName

TEST_F(SalesPeopleTest, QuerySalerNameGivesIdentifierHyphenNameWhereQueryAllGivesTheName) {
  clsDataBSaler repo;
  Collection<clsEntBSaler> c;
  c.Add(std::make_shared<clsEntBSaler>(Saler("mine")));
  EXPECT_TRUE(repo.QuerySalerName(&c, "S01").IsEmpty());
  EXPECT_EQ(Strings{NameSql("S01")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((std::vector<Strings>{{"mine", "", "", ""}, {"S01", "S01-Wang Wei", "", ""}}),
            AllCells(c));
  Collection<clsEntBSaler> all;
  repo.QueryAll(&all);
  EXPECT_EQ("Wang Wei", all.Item(1).Saler_1st);
}

TEST_F(SalesPeopleTest, QuerySalerNameOfANullNameGivesTheIdentifierAloneWithoutHyphen) {
  clsDataBSaler repo;
  Collection<clsEntBSaler> c;
  repo.QuerySalerName(&c, "S03");
  EXPECT_EQ((std::vector<Strings>{{"S03", "S03", "", ""}}), AllCells(c));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SalesPeopleTest, QuerySalerNameOfAnUnknownIdentifierAddsOneEntityWithEmptyName) {
  clsDataBSaler repo;
  Collection<clsEntBSaler> c;
  EXPECT_TRUE(repo.QuerySalerName(&c, "S09").IsEmpty());
  EXPECT_EQ((std::vector<Strings>{{"", "", "", ""}}), AllCells(c));
  EXPECT_EQ(Strings{NameSql("S09")}, Commands());
  EXPECT_TRUE(Reports().empty());
  // rs was closed, and each call adds one new entity.
  repo.QuerySalerName(&c, "S02");
  repo.QuerySalerName(&c, "");
  EXPECT_EQ((std::vector<Strings>{{"", "", "", ""}, {"S02", "S02-Li Na", "", ""}, {"", "", "", ""}}),
            AllCells(c));
  EXPECT_NE(&c.Item(1), &c.Item(3));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SalesPeopleTest, QuerySalerNameAfterAnOpenRsFailsOnceAndAddsNothing) {
  clsDataBSaler repo;
  LeaveRsOpen(repo);
  Clear();
  Collection<clsEntBSaler> c;
  EXPECT_TRUE(repo.QuerySalerName(&c, "S01").IsEmpty());
  EXPECT_EQ(Reports_{DescriptionReport(kOpenWords)}, Reports());
  EXPECT_EQ(0u, c.Count());
  EXPECT_TRUE(Commands().empty());
  // The work entity had not been made yet: nothing is carried over.
  repo.QuerySalerName(&c, "S09");
  EXPECT_EQ((std::vector<Strings>{{"", "", "", ""}}), AllCells(c));
  EXPECT_EQ(1u, Reports().size());
}

TEST_F(SalesPeopleTest, QuerySalerNameWithAQuoteShowsTheLengthReportsDescription) {
  clsDataBSaler repo;
  Collection<clsEntBSaler> c;
  EXPECT_TRUE(repo.QuerySalerName(&c, "O'S").IsEmpty());
  EXPECT_EQ(Strings{NameSql("O'S")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(0u, c.Count());
}

// ============================================================ the work entity

TEST_F(SalesPeopleTest, TheWorkEntityOfAFailedQueryAllIsCarriedIntoTheNextQuerySalerName) {
  clsDataBSaler repo;
  // The first row is read into the work entity; the add to no collection
  // fails, and the entity stays.
  EXPECT_TRUE(repo.QueryAll(nullptr).IsEmpty());
  EXPECT_EQ(Reports_{DescriptionReport(kObjectRequired)}, Reports());
  // No row: only the name is set, the identifier is what the work entity held.
  Collection<clsEntBSaler> c;
  EXPECT_TRUE(repo.QuerySalerName(&c, "S09").IsEmpty());
  EXPECT_EQ((std::vector<Strings>{{"S01", "", "", ""}}), AllCells(c));
  // That add let it go: the next one starts new.
  repo.QuerySalerName(&c, "S09");
  EXPECT_EQ((std::vector<Strings>{{"S01", "", "", ""}, {"", "", "", ""}}), AllCells(c));
  EXPECT_EQ((Strings{kAllSql, NameSql("S09"), NameSql("S09")}), Commands());
  EXPECT_EQ(1u, Reports().size());
}

TEST_F(SalesPeopleTest, TheWorkEntityOfAFailedQuerySalerNameIsCarriedIntoTheNext) {
  clsDataBSaler repo;
  EXPECT_TRUE(repo.QuerySalerName(nullptr, "S02").IsEmpty());
  EXPECT_EQ(Reports_{DescriptionReport(kObjectRequired)}, Reports());
  Collection<clsEntBSaler> c;
  repo.QuerySalerName(&c, "nobody");
  EXPECT_EQ((std::vector<Strings>{{"S02", "", "", ""}}), AllCells(c));
  // A row overwrites both properties it reads.
  EXPECT_TRUE(repo.QuerySalerName(nullptr, "S02").IsEmpty());
  repo.QuerySalerName(&c, "S01");
  EXPECT_EQ((Strings{"S01", "S01-Wang Wei", "", ""}), Cells(c.Item(2)));
  EXPECT_EQ(2u, Reports().size());
}

TEST_F(SalesPeopleTest, TheWorkEntityCarriedIntoQueryAllIsOverwrittenByItsReads) {
  clsDataBSaler repo;
  EXPECT_TRUE(repo.QuerySalerName(nullptr, "S03").IsEmpty());
  Collection<clsEntBSaler> c;
  EXPECT_TRUE(repo.QueryAll(&c).IsEmpty());
  EXPECT_EQ((std::vector<Strings>{{"S01", "Wang Wei", "", ""},
                                  {"S02", "Li Na", "", ""},
                                  {"S03", "", "", ""}}),
            AllCells(c));
  // None is carried any more.
  repo.QuerySalerName(&c, "nobody");
  EXPECT_EQ((Strings{"", "", "", ""}), Cells(c.Item(4)));
  EXPECT_EQ(1u, Reports().size());
}

TEST_F(SalesPeopleTest, EachObjectHasAWorkEntityOfItsOwn) {
  clsDataBSaler failed;
  EXPECT_TRUE(failed.QueryAll(nullptr).IsEmpty());
  clsDataBSaler other;
  Collection<clsEntBSaler> c;
  other.QuerySalerName(&c, "nobody");
  EXPECT_EQ((Strings{"", "", "", ""}), Cells(c.Item(1)));
}

// ============================================================ AddRecord

TEST_F(SalesPeopleTest, AddRecordStoresIdentifierAndNameOnly) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S04", "Zhao Lei", "dropped", "dropped too");
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ((Strings{AddCheckSql("S04"), kAddRowsetSql}), Commands());
  EXPECT_EQ(Strings{"INSERT INTO " + Table() +
                    " (`F_SalerId`,`F_Saler_1st`) VALUES ('S04','Zhao Lei')"},
            RowChanges());
  EXPECT_TRUE(Reports().empty());
  Rows expected = kStart;
  expected.push_back({"[S04]", "[Zhao Lei]", "NULL", "NULL"});
  EXPECT_EQ(expected, Salers());
  EXPECT_EQ((Strings{"S04", "Zhao Lei", "dropped", "dropped too"}), Cells(e));
}

TEST_F(SalesPeopleTest, AddRecordStoresBlanksAsTheyStand) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler(" S05", " Sun Li  ");
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ((Rows{{"[ S05]", "[ Sun Li  ]"}}),
            db().Rows("select concat('[',F_SalerId,']'), concat('[',F_Saler_1st,']') from "
                      "t_bsaler where F_SalerId=' S05'"));
}

TEST_F(SalesPeopleTest, AddRecordWritesAQuoteInTheNameAsItStands) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S04", "O'Neil");
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ("O'Neil", db().Scalar("select F_Saler_1st from t_bsaler where F_SalerId='S04'"));
  // The same name breaks the statement of an update.
  EXPECT_EQ(0, repo.UpdateRecord(e, "S04"));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
}

TEST_F(SalesPeopleTest, AddRecordOfAnExistingIdentifierReturns2WithoutAReport) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S01", "Other");
  EXPECT_EQ(2, repo.AddRecord(e));
  EXPECT_EQ(Strings{AddCheckSql("S01")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(kStart, Salers());
  // The refusal closed rs.
  clsEntBSaler s = Saler("S01");
  EXPECT_EQ(1, repo.QueryByID(s));
}

TEST_F(SalesPeopleTest, AddRecordOfANameTooLongShowsTheLengthReport) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S04", std::string(101, 'n'));
  EXPECT_EQ(0, repo.AddRecord(e));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_EQ((Strings{AddCheckSql("S04"), kAddRowsetSql}), Commands());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(kStart, Salers());
  e.Saler_1st = std::string(100, 'n');
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ(1u, Reports().size());
}

TEST_F(SalesPeopleTest, AddRecordAfterAnOpenRsFailsOnceWith0) {
  clsDataBSaler repo;
  LeaveRsOpen(repo);
  Clear();
  clsEntBSaler e = Saler("S04", "Zhao Lei");
  EXPECT_EQ(0, repo.AddRecord(e));
  EXPECT_EQ(Reports_{DescriptionReport(kOpenWords)}, Reports());
  EXPECT_EQ(kStart, Salers());
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ(1u, Reports().size());
  EXPECT_EQ(4, db().Count("t_bsaler"));
}

TEST_F(SalesPeopleTest, AddRecordWithAQuoteFailsWith0) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("O'S", "Name");
  EXPECT_EQ(0, repo.AddRecord(e));
  EXPECT_EQ(Strings{AddCheckSql("O'S")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kStart, Salers());
}

// ============================================================ UpdateRecord

TEST_F(SalesPeopleTest, UpdateRecordRenamesIdentifierAndNameAndReturns1) {
  db().Exec("insert into t_bcustom (F_custno, F_SalerID) values ('C001','S01')");
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S10", "Wang Wu", "dropped", "dropped");
  EXPECT_EQ(1, repo.UpdateRecord(e, "S01"));
  EXPECT_EQ(Strings{UpdateSql("Wang Wu", "S10", "S01")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{{"[S02]", "[Li Na]", "NULL", "NULL"},
                  {"[S03]", "NULL", "x", "y"},
                  {"[S10]", "[Wang Wu]", "M.", "Wang"}}),
            Salers());
  // A customer holding the old identifier is not touched.
  EXPECT_EQ("S01", db().Scalar("select F_SalerID from t_bcustom"));
  // rs was let go: a method that takes it as it stands works next.
  clsEntBSaler s = Saler("S10");
  EXPECT_EQ(1, repo.QueryByID(s));
}

TEST_F(SalesPeopleTest, UpdateRecordTrimsAllThreeValues) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("  S11 ", "  Wang Wei Jr  ");
  EXPECT_EQ(1, repo.UpdateRecord(e, " S01  "));
  EXPECT_EQ(Strings{UpdateSql("Wang Wei Jr", "S11", "S01")}, Commands());
  EXPECT_EQ((Rows{{"[S11]", "[Wang Wei Jr]"}}),
            db().Rows("select concat('[',F_SalerId,']'), concat('[',F_Saler_1st,']') from "
                      "t_bsaler where F_Saler_m='M.'"));
  // The entity is only read.
  EXPECT_EQ("  S11 ", e.SalerId);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SalesPeopleTest, UpdateRecordOfAnUnknownIdentifierReturns1AndChangesNothing) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S10", "Nobody");
  EXPECT_EQ(1, repo.UpdateRecord(e, "S99"));
  EXPECT_EQ(Strings{UpdateSql("Nobody", "S10", "S99")}, Commands());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(kStart, Salers());
}

TEST_F(SalesPeopleTest, UpdateRecordToAnIdentifierAnotherRowHoldsFailsWith0) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S02", "Wang Wei");
  EXPECT_EQ(0, repo.UpdateRecord(e, "S01"));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith("Duplicate entry 'S02'"));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ("塔恩维克", Reports()[0].title);
  EXPECT_EQ(kStart, Salers());
}

TEST_F(SalesPeopleTest, UpdateRecordOfANameTooLongShowsTheLengthReport) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S01", std::string(101, 'n'));
  EXPECT_EQ(0, repo.UpdateRecord(e, "S01"));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_EQ(kStart, Salers());
}

TEST_F(SalesPeopleTest, UpdateRecordWithAQuoteFailsWith0) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S01", "O'Neil");
  EXPECT_EQ(0, repo.UpdateRecord(e, "S01"));
  EXPECT_EQ(Strings{UpdateSql("O'Neil", "S01", "S01")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
  EXPECT_EQ(kStart, Salers());
}

TEST_F(SalesPeopleTest, UpdateRecordMakesAFreshRs) {
  clsDataBSaler repo;
  LeaveRsOpen(repo);
  clsEntBSaler e = Saler("S01", "Wang Wei 2");
  EXPECT_EQ(1, repo.UpdateRecord(e, "S01"));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ("Wang Wei 2", db().Scalar("select F_Saler_1st from t_bsaler where F_SalerId='S01'"));
}

// ============================================================ DeleteRecord

TEST_F(SalesPeopleTest, DeleteRecordDeletesTheRowAndReturns0) {
  db().Exec("insert into t_bcustom (F_custno, F_SalerID) values ('C001','S02')");
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S02");
  EXPECT_EQ(0, repo.DeleteRecord(e));
  EXPECT_EQ(Strings{DeleteSql("S02")}, Commands());
  EXPECT_EQ(Strings{"DELETE FROM " + Table() + " WHERE `F_SalerId` <=> 'S02' LIMIT 1"},
            RowChanges());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{kStart[0], kStart[2]}), Salers());
  // A customer holding the identifier is not touched.
  EXPECT_EQ("S02", db().Scalar("select F_SalerID from t_bcustom"));
  // rs was closed.
  clsEntBSaler s = Saler("S01");
  EXPECT_EQ(1, repo.QueryByID(s));
}

TEST_F(SalesPeopleTest, DeleteRecordOfAMissingIdentifierReturns0AndLeavesRsOpen) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S09");
  EXPECT_EQ(0, repo.DeleteRecord(e));
  EXPECT_EQ(Strings{DeleteSql("S09")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(kStart, Salers());
  // A delete makes a fresh rs: a second one is not bothered.
  EXPECT_EQ(0, repo.DeleteRecord(e));
  EXPECT_TRUE(Reports().empty());
  // The next QueryByID is.
  clsEntBSaler s = Saler("S01");
  EXPECT_EQ(2, repo.QueryByID(s));
  EXPECT_EQ(1u, Reports().size());
}

TEST_F(SalesPeopleTest, DeleteRecordReturns0AfterAFailureToo) {
  clsDataBSaler repo;
  clsEntBSaler e = Saler("O'S");
  EXPECT_EQ(0, repo.DeleteRecord(e));
  EXPECT_EQ(Strings{DeleteSql("O'S")}, Commands());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ("塔恩维克", Reports()[0].title);
  EXPECT_EQ(kStart, Salers());
}

// ============================================================ the class as a whole

TEST_F(SalesPeopleTest, QueryAllReportsBeforeItLetsRsGo) {
  // The add to no collection fails with rs open; a call made while the report
  // is up finds it open still.
  clsDataBSaler repo;
  std::vector<Report> seen;
  std::vector<std::int16_t> inner;
  SetReportHandler([&](const Report& r) {
    seen.push_back(r);
    if (seen.size() != 1) return;
    clsEntBSaler e = Saler("S01");
    inner.push_back(repo.QueryByID(e));
  });
  repo.QueryAll(nullptr);
  EXPECT_EQ(std::vector<std::int16_t>{2}, inner);
  EXPECT_EQ((Reports_{DescriptionReport(kObjectRequired), PlainReport(kOpenWords)}), seen);
  clsEntBSaler e = Saler("S01");
  EXPECT_EQ(1, repo.QueryByID(e));
}

TEST_F(SalesPeopleTest, ConstructionFailsWithoutAReport) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  SetSessionConnectionString("SERVER=" + a.server + ";PORT=" + std::to_string(a.port) +
                             ";DATABASE=" + database() + ";UID=" + a.user + ";PWD=not" +
                             a.password);
  try {
    clsDataBSaler repo;
    ADD_FAILURE() << "the constructor returned";
  } catch (const Error& e) {
    EXPECT_EQ(errc::kProvider, e.Number());
    EXPECT_THAT(e.Description(), StartsWith("Access denied"));
  }
  EXPECT_TRUE(Reports().empty());
  EXPECT_TRUE(Sent().empty());
}

TEST_F(SalesPeopleTest, AddListRenameShowDelete) {
  db().Exec("delete from t_bsaler");
  clsDataBSaler repo;
  clsEntBSaler e = Saler("S01", "Wang Wei");
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ(2, repo.AddRecord(e));
  clsEntBSaler renamed = Saler("S07", "Wang Wei");
  EXPECT_EQ(1, repo.UpdateRecord(renamed, "S01"));
  Collection<clsEntBSaler> names;
  repo.QuerySalerName(&names, "S07");
  EXPECT_EQ("S07-Wang Wei", names.Item(1).Saler_1st);
  EXPECT_EQ(0, repo.DeleteRecord(renamed));
  Collection<clsEntBSaler> all;
  repo.QueryAll(&all);
  EXPECT_EQ(0u, all.Count());
  EXPECT_EQ((Strings{AddCheckSql("S01"), kAddRowsetSql, AddCheckSql("S01"),
                     UpdateSql("Wang Wei", "S07", "S01"), NameSql("S07"), DeleteSql("S07"),
                     kAllSql}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

}  // namespace
}  // namespace corvane
