// The bridge between the C++ library and the binary boundary: entity structs
// to and from IDispatch objects (the caller's own or the library's), values
// of the host runtime to and from VARIANTs, UTF-8 to and from BSTR, a call by
// name, and the property tables of the entity classes.
//
// Properties are reached by name, so an entity object written by a client
// serves as well as the library's. Every function returns the HRESULT of the
// boundary: a property the object lacks gives DISP_E_UNKNOWNNAME, a value
// that does not convert DISP_E_TYPEMISMATCH or DISP_E_OVERFLOW.
#ifndef CORVANE_AUTOMATION_BRIDGE_H_
#define CORVANE_AUTOMATION_BRIDGE_H_

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "corvane/automation.h"
#include "corvane/entities/cost_header.h"
#include "corvane/entities/cost_part.h"
#include "corvane/entities/cost_wage.h"
#include "corvane/entities/currency.h"
#include "corvane/entities/customer.h"
#include "corvane/entities/customer_study.h"
#include "corvane/entities/goods_type.h"
#include "corvane/entities/order_change.h"
#include "corvane/entities/order_header.h"
#include "corvane/entities/order_line.h"
#include "corvane/entities/order_type.h"
#include "corvane/entities/outsource_header.h"
#include "corvane/entities/outsource_line.h"
#include "corvane/entities/quotation_header.h"
#include "corvane/entities/quotation_line.h"
#include "corvane/entities/sales_person.h"
#include "corvane/entities/sample.h"
#include "corvane/entities/sitemno.h"
#include "corvane/entities/wage_sort.h"
#include "corvane/export.h"
#include "corvane/frame/variant.h"

namespace corvane::automation {

// ReadEntity: a PROPERTYGET of every property by name, converted as the host
// runtime converts on assignment. WriteEntity: a PROPERTYPUT of every
// property by name. NewEntityObject: the library's entity object holding a
// copy of value, with one reference, the caller's. On failure `to` may hold
// the properties done before the failing one.
#define CORVANE_AUTOMATION_ENTITY_BRIDGE(E)                                        \
  CORVANE_EXPORT HRESULT ReadEntity(IDispatch* from, E& to);                       \
  CORVANE_EXPORT HRESULT WriteEntity(const E& from, IDispatch* to);                \
  CORVANE_EXPORT HRESULT NewEntityObject(const E& value, IDispatch** out);
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBOrderType)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBOrderh)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBOrderi)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBOrdChange)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntSitemNo)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBPriceh)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBPricei)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntSCurrency)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBOutMakeh)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBOutMakei)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBCosth)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBCosti)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBCosts)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBWageSort)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntEGoodsType)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBCustom)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBSaler)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBCStudy)
CORVANE_AUTOMATION_ENTITY_BRIDGE(clsEntBSample)
#undef CORVANE_AUTOMATION_ENTITY_BRIDGE

// A host runtime value as a VARIANT: empty VT_EMPTY, null VT_NULL, 16-bit
// integer VT_I2, 32-bit integer VT_I4, number VT_R8, text VT_BSTR, date
// VT_DATE, Boolean VT_BOOL, byte array VT_ARRAY|VT_UI1. out is overwritten
// (not cleared first) and owned by the caller.
CORVANE_EXPORT HRESULT ToVariant(const corvane::Variant& in, VARIANT* out);
// A VARIANT as a host runtime value; by-reference VARIANTs are read through.
// Objects, and arrays other than of bytes, give DISP_E_TYPEMISMATCH; a
// missing argument (VT_ERROR) reads as empty.
CORVANE_EXPORT HRESULT FromVariant(const VARIANT& in, corvane::Variant* out);

// UTF-16 to UTF-8 and back; ill-formed sequences become U+FFFD.
CORVANE_EXPORT std::string ToUtf8(const OLECHAR* s, std::size_t n);
inline std::string ToUtf8(BSTR s) { return ToUtf8(s, SysStringLen(s)); }
// A new BSTR the caller frees with SysFreeString.
CORVANE_EXPORT BSTR ToBstr(std::string_view utf8);

// Looks up name with GetIDsOfNames and calls Invoke with flags. args stand in
// call order (the first argument first); they are passed as they are, so a
// by-reference argument is a VT_BYREF VARIANT. A DISPATCH_PROPERTYPUT passes
// its last argument as the named DISPID_PROPERTYPUT. result may be null.
CORVANE_EXPORT HRESULT CallByName(IDispatch* obj, const char* name, WORD flags,
                                  std::vector<VARIANT>& args, VARIANT* result);

// The property tables of the entity classes: each property's name and its
// VARTYPE (VT_BSTR, VT_R8, VT_DATE, VT_I2, VT_I4), in member order.
struct PropertyInfo {
  const char* name;
  VARTYPE type;
};
struct EntityInfo {
  const char* name;
  std::span<const PropertyInfo> properties;
};
// The entity class of that name, without regard to case; null when none.
CORVANE_EXPORT const EntityInfo* FindEntity(std::string_view name);
// All entity classes, in a fixed order.
CORVANE_EXPORT std::span<const EntityInfo> Entities();

}  // namespace corvane::automation

#endif  // CORVANE_AUTOMATION_BRIDGE_H_
