// The method table of the component: for each of the seventeen classes its
// identifiers and its methods in slot order, each with its name, its
// arguments (name, type, by value or by reference) and its result type, the
// call that converts VARIANTs to the C++ arguments and back, and the
// function that stands in the class's early-bound vtable slot. The class
// factory, GetIDsOfNames, Invoke, the vtables and the type library are all
// made from this one table.
#ifndef CORVANE_COMPONENT_METHOD_TABLE_H_
#define CORVANE_COMPONENT_METHOD_TABLE_H_

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "corvane/automation.h"

namespace corvane::component {

// The types of arguments and results at the boundary.
enum class Kind { kText, kR8, kI2, kDate, kBool, kVariant, kEntity, kCollection, kArray };

// The type library's name of a kind: "BSTR", "R8", ...
std::string_view KindName(Kind kind);

struct ArgInfo {
  std::string_view name;
  Kind kind;
  bool byref;
  std::string_view entity;   // kEntity, kCollection: the entity class
  VARTYPE element = VT_EMPTY;  // kArray: VT_UI1, VT_R8 or VT_BSTR
};

// Why the boundary refused a call: the HRESULT, the argument (its position
// in call order) and the words for EXCEPINFO.
struct Refusal {
  HRESULT hr = S_OK;
  bool on_arg = false;  // whether arg names the argument refused
  UINT arg = 0;
  std::string description;
};

// Calls the method on the repository object. args are in call order (the
// first argument first), as the caller passed them, by value or VT_BYREF;
// by-reference arguments are written back through them. result receives the
// method's result and is owned by the caller. A refusal fills refusal.
using CallFn = HRESULT (*)(void* repository, VARIANT* const* args, VARIANT* result,
                           Refusal* refusal);

struct MethodInfo {
  std::string_view name;
  Kind result;
  std::vector<ArgInfo> args;
  CallFn call;
  void* slot;  // the early-bound vtable entry
};

struct ClassInfo {
  std::string_view name;  // "clsDataBOrderType"
  const CLSID* clsid;
  const IID* iid;
  std::vector<MethodInfo> methods;  // in slot order; slot 7 + index, DISPID index + 1
  std::shared_ptr<void> (*create)();  // a new repository object; may throw corvane::Error
};

// The seventeen classes.
const std::vector<ClassInfo>& Classes();
const ClassInfo* FindClass(const CLSID& clsid);

// The first vtable slot after IDispatch's seven, and the DISPID of a
// method: its index in slot order plus one.
inline constexpr int kFirstMethodSlot = 7;
inline DISPID DispidOf(std::size_t index) { return static_cast<DISPID>(index + 1); }

// GUIDs as registry and type library text: {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}.
std::string GuidText(const GUID& guid);

// ASCII names compared without regard to case.
bool SameName(std::string_view a, std::string_view b);

}  // namespace corvane::component

#endif  // CORVANE_COMPONENT_METHOD_TABLE_H_
