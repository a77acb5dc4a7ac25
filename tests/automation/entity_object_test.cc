// The library's entity objects: every property of every entity class put and
// got back through IDispatch, names without regard to case, conversions as
// the host runtime makes them, and the refusals.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "corvane/automation.h"
#include "corvane/automation/bridge.h"
#include "tests/automation/dispatch.h"

namespace corvane::testing {
namespace {

using automation::EntityInfo;
using automation::PropertyInfo;

std::u16string Wide(const char* ascii) { return std::u16string(ascii, ascii + std::strlen(ascii)); }

// A value of the property's type that differs from property to property.
Var ValueFor(const PropertyInfo& p, int k) {
  switch (p.type) {
    case VT_BSTR:
      return Var((std::string(p.name) + " " + std::to_string(k) + " 塔恩维克").c_str());
    case VT_R8:
      return Var(20261123000.0 + k + 0.25);
    case VT_DATE:
      return Var::DateOf(46349.0 + k + 0.5);
    case VT_I2:
      return Var::I2(static_cast<SHORT>(100 + k));
    case VT_I4:
      return Var::I4(70000 + k);
  }
  ADD_FAILURE() << p.name << " has type " << p.type;
  return Var();
}

bool SameValue(const VARIANT& a, const VARIANT& b) {
  if (a.vt != b.vt) return false;
  switch (a.vt) {
    case VT_BSTR:
      return automation::ToUtf8(a.bstrVal) == automation::ToUtf8(b.bstrVal);
    case VT_R8:
    case VT_DATE:
      return a.dblVal == b.dblVal;
    case VT_I2:
      return a.iVal == b.iVal;
    case VT_I4:
      return a.lVal == b.lVal;
  }
  return false;
}

TEST(EntityObjects, TheTableHasEveryEntityClass) {
  const auto entities = automation::Entities();
  ASSERT_EQ(entities.size(), 19u);
  EXPECT_STREQ(entities[0].name, "clsEntBOrderType");
  EXPECT_STREQ(entities[18].name, "clsEntBSample");
  const EntityInfo* order = automation::FindEntity("clsentborderh");
  ASSERT_NE(order, nullptr);
  EXPECT_STREQ(order->name, "clsEntBOrderh");
  EXPECT_EQ(order->properties.size(), 33u);
  EXPECT_STREQ(order->properties[0].name, "OrderNo");
  EXPECT_EQ(order->properties[0].type, VT_R8);
  EXPECT_STREQ(order->properties[1].name, "OrderDate");
  EXPECT_EQ(order->properties[1].type, VT_DATE);
  EXPECT_STREQ(order->properties[2].name, "SalerId");
  EXPECT_EQ(order->properties[2].type, VT_BSTR);
  EXPECT_STREQ(order->properties[7].name, "payday");
  EXPECT_EQ(order->properties[7].type, VT_I2);
  const EntityInfo* sample = automation::FindEntity("clsEntBSample");
  ASSERT_NE(sample, nullptr);
  EXPECT_EQ(sample->properties.size(), 27u);
  EXPECT_STREQ(sample->properties[6].name, "Deform");
  EXPECT_EQ(sample->properties[6].type, VT_I4);
  EXPECT_EQ(automation::FindEntity("clsEntNothing"), nullptr);
  EXPECT_EQ(automation::FindEntity("clsEntBCustom")->properties.size(), 53u);
}

TEST(EntityObjects, EveryPropertyOfEveryEntityRoundTrips) {
  int checked = 0;
  for (const EntityInfo& entity : automation::Entities()) {
    IDispatch* obj = nullptr;
    ASSERT_EQ(CorvaneCreateEntity(entity.name, &obj), S_OK) << entity.name;
    int k = 0;
    for (const PropertyInfo& p : entity.properties) {
      const DISPID id = IdOf(obj, Wide(p.name));
      ASSERT_NE(id, DISPID_UNKNOWN) << entity.name << "." << p.name;
      Var fresh;
      ASSERT_EQ(Get(obj, id, &fresh), S_OK);
      EXPECT_EQ(fresh.v.vt, p.type) << entity.name << "." << p.name;
      Var value = ValueFor(p, ++k);
      ASSERT_EQ(Put(obj, id, value.v), S_OK) << entity.name << "." << p.name;
    }
    // Read back after all puts, so that no property overwrote another.
    k = 0;
    for (const PropertyInfo& p : entity.properties) {
      Var back;
      ASSERT_EQ(Get(obj, IdOf(obj, Wide(p.name)), &back), S_OK);
      Var expected = ValueFor(p, ++k);
      EXPECT_TRUE(SameValue(back.v, expected.v)) << entity.name << "." << p.name;
      ++checked;
    }
    EXPECT_EQ(obj->Release(), 0u);
  }
  EXPECT_EQ(checked, 352);
}

TEST(EntityObjects, ConcreteValues) {
  IDispatch* order = nullptr;
  ASSERT_EQ(CorvaneCreateEntity("clsEntBOrderh", &order), S_OK);
  ASSERT_EQ(Put(order, IdOf(order, u"OrderNo"), Var(20261123001.0).v), S_OK);
  ASSERT_EQ(Put(order, IdOf(order, u"CustNo"), Var("C-001").v), S_OK);
  ASSERT_EQ(Put(order, IdOf(order, u"payday"), Var::I2(30).v), S_OK);
  Var number, cust, payday;
  Get(order, IdOf(order, u"ORDERNO"), &number);
  Get(order, IdOf(order, u"custno"), &cust);
  Get(order, IdOf(order, u"PayDay"), &payday);
  EXPECT_EQ(number.v.vt, VT_R8);
  EXPECT_EQ(number.v.dblVal, 20261123001.0);
  EXPECT_EQ(cust.Text(), "C-001");
  EXPECT_EQ(payday.v.vt, VT_I2);
  EXPECT_EQ(payday.v.iVal, 30);
  order->Release();

  IDispatch* sample = nullptr;
  ASSERT_EQ(CorvaneCreateEntity("CLSENTBSAMPLE", &sample), S_OK);
  ASSERT_EQ(Put(sample, IdOf(sample, u"Qty"), Var::I4(123456).v), S_OK);
  Var qty;
  Get(sample, IdOf(sample, u"qty"), &qty);
  EXPECT_EQ(qty.v.vt, VT_I4);
  EXPECT_EQ(qty.v.lVal, 123456);
  sample->Release();
}

TEST(EntityObjects, NamesWithoutRegardToCase) {
  IDispatch* obj = nullptr;
  CorvaneCreateEntity("clsEntBOrderType", &obj);
  EXPECT_EQ(IdOf(obj, u"OrderType"), 1);
  EXPECT_EQ(IdOf(obj, u"ordertype"), 1);
  EXPECT_EQ(IdOf(obj, u"ORDERTYPE"), 1);
  obj->Release();
}

TEST(EntityObjects, UnknownNamesAndMembers) {
  IDispatch* obj = nullptr;
  CorvaneCreateEntity("clsEntBOrderType", &obj);
  HRESULT hr = S_OK;
  EXPECT_EQ(IdOf(obj, u"OrderTyp", &hr), DISPID_UNKNOWN);
  EXPECT_EQ(hr, DISP_E_UNKNOWNNAME);
  IdOf(obj, u"", &hr);
  EXPECT_EQ(hr, DISP_E_UNKNOWNNAME);
  Var out;
  EXPECT_EQ(Get(obj, 2, &out), DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Get(obj, 0, &out), DISP_E_MEMBERNOTFOUND);
  obj->Release();
  EXPECT_EQ(CorvaneCreateEntity("clsEntBNothing", &obj), CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(obj, nullptr);
}

TEST(EntityObjects, ConversionsAsTheRuntimeMakesThem) {
  IDispatch* obj = nullptr;
  CorvaneCreateEntity("clsEntBOrderi", &obj);
  // Text to number, number to text, text to date, a double to a 16-bit
  // integer rounded half to even.
  ASSERT_EQ(Put(obj, IdOf(obj, u"Price"), Var(" 12.5 ").v), S_OK);
  ASSERT_EQ(Put(obj, IdOf(obj, u"ItemNo"), Var(20261123001.0).v), S_OK);
  ASSERT_EQ(Put(obj, IdOf(obj, u"DeliverDate"), Var("2026-11-23").v), S_OK);
  ASSERT_EQ(Put(obj, IdOf(obj, u"Status"), Var(2.5).v), S_OK);
  ASSERT_EQ(Put(obj, IdOf(obj, u"Remark"), Var::DateOf(46349.5).v), S_OK);
  Var price, item, date, status, remark;
  Get(obj, IdOf(obj, u"Price"), &price);
  Get(obj, IdOf(obj, u"ItemNo"), &item);
  Get(obj, IdOf(obj, u"DeliverDate"), &date);
  Get(obj, IdOf(obj, u"Status"), &status);
  Get(obj, IdOf(obj, u"Remark"), &remark);
  EXPECT_EQ(price.v.dblVal, 12.5);
  EXPECT_EQ(item.Text(), "20261123001");
  EXPECT_EQ(date.v.vt, VT_DATE);
  EXPECT_EQ(date.v.date, 46349.0);
  EXPECT_EQ(status.v.iVal, 2);
  EXPECT_EQ(remark.Text(), "2026-11-23 12:00:00");

  // A by-reference value is read through.
  double number = 7.75;
  VARIANT ref;
  VariantInit(&ref);
  ref.vt = VT_BYREF | VT_R8;
  ref.pdblVal = &number;
  ASSERT_EQ(Put(obj, IdOf(obj, u"OrdQty"), ref), S_OK);
  Var qty;
  Get(obj, IdOf(obj, u"OrdQty"), &qty);
  EXPECT_EQ(qty.v.dblVal, 7.75);
  obj->Release();
}

TEST(EntityObjects, TypeMismatchAndOverflowAreRefused) {
  IDispatch* obj = nullptr;
  CorvaneCreateEntity("clsEntBOrderi", &obj);
  ASSERT_EQ(Put(obj, IdOf(obj, u"Price"), Var(3.0).v), S_OK);
  EXPECT_EQ(Put(obj, IdOf(obj, u"Price"), Var("twelve").v), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(Put(obj, IdOf(obj, u"DeliverDate"), Var("not a date").v), DISP_E_TYPEMISMATCH);
  VARIANT null_value;
  VariantInit(&null_value);
  null_value.vt = VT_NULL;
  EXPECT_EQ(Put(obj, IdOf(obj, u"ItemNo"), null_value), DISP_E_TYPEMISMATCH);
  IDispatch* other = nullptr;
  CorvaneCreateEntity("clsEntBOrderType", &other);
  VARIANT object;
  VariantInit(&object);
  object.vt = VT_DISPATCH;
  object.pdispVal = other;
  EXPECT_EQ(Put(obj, IdOf(obj, u"Remark"), object), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(other->Release(), 0u);
  EXPECT_EQ(Put(obj, IdOf(obj, u"Status"), Var(40000.0).v), DISP_E_OVERFLOW);
  // The refused puts left the value as it was.
  Var price;
  Get(obj, IdOf(obj, u"Price"), &price);
  EXPECT_EQ(price.v.dblVal, 3.0);
  obj->Release();
}

TEST(EntityObjects, ArgumentCountsAndReferences) {
  IDispatch* obj = nullptr;
  CorvaneCreateEntity("clsEntBOrderType", &obj);
  Var a("x"), b("y");
  VARIANT two[2] = {a.v, b.v};
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS params{two, &named, 2, 1};
  EXPECT_EQ(obj->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYPUT, &params, nullptr, nullptr, nullptr),
            DISP_E_BADPARAMCOUNT);
  DISPPARAMS one_arg{two, nullptr, 1, 0};
  Var out;
  EXPECT_EQ(obj->Invoke(1, IID_NULL, 0, DISPATCH_PROPERTYGET, &one_arg, &out.v, nullptr, nullptr),
            DISP_E_BADPARAMCOUNT);
  // A late-bound "obj.OrderType" asks for method or property at once.
  DISPPARAMS none{nullptr, nullptr, 0, 0};
  EXPECT_EQ(obj->Invoke(1, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &none, &out.v,
                        nullptr, nullptr),
            S_OK);
  EXPECT_EQ(out.Text(), "");

  IDispatch* same = nullptr;
  EXPECT_EQ(obj->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&same)), S_OK);
  EXPECT_EQ(same, obj);
  void* none_such = nullptr;
  EXPECT_EQ(obj->QueryInterface(IID_IClassFactory, &none_such), E_NOINTERFACE);
  EXPECT_EQ(none_such, nullptr);
  EXPECT_EQ(obj->AddRef(), 3u);
  EXPECT_EQ(obj->Release(), 2u);
  EXPECT_EQ(same->Release(), 1u);
  EXPECT_EQ(obj->Release(), 0u);
}

}  // namespace
}  // namespace corvane::testing
