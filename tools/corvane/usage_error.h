// UsageError: what the user asked for can't be done as asked (an unknown
// class or method, an argument that is no JSON of its type, a missing
// argument). The tool says why on standard error and exits with status 2.
#ifndef CORVANE_TOOLS_CORVANE_USAGE_ERROR_H_
#define CORVANE_TOOLS_CORVANE_USAGE_ERROR_H_

#include <stdexcept>
#include <string>

namespace corvane::cli {

class UsageError : public std::runtime_error {
 public:
  explicit UsageError(const std::string& message) : std::runtime_error(message) {}
};

// The call could not be made: the module or the class is not there, or the
// object refused to be created. Exit status 1.
class CallError : public std::runtime_error {
 public:
  CallError(const std::string& message, long hresult)
      : std::runtime_error(message), hresult_(hresult) {}
  long hresult() const { return hresult_; }

 private:
  long hresult_;
};

}  // namespace corvane::cli

#endif  // CORVANE_TOOLS_CORVANE_USAGE_ERROR_H_
