// What the boundary itself decides: names without regard to case, named
// arguments, the calls it refuses (with their HRESULT, the argument and
// EXCEPINFO), an entity variable the method points at a new entity, and
// arrays written back.
#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "corvane/corvane.h"
#include "tests/component/component.h"
#include "tests/support/sandbox.h"

namespace corvane::testing {
namespace {

using Strings = std::vector<std::string>;

class ComponentBoundary : public SandboxTest {
 protected:
  // Frees what a refusal put in EXCEPINFO and gives its description.
  static std::string Words(EXCEPINFO& info, const std::string& source) {
    EXPECT_EQ(Text(info.bstrSource), source);
    std::string words = Text(info.bstrDescription);
    SysFreeString(info.bstrSource);
    SysFreeString(info.bstrDescription);
    SysFreeString(info.bstrHelpFile);
    info = EXCEPINFO{};
    return words;
  }
};

TEST_F(ComponentBoundary, NamesAreFoundWithoutRegardToCase) {
  Ref<IDispatch> object = Create(CLSID_clsDataBOrderh);
  std::u16string a = U("UPDATEAPPROVE"), b = U("orderno"), c = U("Approve"), d = U("nosuch");
  LPOLESTR names[] = {a.data(), b.data(), c.data()};
  DISPID ids[3] = {};
  ASSERT_EQ(object->GetIDsOfNames(IID_NULL, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
  EXPECT_EQ(ids[0], 3);  // the third method
  EXPECT_EQ(ids[1], 1);  // its second argument
  EXPECT_EQ(ids[2], 0);
  LPOLESTR unknown[] = {a.data(), d.data()};
  ASSERT_EQ(object->GetIDsOfNames(IID_NULL, unknown, 2, LOCALE_USER_DEFAULT, ids),
            DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[0], 3);
  EXPECT_EQ(ids[1], DISPID_UNKNOWN);
  LPOLESTR method[] = {d.data()};
  ASSERT_EQ(object->GetIDsOfNames(IID_NULL, method, 1, LOCALE_USER_DEFAULT, ids),
            DISP_E_UNKNOWNNAME);
  EXPECT_EQ(ids[0], DISPID_UNKNOWN);
}

TEST_F(ComponentBoundary, NamedArgumentsTakeTheirPlaces) {
  db().Exec("insert into t_borderh (F_OrderNo) values (20240315007)");
  Ref<IDispatch> object = Create(CLSID_clsDataBOrderh);
  // OrderNo then Approve, by name.
  VARIANT args[2] = {R8(20240315007), Bstr("boss")};
  DISPID named[2] = {1, 0};
  DISPPARAMS params{args, named, 2, 2};
  Var result;
  EXCEPINFO info{};
  UINT err = 0;
  ASSERT_EQ(object->Invoke(3, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, &result,
                           &info, &err),
            S_OK);
  VariantClear(&args[1]);
  EXPECT_EQ(result.v.iVal, 1);
  EXPECT_EQ(Commands(), Strings{"update T_BOrderh set F_Approve='boss',F_ApproveTime=Now() where "
                                "F_OrderNo=20240315007"});
}

TEST_F(ComponentBoundary, AnUnknownMemberIsRefused) {
  Ref<IDispatch> object = Create(CLSID_clsDataBOrderType);
  DISPPARAMS none{nullptr, nullptr, 0, 0};
  EXCEPINFO info{};
  Var result;
  EXPECT_EQ(object->Invoke(99, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, &result,
                           &info, nullptr),
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(info.scode, DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Words(info, "Corvane.clsDataBOrderType"), "Member not found");
  // A method is no property to set.
  EXPECT_EQ(object->Invoke(1, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &none, &result,
                           &info, nullptr),
            DISP_E_MEMBERNOTFOUND);
  EXPECT_EQ(Words(info, "Corvane.clsDataBOrderType"), "QueryAll is a method, not a property");
  // Another interface than IID_NULL.
  EXPECT_EQ(object->Invoke(1, IID_IDispatch, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &none, &result,
                           &info, nullptr),
            DISP_E_UNKNOWNINTERFACE);
  EXPECT_TRUE(Commands().empty());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(ComponentBoundary, TheWrongNumberOfArgumentsIsRefused) {
  Ref<IDispatch> object = Create(CLSID_clsDataBOrderType);
  EXCEPINFO info{};
  Var result;
  EXPECT_EQ(Late(object.get(), "QueryAll", {}, &result, &info), DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(info.scode, DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Words(info, "Corvane.clsDataBOrderType"), "QueryAll takes 1 argument(s), not 0");
  Ref<IDispatch> coll = NewCollection();
  EXPECT_EQ(Late(object.get(), "QueryAll", {Dispatch(coll.get()), I2(1)}, &result, &info),
            DISP_E_BADPARAMCOUNT);
  EXPECT_EQ(Words(info, "Corvane.clsDataBOrderType"), "QueryAll takes 1 argument(s), not 2");
  EXPECT_EQ(result.v.vt, VT_EMPTY);
  EXPECT_TRUE(Commands().empty());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(ComponentBoundary, AnArgumentOfTheWrongTypeIsRefusedBeforeAnythingIsSent) {
  Ref<IDispatch> orderType = Create(CLSID_clsDataBOrderType);
  EXCEPINFO info{};
  UINT err = 99;
  Var result;
  // A text where a collection belongs.
  VARIANT text = Bstr("not a collection");
  EXPECT_EQ(Late(orderType.get(), "QueryAll", {text}, &result, &info, &err), DISP_E_TYPEMISMATCH);
  VariantClear(&text);
  EXPECT_EQ(err, 0u);
  EXPECT_EQ(info.scode, DISP_E_TYPEMISMATCH);
  EXPECT_EQ(Words(info, "Corvane.clsDataBOrderType"),
            "QueryAll, argument objColl: Type mismatch: an object is required");

  // A text that is no number, for the first of two arguments: rgvarg[1].
  Ref<IDispatch> outsource = Create(CLSID_clsDataBOutMakeh);
  VARIANT abc = Bstr("abc"), name = Bstr("Acme");
  EXPECT_EQ(Late(outsource.get(), "ChkNoByProviderName", {abc, name}, &result, &info, &err),
            DISP_E_TYPEMISMATCH);
  EXPECT_EQ(err, 1u);
  EXPECT_EQ(Words(info, "Corvane.clsDataBOutMakeh"),
            "ChkNoByProviderName, argument OrderoutNo: Type mismatch");
  VariantClear(&abc);
  VariantClear(&name);

  // A 16-bit argument out of range.
  Ref<IDispatch> entity = Entity("clsEntBOutMakeh");
  BSTR no = automation::ToBstr("1");
  EXPECT_EQ(Late(outsource.get(), "UpdateRecord",
                 {Dispatch(entity.get()), ByRef(VT_BSTR, &no), I4(70000)}, &result, &info, &err),
            DISP_E_OVERFLOW);
  EXPECT_EQ(err, 0u);
  EXPECT_EQ(Words(info, "Corvane.clsDataBOutMakeh"),
            "UpdateRecord, argument UpdateCondition: Overflow");
  SysFreeString(no);

  // A by-reference argument of another type cannot take the value back.
  Ref<IDispatch> header = Create(CLSID_clsDataBOrderh);
  BSTR who = automation::ToBstr("boss");
  std::int32_t order = 20240315007 % 100000;
  EXPECT_EQ(Late(header.get(), "UpdateApprove", {ByRef(VT_BSTR, &who), ByRef(VT_I4, &order)},
                 &result, &info, &err),
            DISP_E_TYPEMISMATCH);
  EXPECT_EQ(err, 0u);
  EXPECT_EQ(Words(info, "Corvane.clsDataBOrderh"),
            "UpdateApprove, argument OrderNo: Type mismatch: by-reference argument of another "
            "type");
  SysFreeString(who);

  // Nothing where an entity belongs.
  EXPECT_EQ(Late(header.get(), "QueryForPreMoney", {Dispatch(nullptr)}, &result, &info, &err),
            E_POINTER);
  EXPECT_EQ(Words(info, "Corvane.clsDataBOrderh"),
            "QueryForPreMoney, argument Entity: Object required");

  // Early-bound, the slot gives the same HRESULT.
  IDispatch* none = nullptr;
  std::int16_t r = -1;
  auto fn = Slot<HRESULT (*)(IDispatch*, IDispatch**, std::int16_t*)>(orderType.get(), 7);
  EXPECT_EQ(fn(orderType.get(), &none, &r), E_POINTER);
  EXPECT_EQ(fn(orderType.get(), &none, nullptr), E_POINTER);
  EXPECT_EQ(r, -1);

  EXPECT_TRUE(Commands().empty());
  EXPECT_TRUE(Reports().empty());
}

TEST_F(ComponentBoundary, TheEntityVariableOfQueryBPriceiEndsOnTheCollectionsLastEntity) {
  {
    clsDataBPricei repo;
    for (const char* item : {"BOLT-8", "GEAR-40"}) {
      clsEntBPricei line;
      line.ItemNo = item;
      line.QuotNo = 2026110201;
      line.Price = 12.5;
      ASSERT_EQ(repo.AddRecord(line), 1);
    }
  }
  Clear();
  Ref<IDispatch> object = Create(CLSID_clsDataBPricei);
  Ref<IDispatch> mine = Entity("clsEntBPricei");
  VARIANT mark = Bstr("MINE");
  Put(mine.get(), "ItemNo", mark);
  VariantClear(&mark);

  Ref<IDispatch> late = NewCollection();
  IDispatch* variable = mine.get();
  variable->AddRef();  // the variable's own reference
  Var result;
  ASSERT_EQ(Late(object.get(), "QueryBPricei",
                 {ByRef(VT_DISPATCH, &variable), R8(2026110201), Dispatch(late.get())}, &result),
            S_OK);
  EXPECT_EQ(result.v.iVal, 1);
  ASSERT_EQ(Count(late.get()), 2);
  Ref<IDispatch> last = Item(late.get(), 2);
  EXPECT_EQ(variable, last.get());  // the same object as the collection's last
  EXPECT_EQ(Get(variable, "ItemNo").CStr(), Get(last.get(), "ItemNo").CStr());
  EXPECT_EQ(Get(mine.get(), "ItemNo").CStr(), "MINE");  // the earlier entity is not changed
  variable->Release();

  Ref<IDispatch> early = NewCollection();
  IDispatch* coll = early.get();
  variable = mine.get();
  variable->AddRef();
  std::int16_t r = -1;
  auto fn = Slot<HRESULT (*)(IDispatch*, IDispatch**, double, IDispatch**, std::int16_t*)>(
      object.get(), 7 + 1);
  ASSERT_EQ(fn(object.get(), &variable, 2026110201, &coll, &r), S_OK);
  EXPECT_EQ(r, 1);
  Ref<IDispatch> last2 = Item(early.get(), 2);
  EXPECT_EQ(variable, last2.get());
  variable->Release();
}

// The texts of a SAFEARRAY of BSTR, from its lower bound.
Strings Texts(SAFEARRAY* sa) {
  Strings out;
  if (sa == nullptr) return out;
  LONG lo = 0, hi = -1;
  SafeArrayGetLBound(sa, 1, &lo);
  SafeArrayGetUBound(sa, 1, &hi);
  EXPECT_EQ(lo, 0);
  void* data = nullptr;
  SafeArrayAccessData(sa, &data);
  for (LONG i = lo; i <= hi; ++i) out.push_back(Text(static_cast<BSTR*>(data)[i - lo]));
  SafeArrayUnaccessData(sa);
  return out;
}

SAFEARRAY* TextArray(const Strings& texts) {
  SAFEARRAY* sa = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
  void* data = nullptr;
  SafeArrayAccessData(sa, &data);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    static_cast<BSTR*>(data)[i] = automation::ToBstr(texts[i]);
  }
  SafeArrayUnaccessData(sa);
  return sa;
}

TEST_F(ComponentBoundary, AnArrayByReferenceIsWrittenBack) {
  db().Exec("insert into t_bcosth (F_EstNo,F_EstDate,F_ItemNo,F_CustNo) values "
            "(20240315001,'2024-03-15','GEAR-40','C001'),"
            "(20240315002,'2024-03-15','BOLT-3','C002')");
  Strings expected{"x", "y"};
  {
    clsDataBCosth repo;
    ASSERT_EQ(repo.QueryItemNo(expected, "ann"), 1);
  }
  const Strings cpp = Commands();
  Clear();
  ASSERT_EQ(expected.size(), 3u);

  Ref<IDispatch> object = Create(CLSID_clsDataBCosth);
  SAFEARRAY* items = TextArray({"x", "y"});
  BSTR user = automation::ToBstr("ann");
  Var result;
  ASSERT_EQ(Late(object.get(), "QueryItemNo",
                 {ByRef(VT_ARRAY | VT_BSTR, &items), ByRef(VT_BSTR, &user)}, &result),
            S_OK);
  EXPECT_EQ(result.v.iVal, 1);
  EXPECT_EQ(Texts(items), expected);
  EXPECT_EQ(Commands(), cpp);
  Clear();
  SafeArrayDestroy(items);

  // Early-bound, from no array at all.
  items = nullptr;
  std::int16_t r = -1;
  auto fn = Slot<HRESULT (*)(IDispatch*, SAFEARRAY**, BSTR*, std::int16_t*)>(object.get(), 7 + 8);
  ASSERT_EQ(fn(object.get(), &items, &user, &r), S_OK);
  EXPECT_EQ(r, 1);
  ASSERT_NE(items, nullptr);
  Strings got = Texts(items);
  EXPECT_EQ(got.size(), 3u);
  EXPECT_EQ(got[0], "");
  std::sort(got.begin(), got.end());
  Strings sorted = expected;
  std::sort(sorted.begin(), sorted.end());
  EXPECT_EQ(got, sorted);
  EXPECT_EQ(Commands(), cpp);
  SafeArrayDestroy(items);
  SysFreeString(user);
}

}  // namespace
}  // namespace corvane::testing
