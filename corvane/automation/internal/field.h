// Field<E>: one property of an entity class, its name and the member it
// reads and writes. The member's C++ type gives the property's VARTYPE.
#ifndef CORVANE_AUTOMATION_INTERNAL_FIELD_H_
#define CORVANE_AUTOMATION_INTERNAL_FIELD_H_

#include <cstdint>
#include <string>
#include <variant>

#include "corvane/automation.h"
#include "corvane/frame/date.h"

namespace corvane::automation::internal {

template <class E>
struct Field {
  const char* name;
  std::variant<std::string E::*, double E::*, Date E::*, std::int16_t E::*, std::int32_t E::*>
      member;

  constexpr VARTYPE Type() const {
    constexpr VARTYPE kTypes[] = {VT_BSTR, VT_R8, VT_DATE, VT_I2, VT_I4};
    return kTypes[member.index()];
  }
};

// Specialised for each entity class in entity_fields.h: kName and kFields.
template <class E>
struct EntityFields;

}  // namespace corvane::automation::internal

#endif  // CORVANE_AUTOMATION_INTERNAL_FIELD_H_
