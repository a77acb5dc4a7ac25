// The four exports of the component module, the only symbols it exports.
#include "corvane/automation.h"
#include "corvane/component/method_table.h"
#include "corvane/component/object.h"
#include "corvane/component/registry.h"

extern "C" {

CORVANE_EXPORT HRESULT DllGetClassObject(REFCLSID rclsid, REFIID riid, void** ppv) {
  if (ppv == nullptr) return E_POINTER;
  *ppv = nullptr;
  const corvane::component::ClassInfo* cls = corvane::component::FindClass(rclsid);
  if (cls == nullptr) return CLASS_E_CLASSNOTAVAILABLE;
  return corvane::component::CreateFactory(*cls, riid, ppv);
}

CORVANE_EXPORT HRESULT DllCanUnloadNow(void) {
  return corvane::component::ModuleInUse() ? S_FALSE : S_OK;
}

CORVANE_EXPORT HRESULT DllRegisterServer(void) { return corvane::component::RegisterServer(); }

CORVANE_EXPORT HRESULT DllUnregisterServer(void) {
  return corvane::component::UnregisterServer();
}

}  // extern "C"
