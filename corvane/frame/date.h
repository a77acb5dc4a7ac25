/// \file
/// corvane::Date is the date of the host runtime: days since 30 December 1899,
/// the time of day as the fraction. The default value, serial 0, is the zero
/// date, 1899-12-30 00:00:00.
#ifndef CORVANE_FRAME_DATE_H_
#define CORVANE_FRAME_DATE_H_

#include "corvane/export.h"

namespace corvane {

/// A date and time of the host runtime: days since 30 December 1899, the time
/// of day as the fraction.
class CORVANE_EXPORT Date {
 public:
  /// A date and time in calendar parts; the default is the zero date.
  struct Parts {
    int year = 1899,  ///< The year.
        month = 12,   ///< The month, 1 to 12.
        day = 30,     ///< The day of the month.
        hour = 0,     ///< The hour, 0 to 23.
        minute = 0,   ///< The minute.
        second = 0;   ///< The second.
  };

  /// The zero date, 1899-12-30 00:00:00.
  Date() = default;
  /// The date of serial: days since 30 December 1899, the time as the fraction.
  explicit Date(double serial) : serial_(serial) {}

  /// The calendar date and time given; months and days out of range roll over
  /// as in the runtime's DateSerial (month 13 is January of the next year).
  static Date FromParts(int y, int mo, int d, int h = 0, int mi = 0, int s = 0);
  /// The client's present date and time, in the local time of the host, to
  /// the whole second, as the runtime's Now gives it.
  static Date Now();

  /// Days since 30 December 1899, the time of day as the fraction.
  double Serial() const { return serial_; }
  /// The calendar parts, the time rounded to the nearest second. A negative
  /// serial counts the days back from the zero date and the fraction forward
  /// within that day, as the runtime does (-1.25 is 1899-12-29 06:00:00).
  Parts ToParts() const;
  /// Whether the time of day, rounded to the second, is not 00:00:00.
  bool HasTime() const;

  /// Equal when the serials are equal.
  friend bool operator==(const Date& a, const Date& b) { return a.serial_ == b.serial_; }
  /// Not equal when the serials differ.
  friend bool operator!=(const Date& a, const Date& b) { return !(a == b); }

 private:
  double serial_ = 0.0;
};

}  // namespace corvane

#endif  // CORVANE_FRAME_DATE_H_
