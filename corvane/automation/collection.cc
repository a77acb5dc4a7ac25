// The library's collection object: an ordered list of values (entity objects
// above all) with Add(item), Count, Item(index from 1; the default member)
// and Remove(index), as the host runtime's collection has them. It holds a
// copy of each item, and so a reference on each object put in.
#include <cstddef>
#include <memory>
#include <vector>

#include "corvane/automation.h"
#include "corvane/automation/bridge.h"
#include "corvane/automation/internal/convert.h"
#include "corvane/automation/internal/dispatch_object.h"
#include "corvane/frame/error.h"
#include "corvane/frame/variant.h"

namespace corvane::automation {
namespace {

constexpr DISPID kItem = DISPID_VALUE;
constexpr DISPID kAdd = 1;
constexpr DISPID kCount = 2;
constexpr DISPID kRemove = 3;

class CollectionObject final : public internal::DispatchObject {
 public:
  static IDispatch* Create() {
    return std::unique_ptr<CollectionObject>(new CollectionObject()).release();
  }

  HRESULT GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
    if (names == nullptr || ids == nullptr) return E_POINTER;
    if (count == 0) return S_OK;
    static constexpr struct {
      const char* name;
      DISPID id;
    } kMembers[] = {{"Item", kItem}, {"Add", kAdd}, {"Count", kCount}, {"Remove", kRemove}};
    HRESULT hr = DISP_E_UNKNOWNNAME;
    ids[0] = DISPID_UNKNOWN;
    for (const auto& member : kMembers) {
      if (internal::NameEquals(names[0], member.name)) {
        ids[0] = member.id;
        hr = S_OK;
      }
    }
    for (UINT k = 1; k < count; ++k) {
      ids[k] = DISPID_UNKNOWN;
      hr = DISP_E_UNKNOWNNAME;
    }
    return hr;
  }

  HRESULT Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                 EXCEPINFO*, UINT* arg_error) override {
    DISPPARAMS none{};
    if (params == nullptr) params = &none;
    if (params->cNamedArgs != 0) return DISP_E_NONAMEDARGS;
    const bool call = (flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) != 0;
    if (result != nullptr) VariantInit(result);
    switch (id) {
      case kAdd: {
        if (!(flags & DISPATCH_METHOD)) return DISP_E_MEMBERNOTFOUND;
        if (params->cArgs != 1) return DISP_E_BADPARAMCOUNT;
        VARIANT item;
        VariantInit(&item);
        const HRESULT hr = VariantCopyInd(&item, &params->rgvarg[0]);
        if (FAILED(hr)) {
          if (arg_error != nullptr) *arg_error = 0;
          return hr;
        }
        items_.push_back(item);
        return S_OK;
      }
      case kCount:
        if (!call) return DISP_E_MEMBERNOTFOUND;
        if (params->cArgs != 0) return DISP_E_BADPARAMCOUNT;
        if (result != nullptr) {
          result->vt = VT_I4;
          result->lVal = static_cast<LONG>(items_.size());
        }
        return S_OK;
      case kItem:
      case kRemove: {
        if (!call || (id == kRemove && !(flags & DISPATCH_METHOD))) return DISP_E_MEMBERNOTFOUND;
        if (params->cArgs != 1) return DISP_E_BADPARAMCOUNT;
        std::size_t index = 0;
        const HRESULT hr = Index(params->rgvarg[0], &index);
        if (FAILED(hr)) {
          if (arg_error != nullptr) *arg_error = 0;
          return hr;
        }
        if (id == kItem) return result == nullptr ? S_OK : VariantCopy(result, &items_[index]);
        VariantClear(&items_[index]);
        items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(index));
        return S_OK;
      }
      default:
        return DISP_E_MEMBERNOTFOUND;
    }
  }

 private:
  // Only the last Release destroys it.
  friend struct std::default_delete<CollectionObject>;

  CollectionObject() = default;
  ~CollectionObject() override {
    for (VARIANT& item : items_) VariantClear(&item);
  }

  // The place in items_ of the 1-based index arg; DISP_E_BADINDEX outside.
  HRESULT Index(const VARIANT& arg, std::size_t* index) const {
    Variant value;
    HRESULT hr = FromVariant(arg, &value);
    if (FAILED(hr)) return hr;
    std::int32_t n = 0;
    try {
      n = value.CLng();
    } catch (const Error& error) {
      return internal::HresultOf(error);
    }
    if (n < 1 || static_cast<std::size_t>(n) > items_.size()) return DISP_E_BADINDEX;
    *index = static_cast<std::size_t>(n - 1);
    return S_OK;
  }

  std::vector<VARIANT> items_;
};

}  // namespace
}  // namespace corvane::automation

extern "C" HRESULT CorvaneCreateCollection(IDispatch** ppCollection) {
  if (ppCollection == nullptr) return E_POINTER;
  *ppCollection = corvane::automation::CollectionObject::Create();
  return S_OK;
}
