#include "services/Component.h"

#include <cstdlib>

#include "automation/RunTimeError.h"
#include "services/DataCop.h"
#include "services/Logging.h"
#include "services/NVServices.h"
#include "services/ObserverScope.h"
#include "services/ProfileFile.h"
#include "support/LibraryTest.h"

namespace norvo {
namespace {

class Named final : public AutomationObject {
 public:
  explicit Named(StringView name) : name_(name) {}
  StringView ClassName() const override { return name_; }
  Variant Get(StringView, Arguments) override { return {}; }
  void Let(StringView, Arguments, const Variant&) override {}
  Variant Call(StringView, Arguments) override { return {}; }

 private:
  StringView name_;
};

constexpr CreatableClass kClasses[] = {
    {u"First", [](Component&) -> ObjectRef { return std::make_shared<Named>(u"First"); }},
    {u"Second", [](Component&) -> ObjectRef { return std::make_shared<Named>(u"Second"); }},
};

class ComponentTest : public LibraryTest {};

TEST_F(ComponentTest, ClassesAreCreatedByNameInAnyCase) {
  Component fresh(platform, kClasses);
  EXPECT_TEXT(fresh.Create(u"First")->ClassName(), u"First");
  EXPECT_TEXT(fresh.Create(u"sECOND")->ClassName(), u"Second");
  EXPECT_NE(fresh.Create(u"First"), fresh.Create(u"First"));
}

TEST_F(ComponentTest, AnUnknownClassRaises429) {
  Component fresh(platform, kClasses);
  for (const StringView name : {u"", u"Third", u"First "}) {
    try {
      fresh.Create(name);
      ADD_FAILURE() << Utf8(name);
    } catch (const RunTimeError& failure) {
      EXPECT_EQ(failure.Number(), error::kCannotCreateObject);
    }
  }
}

TEST_F(ComponentTest, AnObserverFollowsUntilItIsReplaced) {
  WriteLog(component, u"first");
  component.SetObserver(nullptr);
  WriteLog(component, u"second");
  EXPECT_EQ(Utf8(log), (Lines{"first"}));
}

TEST_F(ComponentTest, AnObserverScopePutsBackTheOneBefore) {
  std::vector<String> inside;
  LogCapture inner(inside);
  try {
    const ObserverScope scope(component, inner);
    WriteLog(component, u"first");
    throw RunTimeError(error::kInvalidArgument);
  } catch (const RunTimeError&) {
    WriteLog(component, u"second");
  }
  EXPECT_EQ(Utf8(inside), (Lines{"first"}));
  EXPECT_EQ(Utf8(log), (Lines{"second"}));
}

TEST_F(ComponentTest, TwoComponentsShareNothing) {
  Component other(std::make_shared<MemoryPlatform>(), {});
  component.SetLogMode(log_mode::kMessageBox);
  component.MediaBytes() += 5;
  component.SubNames().names[0] = u"Music";
  WriteLog(other, u"message");
  WriteLog(component, u"message");
  EXPECT_EQ(other.Log().mode, log_mode::kSilent);
  EXPECT_EQ(other.MediaBytes(), 0);
  EXPECT_TEXT(other.SubNames().names[0], u"");
  EXPECT_EQ(platform->Messages().Shown().size(), 1u);
  EXPECT_EQ(log.size(), 1u);
}

TEST_F(ComponentTest, ConstructionAsksTheMachineNothing) {
  Component fresh(platform, {});
  EXPECT_EQ(platform->Log().Total(), 0u);
}

TEST_F(ComponentTest, TheEndMakesTheMigrationListDurable) {
  platform->Migration().EnsureGroup(u"g", u"C:\\Root");
  platform->Migration().Add({u"C:\\a.mp3", u"x", u"Music"});
  { Component fresh(platform, {}); }
  EXPECT_EQ(platform->Migration().DurableRecords(), 1u);
}

TEST_F(ComponentTest, AnErrorOfTheLastFlushIsLost) {
  platform->FailOn(u"Migration.Flush", 1, error::kDiskFull);
  { Component fresh(platform, {}); }
  EXPECT_TRUE(platform->Log().HasFailed());
}

TEST(ComponentDeathTest, AShortageOfMemoryAtTheLastFlushDoesNotEndTheProgram) {
  const auto end = [] {
    const auto machine = std::make_shared<MemoryPlatform>();
    {
      Component fresh(machine, {});
      machine->Log().RunOutOfMemoryAt(1);
    }
    std::_Exit(machine->Log().HasFailed() ? 0 : 1);
  };
  EXPECT_EXIT(end(), ::testing::ExitedWithCode(0), "");
}

/// The group root, and how often the registry was read for it.
std::pair<String, std::size_t> GroupRootAndReads(Component& component, MemoryPlatform& machine) {
  const std::size_t before = machine.Calls(u"Registry.Read");
  String root;
  NVServices::GetSubGroupRoot(component, DataCop::kGroup, root);
  return {root, machine.Calls(u"Registry.Read") - before};
}

TEST_F(ComponentTest, APinnedGroupRootWinsAndTheRegistryIsNotAsked) {
  platform->ConfigureProduct();
  EXPECT_EQ(GroupRootAndReads(component, *platform), std::pair(String(kGroupRoot), std::size_t{1}));
  component.PinGroupRoot(u"D:\\Media\\");
  EXPECT_EQ(GroupRootAndReads(component, *platform),
            std::pair(String(u"D:\\Media\\"), std::size_t{0}));
  EXPECT_TEXT(DataCop::GetGroupRoot(component), u"D:\\Media\\");
  Component other(platform, {});
  EXPECT_EQ(GroupRootAndReads(other, *platform), std::pair(String(kGroupRoot), std::size_t{1}));
}

TEST_F(ComponentTest, APinnedGroupRootHoldsForSettingsFilesOfBareNames) {
  component.PinGroupRoot(u"D:\\Media");
  platform->AddFile(u"D:\\Media\\KVs\\a.ini", "[s]\r\n");
  ProfileFile file(component);
  EXPECT_TRUE(file.OpenFile(u"a.ini"));
  EXPECT_TRUE(file.Exists());
}

}  // namespace
}  // namespace norvo
