// Date::Now: the client's present date and time, local to the host, in whole
// seconds.
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <optional>
#include <string>

#include "corvane/frame/date.h"
#include "gtest/gtest.h"

namespace corvane {
namespace {

constexpr double kOneSecond = 1.0 / 86400.0;

// The local time of the host as a date, read through the C library.
Date LocalNow() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return Date::FromParts(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour,
                         local.tm_min, local.tm_sec);
}

// Sets TZ for the life of the object and puts the old value back after.
class ZoneScope {
 public:
  explicit ZoneScope(const char* zone) {
    if (const char* old = std::getenv("TZ")) old_ = old;
    setenv("TZ", zone, 1);
    tzset();
  }
  ~ZoneScope() {
    if (old_) {
      setenv("TZ", old_->c_str(), 1);
    } else {
      unsetenv("TZ");
    }
    tzset();
  }

 private:
  std::optional<std::string> old_;
};

TEST(DateNowTest, IsThePresentLocalTimeOfTheHost) {
  const Date before = LocalNow();
  const Date now = Date::Now();
  const Date after = LocalNow();
  EXPECT_GE(now.Serial(), before.Serial());
  EXPECT_LE(now.Serial(), after.Serial());
  // A date of this century, not the zero date.
  EXPECT_GE(now.ToParts().year, 2000);
}

TEST(DateNowTest, CountsWholeSeconds) {
  const double seconds = Date::Now().Serial() / kOneSecond;
  EXPECT_NEAR(seconds, std::round(seconds), 1e-3);
}

TEST(DateNowTest, FollowsTheHostsTimeZone) {
  double utc = 0, east8 = 0;
  {
    const ZoneScope zone("UTC0");
    utc = Date::Now().Serial();
  }
  {
    const ZoneScope zone("CST-8");
    east8 = Date::Now().Serial();
  }
  // Eight hours ahead, give or take the second that may pass between calls.
  EXPECT_NEAR((east8 - utc) / kOneSecond, 8 * 3600, 2);
}

}  // namespace
}  // namespace corvane
