// One method of each of the seventeen classes called three ways against the
// sandbox server: through the C++ interface, late-bound (GetIDsOfNames and
// Invoke) and early-bound (the method's slot of the dual interface). The
// three send the same statements, give the same result and fill the same
// entities and collections.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "corvane/corvane.h"
#include "tests/component/component.h"
#include "tests/support/sandbox.h"

namespace corvane::testing {
namespace {

using Strings = std::vector<std::string>;

class ComponentCalls : public SandboxTest {
 protected:
  // What a run sent and showed, taken after it.
  struct Seen {
    Strings commands;
    std::vector<Report> reports;
  };
  Seen Take() {
    Seen seen{Commands(), Reports()};
    Clear();
    return seen;
  }
  static void Same(const Seen& a, const Seen& b) {
    EXPECT_EQ(a.commands, b.commands);
    EXPECT_EQ(a.reports, b.reports);
  }
};

// The slot of the n-th method (from 0) of the default interface.
constexpr int SlotOf(int n) { return 7 + n; }

TEST_F(ComponentCalls, OrderTypeQueryAllFillsTheCallersCollection) {
  db().Exec("insert into t_bordertype values ('export'),('domestic')");
  clsDataBOrderType repo;
  Collection<clsEntBOrderType> items;
  EXPECT_EQ(repo.QueryAll(&items), 0);
  const Seen cpp = Take();
  EXPECT_EQ(cpp.commands, Strings{"Select * From T_BOrderType "});
  ASSERT_EQ(items.Count(), 2u);

  Ref<IDispatch> object = Create(CLSID_clsDataBOrderType);
  Ref<IDispatch> late = NewCollection();
  Var result;
  ASSERT_EQ(Late(object.get(), "QueryAll", {Dispatch(late.get())}, &result), S_OK);
  EXPECT_EQ(result.v.vt, VT_I2);
  EXPECT_EQ(result.v.iVal, 0);
  Same(Take(), cpp);
  ASSERT_EQ(Count(late.get()), 2);
  for (int i = 1; i <= 2; ++i) {
    EXPECT_EQ(Get(Item(late.get(), i).get(), "OrderType").CStr(), items.Item(i).OrderType);
  }

  Ref<IDispatch> early = NewCollection();
  IDispatch* coll = early.get();
  std::int16_t r = -1;
  auto fn = Slot<HRESULT (*)(IDispatch*, IDispatch**, std::int16_t*)>(object.get(), SlotOf(0));
  ASSERT_EQ(fn(object.get(), &coll, &r), S_OK);
  EXPECT_EQ(r, 0);
  EXPECT_EQ(coll, early.get());
  Same(Take(), cpp);
  ASSERT_EQ(Count(early.get()), 2);
  EXPECT_EQ(Get(Item(early.get(), 2).get(), "OrderType").CStr(), items.Item(2).OrderType);
}

TEST_F(ComponentCalls, OrderHeaderUpdateApproveTakesTextAndNumberByReference) {
  db().Exec("insert into t_borderh (F_OrderNo) values (20240315007)");
  clsDataBOrderh repo;
  EXPECT_EQ(repo.UpdateApprove("boss", 20240315007), 1);
  const Seen cpp = Take();
  EXPECT_EQ(cpp.commands,
            Strings{"update T_BOrderh set F_Approve='boss',F_ApproveTime=Now() where "
                    "F_OrderNo=20240315007"});

  Ref<IDispatch> object = Create(CLSID_clsDataBOrderh);
  BSTR who = automation::ToBstr("boss");
  double no = 20240315007;
  Var result;
  ASSERT_EQ(Late(object.get(), "updateapprove", {ByRef(VT_BSTR, &who), ByRef(VT_R8, &no)},
                 &result),
            S_OK);
  EXPECT_EQ(result.v.vt, VT_I2);
  EXPECT_EQ(result.v.iVal, 1);
  Same(Take(), cpp);
  // Passed by value, as a late-bound caller may.
  Var result2;
  VARIANT text = Bstr("boss");
  ASSERT_EQ(Late(object.get(), "UpdateApprove", {text, R8(20240315007)}, &result2), S_OK);
  VariantClear(&text);
  EXPECT_EQ(result2.v.iVal, 1);
  Same(Take(), cpp);

  std::int16_t r = -1;
  auto fn = Slot<HRESULT (*)(IDispatch*, BSTR*, double*, std::int16_t*)>(object.get(), SlotOf(2));
  ASSERT_EQ(fn(object.get(), &who, &no, &r), S_OK);
  EXPECT_EQ(r, 1);
  Same(Take(), cpp);
  EXPECT_EQ(Text(who), "boss");  // only read
  SysFreeString(who);
}

TEST_F(ComponentCalls, OrderLinesUpdateFCorLC) {
  clsDataBOrderi repo;
  double no = 20240315001;
  const std::int16_t expected = repo.UpdateFCorLC(no);
  const Seen cpp = Take();
  EXPECT_EQ(expected, 1);
  EXPECT_EQ(cpp.commands.size(), 4u);

  Ref<IDispatch> object = Create(CLSID_clsDataBOrderi);
  Var result;
  ASSERT_EQ(Late(object.get(), "UpdateFCorLC", {ByRef(VT_R8, &no)}, &result), S_OK);
  EXPECT_EQ(result.v.iVal, expected);
  Same(Take(), cpp);

  std::int16_t r = -1;
  auto fn = Slot<HRESULT (*)(IDispatch*, double*, std::int16_t*)>(object.get(), SlotOf(13));
  ASSERT_EQ(fn(object.get(), &no, &r), S_OK);
  EXPECT_EQ(r, expected);
  Same(Take(), cpp);
}

TEST_F(ComponentCalls, OrderChangeQueryNewQtyGivesADouble) {
  db().Exec("insert into t_borderi (F_OrderNo, F_ProdNo, F_OutQty) values (1, 20261122001, 7.5)");
  clsDataBOrdChange repo;
  EXPECT_EQ(repo.QueryNewQty(20261122001), 7.5);
  const Seen cpp = Take();
  ASSERT_EQ(cpp.commands.size(), 1u);

  Ref<IDispatch> object = Create(CLSID_clsDataBOrdChange);
  Var result;
  ASSERT_EQ(Late(object.get(), "QueryNewQty", {R8(20261122001)}, &result), S_OK);
  EXPECT_EQ(result.v.vt, VT_R8);
  EXPECT_EQ(result.v.dblVal, 7.5);
  Same(Take(), cpp);

  double prod = 20261122001, r = 0;
  auto fn = Slot<HRESULT (*)(IDispatch*, double*, double*)>(object.get(), SlotOf(1));
  ASSERT_EQ(fn(object.get(), &prod, &r), S_OK);
  EXPECT_EQ(r, 7.5);
  Same(Take(), cpp);
}

TEST_F(ComponentCalls, QuotationHeaderQueryCurrencyNameFillsTheCallersEntity) {
  db().Exec("insert into t_scurrency values ('USD','US dollar'),('EUR','Euro')");
  clsDataBPriceh repo;
  clsEntSCurrency currency;
  EXPECT_EQ(repo.QueryCurrencyName(currency, "EUR"), 1);
  EXPECT_EQ(currency.CurrencyName, "Euro");
  const Seen cpp = Take();
  EXPECT_EQ(cpp.commands, Strings{"select * from t_scurrency where F_CurrencyID='EUR'"});

  Ref<IDispatch> object = Create(CLSID_clsDataBPriceh);
  Ref<IDispatch> late = Entity("clsEntSCurrency");
  Var result;
  VARIANT id = Bstr("EUR");
  ASSERT_EQ(Late(object.get(), "QueryCurrencyName", {Dispatch(late.get()), id}, &result), S_OK);
  VariantClear(&id);
  EXPECT_EQ(result.v.iVal, 1);
  Same(Take(), cpp);
  EXPECT_EQ(Get(late.get(), "CurrencyName").CStr(), "Euro");

  Ref<IDispatch> early = Entity("clsEntSCurrency");
  IDispatch* e = early.get();
  BSTR eur = automation::ToBstr("EUR");
  std::int16_t r = -1;
  auto fn =
      Slot<HRESULT (*)(IDispatch*, IDispatch**, BSTR, std::int16_t*)>(object.get(), SlotOf(2));
  ASSERT_EQ(fn(object.get(), &e, eur, &r), S_OK);
  SysFreeString(eur);
  EXPECT_EQ(r, 1);
  Same(Take(), cpp);
  EXPECT_EQ(Get(early.get(), "CurrencyName").CStr(), "Euro");
}

TEST_F(ComponentCalls, QuotationLinesQueryPrice) {
  db().Exec("insert into t_bpricei (F_QuotNo, F_ItemNo, F_Price) values (1,'IT',2.5),(2,'IT',3.5)");
  clsDataBPricei repo;
  Collection<clsEntBPricei> prices;
  const std::int16_t expected = repo.QueryPrice(&prices, "IT");
  const Seen cpp = Take();
  EXPECT_EQ(expected, 1);
  ASSERT_EQ(prices.Count(), 2u);

  Ref<IDispatch> object = Create(CLSID_clsDataBPricei);
  Ref<IDispatch> late = NewCollection();
  BSTR item = automation::ToBstr("IT");
  Var result;
  ASSERT_EQ(Late(object.get(), "QueryPrice", {Dispatch(late.get()), ByRef(VT_BSTR, &item)},
                 &result),
            S_OK);
  EXPECT_EQ(result.v.iVal, 1);
  Same(Take(), cpp);
  ASSERT_EQ(Count(late.get()), 2);
  EXPECT_EQ(Get(Item(late.get(), 1).get(), "Price").CDbl(), prices.Item(1).Price);
  EXPECT_EQ(Get(Item(late.get(), 2).get(), "Price").CDbl(), prices.Item(2).Price);

  Ref<IDispatch> early = NewCollection();
  IDispatch* coll = early.get();
  std::int16_t r = -1;
  auto fn =
      Slot<HRESULT (*)(IDispatch*, IDispatch**, BSTR*, std::int16_t*)>(object.get(), SlotOf(0));
  ASSERT_EQ(fn(object.get(), &coll, &item, &r), S_OK);
  SysFreeString(item);
  EXPECT_EQ(r, 1);
  Same(Take(), cpp);
  EXPECT_EQ(Count(early.get()), 2);
}

TEST_F(ComponentCalls, QuotationAttachGetAttachWithoutItsDatabase) {
  // No my.ini beside the application: the class reports, as it does in C++,
  // and the method gives an empty text.
  SetApplicationPath(std::string(CORVANE_BINARY_DIR) + "/no-such-folder/app");
  std::string expected;
  {
    clsDataBPriceAttach repo;
    expected = repo.GetAttach("IT", 5);
  }
  const Seen cpp = Take();
  EXPECT_EQ(expected, "");

  {
    Ref<IDispatch> object = Create(CLSID_clsDataBPriceAttach);
    Var result;
    VARIANT item = Bstr("IT");
    ASSERT_EQ(Late(object.get(), "GetAttach", {item, R8(5)}, &result), S_OK);
    VariantClear(&item);
    EXPECT_EQ(result.v.vt, VT_BSTR);
    EXPECT_EQ(Text(result.v.bstrVal), expected);
  }
  Same(Take(), cpp);

  {
    Ref<IDispatch> object = Create(CLSID_clsDataBPriceAttach);
    BSTR item = automation::ToBstr("IT");
    BSTR r = nullptr;
    auto fn = Slot<HRESULT (*)(IDispatch*, BSTR, double, BSTR*)>(object.get(), SlotOf(1));
    ASSERT_EQ(fn(object.get(), item, 5, &r), S_OK);
    SysFreeString(item);
    EXPECT_EQ(Text(r), expected);
    SysFreeString(r);
  }
  Same(Take(), cpp);
  SetApplicationPath("");
}

TEST_F(ComponentCalls, OutsourceHeaderChkNoByProviderNameTakesItsArgumentsByValue) {
  db().Exec("insert into t_cprovider (F_ProviderNo, F_Name) values ('P1','Acme')");
  db().Exec("insert into t_boutmakeh (F_OrderOutNo, F_ProviderNo) values (20240315001,'P1')");
  clsDataBOutMakeh repo;
  EXPECT_EQ(repo.ChkNoByProviderName(20240315001, "Acme"), 1);
  const Seen cpp = Take();
  ASSERT_EQ(cpp.commands.size(), 1u);

  Ref<IDispatch> object = Create(CLSID_clsDataBOutMakeh);
  Var result;
  VARIANT name = Bstr("Acme");
  ASSERT_EQ(Late(object.get(), "ChkNoByProviderName", {R8(20240315001), name}, &result), S_OK);
  EXPECT_EQ(result.v.iVal, 1);
  Same(Take(), cpp);
  // The number as text converts as the host runtime converts it.
  VARIANT number = Bstr("20240315001");
  Var result2;
  ASSERT_EQ(Late(object.get(), "ChkNoByProviderName", {number, name}, &result2), S_OK);
  EXPECT_EQ(result2.v.iVal, 1);
  Same(Take(), cpp);
  VariantClear(&number);
  VariantClear(&name);

  BSTR acme = automation::ToBstr("Acme");
  std::int16_t r = -1;
  auto fn = Slot<HRESULT (*)(IDispatch*, double, BSTR, std::int16_t*)>(object.get(), SlotOf(0));
  ASSERT_EQ(fn(object.get(), 20240315001, acme, &r), S_OK);
  SysFreeString(acme);
  EXPECT_EQ(r, 1);
  Same(Take(), cpp);
}

TEST_F(ComponentCalls, OutsourceLinesDeleteRecordTakesAnEntityByValue) {
  clsDataBOutMakei repo;
  clsEntBOutMakei line;
  line.ProdNo = 77;
  EXPECT_EQ(repo.DeleteRecord(20240315001, line), 1);
  const Seen cpp = Take();
  ASSERT_EQ(cpp.commands.size(), 1u);

  Ref<IDispatch> object = Create(CLSID_clsDataBOutMakei);
  Ref<IDispatch> entity = Entity("clsEntBOutMakei");
  Put(entity.get(), "ProdNo", R8(77));
  Var result;
  ASSERT_EQ(Late(object.get(), "DeleteRecord", {R8(20240315001), Dispatch(entity.get())}, &result),
            S_OK);
  EXPECT_EQ(result.v.iVal, 1);
  Same(Take(), cpp);

  IDispatch* e = entity.get();
  std::int16_t r = -1;
  auto fn =
      Slot<HRESULT (*)(IDispatch*, double, IDispatch**, std::int16_t*)>(object.get(), SlotOf(4));
  ASSERT_EQ(fn(object.get(), 20240315001, &e, &r), S_OK);
  EXPECT_EQ(r, 1);
  Same(Take(), cpp);
}

TEST_F(ComponentCalls, CostHeaderQueryMaxEstNoWritesItsByReferenceNumberBack) {
  db().Exec("insert into t_bcosth (F_EstNo,F_EstDate) values (20240315001,'2024-03-15'),"
            "(20240315003,'2024-03-15'),(20240316001,'2024-03-16')");
  clsDataBCosth repo;
  double max = -1;
  EXPECT_EQ(repo.QueryMaxEstNo(Date::FromParts(2024, 3, 15), max), 1);
  EXPECT_EQ(max, 20240315003);
  const Seen cpp = Take();
  EXPECT_EQ(cpp.commands,
            Strings{"select max(F_EstNo) as dd from T_BCosth where F_EstDate = '2024-03-15'"});

  Ref<IDispatch> object = Create(CLSID_clsDataBCosth);
  DATE day = Date::FromParts(2024, 3, 15).Serial();
  double late = -1;
  Var result;
  ASSERT_EQ(Late(object.get(), "QueryMaxEstNo", {ByRef(VT_DATE, &day), ByRef(VT_R8, &late)},
                 &result),
            S_OK);
  EXPECT_EQ(result.v.iVal, 1);
  EXPECT_EQ(late, 20240315003);  // written back
  Same(Take(), cpp);
  // Through a VARIANT by reference, the VARIANT takes the number.
  Var holder;
  holder.v.vt = VT_I4;
  holder.v.lVal = 5;
  Var result2;
  ASSERT_EQ(Late(object.get(), "QueryMaxEstNo", {ByRef(VT_DATE, &day), ByRef(VT_VARIANT, &holder)},
                 &result2),
            S_OK);
  EXPECT_EQ(holder.v.vt, VT_R8);
  EXPECT_EQ(holder.v.dblVal, 20240315003);
  Same(Take(), cpp);
  // By value, the caller's value stays as it was.
  Var result3;
  ASSERT_EQ(Late(object.get(), "QueryMaxEstNo", {ByRef(VT_DATE, &day), R8(-1)}, &result3), S_OK);
  EXPECT_EQ(result3.v.iVal, 1);
  Same(Take(), cpp);

  double early = -1;
  std::int16_t r = -1;
  auto fn = Slot<HRESULT (*)(IDispatch*, DATE*, double*, std::int16_t*)>(object.get(), SlotOf(4));
  ASSERT_EQ(fn(object.get(), &day, &early, &r), S_OK);
  EXPECT_EQ(r, 1);
  EXPECT_EQ(early, 20240315003);
  Same(Take(), cpp);
}

TEST_F(ComponentCalls, CostPartsQueryAll) {
  clsDataBCosti repo;
  Collection<clsEntBCosti> parts;
  double no = 20240315001;
  const std::int16_t expected = repo.QueryAll(&parts, no);
  const Seen cpp = Take();
  ASSERT_EQ(cpp.commands.size(), 1u);

  Ref<IDispatch> object = Create(CLSID_clsDataBCosti);
  Ref<IDispatch> late = NewCollection();
  Var result;
  ASSERT_EQ(Late(object.get(), "QueryAll", {Dispatch(late.get()), ByRef(VT_R8, &no)}, &result),
            S_OK);
  EXPECT_EQ(result.v.iVal, expected);
  Same(Take(), cpp);

  IDispatch* coll = late.get();
  std::int16_t r = -1;
  auto fn =
      Slot<HRESULT (*)(IDispatch*, IDispatch**, double*, std::int16_t*)>(object.get(), SlotOf(3));
  ASSERT_EQ(fn(object.get(), &coll, &no, &r), S_OK);
  EXPECT_EQ(r, expected);
  Same(Take(), cpp);
  EXPECT_EQ(Count(late.get()), 0);
}

TEST_F(ComponentCalls, CostWagesQueryByEstNoWage) {
  db().Exec("insert into t_bcosts (F_EstNo, F_WageItem, F_Wage) values (20240315001,'cut',4.25)");
  clsDataBCosts repo;
  clsEntBCosts wage;
  wage.EstNo = 20240315001;
  wage.WageItem = "cut";
  const std::int16_t expected = repo.QueryByEstNoWage(wage);
  const Seen cpp = Take();
  ASSERT_EQ(cpp.commands.size(), 1u);

  Ref<IDispatch> object = Create(CLSID_clsDataBCosts);
  Ref<IDispatch> entity = Entity("clsEntBCosts");
  Put(entity.get(), "EstNo", R8(20240315001));
  VARIANT item = Bstr("cut");
  Put(entity.get(), "WageItem", item);
  VariantClear(&item);
  Var result;
  ASSERT_EQ(Late(object.get(), "QueryByEstNoWage", {Dispatch(entity.get())}, &result), S_OK);
  EXPECT_EQ(result.v.iVal, expected);
  EXPECT_EQ(Get(entity.get(), "Wage").CDbl(), wage.Wage);
  Same(Take(), cpp);

  IDispatch* e = entity.get();
  std::int16_t r = -1;
  auto fn = Slot<HRESULT (*)(IDispatch*, IDispatch**, std::int16_t*)>(object.get(), SlotOf(3));
  ASSERT_EQ(fn(object.get(), &e, &r), S_OK);
  EXPECT_EQ(r, expected);
  Same(Take(), cpp);
}

TEST_F(ComponentCalls, WageSortAddRecordStoresTheCallersEntity) {
  clsDataBWageSort repo;
  clsEntBWageSort sort;
  sort.ID = "G1";
  sort.WageItem = "cut";
  sort.Wage = 2.5;
  EXPECT_EQ(repo.AddRecord(sort), 1);
  const Seen cpp = Take();
  const auto rows = db().Rows("select F_ID, F_WageItem, F_Wage from t_bwagesort");
  EXPECT_EQ(rows.size(), 1u);

  Ref<IDispatch> object = Create(CLSID_clsDataBWageSort);
  Ref<IDispatch> entity = Entity("clsEntBWageSort");
  VARIANT id = Bstr("G1"), item = Bstr("cut");
  Put(entity.get(), "ID", id);
  Put(entity.get(), "WageItem", item);
  Put(entity.get(), "Wage", R8(2.5));
  VariantClear(&id);
  VariantClear(&item);
  db().Exec("delete from t_bwagesort");
  Clear();
  Var result;
  ASSERT_EQ(Late(object.get(), "AddRecord", {Dispatch(entity.get())}, &result), S_OK);
  EXPECT_EQ(result.v.iVal, 1);
  Same(Take(), cpp);
  EXPECT_EQ(db().Rows("select F_ID, F_WageItem, F_Wage from t_bwagesort"), rows);

  db().Exec("delete from t_bwagesort");
  Clear();
  IDispatch* e = entity.get();
  std::int16_t r = -1;
  auto fn = Slot<HRESULT (*)(IDispatch*, IDispatch**, std::int16_t*)>(object.get(), SlotOf(1));
  ASSERT_EQ(fn(object.get(), &e, &r), S_OK);
  EXPECT_EQ(r, 1);
  Same(Take(), cpp);
  EXPECT_EQ(db().Rows("select F_ID, F_WageItem, F_Wage from t_bwagesort"), rows);
}

TEST_F(ComponentCalls, CustomerQueryBCustNoGivesABoolean) {
  db().Exec("insert into t_bcustom (F_custno) values ('C001')");
  clsDataBCustom repo;
  clsEntBCustom customer;
  customer.custno = "C001";
  EXPECT_TRUE(repo.QueryBCustNo(customer));
  const Seen cpp = Take();
  ASSERT_EQ(cpp.commands.size(), 1u);

  Ref<IDispatch> object = Create(CLSID_clsDataBCustom);
  Ref<IDispatch> entity = Entity("clsEntBCustom");
  VARIANT no = Bstr("C001");
  Put(entity.get(), "custno", no);
  VariantClear(&no);
  Var result;
  ASSERT_EQ(Late(object.get(), "QueryBCustNo", {Dispatch(entity.get())}, &result), S_OK);
  EXPECT_EQ(result.v.vt, VT_BOOL);
  EXPECT_EQ(result.v.boolVal, VARIANT_TRUE);
  Same(Take(), cpp);

  IDispatch* e = entity.get();
  VARIANT_BOOL r = 0;
  auto fn = Slot<HRESULT (*)(IDispatch*, IDispatch**, VARIANT_BOOL*)>(object.get(), SlotOf(6));
  ASSERT_EQ(fn(object.get(), &e, &r), S_OK);
  EXPECT_EQ(r, VARIANT_TRUE);
  Same(Take(), cpp);
}

TEST_F(ComponentCalls, SalesPeopleQueryAllGivesAVariant) {
  db().Exec("insert into t_bsaler values ('S01','Wang Wei','M.','Wang'),('S02','Li','','Na')");
  clsDataBSaler repo;
  Collection<clsEntBSaler> people;
  const corvane::Variant expected = repo.QueryAll(&people);
  const Seen cpp = Take();
  ASSERT_EQ(people.Count(), 2u);

  Ref<IDispatch> object = Create(CLSID_clsDataBSaler);
  Ref<IDispatch> late = NewCollection();
  Var result;
  ASSERT_EQ(Late(object.get(), "QueryAll", {Dispatch(late.get())}, &result), S_OK);
  corvane::Variant got;
  ASSERT_EQ(automation::FromVariant(result.v, &got), S_OK);
  EXPECT_EQ(got, expected);
  Same(Take(), cpp);
  ASSERT_EQ(Count(late.get()), 2);
  EXPECT_EQ(Get(Item(late.get(), 1).get(), "SalerId").CStr(), people.Item(1).SalerId);

  Ref<IDispatch> early = NewCollection();
  IDispatch* coll = early.get();
  Var r;
  auto fn = Slot<HRESULT (*)(IDispatch*, IDispatch**, VARIANT*)>(object.get(), SlotOf(1));
  ASSERT_EQ(fn(object.get(), &coll, &r.v), S_OK);
  ASSERT_EQ(automation::FromVariant(r.v, &got), S_OK);
  EXPECT_EQ(got, expected);
  Same(Take(), cpp);
  EXPECT_EQ(Count(early.get()), 2);
}

TEST_F(ComponentCalls, CustomerStudyQueryDateGivesADate) {
  clsDataBCStudy repo;
  const Date expected = repo.QueryDate();
  const Seen cpp = Take();
  EXPECT_EQ(cpp.commands, Strings{"select curdate() as f_date"});
  EXPECT_NE(expected.Serial(), 0);

  Ref<IDispatch> object = Create(CLSID_clsDataBCStudy);
  Var result;
  ASSERT_EQ(Late(object.get(), "QueryDate", {}, &result), S_OK);
  EXPECT_EQ(result.v.vt, VT_DATE);
  EXPECT_EQ(result.v.date, expected.Serial());
  Same(Take(), cpp);

  DATE r = 0;
  auto fn = Slot<HRESULT (*)(IDispatch*, DATE*)>(object.get(), SlotOf(9));
  ASSERT_EQ(fn(object.get(), &r), S_OK);
  EXPECT_EQ(r, expected.Serial());
  Same(Take(), cpp);
}

TEST_F(ComponentCalls, SampleQueryEGoodsType) {
  db().Exec("insert into t_egoodstype values ('wood', '1'), ('metal', '2')");
  clsDataBSample repo;
  Collection<clsEntEGoodsType> types;
  const corvane::Variant expected = repo.QueryEGoodsType(&types);
  const Seen cpp = Take();
  ASSERT_EQ(types.Count(), 2u);

  Ref<IDispatch> object = Create(CLSID_clsDataBSample);
  Ref<IDispatch> late = NewCollection();
  Var result;
  ASSERT_EQ(Late(object.get(), "QueryEGoodsType", {Dispatch(late.get())}, &result), S_OK);
  corvane::Variant got;
  ASSERT_EQ(automation::FromVariant(result.v, &got), S_OK);
  EXPECT_EQ(got, expected);
  Same(Take(), cpp);
  EXPECT_EQ(Count(late.get()), 2);

  Ref<IDispatch> early = NewCollection();
  IDispatch* coll = early.get();
  Var r;
  auto fn = Slot<HRESULT (*)(IDispatch*, IDispatch**, VARIANT*)>(object.get(), SlotOf(2));
  ASSERT_EQ(fn(object.get(), &coll, &r.v), S_OK);
  ASSERT_EQ(automation::FromVariant(r.v, &got), S_OK);
  EXPECT_EQ(got, expected);
  Same(Take(), cpp);
  EXPECT_EQ(Count(early.get()), 2);
}

// examples/late_bound.c, a C program, makes the same call late-bound.
TEST_F(ComponentCalls, TheCExampleCallsQueryAllLateBound) {
  const std::string program = std::string(CORVANE_BINARY_DIR) + "/examples/corvane_late_bound";
  if (!std::filesystem::exists(program)) GTEST_SKIP() << "examples not built";
  db().Exec("insert into t_bordertype values ('export'),('domestic'),('样品')");
  clsDataBOrderType repo;
  Collection<clsEntBOrderType> items;
  ASSERT_EQ(repo.QueryAll(&items), 0);
  std::string expected = "QueryAll gave 0\n3 order type(s)\n";
  for (std::size_t i = 1; i <= items.Count(); ++i) {
    expected += std::to_string(i) + ": " + items.Item(i).OrderType + "\n";
  }
  expected += "DllCanUnloadNow: S_OK\n";
  const std::string command = "CORVANE_CONNECT='" +
                              ServerAddress::FromEnvironment().ConnectionText(database()) + "' " +
                              program + " " + ModulePath();
  FILE* pipe = popen(command.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::string output;
  char buffer[256];
  std::size_t n;
  while ((n = std::fread(buffer, 1, sizeof buffer, pipe)) > 0) output.append(buffer, n);
  EXPECT_EQ(pclose(pipe), 0);
  EXPECT_EQ(output, expected);
}

}  // namespace
}  // namespace corvane::testing
