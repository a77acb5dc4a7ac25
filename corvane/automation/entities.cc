// The entity objects of the library and the bridge between entity structs
// and any entity object, reached by property name.
#include <array>
#include <string_view>
#include <variant>
#include <vector>

#include "corvane/automation.h"
#include "corvane/automation/bridge.h"
#include "corvane/automation/internal/convert.h"
#include "corvane/automation/internal/entity_fields.h"
#include "corvane/automation/internal/entity_object.h"

namespace corvane::automation {
namespace {

using internal::EntityFields;

template <class E>
HRESULT Read(IDispatch* from, E& to) {
  if (from == nullptr) return E_POINTER;
  for (const auto& field : EntityFields<E>::kFields) {
    std::vector<VARIANT> none;
    VARIANT value;
    HRESULT hr = CallByName(from, field.name, DISPATCH_PROPERTYGET, none, &value);
    if (FAILED(hr)) return hr;
    hr = std::visit([&](auto member) { return internal::Assign(value, to.*member); },
                    field.member);
    VariantClear(&value);
    if (FAILED(hr)) return hr;
  }
  return S_OK;
}

template <class E>
HRESULT Write(const E& from, IDispatch* to) {
  if (to == nullptr) return E_POINTER;
  for (const auto& field : EntityFields<E>::kFields) {
    std::vector<VARIANT> args(1);
    HRESULT hr =
        std::visit([&](auto member) { return internal::Load(from.*member, &args[0]); },
                   field.member);
    if (FAILED(hr)) return hr;
    hr = CallByName(to, field.name, DISPATCH_PROPERTYPUT, args, nullptr);
    VariantClear(&args[0]);
    if (FAILED(hr)) return hr;
  }
  return S_OK;
}

template <class E>
HRESULT New(const E& value, IDispatch** out) {
  if (out == nullptr) return E_POINTER;
  *out = internal::EntityObject<E>::Create(value);
  return S_OK;
}

template <class E>
constexpr auto PropertiesOf() {
  constexpr const auto& fields = EntityFields<E>::kFields;
  std::array<PropertyInfo, fields.size()> out{};
  for (std::size_t i = 0; i < fields.size(); ++i) out[i] = {fields[i].name, fields[i].Type()};
  return out;
}

template <class E>
constexpr auto kProperties = PropertiesOf<E>();

struct Entry {
  EntityInfo info;
  IDispatch* (*create)();
};

template <class E>
IDispatch* CreateDefault() {
  return internal::EntityObject<E>::Create(E{});
}

#define CORVANE_ENTITY_ENTRY(E) \
  Entry{EntityInfo{EntityFields<E>::kName, kProperties<E>}, &CreateDefault<E>},
const Entry kEntries[] = {CORVANE_FOR_EACH_ENTITY(CORVANE_ENTITY_ENTRY)};
#undef CORVANE_ENTITY_ENTRY

#define CORVANE_ENTITY_INFO(E) EntityInfo{EntityFields<E>::kName, kProperties<E>},
const EntityInfo kInfos[] = {CORVANE_FOR_EACH_ENTITY(CORVANE_ENTITY_INFO)};
#undef CORVANE_ENTITY_INFO

bool EqualNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    if (lower(a[i]) != lower(b[i])) return false;
  }
  return true;
}

const Entry* FindEntry(std::string_view name) {
  for (const Entry& entry : kEntries) {
    if (EqualNoCase(entry.info.name, name)) return &entry;
  }
  return nullptr;
}

}  // namespace

#define CORVANE_ENTITY_BRIDGE(E)                                                             \
  HRESULT ReadEntity(IDispatch* from, E& to) { return Read(from, to); }                      \
  HRESULT WriteEntity(const E& from, IDispatch* to) { return Write(from, to); }              \
  HRESULT NewEntityObject(const E& value, IDispatch** out) { return New(value, out); }
CORVANE_FOR_EACH_ENTITY(CORVANE_ENTITY_BRIDGE)
#undef CORVANE_ENTITY_BRIDGE

const EntityInfo* FindEntity(std::string_view name) {
  for (const EntityInfo& info : kInfos) {
    if (EqualNoCase(info.name, name)) return &info;
  }
  return nullptr;
}

std::span<const EntityInfo> Entities() { return kInfos; }

}  // namespace corvane::automation

extern "C" HRESULT CorvaneCreateEntity(const char* name, IDispatch** ppEntity) {
  if (ppEntity == nullptr) return E_POINTER;
  *ppEntity = nullptr;
  if (name == nullptr) return E_INVALIDARG;
  const corvane::automation::Entry* entry = corvane::automation::FindEntry(name);
  if (entry == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
  *ppEntity = entry->create();
  return S_OK;
}
