// Columns and the passage of values between the server's text and the
// runtime's values.
#include "corvane/frame/internal/column.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

#include "corvane/frame/error.h"
#include "corvane/frame/internal/link.h"
#include "corvane/frame/text.h"

namespace corvane::internal {
namespace {

std::string Lower(std::string s) {
  std::transform(s.begin(), s.end(), s.begin(), [](unsigned char c) { return std::tolower(c); });
  return s;
}

bool IsInteger(enum_field_types t) {
  return t == MYSQL_TYPE_TINY || t == MYSQL_TYPE_SHORT || t == MYSQL_TYPE_LONG ||
         t == MYSQL_TYPE_INT24 || t == MYSQL_TYPE_LONGLONG || t == MYSQL_TYPE_YEAR ||
         t == MYSQL_TYPE_BIT;
}

bool IsReal(enum_field_types t) {
  return t == MYSQL_TYPE_FLOAT || t == MYSQL_TYPE_DOUBLE || t == MYSQL_TYPE_DECIMAL ||
         t == MYSQL_TYPE_NEWDECIMAL;
}

bool IsDate(enum_field_types t) {
  return t == MYSQL_TYPE_DATE || t == MYSQL_TYPE_NEWDATE || t == MYSQL_TYPE_DATETIME ||
         t == MYSQL_TYPE_TIMESTAMP || t == MYSQL_TYPE_DATETIME2 || t == MYSQL_TYPE_TIMESTAMP2;
}

bool IsTime(enum_field_types t) { return t == MYSQL_TYPE_TIME || t == MYSQL_TYPE_TIME2; }

double ParseDouble(const std::string& s) {
  double d = 0;
  const char* first = s.data();
  const char* last = s.data() + s.size();
  if (first != last && *first == '+') ++first;
  std::from_chars(first, last, d);
  return d;
}

// "[-]h:mm:ss[.ffffff]" as a fraction of days.
double ParseTime(const std::string& s) {
  bool negative = false;
  std::size_t i = 0;
  if (i < s.size() && s[i] == '-') {
    negative = true;
    ++i;
  }
  double parts[3] = {0, 0, 0};
  int p = 0;
  std::string piece;
  for (; i <= s.size(); ++i) {
    if (i == s.size() || s[i] == ':') {
      if (p < 3) parts[p++] = ParseDouble(piece);
      piece.clear();
    } else {
      piece += s[i];
    }
  }
  const double seconds = parts[0] * 3600 + parts[1] * 60 + parts[2];
  return (negative ? -seconds : seconds) / 86400.0;
}

[[noreturn]] void DoesNotFit(const Column& column, const std::string& why) {
  throw Error(errc::kMultipleStep,
              "Multiple-step operation generated errors: " + why + " (column " + column.name + ")");
}

std::size_t Utf8Length(const std::string& s) {
  std::size_t n = 0;
  for (unsigned char c : s) {
    if ((c & 0xC0) != 0x80) ++n;
  }
  return n;
}

struct IntRange {
  double min, max;
};

IntRange RangeOf(const Column& c) {
  const bool u = (c.flags & UNSIGNED_FLAG) != 0;
  switch (c.type) {
    case MYSQL_TYPE_TINY:
      return u ? IntRange{0, 255} : IntRange{-128, 127};
    case MYSQL_TYPE_SHORT:
      return u ? IntRange{0, 65535} : IntRange{-32768, 32767};
    case MYSQL_TYPE_INT24:
      return u ? IntRange{0, 16777215} : IntRange{-8388608, 8388607};
    case MYSQL_TYPE_LONG:
      return u ? IntRange{0, 4294967295.0} : IntRange{-2147483648.0, 2147483647.0};
    case MYSQL_TYPE_YEAR:
      return IntRange{0, 2155};
    default:
      return u ? IntRange{0, 18446744073709551615.0}
               : IntRange{-9223372036854775808.0, 9223372036854775807.0};
  }
}

}  // namespace

Column Column::From(const MYSQL_FIELD& f, unsigned char_width) {
  Column c;
  c.name.assign(f.name, f.name_length);
  c.lower = Lower(c.name);
  if (f.org_name != nullptr) c.base_name.assign(f.org_name, f.org_name_length);
  if (f.org_table != nullptr) c.table.assign(f.org_table, f.org_table_length);
  if (f.db != nullptr) c.db.assign(f.db, f.db_length);
  c.type = f.type;
  c.flags = f.flags;
  c.length = f.length;
  c.charsetnr = f.charsetnr;
  c.char_width = char_width == 0 ? 1 : char_width;
  c.plain_text = c.text() && !c.binary();
  return c;
}

std::int64_t Column::DefinedSize() const {
  if (text() && !binary()) return static_cast<std::int64_t>(length / char_width);
  return static_cast<std::int64_t>(length);
}

Variant ReadCell(const Column& column, CellView cell) {
  if (!cell) return Variant::Null();
  // Text, the common case, straight from where it stands.
  if (column.plain_text) return Variant(*cell);
  const std::string s(*cell);
  const enum_field_types t = column.type;
  if (IsInteger(t)) {
    if (t == MYSQL_TYPE_BIT) {
      std::int64_t v = 0;
      for (unsigned char c : s) v = (v << 8) | c;
      return Variant(static_cast<double>(v));
    }
    const bool u = (column.flags & UNSIGNED_FLAG) != 0;
    if (t == MYSQL_TYPE_TINY || t == MYSQL_TYPE_YEAR || (t == MYSQL_TYPE_SHORT && !u)) {
      return Variant(static_cast<std::int16_t>(std::stol(s)));
    }
    if (t == MYSQL_TYPE_SHORT || t == MYSQL_TYPE_INT24 || (t == MYSQL_TYPE_LONG && !u)) {
      return Variant(static_cast<std::int32_t>(std::stol(s)));
    }
    return Variant(ParseDouble(s));
  }
  if (IsReal(t)) return Variant(ParseDouble(s));
  if (IsDate(t)) {
    if (s.rfind("0000-00-00", 0) == 0) return Variant::Null();
    const std::optional<Date> d = ParseDate(s);
    if (!d) return Variant::Null();
    return Variant(*d);
  }
  if (IsTime(t)) return Variant(Date(ParseTime(s)));
  if (t == MYSQL_TYPE_NULL) return Variant::Null();
  if (column.binary() && t != MYSQL_TYPE_VARCHAR && t != MYSQL_TYPE_VAR_STRING &&
      t != MYSQL_TYPE_STRING) {
    return Variant(std::vector<std::uint8_t>(s.begin(), s.end()));
  }
  if (column.binary() && (column.flags & BINARY_FLAG) != 0 && column.table.empty() == false) {
    return Variant(std::vector<std::uint8_t>(s.begin(), s.end()));
  }
  return Variant(s);
}

Cell WriteCell(const Column& column, const Variant& value) {
  if (value.IsNull() || value.IsEmpty()) return std::nullopt;
  const enum_field_types t = column.type;
  try {
    if (IsInteger(t)) {
      const double d = std::nearbyint(value.CDbl());
      const IntRange r = RangeOf(column);
      if (!(d >= r.min && d <= r.max)) DoesNotFit(column, "the number is out of range");
      char buf[32];
      std::snprintf(buf, sizeof buf, "%.0f", d);
      return std::string(buf);
    }
    if (IsReal(t)) {
      const double d = value.CDbl();
      if (!std::isfinite(d)) DoesNotFit(column, "the number is not finite");
      if (t == MYSQL_TYPE_FLOAT &&
          std::fabs(d) > static_cast<double>(std::numeric_limits<float>::max())) {
        DoesNotFit(column, "the number is out of range");
      }
      char buf[40];
      std::snprintf(buf, sizeof buf, "%.17g", d);
      return std::string(buf);
    }
    if (IsDate(t)) {
      const Date::Parts p = value.CDate().ToParts();
      if (p.year < 0 || p.year > 9999) DoesNotFit(column, "the date is out of range");
      char buf[32];
      std::snprintf(buf, sizeof buf, "%04d-%02d-%02d", p.year, p.month, p.day);
      std::string out = buf;
      if (t != MYSQL_TYPE_DATE && t != MYSQL_TYPE_NEWDATE) {
        std::snprintf(buf, sizeof buf, " %02d:%02d:%02d", p.hour, p.minute, p.second);
        out += buf;
      }
      return out;
    }
    if (IsTime(t)) {
      const double serial = value.CDate().Serial();
      const long long total = std::llround(std::fabs(serial) * 86400.0);
      char buf[40];
      std::snprintf(buf, sizeof buf, "%s%lld:%02lld:%02lld", serial < 0 ? "-" : "", total / 3600,
                    (total / 60) % 60, total % 60);
      return std::string(buf);
    }
    if (column.binary()) {
      // A byte array is copied once, straight into the cell.
      const std::vector<std::uint8_t>* bytes = value.Bytes();
      std::string out = bytes != nullptr ? std::string(bytes->begin(), bytes->end()) : value.CStr();
      if (column.length != 0 && out.size() > column.length) DoesNotFit(column, "the value is too long");
      return out;
    }
    std::string s = value.CStr();
    const std::int64_t size = column.DefinedSize();
    if (size > 0 && static_cast<std::int64_t>(Utf8Length(s)) > size) {
      DoesNotFit(column, "the text is longer than the column");
    }
    return s;
  } catch (const Error& e) {
    if (e.Number() == errc::kMultipleStep) throw;
    DoesNotFit(column, e.Description());
  }
}

std::size_t LiteralBound(const Column& column, const Cell& cell, bool /*exact*/) {
  if (!cell) return 4;                          // NULL
  if (column.type == MYSQL_TYPE_BIT) return 21;  // a 64-bit number
  // _binary, the quotes, and every byte escaped with the escape's zero.
  return cell->size() * 2 + 10;
}

std::size_t WriteLiteral(char* out, const Column& column, const Cell& cell, Link& link,
                         bool exact) {
  char* const start = out;
  const auto put = [&out](std::string_view s) {
    std::memcpy(out, s.data(), s.size());
    out += s.size();
  };
  const enum_field_types t = column.type;
  if (!cell) {
    put("NULL");
  } else if ((IsInteger(t) && t != MYSQL_TYPE_BIT) || IsReal(t)) {
    put(*cell);
  } else if (t == MYSQL_TYPE_BIT) {
    std::int64_t v = 0;
    for (unsigned char c : *cell) v = (v << 8) | c;
    put(std::to_string(v));
  } else {
    if (!IsDate(t) && !IsTime(t) && (column.binary() || exact)) put("_binary");
    put("'");
    out += link.EscapeInto(out, *cell);
    put("'");
  }
  return static_cast<std::size_t>(out - start);
}

std::string Literal(const Column& column, const Cell& cell, Link& link, bool exact) {
  std::string out(LiteralBound(column, cell, exact), '\0');
  out.resize(WriteLiteral(out.data(), column, cell, link, exact));
  return out;
}

}  // namespace corvane::internal
