// clsDataBWageSort against the sandbox server: every path of its three
// methods, with the statements sent, the row changes, the results, the
// reports and what T_BWageSort holds afterwards, and the wage items of a goods
// type found through the half goods and the goods type tables.
#include "corvane/costing/wage_sort.h"

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

constexpr char kTitle[] = "塔恩维克";
constexpr char kSyntax[] = "You have an error in your SQL syntax";
constexpr char kOpenWords[] = "Operation is not allowed when the object is open";

// The statements of the class, with the values put in.
std::string DeleteSql(const std::string& id, const std::string& item) {
  return "select * from T_BWageSort where F_ID ='" + id + "' and F_WageItem = '" + item + "'";
}
std::string KeySql(const std::string& id, const std::string& item) {
  return "select * from T_BWageSort where F_ID = '" + id + "' and F_WageItem = '" + item + "'";
}
const std::string kTableSql = "select * from T_BWageSort";
std::string GoodTypeSql(const std::string& type) {
  return "select * from T_BWageSort where F_ID in (select F_ID from T_EHalfGType where "
         "F_HalfGtype = '" +
         type + "') or F_ID in (select F_ID from T_EGoodsType where F_GoodStype = '" + type +
         "')";
}

clsEntBWageSort Sort(const std::string& id, const std::string& item, double wage) {
  clsEntBWageSort e;
  e.ID = id;
  e.WageItem = item;
  e.Wage = wage;
  return e;
}

// Each entity as "ID WageItem Wage", sorted: the rows come in no stated order.
Strings Listed(const Collection<clsEntBWageSort>& c, std::size_t from = 1) {
  Strings out;
  for (std::size_t i = from; i <= c.Count(); ++i) {
    out.push_back(c.Item(i).ID + " " + c.Item(i).WageItem + " " + Text(c.Item(i).Wage));
  }
  std::sort(out.begin(), out.end());
  return out;
}

class WageSortTest : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    // Sort W1: lathe and paint; W2: assembly; W3: none.
    db().Exec(
        "insert into t_bwagesort values ('W1','LATHE',12.5),('W1','PAINT',4),('W2','ASSEMBLY',7)");
    // Half goods: shaft is W1; goods: gearbox is W2, shaft is W1 too, bracket W3.
    db().Exec("insert into t_ehalfgtype values ('SHAFT','W1'),('HOUSING','W2')");
    db().Exec("insert into t_egoodstype values ('GEARBOX','W2'),('SHAFT','W1'),('BRACKET','W3')");
  }
  std::string Table() const {
    std::string d = database();
    std::transform(d.begin(), d.end(), d.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return "`" + d + "`.`t_bwagesort`";
  }
  Strings RowChanges() const {
    Strings out;
    for (const auto& s : Sent()) {
      if (s.kind == StatementKind::kRowChange) out.push_back(s.text);
    }
    return out;
  }
  Rows Sorts() { return db().Rows("select * from t_bwagesort order by F_ID, F_WageItem"); }
  void ExpectOneReport(const std::string& part) {
    ASSERT_EQ(Reports().size(), 1u);
    EXPECT_THAT(Reports()[0].text, HasSubstr(part));
    EXPECT_EQ(Reports()[0].style, 64);
    EXPECT_EQ(Reports()[0].title, kTitle);
  }
};

const Rows kSorts{{"W1", "LATHE", "12.5"}, {"W1", "PAINT", "4"}, {"W2", "ASSEMBLY", "7"}};

// --- DeleteRecord ------------------------------------------------------------

TEST_F(WageSortTest, DeleteRecordDeletesTheWageItemOfTheSort) {
  clsDataBWageSort repo;
  clsEntBWageSort e = Sort("W1", "PAINT", 0);
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  EXPECT_EQ(Commands(), Strings{DeleteSql("W1", "PAINT")});
  EXPECT_EQ(RowChanges(), Strings{"DELETE FROM " + Table() +
                                  " WHERE `F_ID` <=> 'W1' AND `F_WageItem` <=> 'PAINT' LIMIT 1"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Sorts(), (Rows{kSorts[0], kSorts[2]}));
  // rs was closed.
  Collection<clsEntBWageSort> c;
  EXPECT_EQ(repo.QueryByGoodType(&c, "SHAFT"), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(WageSortTest, DeleteRecordOfAMissingItemGivesTwoAndLeavesRsOpen) {
  clsDataBWageSort repo;
  clsEntBWageSort missing = Sort("W2", "PAINT", 0);
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(Commands(), Strings{DeleteSql("W2", "PAINT")});
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Sorts(), kSorts);
  // The next call fails on the open recordset and sends nothing; the one
  // after it works.
  Clear();
  Collection<clsEntBWageSort> c;
  EXPECT_EQ(repo.QueryByGoodType(&c, "SHAFT"), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport(kOpenWords)});
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ(c.Count(), 0u);
  EXPECT_EQ(repo.QueryByGoodType(&c, "SHAFT"), 1);
  EXPECT_EQ(c.Count(), 2u);
  EXPECT_EQ(Reports().size(), 1u);
}

TEST_F(WageSortTest, AddAndDeleteFailOnceAfterAMissedDelete) {
  clsDataBWageSort repo;
  clsEntBWageSort missing = Sort("W9", "X", 0);
  clsEntBWageSort fresh = Sort("W3", "DRILL", 3);
  clsEntBWageSort there = Sort("W1", "LATHE", 0);
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(repo.AddRecord(fresh), 0);
  EXPECT_EQ(repo.DeleteRecord(missing), 2);
  EXPECT_EQ(repo.DeleteRecord(there), 0);
  EXPECT_EQ(Reports(), Reports_(2, PlainReport(kOpenWords)));
  EXPECT_EQ(Commands(), Strings(2, DeleteSql("W9", "X")));
  EXPECT_EQ(Sorts(), kSorts);
  EXPECT_EQ(repo.AddRecord(fresh), 1);
  EXPECT_EQ(repo.DeleteRecord(there), 1);
  EXPECT_EQ(Reports().size(), 2u);
  EXPECT_EQ(Sorts(), (Rows{kSorts[1], kSorts[2], {"W3", "DRILL", "3"}}));
}

TEST_F(WageSortTest, DeleteRecordWithAQuoteFailsOnTheStatement) {
  clsDataBWageSort repo;
  clsEntBWageSort e = Sort("W1", "O'Brien", 0);
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(), Strings{DeleteSql("W1", "O'Brien")});
  ExpectOneReport(kSyntax);
  EXPECT_EQ(Sorts(), kSorts);
}

// --- AddRecord ---------------------------------------------------------------

TEST_F(WageSortTest, AddRecordTestsTheKeyThenAddsTheThreeColumns) {
  clsDataBWageSort repo;
  clsEntBWageSort e = Sort("W2", "PAINT", 4.25);
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(Commands(), (Strings{KeySql("W2", "PAINT"), kTableSql}));
  EXPECT_EQ(RowChanges(), Strings{"INSERT INTO " + Table() +
                                  " (`F_ID`,`F_WageItem`,`F_Wage`) VALUES ('W2','PAINT',4.25)"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Sorts(), (Rows{kSorts[0], kSorts[1], kSorts[2], {"W2", "PAINT", "4.25"}}));
}

TEST_F(WageSortTest, AddRecordOfAnExistingItemGivesTwoAndKeepsTheRate) {
  clsDataBWageSort repo;
  clsEntBWageSort e = Sort("W1", "lathe", 99);
  EXPECT_EQ(repo.AddRecord(e), 2);
  EXPECT_EQ(Commands(), Strings{KeySql("W1", "lathe")});
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Sorts(), kSorts);
}

TEST_F(WageSortTest, ARateIsChangedByDeletingAndAdding) {
  clsDataBWageSort repo;
  clsEntBWageSort e = Sort("W1", "LATHE", 13.75);
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(Commands(), (Strings{DeleteSql("W1", "LATHE"), KeySql("W1", "LATHE"), kTableSql}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Sorts(), (Rows{{"W1", "LATHE", "13.75"}, kSorts[1], kSorts[2]}));
}

TEST_F(WageSortTest, AddRecordOfATextTooLongShowsTheLengthReportAndStoresNothing) {
  clsDataBWageSort repo;
  clsEntBWageSort e = Sort(std::string(51, 'i'), "LATHE", 1);
  EXPECT_EQ(repo.AddRecord(e), 0);
  EXPECT_EQ(Reports(), Reports_{LengthReport()});
  EXPECT_EQ(Commands(), (Strings{KeySql(std::string(51, 'i'), "LATHE"), kTableSql}));
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(Sorts(), kSorts);
  // rs was reset.
  e.ID = std::string(50, 'i');
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(Reports().size(), 1u);
}

TEST_F(WageSortTest, AddRecordWithAQuoteFailsOnTheStatement) {
  clsDataBWageSort repo;
  clsEntBWageSort e = Sort("W'1", "LATHE", 1);
  EXPECT_EQ(repo.AddRecord(e), 0);
  EXPECT_EQ(Commands(), Strings{KeySql("W'1", "LATHE")});
  ExpectOneReport(kSyntax);
  EXPECT_EQ(Sorts(), kSorts);
}

// --- QueryByGoodType ---------------------------------------------------------

TEST_F(WageSortTest, QueryByGoodTypeFindsTheSortOfAHalfGoodsType) {
  clsDataBWageSort repo;
  Collection<clsEntBWageSort> c;
  c.Add(std::make_shared<clsEntBWageSort>(Sort("mine", "mine", 0)));
  EXPECT_EQ(repo.QueryByGoodType(&c, "HOUSING"), 1);
  EXPECT_EQ(Commands(), Strings{GoodTypeSql("HOUSING")});
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(c.Count(), 2u);
  EXPECT_EQ(c.Item(1).ID, "mine");
  EXPECT_EQ(Listed(c, 2), Strings{"W2 ASSEMBLY 7"});
}

TEST_F(WageSortTest, QueryByGoodTypeFindsTheSortOfAGoodsType) {
  clsDataBWageSort repo;
  Collection<clsEntBWageSort> c;
  EXPECT_EQ(repo.QueryByGoodType(&c, "GEARBOX"), 1);
  EXPECT_EQ(Listed(c), Strings{"W2 ASSEMBLY 7"});
}

TEST_F(WageSortTest, QueryByGoodTypeInBothTablesGivesEachWageRowOnce) {
  clsDataBWageSort repo;
  Collection<clsEntBWageSort> c;
  EXPECT_EQ(repo.QueryByGoodType(&c, "SHAFT"), 1);
  EXPECT_EQ(Listed(c), (Strings{"W1 LATHE 12.5", "W1 PAINT 4"}));
  // With different sorts in the two tables, the rows of both.
  db().Exec("update t_egoodstype set F_ID='W2' where F_GoodStype='SHAFT'");
  Collection<clsEntBWageSort> both;
  EXPECT_EQ(repo.QueryByGoodType(&both, "SHAFT"), 1);
  EXPECT_EQ(Listed(both), (Strings{"W1 LATHE 12.5", "W1 PAINT 4", "W2 ASSEMBLY 7"}));
  EXPECT_EQ(Commands(), (Strings{GoodTypeSql("SHAFT"), GoodTypeSql("SHAFT")}));
}

TEST_F(WageSortTest, QueryByGoodTypeOfATypeInNeitherTableGivesZero) {
  clsDataBWageSort repo;
  Collection<clsEntBWageSort> c;
  c.Add(std::make_shared<clsEntBWageSort>());
  EXPECT_EQ(repo.QueryByGoodType(&c, "SPRING"), 0);
  EXPECT_EQ(c.Count(), 1u);
  EXPECT_EQ(repo.QueryByGoodType(nullptr, "SPRING"), 0);
  EXPECT_EQ(Commands(), (Strings{GoodTypeSql("SPRING"), GoodTypeSql("SPRING")}));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(WageSortTest, QueryByGoodTypeOfASortWithoutWageRowsAddsNothing) {
  clsDataBWageSort repo;
  Collection<clsEntBWageSort> c;
  EXPECT_EQ(repo.QueryByGoodType(&c, "BRACKET"), 0);
  EXPECT_EQ(c.Count(), 0u);
  // Another goods type of the same name in the half goods table adds its own.
  db().Exec("insert into t_ehalfgtype values ('BRACKET','W2')");
  EXPECT_EQ(repo.QueryByGoodType(&c, "BRACKET"), 1);
  EXPECT_EQ(Listed(c), Strings{"W2 ASSEMBLY 7"});
  EXPECT_TRUE(Reports().empty());
}

TEST_F(WageSortTest, QueryByGoodTypeReadsNullTextsAsTheTextZero) {
  db().Exec(
      "alter table t_bwagesort drop primary key, modify F_ID varchar(50) null, "
      "modify F_WageItem varchar(50) null");
  db().Exec("insert into t_bwagesort values ('W3', null, null)");
  clsDataBWageSort repo;
  Collection<clsEntBWageSort> c;
  EXPECT_EQ(repo.QueryByGoodType(&c, "BRACKET"), 1);
  ASSERT_EQ(c.Count(), 1u);
  EXPECT_EQ(c.Item(1).ID, "W3");
  EXPECT_EQ(c.Item(1).WageItem, "0");
  EXPECT_EQ(c.Item(1).Wage, 0);
  // A null F_ID is in neither subquery's list, so a row holding one is never
  // read by this statement.
  db().Exec("update t_bwagesort set F_ID = null where F_ID = 'W3'");
  Collection<clsEntBWageSort> none;
  EXPECT_EQ(repo.QueryByGoodType(&none, "BRACKET"), 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(WageSortTest, QueryByGoodTypeWithANullCollectionFailsOnTheFirstRow) {
  clsDataBWageSort repo;
  EXPECT_EQ(repo.QueryByGoodType(nullptr, "SHAFT"), 2);
  EXPECT_EQ(Reports(), Reports_{PlainReport("Object required")});
}

TEST_F(WageSortTest, QueryByGoodTypeWithAQuoteFailsOnTheStatement) {
  clsDataBWageSort repo;
  Collection<clsEntBWageSort> c;
  EXPECT_EQ(repo.QueryByGoodType(&c, "O'Brien"), 2);
  // The text goes in twice, undoubled.
  EXPECT_EQ(Commands(), Strings{GoodTypeSql("O'Brien")});
  ExpectOneReport(kSyntax);
  EXPECT_EQ(c.Count(), 0u);
}

TEST_F(WageSortTest, QueryByGoodTypeReportsAMissingTableOfTheSurroundingSystem) {
  db().Exec("drop table t_egoodstype");
  clsDataBWageSort repo;
  Collection<clsEntBWageSort> c;
  EXPECT_EQ(repo.QueryByGoodType(&c, "SHAFT"), 2);
  ExpectOneReport("t_egoodstype' doesn't exist");
}

}  // namespace
}  // namespace corvane
