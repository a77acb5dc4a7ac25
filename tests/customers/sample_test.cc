// clsDataBSample against the sandbox server: every path of its ten methods,
// the null values of each of its three full reads column by column, the
// F_PlaceID read that tests F_Useful, the statements sent, the results, the
// reports, and what t_bsample and t_sitemno hold afterwards.
#include "corvane/customers/sample.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/customers/day_row_sql.h"
#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::InsertCounterSql;
using ::corvane::testing::LengthReport;
using ::corvane::testing::PlainReport;
using ::corvane::testing::QueryConditionSql;
using ::corvane::testing::RemoveCounterSql;
using ::corvane::testing::SandboxTest;
using ::corvane::testing::UpdateCounterSql;
using ::testing::HasSubstr;
using Rows = std::vector<std::vector<std::string>>;
using Strings = std::vector<std::string>;
using Reports_ = std::vector<Report>;

// The statements of the class, with the values put in.
std::string GetSql(const std::string& no) {
  return "select * from t_bsample where F_NumNO ='" + no + "'";
}
std::string LargestSql() {
  return "select * from t_bsample where F_NumNO in (select max(F_NumNo) from t_bsample)";
}
std::string GoodsTypesSql() {
  return "select distinct F_GoodStype from t_egoodstype order by F_GoodStype asc";
}
std::string WholeTableSql() { return "select * from t_bsample"; }
std::string EditSql(const std::string& no) {
  return "select * from t_bsample where F_NumNo ='" + no + "' ";
}
std::string LargestOfDaySql(const std::string& day) {
  return "select max(F_NumNo) as F_NumNo from t_bsample where F_TableTime ='" + day + "'";
}
std::string DeleteSql(const std::string& no) {
  return "delete from t_bsample where F_NumNo ='" + no + "' ";
}
std::string DocumentsOfDaySql(const std::string& day) {
  return "select * from t_bsample where F_TableTime='" + day + "'";
}
std::string FollowMaxSql(const std::string& day, const std::string& name) {
  return "update t_sitemno set F_No= (select max(F_NumNo) from t_bsample where F_TableTime='" +
         day + "') where F_FnDate='" + day + "' and F_TableName='" + name + "'";
}
std::string CustomersSql() { return "select distinct F_Custno from t_bsample order by F_Custno asc"; }
std::string OfCustomerSql(const std::string& cust) {
  return "select * from t_bsample where F_Custno='" + cust + "'";
}

const char kNoRowWords[] = "Either BOF or EOF is True, or the current record has been deleted";
const char kSyntax[] = "You have an error in your SQL syntax";

const Date kDay = Date::FromParts(2026, 11, 2);

std::string Lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::tolower(c); });
  return s;
}

// A sample with every column set.
clsEntBSample FullSample(double no) {
  clsEntBSample e;
  e.NumNo = no;
  e.Appgist = "drawing 7";
  e.AskEmp = "zhao";
  e.Citemno = "CI-1";
  e.CreaDate = Date::FromParts(2026, 11, 1);
  e.Custno = "C001";
  e.Deform = 3;
  e.ItemDesc = "gear, 40 teeth";
  e.ItemName = "gear";
  e.ModeDesc = "cast";
  e.ModelNo = "M-40";
  e.Modoption = 2;
  e.OkDate = Date::FromParts(2026, 11, 20);
  e.OrderNo = "PO-8";
  e.Qty = 10;
  e.Remark = "urgent";
  e.ReqDate = Date::FromParts(2026, 11, 15);
  e.Samask = "polished";
  e.SampleType = "new";
  e.SenDate = Date::FromParts(2026, 11, 18);
  e.SendQty = 8;
  e.Tabler = "wang";
  e.Tabletime = Date::FromParts(2026, 11, 2);
  e.Timber = "oak";
  e.TimberNumber = "T-9";
  e.Useful = "show";
  e.PlaceID = "P1";
  return e;
}

// The 27 properties as text, in read order.
Strings Props(const clsEntBSample& e) {
  return {Text(e.NumNo),    e.Appgist,      e.AskEmp,       e.Citemno,      Text(e.CreaDate),
          e.Custno,         Text(e.Deform), e.ItemDesc,     e.ItemName,     e.ModeDesc,
          e.ModelNo,        Text(e.Modoption), Text(e.OkDate), e.OrderNo,   Text(e.Qty),
          e.Remark,         Text(e.ReqDate), e.Samask,      e.SampleType,   Text(e.SenDate),
          Text(e.SendQty),  e.Tabler,       Text(e.Tabletime), e.Timber,    e.TimberNumber,
          e.Useful,         e.PlaceID};
}

const Strings kFullProps{"2026110201", "drawing 7", "zhao", "CI-1", "2026-11-01", "C001", "3",
                         "gear, 40 teeth", "gear", "cast", "M-40", "2", "2026-11-20", "PO-8",
                         "10", "urgent", "2026-11-15", "polished", "new", "2026-11-18", "8",
                         "wang", "2026-11-02", "oak", "T-9", "show", "P1"};

// The row of FullSample as the table holds it, in column order.
const Strings kFullRow{"2026110201", "drawing 7", "zhao", "CI-1", "2026-11-01 00:00:00", "C001",
                       "3", "gear, 40 teeth", "gear", "cast", "M-40", "2", "2026-11-20 00:00:00",
                       "PO-8", "10", "urgent", "2026-11-15 00:00:00", "polished", "new",
                       "2026-11-18 00:00:00", "8", "wang", "2026-11-02 00:00:00", "oak", "T-9",
                       "show", "P1"};

class SampleTest : public SandboxTest {
 protected:
  // A sample row as FullSample writes it, with number, customer and day.
  void Sample(const std::string& no, const std::string& cust = "C001",
              const std::string& day = "2026-11-02") {
    db().Exec("insert into t_bsample values (" + no + ", 'drawing 7', 'zhao', 'CI-1', "
              "'2026-11-01', '" + cust + "', 3, 'gear, 40 teeth', 'gear', 'cast', 'M-40', 2, "
              "'2026-11-20', 'PO-8', 10, 'urgent', '2026-11-15', 'polished', 'new', "
              "'2026-11-18', 8, 'wang', '" + day + "', 'oak', 'T-9', 'show', 'P1')");
  }
  void SetNull(const std::string& column, const std::string& where = "1=1") {
    db().Exec("update t_bsample set " + column + " = null where " + where);
  }
  Rows Samples() {
    return db().Rows("select * from t_bsample order by F_NumNo, F_Custno");
  }
  Rows Counters() {
    return db().Rows(
        "select F_TableName, F_No, date_format(F_FnDate, '%Y-%m-%d') from t_sitemno order by "
        "F_TableName, F_FnDate, F_No");
  }
  Strings RowChanges() const {
    Strings out;
    for (const auto& s : Sent()) {
      if (s.kind == StatementKind::kRowChange) out.push_back(s.text);
    }
    return out;
  }
  std::string Table() const { return "`" + Lower(database()) + "`.`t_bsample`"; }
  void ExpectOnePlainReport(const std::string& words) {
    ASSERT_EQ(1u, Reports().size());
    EXPECT_THAT(Reports()[0].text, HasSubstr(words));
    EXPECT_EQ(64, Reports()[0].style);
    EXPECT_EQ("塔恩维克", Reports()[0].title);
  }
};

// The columns that fall back on number 0 in GetSampleRecord and QueryMaxItem.
const Strings kZeroColumns{"F_NumNo", "F_CreaDate", "F_Modoption", "F_OkDate", "F_Qty",
                           "F_ReqDate", "F_SenDate", "F_SendQty", "F_Tabletime"};
// The text columns that fall back on the empty text in all three reads.
const Strings kEmptyTextColumns{"F_AskEmp", "F_Citemno", "F_ItemDesc", "F_ItemName", "F_ModeDesc",
                                "F_ModelNo", "F_OrderNo", "F_Remark", "F_Samask", "F_SampleType",
                                "F_Tabler", "F_Timber", "F_TimberNumber"};
// The columns whose null does not read in QueryAlldetaile.
const Strings kFailingInDetail{"F_NumNo", "F_CreaDate", "F_Deform", "F_Modoption", "F_Qty",
                               "F_ReqDate", "F_SenDate", "F_SendQty", "F_Tabletime"};

// The position of a column in read order.
std::size_t Position(const std::string& column) {
  static const Strings kReadOrder{
      "F_NumNo",    "F_Appgist",   "F_AskEmp",    "F_Citemno",  "F_CreaDate", "F_Custno",
      "F_Deform",   "F_ItemDesc",  "F_ItemName",  "F_ModeDesc", "F_ModelNo",  "F_Modoption",
      "F_OkDate",   "F_OrderNo",   "F_Qty",       "F_Remark",   "F_ReqDate",  "F_Samask",
      "F_SampleType", "F_SenDate", "F_SendQty",   "F_Tabler",   "F_Tabletime", "F_Timber",
      "F_TimberNumber", "F_Useful", "F_PlaceID"};
  return static_cast<std::size_t>(std::find(kReadOrder.begin(), kReadOrder.end(), column) -
                                  kReadOrder.begin());
}

// What a null in column reads as where it falls back on number 0.
std::string ZeroOf(const std::string& column) {
  const bool date = column.find("Date") != std::string::npos || column == "F_Tabletime";
  return date ? "1899-12-30" : "0";
}

// ------------------------------------------------------------ GetSampleRecord

TEST_F(SampleTest, GetSampleRecordFillsAll27Columns) {
  Sample("2026110201");
  Sample("2026110202", "C002");
  clsDataBSample repo;
  clsEntBSample e;
  e.NumNo = 2026110201;
  EXPECT_EQ(1, repo.GetSampleRecord(e));
  EXPECT_EQ(kFullProps, Props(e));
  EXPECT_EQ(Strings{GetSql("2026110201")}, Commands());
  EXPECT_TRUE(Reports().empty());
  // rs was closed.
  e.NumNo = 2026110202;
  EXPECT_EQ(1, repo.GetSampleRecord(e));
  EXPECT_EQ("C002", e.Custno);
}

TEST_F(SampleTest, GetSampleRecordOfAnUnknownNumberGives0AndLeavesTheEntity) {
  Sample("2026110201");
  clsDataBSample repo;
  clsEntBSample e;
  e.NumNo = 2026110209;
  e.Remark = "mine";
  EXPECT_EQ(0, repo.GetSampleRecord(e));
  EXPECT_EQ("mine", e.Remark);
  EXPECT_EQ("", e.Custno);
  EXPECT_EQ(Strings{GetSql("2026110209")}, Commands());
  EXPECT_TRUE(Reports().empty());
  e.NumNo = 2026110201;
  EXPECT_EQ(1, repo.GetSampleRecord(e));
}

TEST_F(SampleTest, GetSampleRecordReadsNullNumbersAndDatesAsZero) {
  for (const std::string& column : kZeroColumns) {
    if (column == "F_NumNo") continue;  // a null number is not found by its number
    db().Exec("delete from t_bsample");
    Sample("7");
    SetNull(column);
    clsDataBSample repo;
    clsEntBSample e;
    e.NumNo = 7;
    EXPECT_EQ(1, repo.GetSampleRecord(e)) << column;
    Strings expected = kFullProps;
    expected[0] = "7";
    expected[Position(column)] = ZeroOf(column);
    EXPECT_EQ(expected, Props(e)) << column;
  }
  // F_Deform too, where QueryMaxItem fails.
  db().Exec("delete from t_bsample");
  Sample("7");
  SetNull("F_Deform");
  clsDataBSample repo;
  clsEntBSample e;
  e.NumNo = 7;
  e.Deform = 5;
  EXPECT_EQ(1, repo.GetSampleRecord(e));
  EXPECT_EQ(0, e.Deform);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, GetSampleRecordReadsNullTextsAsEmptyTextButAppgistAsZero) {
  Sample("7");
  for (const std::string& column : kEmptyTextColumns) SetNull(column);
  SetNull("F_Custno");
  SetNull("F_Appgist");
  clsDataBSample repo;
  clsEntBSample e = FullSample(7);
  EXPECT_EQ(1, repo.GetSampleRecord(e));
  Strings expected = kFullProps;
  expected[0] = "7";
  for (const std::string& column : kEmptyTextColumns) expected[Position(column)] = "";
  expected[Position("F_Custno")] = "";
  expected[Position("F_Appgist")] = "0";
  EXPECT_EQ(expected, Props(e));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, GetSampleRecordTakesPlaceIDOnlyWhereUsefulHoldsAValue) {
  Sample("1");  // both set
  Sample("2");
  SetNull("F_Useful", "F_NumNo = 2");  // F_PlaceID set: empty text
  Sample("3");
  SetNull("F_Useful", "F_NumNo = 3");
  SetNull("F_PlaceID", "F_NumNo = 3");  // both null: empty text
  Sample("4");
  db().Exec("update t_bsample set F_Useful = '' where F_NumNo = 4");  // empty, not null
  clsDataBSample repo;
  clsEntBSample e;
  const std::vector<std::pair<double, std::pair<std::string, std::string>>> cases{
      {1, {"show", "P1"}}, {2, {"", ""}}, {3, {"", ""}}, {4, {"", "P1"}}};
  for (const auto& [no, useful_place] : cases) {
    e.NumNo = no;
    e.PlaceID = "before";
    EXPECT_EQ(1, repo.GetSampleRecord(e)) << no;
    EXPECT_EQ(useful_place.first, e.Useful) << no;
    EXPECT_EQ(useful_place.second, e.PlaceID) << no;
  }
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, GetSampleRecordFailsOnANullPlaceIDWithUsefulSet) {
  Sample("5");
  SetNull("F_PlaceID");
  clsDataBSample repo;
  clsEntBSample e;
  e.NumNo = 5;
  e.PlaceID = "before";
  EXPECT_EQ(2, repo.GetSampleRecord(e));
  EXPECT_EQ(Reports_{PlainReport("Invalid use of Null")}, Reports());
  // Everything before it was read.
  EXPECT_EQ("show", e.Useful);
  EXPECT_EQ("C001", e.Custno);
  EXPECT_EQ("before", e.PlaceID);
}

TEST_F(SampleTest, GetSampleRecordResetsRsBeforeItsReport) {
  Sample("5");
  SetNull("F_PlaceID");
  Sample("6");
  clsDataBSample repo;
  std::vector<std::int16_t> inner;
  int reports = 0;
  SetReportHandler([&](const Report&) {
    if (++reports != 1) return;
    clsEntBSample other;
    other.NumNo = 6;
    inner.push_back(repo.GetSampleRecord(other));
  });
  clsEntBSample e;
  e.NumNo = 5;
  EXPECT_EQ(2, repo.GetSampleRecord(e));
  EXPECT_EQ(std::vector<std::int16_t>{1}, inner);
  EXPECT_EQ(1, reports);
}

TEST_F(SampleTest, GetSampleRecordReportsAServerFailure) {
  db().Exec("drop table t_bsample");
  clsDataBSample repo;
  clsEntBSample e;
  EXPECT_EQ(2, repo.GetSampleRecord(e));
  ExpectOnePlainReport("t_bsample' doesn't exist");
  EXPECT_EQ(Strings{GetSql("0")}, Commands());
}

// ------------------------------------------------------------ QueryMaxItem

TEST_F(SampleTest, QueryMaxItemOnAnEmptyTableGives0) {
  clsDataBSample repo;
  clsEntBSample e = FullSample(3);
  EXPECT_EQ(0, repo.QueryMaxItem(e));
  EXPECT_EQ(3, e.NumNo);
  EXPECT_EQ(Strings{LargestSql()}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryMaxItemReadsTheSampleWithTheLargestNumberOfTheTable) {
  Sample("2026110201", "C001", "2026-11-02");
  Sample("2026110301", "C003", "2026-11-03");
  Sample("2026110202", "C002", "2026-11-02");
  clsDataBSample repo;
  clsEntBSample e;
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  Strings expected = kFullProps;
  expected[0] = "2026110301";
  expected[Position("F_Custno")] = "C003";
  expected[Position("F_Tabletime")] = "2026-11-03";
  EXPECT_EQ(expected, Props(e));
  EXPECT_EQ(1, repo.QueryMaxItem(e));  // rs was closed
  EXPECT_EQ(Strings(2, LargestSql()), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryMaxItemReadsNullsAsZeroOrEmptyTextAndCustnoAsZero) {
  for (const std::string& column : kZeroColumns) {
    if (column == "F_NumNo") continue;  // the largest number is never null
    db().Exec("delete from t_bsample");
    Sample("7");
    SetNull(column);
    clsDataBSample repo;
    clsEntBSample e;
    EXPECT_EQ(1, repo.QueryMaxItem(e)) << column;
    Strings expected = kFullProps;
    expected[0] = "7";
    expected[Position(column)] = ZeroOf(column);
    EXPECT_EQ(expected, Props(e)) << column;
  }
  db().Exec("delete from t_bsample");
  Sample("7");
  for (const std::string& column : kEmptyTextColumns) SetNull(column);
  SetNull("F_Custno");
  SetNull("F_Appgist");
  clsDataBSample repo;
  clsEntBSample e;
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  Strings expected = kFullProps;
  expected[0] = "7";
  for (const std::string& column : kEmptyTextColumns) expected[Position(column)] = "";
  expected[Position("F_Custno")] = "0";
  expected[Position("F_Appgist")] = "0";
  EXPECT_EQ(expected, Props(e));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryMaxItemFailsOnANullDeformWhereGetSampleRecordReads0) {
  Sample("7");
  SetNull("F_Deform");
  clsDataBSample repo;
  clsEntBSample e;
  e.Deform = 5;
  e.ItemDesc = "before";
  EXPECT_EQ(0, repo.QueryMaxItem(e));
  EXPECT_EQ(Reports_{PlainReport("Type mismatch")}, Reports());
  EXPECT_EQ("C001", e.Custno);  // read before the failure
  EXPECT_EQ(5, e.Deform);
  EXPECT_EQ("before", e.ItemDesc);
  // rs was reset: the object goes on.
  clsEntBSample g;
  g.NumNo = 7;
  EXPECT_EQ(1, repo.GetSampleRecord(g));
  EXPECT_EQ(0, g.Deform);
  EXPECT_EQ(1u, Reports().size());
}

TEST_F(SampleTest, QueryMaxItemTakesPlaceIDOnlyWhereUsefulHoldsAValue) {
  Sample("7");
  SetNull("F_Useful");
  clsDataBSample repo;
  clsEntBSample e;
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  EXPECT_EQ("", e.Useful);
  EXPECT_EQ("", e.PlaceID);
  db().Exec("update t_bsample set F_Useful = 'show', F_PlaceID = null");
  e.PlaceID = "before";
  EXPECT_EQ(0, repo.QueryMaxItem(e));
  EXPECT_EQ(Reports_{PlainReport("Invalid use of Null")}, Reports());
  EXPECT_EQ("show", e.Useful);
  EXPECT_EQ("before", e.PlaceID);
}

// The F_PlaceID read is the same in all three readers: a row with both
// F_Useful and F_PlaceID null reads empty text for both.
TEST_F(SampleTest, EachFullReadGivesEmptyTextForUsefulAndPlaceIDBothNull) {
  Sample("7");
  SetNull("F_Useful");
  SetNull("F_PlaceID");
  clsDataBSample repo;
  clsEntBSample got;
  got.NumNo = 7;
  got.Useful = "before";
  got.PlaceID = "before";
  EXPECT_EQ(1, repo.GetSampleRecord(got));
  EXPECT_EQ("", got.Useful);
  EXPECT_EQ("", got.PlaceID);
  clsEntBSample largest;
  largest.Useful = "before";
  largest.PlaceID = "before";
  EXPECT_EQ(1, repo.QueryMaxItem(largest));
  EXPECT_EQ("", largest.Useful);
  EXPECT_EQ("", largest.PlaceID);
  Collection<clsEntBSample> coll;
  EXPECT_EQ(1, repo.QueryAlldetaile(&coll, "C001"));
  ASSERT_EQ(1u, coll.Count());
  EXPECT_EQ("", coll.Item(1).Useful);
  EXPECT_EQ("", coll.Item(1).PlaceID);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryMaxItemReportsAServerFailureWith0) {
  db().Exec("drop table t_bsample");
  clsDataBSample repo;
  clsEntBSample e;
  EXPECT_EQ(0, repo.QueryMaxItem(e));
  ExpectOnePlainReport("t_bsample' doesn't exist");
}

// ------------------------------------------------------------ QueryEGoodsType

TEST_F(SampleTest, QueryEGoodsTypeListsEachTypeOnceInOrder) {
  db().Exec("insert into t_egoodstype values ('wood', '1'), ('metal', '2'), ('wood', '3'), "
            "('glass', '4'), (null, '5')");
  clsDataBSample repo;
  Collection<clsEntEGoodsType> coll;
  coll.Add(std::make_shared<clsEntEGoodsType>(clsEntEGoodsType{"mine"}));
  const Variant r = repo.QueryEGoodsType(&coll);
  EXPECT_EQ(Variant(std::int16_t{1}), r);
  Strings types;
  for (const auto& t : coll) types.push_back(t->GoodStype);
  // A null type reads as empty text, and sorts first.
  EXPECT_EQ((Strings{"mine", "", "glass", "metal", "wood"}), types);
  EXPECT_EQ(Strings{GoodsTypesSql()}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryEGoodsTypeWithoutTypesGives0AsA16BitInteger) {
  clsDataBSample repo;
  Collection<clsEntEGoodsType> coll;
  const Variant r = repo.QueryEGoodsType(&coll);
  EXPECT_EQ(Variant::Type::kInt16, r.type());
  EXPECT_EQ(0, r.CInt());
  EXPECT_EQ(0u, coll.Count());
  EXPECT_EQ(Variant(std::int16_t{0}), repo.QueryEGoodsType(nullptr));  // not touched
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryEGoodsTypeFailureGives0AndResetsBeforeTheReport) {
  db().Exec("insert into t_egoodstype values ('wood', '1')");
  clsDataBSample repo;
  std::vector<Variant> inner;
  int reports = 0;
  SetReportHandler([&](const Report& r) {
    EXPECT_EQ(PlainReport("Object required"), r);
    if (++reports != 1) return;
    Collection<clsEntEGoodsType> coll;
    inner.push_back(repo.QueryEGoodsType(&coll));  // rs already reset
  });
  const Variant r = repo.QueryEGoodsType(nullptr);
  EXPECT_EQ(Variant::Type::kInt16, r.type());
  EXPECT_EQ(0, r.CInt());
  EXPECT_EQ(std::vector<Variant>{Variant(std::int16_t{1})}, inner);
}

TEST_F(SampleTest, QueryEGoodsTypeReportsAServerFailure) {
  db().Exec("drop table t_egoodstype");
  clsDataBSample repo;
  Collection<clsEntEGoodsType> coll;
  EXPECT_EQ(Variant(std::int16_t{0}), repo.QueryEGoodsType(&coll));
  ExpectOnePlainReport("t_egoodstype' doesn't exist");
}

// ------------------------------------------------------------ AddRecord

TEST_F(SampleTest, AddRecordWithStatus0AppendsTheSampleAndInsertsTheRowOfCurrentdate) {
  clsDataBSample repo;
  clsEntBSample e = FullSample(2026110201);
  e.Tabletime = Date::FromParts(2026, 10, 30);  // not the day of the number row
  EXPECT_EQ(1, repo.AddRecord(e, " t_bsample ", 0, kDay));
  EXPECT_EQ((Strings{WholeTableSql(), InsertCounterSql("t_bsample", "2026110201", "2026-11-02")}),
            Commands());
  EXPECT_EQ(Strings{"INSERT INTO " + Table() +
                    " (`F_NumNo`,`F_Appgist`,`F_AskEmp`,`F_Citemno`,`F_CreaDate`,`F_Custno`,"
                    "`F_Deform`,`F_ItemDesc`,`F_ItemName`,`F_ModeDesc`,`F_ModelNo`,`F_Modoption`,"
                    "`F_OkDate`,`F_OrderNo`,`F_Qty`,`F_Remark`,`F_ReqDate`,`F_Samask`,"
                    "`F_SampleType`,`F_SenDate`,`F_SendQty`,`F_Tabler`,`F_Tabletime`,`F_Timber`,"
                    "`F_TimberNumber`,`F_Useful`,`F_PlaceID`) VALUES (2026110201,'drawing 7','zhao',"
                    "'CI-1','2026-11-01 00:00:00','C001',3,'gear, 40 teeth','gear','cast','M-40',2,"
                    "'2026-11-20 00:00:00','PO-8',10,'urgent','2026-11-15 00:00:00',"
                    "'polished','new','2026-11-18 00:00:00',8,'wang','2026-10-30 00:00:00','oak',"
                    "'T-9','show','P1')"},
            RowChanges());
  Strings row = kFullRow;
  row[Position("F_Tabletime")] = "2026-10-30 00:00:00";
  EXPECT_EQ(Rows{row}, Samples());
  EXPECT_EQ((Rows{{"t_bsample", "2026110201", "2026-11-02"}}), Counters());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, AddRecordWithAnotherStatusPointsTheRowOfCurrentdateAtTheNumber) {
  db().Exec("insert into t_sitemno values ('t_bsample', 2026110201, '2026-11-02'), "
            "('t_bcstudy', 2026110201, '2026-11-02')");
  clsDataBSample repo;
  clsEntBSample e = FullSample(2026110202);
  EXPECT_EQ(1, repo.AddRecord(e, "t_bsample", 1, kDay));
  EXPECT_EQ((Strings{WholeTableSql(), UpdateCounterSql("2026110202", "2026-11-02", "t_bsample")}),
            Commands());
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110201", "2026-11-02"},
                  {"t_bsample", "2026110202", "2026-11-02"}}),
            Counters());
  // A day without a row: the update finds nothing, the sample is stored.
  clsEntBSample other = FullSample(2026110501);
  EXPECT_EQ(1, repo.AddRecord(other, "t_bsample", 5, Date::FromParts(2026, 11, 5)));
  EXPECT_EQ(2u, Samples().size());
  EXPECT_EQ(2u, Counters().size());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, AddRecordAppendsATakenNumberAgain) {
  Sample("2026110201");
  db().Exec("insert into t_sitemno values ('t_bsample', 2026110201, '2026-11-02')");
  clsDataBSample repo;
  clsEntBSample e = FullSample(2026110201);
  EXPECT_EQ(1, repo.AddRecord(e, "t_bsample", 1, kDay));
  EXPECT_EQ(2, db().Count("t_bsample"));
  EXPECT_EQ((Rows{{"2"}}), db().Rows("select count(*) from t_bsample where F_NumNo = 2026110201"));
  // Status 0 on a day with a row: a second row.
  EXPECT_EQ(1, repo.AddRecord(e, "t_bsample", 0, kDay));
  EXPECT_EQ((Rows{{"t_bsample", "2026110201", "2026-11-02"},
                  {"t_bsample", "2026110201", "2026-11-02"}}),
            Counters());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, AddRecordOfATooLongValueShowsTheLengthReportAndGives0) {
  clsDataBSample repo;
  clsEntBSample e = FullSample(2026110201);
  e.PlaceID = std::string(51, 'p');
  EXPECT_EQ(0, repo.AddRecord(e, "t_bsample", 0, kDay));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_EQ(Strings{WholeTableSql()}, Commands());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_TRUE(Samples().empty());
  EXPECT_TRUE(Counters().empty());
  // rs was reset.
  e.PlaceID = "P1";
  EXPECT_EQ(1, repo.AddRecord(e, "t_bsample", 0, kDay));
}

TEST_F(SampleTest, AddRecordThatFailsOnTheNumberRowKeepsTheSample) {
  clsDataBSample repo;
  clsEntBSample e = FullSample(2026110201);
  EXPECT_EQ(0, repo.AddRecord(e, "t_b'sample", 0, kDay));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(Rows{kFullRow}, Samples());
  EXPECT_TRUE(Counters().empty());
}

// ------------------------------------------------------------ UpdateRecord

TEST_F(SampleTest, UpdateRecordOverwritesAll27ColumnsAndCanRenumber) {
  Sample("2026110201");
  Sample("2026110202", "C002");
  db().Exec("insert into t_sitemno values ('t_bsample', 2026110202, '2026-11-02')");
  clsDataBSample repo;
  clsEntBSample e = FullSample(2026110207);
  e.Custno = "C007";
  e.Tabletime = Date::FromParts(2026, 11, 7, 10, 0);
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201"));
  EXPECT_EQ(Strings{EditSql("2026110201")}, Commands());
  // The row is found by all its old values, the table having no key.
  EXPECT_EQ(
      Strings{"UPDATE " + Table() +
              " SET `F_NumNo`=2026110207,`F_Appgist`='drawing 7',`F_AskEmp`='zhao',"
              "`F_Citemno`='CI-1',`F_CreaDate`='2026-11-01 00:00:00',`F_Custno`='C007',"
              "`F_Deform`=3,`F_ItemDesc`='gear, 40 teeth',`F_ItemName`='gear',"
              "`F_ModeDesc`='cast',`F_ModelNo`='M-40',`F_Modoption`=2,"
              "`F_OkDate`='2026-11-20 00:00:00',`F_OrderNo`='PO-8',`F_Qty`=10,"
              "`F_Remark`='urgent',`F_ReqDate`='2026-11-15 00:00:00',`F_Samask`='polished',"
              "`F_SampleType`='new',`F_SenDate`='2026-11-18 00:00:00',`F_SendQty`=8,"
              "`F_Tabler`='wang',`F_Tabletime`='2026-11-07 10:00:00',`F_Timber`='oak',"
              "`F_TimberNumber`='T-9',`F_Useful`='show',`F_PlaceID`='P1' WHERE "
              "`F_NumNo` <=> 2026110201 AND BINARY `F_Appgist` <=> _binary'drawing 7' AND "
              "BINARY `F_AskEmp` <=> _binary'zhao' AND BINARY `F_Citemno` <=> _binary'CI-1' AND "
              "`F_CreaDate` <=> '2026-11-01 00:00:00' AND BINARY `F_Custno` <=> _binary'C001' "
              "AND `F_Deform` <=> 3 AND BINARY `F_ItemDesc` <=> _binary'gear, 40 teeth' AND "
              "BINARY `F_ItemName` <=> _binary'gear' AND BINARY `F_ModeDesc` <=> _binary'cast' "
              "AND BINARY `F_ModelNo` <=> _binary'M-40' AND `F_Modoption` <=> 2 AND "
              "`F_OkDate` <=> '2026-11-20 00:00:00' AND BINARY `F_OrderNo` <=> _binary'PO-8' "
              "AND `F_Qty` <=> 10 AND BINARY `F_Remark` <=> _binary'urgent' AND "
              "`F_ReqDate` <=> '2026-11-15 00:00:00' AND BINARY `F_Samask` <=> "
              "_binary'polished' AND BINARY `F_SampleType` <=> _binary'new' AND `F_SenDate` <=> "
              "'2026-11-18 00:00:00' AND `F_SendQty` <=> 8 AND BINARY `F_Tabler` <=> "
              "_binary'wang' AND `F_Tabletime` <=> '2026-11-02 00:00:00' AND BINARY `F_Timber` "
              "<=> _binary'oak' AND BINARY `F_TimberNumber` <=> _binary'T-9' AND BINARY "
              "`F_Useful` <=> _binary'show' AND BINARY `F_PlaceID` <=> _binary'P1' LIMIT 1"},
      RowChanges());
  Strings changed = kFullRow;
  changed[0] = "2026110207";
  changed[Position("F_Custno")] = "C007";
  changed[Position("F_Tabletime")] = "2026-11-07 10:00:00";
  Strings untouched = kFullRow;
  untouched[0] = "2026110202";
  untouched[Position("F_Custno")] = "C002";
  EXPECT_EQ((Rows{untouched, changed}), Samples());
  // t_sitemno stays as it was.
  EXPECT_EQ((Rows{{"t_bsample", "2026110202", "2026-11-02"}}), Counters());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, UpdateRecordReadsTheKeyTextByItsLeadingDigits) {
  Sample("12", "C012");
  Sample("0", "C000");
  clsDataBSample repo;
  clsEntBSample e = FullSample(12);
  e.Custno = "by 012x";
  EXPECT_EQ(1, repo.UpdateRecord(e, "012x"));
  clsEntBSample zero = FullSample(0);
  zero.Custno = "by abc";
  EXPECT_EQ(1, repo.UpdateRecord(zero, "abc"));
  EXPECT_EQ((Strings{EditSql("12"), EditSql("0")}), Commands());
  EXPECT_EQ((Rows{{"0", "by abc"}, {"12", "by 012x"}}),
            db().Rows("select F_NumNo, F_Custno from t_bsample order by F_NumNo"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, UpdateRecordOfAnUnknownNumberGives0WithAReport) {
  Sample("2026110201");
  clsDataBSample repo;
  std::vector<std::int16_t> inner;
  std::vector<Report> seen;
  SetReportHandler([&](const Report& r) {
    seen.push_back(r);
    if (seen.size() != 1) return;
    clsEntBSample g;
    g.NumNo = 2026110201;
    inner.push_back(repo.GetSampleRecord(g));  // rs was reset before the report
  });
  clsEntBSample e = FullSample(2026110209);
  EXPECT_EQ(0, repo.UpdateRecord(e, "2026110209"));
  EXPECT_EQ(Reports_{PlainReport(kNoRowWords)}, seen);
  EXPECT_EQ(std::vector<std::int16_t>{1}, inner);
  EXPECT_EQ((Strings{EditSql("2026110209"), GetSql("2026110201")}), Commands());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(Rows{kFullRow}, Samples());
}

TEST_F(SampleTest, UpdateRecordOfATooLongValueShowsTheLengthReportAndGives0) {
  Sample("2026110201");
  clsDataBSample repo;
  clsEntBSample e = FullSample(2026110201);
  e.TimberNumber = std::string(51, 't');
  EXPECT_EQ(0, repo.UpdateRecord(e, "2026110201"));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(Rows{kFullRow}, Samples());
}

// ------------------------------------------------------------ QueryMaxItemDelete

TEST_F(SampleTest, QueryMaxItemDeleteGivesTheLargestNumberOfTheDay) {
  Sample("2026110201", "C001", "2026-11-02");
  Sample("2026110202", "C001", "2026-11-02");
  Sample("2026110301", "C001", "2026-11-03");
  clsDataBSample repo;
  clsEntBSample e = FullSample(1);
  EXPECT_EQ(1, repo.QueryMaxItemDelete(e, kDay));
  EXPECT_EQ(2026110202, e.NumNo);
  EXPECT_EQ("C001", e.Custno);
  EXPECT_EQ(Strings{LargestOfDaySql("2026-11-02")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryMaxItemDeleteOnADayWithoutSamplesGives0WithAReport) {
  Sample("2026110301", "C001", "2026-11-03");
  clsDataBSample repo;
  clsEntBSample e = FullSample(4);
  EXPECT_EQ(0, repo.QueryMaxItemDelete(e, kDay));
  EXPECT_EQ(Reports_{PlainReport("Invalid use of Null")}, Reports());
  EXPECT_EQ(4, e.NumNo);
  // rs was reset.
  EXPECT_EQ(1, repo.QueryMaxItemDelete(e, Date::FromParts(2026, 11, 3)));
  EXPECT_EQ(2026110301, e.NumNo);
}

// ------------------------------------------------------------ DeleteRecord

class SampleDeleteTest : public SampleTest {
 protected:
  void SetUp() override {
    SampleTest::SetUp();
    Sample("2026110201", "C001", "2026-11-02");
    Sample("2026110202", "C001", "2026-11-02");
    Sample("2026110203", "C002", "2026-11-02");
    Sample("2026110301", "C002", "2026-11-03");
    db().Exec("insert into t_sitemno values ('t_bsample', 2026110203, '2026-11-02'), "
              "('t_bsample', 2026110301, '2026-11-03'), ('t_bcstudy', 2026110203, "
              "'2026-11-02')");
  }
  Rows Left() { return db().Rows("select F_NumNo from t_bsample order by 1"); }
  static clsEntBSample Of(double no, const Date& day) {
    clsEntBSample e = FullSample(no);
    e.Tabletime = day;
    return e;
  }
};

TEST_F(SampleDeleteTest, WithAStatusOtherThan1OnlyTheSampleGoes) {
  clsDataBSample repo;
  clsEntBSample e = Of(2026110203, kDay);
  EXPECT_EQ(1, repo.DeleteRecord(e, 0, "t_bsample"));
  EXPECT_EQ(Strings{DeleteSql("2026110203")}, Commands());
  EXPECT_EQ((Rows{{"2026110201"}, {"2026110202"}, {"2026110301"}}), Left());
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110203", "2026-11-02"},
                  {"t_bsample", "2026110203", "2026-11-02"},
                  {"t_bsample", "2026110301", "2026-11-03"}}),
            Counters());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleDeleteTest, WithStatus1TheRowOfTabletimeFollowsTheLargestNumberLeft) {
  clsDataBSample repo;
  clsEntBSample e = Of(2026110203, kDay);
  EXPECT_EQ(1, repo.DeleteRecord(e, 1, "t_bsample"));
  EXPECT_EQ((Strings{DeleteSql("2026110203"), DocumentsOfDaySql("2026-11-02"),
                     FollowMaxSql("2026-11-02", "t_bsample")}),
            Commands());
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110203", "2026-11-02"},
                  {"t_bsample", "2026110202", "2026-11-02"},
                  {"t_bsample", "2026110301", "2026-11-03"}}),
            Counters());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleDeleteTest, WithStatus1TheLastSampleOfTheDayRemovesTheRowAndGives2) {
  clsDataBSample repo;
  clsEntBSample e = Of(2026110301, Date::FromParts(2026, 11, 3));
  EXPECT_EQ(2, repo.DeleteRecord(e, 1, "t_bsample"));
  EXPECT_EQ((Strings{DeleteSql("2026110301"), DocumentsOfDaySql("2026-11-03"),
                     RemoveCounterSql("2026-11-03", "t_bsample")}),
            Commands());
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110203", "2026-11-02"},
                  {"t_bsample", "2026110203", "2026-11-02"}}),
            Counters());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleDeleteTest, ATabletimeThatDiffersFromTheAddsDayMissesTheRow) {
  // Added with currentdate 2026-11-03 but a Tabletime with a time of day: the
  // delete looks for the day by Tabletime and finds nothing of it.
  clsDataBSample repo;
  clsEntBSample e = Of(2026110302, Date::FromParts(2026, 11, 3, 9, 30));
  EXPECT_EQ(1, repo.AddRecord(e, "t_bsample", 1, Date::FromParts(2026, 11, 3)));
  EXPECT_EQ("2026110302", db().Scalar("select F_No from t_sitemno where F_TableName='t_bsample' "
                                      "and F_FnDate='2026-11-03'"));
  Clear();
  EXPECT_EQ(2, repo.DeleteRecord(e, 1, "t_bsample"));
  EXPECT_EQ((Strings{DeleteSql("2026110302"), DocumentsOfDaySql("2026-11-03 09:30:00"),
                     RemoveCounterSql("2026-11-03 09:30:00", "t_bsample")}),
            Commands());
  // The row of the 3rd still points at the deleted number.
  EXPECT_EQ("2026110302", db().Scalar("select F_No from t_sitemno where F_TableName='t_bsample' "
                                      "and F_FnDate='2026-11-03'"));
  EXPECT_EQ(4u, Left().size());
}

TEST_F(SampleDeleteTest, AFailureGives0WithThePlainReport) {
  clsDataBSample repo;
  clsEntBSample e = Of(2026110203, kDay);
  EXPECT_EQ(0, repo.DeleteRecord(e, 1, "t_b'sample"));
  ExpectOnePlainReport(kSyntax);
  EXPECT_EQ(3u, Left().size());  // the sample went before the failure
  EXPECT_EQ("2026110203", db().Scalar("select F_No from t_sitemno where F_TableName='t_bsample' "
                                      "and F_FnDate='2026-11-02'"));
  Clear();
  clsEntBSample other = Of(2026110202, kDay);
  EXPECT_EQ(1, repo.DeleteRecord(other, 1, "t_bsample"));
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ QueryAllCustmo

TEST_F(SampleTest, QueryAllCustmoListsEachCustomerOnceAndGivesEmpty) {
  Sample("3", "C002");
  Sample("1", "C001");
  Sample("2", "C002");
  db().Exec("insert into t_bsample (F_NumNo) values (4)");
  clsDataBSample repo;
  Collection<clsEntBSample> coll;
  const Variant r = repo.QueryAllCustmo(&coll);
  EXPECT_TRUE(r.IsEmpty());
  Strings customers;
  for (const auto& e : coll) customers.push_back(e->Custno);
  EXPECT_EQ((Strings{"", "C001", "C002"}), customers);
  EXPECT_EQ(0, coll.Item(2).NumNo);  // only Custno is read
  EXPECT_EQ(Strings{CustomersSql()}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryAllCustmoWithoutSamplesGivesEmptyToo) {
  clsDataBSample repo;
  Collection<clsEntBSample> coll;
  EXPECT_TRUE(repo.QueryAllCustmo(&coll).IsEmpty());
  EXPECT_TRUE(repo.QueryAllCustmo(nullptr).IsEmpty());
  EXPECT_EQ(0u, coll.Count());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryAllCustmoFailureGives0AsA16BitInteger) {
  Sample("1");
  clsDataBSample repo;
  const Variant r = repo.QueryAllCustmo(nullptr);
  EXPECT_EQ(Variant::Type::kInt16, r.type());
  EXPECT_EQ(0, r.CInt());
  EXPECT_EQ(Reports_{PlainReport("Object required")}, Reports());
  Clear();
  db().Exec("drop table t_bsample");
  Collection<clsEntBSample> coll;
  EXPECT_EQ(Variant(std::int16_t{0}), repo.QueryAllCustmo(&coll));
  ExpectOnePlainReport("t_bsample' doesn't exist");
}

// ------------------------------------------------------------ QueryAlldetaile

TEST_F(SampleTest, QueryAlldetaileGivesTheSamplesOfACustomerWhole) {
  Sample("2026110201", "C001");
  Sample("2026110202", "C002");
  Sample("2026110203", "C001");
  clsDataBSample repo;
  Collection<clsEntBSample> coll;
  EXPECT_EQ(1, repo.QueryAlldetaile(&coll, "C001"));
  ASSERT_EQ(2u, coll.Count());
  Strings first = kFullProps;
  Strings second = kFullProps;
  second[0] = "2026110203";
  EXPECT_EQ(first, Props(coll.Item(1)));
  EXPECT_EQ(second, Props(coll.Item(2)));
  EXPECT_EQ(Strings{OfCustomerSql("C001")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryAlldetaileOfACustomerWithoutSamplesGives0) {
  Sample("2026110201", "C001");
  clsDataBSample repo;
  Collection<clsEntBSample> coll;
  EXPECT_EQ(0, repo.QueryAlldetaile(&coll, "C404"));
  EXPECT_EQ(0u, coll.Count());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryAlldetaileReadsNullTextsAsEmptyTextAppgistAndOkDateAsZero) {
  Sample("7");
  for (const std::string& column : kEmptyTextColumns) SetNull(column);
  SetNull("F_Appgist");
  SetNull("F_OkDate");
  SetNull("F_Useful");
  clsDataBSample repo;
  Collection<clsEntBSample> coll;
  EXPECT_EQ(1, repo.QueryAlldetaile(&coll, "C001"));
  ASSERT_EQ(1u, coll.Count());
  Strings expected = kFullProps;
  expected[0] = "7";
  for (const std::string& column : kEmptyTextColumns) expected[Position(column)] = "";
  expected[Position("F_Appgist")] = "0";
  expected[Position("F_OkDate")] = "1899-12-30";
  expected[Position("F_Useful")] = "";
  expected[Position("F_PlaceID")] = "";  // F_Useful null: F_PlaceID is not taken
  EXPECT_EQ(expected, Props(coll.Item(1)));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryAlldetaileFailsOnANullNumberOrDateWithTheRowsBeforeKept) {
  Strings failing = kFailingInDetail;
  failing.push_back("F_PlaceID");  // with F_Useful set
  for (const std::string& column : failing) {
    db().Exec("delete from t_bsample");
    Sample("1");
    Sample("2");
    Sample("3");
    SetNull(column, "F_NumNo = 2");
    Clear();
    clsDataBSample repo;
    Collection<clsEntBSample> coll;
    EXPECT_EQ(0, repo.QueryAlldetaile(&coll, "C001")) << column;
    const std::string words =
        column == "F_PlaceID" ? "Invalid use of Null" : "Type mismatch";
    EXPECT_EQ(Reports_{PlainReport(words)}, Reports()) << column;
    // The first row is in the collection, the failing one is not.
    ASSERT_EQ(1u, coll.Count()) << column;
    EXPECT_EQ(1, coll.Item(1).NumNo) << column;
  }
}

TEST_F(SampleTest, QueryAlldetaileWithAQuoteOrANullCollectionGives0) {
  Sample("1");
  clsDataBSample repo;
  Collection<clsEntBSample> coll;
  EXPECT_EQ(0, repo.QueryAlldetaile(&coll, "C'001"));
  ExpectOnePlainReport(kSyntax);
  Clear();
  std::vector<std::int16_t> inner;
  int reports = 0;
  SetReportHandler([&](const Report& r) {
    EXPECT_EQ(PlainReport("Object required"), r);
    if (++reports == 1) inner.push_back(repo.QueryAlldetaile(&coll, "C001"));  // rs reset
  });
  EXPECT_EQ(0, repo.QueryAlldetaile(nullptr, "C001"));
  EXPECT_EQ(std::vector<std::int16_t>{1}, inner);
  EXPECT_EQ(1u, coll.Count());
}

TEST_F(SampleTest, QueryAlldetaileReadsANullCustnoAsEmptyText) {
  // Only a quote in the customer number reaches a row without one.
  Sample("7");
  SetNull("F_Custno");
  clsDataBSample repo;
  Collection<clsEntBSample> coll;
  EXPECT_EQ(1, repo.QueryAlldetaile(&coll, "x' or F_Custno is null or 'a'='b"));
  EXPECT_EQ(Strings{"select * from t_bsample where F_Custno='x' or F_Custno is null or "
                    "'a'='b'"},
            Commands());
  ASSERT_EQ(1u, coll.Count());
  EXPECT_EQ("", coll.Item(1).Custno);
  EXPECT_EQ(7, coll.Item(1).NumNo);
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ QueryCondition

TEST_F(SampleTest, QueryConditionFindsTheRowOfTheNameAndDay) {
  db().Exec("insert into t_sitemno values ('t_bsample', 2026110204, '2026-11-02'), "
            "('t_bcstudy', 2026110207, '2026-11-02')");
  clsDataBSample repo;
  clsEntSitemNo e;
  EXPECT_EQ(1, repo.QueryCondition(kDay, "t_bsample", e));
  EXPECT_EQ(2026110204, e.no);
  clsEntSitemNo none;
  none.no = 3;
  EXPECT_EQ(0, repo.QueryCondition(Date::FromParts(2026, 11, 3), "t_bsample", none));
  EXPECT_EQ(3, none.no);
  EXPECT_EQ((Strings{QueryConditionSql("t_bsample", "2026-11-02"),
                     QueryConditionSql("t_bsample", "2026-11-03")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(SampleTest, QueryConditionFailureGives2) {
  db().Exec("insert into t_sitemno values ('t_bsample', null, '2026-11-02')");
  clsDataBSample repo;
  clsEntSitemNo e;
  EXPECT_EQ(2, repo.QueryCondition(kDay, "t_bsample", e));
  EXPECT_EQ(Reports_{PlainReport("Invalid use of Null")}, Reports());
  Clear();
  EXPECT_EQ(2, repo.QueryCondition(kDay, "t_b'sample", e));
  ExpectOnePlainReport(kSyntax);
}

// ------------------------------------------------------------ rs across calls

TEST_F(SampleTest, ReadsAfterAKeysetEditTakeOverItsCursorAndReadAsEver) {
  Sample("2026110201", "C001");
  Sample("2026110202", "C002");
  db().Exec("insert into t_egoodstype values ('wood', '1')");
  clsDataBSample repo;
  clsEntBSample e = FullSample(2026110201);
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201"));
  // rs is closed with CursorType 1 and LockType 3 set on it; the read-opens
  // that follow use them.
  Collection<clsEntEGoodsType> types;
  EXPECT_EQ(Variant(std::int16_t{1}), repo.QueryEGoodsType(&types));
  Collection<clsEntBSample> customers;
  EXPECT_TRUE(repo.QueryAllCustmo(&customers).IsEmpty());
  EXPECT_EQ(2u, customers.Count());
  Collection<clsEntBSample> of_customer;
  EXPECT_EQ(1, repo.QueryAlldetaile(&of_customer, "C002"));
  EXPECT_EQ(1u, of_customer.Count());
  clsEntBSample got;
  got.NumNo = 2026110202;
  EXPECT_EQ(1, repo.GetSampleRecord(got));
  clsEntBSample largest;
  EXPECT_EQ(1, repo.QueryMaxItem(largest));
  EXPECT_EQ(2026110202, largest.NumNo);
  EXPECT_EQ(1u, RowChanges().size());  // the update alone
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------ the day's turn

TEST_F(SampleTest, TwoSamplesOfADay) {
  clsDataBSample repo;
  clsEntSitemNo counter;
  EXPECT_EQ(0, repo.QueryCondition(kDay, "t_bsample", counter));
  clsEntBSample first = FullSample(2026110201);
  EXPECT_EQ(1, repo.AddRecord(first, "t_bsample", 0, kDay));
  EXPECT_EQ(1, repo.QueryCondition(kDay, "t_bsample", counter));
  clsEntBSample second = FullSample(counter.no + 1);
  EXPECT_EQ(1, repo.AddRecord(second, "t_bsample", 1, kDay));
  EXPECT_EQ(1, repo.QueryCondition(kDay, "t_bsample", counter));
  EXPECT_EQ(2026110202, counter.no);
  clsEntBSample largest;
  EXPECT_EQ(1, repo.QueryMaxItem(largest));
  EXPECT_EQ(2026110202, largest.NumNo);
  EXPECT_EQ((Rows{{"t_bsample", "2026110202", "2026-11-02"}}), Counters());
  EXPECT_TRUE(Reports().empty());
}

}  // namespace
}  // namespace corvane
