// Finding the component module and the type library: the registry file
// first, then the fallbacks beside the tool.
#include "tools/corvane/locate.h"

#include <nlohmann/json.hpp>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "tools/corvane/type_library.h"
#include "tools/corvane/usage_error.h"

#ifndef CORVANE_CLI_LIBDIR
#define CORVANE_CLI_LIBDIR "lib"
#endif

namespace corvane::cli {
namespace {

namespace fs = std::filesystem;

constexpr const char* kModuleName = "libcorvane_component.so";
constexpr const char* kTypeLibraryName = "corvane.tlb.json";

std::string Env(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

// The registry document; empty when the file is missing or unreadable.
nlohmann::json ReadRegistry() {
  const std::string path = RegistryPath();
  if (path.empty()) return {};
  std::ifstream in(path);
  if (!in) return {};
  try {
    return nlohmann::json::parse(in);
  } catch (const nlohmann::json::exception&) {
    throw UsageError("the registry file " + path + " is no JSON");
  }
}

// The module when the class is not registered.
std::string FallbackModule() {
  if (const std::string given = Env("CORVANE_COMPONENT"); !given.empty()) {
    std::error_code ec;
    const fs::path p = fs::absolute(given, ec);
    if (!fs::exists(p, ec)) throw CallError("CORVANE_COMPONENT names no file: " + given, 0);
    return p.string();
  }
  std::error_code ec;
  const fs::path self = fs::read_symlink("/proc/self/exe", ec);
  if (!ec) {
    const fs::path dir = self.parent_path();
    for (const fs::path& candidate :
         {dir / kModuleName, dir / ".." / CORVANE_CLI_LIBDIR / kModuleName,
          dir / ".." / "lib" / kModuleName, dir / ".." / kModuleName}) {
      if (fs::exists(candidate, ec)) return fs::weakly_canonical(candidate, ec).string();
    }
  }
  throw CallError(std::string("no component module: register it, or set CORVANE_COMPONENT, "
                              "or install ") + kModuleName + " beside the tool",
                  0);
}

}  // namespace

std::string RegistryPath() {
  if (const std::string given = Env("CORVANE_REGISTRY"); !given.empty()) return given;
  if (const std::string data = Env("XDG_DATA_HOME"); !data.empty()) {
    return data + "/corvane/registry.json";
  }
  if (const std::string home = Env("HOME"); !home.empty()) {
    return home + "/.local/share/corvane/registry.json";
  }
  return "";
}

ModuleLocation Locate(const std::string& class_name) {
  const nlohmann::json registry = ReadRegistry();
  ModuleLocation where;
  if (registry.is_object()) {
    if (const auto libs = registry.find("typelibs"); libs != registry.end() && libs->is_object()) {
      for (const auto& [id, lib] : libs->items()) {
        if (lib.is_object() && SameName(lib.value("name", ""), "Corvane")) {
          where.typelib = lib.value("path", "");
        }
      }
    }
    const auto progids = registry.find("progids");
    const auto classes = registry.find("classes");
    if (!class_name.empty() && progids != registry.end() && classes != registry.end() &&
        progids->is_object() && classes->is_object()) {
      for (const auto& [progid, clsid] : progids->items()) {
        if (!SameName(progid, "Corvane." + class_name) || !clsid.is_string()) continue;
        const auto entry = classes->find(clsid.get<std::string>());
        if (entry == classes->end() || !entry->is_object()) continue;
        where.clsid = clsid.get<std::string>();
        where.module = entry->value("module", "");
      }
    }
  }
  if (where.module.empty()) {
    if (class_name.empty() && !where.typelib.empty()) return where;
    where.clsid.clear();
    where.module = FallbackModule();
  }
  if (where.typelib.empty()) {
    where.typelib = (fs::path(where.module).parent_path() / kTypeLibraryName).string();
  }
  return where;
}

}  // namespace corvane::cli
