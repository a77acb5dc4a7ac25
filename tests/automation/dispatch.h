// Helpers for the automation tests: late-bound property access as a client
// makes it, with the VARIANTs owned by the helper.
#ifndef CORVANE_TESTS_AUTOMATION_DISPATCH_H_
#define CORVANE_TESTS_AUTOMATION_DISPATCH_H_

#include <string>
#include <vector>

#include "corvane/automation.h"
#include "corvane/automation/bridge.h"

namespace corvane::testing {

// A VARIANT that clears itself.
struct Var {
  VARIANT v;
  Var() { VariantInit(&v); }
  explicit Var(const char* text) : Var() {
    v.vt = VT_BSTR;
    v.bstrVal = automation::ToBstr(text);
  }
  explicit Var(double number) : Var() {
    v.vt = VT_R8;
    v.dblVal = number;
  }
  static Var I2(SHORT n) {
    Var x;
    x.v.vt = VT_I2;
    x.v.iVal = n;
    return x;
  }
  static Var I4(LONG n) {
    Var x;
    x.v.vt = VT_I4;
    x.v.lVal = n;
    return x;
  }
  static Var DateOf(double serial) {
    Var x;
    x.v.vt = VT_DATE;
    x.v.date = serial;
    return x;
  }
  Var(Var&& other) noexcept : v(other.v) { VariantInit(&other.v); }
  Var(const Var&) = delete;
  Var& operator=(const Var&) = delete;
  ~Var() { VariantClear(&v); }
  std::string Text() const { return v.vt == VT_BSTR ? automation::ToUtf8(v.bstrVal) : "<not text>"; }
};

// The DISPID of name, or DISPID_UNKNOWN with the HRESULT in *hr.
inline DISPID IdOf(IDispatch* obj, const std::u16string& name, HRESULT* hr = nullptr) {
  BSTR wide = SysAllocStringLen(name.data(), static_cast<UINT>(name.size()));
  DISPID id = DISPID_UNKNOWN;
  const HRESULT result = obj->GetIDsOfNames(IID_NULL, &wide, 1, LOCALE_USER_DEFAULT, &id);
  SysFreeString(wide);
  if (hr != nullptr) *hr = result;
  return id;
}

inline HRESULT Put(IDispatch* obj, DISPID id, VARIANT value) {
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS params{&value, &named, 1, 1};
  return obj->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &params, nullptr,
                     nullptr, nullptr);
}

inline HRESULT Get(IDispatch* obj, DISPID id, Var* out) {
  DISPPARAMS params{nullptr, nullptr, 0, 0};
  return obj->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &params, &out->v,
                     nullptr, nullptr);
}

}  // namespace corvane::testing

#endif  // CORVANE_TESTS_AUTOMATION_DISPATCH_H_
