// Conversions between VARIANTs and entity members through the host runtime's
// values, so that a property assignment converts as the runtime would.
#include "corvane/automation/internal/convert.h"

#include <utility>

#include "corvane/automation/bridge.h"
#include "corvane/frame/variant.h"

namespace corvane::automation::internal {
namespace {

// Reads v as a runtime value and hands it to convert, which may throw.
template <class Convert>
HRESULT Through(const VARIANT& v, Convert convert) {
  Variant value;
  const HRESULT hr = FromVariant(v, &value);
  if (FAILED(hr)) return hr;
  try {
    convert(std::move(value));
  } catch (const Error& error) {
    return HresultOf(error);
  }
  return S_OK;
}

}  // namespace

HRESULT HresultOf(const Error& error) {
  switch (error.Number()) {
    case errc::kTypeMismatch:
    case errc::kInvalidUseOfNull:
      return DISP_E_TYPEMISMATCH;
    case errc::kOverflow:
      return DISP_E_OVERFLOW;
    default:
      return DISP_E_EXCEPTION;
  }
}

HRESULT Assign(const VARIANT& v, std::string& member) {
  return Through(v, [&](Variant&& x) { member = std::move(x).CStr(); });
}
HRESULT Assign(const VARIANT& v, double& member) {
  return Through(v, [&](Variant&& x) { member = x.CDbl(); });
}
HRESULT Assign(const VARIANT& v, Date& member) {
  return Through(v, [&](Variant&& x) { member = x.CDate(); });
}
HRESULT Assign(const VARIANT& v, std::int16_t& member) {
  return Through(v, [&](Variant&& x) { member = x.CInt(); });
}
HRESULT Assign(const VARIANT& v, std::int32_t& member) {
  return Through(v, [&](Variant&& x) { member = x.CLng(); });
}

HRESULT Load(const std::string& member, VARIANT* out) {
  VariantInit(out);
  out->bstrVal = ToBstr(member);
  if (out->bstrVal == nullptr) return E_OUTOFMEMORY;
  out->vt = VT_BSTR;
  return S_OK;
}
HRESULT Load(double member, VARIANT* out) {
  VariantInit(out);
  out->vt = VT_R8;
  out->dblVal = member;
  return S_OK;
}
HRESULT Load(const Date& member, VARIANT* out) {
  VariantInit(out);
  out->vt = VT_DATE;
  out->date = member.Serial();
  return S_OK;
}
HRESULT Load(std::int16_t member, VARIANT* out) {
  VariantInit(out);
  out->vt = VT_I2;
  out->iVal = member;
  return S_OK;
}
HRESULT Load(std::int32_t member, VARIANT* out) {
  VariantInit(out);
  out->vt = VT_I4;
  out->lVal = member;
  return S_OK;
}

bool NameEquals(const OLECHAR* name, const char* ascii) {
  const auto lower = [](char16_t c) -> char16_t {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c;
  };
  for (; *ascii != 0; ++name, ++ascii) {
    if (*name == 0) return false;
    if (lower(*name) != lower(static_cast<unsigned char>(*ascii))) return false;
  }
  return *name == 0;
}

}  // namespace corvane::automation::internal
