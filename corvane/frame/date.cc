// Calendar arithmetic of corvane::Date: serials to calendar parts and back,
// on the proleptic Gregorian calendar.
#include "corvane/frame/date.h"

#include <chrono>
#include <cmath>
#include <ctime>

namespace corvane {
namespace {

constexpr long long kSecondsPerDay = 86400;
// Days from 1970-01-01, the base of the civil-day routines, to the zero date
// 1899-12-30.
constexpr long long kZeroDateCivilDays = -25569;
// Beyond any date the runtime holds; ToParts clamps to it so that the integer
// arithmetic stays defined for absurd serials.
constexpr double kSerialLimit = 1e9;

long long FloorDiv(long long a, long long b) {
  const long long q = a / b;
  return (a % b != 0 && ((a < 0) != (b < 0))) ? q - 1 : q;
}

// Days since 1970-01-01 of a Gregorian date; month 1..12, day 1..31.
long long DaysFromCivil(long long y, unsigned m, unsigned d) {
  y -= m <= 2 ? 1 : 0;
  const long long era = (y >= 0 ? y : y - 399) / 400;
  const unsigned yoe = static_cast<unsigned>(y - era * 400);
  const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
  const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + static_cast<long long>(doe) - 719468;
}

// The Gregorian date of a count of days since 1970-01-01.
void CivilFromDays(long long z, long long* y, unsigned* m, unsigned* d) {
  z += 719468;
  const long long era = (z >= 0 ? z : z - 146096) / 146097;
  const unsigned doe = static_cast<unsigned>(z - era * 146097);
  const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const unsigned mp = (5 * doy + 2) / 153;
  *d = doy - (153 * mp + 2) / 5 + 1;
  *m = mp < 10 ? mp + 3 : mp - 9;
  *y = static_cast<long long>(yoe) + era * 400 + (*m <= 2 ? 1 : 0);
}

}  // namespace

Date Date::FromParts(int y, int mo, int d, int h, int mi, int s) {
  // Months first (month 13 is January of the next year, month 0 December of
  // the year before), then days and time as a plain count from the first of
  // that month.
  const long long months = static_cast<long long>(y) * 12 + (mo - 1);
  const long long year = FloorDiv(months, 12);
  const unsigned month = static_cast<unsigned>(months - year * 12 + 1);
  const long long days = DaysFromCivil(year, month, 1) - kZeroDateCivilDays + (d - 1);
  const long long seconds = days * kSecondsPerDay + static_cast<long long>(h) * 3600 +
                            static_cast<long long>(mi) * 60 + s;
  const long long day = FloorDiv(seconds, kSecondsPerDay);
  const double fraction =
      static_cast<double>(seconds - day * kSecondsPerDay) / static_cast<double>(kSecondsPerDay);
  // Before the zero date the day counts back and the time still forward.
  const double whole = static_cast<double>(day);
  return Date(day < 0 ? whole - fraction : whole + fraction);
}

Date Date::Now() {
  const std::time_t now =
      std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm local{};
  localtime_r(&now, &local);
  return FromParts(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                   local.tm_min, local.tm_sec);
}

Date::Parts Date::ToParts() const {
  double serial = std::isnan(serial_) ? 0.0 : serial_;
  serial = std::fmax(-kSerialLimit, std::fmin(kSerialLimit, serial));
  const double whole = std::trunc(serial);
  long long day = static_cast<long long>(whole);
  long long seconds = std::llround(std::fabs(serial - whole) * kSecondsPerDay);
  if (seconds >= kSecondsPerDay) {  // rounded up to midnight: the next day
    ++day;
    seconds -= kSecondsPerDay;
  }
  long long year = 0;
  unsigned month = 0, mday = 0;
  CivilFromDays(day + kZeroDateCivilDays, &year, &month, &mday);
  Parts parts;
  parts.year = static_cast<int>(year);
  parts.month = static_cast<int>(month);
  parts.day = static_cast<int>(mday);
  parts.hour = static_cast<int>(seconds / 3600);
  parts.minute = static_cast<int>(seconds / 60 % 60);
  parts.second = static_cast<int>(seconds % 60);
  return parts;
}

bool Date::HasTime() const {
  const Parts parts = ToParts();
  return parts.hour != 0 || parts.minute != 0 || parts.second != 0;
}

}  // namespace corvane
