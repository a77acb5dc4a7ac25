// Host runtime values to and from VARIANTs.
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "corvane/automation/bridge.h"
#include "corvane/automation/internal/alloc.h"

namespace corvane::automation {
namespace {

// A whole number as a 32-bit integer where it fits, else as a double.
Variant Whole(long double value) {
  if (value >= std::numeric_limits<std::int32_t>::min() &&
      value <= std::numeric_limits<std::int32_t>::max()) {
    return Variant(static_cast<std::int32_t>(value));
  }
  return Variant(static_cast<double>(value));
}

}  // namespace

HRESULT ToVariant(const Variant& in, VARIANT* out) {
  if (out == nullptr) return E_POINTER;
  VariantInit(out);
  switch (in.type()) {
    case Variant::Type::kEmpty:
      return S_OK;
    case Variant::Type::kNull:
      out->vt = VT_NULL;
      return S_OK;
    case Variant::Type::kInt16:
      out->vt = VT_I2;
      out->iVal = in.CInt();
      return S_OK;
    case Variant::Type::kInt32:
      out->vt = VT_I4;
      out->lVal = in.CLng();
      return S_OK;
    case Variant::Type::kDouble:
      out->vt = VT_R8;
      out->dblVal = in.CDbl();
      return S_OK;
    case Variant::Type::kString:
      out->bstrVal = ToBstr(in.CStr());
      if (out->bstrVal == nullptr) return E_OUTOFMEMORY;
      out->vt = VT_BSTR;
      return S_OK;
    case Variant::Type::kDate:
      out->vt = VT_DATE;
      out->date = in.CDate().Serial();
      return S_OK;
    case Variant::Type::kBool:
      out->vt = VT_BOOL;
      out->boolVal = in.CBool() ? VARIANT_TRUE : VARIANT_FALSE;
      return S_OK;
    case Variant::Type::kBytes: {
      const std::vector<std::uint8_t>& bytes = *in.Bytes();
      SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
      if (array == nullptr) return E_OUTOFMEMORY;
      if (!bytes.empty()) std::memcpy(array->pvData, bytes.data(), bytes.size());
      out->vt = VT_ARRAY | VT_UI1;
      out->parray = array;
      return S_OK;
    }
  }
  return DISP_E_BADVARTYPE;
}

HRESULT FromVariant(const VARIANT& in, Variant* out) {
  if (out == nullptr) return E_POINTER;
  VARIANT v;
  const HRESULT hr = internal::ViewThrough(in, &v);
  if (FAILED(hr)) return hr;
  switch (v.vt) {
    case VT_EMPTY:
    case VT_ERROR:  // a missing optional argument
      *out = Variant();
      return S_OK;
    case VT_NULL:
      *out = Variant::Null();
      return S_OK;
    case VT_I2:
      *out = Variant(static_cast<std::int16_t>(v.iVal));
      return S_OK;
    case VT_UI1:
      *out = Variant(static_cast<std::int16_t>(v.bVal));
      return S_OK;
    case VT_I1:
      *out = Variant(static_cast<std::int16_t>(static_cast<std::int8_t>(v.bVal)));
      return S_OK;
    case VT_UI2:
      *out = Variant(static_cast<std::int32_t>(static_cast<std::uint16_t>(v.iVal)));
      return S_OK;
    case VT_I4:
    case VT_INT:
      *out = Variant(static_cast<std::int32_t>(v.lVal));
      return S_OK;
    case VT_UI4:
    case VT_UINT:
      *out = Whole(static_cast<std::uint32_t>(v.lVal));
      return S_OK;
    case VT_I8:
      *out = Whole(v.llVal);
      return S_OK;
    case VT_UI8:
      *out = Whole(static_cast<std::uint64_t>(v.llVal));
      return S_OK;
    case VT_R4:
      *out = Variant(static_cast<double>(v.fltVal));
      return S_OK;
    case VT_R8:
      *out = Variant(v.dblVal);
      return S_OK;
    case VT_CY:
      *out = Variant(static_cast<double>(v.cyVal.int64) / 10000.0);
      return S_OK;
    case VT_DATE:
      *out = Variant(Date(v.date));
      return S_OK;
    case VT_BSTR:
      *out = Variant(ToUtf8(v.bstrVal));
      return S_OK;
    case VT_BOOL:
      *out = Variant(v.boolVal != 0);
      return S_OK;
    case VT_ARRAY | VT_UI1: {
      std::vector<std::uint8_t> bytes;
      if (v.parray != nullptr && v.parray->cDims == 1) {
        const auto* data = static_cast<const std::uint8_t*>(v.parray->pvData);
        bytes.assign(data, data + v.parray->rgsabound[0].cElements);
      }
      *out = Variant(std::move(bytes));
      return S_OK;
    }
    default:
      return DISP_E_TYPEMISMATCH;
  }
}

}  // namespace corvane::automation
