// clsDataBOrderh against the sandbox server: the single-order methods
// (QueryForPreMoney, UpdateRecord, UpdateApprove, UpdateChecke, ServerDate,
// AddRecord, QueryOrderNoRecord) and the whole-table listing QueryAllRecord.
// The day numbers are in order_header_numbers_test.cc, the month listings
// under data rights in order_header_rights_test.cc.
#include "corvane/orders/order_header.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::AlertReport;
using ::corvane::testing::LengthReport;
using ::corvane::testing::PlainReport;
using ::corvane::testing::SandboxTest;
using ::corvane::testing::SentStatement;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using Rows = std::vector<std::vector<std::string>>;

constexpr char kTitle[] = "塔恩维克";
constexpr char kSyntax[] = "You have an error in your SQL syntax";

// A length report of a failure other than a value that does not fit: the
// failure's own description, in the information style.
Report DescribedLengthReport(const std::string& text) { return Report{text, 64, kTitle}; }

// An order with every property set, none to its default.
clsEntBOrderh FullOrder(double no) {
  clsEntBOrderh e;
  e.OrderNo = no;
  e.OrderDate = Date::FromParts(2024, 3, 15, 9, 30, 0);
  e.SalerId = "S01";
  e.CustNo = "C001";
  e.CorderNo = "PO-77";
  e.OrderType = "Export";
  e.IncoMode = "FOB";
  e.payday = 30;
  e.Tabler = "ann";
  e.Tabletime = Date::FromParts(2024, 3, 15, 9, 31, 5);
  e.Checker = "bob";
  e.CheckerTime = Date::FromParts(2024, 3, 16, 8, 0, 0);
  e.Approve = "cat";
  e.approveTime = Date::FromParts(2024, 3, 17, 17, 45, 0);
  e.Flags = 1;
  e.DeliverAddr = "Dock 4";
  e.Package = "Carton";
  e.TotalBefore = 1000.5;
  e.DisCount = 2.5;
  e.Greight = 30.25;
  e.Tax = 170.75;
  e.Total = 1176.5;
  e.DocType = "SO";
  e.CustName = "Acme";
  e.jrnlMemo = "memo";
  e.DueDate = Date::FromParts(2024, 4, 15);
  e.TaxDate = Date::FromParts(2024, 4, 30);
  e.UpdataUser = "dan";
  e.PayMonth = 2;
  e.Comments = "rush";
  e.attn = "Mr. Li";
  e.Currency = "USD";
  e.Delivery = "Sea";
  return e;
}

// The row FullOrder(20240315007) gives in T_BOrderh, as the server prints it.
const std::vector<std::string> kFullRow = {
    "20240315007", "2024-03-15 09:30:00", "S01", "C001", "PO-77", "Export", "FOB", "30", "ann",
    "2024-03-15 09:31:05", "bob", "2024-03-16 08:00:00", "cat", "2024-03-17 17:45:00", "1",
    "Dock 4", "Carton", "1000.5", "2.5", "30.25", "170.75", "1176.5", "SO", "Acme", "memo",
    "2024-04-15 00:00:00", "2024-04-30 00:00:00", "dan", "2", "rush", "Mr. Li", "USD", "Sea"};

void ExpectSameOrder(const clsEntBOrderh& a, const clsEntBOrderh& b) {
  EXPECT_EQ(a.OrderNo, b.OrderNo);
  EXPECT_EQ(a.OrderDate, b.OrderDate);
  EXPECT_EQ(a.SalerId, b.SalerId);
  EXPECT_EQ(a.CustNo, b.CustNo);
  EXPECT_EQ(a.CorderNo, b.CorderNo);
  EXPECT_EQ(a.OrderType, b.OrderType);
  EXPECT_EQ(a.IncoMode, b.IncoMode);
  EXPECT_EQ(a.payday, b.payday);
  EXPECT_EQ(a.Tabler, b.Tabler);
  EXPECT_EQ(a.Tabletime, b.Tabletime);
  EXPECT_EQ(a.Checker, b.Checker);
  EXPECT_EQ(a.CheckerTime, b.CheckerTime);
  EXPECT_EQ(a.Approve, b.Approve);
  EXPECT_EQ(a.approveTime, b.approveTime);
  EXPECT_EQ(a.Flags, b.Flags);
  EXPECT_EQ(a.DeliverAddr, b.DeliverAddr);
  EXPECT_EQ(a.Package, b.Package);
  EXPECT_EQ(a.TotalBefore, b.TotalBefore);
  EXPECT_EQ(a.DisCount, b.DisCount);
  EXPECT_EQ(a.Greight, b.Greight);
  EXPECT_EQ(a.Tax, b.Tax);
  EXPECT_EQ(a.Total, b.Total);
  EXPECT_EQ(a.DocType, b.DocType);
  EXPECT_EQ(a.CustName, b.CustName);
  EXPECT_EQ(a.jrnlMemo, b.jrnlMemo);
  EXPECT_EQ(a.DueDate, b.DueDate);
  EXPECT_EQ(a.TaxDate, b.TaxDate);
  EXPECT_EQ(a.UpdataUser, b.UpdataUser);
  EXPECT_EQ(a.PayMonth, b.PayMonth);
  EXPECT_EQ(a.Comments, b.Comments);
  EXPECT_EQ(a.attn, b.attn);
  EXPECT_EQ(a.Currency, b.Currency);
  EXPECT_EQ(a.Delivery, b.Delivery);
}

class OrderHeaderTest : public SandboxTest {
 protected:
  // The test database as the server names it in row changes.
  std::string Db() const {
    std::string d = database();
    std::transform(d.begin(), d.end(), d.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return d;
  }
  std::string Table() const { return "`" + Db() + "`.`t_borderh`"; }

  // An order with the columns the listings need; the rest null.
  void InsertOrder(const std::string& no, const std::string& date, const std::string& cust) {
    db().Exec("insert into t_borderh (F_OrderNo,F_OrderDate,F_CustNo,F_DueDate,F_TaxDate) values (" +
              no + ",'" + date + "','" + cust + "','2026-12-01','2026-12-02')");
  }
  Rows Order(const std::string& no) { return db().Rows("select * from t_borderh where F_OrderNo=" + no); }
};

// --- QueryForPreMoney -------------------------------------------------------

TEST_F(OrderHeaderTest, QueryForPreMoneyFindsTheCustomersOrderNumber) {
  InsertOrder("20240315001", "2024-03-15", "C001");
  db().Exec("update t_borderh set F_CorderNo='PO-1'");
  clsDataBOrderh repo;
  clsEntBOrderh e;
  e.CustNo = "C001";
  e.CorderNo = "PO-1";
  EXPECT_EQ(repo.QueryForPreMoney(e), 1);
  EXPECT_EQ(Commands(), std::vector<std::string>{
                            "select * from T_BOrderh where F_CustNo = 'C001' and F_COrderNo = 'PO-1'"});
  EXPECT_TRUE(Reports().empty());
  // The entity is not filled.
  EXPECT_EQ(e.OrderNo, 0);
  EXPECT_EQ(e.OrderDate, Date());
}

TEST_F(OrderHeaderTest, QueryForPreMoneyWithoutSuchOrderGivesZero) {
  InsertOrder("20240315001", "2024-03-15", "C001");
  db().Exec("update t_borderh set F_CorderNo='PO-1'");
  clsDataBOrderh repo;
  clsEntBOrderh e;
  e.CustNo = "C002";
  e.CorderNo = "PO-1";
  EXPECT_EQ(repo.QueryForPreMoney(e), 0);
  e.CustNo = "C001";
  e.CorderNo = "PO-2";
  EXPECT_EQ(repo.QueryForPreMoney(e), 0);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{
                "select * from T_BOrderh where F_CustNo = 'C002' and F_COrderNo = 'PO-1'",
                "select * from T_BOrderh where F_CustNo = 'C001' and F_COrderNo = 'PO-2'"}));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderHeaderTest, QueryForPreMoneyWithAQuoteReportsTheServerFailureThenRecovers) {
  InsertOrder("20240315001", "2024-03-15", "C001");
  db().Exec("update t_borderh set F_CorderNo=''");
  clsDataBOrderh repo;
  clsEntBOrderh e;
  e.CustNo = "O'Brien";
  EXPECT_EQ(repo.QueryForPreMoney(e), 2);
  EXPECT_EQ(Commands(), std::vector<std::string>{
                            "select * from T_BOrderh where F_CustNo = 'O'Brien' and F_COrderNo = ''"});
  ASSERT_EQ(Reports().size(), 1u);
  EXPECT_THAT(Reports()[0].text, HasSubstr(kSyntax));
  EXPECT_EQ(Reports()[0].style, 64);
  EXPECT_EQ(Reports()[0].title, kTitle);
  // The handler reset rs: the same call with a clean value works at once.
  Clear();
  e.CustNo = "C001";
  EXPECT_EQ(repo.QueryForPreMoney(e), 1);
  EXPECT_TRUE(Reports().empty());
}

// --- UpdateRecord -----------------------------------------------------------

TEST_F(OrderHeaderTest, UpdateRecordWritesTheChangeableColumnsOnly) {
  InsertOrder("20240315007", "2024-03-15", "OLD");
  db().Exec(
      "update t_borderh set F_Tabler='t0', F_Tabletime='2024-03-15 08:00:00', F_Checker='c0', "
      "F_CheckerTime='2024-03-15 08:10:00', F_approve='a0', F_approveTime='2024-03-15 08:20:00'");
  clsDataBOrderh repo;
  clsEntBOrderh e = FullOrder(20240315007);
  e.OrderDate = Date::FromParts(2030, 1, 1);  // not written
  e.Tabler = "zz";                           // not written
  e.Checker = "zz";
  e.Approve = "zz";
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  const std::string select = "select * from T_BOrderh where F_OrderNo= '20240315007'";
  EXPECT_EQ(Commands(), (std::vector<std::string>{select, select}));
  // The Update before the first write sends nothing; the one after sends the
  // changeable columns, found by the key.
  const std::string update =
      "UPDATE " + Table() +
      " SET `F_SalerId`='S01',`F_CustNo`='C001',`F_CorderNo`='PO-77',`F_OrderType`='Export',"
      "`F_IncoMode`='FOB',`F_payday`=30,`F_Flags`=1,`F_DeliverAddr`='Dock 4',`F_Package`='Carton',"
      "`F_TotalBefore`=1000.5,`F_DisCount`=2.5,`F_Greight`=30.25,`F_Tax`=170.75,`F_Total`=1176.5,"
      "`F_DocType`='SO',`F_CustName`='Acme',`F_jrnlMemo`='memo',"
      "`F_DueDate`='2024-04-15 00:00:00',`F_TaxDate`='2024-04-30 00:00:00',`F_UpdataUser`='dan',"
      "`F_PayMonth`=2,`F_Comments`='rush',`F_Attn`='Mr. Li',`F_Currency`='USD',`F_Delivery`='Sea'"
      " WHERE `F_OrderNo` <=> 20240315007 LIMIT 1";
  ASSERT_EQ(Sent().size(), 4u);
  EXPECT_EQ(Sent()[2].kind, StatementKind::kCatalog);
  EXPECT_EQ(Sent()[2].text, "SHOW COLUMNS FROM " + Table());
  EXPECT_EQ(Sent()[3].kind, StatementKind::kRowChange);
  EXPECT_EQ(Sent()[3].text, update);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Order("20240315007"),
            (Rows{{"20240315007", "2024-03-15 00:00:00", "S01", "C001", "PO-77", "Export", "FOB",
                   "30", "t0", "2024-03-15 08:00:00", "c0", "2024-03-15 08:10:00", "a0",
                   "2024-03-15 08:20:00", "1", "Dock 4", "Carton", "1000.5", "2.5", "30.25",
                   "170.75", "1176.5", "SO", "Acme", "memo", "2024-04-15 00:00:00",
                   "2024-04-30 00:00:00", "dan", "2", "rush", "Mr. Li", "USD", "Sea"}}));
}

TEST_F(OrderHeaderTest, UpdateRecordOfAnUnknownNumberGivesTwoAndWritesNothing) {
  InsertOrder("20240315007", "2024-03-15", "OLD");
  const Rows before = db().Rows("select * from t_borderh");
  clsDataBOrderh repo;
  clsEntBOrderh e = FullOrder(20240315008);
  EXPECT_EQ(repo.UpdateRecord(e), 2);
  EXPECT_EQ(Commands(), std::vector<std::string>{
                            "select * from T_BOrderh where F_OrderNo= '20240315008'"});
  EXPECT_EQ(Sent().size(), 1u);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select * from t_borderh"), before);
}

TEST_F(OrderHeaderTest, UpdateRecordWithATooLongValueGivesTheLengthReportAndStoresNothing) {
  InsertOrder("20240315007", "2024-03-15", "OLD");
  const Rows before = db().Rows("select * from t_borderh");
  clsDataBOrderh repo;
  clsEntBOrderh e = FullOrder(20240315007);
  e.CustName = std::string(101, 'x');  // F_CustName holds 100
  EXPECT_EQ(repo.UpdateRecord(e), 0);
  const std::string select = "select * from T_BOrderh where F_OrderNo= '20240315007'";
  EXPECT_EQ(Commands(), (std::vector<std::string>{select, select}));
  EXPECT_EQ(Reports(), (std::vector<Report>{LengthReport()}));
  for (const SentStatement& s : Sent()) EXPECT_NE(s.kind, StatementKind::kRowChange) << s.text;
  EXPECT_EQ(db().Rows("select * from t_borderh"), before);
  // The pending edit went with the reset: the next call starts clean.
  Clear();
  e.CustName = "Acme";
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Scalar("select F_CustName from t_borderh"), "Acme");
}

TEST_F(OrderHeaderTest, UpdateRecordStoresAQuoteAsItStands) {
  InsertOrder("20240315007", "2024-03-15", "OLD");
  clsDataBOrderh repo;
  clsEntBOrderh e = FullOrder(20240315007);
  e.CustName = "O'Brien & Sons";
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Scalar("select F_CustName from t_borderh"), "O'Brien & Sons");
}

TEST_F(OrderHeaderTest, UpdateRecordFailureOfTheServerIsReportedWithItsDescription) {
  InsertOrder("20240315007", "2024-03-15", "OLD");
  db().Exec(
      "create trigger borderh_frozen before update on t_borderh for each row "
      "signal sqlstate '45000' set message_text='order frozen'");
  clsDataBOrderh repo;
  clsEntBOrderh e = FullOrder(20240315007);
  EXPECT_EQ(repo.UpdateRecord(e), 0);
  EXPECT_EQ(Reports(), (std::vector<Report>{DescribedLengthReport("order frozen")}));
  EXPECT_EQ(db().Scalar("select F_CustNo from t_borderh"), "OLD");
}

// --- UpdateApprove, UpdateChecke -----------------------------------------------

TEST_F(OrderHeaderTest, UpdateApproveStampsTheUserAndTheServersTime) {
  InsertOrder("20240315007", "2024-03-15", "C001");
  InsertOrder("20240315008", "2024-03-15", "C001");
  clsDataBOrderh repo;
  EXPECT_EQ(repo.UpdateApprove("boss", 20240315007), 1);
  EXPECT_EQ(Commands(), std::vector<std::string>{
                            "update T_BOrderh set F_Approve='boss',F_ApproveTime=Now() where "
                            "F_OrderNo=20240315007"});
  EXPECT_EQ(Sent().size(), 1u);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_OrderNo, F_approve, abs(timestampdiff(second, F_approveTime, "
                      "now())) < 60 from t_borderh order by F_OrderNo"),
            (Rows{{"20240315007", "boss", "1"}, {"20240315008", "NULL", "NULL"}}));
}

TEST_F(OrderHeaderTest, UpdateCheckeStampsTheUserAndTheServersTime) {
  InsertOrder("20240315007", "2024-03-15", "C001");
  InsertOrder("20240315008", "2024-03-15", "C001");
  clsDataBOrderh repo;
  EXPECT_EQ(repo.UpdateChecke("qc", 20240315008), 1);
  EXPECT_EQ(Commands(), std::vector<std::string>{
                            "update T_BOrderh set F_Checker='qc',F_CheckerTime=Now() where "
                            "F_OrderNo=20240315008"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_OrderNo, F_Checker, abs(timestampdiff(second, F_CheckerTime, "
                      "now())) < 60 from t_borderh order by F_OrderNo"),
            (Rows{{"20240315007", "NULL", "NULL"}, {"20240315008", "qc", "1"}}));
}

TEST_F(OrderHeaderTest, UpdateApproveAndUpdateCheckeOfAnUnknownNumberStillGiveOne) {
  InsertOrder("20240315007", "2024-03-15", "C001");
  const Rows before = db().Rows("select * from t_borderh");
  clsDataBOrderh repo;
  EXPECT_EQ(repo.UpdateApprove("boss", 20240315099), 1);
  EXPECT_EQ(repo.UpdateChecke("qc", 20240315099), 1);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{
                "update T_BOrderh set F_Approve='boss',F_ApproveTime=Now() where "
                "F_OrderNo=20240315099",
                "update T_BOrderh set F_Checker='qc',F_CheckerTime=Now() where "
                "F_OrderNo=20240315099"}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select * from t_borderh"), before);
}

TEST_F(OrderHeaderTest, UpdateApproveAndUpdateCheckeWithAQuoteReportTheSyntaxError) {
  InsertOrder("20240315007", "2024-03-15", "C001");
  const Rows before = db().Rows("select * from t_borderh");
  clsDataBOrderh repo;
  EXPECT_EQ(repo.UpdateApprove("d'Arcy", 20240315007), 0);
  EXPECT_EQ(repo.UpdateChecke("d'Arcy", 20240315007), 0);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{
                "update T_BOrderh set F_Approve='d'Arcy',F_ApproveTime=Now() where "
                "F_OrderNo=20240315007",
                "update T_BOrderh set F_Checker='d'Arcy',F_CheckerTime=Now() where "
                "F_OrderNo=20240315007"}));
  ASSERT_EQ(Reports().size(), 2u);
  for (const Report& r : Reports()) {
    EXPECT_THAT(r.text, HasSubstr(kSyntax));
    EXPECT_EQ(r.style, 64);
    EXPECT_EQ(r.title, kTitle);
  }
  EXPECT_EQ(db().Rows("select * from t_borderh"), before);
  // The next call works.
  Clear();
  EXPECT_EQ(repo.UpdateApprove("dArcy", 20240315007), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderHeaderTest, UpdateApproveWithATooLongUserGivesTheLengthReport) {
  InsertOrder("20240315007", "2024-03-15", "C001");
  clsDataBOrderh repo;
  EXPECT_EQ(repo.UpdateApprove(std::string(51, 'a'), 20240315007), 0);
  EXPECT_EQ(repo.UpdateChecke(std::string(51, 'c'), 20240315007), 0);
  EXPECT_EQ(Reports(), (std::vector<Report>{LengthReport(), LengthReport()}));
  EXPECT_EQ(db().Rows("select F_approve, F_Checker from t_borderh"), (Rows{{"NULL", "NULL"}}));
}

// --- ServerDate -------------------------------------------------------------

TEST_F(OrderHeaderTest, ServerDateIsTheServersDateAndTimeAsText) {
  clsDataBOrderh repo;
  const std::string today = db().Scalar("select curdate()").value();
  const std::string now = repo.ServerDate();
  EXPECT_EQ(Commands(), std::vector<std::string>{"select Now() as SDate"});
  EXPECT_TRUE(Reports().empty());
  // yyyy-mm-dd, and the time only when it is not midnight.
  EXPECT_THAT(now, MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2}( [0-9]{2}:[0-9]{2}:[0-9]{2})?"));
  EXPECT_EQ(now.substr(0, 10), today);
  EXPECT_EQ(db().Scalar("select abs(timestampdiff(second, '" + now + "', now())) < 60"), "1");
}

TEST_F(OrderHeaderTest, ServerDateAfterTheServerEndedTheConnectionRunsOnANewOne) {
  clsDataBOrderh repo;
  EXPECT_EQ(repo.QueryTF(), 1);  // the session is in use
  const std::string id =
      db().Scalar("select id from information_schema.processlist where db='" + Db() +
                  "' and id<>connection_id()")
          .value();
  db().Exec("kill " + id);
  Clear();
  const std::string now = repo.ServerDate();
  EXPECT_EQ(now.size(), 19u) << now;
  EXPECT_EQ(Commands(), std::vector<std::string>{"select Now() as SDate"});
  EXPECT_TRUE(Reports().empty());
}

// --- AddRecord --------------------------------------------------------------

TEST_F(OrderHeaderTest, AddRecordWritesAllColumnsFromTheEntity) {
  clsDataBOrderh repo;
  clsEntBOrderh e = FullOrder(20240315007);
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{"select * from T_BOrderh where F_OrderNo= '20240315007'",
                                      "select * from T_BOrderh"}));
  ASSERT_EQ(Sent().size(), 3u);
  EXPECT_EQ(Sent()[2].kind, StatementKind::kRowChange);
  EXPECT_EQ(Sent()[2].text,
            "INSERT INTO " + Table() +
                " (`F_OrderNo`,`F_OrderDate`,`F_SalerId`,`F_CustNo`,`F_CorderNo`,`F_OrderType`,"
                "`F_IncoMode`,`F_payday`,`F_Tabler`,`F_Tabletime`,`F_Checker`,`F_CheckerTime`,"
                "`F_approve`,`F_approveTime`,`F_Flags`,`F_DeliverAddr`,`F_Package`,"
                "`F_TotalBefore`,`F_DisCount`,`F_Greight`,`F_Tax`,`F_Total`,`F_DocType`,"
                "`F_CustName`,`F_jrnlMemo`,`F_DueDate`,`F_TaxDate`,`F_UpdataUser`,`F_PayMonth`,"
                "`F_Comments`,`F_Attn`,`F_Currency`,`F_Delivery`) VALUES (20240315007,"
                "'2024-03-15 09:30:00','S01','C001','PO-77','Export','FOB',30,'ann',"
                "'2024-03-15 09:31:05','bob','2024-03-16 08:00:00','cat','2024-03-17 17:45:00',1,"
                "'Dock 4','Carton',1000.5,2.5,30.25,170.75,1176.5,'SO','Acme','memo',"
                "'2024-04-15 00:00:00','2024-04-30 00:00:00','dan',2,'rush','Mr. Li','USD','Sea')");
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select * from t_borderh"), Rows{kFullRow});
  // t_sitemno is not touched.
  EXPECT_EQ(db().Count("t_sitemno"), 0);
}

TEST_F(OrderHeaderTest, AddRecordWritesDefaultsAsTheyStand) {
  clsDataBOrderh repo;
  clsEntBOrderh e;
  e.OrderNo = 20240315001;
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_TRUE(Reports().empty());
  // Empty texts stay empty texts, zero dates are written as the zero date.
  EXPECT_EQ(db().Rows("select * from t_borderh"),
            (Rows{{"20240315001", "1899-12-30 00:00:00", "", "", "", "", "", "0", "",
                   "1899-12-30 00:00:00", "", "1899-12-30 00:00:00", "", "1899-12-30 00:00:00",
                   "0", "", "", "0", "0", "0", "0", "0", "", "", "", "1899-12-30 00:00:00",
                   "1899-12-30 00:00:00", "", "0", "", "", "", ""}}));
}

TEST_F(OrderHeaderTest, AddRecordOfAnExistingNumberGivesTwoAndWritesNothing) {
  InsertOrder("20240315007", "2024-03-15", "OLD");
  const Rows before = db().Rows("select * from t_borderh");
  clsDataBOrderh repo;
  clsEntBOrderh e = FullOrder(20240315007);
  EXPECT_EQ(repo.AddRecord(e), 2);
  EXPECT_EQ(Commands(), std::vector<std::string>{
                            "select * from T_BOrderh where F_OrderNo= '20240315007'"});
  EXPECT_EQ(Sent().size(), 1u);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select * from t_borderh"), before);
}

TEST_F(OrderHeaderTest, AddRecordWithATooLongValueGivesTheLengthReportAndStoresNothing) {
  clsDataBOrderh repo;
  clsEntBOrderh e = FullOrder(20240315007);
  e.Currency = std::string(51, 'u');  // F_Currency holds 50
  EXPECT_EQ(repo.AddRecord(e), 0);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{"select * from T_BOrderh where F_OrderNo= '20240315007'",
                                      "select * from T_BOrderh"}));
  EXPECT_EQ(Sent().size(), 2u);  // no insert
  EXPECT_EQ(Reports(), (std::vector<Report>{LengthReport()}));
  EXPECT_EQ(db().Count("t_borderh"), 0);
  // The half-added row went with the reset.
  Clear();
  e.Currency = "USD";
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select * from t_borderh"), Rows{kFullRow});
}

TEST_F(OrderHeaderTest, AddRecordStoresAQuoteInAColumnAsItStands) {
  clsDataBOrderh repo;
  clsEntBOrderh e = FullOrder(20240315007);
  e.CustName = "O'Brien";
  EXPECT_EQ(repo.AddRecord(e), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Scalar("select F_CustName from t_borderh"), "O'Brien");
}

TEST_F(OrderHeaderTest, AddRecordFailureOfTheServerIsReportedWithItsDescription) {
  db().Exec(
      "create trigger borderh_closed before insert on t_borderh for each row "
      "signal sqlstate '45000' set message_text='orders closed'");
  clsDataBOrderh repo;
  clsEntBOrderh e = FullOrder(20240315007);
  EXPECT_EQ(repo.AddRecord(e), 0);
  EXPECT_EQ(Reports(), (std::vector<Report>{DescribedLengthReport("orders closed")}));
  EXPECT_EQ(db().Count("t_borderh"), 0);
}

// --- QueryOrderNoRecord -----------------------------------------------------

TEST_F(OrderHeaderTest, QueryOrderNoRecordFillsEveryProperty) {
  db().Exec("insert into t_borderh values (" + [] {
    std::string v;
    for (std::size_t i = 0; i < kFullRow.size(); ++i) {
      if (i > 0) v += ",";
      v += "'" + kFullRow[i] + "'";
    }
    return v;
  }() + ")");
  clsDataBOrderh repo;
  clsEntBOrderh e;
  e.OrderNo = 20240315007;
  EXPECT_EQ(repo.QueryOrderNoRecord(e), 1);
  EXPECT_EQ(Commands(), std::vector<std::string>{
                            "select * from T_BOrderh where F_OrderNo=20240315007"});
  EXPECT_TRUE(Reports().empty());
  ExpectSameOrder(e, FullOrder(20240315007));
}

TEST_F(OrderHeaderTest, QueryOrderNoRecordOfAnUnknownNumberLeavesTheEntity) {
  InsertOrder("20240315007", "2024-03-15", "C001");
  clsDataBOrderh repo;
  clsEntBOrderh e = FullOrder(20240315008);
  EXPECT_EQ(repo.QueryOrderNoRecord(e), 0);
  EXPECT_EQ(Commands(), std::vector<std::string>{
                            "select * from T_BOrderh where F_OrderNo=20240315008"});
  EXPECT_TRUE(Reports().empty());
  ExpectSameOrder(e, FullOrder(20240315008));
}

TEST_F(OrderHeaderTest, QueryOrderNoRecordReadsNullsAsItsDefaults) {
  // Everything null but the number and the two dates that may not be.
  db().Exec(
      "insert into t_borderh (F_OrderNo,F_DueDate,F_TaxDate) values "
      "(20240315007,'2024-04-15','2024-04-30')");
  clsDataBOrderh repo;
  clsEntBOrderh e = FullOrder(20240315007);
  EXPECT_EQ(repo.QueryOrderNoRecord(e), 1);
  EXPECT_TRUE(Reports().empty());
  clsEntBOrderh expected;
  expected.OrderNo = 20240315007;
  expected.Flags = 5;  // a null F_Flags reads as 5
  expected.DueDate = Date::FromParts(2024, 4, 15);
  expected.TaxDate = Date::FromParts(2024, 4, 30);
  // A null F_OrderDate is the zero date, a null F_COrderNo and F_Comments the
  // empty text, a null F_OrderType the empty text, numbers 0.
  ExpectSameOrder(e, expected);
}

TEST_F(OrderHeaderTest, QueryOrderNoRecordWithANullDueDateFailsWithTypeMismatch) {
  InsertOrder("20240315007", "2024-03-15", "C001");
  db().Exec("update t_borderh set F_DueDate=null, F_Comments='late'");
  clsDataBOrderh repo;
  clsEntBOrderh e;
  e.OrderNo = 20240315007;
  EXPECT_EQ(repo.QueryOrderNoRecord(e), 0);
  EXPECT_EQ(Reports(), (std::vector<Report>{DescribedLengthReport("Type mismatch")}));
  // The reads before the failing one are in the entity, the later ones not.
  EXPECT_EQ(e.CustNo, "C001");
  EXPECT_EQ(e.DueDate, Date());
  EXPECT_EQ(e.Comments, "");
  // rs was reset: the next call works.
  Clear();
  db().Exec("update t_borderh set F_DueDate='2024-04-15'");
  EXPECT_EQ(repo.QueryOrderNoRecord(e), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(e.Comments, "late");
}

TEST_F(OrderHeaderTest, QueryOrderNoRecordWithANullTaxDateFailsWithTypeMismatch) {
  InsertOrder("20240315007", "2024-03-15", "C001");
  db().Exec("update t_borderh set F_TaxDate=null");
  clsDataBOrderh repo;
  clsEntBOrderh e;
  e.OrderNo = 20240315007;
  EXPECT_EQ(repo.QueryOrderNoRecord(e), 0);
  EXPECT_EQ(Reports(), (std::vector<Report>{DescribedLengthReport("Type mismatch")}));
  EXPECT_EQ(e.DueDate, Date::FromParts(2026, 12, 1));
  EXPECT_EQ(e.TaxDate, Date());
}

// --- QueryAllRecord ---------------------------------------------------------

TEST_F(OrderHeaderTest, QueryAllRecordReadsEveryColumnButTheOrderType) {
  clsDataBOrderh repo;
  clsEntBOrderh first = FullOrder(20240315007);
  clsEntBOrderh second = FullOrder(20240316001);
  second.CustNo = "C002";
  ASSERT_EQ(repo.AddRecord(first), 1);
  ASSERT_EQ(repo.AddRecord(second), 1);
  Collection<clsEntBOrderh> all;
  auto kept = std::make_shared<clsEntBOrderh>();
  all.Add(kept);  // the collection is appended to, not cleared
  Clear();
  EXPECT_EQ(repo.QueryAllRecord(&all), 0);
  EXPECT_EQ(Commands(), std::vector<std::string>{"select * from T_BOrderh"});
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(all.Count(), 3u);
  EXPECT_EQ(&all.Item(1), kept.get());
  first.OrderType = "";
  second.OrderType = "";
  ExpectSameOrder(all.Item(2), first);
  ExpectSameOrder(all.Item(3), second);
}

TEST_F(OrderHeaderTest, QueryAllRecordReadsNullsAsItsDefaults) {
  db().Exec(
      "insert into t_borderh (F_OrderNo,F_OrderDate,F_OrderType,F_DueDate,F_TaxDate) values "
      "(20240315007,'2024-03-15','Export','2024-04-15','2024-04-30')");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> all;
  EXPECT_EQ(repo.QueryAllRecord(&all), 0);
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(all.Count(), 1u);
  clsEntBOrderh expected;
  expected.OrderNo = 20240315007;
  expected.OrderDate = Date::FromParts(2024, 3, 15);
  expected.CorderNo = "0";  // a null F_COrderNo reads as the text "0" here
  expected.Flags = 5;
  expected.DueDate = Date::FromParts(2024, 4, 15);
  expected.TaxDate = Date::FromParts(2024, 4, 30);
  ExpectSameOrder(all.Item(1), expected);
}

TEST_F(OrderHeaderTest, QueryAllRecordEmptyTableLeavesTheCollectionAndCallsNothingOnIt) {
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> all;
  EXPECT_EQ(repo.QueryAllRecord(&all), 0);
  EXPECT_EQ(all.Count(), 0u);
  // With no rows an empty reference is never touched.
  EXPECT_EQ(repo.QueryAllRecord(nullptr), 0);
  EXPECT_EQ(Commands(),
            (std::vector<std::string>{"select * from T_BOrderh", "select * from T_BOrderh"}));
  EXPECT_TRUE(Reports().empty());
  // rs is closed after the fill: a method that uses it as it stands works.
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderHeaderTest, QueryAllRecordWithoutACollectionGivesTheAlertReport) {
  InsertOrder("20240315007", "2024-03-15", "C001");
  clsDataBOrderh repo;
  EXPECT_EQ(repo.QueryAllRecord(nullptr), 0);
  EXPECT_EQ(Reports(), (std::vector<Report>{AlertReport("Object required")}));
}

class QueryAllRecordNullFails : public OrderHeaderTest,
                                public ::testing::WithParamInterface<const char*> {};

TEST_P(QueryAllRecordNullFails, StopsAtTheRowWithTheEarlierRowsKept) {
  InsertOrder("20240315001", "2024-03-15", "C001");
  InsertOrder("20240315002", "2024-03-15", "C002");
  InsertOrder("20240315003", "2024-03-15", "C003");
  db().Exec(std::string("update t_borderh set ") + GetParam() + "=null where F_OrderNo=20240315002");
  clsDataBOrderh repo;
  Collection<clsEntBOrderh> all;
  EXPECT_EQ(repo.QueryAllRecord(&all), 0);
  EXPECT_EQ(Commands(), std::vector<std::string>{"select * from T_BOrderh"});
  EXPECT_EQ(Reports(), (std::vector<Report>{AlertReport("Type mismatch")}));
  ASSERT_EQ(all.Count(), 1u);
  EXPECT_EQ(all.Item(1).OrderNo, 20240315001);
  EXPECT_EQ(all.Item(1).CustNo, "C001");
  // rs was reset: the next call works and reads the good rows again.
  Clear();
  EXPECT_EQ(repo.QueryTF(), 1);
  EXPECT_TRUE(Reports().empty());
}

INSTANTIATE_TEST_SUITE_P(Columns, QueryAllRecordNullFails,
                         ::testing::Values("F_OrderDate", "F_DueDate", "F_TaxDate"));

// --- rs after every path ------------------------------------------------------

TEST_F(OrderHeaderTest, NoPathLeavesRsOpenForTheMethodsThatUseItAsItStands) {
  InsertOrder("20240315007", "2024-03-15", "C001");
  db().Exec("update t_borderh set F_CorderNo='PO-77'");
  clsDataBOrderh repo;
  clsEntBOrderh known = FullOrder(20240315007);
  clsEntBOrderh unknown = FullOrder(20240315099);
  clsEntBOrderh fresh = FullOrder(20240315008);
  clsEntSitemNo item;
  Collection<clsEntBOrderh> coll;
  const std::vector<std::function<void()>> paths = {
      [&] { repo.QueryForPreMoney(known); },
      [&] { repo.UpdateRecord(unknown); },
      [&] { repo.UpdateRecord(known); },
      [&] { repo.UpdateApprove("a", 20240315007); },
      [&] { repo.UpdateChecke("c", 20240315007); },
      [&] { repo.ServerDate(); },
      [&] { repo.QueryTF(); },
      [&] { repo.QueryChkitemiNo(item); },
      [&] { repo.AddRecord(known); },
      [&] { repo.AddRecord(fresh); },
      [&] { repo.QueryAllRecord(&coll); },
      [&] { repo.QueryAllRecordPre(&coll, "2024-03", "u"); },
      [&] { repo.QueryOrderNoRecord(known); },
      [&] { repo.QueryOrderNoRecord(unknown); },
      [&] { repo.QueryMonthDate(&coll, "u"); },
      [&] { repo.UpdateAddSitemNo(); },
      [&] { repo.QueryChkitemiNo(item); },
      [&] { repo.DeleteRecord(unknown); },
      [&] { repo.DeleteRecord(fresh); },
  };
  for (std::size_t i = 0; i < paths.size(); ++i) {
    paths[i]();
    EXPECT_EQ(repo.QueryTF(), 1) << "after path " << i;
    EXPECT_EQ(repo.QueryForPreMoney(known), 1) << "after path " << i;
  }
  EXPECT_TRUE(Reports().empty());
}

// --- construction -----------------------------------------------------------

TEST_F(OrderHeaderTest, ConstructionFailureLeavesTheConstructorWithoutAReport) {
  SetSessionConnectionString(::corvane::testing::ServerAddress::FromEnvironment().ConnectionText(
      "no_such_database_orderh"));
  EXPECT_THROW(clsDataBOrderh repo, Error);
  EXPECT_TRUE(Reports().empty());
}

}  // namespace
}  // namespace corvane
