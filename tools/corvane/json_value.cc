// JSON to and from VARIANTs, entity objects, collections and arrays.
#include "tools/corvane/json_value.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "corvane/automation/bridge.h"
#include "corvane/frame/date.h"
#include "corvane/frame/error.h"
#include "corvane/frame/text.h"
#include "corvane/frame/variant.h"
#include "tools/corvane/usage_error.h"

namespace corvane::cli {
namespace {

using automation::CallByName;

// The JSON as the runtime value a script would hand over.
Variant RuntimeValue(const Json& json, const std::string& what) {
  switch (json.type()) {
    case Json::value_t::null:
      return Variant::Null();
    case Json::value_t::boolean:
      return Variant(json.get<bool>());
    case Json::value_t::string:
      return Variant(json.get<std::string>());
    case Json::value_t::number_integer:
    case Json::value_t::number_unsigned: {
      const auto n = json.get<std::int64_t>();
      if (n >= std::numeric_limits<std::int32_t>::min() &&
          n <= std::numeric_limits<std::int32_t>::max()) {
        return Variant(static_cast<std::int32_t>(n));
      }
      return Variant(static_cast<double>(n));
    }
    case Json::value_t::number_float:
      return Variant(json.get<double>());
    default:
      throw UsageError(what + ": expected a single value, got " + json.dump());
  }
}

Json Number(double x) {
  if (std::isfinite(x) && x == std::floor(x) && std::fabs(x) < 9007199254740992.0) {
    return Json(static_cast<std::int64_t>(x));
  }
  return Json(x);
}

std::string HresultText(HRESULT hr) {
  char text[16];
  std::snprintf(text, sizeof text, "0x%08X", static_cast<unsigned>(hr));
  return text;
}

const automation::EntityInfo& EntityOf(const std::string& entity, const std::string& what) {
  const automation::EntityInfo* info = automation::FindEntity(entity);
  if (info == nullptr) throw UsageError(what + ": no entity class " + entity);
  return *info;
}

SAFEARRAY* ArrayFromJson(const Json& json, const std::string& element, const std::string& what) {
  if (!json.is_array()) throw UsageError(what + ": expected an array, got " + json.dump());
  VARTYPE vt = VT_BSTR;
  if (element == "UI1") vt = VT_UI1;
  if (element == "R8") vt = VT_R8;
  SAFEARRAY* array = SafeArrayCreateVector(vt, 0, static_cast<ULONG>(json.size()));
  if (array == nullptr) throw UsageError(what + ": arrays of " + element + " are not supported");
  for (std::size_t i = 0; i < json.size(); ++i) {
    const std::string item = what + "[" + std::to_string(i) + "]";
    try {
      const Variant value = RuntimeValue(json[i], item);
      if (vt == VT_UI1) {
        const std::int32_t n = value.CLng();
        if (n < 0 || n > 255) throw Error(errc::kOverflow, "Overflow");
        static_cast<BYTE*>(array->pvData)[i] = static_cast<BYTE>(n);
      } else if (vt == VT_R8) {
        static_cast<double*>(array->pvData)[i] = value.CDbl();
      } else {
        static_cast<BSTR*>(array->pvData)[i] = automation::ToBstr(value.CStr());
      }
    } catch (const Error& e) {
      SafeArrayDestroy(array);
      throw UsageError(item + ": " + e.Description() + " for " + json[i].dump());
    } catch (...) {
      SafeArrayDestroy(array);
      throw;
    }
  }
  return array;
}

Json ArrayToJson(SAFEARRAY* array) {
  Json out = Json::array();
  if (array == nullptr) return out;
  VARTYPE vt = VT_EMPTY;
  if (FAILED(SafeArrayGetVartype(array, &vt))) return out;
  LONG lower = 0, upper = -1;
  SafeArrayGetLBound(array, 1, &lower);
  SafeArrayGetUBound(array, 1, &upper);
  void* data = nullptr;
  SafeArrayAccessData(array, &data);
  for (LONG i = 0; i <= upper - lower; ++i) {
    VARIANT item;
    VariantInit(&item);
    const auto* at = static_cast<const unsigned char*>(data) + std::size_t(i) * array->cbElements;
    if (vt == VT_VARIANT) {
      out.push_back(VariantToJson(*reinterpret_cast<const VARIANT*>(at)));
      continue;
    }
    item.vt = vt;
    std::memcpy(&item.llVal, at, array->cbElements);
    out.push_back(VariantToJson(item));  // a view: nothing to clear
  }
  SafeArrayUnaccessData(array);
  return out;
}

// The empty value of a scalar type: "", 0, the zero date, false, Empty.
VARIANT EmptyOf(const std::string& type, const std::string& what) {
  VARIANT out;
  VariantInit(&out);
  if (type == "BSTR") {
    out.vt = VT_BSTR;
    out.bstrVal = automation::ToBstr("");
  } else if (type == "R8" || type == "DATE" || type == "I2" || type == "I4" || type == "BOOL") {
    out.vt = type == "R8" ? VT_R8 : type == "DATE" ? VT_DATE : type == "I2" ? VT_I2
             : type == "I4" ? VT_I4 : VT_BOOL;
  } else if (type != "VARIANT") {
    throw UsageError(what + ": unknown type " + type);
  }
  return out;
}

}  // namespace

VARIANT ScalarFromJson(const Json& json, const std::string& type, const std::string& what) {
  const Variant value = RuntimeValue(json, what);
  VARIANT out;
  VariantInit(&out);
  try {
    if (type == "BSTR") {
      out.vt = VT_BSTR;
      out.bstrVal = automation::ToBstr(value.CStr());
    } else if (type == "R8") {
      out.vt = VT_R8;
      out.dblVal = value.CDbl();
    } else if (type == "I2") {
      out.vt = VT_I2;
      out.iVal = value.CInt();
    } else if (type == "I4") {
      out.vt = VT_I4;
      out.lVal = value.CLng();
    } else if (type == "DATE") {
      out.vt = VT_DATE;
      out.date = value.CDate().Serial();
    } else if (type == "BOOL") {
      out.vt = VT_BOOL;
      out.boolVal = value.CBool() ? VARIANT_TRUE : VARIANT_FALSE;
    } else if (type == "VARIANT") {
      automation::ToVariant(value, &out);
    } else {
      throw UsageError(what + ": unknown type " + type);
    }
  } catch (const Error& e) {
    throw UsageError(what + " (" + type + "): " + e.Description() + " for " + json.dump());
  }
  return out;
}

IDispatch* EntityFromJson(const Json& json, const std::string& entity, const std::string& what) {
  if (!json.is_object()) {
    throw UsageError(what + ": expected an object of " + entity + ", got " + json.dump());
  }
  const automation::EntityInfo& info = EntityOf(entity, what);
  IDispatch* obj = nullptr;
  const HRESULT created = CorvaneCreateEntity(info.name, &obj);
  if (FAILED(created)) throw UsageError(what + ": cannot create " + entity);
  for (const auto& [key, value] : json.items()) {
    const automation::PropertyInfo* property = nullptr;
    for (const automation::PropertyInfo& p : info.properties) {
      if (SameName(p.name, key)) property = &p;
    }
    if (property == nullptr) {
      obj->Release();
      throw UsageError(what + ": " + entity + " has no property " + key);
    }
    std::vector<VARIANT> args(1);
    const char* type = property->type == VT_BSTR   ? "BSTR"
                       : property->type == VT_R8   ? "R8"
                       : property->type == VT_DATE ? "DATE"
                       : property->type == VT_I2   ? "I2"
                                                   : "I4";
    try {
      args[0] = ScalarFromJson(value, type, what + "." + property->name);
    } catch (...) {
      obj->Release();
      throw;
    }
    const HRESULT hr = CallByName(obj, property->name, DISPATCH_PROPERTYPUT, args, nullptr);
    VariantClear(&args[0]);
    if (FAILED(hr)) {
      obj->Release();
      throw UsageError(what + "." + property->name + ": refused (" + HresultText(hr) + ")");
    }
  }
  return obj;
}

Json VariantToJson(const VARIANT& in, const std::string& entity) {
  if (in.vt == (VT_BYREF | VT_VARIANT)) return VariantToJson(*in.pvarVal, entity);
  if (in.vt & VT_BYREF) {
    VARIANT copy;
    VariantInit(&copy);
    if (FAILED(VariantCopyInd(&copy, &in))) return nullptr;
    Json out = VariantToJson(copy, entity);
    VariantClear(&copy);
    return out;
  }
  if (in.vt & VT_ARRAY) return ArrayToJson(in.parray);
  switch (in.vt) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_ERROR:
      return nullptr;
    case VT_I1:
      return Json(static_cast<int>(static_cast<std::int8_t>(in.bVal)));
    case VT_UI1:
      return Json(static_cast<int>(in.bVal));
    case VT_I2:
      return Json(static_cast<int>(in.iVal));
    case VT_UI2:
      return Json(static_cast<int>(static_cast<std::uint16_t>(in.iVal)));
    case VT_I4:
    case VT_INT:
      return Json(static_cast<std::int64_t>(in.lVal));
    case VT_UI4:
    case VT_UINT:
      return Json(static_cast<std::int64_t>(static_cast<std::uint32_t>(in.lVal)));
    case VT_I8:
      return Json(static_cast<std::int64_t>(in.llVal));
    case VT_R4:
      return Number(in.fltVal);
    case VT_R8:
      return Number(in.dblVal);
    case VT_CY:
      return Number(static_cast<double>(in.cyVal.int64) / 10000.0);
    case VT_DATE:
      return Json(Text(Date(in.date)));
    case VT_BSTR:
      return Json(automation::ToUtf8(in.bstrVal));
    case VT_BOOL:
      return Json(in.boolVal != 0);
    case VT_DISPATCH:
      if (in.pdispVal == nullptr) return nullptr;
      if (!entity.empty()) return EntityToJson(in.pdispVal, entity);
      return Json::object();
    default:
      return Json("<VARIANT of type " + std::to_string(in.vt) + ">");
  }
}

Json EntityToJson(IDispatch* obj, const std::string& entity) {
  if (obj == nullptr) return nullptr;
  const automation::EntityInfo* info = automation::FindEntity(entity);
  if (info == nullptr) return Json::object();
  Json out = Json::object();
  for (const automation::PropertyInfo& p : info->properties) {
    std::vector<VARIANT> none;
    VARIANT value;
    const HRESULT hr = CallByName(obj, p.name, DISPATCH_PROPERTYGET, none, &value);
    out[p.name] = SUCCEEDED(hr) ? VariantToJson(value) : Json("<" + HresultText(hr) + ">");
    VariantClear(&value);
  }
  return out;
}

Json CollectionToJson(IDispatch* coll, const std::string& entity) {
  if (coll == nullptr) return nullptr;
  std::vector<VARIANT> none;
  VARIANT count;
  if (FAILED(CallByName(coll, "Count", DISPATCH_PROPERTYGET | DISPATCH_METHOD, none, &count))) {
    return Json::array();
  }
  Variant n;
  automation::FromVariant(count, &n);
  VariantClear(&count);
  std::int32_t items = 0;
  try {
    items = n.CLng();
  } catch (const Error&) {
  }
  Json out = Json::array();
  for (std::int32_t i = 1; i <= items; ++i) {
    std::vector<VARIANT> index(1);
    index[0].vt = VT_I4;
    index[0].lVal = i;
    VARIANT item;
    if (FAILED(CallByName(coll, "Item", DISPATCH_METHOD | DISPATCH_PROPERTYGET, index, &item))) {
      out.push_back(nullptr);
      continue;
    }
    out.push_back(VariantToJson(item, entity));
    VariantClear(&item);
  }
  return out;
}

Argument::Argument(const ArgumentInfo& info, const Json* json) : info_(info) {
  VariantInit(&value_);
  try {
    Fill(json);
  } catch (...) {
    VariantClear(&value_);
    throw;
  }
}

void Argument::Fill(const Json* json) {
  const ArgumentInfo& info = info_;
  const std::string what = "argument " + info.name;
  const std::string& type = info.type;
  if (type == "ENTITY") {
    value_.vt = VT_DISPATCH;
    if (json == nullptr) {
      value_.pdispVal = EntityFromJson(Json::object(), info.entity, what);
    } else if (!json->is_null()) {
      value_.pdispVal = EntityFromJson(*json, info.entity, what);
    }
  } else if (type == "COLLECTION") {
    if (json != nullptr && !json->is_array() && !json->is_null()) {
      throw UsageError(what + ": expected an array of " + info.entity + ", got " + json->dump());
    }
    value_.vt = VT_DISPATCH;
    if (json != nullptr && json->is_null()) return;  // Nothing
    CorvaneCreateCollection(&value_.pdispVal);
    if (json == nullptr) return;
    for (std::size_t i = 0; i < json->size(); ++i) {
      std::vector<VARIANT> args(1);
      args[0].vt = VT_DISPATCH;
      args[0].pdispVal =
          EntityFromJson((*json)[i], info.entity, what + "[" + std::to_string(i) + "]");
      const HRESULT hr = CallByName(value_.pdispVal, "Add", DISPATCH_METHOD, args, nullptr);
      VariantClear(&args[0]);
      if (FAILED(hr)) throw UsageError(what + ": the collection refused an item");
    }
  } else if (type == "ARRAY") {
    const Json empty = Json::array();
    value_.parray = ArrayFromJson(json == nullptr ? empty : *json, info.element, what);
    VARTYPE element = VT_EMPTY;
    SafeArrayGetVartype(value_.parray, &element);
    value_.vt = static_cast<VARTYPE>(VT_ARRAY | element);
  } else if (json != nullptr) {
    value_ = ScalarFromJson(*json, type, what);
  } else if (info.byref) {
    // Left out: the empty value of its type, for the method to set.
    value_ = EmptyOf(type, what);
  } else {
    throw UsageError("missing " + what + " (" + type + ")");
  }
}

Argument::~Argument() { VariantClear(&value_); }

VARIANT Argument::Passed() {
  if (!info_.byref) return value_;
  VARIANT ref;
  VariantInit(&ref);
  if (info_.type == "VARIANT") {
    ref.vt = VT_BYREF | VT_VARIANT;
    ref.pvarVal = &value_;
  } else {
    ref.vt = static_cast<VARTYPE>(VT_BYREF | value_.vt);
    ref.byref = &value_.llVal;
  }
  return ref;
}

Json Argument::After() const {
  if (info_.type == "ENTITY") {
    return value_.vt == VT_DISPATCH ? EntityToJson(value_.pdispVal, info_.entity) : nullptr;
  }
  if (info_.type == "COLLECTION") {
    return value_.vt == VT_DISPATCH ? CollectionToJson(value_.pdispVal, info_.entity) : nullptr;
  }
  return VariantToJson(value_);
}

}  // namespace corvane::cli
