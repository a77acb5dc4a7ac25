// Connections.
#include "corvane/frame/connection.h"

#include "corvane/frame/error.h"
#include "corvane/frame/internal/connection_text.h"
#include "corvane/frame/internal/link.h"

namespace corvane {

Connection::Connection() : link_(std::make_unique<internal::Link>()) {}

Connection::~Connection() = default;

void Connection::SetConnectionString(std::string text) {
  if (State() == 1) throw Error(errc::kObjectOpen, "The connection is open");
  connection_string_ = std::move(text);
}

void Connection::SetConnectionTimeout(int seconds) {
  if (State() == 1) throw Error(errc::kObjectOpen, "The connection is open");
  timeout_ = seconds;
}

void Connection::Open(const std::string& text, const std::string& user,
                      const std::string& password, int /*options*/) {
  if (State() == 1) throw Error(errc::kObjectOpen, "The connection is already open");
  if (!text.empty()) connection_string_ = text;
  internal::ConnectionParams params = internal::ParseConnectionText(connection_string_);
  if (!user.empty()) params.user = user;
  if (!password.empty()) params.password = password;
  link_->Connect(params, timeout_);
}

void Connection::Close() {
  if (State() == 0) throw Error(errc::kObjectClosed, "The connection is closed");
  link_->Disconnect();
}

int Connection::State() const { return link_->connected() ? 1 : 0; }

}  // namespace corvane
