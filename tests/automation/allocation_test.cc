// The allocation functions of the binary boundary: BSTR layout, VARIANT
// ownership on clear and copy, SAFEARRAY bounds, locks and destruction.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "corvane/automation.h"

namespace {

// An object that counts its references, as a client's would.
class Counted final : public IDispatch {
 public:
  ULONG refs = 1;
  HRESULT QueryInterface(REFIID, void** ppv) override {
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
  HRESULT GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return DISP_E_UNKNOWNNAME;
  }
  HRESULT Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*, UINT*) override {
    return DISP_E_MEMBERNOTFOUND;
  }
};

std::uint32_t Prefix(BSTR s) {
  std::uint32_t n;
  std::memcpy(&n, reinterpret_cast<const char*>(s) - 4, 4);
  return n;
}

TEST(Bstr, PrefixHoldsTheByteLengthAndAZeroFollows) {
  BSTR s = SysAllocString(u"Corvane");
  ASSERT_NE(s, nullptr);
  EXPECT_EQ(Prefix(s), 14u);
  EXPECT_EQ(SysStringLen(s), 7u);
  EXPECT_EQ(SysStringByteLen(s), 14u);
  EXPECT_EQ(s[7], 0);
  EXPECT_EQ(std::memcmp(s, u"Corvane", 14), 0);
  SysFreeString(s);
}

TEST(Bstr, LengthGivenKeepsEmbeddedZerosAndNullTextGivesZeros) {
  const char16_t text[] = {u'a', 0, u'b'};
  BSTR s = SysAllocStringLen(text, 3);
  EXPECT_EQ(SysStringLen(s), 3u);
  EXPECT_EQ(s[1], 0);
  EXPECT_EQ(s[2], u'b');
  EXPECT_EQ(s[3], 0);
  SysFreeString(s);

  BSTR blank = SysAllocStringLen(nullptr, 4);
  EXPECT_EQ(SysStringLen(blank), 4u);
  for (int i = 0; i <= 4; ++i) EXPECT_EQ(blank[i], 0);
  SysFreeString(blank);
}

TEST(Bstr, EmptyAndNull) {
  BSTR empty = SysAllocString(u"");
  ASSERT_NE(empty, nullptr);
  EXPECT_EQ(Prefix(empty), 0u);
  EXPECT_EQ(empty[0], 0);
  SysFreeString(empty);
  EXPECT_EQ(SysAllocString(nullptr), nullptr);
  EXPECT_EQ(SysStringLen(nullptr), 0u);
  EXPECT_EQ(SysStringByteLen(nullptr), 0u);
  SysFreeString(nullptr);
}

TEST(Bstr, ClientMayFreeWithTheCHeap) {
  BSTR s = SysAllocString(u"x");
  std::free(reinterpret_cast<char*>(s) - 4);  // what a client's SysFreeString does
}

TEST(Variant, InitIsEmptyAndTakesTwentyFourBytes) {
  EXPECT_EQ(sizeof(VARIANT), 24u);
  VARIANT v;
  std::memset(&v, 0xff, sizeof v);
  VariantInit(&v);
  EXPECT_EQ(v.vt, VT_EMPTY);
}

TEST(Variant, ClearFreesTextAndReleasesObjects) {
  Counted object;
  VARIANT v;
  VariantInit(&v);
  v.vt = VT_DISPATCH;
  v.pdispVal = &object;
  object.AddRef();
  EXPECT_EQ(VariantClear(&v), S_OK);
  EXPECT_EQ(object.refs, 1u);
  EXPECT_EQ(v.vt, VT_EMPTY);

  v.vt = VT_UNKNOWN;
  v.punkVal = &object;
  object.AddRef();
  EXPECT_EQ(VariantClear(&v), S_OK);
  EXPECT_EQ(object.refs, 1u);

  v.vt = VT_BSTR;
  v.bstrVal = SysAllocString(u"freed by the clear");  // a leak would show under ASan
  EXPECT_EQ(VariantClear(&v), S_OK);
  EXPECT_EQ(v.vt, VT_EMPTY);
}

TEST(Variant, ClearOfByReferenceOwnsNothing) {
  Counted object;
  IDispatch* held = &object;
  BSTR text = SysAllocString(u"still mine");
  VARIANT v;
  VariantInit(&v);
  v.vt = VT_BYREF | VT_DISPATCH;
  v.ppdispVal = &held;
  EXPECT_EQ(VariantClear(&v), S_OK);
  EXPECT_EQ(object.refs, 1u);
  v.vt = VT_BYREF | VT_BSTR;
  v.pbstrVal = &text;
  EXPECT_EQ(VariantClear(&v), S_OK);
  EXPECT_EQ(SysStringLen(text), 10u);
  SysFreeString(text);
}

TEST(Variant, ClearRefusesAnUnknownType) {
  VARIANT v;
  VariantInit(&v);
  v.vt = 0x0fff;
  EXPECT_EQ(VariantClear(&v), DISP_E_BADVARTYPE);
}

TEST(Variant, ClearDestroysTheArray) {
  VARIANT v;
  VariantInit(&v);
  v.vt = VT_ARRAY | VT_BSTR;
  v.parray = SafeArrayCreateVector(VT_BSTR, 0, 2);
  static_cast<BSTR*>(v.parray->pvData)[1] = SysAllocString(u"owned by the array");
  EXPECT_EQ(VariantClear(&v), S_OK);
  EXPECT_EQ(v.vt, VT_EMPTY);
}

TEST(Variant, CopyOwnsItsOwnTextAndReference) {
  Counted object;
  VARIANT a, b;
  VariantInit(&a);
  VariantInit(&b);
  a.vt = VT_BSTR;
  a.bstrVal = SysAllocString(u"text");
  ASSERT_EQ(VariantCopy(&b, &a), S_OK);
  EXPECT_EQ(b.vt, VT_BSTR);
  EXPECT_NE(b.bstrVal, a.bstrVal);
  EXPECT_EQ(SysStringLen(b.bstrVal), 4u);
  EXPECT_EQ(std::memcmp(b.bstrVal, u"text", 8), 0);
  VariantClear(&a);

  // Copying over b clears what b held first.
  a.vt = VT_DISPATCH;
  a.pdispVal = &object;
  object.AddRef();
  ASSERT_EQ(VariantCopy(&b, &a), S_OK);
  EXPECT_EQ(object.refs, 3u);
  VariantClear(&a);
  VariantClear(&b);
  EXPECT_EQ(object.refs, 1u);
}

TEST(Variant, CopyOfByReferenceCopiesThePointerAndCopyIndTheValue) {
  BSTR text = SysAllocString(u"abc");
  VARIANT ref, copy;
  VariantInit(&ref);
  VariantInit(&copy);
  ref.vt = VT_BYREF | VT_BSTR;
  ref.pbstrVal = &text;
  ASSERT_EQ(VariantCopy(&copy, &ref), S_OK);
  EXPECT_EQ(copy.vt, VT_BYREF | VT_BSTR);
  EXPECT_EQ(copy.pbstrVal, &text);
  ASSERT_EQ(VariantCopyInd(&copy, &ref), S_OK);
  EXPECT_EQ(copy.vt, VT_BSTR);
  EXPECT_NE(copy.bstrVal, text);
  EXPECT_EQ(SysStringLen(copy.bstrVal), 3u);
  VariantClear(&copy);
  SysFreeString(text);

  double number = 12.5;
  ref.vt = VT_BYREF | VT_R8;
  ref.pdblVal = &number;
  ASSERT_EQ(VariantCopyInd(&copy, &ref), S_OK);
  EXPECT_EQ(copy.vt, VT_R8);
  EXPECT_EQ(copy.dblVal, 12.5);
}

TEST(Variant, CopyOfAnArrayIsDeep) {
  VARIANT a, b;
  VariantInit(&a);
  VariantInit(&b);
  a.vt = VT_ARRAY | VT_BSTR;
  a.parray = SafeArrayCreateVector(VT_BSTR, 0, 1);
  static_cast<BSTR*>(a.parray->pvData)[0] = SysAllocString(u"one");
  ASSERT_EQ(VariantCopy(&b, &a), S_OK);
  ASSERT_NE(b.parray, a.parray);
  BSTR copied = static_cast<BSTR*>(b.parray->pvData)[0];
  EXPECT_NE(copied, static_cast<BSTR*>(a.parray->pvData)[0]);
  EXPECT_EQ(SysStringLen(copied), 3u);
  VariantClear(&a);
  VariantClear(&b);
}

TEST(SafeArray, VectorDescriptorBoundsAndFlags) {
  SAFEARRAY* a = SafeArrayCreateVector(VT_R8, 0, 3);
  ASSERT_NE(a, nullptr);
  EXPECT_EQ(a->cDims, 1);
  EXPECT_EQ(a->cbElements, 8u);
  EXPECT_EQ(a->cLocks, 0u);
  EXPECT_EQ(a->fFeatures & FADF_HAVEVARTYPE, FADF_HAVEVARTYPE);
  LONG lower = -1, upper = -1;
  EXPECT_EQ(SafeArrayGetLBound(a, 1, &lower), S_OK);
  EXPECT_EQ(SafeArrayGetUBound(a, 1, &upper), S_OK);
  EXPECT_EQ(lower, 0);
  EXPECT_EQ(upper, 2);
  EXPECT_EQ(SafeArrayGetLBound(a, 2, &lower), DISP_E_BADINDEX);
  EXPECT_EQ(SafeArrayGetUBound(a, 0, &upper), DISP_E_BADINDEX);
  VARTYPE vt = 0;
  EXPECT_EQ(SafeArrayGetVartype(a, &vt), S_OK);
  EXPECT_EQ(vt, VT_R8);
  const auto* data = static_cast<const double*>(a->pvData);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(data[i], 0.0);
  EXPECT_EQ(SafeArrayDestroy(a), S_OK);
}

TEST(SafeArray, ElementSizesAndFeaturesPerType) {
  struct {
    VARTYPE vt;
    ULONG size;
    USHORT feature;
  } const cases[] = {{VT_UI1, 1, 0},          {VT_I2, 2, 0},
                     {VT_BOOL, 2, 0},         {VT_I4, 4, 0},
                     {VT_DATE, 8, 0},         {VT_BSTR, 8, FADF_BSTR},
                     {VT_DISPATCH, 8, FADF_DISPATCH}, {VT_VARIANT, 24, FADF_VARIANT}};
  for (const auto& c : cases) {
    SAFEARRAY* a = SafeArrayCreateVector(c.vt, 1, 2);
    ASSERT_NE(a, nullptr) << c.vt;
    EXPECT_EQ(a->cbElements, c.size) << c.vt;
    EXPECT_EQ(a->fFeatures, FADF_HAVEVARTYPE | c.feature) << c.vt;
    SafeArrayDestroy(a);
  }
  EXPECT_EQ(SafeArrayCreateVector(VT_EMPTY, 0, 1), nullptr);
}

TEST(SafeArray, BoundsFromAnyLowerBoundAndEmpty) {
  SAFEARRAY* a = SafeArrayCreateVector(VT_BSTR, 1, 5);
  LONG lower = 0, upper = 0;
  SafeArrayGetLBound(a, 1, &lower);
  SafeArrayGetUBound(a, 1, &upper);
  EXPECT_EQ(lower, 1);
  EXPECT_EQ(upper, 5);
  SafeArrayDestroy(a);

  SAFEARRAY* empty = SafeArrayCreateVector(VT_R8, 0, 0);
  ASSERT_NE(empty, nullptr);
  SafeArrayGetUBound(empty, 1, &upper);
  EXPECT_EQ(upper, -1);
  SafeArrayDestroy(empty);
}

TEST(SafeArray, AccessCountsLocksAndALockedArrayStays) {
  SAFEARRAY* a = SafeArrayCreateVector(VT_I2, 0, 2);
  void* data = nullptr;
  EXPECT_EQ(SafeArrayAccessData(a, &data), S_OK);
  EXPECT_EQ(data, a->pvData);
  EXPECT_EQ(a->cLocks, 1u);
  static_cast<SHORT*>(data)[1] = 7;
  EXPECT_EQ(SafeArrayDestroy(a), DISP_E_ARRAYISLOCKED);
  EXPECT_EQ(SafeArrayUnaccessData(a), S_OK);
  EXPECT_EQ(a->cLocks, 0u);
  EXPECT_EQ(SafeArrayUnaccessData(a), E_UNEXPECTED);
  EXPECT_EQ(SafeArrayDestroy(a), S_OK);
}

TEST(SafeArray, DestroyReleasesObjectsAndClearsVariants) {
  Counted object;
  SAFEARRAY* objects = SafeArrayCreateVector(VT_DISPATCH, 0, 2);
  static_cast<IDispatch**>(objects->pvData)[0] = &object;
  object.AddRef();
  EXPECT_EQ(SafeArrayDestroy(objects), S_OK);
  EXPECT_EQ(object.refs, 1u);

  SAFEARRAY* variants = SafeArrayCreateVector(VT_VARIANT, 0, 2);
  auto* items = static_cast<VARIANT*>(variants->pvData);
  EXPECT_EQ(items[0].vt, VT_EMPTY);
  items[0].vt = VT_DISPATCH;
  items[0].pdispVal = &object;
  object.AddRef();
  items[1].vt = VT_BSTR;
  items[1].bstrVal = SysAllocString(u"cleared with the array");
  EXPECT_EQ(SafeArrayDestroy(variants), S_OK);
  EXPECT_EQ(object.refs, 1u);
  EXPECT_EQ(SafeArrayDestroy(nullptr), S_OK);
}

}  // namespace
