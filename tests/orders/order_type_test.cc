// clsDataBOrderType against the sandbox server: every path of its four
// methods with the statements sent, the results, the reports and what the
// table holds afterwards.
#include "corvane/orders/order_type.h"

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
using ::corvane::testing::SandboxTest;
using ::corvane::testing::ServerAddress;
using Rows = std::vector<std::vector<std::string>>;
using Strings = std::vector<std::string>;
using Reports_ = std::vector<Report>;

// The statements of the class, with the values put in.
std::string QueryAllSql() { return "Select * From T_BOrderType "; }
std::string AddCheckSql(const std::string& name) {
  return "select * from T_BOrderType where F_OrderType = '" + name + "'";
}
std::string AddRowsetSql() { return "select * from T_BOrderType"; }
std::string DeleteSql(const std::string& name) {
  return "select * from T_BOrderType where F_OrderType ='" + name + "' ";
}
std::string UpdateSql(const std::string& name, const std::string& old_name) {
  return "update T_BOrderType set F_OrderType= '" + name + " 'where F_OrderType ='" + old_name +
         "'";
}

// The length report of a failure other than a value that does not fit: its
// description, style 64, the system's title.
Report DescriptionReport(const std::string& text) { return Report{text, 64, "塔恩维克"}; }

const char kOpenWords[] = "Operation is not allowed when the object is open";
const char kNoRowWords[] = "Either BOF or EOF is True, or the current record has been deleted";

std::string Lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::tolower(c); });
  return s;
}

class OrderTypeTest : public SandboxTest {
 protected:
  // Each stored name between brackets, so that blanks show.
  Rows Types() {
    return db().Rows("select concat('[', F_OrderType, ']') from t_bordertype order by F_OrderType");
  }
  std::vector<testing::SentStatement> SentOf(StatementKind kind) const {
    std::vector<testing::SentStatement> out;
    for (const auto& s : Sent()) {
      if (s.kind == kind) out.push_back(s);
    }
    return out;
  }
  Strings RowChanges() const {
    Strings out;
    for (const auto& s : SentOf(StatementKind::kRowChange)) out.push_back(s.text);
    return out;
  }
  std::string Table() const { return "`" + Lower(database()) + "`.`t_bordertype`"; }
};

std::vector<std::string> Names(const Collection<clsEntBOrderType>& coll) {
  std::vector<std::string> out;
  for (const auto& e : coll) out.push_back(e->OrderType);
  return out;
}

// ------------------------------------------------------------ QueryAll

TEST_F(OrderTypeTest, QueryAllOnAnEmptyTableLeavesTheCollectionAsItWas) {
  clsDataBOrderType repo;
  Collection<clsEntBOrderType> coll;
  coll.Add(std::make_shared<clsEntBOrderType>(clsEntBOrderType{"mine"}));
  EXPECT_EQ(0, repo.QueryAll(&coll));
  EXPECT_EQ(Strings{"mine"}, Names(coll));
  // With no rows a null collection is not touched either.
  EXPECT_EQ(0, repo.QueryAll(nullptr));
  EXPECT_EQ((Strings{QueryAllSql(), QueryAllSql()}), Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderTypeTest, QueryAllAppendsEveryRowAfterWhatIsThere) {
  db().Exec("insert into t_bordertype values ('Sample'), ('Domestic'), ('内销'), ('Export')");
  clsDataBOrderType repo;
  Collection<clsEntBOrderType> coll;
  coll.Add(std::make_shared<clsEntBOrderType>(clsEntBOrderType{"mine"}));
  EXPECT_EQ(0, repo.QueryAll(&coll));
  EXPECT_EQ((Strings{"mine", "Domestic", "Export", "Sample", "内销"}), Names(coll));
  // Again: appended again, nothing cleared.
  EXPECT_EQ(0, repo.QueryAll(&coll));
  EXPECT_EQ(9u, coll.Count());
  EXPECT_EQ("内销", coll.Item(9).OrderType);
  EXPECT_EQ((Strings{QueryAllSql(), QueryAllSql()}), Commands());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderTypeTest, QueryAllReadsANullNameAsTheEmptyText) {
  db().Exec("alter table t_bordertype drop primary key, modify F_OrderType varchar(50) null");
  db().Exec("insert into t_bordertype values ('A'), (null)");
  clsDataBOrderType repo;
  Collection<clsEntBOrderType> coll;
  EXPECT_EQ(0, repo.QueryAll(&coll));
  std::vector<std::string> names = Names(coll);
  std::sort(names.begin(), names.end());
  EXPECT_EQ((Strings{"", "A"}), names);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderTypeTest, QueryAllWithANullCollectionFailsOnTheFirstRowAndReturns0) {
  db().Exec("insert into t_bordertype values ('A'), ('B')");
  clsDataBOrderType repo;
  EXPECT_EQ(0, repo.QueryAll(nullptr));
  EXPECT_EQ(Reports_{DescriptionReport("Object required")}, Reports());
  // rs was reset: the next call works.
  Collection<clsEntBOrderType> coll;
  EXPECT_EQ(0, repo.QueryAll(&coll));
  EXPECT_EQ((Strings{"A", "B"}), Names(coll));
  EXPECT_EQ(1u, Reports().size());
  EXPECT_EQ((Strings{QueryAllSql(), QueryAllSql()}), Commands());
}

TEST_F(OrderTypeTest, QueryAllReportsAServerFailureAndReturns0) {
  db().Exec("drop table t_bordertype");
  clsDataBOrderType repo;
  Collection<clsEntBOrderType> coll;
  EXPECT_EQ(0, repo.QueryAll(&coll));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ("塔恩维克", Reports()[0].title);
  EXPECT_NE(std::string::npos, Reports()[0].text.find("t_bordertype' doesn't exist"))
      << Reports()[0].text;
  EXPECT_EQ(0u, coll.Count());
  EXPECT_EQ(Strings{QueryAllSql()}, Commands());
}

// ------------------------------------------------------------ AddRecord

TEST_F(OrderTypeTest, AddRecordAddsTheName) {
  db().Exec("insert into t_bordertype values ('Domestic')");
  clsDataBOrderType repo;
  clsEntBOrderType e{"Export"};
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ((Strings{AddCheckSql("Export"), AddRowsetSql()}), Commands());
  EXPECT_EQ(Strings{"INSERT INTO " + Table() + " (`F_OrderType`) VALUES ('Export')"},
            RowChanges());
  EXPECT_TRUE(SentOf(StatementKind::kCatalog).empty());
  EXPECT_EQ((Rows{{"[Domestic]"}, {"[Export]"}}), Types());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ("Export", e.OrderType);  // the entity is only read
}

TEST_F(OrderTypeTest, AddRecordOfAnExistingNameReturns2AndLeavesTheTable) {
  db().Exec("insert into t_bordertype values ('Export')");
  clsDataBOrderType repo;
  clsEntBOrderType e{"Export"};
  EXPECT_EQ(2, repo.AddRecord(e));
  EXPECT_EQ(Strings{AddCheckSql("Export")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_EQ(Rows{{"[Export]"}}, Types());
  EXPECT_TRUE(Reports().empty());
  // The server's comparison decides what exists: case and trailing blanks do
  // not count.
  clsEntBOrderType upper{"EXPORT"};
  EXPECT_EQ(2, repo.AddRecord(upper));
  clsEntBOrderType blank{"Export "};
  EXPECT_EQ(2, repo.AddRecord(blank));
  EXPECT_EQ(Rows{{"[Export]"}}, Types());
  // The refusal closed rs: the object goes on.
  clsEntBOrderType other{"Domestic"};
  EXPECT_EQ(1, repo.AddRecord(other));
  EXPECT_EQ((Strings{AddCheckSql("Export"), AddCheckSql("EXPORT"), AddCheckSql("Export "),
                     AddCheckSql("Domestic"), AddRowsetSql()}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderTypeTest, AddRecordOfANameTooLongShowsTheLengthReportAndStoresNothing) {
  clsDataBOrderType repo;
  const std::string too_long(51, 'x');
  clsEntBOrderType e{too_long};
  EXPECT_EQ(0, repo.AddRecord(e));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_EQ((Strings{AddCheckSql(too_long), AddRowsetSql()}), Commands());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(0, db().Count("t_bordertype"));
  // Fifty characters fit, three-byte ones too; rs was reset, so the object
  // works at once.
  Clear();
  clsEntBOrderType fits{std::string(50, 'x')};
  EXPECT_EQ(1, repo.AddRecord(fits));
  std::string wide;
  for (int i = 0; i < 50; ++i) wide += "内";
  clsEntBOrderType wide_fits{wide};
  EXPECT_EQ(1, repo.AddRecord(wide_fits));
  clsEntBOrderType wide_too_long{wide + "销"};
  EXPECT_EQ(0, repo.AddRecord(wide_too_long));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_EQ((Rows{{std::string(50, 'x')}, {wide}}),
            db().Rows("select F_OrderType from t_bordertype order by 1"));
}

TEST_F(OrderTypeTest, AddRecordOfANameWithASingleQuoteBreaksTheStatement) {
  clsDataBOrderType repo;
  clsEntBOrderType e{"O'Brien"};
  EXPECT_EQ(0, repo.AddRecord(e));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ("塔恩维克", Reports()[0].title);
  EXPECT_EQ(0u, Reports()[0].text.find("You have an error in your SQL syntax"))
      << Reports()[0].text;
  EXPECT_NE(std::string::npos, Reports()[0].text.find("Brien''")) << Reports()[0].text;
  EXPECT_EQ(Strings{"select * from T_BOrderType where F_OrderType = 'O'Brien'"}, Commands());
  EXPECT_EQ(0, db().Count("t_bordertype"));
}

TEST_F(OrderTypeTest, AddRecordOfAQuoteThatChangesTheStatement) {
  // The quote does not break this one: it makes the check find a row.
  db().Exec("insert into t_bordertype values ('Export')");
  clsDataBOrderType repo;
  clsEntBOrderType e{"x' or '1'='1"};
  EXPECT_EQ(2, repo.AddRecord(e));
  EXPECT_EQ(Strings{"select * from T_BOrderType where F_OrderType = 'x' or '1'='1'"}, Commands());
  EXPECT_EQ(Rows{{"[Export]"}}, Types());
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ DeleteRecord

TEST_F(OrderTypeTest, DeleteRecordDeletesTheRowAndReturns0) {
  db().Exec("insert into t_bordertype values ('Domestic'), ('Export')");
  clsDataBOrderType repo;
  clsEntBOrderType e{"Export"};
  EXPECT_EQ(0, repo.DeleteRecord(e));
  ASSERT_EQ(3u, Sent().size());
  EXPECT_EQ(StatementKind::kCommand, Sent()[0].kind);
  EXPECT_EQ(DeleteSql("Export"), Sent()[0].text);
  EXPECT_EQ(StatementKind::kCatalog, Sent()[1].kind);
  EXPECT_EQ("SHOW COLUMNS FROM " + Table(), Sent()[1].text);
  EXPECT_EQ(StatementKind::kRowChange, Sent()[2].kind);
  EXPECT_EQ("DELETE FROM " + Table() + " WHERE `F_OrderType` <=> 'Export' LIMIT 1",
            Sent()[2].text);
  EXPECT_EQ(Rows{{"[Domestic]"}}, Types());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderTypeTest, DeleteRecordFindsTheRowAsTheServerComparesAndDeletesItByItsOwnName) {
  db().Exec("insert into t_bordertype values ('Domestic'), ('Export')");
  clsDataBOrderType repo;
  clsEntBOrderType e{"EXPORT"};
  EXPECT_EQ(0, repo.DeleteRecord(e));
  EXPECT_EQ(Strings{DeleteSql("EXPORT")}, Commands());
  EXPECT_EQ(Strings{"DELETE FROM " + Table() + " WHERE `F_OrderType` <=> 'Export' LIMIT 1"},
            RowChanges());
  EXPECT_EQ(Rows{{"[Domestic]"}}, Types());
}

TEST_F(OrderTypeTest, DeleteRecordOfAMissingNameReportsTheEmptyRecordsetAndReturns0) {
  db().Exec("insert into t_bordertype values ('Domestic')");
  clsDataBOrderType repo;
  clsEntBOrderType e{"Export"};
  EXPECT_EQ(0, repo.DeleteRecord(e));
  EXPECT_EQ(Reports_{DescriptionReport(kNoRowWords)}, Reports());
  EXPECT_EQ(Strings{DeleteSql("Export")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_EQ(Rows{{"[Domestic]"}}, Types());
  // rs was reset: the next delete works at once.
  clsEntBOrderType there{"Domestic"};
  EXPECT_EQ(0, repo.DeleteRecord(there));
  EXPECT_EQ(1u, Reports().size());
  EXPECT_EQ(0, db().Count("t_bordertype"));
}

TEST_F(OrderTypeTest, DeleteRecordOfANameWithASingleQuoteBreaksTheStatement) {
  db().Exec("insert into t_bordertype values ('O')");
  clsDataBOrderType repo;
  clsEntBOrderType e{"O'Brien"};
  EXPECT_EQ(0, repo.DeleteRecord(e));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(0u, Reports()[0].text.find("You have an error in your SQL syntax"))
      << Reports()[0].text;
  EXPECT_EQ(Strings{"select * from T_BOrderType where F_OrderType ='O'Brien' "}, Commands());
  EXPECT_EQ(Rows{{"[O]"}}, Types());
}

TEST_F(OrderTypeTest, DeleteRecordRemovesOneRowHoweverManyTheStatementSelects) {
  db().Exec("insert into t_bordertype values ('A'), ('B'), ('C')");
  clsDataBOrderType repo;
  clsEntBOrderType e{"x' or '1'='1"};
  EXPECT_EQ(0, repo.DeleteRecord(e));
  EXPECT_EQ(Strings{"select * from T_BOrderType where F_OrderType ='x' or '1'='1' "}, Commands());
  EXPECT_EQ(1u, RowChanges().size());
  EXPECT_EQ(2, db().Count("t_bordertype"));
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ UpdateRecord

TEST_F(OrderTypeTest, UpdateRecordRenamesWithABlankAfterTheNewName) {
  db().Exec("insert into t_bordertype values ('Export'), ('Sample')");
  db().Exec("insert into t_borderh (F_OrderNo, F_OrderType) values (20261122001, 'Export')");
  clsDataBOrderType repo;
  clsEntBOrderType e{"Domestic"};
  EXPECT_EQ(1, repo.UpdateRecord(e, "Export"));
  EXPECT_EQ(Strings{"update T_BOrderType set F_OrderType= 'Domestic 'where F_OrderType ='Export'"},
            Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  // The stored name ends in a blank.
  EXPECT_EQ((Rows{{"[Domestic ]"}, {"[Sample]"}}), Types());
  EXPECT_EQ((Rows{{"446F6D657374696320", "9"}}),
            db().Rows("select hex(F_OrderType), length(F_OrderType) from t_bordertype "
                      "where F_OrderType like 'D%'"));
  // Orders holding the old name keep it.
  EXPECT_EQ("Export", db().Scalar("select F_OrderType from t_borderh"));
  // The name read back carries the blank; an add of the name without it is
  // refused, since the server does not count trailing blanks.
  Collection<clsEntBOrderType> coll;
  EXPECT_EQ(0, repo.QueryAll(&coll));
  EXPECT_EQ((Strings{"Domestic ", "Sample"}), Names(coll));
  clsEntBOrderType again{"Domestic"};
  EXPECT_EQ(2, repo.AddRecord(again));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderTypeTest, UpdateRecordOfAnOldNameNotInTheTableReturns1) {
  db().Exec("insert into t_bordertype values ('Export')");
  clsDataBOrderType repo;
  clsEntBOrderType e{"Domestic"};
  EXPECT_EQ(1, repo.UpdateRecord(e, "Nothing"));
  EXPECT_EQ(Strings{UpdateSql("Domestic", "Nothing")}, Commands());
  EXPECT_EQ(Rows{{"[Export]"}}, Types());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderTypeTest, UpdateRecordToANameThatClashesReportsTheServerAndReturns3) {
  db().Exec("insert into t_bordertype values ('A'), ('B')");
  clsDataBOrderType repo;
  clsEntBOrderType e{"B"};
  EXPECT_EQ(3, repo.UpdateRecord(e, "A"));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ("塔恩维克", Reports()[0].title);
  EXPECT_EQ(0u, Reports()[0].text.find("Duplicate entry 'B ' for key 'PRIMARY'"))
      << Reports()[0].text;
  EXPECT_EQ(Strings{UpdateSql("B", "A")}, Commands());
  EXPECT_EQ((Rows{{"[A]"}, {"[B]"}}), Types());
  // rs was left as the failed open left it; the next read-open, which takes
  // over its CursorType and LockType, reads as ever.
  Collection<clsEntBOrderType> coll;
  EXPECT_EQ(0, repo.QueryAll(&coll));
  EXPECT_EQ((Strings{"A", "B"}), Names(coll));
  EXPECT_EQ(1, repo.UpdateRecord(e, "Nothing"));
  EXPECT_EQ(1u, Reports().size());
}

TEST_F(OrderTypeTest, UpdateRecordDoesNotResetRsAfterAFailure) {
  // QueryAll with no collection fails on its first row with its recordset
  // open, and resets it only after its report. Calls made while that report
  // is up find rs open.
  db().Exec("insert into t_bordertype values ('A'), ('B')");
  clsDataBOrderType repo;
  std::vector<Report> seen;
  std::vector<std::int16_t> inner;
  SetReportHandler([&](const Report& r) {
    seen.push_back(r);
    if (seen.size() != 1) return;
    clsEntBOrderType e{"C"};
    inner.push_back(repo.UpdateRecord(e, "A"));  // fails: rs is open
    inner.push_back(repo.UpdateRecord(e, "A"));  // fails again: rs was not reset
    inner.push_back(repo.AddRecord(e));          // fails, and resets rs
    inner.push_back(repo.UpdateRecord(e, "A"));  // works
  });
  EXPECT_EQ(0, repo.QueryAll(nullptr));
  EXPECT_EQ((std::vector<std::int16_t>{3, 3, 0, 1}), inner);
  EXPECT_EQ((Reports_{DescriptionReport("Object required"), DescriptionReport(kOpenWords),
                      DescriptionReport(kOpenWords), DescriptionReport(kOpenWords)}),
            seen);
  // The failed calls sent nothing.
  EXPECT_EQ((Strings{QueryAllSql(), UpdateSql("C", "A")}), Commands());
  EXPECT_EQ((Rows{{"[B]"}, {"[C ]"}}), Types());
}

TEST_F(OrderTypeTest, UpdateRecordToANameTooLongShowsTheLengthReportAndReturns3) {
  const std::string too_long(51, 'x');
  db().Exec("insert into t_bordertype values ('A')");
  clsDataBOrderType repo;
  clsEntBOrderType e{too_long};
  EXPECT_EQ(3, repo.UpdateRecord(e, "A"));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_EQ(Strings{UpdateSql(too_long, "A")}, Commands());
  EXPECT_EQ(Rows{{"[A]"}}, Types());
  // Fifty characters fill the column, and the server drops the blank after
  // them without a word.
  const std::string fifty(50, 'n');
  clsEntBOrderType fits{fifty};
  EXPECT_EQ(1, repo.UpdateRecord(fits, "A"));
  EXPECT_EQ(1u, Reports().size());
  EXPECT_EQ(Rows{{"[" + fifty + "]"}}, Types());
}

TEST_F(OrderTypeTest, UpdateRecordWithASingleQuoteBreaksTheStatement) {
  db().Exec("insert into t_bordertype values ('A')");
  clsDataBOrderType repo;
  clsEntBOrderType quoted{"O'Brien"};
  EXPECT_EQ(3, repo.UpdateRecord(quoted, "A"));
  clsEntBOrderType plain{"B"};
  EXPECT_EQ(3, repo.UpdateRecord(plain, "O'Brien"));
  ASSERT_EQ(2u, Reports().size());
  for (const Report& r : Reports()) {
    EXPECT_EQ(64, r.style);
    EXPECT_EQ("塔恩维克", r.title);
    EXPECT_EQ(0u, r.text.find("You have an error in your SQL syntax")) << r.text;
  }
  EXPECT_EQ((Strings{"update T_BOrderType set F_OrderType= 'O'Brien 'where F_OrderType ='A'",
                     "update T_BOrderType set F_OrderType= 'B 'where F_OrderType ='O'Brien'"}),
            Commands());
  EXPECT_EQ(Rows{{"[A]"}}, Types());
}

// ------------------------------------------------------------ the class as a whole

TEST_F(OrderTypeTest, DeleteRecordAndQueryAllReturn0AfterSuccessAndFailureAlike) {
  db().Exec("insert into t_bordertype values ('A')");
  clsDataBOrderType repo;
  Collection<clsEntBOrderType> coll;
  clsEntBOrderType a{"A"};
  clsEntBOrderType missing{"Z"};
  EXPECT_EQ(0, repo.QueryAll(&coll));     // success
  EXPECT_EQ(0, repo.QueryAll(nullptr));   // failure
  EXPECT_EQ(0, repo.DeleteRecord(a));     // success
  EXPECT_EQ(0, repo.DeleteRecord(missing));  // failure
  EXPECT_EQ((Reports_{DescriptionReport("Object required"), DescriptionReport(kNoRowWords)}),
            Reports());
  EXPECT_EQ((Strings{QueryAllSql(), QueryAllSql(), DeleteSql("A"), DeleteSql("Z")}), Commands());
  EXPECT_EQ(0, db().Count("t_bordertype"));
}

TEST_F(OrderTypeTest, AddListRenameDelete) {
  clsDataBOrderType repo;
  clsEntBOrderType e{"Export"};
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ(2, repo.AddRecord(e));
  Collection<clsEntBOrderType> all;
  EXPECT_EQ(0, repo.QueryAll(&all));
  EXPECT_EQ(Strings{"Export"}, Names(all));
  clsEntBOrderType renamed{"Domestic"};
  EXPECT_EQ(1, repo.UpdateRecord(renamed, "Export"));
  // The delete finds "Domestic " by "Domestic", and deletes it by its own name.
  EXPECT_EQ(0, repo.DeleteRecord(renamed));
  EXPECT_EQ((Strings{AddCheckSql("Export"), AddRowsetSql(), AddCheckSql("Export"), QueryAllSql(),
                     UpdateSql("Domestic", "Export"), DeleteSql("Domestic")}),
            Commands());
  EXPECT_EQ((Strings{"INSERT INTO " + Table() + " (`F_OrderType`) VALUES ('Export')",
                     "DELETE FROM " + Table() + " WHERE `F_OrderType` <=> 'Domestic ' LIMIT 1"}),
            RowChanges());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(0, db().Count("t_bordertype"));
}

TEST_F(OrderTypeTest, ConstructionFailsWithoutAReport) {
  const ServerAddress a = ServerAddress::FromEnvironment();
  SetSessionConnectionString("SERVER=" + a.server + ";PORT=" + std::to_string(a.port) +
                             ";DATABASE=" + database() + ";UID=" + a.user + ";PWD=not" +
                             a.password);
  try {
    clsDataBOrderType repo;
    ADD_FAILURE() << "the constructor returned";
  } catch (const Error& e) {
    EXPECT_EQ(errc::kProvider, e.Number());
    EXPECT_EQ(0u, e.Description().find("Access denied")) << e.Description();
  }
  EXPECT_TRUE(Reports().empty());
  EXPECT_TRUE(Sent().empty());
}

}  // namespace
}  // namespace corvane
