// The repository frame against the sandbox server, through a small repository
// class of its own over a scratch table: the method guard with its three
// reports, the reset before or after the report, the failure values, the NZ
// read forms on real null columns, the collection fill, the open modes, the
// state rs carries from one call to the next, construction, and the text of
// numbers and dates in real statements.
#include "corvane/frame/repository.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "corvane/frame/collection.h"
#include "corvane/frame/date.h"
#include "corvane/frame/error.h"
#include "corvane/frame/host.h"
#include "corvane/frame/report.h"
#include "corvane/frame/text.h"
#include "corvane/frame/variant.h"
#include "tests/support/sandbox.h"

namespace corvane {

namespace {

using ::corvane::testing::AlertReport;
using ::corvane::testing::LengthReport;
using ::corvane::testing::PlainReport;
using ::corvane::testing::SandboxTest;
using Rows = std::vector<std::vector<std::string>>;
using Strings = std::vector<std::string>;

// A row of t_probe.
struct clsEntProbe {
  std::int32_t ID = 0;
  std::string Name;
  double Amount = 0;
  std::int16_t Small = 0;
  std::int32_t Whole = 0;
  Date When;
};

// The type a read converts to.
enum class Kind { kStr, kR8, kI2, kI4, kDate };

Variant Convert(const Variant& v, Kind kind) {
  switch (kind) {
    case Kind::kStr:
      return v.CStr();
    case Kind::kR8:
      return v.CDbl();
    case Kind::kI2:
      return v.CInt();
    case Kind::kI4:
      return v.CLng();
    case Kind::kDate:
      return v.CDate();
  }
  return Variant();
}

// The open modes, as a method names them.
enum class Mode { kReadOpen, kOpen, kKeysetEdit, kKeysetEditByReadOpen, kKeysetEditWithDefaults };

// A repository of the probe table t_probe, written as the system's
// repositories are.
class clsDataBProbe : private Repository {
 public:
  clsDataBProbe() = default;

  // Reads Column of row ID by the NZ read with Fallback, converted to kind.
  // 1 found, 0 no row, 2 failure.
  std::int16_t QueryNz(std::int32_t ID, const std::string& Column, const Variant& Fallback,
                       Kind kind, Handling handling, Variant& Value) {
    std::int16_t result = 0;
    Guard(handling, [&] {
      ReadOpen("select * from t_probe where F_ID = " + Text(ID));
      if (NoRow()) {
        rs().Close();
        return;
      }
      Value = Convert(Nz(Column, Fallback), kind);
      rs().Close();
      result = 1;
    }, [&] { result = 2; });
    return result;
  }

  // The same with the fallback written as the text "" in the read itself, as
  // the repositories write their text reads.
  std::int16_t QueryNzText(std::int32_t ID, const std::string& Column, Kind kind,
                           Variant& Value) {
    std::int16_t result = 0;
    Guard(kPlainReport, [&] {
      ReadOpen("select * from t_probe where F_ID = " + Text(ID));
      if (NoRow()) {
        rs().Close();
        return;
      }
      Value = Convert(Nz(Column, ""), kind);
      rs().Close();
      result = 1;
    }, [&] { result = 2; });
    return result;
  }

  // Writes Name into row ID by keyset-edit and reads F_Name back by the NZ
  // read before the row is stored, then stores it. 1 done, 2 failure.
  std::int16_t RenameAndReadBack(std::int32_t ID, const std::string& Name, std::string& Read) {
    std::int16_t result = 0;
    Guard(kPlainReport, [&] {
      KeysetEdit("select * from t_probe where F_ID = " + Text(ID));
      Write("F_Name", Name);
      Read = Nz("F_Name", "").CStr();
      rs().Update();
      rs().Close();
      result = 1;
    }, [&] { result = 2; });
    return result;
  }

  // The NZ read where the null test and the value name different columns.
  std::int16_t QueryNzOf(std::int32_t ID, const std::string& TestColumn,
                         const std::string& ValueColumn, const Variant& Fallback, Kind kind,
                         Variant& Value) {
    std::int16_t result = 0;
    Guard(kPlainReport, [&] {
      ReadOpen("select * from t_probe where F_ID = " + Text(ID));
      if (NoRow()) {
        rs().Close();
        return;
      }
      Value = Convert(Nz(TestColumn, ValueColumn, Fallback), kind);
      rs().Close();
      result = 1;
    }, [&] { result = 2; });
    return result;
  }

  // Reads Column of row ID with no null test. 1 found, 0 no row, 2 failure.
  std::int16_t QueryValue(std::int32_t ID, const std::string& Column, Kind kind, Variant& Value) {
    std::int16_t result = 0;
    Guard(kPlainReport, [&] {
      ReadOpen("select * from t_probe where F_ID = " + Text(ID));
      if (NoRow()) {
        rs().Close();
        return;
      }
      Value = Convert(Value_(Column), kind);
      rs().Close();
      result = 1;
    }, [&] { result = 2; });
    return result;
  }

  // Appends every row to objColl; F_Amount is read with the text "" (a null
  // fails). 1 at least one row, 0 none, 2 failure.
  std::int16_t QueryAll(Collection<clsEntProbe>* objColl, Handling handling = kPlainReport,
                        AddOrder order = AddOrder::kAfterMoveNext) {
    std::int16_t result = 0;
    Guard(handling, [&] {
      ReadOpen("select * from t_probe order by F_ID");
      if (!NoRow()) result = 1;
      FillCollection(objColl, [&](clsEntProbe& e) {
        e.ID = Nz("F_ID", 0).CLng();
        e.Name = Nz("F_Name", "").CStr();
        e.Amount = Nz("F_Amount", "").CDbl();
        e.Small = Nz("F_Small", 0).CInt();
        e.Whole = Nz("F_Whole", 0).CLng();
        e.When = Nz("F_When", 0).CDate();
      }, order);
    }, [&] { result = 2; });
    return result;
  }

  // The add pattern. 1 added, 2 the row exists, 0 failure.
  std::int16_t AddRecord(clsEntProbe& Entity, Handling handling = kLengthReport) {
    std::int16_t result = 0;
    Guard(handling, [&] {
      ReadOpen("select * from t_probe where F_ID = " + Text(Entity.ID));
      if (!NoRow()) {
        result = 2;
        rs().Close();
        return;
      }
      rs().Close();
      Open("select * from t_probe", 2, 3);
      rs().AddNew();
      Write("F_ID", Entity.ID);
      Write("F_Name", Entity.Name);
      Write("F_Amount", Entity.Amount);
      Write("F_Small", Entity.Small);
      Write("F_Whole", Entity.Whole);
      Write("F_When", Entity.When);
      rs().Update();
      rs().Close();
      result = 1;
    }, [&] { result = 0; });
    return result;
  }

  // Renames row ID by a statement. 1 done, 0 failure or nothing.
  std::int16_t UpdateName(std::int32_t ID, const std::string& Name, Handling handling) {
    std::int16_t result = 0;
    Guard(handling, [&] {
      Open("update t_probe set F_Name = '" + Name + "' where F_ID = " + Text(ID), 1, 4);
      ResetRs();
      result = 1;
    }, [&] { result = 0; });
    return result;
  }

  // Two inserts, the second of which may fail: what the first stored stays.
  std::int16_t AddTwo(std::int32_t First, const std::string& SecondSql) {
    std::int16_t result = 0;
    Guard(kPlainReport.ResetFirst(), [&] {
      Open("insert into t_probe (F_ID) values (" + Text(First) + ")", 1, 4);
      Open(SecondSql, 1, 4);
      ResetRs();
      result = 1;
    }, [&] { result = 0; });
    return result;
  }

  // Reads row ID and leaves rs open when it is there. 1 found (rs open),
  // 0 none (rs closed).
  std::int16_t QueryLeaveOpen(std::int32_t ID) {
    std::int16_t result = 0;
    Guard(kPlainReport, [&] {
      ReadOpen("select * from t_probe where F_ID >= " + Text(ID));
      if (NoRow()) {
        rs().Close();
        return;
      }
      result = 1;
    }, [&] { result = 2; });
    return result;
  }

  // Reads the name of row ID over rs as it stands. 1 found, 0 none, 2 failure.
  std::int16_t QueryName(std::int32_t ID, std::string& Name) {
    std::int16_t result = 0;
    Guard(kPlainReport, [&] {
      ReadOpen("select * from t_probe where F_ID = " + Text(ID));
      if (!NoRow()) {
        Name = Nz("F_Name", "").CStr();
        result = 1;
      }
      rs().Close();
    }, [&] { result = 2; });
    return result;
  }

  // The same over a fresh rs.
  std::int16_t QueryNameFresh(std::int32_t ID, std::string& Name) {
    std::int16_t result = 0;
    Guard(kPlainReport, [&] {
      FreshRs();
      ReadOpen("select * from t_probe where F_ID = " + Text(ID));
      if (!NoRow()) {
        Name = Nz("F_Name", "").CStr();
        result = 1;
      }
      rs().Close();
    }, [&] { result = 2; });
    return result;
  }

  // Opens row ID in the mode given (with c and l for open(c,l)), writes
  // F_Name and stores it. Cursor and Lock get what was in force while the
  // row was open. 1 done, 2 failure.
  std::int16_t Rename(Mode mode, std::int32_t ID, const std::string& Name, int& Cursor, int& Lock,
                      int c = 0, int l = 0) {
    std::int16_t result = 0;
    Guard(kPlainReport, [&] {
      const std::string sql = "select * from t_probe where F_ID = " + Text(ID);
      switch (mode) {
        case Mode::kReadOpen:
          ReadOpen(sql);
          break;
        case Mode::kOpen:
          Open(sql, c, l);
          break;
        case Mode::kKeysetEdit:
          KeysetEdit(sql);
          break;
        case Mode::kKeysetEditByReadOpen:
          KeysetEditByReadOpen(sql);
          break;
        case Mode::kKeysetEditWithDefaults:
          KeysetEditWithDefaults(sql);
          break;
      }
      Cursor = rs().CursorType();
      Lock = rs().LockType();
      Write("F_Name", Name);
      rs().Update();
      rs().Close();
      result = 1;
    }, [&] { result = 2; });
    return result;
  }

  // Sets CursorType 1 and LockType 3, then runs a statement that fails. The
  // result is 5 after the failure.
  std::int16_t FailAfterKeysetProperties(Handling handling) {
    std::int16_t result = 0;
    Guard(handling, [&] {
      rs().SetCursorType(1);
      rs().SetLockType(3);
      Open("select * from t_probe where", -1, -1);
      result = 1;
    }, [&] { result = 5; });
    return result;
  }

  // Sets the result, then fails; the guard has no failure value.
  std::int16_t FailAfterSettingResult() {
    std::int16_t result = 0;
    Guard(kPlainReport, [&] {
      result = 7;
      ReadOpen("select * from t_nothing");
      result = 1;
    });
    return result;
  }

  // A failure that is no corvane::Error.
  std::int16_t FailForeign() {
    std::int16_t result = 0;
    Guard(kAlertReport, [&] { throw std::runtime_error("something else went wrong"); },
          [&] { result = 9; });
    return result;
  }

  // Looks up an order header by its number, in quotes and without. 1 found,
  // 0 none, 2 failure.
  std::int16_t QueryOrderNo(double OrderNo, bool Quoted) {
    std::int16_t result = 0;
    Guard(kPlainReport, [&] {
      if (Quoted) {
        ReadOpen("select * from T_BOrderh where F_OrderNo= '" + Text(OrderNo) + "'");
      } else {
        ReadOpen("select * from T_BOrderh where F_OrderNo=" + Text(OrderNo));
      }
      if (!NoRow()) result = 1;
      rs().Close();
    }, [&] { result = 2; });
    return result;
  }

  // The row whose F_When is When. 1 found, 0 none, 2 failure.
  std::int16_t QueryByWhen(const Date& When, std::int32_t& ID) {
    std::int16_t result = 0;
    Guard(kPlainReport, [&] {
      ReadOpen("select * from t_probe where F_When = '" + Text(When) + "'");
      if (!NoRow()) {
        ID = Nz("F_ID", 0).CLng();
        result = 1;
      }
      rs().Close();
    }, [&] { result = 2; });
    return result;
  }

  // What the next use of rs sees.
  int RsState() { return rs().State(); }
  int CursorTypeNow() { return rs().CursorType(); }
  int LockTypeNow() { return rs().LockType(); }

 private:
  Variant Value_(const std::string& column) { return Value(column); }
};

class RepositoryTest : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    db().Exec(
        "create table t_probe (F_ID int not null primary key, F_Name varchar(10) null, "
        "F_Amount double null, F_Small smallint null, F_Whole int null, F_When datetime null)");
    // Row 1: every column null. Row 2: every column set.
    db().Exec(
        "insert into t_probe values (1, null, null, null, null, null), "
        "(2, 'two', 12.5, -7, 70000, '2026-11-22 13:45:10')");
  }
};

std::string Sel(int id) { return "select * from t_probe where F_ID = " + std::to_string(id); }

// ------------------------------------------------------------ the NZ read forms

struct NzForm {
  const char* what;
  const char* column;
  Variant fallback;
  Kind kind;
  Variant expected;  // empty: the read fails with type mismatch
};

TEST_F(RepositoryTest, NzReadFormsOnNullColumns) {
  const std::vector<NzForm> forms = {
      {"Str \"\"", "F_Name", "", Kind::kStr, std::string("")},
      {"R8 0", "F_Amount", std::int32_t{0}, Kind::kR8, 0.0},
      {"I2 0", "F_Small", std::int32_t{0}, Kind::kI2, std::int16_t{0}},
      {"I4 0", "F_Whole", std::int32_t{0}, Kind::kI4, std::int32_t{0}},
      {"R8 \"0\"", "F_Amount", "0", Kind::kR8, 0.0},
      {"I2 \"0\"", "F_Small", "0", Kind::kI2, std::int16_t{0}},
      {"Date 0", "F_When", std::int32_t{0}, Kind::kDate, Date()},
      {"Date \"0:00:00\"", "F_When", "0:00:00", Kind::kDate, Date()},
      {"Str 0", "F_Name", std::int32_t{0}, Kind::kStr, std::string("0")},
      {"Str \"0\"", "F_Name", "0", Kind::kStr, std::string("0")},
      {"I2 5", "F_Small", std::int32_t{5}, Kind::kI2, std::int16_t{5}},
      {"I2 \"5\"", "F_Small", "5", Kind::kI2, std::int16_t{5}},
      {"R8 \"\"", "F_Amount", "", Kind::kR8, Variant()},
      {"I2 \"\"", "F_Small", "", Kind::kI2, Variant()},
      {"I4 \"\"", "F_Whole", "", Kind::kI4, Variant()},
      {"Date \"\"", "F_When", "", Kind::kDate, Variant()},
      {"Date \"0\"", "F_When", "0", Kind::kDate, Variant()},
  };
  for (const NzForm& f : forms) {
    SCOPED_TRACE(f.what);
    Clear();
    clsDataBProbe probe;
    Variant value = "untouched";
    const std::int16_t result = probe.QueryNz(1, f.column, f.fallback, f.kind, kPlainReport, value);
    EXPECT_EQ(Strings{Sel(1)}, Commands());
    if (f.expected.IsEmpty()) {
      EXPECT_EQ(2, result);
      EXPECT_EQ(Variant("untouched"), value);
      EXPECT_EQ(std::vector<Report>{PlainReport("Type mismatch")}, Reports());
    } else {
      EXPECT_EQ(1, result);
      EXPECT_EQ(f.expected, value);
      EXPECT_TRUE(Reports().empty());
    }
  }
}

TEST_F(RepositoryTest, NzReadOfAValueIgnoresTheFallback) {
  const std::vector<NzForm> forms = {
      {"Str", "F_Name", "", Kind::kStr, std::string("two")},
      {"Str 0", "F_Name", std::int32_t{0}, Kind::kStr, std::string("two")},
      {"R8", "F_Amount", "", Kind::kR8, 12.5},
      {"I2", "F_Small", "", Kind::kI2, std::int16_t{-7}},
      {"I2 5", "F_Small", std::int32_t{5}, Kind::kI2, std::int16_t{-7}},
      {"I4", "F_Whole", "", Kind::kI4, std::int32_t{70000}},
      {"Date", "F_When", "0", Kind::kDate, Date::FromParts(2026, 11, 22, 13, 45, 10)},
      {"R8 as text", "F_Amount", "", Kind::kStr, std::string("12.5")},
  };
  clsDataBProbe probe;
  for (const NzForm& f : forms) {
    SCOPED_TRACE(f.what);
    Variant value;
    EXPECT_EQ(1, probe.QueryNz(2, f.column, f.fallback, f.kind, kPlainReport, value));
    EXPECT_EQ(f.expected, value);
  }
  EXPECT_TRUE(Reports().empty());
}

TEST_F(RepositoryTest, NzReadWithATextFallbackInTheReadIsTheReadWithTheValue) {
  // Row 1 holds nulls (the fallback stands), row 2 values (it does not).
  for (const std::int32_t id : {1, 2}) {
    for (const char* column : {"F_Name", "F_Amount", "F_Small", "F_Whole", "F_When"}) {
      for (const Kind kind : {Kind::kStr, Kind::kR8, Kind::kI2, Kind::kI4, Kind::kDate}) {
        SCOPED_TRACE(std::string(column) + " of row " + std::to_string(id) + " as kind " +
                     std::to_string(static_cast<int>(kind)));
        Clear();
        clsDataBProbe by_value, by_text;
        Variant with_value = "untouched", with_text = "untouched";
        const std::int16_t expected = by_value.QueryNz(id, column, "", kind, kPlainReport, with_value);
        const std::vector<Report> expected_reports = Reports();
        Clear();
        EXPECT_EQ(expected, by_text.QueryNzText(id, column, kind, with_text));
        EXPECT_EQ(with_value, with_text);
        EXPECT_EQ(expected_reports, Reports());
      }
    }
  }
  // The case the table above must hold at least once each way.
  clsDataBProbe probe;
  Variant value;
  Clear();
  EXPECT_EQ(1, probe.QueryNzText(1, "F_Name", Kind::kStr, value));
  EXPECT_EQ(Variant(std::string()), value);
  EXPECT_EQ(2, probe.QueryNzText(1, "F_Amount", Kind::kR8, value));
  EXPECT_EQ(std::vector<Report>{PlainReport("Type mismatch")}, Reports());
}

TEST_F(RepositoryTest, NzReadOfAWrittenColumnBeforeUpdateGivesTheWrittenValue) {
  clsDataBProbe probe;
  std::string read;
  EXPECT_EQ(1, probe.RenameAndReadBack(2, "renamed", read));
  EXPECT_EQ("renamed", read);
  EXPECT_EQ(1, probe.RenameAndReadBack(1, "first", read));
  EXPECT_EQ("first", read);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((std::vector<std::vector<std::string>>{{"1", "first"}, {"2", "renamed"}}),
            db().Rows("select F_ID, F_Name from t_probe order by F_ID"));
}

TEST_F(RepositoryTest, NzReadFailureInEachReport) {
  clsDataBProbe probe;
  Variant value;
  EXPECT_EQ(2, probe.QueryNz(1, "F_Amount", "", Kind::kR8, kLengthReport, value));
  EXPECT_EQ(2, probe.QueryNz(1, "F_When", "0", Kind::kDate, kAlertReport, value));
  EXPECT_EQ(2, probe.QueryNz(1, "F_Whole", "", Kind::kI4, kPlainReport.ResetFirst(), value));
  EXPECT_EQ((std::vector<Report>{PlainReport("Type mismatch"), AlertReport("Type mismatch"),
                                 PlainReport("Type mismatch")}),
            Reports());
  // Each failure reset rs: the next call works.
  EXPECT_EQ(1, probe.QueryNz(1, "F_Amount", "0", Kind::kR8, kPlainReport, value));
  EXPECT_EQ(Variant(0.0), value);
  EXPECT_EQ((Strings{Sel(1), Sel(1), Sel(1), Sel(1)}), Commands());
}

TEST_F(RepositoryTest, NzReadWithTwoColumnNames) {
  db().Exec("insert into t_probe values (3, 'three', null, null, null, null)");
  clsDataBProbe probe;
  Variant value;
  // F_Name is null in row 1: the fallback, whatever F_Amount holds.
  EXPECT_EQ(1, probe.QueryNzOf(1, "F_Name", "F_Amount", std::int32_t{4}, Kind::kR8, value));
  EXPECT_EQ(Variant(4.0), value);
  // F_Name is set in row 2: F_Amount's value.
  EXPECT_EQ(1, probe.QueryNzOf(2, "F_Name", "F_Amount", std::int32_t{4}, Kind::kR8, value));
  EXPECT_EQ(Variant(12.5), value);
  // F_Name is set in row 3 and F_Amount is null: the null goes to the
  // conversion, which fails.
  EXPECT_EQ(2, probe.QueryNzOf(3, "F_Name", "F_Amount", std::int32_t{4}, Kind::kR8, value));
  EXPECT_EQ(std::vector<Report>{PlainReport("Invalid use of Null")}, Reports());
}

TEST_F(RepositoryTest, AReadWithNoNullTestFailsOnNull) {
  clsDataBProbe probe;
  for (const auto& [column, kind] : std::vector<std::pair<std::string, Kind>>{
           {"F_Name", Kind::kStr},
           {"F_Amount", Kind::kR8},
           {"F_Small", Kind::kI2},
           {"F_Whole", Kind::kI4},
           {"F_When", Kind::kDate}}) {
    SCOPED_TRACE(column);
    Clear();
    Variant value = "untouched";
    EXPECT_EQ(2, probe.QueryValue(1, column, kind, value));
    EXPECT_EQ(Variant("untouched"), value);
    EXPECT_EQ(std::vector<Report>{PlainReport("Invalid use of Null")}, Reports());
    EXPECT_EQ(Strings{Sel(1)}, Commands());
  }
  Variant value;
  EXPECT_EQ(1, probe.QueryValue(2, "F_Whole", Kind::kI4, value));
  EXPECT_EQ(Variant(std::int32_t{70000}), value);
  // A value that does not fit the target overflows.
  Clear();
  EXPECT_EQ(2, probe.QueryValue(2, "F_Whole", Kind::kI2, value));
  EXPECT_EQ(std::vector<Report>{PlainReport("Overflow")}, Reports());
}

TEST_F(RepositoryTest, AnUnknownColumnIsReported) {
  clsDataBProbe probe;
  Variant value;
  EXPECT_EQ(2, probe.QueryNz(2, "F_Nothing", "", Kind::kStr, kAlertReport, value));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ(16, Reports()[0].style);
  EXPECT_EQ("错误提示", Reports()[0].title);
  EXPECT_EQ(0u, Reports()[0].text.find("Item cannot be found in the collection"));
}

// ------------------------------------------------------------ the collection fill

TEST_F(RepositoryTest, CollectionFillAppendsToWhatTheCallerPassed) {
  db().Exec("update t_probe set F_Amount = 0 where F_ID = 1");
  Collection<clsEntProbe> coll;
  auto mine = std::make_shared<clsEntProbe>();
  mine->Name = "mine";
  coll.Add(mine);
  clsDataBProbe probe;
  EXPECT_EQ(1, probe.QueryAll(&coll));
  ASSERT_EQ(3u, coll.Count());
  EXPECT_EQ("mine", coll.Item(1).Name);
  EXPECT_EQ(1, coll.Item(2).ID);
  EXPECT_EQ("", coll.Item(2).Name);
  EXPECT_EQ(0.0, coll.Item(2).Amount);
  EXPECT_EQ(0, coll.Item(2).Small);
  EXPECT_EQ(0, coll.Item(2).Whole);
  EXPECT_EQ(Date(), coll.Item(2).When);
  EXPECT_EQ(2, coll.Item(3).ID);
  EXPECT_EQ("two", coll.Item(3).Name);
  EXPECT_EQ(12.5, coll.Item(3).Amount);
  EXPECT_EQ(-7, coll.Item(3).Small);
  EXPECT_EQ(70000, coll.Item(3).Whole);
  EXPECT_EQ(Date::FromParts(2026, 11, 22, 13, 45, 10), coll.Item(3).When);
  // Each row got its own entity.
  EXPECT_NE(&coll.Item(2), &coll.Item(3));
  EXPECT_EQ(0, probe.RsState());  // closed after the loop
  // A second fill appends again.
  EXPECT_EQ(1, probe.QueryAll(&coll, kPlainReport, Repository::AddOrder::kBeforeMoveNext));
  ASSERT_EQ(5u, coll.Count());
  EXPECT_EQ(1, coll.Item(4).ID);
  EXPECT_EQ(2, coll.Item(5).ID);
  EXPECT_EQ(0, probe.RsState());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Strings{"select * from t_probe order by F_ID", "select * from t_probe order by F_ID"}),
            Commands());
}

TEST_F(RepositoryTest, AnEmptyResultLeavesTheCollectionAsItWasAndClosesTheRecordset) {
  db().Exec("delete from t_probe");
  Collection<clsEntProbe> coll;
  coll.Add(std::make_shared<clsEntProbe>());
  clsDataBProbe probe;
  EXPECT_EQ(0, probe.QueryAll(&coll));
  EXPECT_EQ(1u, coll.Count());
  EXPECT_EQ(0, probe.RsState());
  // With no rows a null collection is not touched.
  EXPECT_EQ(0, probe.QueryAll(nullptr));
  EXPECT_EQ(0, probe.RsState());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(RepositoryTest, ANullCollectionFailsOnTheFirstRow) {
  db().Exec("update t_probe set F_Amount = 0 where F_ID = 1");
  clsDataBProbe probe;
  EXPECT_EQ(2, probe.QueryAll(nullptr));
  EXPECT_EQ(std::vector<Report>{PlainReport("Object required")}, Reports());
  EXPECT_EQ(0, probe.RsState());  // reset
  // The object works on.
  Collection<clsEntProbe> coll;
  EXPECT_EQ(1, probe.QueryAll(&coll));
  EXPECT_EQ(2u, coll.Count());
}

TEST_F(RepositoryTest, AFailureInTheMiddleOfAFillKeepsTheEntitiesBefore) {
  // Row 1 is fine; row 2 fine; row 3 has a null F_Amount, which fails.
  db().Exec("update t_probe set F_Amount = 0 where F_ID = 1");
  db().Exec("insert into t_probe values (3, 'three', null, 3, 3, null), (4, 'four', 4, 4, 4, null)");
  for (const auto order :
       {Repository::AddOrder::kAfterMoveNext, Repository::AddOrder::kBeforeMoveNext}) {
    Clear();
    Collection<clsEntProbe> coll;
    clsDataBProbe probe;
    EXPECT_EQ(2, probe.QueryAll(&coll, kLengthReport, order));
    ASSERT_EQ(2u, coll.Count());
    EXPECT_EQ(1, coll.Item(1).ID);
    EXPECT_EQ(2, coll.Item(2).ID);
    EXPECT_EQ(std::vector<Report>{PlainReport("Type mismatch")}, Reports());
    EXPECT_EQ(0, probe.RsState());
  }
}

// ------------------------------------------------------------ the reports

TEST_F(RepositoryTest, LengthReportShowsFixedWordsForAValueThatDoesNotFit) {
  clsDataBProbe probe;
  clsEntProbe e;
  e.ID = 3;
  e.Name = "elevenchars";
  EXPECT_EQ(0, probe.AddRecord(e, kLengthReport));
  EXPECT_EQ(std::vector<Report>{LengthReport()}, Reports());
  EXPECT_EQ((Strings{Sel(3), "select * from t_probe"}), Commands());
  EXPECT_EQ(2, db().Count("t_probe"));
  // Ten characters of three bytes each fit.
  Clear();
  e.Name = "中文中文中文中文中文";
  EXPECT_EQ(1, probe.AddRecord(e, kLengthReport));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{{"3", "中文中文中文中文中文", "0", "0", "0", "1899-12-30 00:00:00"}}),
            db().Rows("select * from t_probe where F_ID = 3"));
  // An add of an existing row is refused.
  Clear();
  EXPECT_EQ(2, probe.AddRecord(e, kLengthReport));
  EXPECT_EQ(Strings{Sel(3)}, Commands());
}

TEST_F(RepositoryTest, LengthReportShowsFixedWordsWhenTheServerRefusesALongValue) {
  clsDataBProbe probe;
  EXPECT_EQ(0, probe.UpdateName(2, "elevenchars", kLengthReport));
  EXPECT_EQ(std::vector<Report>{LengthReport()}, Reports());
  EXPECT_EQ(Strings{"update t_probe set F_Name = 'elevenchars' where F_ID = 2"}, Commands());
  EXPECT_EQ("two", db().Scalar("select F_Name from t_probe where F_ID = 2"));
  Clear();
  EXPECT_EQ(1, probe.UpdateName(2, "ten chars.", kLengthReport));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ("ten chars.", db().Scalar("select F_Name from t_probe where F_ID = 2"));
}

TEST_F(RepositoryTest, LengthReportShowsTheDescriptionOfAnyOtherFailure) {
  clsDataBProbe probe;
  EXPECT_EQ(0, probe.UpdateName(2, "O'Brien", kLengthReport));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ("塔恩维克", Reports()[0].title);
  EXPECT_EQ(0u, Reports()[0].text.find("You have an error in your SQL syntax"))
      << Reports()[0].text;
  EXPECT_EQ(Strings{"update t_probe set F_Name = 'O'Brien' where F_ID = 2"}, Commands());
}

TEST_F(RepositoryTest, PlainAndAlertReportsShowTheDescriptionOfAValueThatDoesNotFit) {
  clsDataBProbe probe;
  clsEntProbe e;
  e.ID = 3;
  e.Name = "elevenchars";
  EXPECT_EQ(0, probe.AddRecord(e, kPlainReport));
  EXPECT_EQ(0, probe.AddRecord(e, kAlertReport));
  ASSERT_EQ(2u, Reports().size());
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ("塔恩维克", Reports()[0].title);
  EXPECT_EQ(0u, Reports()[0].text.find("Multiple-step operation generated errors"))
      << Reports()[0].text;
  EXPECT_EQ(AlertReport(Reports()[0].text), Reports()[1]);
  // The server's refusal, in its words.
  EXPECT_EQ(0, probe.UpdateName(2, "elevenchars", kPlainReport));
  ASSERT_EQ(3u, Reports().size());
  EXPECT_EQ(64, Reports()[2].style);
  EXPECT_EQ(0u, Reports()[2].text.find("Data too long for column 'F_Name'")) << Reports()[2].text;
  EXPECT_EQ(2, db().Count("t_probe"));
}

TEST_F(RepositoryTest, AlertReport) {
  clsDataBProbe probe;
  EXPECT_EQ(0, probe.UpdateName(2, "O'Brien", kAlertReport));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ(16, Reports()[0].style);
  EXPECT_EQ("错误提示", Reports()[0].title);
  EXPECT_EQ(0u, Reports()[0].text.find("You have an error in your SQL syntax"));
}

TEST_F(RepositoryTest, AFailureOfAnotherKindIsReportedWithItsWords) {
  clsDataBProbe probe;
  EXPECT_EQ(9, probe.FailForeign());
  EXPECT_EQ(std::vector<Report>{AlertReport("something else went wrong")}, Reports());
}

TEST_F(RepositoryTest, WithoutAFailureValueTheResultIsWhatItHeld) {
  clsDataBProbe probe;
  EXPECT_EQ(7, probe.FailAfterSettingResult());
  ASSERT_EQ(1u, Reports().size());
  EXPECT_NE(std::string::npos, Reports()[0].text.find("t_nothing' doesn't exist"));
}

TEST_F(RepositoryTest, WhatRanBeforeAFailureStaysStored) {
  clsDataBProbe probe;
  EXPECT_EQ(0, probe.AddTwo(10, "insert into t_probe (F_ID) values (2)"));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ(0u, Reports()[0].text.find("Duplicate entry '2'")) << Reports()[0].text;
  EXPECT_EQ((Strings{"insert into t_probe (F_ID) values (10)",
                     "insert into t_probe (F_ID) values (2)"}),
            Commands());
  EXPECT_EQ((Rows{{"1"}, {"2"}, {"10"}}), db().Rows("select F_ID from t_probe order by F_ID"));
}

// ------------------------------------------------------------ the reset

// Records, for each report, what the next use of rs would see at that moment.
struct AtReport {
  Report report;
  int lock_type;
  int state;
};

class ResetTest : public RepositoryTest {
 protected:
  std::vector<AtReport> seen;
  void Watch(clsDataBProbe& probe) {
    SetReportHandler([this, &probe](const Report& r) {
      seen.push_back(AtReport{r, probe.LockTypeNow(), probe.RsState()});
    });
  }
};

TEST_F(ResetTest, ResetAfterTheReport) {
  clsDataBProbe probe;
  Watch(probe);
  EXPECT_EQ(5, probe.FailAfterKeysetProperties(kPlainReport));
  ASSERT_EQ(1u, seen.size());
  EXPECT_EQ(64, seen[0].report.style);
  EXPECT_EQ(Recordset::kOptimistic, seen[0].lock_type);  // still the failed rs
  EXPECT_EQ(Recordset::kReadOnly, probe.LockTypeNow());   // a new one afterwards
  EXPECT_EQ(Recordset::kForwardOnly, probe.CursorTypeNow());
}

TEST_F(ResetTest, ResetBeforeTheReport) {
  clsDataBProbe probe;
  Watch(probe);
  EXPECT_EQ(5, probe.FailAfterKeysetProperties(kPlainReport.ResetFirst()));
  ASSERT_EQ(1u, seen.size());
  EXPECT_EQ(Recordset::kReadOnly, seen[0].lock_type);  // already a new rs
  EXPECT_EQ(Recordset::kReadOnly, probe.LockTypeNow());
}

TEST_F(ResetTest, WithoutResetRsKeepsItsProperties) {
  clsDataBProbe probe;
  Watch(probe);
  EXPECT_EQ(5, probe.FailAfterKeysetProperties(kLengthReport.WithoutReset()));
  ASSERT_EQ(1u, seen.size());
  EXPECT_EQ(Recordset::kOptimistic, seen[0].lock_type);
  EXPECT_EQ(Recordset::kOptimistic, probe.LockTypeNow());
  EXPECT_EQ(Recordset::kKeyset, probe.CursorTypeNow());
  // The kept properties are in force on the next read-open: a row read that
  // way can be written.
  int cursor = 0, lock = 0;
  EXPECT_EQ(1, probe.Rename(Mode::kReadOpen, 2, "kept", cursor, lock));
  EXPECT_EQ(Recordset::kKeyset, cursor);
  EXPECT_EQ(Recordset::kOptimistic, lock);
  EXPECT_EQ("kept", db().Scalar("select F_Name from t_probe where F_ID = 2"));
}

TEST_F(ResetTest, TheResetDropsAnOpenRecordsetAfterOrBeforeTheReport) {
  clsDataBProbe probe;
  Watch(probe);
  ASSERT_EQ(1, probe.QueryLeaveOpen(1));
  ASSERT_EQ(1, probe.RsState());
  // Reset after the report: at the report rs is still open.
  Variant value;
  EXPECT_EQ(2, probe.QueryNz(1, "F_Name", "", Kind::kStr, kPlainReport, value));
  ASSERT_EQ(1u, seen.size());
  EXPECT_EQ(PlainReport("Operation is not allowed when the object is open"), seen[0].report);
  EXPECT_EQ(1, seen[0].state);
  EXPECT_EQ(0, probe.RsState());

  ASSERT_EQ(1, probe.QueryLeaveOpen(1));
  EXPECT_EQ(2, probe.QueryNz(1, "F_Name", "", Kind::kStr, kPlainReport.ResetFirst(), value));
  ASSERT_EQ(2u, seen.size());
  EXPECT_EQ(0, seen[1].state);
  EXPECT_EQ(0, probe.RsState());

  // Without reset the open recordset stays open, and the next call fails too.
  ASSERT_EQ(1, probe.QueryLeaveOpen(1));
  EXPECT_EQ(2, probe.QueryNz(1, "F_Name", "", Kind::kStr, kPlainReport.WithoutReset(), value));
  EXPECT_EQ(1, probe.RsState());
  EXPECT_EQ(2, probe.QueryNz(1, "F_Name", "", Kind::kStr, kPlainReport, value));
  EXPECT_EQ(0, probe.RsState());
  EXPECT_EQ(1, probe.QueryNz(1, "F_Name", "", Kind::kStr, kPlainReport, value));
}

// ------------------------------------------------------------ the open modes

TEST_F(RepositoryTest, ReadOpenOnANewObjectIsForwardOnlyAndReadOnly) {
  clsDataBProbe probe;
  int cursor = -9, lock = -9;
  EXPECT_EQ(2, probe.Rename(Mode::kReadOpen, 2, "new", cursor, lock));
  EXPECT_EQ(Recordset::kForwardOnly, cursor);
  EXPECT_EQ(Recordset::kReadOnly, lock);
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ("The operation is not allowed: the recordset is read-only", Reports()[0].text);
  EXPECT_EQ("two", db().Scalar("select F_Name from t_probe where F_ID = 2"));
}

TEST_F(RepositoryTest, EachOpenModeAndTheCursorAndLockInForce) {
  struct Case {
    const char* what;
    Mode mode;
    int c, l;
    int cursor, lock;
  };
  const std::vector<Case> cases = {
      {"keyset-edit", Mode::kKeysetEdit, 0, 0, 1, 3},
      {"keyset-edit by read-open", Mode::kKeysetEditByReadOpen, 0, 0, 1, 3},
      {"keyset-edit with defaults", Mode::kKeysetEditWithDefaults, 0, 0, 1, 3},
      {"open(1,2)", Mode::kOpen, 1, 2, 1, 2},
      {"open(2,3)", Mode::kOpen, 2, 3, 2, 3},
      {"open(1,4)", Mode::kOpen, 1, 4, 1, 4},
  };
  int n = 0;
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    Clear();
    clsDataBProbe probe;
    int cursor = -9, lock = -9;
    const std::string name = "n" + std::to_string(++n);
    EXPECT_EQ(1, probe.Rename(c.mode, 2, name, cursor, lock, c.c, c.l));
    EXPECT_EQ(c.cursor, cursor);
    EXPECT_EQ(c.lock, lock);
    EXPECT_EQ(Strings{Sel(2)}, Commands());
    EXPECT_TRUE(Reports().empty());
    // Under batch optimistic locking the change waits for UpdateBatch, which
    // never comes.
    EXPECT_EQ(c.lock == 4 ? std::string("n5") : name,
              db().Scalar("select F_Name from t_probe where F_ID = 2"));
  }
}

TEST_F(RepositoryTest, ReadOpenInheritsTheCursorAndLockOfAnEarlierKeysetEdit) {
  clsDataBProbe probe;
  int cursor = 0, lock = 0;
  ASSERT_EQ(1, probe.Rename(Mode::kKeysetEdit, 2, "edited", cursor, lock));
  // rs was closed, not dropped: its CursorType 1 and LockType 3 stay in force.
  EXPECT_EQ(1, probe.Rename(Mode::kReadOpen, 1, "inherited", cursor, lock));
  EXPECT_EQ(Recordset::kKeyset, cursor);
  EXPECT_EQ(Recordset::kOptimistic, lock);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{{"1", "inherited"}, {"2", "edited"}}),
            db().Rows("select F_ID, F_Name from t_probe order by F_ID"));
}

TEST_F(RepositoryTest, ExplicitArgumentsWinOverTheProperties) {
  clsDataBProbe probe;
  int cursor = 0, lock = 0;
  ASSERT_EQ(1, probe.Rename(Mode::kKeysetEdit, 2, "edited", cursor, lock));
  ASSERT_EQ(Recordset::kOptimistic, lock);
  // open(2,1) over the 1 and 3 left on rs: dynamic and read-only.
  EXPECT_EQ(2, probe.Rename(Mode::kOpen, 1, "refused", cursor, lock, 2, 1));
  EXPECT_EQ(Recordset::kDynamic, cursor);
  EXPECT_EQ(Recordset::kReadOnly, lock);
  ASSERT_EQ(1u, Reports().size());
  EXPECT_EQ("The operation is not allowed: the recordset is read-only", Reports()[0].text);
  // open(1,2) after keyset-edit again: keyset and pessimistic, and they stay
  // for the next read-open.
  ASSERT_EQ(1, probe.Rename(Mode::kKeysetEdit, 2, "again", cursor, lock));
  EXPECT_EQ(1, probe.Rename(Mode::kOpen, 1, "pess", cursor, lock, 1, 2));
  EXPECT_EQ(Recordset::kPessimistic, lock);
  EXPECT_EQ(1, probe.Rename(Mode::kReadOpen, 1, "read-open", cursor, lock));
  EXPECT_EQ(Recordset::kKeyset, cursor);
  EXPECT_EQ(Recordset::kPessimistic, lock);
  EXPECT_EQ((Rows{{"1", "read-open"}, {"2", "again"}}),
            db().Rows("select F_ID, F_Name from t_probe order by F_ID"));
}

// ------------------------------------------------------------ rs across calls

TEST_F(RepositoryTest, AnOpenRsFailsTheNextMethodOnceThenItRecovers) {
  clsDataBProbe probe;
  ASSERT_EQ(1, probe.QueryLeaveOpen(1));
  EXPECT_EQ(1, probe.RsState());
  std::string name = "untouched";
  EXPECT_EQ(2, probe.QueryName(2, name));
  EXPECT_EQ("untouched", name);
  EXPECT_EQ(std::vector<Report>{PlainReport("Operation is not allowed when the object is open")},
            Reports());
  // The failing call sent nothing: it failed on setting Source.
  EXPECT_EQ(Strings{"select * from t_probe where F_ID >= 1"}, Commands());
  EXPECT_EQ(0, probe.RsState());
  EXPECT_EQ(1, probe.QueryName(2, name));
  EXPECT_EQ("two", name);
  EXPECT_EQ(1u, Reports().size());
  EXPECT_EQ((Strings{"select * from t_probe where F_ID >= 1", Sel(2)}), Commands());
}

TEST_F(RepositoryTest, AMethodWithAFreshRsWorksAtOnce) {
  clsDataBProbe probe;
  ASSERT_EQ(1, probe.QueryLeaveOpen(1));
  std::string name;
  EXPECT_EQ(1, probe.QueryNameFresh(2, name));
  EXPECT_EQ("two", name);
  EXPECT_TRUE(Reports().empty());
  // The fresh rs was closed by its method: the next one works too.
  EXPECT_EQ(1, probe.QueryName(1, name));
  EXPECT_EQ("", name);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(RepositoryTest, AStreamingRsLeftOpenIsReleasedByAFreshRs) {
  db().Exec("insert into t_probe (F_ID, F_Name) select seq, 'many' from seq_3_to_20000");
  clsDataBProbe probe;
  ASSERT_EQ(1, probe.QueryLeaveOpen(1));
  std::string name;
  EXPECT_EQ(1, probe.QueryNameFresh(20000, name));
  EXPECT_EQ("many", name);
  Collection<clsEntProbe> coll;
  db().Exec("update t_probe set F_Amount = 0");
  EXPECT_EQ(1, probe.QueryAll(&coll));
  EXPECT_EQ(20000u, coll.Count());
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ construction

TEST_F(RepositoryTest, ConstructionFailsWithTheFailureOfTheSessionAndNoReport) {
  const auto address = testing::ServerAddress::FromEnvironment();
  SetSessionConnectionString("SERVER=" + address.server + ";PORT=" +
                             std::to_string(address.port) + ";DATABASE=" + database() +
                             ";UID=" + address.user + ";PWD=wrong" + address.password);
  try {
    clsDataBProbe probe;
    ADD_FAILURE() << "the constructor returned";
  } catch (const Error& e) {
    EXPECT_EQ(errc::kProvider, e.Number());
    EXPECT_EQ(0u, e.Description().find("Access denied for user '" + address.user + "'"))
        << e.Description();
  }
  SetSessionConnectionString(address.ConnectionText(database() + "_missing"));
  try {
    clsDataBProbe probe;
    ADD_FAILURE() << "the constructor returned";
  } catch (const Error& e) {
    EXPECT_EQ(errc::kProvider, e.Number());
    EXPECT_NE(std::string::npos, e.Description().find("Unknown database")) << e.Description();
  }
  EXPECT_TRUE(Reports().empty());
  EXPECT_TRUE(Sent().empty());
  // Pointed back at the database, a new object works.
  SetSessionConnectionString(address.ConnectionText(database()));
  clsDataBProbe probe;
  std::string name;
  EXPECT_EQ(1, probe.QueryName(2, name));
}

TEST_F(RepositoryTest, ReleasingTheObjectClosesItsSession) {
  // A session with a connection of its own, neither pooled nor shared.
  SetSessionPool(SessionPoolOptions{.enabled = false, .share_within_thread = false});
  const std::string count =
      "select count(*) from information_schema.processlist where lower(db) = lower('" +
      database() + "')";
  const std::string before = db().Scalar(count).value_or("?");
  std::string during;
  {
    clsDataBProbe probe;
    during = db().Scalar(count).value_or("?");
  }
  EXPECT_EQ(std::to_string(std::stoi(before) + 1), during);
  std::string after = during;
  for (int i = 0; i < 100 && after != before; ++i) {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    after = db().Scalar(count).value_or("?");
  }
  EXPECT_EQ(before, after);
}

TEST_F(RepositoryTest, ConstructionSendsNothing) {
  clsDataBProbe probe;
  EXPECT_TRUE(Sent().empty());
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ values in SQL text

TEST_F(RepositoryTest, AnElevenDigitNumberInAStatementFindsItsRow) {
  db().Exec("insert into t_borderh (F_OrderNo) values (20261122001)");
  clsDataBProbe probe;
  EXPECT_EQ(1, probe.QueryOrderNo(20261122001.0, true));
  EXPECT_EQ(1, probe.QueryOrderNo(20261122001.0, false));
  EXPECT_EQ(0, probe.QueryOrderNo(20261122002.0, true));
  EXPECT_EQ((Strings{"select * from T_BOrderh where F_OrderNo= '20261122001'",
                     "select * from T_BOrderh where F_OrderNo=20261122001",
                     "select * from T_BOrderh where F_OrderNo= '20261122002'"}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(RepositoryTest, ADateInAStatementWithAndWithoutItsTime) {
  db().Exec("insert into t_probe (F_ID, F_When) values (3, '2026-11-22 00:00:00')");
  clsDataBProbe probe;
  std::int32_t id = 0;
  EXPECT_EQ(1, probe.QueryByWhen(Date::FromParts(2026, 11, 22), id));
  EXPECT_EQ(3, id);
  EXPECT_EQ(1, probe.QueryByWhen(Date::FromParts(2026, 11, 22, 13, 45, 10), id));
  EXPECT_EQ(2, id);
  EXPECT_EQ(0, probe.QueryByWhen(Date::FromParts(2026, 11, 23), id));
  EXPECT_EQ((Strings{"select * from t_probe where F_When = '2026-11-22'",
                     "select * from t_probe where F_When = '2026-11-22 13:45:10'",
                     "select * from t_probe where F_When = '2026-11-23'"}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(RepositoryTest, ColumnWritesTakeTheValuesAsTheyStand) {
  clsDataBProbe probe;
  clsEntProbe e;
  e.ID = 3;
  e.Name = "";  // an empty text stays an empty text, not a null
  e.Amount = 20261122001.0;
  e.Small = -32768;
  e.Whole = 2147483647;
  e.When = Date();  // the zero date as it is
  EXPECT_EQ(1, probe.AddRecord(e));
  EXPECT_EQ((Rows{{"3", "", "20261122001", "-32768", "2147483647", "1899-12-30 00:00:00"}}),
            db().Rows("select * from t_probe where F_ID = 3"));
  const auto row_changes = [&] {
    Strings out;
    for (const auto& s : Sent()) {
      if (s.kind == StatementKind::kRowChange) out.push_back(s.text);
    }
    return out;
  }();
  ASSERT_EQ(1u, row_changes.size());
  EXPECT_NE(std::string::npos,
            row_changes[0].find("(`F_ID`,`F_Name`,`F_Amount`,`F_Small`,`F_Whole`,`F_When`) VALUES "
                                "(3,'',20261122001,-32768,2147483647,'1899-12-30 00:00:00')"))
      << row_changes[0];
}

}  // namespace
}  // namespace corvane
