// The recordset against the sandbox server: the failure number of each
// misuse, what the open of a statement leaves behind, how -1 stands for the
// properties, BOF and EOF, the row changes it writes for AddNew, a column
// write and Delete, streaming over one connection, and the values a read
// gives for each kind of column.
#include "corvane/frame/recordset.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "corvane/frame/connection.h"
#include "corvane/frame/date.h"
#include "corvane/frame/error.h"
#include "corvane/frame/session.h"
#include "corvane/frame/variant.h"
#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::SandboxTest;
using Rows = std::vector<std::vector<std::string>>;

// The failure the call throws, or nothing when it returns.
std::optional<Error> FailureOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& e) {
    return e;
  }
  return std::nullopt;
}

// The number of the failure the call throws; 0 when it returns.
std::int32_t ErrorNumberOf(const std::function<void()>& call) {
  const std::optional<Error> e = FailureOf(call);
  return e ? e->Number() : 0;
}

std::string Lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::tolower(c); });
  return s;
}

class RecordsetTest : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    session_.Open();
    Clear();
  }
  void TearDown() override {
    session_.Close();
    SandboxTest::TearDown();
  }

  std::shared_ptr<Connection> cn() { return session_.Connection(); }

  // The statements of one kind sent since the last Clear().
  std::vector<std::string> SentOf(StatementKind kind) const {
    std::vector<std::string> out;
    for (const auto& s : Sent()) {
      if (s.kind == kind) out.push_back(s.text);
    }
    return out;
  }
  std::vector<std::string> RowChanges() const { return SentOf(StatementKind::kRowChange); }
  std::vector<std::string> Catalog() const { return SentOf(StatementKind::kCatalog); }

  // `db`.`table` as the row changes name it: the server keeps names in lower
  // case.
  std::string Table(const std::string& table) const {
    return "`" + Lower(database()) + "`.`" + table + "`";
  }

  // A table of n rows (id 1..n, v "row<id>"), with a primary key.
  void MakeBig(int n) {
    db().Exec("create table big (id int not null primary key, v varchar(20) not null)");
    db().Exec("insert into big select seq, concat('row', seq) from seq_1_to_" + std::to_string(n));
  }

 private:
  clsDbSession session_;
};

// ------------------------------------------------------------ misuse numbers

TEST_F(RecordsetTest, OpenOnAnOpenRecordsetFails) {
  Recordset rs;
  rs.Open("select 1 as one", cn());
  ASSERT_EQ(1, rs.State());
  const std::optional<Error> e = FailureOf([&] { rs.Open("select 2 as one", cn()); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(errc::kObjectOpen, e->Number());
  EXPECT_EQ(static_cast<std::int32_t>(0x800A0E79u), e->Number());
  EXPECT_EQ("Operation is not allowed when the object is open", e->Description());
  // The second statement was never sent, and the first is still there.
  EXPECT_EQ((std::vector<std::string>{"select 1 as one"}), Commands());
  EXPECT_EQ(1, rs.State());
  EXPECT_EQ(1, rs.Fields("one").Value().CInt());
  // Open() with no arguments fails the same way.
  EXPECT_EQ(errc::kObjectOpen, ErrorNumberOf([&] { rs.Open(); }));
}

TEST_F(RecordsetTest, PropertySetOnAnOpenRecordsetFails) {
  Recordset rs;
  rs.SetCursorType(Recordset::kKeyset);
  rs.SetLockType(Recordset::kOptimistic);
  rs.Open("select 1 as one", cn());
  EXPECT_EQ(errc::kObjectOpen, ErrorNumberOf([&] { rs.SetSource("select 2"); }));
  EXPECT_EQ(errc::kObjectOpen, ErrorNumberOf([&] { rs.SetActiveConnection(cn()); }));
  EXPECT_EQ(errc::kObjectOpen, ErrorNumberOf([&] { rs.SetCursorType(Recordset::kDynamic); }));
  EXPECT_EQ(errc::kObjectOpen, ErrorNumberOf([&] { rs.SetLockType(Recordset::kReadOnly); }));
  EXPECT_EQ(errc::kObjectOpen, ErrorNumberOf([&] { rs.SetCursorLocation(Recordset::kUseClient); }));
  // Nothing was changed by the failed sets.
  EXPECT_EQ(Recordset::kKeyset, rs.CursorType());
  EXPECT_EQ(Recordset::kOptimistic, rs.LockType());
  EXPECT_EQ(Recordset::kUseServer, rs.CursorLocation());
  // Once closed, the same sets work.
  rs.Close();
  EXPECT_EQ(0, ErrorNumberOf([&] { rs.SetSource("select 2 as two"); }));
  EXPECT_EQ(0, ErrorNumberOf([&] { rs.SetActiveConnection(cn()); }));
  EXPECT_EQ(0, ErrorNumberOf([&] { rs.SetCursorType(Recordset::kDynamic); }));
  EXPECT_EQ(0, ErrorNumberOf([&] { rs.SetLockType(Recordset::kReadOnly); }));
  EXPECT_EQ(Recordset::kDynamic, rs.CursorType());
  EXPECT_EQ(Recordset::kReadOnly, rs.LockType());
  rs.Open();
  EXPECT_EQ(2, rs.Fields("two").Value().CInt());
}

TEST_F(RecordsetTest, CloseOnAClosedRecordsetFails) {
  Recordset fresh;
  const std::optional<Error> e = FailureOf([&] { fresh.Close(); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(static_cast<std::int32_t>(0x800A0E78u), e->Number());
  EXPECT_EQ("Operation is not allowed when the object is closed", e->Description());

  Recordset rs;
  rs.Open("select 1 as one", cn());
  EXPECT_EQ(0, ErrorNumberOf([&] { rs.Close(); }));
  EXPECT_EQ(0, rs.State());
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.Close(); }));
}

TEST_F(RecordsetTest, EveryRowOperationOnAClosedRecordsetFails) {
  Recordset rs;
  EXPECT_EQ(0, rs.State());
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.Bof(); }));
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.Eof(); }));
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.MoveNext(); }));
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.Fields("F_OrderType"); }));
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.Collect("F_OrderType"); }));
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.SetCollect("F_OrderType", "x"); }));
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.AddNew(); }));
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.Update(); }));
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.UpdateBatch(3); }));
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.Delete(1); }));
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.RecordCount(); }));
  // The same after a Close.
  rs.Open("select * from T_BOrderType", cn());
  rs.Close();
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.Eof(); }));
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.Fields("F_OrderType"); }));
  EXPECT_TRUE(Sent().size() == 1u);  // nothing but the one select reached the server
}

TEST_F(RecordsetTest, NoCurrentRowOnAnEmptyResult) {
  Recordset rs;
  rs.Open("select * from T_BOrderType", cn(), 1, 2);
  ASSERT_TRUE(rs.Bof());
  ASSERT_TRUE(rs.Eof());
  const std::optional<Error> read = FailureOf([&] { rs.Fields("F_OrderType").Value(); });
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(static_cast<std::int32_t>(0x800A0BCDu), read->Number());
  EXPECT_EQ("Either BOF or EOF is True, or the current record has been deleted",
            read->Description());
  EXPECT_EQ(errc::kNoCurrentRecord, ErrorNumberOf([&] { rs.Collect("F_OrderType"); }));
  EXPECT_EQ(errc::kNoCurrentRecord, ErrorNumberOf([&] { rs.SetCollect("F_OrderType", "x"); }));
  EXPECT_EQ(errc::kNoCurrentRecord, ErrorNumberOf([&] { rs.Update(); }));
  EXPECT_EQ(errc::kNoCurrentRecord, ErrorNumberOf([&] { rs.Delete(1); }));
  EXPECT_EQ(errc::kNoCurrentRecord, ErrorNumberOf([&] { rs.MoveNext(); }));
  // Still open, and nothing was written.
  EXPECT_EQ(1, rs.State());
  rs.Close();
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(0, db().Count("t_bordertype"));
}

TEST_F(RecordsetTest, NoCurrentRowPastTheEnd) {
  db().Exec("insert into t_bordertype values ('A'), ('B')");
  Recordset rs;
  rs.Open("select * from T_BOrderType order by F_OrderType", cn(), 2, 3);
  EXPECT_EQ("A", rs.Fields("F_OrderType").Value().CStr());
  rs.MoveNext();
  EXPECT_EQ("B", rs.Fields("F_OrderType").Value().CStr());
  rs.MoveNext();
  ASSERT_TRUE(rs.Eof());
  EXPECT_FALSE(rs.Bof());
  EXPECT_EQ(errc::kNoCurrentRecord, ErrorNumberOf([&] { rs.Fields("F_OrderType").Value(); }));
  EXPECT_EQ(errc::kNoCurrentRecord, ErrorNumberOf([&] { rs.SetCollect("F_OrderType", "C"); }));
  EXPECT_EQ(errc::kNoCurrentRecord, ErrorNumberOf([&] { rs.Update(); }));
  EXPECT_EQ(errc::kNoCurrentRecord, ErrorNumberOf([&] { rs.Delete(1); }));
  EXPECT_EQ(errc::kNoCurrentRecord, ErrorNumberOf([&] { rs.MoveNext(); }));
  rs.Close();
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ((Rows{{"A"}, {"B"}}), db().Rows("select * from t_bordertype order by 1"));
}

TEST_F(RecordsetTest, UnknownColumnFails) {
  db().Exec("insert into t_bordertype values ('A')");
  Recordset rs;
  rs.Open("select * from T_BOrderType", cn(), 2, 3);
  const std::optional<Error> e = FailureOf([&] { rs.Fields("F_Nothing"); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(static_cast<std::int32_t>(0x800A0CC1u), e->Number());
  EXPECT_EQ(errc::kItemNotFound, ErrorNumberOf([&] { rs.SetCollect("F_Nothing", "x"); }));
  EXPECT_EQ(errc::kItemNotFound, ErrorNumberOf([&] { rs.Collect("F_OrderTyp"); }));
  // Names are matched without regard to case.
  EXPECT_EQ("A", rs.Fields("f_ordertype").Value().CStr());
  EXPECT_EQ("A", rs.Fields("F_ORDERTYPE").Value().CStr());
  EXPECT_EQ("F_OrderType", rs.Fields("f_ordertype").Name());
  rs.Close();
}

TEST_F(RecordsetTest, WriteOnAReadOnlyRowsetFails) {
  db().Exec("insert into t_bordertype values ('A')");
  Recordset rs;
  rs.Open("select * from T_BOrderType", cn(), 2, 1);
  const std::optional<Error> e = FailureOf([&] { rs.SetCollect("F_OrderType", "B"); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(static_cast<std::int32_t>(0x800A0CB3u), e->Number());
  EXPECT_EQ(errc::kReadOnly, ErrorNumberOf([&] { rs.AddNew(); }));
  EXPECT_EQ(errc::kReadOnly, ErrorNumberOf([&] { rs.Delete(1); }));
  // Reading is fine, and the default lock of a new recordset is read-only too.
  EXPECT_EQ("A", rs.Fields("F_OrderType").Value().CStr());
  rs.Close();
  Recordset plain;
  plain.Open("select * from T_BOrderType", cn());
  EXPECT_EQ(Recordset::kReadOnly, plain.LockType());
  EXPECT_EQ(errc::kReadOnly, ErrorNumberOf([&] { plain.SetCollect("F_OrderType", "B"); }));
  plain.Close();
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ((Rows{{"A"}}), db().Rows("select * from t_bordertype"));
}

TEST_F(RecordsetTest, TextLongerThanTheColumnInCharactersDoesNotFit) {
  db().Exec("create table short_text (id int not null primary key, s varchar(5) null)");
  Recordset rs;
  rs.Open("select * from short_text", cn(), 2, 3);
  EXPECT_EQ(5, rs.Fields("s").DefinedSize());
  rs.AddNew();
  rs.SetCollect("id", std::int32_t{1});
  // Five characters of three bytes each fit: the size counts characters.
  EXPECT_EQ(0, ErrorNumberOf([&] { rs.SetCollect("s", "中文中文中"); }));
  const std::optional<Error> e = FailureOf([&] { rs.SetCollect("s", "中文中文中文"); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(static_cast<std::int32_t>(0x80040E21u), e->Number());
  EXPECT_EQ(static_cast<std::int32_t>(-2147217887), e->Number());
  EXPECT_EQ(errc::kMultipleStep, ErrorNumberOf([&] { rs.SetCollect("s", "abcdef"); }));
  // The failed writes left the value that fitted.
  rs.Update();
  rs.Close();
  EXPECT_EQ((Rows{{"1", "中文中文中"}}), db().Rows("select * from short_text"));
}

TEST_F(RecordsetTest, NumbersOutOfRangeDoNotFit) {
  db().Exec(
      "create table ranges (id int not null primary key, si smallint null, i int null, "
      "d double null)");
  db().Exec("insert into ranges values (1, 0, 0, 0)");
  Recordset rs;
  rs.Open("select * from ranges", cn(), 2, 3);
  EXPECT_EQ(0, ErrorNumberOf([&] { rs.SetCollect("si", std::int32_t{32767}); }));
  EXPECT_EQ(0, ErrorNumberOf([&] { rs.SetCollect("i", -2147483647.0 - 1); }));
  EXPECT_EQ(errc::kMultipleStep, ErrorNumberOf([&] { rs.SetCollect("si", std::int32_t{32768}); }));
  EXPECT_EQ(errc::kMultipleStep, ErrorNumberOf([&] { rs.SetCollect("si", std::int32_t{-32769}); }));
  EXPECT_EQ(errc::kMultipleStep, ErrorNumberOf([&] { rs.SetCollect("i", 2147483648.0); }));
  // Text that is no number does not fit a number column.
  EXPECT_EQ(errc::kMultipleStep, ErrorNumberOf([&] { rs.SetCollect("d", "abc"); }));
  EXPECT_EQ(errc::kMultipleStep, ErrorNumberOf([&] { rs.SetCollect("d", ""); }));
  EXPECT_EQ(errc::kMultipleStep, ErrorNumberOf([&] { rs.SetCollect("si", "x1"); }));
  // Text that is a number does.
  EXPECT_EQ(0, ErrorNumberOf([&] { rs.SetCollect("d", "12.5"); }));
  rs.Update();
  rs.Close();
  EXPECT_EQ((Rows{{"1", "32767", "-2147483648", "12.5"}}), db().Rows("select * from ranges"));
}

TEST_F(RecordsetTest, TheServerRefusingATooLongValueDoesNotFit) {
  db().Exec("create table short_text (id int not null primary key, s varchar(5) null, "
            "si smallint null)");
  Recordset rs;
  const std::optional<Error> e =
      FailureOf([&] { rs.Open("insert into short_text values (1, 'abcdef', 0)", cn()); });
  ASSERT_TRUE(e.has_value());
  EXPECT_EQ(errc::kMultipleStep, e->Number());
  EXPECT_NE(std::string::npos, e->Description().find("Data too long for column 's'"))
      << e->Description();
  EXPECT_EQ(0, rs.State());
  // A number the column cannot hold is refused the same way.
  EXPECT_EQ(errc::kMultipleStep,
            ErrorNumberOf([&] { rs.Open("insert into short_text values (2, 'a', 40000)", cn()); }));
  EXPECT_EQ(0, db().Count("short_text"));
  EXPECT_EQ((std::vector<std::string>{"insert into short_text values (1, 'abcdef', 0)",
                                      "insert into short_text values (2, 'a', 40000)"}),
            Commands());
}

TEST_F(RecordsetTest, AnyOtherServerFailureCarriesTheServersWords) {
  Recordset rs;
  const std::optional<Error> syntax = FailureOf([&] { rs.Open("selec 1", cn()); });
  ASSERT_TRUE(syntax.has_value());
  EXPECT_EQ(static_cast<std::int32_t>(0x80004005u), syntax->Number());
  EXPECT_EQ(0u, syntax->Description().find("You have an error in your SQL syntax"))
      << syntax->Description();
  EXPECT_EQ(0, rs.State());
  const std::optional<Error> missing = FailureOf([&] { rs.Open("select * from t_nothing", cn()); });
  ASSERT_TRUE(missing.has_value());
  EXPECT_EQ(errc::kProvider, missing->Number());
  EXPECT_NE(std::string::npos, missing->Description().find("t_nothing' doesn't exist"))
      << missing->Description();
  db().Exec("insert into t_bordertype values ('A')");
  const std::optional<Error> duplicate =
      FailureOf([&] { rs.Open("insert into t_bordertype values ('A')", cn()); });
  ASSERT_TRUE(duplicate.has_value());
  EXPECT_EQ(errc::kProvider, duplicate->Number());
  EXPECT_EQ(0u, duplicate->Description().find("Duplicate entry 'A'")) << duplicate->Description();
  // A failed open leaves the recordset closed and ready for the next one.
  EXPECT_EQ(0, rs.State());
  rs.Open("select count(*) as n from t_bordertype", cn());
  EXPECT_EQ(1, rs.Fields("n").Value().CInt());
  rs.Close();
}

// ------------------------------------------------------------ opening

TEST_F(RecordsetTest, AStatementWithoutRowsIsExecutedAndLeavesTheRecordsetClosed) {
  Recordset rs;
  rs.Open("insert into t_bordertype values ('A')", cn(), 1, 4);
  EXPECT_EQ(0, rs.State());
  EXPECT_EQ(errc::kObjectClosed, ErrorNumberOf([&] { rs.Close(); }));
  rs.Open("update t_bordertype set F_OrderType = 'B' where F_OrderType = 'A'", cn(), 2, 3);
  EXPECT_EQ(0, rs.State());
  rs.Open("insert into t_bordertype values ('C')", cn());
  EXPECT_EQ(0, rs.State());
  rs.Open("delete from t_bordertype where F_OrderType = 'C'", cn(), 1, 2);
  EXPECT_EQ(0, rs.State());
  EXPECT_EQ((Rows{{"B"}}), db().Rows("select * from t_bordertype"));
  EXPECT_EQ((std::vector<std::string>{
                "insert into t_bordertype values ('A')",
                "update t_bordertype set F_OrderType = 'B' where F_OrderType = 'A'",
                "insert into t_bordertype values ('C')",
                "delete from t_bordertype where F_OrderType = 'C'"}),
            Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
}

TEST_F(RecordsetTest, OpenWithoutAConnectionFails) {
  Recordset rs;
  EXPECT_EQ(errc::kNoConnection, ErrorNumberOf([&] { rs.Open("select 1", nullptr); }));
  rs.SetSource("select 1");
  EXPECT_EQ(errc::kNoConnection, ErrorNumberOf([&] { rs.Open(); }));
  EXPECT_TRUE(Sent().empty());
}

TEST_F(RecordsetTest, MinusOneStandsForThePropertiesAndExplicitArgumentsWin) {
  db().Exec("insert into t_bordertype values ('A')");
  Recordset rs;
  EXPECT_EQ(Recordset::kForwardOnly, rs.CursorType());
  EXPECT_EQ(Recordset::kReadOnly, rs.LockType());

  // -1 everywhere: the properties set before are in force.
  rs.SetCursorType(Recordset::kKeyset);
  rs.SetLockType(Recordset::kOptimistic);
  rs.Open("select * from T_BOrderType", cn(), -1, -1, -1);
  EXPECT_EQ(Recordset::kKeyset, rs.CursorType());
  EXPECT_EQ(Recordset::kOptimistic, rs.LockType());
  EXPECT_EQ(0, ErrorNumberOf([&] { rs.SetCollect("F_OrderType", "B"); }));
  rs.Update();
  rs.Close();

  // Explicit arguments win over what was set ...
  rs.Open("select * from T_BOrderType", cn(), Recordset::kDynamic, Recordset::kReadOnly);
  EXPECT_EQ(Recordset::kDynamic, rs.CursorType());
  EXPECT_EQ(Recordset::kReadOnly, rs.LockType());
  EXPECT_EQ(errc::kReadOnly, ErrorNumberOf([&] { rs.SetCollect("F_OrderType", "C"); }));
  rs.Close();

  // ... and stay set for the next open with -1.
  rs.SetSource("select * from T_BOrderType");
  rs.SetActiveConnection(cn());
  rs.Open();
  EXPECT_EQ(Recordset::kDynamic, rs.CursorType());
  EXPECT_EQ(Recordset::kReadOnly, rs.LockType());
  EXPECT_EQ(errc::kReadOnly, ErrorNumberOf([&] { rs.SetCollect("F_OrderType", "C"); }));
  rs.Close();

  // One explicit, one -1.
  rs.SetLockType(Recordset::kOptimistic);
  rs.Open("select * from T_BOrderType", cn(), Recordset::kKeyset, -1);
  EXPECT_EQ(Recordset::kKeyset, rs.CursorType());
  EXPECT_EQ(Recordset::kOptimistic, rs.LockType());
  rs.Close();
  rs.Open("select * from T_BOrderType", cn(), -1, Recordset::kPessimistic);
  EXPECT_EQ(Recordset::kKeyset, rs.CursorType());
  EXPECT_EQ(Recordset::kPessimistic, rs.LockType());
  rs.Close();
  EXPECT_EQ((Rows{{"B"}}), db().Rows("select * from t_bordertype"));
}

TEST_F(RecordsetTest, OpenWithNoArgumentsRunsTheSourceOverTheActiveConnection) {
  db().Exec("insert into t_bordertype values ('A')");
  Recordset rs;
  rs.SetSource("select * from T_BOrderType where F_OrderType = 'A'");
  rs.SetActiveConnection(cn());
  rs.Open();
  EXPECT_EQ("A", rs.Fields("F_OrderType").Value().CStr());
  rs.Close();
  // Open with arguments replaces the source.
  rs.Open("select 'x' as F_OrderType", cn());
  rs.Close();
  rs.Open();
  EXPECT_EQ("x", rs.Fields("F_OrderType").Value().CStr());
  rs.Close();
  EXPECT_EQ((std::vector<std::string>{"select * from T_BOrderType where F_OrderType = 'A'",
                                      "select 'x' as F_OrderType", "select 'x' as F_OrderType"}),
            Commands());
}

// ------------------------------------------------------------ BOF and EOF

TEST_F(RecordsetTest, BofAndEof) {
  Recordset rs;
  rs.Open("select * from T_BOrderType", cn());
  EXPECT_TRUE(rs.Bof());
  EXPECT_TRUE(rs.Eof());
  rs.Close();

  db().Exec("insert into t_bordertype values ('A')");
  rs.Open("select * from T_BOrderType", cn());
  EXPECT_FALSE(rs.Bof());
  EXPECT_FALSE(rs.Eof());
  rs.MoveNext();
  EXPECT_FALSE(rs.Bof());
  EXPECT_TRUE(rs.Eof());
  rs.Close();

  db().Exec("insert into t_bordertype values ('B')");
  rs.Open("select * from T_BOrderType order by F_OrderType", cn());
  EXPECT_FALSE(rs.Bof());
  EXPECT_FALSE(rs.Eof());
  rs.MoveNext();
  EXPECT_FALSE(rs.Bof());
  EXPECT_FALSE(rs.Eof());
  EXPECT_EQ("B", rs.Fields("F_OrderType").Value().CStr());
  rs.MoveNext();
  EXPECT_FALSE(rs.Bof());
  EXPECT_TRUE(rs.Eof());
  rs.Close();
}

TEST_F(RecordsetTest, ColumnNamesAreFoundWithoutRegardToCaseWhateverTheNameLivesIn) {
  db().Exec("create table names (first_col varchar(10), second_col varchar(10))");
  db().Exec("insert into names values ('one', 'two')");
  Recordset rs;
  rs.Open("select * from names", cn());
  EXPECT_EQ("one", rs.Fields("FIRST_COL").Value().CStr());
  EXPECT_EQ("two", rs.Fields("Second_Col").Value().CStr());
  // One buffer holding one name and then another must give each its column.
  std::string name = "first_col";
  EXPECT_EQ("one", rs.Fields(name).Value().CStr());
  const char* const buffer = name.data();
  name.assign("second_co");
  name.push_back('l');
  ASSERT_EQ(buffer, name.data());
  EXPECT_EQ("two", rs.Fields(name).Value().CStr());
  name.assign("third_col");
  try {
    rs.Fields(name);
    FAIL() << "a name not in the rowset was found";
  } catch (const Error& e) {
    EXPECT_EQ(errc::kItemNotFound, e.Number());
  }
  rs.Close();
}

// ------------------------------------------------------------ row changes

TEST_F(RecordsetTest, AddNewInsertsOnlyTheColumnsWritten) {
  db().Exec(
      "create table with_defaults (id int not null auto_increment primary key, "
      "name varchar(20) not null default 'anon', qty int not null default 7, "
      "note varchar(20) null, made datetime null)");
  Recordset rs;
  rs.Open("select * from with_defaults", cn(), 2, 3);
  ASSERT_TRUE(rs.Eof());
  rs.AddNew();
  EXPECT_FALSE(rs.Bof());
  EXPECT_FALSE(rs.Eof());
  rs.SetCollect("name", "first");
  // A column not written reads as null while the row is new.
  EXPECT_TRUE(rs.Fields("qty").Value().IsNull());
  EXPECT_EQ("first", rs.Fields("name").Value().CStr());
  rs.Update();
  // The new row is the current row.
  EXPECT_EQ("first", rs.Fields("name").Value().CStr());
  rs.AddNew();
  rs.SetCollect("qty", std::int32_t{3});
  rs.SetCollect("note", "");
  rs.SetCollect("made", Date::FromParts(2026, 11, 22, 13, 45, 10));
  rs.Update();
  rs.Close();
  EXPECT_EQ((std::vector<std::string>{"INSERT INTO " + Table("with_defaults") +
                                          " (`name`) VALUES ('first')",
                                      "INSERT INTO " + Table("with_defaults") +
                                          " (`qty`,`note`,`made`) VALUES (3,'','2026-11-22 "
                                          "13:45:10')"}),
            RowChanges());
  EXPECT_TRUE(Catalog().empty());
  EXPECT_EQ((Rows{{"1", "first", "7", "NULL", "NULL"}, {"2", "anon", "3", "", "2026-11-22 13:45:10"}}),
            db().Rows("select * from with_defaults order by id"));
}

TEST_F(RecordsetTest, AnEditIsFoundByThePrimaryKey) {
  db().Exec("create table keyed (id int not null primary key, name varchar(20) null, qty int null)");
  db().Exec("insert into keyed values (1, 'one', 10), (2, 'two', 20), (3, 'two', 20)");
  Recordset rs;
  rs.Open("select * from keyed where id = 2", cn(), 2, 3);
  rs.SetCollect("name", "zwei");
  rs.SetCollect("qty", std::int32_t{22});
  // The value written reads back before the row is stored.
  EXPECT_EQ("zwei", rs.Fields("name").Value().CStr());
  rs.Update();
  rs.Close();
  EXPECT_EQ((std::vector<std::string>{"SHOW COLUMNS FROM " + Table("keyed")}), Catalog());
  EXPECT_EQ((std::vector<std::string>{"UPDATE " + Table("keyed") +
                                      " SET `name`='zwei',`qty`=22 WHERE `id` <=> 2 LIMIT 1"}),
            RowChanges());
  EXPECT_EQ((Rows{{"1", "one", "10"}, {"2", "zwei", "22"}, {"3", "two", "20"}}),
            db().Rows("select * from keyed order by id"));

  // The table is asked about once per connection.
  Clear();
  rs.Open("select * from keyed where id = 3", cn(), 1, 3);
  rs.SetCollect("qty", std::int32_t{33});
  rs.Update();
  rs.Close();
  EXPECT_TRUE(Catalog().empty());
  EXPECT_EQ((std::vector<std::string>{"UPDATE " + Table("keyed") +
                                      " SET `qty`=33 WHERE `id` <=> 3 LIMIT 1"}),
            RowChanges());
}

TEST_F(RecordsetTest, AnEditOfAKeylessTableIsFoundByAllOriginalValuesNullSafe) {
  db().Exec("create table keyless (a varchar(10) null, b int null, c datetime null)");
  db().Exec("insert into keyless values ('x', null, null), ('x', 1, null), ('x', null, '2026-01-02')");
  Recordset rs;
  rs.Open("select * from keyless where b is null and c is null", cn(), 2, 3);
  rs.SetCollect("a", "y");
  rs.Update();
  rs.Close();
  EXPECT_EQ((std::vector<std::string>{"UPDATE " + Table("keyless") +
                                      " SET `a`='y' WHERE BINARY `a` <=> _binary'x' AND `b` <=> NULL AND "
                                      "`c` <=> NULL LIMIT 1"}),
            RowChanges());
  EXPECT_EQ((Rows{{"x", "NULL", "2026-01-02 00:00:00"}, {"x", "1", "NULL"}, {"y", "NULL", "NULL"}}),
            db().Rows("select * from keyless order by a, b, c"));
}

TEST_F(RecordsetTest, AnEditOfAKeylessRowFindsADoubleTheServerPrintsShort) {
  // 0.1 + 0.2 is 0.30000000000000004; the server sends it as "0.3". The row
  // read is still the row changed, and the one deleted.
  db().Exec("create table money (a varchar(10) null, m double null)");
  db().Exec("insert into money values ('edit', 0.1 + 0.2), ('delete', 0.1 + 0.2)");
  Recordset rs;
  rs.Open("select * from money where a = 'edit'", cn(), 2, 3);
  EXPECT_EQ(Variant(0.3), rs.Fields("m").Value());
  rs.SetCollect("a", "edited");
  rs.Update();
  rs.Close();
  rs.Open("select * from money where a = 'delete'", cn(), 1, 2);
  rs.Delete(1);
  rs.Close();
  EXPECT_EQ((Rows{{"edited"}}), db().Rows("select a from money"));
}

TEST_F(RecordsetTest, AnEditOfOneOfTwoIdenticalRowsChangesOneRow) {
  db().Exec("create table twins (a varchar(10) null, b int null)");
  db().Exec("insert into twins values ('x', 1), ('x', 1)");
  Recordset rs;
  rs.Open("select * from twins", cn(), 2, 3);
  rs.SetCollect("b", std::int32_t{2});
  rs.Update();
  rs.Close();
  EXPECT_EQ((std::vector<std::string>{"UPDATE " + Table("twins") +
                                      " SET `b`=2 WHERE BINARY `a` <=> _binary'x' AND `b` <=> 1 LIMIT 1"}),
            RowChanges());
  EXPECT_EQ((Rows{{"x", "1"}, {"x", "2"}}), db().Rows("select * from twins order by b"));
}

TEST_F(RecordsetTest, AnEditComparesTextByItsBytes) {
  // 'x' and 'X ' are equal to the column's collation; only the row read is
  // changed.
  db().Exec("create table cases (a varchar(10) null, b int null)");
  db().Exec("insert into cases values ('X ', 1), ('x', 1)");
  Recordset rs;
  rs.Open("select * from cases where a = binary 'x'", cn(), 2, 3);
  rs.SetCollect("b", std::int32_t{2});
  rs.Update();
  rs.Close();
  EXPECT_EQ((Rows{{"[X ]", "1"}, {"[x]", "2"}}),
            db().Rows("select concat('[', a, ']'), b from cases order by b"));
}

TEST_F(RecordsetTest, ADeleteComparesTextByItsBytes) {
  // As above: of two rows equal to the column's collation, only the row read
  // goes.
  db().Exec("create table cases (a varchar(10) null, b int null)");
  db().Exec("insert into cases values ('X ', 1), ('x', 1)");
  Recordset rs;
  rs.Open("select * from cases where a = binary 'x'", cn(), 2, 3);
  rs.Delete(1);
  rs.Close();
  EXPECT_EQ((Rows{{"[X ]", "1"}}), db().Rows("select concat('[', a, ']'), b from cases"));
}

TEST_F(RecordsetTest, DeleteRemovesOneOfSeveralIdenticalRows) {
  db().Exec("create table twins (a varchar(10) null, b int null)");
  db().Exec("insert into twins values ('x', 1), ('x', 1), ('x', 1)");
  Recordset rs;
  rs.Open("select * from twins", cn(), 1, 2);
  rs.Delete(1);
  EXPECT_EQ(2, db().Count("twins"));
  // The deleted row can no longer be read; the next one can.
  EXPECT_EQ(errc::kRowDeleted, ErrorNumberOf([&] { rs.Fields("a").Value(); }));
  rs.MoveNext();
  EXPECT_EQ("x", rs.Fields("a").Value().CStr());
  rs.Close();
  EXPECT_EQ((std::vector<std::string>{"SHOW COLUMNS FROM " + Table("twins")}), Catalog());
  EXPECT_EQ((std::vector<std::string>{"DELETE FROM " + Table("twins") +
                                      " WHERE BINARY `a` <=> _binary'x' AND `b` <=> 1 LIMIT 1"}),
            RowChanges());
  EXPECT_EQ(2, db().Count("twins"));
}

TEST_F(RecordsetTest, DeleteByThePrimaryKey) {
  db().Exec("insert into t_bordertype values ('A'), ('B')");
  Recordset rs;
  rs.Open("select * from T_BOrderType where F_OrderType = 'B'", cn(), 2, 3);
  rs.Delete(1);
  rs.Close();
  EXPECT_EQ((std::vector<std::string>{"DELETE FROM " + Table("t_bordertype") +
                                      " WHERE `F_OrderType` <=> 'B' LIMIT 1"}),
            RowChanges());
  EXPECT_EQ((Rows{{"A"}}), db().Rows("select * from t_bordertype"));
}

TEST_F(RecordsetTest, UnderBatchOptimisticLockingDeleteWaitsForUpdateBatch) {
  db().Exec("insert into t_bordertype values ('A'), ('B')");
  Recordset rs;
  rs.Open("select * from T_BOrderType where F_OrderType = 'A'", cn(), 1, 4);
  rs.Delete(1);
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(2, db().Count("t_bordertype"));
  rs.UpdateBatch(3);
  EXPECT_EQ((std::vector<std::string>{"DELETE FROM " + Table("t_bordertype") +
                                      " WHERE `F_OrderType` <=> 'A' LIMIT 1"}),
            RowChanges());
  EXPECT_EQ((Rows{{"B"}}), db().Rows("select * from t_bordertype"));
  rs.Close();
}

TEST_F(RecordsetTest, UnderBatchOptimisticLockingAnEditWaitsForUpdateBatch) {
  db().Exec("insert into t_bordertype values ('A')");
  Recordset rs;
  rs.Open("select * from T_BOrderType", cn(), 1, 4);
  rs.SetCollect("F_OrderType", "B");
  rs.Update();
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ((Rows{{"A"}}), db().Rows("select * from t_bordertype"));
  rs.UpdateBatch(3);
  EXPECT_EQ((Rows{{"B"}}), db().Rows("select * from t_bordertype"));
  rs.Close();
}

TEST_F(RecordsetTest, ABatchNotSentIsDroppedWithTheRecordset) {
  db().Exec("insert into t_bordertype values ('A')");
  {
    Recordset rs;
    rs.Open("select * from T_BOrderType", cn(), 1, 4);
    rs.Delete(1);
    rs.Close();
  }
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(1, db().Count("t_bordertype"));
}

TEST_F(RecordsetTest, UpdateWithNothingPendingSendsNothing) {
  db().Exec("insert into t_bordertype values ('A')");
  Recordset rs;
  rs.Open("select * from T_BOrderType", cn(), 2, 3);
  Clear();
  rs.Update();
  rs.Update();
  rs.UpdateBatch(3);
  rs.Close();
  EXPECT_TRUE(Sent().empty());
  EXPECT_EQ((Rows{{"A"}}), db().Rows("select * from t_bordertype"));
}

TEST_F(RecordsetTest, ReleasingAnOpenRecordsetStoresNoPendingRow) {
  db().Exec("insert into t_bordertype values ('A')");
  {
    Recordset rs;
    rs.Open("select * from T_BOrderType", cn(), 2, 3);
    rs.AddNew();
    rs.SetCollect("F_OrderType", "New");
  }
  {
    Recordset rs;
    rs.Open("select * from T_BOrderType", cn(), 2, 3);
    rs.SetCollect("F_OrderType", "Changed");
  }
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ((Rows{{"A"}}), db().Rows("select * from t_bordertype"));
  // The connection is free for the next statement.
  Recordset next;
  next.Open("select count(*) as n from T_BOrderType", cn());
  EXPECT_EQ(1, next.Fields("n").Value().CInt());
  next.Close();
}

TEST_F(RecordsetTest, MoveNextStoresAPendingEdit) {
  db().Exec("insert into t_bordertype values ('A'), ('B')");
  Recordset rs;
  rs.Open("select * from T_BOrderType order by F_OrderType", cn(), 2, 3);
  rs.SetCollect("F_OrderType", "A2");
  rs.MoveNext();
  EXPECT_EQ("B", rs.Fields("F_OrderType").Value().CStr());
  rs.Close();
  EXPECT_EQ((Rows{{"A2"}, {"B"}}), db().Rows("select * from t_bordertype order by 1"));
}

// ------------------------------------------------------------ streaming

TEST_F(RecordsetTest, AStreamingRecordsetSurvivesAnotherStatementOnItsConnection) {
  MakeBig(20000);
  Recordset first;
  first.Open("select * from big order by id", cn());
  std::vector<int> ids;
  for (int i = 0; i < 5; ++i) {
    ids.push_back(first.Fields("id").Value().CLng());
    first.MoveNext();
  }
  // Another statement on the same connection, through a second recordset.
  Recordset second;
  second.Open("select count(*) as n from big", cn());
  EXPECT_EQ(20000.0, second.Fields("n").Value().CDbl());
  second.Close();
  Recordset third;
  third.Open("insert into big values (20001, 'late')", cn());
  EXPECT_EQ(0, third.State());
  // The first one goes on where it was, to the end, in order.
  while (!first.Eof()) {
    ids.push_back(first.Fields("id").Value().CLng());
    EXPECT_EQ("row" + std::to_string(ids.back()), first.Fields("v").Value().CStr());
    first.MoveNext();
  }
  first.Close();
  ASSERT_EQ(20000u, ids.size());
  for (int i = 0; i < 20000; ++i) ASSERT_EQ(i + 1, ids[i]);
  EXPECT_EQ(20001, db().Count("big"));
}

TEST_F(RecordsetTest, AConnectionLostUnderStreamingRowsFailsTheRead) {
  MakeBig(200000);
  Recordset id;
  id.Open("select connection_id() as id", cn());
  const std::string connection = id.Fields("id").Value().CStr();
  id.Close();
  Recordset rs;
  rs.Open("select * from big order by id", cn());
  ASSERT_FALSE(rs.Eof());
  db().Exec("KILL " + connection);
  std::optional<Error> failure;
  int rows = 0;
  try {
    while (!rs.Eof()) {
      rs.MoveNext();
      ++rows;
    }
  } catch (const Error& e) {
    failure = e;
  }
  // Rows already on their way may arrive; the rest is a failure, not an end.
  ASSERT_TRUE(failure.has_value()) << "the read ended quietly after " << rows << " rows";
  EXPECT_EQ(errc::kProvider, failure->Number());
  EXPECT_LT(rows, 200000);
}

TEST_F(RecordsetTest, TwoStreamingRecordsetsReadInTurn) {
  MakeBig(3000);
  Recordset a;
  Recordset b;
  a.Open("select id from big order by id", cn());
  b.Open("select id from big order by id desc", cn());
  long long sum_a = 0, sum_b = 0;
  int n_a = 0, n_b = 0;
  while (!a.Eof() || !b.Eof()) {
    if (!a.Eof()) {
      sum_a += a.Fields("id").Value().CLng();
      ++n_a;
      a.MoveNext();
    }
    if (!b.Eof()) {
      EXPECT_EQ(3000 - n_b, b.Fields("id").Value().CLng());
      sum_b += b.Fields("id").Value().CLng();
      ++n_b;
      b.MoveNext();
    }
  }
  EXPECT_EQ(3000, n_a);
  EXPECT_EQ(3000, n_b);
  EXPECT_EQ(3000LL * 3001 / 2, sum_a);
  EXPECT_EQ(sum_a, sum_b);
}

TEST_F(RecordsetTest, AnEditWhileStreamingKeepsTheRowsToCome) {
  MakeBig(5000);
  Recordset rs;
  rs.Open("select * from big order by id", cn(), 2, 3);
  rs.SetCollect("v", "first");
  rs.Update();
  int n = 0;
  while (!rs.Eof()) {
    ++n;
    rs.MoveNext();
  }
  rs.Close();
  EXPECT_EQ(5000, n);
  EXPECT_EQ("first", db().Scalar("select v from big where id = 1"));
}

TEST_F(RecordsetTest, AddNewOnAStreamedWholeTable) {
  MakeBig(20000);
  Recordset rs;
  rs.Open("select * from big", cn(), 2, 3);
  EXPECT_FALSE(rs.Eof());
  rs.AddNew();
  rs.SetCollect("id", std::int32_t{20001});
  rs.SetCollect("v", "added");
  rs.Update();
  EXPECT_EQ(20001, rs.Fields("id").Value().CLng());
  rs.Close();
  EXPECT_EQ((std::vector<std::string>{"INSERT INTO " + Table("big") +
                                      " (`id`,`v`) VALUES (20001,'added')"}),
            RowChanges());
  EXPECT_EQ(20001, db().Count("big"));
  EXPECT_EQ("added", db().Scalar("select v from big where id = 20001"));
  // The connection is usable at once.
  Recordset next;
  next.Open("select count(*) as n from big", cn());
  EXPECT_EQ(20001.0, next.Fields("n").Value().CDbl());
  next.Close();
}

TEST_F(RecordsetTest, ReleasingAStreamingRecordsetFreesTheConnection) {
  MakeBig(20000);
  {
    Recordset rs;
    rs.Open("select * from big", cn());
    rs.MoveNext();
  }
  Recordset next;
  next.Open("select count(*) as n from big", cn());
  EXPECT_EQ(20000.0, next.Fields("n").Value().CDbl());
  next.Close();
}

TEST_F(RecordsetTest, RecordCountWithTheClientSideCursorOnly) {
  MakeBig(250);
  Recordset server_side;
  server_side.Open("select * from big", cn(), 1, 2);
  EXPECT_EQ(-1, server_side.RecordCount());
  server_side.Close();

  Recordset client_side;
  client_side.SetCursorLocation(Recordset::kUseClient);
  EXPECT_EQ(Recordset::kUseClient, client_side.CursorLocation());
  client_side.Open("select * from big", cn(), 1, 2);
  EXPECT_EQ(250, client_side.RecordCount());
  client_side.MoveNext();
  EXPECT_EQ(250, client_side.RecordCount());
  client_side.Close();
  client_side.Open("select * from big where id > 1000", cn(), 1, 2);
  EXPECT_EQ(0, client_side.RecordCount());
  EXPECT_TRUE(client_side.Eof());
  client_side.Close();
}

// ------------------------------------------------------------ reading values

TEST_F(RecordsetTest, ReadsEachKindOfColumn) {
  db().Exec(
      "create table kinds (id int not null primary key, d date null, dt datetime null, t time null, "
      "dbl double null, si smallint null, i int null, bi bigint null, dec2 decimal(10,2) null, "
      "txt varchar(20) null, n varchar(20) null, zd date null, zdt datetime null, ti tinyint null)");
  db().Exec(
      "insert into kinds values (1, '2026-11-22', '2026-11-22 13:45:10', '13:45:10', 12.5, -5, "
      "123456, 20261122001, 1234.56, '中文 text', null, '0000-00-00', '0000-00-00 00:00:00', 7)");
  Recordset rs;
  rs.Open("select * from kinds", cn());
  const Variant d = rs.Fields("d").Value();
  EXPECT_EQ(Variant::Type::kDate, d.type());
  EXPECT_EQ(Date::FromParts(2026, 11, 22), d.CDate());
  const Variant dt = rs.Fields("dt").Value();
  EXPECT_EQ(Variant::Type::kDate, dt.type());
  EXPECT_EQ("2026-11-22 13:45:10", dt.CStr());
  const Variant t = rs.Fields("t").Value();
  EXPECT_EQ(Variant::Type::kDate, t.type());
  EXPECT_EQ("1899-12-30 13:45:10", t.CStr());
  EXPECT_NEAR((13 * 3600 + 45 * 60 + 10) / 86400.0, t.CDate().Serial(), 1e-9);
  EXPECT_EQ(Variant(12.5), rs.Fields("dbl").Value());
  EXPECT_EQ(Variant(std::int16_t{-5}), rs.Fields("si").Value());
  EXPECT_EQ(Variant(std::int16_t{7}), rs.Fields("ti").Value());
  EXPECT_EQ(Variant(std::int32_t{123456}), rs.Fields("i").Value());
  EXPECT_EQ(Variant(20261122001.0), rs.Fields("bi").Value());
  EXPECT_EQ("20261122001", rs.Fields("bi").Value().CStr());
  EXPECT_EQ(Variant(1234.56), rs.Fields("dec2").Value());
  EXPECT_EQ(Variant(std::string("中文 text")), rs.Fields("txt").Value());
  EXPECT_TRUE(rs.Fields("n").Value().IsNull());
  // The zero date of the server reads as null.
  EXPECT_TRUE(rs.Fields("zd").Value().IsNull());
  EXPECT_TRUE(rs.Fields("zdt").Value().IsNull());
  rs.Close();

  // count(*) is a BIGINT, and reads as a number.
  rs.Open("select count(*) from kinds", cn());
  const Variant count = rs.Fields("count(*)").Value();
  EXPECT_EQ(Variant::Type::kDouble, count.type());
  EXPECT_EQ(1, count.CInt());
  rs.Close();
}

TEST_F(RecordsetTest, WritesEachKindOfColumnAndReadsItBack) {
  db().Exec(
      "create table kinds (id int not null primary key, d date null, dt datetime null, "
      "dbl double null, si smallint null, txt varchar(20) null, n varchar(20) null)");
  Recordset rs;
  rs.Open("select * from kinds", cn(), 2, 3);
  rs.AddNew();
  rs.SetCollect("id", std::int16_t{1});
  rs.SetCollect("d", Date::FromParts(2026, 11, 22, 13, 45, 10));  // a DATE keeps the day
  rs.SetCollect("dt", Date());                                    // the zero date as it is
  rs.SetCollect("dbl", 20261122001.0);
  rs.SetCollect("si", "12");
  rs.SetCollect("txt", "O'Brien \\ 中");
  rs.SetCollect("n", Variant::Null());
  rs.Update();
  rs.Close();
  EXPECT_EQ((Rows{{"1", "2026-11-22", "1899-12-30 00:00:00", "20261122001", "12",
                   "O'Brien \\ 中", "NULL"}}),
            db().Rows("select * from kinds"));
}

}  // namespace
}  // namespace corvane
