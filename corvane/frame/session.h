/// \file
/// clsDbSession is the connection provider of the repositories. Open connects
/// to the business database, Connection hands out that open connection for
/// each recordset open, Close lets go of it.
///
/// Connections are kept and shared (SetSessionPool): the sessions that live at
/// the same time on one thread share one connection per connection text, and a
/// connection whose last holder lets go of it waits in a pool for the next
/// session with the same text, which checks that the server has not ended it
/// (a poll, no round trip) before it takes it. A repository object is then used
/// on the thread that created it, as the apartment rule asks anyway. With both
/// off, each session connects on Open and disconnects on Close.
#ifndef CORVANE_FRAME_SESSION_H_
#define CORVANE_FRAME_SESSION_H_

#include <chrono>
#include <cstddef>
#include <memory>

#include "corvane/export.h"
#include "corvane/frame/connection.h"

namespace corvane {

/// How sessions keep their connections (SetSessionPool).
struct SessionPoolOptions {
  /// Idle connections wait in the pool; false closes each with its last holder.
  bool enabled = true;
  /// The live sessions of one thread share one connection per connection text.
  bool share_within_thread = true;
  /// At most this many idle connections, all texts together; the longest idle
  /// is closed first.
  std::size_t max_idle = 8;
  /// An idle connection is closed when it has waited this long (looked at
  /// whenever a connection is taken from the pool or given back).
  std::chrono::seconds idle_timeout{60};
};

/// Sets how sessions keep their connections; connections already handed out
/// keep the options they were handed out with. Safe from any thread.
CORVANE_EXPORT void SetSessionPool(const SessionPoolOptions& options);
/// The options in force for connections handed out from now on.
CORVANE_EXPORT SessionPoolOptions GetSessionPool();

/// The connection provider of a repository: Open in construction, Connection
/// before each recordset open, Close in destruction.
class CORVANE_EXPORT clsDbSession {
 public:
  /// A session that is not open.
  clsDbSession() = default;
  clsDbSession(const clsDbSession&) = delete;
  clsDbSession& operator=(const clsDbSession&) = delete;

  /// Opens the session: connects with the connection text set by
  /// SetSessionConnectionString, or else the
  /// values of my.ini (server, business database, user, password) on port
  /// 3306. A failure throws corvane::Error with the server's words.
  void Open();
  /// The open connection, as it is (null once a kept connection is let go).
  std::shared_ptr<corvane::Connection> Connection();
  /// Lets go of the connection; with connections neither pooled nor shared it
  /// disconnects. Nothing happens on a session that is not open.
  void Close();

 private:
  std::shared_ptr<corvane::Connection> connection_;
};

}  // namespace corvane

#endif  // CORVANE_FRAME_SESSION_H_
