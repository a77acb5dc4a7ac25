// The road of an outsource order: the number of the day, the header and its
// lines, what a production number may still give out, the three signatures,
// the open quantities of source documents, and the listings by month under
// the supplier rights.
#include <iostream>
#include <memory>
#include <string>

#include "examples/demo.h"

namespace demo {
namespace {

using namespace corvane;

void PrintOrder(const clsEntBOutMakeh& h) {
  std::cout << "     order " << Text(h.OrderoutNo) << " of " << Text(h.OrderoutDate)
            << ", supplier " << h.ProviderNo << " (" << h.ProviderName << "), entered by "
            << h.Tabler << " at " << Text(h.Tabletime) << ", checked by '" << h.Checker
            << "', approved by '" << h.Approve << "', flags " << h.Flags << ", total "
            << Text(h.Total) << "\n";
}

void PrintLine(const clsEntBOutMakei& i) {
  std::cout << "     line of order " << Text(i.OrderoutNo) << ": production number "
            << Text(i.ProdNo) << ", " << i.ItemNo << " qty " << Text(i.OrdoutQty) << " at "
            << Text(i.Price) << " " << i.CurrencyID << ", delivery " << Text(i.DeliverDate)
            << ", status " << i.Status << "\n";
}

// The day of a date, without its time.
Date DayOf(const Date& d) {
  const Date::Parts p = d.ToParts();
  return Date::FromParts(p.year, p.month, p.day);
}

}  // namespace

void Outsource() {
  using namespace corvane;
  const std::string kTable = "t_boutmakeh";

  Section("A new outsource order");
  clsDataBOutMakeh orders;
  const Date now = Call("QueryDateTime", [&] { return orders.QueryDateTime(); });
  const Date day = DayOf(now);
  clsEntBOutMakeh last;
  const auto has_row = Call("QueryOrderoutNo of " + Text(day), [&] {
    return orders.QueryOrderoutNo(last, day);
  });
  // The client composes the number: yyyymmdd and two digits of its own.
  const Date::Parts p = day.ToParts();
  const double first = (p.year * 10000.0 + p.month * 100.0 + p.day) * 100.0 + 1;
  const double number = has_row == 1 ? last.OrderoutNo + 1 : first;
  const std::int16_t istatus = has_row == 1 ? 1 : 0;
  std::cout << "     the client takes number " << Text(number) << " (Istatus " << istatus
            << ")\n";

  clsEntBOutMakeh order;
  order.OrderoutNo = number;
  order.OrderoutDate = day;
  order.ProviderNo = "P01";
  order.ProviderName = "Eastern Foundry";
  order.PayMode = "T/T";
  order.PayDay = 30;
  order.DeliverMode = "Truck";
  order.DeliverAddr = "Plant 2, Dock 4";
  order.Tabler = "wang";
  order.OrderType = "Casting";
  order.DueDate = Date::FromParts(p.year, p.month + 1, p.day);
  order.TaxDate = day;
  order.Currency = "CNY";
  order.Attn = "Mr. Li";
  order.BuYerID = "B07";
  order.TotalBefore = 1500;
  order.Tax = 255;
  order.Total = 1755;
  Call("AddRecord (stamped with the client's time)", [&] {
    return orders.AddRecord(order, kTable, istatus);
  });
  Call("AddRecord of the same number (0: taken)", [&] {
    return orders.AddRecord(order, kTable, istatus);
  });
  clsEntBOutMakeh stored;
  stored.OrderoutNo = number;
  Call("QueryChkItem", [&] { return orders.QueryChkItem(stored); });
  PrintOrder(stored);

  Section("Lines and what a production number may still give out");
  clsDataBOutMakei lines;
  clsEntBOutMakei line;
  line.ProdNo = 8001;
  Call("ChkInputCount 8001", [&] { return lines.ChkInputCount(line); });
  std::cout << "     may still give out " << Text(line.OrdoutQty) << "\n";
  line.OrderoutNo = number;
  line.ItemNo = "VALVE-2";
  line.ItemName = "Valve body";
  line.CurrencyID = "CNY";
  line.Price = 25;
  line.OrdoutQty = 60;
  line.DeliverDate = order.DueDate;
  line.CustNo = "C001";
  line.FcTotal = 1500;
  line.LcTotal = 1500;
  Call("AddRecord of a line for 8001", [&] { return lines.AddRecord(line); });
  Call("AddRecord of the same line (0: exists)", [&] { return lines.AddRecord(line); });
  Call("ChkInputCount 8001 again", [&] { return lines.ChkInputCount(line); });
  std::cout << "     may still give out " << Text(line.OrdoutQty) << "\n";
  clsEntBOutMakei changed = line;
  changed.OrdoutQty = 60;
  changed.Remark = "sand cast";
  Call("UpdateRecord of the line", [&] {
    return lines.UpdateRecord(changed, number, 8001);
  });
  Call("QueryBOutMakei of the order (the lines' order number is not read)", [&] {
    std::shared_ptr<clsEntBOutMakei> work;
    Collection<clsEntBOutMakei> all;
    const auto r = lines.QueryBOutMakei(work, number, &all);
    for (const auto& i : all) PrintLine(*i);
    return r;
  });

  Section("The three signatures");
  clsEntBOutMakeh sign;
  sign.Checker = "wang";
  sign.Approve = "li";
  sign.Flags = 1;
  const std::string key = Text(number);
  Call("UpdateRecord 2: checked by wang", [&] { return orders.UpdateRecord(sign, key, 2); });
  Call("UpdateRecord 3: approved by li", [&] { return orders.UpdateRecord(sign, key, 3); });
  Call("QueryStatus before the flag", [&] { return orders.QueryStatus(stored); });
  Call("UpdateRecord 4: flags 1", [&] { return orders.UpdateRecord(sign, key, 4); });
  Call("QueryStatus", [&] { return orders.QueryStatus(stored); });
  Call("QueryChkItem", [&] { return orders.QueryChkItem(stored); });
  PrintOrder(stored);

  Section("Open quantities of source documents for supplier P01");
  clsEntBOutMakei ask;
  ask.CustNo = "P01";
  ask.OrderoutNo = number;
  ask.ProdNo = 8001;
  Call("QueryProdNo kind 2: the new outsource order", [&] { return lines.QueryProdNo(ask, 2); });
  std::cout << "     open " << Text(ask.OrdoutQty) << " of " << ask.ItemNo << "\n";
  clsEntBOutMakei work_order;
  work_order.OrderoutNo = 6001;
  Call("QueryProdNo kind 1: work order 6001", [&] { return lines.QueryProdNo(work_order, 1); });
  std::cout << "     open " << Text(work_order.OrdoutQty) << " of " << work_order.ItemNo << "\n";
  clsEntBOutMakei purchase;
  purchase.CustNo = "P01";
  purchase.OrderoutNo = 9001;
  purchase.ItemNo = "BOLT-8";
  Call("QueryProdNo kind 3: purchase order 9001", [&] { return lines.QueryProdNo(purchase, 3); });
  std::cout << "     open " << Text(purchase.OrdoutQty) << " of " << purchase.ItemNo << "\n";
  Call("QueryProdNo kind 4 (unknown: 0, nothing sent)", [&] { return lines.QueryProdNo(ask, 4); });

  Section("Lines of a production number, and the open recordset it leaves");
  Call("QueryByProdNo 8001", [&] {
    Collection<clsEntBOutMakei> all;
    const auto r = lines.QueryByProdNo(&all, 8001);
    for (const auto& i : all) PrintLine(*i);
    return r;
  });
  clsEntBOutMakei check;
  check.OrderoutNo = number;
  check.ProdNo = 8001;
  Call("ChkProdNobyOrderOutNo (fails once on the open recordset)", [&] {
    return lines.ChkProdNobyOrderOutNo(check);
  });
  Call("ChkProdNobyOrderOutNo again", [&] { return lines.ChkProdNobyOrderOutNo(check); });

  Section("Listings by month under the supplier rights");
  for (const std::string user : {"zhao", "lin"}) {
    std::string month;
    Call("QueryLasted12month for user " + user, [&] {
      Collection<clsEntBOutMakeh> months;
      const auto r = orders.QueryLasted12month(&months, user);
      for (const auto& m : months) std::cout << "     month " << Text(m->OrderoutNo) << "\n";
      if (months.Count() > 0) month = Text(months.Item(1).OrderoutNo);
      return r;
    });
    Call("QueryMonthItem " + month + " for user " + user, [&] {
      Collection<clsEntBOutMakeh> items;
      const auto r = orders.QueryMonthItem(&items, month, user);
      for (const auto& h : items) PrintOrder(*h);
      return r;
    });
  }

  Section("The newest order and the day's largest number");
  clsEntBOutMakeh newest;
  Call("QueryMaxItem", [&] { return orders.QueryMaxItem(newest); });
  PrintOrder(newest);
  clsEntBOutMakeh of_day;
  Call("QueryMaxItemDelete of " + Text(day), [&] {
    return orders.QueryMaxItemDelete(of_day, day);
  });
  std::cout << "     largest of the day " << Text(of_day.OrderoutNo) << "\n";
  Call("QueryMaxItemDelete of a day without orders (reports, 0)", [&] {
    return orders.QueryMaxItemDelete(of_day, Date::FromParts(2000, 1, 1));
  });
  Call("ChkNoByProviderName 'Eastern Foundry'", [&] {
    return orders.ChkNoByProviderName(number, "Eastern Foundry");
  });
}

}  // namespace demo
