// Rowsets: reading, adding, changing and deleting rows of an open recordset.
#include "corvane/frame/internal/rowset.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "corvane/frame/error.h"
#include "corvane/frame/host.h"

namespace corvane::internal {
namespace {

std::string Lower(std::string_view s) {
  std::string out(s);
  std::transform(out.begin(), out.end(), out.begin(),
                 [](unsigned char c) { return std::tolower(c); });
  return out;
}

std::string QuoteName(const std::string& name) {
  std::string out = "`";
  for (char c : name) {
    if (c == '`') out += '`';
    out += c;
  }
  return out + "`";
}

std::string TableName(const Column& c) {
  return (c.db.empty() ? "" : QuoteName(c.db) + ".") + QuoteName(c.table);
}

bool SameTable(const Column& a, const Column& b) {
  return Lower(a.table) == Lower(b.table) && Lower(a.db) == Lower(b.db);
}

unsigned char Fold(char c) {
  const unsigned char u = static_cast<unsigned char>(c);
  return u >= 'A' && u <= 'Z' ? static_cast<unsigned char>(u + ('a' - 'A')) : u;
}

// A statement written in one buffer as large as its worst case and touched
// only where it is written: a large value is escaped straight into it and
// goes to the server from there, with no other copy of it.
class StatementText {
 public:
  explicit StatementText(std::size_t capacity)
      : data_(std::make_unique_for_overwrite<char[]>(capacity)) {}
  void Put(std::string_view s) {
    std::memcpy(data_.get() + size_, s.data(), s.size());
    size_ += s.size();
  }
  void PutLiteral(const Column& column, const Cell& cell, Link& link) {
    size_ += WriteLiteral(data_.get() + size_, column, cell, link, false);
  }
  std::string_view view() const { return std::string_view(data_.get(), size_); }

 private:
  std::unique_ptr<char[]> data_;
  std::size_t size_ = 0;
};

}  // namespace

std::size_t NameHash::operator()(std::string_view name) const noexcept {
  std::size_t h = 14695981039346656037ull;
  for (char c : name) h = (h ^ Fold(c)) * 1099511628211ull;
  return h;
}

bool NameEqual::operator()(std::string_view a, std::string_view b) const noexcept {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (Fold(a[i]) != Fold(b[i])) return false;
  }
  return true;
}

Rowset::Rowset(std::shared_ptr<Connection> connection, MYSQL_RES* result, bool streaming,
               int lock_type)
    : connection_(std::move(connection)),
      link_(connection_->link()),
      result_(result),
      streaming_(streaming),
      lock_type_(lock_type) {
  const unsigned n = mysql_num_fields(result_);
  const MYSQL_FIELD* fields = mysql_fetch_fields(result_);
  columns_.reserve(n);
  for (unsigned i = 0; i < n; ++i) {
    columns_.push_back(Column::From(fields[i], link_.CharWidth()));
    index_.emplace(columns_.back().lower, i);  // the first of equal names wins
  }
  pending_.resize(n);
  if (streaming_) {
    link_.BeginStreaming(this);
  } else {
    record_count_ = static_cast<std::int32_t>(mysql_num_rows(result_));
  }
  if (Advance()) {
    bof_ = eof_ = false;
  }
}

Rowset::~Rowset() {
  wire_row_ = nullptr;  // nobody reads the current row any more
  FinishResult(false);
}

void Rowset::LetGo() { FinishResult(mode_ != Mode::kAdd); }

void Rowset::Own() {
  if (wire_row_ == nullptr) return;
  current_.resize(columns_.size());
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (wire_row_[i] == nullptr) {
      current_[i].reset();
    } else {
      current_[i].emplace(wire_row_[i], wire_lengths_[i]);
    }
  }
  wire_row_ = nullptr;
  wire_lengths_ = nullptr;
}

void Rowset::FinishResult(bool keep_rows) {
  if (result_ == nullptr) return;
  Own();
  if (keep_rows) {
    Row row;
    while (true) {
      MYSQL_ROW r = mysql_fetch_row(result_);
      if (r == nullptr) break;
      const unsigned long* lengths = mysql_fetch_lengths(result_);
      row.assign(columns_.size(), std::nullopt);
      for (std::size_t i = 0; i < columns_.size(); ++i) {
        if (r[i] != nullptr) row[i].emplace(r[i], lengths[i]);
      }
      ahead_.push_back(std::move(row));
    }
    if (streaming_ && link_.Failed()) cut_ = FetchFailure();
  } else if (streaming_ && !DrainShort()) {
    // Rows nobody will read, and more of them than are worth reading past.
    MYSQL_RES* const result = result_;
    result_ = nullptr;
    link_.EndStreaming(this);
    link_.Abandon(result);
    return;
  }
  mysql_free_result(result_);  // reads and drops what is left on the wire
  result_ = nullptr;
  if (streaming_) link_.EndStreaming(this);
}

bool Rowset::DrainShort() {
  // Reading a short rest costs less than a new connection; a long one (the
  // whole table under an AddNew, say) costs time in proportion to the table.
  constexpr int kDrainLimit = 1000;
  for (int i = 0; i <= kDrainLimit; ++i) {  // the rows and the end of them
    if (mysql_fetch_row(result_) == nullptr) {
      link_.NoteFailure();
      return true;
    }
  }
  return false;
}

Error Rowset::FetchFailure() const {
  try {
    link_.ThrowLastError();
  } catch (const Error& e) {
    return e;
  }
  return Error(errc::kProvider, "The rows could not be read");
}

bool Rowset::Advance() {
  wire_row_ = nullptr;
  wire_lengths_ = nullptr;
  if (cut_ && ahead_.empty()) throw *cut_;
  if (!ahead_.empty()) {
    current_ = std::move(ahead_.front());
    ahead_.pop_front();
    return true;
  }
  if (result_ == nullptr) return false;
  MYSQL_ROW r = mysql_fetch_row(result_);
  if (r == nullptr) {
    WireEnded();
    return false;
  }
  wire_row_ = r;
  wire_lengths_ = mysql_fetch_lengths(result_);
  return true;
}

void Rowset::WireEnded() {
  const bool failed = streaming_ && link_.Failed();
  if (failed) {
    const Error failure = FetchFailure();
    FinishResult(false);
    throw failure;
  }
  FinishResult(false);
}

std::size_t Rowset::FindAndRemember(std::string_view name) const {
  const auto it = index_.find(name);
  if (it == index_.end()) {
    throw Error(errc::kItemNotFound,
                "Item cannot be found in the collection corresponding to the requested name or "
                "ordinal: " +
                    std::string(name));
  }
  Memo& memo = memo_[MemoSlot(name)];
  memo.data = name.data();
  memo.text.assign(name);
  memo.index = it->second;
  return it->second;
}

void Rowset::RequireRow() const {
  if (bof_ || eof_) {
    throw Error(errc::kNoCurrentRecord,
                "Either BOF or EOF is True, or the current record has been deleted");
  }
}

void Rowset::RequireWritable() const {
  if (lock_type_ == 1) {
    throw Error(errc::kReadOnly, "The operation is not allowed: the recordset is read-only");
  }
}

bool Rowset::IsNull(std::size_t i) const {
  if (mode_ != Mode::kNone && pending_[i]) return !pending_[i]->has_value();
  if (mode_ == Mode::kAdd) return true;
  RequireRow();
  if (deleted_) throw Error(errc::kRowDeleted, "The current row has been deleted");
  return !CellAt(i).has_value();
}

Variant Rowset::Value(std::size_t i) const {
  if (mode_ != Mode::kNone && pending_[i]) return ReadCell(columns_[i], *pending_[i]);
  if (mode_ == Mode::kAdd) return Variant::Null();
  RequireRow();
  if (deleted_) throw Error(errc::kRowDeleted, "The current row has been deleted");
  return ReadCell(columns_[i], CellAt(i));
}

bool Rowset::StoredText(std::size_t i, std::string* out) const {
  if (mode_ != Mode::kNone || !columns_[i].plain_text) return false;
  RequireRow();
  if (deleted_) throw Error(errc::kRowDeleted, "The current row has been deleted");
  const CellView cell = CellAt(i);
  if (!cell) return false;
  out->assign(cell->data(), cell->size());
  return true;
}

void Rowset::MoveNextSlow() {
  if (mode_ != Mode::kNone) Update();
  if (eof_) {
    throw Error(errc::kNoCurrentRecord,
                "Either BOF or EOF is True, or the current record has been deleted");
  }
  deleted_ = false;
  if (Advance()) {
    bof_ = false;
  } else {
    current_.clear();
    eof_ = true;
  }
}

void Rowset::Write(std::size_t i, const Variant& value) {
  RequireWritable();
  if (mode_ != Mode::kAdd) {
    RequireRow();
    if (deleted_) throw Error(errc::kRowDeleted, "The current row has been deleted");
  }
  const Column& c = columns_[i];
  if (!c.updatable()) {
    throw Error(errc::kReadOnly, "The column " + c.name + " cannot be written");
  }
  pending_[i] = WriteCell(c, value);
  if (mode_ == Mode::kNone) mode_ = Mode::kEdit;
}

void Rowset::AddNew() {
  RequireWritable();
  if (mode_ != Mode::kNone) Update();
  mode_ = Mode::kAdd;
  std::fill(pending_.begin(), pending_.end(), std::nullopt);
  saved_bof_ = bof_;
  saved_eof_ = eof_;
  bof_ = eof_ = false;
}

const Column& Rowset::BaseOf(const std::vector<std::size_t>& written) const {
  if (!written.empty()) return columns_[written.front()];
  for (const Column& c : columns_) {
    if (c.updatable()) return c;
  }
  throw Error(errc::kReadOnly, "The rowset has no base table to change");
}

std::string Rowset::Identity(const Column& base) {
  Own();
  const TableInfo& info = link_.Table(base.db, base.table);
  std::vector<std::size_t> mine;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (columns_[i].updatable() && SameTable(columns_[i], base)) mine.push_back(i);
  }
  // The primary key when the rowset holds all of it, else every column.
  std::vector<std::size_t> key;
  if (!info.primary_key.empty()) {
    for (const std::string& k : info.primary_key) {
      const auto it = std::find_if(mine.begin(), mine.end(), [&](std::size_t i) {
        return Lower(columns_[i].base_name) == k;
      });
      if (it == mine.end()) {
        key.clear();
        break;
      }
      key.push_back(*it);
    }
  }
  // By the key, values compare as the key does (and its index serves). By
  // all values, text compares by its bytes, not by the column's collation, so
  // that a row differing only in case or trailing blanks is not taken.
  const bool by_all_values = key.empty();
  if (by_all_values) key = mine;
  std::string where;
  for (std::size_t i : key) {
    const Column& c = columns_[i];
    if (!where.empty()) where += " AND ";
    if (by_all_values && c.text() && !c.binary()) where += "BINARY ";
    where += QuoteName(c.base_name) + " <=> " + Literal(c, current_[i], link_, by_all_values);
  }
  return " WHERE " + where + " LIMIT 1";
}

void Rowset::Send(std::string_view sql, bool must_find_row) {
  MYSQL_RES* r = link_.Run(StatementKind::kRowChange, sql, false);
  if (r != nullptr) mysql_free_result(r);
  if (must_find_row && link_.AffectedRows() == 0) {
    throw Error(errc::kRowNotFound,
                "Row cannot be located for updating. Some values may have been changed since it "
                "was last read");
  }
}

void Rowset::Update() {
  if (mode_ == Mode::kAdd) {
    std::vector<std::size_t> written;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      if (pending_[i]) written.push_back(i);
    }
    const Column& base = BaseOf(written);
    std::string head = "INSERT INTO " + TableName(base) + " (";
    for (std::size_t i : written) {
      if (i != written.front()) head += ",";
      head += QuoteName(columns_[i].base_name);
    }
    head += ") VALUES (";
    std::size_t bound = head.size() + 1;
    for (std::size_t i : written) bound += 1 + LiteralBound(columns_[i], *pending_[i], false);
    StatementText sql(bound);
    sql.Put(head);
    for (std::size_t i : written) {
      if (i != written.front()) sql.Put(",");
      sql.PutLiteral(columns_[i], *pending_[i], link_);
    }
    sql.Put(")");
    Send(sql.view(), false);
    // The new row is the current row; the rows that were not read are gone.
    Row row(columns_.size(), std::nullopt);
    for (std::size_t i : written) row[i] = std::move(*pending_[i]);
    current_ = std::move(row);
    ahead_.clear();
    FinishResult(false);
    std::fill(pending_.begin(), pending_.end(), std::nullopt);
    mode_ = Mode::kNone;
    deleted_ = false;
    bof_ = eof_ = false;
    return;
  }
  if (mode_ == Mode::kNone) {
    RequireRow();
    return;  // nothing pending: nothing to send
  }
  std::vector<std::size_t> written;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (pending_[i]) written.push_back(i);
  }
  const Column& base = BaseOf(written);
  const std::string head = "UPDATE " + TableName(base) + " SET ";
  const std::string identity = Identity(base);
  std::size_t bound = head.size() + identity.size();
  for (std::size_t i : written) {
    bound += columns_[i].base_name.size() * 2 + 4 + LiteralBound(columns_[i], *pending_[i], false);
  }
  StatementText sql(bound);
  sql.Put(head);
  for (std::size_t i : written) {
    if (i != written.front()) sql.Put(",");
    sql.Put(QuoteName(columns_[i].base_name));
    sql.Put("=");
    sql.PutLiteral(columns_[i], *pending_[i], link_);
  }
  sql.Put(identity);
  if (lock_type_ == 4) {
    batch_.emplace_back(sql.view());
  } else {
    Send(sql.view(), true);
  }
  for (std::size_t i : written) current_[i] = std::move(*pending_[i]);
  std::fill(pending_.begin(), pending_.end(), std::nullopt);
  mode_ = Mode::kNone;
}

void Rowset::UpdateBatch() {
  if (mode_ != Mode::kNone) Update();
  std::vector<std::string> batch;
  batch.swap(batch_);
  for (const std::string& sql : batch) Send(sql, true);
}

void Rowset::Delete() {
  RequireWritable();
  if (mode_ == Mode::kAdd) {  // deleting the new row drops it
    Abandon();
    return;
  }
  RequireRow();
  if (deleted_) throw Error(errc::kRowDeleted, "The current row has been deleted");
  std::fill(pending_.begin(), pending_.end(), std::nullopt);
  mode_ = Mode::kNone;
  const Column& base = BaseOf({});
  const std::string sql = "DELETE FROM " + TableName(base) + Identity(base);
  if (lock_type_ == 4) {
    batch_.push_back(sql);
  } else {
    Send(sql, true);
  }
  deleted_ = true;
}

void Rowset::Abandon() {
  if (mode_ == Mode::kAdd) {
    bof_ = saved_bof_;
    eof_ = saved_eof_;
  }
  std::fill(pending_.begin(), pending_.end(), std::nullopt);
  mode_ = Mode::kNone;
  batch_.clear();
}

}  // namespace corvane::internal
