// The open state of a recordset: its columns, the current row, the rows read
// ahead, the result still streaming from the server, and the row being added
// or changed.
#ifndef CORVANE_FRAME_INTERNAL_ROWSET_H_
#define CORVANE_FRAME_INTERNAL_ROWSET_H_

#include <mysql.h>

#include <array>
#include <cstring>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "corvane/frame/connection.h"
#include "corvane/frame/error.h"
#include "corvane/frame/internal/column.h"
#include "corvane/frame/internal/link.h"
#include "corvane/frame/variant.h"

namespace corvane::internal {

using Row = std::vector<Cell>;

// Column names compare without regard to case; looking one up makes no copy.
struct NameHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view name) const noexcept;
};
struct NameEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const noexcept;
};

class Rowset final : public Streamer {
 public:
  // Takes the result of a statement just run on connection.
  Rowset(std::shared_ptr<Connection> connection, MYSQL_RES* result, bool streaming, int lock_type);
  ~Rowset();
  Rowset(const Rowset&) = delete;
  Rowset& operator=(const Rowset&) = delete;

  // Streamer: the wire is needed for another statement.
  void LetGo() override;

  bool bof() const { return bof_; }
  bool eof() const { return eof_; }
  std::int32_t record_count() const { return record_count_; }
  bool editing() const { return mode_ != Mode::kNone; }

  // Throws item not found.
  std::size_t Find(std::string_view name) const {
    std::size_t i;
    return Remembered(name, &i) ? i : FindAndRemember(name);
  }
  // The column of a name asked for before from the same place: true with *i
  // set; false when the name must be looked up (Find).
  bool Remembered(std::string_view name, std::size_t* i) const {
    const Memo& memo = memo_[MemoSlot(name)];
    if (memo.data == name.data() && memo.text.size() == name.size() &&
        SameBytes(memo.text.data(), name.data(), name.size())) {
      *i = memo.index;
      return true;
    }
    return false;
  }
  const Column& column(std::size_t i) const { return columns_[i]; }
  Variant Value(std::size_t i) const;
  // Value(i).CStr() without the value in between, where the cell is stored
  // text: true with *out set; false where the value must be made.
  bool StoredText(std::size_t i, std::string* out) const;
  bool IsNull(std::size_t i) const;
  // The cell of column i as the current row holds it, where reading it can
  // raise nothing (a row is current, not deleted, no edit pending): true with
  // *cell set. False sends the caller the long way, which raises what it must.
  bool PlainCell(std::size_t i, CellView* cell) const {
    if (mode_ != Mode::kNone || bof_ || eof_ || deleted_) return false;
    *cell = CellAt(i);
    return true;
  }

  // The next row straight from the wire where nothing else is pending (no
  // edit, no rows read ahead, no cut); otherwise the long way.
  void MoveNext() {
    if (mode_ == Mode::kNone && !eof_ && result_ != nullptr && ahead_.empty() && !cut_) {
      deleted_ = false;
      if (MYSQL_ROW r = mysql_fetch_row(result_)) {
        wire_row_ = r;
        wire_lengths_ = mysql_fetch_lengths(result_);
        bof_ = false;
        return;
      }
      wire_row_ = nullptr;
      wire_lengths_ = nullptr;
      WireEnded();
      current_.clear();
      eof_ = true;
      return;
    }
    MoveNextSlow();
  }
  void Write(std::size_t i, const Variant& value);
  void AddNew();
  void Update();
  void UpdateBatch();
  void Delete();
  // Drops a pending AddNew or edit, and whatever the batch held back.
  void Abandon();

 private:
  enum class Mode { kNone, kEdit, kAdd };

  // Makes the next row current, from the rows read ahead or the wire; false
  // at the end.
  bool Advance();
  void MoveNextSlow();
  // The wire gave no further row: the end of the result, or the connection
  // failing under it (thrown).
  void WireEnded();
  std::size_t MemoSlot(std::string_view name) const {
    return ((reinterpret_cast<std::uintptr_t>(name.data()) >> 3) ^ name.size()) % memo_.size();
  }
  std::size_t FindAndRemember(std::string_view name) const;
  // memcmp(a, b, n) == 0, without a call for the short names columns have:
  // two overlapping words cover 8 to 16 bytes.
  static bool SameBytes(const char* a, const char* b, std::size_t n) {
    if (n >= 8 && n <= 16) {
      std::uint64_t a0, a1, b0, b1;
      std::memcpy(&a0, a, 8);
      std::memcpy(&b0, b, 8);
      std::memcpy(&a1, a + n - 8, 8);
      std::memcpy(&b1, b + n - 8, 8);
      return ((a0 ^ b0) | (a1 ^ b1)) == 0;
    }
    return std::memcmp(a, b, n) == 0;
  }
  // A row read from the wire stays in the wire's buffer until the next fetch
  // or the end of the result: this copies it into current_ first.
  void Own();
  CellView CellAt(std::size_t i) const {
    if (wire_row_ != nullptr) {
      const char* data = wire_row_[i];
      return data == nullptr ? CellView() : CellView(std::string_view(data, wire_lengths_[i]));
    }
    const Cell& c = current_[i];
    return c ? CellView(*c) : CellView();
  }
  Error FetchFailure() const;
  void FinishResult(bool keep_rows);
  // Reads the rest of a streaming result if it is short: true when it ended.
  bool DrainShort();
  void RequireRow() const;
  void RequireWritable() const;
  // The table a change of the current row goes to.
  const Column& BaseOf(const std::vector<std::size_t>& written) const;
  std::string Identity(const Column& base);
  // Sends a row change; one that finds no row fails.
  void Send(std::string_view sql, bool must_find_row);

  std::shared_ptr<Connection> connection_;
  Link& link_;
  MYSQL_RES* result_;
  bool streaming_;
  int lock_type_;
  std::vector<Column> columns_;
  std::unordered_map<std::string, std::size_t, NameHash, NameEqual> index_;
  // Methods ask for the same names, from the same literals, on every row: a
  // name seen before at the same address with the same bytes is answered
  // without folding and hashing it again.
  struct Memo {
    const char* data = nullptr;
    std::string text;
    std::size_t index = 0;
  };
  mutable std::array<Memo, 64> memo_;
  std::deque<Row> ahead_;
  // Rows kept when the wire was needed elsewhere end here when it failed
  // under them: reading past them fails, it never ends short.
  std::optional<Error> cut_;
  Row current_;
  MYSQL_ROW wire_row_ = nullptr;  // the current row, while it is on the wire
  const unsigned long* wire_lengths_ = nullptr;
  bool bof_ = true;
  bool eof_ = true;
  bool deleted_ = false;
  std::int32_t record_count_ = -1;

  Mode mode_ = Mode::kNone;
  std::vector<std::optional<Cell>> pending_;  // per column: written in this edit
  bool saved_bof_ = true, saved_eof_ = true;
  std::vector<std::string> batch_;  // held back under batch optimistic locking (all find rows)
};

}  // namespace corvane::internal

#endif  // CORVANE_FRAME_INTERNAL_ROWSET_H_
