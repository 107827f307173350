#include "com/LiveObjects.h"

#include <gtest/gtest.h>

#include <optional>

namespace norvo::com {
namespace {

TEST(LiveObjectsTest, ObjectsAreCountedWhileTheyLive) {
  EXPECT_EQ(CountLiveObjects(), 0);
  EXPECT_TRUE(IsModuleIdle());
  std::optional<LiveObject> first(std::in_place);
  const auto second = std::make_optional<LiveObject>();
  EXPECT_EQ(CountLiveObjects(), 2);
  EXPECT_FALSE(IsModuleIdle());
  first.reset();
  EXPECT_EQ(CountLiveObjects(), 1);
}

TEST(LiveObjectsTest, ALockKeepsTheModuleWithoutAnyObject) {
  LockModule(true);
  LockModule(true);
  EXPECT_EQ(CountLiveObjects(), 0);
  LockModule(false);
  EXPECT_FALSE(IsModuleIdle()) << "locks are counted";
  LockModule(false);
  EXPECT_TRUE(IsModuleIdle());
}

}  // namespace
}  // namespace norvo::com
