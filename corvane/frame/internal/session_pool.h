// Where sessions get their connections: the connection another live session
// of the same thread holds for the same text, an idle connection from the
// pool, or a new one. A connection goes back to the pool when the last
// holder (a session or a recordset) lets go of it.
//
// A pooled connection that gives up its wire on purpose (a long result left
// unread) takes an idle wire of the same text in its place, and the pool has
// one more dialled on a thread of its own for the next time, so that a caller
// who keeps appending to a large table does not wait for a dial each time.
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

// Waits until the spare connections asked for (see Link::SetRefill) have been
// dialled or have failed.
void SettleSpares();

}  // namespace corvane::internal

#endif  // CORVANE_FRAME_INTERNAL_SESSION_POOL_H_
