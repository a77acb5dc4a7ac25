// corvane::Date is the date of the host runtime: days since 30 December 1899,
// the time of day as the fraction. The default value, serial 0, is the zero
// date, 1899-12-30 00:00:00.
#ifndef CORVANE_FRAME_DATE_H_
#define CORVANE_FRAME_DATE_H_

#include "corvane/export.h"

namespace corvane {

class CORVANE_EXPORT Date {
 public:
  struct Parts {
    int year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0;
  };

  Date() = default;
  explicit Date(double serial) : serial_(serial) {}

  // The calendar date and time given; months and days out of range roll over
  // as in the runtime's DateSerial (month 13 is January of the next year).
  static Date FromParts(int y, int mo, int d, int h = 0, int mi = 0, int s = 0);
  // The client's present date and time, in the local time of the host, to
  // the whole second, as the runtime's Now gives it.
  static Date Now();

  double Serial() const { return serial_; }
  // The calendar parts, the time rounded to the nearest second. A negative
  // serial counts the days back from the zero date and the fraction forward
  // within that day, as the runtime does (-1.25 is 1899-12-29 06:00:00).
  Parts ToParts() const;
  bool HasTime() const;

  friend bool operator==(const Date& a, const Date& b) { return a.serial_ == b.serial_; }
  friend bool operator!=(const Date& a, const Date& b) { return !(a == b); }

 private:
  double serial_ = 0.0;
};

}  // namespace corvane

#endif  // CORVANE_FRAME_DATE_H_
