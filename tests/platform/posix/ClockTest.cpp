#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include <limits>
#include <string>

#include "platform/files/SystemCalls.h"

namespace norvo {
namespace {

using namespace std::chrono;

class ClockTest : public ::testing::Test {
 protected:
  ClockTest() {
    const char* const old = ::getenv("TZ");
    hadZone_ = old != nullptr;
    if (hadZone_) zone_ = old;
  }
  ~ClockTest() override {
    hadZone_ ? ::setenv("TZ", zone_.c_str(), 1) : ::unsetenv("TZ");
    ::tzset();
  }

  static void SetZone(const char* zone) {
    ::setenv("TZ", zone, 1);
    ::tzset();
  }

 private:
  bool hadZone_ = false;
  std::string zone_;
};

TEST_F(ClockTest, LocalTimeFollowsTheRulesOfItsSeason) {
  SetZone("EST5EDT,M3.2.0,M11.1.0");
  EXPECT_EQ(*LocalTime(0), local_days(1969y / December / 31) + 19h);
  EXPECT_EQ(*LocalTime(1052921520), local_days(2003y / May / 14) + 10h + 12min);
  EXPECT_EQ(*LocalTime(1073891520), local_days(2004y / January / 12) + 2h + 12min);
}

TEST_F(ClockTest, LocalTimeGoesFarBackAndFarAhead) {
  SetZone("UTC0");
  EXPECT_EQ(*LocalTime(-62167219200), local_days(0y / January / 1));
  EXPECT_EQ(*LocalTime(-62167219201), local_days(year(-1) / December / 31) + 86399s);
  EXPECT_EQ(*LocalTime(253402300799), local_days(9999y / December / 31) + 86399s);
  EXPECT_EQ(LocalTime(67768036191676799)->time_since_epoch(), 67768036191676799s);
}

TEST_F(ClockTest, AMomentOutsideTheCalendarHasNoLocalTime) {
  EXPECT_FALSE(LocalTime(std::numeric_limits<std::int64_t>::max()));
  EXPECT_FALSE(LocalTime(std::numeric_limits<std::int64_t>::min()));
}

}  // namespace
}  // namespace norvo
