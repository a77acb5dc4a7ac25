// Unit tests of the value layer: dates, the text of numbers and dates, and the
// Variant conversions with their rounding, ranges and failure numbers.
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "corvane/frame/date.h"
#include "corvane/frame/error.h"
#include "corvane/frame/text.h"
#include "corvane/frame/variant.h"
#include "gtest/gtest.h"

namespace corvane {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kOneSecond = 1.0 / 86400.0;

// The number of the corvane::Error the call throws; 0 when it returns, -1
// when it throws anything else.
std::int32_t ErrorNumberOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const Error& e) {
    return e.Number();
  } catch (...) {
    return -1;
  }
  return 0;
}

std::int16_t I16(int v) { return static_cast<std::int16_t>(v); }

std::string PartsText(const Date& d) {
  const Date::Parts p = d.ToParts();
  return std::to_string(p.year) + "/" + std::to_string(p.month) + "/" + std::to_string(p.day) +
         " " + std::to_string(p.hour) + ":" + std::to_string(p.minute) + ":" +
         std::to_string(p.second);
}

// ---------------------------------------------------------------- Error

TEST(ErrorTest, CarriesNumberAndDescription) {
  const Error e(errc::kOverflow, "Overflow");
  EXPECT_EQ(6, e.Number());
  EXPECT_EQ("Overflow", e.Description());
  EXPECT_STREQ("Overflow", e.what());
  const Error provider(errc::kProvider, "server gone");
  EXPECT_EQ(static_cast<std::int32_t>(0x80004005u), provider.Number());
  EXPECT_LT(provider.Number(), 0);
}

// ---------------------------------------------------------------- Date

TEST(DateTest, DefaultIsTheZeroDate) {
  const Date d;
  EXPECT_EQ(0.0, d.Serial());
  EXPECT_EQ("1899/12/30 0:0:0", PartsText(d));
  EXPECT_FALSE(d.HasTime());
  EXPECT_EQ(Date(0.0), d);
  EXPECT_NE(Date(1.0), d);
}

TEST(DateTest, FromPartsSerials) {
  EXPECT_EQ(0.0, Date::FromParts(1899, 12, 30).Serial());
  EXPECT_EQ(1.0, Date::FromParts(1899, 12, 31).Serial());
  EXPECT_EQ(-1.0, Date::FromParts(1899, 12, 29).Serial());
  EXPECT_EQ(-363.0, Date::FromParts(1899, 1, 1).Serial());
  EXPECT_EQ(61.0, Date::FromParts(1900, 3, 1).Serial());  // 1900 is no leap year
  EXPECT_EQ(46023.0, Date::FromParts(2026, 1, 1).Serial());
  EXPECT_EQ(46082.0, Date::FromParts(2026, 3, 1).Serial());
  EXPECT_EQ(45351.0, Date::FromParts(2024, 2, 29).Serial());
  EXPECT_EQ(46348.0, Date::FromParts(2026, 11, 22).Serial());
  EXPECT_EQ(-36522.0, Date::FromParts(1800, 1, 1).Serial());
  EXPECT_EQ(-657434.0, Date::FromParts(100, 1, 1).Serial());
  EXPECT_EQ(2958465.0, Date::FromParts(9999, 12, 31).Serial());
}

TEST(DateTest, FromPartsWithTime) {
  EXPECT_EQ(0.5, Date::FromParts(1899, 12, 30, 12).Serial());
  EXPECT_EQ(0.25, Date::FromParts(1899, 12, 30, 6).Serial());
  EXPECT_EQ(46023.5, Date::FromParts(2026, 1, 1, 12, 0, 0).Serial());
  EXPECT_EQ(46023.75, Date::FromParts(2026, 1, 1, 18, 0, 0).Serial());
  EXPECT_DOUBLE_EQ(46023.0 + (13 * 3600 + 45 * 60 + 30) / 86400.0,
                   Date::FromParts(2026, 1, 1, 13, 45, 30).Serial());
  // Before the zero date the day counts back, the time forward.
  EXPECT_EQ(-1.25, Date::FromParts(1899, 12, 29, 6, 0, 0).Serial());
  EXPECT_EQ(-1.75, Date::FromParts(1899, 12, 29, 18, 0, 0).Serial());
  EXPECT_EQ(-2.5, Date::FromParts(1899, 12, 28, 12, 0, 0).Serial());
  EXPECT_EQ(-36522.5, Date::FromParts(1800, 1, 1, 12).Serial());
}

TEST(DateTest, FromPartsRollsMonthsOver) {
  EXPECT_EQ(Date::FromParts(2027, 1, 1), Date::FromParts(2026, 13, 1));
  EXPECT_EQ(Date::FromParts(2027, 12, 1), Date::FromParts(2026, 24, 1));
  EXPECT_EQ(Date::FromParts(2028, 1, 1), Date::FromParts(2026, 25, 1));
  EXPECT_EQ(Date::FromParts(2025, 12, 1), Date::FromParts(2026, 0, 1));
  EXPECT_EQ(Date::FromParts(2025, 11, 1), Date::FromParts(2026, -1, 1));
  EXPECT_EQ(Date::FromParts(2024, 12, 15), Date::FromParts(2026, -12, 15));
}

TEST(DateTest, FromPartsRollsDaysOver) {
  EXPECT_EQ(Date::FromParts(2026, 2, 28), Date::FromParts(2026, 3, 0));
  EXPECT_EQ(Date::FromParts(2024, 2, 29), Date::FromParts(2024, 3, 0));
  EXPECT_EQ(Date::FromParts(2026, 3, 1), Date::FromParts(2026, 2, 29));
  EXPECT_EQ(Date::FromParts(2026, 2, 1), Date::FromParts(2026, 1, 32));
  EXPECT_EQ(Date::FromParts(2025, 12, 30), Date::FromParts(2026, 1, -1));
  EXPECT_EQ(Date::FromParts(2027, 1, 1), Date::FromParts(2026, 1, 366));
  EXPECT_EQ(Date::FromParts(2026, 1, 31), Date::FromParts(2025, 14, 0));
}

TEST(DateTest, FromPartsRollsTimeOver) {
  EXPECT_EQ(Date::FromParts(2026, 1, 2), Date::FromParts(2026, 1, 1, 24, 0, 0));
  EXPECT_EQ(Date::FromParts(2026, 1, 2, 1, 0, 0), Date::FromParts(2026, 1, 1, 25, 0, 0));
  EXPECT_EQ(Date::FromParts(2026, 1, 1, 1, 30, 0), Date::FromParts(2026, 1, 1, 0, 90, 0));
  EXPECT_EQ(Date::FromParts(2026, 1, 1, 0, 1, 0), Date::FromParts(2026, 1, 1, 0, 0, 60));
  EXPECT_EQ(Date::FromParts(2025, 12, 31, 23, 59, 59), Date::FromParts(2026, 1, 1, 0, 0, -1));
  EXPECT_EQ(Date::FromParts(2025, 12, 31, 23, 0, 0), Date::FromParts(2026, 1, 1, -1, 0, 0));
  EXPECT_EQ(Date::FromParts(1899, 12, 29, 23, 0, 0), Date::FromParts(1899, 12, 30, -1, 0, 0));
  EXPECT_EQ(-1.0 - 23.0 / 24.0, Date::FromParts(1899, 12, 30, -1).Serial());
}

TEST(DateTest, ToParts) {
  EXPECT_EQ("2026/1/1 0:0:0", PartsText(Date(46023.0)));
  EXPECT_EQ("2026/1/1 12:0:0", PartsText(Date(46023.5)));
  EXPECT_EQ("2024/2/29 0:0:0", PartsText(Date(45351.0)));
  EXPECT_EQ("1900/3/1 0:0:0", PartsText(Date(61.0)));
  EXPECT_EQ("100/1/1 0:0:0", PartsText(Date(-657434.0)));
  EXPECT_EQ("9999/12/31 23:59:59", PartsText(Date(2958465.999988426)));
  const Date::Parts p = Date::FromParts(2026, 11, 22, 13, 45, 30).ToParts();
  EXPECT_EQ(2026, p.year);
  EXPECT_EQ(11, p.month);
  EXPECT_EQ(22, p.day);
  EXPECT_EQ(13, p.hour);
  EXPECT_EQ(45, p.minute);
  EXPECT_EQ(30, p.second);
}

TEST(DateTest, ToPartsOfNegativeSerials) {
  EXPECT_EQ("1899/12/29 6:0:0", PartsText(Date(-1.25)));
  EXPECT_EQ("1899/12/29 18:0:0", PartsText(Date(-1.75)));
  EXPECT_EQ("1899/12/29 0:0:0", PartsText(Date(-1.0)));
  // Between -1 and 0 the day is the zero date itself.
  EXPECT_EQ("1899/12/30 6:0:0", PartsText(Date(-0.25)));
  EXPECT_EQ("1899/12/30 12:0:0", PartsText(Date(-0.5)));
  EXPECT_EQ("1800/1/1 12:0:0", PartsText(Date(-36522.5)));
}

TEST(DateTest, ToPartsRoundsToTheSecond) {
  const double noon = 46023.5;
  EXPECT_EQ("2026/1/1 12:0:0", PartsText(Date(noon + 0.4 * kOneSecond)));
  EXPECT_EQ("2026/1/1 12:0:1", PartsText(Date(noon + 0.6 * kOneSecond)));
  EXPECT_EQ("2026/1/1 11:59:59", PartsText(Date(noon - 0.6 * kOneSecond)));
  EXPECT_EQ("2026/1/1 12:0:0", PartsText(Date(noon - 0.4 * kOneSecond)));
  EXPECT_EQ("2026/1/1 12:1:0", PartsText(Date(noon + 59.7 * kOneSecond)));
}

TEST(DateTest, ToPartsCarriesIntoTheNextDay) {
  EXPECT_EQ("1899/12/31 0:0:0", PartsText(Date(0.99999999)));
  EXPECT_EQ("2026/1/2 0:0:0", PartsText(Date(46023.99999999)));
  EXPECT_EQ("2027/1/1 0:0:0", PartsText(Date(46387.9999999)));  // from 2026-12-31
  EXPECT_EQ("2024/3/1 0:0:0", PartsText(Date(45351.9999999)));  // from 2024-02-29
  // Negative: the fraction counts forward, so the carry goes toward the zero date.
  EXPECT_EQ("1899/12/30 0:0:0", PartsText(Date(-1.99999999)));
  EXPECT_EQ("1899/12/29 0:0:0", PartsText(Date(-2.99999999)));
}

TEST(DateTest, HasTime) {
  EXPECT_FALSE(Date(0.0).HasTime());
  EXPECT_TRUE(Date(0.5).HasTime());
  EXPECT_TRUE(Date(-1.25).HasTime());
  EXPECT_FALSE(Date(-1.0).HasTime());
  EXPECT_TRUE(Date(46023.0 + kOneSecond).HasTime());
  EXPECT_FALSE(Date(46023.0 + 0.4 * kOneSecond).HasTime());
  EXPECT_FALSE(Date(0.99999999).HasTime());  // rounds to the next midnight
  EXPECT_FALSE(Date(46023.99999999).HasTime());
  EXPECT_TRUE(Date(46023.9999).HasTime());  // 23:59:51
}

TEST(DateTest, RoundTripsThroughParts) {
  const int cases[][6] = {{2026, 11, 22, 0, 0, 0},  {2024, 2, 29, 23, 59, 59},
                          {1899, 12, 30, 0, 0, 1},  {1899, 12, 29, 6, 0, 0},
                          {1800, 1, 1, 12, 30, 45}, {100, 1, 1, 0, 0, 0},
                          {9999, 12, 31, 23, 59, 59}, {2000, 2, 29, 7, 8, 9},
                          {1600, 2, 29, 1, 2, 3}};
  for (const auto& c : cases) {
    const Date::Parts p = Date::FromParts(c[0], c[1], c[2], c[3], c[4], c[5]).ToParts();
    EXPECT_EQ(c[0], p.year);
    EXPECT_EQ(c[1], p.month);
    EXPECT_EQ(c[2], p.day);
    EXPECT_EQ(c[3], p.hour);
    EXPECT_EQ(c[4], p.minute);
    EXPECT_EQ(c[5], p.second);
  }
  // Every day of a span crossing the zero date and two leap days.
  Date::Parts previous = Date(-800.0).ToParts();
  for (int serial = -799; serial <= 800; ++serial) {
    const Date::Parts p = Date(serial).ToParts();
    EXPECT_EQ(static_cast<double>(serial), Date::FromParts(p.year, p.month, p.day).Serial());
    const bool next_day = p.day == previous.day + 1 && p.month == previous.month;
    const bool next_month = p.day == 1 && (p.month == previous.month + 1 ||
                                           (p.month == 1 && p.year == previous.year + 1));
    EXPECT_TRUE(next_day || next_month) << serial;
    previous = p;
  }
}

TEST(DateTest, AbsurdSerialsDoNotCrash) {
  EXPECT_EQ("1899/12/30 0:0:0", PartsText(Date(kNaN)));
  (void)Date(kInf).ToParts();
  (void)Date(-kInf).ToParts();
  (void)Date(1e300).ToParts();
  (void)Text(Date(kInf));
  (void)Text(Date(-1e300));
}

// ---------------------------------------------------------------- Text(double)

TEST(TextTest, DoublesInFixedForm) {
  EXPECT_EQ("20261122001", Text(20261122001.0));
  EXPECT_EQ("12.5", Text(12.5));
  EXPECT_EQ("0.3", Text(0.1 + 0.2));
  EXPECT_EQ("-3", Text(-3.0));
  EXPECT_EQ("0.0001", Text(0.0001));
  EXPECT_EQ("123456789012345", Text(123456789012345.0));
  EXPECT_EQ("100000000000000", Text(1e14));
  EXPECT_EQ("999999999999999", Text(999999999999999.0));
  EXPECT_EQ("100", Text(100.0));
  EXPECT_EQ("1", Text(1.0));
  EXPECT_EQ("0.5", Text(0.5));
  EXPECT_EQ("-1.5", Text(-1.5));
  EXPECT_EQ("-0.25", Text(-0.25));
  EXPECT_EQ("0.00012345", Text(0.00012345));
  EXPECT_EQ("0.333333333333333", Text(1.0 / 3.0));
  EXPECT_EQ("0.666666666666667", Text(2.0 / 3.0));
  EXPECT_EQ("3.14159265358979", Text(3.14159265358979323846));
  EXPECT_EQ("1234.5678", Text(1234.5678));
  EXPECT_EQ("46023.5", Text(46023.5));
  EXPECT_EQ("32768", Text(32768.0));
}

TEST(TextTest, DoublesInExponentForm) {
  EXPECT_EQ("1E+15", Text(1e15));
  EXPECT_EQ("1.5E-05", Text(1.5e-5));
  EXPECT_EQ("1E-05", Text(0.00001));
  EXPECT_EQ("-2.5E+20", Text(-2.5e20));
  EXPECT_EQ("1.23456789012346E+20", Text(1.23456789012346e20));
  EXPECT_EQ("1.23456789012346E+15", Text(1234567890123456.0));
  EXPECT_EQ("1E+100", Text(1e100));
  EXPECT_EQ("1.5E-100", Text(1.5e-100));
  EXPECT_EQ("-9.99E-05", Text(-0.0000999));
  EXPECT_EQ("1.79769313486232E+308", Text(std::numeric_limits<double>::max()));
  EXPECT_EQ("4.94065645841247E-324", Text(std::numeric_limits<double>::denorm_min()));
}

TEST(TextTest, DoublesChooseTheFormAfterRounding) {
  // Rounded to 15 digits this is 1E+15.
  EXPECT_EQ("1E+15", Text(999999999999999.6));
  // And this is 1E-04, which is written in fixed form.
  EXPECT_EQ("0.0001", Text(0.00009999999999999996));
  EXPECT_EQ("1", Text(0.9999999999999999));
  EXPECT_EQ("0.1", Text(0.09999999999999999));
}

TEST(TextTest, ZeroAndNonFiniteDoubles) {
  EXPECT_EQ("0", Text(0.0));
  EXPECT_EQ("0", Text(-0.0));
  EXPECT_EQ("NaN", Text(kNaN));
  EXPECT_EQ("Inf", Text(kInf));
  EXPECT_EQ("-Inf", Text(-kInf));
}

TEST(TextTest, Integers) {
  EXPECT_EQ("0", Text(I16(0)));
  EXPECT_EQ("-32768", Text(I16(-32768)));
  EXPECT_EQ("32767", Text(I16(32767)));
  EXPECT_EQ("0", Text(std::int32_t{0}));
  EXPECT_EQ("-2147483648", Text(std::numeric_limits<std::int32_t>::min()));
  EXPECT_EQ("2147483647", Text(std::numeric_limits<std::int32_t>::max()));
  EXPECT_EQ("20261122", Text(std::int32_t{20261122}));
}

// ---------------------------------------------------------------- Text(Date)

TEST(TextTest, Dates) {
  EXPECT_EQ("1899-12-30", Text(Date()));
  EXPECT_EQ("1899-12-30 12:00:00", Text(Date(0.5)));
  EXPECT_EQ("1899-12-29 06:00:00", Text(Date(-1.25)));
  EXPECT_EQ("1899-12-29", Text(Date(-1.0)));
  EXPECT_EQ("2026-01-01", Text(Date(46023.0)));
  EXPECT_EQ("2026-11-22 13:45:30", Text(Date::FromParts(2026, 11, 22, 13, 45, 30)));
  EXPECT_EQ("2026-11-22 00:00:01", Text(Date::FromParts(2026, 11, 22, 0, 0, 1)));
  EXPECT_EQ("2024-02-29 09:05:07", Text(Date::FromParts(2024, 2, 29, 9, 5, 7)));
  EXPECT_EQ("0100-01-01", Text(Date(-657434.0)));
  EXPECT_EQ("9999-12-31 23:59:59", Text(Date(2958465.999988426)));
  EXPECT_EQ("1899-12-31", Text(Date(0.99999999)));
  EXPECT_EQ("2026-01-02", Text(Date(46023.99999999)));
  EXPECT_EQ("1899-12-30", Text(Date(-1.99999999)));
}

// ---------------------------------------------------------------- ParseNumber

TEST(ParseNumberTest, Numbers) {
  EXPECT_EQ(std::optional<double>(5.0), ParseNumber("5"));
  EXPECT_EQ(std::optional<double>(5.0), ParseNumber(" 5 "));
  EXPECT_EQ(std::optional<double>(5.0), ParseNumber("\t5\t"));
  EXPECT_EQ(std::optional<double>(5.0), ParseNumber("+5"));
  EXPECT_EQ(std::optional<double>(-5.0), ParseNumber("-5"));
  EXPECT_EQ(std::optional<double>(0.5), ParseNumber(".5"));
  EXPECT_EQ(std::optional<double>(5.0), ParseNumber("5."));
  EXPECT_EQ(std::optional<double>(-0.5), ParseNumber("-.5"));
  EXPECT_EQ(std::optional<double>(12.5), ParseNumber("12.5"));
  EXPECT_EQ(std::optional<double>(0.1), ParseNumber("0.1"));
  EXPECT_EQ(std::optional<double>(7.0), ParseNumber("007"));
  EXPECT_EQ(std::optional<double>(1000.0), ParseNumber("1e3"));
  EXPECT_EQ(std::optional<double>(1000.0), ParseNumber("1E+3"));
  EXPECT_EQ(std::optional<double>(0.0015), ParseNumber("1.5e-3"));
  EXPECT_EQ(std::optional<double>(-122.5), ParseNumber("  -12.25e1  "));
  EXPECT_EQ(std::optional<double>(5.0), ParseNumber("5.e0"));
  EXPECT_EQ(std::optional<double>(20261122001.0), ParseNumber("20261122001"));
  EXPECT_EQ(std::optional<double>(0.0), ParseNumber("0"));
  EXPECT_EQ(std::optional<double>(0.0), ParseNumber("-0"));
  EXPECT_EQ(std::optional<double>(0.0), ParseNumber("0e999999999999"));
  EXPECT_EQ(std::optional<double>(1.23456789012346e20), ParseNumber("1.23456789012346E+20"));
}

TEST(ParseNumberTest, OutOfRange) {
  EXPECT_EQ(std::optional<double>(kInf), ParseNumber("1e400"));
  EXPECT_EQ(std::optional<double>(-kInf), ParseNumber("-1e400"));
  EXPECT_EQ(std::optional<double>(kInf), ParseNumber("0.001e312"));
  EXPECT_EQ(std::optional<double>(0.0), ParseNumber("1e-400"));
  EXPECT_EQ(std::optional<double>(0.0), ParseNumber("1000e-400"));
  EXPECT_EQ(std::optional<double>(kInf), ParseNumber("1e99999999999999999999"));
}

TEST(ParseNumberTest, NotNumbers) {
  for (const char* text : {"", " ", "\t", "abc", "1,5", "0x10", ".", "-", "+", "+-5", "--5",
                           "e5", "1e", "1e+", "1e-", "1 2", "5a", "a5", "1.2.3", "1..2", "Inf",
                           "NaN", "-inf", "1e5.5", "$5", "5%", "- 5", "1_000", "True"}) {
    EXPECT_FALSE(ParseNumber(text).has_value()) << "'" << text << "'";
  }
}

TEST(ParseNumberTest, RoundTripsText) {
  for (const double v : {0.0, 1.0, -3.0, 12.5, 0.0001, 1.5e-5, -2.5e20, 20261122001.0, 1e15,
                         123456789012345.0, 1234.5678}) {
    EXPECT_EQ(std::optional<double>(v), ParseNumber(Text(v))) << v;
  }
}

// ---------------------------------------------------------------- ParseDate

std::string ParsedText(std::string_view text) {
  const std::optional<Date> d = ParseDate(text);
  return d ? Text(*d) : std::string("(none)");
}

TEST(ParseDateTest, Dates) {
  EXPECT_EQ(std::optional<Date>(Date(46082.0)), ParseDate("2026-03-01"));
  EXPECT_EQ(std::optional<Date>(Date(46082.0)), ParseDate("2026/03/01"));
  EXPECT_EQ(std::optional<Date>(Date(46082.0)), ParseDate("2026-3-1"));
  EXPECT_EQ(std::optional<Date>(Date(46082.0)), ParseDate("2026/3/01"));
  EXPECT_EQ(std::optional<Date>(Date(46082.0)), ParseDate("  2026-03-01\t"));
  EXPECT_EQ(std::optional<Date>(Date(45351.0)), ParseDate("2024-02-29"));
  EXPECT_EQ(std::optional<Date>(Date(-657434.0)), ParseDate("0100-01-01"));
  EXPECT_EQ(std::optional<Date>(Date(2958465.0)), ParseDate("9999-12-31"));
  EXPECT_EQ(std::optional<Date>(Date(0.0)), ParseDate("1899-12-30"));
  EXPECT_EQ(std::optional<Date>(Date(-1.0)), ParseDate("1899-12-29"));
  EXPECT_EQ("2000-02-29", ParsedText("2000-02-29"));
}

TEST(ParseDateTest, DatesWithTime) {
  EXPECT_EQ(std::optional<Date>(Date(46082.5)), ParseDate("2026-03-01 12:00"));
  EXPECT_EQ(std::optional<Date>(Date(46082.5)), ParseDate("2026-03-01 12:00:00"));
  EXPECT_EQ(std::optional<Date>(Date(46082.25)), ParseDate("2026/3/1 6:00"));
  EXPECT_EQ(std::optional<Date>(Date(46082.25)), ParseDate("2026-03-01   06:00:00  "));
  EXPECT_EQ(std::optional<Date>(Date(46082.0)), ParseDate("2026-03-01 0:00:00"));
  EXPECT_EQ(std::optional<Date>(Date(-1.25)), ParseDate("1899-12-29 06:00:00"));
  EXPECT_EQ("2026-03-01 13:45:30", ParsedText("2026-03-01 13:45:30"));
  EXPECT_EQ("2026-03-01 23:59:59", ParsedText("2026-03-01 23:59:59"));
  EXPECT_EQ("9999-12-31 23:59:59", ParsedText("9999-12-31 23:59:59"));
}

TEST(ParseDateTest, FractionOfASecondRounds) {
  EXPECT_EQ("2026-03-01 13:45:30", ParsedText("2026-03-01 13:45:30.123456"));
  EXPECT_EQ("2026-03-01 13:45:31", ParsedText("2026-03-01 13:45:30.5"));
  EXPECT_EQ("2026-03-01 13:45:31", ParsedText("2026-03-01 13:45:30.999999"));
  EXPECT_EQ("2026-03-01 13:46:00", ParsedText("2026-03-01 13:45:59.7"));
  EXPECT_EQ("2026-03-02", ParsedText("2026-03-01 23:59:59.5"));
  EXPECT_EQ("2027-01-01", ParsedText("2026-12-31 23:59:59.9"));
  EXPECT_EQ("2026-03-01 13:45:30", ParsedText("2026-03-01 13:45:30.000000"));
  EXPECT_EQ("1899-12-30 12:00:01", ParsedText("12:00:00.6"));
  // Past the last day the runtime holds.
  EXPECT_EQ("(none)", ParsedText("9999-12-31 23:59:59.5"));
}

TEST(ParseDateTest, YearAndMonth) {
  EXPECT_EQ(std::optional<Date>(Date(46082.0)), ParseDate("2026-03"));
  EXPECT_EQ(std::optional<Date>(Date(46082.0)), ParseDate("2026/3"));
  EXPECT_EQ("2026-12-01", ParsedText(" 2026-12 "));
}

TEST(ParseDateTest, TimeAlone) {
  EXPECT_EQ(std::optional<Date>(Date(0.0)), ParseDate("0:00:00"));
  EXPECT_EQ(std::optional<Date>(Date(0.0)), ParseDate("0:00"));
  EXPECT_EQ(std::optional<Date>(Date(0.5)), ParseDate("12:00:00"));
  EXPECT_EQ(std::optional<Date>(Date(0.5)), ParseDate("12:00"));
  EXPECT_EQ(std::optional<Date>(Date(0.25)), ParseDate(" 6:00 "));
  EXPECT_EQ(std::optional<Date>(Date(0.75)), ParseDate("18:00:00"));
  EXPECT_EQ("1899-12-30 23:59:59", ParsedText("23:59:59"));
  EXPECT_EQ("1899-12-31", ParsedText("23:59:59.5"));
}

TEST(ParseDateTest, NotDates) {
  for (const char* text :
       {"", " ", "0", "12", "2026", "abc", "2026-13-01", "2026-00-01", "2026-02-30",
        "2026-02-29", "2023-02-29", "1900-02-29", "2026-04-31", "2026-01-00", "2026-01-32",
        "0099-12-31", "0000-01-01", "10000-01-01", "26-03-01", "202-03-01", "2026-003-01",
        "2026-03-001", "2026-03-01-", "2026-03/01", "2026/03-01", "2026.03.01", "01.03.2026",
        "2026-03-01T12:00:00", "2026-03-0112:00", "2026-03-01 24:00", "2026-03-01 12:60",
        "2026-03-01 12:00:60", "2026-03-01 12", "2026-03-01 12:0", "2026-03-01 12:00:0",
        "2026-03-01 123:00", "2026-03-01 12:00:00.", "2026-03-01 12:00.5",
        "2026-03-01 12:00:00 x", "2026-13", "2026-0", "2026-", "2026/", "2026-03 12:00",
        "24:00", "24:00:00", "12:60", "12:00:60", "-1:00", "1:2", "100:00", ":00", "12:",
        "12:00:", "12:00:00.", "12:00 PM", "2026-03-01 12:00 PM", "-2026-03-01", "+2026-03-01",
        "2026 -03-01", "2026- 03-01"}) {
    EXPECT_FALSE(ParseDate(text).has_value()) << "'" << text << "'";
  }
}

TEST(ParseDateTest, RoundTripsText) {
  for (const char* text : {"1899-12-30", "1899-12-30 12:00:00", "1899-12-29 06:00:00",
                           "1800-01-01 12:30:45", "2024-02-29", "2024-02-29 23:59:59",
                           "2026-11-22 00:00:01", "2026-03-01 13:45:30", "0100-01-01",
                           "0100-01-01 00:00:01", "9999-12-31", "9999-12-31 23:59:59",
                           "2000-01-01 07:08:09"}) {
    EXPECT_EQ(text, ParsedText(text));
  }
  // And Date -> Text -> Date.
  for (const double serial : {0.0, 0.5, -1.25, 46023.0, 46023.75, -657434.0, 2958465.0}) {
    EXPECT_EQ(std::optional<Date>(Date(serial)), ParseDate(Text(Date(serial)))) << serial;
  }
}

// ---------------------------------------------------------------- Variant

TEST(VariantTest, Types) {
  EXPECT_EQ(Variant::Type::kEmpty, Variant().type());
  EXPECT_TRUE(Variant().IsEmpty());
  EXPECT_FALSE(Variant().IsNull());
  EXPECT_EQ(Variant::Type::kNull, Variant::Null().type());
  EXPECT_TRUE(Variant::Null().IsNull());
  EXPECT_FALSE(Variant::Null().IsEmpty());
  EXPECT_EQ(Variant::Type::kInt16, Variant(I16(1)).type());
  EXPECT_EQ(Variant::Type::kInt32, Variant(1).type());
  EXPECT_EQ(Variant::Type::kDouble, Variant(1.0).type());
  EXPECT_EQ(Variant::Type::kString, Variant("a").type());
  EXPECT_EQ(Variant::Type::kDate, Variant(Date()).type());
  EXPECT_EQ(Variant::Type::kBool, Variant(true).type());
  EXPECT_EQ(Variant::Type::kBytes, Variant(std::vector<std::uint8_t>{1}).type());
  EXPECT_EQ(Variant::Null(), Variant::Null());
  EXPECT_NE(Variant::Null(), Variant());
}

TEST(VariantTest, CIntRoundsHalfToEven) {
  EXPECT_EQ(2, Variant(2.5).CInt());
  EXPECT_EQ(4, Variant(3.5).CInt());
  EXPECT_EQ(-2, Variant(-2.5).CInt());
  EXPECT_EQ(-4, Variant(-3.5).CInt());
  EXPECT_EQ(0, Variant(0.5).CInt());
  EXPECT_EQ(2, Variant(1.5).CInt());
  EXPECT_EQ(0, Variant(-0.5).CInt());
  EXPECT_EQ(3, Variant(2.5000001).CInt());
  EXPECT_EQ(2, Variant(2.4999999).CInt());
  EXPECT_EQ(-3, Variant(-2.6).CInt());
  EXPECT_EQ(12, Variant(12.0).CInt());
}

TEST(VariantTest, CIntRange) {
  EXPECT_EQ(32767, Variant(32767.4).CInt());
  EXPECT_EQ(-32768, Variant(-32768.5).CInt());  // to the even -32768
  EXPECT_EQ(32767, Variant(32767).CInt());
  EXPECT_EQ(-32768, Variant(-32768).CInt());
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(32767.5).CInt(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(-32768.6).CInt(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(32768).CInt(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(-32769).CInt(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(1e300).CInt(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(kNaN).CInt(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(kInf).CInt(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant("40000").CInt(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(Date(46023.0)).CInt(); }));
}

TEST(VariantTest, CIntFromOtherTypes) {
  EXPECT_EQ(7, Variant(I16(7)).CInt());
  EXPECT_EQ(-7, Variant(-7).CInt());
  EXPECT_EQ(12, Variant(" 12 ").CInt());
  EXPECT_EQ(2, Variant("2.5").CInt());
  EXPECT_EQ(4, Variant("3.5").CInt());
  EXPECT_EQ(1500, Variant("1.5e3").CInt());
  EXPECT_EQ(1, Variant(Date(1.0)).CInt());
  EXPECT_EQ(0, Variant(Date(0.5)).CInt());
  EXPECT_EQ(2, Variant(Date(1.5)).CInt());
  EXPECT_EQ(-1, Variant(Date(-1.25)).CInt());
  EXPECT_EQ(-1, Variant(true).CInt());
  EXPECT_EQ(0, Variant(false).CInt());
  EXPECT_EQ(0, Variant().CInt());
  EXPECT_EQ(errc::kInvalidUseOfNull, ErrorNumberOf([] { Variant::Null().CInt(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("abc").CInt(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("").CInt(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("1,5").CInt(); }));
  EXPECT_EQ(errc::kTypeMismatch,
            ErrorNumberOf([] { Variant(std::vector<std::uint8_t>{1}).CInt(); }));
}

TEST(VariantTest, CLng) {
  EXPECT_EQ(2, Variant(2.5).CLng());
  EXPECT_EQ(4, Variant(3.5).CLng());
  EXPECT_EQ(-2, Variant(-2.5).CLng());
  EXPECT_EQ(20261122, Variant(20261122.5).CLng());
  EXPECT_EQ(20261124, Variant(20261123.5).CLng());
  EXPECT_EQ(2147483647, Variant(2147483647.4).CLng());
  EXPECT_EQ(std::numeric_limits<std::int32_t>::min(), Variant(-2147483648.5).CLng());
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(2147483647.5).CLng(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(-2147483648.6).CLng(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant("2147483648").CLng(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant("1e400").CLng(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(kNaN).CLng(); }));
  EXPECT_EQ(-32768, Variant(I16(-32768)).CLng());
  EXPECT_EQ(std::numeric_limits<std::int32_t>::max(),
            Variant(std::numeric_limits<std::int32_t>::max()).CLng());
  EXPECT_EQ(123, Variant("+123").CLng());
  EXPECT_EQ(46023, Variant(Date(46023.0)).CLng());
  EXPECT_EQ(46024, Variant(Date(46023.5)).CLng());
  EXPECT_EQ(46024, Variant(Date(46023.75)).CLng());
  EXPECT_EQ(-1, Variant(true).CLng());
  EXPECT_EQ(0, Variant(false).CLng());
  EXPECT_EQ(0, Variant().CLng());
  EXPECT_EQ(errc::kInvalidUseOfNull, ErrorNumberOf([] { Variant::Null().CLng(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("0x10").CLng(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("2026-03-01").CLng(); }));
  EXPECT_EQ(errc::kTypeMismatch,
            ErrorNumberOf([] { Variant(std::vector<std::uint8_t>{}).CLng(); }));
}

TEST(VariantTest, CDbl) {
  EXPECT_EQ(7.0, Variant(I16(7)).CDbl());
  EXPECT_EQ(-7.0, Variant(-7).CDbl());
  EXPECT_EQ(2.5, Variant(2.5).CDbl());
  EXPECT_EQ(12.5, Variant(" 12.5 ").CDbl());
  EXPECT_EQ(0.5, Variant(".5").CDbl());
  EXPECT_EQ(-1500.0, Variant("-1.5E3").CDbl());
  EXPECT_EQ(-1.25, Variant(Date(-1.25)).CDbl());
  EXPECT_EQ(46023.5, Variant(Date(46023.5)).CDbl());
  EXPECT_EQ(-1.0, Variant(true).CDbl());
  EXPECT_EQ(0.0, Variant(false).CDbl());
  EXPECT_EQ(0.0, Variant().CDbl());
  EXPECT_EQ(0.0, Variant("1e-400").CDbl());
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant("1e400").CDbl(); }));
  EXPECT_EQ(errc::kInvalidUseOfNull, ErrorNumberOf([] { Variant::Null().CDbl(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("abc").CDbl(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant(" ").CDbl(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("True").CDbl(); }));
  EXPECT_EQ(errc::kTypeMismatch,
            ErrorNumberOf([] { Variant(std::vector<std::uint8_t>{1, 2}).CDbl(); }));
}

TEST(VariantTest, CStr) {
  EXPECT_EQ("", Variant().CStr());
  EXPECT_EQ("-32768", Variant(I16(-32768)).CStr());
  EXPECT_EQ("20261122", Variant(20261122).CStr());
  EXPECT_EQ("20261122001", Variant(20261122001.0).CStr());
  EXPECT_EQ("0.3", Variant(0.1 + 0.2).CStr());
  EXPECT_EQ("1E+15", Variant(1e15).CStr());
  EXPECT_EQ("1899-12-30", Variant(Date()).CStr());
  EXPECT_EQ("2026-03-01 12:00:00", Variant(Date(46082.5)).CStr());
  EXPECT_EQ("True", Variant(true).CStr());
  EXPECT_EQ("False", Variant(false).CStr());
  EXPECT_EQ(" as is ", Variant(" as is ").CStr());
  EXPECT_EQ("", Variant("").CStr());
  EXPECT_EQ(errc::kInvalidUseOfNull, ErrorNumberOf([] { Variant::Null().CStr(); }));
  EXPECT_EQ(errc::kTypeMismatch,
            ErrorNumberOf([] { Variant(std::vector<std::uint8_t>{65}).CStr(); }));
}

TEST(VariantTest, CDate) {
  EXPECT_EQ(Date(), Variant().CDate());
  EXPECT_EQ(Date(5.0), Variant(I16(5)).CDate());
  EXPECT_EQ(Date(46023.0), Variant(46023).CDate());
  EXPECT_EQ(Date(46023.5), Variant(46023.5).CDate());
  EXPECT_EQ(Date(-1.25), Variant(-1.25).CDate());
  EXPECT_EQ(Date(-1.25), Variant(Date(-1.25)).CDate());
  EXPECT_EQ(Date(-1.0), Variant(true).CDate());
  EXPECT_EQ(Date(0.0), Variant(false).CDate());
  EXPECT_EQ(Date(46082.5), Variant("2026-03-01 12:00").CDate());
  EXPECT_EQ(Date(0.5), Variant("12:00:00").CDate());
  EXPECT_EQ(errc::kInvalidUseOfNull, ErrorNumberOf([] { Variant::Null().CDate(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("2026-02-29").CDate(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("0").CDate(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("46023").CDate(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("").CDate(); }));
  EXPECT_EQ(errc::kTypeMismatch,
            ErrorNumberOf([] { Variant(std::vector<std::uint8_t>{}).CDate(); }));
}

TEST(VariantTest, CDateRange) {
  EXPECT_EQ(Date(-657434.0), Variant(-657434.0).CDate());
  EXPECT_EQ(Date(-657434.0), Variant(-657434).CDate());
  // 0100-01-01 12:00:00: still the first day.
  EXPECT_EQ(Date(-657434.5), Variant(-657434.5).CDate());
  EXPECT_EQ(Date(2958465.0), Variant(2958465.0).CDate());
  EXPECT_EQ(Date(2958465.999988426), Variant(2958465.999988426).CDate());
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(-657435.0).CDate(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(-657435).CDate(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(2958465.99999).CDate(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(2958466.0).CDate(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(2958466).CDate(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(1e300).CDate(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(kNaN).CDate(); }));
  EXPECT_EQ(errc::kOverflow, ErrorNumberOf([] { Variant(-kInf).CDate(); }));
}

TEST(VariantTest, CBool) {
  EXPECT_FALSE(Variant().CBool());
  EXPECT_TRUE(Variant(I16(-1)).CBool());
  EXPECT_FALSE(Variant(I16(0)).CBool());
  EXPECT_TRUE(Variant(2).CBool());
  EXPECT_FALSE(Variant(0).CBool());
  EXPECT_TRUE(Variant(0.1).CBool());
  EXPECT_FALSE(Variant(0.0).CBool());
  EXPECT_FALSE(Variant(-0.0).CBool());
  EXPECT_TRUE(Variant(Date(0.5)).CBool());
  EXPECT_TRUE(Variant(Date(-1.0)).CBool());
  EXPECT_FALSE(Variant(Date()).CBool());
  EXPECT_TRUE(Variant(true).CBool());
  EXPECT_FALSE(Variant(false).CBool());
  EXPECT_TRUE(Variant("True").CBool());
  EXPECT_TRUE(Variant("true").CBool());
  EXPECT_TRUE(Variant("TRUE").CBool());
  EXPECT_TRUE(Variant(" tRuE ").CBool());
  EXPECT_FALSE(Variant("False").CBool());
  EXPECT_FALSE(Variant("false").CBool());
  EXPECT_FALSE(Variant("FALSE").CBool());
  EXPECT_TRUE(Variant("1").CBool());
  EXPECT_TRUE(Variant("-1").CBool());
  EXPECT_TRUE(Variant("0.5").CBool());
  EXPECT_FALSE(Variant("0").CBool());
  EXPECT_FALSE(Variant(" 0.0 ").CBool());
  EXPECT_EQ(errc::kInvalidUseOfNull, ErrorNumberOf([] { Variant::Null().CBool(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("yes").CBool(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("").CBool(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("Truth").CBool(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant("#TRUE#").CBool(); }));
  EXPECT_EQ(errc::kTypeMismatch,
            ErrorNumberOf([] { Variant(std::vector<std::uint8_t>{1}).CBool(); }));
}

TEST(VariantTest, CBytes) {
  const std::vector<std::uint8_t> bytes = {0, 1, 254, 255};
  EXPECT_EQ(bytes, Variant(bytes).CBytes());
  EXPECT_EQ(std::vector<std::uint8_t>{}, Variant(std::vector<std::uint8_t>{}).CBytes());
  EXPECT_EQ((std::vector<std::uint8_t>{'A', 'b', 0xC3, 0xA9}), Variant("Ab\xC3\xA9").CBytes());
  EXPECT_EQ(std::vector<std::uint8_t>{}, Variant("").CBytes());
  EXPECT_EQ(errc::kInvalidUseOfNull, ErrorNumberOf([] { Variant::Null().CBytes(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant().CBytes(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant(1).CBytes(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant(I16(1)).CBytes(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant(1.0).CBytes(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant(Date()).CBytes(); }));
  EXPECT_EQ(errc::kTypeMismatch, ErrorNumberOf([] { Variant(true).CBytes(); }));
}

TEST(VariantTest, FailureDescriptions) {
  try {
    Variant(40000).CInt();
    ADD_FAILURE() << "no failure";
  } catch (const Error& e) {
    EXPECT_EQ(errc::kOverflow, e.Number());
    EXPECT_EQ("Overflow", e.Description());
  }
  try {
    Variant("x").CDbl();
    ADD_FAILURE() << "no failure";
  } catch (const Error& e) {
    EXPECT_EQ(errc::kTypeMismatch, e.Number());
    EXPECT_EQ("Type mismatch", e.Description());
  }
  try {
    Variant::Null().CStr();
    ADD_FAILURE() << "no failure";
  } catch (const Error& e) {
    EXPECT_EQ(errc::kInvalidUseOfNull, e.Number());
    EXPECT_EQ("Invalid use of Null", e.Description());
  }
}

}  // namespace
}  // namespace corvane
