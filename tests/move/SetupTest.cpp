#include "move/Setup.h"

#include <sstream>

#include "support/LibraryTest.h"

namespace norvo {
namespace {

/// The set-up on a machine in memory.
class SetupTest : public LibraryTest {
 protected:
  static constexpr StringView kGroupKey = u"C:\\My Documents\\Norvo Media\\KVs\\KVMediaPlayLists";

  SetupTest() { platform->Registry().AddKey(Hive::LocalMachine, u"SOFTWARE"); }

  std::vector<SetupStep> Run() { return norvo::SetUp(component, {}, console_); }
  /// The step of the group's key.
  static SetupStep GroupStep(const std::vector<SetupStep>& steps) {
    for (const SetupStep& step : steps) {
      if (step.what.starts_with("registry key ")) return step;
    }
    return {};
  }

 private:
  std::ostringstream out_;
  Console console_{out_, out_, false};
};

TEST_F(SetupTest, TheGroupKeyStandsInTheMachinesHive) {
  EXPECT_TRUE(GroupStep(Run()).written);
  EXPECT_TRUE(platform->Registry().HasKey(Hive::LocalMachine, kGroupKey));
  EXPECT_FALSE(GroupStep(Run()).written);
}

TEST_F(SetupTest, WhereTheMachinesHiveRefusesTheGroupKeyTheUsersTakesIt) {
  platform->Registry().RefuseTopKeys();
  const SetupStep step = GroupStep(Run());
  EXPECT_TRUE(step.written);
  EXPECT_TRUE(step.what.starts_with("registry key HKEY_CURRENT_USER\\C:\\")) << step.what;
  EXPECT_TRUE(platform->Registry().HasKey(Hive::CurrentUser, kGroupKey));
  EXPECT_EQ(GroupStep(Run()).what, step.what);
  EXPECT_FALSE(GroupStep(Run()).written);
}

TEST_F(SetupTest, ARegistryThatTakesNothingEndsTheSetup) {
  platform->Registry().RefuseWrites();
  EXPECT_THROW(Run(), HostError);
}

}  // namespace
}  // namespace norvo
