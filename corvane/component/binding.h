// How a C++ repository method is bound to the boundary. The argument and
// result types are deduced from the member function's signature; whether an
// argument is passed by value or by reference, and the names, come from the
// class's table (class_table.cc). From both come the late-bound call
// (VARIANTs in, VARIANTs out) and the early-bound vtable slot, which wraps
// its native arguments in VARIANTs and takes the same road.
#ifndef CORVANE_COMPONENT_BINDING_H_
#define CORVANE_COMPONENT_BINDING_H_

#include <array>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

#include "corvane/automation.h"
#include "corvane/automation/bridge.h"
#include "corvane/component/method_table.h"
#include "corvane/component/object.h"
#include "corvane/corvane.h"

namespace corvane::component {

// By value or by reference, as the class's method table says.
enum Pass : bool { kRef = false, kVal = true };

// ---- Entities ----------------------------------------------------------

template <class E>
struct EntityName;
#define CORVANE_COMPONENT_ENTITY(E) \
  template <>                       \
  struct EntityName<E> {            \
    static constexpr std::string_view value = #E; \
  };
CORVANE_COMPONENT_ENTITY(clsEntBOrderType)
CORVANE_COMPONENT_ENTITY(clsEntBOrderh)
CORVANE_COMPONENT_ENTITY(clsEntBOrderi)
CORVANE_COMPONENT_ENTITY(clsEntBOrdChange)
CORVANE_COMPONENT_ENTITY(clsEntSitemNo)
CORVANE_COMPONENT_ENTITY(clsEntBPriceh)
CORVANE_COMPONENT_ENTITY(clsEntBPricei)
CORVANE_COMPONENT_ENTITY(clsEntSCurrency)
CORVANE_COMPONENT_ENTITY(clsEntBOutMakeh)
CORVANE_COMPONENT_ENTITY(clsEntBOutMakei)
CORVANE_COMPONENT_ENTITY(clsEntBCosth)
CORVANE_COMPONENT_ENTITY(clsEntBCosti)
CORVANE_COMPONENT_ENTITY(clsEntBCosts)
CORVANE_COMPONENT_ENTITY(clsEntBWageSort)
CORVANE_COMPONENT_ENTITY(clsEntEGoodsType)
CORVANE_COMPONENT_ENTITY(clsEntBCustom)
CORVANE_COMPONENT_ENTITY(clsEntBSaler)
CORVANE_COMPONENT_ENTITY(clsEntBCStudy)
CORVANE_COMPONENT_ENTITY(clsEntBSample)
#undef CORVANE_COMPONENT_ENTITY

// What one call carries besides its arguments: the entity objects made for
// the caller's collections (so that an entity variable that the method
// pointed at a collection's entity refers to the same object), and the
// references held until the call ends.
class CallContext {
 public:
  CallContext() = default;
  CallContext(const CallContext&) = delete;
  CallContext& operator=(const CallContext&) = delete;
  ~CallContext() {
    for (IDispatch* d : held_) d->Release();
  }
  void Made(const void* entity, IDispatch* object) {
    made_[entity] = object;
    held_.push_back(object);
  }
  IDispatch* Find(const void* entity) const {
    const auto it = made_.find(entity);
    return it == made_.end() ? nullptr : it->second;
  }

 private:
  std::map<const void*, IDispatch*> made_;
  std::vector<IDispatch*> held_;
};

// ---- Values ------------------------------------------------------------

// The VARIANT an argument stands in: a VT_BYREF|VT_VARIANT is followed.
inline VARIANT* Target(VARIANT* v) {
  while (v->vt == (VT_BYREF | VT_VARIANT) && v->pvarVal != nullptr) v = v->pvarVal;
  return v;
}

// A plain by-value view of a by-reference VARIANT, sharing its contents.
inline VARIANT ValueView(const VARIANT& v) {
  if (!(v.vt & VT_BYREF)) return v;
  VARIANT view;
  std::memset(&view, 0, sizeof view);
  view.vt = static_cast<VARTYPE>(v.vt & ~VT_BYREF);
  if (v.byref == nullptr) {
    view.vt = VT_EMPTY;
    return view;
  }
  switch (view.vt) {
    case VT_I2: view.iVal = *v.piVal; break;
    case VT_I4: view.lVal = *v.plVal; break;
    case VT_R8: view.dblVal = *v.pdblVal; break;
    case VT_DATE: view.date = *v.pdate; break;
    case VT_BOOL: view.boolVal = *v.pboolVal; break;
    case VT_BSTR: view.bstrVal = *v.pbstrVal; break;
    case VT_UI1: view.bVal = *v.pbVal; break;
    case VT_DISPATCH: view.pdispVal = *v.ppdispVal; break;
    case VT_R4: view.fltVal = *static_cast<float*>(v.byref); break;
    case VT_I8:
    case VT_CY: view.llVal = *static_cast<LONGLONG*>(v.byref); break;
    default:
      if (view.vt & VT_ARRAY) {
        view.parray = *v.pparray;
      } else {
        view.vt = static_cast<VARTYPE>(v.vt & ~VT_BYREF);  // left for FromVariant to refuse
        view.byref = v.byref;
      }
  }
  return view;
}

inline HRESULT ErrorHresult(const corvane::Error& e) {
  return e.Number() == errc::kOverflow ? DISP_E_OVERFLOW : DISP_E_TYPEMISMATCH;
}

// Reads a scalar argument as the host runtime converts it.
template <class T>
HRESULT ReadScalar(const VARIANT& v, T* out, Refusal* refusal) {
  corvane::Variant value;
  const VARIANT view = ValueView(v);
  HRESULT hr = automation::FromVariant(view, &value);
  if (FAILED(hr)) {
    refusal->hr = hr;
    refusal->description = "Type mismatch";
    return hr;
  }
  try {
    if constexpr (std::is_same_v<T, std::string>) {
      *out = std::move(value).CStr();
    } else if constexpr (std::is_same_v<T, double>) {
      *out = value.CDbl();
    } else if constexpr (std::is_same_v<T, std::int16_t>) {
      *out = value.CInt();
    } else if constexpr (std::is_same_v<T, Date>) {
      *out = value.CDate();
    } else if constexpr (std::is_same_v<T, bool>) {
      *out = value.CBool();
    }
  } catch (const corvane::Error& e) {
    refusal->hr = ErrorHresult(e);
    refusal->description = e.Description();
    return refusal->hr;
  }
  return S_OK;
}

template <class T>
constexpr VARTYPE ScalarVt() {
  if constexpr (std::is_same_v<T, std::string>) return VT_BSTR;
  else if constexpr (std::is_same_v<T, double>) return VT_R8;
  else if constexpr (std::is_same_v<T, std::int16_t>) return VT_I2;
  else if constexpr (std::is_same_v<T, Date>) return VT_DATE;
  else return VT_BOOL;
}

template <class T>
constexpr Kind ScalarKind() {
  if constexpr (std::is_same_v<T, std::string>) return Kind::kText;
  else if constexpr (std::is_same_v<T, double>) return Kind::kR8;
  else if constexpr (std::is_same_v<T, std::int16_t>) return Kind::kI2;
  else if constexpr (std::is_same_v<T, Date>) return Kind::kDate;
  else return Kind::kBool;
}

// Stores a scalar in a VARIANT that holds nothing that needs freeing.
template <class T>
void StoreScalar(const T& value, VARIANT* out) {
  VariantInit(out);
  out->vt = ScalarVt<T>();
  if constexpr (std::is_same_v<T, std::string>) out->bstrVal = automation::ToBstr(value);
  else if constexpr (std::is_same_v<T, double>) out->dblVal = value;
  else if constexpr (std::is_same_v<T, std::int16_t>) out->iVal = value;
  else if constexpr (std::is_same_v<T, Date>) out->date = value.Serial();
  else out->boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

// Writes a scalar back through a by-reference argument of the same type, or
// into the VARIANT a VT_BYREF|VT_VARIANT refers to.
template <class T>
void WriteBackScalar(const T& value, VARIANT* arg) {
  if (arg->vt == (VT_BYREF | VT_VARIANT)) {
    VARIANT* inner = Target(arg);
    VariantClear(inner);
    StoreScalar(value, inner);
    return;
  }
  if (arg->vt != (VT_BYREF | ScalarVt<T>()) || arg->byref == nullptr) return;
  if constexpr (std::is_same_v<T, std::string>) {
    SysFreeString(*arg->pbstrVal);
    *arg->pbstrVal = automation::ToBstr(value);
  } else if constexpr (std::is_same_v<T, double>) {
    *arg->pdblVal = value;
  } else if constexpr (std::is_same_v<T, std::int16_t>) {
    *arg->piVal = value;
  } else if constexpr (std::is_same_v<T, Date>) {
    *arg->pdate = value.Serial();
  } else {
    *arg->pboolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
}

// The caller's object in an entity or collection argument; null for Nothing.
inline HRESULT ReadObject(VARIANT* arg, IDispatch** out, Refusal* refusal) {
  const VARIANT* v = Target(arg);
  if (v->vt == VT_DISPATCH) {
    *out = v->pdispVal;
  } else if (v->vt == (VT_BYREF | VT_DISPATCH)) {
    *out = v->ppdispVal == nullptr ? nullptr : *v->ppdispVal;
  } else if (v->vt == VT_EMPTY || v->vt == VT_NULL) {
    *out = nullptr;
  } else {
    refusal->hr = DISP_E_TYPEMISMATCH;
    refusal->description = "Type mismatch: an object is required";
    return DISP_E_TYPEMISMATCH;
  }
  return S_OK;
}

inline HRESULT RequireObject(IDispatch* object, Refusal* refusal) {
  if (object != nullptr) return S_OK;
  refusal->hr = E_POINTER;
  refusal->description = "Object required";
  return E_POINTER;
}

inline HRESULT BridgeRefusal(HRESULT hr, const char* what, Refusal* refusal) {
  refusal->hr = hr;
  refusal->description = what;
  return hr;
}

// Replaces the object a by-reference entity argument refers to.
inline void ReplaceObject(VARIANT* arg, IDispatch* object) {
  VARIANT* v = Target(arg);
  if (v->vt == (VT_BYREF | VT_DISPATCH) && v->ppdispVal != nullptr) {
    if (object != nullptr) object->AddRef();
    if (*v->ppdispVal != nullptr) (*v->ppdispVal)->Release();
    *v->ppdispVal = object;
  } else if (v->vt == VT_DISPATCH || v->vt == VT_EMPTY || v->vt == VT_NULL) {
    if (arg->vt != (VT_BYREF | VT_VARIANT)) return;  // passed by value: nothing to replace
    if (object != nullptr) object->AddRef();
    VariantClear(v);
    v->vt = VT_DISPATCH;
    v->pdispVal = object;
  }
}

// ---- Arrays ------------------------------------------------------------

template <class T>
constexpr VARTYPE ElementVt() {
  if constexpr (std::is_same_v<T, std::uint8_t>) return VT_UI1;
  else if constexpr (std::is_same_v<T, double>) return VT_R8;
  else return VT_BSTR;
}

// The caller's array argument, by value or by reference; null for none.
inline HRESULT ReadArrayRef(VARIANT* arg, VARTYPE element, SAFEARRAY*** where, SAFEARRAY** value,
                            Refusal* refusal) {
  VARIANT* v = Target(arg);
  *where = nullptr;
  *value = nullptr;
  if (v->vt == (VT_BYREF | VT_ARRAY | element)) {
    *where = v->pparray;
    *value = v->pparray == nullptr ? nullptr : *v->pparray;
  } else if (v->vt == (VT_ARRAY | element)) {
    *value = v->parray;
    if (arg->vt == (VT_BYREF | VT_VARIANT)) *where = &v->parray;
  } else if (v->vt == VT_EMPTY) {
    if (arg->vt == (VT_BYREF | VT_VARIANT)) *where = nullptr;  // filled below as a new array
  } else {
    refusal->hr = DISP_E_TYPEMISMATCH;
    refusal->description = "Type mismatch: an array is required";
    return DISP_E_TYPEMISMATCH;
  }
  return S_OK;
}

template <class T>
HRESULT ArrayToVector(SAFEARRAY* sa, std::vector<T>* out, Refusal* refusal) {
  out->clear();
  if (sa == nullptr) return S_OK;
  if (sa->cDims != 1) {
    return BridgeRefusal(DISP_E_TYPEMISMATCH, "Type mismatch: one dimension expected", refusal);
  }
  void* data = nullptr;
  HRESULT hr = SafeArrayAccessData(sa, &data);
  if (FAILED(hr)) return BridgeRefusal(hr, "The array cannot be read", refusal);
  const ULONG n = sa->rgsabound[0].cElements;
  out->reserve(n);
  for (ULONG i = 0; i < n; ++i) {
    if constexpr (std::is_same_v<T, std::string>) {
      BSTR s = static_cast<BSTR*>(data)[i];
      out->push_back(s == nullptr ? std::string() : automation::ToUtf8(s, SysStringLen(s)));
    } else {
      out->push_back(static_cast<T*>(data)[i]);
    }
  }
  SafeArrayUnaccessData(sa);
  return S_OK;
}

// A new array of bounds 0 to size-1; null for an empty vector.
template <class T>
SAFEARRAY* VectorToArray(const std::vector<T>& values) {
  if (values.empty()) return nullptr;
  SAFEARRAY* sa = SafeArrayCreateVector(ElementVt<T>(), 0, static_cast<ULONG>(values.size()));
  if (sa == nullptr) return nullptr;
  void* data = nullptr;
  if (FAILED(SafeArrayAccessData(sa, &data))) return sa;
  for (std::size_t i = 0; i < values.size(); ++i) {
    if constexpr (std::is_same_v<T, std::string>) {
      static_cast<BSTR*>(data)[i] = automation::ToBstr(values[i]);
    } else {
      static_cast<T*>(data)[i] = values[i];
    }
  }
  SafeArrayUnaccessData(sa);
  return sa;
}

// ---- Arguments ---------------------------------------------------------

// Arg<A>: how a C++ parameter of type A crosses the boundary. Holder is
// what the call passes; In reads the caller's VARIANT into it, Out writes
// back what the caller should see, Abi<P> is the early-bound type and Wrap
// turns an early-bound argument into a VARIANT.
template <class A>
struct Arg;

template <class T>
concept ScalarType = std::is_same_v<T, std::string> || std::is_same_v<T, double> ||
                     std::is_same_v<T, std::int16_t> || std::is_same_v<T, Date>;
template <class E>
concept EntityType = requires { EntityName<E>::value; };

template <class A>
struct ScalarArg {
  using T = std::remove_cvref_t<A>;
  using Holder = T;
  static constexpr bool kCollection = false;
  static constexpr bool kSets = std::is_lvalue_reference_v<A> &&
                                !std::is_const_v<std::remove_reference_t<A>>;
  static ArgInfo Info(std::string_view name, Pass pass) {
    return {name, ScalarKind<T>(), pass == kRef, {}, VT_EMPTY};
  }
  static HRESULT In(VARIANT* arg, Pass pass, Holder& h, CallContext&, Refusal* refusal) {
    // A by-reference argument of another type is refused, as the standard
    // dispatcher refuses it: the method could not write back into it.
    if (pass == kRef && (arg->vt & VT_BYREF) && arg->vt != (VT_BYREF | VT_VARIANT) &&
        arg->vt != (VT_BYREF | ScalarVt<T>())) {
      refusal->hr = DISP_E_TYPEMISMATCH;
      refusal->description = "Type mismatch: by-reference argument of another type";
      return DISP_E_TYPEMISMATCH;
    }
    return ReadScalar(*Target(arg), &h, refusal);
  }
  static Holder& Give(Holder& h) { return h; }
  static void Out(VARIANT* arg, Pass pass, Holder& h, CallContext&) {
    if (kSets && pass == kRef) WriteBackScalar(h, arg);
  }
  template <Pass P>
  using Abi = std::conditional_t<
      P == kVal,
      std::conditional_t<std::is_same_v<T, std::string>, BSTR,
                         std::conditional_t<std::is_same_v<T, Date>, DATE,
                                            std::conditional_t<std::is_same_v<T, bool>,
                                                               VARIANT_BOOL, T>>>,
      std::conditional_t<std::is_same_v<T, std::string>, BSTR*,
                         std::conditional_t<std::is_same_v<T, Date>, DATE*,
                                            std::conditional_t<std::is_same_v<T, bool>,
                                                               VARIANT_BOOL*, T*>>>>;
  template <Pass P>
  static VARIANT Wrap(Abi<P> a) {
    VARIANT v;
    VariantInit(&v);
    if constexpr (P == kVal) {
      v.vt = ScalarVt<T>();
      if constexpr (std::is_same_v<T, std::string>) v.bstrVal = a;
      else if constexpr (std::is_same_v<T, double>) v.dblVal = a;
      else if constexpr (std::is_same_v<T, std::int16_t>) v.iVal = a;
      else if constexpr (std::is_same_v<T, Date>) v.date = a;
      else v.boolVal = a;
    } else {
      v.vt = VT_BYREF | ScalarVt<T>();
      v.byref = a;
    }
    return v;
  }
};

template <class A>
  requires ScalarType<std::remove_cvref_t<A>>
struct Arg<A> : ScalarArg<A> {};

// What the arguments reached through IDispatch (entities, entity variables,
// collections) have alike in a vtable slot: IDispatch**, given to the
// dispatcher as a VT_BYREF|VT_DISPATCH.
struct DispatchSlot {
  template <Pass P>
  using Abi = IDispatch**;
  template <Pass P>
  static VARIANT Wrap(IDispatch** a) {
    VARIANT v;
    VariantInit(&v);
    v.vt = VT_BYREF | VT_DISPATCH;
    v.ppdispVal = a;
    return v;
  }
};

// An entity, given by reference (E&, const E&): read before the call and
// written back after it.
template <class A>
  requires(std::is_lvalue_reference_v<A> && EntityType<std::remove_cvref_t<A>>)
struct Arg<A> : DispatchSlot {
  using E = std::remove_cvref_t<A>;
  struct Holder {
    E value;
    IDispatch* object = nullptr;
  };
  static constexpr bool kCollection = false;
  static ArgInfo Info(std::string_view name, Pass pass) {
    return {name, Kind::kEntity, pass == kRef, EntityName<E>::value, VT_EMPTY};
  }
  static HRESULT In(VARIANT* arg, Pass, Holder& h, CallContext&, Refusal* refusal) {
    HRESULT hr = ReadObject(arg, &h.object, refusal);
    if (FAILED(hr)) return hr;
    hr = RequireObject(h.object, refusal);
    if (FAILED(hr)) return hr;
    hr = automation::ReadEntity(h.object, h.value);
    if (FAILED(hr)) return BridgeRefusal(hr, "The entity's properties cannot be read", refusal);
    return S_OK;
  }
  static E& Give(Holder& h) { return h.value; }
  static void Out(VARIANT*, Pass, Holder& h, CallContext&) {
    if constexpr (!std::is_const_v<std::remove_reference_t<A>>) {
      automation::WriteEntity(h.value, h.object);
    }
  }
};

// An entity variable the method may point at another entity
// (std::shared_ptr<E>&): the caller's variable then refers to that entity's
// object, the one in the caller's collection where the method added it.
template <class E>
struct Arg<std::shared_ptr<E>&> : DispatchSlot {
  struct Holder {
    std::shared_ptr<E> value;
    std::shared_ptr<E> before;  // kept alive, so that no new entity takes its address
    IDispatch* object = nullptr;
  };
  static constexpr bool kCollection = false;
  static ArgInfo Info(std::string_view name, Pass pass) {
    return {name, Kind::kEntity, pass == kRef, EntityName<E>::value, VT_EMPTY};
  }
  static HRESULT In(VARIANT* arg, Pass, Holder& h, CallContext&, Refusal* refusal) {
    HRESULT hr = ReadObject(arg, &h.object, refusal);
    if (FAILED(hr)) return hr;
    if (h.object != nullptr) {
      h.value = std::make_shared<E>();
      hr = automation::ReadEntity(h.object, *h.value);
      if (FAILED(hr)) return BridgeRefusal(hr, "The entity's properties cannot be read", refusal);
    }
    h.before = h.value;
    return S_OK;
  }
  static std::shared_ptr<E>& Give(Holder& h) { return h.value; }
  static void Out(VARIANT* arg, Pass, Holder& h, CallContext& context) {
    if (h.value == h.before) {
      if (h.value != nullptr) automation::WriteEntity(*h.value, h.object);
      return;
    }
    IDispatch* object = h.value == nullptr ? nullptr : context.Find(h.value.get());
    if (object == nullptr && h.value != nullptr) {
      if (FAILED(automation::NewEntityObject(*h.value, &object))) return;
      context.Made(h.value.get(), object);
    }
    ReplaceObject(arg, object);
  }
};

// A collection: the method fills a fresh one, and each entity it added is
// appended to the caller's collection through its Add member.
template <class E>
struct Arg<Collection<E>*> : DispatchSlot {
  struct Holder {
    Collection<E> value;
    IDispatch* object = nullptr;
  };
  static constexpr bool kCollection = true;
  static ArgInfo Info(std::string_view name, Pass pass) {
    return {name, Kind::kCollection, pass == kRef, EntityName<E>::value, VT_EMPTY};
  }
  static HRESULT In(VARIANT* arg, Pass, Holder& h, CallContext&, Refusal* refusal) {
    HRESULT hr = ReadObject(arg, &h.object, refusal);
    if (FAILED(hr)) return hr;
    return RequireObject(h.object, refusal);
  }
  static Collection<E>* Give(Holder& h) { return &h.value; }
  static void Out(VARIANT*, Pass, Holder& h, CallContext& context) {
    for (const std::shared_ptr<E>& item : h.value) {
      IDispatch* object = context.Find(item.get());
      if (object == nullptr) {
        if (FAILED(automation::NewEntityObject(*item, &object))) continue;
        context.Made(item.get(), object);
      }
      std::vector<VARIANT> args(1);
      VariantInit(&args[0]);
      args[0].vt = VT_DISPATCH;
      args[0].pdispVal = object;
      automation::CallByName(h.object, "Add", DISPATCH_METHOD, args, nullptr);
    }
  }
};

// An array of bytes, numbers or texts, by reference.
template <class T>
struct Arg<std::vector<T>&> {
  struct Holder {
    std::vector<T> value;
    SAFEARRAY** where = nullptr;
  };
  static constexpr bool kCollection = false;
  static ArgInfo Info(std::string_view name, Pass pass) {
    return {name, Kind::kArray, pass == kRef, {}, ElementVt<T>()};
  }
  static HRESULT In(VARIANT* arg, Pass, Holder& h, CallContext&, Refusal* refusal) {
    SAFEARRAY* sa = nullptr;
    HRESULT hr = ReadArrayRef(arg, ElementVt<T>(), &h.where, &sa, refusal);
    if (FAILED(hr)) return hr;
    return ArrayToVector(sa, &h.value, refusal);
  }
  static std::vector<T>& Give(Holder& h) { return h.value; }
  static void Out(VARIANT* arg, Pass pass, Holder& h, CallContext&) {
    if (pass != kRef) return;
    VARIANT* v = Target(arg);
    if (h.where != nullptr) {
      if (*h.where != nullptr) SafeArrayDestroy(*h.where);
      *h.where = VectorToArray(h.value);
      if (v->vt == (VT_ARRAY | ElementVt<T>()) && *h.where == nullptr) v->vt = VT_EMPTY;
    } else if (arg->vt == (VT_BYREF | VT_VARIANT) && v->vt == VT_EMPTY) {
      SAFEARRAY* sa = VectorToArray(h.value);
      if (sa != nullptr) {
        v->vt = VT_ARRAY | ElementVt<T>();
        v->parray = sa;
      }
    }
  }
  template <Pass P>
  using Abi = SAFEARRAY**;
  template <Pass P>
  static VARIANT Wrap(SAFEARRAY** a) {
    VARIANT v;
    VariantInit(&v);
    v.vt = VT_BYREF | VT_ARRAY | ElementVt<T>();
    v.pparray = a;
    return v;
  }
};

// ---- Results -----------------------------------------------------------

template <class R>
struct Result {
  static constexpr Kind kKind = ScalarKind<R>();
  using Abi = typename ScalarArg<R>::template Abi<kRef>;
  static HRESULT Store(R&& value, VARIANT* out) {
    StoreScalar(value, out);
    return S_OK;
  }
  static void Give(VARIANT& v, Abi out) {
    if constexpr (std::is_same_v<R, std::string>) *out = v.bstrVal;
    else if constexpr (std::is_same_v<R, double>) *out = v.dblVal;
    else if constexpr (std::is_same_v<R, std::int16_t>) *out = v.iVal;
    else if constexpr (std::is_same_v<R, Date>) *out = v.date;
    else *out = v.boolVal;
  }
};

template <>
struct Result<corvane::Variant> {
  static constexpr Kind kKind = Kind::kVariant;
  using Abi = VARIANT*;
  static HRESULT Store(corvane::Variant&& value, VARIANT* out) {
    return automation::ToVariant(value, out);
  }
  static void Give(VARIANT& v, VARIANT* out) { *out = v; }
};

// ---- The binding -------------------------------------------------------

template <auto M, Pass... P>
struct Bind;

template <class C, class R, class... A, R (C::*M)(A...), Pass... P>
struct Bind<M, P...> {
  static_assert(sizeof...(A) == sizeof...(P), "one Pass for each argument");
  static constexpr std::size_t N = sizeof...(A);
  static constexpr std::array<Pass, N> kPass{P...};

  static HRESULT Call(void* repository, VARIANT* const* args, VARIANT* result,
                      Refusal* refusal) {
    return CallSeq(static_cast<C*>(repository), args, result, refusal,
                   std::index_sequence_for<A...>{});
  }

  template <std::size_t... I>
  static HRESULT CallSeq(C* self, VARIANT* const* args, VARIANT* result, Refusal* refusal,
                         std::index_sequence<I...>) {
    (void)args;
    (void)refusal;
    CallContext context;
    std::tuple<typename Arg<A>::Holder...> holders;
    HRESULT hr = S_OK;
    // Each argument in call order; the first refused one stops the call.
    (void)((SUCCEEDED(hr = Arg<A>::In(args[I], kPass[I], std::get<I>(holders), context,
                                      refusal)) ||
            (refusal->arg = static_cast<UINT>(I), refusal->on_arg = true, false)) &&
           ...);
    if (FAILED(hr)) return hr;
    R value = (self->*M)(Arg<A>::Give(std::get<I>(holders))...);
    // Collections first, so that an entity variable finds the object made
    // for the collection's entity.
    ((Arg<A>::kCollection ? Arg<A>::Out(args[I], kPass[I], std::get<I>(holders), context)
                          : void()),
     ...);
    ((!Arg<A>::kCollection ? Arg<A>::Out(args[I], kPass[I], std::get<I>(holders), context)
                           : void()),
     ...);
    return Result<R>::Store(std::move(value), result);
  }

  // The early-bound slot: the object, the arguments in order, the result.
  static HRESULT Slot(IDispatch* object, typename Arg<A>::template Abi<P>... a,
                      typename Result<R>::Abi out) {
    if (out == nullptr) return E_POINTER;
    VARIANT values[N + 1] = {Arg<A>::template Wrap<P>(a)...};
    VARIANT* args[N + 1];
    for (std::size_t i = 0; i < N; ++i) args[i] = &values[i];
    VARIANT result;
    VariantInit(&result);
    Refusal refusal;
    const HRESULT hr = InvokeSlot(object, &Call, args, &result, &refusal);
    if (FAILED(hr)) return hr;
    Result<R>::Give(result, out);
    return S_OK;
  }

  static MethodInfo Info(std::string_view name, std::initializer_list<std::string_view> names) {
    MethodInfo m{name, Result<R>::kKind, {}, &Call, reinterpret_cast<void*>(&Slot)};
    std::size_t i = 0;
    ((m.args.push_back(Arg<A>::Info(i < names.size() ? names.begin()[i] : "", kPass[i])), ++i),
     ...);
    return m;
  }
};

}  // namespace corvane::component

#endif  // CORVANE_COMPONENT_BINDING_H_
