// The type library of the component as a JSON document: the library, every
// class with its default interface and the interface's methods in slot
// order (DISPID, slot, result type, arguments with name, type and by value
// or by reference), and the entity classes with their properties. It is
// made from the method table, so it cannot disagree with the boundary.
#ifndef CORVANE_COMPONENT_TYPE_LIBRARY_H_
#define CORVANE_COMPONENT_TYPE_LIBRARY_H_

#include <nlohmann/json.hpp>

namespace corvane::component {

inline constexpr const char* kLibraryName = "Corvane";
inline constexpr const char* kLibraryVersion = "94.0";
inline constexpr const char* kTypeLibraryFile = "corvane.tlb.json";

nlohmann::ordered_json TypeLibrary();

}  // namespace corvane::component

#endif  // CORVANE_COMPONENT_TYPE_LIBRARY_H_
