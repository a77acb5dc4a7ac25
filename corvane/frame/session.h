// clsDbSession is the connection provider of the repositories. Open connects
// to the business database, Connection hands out that open connection for
// each recordset open, Close disconnects. Each session has a connection of
// its own.
#ifndef CORVANE_FRAME_SESSION_H_
#define CORVANE_FRAME_SESSION_H_

#include <memory>

#include "corvane/frame/connection.h"

namespace corvane {

class clsDbSession {
 public:
  clsDbSession() = default;
  clsDbSession(const clsDbSession&) = delete;
  clsDbSession& operator=(const clsDbSession&) = delete;

  // The connection text set by SetSessionConnectionString, or else the
  // values of my.ini (server, business database, user, password) on port
  // 3306. A failure throws corvane::Error with the server's words.
  void Open();
  // The open connection, as it is.
  std::shared_ptr<corvane::Connection> Connection();
  // Disconnects; nothing happens on a session that is not open.
  void Close();

 private:
  std::shared_ptr<corvane::Connection> connection_;
};

}  // namespace corvane

#endif  // CORVANE_FRAME_SESSION_H_
