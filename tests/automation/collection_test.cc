// The library's collection object: Add, Count, Item from 1 as the default
// member, Remove, and the references it holds on its items.
#include <gtest/gtest.h>

#include <vector>

#include "corvane/automation.h"
#include "corvane/automation/bridge.h"
#include "tests/automation/dispatch.h"

namespace corvane::testing {
namespace {

using automation::CallByName;

HRESULT Add(IDispatch* coll, IDispatch* item) {
  std::vector<VARIANT> args(1);
  VariantInit(&args[0]);
  args[0].vt = VT_DISPATCH;
  args[0].pdispVal = item;
  return CallByName(coll, "Add", DISPATCH_METHOD, args, nullptr);
}

LONG Count(IDispatch* coll) {
  std::vector<VARIANT> none;
  Var n;
  EXPECT_EQ(CallByName(coll, "Count", DISPATCH_PROPERTYGET, none, &n.v), S_OK);
  EXPECT_EQ(n.v.vt, VT_I4);
  return n.v.lVal;
}

HRESULT Item(IDispatch* coll, LONG index, Var* out) {
  DISPPARAMS params{};
  Var arg = Var::I4(index);
  params.rgvarg = &arg.v;
  params.cArgs = 1;
  // The default member, as "coll(index)" calls it.
  return coll->Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_METHOD | DISPATCH_PROPERTYGET, &params,
                      &out->v, nullptr, nullptr);
}

ULONG Refs(IDispatch* obj) {
  obj->AddRef();
  return obj->Release();
}

TEST(CollectionObject, AddCountItemRemove) {
  IDispatch* coll = nullptr;
  ASSERT_EQ(CorvaneCreateCollection(&coll), S_OK);
  EXPECT_EQ(Count(coll), 0);
  IDispatch* first = nullptr;
  IDispatch* second = nullptr;
  CorvaneCreateEntity("clsEntBOrderType", &first);
  CorvaneCreateEntity("clsEntBOrderType", &second);
  Put(first, 1, Var("Export").v);
  Put(second, 1, Var("Domestic").v);
  ASSERT_EQ(Add(coll, first), S_OK);
  ASSERT_EQ(Add(coll, second), S_OK);
  EXPECT_EQ(Count(coll), 2);

  Var item;
  ASSERT_EQ(Item(coll, 2, &item), S_OK);
  ASSERT_EQ(item.v.vt, VT_DISPATCH);
  EXPECT_EQ(item.v.pdispVal, second);
  Var name;
  Get(item.v.pdispVal, 1, &name);
  EXPECT_EQ(name.Text(), "Domestic");

  Var missing;
  EXPECT_EQ(Item(coll, 0, &missing), DISP_E_BADINDEX);
  EXPECT_EQ(Item(coll, 3, &missing), DISP_E_BADINDEX);

  // Item by name too, with the index as text.
  std::vector<VARIANT> args(1);
  Var index("1");
  args[0] = index.v;
  Var by_name;
  ASSERT_EQ(CallByName(coll, "item", DISPATCH_METHOD, args, &by_name.v), S_OK);
  EXPECT_EQ(by_name.v.pdispVal, first);

  Var remove_index = Var::I2(1);
  args[0] = remove_index.v;
  ASSERT_EQ(CallByName(coll, "Remove", DISPATCH_METHOD, args, nullptr), S_OK);
  EXPECT_EQ(Count(coll), 1);
  Var now_first;
  Item(coll, 1, &now_first);
  EXPECT_EQ(now_first.v.pdispVal, second);

  first->Release();
  second->Release();
  coll->Release();
}

TEST(CollectionObject, HoldsAReferenceOnEachItemAndLetsGoWhenReleased) {
  IDispatch* coll = nullptr;
  CorvaneCreateCollection(&coll);
  IDispatch* item = nullptr;
  CorvaneCreateEntity("clsEntBCosts", &item);
  EXPECT_EQ(Refs(item), 1u);
  Add(coll, item);
  EXPECT_EQ(Refs(item), 2u);
  {
    Var got;
    Item(coll, 1, &got);
    EXPECT_EQ(Refs(item), 3u);
  }
  EXPECT_EQ(Refs(item), 2u);

  // Added by reference: the collection keeps the object, not the pointer.
  IDispatch* held = item;
  VARIANT ref;
  VariantInit(&ref);
  ref.vt = VT_BYREF | VT_DISPATCH;
  ref.ppdispVal = &held;
  std::vector<VARIANT> args{ref};
  ASSERT_EQ(CallByName(coll, "Add", DISPATCH_METHOD, args, nullptr), S_OK);
  EXPECT_EQ(Refs(item), 3u);

  std::vector<VARIANT> remove(1);
  remove[0].vt = VT_I4;
  remove[0].lVal = 2;
  CallByName(coll, "Remove", DISPATCH_METHOD, remove, nullptr);
  EXPECT_EQ(Refs(item), 2u);
  EXPECT_EQ(coll->Release(), 0u);
  EXPECT_EQ(Refs(item), 1u);
  EXPECT_EQ(item->Release(), 0u);
}

TEST(CollectionObject, RefusesWhatItDoesNotHave) {
  IDispatch* coll = nullptr;
  CorvaneCreateCollection(&coll);
  HRESULT hr = S_OK;
  IdOf(coll, u"Clear", &hr);
  EXPECT_EQ(hr, DISP_E_UNKNOWNNAME);
  EXPECT_EQ(IdOf(coll, u"COUNT"), 2);
  std::vector<VARIANT> none;
  EXPECT_EQ(CallByName(coll, "Add", DISPATCH_METHOD, none, nullptr), DISP_E_BADPARAMCOUNT);
  std::vector<VARIANT> text(1);
  Var word("first");
  text[0] = word.v;
  Var out;
  EXPECT_EQ(CallByName(coll, "Item", DISPATCH_METHOD, text, &out.v), DISP_E_TYPEMISMATCH);
  // Plain values are items too.
  std::vector<VARIANT> number(1);
  number[0].vt = VT_R8;
  number[0].dblVal = 4.5;
  EXPECT_EQ(CallByName(coll, "Add", DISPATCH_METHOD, number, nullptr), S_OK);
  Var got;
  Item(coll, 1, &got);
  EXPECT_EQ(got.v.vt, VT_R8);
  EXPECT_EQ(got.v.dblVal, 4.5);
  EXPECT_EQ(coll->Release(), 0u);
}

}  // namespace
}  // namespace corvane::testing
