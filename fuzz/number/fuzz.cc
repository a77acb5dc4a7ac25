// Fuzzing the text-to-number conversion: it never throws; what it accepts is
// exactly what the C library's strtod reads whole from the same blanks-trimmed
// text of digits, signs, points and exponents, to the same value; and the
// text of a number it returns reads back to the same text.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "corvane/frame/text.h"

namespace {

[[noreturn]] void Fail(const char* what, std::string_view input) {
  std::fprintf(stderr, "number property broken: %s for \"%.*s\"\n", what,
               static_cast<int>(input.size()), input.data());
  std::abort();
}

std::string_view Trim(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return s;
}

bool SameDouble(double a, double b) {
  return a == b && std::signbit(a) == std::signbit(b);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  std::optional<double> value;
  try {
    value = corvane::ParseNumber(input);
  } catch (...) {
    Fail("threw", input);
  }

  // Against strtod, on texts made only of the characters of a number.
  const std::string trimmed(Trim(input));
  if (trimmed.find_first_not_of("0123456789+-.eE") == std::string::npos) {
    const char* begin = trimmed.c_str();
    char* end = nullptr;
    const double expected = std::strtod(begin, &end);
    const bool whole = !trimmed.empty() && end == begin + trimmed.size();
    if (whole != value.has_value()) Fail(whole ? "refused what strtod reads" : "accepted", input);
    if (whole && !SameDouble(expected, *value)) Fail("differs from strtod", input);
  } else if (value.has_value()) {
    Fail("accepted a text with other characters", input);
  }

  // The text of the number reads back to the same text.
  if (value.has_value() && std::isfinite(*value)) {
    const std::string text = corvane::Text(*value);
    const std::optional<double> again = corvane::ParseNumber(text);
    if (!again.has_value()) Fail("its text does not read back", input);
    if (corvane::Text(*again) != text) Fail("its text reads back to another text", input);
    // Fifteen significant digits: the value read back is within a relative
    // 1e-14 of the value.
    if (std::fabs(*again - *value) > std::fabs(*value) * 1e-14) Fail("text too far off", input);
  }
  return 0;
}
