// The wire of a connection: one MariaDB Connector/C handle, the statement it
// runs, the one result that may be streaming on it, and what it has learnt
// about the tables it changes rows of.
//
// A link that has dropped (the server restarted or went away, its
// wait_timeout passed, the network failed) is replaced before the next
// statement goes out: the link knows it has dropped when a call on it failed
// for that reason, or when the server has closed its end, which shows as a
// socket that can be read while no statement is running (a poll, not a round
// trip). A statement that failed is never sent again, and the rows of a
// result are never read from any link but the one that ran it.
//
// A connection text may name the servers of a Galera cluster. The link then
// connects to the first of them that answers and is synced with its cluster
// (in the text's order, or from a random one), and a dropped link is replaced
// by one to the next such server, counting round the list from the one that
// was lost. Each wire to a cluster is made ready by three statements of the
// link's own, sent before any statement of a caller and not shown to the
// statement observer: the session waits for the cluster's writes once
// (wsrep_sync_wait for one read), the node tells whether it is synced
// (wsrep_ready, wsrep_local_state), and the wait is turned off again. So the
// reads on a new wire see every write the cluster acknowledged before it,
// the caller's own last ones among them, and later reads cost nothing extra.
// A statement the node refused because it has left the cluster's primary
// component fails as any other; the wire is then replaced before the next.
#ifndef CORVANE_FRAME_INTERNAL_LINK_H_
#define CORVANE_FRAME_INTERNAL_LINK_H_

#include <mysql.h>

#include <cstdint>
#include <functional>
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

  // Connects; timeout_seconds is the connect time-out unless params gives
  // one. A failure throws corvane::Error with the client's words.
  void Connect(const ConnectionParams& params, int timeout_seconds);
  void Disconnect();
  // Open from Connect to Disconnect, also while the wire is down between a
  // drop and the next statement.
  bool connected() const { return open_; }
  // A wire is there and the server has not ended it, as far as can be seen
  // without a round trip.
  bool Alive() const { return mysql_ != nullptr && !dropped_ && !PeerClosed(); }
  // How many times a dropped wire has been replaced.
  std::uint64_t reconnects() const { return reconnects_; }
  // How many of those replacements went to another server of the list.
  std::uint64_t failovers() const { return failovers_; }
  // "host:port" of the server the wire goes to (of the last one it went to
  // while it is down).
  std::string ServerInUse() const;

  // Runs a statement. Returns its result when it has columns (streaming when
  // stream is true, else read whole), or null when it returns no rows. The
  // streamer on the wire, if any, is asked to let go first. A failure throws
  // corvane::Error.
  MYSQL_RES* Run(StatementKind kind, const std::string& sql, bool stream);
  // The same for a statement held elsewhere; an observer gets a copy of it.
  MYSQL_RES* Run(StatementKind kind, std::string_view sql, bool stream);

  // Frees a streaming result without reading the rest of its rows: the wire
  // is given up (it still carries them) and the next statement dials anew.
  // For a long result that is cheaper than reading it to its end.
  void Abandon(MYSQL_RES* result);
  // Marks the wire for replacement when the last call failed because it
  // dropped.
  void NoteFailure();

  // Where a wire given up on purpose is replaced from before a new one is
  // dialled: take moves a wire already dialled with the same connection text
  // into the link (TakeWire) and returns true, or returns false; want is
  // called once the first statement on the replacement has its answer, so
  // that the source can ready another one for the next time without
  // competing with that statement. Only a link to one server uses them: a
  // new wire to a cluster must wait for the cluster's writes when it is
  // needed, not when it was dialled.
  void SetRefill(std::function<bool(Link&)> take, std::function<void()> want) {
    take_spare_ = std::move(take);
    want_spare_ = std::move(want);
  }
  // Takes the open wire of from, which was dialled with the same text; from
  // is left disconnected.
  void TakeWire(Link& from);

  void BeginStreaming(Streamer* streamer) { streamer_ = streamer; }
  void EndStreaming(const Streamer* streamer) {
    if (streamer_ == streamer) streamer_ = nullptr;
  }

  // Rows the last statement found (matched, not only changed).
  std::uint64_t AffectedRows() const { return mysql_affected_rows(mysql_); }

  // True when the last call on the handle failed (a row fetch among them).
  bool Failed() const { return mysql_ != nullptr && mysql_errno(mysql_) != 0; }

  // Throws the failure of the last call on the handle; one that means the
  // wire has dropped marks it for replacement before the next statement.
  [[noreturn]] void ThrowLastError();

  // The columns and key of db.table, asked once and kept.
  const TableInfo& Table(const std::string& db, const std::string& table);

  // Bytes per character of the character set of the connection.
  unsigned CharWidth() const { return char_width_; }
  // The text escaped for a quoted literal.
  std::string Escape(std::string_view text);
  // The same written at out, which has room for 2 * text.size() + 1 bytes;
  // returns the number of bytes written.
  std::size_t EscapeInto(char* out, std::string_view text);

 private:
  // The link open, the streamer let go, a wire ready for the statement.
  void Prepare();
  // Sends a statement that was handed to the observer already.
  MYSQL_RES* Send(std::string_view sql, bool stream);
  // Opens a new handle with params_; throws on failure, leaving none. With a
  // list of servers, the first ready one counting from server first.
  void Dial(std::size_t first = 0);
  // A handle to host:port, or null with the client's words in *failure.
  MYSQL* DialOne(const char* host, unsigned port, std::string* failure);
  // Whether the cluster node at the other end of m is synced and has seen
  // the cluster's writes; says why not in *failure.
  static bool NodeReady(MYSQL* m, std::string* failure);
  // Drops the handle (the streamer lets go of it first).
  void Hangup();
  // A wire that can take the next statement: the one there, or a new one
  // when it has dropped.
  void Ready();
  // The server has closed its end, or sent something while nothing runs.
  bool PeerClosed() const;
  // A failure after which the wire is to be replaced.
  bool Lost(unsigned number) const;

  ConnectionParams params_;
  int connect_timeout_ = 0;
  bool open_ = false;
  bool dropped_ = false;
  std::uint64_t reconnects_ = 0;
  std::uint64_t failovers_ = 0;
  std::size_t server_index_ = 0;  // in params_.servers
  MYSQL* mysql_ = nullptr;
  Streamer* streamer_ = nullptr;
  unsigned char_width_ = 4;
  std::map<std::string, TableInfo> tables_;
  std::function<bool(Link&)> take_spare_;
  std::function<void()> want_spare_;
  bool spare_used_ = false;  // a spare was asked for since the last statement
};

}  // namespace corvane::internal

#endif  // CORVANE_FRAME_INTERNAL_LINK_H_
