// clsDataBOrdChange against the sandbox server: the queries, the store and
// overwrite of a request, and the numbers of the day. The approval and its
// carry-over are in order_change_approval_test.cc.
#include "corvane/orders/order_change.h"

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
using Rows = std::vector<std::vector<std::string>>;
using Texts = std::vector<std::string>;

// The statements as the class sends them.
const std::string kQueryQty =
    "select count(*) as F_Count from T_BOrderi Oi,T_BOrdChange OC where Oi.F_ProdNo=OC.F_ProdNo "
    "and OC.F_NewQty=Oi.F_OutQty and OC.F_NewQty>0";
const std::string kMonthDate =
    "select distinct  left(F_UpDate,7) as F_UpDate  from T_BOrdChange   limit 0,12";
const std::string kQueryTF =
    "select * from T_BOrdChange where left(cast(F_upNo as char),8)=cast(curdate()+0 as char)";
const std::string kLastOfToday =
    "select si.* from t_sitemno si,T_BOrdChange wo  where  si.f_tablename='T_BOrdChange' and "
    "si.f_no=(select max(f_UpNo) from T_BOrdChange where left(cast(f_UpNo as char),8) "
    "=cast(curdate()+0 as char)) and left(cast(si.f_no as char),8) =cast(curdate()+0 as char)";
const std::string kServerNumber = "select curdate()+0 as f_no";
const std::string kServerDate = "select curdate() as f_fndate";
const std::string kUpNoList = "select f_UpNo ,F_UpDate from T_BOrdChange Order By F_UpNo Desc";
const std::string kCounterOfToday =
    "select * from T_SitemNo where  F_TableName='T_BOrdChange'and left(cast(F_No as "
    "char),8)=left(cast(curdate()+0 as char),8)";
const std::string kOpenCounter =
    "insert into T_SitemNo(F_TableName,F_No,F_FnDate) "
    "values('T_BOrdChange',0+cast(concat(cast(curdate()+0 as char),'001') as signed),curdate())";
const std::string kAdvanceCounter =
    "update t_sitemno set f_no=f_no+1,f_fndate=curdate() where F_TableName='T_BOrdChange'and "
    "left(cast(f_no as char),8) =cast(curdate()+0 as char) ";
const std::string kWholeTable = "select * from T_BOrdChange";

std::string QueryNewQtySql(const std::string& prod) {
  return "select F_OutQty  from T_BOrderi where F_ProdNo=" + prod;
}
std::string UpdateSelect(const std::string& n) {
  return "select * from T_BOrdChange where F_UpNo= '" + n + "'";
}
std::string QueryRecordSql(const std::string& n) {
  return "select *  from T_BOrdChange where F_UpNo=" + n;
}
std::string NumberTaken(const std::string& n) {
  return "select * from T_BOrdChange where F_upNo= '" + n + "'";
}
std::string Document(const std::string& n) {
  return "select * from T_BOrdChange where F_UpNo ='" + n + "' ";
}
std::string HeldByCounter(const std::string& n) {
  return "select Qi.* from  T_BOrdChange Qi,t_sitemno si where Qi.f_upNo=si.f_no and si.f_no='" +
         n + "'";
}
std::string DeleteUnheld(const std::string& n) {
  return "delete  from T_BOrdChange where F_upNo ='" + n + "' ";
}
std::string DeleteHeld(const std::string& n) {
  return "delete from T_BOrdChange where F_upNo ='" + n + "' ";
}
std::string DocumentsOfDay(const std::string& p) {
  return "select * from T_BOrdChange  where   left(cast(f_upNo as char),8)='" + p + "'";
}
std::string RemoveCounter(const std::string& p) {
  return "delete from t_sitemno  where f_tablename='T_BOrdChange' and left(cast(f_no as "
         "char),8)='" +
         p + "'";
}
std::string LowerCounter(const std::string& p) {
  return "update t_sitemno set f_no=(select max(f_upNo) from T_BOrdChange where "
         "left(cast(f_upNo as char),8)='" +
         p + "') where f_tablename='T_BOrdChange' and left(cast(f_no as char),8)='" + p + "'";
}

// Reports as "text | style | title", so that whole reports compare and print.
Texts Lines(const std::vector<Report>& reports) {
  Texts out;
  for (const Report& r : reports) {
    out.push_back(r.text + " | " + std::to_string(r.style) + " | " + r.title);
  }
  return out;
}

// The failures the frame and the runtime describe.
const std::string kObjectOpen = "Operation is not allowed when the object is open";
const std::string kTypeMismatch = "Type mismatch";
const std::string kInvalidUseOfNull = "Invalid use of Null";
const std::string kObjectRequired = "Object required";
std::string ItemNotFound(const std::string& column) {
  return "Item cannot be found in the collection corresponding to the requested name or "
         "ordinal: " +
         column;
}

// Every column of T_BOrdChange, in table order.
const std::string kAllColumns =
    "F_UpNo,F_UpDate,F_ProdNo,F_ItemNo,F_CustNo,F_OldQty,F_NewQty,F_OldBkQty,F_NewBkQty,"
    "F_Oldate,F_NewDate,F_QtyUp,F_DateUp,F_ItemUp,F_Other,F_UpCause,F_UpDesc,F_PurDesc,F_WhDesc,"
    "F_SgDesc,F_EgDesc,F_BsDecide,F_Burden,F_Deal,F_Tabler,F_Tabletime,F_OldcorderNo,"
    "F_NewcorderNo,F_NewcustNo,F_Flags,F_Cancel,F_Approve,F_ApproveTime";

// AddRecord's writes in their order, spelled as written.
const Texts kAddWrites = {
    "F_upNo",     "F_UpDate",   "F_ProdNo",      "F_ItemNo",      "F_CustNo",    "F_OldQty",
    "F_NewQty",   "F_OldBkQty", "F_NewBkQty",    "F_Oldate",      "F_NewDate",   "F_QtyUp",
    "F_DateUp",   "F_ItemUp",   "F_Other",       "F_UpCause",     "F_UpDesc",    "F_PurDesc",
    "F_WhDesc",   "F_SgDesc",   "F_EgDesc",      "F_BsDecide",    "F_Burden",    "F_Deal",
    "F_Tabler",   "F_Tabletime", "F_OldcorderNo", "F_NewcorderNo", "F_NewcustNo", "F_Flags",
    "F_Cancel"};

// UpdateRecord's writes in their order: the dates ahead of the spare quantities.
const Texts kUpdateWrites = {
    "F_ProdNo",   "F_ItemNo",   "F_CustNo",      "F_OldQty",      "F_NewQty",    "F_Oldate",
    "F_NewDate",  "F_OldBkQty", "F_NewBkQty",    "F_QtyUp",       "F_DateUp",    "F_ItemUp",
    "F_Other",    "F_UpCause",  "F_UpDesc",      "F_PurDesc",     "F_WhDesc",    "F_SgDesc",
    "F_EgDesc",   "F_BsDecide", "F_Burden",      "F_Deal",        "F_Tabler",    "F_Tabletime",
    "F_OldcorderNo", "F_NewcorderNo", "F_NewcustNo", "F_Flags", "F_Cancel"};

// QueryRecord's reads in their order.
const Texts kRecordReads = {
    "F_UpNo",    "F_UpDate",  "F_ProdNo",   "F_ItemNo",   "F_CustNo",      "F_OldQty",
    "F_NewQty",  "F_OldBkQty", "F_NewBkQty", "F_Oldate",  "F_NewDate",     "F_QtyUp",
    "F_DateUp",  "F_ItemUp",  "F_Other",    "F_UpCause",  "F_UpDesc",      "F_PurDesc",
    "F_WhDesc",  "F_SgDesc",  "F_EgDesc",   "F_BsDecide", "F_Burden",      "F_Deal",
    "F_OldcorderNo", "F_NewcorderNo", "F_NewcustNo", "F_Flags", "F_Cancel"};

// A request with every property set.
clsEntBOrdChange Sample(double up_no) {
  clsEntBOrdChange e;
  e.UpNo = up_no;
  e.UpDate = Date::FromParts(2026, 11, 3);
  e.ProdNo = 3001;
  e.ItemNo = "ITM-7";
  e.CustNo = "C-12";
  e.OldQty = 100;
  e.NewQty = 120.5;
  e.OldBkQty = 2;
  e.NewBkQty = 3.25;
  e.Oldate = Date::FromParts(2026, 12, 1);
  e.NewDate = Date::FromParts(2026, 12, 15, 8, 30, 0);
  e.QtyUp = 1;
  e.DateUp = 1;
  e.ItemUp = 0;
  e.Other = "other";
  e.UpCause = "cause";
  e.UpDesc = "更改数量";
  e.PurDesc = "pur";
  e.WhDesc = "wh";
  e.SgDesc = "sg";
  e.EgDesc = "eg";
  e.BsDecide = "agreed";
  e.Burden = "customer";
  e.Deal = "deal";
  e.Tabler = "anna";
  e.Tabletime = Date::FromParts(2026, 11, 3, 9, 15, 0);
  e.OldcorderNo = "PO-1";
  e.NewcorderNo = "PO-2";
  e.NewcustNo = "C-13";
  e.Flags = 0;
  e.Cancel = 0;
  return e;
}

// The row Sample(up_no) leaves in the table, approval columns still empty.
std::vector<std::string> SampleRow(const std::string& up_no) {
  return {up_no,     "2026-11-03 00:00:00", "3001",   "ITM-7", "C-12", "100", "120.5", "2",
          "3.25",    "2026-12-01 00:00:00", "2026-12-15 08:30:00", "1", "1", "0", "other",
          "cause",   "更改数量", "pur", "wh", "sg", "eg", "agreed", "customer", "deal", "anna",
          "2026-11-03 09:15:00", "PO-1", "PO-2", "C-13", "0", "0", "NULL", "NULL"};
}

class OrdChangeTest : public SandboxTest {
 protected:
  // Today's yyyymmdd from the server.
  std::string Today() { return db().Scalar("select curdate()+0").value(); }
  Date TodayDate() {
    const std::string t = Today();
    return Date::FromParts(std::stoi(t.substr(0, 4)), std::stoi(t.substr(4, 2)),
                           std::stoi(t.substr(6, 2)));
  }
  // A request row with only its number and some columns set.
  void InsertChange(const std::string& up_no, const std::string& columns = "",
                    const std::string& values = "") {
    db().Exec("insert into t_bordchange (F_UpNo" + (columns.empty() ? "" : "," + columns) +
              ") values (" + up_no + (values.empty() ? "" : "," + values) + ")");
  }
  void InsertCounter(const std::string& table, const std::string& no, const std::string& day) {
    db().Exec("insert into t_sitemno values ('" + table + "'," + no + ",'" + day + "')");
  }
  Rows Counters() {
    return db().Rows("select F_TableName,F_No,F_FnDate from t_sitemno order by F_TableName,F_No");
  }
  // The request table as the row changes name it.
  std::string Table() {
    std::string db_name = database();
    std::transform(db_name.begin(), db_name.end(), db_name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return "`" + db_name + "`.`t_bordchange`";
  }
  Rows Changes() {
    return db().Rows("select " + kAllColumns + " from t_bordchange order by F_UpNo");
  }
};

// ---------------------------------------------------------------- QueryQty

TEST_F(OrdChangeTest, QueryQtyGivesTwoWhenNoRequestMatchesItsShippedQuantity) {
  db().Exec("insert into t_borderi (F_ProdNo,F_OutQty) values (3001,10)");
  InsertChange("20261103001", "F_ProdNo,F_NewQty", "3001,12");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryQty(), 2);
  EXPECT_EQ(Commands(), Texts{kQueryQty});
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryQtyGivesTwoOnEmptyTables) {
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryQty(), 2);
  EXPECT_EQ(Commands(), Texts{kQueryQty});
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryQtyGivesOneWhenANewQuantityEqualsTheShippedOne) {
  db().Exec("insert into t_borderi (F_OrderNo,F_ProdNo,F_OutQty) values (20261101001,3001,10)");
  InsertChange("20261103001", "F_ProdNo,F_NewQty", "3001,10");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryQty(), 1);
  EXPECT_EQ(Commands(), Texts{kQueryQty});
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryQtyIgnoresANewQuantityOfZero) {
  db().Exec("insert into t_borderi (F_ProdNo,F_OutQty) values (3001,0)");
  InsertChange("20261103001", "F_ProdNo,F_NewQty", "3001,0");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryQty(), 2);
}

TEST_F(OrdChangeTest, QueryQtyLooksAtApprovedRequestsOfAnyOrder) {
  // Two orders; the only match is an approved request of the second one.
  db().Exec(
      "insert into t_borderi (F_OrderNo,F_ProdNo,F_OutQty) values "
      "(20261101001,3001,10),(20261101002,3002,4)");
  InsertChange("20261103001", "F_ProdNo,F_NewQty,F_Flags", "3001,12,0");
  InsertChange("20261103002", "F_ProdNo,F_NewQty,F_Flags,F_Approve", "3002,4,1,'boss'");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryQty(), 1);
}

TEST_F(OrdChangeTest, QueryQtyFailureShowsTheServerMessageAndGivesZeroThenRecovers) {
  db().Exec("drop table t_borderi");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryQty(), 0);
  EXPECT_EQ(Commands(), Texts{kQueryQty});
  ASSERT_EQ(Reports().size(), 1u);
  EXPECT_NE(Reports()[0].text.find("doesn't exist"), std::string::npos) << Reports()[0].text;
  EXPECT_EQ(Reports()[0].style, 64);
  EXPECT_EQ(Reports()[0].title, "塔恩维克");
  // rs was reset: QueryTF, which uses rs as it stands, works at once.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------------- QueryNewQty

TEST_F(OrdChangeTest, QueryNewQtyGivesTheShippedQuantityOfTheLine) {
  db().Exec("insert into t_borderi (F_ProdNo,F_OrdQty,F_OutQty) values (20261122001,50,7.5)");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryNewQty(20261122001), 7.5);
  EXPECT_EQ(Commands(), Texts{QueryNewQtySql("20261122001")});
  EXPECT_TRUE(Reports().empty());
  // rs was dropped, not left open.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryNewQtyGivesZeroWithoutALine) {
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryNewQty(3001), 0);
  EXPECT_EQ(Commands(), Texts{QueryNewQtySql("3001")});
  EXPECT_TRUE(Reports().empty());
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryNewQtyOnANullShippedQuantityFailsAndGivesZero) {
  db().Exec("insert into t_borderi (F_ProdNo,F_OrdQty,F_OutQty) values (3001,50,NULL)");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryNewQty(3001), 0);
  EXPECT_EQ(Commands(), Texts{QueryNewQtySql("3001")});
  // The length report shows the description of any failure but a value too long.
  EXPECT_EQ(Lines(Reports()), Lines({PlainReport(kInvalidUseOfNull)}));
  Clear();
  EXPECT_EQ(repo.QueryNewQty(3001), 0);
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_EQ(Reports().size(), 1u);  // only the repeated null read
}

TEST_F(OrdChangeTest, QueryNewQtyFailureOfTheServerGivesZero) {
  db().Exec("drop table t_borderi");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryNewQty(3001), 0);
  ASSERT_EQ(Reports().size(), 1u);
  EXPECT_NE(Reports()[0].text.find("doesn't exist"), std::string::npos);
  EXPECT_EQ(Reports()[0].style, 64);
  EXPECT_EQ(Reports()[0].title, "塔恩维克");
}

// ------------------------------------------------------------ UpdateRecord

TEST_F(OrdChangeTest, UpdateRecordOverwritesTheRequestButItsNumberAndDate) {
  InsertChange("20261103001", kAllColumns.substr(7),
               "'2026-11-01',9,'old','oldc',1,1,1,1,'2026-01-01','2026-01-02',0,0,1,'o','c','d',"
               "'p','w','s','e','b','bu','de','tab','2026-11-01 10:00:00','oc','nc','nu',1,0,"
               "'boss','2026-11-02 11:00:00'");
  clsEntBOrdChange e = Sample(20261103001);
  e.UpDate = Date::FromParts(2030, 1, 1);  // not written by UpdateRecord
  e.Flags = 0;                             // clears the approval flag
  e.Cancel = 1;
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(Commands(), (Texts{UpdateSelect("20261103001"), UpdateSelect("20261103001")}));
  EXPECT_TRUE(Reports().empty());
  std::vector<std::string> expected = SampleRow("20261103001");
  expected[1] = "2026-11-01 00:00:00";  // F_UpDate stays
  expected[30] = "1";                   // F_Cancel
  expected[31] = "boss";                // F_Approve stays
  expected[32] = "2026-11-02 11:00:00"; // F_ApproveTime stays
  EXPECT_EQ(Changes(), Rows{expected});
  // One catalog question and one row change, found by the key.
  ASSERT_EQ(Sent().size(), 4u);
  EXPECT_EQ(Sent()[2].kind, StatementKind::kCatalog);
  EXPECT_EQ(Sent()[3].kind, StatementKind::kRowChange);
  EXPECT_EQ(Sent()[3].text,
            "UPDATE " + Table() +
                " SET `F_ProdNo`=3001,`F_ItemNo`='ITM-7',`F_CustNo`='C-12',`F_OldQty`=100,"
                "`F_NewQty`=120.5,`F_OldBkQty`=2,`F_NewBkQty`=3.25,`F_Oldate`='2026-12-01 "
                "00:00:00',`F_NewDate`='2026-12-15 08:30:00',`F_QtyUp`=1,`F_DateUp`=1,"
                "`F_ItemUp`=0,`F_Other`='other',`F_UpCause`='cause',`F_UpDesc`='更改数量',"
                "`F_PurDesc`='pur',`F_WhDesc`='wh',`F_SgDesc`='sg',`F_EgDesc`='eg',"
                "`F_BsDecide`='agreed',`F_Burden`='customer',`F_Deal`='deal',`F_Tabler`='anna',"
                "`F_Tabletime`='2026-11-03 09:15:00',`F_OldcorderNo`='PO-1',`F_NewcorderNo`='PO-2',"
                "`F_NewcustNo`='C-13',`F_Flags`=0,`F_Cancel`=1 WHERE `F_UpNo` <=> 20261103001 "
                "LIMIT 1");
  // rs was dropped: QueryTF works at once.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, UpdateRecordOfAMissingNumberGivesTwoAndClosesRs) {
  InsertChange("20261103001", "F_ItemNo", "'keep'");
  clsEntBOrdChange e = Sample(20261103002);
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateRecord(e), 2);
  EXPECT_EQ(Commands(), Texts{UpdateSelect("20261103002")});
  EXPECT_EQ(Sent().size(), 1u);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Scalar("select F_ItemNo from t_bordchange"), "keep");
  // Closed, not left open: QueryTF works on the same rs.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, UpdateRecordCanClearTheApprovalFlagWhileTheApproverStays) {
  InsertChange("20261103001", "F_ProdNo,F_Flags,F_Approve,F_ApproveTime",
               "3001,1,'boss','2026-11-02 11:00:00'");
  clsEntBOrdChange e = Sample(20261103001);
  e.Flags = 0;
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(db().Rows("select F_Flags,F_Approve,F_ApproveTime from t_bordchange"),
            (Rows{{"0", "boss", "2026-11-02 11:00:00"}}));
}

TEST_F(OrdChangeTest, UpdateRecordWritesTheDatesAheadOfTheSpareQuantities) {
  InsertChange("20261103001");
  clsEntBOrdChange e = Sample(20261103001);
  clsDataBOrdChange repo;
  // With the columns taken away from the last written back to the first, the
  // write that fails is each time that of the column just taken away.
  for (std::size_t k = kUpdateWrites.size(); k-- > 0;) {
    db().Exec("alter table t_bordchange drop column " + kUpdateWrites[k]);
    Clear();
    EXPECT_EQ(repo.UpdateRecord(e), 0) << kUpdateWrites[k];
    EXPECT_EQ(Commands(), (Texts{UpdateSelect("20261103001"), UpdateSelect("20261103001")}));
    EXPECT_EQ(Lines(Reports()), Lines({PlainReport(ItemNotFound(kUpdateWrites[k]))}));
    for (const auto& s : Sent()) EXPECT_NE(s.kind, StatementKind::kRowChange) << s.text;
  }
}

TEST_F(OrdChangeTest, UpdateRecordOfATooLongTextShowsTheLengthReportAndStoresNothing) {
  InsertChange("20261103001", "F_ItemNo,F_Burden", "'keep','keep'");
  clsEntBOrdChange e = Sample(20261103001);
  e.Burden = std::string(101, 'x');  // F_Burden holds 100
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateRecord(e), 0);
  EXPECT_EQ(Lines(Reports()), Lines({LengthReport()}));
  for (const auto& s : Sent()) EXPECT_NE(s.kind, StatementKind::kRowChange) << s.text;
  EXPECT_EQ(db().Rows("select F_ItemNo,F_Burden from t_bordchange"), (Rows{{"keep", "keep"}}));
  // The pending edit was abandoned with rs: the next call works.
  Clear();
  e.Burden = "fits";
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_ItemNo,F_Burden from t_bordchange"), (Rows{{"ITM-7", "fits"}}));
}

TEST_F(OrdChangeTest, UpdateRecordLeavesTheDayCounterAlone) {
  InsertChange("20261103001");
  InsertCounter("T_BOrdChange", "20261103001", "2026-11-03");
  clsEntBOrdChange e = Sample(20261103001);
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(Counters(), (Rows{{"T_BOrdChange", "20261103001", "2026-11-03 00:00:00"}}));
}

// ----------------------------------------------------------- QueryMonthDate

TEST_F(OrdChangeTest, QueryMonthDateOnAnEmptyTableAddsNothing) {
  clsDataBOrdChange repo;
  Collection<clsEntBOrdChange> months;
  EXPECT_EQ(repo.QueryMonthDate(&months), 0);
  EXPECT_EQ(months.Count(), 0u);
  EXPECT_EQ(Commands(), Texts{kMonthDate});
  EXPECT_TRUE(Reports().empty());
  // Closed: QueryTF works on the same rs.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryMonthDateGivesEachMonthOnceAsItsFirstDayInTheServersOrder) {
  InsertChange("20260301001", "F_UpDate,F_ItemNo", "'2026-03-05 10:00:00','a'");
  InsertChange("20260301002", "F_UpDate", "'2026-03-20'");
  InsertChange("20260301003", "F_UpDate", "'2025-11-30'");
  InsertChange("20260301004", "F_UpDate", "'2026-01-01'");
  clsDataBOrdChange repo;
  Collection<clsEntBOrdChange> months;
  auto before = std::make_shared<clsEntBOrdChange>();
  before->ItemNo = "already there";
  months.Add(before);
  EXPECT_EQ(repo.QueryMonthDate(&months), 0);
  EXPECT_EQ(Commands(), Texts{kMonthDate});
  EXPECT_TRUE(Reports().empty());
  // Appended in the order the server delivers the months, not sorted.
  const Rows server = db().Rows(kMonthDate);
  ASSERT_EQ(server.size(), 3u);
  ASSERT_EQ(months.Count(), 4u);
  EXPECT_EQ(months.Item(1).ItemNo, "already there");
  for (std::size_t i = 0; i < server.size(); ++i) {
    const std::string& ym = server[i][0];
    EXPECT_EQ(months.Item(i + 2).UpDate,
              Date::FromParts(std::stoi(ym.substr(0, 4)), std::stoi(ym.substr(5, 2)), 1));
    // Only UpDate is set.
    EXPECT_EQ(months.Item(i + 2).UpNo, 0);
    EXPECT_EQ(months.Item(i + 2).ItemNo, "");
  }
  std::vector<Date> got;
  for (std::size_t i = 2; i <= 4; ++i) got.push_back(months.Item(i).UpDate);
  std::sort(got.begin(), got.end(),
            [](const Date& a, const Date& b) { return a.Serial() < b.Serial(); });
  EXPECT_EQ(got, (std::vector<Date>{Date::FromParts(2025, 11, 1), Date::FromParts(2026, 1, 1),
                                    Date::FromParts(2026, 3, 1)}));
}

TEST_F(OrdChangeTest, QueryMonthDateGivesAtMostTwelveMonths) {
  for (int m = 1; m <= 14; ++m) {
    const int year = m <= 12 ? 2025 : 2026;
    const int month = m <= 12 ? m : m - 12;
    InsertChange(std::to_string(20250100000 + m),
                 "F_UpDate", "'" + std::to_string(year) + "-" + (month < 10 ? "0" : "") +
                                 std::to_string(month) + "-15'");
  }
  clsDataBOrdChange repo;
  Collection<clsEntBOrdChange> months;
  EXPECT_EQ(repo.QueryMonthDate(&months), 0);
  EXPECT_EQ(months.Count(), 12u);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryMonthDateFailsOnANullDateKeepingTheMonthsBefore) {
  InsertChange("20260301001", "F_UpDate", "'2026-03-05'");
  InsertChange("20260301002");  // F_UpDate null
  InsertChange("20260301003", "F_UpDate", "'2026-01-05'");
  const Rows server = db().Rows(kMonthDate);
  ASSERT_EQ(server.size(), 3u);
  std::size_t before_null = 0;
  while (before_null < server.size() && server[before_null][0] != "NULL") ++before_null;
  ASSERT_LT(before_null, server.size());
  clsDataBOrdChange repo;
  Collection<clsEntBOrdChange> months;
  EXPECT_EQ(repo.QueryMonthDate(&months), 0);
  EXPECT_EQ(Lines(Reports()), Lines({PlainReport(kTypeMismatch)}));
  EXPECT_EQ(months.Count(), before_null);
  // rs was reset: QueryTF works.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryMonthDateWithoutACollectionFailsOnTheFirstRowOnly) {
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryMonthDate(nullptr), 0);
  EXPECT_TRUE(Reports().empty());
  InsertChange("20260301001", "F_UpDate", "'2026-03-05'");
  EXPECT_EQ(repo.QueryMonthDate(nullptr), 0);
  EXPECT_EQ(Lines(Reports()), Lines({PlainReport(kObjectRequired)}));
}

// ---------------------------------------------------------------- QueryUpNo

TEST_F(OrdChangeTest, QueryUpNoGivesNumbersAndDatesNewestFirst) {
  InsertChange("20261103002", "F_UpDate,F_ItemNo", "'2026-11-03 09:00:00','b'");
  InsertChange("20261103001", "F_UpDate", "'2026-11-03'");
  InsertChange("20261104001", "F_UpDate", "'2026-11-04'");
  clsDataBOrdChange repo;
  Collection<clsEntBOrdChange> all;
  EXPECT_EQ(repo.QueryUpNo(&all), 0);
  EXPECT_EQ(Commands(), Texts{kUpNoList});
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(all.Count(), 3u);
  EXPECT_EQ(all.Item(1).UpNo, 20261104001);
  EXPECT_EQ(all.Item(1).UpDate, Date::FromParts(2026, 11, 4));
  EXPECT_EQ(all.Item(2).UpNo, 20261103002);
  EXPECT_EQ(all.Item(2).UpDate, Date::FromParts(2026, 11, 3, 9, 0, 0));
  EXPECT_EQ(all.Item(2).ItemNo, "");  // not read
  EXPECT_EQ(all.Item(3).UpNo, 20261103001);
  // Closed: QueryTF works on the same rs.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryUpNoAppendsAndOnAnEmptyTableAddsNothing) {
  clsDataBOrdChange repo;
  Collection<clsEntBOrdChange> all;
  EXPECT_EQ(repo.QueryUpNo(&all), 0);
  EXPECT_EQ(all.Count(), 0u);
  InsertChange("20261103001", "F_UpDate", "'2026-11-03'");
  EXPECT_EQ(repo.QueryUpNo(&all), 0);
  EXPECT_EQ(repo.QueryUpNo(&all), 0);
  EXPECT_EQ(all.Count(), 2u);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryUpNoHasNoNullTestOnTheDate) {
  InsertChange("20261104001", "F_UpDate", "'2026-11-04'");
  InsertChange("20261103002");  // F_UpDate null
  InsertChange("20261103001", "F_UpDate", "'2026-11-03'");
  clsDataBOrdChange repo;
  Collection<clsEntBOrdChange> all;
  EXPECT_EQ(repo.QueryUpNo(&all), 0);
  EXPECT_EQ(Lines(Reports()), Lines({PlainReport(kInvalidUseOfNull)}));
  ASSERT_EQ(all.Count(), 1u);  // the row before the null stays
  EXPECT_EQ(all.Item(1).UpNo, 20261104001);
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryUpNoWithoutACollectionFailsWithObjectRequired) {
  InsertChange("20261103001", "F_UpDate", "'2026-11-03'");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryUpNo(nullptr), 0);
  EXPECT_EQ(Lines(Reports()), Lines({PlainReport(kObjectRequired)}));
}

// -------------------------------------------------------------- QueryRecord

TEST_F(OrdChangeTest, QueryRecordFillsTheEntityButTablerAndApproval) {
  InsertChange("20261103001", kAllColumns.substr(7),
               "'2026-11-01',9,'itm','cust',1.5,2.5,3,4,'2026-01-01','2026-01-02 08:00:00',1,0,1,"
               "'o','c','d','p','w','s','e','b','bu','de','tab','2026-11-01 10:00:00','oc','nc',"
               "'nu',1,2,'boss','2026-11-02 11:00:00'");
  clsEntBOrdChange e;
  e.UpNo = 20261103001;
  e.Tabler = "mine";
  e.Tabletime = Date::FromParts(2000, 1, 1);
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryRecord(e), 0);
  EXPECT_EQ(Commands(), Texts{QueryRecordSql("20261103001")});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(e.UpNo, 20261103001);
  EXPECT_EQ(e.UpDate, Date::FromParts(2026, 11, 1));
  EXPECT_EQ(e.ProdNo, 9);
  EXPECT_EQ(e.ItemNo, "itm");
  EXPECT_EQ(e.CustNo, "cust");
  EXPECT_EQ(e.OldQty, 1.5);
  EXPECT_EQ(e.NewQty, 2.5);
  EXPECT_EQ(e.OldBkQty, 3);
  EXPECT_EQ(e.NewBkQty, 4);
  EXPECT_EQ(e.Oldate, Date::FromParts(2026, 1, 1));
  EXPECT_EQ(e.NewDate, Date::FromParts(2026, 1, 2, 8, 0, 0));
  EXPECT_EQ(e.QtyUp, 1);
  EXPECT_EQ(e.DateUp, 0);
  EXPECT_EQ(e.ItemUp, 1);
  EXPECT_EQ(e.Other, "o");
  EXPECT_EQ(e.UpCause, "c");
  EXPECT_EQ(e.UpDesc, "d");
  EXPECT_EQ(e.PurDesc, "p");
  EXPECT_EQ(e.WhDesc, "w");
  EXPECT_EQ(e.SgDesc, "s");
  EXPECT_EQ(e.EgDesc, "e");
  EXPECT_EQ(e.BsDecide, "b");
  EXPECT_EQ(e.Burden, "bu");
  EXPECT_EQ(e.Deal, "de");
  EXPECT_EQ(e.OldcorderNo, "oc");
  EXPECT_EQ(e.NewcorderNo, "nc");
  EXPECT_EQ(e.NewcustNo, "nu");
  EXPECT_EQ(e.Flags, 1);
  EXPECT_EQ(e.Cancel, 2);
  EXPECT_EQ(e.Tabler, "mine");  // not read
  EXPECT_EQ(e.Tabletime, Date::FromParts(2000, 1, 1));
  // Closed: QueryTF works on the same rs.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryRecordReadsNullsAsZeroDatesZerosAndEmptyTexts) {
  InsertChange("20261103001", "F_QtyUp,F_DateUp,F_ItemUp", "0,1,0");
  clsEntBOrdChange e = Sample(20261103001);
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryRecord(e), 0);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(e.UpNo, 20261103001);
  EXPECT_EQ(e.UpDate, Date());
  EXPECT_EQ(e.ProdNo, 0);
  EXPECT_EQ(e.ItemNo, "");
  EXPECT_EQ(e.CustNo, "");
  EXPECT_EQ(e.OldQty, 0);
  EXPECT_EQ(e.NewQty, 0);
  EXPECT_EQ(e.OldBkQty, 0);
  EXPECT_EQ(e.NewBkQty, 0);
  EXPECT_EQ(e.Oldate, Date());
  EXPECT_EQ(e.NewDate, Date());
  EXPECT_EQ(e.QtyUp, 0);
  EXPECT_EQ(e.DateUp, 1);
  EXPECT_EQ(e.ItemUp, 0);
  for (const std::string* text :
       {&e.Other, &e.UpCause, &e.UpDesc, &e.PurDesc, &e.WhDesc, &e.SgDesc, &e.EgDesc,
        &e.BsDecide, &e.Burden, &e.Deal, &e.OldcorderNo, &e.NewcorderNo, &e.NewcustNo}) {
    EXPECT_EQ(*text, "");
  }
  EXPECT_EQ(e.Flags, 0);
  EXPECT_EQ(e.Cancel, 0);
  EXPECT_EQ(e.Tabler, "anna");  // not read
}

TEST_F(OrdChangeTest, QueryRecordFailsOnANullChangeFlag) {
  const Texts flags = {"F_QtyUp", "F_DateUp", "F_ItemUp"};
  for (std::size_t k = 0; k < flags.size(); ++k) {
    db().Exec("delete from t_bordchange");
    InsertChange("20261103001", "F_ProdNo,F_QtyUp,F_DateUp,F_ItemUp", "3001,1,1,1");
    db().Exec("update t_bordchange set " + flags[k] + "=NULL");
    clsEntBOrdChange e;
    e.UpNo = 20261103001;
    e.Other = "untouched";
    clsDataBOrdChange repo;
    Clear();
    EXPECT_EQ(repo.QueryRecord(e), 0);
    EXPECT_EQ(Lines(Reports()), Lines({PlainReport(kTypeMismatch)})) << flags[k];
    EXPECT_EQ(e.ProdNo, 3001);        // read before the failure
    EXPECT_EQ(e.Other, "untouched");  // the reads end there
    // rs was reset: QueryTF works.
    Clear();
    EXPECT_EQ(repo.QueryTF(), 1);
    EXPECT_TRUE(Reports().empty());
  }
}

TEST_F(OrdChangeTest, QueryRecordReadsInItsOrder) {
  InsertChange("20261103001", "F_QtyUp,F_DateUp,F_ItemUp", "0,0,0");
  clsDataBOrdChange repo;
  for (std::size_t k = kRecordReads.size(); k-- > 1;) {
    db().Exec("alter table t_bordchange drop column " + kRecordReads[k]);
    clsEntBOrdChange e;
    e.UpNo = 20261103001;
    Clear();
    EXPECT_EQ(repo.QueryRecord(e), 0);
    EXPECT_EQ(Commands(), Texts{QueryRecordSql("20261103001")});
    EXPECT_EQ(Lines(Reports()), Lines({PlainReport(ItemNotFound(kRecordReads[k]))}));
  }
}

TEST_F(OrdChangeTest, QueryRecordDoesNotNeedTheTablerOrApprovalColumns) {
  InsertChange("20261103001", "F_QtyUp,F_DateUp,F_ItemUp,F_ItemNo", "0,0,0,'x'");
  db().Exec(
      "alter table t_bordchange drop column F_Tabler, drop column F_Tabletime, drop column "
      "F_Approve, drop column F_ApproveTime");
  clsEntBOrdChange e;
  e.UpNo = 20261103001;
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryRecord(e), 0);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(e.ItemNo, "x");
}

TEST_F(OrdChangeTest, QueryRecordOfAMissingNumberLeavesRsOpenSoQueryTFFailsOnce) {
  InsertChange(Today() + "001");
  clsEntBOrdChange e = Sample(20261103009);
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryRecord(e), 0);
  EXPECT_EQ(Commands(), Texts{QueryRecordSql("20261103009")});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(e.ItemNo, "ITM-7");  // untouched
  // QueryTF uses rs as it stands: the open fails before anything is sent.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 0);
  EXPECT_TRUE(Commands().empty());
  EXPECT_EQ(Lines(Reports()), Lines({PlainReport(kObjectOpen)}));
  // The failure reset rs: the same call works again.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 2);
  EXPECT_EQ(Commands(), Texts{kQueryTF});
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, AfterAQueryRecordMissEveryOtherMethodWorksAtOnce) {
  const std::string today = Today();
  const double first = std::stod(today + "001");
  InsertChange(today + "001", "F_ProdNo,F_UpDate,F_QtyUp,F_DateUp,F_ItemUp", "3001,curdate(),0,0,0");
  db().Exec("insert into t_borderi (F_ProdNo,F_OutQty) values (3001,4)");
  db().Exec("insert into t_porderchk (F_ProdNo) values (3001)");
  clsDataBOrdChange repo;
  clsEntBOrdChange missing;
  missing.UpNo = 20000101001;
  auto miss = [&] {
    EXPECT_EQ(repo.QueryRecord(missing), 0);
    Clear();
  };

  miss();
  EXPECT_EQ(repo.QueryQty(), 2);
  miss();
  EXPECT_EQ(repo.QueryNewQty(3001), 4);
  miss();
  clsEntBOrdChange approve = Sample(first);
  EXPECT_EQ(repo.UpdateBOrderiRecord(approve, 3001, "boss", 3, 0), 1);
  miss();
  clsEntBOrdChange overwrite = Sample(first);
  EXPECT_EQ(repo.UpdateRecord(overwrite), 1);
  miss();
  Collection<clsEntBOrdChange> months;
  EXPECT_EQ(repo.QueryMonthDate(&months), 0);
  EXPECT_EQ(months.Count(), 1u);
  miss();
  clsEntSitemNo counter;
  EXPECT_TRUE(repo.QueryChkitemiNo(counter).IsEmpty());
  EXPECT_EQ(counter.no, first);
  miss();
  Collection<clsEntBOrdChange> numbers;
  EXPECT_EQ(repo.QueryUpNo(&numbers), 0);
  EXPECT_EQ(numbers.Count(), 1u);
  miss();
  clsEntBOrdChange found;
  found.UpNo = first;
  EXPECT_EQ(repo.QueryRecord(found), 0);
  EXPECT_EQ(found.ItemNo, "ITM-7");
  miss();
  EXPECT_TRUE(repo.UpdateAddSitemNo().IsEmpty());
  miss();
  clsEntBOrdChange second = Sample(first + 1);
  EXPECT_EQ(repo.AddRecord(second), 1);
  miss();
  EXPECT_EQ(repo.DeleteRecord(second), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Count("t_bordchange"), 1);
}

// -------------------------------------------------------------- QueryTF

TEST_F(OrdChangeTest, QueryTFGivesOneWithoutARequestNumberedToday) {
  InsertChange("20000101001", "F_UpDate", "curdate()");  // dated today, numbered another day
  db().Exec("insert into t_borderh (F_OrderNo) values (" + Today() + "001)");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_EQ(Commands(), Texts{kQueryTF});
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryTFGivesTwoWithARequestNumberedToday) {
  InsertChange(Today() + "002", "F_UpDate", "'2001-01-01'");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryTF(), 2);
  EXPECT_EQ(repo.QueryTF(), 2);  // closed after each call
  EXPECT_EQ(Commands(), (Texts{kQueryTF, kQueryTF}));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryTFFailureOfTheServerGivesZero) {
  db().Exec("drop table t_bordchange");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryTF(), 0);
  EXPECT_EQ(Commands(), Texts{kQueryTF});
  ASSERT_EQ(Reports().size(), 1u);
  EXPECT_NE(Reports()[0].text.find("doesn't exist"), std::string::npos);
  EXPECT_EQ(Reports()[0].style, 64);
  EXPECT_EQ(Reports()[0].title, "塔恩维克");
}

// ---------------------------------------------------------- QueryChkitemiNo

TEST_F(OrdChangeTest, QueryChkitemiNoOnADayWithoutACounterGivesTheFirstNumber) {
  clsEntSitemNo counter;
  counter.tablename = "x";
  clsDataBOrdChange repo;
  EXPECT_TRUE(repo.QueryChkitemiNo(counter).IsEmpty());
  EXPECT_EQ(Commands(), (Texts{kLastOfToday, kServerNumber, kServerDate}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(counter.tablename, "T_BOrdChange");
  EXPECT_EQ(counter.no, std::stod(Today() + "001"));
  EXPECT_EQ(counter.fndate, TodayDate());
  // rs was dropped.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryChkitemiNoReadsTheCounterHoldingTodaysLargestNumber) {
  const std::string today = Today();
  InsertChange(today + "001");
  InsertChange(today + "002");
  InsertCounter("T_BOrdChange", today + "002", "2026-01-02 03:04:05");
  clsEntSitemNo counter;
  clsDataBOrdChange repo;
  EXPECT_TRUE(repo.QueryChkitemiNo(counter).IsEmpty());
  EXPECT_EQ(Commands(), Texts{kLastOfToday});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(counter.tablename, "T_BOrdChange");
  EXPECT_EQ(counter.no, std::stod(today + "002"));  // the last issued, not the next
  EXPECT_EQ(counter.fndate, Date::FromParts(2026, 1, 2, 3, 4, 5));
  Clear();
  EXPECT_EQ(repo.QueryTF(), 2);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryChkitemiNoWithACounterOutOfStepGivesTheFirstNumberAgain) {
  const std::string today = Today();
  InsertChange(today + "001");
  InsertChange(today + "002");
  // Advanced with no request stored.
  InsertCounter("T_BOrdChange", today + "003", today);
  clsEntSitemNo counter;
  clsDataBOrdChange repo;
  EXPECT_TRUE(repo.QueryChkitemiNo(counter).IsEmpty());
  EXPECT_EQ(Commands(), (Texts{kLastOfToday, kServerNumber, kServerDate}));
  EXPECT_EQ(counter.no, std::stod(today + "001"));
  // The caller's next number is taken: AddRecord refuses it.
  clsEntBOrdChange e = Sample(counter.no);
  EXPECT_EQ(repo.AddRecord(e), 2);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryChkitemiNoIgnoresTheCounterOfOrders) {
  const std::string today = Today();
  InsertChange(today + "001");
  InsertCounter("T_BOrderh", today + "001", today);
  clsEntSitemNo counter;
  clsDataBOrdChange repo;
  repo.QueryChkitemiNo(counter);
  EXPECT_EQ(Commands(), (Texts{kLastOfToday, kServerNumber, kServerDate}));
  EXPECT_EQ(counter.tablename, "T_BOrdChange");
}

TEST_F(OrdChangeTest, QueryChkitemiNoFailsOnANullCounterDateLeavingTheEntityHalfFilled) {
  const std::string today = Today();
  InsertChange(today + "004");
  db().Exec("insert into t_sitemno values ('T_BOrdChange'," + today + "004,NULL)");
  clsEntSitemNo counter;
  counter.fndate = Date::FromParts(1999, 9, 9);
  clsDataBOrdChange repo;
  EXPECT_TRUE(repo.QueryChkitemiNo(counter).IsEmpty());
  EXPECT_EQ(Commands(), Texts{kLastOfToday});
  EXPECT_EQ(Lines(Reports()), Lines({PlainReport(kTypeMismatch)}));
  EXPECT_EQ(counter.tablename, "T_BOrdChange");
  EXPECT_EQ(counter.no, std::stod(today + "004"));
  EXPECT_EQ(counter.fndate, Date::FromParts(1999, 9, 9));
  Clear();
  EXPECT_EQ(repo.QueryTF(), 2);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, QueryChkitemiNoFailureOfTheServerGivesEmpty) {
  db().Exec("drop table t_sitemno");
  clsEntSitemNo counter;
  clsDataBOrdChange repo;
  EXPECT_TRUE(repo.QueryChkitemiNo(counter).IsEmpty());
  ASSERT_EQ(Reports().size(), 1u);
  EXPECT_NE(Reports()[0].text.find("doesn't exist"), std::string::npos);
  EXPECT_EQ(counter.no, 0);
}

// --------------------------------------------------------- UpdateAddSitemNo

TEST_F(OrdChangeTest, UpdateAddSitemNoOpensTheDaysCounterWithTheFirstNumber) {
  const std::string today = Today();
  InsertCounter("T_BOrderh", today + "005", today);  // another kind
  clsDataBOrdChange repo;
  clsEntSitemNo counter;
  repo.QueryChkitemiNo(counter);
  Clear();
  EXPECT_TRUE(repo.UpdateAddSitemNo().IsEmpty());
  EXPECT_EQ(Commands(), (Texts{kCounterOfToday, kOpenCounter}));
  EXPECT_TRUE(Reports().empty());
  // The counter and the number QueryChkitemiNo gave agree.
  const std::string day = db().Scalar("select cast(curdate() as datetime)").value();
  EXPECT_EQ(Counters(), (Rows{{"T_BOrdChange", today + "001", day},
                              {"T_BOrderh", today + "005", today.substr(0, 4) + "-" +
                                                                today.substr(4, 2) + "-" +
                                                                today.substr(6, 2) + " 00:00:00"}}));
  EXPECT_EQ(Text(counter.no), today + "001");
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, UpdateAddSitemNoAdvancesTheDaysCounter) {
  const std::string today = Today();
  InsertCounter("T_BOrdChange", today + "007", "2001-01-01");
  InsertCounter("T_BOrdChange", "20000101007", "2000-01-01");  // a past day stays
  clsDataBOrdChange repo;
  EXPECT_TRUE(repo.UpdateAddSitemNo().IsEmpty());
  EXPECT_EQ(Commands(), (Texts{kCounterOfToday, kAdvanceCounter}));
  EXPECT_TRUE(Reports().empty());
  const std::string day = db().Scalar("select cast(curdate() as datetime)").value();
  EXPECT_EQ(Counters(), (Rows{{"T_BOrdChange", "20000101007", "2000-01-01 00:00:00"},
                              {"T_BOrdChange", today + "008", day}}));
}

TEST_F(OrdChangeTest, UpdateAddSitemNoPastNineHundredNinetyNineLeavesTheDay) {
  const std::string today = Today();
  InsertCounter("T_BOrdChange", today + "999", today);
  clsDataBOrdChange repo;
  repo.UpdateAddSitemNo();
  EXPECT_EQ(Commands(), (Texts{kCounterOfToday, kAdvanceCounter}));
  // yyyymmdd999 + 1 carries into the day digits: the row no longer counts as
  // today's.
  const double advanced = std::stod(today + "999") + 1;
  EXPECT_EQ(db().Scalar("select F_No from t_sitemno"), Text(advanced));
  EXPECT_NE(Text(advanced).substr(0, 8), today);
  Clear();
  repo.UpdateAddSitemNo();
  EXPECT_EQ(Commands(), (Texts{kCounterOfToday, kOpenCounter}));
  EXPECT_EQ(db().Rows("select F_No from t_sitemno order by F_No"),
            (Rows{{today + "001"}, {Text(advanced)}}));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, UpdateAddSitemNoFailureGivesEmpty) {
  db().Exec("drop table t_sitemno");
  clsDataBOrdChange repo;
  EXPECT_TRUE(repo.UpdateAddSitemNo().IsEmpty());
  EXPECT_EQ(Commands(), Texts{kCounterOfToday});
  ASSERT_EQ(Reports().size(), 1u);
  EXPECT_NE(Reports()[0].text.find("doesn't exist"), std::string::npos);
  EXPECT_EQ(Reports()[0].style, 64);
  EXPECT_EQ(Reports()[0].title, "塔恩维克");
}

// ---------------------------------------------------------------- AddRecord

TEST_F(OrdChangeTest, AddRecordStoresAllThirtyOneColumns) {
  clsEntBOrdChange e = Sample(20261103001);
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(Commands(), (Texts{NumberTaken("20261103001"), kWholeTable}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Changes(), Rows{SampleRow("20261103001")});
  EXPECT_EQ(db().Count("t_sitemno"), 0);  // the caller advances the number
  ASSERT_EQ(Sent().size(), 3u);
  EXPECT_EQ(Sent()[2].kind, StatementKind::kRowChange);
  EXPECT_EQ(Sent()[2].text,
            "INSERT INTO " + Table() +
                " (`F_UpNo`,`F_UpDate`,`F_ProdNo`,`F_ItemNo`,`F_CustNo`,`F_OldQty`,`F_NewQty`,"
                "`F_OldBkQty`,`F_NewBkQty`,`F_Oldate`,`F_NewDate`,`F_QtyUp`,`F_DateUp`,`F_ItemUp`,"
                "`F_Other`,`F_UpCause`,`F_UpDesc`,`F_PurDesc`,`F_WhDesc`,`F_SgDesc`,`F_EgDesc`,"
                "`F_BsDecide`,`F_Burden`,`F_Deal`,`F_Tabler`,`F_Tabletime`,`F_OldcorderNo`,"
                "`F_NewcorderNo`,`F_NewcustNo`,`F_Flags`,`F_Cancel`) VALUES (20261103001,"
                "'2026-11-03 00:00:00',3001,'ITM-7','C-12',100,120.5,2,3.25,'2026-12-01 "
                "00:00:00','2026-12-15 08:30:00',1,1,0,'other','cause','更改数量','pur','wh','sg',"
                "'eg','agreed','customer','deal','anna','2026-11-03 09:15:00','PO-1','PO-2',"
                "'C-13',0,0)");
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, AddRecordWritesZeroDatesAndEmptyTextsAsTheyAre) {
  clsEntBOrdChange e;
  e.UpNo = 20261103001;
  e.Flags = 1;  // whatever the entity carries
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(Changes(),
            (Rows{{"20261103001", "1899-12-30 00:00:00", "0", "", "", "0", "0", "0", "0",
                   "1899-12-30 00:00:00", "1899-12-30 00:00:00", "0", "0", "0", "", "", "", "",
                   "", "", "", "", "", "", "", "1899-12-30 00:00:00", "", "", "", "1", "0",
                   "NULL", "NULL"}}));
}

TEST_F(OrdChangeTest, AddRecordOfATakenNumberGivesTwoAndWritesNothing) {
  InsertChange("20261103001", "F_ItemNo", "'first'");
  clsEntBOrdChange e = Sample(20261103001);
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.AddRecord(e), 2);
  EXPECT_EQ(Commands(), Texts{NumberTaken("20261103001")});
  EXPECT_EQ(Sent().size(), 1u);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_UpNo,F_ItemNo from t_bordchange"),
            (Rows{{"20261103001", "first"}}));
  // Closed: QueryTF works on the same rs.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, AddRecordWritesInItsOrder) {
  clsEntBOrdChange e = Sample(20261103001);
  clsDataBOrdChange repo;
  for (std::size_t k = kAddWrites.size(); k-- > 1;) {
    db().Exec("alter table t_bordchange drop column " + kAddWrites[k]);
    Clear();
    EXPECT_EQ(repo.AddRecord(e), 0) << kAddWrites[k];
    EXPECT_EQ(Commands(), (Texts{NumberTaken("20261103001"), kWholeTable}));
    EXPECT_EQ(Lines(Reports()), Lines({PlainReport(ItemNotFound(kAddWrites[k]))}));
    EXPECT_EQ(db().Count("t_bordchange"), 0);
  }
  // The last round failed at F_UpDate: F_upNo, still there, was written first.
}

TEST_F(OrdChangeTest, AddRecordOfATooLongTextShowsTheLengthReportAndStoresNothing) {
  clsEntBOrdChange e = Sample(20261103001);
  e.Tabler = std::string(51, 'x');  // F_Tabler holds 50
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.AddRecord(e), 0);
  EXPECT_EQ(Commands(), (Texts{NumberTaken("20261103001"), kWholeTable}));
  EXPECT_EQ(Lines(Reports()), Lines({LengthReport()}));
  EXPECT_EQ(db().Count("t_bordchange"), 0);
  // The pending row was abandoned with rs: the next call stores.
  Clear();
  e.Tabler = "anna";
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Changes(), Rows{SampleRow("20261103001")});
}

TEST_F(OrdChangeTest, AddRecordKeepsAQuoteInAText) {
  clsEntBOrdChange e = Sample(20261103001);
  e.UpCause = "customer's wish";
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(db().Scalar("select F_UpCause from t_bordchange"), "customer's wish");
}

// ------------------------------------------------------------- DeleteRecord

TEST_F(OrdChangeTest, DeleteRecordOfAnUnknownNumberGivesZero) {
  InsertChange("20261103001");
  InsertCounter("T_BOrdChange", "20261103001", "2026-11-03");
  clsEntBOrdChange e;
  e.UpNo = 20261103002;
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(), Texts{Document("20261103002")});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Count("t_bordchange"), 1);
  EXPECT_EQ(Counters(), (Rows{{"T_BOrdChange", "20261103001", "2026-11-03 00:00:00"}}));
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, DeleteRecordOfANumberTheCounterDoesNotHoldLeavesAHole) {
  InsertChange("20261103001");
  InsertChange("20261103002");
  InsertCounter("T_BOrdChange", "20261103002", "2026-11-03");
  clsEntBOrdChange e;
  e.UpNo = 20261103001;
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  EXPECT_EQ(Commands(), (Texts{Document("20261103001"), HeldByCounter("20261103001"),
                               DeleteUnheld("20261103001")}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_UpNo from t_bordchange"), Rows{{"20261103002"}});
  EXPECT_EQ(Counters(), (Rows{{"T_BOrdChange", "20261103002", "2026-11-03 00:00:00"}}));
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, DeleteRecordOfTheHeldNumberLowersTheCounter) {
  InsertChange("20261103001");
  InsertChange("20261103002");
  InsertChange("20261103003");
  InsertChange("20261104001");
  InsertCounter("T_BOrdChange", "20261103003", "2026-11-03");
  InsertCounter("T_BOrdChange", "20261104001", "2026-11-04");
  clsEntBOrdChange e;
  e.UpNo = 20261103003;
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  EXPECT_EQ(Commands(), (Texts{Document("20261103003"), HeldByCounter("20261103003"),
                               DeleteHeld("20261103003"), DocumentsOfDay("20261103"),
                               LowerCounter("20261103")}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Counters(), (Rows{{"T_BOrdChange", "20261103002", "2026-11-03 00:00:00"},
                              {"T_BOrdChange", "20261104001", "2026-11-04 00:00:00"}}));
  EXPECT_EQ(db().Count("t_bordchange"), 3);
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrdChangeTest, DeleteRecordOfTheOnlyRequestOfAPastDayRemovesItsCounter) {
  InsertChange("20240101001");
  InsertChange(Today() + "001");
  InsertCounter("T_BOrdChange", "20240101001", "2024-01-01");
  InsertCounter("T_BOrdChange", Today() + "001", Today());
  clsEntBOrdChange e;
  e.UpNo = 20240101001;
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  EXPECT_EQ(Commands(), (Texts{Document("20240101001"), HeldByCounter("20240101001"),
                               DeleteHeld("20240101001"), DocumentsOfDay("20240101"),
                               RemoveCounter("20240101")}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_No from t_sitemno"), Rows{{Today() + "001"}});
  EXPECT_EQ(db().Rows("select F_UpNo from t_bordchange"), Rows{{Today() + "001"}});
}

TEST_F(OrdChangeTest, DeleteRecordCountsACounterOfAnotherKindHoldingTheSameValue) {
  // The join does not look at the kind: an order counter holding this value
  // makes it a held number, and the removal then finds no change counter.
  InsertChange("20261103001");
  InsertCounter("T_BOrderh", "20261103001", "2026-11-03");
  clsEntBOrdChange e;
  e.UpNo = 20261103001;
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  EXPECT_EQ(Commands(), (Texts{Document("20261103001"), HeldByCounter("20261103001"),
                               DeleteHeld("20261103001"), DocumentsOfDay("20261103"),
                               RemoveCounter("20261103")}));
  EXPECT_EQ(db().Count("t_bordchange"), 0);
  EXPECT_EQ(Counters(), (Rows{{"T_BOrderh", "20261103001", "2026-11-03 00:00:00"}}));
}

TEST_F(OrdChangeTest, DeleteRecordRemovesAnApprovedRequestAndLeavesTheOrderTables) {
  InsertChange("20261103001", "F_ProdNo,F_Flags,F_Approve", "3001,1,'boss'");
  db().Exec("insert into t_borderi (F_ProdNo,F_OrdQty,F_Flags) values (3001,12,1)");
  clsEntBOrdChange e;
  e.UpNo = 20261103001;
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.DeleteRecord(e), 1);
  EXPECT_EQ(db().Count("t_bordchange"), 0);
  EXPECT_EQ(db().Rows("select F_OrdQty,F_Flags from t_borderi"), (Rows{{"12", "1"}}));
}

TEST_F(OrdChangeTest, DeleteRecordFailureHalfWayGivesZero) {
  InsertChange("20261103001");
  db().Exec("drop table t_sitemno");
  clsEntBOrdChange e;
  e.UpNo = 20261103001;
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.DeleteRecord(e), 0);
  EXPECT_EQ(Commands(), (Texts{Document("20261103001"), HeldByCounter("20261103001")}));
  ASSERT_EQ(Reports().size(), 1u);
  EXPECT_NE(Reports()[0].text.find("doesn't exist"), std::string::npos);
  EXPECT_EQ(Reports()[0].style, 64);
  EXPECT_EQ(Reports()[0].title, "塔恩维克");
  EXPECT_EQ(db().Count("t_bordchange"), 1);
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

// ------------------------------------------------------- the turn of a number

TEST_F(OrdChangeTest, TheTurnOfTheFirstRequestOfTheDay) {
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryTF(), 1);
  clsEntSitemNo counter;
  repo.QueryChkitemiNo(counter);
  clsEntBOrdChange e = Sample(counter.no);
  EXPECT_EQ(repo.AddRecord(e), 1);
  repo.UpdateAddSitemNo();
  EXPECT_EQ(repo.QueryTF(), 2);
  // The counter and the request agree: the next read finds the row.
  clsEntSitemNo again;
  Clear();
  repo.QueryChkitemiNo(again);
  EXPECT_EQ(Commands(), Texts{kLastOfToday});
  EXPECT_EQ(again.no, counter.no);
  EXPECT_EQ(Text(again.no), Today() + "001");
  EXPECT_TRUE(Reports().empty());
}

}  // namespace
}  // namespace corvane
