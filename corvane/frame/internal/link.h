// The wire of a connection: one MariaDB Connector/C handle, the statement it
// runs, the one result that may be streaming on it, and what it has learnt
// about the tables it changes rows of.
#ifndef CORVANE_FRAME_INTERNAL_LINK_H_
#define CORVANE_FRAME_INTERNAL_LINK_H_

#include <mysql.h>

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "corvane/frame/host.h"
#include "corvane/frame/internal/connection_text.h"

namespace corvane::internal {

// Something that reads a result from the link row by row. While it does, the
// link can run nothing else; before it runs the next statement it asks the
// streamer to let go of the wire.
class Streamer {
 public:
  virtual void LetGo() = 0;

 protected:
  ~Streamer() = default;
};

// The columns of a base table and its primary key, names in lower case.
struct TableInfo {
  std::vector<std::string> columns;
  std::vector<std::string> primary_key;
};

class Link {
 public:
  Link() = default;
  ~Link();
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;

  void Connect(const ConnectionParams& params, int timeout_seconds);
  void Disconnect();
  bool connected() const { return mysql_ != nullptr; }

  // Runs a statement. Returns its result when it has columns (streaming when
  // stream is true, else read whole), or null when it returns no rows. The
  // streamer on the wire, if any, is asked to let go first. A failure throws
  // corvane::Error.
  MYSQL_RES* Run(StatementKind kind, const std::string& sql, bool stream);
  // The same for a statement held elsewhere; an observer gets a copy of it.
  MYSQL_RES* Run(StatementKind kind, std::string_view sql, bool stream);

  void BeginStreaming(Streamer* streamer) { streamer_ = streamer; }
  void EndStreaming(const Streamer* streamer) {
    if (streamer_ == streamer) streamer_ = nullptr;
  }

  // Rows the last statement found (matched, not only changed).
  std::uint64_t AffectedRows() const { return mysql_affected_rows(mysql_); }

  // True when the last call on the handle failed (a row fetch among them).
  bool Failed() const { return mysql_ != nullptr && mysql_errno(mysql_) != 0; }

  // Throws the failure of the last call on the handle.
  [[noreturn]] void ThrowLastError() const;

  // The columns and key of db.table, asked once and kept.
  const TableInfo& Table(const std::string& db, const std::string& table);

  // Bytes per character of the character set of the connection.
  unsigned CharWidth() const { return char_width_; }
  // The text escaped for a quoted literal.
  std::string Escape(std::string_view text) const;
  // The same written at out, which has room for 2 * text.size() + 1 bytes;
  // returns the number of bytes written.
  std::size_t EscapeInto(char* out, std::string_view text) const;

 private:
  // Sends a statement that was handed to the observer already.
  MYSQL_RES* Send(std::string_view sql, bool stream);

  MYSQL* mysql_ = nullptr;
  Streamer* streamer_ = nullptr;
  unsigned char_width_ = 4;
  std::map<std::string, TableInfo> tables_;
};

}  // namespace corvane::internal

#endif  // CORVANE_FRAME_INTERNAL_LINK_H_
