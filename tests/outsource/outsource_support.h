// What the outsource tests share: a fixture over the sandbox database with
// helpers to put orders and lines in and read them back, a fully set order
// and line, and the recordset failure texts.
#ifndef CORVANE_TESTS_OUTSOURCE_OUTSOURCE_SUPPORT_H_
#define CORVANE_TESTS_OUTSOURCE_OUTSOURCE_SUPPORT_H_

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <string>
#include <vector>

#include "corvane/corvane.h"
#include "tests/support/sandbox.h"

namespace corvane::outsource_testing {

using Rows = std::vector<std::vector<std::string>>;
using Strings = std::vector<std::string>;
using ReportList = std::vector<Report>;

inline constexpr char kTitle[] = "塔恩维克";
inline constexpr char kSyntax[] = "You have an error in your SQL syntax";
inline constexpr char kOpenWords[] = "Operation is not allowed when the object is open";

// A report with the failure's own words in the information style: the plain
// report, and the length report of any failure but a value that is too long.
inline Report Described(const std::string& text) { return Report{text, 64, kTitle}; }

// A date as the server prints a DATETIME.
inline std::string ServerText(const Date& d) {
  const Date::Parts p = d.ToParts();
  char buf[32];
  std::snprintf(buf, sizeof buf, "%04d-%02d-%02d %02d:%02d:%02d", p.year, p.month, p.day, p.hour,
                p.minute, p.second);
  return buf;
}

// An order header with every property set, none to its default.
inline clsEntBOutMakeh FullOrder(double no) {
  clsEntBOutMakeh e;
  e.OrderoutNo = no;
  e.Approve = "li";
  e.ApproveTime = Date::FromParts(2026, 11, 2, 10, 0, 0);
  e.Checker = "wang";
  e.CheckerTime = Date::FromParts(2026, 11, 2, 9, 0, 0);
  e.DeliverAddr = "Dock 4";
  e.DeliverMode = "Truck";
  e.Flags = 3;
  e.OrderoutDate = Date::FromParts(2026, 11, 2);
  e.PayDay = 30;
  e.PayMode = "T/T";
  e.ProviderNo = "P01";
  e.Tabler = "ann";
  e.Tabletime = Date::FromParts(2026, 11, 1, 8, 0, 0);
  e.BuYerID = "B7";
  e.SOrderNo = "SO-9";
  e.OrderType = "Cast";
  e.Package = "Crate";
  e.TotalBefore = 1000.5;
  e.DisCount = 2.5;
  e.Greight = 30.25;
  e.Tax = 170.75;
  e.Total = 1176.5;
  e.DocType = "OM";
  e.ProviderName = "Foundry";
  e.jrnlMemo = "memo";
  e.DueDate = Date::FromParts(2026, 12, 1);
  e.TaxDate = Date::FromParts(2026, 12, 2);
  e.UpdataUser = "dan";
  e.PayMonth = 2;
  e.Comments = "rush";
  e.Attn = "Mr. Li";
  e.Currency = "CNY";
  return e;
}

// The values of FullOrder in the column order of t_boutmakeh, as the server
// prints them, the number left out.
inline Strings FullOrderCells() {
  return {"li",          "2026-11-02 10:00:00", "wang",   "2026-11-02 09:00:00", "Dock 4",
          "Truck",       "3",                   "2026-11-02 00:00:00", "30", "T/T",
          "P01",         "ann",                 "2026-11-01 08:00:00", "B7", "SO-9",
          "Cast",        "Crate",               "1000.5", "2.5",       "30.25",
          "170.75",      "1176.5",              "OM",     "Foundry",   "memo",
          "2026-12-01 00:00:00", "2026-12-02 00:00:00", "dan", "2", "rush",
          "Mr. Li",      "CNY"};
}

inline void ExpectSameOrder(const clsEntBOutMakeh& a, const clsEntBOutMakeh& b) {
  EXPECT_EQ(a.OrderoutNo, b.OrderoutNo);
  EXPECT_EQ(a.Approve, b.Approve);
  EXPECT_EQ(a.ApproveTime, b.ApproveTime);
  EXPECT_EQ(a.Checker, b.Checker);
  EXPECT_EQ(a.CheckerTime, b.CheckerTime);
  EXPECT_EQ(a.DeliverAddr, b.DeliverAddr);
  EXPECT_EQ(a.DeliverMode, b.DeliverMode);
  EXPECT_EQ(a.Flags, b.Flags);
  EXPECT_EQ(a.OrderoutDate, b.OrderoutDate);
  EXPECT_EQ(a.PayDay, b.PayDay);
  EXPECT_EQ(a.PayMode, b.PayMode);
  EXPECT_EQ(a.ProviderNo, b.ProviderNo);
  EXPECT_EQ(a.Tabler, b.Tabler);
  EXPECT_EQ(a.Tabletime, b.Tabletime);
  EXPECT_EQ(a.BuYerID, b.BuYerID);
  EXPECT_EQ(a.SOrderNo, b.SOrderNo);
  EXPECT_EQ(a.OrderType, b.OrderType);
  EXPECT_EQ(a.Package, b.Package);
  EXPECT_EQ(a.TotalBefore, b.TotalBefore);
  EXPECT_EQ(a.DisCount, b.DisCount);
  EXPECT_EQ(a.Greight, b.Greight);
  EXPECT_EQ(a.Tax, b.Tax);
  EXPECT_EQ(a.Total, b.Total);
  EXPECT_EQ(a.DocType, b.DocType);
  EXPECT_EQ(a.ProviderName, b.ProviderName);
  EXPECT_EQ(a.jrnlMemo, b.jrnlMemo);
  EXPECT_EQ(a.DueDate, b.DueDate);
  EXPECT_EQ(a.TaxDate, b.TaxDate);
  EXPECT_EQ(a.UpdataUser, b.UpdataUser);
  EXPECT_EQ(a.PayMonth, b.PayMonth);
  EXPECT_EQ(a.Comments, b.Comments);
  EXPECT_EQ(a.Attn, b.Attn);
  EXPECT_EQ(a.Currency, b.Currency);
}

// An order line with every property set, none to its default.
inline clsEntBOutMakei FullLine(double order, double prod) {
  clsEntBOutMakei e;
  e.OrderoutNo = order;
  e.ProdNo = prod;
  e.ItemNo = "GEAR-40";
  e.CurrencyID = "CNY";
  e.Price = 12.5;
  e.OrdoutQty = 40;
  e.DeliverDate = Date::FromParts(2026, 12, 5);
  e.SupportPart = 1;
  e.Remark = "cast only";
  e.InQty = 15;
  e.InDate = Date::FromParts(2026, 12, 6, 14, 30, 0);
  e.Status = 2;
  e.CustNo = "C001";
  e.CorderNo = "PO-7";
  e.ItemName = "Gear 40";
  e.BKQty = 3;
  e.SItemNo = "S-40";
  e.DisPerRow = 1.5;
  e.Rate = 7.25;
  e.TaxSort = "VAT";
  e.Tax = 85;
  e.FcTotal = 500;
  e.LcTotal = 3625;
  e.StepCode = "ST1";
  e.Eitem = "E40";
  e.Ename = "Gear forty";
  return e;
}

// The values of FullLine in the column order of t_boutmakei, as the server
// prints them, the two keys left out.
inline Strings FullLineCells() {
  return {"GEAR-40", "CNY",     "12.5", "40",   "2026-12-05 00:00:00", "1",   "cast only",
          "15",      "2026-12-06 14:30:00", "2", "C001", "PO-7",      "Gear 40", "3",
          "S-40",    "1.5",     "7.25", "VAT",  "85",  "500",       "3625",  "ST1",
          "E40",     "Gear forty"};
}

inline void ExpectSameLine(const clsEntBOutMakei& a, const clsEntBOutMakei& b) {
  EXPECT_EQ(a.OrderoutNo, b.OrderoutNo);
  EXPECT_EQ(a.ProdNo, b.ProdNo);
  EXPECT_EQ(a.ItemNo, b.ItemNo);
  EXPECT_EQ(a.CurrencyID, b.CurrencyID);
  EXPECT_EQ(a.Price, b.Price);
  EXPECT_EQ(a.OrdoutQty, b.OrdoutQty);
  EXPECT_EQ(a.DeliverDate, b.DeliverDate);
  EXPECT_EQ(a.SupportPart, b.SupportPart);
  EXPECT_EQ(a.Remark, b.Remark);
  EXPECT_EQ(a.InQty, b.InQty);
  EXPECT_EQ(a.InDate, b.InDate);
  EXPECT_EQ(a.Status, b.Status);
  EXPECT_EQ(a.CustNo, b.CustNo);
  EXPECT_EQ(a.CorderNo, b.CorderNo);
  EXPECT_EQ(a.ItemName, b.ItemName);
  EXPECT_EQ(a.BKQty, b.BKQty);
  EXPECT_EQ(a.SItemNo, b.SItemNo);
  EXPECT_EQ(a.DisPerRow, b.DisPerRow);
  EXPECT_EQ(a.Rate, b.Rate);
  EXPECT_EQ(a.TaxSort, b.TaxSort);
  EXPECT_EQ(a.Tax, b.Tax);
  EXPECT_EQ(a.FcTotal, b.FcTotal);
  EXPECT_EQ(a.LcTotal, b.LcTotal);
  EXPECT_EQ(a.StepCode, b.StepCode);
  EXPECT_EQ(a.Eitem, b.Eitem);
  EXPECT_EQ(a.Ename, b.Ename);
}

class OutsourceTest : public testing::SandboxTest {
 protected:
  // The test database as the server names it in row changes.
  std::string Db() const {
    std::string d = database();
    std::transform(d.begin(), d.end(), d.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return d;
  }
  std::string Table(const std::string& name) const { return "`" + Db() + "`.`" + name + "`"; }

  // An order with number, day and supplier; the rest null.
  void Order(const std::string& no, const std::string& date, const std::string& provider = "P01") {
    db().Exec("insert into t_boutmakeh (F_OrderOutNo, F_OrderoutDate, F_ProviderNo) values (" +
              no + ", '" + date + "', '" + provider + "')");
  }
  // The order FullOrder(no) gives, put in directly.
  void InsertFullOrder(const std::string& no) {
    std::string values = no;
    for (const std::string& cell : FullOrderCells()) values += ", '" + cell + "'";
    db().Exec("insert into t_boutmakeh values (" + values + ")");
  }
  Rows OrderRow(const std::string& no) {
    return db().Rows("select * from t_boutmakeh where F_OrderOutNo=" + no);
  }
  Rows Orders() {
    return db().Rows(
        "select F_OrderOutNo, date_format(F_OrderoutDate, '%Y-%m-%d') from t_boutmakeh order by "
        "F_OrderOutNo");
  }
  Rows Counters() {
    return db().Rows(
        "select F_TableName, F_No, date_format(F_FnDate, '%Y-%m-%d %T') from t_sitemno order by "
        "F_TableName, F_FnDate, F_No");
  }
  // A line with its keys, quantity and status; the rest null.
  void Line(const std::string& order, const std::string& prod, const std::string& qty,
            const std::string& status = "0", const std::string& item = "GEAR-40") {
    db().Exec("insert into t_boutmakei (F_OrderoutNo, F_ProdNo, F_ItemNo, F_OrdoutQty, F_Status) "
              "values (" + order + ", " + prod + ", '" + item + "', " + qty + ", " + status + ")");
  }
  // The line FullLine(order, prod) gives, put in directly.
  void InsertFullLine(const std::string& order, const std::string& prod) {
    std::string values = order + ", " + prod;
    for (const std::string& cell : FullLineCells()) values += ", '" + cell + "'";
    db().Exec("insert into t_boutmakei values (" + values + ")");
  }
  Rows LineRow(const std::string& order, const std::string& prod) {
    return db().Rows("select * from t_boutmakei where F_OrderoutNo=" + order +
                     " and F_ProdNo=" + prod);
  }
  Rows Lines() {
    return db().Rows(
        "select F_OrderoutNo, F_ProdNo, F_OrdoutQty from t_boutmakei order by F_OrderoutNo, "
        "F_ProdNo");
  }

  // The statements of a kind, as sent.
  Strings SentOf(StatementKind kind) const {
    Strings out;
    for (const auto& s : Sent()) {
      if (s.kind == kind) out.push_back(s.text);
    }
    return out;
  }
};

}  // namespace corvane::outsource_testing

#endif  // CORVANE_TESTS_OUTSOURCE_OUTSOURCE_SUPPORT_H_
