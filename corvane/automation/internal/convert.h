// Conversions between VARIANTs and entity members, as the host runtime makes
// them on assignment, with the failures mapped to HRESULTs; and the matching
// of member names without regard to case.
#ifndef CORVANE_AUTOMATION_INTERNAL_CONVERT_H_
#define CORVANE_AUTOMATION_INTERNAL_CONVERT_H_

#include <cstdint>
#include <string>

#include "corvane/automation.h"
#include "corvane/frame/date.h"
#include "corvane/frame/error.h"

namespace corvane::automation::internal {

// The HRESULT of a failed conversion: type mismatch and invalid use of null
// DISP_E_TYPEMISMATCH, overflow DISP_E_OVERFLOW, anything else
// DISP_E_EXCEPTION.
HRESULT HresultOf(const Error& error);

// Assigns v to the member, converted to its type.
HRESULT Assign(const VARIANT& v, std::string& member);
HRESULT Assign(const VARIANT& v, double& member);
HRESULT Assign(const VARIANT& v, Date& member);
HRESULT Assign(const VARIANT& v, std::int16_t& member);
HRESULT Assign(const VARIANT& v, std::int32_t& member);

// The member as a VARIANT of its own type; out is overwritten.
HRESULT Load(const std::string& member, VARIANT* out);
HRESULT Load(double member, VARIANT* out);
HRESULT Load(const Date& member, VARIANT* out);
HRESULT Load(std::int16_t member, VARIANT* out);
HRESULT Load(std::int32_t member, VARIANT* out);

// name (UTF-16, zero-terminated) equals ascii without regard to the case of
// ASCII letters.
bool NameEquals(const OLECHAR* name, const char* ascii);

}  // namespace corvane::automation::internal

#endif  // CORVANE_AUTOMATION_INTERNAL_CONVERT_H_
