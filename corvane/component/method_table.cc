// The helpers of the method table: names of kinds, class lookup by
// identifier, GUID text and names compared without regard to case.
#include "corvane/component/method_table.h"

#include <cstdio>

namespace corvane::component {

std::string_view KindName(Kind kind) {
  switch (kind) {
    case Kind::kText: return "BSTR";
    case Kind::kR8: return "R8";
    case Kind::kI2: return "I2";
    case Kind::kDate: return "DATE";
    case Kind::kBool: return "BOOL";
    case Kind::kVariant: return "VARIANT";
    case Kind::kEntity: return "ENTITY";
    case Kind::kCollection: return "COLLECTION";
    case Kind::kArray: return "ARRAY";
  }
  return "VARIANT";
}

const ClassInfo* FindClass(const CLSID& clsid) {
  for (const ClassInfo& cls : Classes()) {
    if (CorvaneGuidEqual(cls.clsid, &clsid)) return &cls;
  }
  return nullptr;
}

std::string GuidText(const GUID& g) {
  char text[39];
  std::snprintf(text, sizeof text, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                static_cast<unsigned>(g.Data1), g.Data2, g.Data3, g.Data4[0], g.Data4[1],
                g.Data4[2], g.Data4[3], g.Data4[4], g.Data4[5], g.Data4[6], g.Data4[7]);
  return text;
}

bool SameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    char x = a[i], y = b[i];
    if (x >= 'A' && x <= 'Z') x = static_cast<char>(x - 'A' + 'a');
    if (y >= 'A' && y <= 'Z') y = static_cast<char>(y - 'A' + 'a');
    if (x != y) return false;
  }
  return true;
}

}  // namespace corvane::component
