// One call of a repository method through the component: the object created
// by its class factory, the method found by name and invoked late-bound with
// the arguments made from JSON, and the outcome as JSON.
#ifndef CORVANE_TOOLS_CORVANE_CALL_H_
#define CORVANE_TOOLS_CORVANE_CALL_H_

#include <string>
#include <vector>

#include "tools/corvane/json_value.h"
#include "tools/corvane/type_library.h"

namespace corvane::cli {

struct CallRequest {
  std::string class_name;
  std::string method;
  std::vector<std::string> args;  // JSON texts, in call order
  bool trace = false;
};

// The arguments of the method from their JSON texts; a text argument may
// also be given as bare text that is no JSON. Throws UsageError.
std::vector<Json> ParseArguments(const MethodInfo& method, const std::vector<std::string>& texts);

// Makes the call and returns {"result", "args" (every by-reference argument
// after the call), "reports", and with trace "statements"}. Throws
// UsageError before anything is loaded, CallError when the module, the
// class or the object is not to be had or the boundary refuses the call.
Json Call(const CallRequest& request);

// {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX} as a GUID; false when malformed.
bool ParseGuid(const std::string& text, GUID* guid);

}  // namespace corvane::cli

#endif  // CORVANE_TOOLS_CORVANE_CALL_H_
