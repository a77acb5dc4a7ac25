// The wire of a connection over MariaDB Connector/C.
#include "corvane/frame/internal/link.h"

#include <mysqld_error.h>

#include <algorithm>
#include <cctype>
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

}  // namespace

Link::~Link() { Disconnect(); }

void Link::Connect(const ConnectionParams& params, int timeout_seconds) {
  Disconnect();
  MYSQL* m = mysql_init(nullptr);
  if (m == nullptr) throw Error(errc::kProvider, "Out of memory for a connection");
  mysql_options(m, MYSQL_SET_CHARSET_NAME, "utf8mb4");
  if (timeout_seconds > 0) {
    const unsigned t = static_cast<unsigned>(timeout_seconds);
    mysql_options(m, MYSQL_OPT_CONNECT_TIMEOUT, &t);
  }
  const char* socket = params.socket.empty() ? nullptr : params.socket.c_str();
  if (mysql_real_connect(m, params.server.c_str(), params.user.c_str(), params.password.c_str(),
                         params.database.empty() ? nullptr : params.database.c_str(), params.port,
                         socket, CLIENT_FOUND_ROWS) == nullptr) {
    const std::string message = mysql_error(m);
    mysql_close(m);
    throw Error(errc::kProvider, message);
  }
  mysql_ = m;
  MY_CHARSET_INFO cs{};
  mysql_get_character_set_info(mysql_, &cs);
  char_width_ = cs.mbmaxlen == 0 ? 1 : cs.mbmaxlen;
  tables_.clear();
}

void Link::Disconnect() {
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

void Link::ThrowLastError() const {
  const unsigned number = mysql_errno(mysql_);
  const std::string message = mysql_error(mysql_);
  // A value the column cannot take: the failure of a value that does not fit.
  if (number == ER_DATA_TOO_LONG || number == ER_WARN_DATA_OUT_OF_RANGE) {
    throw Error(errc::kMultipleStep, message);
  }
  throw Error(errc::kProvider, message);
}

MYSQL_RES* Link::Run(StatementKind kind, const std::string& sql, bool stream) {
  if (mysql_ == nullptr) throw Error(errc::kNoConnection, "The connection is closed");
  if (streamer_ != nullptr) {
    Streamer* s = streamer_;
    streamer_ = nullptr;
    s->LetGo();
  }
  NotifyStatement(kind, sql);
  return Send(sql, stream);
}

MYSQL_RES* Link::Run(StatementKind kind, std::string_view sql, bool stream) {
  if (mysql_ == nullptr) throw Error(errc::kNoConnection, "The connection is closed");
  if (streamer_ != nullptr) {
    Streamer* s = streamer_;
    streamer_ = nullptr;
    s->LetGo();
  }
  if (ObserverInstalled()) NotifyStatement(kind, std::string(sql));
  return Send(sql, stream);
}

MYSQL_RES* Link::Send(std::string_view sql, bool stream) {
  if (mysql_real_query(mysql_, sql.data(), sql.size()) != 0) ThrowLastError();
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

std::string Link::Escape(std::string_view text) const {
  std::string out(text.size() * 2 + 1, '\0');
  out.resize(EscapeInto(out.data(), text));
  return out;
}

std::size_t Link::EscapeInto(char* out, std::string_view text) const {
  return mysql_real_escape_string(mysql_, out, text.data(), text.size());
}

}  // namespace corvane::internal
