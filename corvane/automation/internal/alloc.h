// Helpers shared by the allocation functions of the binary boundary.
#ifndef CORVANE_AUTOMATION_INTERNAL_ALLOC_H_
#define CORVANE_AUTOMATION_INTERNAL_ALLOC_H_

#include "corvane/automation.h"

namespace corvane::automation::internal {

// A copy of s with the same byte length; null for null or when out of memory.
BSTR CopyBstr(BSTR s);

// A view of what a by-reference VARIANT points at, owning nothing: the plain
// VARIANT of the same value (a VARIANT* is followed to its VARIANT). A plain
// VARIANT is viewed as it is. DISP_E_BADVARTYPE for a null pointer.
HRESULT ViewThrough(const VARIANT& in, VARIANT* view);

}  // namespace corvane::automation::internal

#endif  // CORVANE_AUTOMATION_INTERNAL_ALLOC_H_
