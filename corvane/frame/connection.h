/// \file
/// corvane::Connection is a connection to a MariaDB or MySQL server, with the
/// operations of the connection object the repositories were written against:
/// a connection text, a time-out, Open and Close. Recordsets run their
/// statements over it.
#ifndef CORVANE_FRAME_CONNECTION_H_
#define CORVANE_FRAME_CONNECTION_H_

#include <memory>
#include <string>

#include "corvane/export.h"

namespace corvane {
namespace internal {
class Link;
}  // namespace internal

/// A connection to the server: a connection text, a connect time-out, Open
/// and Close. Recordsets run their statements over it.
class CORVANE_EXPORT Connection {
 public:
  /// A closed connection with no text and the time-out of 15 seconds.
  Connection();
  /// Releasing an open connection disconnects it.
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  /// Sets the connection text,
  /// "SERVER=...;PORT=...;DATABASE=...;UID=...;PWD=..." (see host.h); DRIVER
  /// and OPTION items are accepted and ignored. Setting it on an open
  /// connection fails.
  void SetConnectionString(std::string text);
  /// The connection text as it was set.
  const std::string& ConnectionString() const { return connection_string_; }
  /// Sets the connect time-out in seconds; a CONNECT_TIMEOUT= item of the
  /// text takes precedence. Setting it on an open connection fails.
  void SetConnectionTimeout(int seconds);
  /// The connect time-out in seconds; 15 unless set.
  int ConnectionTimeout() const { return timeout_; }

  /// Opens the connection; a non-empty text replaces the connection text, a
  /// non-empty user or password replaces UID or PWD. Fails with the server's
  /// words when the server cannot be reached or refuses the login, and on an
  /// open connection.
  void Open(const std::string& text = "", const std::string& user = "",
            const std::string& password = "", int options = -1);
  /// Closes the connection. Fails on a closed connection.
  void Close();
  /// The state of the connection: 0 closed, 1 open.
  int State() const;

  /// The wire under the connection, for the recordset.
  internal::Link& link() { return *link_; }

 private:
  std::string connection_string_;
  int timeout_ = 15;
  std::unique_ptr<internal::Link> link_;
};

}  // namespace corvane

#endif  // CORVANE_FRAME_CONNECTION_H_
