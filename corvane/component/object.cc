// The repository object behind its dual interface, and the class factory.
// Both are plain structs whose first member is the vtable pointer, so that a
// C client (lpVtbl) and a C++ client (virtual calls on IDispatch) reach the
// same functions; each function takes the object as its first argument, as
// the x86-64 System V convention passes `this`.
#include "corvane/component/object.h"

#include <atomic>
#include <exception>
#include <new>
#include <string>
#include <vector>

#include "corvane/automation/bridge.h"
#include "corvane/frame/error.h"

namespace corvane::component {
namespace {

// What keeps the module loaded: living objects and factories, and locks.
std::atomic<long> g_living{0};
std::atomic<long> g_locks{0};

struct Object {
  const void* const* vtbl;  // first, as the binary standard places it
  std::atomic<ULONG> refs{1};
  const ClassInfo* cls;
  std::shared_ptr<void> repository;
};

struct Factory {
  const void* const* vtbl;
  std::atomic<ULONG> refs{1};
  const ClassInfo* cls;
};

Object* AsObject(void* p) { return static_cast<Object*>(p); }

HRESULT ObjectQueryInterface(Object* self, REFIID riid, void** ppv) {
  if (ppv == nullptr) return E_POINTER;
  if (CorvaneGuidEqual(&riid, &IID_IUnknown) || CorvaneGuidEqual(&riid, &IID_IDispatch) ||
      CorvaneGuidEqual(&riid, self->cls->iid)) {
    self->refs.fetch_add(1);
    *ppv = self;
    return S_OK;
  }
  *ppv = nullptr;
  return E_NOINTERFACE;
}

ULONG ObjectAddRef(Object* self) { return self->refs.fetch_add(1) + 1; }

ULONG ObjectRelease(Object* self) {
  const ULONG left = self->refs.fetch_sub(1) - 1;
  if (left == 0) {
    delete self;  // the repository's destruction closes its session
    g_living.fetch_sub(1);
  }
  return left;
}

HRESULT ObjectGetTypeInfoCount(Object*, UINT* pctinfo) {
  if (pctinfo == nullptr) return E_POINTER;
  *pctinfo = 0;  // the type library is the JSON document beside the module
  return S_OK;
}

HRESULT ObjectGetTypeInfo(Object*, UINT, LCID, ITypeInfo** ppTInfo) {
  if (ppTInfo != nullptr) *ppTInfo = nullptr;
  return E_NOTIMPL;
}

std::string NameText(LPOLESTR name) {
  if (name == nullptr) return {};
  std::size_t n = 0;
  while (name[n] != 0) ++n;
  return automation::ToUtf8(name, n);
}

HRESULT ObjectGetIDsOfNames(Object* self, REFIID, LPOLESTR* rgszNames, UINT cNames, LCID,
                            DISPID* rgDispId) {
  if (cNames == 0) return S_OK;
  if (rgszNames == nullptr || rgDispId == nullptr) return E_POINTER;
  for (UINT i = 0; i < cNames; ++i) rgDispId[i] = DISPID_UNKNOWN;
  const std::vector<MethodInfo>& methods = self->cls->methods;
  const MethodInfo* method = nullptr;
  try {
    const std::string name = NameText(rgszNames[0]);
    for (std::size_t m = 0; m < methods.size(); ++m) {
      if (SameName(methods[m].name, name)) {
        method = &methods[m];
        rgDispId[0] = DispidOf(m);
        break;
      }
    }
    if (method == nullptr) return DISP_E_UNKNOWNNAME;
    HRESULT hr = S_OK;
    for (UINT i = 1; i < cNames; ++i) {
      const std::string arg = NameText(rgszNames[i]);
      for (std::size_t a = 0; a < method->args.size(); ++a) {
        if (SameName(method->args[a].name, arg)) rgDispId[i] = static_cast<DISPID>(a);
      }
      if (rgDispId[i] == DISPID_UNKNOWN) hr = DISP_E_UNKNOWNNAME;
    }
    return hr;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
}

void FillExcepInfo(const Object* self, const Refusal& refusal, EXCEPINFO* info) {
  if (info == nullptr) return;
  info->wCode = 0;
  info->wReserved = 0;
  info->bstrSource = automation::ToBstr("Corvane." + std::string(self->cls->name));
  info->bstrDescription = automation::ToBstr(refusal.description);
  info->bstrHelpFile = nullptr;
  info->dwHelpContext = 0;
  info->pvReserved = nullptr;
  info->pfnDeferredFillIn = nullptr;
  info->scode = refusal.hr;
}

HRESULT Refuse(const Object* self, HRESULT hr, std::string description, EXCEPINFO* info) {
  FillExcepInfo(self, Refusal{hr, false, 0, std::move(description)}, info);
  return hr;
}

HRESULT RunCall(void* repository, CallFn call, VARIANT* const* args, VARIANT* result,
                Refusal* refusal) {
  try {
    return call(repository, args, result, refusal);
  } catch (const std::bad_alloc&) {
    refusal->hr = E_OUTOFMEMORY;
    refusal->description = "Out of memory";
  } catch (const corvane::Error& e) {
    refusal->hr = e.Number() < 0 ? e.Number() : E_FAIL;
    refusal->description = e.Description();
  } catch (const std::exception& e) {
    refusal->hr = E_FAIL;
    refusal->description = e.what();
  }
  return refusal->hr;
}

HRESULT ObjectInvoke(Object* self, DISPID dispIdMember, REFIID riid, LCID, WORD wFlags,
                     DISPPARAMS* params, VARIANT* pVarResult, EXCEPINFO* pExcepInfo,
                     UINT* puArgErr) {
  const std::vector<MethodInfo>& methods = self->cls->methods;
  if (!CorvaneGuidEqual(&riid, &IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
  if (dispIdMember < 1 || static_cast<std::size_t>(dispIdMember) > methods.size()) {
    return Refuse(self, DISP_E_MEMBERNOTFOUND, "Member not found", pExcepInfo);
  }
  const MethodInfo& method = methods[static_cast<std::size_t>(dispIdMember - 1)];
  // A method call; a property get of a method is the same call, as the
  // host runtime treats it.
  if (!(wFlags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET))) {
    return Refuse(self, DISP_E_MEMBERNOTFOUND,
                  std::string(method.name) + " is a method, not a property", pExcepInfo);
  }
  const UINT count = params == nullptr ? 0 : params->cArgs;
  const UINT named = params == nullptr ? 0 : params->cNamedArgs;
  if (count != method.args.size()) {
    return Refuse(self, DISP_E_BADPARAMCOUNT,
                  std::string(method.name) + " takes " + std::to_string(method.args.size()) +
                      " argument(s), not " + std::to_string(count),
                  pExcepInfo);
  }
  // The arguments in call order: named ones stand first in rgvarg, then the
  // positional ones, last one first.
  std::vector<VARIANT*> args(count, nullptr);
  std::vector<UINT> where(count, 0);
  for (UINT j = 0; j < named; ++j) {
    const DISPID id = params->rgdispidNamedArgs[j];
    if (id < 0 || static_cast<UINT>(id) >= count || args[id] != nullptr) {
      if (puArgErr != nullptr) *puArgErr = j;
      return Refuse(self, DISP_E_PARAMNOTFOUND, "Named argument not found", pExcepInfo);
    }
    args[id] = &params->rgvarg[j];
    where[id] = j;
  }
  UINT next = count;
  for (UINT i = 0; i < count; ++i) {
    if (args[i] != nullptr) continue;
    if (next == named) break;
    --next;
    args[i] = &params->rgvarg[next];
    where[i] = next;
  }
  for (UINT i = 0; i < count; ++i) {
    if (args[i] == nullptr) {
      return Refuse(self, DISP_E_PARAMNOTOPTIONAL, "Argument not optional", pExcepInfo);
    }
  }
  VARIANT result;
  VariantInit(&result);
  Refusal refusal;
  const HRESULT hr = RunCall(self->repository.get(), method.call, args.data(), &result, &refusal);
  if (FAILED(hr)) {
    if (refusal.description.empty()) refusal.description = "The call was refused";
    if (refusal.on_arg && refusal.arg < count) {
      refusal.description = std::string(method.name) + ", argument " +
                            std::string(method.args[refusal.arg].name) + ": " +
                            refusal.description;
      if (puArgErr != nullptr) *puArgErr = where[refusal.arg];
    } else {
      refusal.description = std::string(method.name) + ": " + refusal.description;
    }
    FillExcepInfo(self, refusal, pExcepInfo);
    return hr;
  }
  if (pVarResult != nullptr) {
    *pVarResult = result;
  } else {
    VariantClear(&result);
  }
  return S_OK;
}

const void* const* ObjectVtable(const ClassInfo& cls) {
  static const std::vector<std::vector<void*>> tables = [] {
    std::vector<std::vector<void*>> all;
    for (const ClassInfo& c : Classes()) {
      std::vector<void*> t = {
          reinterpret_cast<void*>(&ObjectQueryInterface),
          reinterpret_cast<void*>(&ObjectAddRef),
          reinterpret_cast<void*>(&ObjectRelease),
          reinterpret_cast<void*>(&ObjectGetTypeInfoCount),
          reinterpret_cast<void*>(&ObjectGetTypeInfo),
          reinterpret_cast<void*>(&ObjectGetIDsOfNames),
          reinterpret_cast<void*>(&ObjectInvoke),
      };
      for (const MethodInfo& m : c.methods) t.push_back(m.slot);
      all.push_back(std::move(t));
    }
    return all;
  }();
  return tables[static_cast<std::size_t>(&cls - Classes().data())].data();
}

// ---- The class factory ---------------------------------------------------

HRESULT FactoryQueryInterface(Factory* self, REFIID riid, void** ppv) {
  if (ppv == nullptr) return E_POINTER;
  if (CorvaneGuidEqual(&riid, &IID_IUnknown) || CorvaneGuidEqual(&riid, &IID_IClassFactory)) {
    self->refs.fetch_add(1);
    *ppv = self;
    return S_OK;
  }
  *ppv = nullptr;
  return E_NOINTERFACE;
}

ULONG FactoryAddRef(Factory* self) { return self->refs.fetch_add(1) + 1; }

ULONG FactoryRelease(Factory* self) {
  const ULONG left = self->refs.fetch_sub(1) - 1;
  if (left == 0) {
    delete self;
    g_living.fetch_sub(1);
  }
  return left;
}

HRESULT FactoryCreateInstance(Factory* self, IUnknown* outer, REFIID riid, void** ppv) {
  if (ppv == nullptr) return E_POINTER;
  *ppv = nullptr;
  if (outer != nullptr) return CLASS_E_NOAGGREGATION;
  return CreateObject(*self->cls, riid, ppv);
}

HRESULT FactoryLockServer(Factory*, BOOL lock) {
  if (lock) {
    g_locks.fetch_add(1);
  } else if (g_locks.load() > 0) {
    g_locks.fetch_sub(1);
  }
  return S_OK;
}

const void* const kFactoryVtable[] = {
    reinterpret_cast<void*>(&FactoryQueryInterface),
    reinterpret_cast<void*>(&FactoryAddRef),
    reinterpret_cast<void*>(&FactoryRelease),
    reinterpret_cast<void*>(&FactoryCreateInstance),
    reinterpret_cast<void*>(&FactoryLockServer),
};

}  // namespace

HRESULT CreateObject(const ClassInfo& cls, REFIID riid, void** ppv) {
  if (ppv == nullptr) return E_POINTER;
  *ppv = nullptr;
  std::unique_ptr<Object> object;
  try {
    object = std::make_unique<Object>();
    object->vtbl = ObjectVtable(cls);
    object->cls = &cls;
    object->repository = cls.create();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (const corvane::Error& e) {
    return e.Number() < 0 ? e.Number() : E_FAIL;
  } catch (const std::exception&) {
    return E_FAIL;
  }
  g_living.fetch_add(1);
  Object* raw = object.release();  // from here on its references decide its life
  const HRESULT hr = ObjectQueryInterface(raw, riid, ppv);
  ObjectRelease(raw);  // the reference of the creation; the caller's stays if it asked well
  return hr;
}

HRESULT CreateFactory(const ClassInfo& cls, REFIID riid, void** ppv) {
  if (ppv == nullptr) return E_POINTER;
  *ppv = nullptr;
  Factory* factory = nullptr;
  try {
    auto made = std::make_unique<Factory>();
    made->vtbl = kFactoryVtable;
    made->cls = &cls;
    factory = made.release();  // from here on its references decide its life
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  }
  g_living.fetch_add(1);
  const HRESULT hr = FactoryQueryInterface(factory, riid, ppv);
  FactoryRelease(factory);
  return hr;
}

HRESULT InvokeSlot(IDispatch* object, CallFn call, VARIANT* const* args, VARIANT* result,
                   Refusal* refusal) {
  Object* self = AsObject(object);
  return RunCall(self->repository.get(), call, args, result, refusal);
}

bool ModuleInUse() { return g_living.load() != 0 || g_locks.load() != 0; }

}  // namespace corvane::component
