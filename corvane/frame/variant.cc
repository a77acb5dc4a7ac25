// The conversions of corvane::Variant, with the runtime's rounding, ranges and
// failures.
#include "corvane/frame/variant.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "corvane/frame/error.h"
#include "corvane/frame/text.h"

namespace corvane {
namespace {

// The serials of 0100-01-01 and 9999-12-31 23:59:59, the dates the runtime
// holds. Before the zero date the fraction counts forward within the day, so
// the whole of the first day lies above -657435.
constexpr double kFirstDaySerial = -657434.0;
constexpr double kLastSerial = 2958465.999988426;

// Throws the conversion failure of that number.
[[noreturn]] void Fail(std::int32_t number) {
  const char* description = "Type mismatch";
  if (number == errc::kOverflow) description = "Overflow";
  if (number == errc::kInvalidUseOfNull) description = "Invalid use of Null";
  throw Error(number, description);
}

// Rounds to the nearest whole number, a half to the even one.
double RoundHalfEven(double x) {
  const double below = std::floor(x);
  const double rest = x - below;
  if (rest < 0.5) return below;
  if (rest > 0.5) return below + 1;
  return std::fmod(below, 2.0) == 0 ? below : below + 1;
}

template <typename Int>
Int RoundToInteger(double x) {
  const double rounded = RoundHalfEven(x);
  // Written so that NaN fails too.
  if (!(rounded >= static_cast<double>(std::numeric_limits<Int>::min()) &&
        rounded <= static_cast<double>(std::numeric_limits<Int>::max()))) {
    Fail(errc::kOverflow);
  }
  return static_cast<Int>(rounded);
}

Date DateOfSerial(double serial) {
  if (!(serial > kFirstDaySerial - 1 && serial <= kLastSerial)) Fail(errc::kOverflow);
  return Date(serial);
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// "True" or "False" in any case, blanks around allowed.
std::optional<bool> ParseBoolWord(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  const auto equals = [text](std::string_view word) {
    if (text.size() != word.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
      const char c = text[i] >= 'A' && text[i] <= 'Z' ? static_cast<char>(text[i] - 'A' + 'a')
                                                      : text[i];
      if (c != word[i]) return false;
    }
    return true;
  };
  if (equals("true")) return true;
  if (equals("false")) return false;
  return std::nullopt;
}

}  // namespace

Variant Variant::Null() {
  Variant v;
  v.value_ = NullTag{};
  return v;
}

std::int16_t Variant::CInt() const {
  switch (type()) {
    case Type::kInt16:
      return std::get<std::int16_t>(value_);
    case Type::kInt32:
      return RoundToInteger<std::int16_t>(std::get<std::int32_t>(value_));
    default:
      return RoundToInteger<std::int16_t>(CDbl());
  }
}

std::int32_t Variant::CLng() const {
  switch (type()) {
    case Type::kInt16:
      return std::get<std::int16_t>(value_);
    case Type::kInt32:
      return std::get<std::int32_t>(value_);
    default:
      return RoundToInteger<std::int32_t>(CDbl());
  }
}

double Variant::CDbl() const {
  switch (type()) {
    case Type::kEmpty:
      return 0;
    case Type::kNull:
      Fail(errc::kInvalidUseOfNull);
    case Type::kInt16:
      return std::get<std::int16_t>(value_);
    case Type::kInt32:
      return std::get<std::int32_t>(value_);
    case Type::kDouble:
      return std::get<double>(value_);
    case Type::kString: {
      const std::optional<double> number = ParseNumber(std::get<std::string>(value_));
      if (!number) Fail(errc::kTypeMismatch);
      if (std::isinf(*number)) Fail(errc::kOverflow);  // "1E+400"
      return *number;
    }
    case Type::kDate:
      return std::get<Date>(value_).Serial();
    case Type::kBool:
      return std::get<bool>(value_) ? -1 : 0;
    case Type::kBytes:
      break;
  }
  Fail(errc::kTypeMismatch);
}

std::string Variant::CStr() && {
  if (type() == Type::kString) return std::move(std::get<std::string>(value_));
  return static_cast<const Variant&>(*this).CStr();
}

std::string Variant::CStr() const& {
  switch (type()) {
    case Type::kEmpty:
      return "";
    case Type::kNull:
      Fail(errc::kInvalidUseOfNull);
    case Type::kInt16:
      return Text(std::get<std::int16_t>(value_));
    case Type::kInt32:
      return Text(std::get<std::int32_t>(value_));
    case Type::kDouble:
      return Text(std::get<double>(value_));
    case Type::kString:
      return std::get<std::string>(value_);
    case Type::kDate:
      return Text(std::get<Date>(value_));
    case Type::kBool:
      return std::get<bool>(value_) ? "True" : "False";
    case Type::kBytes:
      break;
  }
  Fail(errc::kTypeMismatch);
}

Date Variant::CDate() const {
  switch (type()) {
    case Type::kEmpty:
      return Date();
    case Type::kNull:
      Fail(errc::kInvalidUseOfNull);
    case Type::kInt16:
      return DateOfSerial(std::get<std::int16_t>(value_));
    case Type::kInt32:
      return DateOfSerial(std::get<std::int32_t>(value_));
    case Type::kDouble:
      return DateOfSerial(std::get<double>(value_));
    case Type::kString: {
      const std::optional<Date> date = ParseDate(std::get<std::string>(value_));
      if (!date) Fail(errc::kTypeMismatch);
      return *date;
    }
    case Type::kDate:
      return std::get<Date>(value_);
    case Type::kBool:
      return Date(std::get<bool>(value_) ? -1.0 : 0.0);
    case Type::kBytes:
      break;
  }
  Fail(errc::kTypeMismatch);
}

bool Variant::CBool() const {
  switch (type()) {
    case Type::kEmpty:
      return false;
    case Type::kNull:
      Fail(errc::kInvalidUseOfNull);
    case Type::kInt16:
      return std::get<std::int16_t>(value_) != 0;
    case Type::kInt32:
      return std::get<std::int32_t>(value_) != 0;
    case Type::kDouble:
      return std::get<double>(value_) != 0;
    case Type::kString: {
      const std::string& text = std::get<std::string>(value_);
      if (const std::optional<bool> word = ParseBoolWord(text)) return *word;
      const std::optional<double> number = ParseNumber(text);
      if (!number) Fail(errc::kTypeMismatch);
      return *number != 0;
    }
    case Type::kDate:
      return std::get<Date>(value_).Serial() != 0;
    case Type::kBool:
      return std::get<bool>(value_);
    case Type::kBytes:
      break;
  }
  Fail(errc::kTypeMismatch);
}

std::vector<std::uint8_t> Variant::CBytes() const {
  switch (type()) {
    case Type::kBytes:
      return std::get<std::vector<std::uint8_t>>(value_);
    case Type::kString: {
      const std::string& text = std::get<std::string>(value_);
      return std::vector<std::uint8_t>(text.begin(), text.end());
    }
    case Type::kNull:
      Fail(errc::kInvalidUseOfNull);
    default:
      Fail(errc::kTypeMismatch);
  }
}

}  // namespace corvane
