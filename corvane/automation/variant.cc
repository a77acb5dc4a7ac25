// VARIANT initialisation, clearing and copying with the standard ownership:
// a VARIANT owns its text, a reference on its object and its array; a
// by-reference VARIANT owns nothing.
#include "corvane/automation.h"
#include "corvane/automation/internal/alloc.h"

namespace {

bool KnownType(VARTYPE vt) {
  switch (vt & VT_TYPEMASK) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_I2:
    case VT_I4:
    case VT_R4:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_ERROR:
    case VT_BOOL:
    case VT_VARIANT:
    case VT_UNKNOWN:
    case VT_DECIMAL:
    case VT_I1:
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_I8:
    case VT_UI8:
    case VT_INT:
    case VT_UINT:
      break;
    default:
      return false;
  }
  // A plain VARIANT (not by reference, not an array) can't hold a VARIANT.
  if ((vt & VT_TYPEMASK) == VT_VARIANT && !(vt & (VT_BYREF | VT_ARRAY))) return false;
  return (vt & ~(VT_TYPEMASK | VT_BYREF | VT_ARRAY)) == 0;
}

}  // namespace

extern "C" {

void VariantInit(VARIANTARG* pvarg) {
  if (pvarg == nullptr) return;
  pvarg->vt = VT_EMPTY;
  pvarg->wReserved1 = pvarg->wReserved2 = pvarg->wReserved3 = 0;
  pvarg->llVal = 0;
}

HRESULT VariantClear(VARIANTARG* pvarg) {
  if (pvarg == nullptr) return E_INVALIDARG;
  const VARTYPE vt = pvarg->vt;
  if (!KnownType(vt)) return DISP_E_BADVARTYPE;
  if (!(vt & VT_BYREF)) {
    if (vt & VT_ARRAY) {
      const HRESULT hr = SafeArrayDestroy(pvarg->parray);
      if (FAILED(hr)) return hr;
    } else if (vt == VT_BSTR) {
      SysFreeString(pvarg->bstrVal);
    } else if (vt == VT_DISPATCH || vt == VT_UNKNOWN) {
      if (pvarg->punkVal != nullptr) pvarg->punkVal->Release();
    }
  }
  VariantInit(pvarg);
  return S_OK;
}

HRESULT VariantCopy(VARIANTARG* pvargDest, const VARIANTARG* pvargSrc) {
  if (pvargDest == nullptr || pvargSrc == nullptr) return E_INVALIDARG;
  if (pvargDest == pvargSrc) return S_OK;
  const VARTYPE vt = pvargSrc->vt;
  if (!KnownType(vt)) return DISP_E_BADVARTYPE;
  const HRESULT cleared = VariantClear(pvargDest);
  if (FAILED(cleared)) return cleared;
  VARIANT copy = *pvargSrc;
  if (!(vt & VT_BYREF)) {
    if (vt & VT_ARRAY) {
      const HRESULT hr = SafeArrayCopy(pvargSrc->parray, &copy.parray);
      if (FAILED(hr)) return hr;
    } else if (vt == VT_BSTR) {
      copy.bstrVal = corvane::automation::internal::CopyBstr(pvargSrc->bstrVal);
      if (pvargSrc->bstrVal != nullptr && copy.bstrVal == nullptr) return E_OUTOFMEMORY;
    } else if (vt == VT_DISPATCH || vt == VT_UNKNOWN) {
      if (copy.punkVal != nullptr) copy.punkVal->AddRef();
    }
  }
  *pvargDest = copy;
  return S_OK;
}

}  // extern "C"

namespace corvane::automation::internal {

HRESULT ViewThrough(const VARIANT& in, VARIANT* view) {
  *view = in;
  if (!(in.vt & VT_BYREF)) return S_OK;
  if (in.byref == nullptr) return DISP_E_BADVARTYPE;
  const VARTYPE vt = static_cast<VARTYPE>(in.vt & ~VT_BYREF);
  if (vt == VT_VARIANT) {
    if (in.pvarVal->vt & VT_BYREF) return ViewThrough(*in.pvarVal, view);
    *view = *in.pvarVal;
    return S_OK;
  }
  VariantInit(view);
  view->vt = vt;
  if (vt & VT_ARRAY) {
    view->parray = *in.pparray;
    return S_OK;
  }
  switch (vt) {
    case VT_I1:
    case VT_UI1:
      view->bVal = *in.pbVal;
      break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      view->iVal = *in.piVal;
      break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR:
      view->lVal = *in.plVal;
      break;
    case VT_R4:
      view->fltVal = *static_cast<const float*>(in.byref);
      break;
    case VT_R8:
    case VT_DATE:
      view->dblVal = *in.pdblVal;
      break;
    case VT_I8:
    case VT_UI8:
    case VT_CY:
      view->llVal = *static_cast<const LONGLONG*>(in.byref);
      break;
    case VT_BSTR:
      view->bstrVal = *in.pbstrVal;
      break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      view->pdispVal = *in.ppdispVal;
      break;
    default:
      return DISP_E_BADVARTYPE;
  }
  return S_OK;
}

}  // namespace corvane::automation::internal

extern "C" HRESULT VariantCopyInd(VARIANT* pvarDest, const VARIANTARG* pvargSrc) {
  if (pvarDest == nullptr || pvargSrc == nullptr) return E_INVALIDARG;
  VARIANT view;
  const HRESULT hr = corvane::automation::internal::ViewThrough(*pvargSrc, &view);
  if (FAILED(hr)) return hr;
  if (pvarDest == pvargSrc) {
    // Copying over itself: take the value first, then replace.
    VARIANT copy;
    VariantInit(&copy);
    const HRESULT copied = VariantCopy(&copy, &view);
    if (FAILED(copied)) return copied;
    *pvarDest = copy;
    return S_OK;
  }
  return VariantCopy(pvarDest, &view);
}
