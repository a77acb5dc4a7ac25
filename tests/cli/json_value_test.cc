// The tool's conversions, without a server: JSON arguments to VARIANTs,
// entity objects, collections and arrays and back, by reference as a
// late-bound caller passes them; the type library; class identifiers.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "corvane/automation.h"
#include "corvane/automation/bridge.h"
#include "tools/corvane/call.h"
#include "tools/corvane/json_value.h"
#include "tools/corvane/type_library.h"
#include "tools/corvane/usage_error.h"

namespace corvane::cli {
namespace {

ArgumentInfo Info(std::string name, std::string type, bool byref, std::string entity = "",
             std::string element = "") {
  return ArgumentInfo{std::move(name), std::move(type), byref, std::move(entity), std::move(element)};
}

TEST(CliJson, ScalarsConvertAsTheRuntimeDoes) {
  VARIANT v = ScalarFromJson(Json("2026-11-23"), "DATE", "d");
  EXPECT_EQ(v.vt, VT_DATE);
  EXPECT_EQ(v.date, 46349.0);
  v = ScalarFromJson(Json(2.5), "I2", "n");
  EXPECT_EQ(v.vt, VT_I2);
  EXPECT_EQ(v.iVal, 2);
  v = ScalarFromJson(Json("12.5"), "R8", "n");
  EXPECT_EQ(v.dblVal, 12.5);
  v = ScalarFromJson(Json(20261123001LL), "R8", "n");
  EXPECT_EQ(v.dblVal, 20261123001.0);
  v = ScalarFromJson(Json(true), "BOOL", "b");
  EXPECT_EQ(v.boolVal, VARIANT_TRUE);
  v = ScalarFromJson(Json(7), "VARIANT", "x");
  EXPECT_EQ(v.vt, VT_I4);
  v = ScalarFromJson(Json(12), "BSTR", "t");
  ASSERT_EQ(v.vt, VT_BSTR);
  EXPECT_EQ(automation::ToUtf8(v.bstrVal), "12");
  VariantClear(&v);
  v = ScalarFromJson(Json(nullptr), "VARIANT", "x");
  EXPECT_EQ(v.vt, VT_NULL);
}

TEST(CliJson, ScalarsThatDoNotConvertAreUsageErrors) {
  try {
    ScalarFromJson(Json(40000), "I2", "argument n");
    FAIL();
  } catch (const UsageError& e) {
    EXPECT_STREQ(e.what(), "argument n (I2): Overflow for 40000");
  }
  try {
    ScalarFromJson(Json("soon"), "DATE", "argument d");
    FAIL();
  } catch (const UsageError& e) {
    EXPECT_STREQ(e.what(), "argument d (DATE): Type mismatch for \"soon\"");
  }
  EXPECT_THROW(ScalarFromJson(Json(nullptr), "BSTR", "t"), UsageError);
  EXPECT_THROW(ScalarFromJson(Json::array(), "VARIANT", "x"), UsageError);
}

TEST(CliJson, OutputOfValues) {
  VARIANT v;
  VariantInit(&v);
  EXPECT_EQ(VariantToJson(v), Json(nullptr));
  v.vt = VT_R8;
  v.dblVal = 20261123001.0;
  EXPECT_EQ(VariantToJson(v).dump(), "20261123001");
  v.dblVal = 0.1 + 0.2;
  EXPECT_EQ(VariantToJson(v).dump(), "0.30000000000000004");
  v.vt = VT_DATE;
  v.date = 46349.5;
  EXPECT_EQ(VariantToJson(v), Json("2026-11-23 12:00:00"));
  v.vt = VT_BOOL;
  v.boolVal = VARIANT_TRUE;
  EXPECT_EQ(VariantToJson(v), Json(true));
  v.vt = VT_I2;
  v.iVal = -3;
  EXPECT_EQ(VariantToJson(v), Json(-3));
  double number = 4.5;
  VARIANT ref;
  VariantInit(&ref);
  ref.vt = VT_BYREF | VT_R8;
  ref.pdblVal = &number;
  EXPECT_EQ(VariantToJson(ref), Json(4.5));
}

TEST(CliJson, EntityArgumentByReferenceIsTheLibrarysObject) {
  const Json given = Json::parse(R"({"orderno": 20261123001, "CustNo": "C-1",
                                     "OrderDate": "2026-11-23", "payday": 30})");
  Argument arg(Info("Entity", "ENTITY", true, "clsEntBOrderh"), &given);
  VARIANT passed = arg.Passed();
  ASSERT_EQ(passed.vt, VT_BYREF | VT_DISPATCH);
  IDispatch* obj = *passed.ppdispVal;
  ASSERT_NE(obj, nullptr);
  clsEntBOrderh order;
  ASSERT_EQ(automation::ReadEntity(obj, order), S_OK);
  EXPECT_EQ(order.OrderNo, 20261123001.0);
  EXPECT_EQ(order.CustNo, "C-1");
  EXPECT_EQ(order.OrderDate, Date::FromParts(2026, 11, 23));
  EXPECT_EQ(order.payday, 30);
  // What the method writes shows after the call.
  order.Tabler = "王";
  ASSERT_EQ(automation::WriteEntity(order, obj), S_OK);
  const Json after = arg.After();
  EXPECT_EQ(after["Tabler"], "王");
  EXPECT_EQ(after["OrderNo"].dump(), "20261123001");
  EXPECT_EQ(after["OrderDate"], "2026-11-23");
  EXPECT_EQ(after["CheckerTime"], "1899-12-30");
  EXPECT_EQ(after.size(), 33u);
}

TEST(CliJson, CollectionArgumentHoldsEntityObjects) {
  const Json given = Json::parse(R"([{"OrderType": "A"}, {"OrderType": "B"}])");
  Argument arg(Info("objColl", "COLLECTION", true, "clsEntBOrderType"), &given);
  VARIANT passed = arg.Passed();
  ASSERT_EQ(passed.vt, VT_BYREF | VT_DISPATCH);
  IDispatch* added = nullptr;
  automation::NewEntityObject(clsEntBOrderType{"C"}, &added);
  std::vector<VARIANT> args(1);
  args[0].vt = VT_DISPATCH;
  args[0].pdispVal = added;
  ASSERT_EQ(automation::CallByName(*passed.ppdispVal, "Add", DISPATCH_METHOD, args, nullptr), S_OK);
  added->Release();
  EXPECT_EQ(arg.After(), Json::parse(R"([{"OrderType": "A"}, {"OrderType": "B"},
                                         {"OrderType": "C"}])"));
  Argument empty(Info("objColl", "COLLECTION", true, "clsEntBOrderType"), nullptr);
  EXPECT_EQ(empty.After(), Json::array());
  const Json wrong = Json::parse(R"([{"Nothing": 1}])");
  EXPECT_THROW(Argument(Info("objColl", "COLLECTION", true, "clsEntBOrderType"), &wrong),
               UsageError);
}

TEST(CliJson, ArrayArgumentsOfEachElementType) {
  const Json numbers = Json::parse("[0, 1.5, \"2\"]");
  Argument r8(Info("a", "ARRAY", true, "", "R8"), &numbers);
  VARIANT passed = r8.Passed();
  ASSERT_EQ(passed.vt, VT_BYREF | VT_ARRAY | VT_R8);
  SAFEARRAY* array = *passed.pparray;
  LONG upper = 0;
  SafeArrayGetUBound(array, 1, &upper);
  EXPECT_EQ(upper, 2);
  EXPECT_EQ(static_cast<double*>(array->pvData)[2], 2.0);
  EXPECT_EQ(r8.After(), Json::parse("[0, 1.5, 2]"));

  const Json texts = Json::parse(R"(["", "A1"])");
  Argument bstr(Info("a", "ARRAY", true, "", "BSTR"), &texts);
  EXPECT_EQ(bstr.After(), texts);
  const Json bytes = Json::parse("[0, 255]");
  Argument ui1(Info("a", "ARRAY", true, "", "UI1"), &bytes);
  EXPECT_EQ(ui1.After(), bytes);
  const Json too_big = Json::parse("[256]");
  EXPECT_THROW(Argument(Info("a", "ARRAY", true, "", "UI1"), &too_big), UsageError);
  Argument none(Info("a", "ARRAY", true, "", "BSTR"), nullptr);
  EXPECT_EQ(none.After(), Json::array());
}

TEST(CliJson, ScalarsByValueAndByReference) {
  const Json text("abc");
  Argument by_value(Info("t", "BSTR", false), &text);
  VARIANT v = by_value.Passed();
  ASSERT_EQ(v.vt, VT_BSTR);
  Argument by_ref(Info("t", "BSTR", true), &text);
  VARIANT r = by_ref.Passed();
  ASSERT_EQ(r.vt, VT_BYREF | VT_BSTR);
  // The callee replaces the text through the reference.
  SysFreeString(*r.pbstrVal);
  *r.pbstrVal = automation::ToBstr("changed");
  EXPECT_EQ(by_ref.After(), Json("changed"));
  Argument variant(Info("v", "VARIANT", true), &text);
  VARIANT vr = variant.Passed();
  EXPECT_EQ(vr.vt, VT_BYREF | VT_VARIANT);
  EXPECT_EQ(vr.pvarVal->vt, VT_BSTR);
  Argument left_out(Info("d", "DATE", true), nullptr);
  EXPECT_EQ(left_out.After(), Json("1899-12-30"));
  EXPECT_THROW(Argument(Info("d", "DATE", false), nullptr), UsageError);
}

TEST(CliTypeLibrary, ParsesClassesMethodsAndArguments) {
  const TypeLibrary lib = TypeLibrary::Parse(Json::parse(R"({
    "library": {"name": "Corvane", "id": "{CAD76FE1-DBEF-5D9B-ADC5-564B22450856}", "version": "94.0"},
    "classes": [{"name": "clsDataBOrderType", "clsid": "{F2CDF3A6-2DEE-5A35-B31E-A58E0E18BDE4}",
      "progid": "Corvane.clsDataBOrderType",
      "interface": {"name": "_clsDataBOrderType", "iid": "{1A3A45F6-5ABE-5B00-82BA-D10937B0ABE1}",
        "dual": true, "methods": [{"name": "UpdateRecord", "dispid": 4, "slot": 10, "result": "I2",
          "args": [{"name": "Entity", "type": "ENTITY", "byref": true, "entity": "clsEntBOrderType"},
                   {"name": "PrdNo", "type": "BSTR", "byref": true}]}]}}],
    "entities": [{"name": "clsEntBOrderType", "properties": [{"name": "OrderType", "type": "BSTR"}]}]})"));
  const ClassInfo* cls = lib.FindClass("corvane.clsdatabordertype");
  ASSERT_NE(cls, nullptr);
  const MethodInfo* m = FindMethod(*cls, "updaterecord");
  ASSERT_NE(m, nullptr);
  EXPECT_EQ(m->dispid, 4);
  EXPECT_EQ(m->slot, 10);
  ASSERT_EQ(m->args.size(), 2u);
  EXPECT_EQ(m->args[0].entity, "clsEntBOrderType");
  EXPECT_TRUE(m->args[1].byref);
  EXPECT_EQ(lib.FindClass("clsDataBNothing"), nullptr);
  ASSERT_NE(lib.FindEntity("CLSENTBORDERTYPE"), nullptr);

  const std::vector<Json> args = ParseArguments(*m, {R"({"OrderType": "x"})", "Old name"});
  EXPECT_EQ(args[1], Json("Old name"));  // bare text
  EXPECT_THROW(ParseArguments(*m, {"{}", "a", "b"}), UsageError);
  EXPECT_THROW(ParseArguments(*m, {"{oops"}), UsageError);
  EXPECT_THROW(TypeLibrary::Parse(Json::parse(R"({"classes": [{"name": 1}]})")), UsageError);
}

TEST(CliGuid, TextAndValue) {
  GUID g{};
  ASSERT_TRUE(ParseGuid("{F2CDF3A6-2DEE-5A35-B31E-A58E0E18BDE4}", &g));
  EXPECT_TRUE(CorvaneGuidEqual(&g, &CLSID_clsDataBOrderType));
  EXPECT_FALSE(ParseGuid("F2CDF3A6-2DEE-5A35-B31E-A58E0E18BDE4", &g));
  EXPECT_FALSE(ParseGuid("{F2CDF3A6-2DEE-5A35-B31E-A58E0E18BDE4}x", &g));
  EXPECT_FALSE(ParseGuid("{F2CDF3A6-2DEE-5A35-B31E-A58E0E18BDEZ}", &g));
}

}  // namespace
}  // namespace corvane::cli
