// The connection provider.
#include "corvane/frame/session.h"

#include <string>

#include "corvane/frame/host.h"
#include "corvane/frame/internal/profile.h"
#include "corvane/frame/internal/session_pool.h"

namespace corvane {
namespace {

// The business database as my.ini names it.
std::string ProfileConnectionText() {
  const std::string path = internal::ProfilePath();
  std::string server = internal::ReadProfileString("serverIP", "key", path);
  std::string database = internal::ReadProfileString("servername", "key", path);
  const std::string user = internal::ReadProfileString("serverUID", "key", path);
  const std::string password = internal::ReadProfileString("serverPWD", "key", path);
  if (server.empty()) server = "127.0.0.1";
  if (database.empty()) database = "tarnwick";
  return "SERVER=" + server + ";PORT=3306;DATABASE=" + database + ";UID=" + user +
         ";PWD=" + password;
}

}  // namespace

void clsDbSession::Open() {
  std::string text = SessionConnectionString();
  if (text.empty()) text = ProfileConnectionText();
  connection_ = internal::AcquireConnection(text);
}

std::shared_ptr<corvane::Connection> clsDbSession::Connection() { return connection_; }

void clsDbSession::Close() {
  if (!connection_) return;
  if (internal::ConnectionsAreKept()) {
    connection_.reset();  // the last holder gives it back to the pool
  } else if (connection_->State() == 1) {
    connection_->Close();
  }
}

}  // namespace corvane
