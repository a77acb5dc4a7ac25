// corvane::Variant is the value of the host runtime: empty, null, a number, a
// text, a date, a Boolean or a byte array. Column values arrive as variants,
// and the conversions C... turn them into the types of entity properties with
// the runtime's rules and failures.
#ifndef CORVANE_FRAME_VARIANT_H_
#define CORVANE_FRAME_VARIANT_H_

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "corvane/export.h"
#include "corvane/frame/date.h"

namespace corvane {

class CORVANE_EXPORT Variant {
 public:
  enum class Type { kEmpty, kNull, kInt16, kInt32, kDouble, kString, kDate, kBool, kBytes };

  Variant() = default;  // empty
  Variant(std::int16_t v) : value_(v) {}
  Variant(std::int32_t v) : value_(v) {}
  Variant(double v) : value_(v) {}
  Variant(std::string v) : value_(std::move(v)) {}
  Variant(const char* v) : value_(std::string(v)) {}
  explicit Variant(std::string_view v) : value_(std::in_place_type<std::string>, v) {}
  Variant(Date v) : value_(v) {}
  Variant(bool v) : value_(v) {}
  Variant(std::vector<std::uint8_t> v) : value_(std::move(v)) {}
  static Variant Null();

  Type type() const { return static_cast<Type>(value_.index()); }
  bool IsEmpty() const { return type() == Type::kEmpty; }
  bool IsNull() const { return type() == Type::kNull; }

  // Conversions. A failure throws corvane::Error: null gives invalid use of
  // Null (94); a text that is no number or no date, or a value of a type that
  // has no such form, gives type mismatch (13); a number out of range gives
  // overflow (6). Empty converts to 0, "", the zero date and false.
  // CInt and CLng round halves to even, as the runtime does.
  std::int16_t CInt() const;
  std::int32_t CLng() const;
  double CDbl() const;
  // Numbers by Text(double) and plain decimal, dates by Text(Date), Booleans
  // as "True" and "False".
  std::string CStr() const&;
  std::string CStr() &&;  // a text moves out
  Date CDate() const;
  bool CBool() const;
  std::vector<std::uint8_t> CBytes() const;
  // The byte array held, without a copy; null when the value is no byte array.
  const std::vector<std::uint8_t>* Bytes() const noexcept {
    return std::get_if<std::vector<std::uint8_t>>(&value_);
  }

  friend bool operator==(const Variant& a, const Variant& b) { return a.value_ == b.value_; }
  friend bool operator!=(const Variant& a, const Variant& b) { return !(a == b); }

 private:
  struct NullTag {
    friend bool operator==(NullTag, NullTag) { return true; }
  };
  struct EmptyTag {
    friend bool operator==(EmptyTag, EmptyTag) { return true; }
  };
  std::variant<EmptyTag, NullTag, std::int16_t, std::int32_t, double, std::string, Date, bool,
               std::vector<std::uint8_t>>
      value_;
};

}  // namespace corvane

#endif  // CORVANE_FRAME_VARIANT_H_
