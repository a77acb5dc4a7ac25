// A column of a rowset, and the passage of its values between the server's
// text and the runtime's values: what a read gives, and what a write sends.
#ifndef CORVANE_FRAME_INTERNAL_COLUMN_H_
#define CORVANE_FRAME_INTERNAL_COLUMN_H_

#include <mysql.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "corvane/frame/variant.h"

namespace corvane::internal {

class Link;

struct Column {
  std::string name;       // as the statement names it
  std::string lower;      // name in lower case, for look-ups
  std::string base_name;  // the column of the base table, if any
  std::string table;      // the base table, if any
  std::string db;
  enum_field_types type = MYSQL_TYPE_NULL;
  unsigned flags = 0;
  unsigned long length = 0;  // bytes
  unsigned charsetnr = 0;
  unsigned char_width = 1;   // bytes per character of text columns
  bool plain_text = false;   // text() && !binary(), asked on every read

  static Column From(const MYSQL_FIELD& f, unsigned char_width);

  bool binary() const { return charsetnr == 63; }
  // A string or blob type (text or binary by its character set).
  bool text() const {
    return type == MYSQL_TYPE_VARCHAR || type == MYSQL_TYPE_VAR_STRING ||
           type == MYSQL_TYPE_STRING || type == MYSQL_TYPE_BLOB || type == MYSQL_TYPE_TINY_BLOB ||
           type == MYSQL_TYPE_MEDIUM_BLOB || type == MYSQL_TYPE_LONG_BLOB;
  }
  bool updatable() const { return !table.empty() && !base_name.empty(); }
  // Characters for text, bytes for binary, the display length otherwise.
  std::int64_t DefinedSize() const;
};

// A cell as the server sends it in text form; no value is null.
using Cell = std::optional<std::string>;
// A cell where it stands: in a row kept by the rowset or on the wire.
using CellView = std::optional<std::string_view>;

// The runtime value of a cell of this column.
Variant ReadCell(const Column& column, CellView cell);
inline Variant ReadCell(const Column& column, const Cell& cell) {
  return ReadCell(column, cell ? CellView(*cell) : std::nullopt);
}

// The cell a written value becomes, in the server's text form. A value that
// cannot become a value of the column (too long, out of range, no number, no
// date) throws the failure of a value that does not fit (0x80040E21).
Cell WriteCell(const Column& column, const Variant& value);

// The SQL literal of a cell of this column; exact makes text a binary
// literal, for comparison by bytes.
std::string Literal(const Column& column, const Cell& cell, Link& link, bool exact);

// The same written at out, which has room for LiteralBound bytes; returns the
// number of bytes written. A large value is escaped straight into place.
std::size_t LiteralBound(const Column& column, const Cell& cell, bool exact);
std::size_t WriteLiteral(char* out, const Column& column, const Cell& cell, Link& link,
                         bool exact);

}  // namespace corvane::internal

#endif  // CORVANE_FRAME_INTERNAL_COLUMN_H_
