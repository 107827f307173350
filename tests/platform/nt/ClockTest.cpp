#include "platform/nt/Clock.h"

#include <gtest/gtest.h>

#include <limits>

#include "platform/files/SystemCalls.h"
#include "platform/win32/SystemTicks.h"

namespace norvo {
namespace {

using namespace std::chrono;

TEST(Clock, ATickIsAHundredNanosecondsSince1601) {
  EXPECT_EQ(DiskTimeOf(kTicksTo1970), (DiskTime{0, 0}));
  EXPECT_EQ(DiskTimeOf(kTicksTo1970 + 1), (DiskTime{0, 100}));
  EXPECT_EQ(DiskTimeOf(kTicksTo1970 - 1), (DiskTime{-1, 999'999'900}));
  EXPECT_EQ(DiskTimeOf(0), (DiskTime{-11'644'473'600, 0}));
  EXPECT_EQ(TicksOf(DiskTime{1, 199}), kTicksTo1970 + 10'000'001);
  EXPECT_EQ(TicksOf(DiskTime{-1, 999'999'900}), kTicksTo1970 - 1);
}

TEST(Clock, AMomentThatTheDiskCannotHoldBecomesTheNearest) {
  constexpr std::int64_t kMost = std::numeric_limits<std::int64_t>::max();
  EXPECT_GT(TicksOf(DiskTime{-kMost, 0}), 0);
  EXPECT_LT(TicksOf(DiskTime{-kMost, 0}), 20'000'000);
  EXPECT_GT(TicksOf(DiskTime{kMost, 0}), kMost - 40'000'000);
}

TEST(Clock, LocalTimeIsTheSystemsAndDiffersByWholeMinutes) {
  const std::int64_t moment = 1'052'921'520;  // 2003-05-14 14:12 UTC
  const std::optional<local_seconds> local = LocalTime(moment);
  ASSERT_TRUE(local);
  const std::int64_t difference = local->time_since_epoch().count() - moment;
  EXPECT_LE(difference < 0 ? -difference : difference, 14 * 3600);
  EXPECT_EQ(difference % 60, 0);
}

TEST(Clock, AMomentOutsideTheCalendarHasNoLocalTime) {
  EXPECT_FALSE(LocalTime(std::numeric_limits<std::int64_t>::max()));
  EXPECT_FALSE(LocalTime(std::numeric_limits<std::int64_t>::min()));
  EXPECT_FALSE(LocalTime(-12'000'000'000));
}

}  // namespace
}  // namespace norvo
