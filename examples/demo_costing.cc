// The road of a cost estimate: the number of the day, the header, its parts,
// its wages taken from the wage sort of the goods type, the sums stored back,
// the lists of items and estimates under data rights, and the wage rates
// themselves.
#include <chrono>
#include <iostream>
#include <string>
#include <vector>

#include "examples/demo.h"

namespace demo {
namespace {

using namespace corvane;

void PrintEstimate(const clsEntBCosth& h) {
  std::cout << "     estimate " << Text(h.EstNo) << " of " << Text(h.EstDate) << ", item "
            << h.ItemNo << ", customer " << h.CustNo << ", by '" << h.Tabler << "', currency '"
            << h.CurrencyID << "', parts " << Text(h.PartCost) << ", wages " << Text(h.WageCost)
            << ", overhead " << Text(h.ManageCost) << ", total " << Text(h.TotCost)
            << ", quoted " << Text(h.QuotPrice_1) << ", sale " << Text(h.SalePrice_1) << "\n";
}

void PrintPart(const clsEntBCosti& p) {
  std::cout << "     part " << p.ItemNo << " of " << Text(p.EstNo) << ": dosage "
            << Text(p.Dosage) << " waste " << Text(p.Waste) << " price " << Text(p.Price) << " "
            << p.CurrencyID << " cost " << Text(p.CostPrice) << "\n";
}

void PrintWage(const clsEntBCosts& w) {
  std::cout << "     wage " << w.WageItem << " of " << Text(w.EstNo) << ": " << Text(w.Wage)
            << "\n";
}

// Today on the host's clock, at midnight.
Date Today() {
  const std::chrono::year_month_day ymd{
      std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now())};
  return Date::FromParts(static_cast<int>(ymd.year()), static_cast<int>(unsigned(ymd.month())),
                         static_cast<int>(unsigned(ymd.day())));
}

}  // namespace

void Costing() {
  using namespace corvane;
  Section("Wage sorts by goods type");
  clsDataBWageSort sorts;
  Collection<clsEntBWageSort> gearbox;
  Call("QueryByGoodType GEARBOX", [&] {
    const auto r = sorts.QueryByGoodType(&gearbox, "GEARBOX");
    for (const auto& s : gearbox) {
      std::cout << "     sort " << s->ID << ": " << s->WageItem << " " << Text(s->Wage) << "\n";
    }
    return r;
  });
  Call("QueryByGoodType SHAFT (a half goods type)", [&] {
    Collection<clsEntBWageSort> shaft;
    const auto r = sorts.QueryByGoodType(&shaft, "SHAFT");
    for (const auto& s : shaft) {
      std::cout << "     sort " << s->ID << ": " << s->WageItem << " " << Text(s->Wage) << "\n";
    }
    return r;
  });
  Call("QueryByGoodType SPRING (no such type)", [&] {
    Collection<clsEntBWageSort> none;
    return sorts.QueryByGoodType(&none, "SPRING");
  });
  clsEntBWageSort painting{"W-GEAR", "PAINTING", 4};
  Call("AddRecord W-GEAR PAINTING", [&] { return sorts.AddRecord(painting); });
  Call("AddRecord W-GEAR PAINTING again", [&] { return sorts.AddRecord(painting); });
  painting.Wage = 4.5;
  Call("DeleteRecord, then AddRecord at a new rate", [&] {
    sorts.DeleteRecord(painting);
    return sorts.AddRecord(painting);
  });
  clsEntBWageSort missing_sort{"W-NONE", "PAINTING", 0};
  Call("DeleteRecord of a missing item (rs stays open)", [&] {
    return sorts.DeleteRecord(missing_sort);
  });
  Call("AddRecord right after it (fails once)", [&] { return sorts.AddRecord(painting); });

  Section("A new cost estimate");
  clsDataBCosth costs;
  const Date today = Today();
  const auto busy = Call("QueryDate " + Text(today), [&] { return costs.QueryDate(today); });
  double max = 0;
  Call("QueryMaxEstNo " + Text(today), [&] { return costs.QueryMaxEstNo(today, max); });
  const auto p = today.ToParts();
  const double first = (p.year * 10000.0 + p.month * 100 + p.day) * 1000 + 1;
  const double number = busy == 1 ? max + 1 : first;
  std::cout << "     the client takes number " << Text(number) << "\n";

  clsEntBCosth estimate;
  estimate.EstNo = number;
  estimate.EstDate = today;
  estimate.ItemNo = "GEAR-40";
  estimate.CustNo = "C001";
  estimate.Remark = "gearbox gear, second offer";
  estimate.Tabler = "wang";
  estimate.TableTime = today;
  estimate.CurrencyID = "CNY";
  Call("AddRecord", [&] { return costs.AddRecord(estimate); });
  Call("AddRecord of the same number", [&] { return costs.AddRecord(estimate); });

  Section("Its parts");
  clsDataBCosti parts;
  clsEntBCosti steel{number, "STEEL-45", "CNY", 2, 0.1, 38, 79.8};
  clsEntBCosti oil{number, "OIL-7", "CNY", 0.05, 0, 60, 3};
  Call("AddRecord STEEL-45", [&] { return parts.AddRecord(steel); });
  Call("AddRecord OIL-7", [&] { return parts.AddRecord(oil); });
  Call("AddRecord STEEL-45 again", [&] { return parts.AddRecord(steel); });
  steel.Price = 36;
  steel.CostPrice = 75.6;
  Call("UpdateRecord STEEL-45 at a new price", [&] { return parts.UpdateRecord(steel); });
  clsEntBCosti one{number, "STEEL-45", "", 0, 0, 0, 0};
  Call("QueryByEstNo (one part by its key)", [&] {
    const auto r = parts.QueryByEstNo(one);
    PrintPart(one);
    return r;
  });
  Collection<clsEntBCosti> all_parts;
  Call("QueryAll (the parts of the estimate)", [&] {
    const auto r = parts.QueryAll(&all_parts, number);
    for (const auto& x : all_parts) PrintPart(*x);
    return r;
  });

  Section("Its wages, from the wage sort of the goods type");
  clsDataBCosts wages;
  for (const auto& s : gearbox) {
    clsEntBCosts w{number, s->WageItem, s->Wage};
    Call("AddRecord " + w.WageItem, [&] { return wages.AddRecord(w); });
  }
  clsEntBCosts hobbing{number, "HOBBING", 0};
  Call("QueryByEstNoWage HOBBING (one wage by its key)", [&] {
    const auto r = wages.QueryByEstNoWage(hobbing);
    PrintWage(hobbing);
    return r;
  });
  hobbing.Wage = 20;
  Call("UpdateRecord HOBBING", [&] { return wages.UpdateRecord(hobbing); });
  clsEntBCosts assembly{number, "ASSEMBLY", 0};
  Call("DeleteRecord ASSEMBLY", [&] { return wages.DeleteRecord(assembly); });
  Collection<clsEntBCosts> all_wages;
  Call("QueryByEstNo (the wages of the estimate)", [&] {
    const auto r = wages.QueryByEstNo(&all_wages, number);
    for (const auto& w : all_wages) PrintWage(*w);
    return r;
  });

  Section("The sums, computed by the client and stored");
  double part_cost = 0;
  for (const auto& x : all_parts) part_cost += x->CostPrice;
  double wage_cost = 0;
  for (const auto& w : all_wages) wage_cost += w->Wage;
  estimate.PartCost = part_cost;
  estimate.WageCost = wage_cost;
  estimate.ManageCost = (part_cost + wage_cost) / 10;
  estimate.TotCost = part_cost + wage_cost + estimate.ManageCost;
  estimate.QuotPrice_1 = 170;
  estimate.ProFit_1 = estimate.QuotPrice_1 - estimate.TotCost;
  estimate.TaxPrice = 192.1;
  estimate.SalePrice_1 = 190;
  Call("UpdateRecord", [&] { return costs.UpdateRecord(estimate); });
  clsEntBCosth read;
  read.EstNo = number;
  Call("QueryByEstNo", [&] {
    const auto r = costs.QueryByEstNo(read);
    PrintEstimate(read);
    return r;
  });
  Call("QueryMaxEstNo " + Text(today), [&] { return costs.QueryMaxEstNo(today, max); });
  std::cout << "     largest number of the day " << Text(max) << "\n";

  Section("Items and estimates under data rights");
  for (const std::string user : {"", "lin"}) {
    Call("QueryItemNo for '" + user + "'", [&] {
      std::vector<std::string> items;
      const auto r = costs.QueryItemNo(items, user);
      for (std::size_t i = 1; i < items.size(); ++i) {
        std::cout << "     [" << i << "] " << items[i] << "\n";
      }
      return r;
    });
    Call("QueryEstNoByItemNo GEAR-40 for '" + user + "'", [&] {
      std::vector<double> nos;
      const auto r = costs.QueryEstNoByItemNo(nos, "GEAR-40", user);
      for (std::size_t i = 1; i < nos.size(); ++i) {
        std::cout << "     [" << i << "] " << Text(nos[i]) << "\n";
      }
      return r;
    });
  }
  Call("GetBCostBySql (the customer's latest estimate)", [&] {
    clsEntBCosth latest;
    const auto r = costs.GetBCostBySql(
        latest, "select * from T_BCosth where F_CustNo = 'C001' order by F_EstNo desc");
    PrintEstimate(latest);
    return r;
  });
  Call("QueryAll (a null F_Tabler and F_CurrencyID read as '0')", [&] {
    Collection<clsEntBCosth> all;
    const auto r = costs.QueryAll(&all);
    for (const auto& h : all) PrintEstimate(*h);
    return r;
  });

  Section("Deleting");
  clsEntBCosth missing;
  missing.EstNo = number + 500;
  Call("DeleteRecord of a missing estimate (rs stays open)", [&] {
    return costs.DeleteRecord(missing);
  });
  Call("QueryByEstNo right after it (fails once)", [&] { return costs.QueryByEstNo(read); });
  Call("QueryByEstNo again", [&] { return costs.QueryByEstNo(read); });
  clsEntBCosth gone;
  gone.EstNo = 20260110001;
  Call("DeleteRecord 20260110001 (its details stay)", [&] { return costs.DeleteRecord(gone); });
  Call("clsDataBCosti.QueryAll of 20260110001", [&] {
    Collection<clsEntBCosti> left;
    const auto r = parts.QueryAll(&left, 20260110001);
    for (const auto& x : left) PrintPart(*x);
    return r;
  });
}

}  // namespace demo
