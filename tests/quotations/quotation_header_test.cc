// clsDataBPriceh against the sandbox server: every path of its fourteen
// methods with the statements sent, the results, the reports, and what
// t_bpriceh and t_sitemno hold afterwards.
#include "corvane/quotations/quotation_header.h"

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
using ::corvane::testing::SentStatement;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using Rows = std::vector<std::vector<std::string>>;
using Strings = std::vector<std::string>;
using Reports_ = std::vector<Report>;

constexpr char kTitle[] = "塔恩维克";
constexpr char kSyntax[] = "You have an error in your SQL syntax";
constexpr char kLengthWords[] = "你输入的内容超过了允许长度，请检查";
constexpr char kNoRowWords[] = "Either BOF or EOF is True, or the current record has been deleted";

// The statements of the class, with the values put in.
std::string PriceSql(const std::string& cust, const std::string& item) {
  return "select t2.f_quotno as f_quotno,t2.f_itemno as f_itemno,t2.f_price as f_price,"
         "t1.f_custno as f_custno,t2.F_Currency as f_currencyid from t_bpricei t2 left join "
         "t_bpriceh t1 on t1.F_QuotNo=t2.F_QuotNo and ifnull(F_Approve,'')<>''  where "
         "t1.F_CustNo='" +
         cust + "'and t2.F_ItemNo='" + item + "'";
}
const char kMaxItemSql[] =
    "select * from t_bpriceh where F_QuotNo in (select max(F_QuotNo) from t_bpriceh)";
std::string CurrencyNameSql(const std::string& id) {
  return "select * from t_scurrency where F_CurrencyID='" + id + "'";
}
std::string CurrencyIdSql(const std::string& name) {
  return "select * from t_scurrency where F_CurrencyName='" + name + "'";
}
std::string AddCheckSql(const std::string& no) {
  return "select * from t_bpriceh where F_QuotNo='" + no + "'";
}
std::string FlagsSql(const std::string& no) {
  return "update t_bpriceh set F_Flags=1 where F_QuotNO=" + no;
}
std::string ApproveSql(const std::string& user, const std::string& no) {
  return "update t_bpriceh set F_Approve='" + user + "',F_ApproveTime=Now() where F_QuotNO=" + no;
}
std::string CheckeSql(const std::string& user, const std::string& no) {
  return "update t_bpriceh set F_Checker='" + user + "',F_CheckerTime=Now() where F_QuotNO=" + no;
}
std::string UpdateSql(const std::string& no) {
  return "select * from t_bpriceh where F_QuotNO ='" + no + "'";
}
std::string MaxOfDaySql(const std::string& date) {
  return "select max(F_QuotNO) as F_QuotNO from t_bpriceh where F_Quotdate ='" + date + "'";
}
std::string DeleteSql(const std::string& no) {
  return "delete from t_bpriceh where F_QuotNO ='" + no + "' ";
}
std::string LeftOfDaySql(const std::string& date) {
  return "select * from t_bpriceh where F_Quotdate='" + date + "'";
}
std::string FollowMaxSql(const std::string& date, const std::string& table) {
  return "update t_sitemno set F_No= (select max(F_QuotNO) from t_bpriceh where F_Quotdate='" +
         date + "') where F_FnDate='" + date + "' and F_TableName='" + table + "'";
}
std::string RemoveDaySql(const std::string& date, const std::string& table) {
  return "delete from t_sitemno where F_FnDate ='" + date + "' and F_TableName='" + table + "'";
}
std::string RightsSql(const std::string& user) {
  return "select * from t_dataright where F_ModuleID='C' and f_userid='" + user + "'";
}
std::string CustFilteredSql(const std::string& user) {
  return "select distinct t0.F_Custno from t_bpriceh t0 inner join t_dataright t1 on "
         "t1.f_moduleid='C' and t1.f_rightid=t0.f_custno and t1.f_userid='" +
         user + "' order by F_Custno asc";
}
const char kCustUnfilteredSql[] = "select distinct F_Custno from t_bpriceh order by F_Custno asc";
std::string DetailSql(const std::string& cust) {
  return "select * from t_bpriceh where F_Custno='" + cust + "'";
}
std::string ByIdSql(const std::string& no) {
  return "select * from t_bpriceh where F_QuotNo ='" + no + "'";
}

// A plain report of a failure: its description in the information style.
Report Described(const std::string& text) { return Report{text, 64, kTitle}; }

// A quotation with every property set, none to its default.
clsEntBPriceh FullQuotation(double no) {
  clsEntBPriceh e;
  e.QuotNo = no;
  e.Attn = "Mr. Li";
  e.CC = "Ms. Wu";
  e.Custno = "C001";
  e.Delivery = "FOB Ningbo";
  e.CurrencyID = "USD";
  e.PayDay = 30;
  e.PayMode = "T/T";
  e.QuotDate = Date::FromParts(2026, 11, 2);
  e.Tabler = "ann";
  e.TablerTime = Date::FromParts(2026, 11, 2, 9, 31, 5);
  e.Checker = "bob";                                       // not written by the add
  e.CheckerTime = Date::FromParts(2026, 11, 3, 8, 0, 0);   // not written
  e.Approve = "cat";                                       // not written
  e.ApproveTime = Date::FromParts(2026, 11, 4, 8, 0, 0);   // not written
  e.SalerID = "S01";
  e.COrderNo = "PO-77";
  e.Flags = 3;  // not written
  e.DeliverAddr = "Dock 4";
  e.OrderType = "Export";
  e.TotalBefore = 1000.5;
  e.DisCount = 2.5;
  e.Greight = 30.25;
  e.Tax = 170.75;
  e.Total = 1176.5;
  e.DocType = "QT";
  e.CustName = "Acme";
  e.jrnlMemo = "memo";
  e.DueDate = Date::FromParts(2026, 12, 15);
  e.TaxDate = Date::FromParts(2026, 12, 31);
  e.UpdataUser = "dan";
  e.PayMonth = 2;
  e.Comments = "rush";
  return e;
}

// What FullQuotation(no) stores: the row as the server prints it.
std::vector<std::string> FullRow(const std::string& no) {
  return {no,     "Mr. Li", "Ms. Wu", "C001",  "FOB Ningbo", "USD",  "30",  "T/T",
          "2026-11-02 00:00:00", "ann", "2026-11-02 09:31:05", "NULL", "NULL", "NULL", "NULL",
          "S01",  "PO-77",  "NULL",   "Dock 4", "Export",     "1000.5", "2.5", "30.25",
          "170.75", "1176.5", "QT",   "Acme",  "memo",        "2026-12-15 00:00:00",
          "2026-12-31 00:00:00", "dan", "2", "rush"};
}

void ExpectSameHeader(const clsEntBPriceh& a, const clsEntBPriceh& b) {
  EXPECT_EQ(a.QuotNo, b.QuotNo);
  EXPECT_EQ(a.Attn, b.Attn);
  EXPECT_EQ(a.CC, b.CC);
  EXPECT_EQ(a.Custno, b.Custno);
  EXPECT_EQ(a.Delivery, b.Delivery);
  EXPECT_EQ(a.CurrencyID, b.CurrencyID);
  EXPECT_EQ(a.PayDay, b.PayDay);
  EXPECT_EQ(a.PayMode, b.PayMode);
  EXPECT_EQ(a.QuotDate, b.QuotDate);
  EXPECT_EQ(a.Tabler, b.Tabler);
  EXPECT_EQ(a.TablerTime, b.TablerTime);
  EXPECT_EQ(a.Checker, b.Checker);
  EXPECT_EQ(a.CheckerTime, b.CheckerTime);
  EXPECT_EQ(a.Approve, b.Approve);
  EXPECT_EQ(a.ApproveTime, b.ApproveTime);
  EXPECT_EQ(a.SalerID, b.SalerID);
  EXPECT_EQ(a.COrderNo, b.COrderNo);
  EXPECT_EQ(a.Flags, b.Flags);
  EXPECT_EQ(a.DeliverAddr, b.DeliverAddr);
  EXPECT_EQ(a.OrderType, b.OrderType);
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
}

class QuotationHeaderTest : public SandboxTest {
 protected:
  std::string Table() const {
    std::string d = database();
    std::transform(d.begin(), d.end(), d.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return "`" + d + "`.`t_bpriceh`";
  }
  // A header with the columns a test needs; F_DueDate and F_TaxDate set, so
  // that the full read does not fail; the rest null.
  void Header(const std::string& no, const std::string& date, const std::string& cust,
              const std::string& approve = "NULL") {
    db().Exec("insert into t_bpriceh (F_QuotNo,F_QuotDate,F_Custno,F_Approve,F_DueDate,F_TaxDate) "
              "values (" + no + ",'" + date + "','" + cust + "'," + approve +
              ",'2026-12-01','2026-12-02')");
  }
  void Line(const std::string& no, const std::string& item, const std::string& price,
            const std::string& currency = "'USD'") {
    db().Exec("insert into t_bpricei (F_QuotNo,F_ItemNo,F_Price,F_Currency) values (" + no +
              ",'" + item + "'," + price + "," + currency + ")");
  }
  void Counter(const std::string& table, const std::string& no, const std::string& date) {
    db().Exec("insert into t_sitemno values ('" + table + "'," + no + ",'" + date + "')");
  }
  Rows Counters() {
    return db().Rows("select F_TableName, F_No, date_format(F_FnDate,'%Y-%m-%d') from t_sitemno "
                     "order by F_TableName, F_FnDate");
  }
  Rows Numbers() { return db().Rows("select F_QuotNo from t_bpriceh order by F_QuotNo"); }
  Strings RowChanges() const {
    Strings out;
    for (const SentStatement& s : Sent()) {
      if (s.kind == StatementKind::kRowChange) out.push_back(s.text);
    }
    return out;
  }
};

// --- QueryPrice -------------------------------------------------------------

class QueryPriceTest : public QuotationHeaderTest {
 protected:
  void SetUp() override {
    QuotationHeaderTest::SetUp();
    Header("2026110201", "2026-11-02", "C001", "'boss'");  // approved
    Header("2026110202", "2026-11-02", "C001");            // never approved
    Header("2026110203", "2026-11-02", "C001", "''");      // approval taken back
    Header("2026110301", "2026-11-03", "C002", "'boss'");  // another customer
    Header("2026110302", "2026-11-03", "C001", "'  '");    // blanks count as approved
    Line("2026110201", "GEAR-40", "12.5");
    Line("2026110201", "BOLT-8", "0.3");
    Line("2026110202", "GEAR-40", "11");
    Line("2026110203", "GEAR-40", "10");
    Line("2026110301", "GEAR-40", "9");
    Line("2026110302", "GEAR-40", "12", "'CNY'");
  }
  // Each entity as "QuotNo Custno CurrencyID item price", sorted: the
  // statement states no order.
  static Strings Listed(const Collection<clsEntBPriceh>& c) {
    Strings out;
    for (const auto& e : c) {
      out.push_back(Text(e->QuotNo) + " " + e->Custno + " " + e->CurrencyID + " " + e->Approve +
                    " " + e->Checker);
    }
    std::sort(out.begin(), out.end());
    return out;
  }
};

TEST_F(QueryPriceTest, GivesTheApprovedLinesOfTheCustomerAndItemInBorrowedProperties) {
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  coll.Add(std::make_shared<clsEntBPriceh>());
  EXPECT_EQ(1, repo.QueryPrice(&coll, "C001", "GEAR-40"));
  EXPECT_EQ(Strings{PriceSql("C001", "GEAR-40")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(3u, coll.Count());
  EXPECT_EQ(0, coll.Item(1).QuotNo);  // what was there stays first
  Collection<clsEntBPriceh> found;
  for (std::size_t i = 2; i <= coll.Count(); ++i) {
    found.Add(std::make_shared<clsEntBPriceh>(coll.Item(i)));
  }
  // The item number travels in Approve, the price as text in Checker.
  EXPECT_EQ((Strings{"2026110201 C001 USD GEAR-40 12.5", "2026110302 C001 CNY GEAR-40 12"}),
            Listed(found));
  // Nothing else of the entities is set.
  for (const auto& e : found) {
    clsEntBPriceh expected;
    expected.QuotNo = e->QuotNo;
    expected.Custno = e->Custno;
    expected.CurrencyID = e->CurrencyID;
    expected.Approve = e->Approve;
    expected.Checker = e->Checker;
    ExpectSameHeader(expected, *e);
  }
}

TEST_F(QueryPriceTest, ACustomerWithOnlyUnapprovedQuotationsGetsNothing) {
  Header("2026110401", "2026-11-04", "C003");
  Line("2026110401", "GEAR-40", "8");
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  EXPECT_EQ(0, repo.QueryPrice(&coll, "C003", "GEAR-40"));
  EXPECT_EQ(0, repo.QueryPrice(&coll, "C001", "NUT-1"));
  EXPECT_EQ(0u, coll.Count());
  EXPECT_TRUE(Reports().empty());
  // Approving the quotation brings its line in; taking the approval back
  // takes it out again.
  EXPECT_EQ(1, repo.UpdateApprove("boss", 2026110401));
  EXPECT_EQ(1, repo.QueryPrice(&coll, "C003", "GEAR-40"));
  EXPECT_EQ(Strings{"2026110401 C003 USD GEAR-40 8"}, Listed(coll));
  EXPECT_EQ(1, repo.UpdateApprove("", 2026110401));
  Collection<clsEntBPriceh> again;
  EXPECT_EQ(0, repo.QueryPrice(&again, "C003", "GEAR-40"));
  EXPECT_EQ(0u, again.Count());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QueryPriceTest, AnEmptyResultLeavesTheCollectionAndClosesRs) {
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  coll.Add(std::make_shared<clsEntBPriceh>());
  EXPECT_EQ(0, repo.QueryPrice(&coll, "C009", "GEAR-40"));
  EXPECT_EQ(1u, coll.Count());
  EXPECT_EQ(0, coll.Item(1).QuotNo);
  // rs was closed: a method that uses it as it stands goes on with it.
  clsEntSCurrency currency;
  EXPECT_EQ(0, repo.QueryCurrencyName(currency, "EUR"));
  EXPECT_EQ((Strings{PriceSql("C009", "GEAR-40"), CurrencyNameSql("EUR")}), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QueryPriceTest, NullsReadAsTheEmptyTextAndZero) {
  db().Exec("insert into t_bpricei (F_QuotNo,F_ItemNo,F_Price,F_Currency) "
            "values (2026110201,'NUT-1',null,null)");
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  EXPECT_EQ(1, repo.QueryPrice(&coll, "C001", "NUT-1"));
  ASSERT_EQ(1u, coll.Count());
  EXPECT_EQ(2026110201, coll.Item(1).QuotNo);
  EXPECT_EQ("", coll.Item(1).CurrencyID);
  EXPECT_EQ("", coll.Item(1).Checker);  // a null price is the empty text
  EXPECT_EQ("NUT-1", coll.Item(1).Approve);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QueryPriceTest, ANullCollectionFailsOnTheFirstRow) {
  clsDataBPriceh repo;
  EXPECT_EQ(0, repo.QueryPrice(nullptr, "C001", "NUT-1"));  // no row: nothing touches it
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(0, repo.QueryPrice(nullptr, "C001", "GEAR-40"));
  EXPECT_EQ(Reports_{PlainReport("Object required")}, Reports());
  // rs was reset: a method that does not start on a new rs works at once.
  clsEntBPriceh e;
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  EXPECT_EQ(2026110302, e.QuotNo);
}

TEST_F(QueryPriceTest, AQuoteInTheCustomerBreaksTheStatement) {
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  EXPECT_EQ(0, repo.QueryPrice(&coll, "O'Brien", "GEAR-40"));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
  EXPECT_EQ(Strings{PriceSql("O'Brien", "GEAR-40")}, Commands());
  EXPECT_EQ(0u, coll.Count());
  Clear();
  EXPECT_EQ(1, repo.QueryPrice(&coll, "C002", "GEAR-40"));
  EXPECT_EQ(Strings{"2026110301 C002 USD GEAR-40 9"}, Listed(coll));
  EXPECT_TRUE(Reports().empty());
}

// --- QueryMaxItem -------------------------------------------------------------

TEST_F(QuotationHeaderTest, QueryMaxItemOnAnEmptyTableGives0AndLeavesTheEntity) {
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(7);
  EXPECT_EQ(0, repo.QueryMaxItem(e));
  ExpectSameHeader(FullQuotation(7), e);
  EXPECT_EQ(Strings{kMaxItemSql}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationHeaderTest, QueryMaxItemReadsTheWholeHeaderOfTheLargestNumber) {
  clsDataBPriceh repo;
  clsEntBPriceh full = FullQuotation(2026110302);
  ASSERT_EQ(1, repo.AddRecord(full, "t_bpriceh", 0));
  db().Exec("update t_bpriceh set F_Checker='bob', F_CheckerTime='2026-11-03 08:00:00', "
            "F_Approve='cat', F_ApproveTime='2026-11-04 08:00:00', F_Flags=3");
  Header("2026110301", "2026-11-03", "C009");
  Header("2026103101", "2026-10-31", "C009");
  Clear();
  clsEntBPriceh e;
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  ExpectSameHeader(full, e);
  EXPECT_EQ(Strings{kMaxItemSql}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationHeaderTest, QueryMaxItemReadsNullsByTheirOwnDefaults) {
  Header("2026110201", "2026-11-02", "C001");
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(7);
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  clsEntBPriceh expected;
  expected.QuotNo = 2026110201;
  expected.QuotDate = Date::FromParts(2026, 11, 2);
  expected.Custno = "C001";
  expected.DueDate = Date::FromParts(2026, 12, 1);
  expected.TaxDate = Date::FromParts(2026, 12, 2);
  expected.Flags = 5;  // a flag never set reads 5
  ExpectSameHeader(expected, e);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationHeaderTest, QueryMaxItemFailsOnANullQuotationDueOrTaxDate) {
  Header("2026110201", "2026-11-02", "C001");
  clsDataBPriceh repo;
  for (const char* column : {"F_QuotDate", "F_DueDate", "F_TaxDate"}) {
    SCOPED_TRACE(column);
    db().Exec("update t_bpriceh set F_QuotDate='2026-11-02', F_DueDate='2026-12-01', "
              "F_TaxDate='2026-12-02'");
    db().Exec(std::string("update t_bpriceh set ") + column + "=null");
    Clear();
    clsEntBPriceh e;
    EXPECT_EQ(0, repo.QueryMaxItem(e));
    EXPECT_EQ(Reports_{PlainReport("Type mismatch")}, Reports());
    // The read stopped at that column.
    EXPECT_EQ(2026110201, e.QuotNo);
  }
  // rs was reset each time: the object goes on.
  db().Exec("update t_bpriceh set F_TaxDate='2026-12-02'");
  Clear();
  clsEntBPriceh e;
  EXPECT_EQ(1, repo.QueryMaxItem(e));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationHeaderTest, QueryMaxItemReportsAServerFailure) {
  db().Exec("drop table t_bpriceh");
  clsDataBPriceh repo;
  clsEntBPriceh e;
  EXPECT_EQ(0, repo.QueryMaxItem(e));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("t_bpriceh' doesn't exist"));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
}

// --- QueryCurrencyName, QueryCurrencyID --------------------------------------

class CurrencyTest : public QuotationHeaderTest {
 protected:
  void SetUp() override {
    QuotationHeaderTest::SetUp();
    db().Exec("insert into t_scurrency values ('USD','US Dollar'), ('CNY','人民币'), "
              "('RMB','人民币'), ('XXX',null), (null,'Nothing')");
  }
};

TEST_F(CurrencyTest, QueryCurrencyNameFindsTheNameOfTheKey) {
  clsDataBPriceh repo;
  clsEntSCurrency e;
  EXPECT_EQ(1, repo.QueryCurrencyName(e, "CNY"));
  EXPECT_EQ("人民币", e.CurrencyName);
  EXPECT_EQ("", e.CurrencyID);  // only the name is set
  EXPECT_EQ(Strings{CurrencyNameSql("CNY")}, Commands());
  EXPECT_TRUE(Reports().empty());
  // A null name reads as the empty text.
  EXPECT_EQ(1, repo.QueryCurrencyName(e, "XXX"));
  EXPECT_EQ("", e.CurrencyName);
}

TEST_F(CurrencyTest, QueryCurrencyNameOfAnUnknownKeyGives0AndLeavesTheEntity) {
  clsDataBPriceh repo;
  clsEntSCurrency e{"id", "name"};
  EXPECT_EQ(0, repo.QueryCurrencyName(e, "EUR"));
  EXPECT_EQ("id", e.CurrencyID);
  EXPECT_EQ("name", e.CurrencyName);
  EXPECT_TRUE(Reports().empty());
  // rs was closed: the next method goes on with it.
  EXPECT_EQ(1, repo.QueryCurrencyName(e, "USD"));
  EXPECT_EQ("US Dollar", e.CurrencyName);
  EXPECT_EQ((Strings{CurrencyNameSql("EUR"), CurrencyNameSql("USD")}), Commands());
}

TEST_F(CurrencyTest, QueryCurrencyNameReportsAFailureAndGives0) {
  clsDataBPriceh repo;
  clsEntSCurrency e;
  EXPECT_EQ(0, repo.QueryCurrencyName(e, "it's"));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
  Clear();
  EXPECT_EQ(1, repo.QueryCurrencyName(e, "USD"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CurrencyTest, QueryCurrencyIdFindsTheKeyOfTheName) {
  clsDataBPriceh repo;
  clsEntSCurrency e;
  EXPECT_EQ(1, repo.QueryCurrencyID(e, "US Dollar"));
  EXPECT_EQ("USD", e.CurrencyID);
  EXPECT_EQ("", e.CurrencyName);  // only the key is set
  // A name that occurs twice: the first row delivered decides.
  EXPECT_EQ(1, repo.QueryCurrencyID(e, "人民币"));
  EXPECT_EQ("CNY", e.CurrencyID);
  // A null key reads as the empty text.
  EXPECT_EQ(1, repo.QueryCurrencyID(e, "Nothing"));
  EXPECT_EQ("", e.CurrencyID);
  EXPECT_EQ((Strings{CurrencyIdSql("US Dollar"), CurrencyIdSql("人民币"), CurrencyIdSql("Nothing")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CurrencyTest, QueryCurrencyIdOfAnUnknownNameGives0AndAFailureReports) {
  clsDataBPriceh repo;
  clsEntSCurrency e{"id", "name"};
  EXPECT_EQ(0, repo.QueryCurrencyID(e, "Euro"));
  EXPECT_EQ("id", e.CurrencyID);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(0, repo.QueryCurrencyID(e, "Dollar's"));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
  EXPECT_EQ((Strings{CurrencyIdSql("Euro"), CurrencyIdSql("Dollar's")}), Commands());
  EXPECT_EQ("id", e.CurrencyID);
}

// --- AddRecord --------------------------------------------------------------

TEST_F(QuotationHeaderTest, AddRecordStoresTheHeaderWithoutSignaturesAndLeavesTSitemno) {
  Counter("t_bpriceh", "2026110201", "2026-11-02");
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(2026110202);
  EXPECT_EQ(1, repo.AddRecord(e, "t_bpriceh", 0));
  EXPECT_EQ(Strings{AddCheckSql("2026110202")}, Commands());
  // The row change names the columns as the table spells them.
  EXPECT_EQ(Strings{"INSERT INTO " + Table() +
                    " (`F_QuotNo`,`F_Attn`,`F_CC`,`F_Custno`,`F_Delivery`,`F_CurrencyID`,"
                    "`F_PayDay`,`F_PayMode`,`F_QuotDate`,`F_Tabler`,`F_TablerTime`,`F_SalerID`,"
                    "`F_COrderNo`,`F_DeliverAddr`,`F_OrderType`,`F_TotalBefore`,`F_DisCount`,"
                    "`F_Greight`,`F_Tax`,`F_Total`,`F_DocType`,`F_CustName`,`F_jrnlMemo`,"
                    "`F_DueDate`,`F_TaxDate`,`F_UpdataUser`,`F_PayMonth`,`F_Comments`) VALUES "
                    "(2026110202,'Mr. Li','Ms. Wu','C001','FOB Ningbo','USD',30,'T/T',"
                    "'2026-11-02 00:00:00','ann','2026-11-02 09:31:05','S01','PO-77','Dock 4',"
                    "'Export',1000.5,2.5,30.25,170.75,1176.5,'QT','Acme','memo',"
                    "'2026-12-15 00:00:00','2026-12-31 00:00:00','dan',2,'rush')"},
            RowChanges());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Rows{FullRow("2026110202")}, db().Rows("select * from t_bpriceh"));
  // Neither the first of a day (Istatus 0) nor a later one writes t_sitemno.
  EXPECT_EQ((Rows{{"t_bpriceh", "2026110201", "2026-11-02"}}), Counters());
  clsEntBPriceh later = FullQuotation(2026110203);
  EXPECT_EQ(1, repo.AddRecord(later, "t_bpriceh", 1));
  EXPECT_EQ((Rows{{"t_bpriceh", "2026110201", "2026-11-02"}}), Counters());
  clsEntBPriceh other_day = FullQuotation(2026110501);
  other_day.QuotDate = Date::FromParts(2026, 11, 5);
  EXPECT_EQ(1, repo.AddRecord(other_day, "t_bpriceh", 0));
  EXPECT_EQ((Rows{{"t_bpriceh", "2026110201", "2026-11-02"}}), Counters());
  EXPECT_EQ((Rows{{"2026110202"}, {"2026110203"}, {"2026110501"}}), Numbers());
  EXPECT_EQ((Strings{AddCheckSql("2026110202"), AddCheckSql("2026110203"),
                     AddCheckSql("2026110501")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationHeaderTest, AddRecordOfAUsedNumberGives0WithoutAMessage) {
  Header("2026110201", "2026-11-02", "OLD");
  const Rows before = db().Rows("select * from t_bpriceh");
  clsDataBPriceh repo;
  for (std::int16_t status : {0, 1}) {
    clsEntBPriceh e = FullQuotation(2026110201);
    EXPECT_EQ(0, repo.AddRecord(e, "t_bpriceh", status));
  }
  EXPECT_EQ((Strings{AddCheckSql("2026110201"), AddCheckSql("2026110201")}), Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(before, db().Rows("select * from t_bpriceh"));
  // The refusal closed rs: the object goes on.
  clsEntBPriceh e = FullQuotation(2026110202);
  EXPECT_EQ(1, repo.AddRecord(e, "", 0));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationHeaderTest, AddRecordMarksAValueTooLongWith1UnderIstatus0) {
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(2026110201);
  e.CustName = std::string(101, 'x');  // F_CustName holds 100
  EXPECT_EQ(2, repo.AddRecord(e, "t_bpriceh", 0));
  EXPECT_EQ(Reports_{Described(std::string("1") + kLengthWords)}, Reports());
  EXPECT_EQ(Strings{AddCheckSql("2026110201")}, Commands());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(0, db().Count("t_bpriceh"));
  // The pending row went with the reset: the next call starts clean.
  Clear();
  e.CustName = "Acme";
  EXPECT_EQ(1, repo.AddRecord(e, "t_bpriceh", 0));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Rows{FullRow("2026110201")}, db().Rows("select * from t_bpriceh"));
}

TEST_F(QuotationHeaderTest, AddRecordMarksNothingBeforeTheUpdateUnderAnotherIstatus) {
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(2026110201);
  e.Attn = std::string(101, 'x');
  EXPECT_EQ(2, repo.AddRecord(e, "t_bpriceh", 2));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());  // the words with no mark
  EXPECT_EQ(0, db().Count("t_bpriceh"));
  Clear();
  e.Attn = "Mr. Li";
  e.Comments = "it's";  // a quote is stored as it stands by a column write
  EXPECT_EQ(1, repo.AddRecord(e, "t_bpriceh", 2));
  EXPECT_EQ(Strings{"it's"}, db().Rows("select F_Comments from t_bpriceh")[0]);
}

TEST_F(QuotationHeaderTest, AddRecordMarksAFailedUpdateWith4Or8) {
  db().Exec("create trigger bpriceh_frozen before insert on t_bpriceh for each row "
            "signal sqlstate '45000' set message_text='quotations frozen'");
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(2026110201);
  EXPECT_EQ(2, repo.AddRecord(e, "t_bpriceh", 0));
  EXPECT_EQ(2, repo.AddRecord(e, "t_bpriceh", 1));
  EXPECT_EQ(2, repo.AddRecord(e, "t_bpriceh", -1));
  EXPECT_EQ((Reports_{Described("4quotations frozen"), Described("8quotations frozen"),
                      Described("8quotations frozen")}),
            Reports());
  EXPECT_EQ(3u, RowChanges().size());
  EXPECT_EQ(0, db().Count("t_bpriceh"));
}

TEST_F(QuotationHeaderTest, AddRecordMarksAFailedCheck) {
  db().Exec("drop table t_bpriceh");
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(2026110201);
  EXPECT_EQ(2, repo.AddRecord(e, "t_bpriceh", 0));
  EXPECT_EQ(2, repo.AddRecord(e, "t_bpriceh", 1));
  ASSERT_EQ(2u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith("1Table '"));
  EXPECT_THAT(Reports()[0].text, HasSubstr("t_bpriceh' doesn't exist"));
  EXPECT_THAT(Reports()[1].text, StartsWith("Table '"));
  EXPECT_EQ(64, Reports()[1].style);
  EXPECT_EQ(kTitle, Reports()[1].title);
}

// --- UpdateFlags, UpdateApprove, UpdateChecke -------------------------------

TEST_F(QuotationHeaderTest, UpdateFlagsSetsTheFlagTo1) {
  Header("2026110201", "2026-11-02", "C001");
  Header("2026110202", "2026-11-02", "C001");
  clsDataBPriceh repo;
  EXPECT_EQ(1, repo.UpdateFlags(2026110202));
  EXPECT_EQ(Strings{FlagsSql("2026110202")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{{"2026110201", "NULL"}, {"2026110202", "1"}}),
            db().Rows("select F_QuotNo, F_Flags from t_bpriceh order by 1"));
  // Read back: 1, and the other one 5.
  clsEntBPriceh e;
  e.QuotNo = 2026110202;
  EXPECT_EQ(1, repo.GetItemByID(e));
  EXPECT_EQ(1, e.Flags);
  e.QuotNo = 2026110201;
  EXPECT_EQ(1, repo.GetItemByID(e));
  EXPECT_EQ(5, e.Flags);
}

TEST_F(QuotationHeaderTest, UpdateFlagsApproveAndCheckeOfAnUnknownNumberGive1) {
  Header("2026110201", "2026-11-02", "C001");
  const Rows before = db().Rows("select * from t_bpriceh");
  clsDataBPriceh repo;
  EXPECT_EQ(1, repo.UpdateFlags(2026110299));
  EXPECT_EQ(1, repo.UpdateApprove("boss", 2026110299));
  EXPECT_EQ(1, repo.UpdateChecke("qc", 2026110299));
  EXPECT_EQ((Strings{FlagsSql("2026110299"), ApproveSql("boss", "2026110299"),
                     CheckeSql("qc", "2026110299")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(before, db().Rows("select * from t_bpriceh"));
}

TEST_F(QuotationHeaderTest, UpdateFlagsReportsAFailureWithItsDescription) {
  db().Exec("drop table t_bpriceh");
  clsDataBPriceh repo;
  EXPECT_EQ(0, repo.UpdateFlags(2026110201));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("t_bpriceh' doesn't exist"));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
}

TEST_F(QuotationHeaderTest, UpdateApproveAndCheckeStampTheUserAndTheServersTime) {
  Header("2026110201", "2026-11-02", "C001");
  Header("2026110202", "2026-11-02", "C001");
  clsDataBPriceh repo;
  EXPECT_EQ(1, repo.UpdateApprove("boss", 2026110201));
  EXPECT_EQ(1, repo.UpdateChecke("qc", 2026110202));
  // The same user may check and approve, in any order.
  EXPECT_EQ(1, repo.UpdateApprove("qc", 2026110202));
  EXPECT_EQ((Strings{ApproveSql("boss", "2026110201"), CheckeSql("qc", "2026110202"),
                     ApproveSql("qc", "2026110202")}),
            Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{{"2026110201", "NULL", "NULL", "boss", "1"},
                  {"2026110202", "qc", "1", "qc", "1"}}),
            db().Rows("select F_QuotNo, F_Checker, abs(timestampdiff(second, F_CheckerTime, "
                      "now())) < 60, F_Approve, abs(timestampdiff(second, F_ApproveTime, now())) "
                      "< 60 from t_bpriceh order by 1"));
}

TEST_F(QuotationHeaderTest, UpdateApproveAndCheckeWithAQuoteReportTheServerFailure) {
  Header("2026110201", "2026-11-02", "C001");
  clsDataBPriceh repo;
  EXPECT_EQ(0, repo.UpdateApprove("O'Neil", 2026110201));
  EXPECT_EQ(0, repo.UpdateChecke("O'Neil", 2026110201));
  ASSERT_EQ(2u, Reports().size());
  for (const Report& r : Reports()) {
    EXPECT_THAT(r.text, StartsWith(kSyntax));
    EXPECT_EQ(64, r.style);
    EXPECT_EQ(kTitle, r.title);
  }
  EXPECT_EQ((Strings{ApproveSql("O'Neil", "2026110201"), CheckeSql("O'Neil", "2026110201")}),
            Commands());
  EXPECT_EQ((Rows{{"NULL", "NULL"}}), db().Rows("select F_Checker, F_Approve from t_bpriceh"));
}

// --- UpdateRecord -------------------------------------------------------------

TEST_F(QuotationHeaderTest, UpdateRecordOverwritesAllButWhoEnteredItAndTheSignatures) {
  Header("2026110201", "2026-10-30", "OLD");
  Counter("t_bpriceh", "2026110201", "2026-10-30");
  db().Exec("update t_bpriceh set F_Tabler='t0', F_TablerTime='2026-11-02 08:00:00', "
            "F_Checker='c0', F_CheckerTime='2026-11-02 08:10:00', F_Approve='a0', "
            "F_ApproveTime='2026-11-02 08:20:00', F_Flags=1");
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(2026110209);  // the number replaces the key
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201"));
  EXPECT_EQ(Strings{UpdateSql("2026110201")}, Commands());
  EXPECT_EQ(Strings{"UPDATE " + Table() +
                    " SET `F_QuotNo`=2026110209,`F_Attn`='Mr. Li',`F_CC`='Ms. Wu',"
                    "`F_Custno`='C001',`F_Delivery`='FOB Ningbo',`F_CurrencyID`='USD',"
                    "`F_PayDay`=30,`F_PayMode`='T/T',`F_QuotDate`='2026-11-02 00:00:00',"
                    "`F_SalerID`='S01',`F_COrderNo`='PO-77',`F_DeliverAddr`='Dock 4',"
                    "`F_OrderType`='Export',`F_TotalBefore`=1000.5,`F_DisCount`=2.5,"
                    "`F_Greight`=30.25,`F_Tax`=170.75,`F_Total`=1176.5,`F_DocType`='QT',"
                    "`F_CustName`='Acme',`F_jrnlMemo`='memo',`F_DueDate`='2026-12-15 00:00:00',"
                    "`F_TaxDate`='2026-12-31 00:00:00',`F_UpdataUser`='dan',`F_PayMonth`=2,"
                    "`F_Comments`='rush' WHERE `F_QuotNo` <=> 2026110201 LIMIT 1"},
            RowChanges());
  EXPECT_TRUE(Reports().empty());
  std::vector<std::string> row = FullRow("2026110209");
  row[9] = "t0";
  row[10] = "2026-11-02 08:00:00";
  row[11] = "c0";
  row[12] = "2026-11-02 08:10:00";
  row[13] = "a0";
  row[14] = "2026-11-02 08:20:00";
  row[17] = "1";
  EXPECT_EQ(Rows{row}, db().Rows("select * from t_bpriceh"));
  // A new number and date leave t_sitemno as it was.
  EXPECT_EQ((Rows{{"t_bpriceh", "2026110201", "2026-10-30"}}), Counters());
}

TEST_F(QuotationHeaderTest, UpdateRecordOfAnUnknownNumberReportsAndGives0) {
  Header("2026110201", "2026-11-02", "OLD");
  const Rows before = db().Rows("select * from t_bpriceh");
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(2026110201);
  EXPECT_EQ(0, repo.UpdateRecord(e, "2026110299"));
  EXPECT_EQ(Reports_{Described(kNoRowWords)}, Reports());
  EXPECT_EQ(Strings{UpdateSql("2026110299")}, Commands());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(before, db().Rows("select * from t_bpriceh"));
  // rs was reset: the next call works.
  Clear();
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationHeaderTest, UpdateRecordWithAValueTooLongLeavesTheRow) {
  Header("2026110201", "2026-11-02", "OLD");
  const Rows before = db().Rows("select * from t_bpriceh");
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(2026110201);
  e.Comments = std::string(256, 'x');
  EXPECT_EQ(0, repo.UpdateRecord(e, "2026110201"));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(before, db().Rows("select * from t_bpriceh"));
}

TEST_F(QuotationHeaderTest, UpdateRecordKeepsAnApprovedQuotationApproved) {
  Header("2026110201", "2026-11-02", "C001", "'boss'");
  Line("2026110201", "GEAR-40", "12.5");
  clsDataBPriceh repo;
  clsEntBPriceh e;
  e.QuotNo = 2026110201;
  ASSERT_EQ(1, repo.GetItemByID(e));
  e.Approve = "";  // not written by the update
  e.Total = 99;
  EXPECT_EQ(1, repo.UpdateRecord(e, "2026110201"));
  EXPECT_EQ((Rows{{"boss", "99"}}), db().Rows("select F_Approve, F_Total from t_bpriceh"));
  Collection<clsEntBPriceh> coll;
  EXPECT_EQ(1, repo.QueryPrice(&coll, "C001", "GEAR-40"));
  EXPECT_TRUE(Reports().empty());
}

// --- QueryMaxItemDelete -----------------------------------------------------

TEST_F(QuotationHeaderTest, QueryMaxItemDeleteGivesTheLargestNumberOfTheDate) {
  Header("2026110201", "2026-11-02", "C001");
  Header("2026110203", "2026-11-02", "C001");
  Header("2026110301", "2026-11-03", "C001");
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(7);
  EXPECT_EQ(1, repo.QueryMaxItemDelete(e, Date::FromParts(2026, 11, 2)));
  clsEntBPriceh expected = FullQuotation(2026110203);  // only the number is set
  ExpectSameHeader(expected, e);
  EXPECT_EQ(Strings{MaxOfDaySql("2026-11-02")}, Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationHeaderTest, QueryMaxItemDeleteOfADateWithoutQuotationsGives0As1) {
  Header("2026110201", "2026-11-02", "C001");
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(7);
  EXPECT_EQ(1, repo.QueryMaxItemDelete(e, Date::FromParts(2026, 11, 5)));
  EXPECT_EQ(0, e.QuotNo);
  EXPECT_EQ(Strings{MaxOfDaySql("2026-11-05")}, Commands());
  EXPECT_TRUE(Reports().empty());
  // The date's time goes into the text when it is not midnight.
  EXPECT_EQ(1, repo.QueryMaxItemDelete(e, Date::FromParts(2026, 11, 2, 10, 0, 0)));
  EXPECT_EQ(0, e.QuotNo);
  EXPECT_EQ(MaxOfDaySql("2026-11-02 10:00:00"), Commands().back());
}

TEST_F(QuotationHeaderTest, QueryMaxItemDeleteReportsAFailureAndGives2) {
  db().Exec("drop table t_bpriceh");
  clsDataBPriceh repo;
  clsEntBPriceh e;
  EXPECT_EQ(2, repo.QueryMaxItemDelete(e, Date::FromParts(2026, 11, 2)));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("t_bpriceh' doesn't exist"));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
}

// --- DeleteRecord ---------------------------------------------------------------

TEST_F(QuotationHeaderTest, DeleteRecordWithoutRollbackLeavesTSitemno) {
  Header("2026110201", "2026-11-02", "C001");
  Header("2026110202", "2026-11-02", "C001");
  Line("2026110202", "GEAR-40", "12.5");
  Counter("t_bpriceh", "2026110202", "2026-11-02");
  clsDataBPriceh repo;
  clsEntBPriceh e;
  e.QuotNo = 2026110202;
  e.QuotDate = Date::FromParts(2026, 11, 2);
  EXPECT_EQ(1, repo.DeleteRecord(e, 0, "t_bpriceh"));
  EXPECT_EQ(Strings{DeleteSql("2026110202")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Rows{{"2026110201"}}, Numbers());
  EXPECT_EQ((Rows{{"t_bpriceh", "2026110202", "2026-11-02"}}), Counters());
  EXPECT_EQ(1, db().Count("t_bpricei"));  // the lines stay
  // A number that is not there: the same answer.
  EXPECT_EQ(1, repo.DeleteRecord(e, 2, "t_bpriceh"));
  EXPECT_EQ(Rows{{"2026110201"}}, Numbers());
}

TEST_F(QuotationHeaderTest, DeleteRecordWithRollbackPointsTheDaysRowAtTheLargestLeft) {
  Header("2026110201", "2026-11-02", "C001");
  Header("2026110202", "2026-11-02", "C001");
  Header("2026110203", "2026-11-02", "C001");
  Header("2026110301", "2026-11-03", "C001");
  Counter("t_bpriceh", "2026110203", "2026-11-02");
  Counter("t_bpriceh", "2026110301", "2026-11-03");
  Counter("t_bcstudy", "2026110203", "2026-11-02");
  clsDataBPriceh repo;
  clsEntBPriceh e;
  e.QuotNo = 2026110203;
  e.QuotDate = Date::FromParts(2026, 11, 2);
  EXPECT_EQ(1, repo.DeleteRecord(e, 1, "t_bpriceh"));
  EXPECT_EQ((Strings{DeleteSql("2026110203"), LeftOfDaySql("2026-11-02"),
                     FollowMaxSql("2026-11-02", "t_bpriceh")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{{"2026110201"}, {"2026110202"}, {"2026110301"}}), Numbers());
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110203", "2026-11-02"},
                  {"t_bpriceh", "2026110202", "2026-11-02"},
                  {"t_bpriceh", "2026110301", "2026-11-03"}}),
            Counters());
  // Whichever quotation of the day goes, the row follows the maximum.
  Clear();
  e.QuotNo = 2026110201;
  EXPECT_EQ(1, repo.DeleteRecord(e, 1, "t_bpriceh"));
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110203", "2026-11-02"},
                  {"t_bpriceh", "2026110202", "2026-11-02"},
                  {"t_bpriceh", "2026110301", "2026-11-03"}}),
            Counters());
  // The freed number can be added again; the add writes no row.
  Clear();
  clsEntBPriceh again = FullQuotation(2026110203);
  EXPECT_EQ(1, repo.AddRecord(again, "t_bpriceh", 1));
  EXPECT_EQ((Rows{{"t_bcstudy", "2026110203", "2026-11-02"},
                  {"t_bpriceh", "2026110202", "2026-11-02"},
                  {"t_bpriceh", "2026110301", "2026-11-03"}}),
            Counters());
}

TEST_F(QuotationHeaderTest, DeleteRecordOfTheLastOfTheDayRemovesTheDaysRowAndGives2) {
  Header("2026110201", "2026-11-02", "C001");
  Header("2026110301", "2026-11-03", "C001");
  Counter("t_bpriceh", "2026110201", "2026-11-02");
  Counter("t_bpriceh", "2026110301", "2026-11-03");
  clsDataBPriceh repo;
  clsEntBPriceh e;
  e.QuotNo = 2026110201;
  e.QuotDate = Date::FromParts(2026, 11, 2);
  EXPECT_EQ(2, repo.DeleteRecord(e, 1, "t_bpriceh"));
  EXPECT_EQ((Strings{DeleteSql("2026110201"), LeftOfDaySql("2026-11-02"),
                     RemoveDaySql("2026-11-02", "t_bpriceh")}),
            Commands());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Rows{{"2026110301"}}, Numbers());
  EXPECT_EQ((Rows{{"t_bpriceh", "2026110301", "2026-11-03"}}), Counters());
}

TEST_F(QuotationHeaderTest, DeleteRecordRollsBackARowTheAddNeverWrote) {
  // The add of a quotation writes no row; the delete looks for one all the
  // same, and with none there it changes nothing.
  clsDataBPriceh repo;
  clsEntBPriceh first = FullQuotation(2026110201);
  clsEntBPriceh second = FullQuotation(2026110202);
  ASSERT_EQ(1, repo.AddRecord(first, "t_bpriceh", 0));
  ASSERT_EQ(1, repo.AddRecord(second, "t_bpriceh", 1));
  EXPECT_TRUE(Counters().empty());
  EXPECT_EQ(1, repo.DeleteRecord(second, 1, "t_bpriceh"));
  EXPECT_TRUE(Counters().empty());
  EXPECT_EQ(2, repo.DeleteRecord(first, 1, "t_bpriceh"));
  EXPECT_TRUE(Counters().empty());
  EXPECT_EQ(0, db().Count("t_bpriceh"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationHeaderTest, DeleteRecordFailureLeavesWhatRanBeforeAndGives0) {
  Header("2026110201", "2026-11-02", "C001");
  Header("2026110202", "2026-11-02", "C001");
  db().Exec("drop table t_sitemno");
  clsDataBPriceh repo;
  clsEntBPriceh e;
  e.QuotNo = 2026110202;
  e.QuotDate = Date::FromParts(2026, 11, 2);
  EXPECT_EQ(0, repo.DeleteRecord(e, 1, "t_bpriceh"));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("t_sitemno' doesn't exist"));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
  EXPECT_EQ((Strings{DeleteSql("2026110202"), LeftOfDaySql("2026-11-02"),
                     FollowMaxSql("2026-11-02", "t_bpriceh")}),
            Commands());
  EXPECT_EQ(Rows{{"2026110201"}}, Numbers());  // the delete stays
}

// --- QueryAllCustNo ---------------------------------------------------------------

class CustomerListTest : public QuotationHeaderTest {
 protected:
  void SetUp() override {
    QuotationHeaderTest::SetUp();
    Header("2026110201", "2026-11-02", "C003");
    Header("2026110202", "2026-11-02", "C001");
    Header("2026110203", "2026-11-02", "C002");
    Header("2026110204", "2026-11-02", "C001");
  }
  void Right(const std::string& module, const std::string& user, const std::string& id) {
    db().Exec("insert into t_dataright values ('" + module + "','" + user + "','" + id + "')");
  }
  static Strings Customers(const Collection<clsEntBPriceh>& c) {
    Strings out;
    for (const auto& e : c) {
      EXPECT_EQ(0, e->QuotNo);
      EXPECT_EQ(0, e->Flags);
      out.push_back(e->Custno);
    }
    return out;
  }
};

TEST_F(CustomerListTest, AUserWithoutRightsSeesEveryCustomer) {
  Right("C", "lin", "C001");
  clsDataBPriceh repo;
  for (const char* user : {"wang", ""}) {
    SCOPED_TRACE(user);
    Clear();
    Collection<clsEntBPriceh> coll;
    EXPECT_TRUE(repo.QueryAllCustNo(&coll, user).IsEmpty());
    EXPECT_EQ((Strings{"C001", "C002", "C003"}), Customers(coll));
    EXPECT_EQ((Strings{RightsSql(user), kCustUnfilteredSql}), Commands());
    EXPECT_TRUE(Reports().empty());
  }
  // The user is compared as the server compares text: case and trailing
  // blanks do not count there, and the library folds and trims nothing.
  Clear();
  Collection<clsEntBPriceh> coll;
  EXPECT_TRUE(repo.QueryAllCustNo(&coll, "LIN ").IsEmpty());
  EXPECT_EQ(Strings{"C001"}, Customers(coll));
  EXPECT_EQ((Strings{RightsSql("LIN "), CustFilteredSql("LIN ")}), Commands());
}

TEST_F(CustomerListTest, AUserWithRightsSeesTheCustomersOfTheRightsThatHaveQuotations) {
  Right("C", "lin", "C001");
  Right("C", "lin", "C003");
  Right("C", "lin", "C009");  // no quotations
  Right("C", "lin", "C001");  // twice: distinct keeps one
  Right("C", "zhao", "C002");
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  coll.Add(std::make_shared<clsEntBPriceh>());
  EXPECT_TRUE(repo.QueryAllCustNo(&coll, "lin").IsEmpty());
  EXPECT_EQ((Strings{"", "C001", "C003"}), Customers(coll));
  EXPECT_EQ((Strings{RightsSql("lin"), CustFilteredSql("lin")}), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerListTest, RightsThatMatchNoQuotationGiveNothing) {
  Right("C", "lin", "C009");
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  EXPECT_TRUE(repo.QueryAllCustNo(&coll, "lin").IsEmpty());
  EXPECT_EQ(0u, coll.Count());
  EXPECT_EQ((Strings{RightsSql("lin"), CustFilteredSql("lin")}), Commands());
}

TEST_F(CustomerListTest, AnEmptyListClosesRs) {
  db().Exec("delete from t_bpriceh");
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  EXPECT_TRUE(repo.QueryAllCustNo(&coll, "wang").IsEmpty());
  EXPECT_EQ(0u, coll.Count());
  // rs was closed: a method that uses it as it stands goes on with it.
  clsEntBPriceh e;
  EXPECT_EQ(0, repo.QueryMaxItem(e));
  EXPECT_EQ((Strings{RightsSql("wang"), kCustUnfilteredSql, kMaxItemSql}), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerListTest, RightsOfTheSupplierModuleDoNotRestrict) {
  Right("S", "lin", "P001");
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  EXPECT_TRUE(repo.QueryAllCustNo(&coll, "lin").IsEmpty());
  EXPECT_EQ((Strings{"C001", "C002", "C003"}), Customers(coll));
  EXPECT_EQ((Strings{RightsSql("lin"), kCustUnfilteredSql}), Commands());
}

TEST_F(CustomerListTest, AFailureGivesTheInteger0) {
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  const Variant failed = repo.QueryAllCustNo(&coll, "o'hara");
  EXPECT_EQ(Variant(std::int16_t{0}), failed);
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
  // A failed rights test never falls back to the unfiltered list.
  EXPECT_EQ(Strings{RightsSql("o'hara")}, Commands());
  EXPECT_EQ(0u, coll.Count());
  // A null collection fails on the first row.
  Clear();
  EXPECT_EQ(Variant(std::int16_t{0}), repo.QueryAllCustNo(nullptr, "wang"));
  EXPECT_EQ(Reports_{PlainReport("Object required")}, Reports());
  // rs was reset: the next call works.
  Clear();
  EXPECT_TRUE(repo.QueryAllCustNo(&coll, "wang").IsEmpty());
  EXPECT_EQ(3u, coll.Count());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(CustomerListTest, ANullCustomerReadsAsTheEmptyText) {
  db().Exec("insert into t_bpriceh (F_QuotNo, F_QuotDate) values (2026110205, '2026-11-02')");
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  EXPECT_TRUE(repo.QueryAllCustNo(&coll, "wang").IsEmpty());
  EXPECT_EQ((Strings{"", "C001", "C002", "C003"}), Customers(coll));
}

// --- QueryAlldetaile ------------------------------------------------------------

TEST_F(QuotationHeaderTest, QueryAlldetaileAppendsTheHeadersOfTheCustomerWhateverTheRights) {
  clsDataBPriceh repo;
  clsEntBPriceh full = FullQuotation(2026110202);
  ASSERT_EQ(1, repo.AddRecord(full, "t_bpriceh", 0));
  Header("2026110201", "2026-11-02", "C001");
  Header("2026110203", "2026-11-02", "C002");
  db().Exec("insert into t_dataright values ('C','lin','C002')");
  Clear();
  Collection<clsEntBPriceh> coll;
  coll.Add(std::make_shared<clsEntBPriceh>());
  EXPECT_EQ(1, repo.QueryAlldetaile(&coll, "C001"));
  EXPECT_EQ(Strings{DetailSql("C001")}, Commands());
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(3u, coll.Count());
  clsEntBPriceh plain;
  plain.QuotNo = 2026110201;
  plain.QuotDate = Date::FromParts(2026, 11, 2);
  plain.Custno = "C001";
  plain.DueDate = Date::FromParts(2026, 12, 1);
  plain.TaxDate = Date::FromParts(2026, 12, 2);
  plain.Flags = 5;
  full.Checker.clear();
  full.CheckerTime = Date();
  full.Approve.clear();
  full.ApproveTime = Date();
  full.Flags = 5;
  // By key order of the table.
  ExpectSameHeader(plain, coll.Item(2));
  ExpectSameHeader(full, coll.Item(3));
}

TEST_F(QuotationHeaderTest, QueryAlldetaileOfACustomerWithoutQuotationsGives0) {
  Header("2026110201", "2026-11-02", "C001");
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  EXPECT_EQ(0, repo.QueryAlldetaile(&coll, "C002"));
  EXPECT_EQ(0u, coll.Count());
  EXPECT_EQ(0, repo.QueryAlldetaile(nullptr, "C002"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationHeaderTest, QueryAlldetaileStopsAtANullDateWithTheEarlierRowsKept) {
  Header("2026110201", "2026-11-02", "C001");
  Header("2026110202", "2026-11-02", "C001");
  Header("2026110203", "2026-11-02", "C001");
  db().Exec("update t_bpriceh set F_DueDate=null where F_QuotNo=2026110202");
  clsDataBPriceh repo;
  Collection<clsEntBPriceh> coll;
  EXPECT_EQ(0, repo.QueryAlldetaile(&coll, "C001"));
  EXPECT_EQ(Reports_{PlainReport("Type mismatch")}, Reports());
  ASSERT_EQ(1u, coll.Count());
  EXPECT_EQ(2026110201, coll.Item(1).QuotNo);
  // A null collection fails on the first row.
  Clear();
  EXPECT_EQ(0, repo.QueryAlldetaile(nullptr, "C001"));
  EXPECT_EQ(Reports_{PlainReport("Object required")}, Reports());
}

// --- GetItemByID --------------------------------------------------------------

TEST_F(QuotationHeaderTest, GetItemByIdFillsTheEntityFromItsNumber) {
  clsDataBPriceh repo;
  clsEntBPriceh full = FullQuotation(2026110202);
  ASSERT_EQ(1, repo.AddRecord(full, "t_bpriceh", 0));
  ASSERT_EQ(1, repo.UpdateApprove("cat", 2026110202));
  Header("2026110201", "2026-11-02", "C001");
  Clear();
  clsEntBPriceh e;
  e.QuotNo = 2026110202;
  EXPECT_EQ(1, repo.GetItemByID(e));
  EXPECT_EQ(Strings{ByIdSql("2026110202")}, Commands());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ("cat", e.Approve);
  EXPECT_NE(Date(), e.ApproveTime);
  full.Checker.clear();
  full.CheckerTime = Date();
  full.Approve = e.Approve;
  full.ApproveTime = e.ApproveTime;
  full.Flags = 5;
  ExpectSameHeader(full, e);
}

TEST_F(QuotationHeaderTest, GetItemByIdOfAnUnknownNumberGives0AndLeavesTheEntity) {
  Header("2026110201", "2026-11-02", "C001");
  clsDataBPriceh repo;
  clsEntBPriceh e = FullQuotation(2026110209);
  EXPECT_EQ(0, repo.GetItemByID(e));
  ExpectSameHeader(FullQuotation(2026110209), e);
  EXPECT_EQ(Strings{ByIdSql("2026110209")}, Commands());
  EXPECT_TRUE(Reports().empty());
  // rs was closed: the next call goes on.
  e.QuotNo = 2026110201;
  EXPECT_EQ(1, repo.GetItemByID(e));
}

TEST_F(QuotationHeaderTest, GetItemByIdFailsOnANullTaxDateAndGives2) {
  Header("2026110201", "2026-11-02", "C001");
  db().Exec("update t_bpriceh set F_TaxDate=null");
  clsDataBPriceh repo;
  clsEntBPriceh e;
  e.QuotNo = 2026110201;
  EXPECT_EQ(2, repo.GetItemByID(e));
  EXPECT_EQ(Reports_{PlainReport("Type mismatch")}, Reports());
  EXPECT_EQ(Date::FromParts(2026, 12, 1), e.DueDate);  // read before the failure
  // A null quotation date fails likewise; null times read as the zero date.
  db().Exec("update t_bpriceh set F_TaxDate='2026-12-02', F_QuotDate=null");
  Clear();
  EXPECT_EQ(2, repo.GetItemByID(e));
  EXPECT_EQ(Reports_{PlainReport("Type mismatch")}, Reports());
  db().Exec("update t_bpriceh set F_QuotDate='2026-11-02'");
  Clear();
  e.TablerTime = e.CheckerTime = e.ApproveTime = Date::FromParts(2000, 1, 1);
  EXPECT_EQ(1, repo.GetItemByID(e));
  EXPECT_EQ(Date(), e.TablerTime);
  EXPECT_EQ(Date(), e.CheckerTime);
  EXPECT_EQ(Date(), e.ApproveTime);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationHeaderTest, GetItemByIdReportsAServerFailure) {
  db().Exec("drop table t_bpriceh");
  clsDataBPriceh repo;
  clsEntBPriceh e;
  EXPECT_EQ(2, repo.GetItemByID(e));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, HasSubstr("t_bpriceh' doesn't exist"));
  EXPECT_EQ(Strings{ByIdSql("0")}, Commands());
}

// --- The object -------------------------------------------------------------

TEST_F(QuotationHeaderTest, CreationFailsWhenTheSessionCannotOpen) {
  SetSessionConnectionString(testing::ServerAddress::FromEnvironment().ConnectionText(
      database() + "_missing"));
  EXPECT_THROW(clsDataBPriceh repo, Error);
  EXPECT_TRUE(Reports().empty());
}

}  // namespace
}  // namespace corvane
