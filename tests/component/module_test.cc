// The component module from outside: its exports, the class factory, the
// unload test, the registration and the type library.
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "tests/component/component.h"
#include "tests/support/sandbox.h"

namespace corvane::testing {
namespace {

namespace fs = std::filesystem;
using Json = nlohmann::json;

struct ClassId {
  const char* name;
  const CLSID* clsid;
  const IID* iid;
  int methods;  // the number of methods of the default interface
};

// The seventeen classes and the method counts of their default interfaces.
const std::vector<ClassId>& AllClasses() {
  static const std::vector<ClassId> all = {
      {"clsDataBOrderh", &CLSID_clsDataBOrderh, &IID__clsDataBOrderh, 14},
      {"clsDataBOrderi", &CLSID_clsDataBOrderi, &IID__clsDataBOrderi, 14},
      {"clsDataBOrderType", &CLSID_clsDataBOrderType, &IID__clsDataBOrderType, 4},
      {"clsDataBOrdChange", &CLSID_clsDataBOrdChange, &IID__clsDataBOrdChange, 12},
      {"clsDataBPriceh", &CLSID_clsDataBPriceh, &IID__clsDataBPriceh, 14},
      {"clsDataBPricei", &CLSID_clsDataBPricei, &IID__clsDataBPricei, 5},
      {"clsDataBPriceAttach", &CLSID_clsDataBPriceAttach, &IID__clsDataBPriceAttach, 4},
      {"clsDataBOutMakeh", &CLSID_clsDataBOutMakeh, &IID__clsDataBOutMakeh, 12},
      {"clsDataBOutMakei", &CLSID_clsDataBOutMakei, &IID__clsDataBOutMakei, 8},
      {"clsDataBCosth", &CLSID_clsDataBCosth, &IID__clsDataBCosth, 10},
      {"clsDataBCosti", &CLSID_clsDataBCosti, &IID__clsDataBCosti, 5},
      {"clsDataBCosts", &CLSID_clsDataBCosts, &IID__clsDataBCosts, 5},
      {"clsDataBWageSort", &CLSID_clsDataBWageSort, &IID__clsDataBWageSort, 3},
      {"clsDataBCustom", &CLSID_clsDataBCustom, &IID__clsDataBCustom, 10},
      {"clsDataBSaler", &CLSID_clsDataBSaler, &IID__clsDataBSaler, 6},
      {"clsDataBCStudy", &CLSID_clsDataBCStudy, &IID__clsDataBCStudy, 10},
      {"clsDataBSample", &CLSID_clsDataBSample, &IID__clsDataBSample, 10},
  };
  return all;
}

std::string GuidText(const GUID& g) {
  char text[39];
  std::snprintf(text, sizeof text, "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                static_cast<unsigned>(g.Data1), g.Data2, g.Data3, g.Data4[0], g.Data4[1],
                g.Data4[2], g.Data4[3], g.Data4[4], g.Data4[5], g.Data4[6], g.Data4[7]);
  return text;
}

GUID ParseGuid(const std::string& text) {
  GUID g{};
  unsigned d[11] = {};
  EXPECT_EQ(std::sscanf(text.c_str(), "{%8x-%4x-%4x-%2x%2x-%2x%2x%2x%2x%2x%2x}", &d[0], &d[1],
                        &d[2], &d[3], &d[4], &d[5], &d[6], &d[7], &d[8], &d[9], &d[10]),
            11)
      << text;
  g.Data1 = d[0];
  g.Data2 = static_cast<uint16_t>(d[1]);
  g.Data3 = static_cast<uint16_t>(d[2]);
  for (int i = 0; i < 8; ++i) g.Data4[i] = static_cast<uint8_t>(d[3 + i]);
  return g;
}

Json ReadJson(const fs::path& path) {
  std::ifstream in(path);
  EXPECT_TRUE(in) << path;
  return Json::parse(in);
}

TEST(ComponentModule, ExportsExactlyTheFourFunctions) {
  FILE* pipe = popen(("nm -D --defined-only " + ModulePath()).c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::set<std::string> names;
  char line[1024];
  while (std::fgets(line, sizeof line, pipe) != nullptr) {
    std::string text(line);
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    const auto blank = text.rfind(' ');
    names.insert(blank == std::string::npos ? text : text.substr(blank + 1));
  }
  ASSERT_EQ(pclose(pipe), 0);
  EXPECT_EQ(names, (std::set<std::string>{"DllCanUnloadNow", "DllGetClassObject",
                                          "DllRegisterServer", "DllUnregisterServer"}));
}

class ComponentObjects : public SandboxTest {};

TEST_F(ComponentObjects, EveryClassIsCreatedByItsIdentifierWithItsDefaultInterface) {
  for (const ClassId& c : AllClasses()) {
    SCOPED_TRACE(c.name);
    Ref<IDispatch> byIid;
    ASSERT_EQ(CreateByClsid(*c.clsid, *c.iid, byIid.put()), S_OK);
    // The default interface is also IDispatch and IUnknown, the same object.
    Ref<IDispatch> disp;
    ASSERT_EQ(byIid->QueryInterface(IID_IDispatch, reinterpret_cast<void**>(disp.put())), S_OK);
    EXPECT_EQ(disp.get(), byIid.get());
    Ref<IUnknown> unk;
    ASSERT_EQ(byIid->QueryInterface(IID_IUnknown, reinterpret_cast<void**>(unk.put())), S_OK);
    EXPECT_EQ(static_cast<void*>(unk.get()), static_cast<void*>(byIid.get()));
    void* none = reinterpret_cast<void*>(1);
    EXPECT_EQ(byIid->QueryInterface(IID_IClassFactory, &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
    UINT count = 7;
    EXPECT_EQ(byIid->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 0u);
  }
}

TEST_F(ComponentObjects, AnUnknownClassIdentifierIsRefused) {
  const CLSID unknown = {0x12345678, 0x1234, 0x1234, {1, 2, 3, 4, 5, 6, 7, 8}};
  void* factory = reinterpret_cast<void*>(1);
  EXPECT_EQ(Module::Get().GetClassObject(unknown, IID_IClassFactory, &factory),
            CLASS_E_CLASSNOTAVAILABLE);
  EXPECT_EQ(factory, nullptr);
  // An interface identifier is no class identifier either.
  EXPECT_EQ(Module::Get().GetClassObject(IID__clsDataBOrderh, IID_IClassFactory, &factory),
            CLASS_E_CLASSNOTAVAILABLE);
}

TEST_F(ComponentObjects, TheFactoryRefusesAggregationAndOtherInterfaces) {
  Ref<IClassFactory> factory;
  ASSERT_EQ(Module::Get().GetClassObject(CLSID_clsDataBSaler, IID_IClassFactory,
                                         reinterpret_cast<void**>(factory.put())),
            S_OK);
  Ref<IDispatch> outer = Create(CLSID_clsDataBSaler);
  void* object = reinterpret_cast<void*>(1);
  EXPECT_EQ(factory->CreateInstance(outer.get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(factory->CreateInstance(nullptr, IID__clsDataBOrderh, &object), E_NOINTERFACE);
  EXPECT_EQ(object, nullptr);
  EXPECT_EQ(Module::Get().GetClassObject(CLSID_clsDataBSaler, IID_IDispatch, &object),
            E_NOINTERFACE);
}

TEST_F(ComponentObjects, CanUnloadNowOnlyWhenNoObjectNorLockLives) {
  ASSERT_EQ(Module::Get().CanUnloadNow(), S_OK);
  {
    Ref<IClassFactory> factory;
    ASSERT_EQ(Module::Get().GetClassObject(CLSID_clsDataBOrderType, IID_IClassFactory,
                                           reinterpret_cast<void**>(factory.put())),
              S_OK);
    EXPECT_EQ(Module::Get().CanUnloadNow(), S_FALSE);  // the factory lives
    Ref<IDispatch> object;
    ASSERT_EQ(factory->CreateInstance(nullptr, IID_IDispatch,
                                      reinterpret_cast<void**>(object.put())),
              S_OK);
    ASSERT_EQ(factory->LockServer(1), S_OK);
    factory.reset();
    EXPECT_EQ(Module::Get().CanUnloadNow(), S_FALSE);  // the object and the lock
    object->AddRef();
    EXPECT_EQ(object->Release(), 1u);
    object.reset();
    EXPECT_EQ(Module::Get().CanUnloadNow(), S_FALSE);  // the lock alone
    ASSERT_EQ(Module::Get().GetClassObject(CLSID_clsDataBOrderType, IID_IClassFactory,
                                           reinterpret_cast<void**>(factory.put())),
              S_OK);
    ASSERT_EQ(factory->LockServer(0), S_OK);
    EXPECT_EQ(Module::Get().CanUnloadNow(), S_FALSE);  // the factory again
  }
  EXPECT_EQ(Module::Get().CanUnloadNow(), S_OK);
}

// ---- Registration --------------------------------------------------------

class ComponentRegistry : public SandboxTest {
 protected:
  void SetUp() override {
    SandboxTest::SetUp();
    dir_ = fs::temp_directory_path() / ("cvt_registry_" + std::to_string(getpid()));
    fs::remove_all(dir_);
    fs::create_directories(dir_);
    registry_ = dir_ / "sub" / "registry.json";
    setenv("CORVANE_REGISTRY", registry_.c_str(), 1);
  }
  void TearDown() override {
    unsetenv("CORVANE_REGISTRY");
    std::error_code ignored;
    fs::remove_all(dir_, ignored);
    SandboxTest::TearDown();
  }
  fs::path dir_, registry_;
};

TEST_F(ComponentRegistry, RegisterWritesEveryClassInterfaceAndTheTypeLibrary) {
  ASSERT_EQ(Module::Get().RegisterServer(), S_OK);
  const Json doc = ReadJson(registry_);
  const std::string libid = GuidText(LIBID_Corvane);
  EXPECT_EQ(libid, "{CAD76FE1-DBEF-5D9B-ADC5-564B22450856}");
  const std::string module = fs::canonical(ModulePath()).string();
  ASSERT_TRUE(doc["typelibs"].contains(libid));
  EXPECT_EQ(doc["typelibs"][libid],
            (Json{{"name", "Corvane"},
                  {"version", "94.0"},
                  {"path", (fs::path(module).parent_path() / "corvane.tlb.json").string()}}));
  EXPECT_TRUE(fs::exists(doc["typelibs"][libid]["path"].get<std::string>()));
  EXPECT_EQ(doc["classes"].size(), 17u);
  EXPECT_EQ(doc["progids"].size(), 17u);
  EXPECT_EQ(doc["interfaces"].size(), 17u);
  for (const ClassId& c : AllClasses()) {
    const std::string clsid = GuidText(*c.clsid);
    const std::string progid = std::string("Corvane.") + c.name;
    EXPECT_EQ(doc["classes"][clsid], (Json{{"name", progid},
                                           {"module", module},
                                           {"threading", "Apartment"},
                                           {"typelib", libid}}));
    EXPECT_EQ(doc["progids"][progid], clsid);
    EXPECT_EQ(doc["interfaces"][GuidText(*c.iid)],
              (Json{{"name", std::string("_") + c.name}, {"dual", true}, {"typelib", libid}}));
  }
}

TEST_F(ComponentRegistry, EveryClassIsCreatedByItsNameThroughTheRegistration) {
  ASSERT_EQ(Module::Get().RegisterServer(), S_OK);
  const Json doc = ReadJson(registry_);
  for (const ClassId& c : AllClasses()) {
    const std::string progid = std::string("Corvane.") + c.name;
    SCOPED_TRACE(progid);
    ASSERT_TRUE(doc["progids"].contains(progid));
    const std::string clsid = doc["progids"][progid];
    EXPECT_EQ(doc["classes"][clsid]["module"], fs::canonical(ModulePath()).string());
    Ref<IDispatch> object;
    ASSERT_EQ(CreateByClsid(ParseGuid(clsid), *c.iid, object.put()), S_OK);
    // The object is of that class: its first method answers to its name.
    DISPID id = 0;
    EXPECT_EQ(IdOf(object.get(), "QueryQty", &id),
              std::string(c.name) == "clsDataBOrdChange" ? S_OK : DISP_E_UNKNOWNNAME);
  }
}

TEST_F(ComponentRegistry, UnregisterRemovesItsOwnEntriesAndKeepsOthers) {
  fs::create_directories(registry_.parent_path());
  const Json other = {
      {"typelibs", {{"{00000000-0000-0000-0000-00000000000A}", {{"name", "Other"}}}}},
      {"classes", {{"{00000000-0000-0000-0000-00000000000B}", {{"name", "Other.Thing"}}}}},
      {"progids", {{"Other.Thing", "{00000000-0000-0000-0000-00000000000B}"}}},
      {"interfaces", {{"{00000000-0000-0000-0000-00000000000C}", {{"name", "_Thing"}}}}},
      {"extra", 42}};
  {
    std::ofstream out(registry_);
    out << other.dump();
  }
  ASSERT_EQ(Module::Get().RegisterServer(), S_OK);
  ASSERT_EQ(Module::Get().RegisterServer(), S_OK);  // twice is once
  Json doc = ReadJson(registry_);
  EXPECT_EQ(doc["classes"].size(), 18u);
  EXPECT_EQ(doc["typelibs"].size(), 2u);
  EXPECT_EQ(doc["extra"], 42);
  ASSERT_EQ(Module::Get().UnregisterServer(), S_OK);
  EXPECT_EQ(ReadJson(registry_), other);
  ASSERT_EQ(Module::Get().UnregisterServer(), S_OK);  // nothing left to remove
  EXPECT_EQ(ReadJson(registry_), other);
}

TEST_F(ComponentRegistry, TheDefaultRegistryIsUnderXdgDataHome) {
  unsetenv("CORVANE_REGISTRY");
  const char* old = std::getenv("XDG_DATA_HOME");
  const std::string saved = old == nullptr ? "" : old;
  setenv("XDG_DATA_HOME", (dir_ / "data").c_str(), 1);
  EXPECT_EQ(Module::Get().RegisterServer(), S_OK);
  const fs::path file = dir_ / "data" / "corvane" / "registry.json";
  EXPECT_TRUE(fs::exists(file));
  EXPECT_EQ(ReadJson(file)["progids"]["Corvane.clsDataBCosth"], GuidText(CLSID_clsDataBCosth));
  EXPECT_EQ(Module::Get().UnregisterServer(), S_OK);
  EXPECT_FALSE(ReadJson(file)["progids"].contains("Corvane.clsDataBCosth"));
  if (old == nullptr) {
    unsetenv("XDG_DATA_HOME");
  } else {
    setenv("XDG_DATA_HOME", saved.c_str(), 1);
  }
}

// ---- Type library --------------------------------------------------------

TEST_F(ComponentObjects, TheTypeLibraryListsEveryMethodOfEveryClassInSlotOrder) {
  const Json doc =
      ReadJson(fs::path(ModulePath()).parent_path() / "corvane.tlb.json");
  EXPECT_EQ(doc["library"],
            (Json{{"name", "Corvane"}, {"id", GuidText(LIBID_Corvane)}, {"version", "94.0"}}));
  ASSERT_EQ(doc["classes"].size(), AllClasses().size());
  std::map<std::string, Json> byName;
  for (const Json& c : doc["classes"]) byName[c["name"]] = c;
  int total = 0;
  for (const ClassId& c : AllClasses()) {
    SCOPED_TRACE(c.name);
    ASSERT_TRUE(byName.count(c.name));
    const Json& cls = byName[c.name];
    EXPECT_EQ(cls["clsid"], GuidText(*c.clsid));
    EXPECT_EQ(cls["progid"], std::string("Corvane.") + c.name);
    EXPECT_EQ(cls["interface"]["name"], std::string("_") + c.name);
    EXPECT_EQ(cls["interface"]["iid"], GuidText(*c.iid));
    EXPECT_EQ(cls["interface"]["dual"], true);
    const Json& methods = cls["interface"]["methods"];
    ASSERT_EQ(static_cast<int>(methods.size()), c.methods);
    total += c.methods;
    // The live boundary agrees: each name has the listed DISPID, in order.
    Ref<IDispatch> object = Create(*c.clsid);
    for (std::size_t i = 0; i < methods.size(); ++i) {
      EXPECT_EQ(methods[i]["slot"], 7 + static_cast<int>(i));
      EXPECT_EQ(methods[i]["dispid"], static_cast<int>(i) + 1);
      DISPID id = 0;
      EXPECT_EQ(IdOf(object.get(), methods[i]["name"], &id), S_OK) << methods[i]["name"];
      EXPECT_EQ(id, methods[i]["dispid"].get<int>());
      for (const Json& arg : methods[i]["args"]) {
        const std::string type = arg["type"];
        EXPECT_EQ(arg.contains("entity"), type == "ENTITY" || type == "COLLECTION");
        EXPECT_EQ(arg.contains("element"), type == "ARRAY");
      }
    }
  }
  EXPECT_EQ(total, 146);
  // The slot order of two classes in full.
  auto names = [&](const char* cls) {
    std::vector<std::string> out;
    for (const Json& m : byName[cls]["interface"]["methods"]) out.push_back(m["name"]);
    return out;
  };
  EXPECT_EQ(names("clsDataBOrderType"),
            (std::vector<std::string>{"QueryAll", "AddRecord", "DeleteRecord", "UpdateRecord"}));
  EXPECT_EQ(names("clsDataBCStudy"),
            (std::vector<std::string>{"QueryMaxItem", "QueryMaxItemDelete", "AddRecord",
                                      "UpdateRecord", "DeleteRecord", "QueryAll",
                                      "QueryAlldetaile", "BackEntity", "QueryCondition",
                                      "QueryDate"}));
  // One method in full.
  const Json& update = byName["clsDataBOrderType"]["interface"]["methods"][3];
  EXPECT_EQ(update, (Json{{"name", "UpdateRecord"},
                          {"dispid", 4},
                          {"slot", 10},
                          {"result", "I2"},
                          {"args",
                           {{{"name", "Entity"},
                             {"type", "ENTITY"},
                             {"byref", true},
                             {"entity", "clsEntBOrderType"}},
                            {{"name", "PrdNo"}, {"type", "BSTR"}, {"byref", true}}}}}));
  const Json& read = byName["clsDataBPriceAttach"]["interface"]["methods"][0];
  EXPECT_EQ(read["result"], "BSTR");
  EXPECT_EQ(read["args"][0],
            (Json{{"name", "AttachArray"},
                  {"type", "ARRAY"},
                  {"byref", true},
                  {"element", "UI1"}}));
  EXPECT_EQ(read["args"][2], (Json{{"name", "QuotNo"}, {"type", "R8"}, {"byref", false}}));
  // The entities with their properties.
  bool found = false;
  for (const Json& e : doc["entities"]) {
    if (e["name"] == "clsEntBOrderType") {
      found = true;
      EXPECT_EQ(e["properties"], (Json::array({{{"name", "OrderType"}, {"type", "BSTR"}}})));
    }
  }
  EXPECT_TRUE(found);
  EXPECT_EQ(doc["entities"].size(), 19u);
}

}  // namespace
}  // namespace corvane::testing
