// The road of a sales order: order types, the day's number, the header and
// its lines, totals, signatures, demand, listings under data rights, and an
// order change carried over.
#include <iostream>
#include <string>

#include "examples/demo.h"

namespace demo {
namespace {

using namespace corvane;

void PrintOrder(const clsEntBOrderh& h) {
  std::cout << "     order " << Text(h.OrderNo) << " of " << Text(h.OrderDate) << ", customer "
            << h.CustNo << ", checked by '" << h.Checker << "', approved by '" << h.Approve
            << "', before discount " << Text(h.TotalBefore) << ", tax " << Text(h.Tax)
            << ", total " << Text(h.Total) << "\n";
}

void PrintLine(const clsEntBOrderi& i) {
  std::cout << "     line " << i.No << " of order " << Text(i.OrderNo) << ": " << i.ItemNo
            << " qty " << Text(i.OrdQty) << " bk " << Text(i.BkQty) << " out/req "
            << Text(i.OutQty) << " fc " << Text(i.FcTotal) << " lc " << Text(i.LcTotal)
            << " delivery " << Text(i.DeliverDate) << "\n";
}

}  // namespace

void Orders() {
  using namespace corvane;
  Section("Order types");
  clsDataBOrderType types;
  Call("QueryAll", [&] {
    Collection<clsEntBOrderType> all;
    const auto r = types.QueryAll(&all);
    for (const auto& t : all) std::cout << "     type '" << t->OrderType << "'\n";
    return r;
  });
  clsEntBOrderType consignment{"Consignment"};
  Call("AddRecord Consignment", [&] { return types.AddRecord(consignment); });
  Call("AddRecord Consignment again", [&] { return types.AddRecord(consignment); });
  clsEntBOrderType renamed{"Consigned"};
  Call("UpdateRecord Consignment -> Consigned", [&] {
    return types.UpdateRecord(renamed, "Consignment");
  });
  clsEntBOrderType stored{"Consigned "};  // the rename leaves a blank behind the name
  Call("DeleteRecord 'Consigned '", [&] { return types.DeleteRecord(stored); });
  clsEntBOrderType missing{"Nothing"};
  Call("DeleteRecord of a missing type (reports, result 0)", [&] {
    return types.DeleteRecord(missing);
  });

  Section("A new sales order");
  clsDataBOrderh orders;
  const auto today = Call("QueryTF", [&] { return orders.QueryTF(); });
  clsEntSitemNo last;
  Call("QueryChkitemiNo", [&] { return orders.QueryChkitemiNo(last); });
  std::cout << "     t_sitemno: " << last.tablename << " " << Text(last.no) << " "
            << Text(last.fndate) << "\n";
  const double number = today == 2 ? last.no + 1 : last.no;
  std::cout << "     the client takes number " << Text(number) << "\n";

  clsEntBOrderh order;
  order.OrderNo = number;
  order.OrderDate = last.fndate;
  order.SalerId = "S01";
  order.CustNo = "C001";
  order.CorderNo = "PO-8";
  order.OrderType = "Domestic";
  order.Tabler = "wang";
  order.Tabletime = last.fndate;
  order.DisCount = 5;
  order.Greight = 30;
  order.DueDate = Date::FromParts(2027, 1, 15);
  order.TaxDate = last.fndate;
  order.Currency = "CNY";
  Call("AddRecord", [&] { return orders.AddRecord(order); });
  Call("AddRecord of the same number", [&] { return orders.AddRecord(order); });
  Call("UpdateAddSitemNo", [&] { return orders.UpdateAddSitemNo(); });

  clsDataBOrderi lines;
  clsEntBOrderi line;
  line.OrderNo = number;
  line.ItemNo = "GEAR-40";
  line.Currency = "CNY";
  line.Price = 12.5;
  line.OrdQty = 80;
  line.DeliverDate = Date::FromParts(2027, 1, 10);
  line.No = "1";
  line.Tax = 13;
  line.Rate = 1;
  Call("AddBOrderi line 1", [&] { return lines.AddBOrderi(line); });
  line.ItemNo = "SHAFT-12";
  line.Price = 40;
  line.OrdQty = 25;
  line.BkQty = 2;
  line.DisPerRow = 10;
  line.No = "2";
  Call("AddBOrderi line 2", [&] { return lines.AddBOrderi(line); });
  Call("UpdateFCorLC", [&] { return lines.UpdateFCorLC(number); });
  Call("QueryAllRecord of the order's lines", [&] {
    Collection<clsEntBOrderi> all;
    const auto r = lines.QueryAllRecord(&all, number);
    for (const auto& i : all) PrintLine(*i);
    return r;
  });
  Call("UpdateChecke", [&] { return orders.UpdateChecke("wang", number); });
  Call("UpdateApprove", [&] { return orders.UpdateApprove("li", number); });
  clsEntBOrderh reread;
  reread.OrderNo = number;
  Call("QueryOrderNoRecord", [&] { return orders.QueryOrderNoRecord(reread); });
  PrintOrder(reread);

  Section("Demand of approved orders");
  Call("QueryBuyForMreqBuy", [&] {
    Collection<clsEntBOrderi> need;
    const auto r = lines.QueryBuyForMreqBuy(&need);
    for (const auto& i : need) PrintLine(*i);
    return r;
  });
  Call("QueryOutForOrder C001, all orders", [&] {
    Collection<clsEntBOrderi> out;
    const auto r = lines.QueryOutForOrder(&out, "C001", 0);
    for (const auto& i : out) PrintLine(*i);
    return r;
  });

  Section("Listings by month under data rights");
  Collection<clsEntBOrderh> months;
  Call("QueryMonthDate for user lin (customer C001 only)", [&] {
    const auto r = orders.QueryMonthDate(&months, "lin");
    for (const auto& m : months) std::cout << "     month " << Text(m->OrderDate) << "\n";
    return r;
  });
  const std::string month = Text(last.fndate).substr(0, 7);
  Call("QueryAllRecordPre " + month + " for user lin", [&] {
    Collection<clsEntBOrderh> list;
    const auto r = orders.QueryAllRecordPre(&list, month, "lin");
    for (const auto& h : list) std::cout << "     order " << Text(h->OrderNo) << "\n";
    return r;
  });

  Section("An order change, approved and carried over");
  clsDataBOrdChange changes;
  const auto change_today = Call("QueryTF", [&] { return changes.QueryTF(); });
  clsEntSitemNo last_change;
  Call("QueryChkitemiNo", [&] { return changes.QueryChkitemiNo(last_change); });
  clsEntBOrdChange change;
  change.UpNo = change_today == 2 ? last_change.no + 1 : last_change.no;
  change.UpDate = last_change.fndate;
  change.ProdNo = 7001;
  change.ItemNo = "GEAR-40";
  change.CustNo = "C001";
  change.OldQty = 100;
  change.NewQty = 120;
  change.OldBkQty = 0;
  change.NewBkQty = 3;
  change.Oldate = Date::FromParts(2026, 2, 1);
  change.NewDate = Date::FromParts(2026, 2, 20);
  change.QtyUp = 1;
  change.DateUp = 1;
  change.UpCause = "customer asks for more";
  change.Tabler = "wang";
  change.Tabletime = last_change.fndate;
  Call("AddRecord", [&] { return changes.AddRecord(change); });
  Call("UpdateAddSitemNo", [&] { return changes.UpdateAddSitemNo(); });
  Call("UpdateBOrderiRecord status 1 by zhao", [&] {
    return changes.UpdateBOrderiRecord(change, 7001, "zhao", 1, 0);
  });
  clsEntBOrderi produced;
  produced.ProdNo = 7001;
  Call("QueryByProdNo 7001", [&] { return lines.QueryByProdNo(produced); });
  PrintLine(produced);
  clsEntBOrdChange back;
  back.UpNo = change.UpNo;
  Call("QueryRecord", [&] { return changes.QueryRecord(back); });
  std::cout << "     change " << Text(back.UpNo) << " flags " << back.Flags << " new qty "
            << Text(back.NewQty) << "\n";
}

}  // namespace demo
