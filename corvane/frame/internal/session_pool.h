// Where sessions get their connections: the connection another live session
// of the same thread holds for the same text, an idle connection from the
// pool, or a new one. A connection goes back to the pool when the last
// holder (a session or a recordset) lets go of it.
#ifndef CORVANE_FRAME_INTERNAL_SESSION_POOL_H_
#define CORVANE_FRAME_INTERNAL_SESSION_POOL_H_

#include <memory>
#include <string>

#include "corvane/frame/connection.h"
#include "corvane/frame/session.h"

namespace corvane::internal {

// An open connection for text, shared or pooled as the options say.
std::shared_ptr<Connection> AcquireConnection(const std::string& text);

// True when sessions only drop their hold on Close, the connection ending or
// going back to the pool with its last holder.
bool ConnectionsAreKept();

// Idle connections now in the pool.
std::size_t IdleConnections();

}  // namespace corvane::internal

#endif  // CORVANE_FRAME_INTERNAL_SESSION_POOL_H_
