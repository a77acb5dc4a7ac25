// Access to the host hooks from inside the library.
#ifndef CORVANE_FRAME_INTERNAL_HOOKS_H_
#define CORVANE_FRAME_INTERNAL_HOOKS_H_

#include <string>

#include "corvane/frame/host.h"

namespace corvane::internal {

// True when an observer is installed; cheap enough for every statement.
bool ObserverInstalled();
void NotifyStatement(StatementKind kind, const std::string& text);

}  // namespace corvane::internal

#endif  // CORVANE_FRAME_INTERNAL_HOOKS_H_
