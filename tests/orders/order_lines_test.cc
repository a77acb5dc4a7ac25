// clsDataBOrderi's line methods against the sandbox server: the statements
// sent, the results, the reports, what the table holds afterwards, the null
// reads, and the paths that leave rs open for the next call.
#include "corvane/orders/order_lines.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/sandbox.h"

namespace corvane {
namespace {

using ::corvane::testing::AlertReport;
using ::corvane::testing::LengthReport;
using ::corvane::testing::PlainReport;
using ::corvane::testing::SandboxTest;
using Rows = std::vector<std::vector<std::string>>;
using Texts = std::vector<std::string>;

constexpr double kOrder = 20260105001;
constexpr double kOtherOrder = 20260105002;

const char kOpenFailure[] = "Operation is not allowed when the object is open";
const char kNoCurrentRow[] = "Either BOF or EOF is True, or the current record has been deleted";

// All 35 columns of T_BOrderi in table order.
const char kAllColumns[] =
    "F_OrderNo,F_ItemNo,F_Currency,F_Price,F_OrdQty,F_DeliverDate,F_Remark,F_ProdNo,F_InQty,"
    "F_OutQty,F_BkQty,F_No,F_OutDate,F_Status,F_Flags,F_SendMode,F_Package,F_Rate,F_TaxSort,"
    "F_Tax,F_CustItemNo,F_DisPerRow,F_PrjCode,F_ItemName,F_FcTotal,F_LcTotal,F_CustOrderNo,"
    "F_ItemGross,F_TrgType,F_TrgCode,F_TrgLine,F_BaseType,F_BaseCode,F_BaseLine,F_InDate";

// The cells of a line with every column set, as the table gives them back.
Texts FullLineCells(const std::string& item, const std::string& no, const std::string& prod_no) {
  return {"20260105001", item,       "USD",   "2.5",     "10",     "2026-02-01 08:30:00",
          "first batch", prod_no,    "1.5",   "2.25",    "3.5",    no,
          "2026-03-01 00:00:00",     "0",     "6",       "sea",    "carton",
          "7.25",        "VAT",      "17",    "C-77",    "12.5",   "PRJ-1",
          "Widget",      "22.5",     "26.5",  "CO-9",    "0.75",   "TT",
          "101",         "TL-1",     "BT",    "202",     "BL-2",   "2026-04-01 12:00:00"};
}

// The length report of a failure other than a value too long: its
// description, as the plain report words it.
Report LengthReportOf(const std::string& description) { return PlainReport(description); }

// Reports as comparable texts: text, style and title.
Texts Shown(const std::vector<Report>& reports) {
  Texts out;
  for (const Report& r : reports) {
    out.push_back(r.text + " | " + std::to_string(r.style) + " | " + r.title);
  }
  return out;
}

class OrderLinesTest : public SandboxTest {
 protected:
  void InsertFullLine(const std::string& item, const std::string& no, const std::string& prod_no) {
    std::string values;
    for (const std::string& cell : FullLineCells(item, no, prod_no)) {
      if (!values.empty()) values += ",";
      values += "'" + cell + "'";
    }
    db().Exec(std::string("insert into t_borderi (") + kAllColumns + ") values (" + values + ")");
  }
  // A line with only the columns named set.
  void InsertLine(const std::string& columns, const std::string& values) {
    db().Exec("insert into t_borderi (" + columns + ") values (" + values + ")");
  }
  Rows AllLines(const std::string& order_by = "F_ItemNo, F_No") {
    return db().Rows(std::string("select ") + kAllColumns + " from t_borderi order by " + order_by);
  }
  // The row changes the recordset sent.
  Texts RowChanges() const {
    Texts out;
    for (const auto& s : Sent()) {
      if (s.kind == StatementKind::kRowChange) out.push_back(s.text);
    }
    return out;
  }
  // Leaves rs of repo open: DeleteAllRecorder of an order without lines.
  void LeaveRsOpen(clsDataBOrderi& repo) {
    ASSERT_EQ(repo.DeleteAllRecorder(20991231999), 2);
    Clear();
  }
  static void ExpectServerReport(const Report& r, int style, const std::string& title,
                                 const std::string& words) {
    EXPECT_EQ(r.style, style);
    EXPECT_EQ(r.title, title);
    EXPECT_NE(r.text.find(words), std::string::npos) << r.text;
  }
};

// Every property of the full line, but ProdNo, which the caller checks.
void ExpectFullLine(const clsEntBOrderi& e, const std::string& item, const std::string& no) {
  EXPECT_EQ(e.OrderNo, kOrder);
  EXPECT_EQ(e.ItemNo, item);
  EXPECT_EQ(e.Currency, "USD");
  EXPECT_EQ(e.Price, 2.5);
  EXPECT_EQ(e.OrdQty, 10);
  EXPECT_EQ(Text(e.DeliverDate), "2026-02-01 08:30:00");
  EXPECT_EQ(e.Remark, "first batch");
  EXPECT_EQ(e.InQty, 1.5);
  EXPECT_EQ(e.OutQty, 2.25);
  EXPECT_EQ(e.BkQty, 3.5);
  EXPECT_EQ(e.No, no);
  EXPECT_EQ(Text(e.OutDate), "2026-03-01");
  EXPECT_EQ(e.Status, 0);
  EXPECT_EQ(e.Flags, 6);
  EXPECT_EQ(e.SendMode, "sea");
  EXPECT_EQ(e.Package, "carton");
  EXPECT_EQ(e.Rate, 7.25);
  EXPECT_EQ(e.TaxSort, "VAT");
  EXPECT_EQ(e.Tax, 17);
  EXPECT_EQ(e.CustItemNo, "C-77");
  EXPECT_EQ(e.DisPerRow, 12.5);
  EXPECT_EQ(e.PrjCode, "PRJ-1");
  EXPECT_EQ(e.ItemName, "Widget");
  EXPECT_EQ(e.FcTotal, 22.5);
  EXPECT_EQ(e.LcTotal, 26.5);
  EXPECT_EQ(e.CustOrderNo, "CO-9");
  EXPECT_EQ(e.ItemGross, 0.75);
  EXPECT_EQ(e.TrgType, "TT");
  EXPECT_EQ(e.TrgCode, 101);
  EXPECT_EQ(e.TrgLine, "TL-1");
  EXPECT_EQ(e.BaseType, "BT");
  EXPECT_EQ(e.BaseCode, 202);
  EXPECT_EQ(e.BaseLine, "BL-2");
  EXPECT_EQ(Text(e.InDate), "2026-04-01 12:00:00");
}

// The null reads of a line that holds only its order, item and quantity:
// the text "0" for F_Remark, F_SendMode and F_TaxSort, else the common forms.
void ExpectNullDefaults(const clsEntBOrderi& e) {
  EXPECT_EQ(e.Currency, "");
  EXPECT_EQ(e.Package, "");
  EXPECT_EQ(e.Price, 0);
  EXPECT_EQ(e.DeliverDate, Date{});
  EXPECT_EQ(e.Remark, "0");
  EXPECT_EQ(e.InQty, 0);
  EXPECT_EQ(e.OutQty, 0);
  EXPECT_EQ(e.BkQty, 0);
  EXPECT_EQ(e.No, "");
  EXPECT_EQ(e.OutDate, Date{});
  EXPECT_EQ(e.Status, 0);
  EXPECT_EQ(e.Flags, 0);
  EXPECT_EQ(e.SendMode, "0");
  EXPECT_EQ(e.Rate, 0);
  EXPECT_EQ(e.TaxSort, "0");
  EXPECT_EQ(e.Tax, 0);
  EXPECT_EQ(e.CustItemNo, "");
  EXPECT_EQ(e.DisPerRow, 0);
  EXPECT_EQ(e.PrjCode, "");
  EXPECT_EQ(e.ItemName, "");
  EXPECT_EQ(e.FcTotal, 0);
  EXPECT_EQ(e.LcTotal, 0);
  EXPECT_EQ(e.CustOrderNo, "");
  EXPECT_EQ(e.ItemGross, 0);
  EXPECT_EQ(e.TrgType, "");
  EXPECT_EQ(e.TrgCode, 0);
  EXPECT_EQ(e.TrgLine, "");
  EXPECT_EQ(e.BaseType, "");
  EXPECT_EQ(e.BaseCode, 0);
  EXPECT_EQ(e.BaseLine, "");
  EXPECT_EQ(e.InDate, Date{});
}

// An entity with every property set, unlike the full line above.
clsEntBOrderi NewLine() {
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "NEW-1";
  e.Currency = "EUR";
  e.Price = 4.75;
  e.OrdQty = 12;
  e.DeliverDate = Date::FromParts(2026, 5, 6, 7, 8, 9);
  e.Remark = "rush";
  e.ProdNo = 9001;
  e.InQty = 5;
  e.OutQty = 6;
  e.BkQty = 1.25;
  e.No = "3";
  e.OutDate = Date::FromParts(2026, 6, 1);
  e.Status = 1;
  e.Flags = 9;
  e.SendMode = "air";
  e.Package = "crate";
  e.Rate = 6.5;
  e.TaxSort = "GST";
  e.Tax = 13;
  e.CustItemNo = "C-88";
  e.DisPerRow = 2.5;
  e.PrjCode = "PRJ-2";
  e.ItemName = "Gadget";
  e.FcTotal = 55.5;
  e.LcTotal = 66.25;
  e.CustOrderNo = "CO-10";
  e.ItemGross = 1.5;
  e.TrgType = "T2";
  e.TrgCode = 303;
  e.TrgLine = "TL-3";
  e.BaseType = "B2";
  e.BaseCode = 404;
  e.BaseLine = "BL-4";
  e.InDate = Date::FromParts(2026, 7, 1, 13, 0, 0);
  return e;
}

// ---------------------------------------------------------------- QueryBkQty

TEST_F(OrderLinesTest, QueryBkQtyReadsOnlyBkQty) {
  InsertFullLine("A", "1", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5001;
  e.ItemNo = "kept";
  EXPECT_EQ(repo.QueryBkQty(e), 1);
  EXPECT_EQ(Commands(), Texts{"Select * From T_BOrderi Where F_ProdNo='5001'"});
  EXPECT_EQ(e.BkQty, 3.5);
  EXPECT_EQ(e.ItemNo, "kept");
  EXPECT_EQ(e.OrderNo, 0);
  EXPECT_EQ(e.OrdQty, 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryBkQtyNullGivesZero) {
  InsertLine("F_OrderNo,F_ItemNo,F_ProdNo", "20260105001,'A',5001");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5001;
  e.BkQty = 8;
  EXPECT_EQ(repo.QueryBkQty(e), 1);
  EXPECT_EQ(e.BkQty, 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryBkQtyNoRow) {
  InsertFullLine("A", "1", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5002;
  e.BkQty = 8;
  EXPECT_EQ(repo.QueryBkQty(e), 0);
  EXPECT_EQ(Commands(), Texts{"Select * From T_BOrderi Where F_ProdNo='5002'"});
  EXPECT_EQ(e.BkQty, 8);
  EXPECT_TRUE(Reports().empty());
  // rs was reset: a method that uses rs as it stands works next.
  clsEntBOrderi q;
  q.OrderNo = kOrder;
  q.ItemNo = "A";
  EXPECT_EQ(repo.QueryByID(q), 1);
}

TEST_F(OrderLinesTest, QueryBkQtyStartsOnAFreshRs) {
  InsertFullLine("A", "1", "5001");
  clsDataBOrderi repo;
  LeaveRsOpen(repo);
  clsEntBOrderi e;
  e.ProdNo = 5001;
  EXPECT_EQ(repo.QueryBkQty(e), 1);
  EXPECT_EQ(e.BkQty, 3.5);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryBkQtyFailureIsPlainReportAndTwo) {
  db().Exec("drop table t_borderi");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5001;
  EXPECT_EQ(repo.QueryBkQty(e), 2);
  EXPECT_EQ(Commands(), Texts{"Select * From T_BOrderi Where F_ProdNo='5001'"});
  ASSERT_EQ(Reports().size(), 1u);
  ExpectServerReport(Reports()[0], 64, "塔恩维克", "doesn't exist");
}

// ---------------------------------------------------------------- UpdateNo

TEST_F(OrderLinesTest, UpdateNoRenumbersInNumericOrder) {
  InsertFullLine("A", "2", "0");
  InsertFullLine("B", "10", "0");
  InsertFullLine("C", "3", "0");
  InsertLine("F_OrderNo,F_ItemNo,F_No", "20260105002,'X','7'");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  const Variant result = repo.UpdateNo(e);
  EXPECT_TRUE(result.IsEmpty());
  EXPECT_EQ(Commands(),
            Texts{"Select * From  T_BOrderi  where F_OrderNo= '20260105001' order by cast(F_NO  "
                  "as SIGNED)"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_ItemNo, F_No from t_borderi order by F_ItemNo"),
            (Rows{{"A", "1"}, {"B", "3"}, {"C", "2"}, {"X", "7"}}));
  // One row change per line: the Update with nothing pending sends nothing.
  const Texts changes = RowChanges();
  ASSERT_EQ(changes.size(), 3u);
  for (const std::string& c : changes) EXPECT_EQ(c.rfind("UPDATE ", 0), 0u) << c;
  // The other columns are as they were.
  Texts c = FullLineCells("A", "1", "0");
  EXPECT_EQ(AllLines()[0], c);
}

TEST_F(OrderLinesTest, UpdateNoGivesIdenticalLinesTheirOwnNumbers) {
  // No key on the table: the rows are found by all their values.
  InsertFullLine("A", "5", "0");
  InsertFullLine("A", "5", "0");
  InsertFullLine("A", "5", "0");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  EXPECT_TRUE(repo.UpdateNo(e).IsEmpty());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_No from t_borderi order by F_No"), (Rows{{"1"}, {"2"}, {"3"}}));
}

TEST_F(OrderLinesTest, UpdateNoFindsLinesWhoseTotalsAreInexact) {
  // Totals that a decimal text does not hold exactly still find their row.
  InsertFullLine("A", "4", "0");
  InsertFullLine("B", "9", "0");
  db().Exec(
      "update t_borderi set F_FcTotal = cast(0.1 as double) + cast(0.2 as double), "
      "F_LcTotal = 1e0/3");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  EXPECT_TRUE(repo.UpdateNo(e).IsEmpty());
  EXPECT_EQ(db().Rows("select F_ItemNo, F_No from t_borderi order by F_ItemNo"),
            (Rows{{"A", "1"}, {"B", "2"}}));
}

TEST_F(OrderLinesTest, UpdateNoWithoutLines) {
  InsertLine("F_OrderNo,F_ItemNo,F_No,F_OrdQty", "20260105002,'X','7',1");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  EXPECT_TRUE(repo.UpdateNo(e).IsEmpty());
  EXPECT_EQ(Commands().size(), 1u);
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_TRUE(Reports().empty());
  // rs was reset.
  clsEntBOrderi q;
  q.OrderNo = kOtherOrder;
  q.ItemNo = "X";
  EXPECT_EQ(repo.QueryByID(q), 1);
}

TEST_F(OrderLinesTest, UpdateNoStartsOnAFreshRs) {
  InsertFullLine("A", "8", "0");
  clsDataBOrderi repo;
  LeaveRsOpen(repo);
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  EXPECT_TRUE(repo.UpdateNo(e).IsEmpty());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Scalar("select F_No from t_borderi"), "1");
}

TEST_F(OrderLinesTest, UpdateNoStopsHalfWayOnAValueTooLong) {
  // Room for one character: the tenth number does not fit.
  db().Exec("alter table t_borderi modify F_No varchar(1)");
  for (int i = 0; i < 10; ++i) {
    InsertLine("F_OrderNo,F_ItemNo,F_No,F_OrdQty",
               "20260105001,'I" + std::to_string(i) + "','" + std::to_string(i) + "',1");
  }
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  EXPECT_TRUE(repo.UpdateNo(e).IsEmpty());
  EXPECT_EQ(Shown(Reports()), Shown({LengthReport()}));
  EXPECT_EQ(RowChanges().size(), 9u);
  EXPECT_EQ(db().Rows("select F_ItemNo, F_No from t_borderi order by F_ItemNo"),
            (Rows{{"I0", "1"},
                  {"I1", "2"},
                  {"I2", "3"},
                  {"I3", "4"},
                  {"I4", "5"},
                  {"I5", "6"},
                  {"I6", "7"},
                  {"I7", "8"},
                  {"I8", "9"},
                  {"I9", "9"}}));
  // The handler reset rs: the next call that uses rs as it stands works.
  clsEntBOrderi q;
  q.OrderNo = kOrder;
  q.ItemNo = "I9";
  EXPECT_EQ(repo.QueryByID(q), 1);
}

TEST_F(OrderLinesTest, UpdateNoStopsHalfWayOnAServerRefusal) {
  db().Exec(
      "create trigger refuse_second before update on t_borderi for each row "
      "begin if NEW.F_No = '2' then signal sqlstate '45000' set message_text = 'line two is "
      "locked'; end if; end");
  InsertLine("F_OrderNo,F_ItemNo,F_No", "20260105001,'A','5'");
  InsertLine("F_OrderNo,F_ItemNo,F_No", "20260105001,'B','6'");
  InsertLine("F_OrderNo,F_ItemNo,F_No", "20260105001,'C','7'");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  EXPECT_TRUE(repo.UpdateNo(e).IsEmpty());
  EXPECT_EQ(Shown(Reports()), Shown({LengthReportOf("line two is locked")}));
  EXPECT_EQ(db().Rows("select F_ItemNo, F_No from t_borderi order by F_ItemNo"),
            (Rows{{"A", "1"}, {"B", "6"}, {"C", "7"}}));
}

// ---------------------------------------------------------------- QueryByID

TEST_F(OrderLinesTest, QueryByIDFillsEveryProperty) {
  InsertFullLine("A", "4", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "A";
  EXPECT_EQ(repo.QueryByID(e), 1);
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_OrderNo ='20260105001' and F_ItemNo = 'A'"});
  EXPECT_TRUE(Reports().empty());
  ExpectFullLine(e, "A", "4");
  EXPECT_EQ(e.ProdNo, 5001);
  // rs is closed, not open: the same call works again.
  Clear();
  EXPECT_EQ(repo.QueryByID(e), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryByIDNoRowLeavesEntity) {
  InsertFullLine("A", "4", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "B";
  e.Remark = "mine";
  EXPECT_EQ(repo.QueryByID(e), 0);
  EXPECT_EQ(e.Remark, "mine");
  EXPECT_EQ(e.OrdQty, 0);
  EXPECT_TRUE(Reports().empty());
  Clear();
  e.ItemNo = "A";
  EXPECT_EQ(repo.QueryByID(e), 1);  // closed on the no-row path too
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryByIDNullReads) {
  InsertLine("F_OrderNo,F_ItemNo,F_OrdQty", "20260105001,'A',4");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.ItemNo = "A";
  EXPECT_EQ(repo.QueryByID(e), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(e.OrderNo, kOrder);
  EXPECT_EQ(e.ItemNo, "A");
  EXPECT_EQ(e.OrdQty, 4);
  EXPECT_EQ(e.ProdNo, 0);
  ExpectNullDefaults(e);
}

TEST_F(OrderLinesTest, QueryByIDNullOrdQtyFails) {
  InsertLine("F_OrderNo,F_ItemNo,F_Price,F_BkQty", "20260105001,'A',3,2");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "A";
  EXPECT_EQ(repo.QueryByID(e), 2);
  EXPECT_EQ(Shown(Reports()), Shown({PlainReport("Type mismatch")}));
  // The reads before F_OrdQty were done, none after it.
  EXPECT_EQ(e.Price, 3);
  EXPECT_EQ(e.BkQty, 0);
  // The handler reset rs: the call works once the line is mended.
  db().Exec("update t_borderi set F_OrdQty = 1");
  Clear();
  EXPECT_EQ(repo.QueryByID(e), 1);
  EXPECT_EQ(e.BkQty, 2);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryByIDAfterDeleteAllRecorderMissFailsOnceThenWorks) {
  InsertFullLine("A", "4", "5001");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.DeleteAllRecorder(kOtherOrder), 2);
  Clear();
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "A";
  EXPECT_EQ(repo.QueryByID(e), 2);
  EXPECT_TRUE(Commands().empty());
  EXPECT_EQ(Shown(Reports()), Shown({PlainReport(kOpenFailure)}));
  EXPECT_EQ(e.OrdQty, 0);
  Clear();
  EXPECT_EQ(repo.QueryByID(e), 1);
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_OrderNo ='20260105001' and F_ItemNo = 'A'"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(e.OrdQty, 10);
}

TEST_F(OrderLinesTest, QueryByIDQuoteInItemBreaksTheStatement) {
  InsertFullLine("A", "4", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "A'B";
  EXPECT_EQ(repo.QueryByID(e), 2);
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_OrderNo ='20260105001' and F_ItemNo = 'A'B'"});
  ASSERT_EQ(Reports().size(), 1u);
  ExpectServerReport(Reports()[0], 64, "塔恩维克", "You have an error in your SQL syntax");
}

TEST_F(OrderLinesTest, QueryByIDQuoteChangesTheStatement) {
  InsertFullLine("A", "4", "5001");
  InsertFullLine("B", "5", "5002");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "Z' or F_ItemNo = 'B";
  EXPECT_EQ(repo.QueryByID(e), 1);
  EXPECT_EQ(e.ItemNo, "B");
  EXPECT_EQ(e.ProdNo, 5002);
}

// ---------------------------------------------------------------- DeleteAllRecorder

TEST_F(OrderLinesTest, DeleteAllRecorderRemovesOneLine) {
  InsertFullLine("A", "1", "0");
  InsertFullLine("B", "2", "0");
  InsertFullLine("C", "3", "0");
  InsertFullLine("D", "1", "0");
  db().Exec("update t_borderi set F_OrderNo = 20260105002 where F_ItemNo = 'D'");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.DeleteAllRecorder(kOrder), 1);
  EXPECT_EQ(Commands(), Texts{"select * from T_BOrderi where F_OrderNo =20260105001"});
  EXPECT_TRUE(Reports().empty());
  const Texts changes = RowChanges();
  ASSERT_EQ(changes.size(), 1u);
  EXPECT_EQ(changes[0].rfind("DELETE FROM ", 0), 0u) << changes[0];
  // The first line the statement gave went; the others stay.
  EXPECT_EQ(db().Rows("select F_ItemNo from t_borderi order by F_ItemNo"),
            (Rows{{"B"}, {"C"}, {"D"}}));
  // rs is closed: a method that uses rs as it stands works next.
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "B";
  EXPECT_EQ(repo.QueryByID(e), 1);
}

TEST_F(OrderLinesTest, DeleteAllRecorderOncePerLineEmptiesTheOrder) {
  InsertFullLine("A", "1", "0");
  InsertFullLine("B", "2", "0");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.DeleteAllRecorder(kOrder), 1);
  EXPECT_EQ(repo.DeleteAllRecorder(kOrder), 1);
  EXPECT_EQ(repo.DeleteAllRecorder(kOrder), 2);
  EXPECT_EQ(db().Count("t_borderi"), 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, DeleteAllRecorderRemovesOneOfIdenticalLines) {
  InsertFullLine("A", "1", "0");
  InsertFullLine("A", "1", "0");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.DeleteAllRecorder(kOrder), 1);
  EXPECT_EQ(db().Count("t_borderi"), 1);
}

TEST_F(OrderLinesTest, DeleteAllRecorderMissLeavesRsOpen) {
  InsertFullLine("A", "1", "0");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.DeleteAllRecorder(kOtherOrder), 2);
  EXPECT_EQ(Commands(), Texts{"select * from T_BOrderi where F_OrderNo =20260105002"});
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Count("t_borderi"), 1);
  // A method with a fresh rs does not mind.
  EXPECT_EQ(repo.DeleteAllRecorder(kOrder), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, DeleteAllRecorderFailureIsAlertReport) {
  db().Exec("drop table t_borderi");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.DeleteAllRecorder(kOrder), 0);
  ASSERT_EQ(Reports().size(), 1u);
  ExpectServerReport(Reports()[0], 16, "错误提示", "doesn't exist");
}

TEST_F(OrderLinesTest, DeleteAllRecorderRefusedByTheServerReturnsZero) {
  InsertFullLine("A", "1", "0");
  db().Exec(
      "create trigger keep_lines before delete on t_borderi for each row "
      "signal sqlstate '45000' set message_text = 'lines are kept'");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.DeleteAllRecorder(kOrder), 0);
  EXPECT_EQ(Shown(Reports()), Shown({AlertReport("lines are kept")}));
  EXPECT_EQ(db().Count("t_borderi"), 1);
  // rs was reset after the report.
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "A";
  EXPECT_EQ(repo.QueryByID(e), 1);
}

// ---------------------------------------------------------------- DeleteBOrderi

TEST_F(OrderLinesTest, DeleteBOrderiRemovesTheLineOfTheItem) {
  InsertFullLine("A", "1", "0");
  InsertFullLine("B", "2", "0");
  InsertFullLine("B", "3", "0");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "B";
  EXPECT_EQ(repo.DeleteBOrderi(e), 1);
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_OrderNo =20260105001 and F_ItemNo='B'"});
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(RowChanges().size(), 1u);
  EXPECT_EQ(RowChanges()[0].rfind("DELETE FROM ", 0), 0u);
  // One line of the item goes, the first the statement gave.
  EXPECT_EQ(db().Rows("select F_ItemNo, F_No from t_borderi order by F_ItemNo, F_No"),
            (Rows{{"A", "1"}, {"B", "3"}}));
  // rs is closed.
  clsEntBOrderi q;
  q.OrderNo = kOrder;
  q.ItemNo = "A";
  EXPECT_EQ(repo.QueryByID(q), 1);
}

TEST_F(OrderLinesTest, DeleteBOrderiMissLeavesAPendingRowThatIsNeverStored) {
  InsertFullLine("A", "1", "0");
  {
    clsDataBOrderi repo;
    clsEntBOrderi e;
    e.OrderNo = kOrder;
    e.ItemNo = "Z";
    EXPECT_EQ(repo.DeleteBOrderi(e), 2);
    EXPECT_EQ(Commands(),
              Texts{"select * from T_BOrderi where F_OrderNo =20260105001 and F_ItemNo='Z'"});
    EXPECT_TRUE(Reports().empty());
    // The next method that uses rs as it stands fails once, then works.
    Clear();
    clsEntBOrderi q;
    q.OrderNo = kOrder;
    q.ItemNo = "A";
    EXPECT_EQ(repo.QueryByID(q), 2);
    EXPECT_TRUE(Commands().empty());
    EXPECT_EQ(Shown(Reports()), Shown({PlainReport(kOpenFailure)}));
    Clear();
    EXPECT_EQ(repo.QueryByID(q), 1);
    EXPECT_TRUE(Reports().empty());
  }
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(db().Count("t_borderi"), 1);
}

TEST_F(OrderLinesTest, DeleteBOrderiPendingRowDroppedWithTheObject) {
  {
    clsDataBOrderi repo;
    clsEntBOrderi e;
    e.OrderNo = kOrder;
    e.ItemNo = "Z";
    EXPECT_EQ(repo.DeleteBOrderi(e), 2);
  }
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(db().Count("t_borderi"), 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, DeleteBOrderiPendingRowDroppedByAFreshRs) {
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "Z";
  EXPECT_EQ(repo.DeleteBOrderi(e), 2);
  clsEntBOrderi line = NewLine();
  EXPECT_EQ(repo.AddBOrderi(line), Variant(std::int16_t{1}));
  EXPECT_TRUE(Reports().empty());
  // Only the added line was stored.
  ASSERT_EQ(RowChanges().size(), 1u);
  EXPECT_EQ(db().Rows("select F_ItemNo from t_borderi"), (Rows{{"NEW-1"}}));
}

TEST_F(OrderLinesTest, DeleteBOrderiQuoteIsAlertReport) {
  InsertFullLine("A", "1", "0");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "O'Neil";
  EXPECT_EQ(repo.DeleteBOrderi(e), 0);
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_OrderNo =20260105001 and F_ItemNo='O'Neil'"});
  ASSERT_EQ(Reports().size(), 1u);
  ExpectServerReport(Reports()[0], 16, "错误提示", "You have an error in your SQL syntax");
  EXPECT_EQ(db().Count("t_borderi"), 1);
}

// ---------------------------------------------------------------- QueryAllRecord

TEST_F(OrderLinesTest, QueryAllRecordAppendsTheLinesByItem) {
  InsertFullLine("C", "1", "7001");
  InsertFullLine("A", "2", "7002");
  InsertFullLine("B", "3", "7003");
  InsertFullLine("D", "1", "7004");
  db().Exec("update t_borderi set F_OrderNo = 20260105002 where F_ItemNo = 'D'");
  clsDataBOrderi repo;
  Collection<clsEntBOrderi> lines;
  auto before = std::make_shared<clsEntBOrderi>();
  before->ItemNo = "already there";
  lines.Add(before);
  EXPECT_EQ(repo.QueryAllRecord(&lines, kOrder), 0);
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_OrderNo=20260105001 order by F_ItemNo"});
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(lines.Count(), 4u);
  EXPECT_EQ(lines.Item(1).ItemNo, "already there");
  ExpectFullLine(lines.Item(2), "A", "2");
  EXPECT_EQ(lines.Item(2).ProdNo, 7002);
  ExpectFullLine(lines.Item(3), "B", "3");
  ExpectFullLine(lines.Item(4), "C", "1");
  EXPECT_EQ(lines.Item(4).ProdNo, 7001);
  // rs is closed.
  clsEntBOrderi q;
  q.OrderNo = kOrder;
  q.ItemNo = "A";
  EXPECT_EQ(repo.QueryByID(q), 1);
}

TEST_F(OrderLinesTest, QueryAllRecordEmptyOrder) {
  InsertFullLine("A", "1", "0");
  clsDataBOrderi repo;
  Collection<clsEntBOrderi> lines;
  EXPECT_EQ(repo.QueryAllRecord(&lines, kOtherOrder), 0);
  EXPECT_EQ(lines.Count(), 0u);
  EXPECT_TRUE(Reports().empty());
  // An empty reference is not touched when there are no rows.
  EXPECT_EQ(repo.QueryAllRecord(nullptr, kOtherOrder), 0);
  EXPECT_TRUE(Reports().empty());
  // rs is closed.
  clsEntBOrderi q;
  q.OrderNo = kOrder;
  q.ItemNo = "A";
  EXPECT_EQ(repo.QueryByID(q), 1);
}

TEST_F(OrderLinesTest, QueryAllRecordNullReads) {
  InsertLine("F_OrderNo,F_ItemNo,F_OrdQty", "20260105001,'A',4");
  clsDataBOrderi repo;
  Collection<clsEntBOrderi> lines;
  EXPECT_EQ(repo.QueryAllRecord(&lines, kOrder), 0);
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(lines.Count(), 1u);
  EXPECT_EQ(lines.Item(1).ProdNo, 0);
  EXPECT_EQ(lines.Item(1).OrdQty, 4);
  ExpectNullDefaults(lines.Item(1));
}

TEST_F(OrderLinesTest, QueryAllRecordNullOrdQtyStopsTheFill) {
  InsertFullLine("A", "1", "0");
  InsertLine("F_OrderNo,F_ItemNo", "20260105001,'B'");
  InsertFullLine("C", "3", "0");
  clsDataBOrderi repo;
  Collection<clsEntBOrderi> lines;
  EXPECT_EQ(repo.QueryAllRecord(&lines, kOrder), 0);
  EXPECT_EQ(Shown(Reports()), Shown({LengthReportOf("Type mismatch")}));
  ASSERT_EQ(lines.Count(), 1u);
  EXPECT_EQ(lines.Item(1).ItemNo, "A");
  // The handler reset rs.
  clsEntBOrderi q;
  q.OrderNo = kOrder;
  q.ItemNo = "C";
  EXPECT_EQ(repo.QueryByID(q), 1);
}

TEST_F(OrderLinesTest, QueryAllRecordWithoutCollectionFailsOnTheFirstRow) {
  InsertFullLine("A", "1", "0");
  clsDataBOrderi repo;
  EXPECT_EQ(repo.QueryAllRecord(nullptr, kOrder), 0);
  EXPECT_EQ(Shown(Reports()), Shown({LengthReportOf("Object required")}));
}

TEST_F(OrderLinesTest, QueryAllRecordStartsOnAFreshRs) {
  InsertFullLine("A", "1", "0");
  clsDataBOrderi repo;
  LeaveRsOpen(repo);
  Collection<clsEntBOrderi> lines;
  EXPECT_EQ(repo.QueryAllRecord(&lines, kOrder), 0);
  EXPECT_EQ(lines.Count(), 1u);
  EXPECT_TRUE(Reports().empty());
}

// ---------------------------------------------------------------- AddBOrderi

TEST_F(OrderLinesTest, AddBOrderiStoresTheLine) {
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  const Variant result = repo.AddBOrderi(e);
  EXPECT_EQ(result.type(), Variant::Type::kInt16);
  EXPECT_EQ(result, Variant(std::int16_t{1}));
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_OrderNo =20260105001 and F_No='3'"});
  EXPECT_TRUE(Reports().empty());
  // ProdNo, InQty, OutQty and Flags go in as 0 whatever the entity holds;
  // InDate is not written.
  EXPECT_EQ(AllLines(), (Rows{{"20260105001", "NEW-1", "EUR", "4.75", "12",
                               "2026-05-06 07:08:09", "rush", "0", "0", "0", "1.25", "3",
                               "2026-06-01 00:00:00", "1", "0", "air", "crate", "6.5", "GST",
                               "13", "C-88", "2.5", "PRJ-2", "Gadget", "55.5", "66.25", "CO-10",
                               "1.5", "T2", "303", "TL-3", "B2", "404", "BL-4", "NULL"}}));
  const Texts changes = RowChanges();
  ASSERT_EQ(changes.size(), 1u);
  EXPECT_EQ(changes[0].rfind("INSERT INTO ", 0), 0u);
  EXPECT_EQ(changes[0].find("F_InDate"), std::string::npos);
  // rs is closed.
  clsEntBOrderi q;
  q.OrderNo = kOrder;
  q.ItemNo = "NEW-1";
  EXPECT_EQ(repo.QueryByID(q), 1);
}

TEST_F(OrderLinesTest, AddBOrderiWritesEmptyTextsAndZeroDatesAsTheyAre) {
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.No = "1";
  EXPECT_EQ(repo.AddBOrderi(e), Variant(std::int16_t{1}));
  const Rows rows = db().Rows(
      "select F_ItemNo, F_Remark, F_DeliverDate, F_OutDate, F_Price, F_InDate from t_borderi");
  EXPECT_EQ(rows, (Rows{{"", "", "1899-12-30 00:00:00", "1899-12-30 00:00:00", "0", "NULL"}}));
}

TEST_F(OrderLinesTest, AddBOrderiChecksOrderAndLineNumberNotItem) {
  InsertFullLine("NEW-1", "1", "0");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.No = "2";  // the same item under another line number
  EXPECT_EQ(repo.AddBOrderi(e), Variant(std::int16_t{1}));
  e.ItemNo = "OTHER";  // another item under a line number already used
  Clear();
  const Variant again = repo.AddBOrderi(e);
  EXPECT_EQ(again.type(), Variant::Type::kInt16);
  EXPECT_EQ(again, Variant(std::int16_t{2}));
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_OrderNo =20260105001 and F_No='2'"});
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Rows("select F_ItemNo, F_No from t_borderi order by F_No"),
            (Rows{{"NEW-1", "1"}, {"NEW-1", "2"}}));
  // The same line number in another order is no clash.
  e.OrderNo = kOtherOrder;
  EXPECT_EQ(repo.AddBOrderi(e), Variant(std::int16_t{1}));
  EXPECT_EQ(db().Count("t_borderi"), 3);
  // rs was closed after the refusal.
  clsEntBOrderi q;
  q.OrderNo = kOrder;
  q.ItemNo = "NEW-1";
  EXPECT_EQ(repo.QueryByID(q), 1);
}

TEST_F(OrderLinesTest, AddBOrderiTextTooLongIsLengthReportAndEmpty) {
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.ItemNo = std::string(51, 'x');
  const Variant result = repo.AddBOrderi(e);
  EXPECT_TRUE(result.IsEmpty());
  EXPECT_EQ(Shown(Reports()), Shown({LengthReport()}));
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(db().Count("t_borderi"), 0);
  // The handler reset rs, dropping the half-written row.
  clsEntBOrderi q;
  q.OrderNo = kOrder;
  q.ItemNo = "NEW-1";
  EXPECT_EQ(repo.QueryByID(q), 0);
  EXPECT_EQ(db().Count("t_borderi"), 0);
}

TEST_F(OrderLinesTest, AddBOrderiQuoteInNumberIsServerReport) {
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.No = "3'";
  EXPECT_TRUE(repo.AddBOrderi(e).IsEmpty());
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_OrderNo =20260105001 and F_No='3''"});
  ASSERT_EQ(Reports().size(), 1u);
  ExpectServerReport(Reports()[0], 64, "塔恩维克", "You have an error in your SQL syntax");
  EXPECT_EQ(db().Count("t_borderi"), 0);
}

TEST_F(OrderLinesTest, AddBOrderiStartsOnAFreshRs) {
  clsDataBOrderi repo;
  LeaveRsOpen(repo);
  clsEntBOrderi e = NewLine();
  EXPECT_EQ(repo.AddBOrderi(e), Variant(std::int16_t{1}));
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Count("t_borderi"), 1);
}

// ---------------------------------------------------------------- UpdateRecord

TEST_F(OrderLinesTest, UpdateRecordWritesTheLineButItsKeys) {
  InsertFullLine("A", "3", "5001");
  InsertFullLine("B", "4", "5002");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();  // No "3"; its ProdNo 9001 is not written
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_OrderNo =20260105001 and F_No='3'"});
  EXPECT_TRUE(Reports().empty());
  // One row change: the Update before the writes sends nothing.
  ASSERT_EQ(RowChanges().size(), 1u);
  EXPECT_EQ(RowChanges()[0].rfind("UPDATE ", 0), 0u);
  EXPECT_EQ(AllLines("F_No"),
            (Rows{{"20260105001", "NEW-1", "EUR", "4.75", "12", "2026-05-06 07:08:09", "rush",
                   "5001", "5", "6", "1.25", "3", "2026-06-01 00:00:00", "1", "9", "air", "crate",
                   "6.5", "GST", "13", "C-88", "2.5", "PRJ-2", "Gadget", "55.5", "66.25", "CO-10",
                   "1.5", "T2", "303", "TL-3", "B2", "404", "BL-4", "2026-07-01 13:00:00"},
                  FullLineCells("B", "4", "5002")}));
  // rs is closed.
  clsEntBOrderi q;
  q.OrderNo = kOrder;
  q.ItemNo = "B";
  EXPECT_EQ(repo.QueryByID(q), 1);
}

TEST_F(OrderLinesTest, UpdateRecordMissLeavesRsOpen) {
  InsertFullLine("A", "3", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.No = "9";
  EXPECT_EQ(repo.UpdateRecord(e), 2);
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_OrderNo =20260105001 and F_No='9'"});
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(AllLines(), (Rows{FullLineCells("A", "3", "5001")}));
  // The next method that uses rs as it stands fails once, then works.
  Clear();
  clsEntBOrderi q;
  q.OrderNo = kOrder;
  q.ItemNo = "A";
  EXPECT_EQ(repo.QueryByID(q), 2);
  EXPECT_EQ(Shown(Reports()), Shown({PlainReport(kOpenFailure)}));
  Clear();
  EXPECT_EQ(repo.QueryByID(q), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, UpdateRecordTextTooLongIsLengthReportAndZero) {
  InsertFullLine("A", "3", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.Remark = std::string(256, 'r');
  EXPECT_EQ(repo.UpdateRecord(e), 0);
  EXPECT_EQ(Shown(Reports()), Shown({LengthReport()}));
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(AllLines(), (Rows{FullLineCells("A", "3", "5001")}));
  // rs was reset: the pending edit is dropped, and rs usable at once.
  clsEntBOrderi q;
  q.OrderNo = kOrder;
  q.ItemNo = "A";
  EXPECT_EQ(repo.QueryByID(q), 1);
  EXPECT_EQ(AllLines(), (Rows{FullLineCells("A", "3", "5001")}));
}

TEST_F(OrderLinesTest, UpdateRecordStartsOnAFreshRs) {
  InsertFullLine("A", "3", "5001");
  clsDataBOrderi repo;
  LeaveRsOpen(repo);
  clsEntBOrderi e = NewLine();
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Scalar("select F_ItemNo from t_borderi"), "NEW-1");
}

TEST_F(OrderLinesTest, UpdateRecordChangesOneOfTwoLinesWithTheSameNumber) {
  InsertFullLine("A", "3", "0");
  InsertFullLine("B", "3", "0");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  EXPECT_EQ(repo.UpdateRecord(e), 1);
  EXPECT_EQ(db().Rows("select F_ItemNo from t_borderi order by F_ItemNo"),
            (Rows{{"B"}, {"NEW-1"}}));
}

// ---------------------------------------------------------------- QueryOutQtyProdNo

TEST_F(OrderLinesTest, QueryOutQtyProdNoReadsTheProductionOrder) {
  db().Exec(
      "insert into t_porder (F_ProdNo, f_orderno, F_OrdQty, F_OutQty) values "
      "(5001, 20260105001, 10, 7.5), (5002, 20260105002, 3, 1)");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5001;
  e.ItemNo = "kept";
  EXPECT_EQ(repo.QueryOutQtyProdNo(e), 1);
  EXPECT_EQ(Commands(), Texts{"select f_orderno,F_OutQty from T_POrder where F_ProdNo ='5001'"});
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(e.OrderNo, kOrder);
  EXPECT_EQ(e.OutQty, 7.5);
  EXPECT_EQ(e.OrdQty, 0);
  EXPECT_EQ(e.ItemNo, "kept");
  Clear();
  EXPECT_EQ(repo.QueryOutQtyProdNo(e), 1);  // rs was closed
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryOutQtyProdNoNullsGiveZero) {
  db().Exec("insert into t_porder (F_ProdNo) values (5001)");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5001;
  e.OrderNo = 1;
  e.OutQty = 1;
  EXPECT_EQ(repo.QueryOutQtyProdNo(e), 1);
  EXPECT_EQ(e.OrderNo, 0);
  EXPECT_EQ(e.OutQty, 0);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryOutQtyProdNoNoRow) {
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5001;
  e.OutQty = 4;
  EXPECT_EQ(repo.QueryOutQtyProdNo(e), 0);
  EXPECT_EQ(e.OutQty, 4);
  EXPECT_TRUE(Reports().empty());
  Clear();
  EXPECT_EQ(repo.QueryOutQtyProdNo(e), 0);  // rs was closed
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryOutQtyProdNoAfterOpenRsFailsOnceThenWorks) {
  db().Exec("insert into t_porder (F_ProdNo, f_orderno, F_OutQty) values (5001, 20260105001, 2)");
  clsDataBOrderi repo;
  LeaveRsOpen(repo);
  clsEntBOrderi e;
  e.ProdNo = 5001;
  EXPECT_EQ(repo.QueryOutQtyProdNo(e), 2);
  EXPECT_TRUE(Commands().empty());
  EXPECT_EQ(Shown(Reports()), Shown({PlainReport(kOpenFailure)}));
  Clear();
  EXPECT_EQ(repo.QueryOutQtyProdNo(e), 1);
  EXPECT_EQ(e.OutQty, 2);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryOutQtyProdNoFailureIsPlainReport) {
  db().Exec("drop table t_porder");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5001;
  EXPECT_EQ(repo.QueryOutQtyProdNo(e), 2);
  ASSERT_EQ(Reports().size(), 1u);
  ExpectServerReport(Reports()[0], 64, "塔恩维克", "doesn't exist");
}

// ---------------------------------------------------------------- QueryByProdNo

TEST_F(OrderLinesTest, QueryByProdNoFindsTheLineOfTheProductionNumber) {
  InsertFullLine("A", "4", "5001");
  InsertFullLine("B", "5", "5002");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5002;
  EXPECT_EQ(repo.QueryByProdNo(e), 1);
  EXPECT_EQ(Commands(), Texts{"select * from T_BOrderi where F_ProdNo ='5002'"});
  EXPECT_TRUE(Reports().empty());
  ExpectFullLine(e, "B", "5");
  EXPECT_EQ(e.ProdNo, 5002);
  Clear();
  EXPECT_EQ(repo.QueryByProdNo(e), 1);  // rs was closed
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryByProdNoZeroFindsByOrderAndItemAndLeavesProdNo) {
  InsertFullLine("A", "4", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.OrderNo = kOrder;
  e.ItemNo = "A";
  EXPECT_EQ(repo.QueryByProdNo(e), 1);
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_orderno ='20260105001' and f_itemno ='A'"});
  EXPECT_TRUE(Reports().empty());
  ExpectFullLine(e, "A", "4");
  EXPECT_EQ(e.ProdNo, 0);  // not read
}

TEST_F(OrderLinesTest, QueryByProdNoNoRow) {
  InsertFullLine("A", "4", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5009;
  e.Remark = "mine";
  EXPECT_EQ(repo.QueryByProdNo(e), 0);
  EXPECT_EQ(e.Remark, "mine");
  EXPECT_TRUE(Reports().empty());
  Clear();
  EXPECT_EQ(repo.QueryByProdNo(e), 0);  // rs was closed
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryByProdNoNullReads) {
  InsertLine("F_OrderNo,F_ItemNo,F_OrdQty,F_ProdNo", "20260105001,'A',4,5001");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.ProdNo = 5001;
  EXPECT_EQ(repo.QueryByProdNo(e), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(e.OrderNo, kOrder);
  EXPECT_EQ(e.ItemNo, "A");
  EXPECT_EQ(e.OrdQty, 4);
  ExpectNullDefaults(e);
}

TEST_F(OrderLinesTest, QueryByProdNoNullOrderNoFails) {
  InsertLine("F_ItemNo,F_OrdQty,F_ProdNo", "'A',4,5001");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5001;
  EXPECT_EQ(repo.QueryByProdNo(e), 2);
  EXPECT_EQ(Shown(Reports()), Shown({PlainReport("Type mismatch")}));
  EXPECT_EQ(e.ItemNo, "");
}

TEST_F(OrderLinesTest, QueryByProdNoNullOrdQtyFails) {
  InsertLine("F_OrderNo,F_ItemNo,F_Price,F_ProdNo", "20260105001,'A',3,5001");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5001;
  EXPECT_EQ(repo.QueryByProdNo(e), 2);
  EXPECT_EQ(Shown(Reports()), Shown({PlainReport("Type mismatch")}));
  EXPECT_EQ(e.Price, 3);
  // The handler reset rs.
  Clear();
  db().Exec("update t_borderi set F_OrdQty = 2");
  EXPECT_EQ(repo.QueryByProdNo(e), 1);
  EXPECT_EQ(e.OrdQty, 2);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, QueryByProdNoAfterOpenRsFailsOnceThenWorks) {
  InsertFullLine("A", "4", "5001");
  clsDataBOrderi repo;
  LeaveRsOpen(repo);
  clsEntBOrderi e;
  e.ProdNo = 5001;
  EXPECT_EQ(repo.QueryByProdNo(e), 2);
  EXPECT_TRUE(Commands().empty());
  EXPECT_EQ(Shown(Reports()), Shown({PlainReport(kOpenFailure)}));
  Clear();
  EXPECT_EQ(repo.QueryByProdNo(e), 1);
  EXPECT_TRUE(Reports().empty());
  ExpectFullLine(e, "A", "4");
}

// ---------------------------------------------------------------- UpdateRecordByProdNo

TEST_F(OrderLinesTest, UpdateRecordByProdNoWritesTheLineWithItsOrder) {
  InsertFullLine("A", "3", "5001");
  InsertFullLine("B", "4", "5002");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.ProdNo = 5001;
  e.OrderNo = kOtherOrder;  // F_OrderNo is written too
  e.No = "8";               // F_No is not
  EXPECT_EQ(repo.UpdateRecordByProdNo(e), 1);
  EXPECT_EQ(Commands(), Texts{"select * from T_BOrderi where F_ProdNo ='5001'"});
  EXPECT_TRUE(Reports().empty());
  ASSERT_EQ(RowChanges().size(), 1u);
  EXPECT_EQ(RowChanges()[0].rfind("UPDATE ", 0), 0u);
  EXPECT_EQ(AllLines("F_ProdNo"),
            (Rows{{"20260105002", "NEW-1", "EUR", "4.75", "12", "2026-05-06 07:08:09", "rush",
                   "5001", "5", "6", "1.25", "3", "2026-06-01 00:00:00", "1", "9", "air", "crate",
                   "6.5", "GST", "13", "C-88", "2.5", "PRJ-2", "Gadget", "55.5", "66.25", "CO-10",
                   "1.5", "T2", "303", "TL-3", "B2", "404", "BL-4", "2026-07-01 13:00:00"},
                  FullLineCells("B", "4", "5002")}));
  // rs is closed.
  Clear();
  EXPECT_EQ(repo.UpdateRecordByProdNo(e), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, UpdateRecordByProdNoChangesOnlyTheCurrentRow) {
  InsertFullLine("A", "1", "5001");
  InsertFullLine("B", "2", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.ProdNo = 5001;
  EXPECT_EQ(repo.UpdateRecordByProdNo(e), 1);
  EXPECT_EQ(db().Rows("select F_ItemNo from t_borderi order by F_ItemNo"),
            (Rows{{"B"}, {"NEW-1"}}));
}

TEST_F(OrderLinesTest, UpdateRecordByProdNoZeroIsRejectedByTheServer) {
  InsertFullLine("A", "3", "0");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.ProdNo = 0;
  e.ItemNo = "A";
  EXPECT_EQ(repo.UpdateRecordByProdNo(e), 0);
  EXPECT_EQ(Commands(),
            Texts{"select * from T_BOrderi where F_orderno ='20260105001' and f_itemno'A'"});
  ASSERT_EQ(Reports().size(), 1u);
  ExpectServerReport(Reports()[0], 64, "塔恩维克", "You have an error in your SQL syntax");
  EXPECT_EQ(AllLines(), (Rows{FullLineCells("A", "3", "0")}));
}

TEST_F(OrderLinesTest, UpdateRecordByProdNoWithoutRowFailsOnTheFirstWrite) {
  InsertFullLine("A", "3", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.ProdNo = 5009;
  EXPECT_EQ(repo.UpdateRecordByProdNo(e), 0);
  EXPECT_EQ(Commands(), Texts{"select * from T_BOrderi where F_ProdNo ='5009'"});
  EXPECT_EQ(Shown(Reports()), Shown({LengthReportOf(kNoCurrentRow)}));
  EXPECT_TRUE(RowChanges().empty());
  // The handler reset rs.
  Clear();
  e.ProdNo = 5001;
  EXPECT_EQ(repo.UpdateRecordByProdNo(e), 1);
  EXPECT_TRUE(Reports().empty());
}

TEST_F(OrderLinesTest, UpdateRecordByProdNoTextTooLongIsLengthReport) {
  InsertFullLine("A", "3", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.ProdNo = 5001;
  e.BaseLine = std::string(51, 'b');
  EXPECT_EQ(repo.UpdateRecordByProdNo(e), 0);
  EXPECT_EQ(Shown(Reports()), Shown({LengthReport()}));
  EXPECT_TRUE(RowChanges().empty());
  EXPECT_EQ(AllLines(), (Rows{FullLineCells("A", "3", "5001")}));
}

TEST_F(OrderLinesTest, UpdateRecordByProdNoAfterOpenRsFailsOnceThenWorks) {
  InsertFullLine("A", "3", "5001");
  clsDataBOrderi repo;
  LeaveRsOpen(repo);
  clsEntBOrderi e = NewLine();
  e.ProdNo = 5001;
  EXPECT_EQ(repo.UpdateRecordByProdNo(e), 0);
  EXPECT_TRUE(Commands().empty());
  EXPECT_EQ(Shown(Reports()), Shown({LengthReportOf(kOpenFailure)}));
  EXPECT_EQ(AllLines(), (Rows{FullLineCells("A", "3", "5001")}));
  Clear();
  EXPECT_EQ(repo.UpdateRecordByProdNo(e), 1);
  EXPECT_TRUE(Reports().empty());
  EXPECT_EQ(db().Scalar("select F_ItemNo from t_borderi"), "NEW-1");
}

// ---------------------------------------------------------------- together

TEST_F(OrderLinesTest, DeleteBOrderiMissThenUpdateRecordByProdNoFailsOnce) {
  InsertFullLine("A", "3", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi miss;
  miss.OrderNo = kOrder;
  miss.ItemNo = "Z";
  EXPECT_EQ(repo.DeleteBOrderi(miss), 2);
  clsEntBOrderi e = NewLine();
  e.ProdNo = 5001;
  EXPECT_EQ(repo.UpdateRecordByProdNo(e), 0);
  EXPECT_EQ(Shown(Reports()), Shown({LengthReportOf(kOpenFailure)}));
  EXPECT_EQ(repo.UpdateRecordByProdNo(e), 1);
  // The pending row of DeleteBOrderi was never stored.
  EXPECT_EQ(db().Count("t_borderi"), 1);
  ASSERT_EQ(RowChanges().size(), 1u);
  EXPECT_EQ(RowChanges()[0].rfind("UPDATE ", 0), 0u);
}

// ---------------------------------------------------------------- reset and report

// Whether rs was still open while the report of failing() was shown: the
// report handler probes the same object with a QueryByID of a missing line,
// which uses rs as it stands. 0: rs had been reset before the report; 2: it
// was reset after.
std::int16_t ProbeAtReport(clsDataBOrderi& repo, const std::function<void()>& failing) {
  std::int16_t probe = -1;
  bool probing = false;
  SetReportHandler([&](const Report&) {
    if (probing) return;  // the probe's own report
    probing = true;
    clsEntBOrderi missing;
    missing.OrderNo = 1;
    missing.ItemNo = "probe";
    probe = repo.QueryByID(missing);
    probing = false;
  });
  failing();
  return probe;
}

TEST_F(OrderLinesTest, PlainReportMethodsResetBeforeTheReport) {
  db().Exec("alter table t_borderi modify F_BkQty varchar(10)");
  InsertLine("F_OrderNo,F_ItemNo,F_ProdNo,F_BkQty", "20260105001,'A',5001,'many'");
  InsertLine("F_OrderNo,F_ItemNo,F_ProdNo", "20260105001,'B',5002");
  db().Exec("alter table t_porder modify F_OutQty varchar(10)");
  db().Exec("insert into t_porder (F_ProdNo, F_OutQty) values (5001, 'some')");
  clsDataBOrderi repo;
  clsEntBOrderi e;
  e.ProdNo = 5001;
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_EQ(repo.QueryBkQty(e), 2); }), 0);
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_EQ(repo.QueryOutQtyProdNo(e), 2); }), 0);
  e.ProdNo = 5002;  // F_OrdQty null
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_EQ(repo.QueryByProdNo(e), 2); }), 0);
  e.OrderNo = kOrder;
  e.ItemNo = "B";
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_EQ(repo.QueryByID(e), 2); }), 0);
}

TEST_F(OrderLinesTest, UpdateRecordByProdNoResetsBeforeTheReport) {
  InsertFullLine("A", "3", "5001");
  clsDataBOrderi repo;
  clsEntBOrderi e = NewLine();
  e.ProdNo = 5001;
  e.ItemNo = std::string(51, 'x');
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_EQ(repo.UpdateRecordByProdNo(e), 0); }), 0);
}

TEST_F(OrderLinesTest, OtherMethodsResetAfterTheReport) {
  InsertFullLine("A", "3", "5001");
  InsertFullLine("B", "4", "5002");
  clsDataBOrderi repo;
  // A value too long while the row is open.
  clsEntBOrderi e = NewLine();
  e.ItemNo = std::string(51, 'x');
  e.No = "9";
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_TRUE(repo.AddBOrderi(e).IsEmpty()); }), 2);
  e.No = "3";
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_EQ(repo.UpdateRecord(e), 0); }), 2);
  // A collection fill without a collection.
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_EQ(repo.QueryAllRecord(nullptr, kOrder), 0); }), 2);
  // The server refuses the delete of the open row.
  db().Exec(
      "create trigger keep_lines before delete on t_borderi for each row "
      "signal sqlstate '45000' set message_text = 'lines are kept'");
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_EQ(repo.DeleteAllRecorder(kOrder), 0); }), 2);
  clsEntBOrderi a;
  a.OrderNo = kOrder;
  a.ItemNo = "A";
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_EQ(repo.DeleteBOrderi(a), 0); }), 2);
  // The server refuses a renumbering.
  db().Exec(
      "create trigger keep_numbers before update on t_borderi for each row "
      "signal sqlstate '45000' set message_text = 'numbers are kept'");
  EXPECT_EQ(ProbeAtReport(repo, [&] { EXPECT_TRUE(repo.UpdateNo(a).IsEmpty()); }), 2);
  EXPECT_EQ(db().Count("t_borderi"), 2);
}

}  // namespace
}  // namespace corvane
