// The host hooks that a C program needs, with C linkage (declared in
// corvane/automation.h).
#include "corvane/automation.h"
#include "corvane/frame/host.h"

extern "C" CORVANE_EXPORT void CorvaneSetConnectionString(const char* text) {
  corvane::SetSessionConnectionString(text == nullptr ? std::string() : std::string(text));
}
