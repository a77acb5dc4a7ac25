/// \file
/// The text of numbers and dates, as the host runtime writes and reads them.
/// These are the forms that go into SQL text when a value is concatenated into
/// a statement, and the forms a text is converted from.
#ifndef CORVANE_FRAME_TEXT_H_
#define CORVANE_FRAME_TEXT_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "corvane/export.h"
#include "corvane/frame/date.h"

namespace corvane {

/// A double: the shortest text with at most 15 significant digits, no
/// thousands separator, no trailing zeros, no point for whole values; exponent
/// form ("1E+15", "1.5E-05") from 1E+15 up and below 1E-04.
/// 20261122001 -> "20261122001", 12.5 -> "12.5", 0.1 + 0.2 -> "0.3", -3 -> "-3".
CORVANE_EXPORT std::string Text(double value);
/// A 16-bit integer: plain decimal.
CORVANE_EXPORT std::string Text(std::int16_t value);
/// A 32-bit integer: plain decimal.
CORVANE_EXPORT std::string Text(std::int32_t value);
/// A date: "yyyy-mm-dd", followed by " hh:mm:ss" only when the time is not
/// 00:00:00. The zero date is "1899-12-30".
CORVANE_EXPORT std::string Text(const Date& value);
/// The runtime's Trim: blanks (spaces only) off both ends; tabs stay.
CORVANE_EXPORT std::string Trim(std::string_view text);

/// Text stays as it is.
inline const std::string& Text(const std::string& value) { return value; }

/// Text to number as the runtime reads it: blanks around it are allowed, an
/// optional sign, digits with an optional point, an optional exponent.
/// Nothing else (also not the empty text) is a number.
CORVANE_EXPORT std::optional<double> ParseNumber(std::string_view text);

/// Text to date: "yyyy-mm-dd" or "yyyy/mm/dd", each with an optional time
/// " h:mm[:ss]"; "yyyy-mm" or "yyyy/mm" (first of the month); a time alone
/// "h:mm[:ss]" (a date of the zero day, so "0:00:00" is the zero date).
/// Blanks around the text are allowed. Anything else, "" and "0" among them,
/// is no date.
CORVANE_EXPORT std::optional<Date> ParseDate(std::string_view text);

}  // namespace corvane

#endif  // CORVANE_FRAME_TEXT_H_
