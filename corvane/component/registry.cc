// Reading, changing and writing the registry file. The file is replaced as a
// whole through a temporary file and a rename, so that a reader never sees
// half of it.
#include "corvane/component/registry.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

#include <nlohmann/json.hpp>

#include "corvane/component/method_table.h"
#include "corvane/component/type_library.h"

namespace corvane::component {
namespace {

namespace fs = std::filesystem;
// Sections are held by reference while others are added: std::map keeps them in place.
using Json = nlohmann::json;

std::string Env(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : std::string(value);
}

// The registry as it stands; an empty object when there is no file yet.
bool Load(const fs::path& path, Json* doc) {
  std::error_code ec;
  if (!fs::exists(path, ec)) {
    *doc = Json::object();
    return true;
  }
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::stringstream text;
  text << in.rdbuf();
  if (text.str().find_first_not_of(" \t\r\n") == std::string::npos) {
    *doc = Json::object();
    return true;
  }
  *doc = Json::parse(text.str(), nullptr, /*allow_exceptions=*/false);
  return doc->is_object();
}

bool Save(const fs::path& path, const Json& doc) {
  std::error_code ec;
  if (path.has_parent_path()) fs::create_directories(path.parent_path(), ec);
  fs::path temp = path;
  temp += ".tmp";
  {
    std::ofstream out(temp, std::ios::binary | std::ios::trunc);
    out << doc.dump(2) << "\n";
    out.close();
    if (!out) return false;
  }
  fs::rename(temp, path, ec);
  return !ec;
}

Json& Section(Json& doc, const char* name) {
  if (!doc.contains(name) || !doc[name].is_object()) doc[name] = Json::object();
  return doc[name];
}

}  // namespace

std::string RegistryPath() {
  const std::string own = Env("CORVANE_REGISTRY");
  if (!own.empty()) return own;
  std::string data = Env("XDG_DATA_HOME");
  if (data.empty()) {
    const std::string home = Env("HOME");
    if (home.empty()) return {};
    data = home + "/.local/share";
  }
  return data + "/corvane/registry.json";
}

std::string ModulePath() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&ModulePath), &info) == 0 || info.dli_fname == nullptr) {
    return {};
  }
  std::error_code ec;
  const fs::path path = fs::absolute(info.dli_fname, ec);
  return ec ? std::string(info.dli_fname) : fs::weakly_canonical(path, ec).string();
}

HRESULT RegisterServer() {
  try {
    const std::string registry = RegistryPath();
    const std::string module = ModulePath();
    if (registry.empty() || module.empty()) return SELFREG_E_CLASS;
    Json doc;
    if (!Load(registry, &doc)) return SELFREG_E_CLASS;
    const std::string libid = GuidText(LIBID_Corvane);
    const std::string typelib =
        (fs::path(module).parent_path() / kTypeLibraryFile).string();
    Section(doc, "typelibs")[libid] = {
        {"name", kLibraryName}, {"version", kLibraryVersion}, {"path", typelib}};
    Json& classes = Section(doc, "classes");
    Json& progids = Section(doc, "progids");
    Json& interfaces = Section(doc, "interfaces");
    for (const ClassInfo& cls : Classes()) {
      const std::string progid = std::string(kLibraryName) + "." + std::string(cls.name);
      const std::string clsid = GuidText(*cls.clsid);
      classes[clsid] = {{"name", progid},
                        {"module", module},
                        {"threading", "Apartment"},
                        {"typelib", libid}};
      progids[progid] = clsid;
      interfaces[GuidText(*cls.iid)] = {
          {"name", "_" + std::string(cls.name)}, {"dual", true}, {"typelib", libid}};
    }
    return Save(registry, doc) ? S_OK : SELFREG_E_CLASS;
  } catch (const std::exception&) {
    return SELFREG_E_CLASS;
  }
}

HRESULT UnregisterServer() {
  try {
    const std::string registry = RegistryPath();
    if (registry.empty()) return SELFREG_E_CLASS;
    std::error_code ec;
    if (!fs::exists(registry, ec)) return S_OK;
    Json doc;
    if (!Load(registry, &doc)) return SELFREG_E_CLASS;
    const std::string libid = GuidText(LIBID_Corvane);
    Section(doc, "typelibs").erase(libid);
    Json& classes = Section(doc, "classes");
    Json& progids = Section(doc, "progids");
    Json& interfaces = Section(doc, "interfaces");
    for (const ClassInfo& cls : Classes()) {
      classes.erase(GuidText(*cls.clsid));
      progids.erase(std::string(kLibraryName) + "." + std::string(cls.name));
      interfaces.erase(GuidText(*cls.iid));
    }
    return Save(registry, doc) ? S_OK : SELFREG_E_CLASS;
  } catch (const std::exception&) {
    return SELFREG_E_CLASS;
  }
}

}  // namespace corvane::component
