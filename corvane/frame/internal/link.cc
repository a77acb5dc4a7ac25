// The wire of a connection over MariaDB Connector/C.
#include "corvane/frame/internal/link.h"

#include <errmsg.h>
#include <mysqld_error.h>
#include <poll.h>

#include <algorithm>
#include <cctype>
#include <random>
#include <string>

#include "corvane/frame/error.h"
#include "corvane/frame/internal/hooks.h"

namespace corvane::internal {
namespace {

std::string Lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::tolower(c); });
  return s;
}

std::string QuoteName(const std::string& name) {
  std::string out = "`";
  for (char c : name) {
    if (c == '`') out += '`';
    out += c;
  }
  return out + "`";
}

// Failures after which the wire is gone: the client's own failures of the
// network, and the server's words for a connection it is ending.
bool Dropped(unsigned number) {
  switch (number) {
    case CR_SERVER_GONE_ERROR:
    case CR_SERVER_LOST:
    case CR_SERVER_LOST_EXTENDED:
    case CR_CONNECTION_ERROR:
    case CR_CONN_HOST_ERROR:
    case CR_UNKNOWN_HOST:
    case ER_CONNECTION_KILLED:
    case ER_SERVER_SHUTDOWN:
    case ER_NET_READ_ERROR:
    case ER_NET_READ_INTERRUPTED:
    case ER_NET_ERROR_ON_WRITE:
    case ER_NET_WRITE_INTERRUPTED:
    case ER_ABORTING_CONNECTION:
    case ER_NEW_ABORTING_CONNECTION:
    case 4031:  // ER_CLIENT_INTERACTION_TIMEOUT: the server's wait_timeout passed
      return true;
    default:
      return false;
  }
}

void SetTimeout(MYSQL* m, mysql_option option, int seconds) {
  if (seconds <= 0) return;
  const unsigned t = static_cast<unsigned>(seconds);
  mysql_options(m, option, &t);
}

}  // namespace

Link::~Link() { Disconnect(); }

void Link::Connect(const ConnectionParams& params, int timeout_seconds) {
  Disconnect();
  params_ = params;
  connect_timeout_ = params.connect_timeout >= 0 ? params.connect_timeout : timeout_seconds;
  std::size_t first = 0;
  if (params_.random_start && !params_.servers.empty()) {
    std::random_device random;
    first = std::uniform_int_distribution<std::size_t>(0, params_.servers.size() - 1)(random);
  }
  Dial(first);
  open_ = true;
  tables_.clear();
}

MYSQL* Link::DialOne(const char* host, unsigned port, std::string* failure) {
  MYSQL* m = mysql_init(nullptr);
  if (m == nullptr) throw Error(errc::kProvider, "Out of memory for a connection");
  mysql_options(m, MYSQL_SET_CHARSET_NAME, "utf8mb4");
  SetTimeout(m, MYSQL_OPT_CONNECT_TIMEOUT, connect_timeout_);
  SetTimeout(m, MYSQL_OPT_READ_TIMEOUT, params_.read_timeout);
  SetTimeout(m, MYSQL_OPT_WRITE_TIMEOUT, params_.write_timeout);
  const char* socket = params_.socket.empty() ? nullptr : params_.socket.c_str();
  if (mysql_real_connect(m, host, params_.user.c_str(), params_.password.c_str(),
                         params_.database.empty() ? nullptr : params_.database.c_str(), port,
                         socket, CLIENT_FOUND_ROWS) == nullptr) {
    *failure = mysql_error(m);
    mysql_close(m);
    return nullptr;
  }
  return m;
}

bool Link::NodeReady(MYSQL* m, std::string* failure) {
  // The wait makes the one read below start only when this node has applied
  // every write the cluster had ordered when it was asked.
  static constexpr std::string_view kWait = "SET SESSION wsrep_sync_wait=1";
  static constexpr std::string_view kState =
      "SELECT @@wsrep_on, (SELECT variable_value FROM information_schema.global_status WHERE "
      "variable_name='wsrep_ready'), (SELECT variable_value FROM "
      "information_schema.global_status WHERE variable_name='wsrep_local_state')";
  static constexpr std::string_view kNoWait = "SET SESSION wsrep_sync_wait=0";
  if (mysql_real_query(m, kWait.data(), kWait.size()) != 0) {
    // A server without the variable is a plain server: ready as it is.
    if (mysql_errno(m) == ER_UNKNOWN_SYSTEM_VARIABLE) return true;
    *failure = mysql_error(m);
    return false;
  }
  if (mysql_real_query(m, kState.data(), kState.size()) != 0) {
    *failure = mysql_error(m);
    return false;
  }
  MYSQL_RES* res = mysql_store_result(m);
  if (res == nullptr) {
    *failure = mysql_error(m);
    return false;
  }
  const MYSQL_ROW row = mysql_fetch_row(res);
  const auto cell = [&](int i) { return row != nullptr && row[i] != nullptr ? std::string(row[i]) : std::string(); };
  const bool plain = cell(0) == "0";
  const bool synced = cell(1) == "ON" && cell(2) == "4";
  const std::string state = "wsrep_ready " + cell(1) + ", wsrep_local_state " + cell(2);
  mysql_free_result(res);
  if (!plain && !synced) {
    *failure = "The server is not synced with its cluster (" + state + ")";
    return false;
  }
  if (mysql_real_query(m, kNoWait.data(), kNoWait.size()) != 0) {
    *failure = mysql_error(m);
    return false;
  }
  return true;
}

void Link::Dial(std::size_t first) {
  MYSQL* m = nullptr;
  std::string failure;
  if (params_.servers.empty()) {
    // A socket named without a server is reached through the socket.
    const bool by_socket = !params_.socket.empty() && !params_.server_given;
    m = DialOne(by_socket ? "localhost" : params_.server.c_str(), params_.port, &failure);
    if (m == nullptr) throw Error(errc::kProvider, failure);
  } else {
    const std::size_t n = params_.servers.size();
    std::string failures;
    for (std::size_t i = 0; i < n && m == nullptr; ++i) {
      const std::size_t index = (first + i) % n;
      const Endpoint& e = params_.servers[index];
      m = DialOne(e.host.c_str(), e.port, &failure);
      if (m != nullptr && !NodeReady(m, &failure)) {
        mysql_close(m);
        m = nullptr;
      }
      if (m != nullptr) {
        server_index_ = index;
      } else {
        failures += (failures.empty() ? "" : "; ") + e.host + ":" + std::to_string(e.port) +
                    ": " + failure;
      }
    }
    if (m == nullptr) throw Error(errc::kProvider, "No server of the list is ready: " + failures);
  }
  mysql_ = m;
  dropped_ = false;
  MY_CHARSET_INFO cs{};
  mysql_get_character_set_info(mysql_, &cs);
  char_width_ = cs.mbmaxlen == 0 ? 1 : cs.mbmaxlen;
}

void Link::Hangup() {
  if (streamer_ != nullptr) {
    Streamer* s = streamer_;
    streamer_ = nullptr;
    s->LetGo();
  }
  if (mysql_ != nullptr) {
    mysql_close(mysql_);
    mysql_ = nullptr;
  }
}

void Link::Disconnect() {
  Hangup();
  open_ = false;
  dropped_ = false;
}

bool Link::PeerClosed() const {
  pollfd p{};
  p.fd = static_cast<int>(mysql_get_socket(mysql_));
  p.events = POLLIN;
  // Between statements nothing is due from the server: anything readable is
  // the end of the connection (or the words the server sent before ending it).
  return p.fd >= 0 && poll(&p, 1, 0) > 0;
}

void Link::Ready() {
  if (mysql_ != nullptr && !dropped_ && !PeerClosed()) return;
  // A wire given up on purpose (Abandon) is dialled again to the same server;
  // a lost one to the next.
  const bool lost = mysql_ != nullptr || dropped_;
  const std::size_t was = server_index_;
  Hangup();
  const bool refill = !lost && params_.servers.empty() && take_spare_;
  spare_used_ = refill;
  if (!refill || !take_spare_(*this)) {
    Dial(params_.servers.empty() ? 0 : (was + (lost ? 1 : 0)) % params_.servers.size());
  }
  ++reconnects_;
  if (server_index_ != was) ++failovers_;
}

std::string Link::ServerInUse() const {
  if (params_.servers.empty()) return params_.server + ":" + std::to_string(params_.port);
  const Endpoint& e = params_.servers[server_index_];
  return e.host + ":" + std::to_string(e.port);
}

void Link::Abandon(MYSQL_RES* result) {
  // A result of mysql_use_result points at its handle, and freeing it would
  // read the rest of the rows; without the handle it only frees its memory.
  result->handle = nullptr;
  mysql_free_result(result);
  streamer_ = nullptr;
  if (mysql_ != nullptr) {
    mysql_close(mysql_);  // forces the handle ready, says goodbye, closes
    mysql_ = nullptr;
  }
}

void Link::TakeWire(Link& from) {
  Hangup();
  mysql_ = from.mysql_;
  from.mysql_ = nullptr;
  server_index_ = from.server_index_;
  char_width_ = from.char_width_;
  dropped_ = false;
  from.Disconnect();
}

void Link::NoteFailure() {
  if (mysql_ != nullptr && Lost(mysql_errno(mysql_))) dropped_ = true;
}

bool Link::Lost(unsigned number) const {
  // A cluster node that has left the primary component refuses everything
  // until it is back: the next statement goes to another node.
  return Dropped(number) || (number == ER_UNKNOWN_COM_ERROR && !params_.servers.empty());
}

void Link::ThrowLastError() {
  const unsigned number = mysql_errno(mysql_);
  const std::string message = mysql_error(mysql_);
  if (Lost(number)) dropped_ = true;
  // A value the column cannot take: the failure of a value that does not fit.
  if (number == ER_DATA_TOO_LONG || number == ER_WARN_DATA_OUT_OF_RANGE) {
    throw Error(errc::kMultipleStep, message);
  }
  throw Error(errc::kProvider, message);
}

void Link::Prepare() {
  if (!open_) throw Error(errc::kNoConnection, "The connection is closed");
  if (streamer_ != nullptr) {
    Streamer* s = streamer_;
    streamer_ = nullptr;
    s->LetGo();
  }
  Ready();
}

MYSQL_RES* Link::Run(StatementKind kind, const std::string& sql, bool stream) {
  Prepare();
  NotifyStatement(kind, sql);
  return Send(sql, stream);
}

MYSQL_RES* Link::Run(StatementKind kind, std::string_view sql, bool stream) {
  Prepare();
  if (ObserverInstalled()) NotifyStatement(kind, std::string(sql));
  return Send(sql, stream);
}

MYSQL_RES* Link::Send(std::string_view sql, bool stream) {
  const bool sent = mysql_real_query(mysql_, sql.data(), sql.size()) == 0;
  if (spare_used_) {
    spare_used_ = false;
    if (want_spare_) want_spare_();
  }
  if (!sent) ThrowLastError();
  if (mysql_field_count(mysql_) == 0) return nullptr;
  MYSQL_RES* res = stream ? mysql_use_result(mysql_) : mysql_store_result(mysql_);
  if (res == nullptr) ThrowLastError();
  return res;
}

const TableInfo& Link::Table(const std::string& db, const std::string& table) {
  const std::string key = Lower(db) + "." + Lower(table);
  auto it = tables_.find(key);
  if (it != tables_.end()) return it->second;
  const std::string sql =
      "SHOW COLUMNS FROM " + (db.empty() ? "" : QuoteName(db) + ".") + QuoteName(table);
  MYSQL_RES* res = Run(StatementKind::kCatalog, sql, false);
  TableInfo info;
  if (res != nullptr) {
    while (MYSQL_ROW row = mysql_fetch_row(res)) {
      const std::string name = row[0] ? Lower(row[0]) : "";
      info.columns.push_back(name);
      if (row[3] != nullptr && std::string(row[3]) == "PRI") info.primary_key.push_back(name);
    }
    mysql_free_result(res);
  }
  return tables_.emplace(key, std::move(info)).first->second;
}

std::string Link::Escape(std::string_view text) {
  std::string out(text.size() * 2 + 1, '\0');
  out.resize(EscapeInto(out.data(), text));
  return out;
}

std::size_t Link::EscapeInto(char* out, std::string_view text) {
  if (mysql_ == nullptr) Ready();  // the wire dropped and could not be had again yet
  return mysql_real_escape_string(mysql_, out, text.data(), text.size());
}

}  // namespace corvane::internal
