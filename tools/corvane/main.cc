// corvane: calls the repository classes of the component from the command
// line, as a late-bound client does, with arguments and output as JSON.
//
//   corvane list
//   corvane describe CLASS
//   corvane call [--connect TEXT] [--trace] CLASS METHOD [ARG...]
//
// Exit status: 0 when the call ran (whatever its result), 1 when it could
// not be made (no module, the object could not be created, the boundary
// refused it), 2 on a usage error.
#include <CLI/CLI.hpp>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "corvane/frame/host.h"
#include "tools/corvane/call.h"
#include "tools/corvane/locate.h"
#include "tools/corvane/type_library.h"
#include "tools/corvane/usage_error.h"

namespace corvane::cli {
namespace {

const TypeLibrary LoadLibrary() { return TypeLibrary::Load(Locate("").typelib); }

Json List() {
  const TypeLibrary library = LoadLibrary();
  Json classes = Json::array();
  for (const ClassInfo& cls : library.classes()) {
    Json methods = Json::array();
    for (const MethodInfo& m : cls.methods) methods.push_back(m.name);
    classes.push_back({{"name", cls.name},
                       {"progid", cls.progid},
                       {"clsid", cls.clsid},
                       {"methods", std::move(methods)}});
  }
  Json out;
  out["library"] = library.document().value("library", Json::object());
  out["classes"] = std::move(classes);
  return out;
}

Json Describe(const std::string& name) {
  const TypeLibrary library = LoadLibrary();
  if (const Json* entity = library.FindEntity(name)) return *entity;
  const ClassInfo* cls = library.FindClass(name);
  if (cls == nullptr) throw UsageError("no class or entity class " + name);
  Json out = cls->document;
  // The entity classes its arguments take, so that the JSON to give is known.
  Json entities = Json::array();
  std::vector<std::string> seen;
  for (const MethodInfo& m : cls->methods) {
    for (const ArgumentInfo& a : m.args) {
      if (a.entity.empty()) continue;
      bool known = false;
      for (const std::string& s : seen) known = known || SameName(s, a.entity);
      if (known) continue;
      seen.push_back(a.entity);
      if (const Json* e = library.FindEntity(a.entity)) entities.push_back(*e);
    }
  }
  out["entities"] = std::move(entities);
  return out;
}

int Run(int argc, char** argv) {
  CLI::App app{"Calls the Corvane repository classes through the component, with JSON in and out."};
  app.require_subcommand(1);
  app.footer(
      "Arguments of call are JSON, one per method argument in order: entities as objects, "
      "collections as arrays of objects, arrays as arrays; a text may be given bare. Arguments "
      "left out at the end are passed empty when they are by reference, an entity, a "
      "collection or an array.\n"
      "The connection: --connect, else CORVANE_CONNECT, else my.ini.\n"
      "The component: the registry file (CORVANE_REGISTRY, else "
      "$XDG_DATA_HOME/corvane/registry.json, else ~/.local/share/corvane/registry.json), "
      "else CORVANE_COMPONENT, else libcorvane_component.so beside the tool.\n"
      "Exit status: 0 the call ran, 1 it could not be made, 2 usage error.");

  app.add_subcommand("list", "List the classes of the type library and their methods");

  CLI::App* describe = app.add_subcommand("describe", "Show a class's methods or an entity's properties");
  std::string describe_name;
  describe->add_option("CLASS", describe_name, "a class (clsDataB...) or entity class (clsEnt...)")
      ->required();

  CLI::App* call = app.add_subcommand("call", "Call a method and print the outcome as JSON");
  CallRequest request;
  std::string connect;
  call->add_option("--connect", connect, "connection text of the business database");
  call->add_flag("--trace", request.trace, "also print the statements sent");
  call->add_option("CLASS", request.class_name, "the class, e.g. clsDataBOrderType")->required();
  call->add_option("METHOD", request.method, "the method, e.g. QueryAll")->required();
  // The arguments are taken as they stand (the parser would read "[]" and
  // "{}" as empty lists, and "-1" as an option).
  call->allow_extras();
  call->footer("ARG...: the method's arguments in order, each one JSON text.");

  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForAllHelp& e) {
    return app.exit(e);
  } catch (const CLI::ParseError& e) {
    app.exit(e);  // prints the message
    return 2;
  }

  try {
    Json out;
    if (app.got_subcommand("list")) {
      out = List();
    } else if (app.got_subcommand("describe")) {
      out = Describe(describe_name);
    } else {
      request.args = call->remaining();
      if (connect.empty()) {
        if (const char* env = std::getenv("CORVANE_CONNECT")) connect = env;
      }
      if (!connect.empty()) SetSessionConnectionString(connect);
      out = Call(request);
    }
    std::cout << out.dump(2) << "\n";
    return 0;
  } catch (const UsageError& e) {
    std::cerr << "corvane: " << e.what() << "\n";
    return 2;
  } catch (const CallError& e) {
    std::cerr << "corvane: " << e.what();
    if (e.hresult() != 0) {
      char code[16];
      std::snprintf(code, sizeof code, "0x%08X", static_cast<unsigned>(e.hresult()));
      std::cerr << " (" << code << ")";
    }
    std::cerr << "\n";
    return 1;
  }
}

}  // namespace
}  // namespace corvane::cli

int main(int argc, char** argv) { return corvane::cli::Run(argc, argv); }
