// EntityObject<E>: the library's automation object for the entity class E,
// an IDispatch with one read/write property per member of E, found by name
// without regard to case. DISPIDs are the property's place in the table,
// counted from 1.
#ifndef CORVANE_AUTOMATION_INTERNAL_ENTITY_OBJECT_H_
#define CORVANE_AUTOMATION_INTERNAL_ENTITY_OBJECT_H_

#include <memory>
#include <utility>
#include <variant>

#include "corvane/automation.h"
#include "corvane/automation/internal/convert.h"
#include "corvane/automation/internal/dispatch_object.h"
#include "corvane/automation/internal/entity_fields.h"

namespace corvane::automation::internal {

template <class E>
class EntityObject final : public DispatchObject {
 public:
  // A new object with one reference, the caller's.
  static IDispatch* Create(const E& value) {
    return std::unique_ptr<EntityObject>(new EntityObject(value)).release();
  }

  HRESULT GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    if (names == nullptr || ids == nullptr) return E_POINTER;
    if (count == 0) return S_OK;
    HRESULT hr = S_OK;
    ids[0] = DISPID_UNKNOWN;
    for (std::size_t i = 0; i < kFields.size(); ++i) {
      if (NameEquals(names[0], kFields[i].name)) ids[0] = static_cast<DISPID>(i + 1);
    }
    if (ids[0] == DISPID_UNKNOWN) hr = DISP_E_UNKNOWNNAME;
    // Properties have no named arguments.
    for (UINT k = 1; k < count; ++k) {
      ids[k] = DISPID_UNKNOWN;
      hr = DISP_E_UNKNOWNNAME;
    }
    return hr;
  }

  HRESULT Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                 EXCEPINFO*, UINT* arg_error) override {
    if (id < 1 || static_cast<std::size_t>(id) > kFields.size()) return DISP_E_MEMBERNOTFOUND;
    const UINT args = params == nullptr ? 0 : params->cArgs;
    const auto& field = kFields[static_cast<std::size_t>(id - 1)];
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
      if (args != 1) return DISP_E_BADPARAMCOUNT;
      if (params->cNamedArgs > 1 ||
          (params->cNamedArgs == 1 && params->rgdispidNamedArgs[0] != DISPID_PROPERTYPUT)) {
        return DISP_E_PARAMNOTFOUND;
      }
      const HRESULT hr = std::visit(
          [&](auto member) { return Assign(params->rgvarg[0], value_.*member); }, field.member);
      if (FAILED(hr) && arg_error != nullptr) *arg_error = 0;
      return hr;
    }
    if (flags & (DISPATCH_PROPERTYGET | DISPATCH_METHOD)) {
      if (args != 0) return DISP_E_BADPARAMCOUNT;
      if (result == nullptr) return S_OK;
      return std::visit([&](auto member) { return Load(value_.*member, result); }, field.member);
    }
    return DISP_E_MEMBERNOTFOUND;
  }

 private:
  // Only the last Release destroys it.
  friend struct std::default_delete<EntityObject>;

  static constexpr const auto& kFields = EntityFields<E>::kFields;

  explicit EntityObject(const E& value) : value_(value) {}

  E value_;
};

}  // namespace corvane::automation::internal

#endif  // CORVANE_AUTOMATION_INTERNAL_ENTITY_OBJECT_H_
