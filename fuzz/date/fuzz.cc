// Fuzzing the text-to-date conversion: it never throws; a date it returns
// lies in the years 100 to 9999 (or is a time on the zero day), its text reads
// back to the same date, and a text "yyyy-mm-dd" gives back those parts.
#include <cctype>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "corvane/frame/date.h"
#include "corvane/frame/text.h"

namespace {

[[noreturn]] void Fail(const char* what, std::string_view input) {
  std::fprintf(stderr, "date property broken: %s for \"%.*s\"\n", what,
               static_cast<int>(input.size()), input.data());
  std::abort();
}

bool Digits(std::string_view s) {
  for (const char c : s) {
    if (!std::isdigit(static_cast<unsigned char>(c))) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  std::optional<corvane::Date> date;
  try {
    date = corvane::ParseDate(input);
  } catch (...) {
    Fail("threw", input);
  }
  if (!date.has_value()) {
    if (input.size() == 10 && Digits(input.substr(0, 4)) && input[4] == '-' &&
        Digits(input.substr(5, 2)) && input[7] == '-' && Digits(input.substr(8, 2))) {
      // Refused: the day must not exist in that month, or the year is early.
      const int y = std::atoi(std::string(input.substr(0, 4)).c_str());
      const int m = std::atoi(std::string(input.substr(5, 2)).c_str());
      const int d = std::atoi(std::string(input.substr(8, 2)).c_str());
      const corvane::Date probe = corvane::Date::FromParts(y, m, d);
      const corvane::Date::Parts p = probe.ToParts();
      if (y >= 100 && p.year == y && p.month == m && p.day == d) Fail("refused a real day", input);
    }
    return 0;
  }
  const corvane::Date::Parts parts = date->ToParts();
  const bool zero_day = parts.year == 1899 && parts.month == 12 && parts.day == 30;
  if (!zero_day && (parts.year < 100 || parts.year > 9999)) Fail("year out of range", input);

  const std::string text = corvane::Text(*date);
  const std::optional<corvane::Date> again = corvane::ParseDate(text);
  if (!again.has_value()) Fail("its text does not read back", input);
  if (corvane::Text(*again) != text) Fail("its text reads back to another text", input);
  if (!(*again == *date)) Fail("its text reads back to another day", input);

  if (input.size() == 10 && input[4] == '-' && input[7] == '-') {
    if (parts.year != std::atoi(std::string(input.substr(0, 4)).c_str()) ||
        parts.month != std::atoi(std::string(input.substr(5, 2)).c_str()) ||
        parts.day != std::atoi(std::string(input.substr(8, 2)).c_str()) || date->HasTime()) {
      Fail("parts differ from the text", input);
    }
  }
  return 0;
}
