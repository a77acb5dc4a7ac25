// clsDataBPricei against the sandbox server: every path of its five methods
// with the statements sent, the results, the reports, and what t_bpricei
// holds afterwards.
#include "corvane/quotations/quotation_lines.h"

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
using ::testing::StartsWith;
using Rows = std::vector<std::vector<std::string>>;
using Strings = std::vector<std::string>;
using Reports_ = std::vector<Report>;

constexpr char kTitle[] = "塔恩维克";
constexpr char kSyntax[] = "You have an error in your SQL syntax";
constexpr char kNoRowWords[] = "Either BOF or EOF is True, or the current record has been deleted";

// The statements of the class, with the values put in.
std::string PriceSql(const std::string& item) {
  return "select distinct(F_Price) from t_bpricei where F_ItemNo='" + item + "'";
}
std::string LinesSql(const std::string& no) {
  return "select * from t_bpricei where F_QuotNo='" + no + "'";
}
std::string AddCheckSql(const std::string& no, const std::string& item) {
  return "select * from t_bpricei where F_QuotNo='" + no + "'and F_ItemNo='" + item + "'";
}
std::string UpdateSql(const std::string& no, const std::string& item) {
  return "select * from t_bpricei where F_QuotNO ='" + no + "'and F_ItemNo='" + item + "'";
}
std::string DeleteSql(const std::string& no, const std::string& item) {
  return "delete from t_bpricei where F_QuotNO ='" + no + "'and F_ItemNo='" + item + "'";
}

// A length report of a failure other than a value that does not fit: the
// failure's own description.
Report Described(const std::string& text) { return Report{text, 64, kTitle}; }

// A line with every property set, none to its default.
clsEntBPricei FullLine(double no, const std::string& item) {
  clsEntBPricei e;
  e.CitemNO = "CUST-" + item;
  e.ItemNo = item;
  e.Price = 12.5;
  e.QuotNo = no;
  e.Remark = "sample first";
  e.Currency = "USD";
  e.OrdQty = 100;
  e.DeliverDate = Date::FromParts(2026, 12, 15);
  e.BkQty = 5;
  e.No = "1";
  e.Rate = 7.25;
  e.TaxSort = "VAT13";
  e.Tax = 162.5;
  e.DisPerRow = 2.5;
  e.ItemName = "Gear 40 teeth";
  e.FcTotal = 1250;
  e.LcTotal = 8875;
  return e;
}

// What FullLine(no, item) stores, as the server prints it.
std::vector<std::string> FullRow(const std::string& no, const std::string& item) {
  return {"CUST-" + item, item, "12.5", no, "sample first", "USD", "100",
          "2026-12-15 00:00:00", "0", "0", "0", "5", "1", "0", "7.25", "VAT13", "162.5", "2.5",
          "Gear 40 teeth", "1250", "8875"};
}

void ExpectSameLine(const clsEntBPricei& a, const clsEntBPricei& b) {
  EXPECT_EQ(a.CitemNO, b.CitemNO);
  EXPECT_EQ(a.ItemNo, b.ItemNo);
  EXPECT_EQ(a.Price, b.Price);
  EXPECT_EQ(a.QuotNo, b.QuotNo);
  EXPECT_EQ(a.Remark, b.Remark);
  EXPECT_EQ(a.Currency, b.Currency);
  EXPECT_EQ(a.OrdQty, b.OrdQty);
  EXPECT_EQ(a.DeliverDate, b.DeliverDate);
  EXPECT_EQ(a.BkQty, b.BkQty);
  EXPECT_EQ(a.No, b.No);
  EXPECT_EQ(a.Rate, b.Rate);
  EXPECT_EQ(a.TaxSort, b.TaxSort);
  EXPECT_EQ(a.Tax, b.Tax);
  EXPECT_EQ(a.DisPerRow, b.DisPerRow);
  EXPECT_EQ(a.ItemName, b.ItemName);
  EXPECT_EQ(a.FcTotal, b.FcTotal);
  EXPECT_EQ(a.LcTotal, b.LcTotal);
}

class QuotationLinesTest : public SandboxTest {
 protected:
  std::string Table() const {
    std::string d = database();
    std::transform(d.begin(), d.end(), d.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return "`" + d + "`.`t_bpricei`";
  }
  void Line(const std::string& no, const std::string& item, const std::string& price) {
    db().Exec("insert into t_bpricei (F_QuotNo,F_ItemNo,F_Price) values (" + no + ",'" + item +
              "'," + price + ")");
  }
  Rows Lines() { return db().Rows("select * from t_bpricei order by F_QuotNo, F_ItemNo"); }
  Rows Keys() {
    return db().Rows("select F_QuotNo, F_ItemNo from t_bpricei order by F_QuotNo, F_ItemNo");
  }
  Strings RowChanges() const {
    Strings out;
    for (const SentStatement& s : Sent()) {
      if (s.kind == StatementKind::kRowChange) out.push_back(s.text);
    }
    return out;
  }
  // The row change that stores FullLine(no, item).
  std::string InsertOf(const std::string& no, const std::string& item) const {
    return "INSERT INTO " + Table() +
           " (`F_CitemNO`,`F_ItemNo`,`F_Price`,`F_QuotNo`,`F_Remark`,`F_Currency`,`F_OrdQty`,"
           "`F_DeliverDate`,`F_ProdNo`,`F_InQty`,`F_OutQty`,`F_BkQty`,`F_No`,`F_Flags`,`F_Rate`,"
           "`F_TaxSort`,`F_Tax`,`F_DisPerRow`,`F_ItemName`,`F_FcTotal`,`F_LcTotal`) VALUES "
           "('CUST-" + item + "','" + item + "',12.5," + no +
           ",'sample first','USD',100,'2026-12-15 00:00:00',0,0,0,5,'1',0,7.25,'VAT13',162.5,2.5,"
           "'Gear 40 teeth',1250,8875)";
  }
};

std::vector<double> Prices(const Collection<clsEntBPricei>& c) {
  std::vector<double> out;
  for (const auto& e : c) out.push_back(e->Price);
  return out;
}

// --- QueryPrice ---------------------------------------------------------------

TEST_F(QuotationLinesTest, QueryPriceGivesEveryDistinctPriceOfTheItem) {
  // Any quotation, approved or not, any customer: no header is even needed.
  Line("2026110201", "GEAR-40", "12.5");
  Line("2026110202", "GEAR-40", "11");
  Line("2026110301", "GEAR-40", "12.5");
  Line("2026110301", "BOLT-8", "0.3");
  clsDataBPricei repo;
  Collection<clsEntBPricei> coll;
  coll.Add(std::make_shared<clsEntBPricei>());
  EXPECT_EQ(1, repo.QueryPrice(&coll, "GEAR-40"));
  EXPECT_EQ(Strings{PriceSql("GEAR-40")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  std::vector<double> prices = Prices(coll);
  std::sort(prices.begin() + 1, prices.end());
  EXPECT_EQ((std::vector<double>{0, 11, 12.5}), prices);
  // Only the price is set.
  for (const auto& e : coll) {
    clsEntBPricei expected;
    expected.Price = e->Price;
    ExpectSameLine(expected, *e);
  }
}

TEST_F(QuotationLinesTest, QueryPriceOfAnItemNeverQuotedGives0) {
  Line("2026110201", "GEAR-40", "12.5");
  clsDataBPricei repo;
  Collection<clsEntBPricei> coll;
  EXPECT_EQ(0, repo.QueryPrice(&coll, "NUT-1"));
  EXPECT_EQ(0u, coll.Count());
  EXPECT_EQ(0, repo.QueryPrice(nullptr, "NUT-1"));  // no row: nothing touches it
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationLinesTest, QueryPriceOfAnItemNeverQuotedClosesRs) {
  Line("2026110201", "GEAR-40", "12.5");
  clsDataBPricei repo;
  Collection<clsEntBPricei> coll;
  EXPECT_EQ(0, repo.QueryPrice(&coll, "NUT-1"));
  // rs was closed: a method that uses it as it stands goes on with it.
  std::shared_ptr<clsEntBPricei> entity;
  EXPECT_EQ(1, repo.QueryBPricei(entity, 2026110201, &coll));
  EXPECT_EQ((Strings{PriceSql("NUT-1"), LinesSql("2026110201")}), Commands());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationLinesTest, QueryPriceFailsOnANullPriceWithTheEarlierRowsKept) {
  Line("2026110201", "GEAR-40", "12.5");
  Line("2026110202", "GEAR-40", "null");
  clsDataBPricei repo;
  Collection<clsEntBPricei> coll;
  EXPECT_EQ(0, repo.QueryPrice(&coll, "GEAR-40"));
  EXPECT_EQ(Reports_{PlainReport("Type mismatch")}, Reports());
  EXPECT_EQ(std::vector<double>{12.5}, Prices(coll));
}

TEST_F(QuotationLinesTest, QueryPriceWithANullCollectionOrAQuoteReportsAndGives0) {
  Line("2026110201", "GEAR-40", "12.5");
  clsDataBPricei repo;
  EXPECT_EQ(0, repo.QueryPrice(nullptr, "GEAR-40"));
  EXPECT_EQ(Reports_{PlainReport("Object required")}, Reports());
  Clear();
  Collection<clsEntBPricei> coll;
  EXPECT_EQ(0, repo.QueryPrice(&coll, "GEAR'40"));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
  EXPECT_EQ(Strings{PriceSql("GEAR'40")}, Commands());
  // rs was reset: a method that does not start on a new rs works at once.
  Clear();
  std::shared_ptr<clsEntBPricei> entity;
  EXPECT_EQ(1, repo.QueryBPricei(entity, 2026110201, &coll));
  EXPECT_TRUE(Reports().empty());
}

// --- QueryBPricei -------------------------------------------------------------

TEST_F(QuotationLinesTest, QueryBPriceiAppendsTheLinesAndLeavesTheVariableOnTheLast) {
  clsDataBPricei repo;
  clsEntBPricei a = FullLine(2026110201, "BOLT-8");
  clsEntBPricei b = FullLine(2026110201, "GEAR-40");
  b.No = "2";
  b.Price = 11;
  clsEntBPricei other = FullLine(2026110202, "GEAR-40");
  ASSERT_EQ(1, repo.AddRecord(a));
  ASSERT_EQ(1, repo.AddRecord(b));
  ASSERT_EQ(1, repo.AddRecord(other));
  Clear();
  auto mine = std::make_shared<clsEntBPricei>(FullLine(1, "MINE"));
  std::shared_ptr<clsEntBPricei> entity = mine;
  Collection<clsEntBPricei> coll;
  coll.Add(std::make_shared<clsEntBPricei>());
  EXPECT_EQ(1, repo.QueryBPricei(entity, 2026110201, &coll));
  EXPECT_EQ(Strings{LinesSql("2026110201")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(3u, coll.Count());
  // The quotation number is not read.
  a.QuotNo = 0;
  b.QuotNo = 0;
  ExpectSameLine(a, coll.Item(2));
  ExpectSameLine(b, coll.Item(3));
  // The variable now refers to the last line, the collection's own entity;
  // what it referred to before is untouched.
  EXPECT_EQ(&coll.Item(3), entity.get());
  ExpectSameLine(FullLine(1, "MINE"), *mine);
  EXPECT_NE(mine, entity);
}

TEST_F(QuotationLinesTest, QueryBPriceiOfAnUnknownQuotationGives0AndLeavesTheVariable) {
  Line("2026110201", "GEAR-40", "12.5");
  clsDataBPricei repo;
  auto mine = std::make_shared<clsEntBPricei>(FullLine(1, "MINE"));
  std::shared_ptr<clsEntBPricei> entity = mine;
  Collection<clsEntBPricei> coll;
  EXPECT_EQ(0, repo.QueryBPricei(entity, 2026110299, &coll));
  EXPECT_EQ(0u, coll.Count());
  EXPECT_EQ(mine, entity);
  ExpectSameLine(FullLine(1, "MINE"), *entity);
  // A variable that refers to nothing stays so; a null collection is not
  // touched either.
  std::shared_ptr<clsEntBPricei> none;
  EXPECT_EQ(0, repo.QueryBPricei(none, 2026110299, nullptr));
  EXPECT_EQ(nullptr, none);
  EXPECT_EQ((Strings{LinesSql("2026110299"), LinesSql("2026110299")}), Commands());
  EXPECT_TRUE(Reports().empty());
  // rs was closed: the next call goes on.
  EXPECT_EQ(1, repo.QueryBPricei(none, 2026110201, &coll));
  ASSERT_NE(nullptr, none);
  EXPECT_EQ("GEAR-40", none->ItemNo);
}

TEST_F(QuotationLinesTest, QueryBPriceiReadsNullsByTheirOwnDefaults) {
  Line("2026110201", "GEAR-40", "12.5");
  db().Exec("insert into t_bpricei (F_QuotNo, F_Price) values (2026110201, 3)");
  clsDataBPricei repo;
  std::shared_ptr<clsEntBPricei> entity;
  Collection<clsEntBPricei> coll;
  EXPECT_EQ(1, repo.QueryBPricei(entity, 2026110201, &coll));
  ASSERT_EQ(2u, coll.Count());
  clsEntBPricei expected;
  expected.ItemNo = "0";  // a null item reads as the text "0"
  expected.Price = 3;
  ExpectSameLine(expected, coll.Item(2));
  EXPECT_EQ(Date(), coll.Item(2).DeliverDate);  // a null delivery date is the zero date
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationLinesTest, QueryBPriceiFailsOnANullPriceWithTheVariableOnTheHalfReadLine) {
  Line("2026110201", "BOLT-8", "0.3");
  Line("2026110201", "GEAR-40", "null");
  clsDataBPricei repo;
  std::shared_ptr<clsEntBPricei> entity;
  Collection<clsEntBPricei> coll;
  EXPECT_EQ(0, repo.QueryBPricei(entity, 2026110201, &coll));
  EXPECT_EQ(Reports_{PlainReport("Type mismatch")}, Reports());
  ASSERT_EQ(1u, coll.Count());
  EXPECT_EQ("BOLT-8", coll.Item(1).ItemNo);
  // The variable was already replaced for the failing line, read up to the
  // item, and that entity is in no collection.
  ASSERT_NE(nullptr, entity);
  EXPECT_EQ("GEAR-40", entity->ItemNo);
  EXPECT_NE(&coll.Item(1), entity.get());
}

TEST_F(QuotationLinesTest, QueryBPriceiWithANullCollectionFailsAfterTheFirstRead) {
  Line("2026110201", "GEAR-40", "12.5");
  clsDataBPricei repo;
  std::shared_ptr<clsEntBPricei> entity;
  EXPECT_EQ(0, repo.QueryBPricei(entity, 2026110201, nullptr));
  EXPECT_EQ(Reports_{PlainReport("Object required")}, Reports());
  ASSERT_NE(nullptr, entity);
  EXPECT_EQ(12.5, entity->Price);
  // rs was reset: the next call works.
  Clear();
  Collection<clsEntBPricei> coll;
  EXPECT_EQ(1, repo.QueryBPricei(entity, 2026110201, &coll));
  EXPECT_TRUE(Reports().empty());
}

// --- AddRecord ----------------------------------------------------------------

TEST_F(QuotationLinesTest, AddRecordStoresTheLineWithTheOrderColumnsAs0) {
  clsDataBPricei repo;
  clsEntBPricei e = FullLine(2026110201, "GEAR-40");
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_EQ(Strings{AddCheckSql("2026110201", "GEAR-40")}, Commands());
  EXPECT_EQ(Strings{InsertOf("2026110201", "GEAR-40")}, RowChanges());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Rows{FullRow("2026110201", "GEAR-40")}, Lines());
}

TEST_F(QuotationLinesTest, AddRecordOfTheSameItemTwiceGives0WithoutAMessage) {
  clsDataBPricei repo;
  clsEntBPricei e = FullLine(2026110201, "GEAR-40");
  ASSERT_EQ(1, repo.AddRecord(e));
  Clear();
  clsEntBPricei again = FullLine(2026110201, "GEAR-40");
  again.Price = 99;
  EXPECT_EQ(0, repo.AddRecord(again));
  EXPECT_EQ(Strings{AddCheckSql("2026110201", "GEAR-40")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Rows{FullRow("2026110201", "GEAR-40")}, Lines());
  // The refusal closed rs. The same item on another quotation, and another
  // item on the same one, are new lines.
  clsEntBPricei other_quotation = FullLine(2026110202, "GEAR-40");
  clsEntBPricei other_item = FullLine(2026110201, "BOLT-8");
  EXPECT_EQ(1, repo.AddRecord(other_quotation));
  EXPECT_EQ(1, repo.AddRecord(other_item));
  EXPECT_EQ((Rows{{"2026110201", "BOLT-8"}, {"2026110201", "GEAR-40"}, {"2026110202", "GEAR-40"}}),
            Keys());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationLinesTest, AddRecordOfAValueTooLongGives2AndStoresNothing) {
  clsDataBPricei repo;
  clsEntBPricei e = FullLine(2026110201, "GEAR-40");
  e.ItemName = std::string(101, 'x');  // F_ItemName holds 100
  EXPECT_EQ(2, repo.AddRecord(e));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(0, db().Count("t_bpricei"));
  // The pending row went with the reset: the next call starts clean.
  Clear();
  e.ItemName = "Gear 40 teeth";
  EXPECT_EQ(1, repo.AddRecord(e));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(Rows{FullRow("2026110201", "GEAR-40")}, Lines());
}

TEST_F(QuotationLinesTest, AddRecordWithAQuoteInTheItemReportsTheServerFailure) {
  clsDataBPricei repo;
  clsEntBPricei e = FullLine(2026110201, "GEAR'40");
  EXPECT_EQ(2, repo.AddRecord(e));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
  EXPECT_EQ(Strings{AddCheckSql("2026110201", "GEAR'40")}, Commands());
  EXPECT_EQ(0, db().Count("t_bpricei"));
}

TEST_F(QuotationLinesTest, AddRecordFailureOfTheServerIsReportedWithItsDescription) {
  db().Exec("create trigger bpricei_frozen before insert on t_bpricei for each row "
            "signal sqlstate '45000' set message_text='lines frozen'");
  clsDataBPricei repo;
  clsEntBPricei e = FullLine(2026110201, "GEAR-40");
  EXPECT_EQ(2, repo.AddRecord(e));
  EXPECT_EQ(Reports_{Described("lines frozen")}, Reports());
  EXPECT_EQ(0, db().Count("t_bpricei"));
}

// --- UpdateRecord -------------------------------------------------------------

TEST_F(QuotationLinesTest, UpdateRecordOverwritesTheLineKeyAndOrderColumnsIncluded) {
  Line("2026110201", "GEAR-40", "12.5");
  Line("2026110201", "BOLT-8", "0.3");
  db().Exec("update t_bpricei set F_ProdNo=7001, F_InQty=4, F_OutQty=3, F_Flags=1");
  clsDataBPricei repo;
  // The entity's quotation and item replace the key: the line changes item.
  clsEntBPricei e = FullLine(2026110202, "NUT-1");
  EXPECT_EQ(1, repo.UpdateRecord(e, 2026110201, "GEAR-40"));
  EXPECT_EQ(Strings{UpdateSql("2026110201", "GEAR-40")}, Commands());
  const Strings changes = RowChanges();
  ASSERT_EQ(1u, changes.size());
  // Without a key the row is found by all its columns as read.
  EXPECT_EQ(changes[0],
            "UPDATE " + Table() +
                " SET `F_CitemNO`='CUST-NUT-1',`F_ItemNo`='NUT-1',`F_Price`=12.5,"
                "`F_QuotNo`=2026110202,`F_Remark`='sample first',`F_Currency`='USD',"
                "`F_OrdQty`=100,`F_DeliverDate`='2026-12-15 00:00:00',`F_ProdNo`=0,`F_InQty`=0,"
                "`F_OutQty`=0,`F_BkQty`=5,`F_No`='1',`F_Flags`=0,`F_Rate`=7.25,"
                "`F_TaxSort`='VAT13',`F_Tax`=162.5,`F_DisPerRow`=2.5,"
                "`F_ItemName`='Gear 40 teeth',`F_FcTotal`=1250,`F_LcTotal`=8875 "
                "WHERE BINARY `F_CitemNO` <=> NULL AND BINARY `F_ItemNo` <=> _binary'GEAR-40' "
                "AND `F_Price` <=> 12.5 AND `F_QuotNo` <=> 2026110201 "
                "AND BINARY `F_Remark` <=> NULL AND BINARY `F_Currency` <=> NULL "
                "AND `F_OrdQty` <=> NULL AND `F_DeliverDate` <=> NULL AND `F_ProdNo` <=> 7001 "
                "AND `F_InQty` <=> 4 AND `F_OutQty` <=> 3 AND `F_BkQty` <=> NULL "
                "AND BINARY `F_No` <=> NULL AND `F_Flags` <=> 1 AND `F_Rate` <=> NULL "
                "AND BINARY `F_TaxSort` <=> NULL AND `F_Tax` <=> NULL AND `F_DisPerRow` <=> NULL "
                "AND BINARY `F_ItemName` <=> NULL AND `F_FcTotal` <=> NULL "
                "AND `F_LcTotal` <=> NULL LIMIT 1");
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{{"CUST-NUT-1", "NUT-1", "12.5", "2026110202", "sample first", "USD", "100",
                   "2026-12-15 00:00:00", "0", "0", "0", "5", "1", "0", "7.25", "VAT13", "162.5",
                   "2.5", "Gear 40 teeth", "1250", "8875"}}),
            db().Rows("select * from t_bpricei where F_ItemNo='NUT-1'"));
  EXPECT_EQ((Rows{{"2026110201", "BOLT-8", "7001", "1"}}),
            db().Rows("select F_QuotNo, F_ItemNo, F_ProdNo, F_Flags from t_bpricei where "
                      "F_ItemNo<>'NUT-1'"));
}

TEST_F(QuotationLinesTest, UpdateRecordOfALineThatDoesNotExistReportsAndGives0) {
  Line("2026110201", "GEAR-40", "12.5");
  const Rows before = Lines();
  clsDataBPricei repo;
  clsEntBPricei e = FullLine(2026110201, "GEAR-40");
  EXPECT_EQ(0, repo.UpdateRecord(e, 2026110201, "BOLT-8"));
  EXPECT_EQ(Reports_{Described(kNoRowWords)}, Reports());
  EXPECT_EQ(Strings{UpdateSql("2026110201", "BOLT-8")}, Commands());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(before, Lines());
  // rs was reset: the next call works.
  Clear();
  EXPECT_EQ(1, repo.UpdateRecord(e, 2026110201, "GEAR-40"));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationLinesTest, UpdateRecordWithAValueTooLongLeavesTheLine) {
  Line("2026110201", "GEAR-40", "12.5");
  const Rows before = Lines();
  clsDataBPricei repo;
  clsEntBPricei e = FullLine(2026110201, "GEAR-40");
  e.Remark = std::string(256, 'x');
  EXPECT_EQ(0, repo.UpdateRecord(e, 2026110201, "GEAR-40"));
  EXPECT_EQ(Reports_{LengthReport()}, Reports());
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(before, Lines());
}

// --- DeleteRecord ---------------------------------------------------------------

TEST_F(QuotationLinesTest, DeleteRecordDeletesTheOneLine) {
  Line("2026110201", "GEAR-40", "12.5");
  Line("2026110201", "BOLT-8", "0.3");
  Line("2026110202", "GEAR-40", "11");
  db().Exec("insert into t_bpriceh (F_QuotNo, F_Total) values (2026110201, 100)");
  clsDataBPricei repo;
  clsEntBPricei e;
  e.ItemNo = "GEAR-40";
  e.QuotNo = 2026110202;  // the argument decides, not the entity
  EXPECT_EQ(1, repo.DeleteRecord(e, 2026110201));
  EXPECT_EQ(Strings{DeleteSql("2026110201", "GEAR-40")}, Commands());
  EXPECT_EQ(Commands().size(), Sent().size());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{{"2026110201", "BOLT-8"}, {"2026110202", "GEAR-40"}}), Keys());
  // The header's totals are the caller's to rewrite.
  EXPECT_EQ("100", db().Scalar("select F_Total from t_bpriceh"));
  // The statement left rs closed: the next method goes on with it.
  std::shared_ptr<clsEntBPricei> entity;
  Collection<clsEntBPricei> coll;
  EXPECT_EQ(1, repo.QueryBPricei(entity, 2026110201, &coll));
  EXPECT_TRUE(Reports().empty());
}

TEST_F(QuotationLinesTest, DeleteRecordOfALineThatDoesNotExistGives1) {
  Line("2026110201", "GEAR-40", "12.5");
  clsDataBPricei repo;
  clsEntBPricei e;
  e.ItemNo = "BOLT-8";
  EXPECT_EQ(1, repo.DeleteRecord(e, 2026110201));
  EXPECT_EQ(1, repo.DeleteRecord(e, 2026110299));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ((Rows{{"2026110201", "GEAR-40"}}), Keys());
}

TEST_F(QuotationLinesTest, DeleteRecordWithAQuoteInTheItemReportsAndGives0) {
  Line("2026110201", "GEAR-40", "12.5");
  clsDataBPricei repo;
  clsEntBPricei e;
  e.ItemNo = "GEAR'40";
  EXPECT_EQ(0, repo.DeleteRecord(e, 2026110201));
  ASSERT_EQ(1u, Reports().size());
  EXPECT_THAT(Reports()[0].text, StartsWith(kSyntax));
  EXPECT_EQ(64, Reports()[0].style);
  EXPECT_EQ(kTitle, Reports()[0].title);
  EXPECT_EQ(Strings{DeleteSql("2026110201", "GEAR'40")}, Commands());
  EXPECT_EQ((Rows{{"2026110201", "GEAR-40"}}), Keys());
  // A quote that changes the statement instead of breaking it: every line of
  // the quotation goes.
  Line("2026110201", "BOLT-8", "0.3");
  Line("2026110202", "BOLT-8", "0.3");
  e.ItemNo = "x' or F_QuotNo='2026110201";
  EXPECT_EQ(1, repo.DeleteRecord(e, 2026110201));
  EXPECT_EQ((Rows{{"2026110202", "BOLT-8"}}), Keys());
}

// --- The object -------------------------------------------------------------

TEST_F(QuotationLinesTest, CreationFailsWhenTheSessionCannotOpen) {
  SetSessionConnectionString(testing::ServerAddress::FromEnvironment().ConnectionText(
      database() + "_missing"));
  EXPECT_THROW(clsDataBPricei repo, Error);
  EXPECT_TRUE(Reports().empty());
}

}  // namespace
}  // namespace corvane
