// One-dimensional SAFEARRAYs: the standard descriptor, preceded by the
// element type as FADF_HAVEVARTYPE arrays carry it, and a data block of
// zeroed elements. Text, variant and object elements are owned by the array
// and freed or released when it is destroyed.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "corvane/automation.h"

namespace {

// The descriptor stands this many bytes into its block; the element type is
// kept in the four bytes just before it.
constexpr std::size_t kPrefix = 16;

ULONG ElementSize(VARTYPE vt) {
  switch (vt) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return sizeof(void*);
    case VT_VARIANT:
      return sizeof(VARIANT);
    default:
      return 0;
  }
}

USHORT Features(VARTYPE vt) {
  switch (vt) {
    case VT_BSTR:
      return FADF_HAVEVARTYPE | FADF_BSTR;
    case VT_VARIANT:
      return FADF_HAVEVARTYPE | FADF_VARIANT;
    case VT_DISPATCH:
      return FADF_HAVEVARTYPE | FADF_DISPATCH;
    case VT_UNKNOWN:
      return FADF_HAVEVARTYPE | FADF_UNKNOWN;
    default:
      return FADF_HAVEVARTYPE;
  }
}

VARTYPE StoredType(const SAFEARRAY* psa) {
  std::uint32_t vt;
  std::memcpy(&vt, reinterpret_cast<const unsigned char*>(psa) - sizeof vt, sizeof vt);
  return static_cast<VARTYPE>(vt);
}

ULONG Count(const SAFEARRAY* psa) {
  ULONG n = 1;
  for (USHORT d = 0; d < psa->cDims; ++d) n *= psa->rgsabound[d].cElements;
  return psa->cDims == 0 ? 0 : n;
}

// Frees or releases what the elements own and zeroes them.
void ClearElements(SAFEARRAY* psa) {
  const ULONG n = Count(psa);
  if (psa->pvData == nullptr) return;
  if (psa->fFeatures & FADF_BSTR) {
    auto* items = static_cast<BSTR*>(psa->pvData);
    for (ULONG i = 0; i < n; ++i) {
      SysFreeString(items[i]);
      items[i] = nullptr;
    }
  } else if (psa->fFeatures & FADF_VARIANT) {
    auto* items = static_cast<VARIANT*>(psa->pvData);
    for (ULONG i = 0; i < n; ++i) VariantClear(&items[i]);
  } else if (psa->fFeatures & (FADF_DISPATCH | FADF_UNKNOWN)) {
    auto* items = static_cast<IUnknown**>(psa->pvData);
    for (ULONG i = 0; i < n; ++i) {
      if (items[i] != nullptr) items[i]->Release();
      items[i] = nullptr;
    }
  }
}

void FreeDescriptor(SAFEARRAY* psa) {
  std::free(reinterpret_cast<unsigned char*>(psa) - kPrefix);
}

}  // namespace

extern "C" {

SAFEARRAY* SafeArrayCreateVector(VARTYPE vt, LONG lLbound, ULONG cElements) {
  const ULONG size = ElementSize(vt);
  if (size == 0) return nullptr;
  auto* block = static_cast<unsigned char*>(std::calloc(1, kPrefix + sizeof(SAFEARRAY)));
  if (block == nullptr) return nullptr;
  const std::uint32_t stored = vt;
  std::memcpy(block + kPrefix - sizeof stored, &stored, sizeof stored);
  auto* psa = reinterpret_cast<SAFEARRAY*>(block + kPrefix);
  // At least one byte, so that an empty array has data to lock as well.
  void* data = std::calloc(cElements == 0 ? 1 : cElements, size);
  if (data == nullptr) {
    std::free(block);
    return nullptr;
  }
  psa->cDims = 1;
  psa->fFeatures = Features(vt);
  psa->cbElements = size;
  psa->cLocks = 0;
  psa->pvData = data;
  psa->rgsabound[0].cElements = cElements;
  psa->rgsabound[0].lLbound = lLbound;
  return psa;
}

HRESULT SafeArrayDestroy(SAFEARRAY* psa) {
  if (psa == nullptr) return S_OK;
  if (psa->cLocks > 0) return DISP_E_ARRAYISLOCKED;
  ClearElements(psa);
  std::free(psa->pvData);
  FreeDescriptor(psa);
  return S_OK;
}

HRESULT SafeArrayAccessData(SAFEARRAY* psa, void** ppvData) {
  if (psa == nullptr || ppvData == nullptr) return E_INVALIDARG;
  ++psa->cLocks;
  *ppvData = psa->pvData;
  return S_OK;
}

HRESULT SafeArrayUnaccessData(SAFEARRAY* psa) {
  if (psa == nullptr) return E_INVALIDARG;
  if (psa->cLocks == 0) return E_UNEXPECTED;
  --psa->cLocks;
  return S_OK;
}

HRESULT SafeArrayGetLBound(SAFEARRAY* psa, UINT nDim, LONG* plLbound) {
  if (psa == nullptr || plLbound == nullptr) return E_INVALIDARG;
  if (nDim < 1 || nDim > psa->cDims) return DISP_E_BADINDEX;
  // The bounds are stored from the last dimension to the first.
  *plLbound = psa->rgsabound[psa->cDims - nDim].lLbound;
  return S_OK;
}

HRESULT SafeArrayGetUBound(SAFEARRAY* psa, UINT nDim, LONG* plUbound) {
  if (psa == nullptr || plUbound == nullptr) return E_INVALIDARG;
  if (nDim < 1 || nDim > psa->cDims) return DISP_E_BADINDEX;
  const SAFEARRAYBOUND& b = psa->rgsabound[psa->cDims - nDim];
  *plUbound = static_cast<LONG>(static_cast<std::int64_t>(b.lLbound) + b.cElements - 1);
  return S_OK;
}

HRESULT SafeArrayGetVartype(SAFEARRAY* psa, VARTYPE* pvt) {
  if (psa == nullptr || pvt == nullptr) return E_INVALIDARG;
  if (!(psa->fFeatures & FADF_HAVEVARTYPE)) return E_INVALIDARG;
  *pvt = StoredType(psa);
  return S_OK;
}

HRESULT SafeArrayCopy(SAFEARRAY* psa, SAFEARRAY** ppsaOut) {
  if (ppsaOut == nullptr) return E_INVALIDARG;
  *ppsaOut = nullptr;
  if (psa == nullptr) return S_OK;
  if (psa->cDims != 1 || !(psa->fFeatures & FADF_HAVEVARTYPE)) return E_INVALIDARG;
  SAFEARRAY* copy = SafeArrayCreateVector(StoredType(psa), psa->rgsabound[0].lLbound,
                                          psa->rgsabound[0].cElements);
  if (copy == nullptr) return E_OUTOFMEMORY;
  const ULONG n = Count(psa);
  if (psa->fFeatures & FADF_BSTR) {
    auto* from = static_cast<BSTR*>(psa->pvData);
    auto* to = static_cast<BSTR*>(copy->pvData);
    for (ULONG i = 0; i < n; ++i) {
      if (from[i] == nullptr) continue;
      to[i] = SysAllocStringLen(from[i], SysStringLen(from[i]));
      if (to[i] == nullptr) {
        SafeArrayDestroy(copy);
        return E_OUTOFMEMORY;
      }
    }
  } else if (psa->fFeatures & FADF_VARIANT) {
    auto* from = static_cast<VARIANT*>(psa->pvData);
    auto* to = static_cast<VARIANT*>(copy->pvData);
    for (ULONG i = 0; i < n; ++i) {
      const HRESULT hr = VariantCopy(&to[i], &from[i]);
      if (FAILED(hr)) {
        SafeArrayDestroy(copy);
        return hr;
      }
    }
  } else if (psa->fFeatures & (FADF_DISPATCH | FADF_UNKNOWN)) {
    auto* from = static_cast<IUnknown**>(psa->pvData);
    auto* to = static_cast<IUnknown**>(copy->pvData);
    for (ULONG i = 0; i < n; ++i) {
      to[i] = from[i];
      if (to[i] != nullptr) to[i]->AddRef();
    }
  } else if (n > 0) {
    std::memcpy(copy->pvData, psa->pvData, std::size_t{n} * psa->cbElements);
  }
  *ppsaOut = copy;
  return S_OK;
}

}  // extern "C"
