#include "machines/SparedMachine.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "machines/MachineFoldersTest.h"
#include "platform/hosted/HostedPlatform.h"
#include "support/MemoryPlatform.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

class SparedMachineTest : public ::testing::Test {
 protected:
  SparedMachineTest() {
    machine->AddFile(u"C:\\Music\\Mix.m3u", "mix");
    machine->AddFile(u"C:\\Move\\C\\Mix.m3u", "moved");
  }
  std::shared_ptr<Platform> Spare(StringView hidden) {
    return SparedMachine(machine, std::vector<String>{String(hidden)});
  }
  static Lines Names(Platform& of, StringView folder) {
    Lines names;
    for (const FolderItem& item : of.Files().ListFolder(folder, {})) {
      names.push_back(Utf8(item.name));
    }
    std::sort(names.begin(), names.end());
    return names;
  }

  std::shared_ptr<MemoryPlatform> machine = std::make_shared<MemoryPlatform>();
};

class Found final : public ScanVisitor {
 public:
  bool EnterFolder(StringView) override { return true; }
  void VisitFile(StringView folder, StringView name) override {
    files.push_back(Utf8(folder) + '|' + Utf8(name));
  }
  void CannotList(StringView, StringView) override {}

  Lines files;
};

TEST_F(SparedMachineTest, ShowsTheMachineWithoutTheHiddenFolder) {
  for (const StringView hidden : {u"C:\\Move", u"c:\\MOVE"}) {
    const auto spared = Spare(hidden);
    EXPECT_EQ(Names(*spared, u"C:\\"), Lines{"Music"}) << Utf8(hidden);
    EXPECT_EQ(Names(*spared, u"C:"), Lines{"Music"}) << Utf8(hidden);
    EXPECT_EQ(Names(*spared, u"C:\\Move"), Lines{"C"}) << "a path leads there all the same";
    Found found;
    spared->Scanner()->Scan(std::vector<StringView>{u".m3u"}, found);
    EXPECT_EQ(found.files, Lines{"C:\\Music|Mix.m3u"}) << Utf8(hidden);
  }
}

TEST_F(SparedMachineTest, TheRootOfADriveMayBeHidden) {
  for (const StringView root : {u"D:\\", u"d:\\"}) {
    machine->AddDrive(u'D', DriveType::Fixed);
    machine->AddFile(u"D:\\Mix.m3u", "moved");
    const auto spared = Spare(root);
    Found found;
    spared->Scanner()->Scan(std::vector<StringView>{u".m3u"}, found);
    EXPECT_EQ(found.files, (Lines{"C:\\Move\\C|Mix.m3u", "C:\\Music|Mix.m3u"})) << Utf8(root);
    EXPECT_TRUE(spared->Files().FileExists(u"D:\\Mix.m3u"));
  }
}

TEST_F(SparedMachineTest, WithoutAFolderToHideItShowsAll) {
  EXPECT_EQ(Names(*SparedMachine(machine, {}), u"C:\\"), (Lines{"Move", "Music"}));
}

TEST_F(SparedMachineTest, SeveralFoldersMayBeHidden) {
  const std::vector<String> hidden{u"C:\\Move", u"C:\\Music"};
  const auto spared = SparedMachine(machine, hidden);
  EXPECT_EQ(Names(*spared, u"C:\\"), Lines());
  EXPECT_TRUE(spared->Files().FileExists(u"C:\\Music\\Mix.m3u"));
}

TEST_F(SparedMachineTest, OfFoldersOfOneNameOnlyTheNamedOneIsHidden) {
  machine->AddFile(u"C:\\Music\\Move\\a.m3u", "");
  EXPECT_EQ(Names(*Spare(u"C:\\Move"), u"C:\\Music"), (Lines{"Mix.m3u", "Move"}));
}

TEST_F(SparedMachineTest, WhatIsWrittenStaysInMemory) {
  const auto spared = Spare(u"C:\\Move");
  spared->Settings().Write(u"C:\\Music\\New.ini", "new");
  spared->Files().CreateFolder(u"C:\\Other");
  EXPECT_TRUE(spared->Registry().CreateKey(Hive::LocalMachine, u"SOFTWARE\\Norvo"));
  EXPECT_TRUE(spared->Registry().Write(Hive::LocalMachine, u"SOFTWARE\\Norvo", u"a", String(u"b")));
  EXPECT_EQ(spared->Settings().Read(u"C:\\Music\\New.ini"), "new");
  EXPECT_TRUE(spared->Files().FolderExists(u"C:\\Other"));
  EXPECT_TRUE(spared->Registry().Read(Hive::LocalMachine, u"SOFTWARE\\Norvo", u"a"));
  EXPECT_FALSE(machine->Files().FileExists(u"C:\\Music\\New.ini"));
  EXPECT_FALSE(machine->Files().FolderExists(u"C:\\Other"));
  EXPECT_FALSE(machine->Registry().KeyExists(Hive::LocalMachine, u"SOFTWARE\\Norvo"));
}

/// On a disk.
class SparedDiskTest : public MachineFoldersTest {};

TEST_F(SparedDiskTest, TheMachineTellsItsOddities) {
  Put(At("disk/bad\xFF.mp3"), "");
  HostedLayout layout;
  layout.drives.push_back({u'C', DriveType::Fixed, At("disk")});
  const auto spared = SparedMachine(std::make_shared<HostedPlatform>(std::move(layout)), {});
  Lines told;
  spared->SetWarningSink([&told](StringView line, WarningWeight) { told.push_back(Utf8(line)); });
  EXPECT_TRUE(spared->Files().ListFolder(u"C:\\", {}).empty());
  EXPECT_EQ(told.size(), 1u);
}

}  // namespace
}  // namespace norvo
