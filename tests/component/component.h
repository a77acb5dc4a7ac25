// Test support for the component module: it is loaded with dlopen by its
// path in the build tree and reached through its four exports only, as an
// outside client reaches it. Objects are held by Ref, arguments are VARIANTs
// made and freed here, and calls go late-bound through GetIDsOfNames and
// Invoke (arguments reversed, as the standard wants) or early-bound through
// a vtable slot.
#ifndef CORVANE_TESTS_COMPONENT_COMPONENT_H_
#define CORVANE_TESTS_COMPONENT_COMPONENT_H_

#include <dlfcn.h>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "corvane/automation.h"
#include "corvane/automation/bridge.h"

namespace corvane::testing {

inline std::string ModulePath() {
  return std::string(CORVANE_BINARY_DIR) + "/libcorvane_component.so";
}

// The module's four exports, loaded once for the program.
struct Module {
  CorvaneDllGetClassObjectFn GetClassObject = nullptr;
  CorvaneDllCanUnloadNowFn CanUnloadNow = nullptr;
  CorvaneDllRegisterServerFn RegisterServer = nullptr;
  CorvaneDllUnregisterServerFn UnregisterServer = nullptr;
  void* handle = nullptr;

  static const Module& Get() {
    static const Module module = [] {
      Module m;
      m.handle = dlopen(ModulePath().c_str(), RTLD_NOW | RTLD_LOCAL);
      if (m.handle == nullptr) {
        ADD_FAILURE() << "dlopen: " << dlerror();
        return m;
      }
      m.GetClassObject =
          reinterpret_cast<CorvaneDllGetClassObjectFn>(dlsym(m.handle, "DllGetClassObject"));
      m.CanUnloadNow =
          reinterpret_cast<CorvaneDllCanUnloadNowFn>(dlsym(m.handle, "DllCanUnloadNow"));
      m.RegisterServer =
          reinterpret_cast<CorvaneDllRegisterServerFn>(dlsym(m.handle, "DllRegisterServer"));
      m.UnregisterServer =
          reinterpret_cast<CorvaneDllUnregisterServerFn>(dlsym(m.handle, "DllUnregisterServer"));
      return m;
    }();
    return module;
  }
};

// An owned interface reference.
template <class T>
class Ref {
 public:
  Ref() = default;
  explicit Ref(T* p) : p_(p) {}
  Ref(const Ref&) = delete;
  Ref& operator=(const Ref&) = delete;
  Ref(Ref&& o) noexcept : p_(std::exchange(o.p_, nullptr)) {}
  Ref& operator=(Ref&& o) noexcept {
    reset(std::exchange(o.p_, nullptr));
    return *this;
  }
  ~Ref() { reset(); }
  void reset(T* p = nullptr) {
    if (p_ != nullptr) p_->Release();
    p_ = p;
  }
  T* get() const { return p_; }
  T* operator->() const { return p_; }
  T** put() {
    reset();
    return &p_;
  }
  explicit operator bool() const { return p_ != nullptr; }

 private:
  T* p_ = nullptr;
};

// The class of that identifier, created through its factory; asks for the
// default interface iid.
inline HRESULT CreateByClsid(const CLSID& clsid, const IID& iid, IDispatch** out) {
  Ref<IClassFactory> factory;
  HRESULT hr = Module::Get().GetClassObject(clsid, IID_IClassFactory,
                                            reinterpret_cast<void**>(factory.put()));
  if (FAILED(hr)) return hr;
  return factory->CreateInstance(nullptr, iid, reinterpret_cast<void**>(out));
}

inline Ref<IDispatch> Create(const CLSID& clsid) {
  Ref<IDispatch> d;
  EXPECT_EQ(CreateByClsid(clsid, IID_IDispatch, d.put()), S_OK);
  return d;
}

// ---- Values ------------------------------------------------------------

inline std::u16string U(std::string_view s) {
  return std::u16string(s.begin(), s.end());  // ASCII names
}

// A VARIANT that frees what it holds.
struct Var {
  VARIANT v;
  Var() { VariantInit(&v); }
  Var(const Var&) = delete;
  Var& operator=(const Var&) = delete;
  ~Var() { VariantClear(&v); }
  VARIANT* operator&() { return &v; }
};

inline VARIANT Bstr(std::string_view text) {
  VARIANT v;
  VariantInit(&v);
  v.vt = VT_BSTR;
  v.bstrVal = automation::ToBstr(text);
  return v;
}
inline VARIANT R8(double d) {
  VARIANT v;
  VariantInit(&v);
  v.vt = VT_R8;
  v.dblVal = d;
  return v;
}
inline VARIANT I2(std::int16_t i) {
  VARIANT v;
  VariantInit(&v);
  v.vt = VT_I2;
  v.iVal = i;
  return v;
}
inline VARIANT I4(std::int32_t i) {
  VARIANT v;
  VariantInit(&v);
  v.vt = VT_I4;
  v.lVal = i;
  return v;
}
inline VARIANT Dispatch(IDispatch* d) {  // borrowed: not released by the VARIANT
  VARIANT v;
  VariantInit(&v);
  v.vt = VT_DISPATCH;
  v.pdispVal = d;
  return v;
}
inline VARIANT ByRef(VARTYPE vt, void* where) {
  VARIANT v;
  VariantInit(&v);
  v.vt = static_cast<VARTYPE>(VT_BYREF | vt);
  v.byref = where;
  return v;
}
inline std::string Text(BSTR s) { return s == nullptr ? std::string() : automation::ToUtf8(s); }

// ---- Calls ---------------------------------------------------------------

inline HRESULT IdOf(IDispatch* d, const std::string& name, DISPID* id) {
  std::u16string wide = U(name);
  LPOLESTR names[] = {wide.data()};
  return d->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, id);
}

// A late-bound method call with args in call order; they are handed over
// reversed. The args' contents stay the caller's.
inline HRESULT Late(IDispatch* d, const std::string& name, std::vector<VARIANT> args,
                    VARIANT* result, EXCEPINFO* info = nullptr, UINT* arg_err = nullptr) {
  DISPID id = DISPID_UNKNOWN;
  HRESULT hr = IdOf(d, name, &id);
  if (FAILED(hr)) return hr;
  std::vector<VARIANT> reversed(args.rbegin(), args.rend());
  DISPPARAMS params{reversed.empty() ? nullptr : reversed.data(), nullptr,
                    static_cast<UINT>(reversed.size()), 0};
  EXCEPINFO local{};
  UINT err = 0;
  hr = d->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, result,
                 info == nullptr ? &local : info, arg_err == nullptr ? &err : arg_err);
  SysFreeString(local.bstrSource);
  SysFreeString(local.bstrDescription);
  SysFreeString(local.bstrHelpFile);
  return hr;
}

// The early-bound slot of index (7 is the first method) as a function.
template <class Fn>
Fn Slot(IDispatch* d, int index) {
  void* const* vtbl = *reinterpret_cast<void* const* const*>(d);
  return reinterpret_cast<Fn>(vtbl[index]);
}

// ---- Entities and collections of the library ------------------------------

inline Ref<IDispatch> Entity(const char* name) {
  Ref<IDispatch> e;
  EXPECT_EQ(CorvaneCreateEntity(name, e.put()), S_OK);
  return e;
}
inline Ref<IDispatch> NewCollection() {
  Ref<IDispatch> c;
  EXPECT_EQ(CorvaneCreateCollection(c.put()), S_OK);
  return c;
}
// The value stays the caller's.
inline void Put(IDispatch* d, const char* name, VARIANT value) {
  std::vector<VARIANT> args{value};
  EXPECT_EQ(automation::CallByName(d, name, DISPATCH_PROPERTYPUT, args, nullptr), S_OK) << name;
}
inline corvane::Variant Get(IDispatch* d, const char* name) {
  std::vector<VARIANT> args;
  Var v;
  EXPECT_EQ(automation::CallByName(d, name, DISPATCH_PROPERTYGET, args, &v), S_OK) << name;
  corvane::Variant out;
  EXPECT_EQ(automation::FromVariant(v.v, &out), S_OK);
  return out;
}
inline long Count(IDispatch* c) {
  std::vector<VARIANT> args;
  Var v;
  EXPECT_EQ(automation::CallByName(c, "Count", DISPATCH_PROPERTYGET | DISPATCH_METHOD, args, &v),
            S_OK);
  corvane::Variant out;
  EXPECT_EQ(automation::FromVariant(v.v, &out), S_OK);
  return out.CLng();
}
inline Ref<IDispatch> Item(IDispatch* c, int index) {
  std::vector<VARIANT> args{I4(index)};
  Var v;
  EXPECT_EQ(automation::CallByName(c, "Item", DISPATCH_PROPERTYGET | DISPATCH_METHOD, args, &v),
            S_OK);
  Ref<IDispatch> item;
  if (v.v.vt == VT_DISPATCH && v.v.pdispVal != nullptr) {
    v.v.pdispVal->AddRef();
    item.reset(v.v.pdispVal);
  }
  return item;
}

}  // namespace corvane::testing

#endif  // CORVANE_TESTS_COMPONENT_COMPONENT_H_

