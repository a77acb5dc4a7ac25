/// \file
/// corvane::Error is the one failure type of the library: a 32-bit number and a
/// description, in the manner of the automation errors the repositories were
/// written against. It travels inside the library and ends in a method's
/// handler; only a repository constructor lets it out to the caller.
#ifndef CORVANE_FRAME_ERROR_H_
#define CORVANE_FRAME_ERROR_H_

#include <cstdint>
#include <exception>
#include <string>

#include "corvane/export.h"

namespace corvane {

/// A failure: a 32-bit number and a description. The only exception a caller
/// sees, thrown by a repository constructor whose session cannot be opened.
class CORVANE_EXPORT Error : public std::exception {
 public:
  /// A failure with its number (see errc) and its description.
  Error(std::int32_t number, std::string description);

  /// The failure number: a runtime error number or a 32-bit result code.
  std::int32_t Number() const noexcept { return number_; }
  /// The failure's words, as a report shows them.
  const std::string& Description() const noexcept { return description_; }
  /// The description, for std::exception.
  const char* what() const noexcept override { return description_.c_str(); }

 private:
  std::int32_t number_;
  std::string description_;
};

/// The failure numbers the library raises itself.
namespace errc {

/// A 32-bit result code written in hexadecimal, as the signed number it is.
constexpr std::int32_t Hr(std::uint32_t value) { return static_cast<std::int32_t>(value); }

// Runtime failures of the host's value conversions.
inline constexpr std::int32_t kOverflow = 6;               ///< overflow: a number out of range
inline constexpr std::int32_t kSubscriptOutOfRange = 9;     ///< subscript out of range
inline constexpr std::int32_t kTypeMismatch = 13;           ///< type mismatch: no such form
inline constexpr std::int32_t kInvalidUseOfNull = 94;       ///< invalid use of Null
inline constexpr std::int32_t kObjectRequired = 424;        ///< object required: a null collection

// Recordset failures.
inline constexpr std::int32_t kObjectOpen = Hr(0x800A0E79);      ///< open, or property set, while open
inline constexpr std::int32_t kObjectClosed = Hr(0x800A0E78);    ///< Close or a read while closed
inline constexpr std::int32_t kNoCurrentRecord = Hr(0x800A0BCD); ///< BOF or EOF, or the row is gone
inline constexpr std::int32_t kItemNotFound = Hr(0x800A0CC1);    ///< no such column in the rowset
inline constexpr std::int32_t kReadOnly = Hr(0x800A0CB3);        ///< the rowset does not allow it
inline constexpr std::int32_t kNotAllowed = Hr(0x800A0C93);      ///< not allowed in this context
inline constexpr std::int32_t kNoConnection = Hr(0x800A0E7D);    ///< no open connection to use
inline constexpr std::int32_t kRowDeleted = Hr(0x80040E23);      ///< the current row was deleted
inline constexpr std::int32_t kRowNotFound = Hr(0x80040E38);     ///< the row to change is gone
inline constexpr std::int32_t kMultipleStep = Hr(0x80040E21);    ///< the value does not fit the column
inline constexpr std::int32_t kProvider = Hr(0x80004005);        ///< any other failure of the server

}  // namespace errc
}  // namespace corvane

#endif  // CORVANE_FRAME_ERROR_H_
