// A late-bound call through the component module, as any client makes it.
#include "tools/corvane/call.h"

#include <dlfcn.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "corvane/automation.h"
#include "corvane/automation/bridge.h"
#include "corvane/frame/host.h"
#include "corvane/frame/report.h"
#include "tools/corvane/locate.h"
#include "tools/corvane/usage_error.h"

namespace corvane::cli {
namespace {

// Takes the host hooks back when the call is over, however it ends.
struct HookGuard {
  ~HookGuard() {
    SetStatementObserver(nullptr);
    SetReportHandler(nullptr);
  }
};

// Releases an interface pointer when it goes.
struct Releaser {
  void operator()(IUnknown* p) const {
    if (p != nullptr) p->Release();
  }
};
template <class T>
using Ref = std::unique_ptr<T, Releaser>;

const char* KindName(StatementKind kind) {
  switch (kind) {
    case StatementKind::kCommand:
      return "command";
    case StatementKind::kRowChange:
      return "row change";
    case StatementKind::kCatalog:
      return "catalog";
  }
  return "";
}

// The class factory's object for clsid from the module at path.
Ref<IDispatch> CreateObject(const std::string& path, const GUID& clsid, const std::string& name) {
  // The module stays loaded until the process ends.
  void* module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) throw CallError(std::string("cannot load ") + path + ": " + dlerror(), 0);
  auto get_class_object =
      reinterpret_cast<CorvaneDllGetClassObjectFn>(dlsym(module, "DllGetClassObject"));
  if (get_class_object == nullptr) throw CallError(path + " has no DllGetClassObject", 0);
  IClassFactory* factory_raw = nullptr;
  HRESULT hr = get_class_object(clsid, IID_IClassFactory, reinterpret_cast<void**>(&factory_raw));
  if (FAILED(hr)) throw CallError("no class factory for Corvane." + name, hr);
  Ref<IClassFactory> factory(factory_raw);
  IDispatch* obj = nullptr;
  hr = factory->CreateInstance(nullptr, IID_IDispatch, reinterpret_cast<void**>(&obj));
  if (FAILED(hr)) throw CallError("Corvane." + name + " could not be created", hr);
  return Ref<IDispatch>(obj);
}

}  // namespace

bool ParseGuid(const std::string& text, GUID* guid) {
  unsigned long d1 = 0;
  unsigned d2 = 0, d3 = 0, b[8] = {};
  int end = 0;
  if (text.size() != 38 ||
      std::sscanf(text.c_str(), "{%8lx-%4x-%4x-%2x%2x-%2x%2x%2x%2x%2x%2x}%n", &d1, &d2, &d3, &b[0],
                  &b[1], &b[2], &b[3], &b[4], &b[5], &b[6], &b[7], &end) != 11 ||
      end != 38) {
    return false;
  }
  guid->Data1 = static_cast<std::uint32_t>(d1);
  guid->Data2 = static_cast<std::uint16_t>(d2);
  guid->Data3 = static_cast<std::uint16_t>(d3);
  for (int i = 0; i < 8; ++i) guid->Data4[i] = static_cast<std::uint8_t>(b[i]);
  return true;
}

std::vector<Json> ParseArguments(const MethodInfo& method, const std::vector<std::string>& texts) {
  if (texts.size() > method.args.size()) {
    throw UsageError(method.name + " takes " + std::to_string(method.args.size()) +
                     " argument(s), " + std::to_string(texts.size()) + " given");
  }
  std::vector<Json> out;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const ArgumentInfo& info = method.args[i];
    try {
      out.push_back(Json::parse(texts[i]));
    } catch (const nlohmann::json::exception&) {
      if (info.type != "BSTR" && info.type != "VARIANT") {
        throw UsageError("argument " + info.name + " (" + info.type + "): no JSON: " + texts[i]);
      }
      out.emplace_back(texts[i]);  // bare text
    }
  }
  return out;
}

Json Call(const CallRequest& request) {
  // "Corvane.<class>" or the class's name alone.
  std::string class_name = request.class_name;
  if (class_name.size() > 8 && SameName(class_name.substr(0, 8), "Corvane.")) {
    class_name.erase(0, 8);
  }
  const ModuleLocation where = Locate(class_name);
  const TypeLibrary library = TypeLibrary::Load(where.typelib);
  const ClassInfo* cls = library.FindClass(request.class_name);
  if (cls == nullptr) throw UsageError("no class " + request.class_name + " in " + where.typelib);
  const MethodInfo* method = FindMethod(*cls, request.method);
  if (method == nullptr) throw UsageError(cls->name + " has no method " + request.method);
  const std::vector<Json> given = ParseArguments(*method, request.args);

  std::vector<std::unique_ptr<Argument>> args;
  for (std::size_t i = 0; i < method->args.size(); ++i) {
    args.push_back(std::make_unique<Argument>(method->args[i], i < given.size() ? &given[i] : nullptr));
  }

  GUID clsid{};
  const std::string clsid_text = where.clsid.empty() ? cls->clsid : where.clsid;
  if (!ParseGuid(clsid_text, &clsid)) throw CallError("malformed class identifier " + clsid_text, 0);

  Json reports = Json::array();
  Json statements = Json::array();
  const HookGuard guard;
  SetReportHandler([&reports](const Report& r) {
    reports.push_back({{"text", r.text}, {"style", r.style}, {"title", r.title}});
  });
  if (request.trace) {
    SetStatementObserver([&statements](StatementKind kind, const std::string& text) {
      statements.push_back({{"kind", KindName(kind)}, {"text", text}});
    });
  }

  Json out;
  {
    Ref<IDispatch> obj = CreateObject(where.module, clsid, cls->name);
    BSTR name = automation::ToBstr(method->name);
    DISPID id = DISPID_UNKNOWN;
    HRESULT hr = obj->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
    SysFreeString(name);
    if (FAILED(hr)) throw CallError("Corvane." + cls->name + " does not know " + method->name, hr);

    // The standard order: the last argument first.
    std::vector<VARIANT> passed;
    for (auto it = args.rbegin(); it != args.rend(); ++it) passed.push_back((*it)->Passed());
    DISPPARAMS params{passed.empty() ? nullptr : passed.data(), nullptr,
                      static_cast<UINT>(passed.size()), 0};
    VARIANT result;
    VariantInit(&result);
    EXCEPINFO info{};
    UINT arg_error = 0;
    hr = obj->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &params, &result, &info,
                     &arg_error);
    const std::string description =
        info.bstrDescription != nullptr ? automation::ToUtf8(info.bstrDescription) : "";
    SysFreeString(info.bstrSource);
    SysFreeString(info.bstrDescription);
    SysFreeString(info.bstrHelpFile);
    if (FAILED(hr)) {
      VariantClear(&result);
      std::string message = cls->name + "." + method->name + " refused the call";
      if (!description.empty()) message += ": " + description;
      throw CallError(message, hr);
    }
    out["result"] = VariantToJson(result);
    VariantClear(&result);
    Json after = Json::object();
    for (const auto& arg : args) {
      if (arg->info().byref) after[arg->info().name] = arg->After();
    }
    out["args"] = std::move(after);
  }  // the object is released here, before the reports are taken
  out["reports"] = std::move(reports);
  if (request.trace) out["statements"] = std::move(statements);
  return out;
}

}  // namespace corvane::cli
