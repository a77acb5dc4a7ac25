// Reading the type library document.
#include "tools/corvane/type_library.h"

#include <fstream>

#include "tools/corvane/usage_error.h"

namespace corvane::cli {

bool SameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    if (lower(a[i]) != lower(b[i])) return false;
  }
  return true;
}

TypeLibrary TypeLibrary::Load(const std::string& path) {
  std::ifstream in(path);
  if (!in) throw UsageError("cannot read the type library " + path);
  nlohmann::ordered_json document;
  try {
    document = nlohmann::ordered_json::parse(in);
  } catch (const nlohmann::json::exception& e) {
    throw UsageError("the type library " + path + " is no JSON: " + e.what());
  }
  return Parse(document);
}

TypeLibrary TypeLibrary::Parse(const nlohmann::ordered_json& document) {
  TypeLibrary lib;
  lib.document_ = document;
  try {
    for (const auto& c : document.at("classes")) {
      ClassInfo cls;
      cls.name = c.at("name").get<std::string>();
      cls.clsid = c.at("clsid").get<std::string>();
      cls.progid = c.value("progid", "Corvane." + cls.name);
      cls.document = c;
      for (const auto& m : c.at("interface").at("methods")) {
        MethodInfo method;
        method.name = m.at("name").get<std::string>();
        method.dispid = m.at("dispid").get<int>();
        method.slot = m.value("slot", 0);
        method.result = m.at("result").get<std::string>();
        for (const auto& a : m.at("args")) {
          ArgumentInfo arg;
          arg.name = a.at("name").get<std::string>();
          arg.type = a.at("type").get<std::string>();
          arg.byref = a.value("byref", false);
          arg.entity = a.value("entity", "");
          arg.element = a.value("element", "");
          method.args.push_back(std::move(arg));
        }
        cls.methods.push_back(std::move(method));
      }
      lib.classes_.push_back(std::move(cls));
    }
  } catch (const nlohmann::json::exception& e) {
    throw UsageError(std::string("the type library is not as expected: ") + e.what());
  }
  return lib;
}

const ClassInfo* TypeLibrary::FindClass(std::string_view name) const {
  constexpr std::string_view kPrefix = "Corvane.";
  if (name.size() > kPrefix.size() && SameName(name.substr(0, kPrefix.size()), kPrefix)) {
    name.remove_prefix(kPrefix.size());
  }
  for (const ClassInfo& cls : classes_) {
    if (SameName(cls.name, name)) return &cls;
  }
  return nullptr;
}

const nlohmann::ordered_json* TypeLibrary::FindEntity(std::string_view name) const {
  const auto it = document_.find("entities");
  if (it == document_.end()) return nullptr;
  for (const auto& e : *it) {
    if (SameName(e.value("name", ""), name)) return &e;
  }
  return nullptr;
}

const MethodInfo* FindMethod(const ClassInfo& cls, std::string_view name) {
  for (const MethodInfo& m : cls.methods) {
    if (SameName(m.name, name)) return &m;
  }
  return nullptr;
}

}  // namespace corvane::cli
