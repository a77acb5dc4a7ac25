/// \file
/// corvane::Variant is the value of the host runtime: empty, null, a number, a
/// text, a date, a Boolean or a byte array. Column values arrive as variants,
/// and the conversions C... turn them into the types of entity properties with
/// the runtime's rules and failures.
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

/// A value of the host runtime: empty, null, a 16-bit or 32-bit integer, a
/// double, a text, a date, a Boolean or a byte array.
class CORVANE_EXPORT Variant {
 public:
  /// What a variant holds.
  enum class Type {
    kEmpty,   ///< nothing: the value of a variant not yet set
    kNull,    ///< null, as a null column reads
    kInt16,   ///< a 16-bit integer
    kInt32,   ///< a 32-bit integer
    kDouble,  ///< a double
    kString,  ///< a text
    kDate,    ///< a date
    kBool,    ///< a Boolean
    kBytes    ///< a byte array
  };

  Variant() = default;  ///< empty
  Variant(std::int16_t v) : value_(v) {}  ///< A 16-bit integer.
  Variant(std::int32_t v) : value_(v) {}  ///< A 32-bit integer.
  Variant(double v) : value_(v) {}  ///< A double.
  Variant(std::string v) : value_(std::move(v)) {}  ///< A text.
  Variant(const char* v) : value_(std::string(v)) {}  ///< A text.
  /// A text, copied from the view.
  explicit Variant(std::string_view v) : value_(std::in_place_type<std::string>, v) {}
  Variant(Date v) : value_(v) {}  ///< A date.
  Variant(bool v) : value_(v) {}  ///< A Boolean.
  Variant(std::vector<std::uint8_t> v) : value_(std::move(v)) {}  ///< A byte array.
  /// The null value.
  static Variant Null();

  /// What the variant holds.
  Type type() const { return static_cast<Type>(value_.index()); }
  /// Whether it holds nothing.
  bool IsEmpty() const { return type() == Type::kEmpty; }
  /// Whether it is null.
  bool IsNull() const { return type() == Type::kNull; }

  // Conversions. A failure throws corvane::Error: null gives invalid use of
  // Null (94); a text that is no number or no date, or a value of a type that
  // has no such form, gives type mismatch (13); a number out of range gives
  // overflow (6). Empty converts to 0, "", the zero date and false.
  // CInt and CLng round halves to even, as the runtime does.

  /// The value as a 16-bit integer, halves rounded to even; fails with invalid
  /// use of Null (94), type mismatch (13) or overflow (6).
  std::int16_t CInt() const;
  /// The value as a 32-bit integer, halves rounded to even; fails with invalid
  /// use of Null (94), type mismatch (13) or overflow (6).
  std::int32_t CLng() const;
  /// The value as a double (a date as its serial, True as -1); empty is 0.
  /// Fails with invalid use of Null (94) or type mismatch (13).
  double CDbl() const;
  /// The value as text: numbers by Text(double) and plain decimal, dates by
  /// Text(Date), Booleans as "True" and "False"; empty is "". Fails with
  /// invalid use of Null (94), or type mismatch (13) for a byte array.
  std::string CStr() const&;
  std::string CStr() &&;  ///< As CStr() const&; a text moves out.
  /// The value as a date (a number as a serial, a text by ParseDate); empty is
  /// the zero date. Fails with invalid use of Null (94) or type mismatch (13).
  Date CDate() const;
  /// The value as a Boolean: not 0, or the text "True" or "False" in any case;
  /// empty is false. Fails with invalid use of Null (94) or type mismatch (13).
  bool CBool() const;
  /// The byte array held, or the bytes of a text. Fails with invalid use of
  /// Null (94), or type mismatch (13) for any other value.
  std::vector<std::uint8_t> CBytes() const;
  /// The byte array held, without a copy; null when the value is no byte array.
  const std::vector<std::uint8_t>* Bytes() const noexcept {
    return std::get_if<std::vector<std::uint8_t>>(&value_);
  }

  /// Equal when type and value are equal (1 as a 16-bit integer is not 1 as a
  /// double).
  friend bool operator==(const Variant& a, const Variant& b) { return a.value_ == b.value_; }
  /// Not equal when type or value differ.
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
