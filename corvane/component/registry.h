// The registration of the component: a JSON registry file shared with other
// components, by default $XDG_DATA_HOME/corvane/registry.json (else
// ~/.local/share/corvane/registry.json), or the file CORVANE_REGISTRY names.
// Registering writes the type library, each class (by identifier, and its
// name "Corvane.<class>" under progids) and each interface; unregistering
// removes exactly those entries and leaves the others.
#ifndef CORVANE_COMPONENT_REGISTRY_H_
#define CORVANE_COMPONENT_REGISTRY_H_

#include <string>

#include "corvane/automation.h"

namespace corvane::component {

// The registry file's path; empty when neither variable gives a folder.
std::string RegistryPath();

// The absolute path of this module, found with dladdr.
std::string ModulePath();

HRESULT RegisterServer();
HRESULT UnregisterServer();

}  // namespace corvane::component

#endif  // CORVANE_COMPONENT_REGISTRY_H_
