// JSON to and from what crosses the binary boundary: scalars of each
// argument type, entity objects (JSON objects), collections (JSON arrays of
// entities) and arrays (JSON arrays). The entities and collections are the
// library's own automation objects; their properties are reached by name.
#ifndef CORVANE_TOOLS_CORVANE_JSON_VALUE_H_
#define CORVANE_TOOLS_CORVANE_JSON_VALUE_H_

#include <nlohmann/json.hpp>

#include <string>

#include "corvane/automation.h"
#include "tools/corvane/type_library.h"

namespace corvane::cli {

using Json = nlohmann::ordered_json;

// One argument of a call: its value, owned here, and the VARIANT passed for
// it (the value itself, or a VT_BYREF VARIANT pointing at it).
class Argument {
 public:
  // From the JSON given; json null means the argument was left out, which
  // only a by-reference argument, an entity, a collection or an array may be:
  // it is then passed empty ("", 0, the zero date, false, Empty, an entity
  // of default properties, no items). Throws UsageError when the JSON is no
  // value of the argument's type.
  Argument(const ArgumentInfo& info, const Json* json);
  ~Argument();
  Argument(const Argument&) = delete;
  Argument& operator=(const Argument&) = delete;

  const ArgumentInfo& info() const { return info_; }
  VARIANT Passed();
  // The value after the call, as JSON.
  Json After() const;

 private:
  void Fill(const Json* json);

  ArgumentInfo info_;
  VARIANT value_;
};

// A value of the type named ("BSTR", "R8", "I2", "I4", "DATE", "BOOL",
// "VARIANT") from JSON, converted as the host runtime converts. what names
// the value in the message of the UsageError thrown when it does not convert.
VARIANT ScalarFromJson(const Json& json, const std::string& type, const std::string& what);

// A new entity object of the class, its properties put from the JSON object.
IDispatch* EntityFromJson(const Json& json, const std::string& entity, const std::string& what);

// Any VARIANT as JSON: empty and null as null, numbers as numbers (whole
// doubles without a fraction), text as text, dates as "yyyy-mm-dd" with
// " hh:mm:ss" when the time is not midnight, Booleans as true and false,
// arrays as arrays. An object is shown as the entity given, if any.
Json VariantToJson(const VARIANT& v, const std::string& entity = "");

// Every property of the entity class, read by name from obj.
Json EntityToJson(IDispatch* obj, const std::string& entity);

// Every item of a collection, by Count and Item.
Json CollectionToJson(IDispatch* coll, const std::string& entity);

}  // namespace corvane::cli

#endif  // CORVANE_TOOLS_CORVANE_JSON_VALUE_H_
