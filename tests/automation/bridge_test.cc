// The bridge: entity structs read from and written to an entity object a
// client wrote itself (reached by name only), and to and from the library's
// own; runtime values and VARIANTs; UTF-8 and BSTR.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "corvane/automation.h"
#include "corvane/automation/bridge.h"
#include "corvane/frame/variant.h"
#include "tests/automation/dispatch.h"

namespace corvane::testing {
namespace {

using automation::FromVariant;
using automation::ReadEntity;
using automation::ToBstr;
using automation::ToUtf8;
using automation::ToVariant;
using automation::WriteEntity;

// A client's entity class, as a late-bound client would write one: each
// property a variant slot, names without regard to case, a put must name
// DISPID_PROPERTYPUT. It records the names it was asked for.
class ClientEntity final : public IDispatch {
 public:
  explicit ClientEntity(std::vector<std::string> names) : names_(std::move(names)) {
    slots_.resize(names_.size());
    for (VARIANT& v : slots_) VariantInit(&v);
  }
  ~ClientEntity() {
    for (VARIANT& v : slots_) VariantClear(&v);
  }
  std::vector<std::string> asked;
  ULONG refs = 1;

  VARIANT& Slot(const std::string& name) {
    for (std::size_t i = 0; i < names_.size(); ++i) {
      if (names_[i] == name) return slots_[i];
    }
    throw std::out_of_range(name);
  }

  HRESULT QueryInterface(REFIID riid, void** ppv) override {
    if (CorvaneGuidEqual(&riid, &IID_IDispatch) || CorvaneGuidEqual(&riid, &IID_IUnknown)) {
      *ppv = this;
      AddRef();
      return S_OK;
    }
    *ppv = nullptr;
    return E_NOINTERFACE;
  }
  ULONG AddRef() override { return ++refs; }
  ULONG Release() override { return --refs; }
  HRESULT GetTypeInfoCount(UINT* n) override {
    *n = 0;
    return S_OK;
  }
  HRESULT GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
    const std::string name = ToUtf8(names[0], std::char_traits<char16_t>::length(names[0]));
    asked.push_back(name);
    for (std::size_t i = 0; i < names_.size(); ++i) {
      if (strcasecmp(names_[i].c_str(), name.c_str()) == 0) {
        ids[0] = static_cast<DISPID>(i + 10);
        return S_OK;
      }
    }
    ids[0] = DISPID_UNKNOWN;
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                 EXCEPINFO*, UINT*) override {
    const std::size_t i = static_cast<std::size_t>(id - 10);
    if (i >= slots_.size()) return DISP_E_MEMBERNOTFOUND;
    if (flags & DISPATCH_PROPERTYPUT) {
      if (params->cArgs != 1 || params->cNamedArgs != 1 ||
          params->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT) {
        return DISP_E_PARAMNOTFOUND;
      }
      return VariantCopyInd(&slots_[i], &params->rgvarg[0]);
    }
    if (flags & DISPATCH_PROPERTYGET) return VariantCopy(result, &slots_[i]);
    return DISP_E_MEMBERNOTFOUND;
  }

 private:
  std::vector<std::string> names_;
  std::vector<VARIANT> slots_;
};

TEST(Bridge, WriteEntityPutsEveryPropertyByNameIntoTheClientsObject) {
  ClientEntity client({"EstNo", "WageItem", "Wage"});
  const clsEntBCosts wage{20261123001.0, "焊接", 12.5};
  ASSERT_EQ(WriteEntity(wage, &client), S_OK);
  EXPECT_EQ(client.asked, (std::vector<std::string>{"EstNo", "WageItem", "Wage"}));
  EXPECT_EQ(client.Slot("EstNo").vt, VT_R8);
  EXPECT_EQ(client.Slot("EstNo").dblVal, 20261123001.0);
  EXPECT_EQ(client.Slot("WageItem").vt, VT_BSTR);
  EXPECT_EQ(ToUtf8(client.Slot("WageItem").bstrVal), "焊接");
  EXPECT_EQ(client.Slot("Wage").dblVal, 12.5);
  EXPECT_EQ(client.refs, 1u);
}

TEST(Bridge, ReadEntityGetsEveryPropertyAndConvertsAsTheRuntime) {
  ClientEntity client({"ESTNO", "wageitem", "Wage"});
  client.Slot("ESTNO").vt = VT_BSTR;
  client.Slot("ESTNO").bstrVal = ToBstr("20261123002");
  client.Slot("wageitem").vt = VT_I2;
  client.Slot("wageitem").iVal = 42;
  client.Slot("Wage").vt = VT_BSTR;
  client.Slot("Wage").bstrVal = ToBstr(" 7.25 ");
  clsEntBCosts wage;
  ASSERT_EQ(ReadEntity(&client, wage), S_OK);
  EXPECT_EQ(wage.EstNo, 20261123002.0);
  EXPECT_EQ(wage.WageItem, "42");
  EXPECT_EQ(wage.Wage, 7.25);
  // An empty slot reads as the empty value: 0, "".
  ClientEntity blank({"OrderType"});
  clsEntBOrderType type{"Old"};
  ASSERT_EQ(ReadEntity(&blank, type), S_OK);
  EXPECT_EQ(type.OrderType, "");
}

TEST(Bridge, ReadEntityRefusesAMissingPropertyOrAValueThatDoesNotConvert) {
  ClientEntity partial({"EstNo", "Wage"});
  clsEntBCosts wage;
  EXPECT_EQ(ReadEntity(&partial, wage), DISP_E_UNKNOWNNAME);
  EXPECT_EQ(partial.asked.back(), "WageItem");
  EXPECT_EQ(WriteEntity(wage, &partial), DISP_E_UNKNOWNNAME);

  ClientEntity wrong({"EstNo", "WageItem", "Wage"});
  wrong.Slot("Wage").vt = VT_BSTR;
  wrong.Slot("Wage").bstrVal = ToBstr("a lot");
  EXPECT_EQ(ReadEntity(&wrong, wage), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(ReadEntity(nullptr, wage), E_POINTER);
}

TEST(Bridge, NewEntityObjectHoldsACopyThatReadsBack) {
  clsEntBOrderh order;
  order.OrderNo = 20261123001.0;
  order.OrderDate = Date::FromParts(2026, 11, 23);
  order.CustNo = "C-001";
  order.payday = 30;
  order.Total = 1234.5;
  order.Delivery = "FOB";
  IDispatch* obj = nullptr;
  ASSERT_EQ(automation::NewEntityObject(order, &obj), S_OK);
  order.CustNo = "changed after";
  clsEntBOrderh back;
  ASSERT_EQ(ReadEntity(obj, back), S_OK);
  EXPECT_EQ(back.OrderNo, 20261123001.0);
  EXPECT_EQ(back.OrderDate, Date::FromParts(2026, 11, 23));
  EXPECT_EQ(back.CustNo, "C-001");
  EXPECT_EQ(back.payday, 30);
  EXPECT_EQ(back.Total, 1234.5);
  EXPECT_EQ(back.Delivery, "FOB");

  // And written into the library's object by name.
  back.Tabler = "王";
  ASSERT_EQ(WriteEntity(back, obj), S_OK);
  clsEntBOrderh again;
  ASSERT_EQ(ReadEntity(obj, again), S_OK);
  EXPECT_EQ(again.Tabler, "王");
  EXPECT_EQ(obj->Release(), 0u);
}

TEST(Bridge, RuntimeValuesToVariantsAndBack) {
  const Variant values[] = {Variant(),
                            Variant::Null(),
                            Variant(std::int16_t{-7}),
                            Variant(std::int32_t{100000}),
                            Variant(20261123001.0),
                            Variant("塔恩维克 text"),
                            Variant(Date::FromParts(2026, 11, 23, 8, 30)),
                            Variant(true),
                            Variant(std::vector<std::uint8_t>{0, 1, 255})};
  const VARTYPE types[] = {VT_EMPTY, VT_NULL, VT_I2,   VT_I4,           VT_R8,
                           VT_BSTR,  VT_DATE, VT_BOOL, VT_ARRAY | VT_UI1};
  for (std::size_t i = 0; i < std::size(values); ++i) {
    Var v;
    ASSERT_EQ(ToVariant(values[i], &v.v), S_OK);
    EXPECT_EQ(v.v.vt, types[i]) << i;
    Variant back;
    ASSERT_EQ(FromVariant(v.v, &back), S_OK);
    EXPECT_EQ(back, values[i]) << i;
  }
  Var flag;
  ToVariant(Variant(true), &flag.v);
  EXPECT_EQ(flag.v.boolVal, VARIANT_TRUE);
}

TEST(Bridge, FromVariantReadsOtherTypesAndReferences) {
  Variant out;
  VARIANT v;
  VariantInit(&v);
  v.vt = VT_UI1;
  v.bVal = 200;
  ASSERT_EQ(FromVariant(v, &out), S_OK);
  EXPECT_EQ(out, Variant(std::int16_t{200}));
  v.vt = VT_R4;
  v.fltVal = 1.5f;
  FromVariant(v, &out);
  EXPECT_EQ(out, Variant(1.5));
  v.vt = VT_ERROR;  // a missing argument
  FromVariant(v, &out);
  EXPECT_TRUE(out.IsEmpty());

  VARIANT inner;
  VariantInit(&inner);
  inner.vt = VT_I4;
  inner.lVal = 9;
  v.vt = VT_BYREF | VT_VARIANT;
  v.pvarVal = &inner;
  FromVariant(v, &out);
  EXPECT_EQ(out, Variant(std::int32_t{9}));

  IDispatch* obj = nullptr;
  CorvaneCreateEntity("clsEntSCurrency", &obj);
  v.vt = VT_DISPATCH;
  v.pdispVal = obj;
  EXPECT_EQ(FromVariant(v, &out), DISP_E_TYPEMISMATCH);
  obj->Release();
}

TEST(Bridge, Utf8AndBstr) {
  const std::string text = "Corvane 塔恩维克 \xF0\x9F\x93\xA6";  // a character beyond 16 bits
  BSTR s = ToBstr(text);
  EXPECT_EQ(SysStringLen(s), 8u + 4u + 1u + 2u);
  EXPECT_EQ(s[8], u'塔');
  EXPECT_EQ(s[13], 0xD83D);
  EXPECT_EQ(s[14], 0xDCE6);
  EXPECT_EQ(ToUtf8(s), text);
  SysFreeString(s);
  BSTR empty = ToBstr("");
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(SysStringLen(empty), 0u);
  SysFreeString(empty);
  EXPECT_EQ(ToUtf8(nullptr), "");
  BSTR bad = ToBstr("a\xFF" "b");
  EXPECT_EQ(ToUtf8(bad), "a\xEF\xBF\xBD" "b");
  SysFreeString(bad);
  const char16_t lone[] = {u'x', 0xD800};
  EXPECT_EQ(ToUtf8(lone, 2), "x\xEF\xBF\xBD");
}

}  // namespace
}  // namespace corvane::testing
