// Writing and reading numbers and dates as the host runtime does. Nothing here
// depends on the C locale: the decimal point is always '.'.
#include "corvane/frame/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>
#include <system_error>

namespace corvane {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::string_view TrimBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// Takes the run of digits at the front of *text (at most max_digits of them).
// False when fewer than min_digits are there.
bool ConsumeDigits(std::string_view* text, int min_digits, int max_digits, int* value) {
  int count = 0;
  int result = 0;
  while (count < max_digits && !text->empty() && IsDigit(text->front())) {
    result = result * 10 + (text->front() - '0');
    text->remove_prefix(1);
    ++count;
  }
  *value = result;
  return count >= min_digits;
}

bool ConsumeChar(std::string_view* text, char c) {
  if (text->empty() || text->front() != c) return false;
  text->remove_prefix(1);
  return true;
}

// The run of digits at the front of *text (maybe empty), taken off it.
std::string_view TakeDigitRun(std::string_view* text) {
  std::size_t n = 0;
  while (n < text->size() && IsDigit((*text)[n])) ++n;
  const std::string_view run = text->substr(0, n);
  text->remove_prefix(n);
  return run;
}

struct TimeOfDay {
  int hour = 0, minute = 0, second = 0;
};

// "h:mm", "h:mm:ss" or "h:mm:ss.fff...", the whole of text. The fraction
// rounds the time to the nearest second (a half upward), so the second can
// come out as 60; Date::FromParts carries it.
bool ParseTime(std::string_view text, TimeOfDay* time) {
  if (!ConsumeDigits(&text, 1, 2, &time->hour) || !ConsumeChar(&text, ':') ||
      !ConsumeDigits(&text, 2, 2, &time->minute)) {
    return false;
  }
  time->second = 0;
  bool round_up = false;
  if (ConsumeChar(&text, ':')) {
    if (!ConsumeDigits(&text, 2, 2, &time->second)) return false;
    if (ConsumeChar(&text, '.')) {
      const std::string_view fraction = TakeDigitRun(&text);
      if (fraction.empty()) return false;
      round_up = fraction.front() >= '5';
    }
  }
  if (!text.empty() || time->hour > 23 || time->minute > 59 || time->second > 59) return false;
  if (round_up) ++time->second;
  return true;
}

bool IsLeapYear(int y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; }

int DaysInMonth(int y, int m) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return m == 2 && IsLeapYear(y) ? 29 : kDays[m - 1];
}

}  // namespace

std::string Text(double value) {
  if (std::isnan(value)) return "NaN";
  if (std::isinf(value)) return value < 0 ? "-Inf" : "Inf";
  if (value == 0) return "0";  // also -0

  // Round to 15 significant digits: "[-]d.ddddddddddddddde[+-]dd[d]".
  char buffer[48];
  const std::to_chars_result written = std::to_chars(
      buffer, buffer + sizeof(buffer), value, std::chars_format::scientific, 14);
  std::string_view scientific(buffer, static_cast<std::size_t>(written.ptr - buffer));
  const bool negative = scientific.front() == '-';
  if (negative) scientific.remove_prefix(1);
  const std::size_t e = scientific.find('e');
  std::string digits;
  for (const char c : scientific.substr(0, e)) {
    if (IsDigit(c)) digits.push_back(c);
  }
  while (digits.size() > 1 && digits.back() == '0') digits.pop_back();
  std::string_view exponent_text = scientific.substr(e + 1);
  const bool exponent_negative = exponent_text.front() == '-';
  exponent_text.remove_prefix(1);
  int exponent = 0;
  for (const char c : exponent_text) exponent = exponent * 10 + (c - '0');
  if (exponent_negative) exponent = -exponent;

  std::string out = negative ? "-" : "";
  if (exponent >= 15 || exponent < -4) {
    out += digits[0];
    if (digits.size() > 1) {
      out += '.';
      out.append(digits, 1, std::string::npos);
    }
    out += 'E';
    out += exponent < 0 ? '-' : '+';
    const int magnitude = exponent < 0 ? -exponent : exponent;
    if (magnitude < 10) out += '0';
    out += std::to_string(magnitude);
  } else if (exponent < 0) {
    out += "0.";
    out.append(static_cast<std::size_t>(-exponent - 1), '0');
    out += digits;
  } else {
    const std::size_t whole_digits = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= whole_digits) {
      out += digits;
      out.append(whole_digits - digits.size(), '0');
    } else {
      out.append(digits, 0, whole_digits);
      out += '.';
      out.append(digits, whole_digits, std::string::npos);
    }
  }
  return out;
}

std::string Text(std::int16_t value) { return std::to_string(value); }

std::string Text(std::int32_t value) { return std::to_string(value); }

std::string Text(const Date& value) {
  const Date::Parts p = value.ToParts();
  char buffer[64];
  if (p.hour == 0 && p.minute == 0 && p.second == 0) {
    std::snprintf(buffer, sizeof(buffer), "%04d-%02d-%02d", p.year, p.month, p.day);
  } else {
    std::snprintf(buffer, sizeof(buffer), "%04d-%02d-%02d %02d:%02d:%02d", p.year, p.month, p.day,
                  p.hour, p.minute, p.second);
  }
  return buffer;
}

std::optional<double> ParseNumber(std::string_view text) {
  text = TrimBlanks(text);
  bool negative = false;
  if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  const std::string_view whole = TakeDigitRun(&text);
  std::string_view fraction;
  if (ConsumeChar(&text, '.')) fraction = TakeDigitRun(&text);
  if (whole.empty() && fraction.empty()) return std::nullopt;

  // The exponent, saturated far beyond the range of a double.
  constexpr long long kExponentLimit = 100000;
  long long exponent = 0;
  if (!text.empty() && (text.front() == 'e' || text.front() == 'E')) {
    text.remove_prefix(1);
    bool exponent_negative = false;
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) {
      exponent_negative = text.front() == '-';
      text.remove_prefix(1);
    }
    const std::string_view exponent_digits = TakeDigitRun(&text);
    if (exponent_digits.empty()) return std::nullopt;
    for (const char c : exponent_digits) {
      exponent = std::min(kExponentLimit, exponent * 10 + (c - '0'));
    }
    if (exponent_negative) exponent = -exponent;
  }
  if (!text.empty()) return std::nullopt;

  std::string clean = negative ? "-" : "";
  clean += whole.empty() ? std::string_view("0") : whole;
  clean += '.';
  clean += fraction.empty() ? std::string_view("0") : fraction;
  clean += 'e';
  clean += std::to_string(exponent);

  double value = 0;
  const std::from_chars_result result =
      std::from_chars(clean.data(), clean.data() + clean.size(), value);
  if (result.ec == std::errc::result_out_of_range) {
    // Too large or too small for a double: as strtod, infinity or zero. The
    // decimal exponent of the leading nonzero digit tells which.
    const std::string digits = std::string(whole) + std::string(fraction);
    const std::size_t first = digits.find_first_not_of('0');
    const long long magnitude =
        exponent + static_cast<long long>(whole.size()) - 1 - static_cast<long long>(first);
    value = magnitude >= 0 ? std::numeric_limits<double>::infinity() : 0.0;
    if (negative) value = -value;
  } else if (result.ec != std::errc() || result.ptr != clean.data() + clean.size()) {
    return std::nullopt;
  }
  return value;
}

std::optional<Date> ParseDate(std::string_view text) {
  text = TrimBlanks(text);

  // A time alone, on the zero day.
  TimeOfDay alone;
  if (ParseTime(text, &alone)) {
    return Date::FromParts(1899, 12, 30, alone.hour, alone.minute, alone.second);
  }

  TimeOfDay time;
  int year = 0, month = 0, day = 1;
  if (!ConsumeDigits(&text, 4, 4, &year) || text.empty()) return std::nullopt;
  const char separator = text.front();
  if (separator != '-' && separator != '/') return std::nullopt;
  text.remove_prefix(1);
  if (!ConsumeDigits(&text, 1, 2, &month)) return std::nullopt;
  if (!text.empty()) {
    if (!ConsumeChar(&text, separator) || !ConsumeDigits(&text, 1, 2, &day)) return std::nullopt;
    if (!text.empty()) {
      if (!IsBlank(text.front())) return std::nullopt;
      text = TrimBlanks(text);
      if (!ParseTime(text, &time)) return std::nullopt;
    }
  }
  if (year < 100 || year > 9999 || month < 1 || month > 12 || day < 1 ||
      day > DaysInMonth(year, month)) {
    return std::nullopt;
  }
  const Date date = Date::FromParts(year, month, day, time.hour, time.minute, time.second);
  // A fraction of a second can round past the last day the runtime holds.
  if (date.ToParts().year > 9999) return std::nullopt;
  return date;
}

std::string Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return std::string();
  return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

}  // namespace corvane
