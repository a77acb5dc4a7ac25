// The type library as the tool reads it (corvane.tlb.json): the classes, the
// methods of each default interface in slot order with their arguments and
// result types, and the entity classes with their properties.
#ifndef CORVANE_TOOLS_CORVANE_TYPE_LIBRARY_H_
#define CORVANE_TOOLS_CORVANE_TYPE_LIBRARY_H_

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>
#include <vector>

namespace corvane::cli {

struct ArgumentInfo {
  std::string name;
  std::string type;     // "BSTR", "R8", "I2", "DATE", "BOOL", "VARIANT", "ENTITY", "COLLECTION", "ARRAY"
  bool byref = false;
  std::string entity;   // ENTITY: its class; COLLECTION: the class of its items
  std::string element;  // ARRAY: "UI1", "R8" or "BSTR"
};

struct MethodInfo {
  std::string name;
  int dispid = 0;
  int slot = 0;
  std::string result;
  std::vector<ArgumentInfo> args;
};

struct ClassInfo {
  std::string name;    // "clsDataBOrderType"
  std::string clsid;   // "{...}"
  std::string progid;  // "Corvane.clsDataBOrderType"
  nlohmann::ordered_json document;  // the class as the type library has it
  std::vector<MethodInfo> methods;
};

class TypeLibrary {
 public:
  // Reads the document at path; throws UsageError when it can't be read.
  static TypeLibrary Load(const std::string& path);
  static TypeLibrary Parse(const nlohmann::ordered_json& document);

  const std::vector<ClassInfo>& classes() const { return classes_; }
  const nlohmann::ordered_json& document() const { return document_; }
  // By name, "Corvane." before it or not, without regard to case.
  const ClassInfo* FindClass(std::string_view name) const;
  // The entity class's entry of "entities"; null when none.
  const nlohmann::ordered_json* FindEntity(std::string_view name) const;

 private:
  nlohmann::ordered_json document_;
  std::vector<ClassInfo> classes_;
};

// The method of that name, without regard to case; null when none.
const MethodInfo* FindMethod(const ClassInfo& cls, std::string_view name);

// ASCII names compared without regard to case.
bool SameName(std::string_view a, std::string_view b);

}  // namespace corvane::cli

#endif  // CORVANE_TOOLS_CORVANE_TYPE_LIBRARY_H_
