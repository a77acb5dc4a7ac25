// The road of a quotation: the number of the day, the header and its lines,
// the two signatures and the flag, a currency looked up, the customers a user
// may see, and the approved price history of an item for a customer.
#include <chrono>
#include <iostream>
#include <memory>
#include <string>

#include "examples/demo.h"

namespace demo {
namespace {

using namespace corvane;

// Today by the host's clock: quotation numbers and dates are the client's.
Date Today() {
  const std::chrono::year_month_day ymd{
      std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now())};
  return Date::FromParts(static_cast<int>(ymd.year()), static_cast<int>(unsigned(ymd.month())),
                         static_cast<int>(unsigned(ymd.day())));
}

void PrintHeader(const clsEntBPriceh& h) {
  std::cout << "     quotation " << Text(h.QuotNo) << " of " << Text(h.QuotDate) << ", customer "
            << h.Custno << " in " << h.CurrencyID << ", checked by '" << h.Checker
            << "', approved by '" << h.Approve << "', flags " << h.Flags << ", total "
            << Text(h.Total) << "\n";
}

void PrintLine(const clsEntBPricei& i) {
  std::cout << "     line " << i.No << ": " << i.ItemNo << " (" << i.CitemNO << ") " << i.Currency
            << " " << Text(i.Price) << " x " << Text(i.OrdQty) << " = " << Text(i.FcTotal)
            << ", local " << Text(i.LcTotal) << ", delivery " << Text(i.DeliverDate) << "\n";
}

}  // namespace

void Quotations() {
  using namespace corvane;
  Section("A new quotation");
  clsDataBPriceh quotes;
  clsEntBPriceh largest;
  Call("QueryMaxItem (the largest number of all)", [&] { return quotes.QueryMaxItem(largest); });
  std::cout << "     largest so far " << Text(largest.QuotNo) << "\n";
  const Date today = Today();
  clsEntBPriceh of_today;
  Call("QueryMaxItemDelete " + Text(today), [&] {
    return quotes.QueryMaxItemDelete(of_today, today);
  });
  // The client composes the number: yyyymmdd and two digits, 01 for the
  // first of the day.
  const auto parts = today.ToParts();
  const double first = (parts.year * 10000.0 + parts.month * 100 + parts.day) * 100 + 1;
  const double number = of_today.QuotNo == 0 ? first : of_today.QuotNo + 1;
  const std::int16_t istatus = of_today.QuotNo == 0 ? 0 : 1;
  std::cout << "     the client takes number " << Text(number) << "\n";

  clsEntBPriceh header;
  header.QuotNo = number;
  header.Attn = "Mr. Li";
  header.Custno = "C001";
  header.CustName = "Acme";
  header.CurrencyID = "USD";
  header.Delivery = "FOB Ningbo";
  header.PayDay = 30;
  header.PayMode = "T/T";
  header.QuotDate = today;
  header.Tabler = "wang";
  header.TablerTime = today;
  header.SalerID = "S01";
  header.DueDate = Date::FromParts(parts.year, parts.month + 1, parts.day);
  header.TaxDate = today;
  Call("AddRecord", [&] { return quotes.AddRecord(header, "t_bpriceh", istatus); });
  Call("AddRecord of the same number (0, no message)", [&] {
    return quotes.AddRecord(header, "t_bpriceh", istatus);
  });

  clsDataBPricei lines;
  clsEntBPricei line;
  line.QuotNo = number;
  line.No = "1";
  line.ItemNo = "GEAR-40";
  line.CitemNO = "A-40";
  line.ItemName = "Gear 40";
  line.Currency = "USD";
  line.Price = 12;
  line.OrdQty = 100;
  line.Rate = 7.1;
  line.FcTotal = 1200;
  line.LcTotal = 8520;
  line.DeliverDate = header.DueDate;
  Call("AddRecord line GEAR-40", [&] { return lines.AddRecord(line); });
  Call("AddRecord line GEAR-40 again (0, no message)", [&] { return lines.AddRecord(line); });
  line.No = "2";
  line.ItemNo = "SHAFT-12";
  line.CitemNO = "A-12";
  line.ItemName = "Shaft 12";
  line.Price = 40;
  line.OrdQty = 25;
  line.FcTotal = 1000;
  line.LcTotal = 7100;
  Call("AddRecord line SHAFT-12", [&] { return lines.AddRecord(line); });
  line.OrdQty = 30;
  line.FcTotal = 1200;
  line.LcTotal = 8520;
  Call("UpdateRecord line SHAFT-12 (quantity 30)", [&] {
    return lines.UpdateRecord(line, number, "SHAFT-12");
  });
  header.TotalBefore = 2400;
  header.Total = 2400;
  header.UpdataUser = "wang";
  Call("UpdateRecord of the header's totals", [&] {
    return quotes.UpdateRecord(header, Text(number));
  });
  std::shared_ptr<clsEntBPricei> current;
  Call("QueryBPricei", [&] {
    Collection<clsEntBPricei> all;
    const auto r = lines.QueryBPricei(current, number, &all);
    for (const auto& i : all) PrintLine(*i);
    return r;
  });
  if (current) std::cout << "     the entity variable now holds line " << current->No << "\n";

  Section("Signatures and flag");
  Call("UpdateChecke by wang", [&] { return quotes.UpdateChecke("wang", number); });
  Call("UpdateApprove by li", [&] { return quotes.UpdateApprove("li", number); });
  Call("UpdateFlags", [&] { return quotes.UpdateFlags(number); });
  clsEntBPriceh reread;
  reread.QuotNo = number;
  Call("GetItemByID", [&] { return quotes.GetItemByID(reread); });
  PrintHeader(reread);

  Section("Currencies");
  clsEntSCurrency currency;
  Call("QueryCurrencyName USD", [&] { return quotes.QueryCurrencyName(currency, "USD"); });
  std::cout << "     USD is '" << currency.CurrencyName << "'\n";
  Call("QueryCurrencyID 人民币", [&] { return quotes.QueryCurrencyID(currency, "人民币"); });
  std::cout << "     人民币 is '" << currency.CurrencyID << "'\n";
  clsEntSCurrency unknown;
  Call("QueryCurrencyName GBP (0)", [&] { return quotes.QueryCurrencyName(unknown, "GBP"); });

  Section("Customers under data rights");
  for (const std::string user : {"lin", "wang"}) {
    Call("QueryAllCustNo for user " + user, [&] {
      Collection<clsEntBPriceh> customers;
      const auto r = quotes.QueryAllCustNo(&customers, user);
      for (const auto& c : customers) std::cout << "     customer " << c->Custno << "\n";
      return r;
    });
  }
  Call("QueryAlldetaile C001 (no rights applied)", [&] {
    Collection<clsEntBPriceh> all;
    const auto r = quotes.QueryAlldetaile(&all, "C001");
    for (const auto& h : all) PrintHeader(*h);
    return r;
  });

  Section("Price history");
  Call("QueryPrice C001 GEAR-40 (approved quotations only)", [&] {
    Collection<clsEntBPriceh> history;
    const auto r = quotes.QueryPrice(&history, "C001", "GEAR-40");
    // The item comes back in Approve, the price in Checker.
    for (const auto& p : history) {
      std::cout << "     quotation " << Text(p->QuotNo) << " " << p->Approve << " at "
                << p->Checker << " " << p->CurrencyID << "\n";
    }
    return r;
  });
  Call("clsDataBPricei.QueryPrice GEAR-40 (every price ever quoted)", [&] {
    Collection<clsEntBPricei> prices;
    const auto r = lines.QueryPrice(&prices, "GEAR-40");
    for (const auto& p : prices) std::cout << "     price " << Text(p->Price) << "\n";
    return r;
  });

  Section("A quotation withdrawn");
  clsEntBPriceh second = header;
  second.QuotNo = number + 1;
  Call("AddRecord " + Text(second.QuotNo), [&] { return quotes.AddRecord(second, "", 1); });
  clsEntBPricei second_line;
  second_line.QuotNo = second.QuotNo;
  second_line.ItemNo = "GEAR-40";
  second_line.Price = 11.8;
  Call("AddRecord its line", [&] { return lines.AddRecord(second_line); });
  Call("DeleteRecord of the line", [&] { return lines.DeleteRecord(second_line, second.QuotNo); });
  // The day's row of t_sitemno follows the largest number left, if there is
  // such a row: a quotation's add never writes one.
  Call("DeleteRecord DeleteStatus 1", [&] { return quotes.DeleteRecord(second, 1, "t_bpriceh"); });
  Call("UpdateRecord of a missing number (reports, 0)", [&] {
    return quotes.UpdateRecord(second, Text(second.QuotNo));
  });
}

}  // namespace demo
