// A late-bound call by name: GetIDsOfNames, then Invoke with the arguments in
// the reversed order of the binary standard.
#include <string>
#include <vector>

#include "corvane/automation/bridge.h"

namespace corvane::automation {

HRESULT CallByName(IDispatch* obj, const char* name, WORD flags, std::vector<VARIANT>& args,
                   VARIANT* result) {
  if (obj == nullptr || name == nullptr) return E_POINTER;
  BSTR wide = ToBstr(name);
  if (wide == nullptr) return E_OUTOFMEMORY;
  DISPID id = DISPID_UNKNOWN;
  HRESULT hr = obj->GetIDsOfNames(IID_NULL, &wide, 1, LOCALE_USER_DEFAULT, &id);
  SysFreeString(wide);
  if (FAILED(hr)) return hr;

  // The callee reads and writes them in place; they stay the caller's.
  std::vector<VARIANT> reversed(args.rbegin(), args.rend());
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS params{};
  params.rgvarg = reversed.empty() ? nullptr : reversed.data();
  params.cArgs = static_cast<UINT>(reversed.size());
  if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) && !reversed.empty()) {
    params.rgdispidNamedArgs = &named;
    params.cNamedArgs = 1;
  }
  EXCEPINFO info{};
  UINT arg_error = 0;
  if (result != nullptr) VariantInit(result);
  hr = obj->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params, result, &info, &arg_error);
  SysFreeString(info.bstrSource);
  SysFreeString(info.bstrDescription);
  SysFreeString(info.bstrHelpFile);
  // A callee that wrote a by-value argument back wrote into the copies; the
  // by-reference ones point where the caller's do.
  for (std::size_t i = 0; i < args.size(); ++i) args[i] = reversed[args.size() - 1 - i];
  return hr;
}

}  // namespace corvane::automation
