// Where the tool finds the component and its type library.
//
// The registry file is CORVANE_REGISTRY, else
// $XDG_DATA_HOME/corvane/registry.json, else
// ~/.local/share/corvane/registry.json. A class registered there as
// "Corvane.<class>" is loaded from the module the registry names, and the
// type library is the one registered as "Corvane". Otherwise the module is
// the file CORVANE_COMPONENT names, else libcorvane_component.so beside the
// tool, in the library folder of its installation, or in the folder above it
// (the build tree); the type library is corvane.tlb.json beside that module.
#ifndef CORVANE_TOOLS_CORVANE_LOCATE_H_
#define CORVANE_TOOLS_CORVANE_LOCATE_H_

#include <string>

namespace corvane::cli {

// The registry file's path (it need not exist).
std::string RegistryPath();

struct ModuleLocation {
  std::string module;   // absolute path of the component module
  std::string clsid;    // the class's identifier from the registry; empty when not registered
  std::string typelib;  // the type library's path
};

// Where the class "Corvane.<class_name>" lives; class_name may be empty, for
// the type library alone. Throws CallError when no module can be found.
ModuleLocation Locate(const std::string& class_name);

}  // namespace corvane::cli

#endif  // CORVANE_TOOLS_CORVANE_LOCATE_H_
