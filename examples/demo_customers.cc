// The road of the customer records: a customer read whole, its area as
// display texts, the listings as a restricted and an unrestricted user see
// them, a customer added, changed and deleted, and the sales people with the
// display form of a name.
#include <iostream>
#include <string>

#include "examples/demo.h"

namespace demo {
namespace {

using namespace corvane;

void PrintCustomers(const Collection<clsEntBCustom>& list) {
  for (const auto& c : list) {
    std::cout << "     customer " << c->custno << " '" << c->CustName << "', contact '"
              << c->Linkman_1st << "'\n";
  }
}

}  // namespace

void Customers() {
  using namespace corvane;
  Section("A customer and its area");
  clsDataBCustom customers;
  clsEntBCustom acme;
  acme.custno = "C001";
  Call("queryBCustom C001", [&] { return customers.queryBCustom(acme); });
  std::cout << "     " << acme.custno << " '" << acme.CustFullName << "', sales person "
            << acme.SalerID << ", group " << acme.GroupCode << ", " << acme.CurrencyId
            << ", credit limit " << Text(acme.CreditLimit) << ", pays in " << acme.payday
            << " days, created " << Text(acme.CreateDate) << "\n";
  Call("QueryArea ' C001 ' (the number is trimmed)", [&] {
    Collection<clsEntBCustom> area;
    const auto r = customers.QueryArea(&area, " C001 ");
    for (const auto& a : area) {
      std::cout << "     " << a->custno << ": country " << a->countryid << ", province "
                << a->provinceid << ", city " << a->cityname << "\n";
    }
    return r;
  });
  Call("QueryBCustNo C001", [&] { return customers.QueryBCustNo(acme); });

  Section("Customers under data rights");
  Call("QueryAll for user ann (no rights rows: every customer)", [&] {
    Collection<clsEntBCustom> list;
    const auto r = customers.QueryAll(&list, "ann");
    PrintCustomers(list);
    return r;
  });
  Call("QueryAll for user lin (customer C001 only)", [&] {
    Collection<clsEntBCustom> list;
    const auto r = customers.QueryAll(&list, "lin");
    PrintCustomers(list);
    return r;
  });
  Call("QueryByStrSql \" where F_GroupCode='G2'\" for user ann", [&] {
    Collection<clsEntBCustom> list;
    const auto r = customers.QueryByStrSql(" where F_GroupCode='G2'", &list, "ann");
    PrintCustomers(list);
    return r;
  });
  Call("QueryByStrSql \" where F_GroupCode='G2'\" for user lin (the tail is not used)", [&] {
    Collection<clsEntBCustom> list;
    const auto r = customers.QueryByStrSql(" where F_GroupCode='G2'", &list, "lin");
    PrintCustomers(list);
    return r;
  });

  Section("A new customer");
  clsEntBCustom fresh;
  fresh.custno = "C003";
  fresh.countryid = "CN";
  fresh.provinceid = "ZJ";
  fresh.cityname = "Ningbo";
  fresh.CustName = "Haitian";
  fresh.SalerID = "S02";
  fresh.GroupCode = "G1";
  fresh.CreateDate = Date::FromParts(2026, 3, 2, 9, 15);
  fresh.EditDate = fresh.CreateDate;
  fresh.Status = 1;
  Call("AddRecord C003", [&] { return customers.AddRecord(fresh); });
  Call("AddRecord C003 again (refused)", [&] { return customers.AddRecord(fresh); });
  fresh.CustName = "Haitian Plastics";
  Call("UpdateRecord C003 (0 when done)", [&] { return customers.UpdateRecord(fresh, "C003"); });
  Call("QueryAllByGroupCode G1", [&] {
    Collection<clsEntBCustom> list;
    const auto r = customers.QueryAllByGroupCode(&list, "G1");
    PrintCustomers(list);
    return r;
  });
  Call("DeleteRecord C003 (always 0)", [&] { return customers.DeleteRecord(fresh); });

  Section("Sales people");
  clsDataBSaler salers;
  Call("QueryAll (the bare names)", [&] {
    Collection<clsEntBSaler> list;
    const auto r = salers.QueryAll(&list);
    for (const auto& s : list) std::cout << "     " << s->SalerId << " '" << s->Saler_1st << "'\n";
    return r;
  });
  Call("QuerySalerName " + acme.SalerID + " (the display form)", [&] {
    Collection<clsEntBSaler> list;
    const auto r = salers.QuerySalerName(&list, acme.SalerID);
    for (const auto& s : list) {
      std::cout << "     customer " << acme.custno << " is served by '" << s->Saler_1st << "'\n";
    }
    return r;
  });
  clsEntBSaler zhao;
  zhao.SalerId = "S03";
  zhao.Saler_1st = "Zhao Lei";
  Call("AddRecord S03", [&] { return salers.AddRecord(zhao); });
  zhao.SalerId = " S07 ";
  zhao.Saler_1st = " Zhao Lei ";
  Call("UpdateRecord S03 -> ' S07 ' (stored trimmed)", [&] {
    return salers.UpdateRecord(zhao, "S03");
  });
  zhao.SalerId = "S07";
  Call("QueryByID S07", [&] { return salers.QueryByID(zhao); });
  std::cout << "     " << zhao.SalerId << " '" << zhao.Saler_1st << "'\n";
  Call("DeleteRecord S07 (always 0)", [&] { return salers.DeleteRecord(zhao); });
}

}  // namespace demo
