// The type library document, from the method table and the entity property
// tables of the library.
#include "corvane/component/type_library.h"

#include <string>

#include "corvane/automation/bridge.h"
#include "corvane/component/method_table.h"

namespace corvane::component {
namespace {

const char* VtName(VARTYPE vt) {
  switch (vt) {
    case VT_BSTR: return "BSTR";
    case VT_R8: return "R8";
    case VT_DATE: return "DATE";
    case VT_I2: return "I2";
    case VT_I4: return "I4";
    case VT_BOOL: return "BOOL";
    case VT_UI1: return "UI1";
    default: return "VARIANT";
  }
}

nlohmann::ordered_json Argument(const ArgInfo& arg) {
  nlohmann::ordered_json a;
  a["name"] = arg.name;
  a["type"] = KindName(arg.kind);
  a["byref"] = arg.byref;
  if (arg.kind == Kind::kEntity || arg.kind == Kind::kCollection) a["entity"] = arg.entity;
  if (arg.kind == Kind::kArray) a["element"] = VtName(arg.element);
  return a;
}

}  // namespace

nlohmann::ordered_json TypeLibrary() {
  nlohmann::ordered_json doc;
  doc["library"] = {{"name", kLibraryName},
                    {"id", GuidText(LIBID_Corvane)},
                    {"version", kLibraryVersion}};
  nlohmann::ordered_json classes = nlohmann::ordered_json::array();
  for (const ClassInfo& cls : Classes()) {
    nlohmann::ordered_json methods = nlohmann::ordered_json::array();
    for (std::size_t i = 0; i < cls.methods.size(); ++i) {
      const MethodInfo& m = cls.methods[i];
      nlohmann::ordered_json args = nlohmann::ordered_json::array();
      for (const ArgInfo& arg : m.args) args.push_back(Argument(arg));
      nlohmann::ordered_json method;
      method["name"] = m.name;
      method["dispid"] = DispidOf(i);
      method["slot"] = kFirstMethodSlot + static_cast<int>(i);
      method["result"] = KindName(m.result);
      method["args"] = std::move(args);
      methods.push_back(std::move(method));
    }
    nlohmann::ordered_json c;
    c["name"] = cls.name;
    c["clsid"] = GuidText(*cls.clsid);
    c["progid"] = std::string(kLibraryName) + "." + std::string(cls.name);
    c["interface"] = {{"name", "_" + std::string(cls.name)},
                      {"iid", GuidText(*cls.iid)},
                      {"dual", true},
                      {"methods", std::move(methods)}};
    classes.push_back(std::move(c));
  }
  doc["classes"] = std::move(classes);
  nlohmann::ordered_json entities = nlohmann::ordered_json::array();
  for (const automation::EntityInfo& e : automation::Entities()) {
    nlohmann::ordered_json properties = nlohmann::ordered_json::array();
    for (const automation::PropertyInfo& p : e.properties) {
      properties.push_back({{"name", p.name}, {"type", VtName(p.type)}});
    }
    entities.push_back({{"name", e.name}, {"properties", std::move(properties)}});
  }
  doc["entities"] = std::move(entities);
  return doc;
}

}  // namespace corvane::component
