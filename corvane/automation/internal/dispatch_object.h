// DispatchObject: what every automation object of the library has alike: the
// one interface IDispatch (IUnknown answers to the same pointer), a reference
// count that deletes the object at zero, and no type information, since the
// type library is a JSON document. A derived object gives GetIDsOfNames and
// Invoke; it is made with one reference, its creator's.
#ifndef CORVANE_AUTOMATION_INTERNAL_DISPATCH_OBJECT_H_
#define CORVANE_AUTOMATION_INTERNAL_DISPATCH_OBJECT_H_

#include <atomic>

#include "corvane/automation.h"

namespace corvane::automation::internal {

class DispatchObject : public IDispatch {
 public:
  DispatchObject(const DispatchObject&) = delete;
  DispatchObject& operator=(const DispatchObject&) = delete;

  HRESULT QueryInterface(REFIID riid, void** ppv) final {
    if (ppv == nullptr) return E_POINTER;
    if (CorvaneGuidEqual(&riid, &IID_IUnknown) || CorvaneGuidEqual(&riid, &IID_IDispatch)) {
      *ppv = static_cast<IDispatch*>(this);
      AddRef();
      return S_OK;
    }
    *ppv = nullptr;
    return E_NOINTERFACE;
  }
  ULONG AddRef() final { return ++refs_; }
  ULONG Release() final {
    const ULONG left = --refs_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT GetTypeInfoCount(UINT* pctinfo) final {
    if (pctinfo == nullptr) return E_POINTER;
    *pctinfo = 0;
    return S_OK;
  }
  HRESULT GetTypeInfo(UINT, LCID, ITypeInfo** ppTInfo) final {
    if (ppTInfo != nullptr) *ppTInfo = nullptr;
    return DISP_E_BADINDEX;
  }

 protected:
  DispatchObject() = default;
  // Virtual, after IDispatch's seven slots: the interface's layout stays the
  // standard one.
  virtual ~DispatchObject() = default;

 private:
  std::atomic<ULONG> refs_{1};
};

}  // namespace corvane::automation::internal

#endif  // CORVANE_AUTOMATION_INTERNAL_DISPATCH_OBJECT_H_
