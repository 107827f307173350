#include "platform/files/ReplaceWhole.h"

#include "platform/files/FilesTest.h"
#include "platform/files/TemporaryFile.h"

namespace norvo {
namespace {

using ReplaceWholeTest = FilesTest;

TEST_F(ReplaceWholeTest, AFileIsMadeOrReplacedAndNothingIsLeftOver) {
  EXPECT_FALSE(ReplaceWhole(Root(), "a.ini", "first, and longer"));
  EXPECT_EQ(Get(At("a.ini")), "first, and longer");
  EXPECT_FALSE(ReplaceWhole(Root(), "a.ini", "second"));
  EXPECT_EQ(Get(At("a.ini")), "second");
  EXPECT_EQ(NamesIn(""), "Fa.ini ");
}

TEST_F(ReplaceWholeTest, AReadOnlyFileIsReplacedAndStaysOne) {
  Put(At("a.ini"), "old");
  std::filesystem::permissions(At("a.ini"), std::filesystem::perms(0444));
  EXPECT_FALSE(ReplaceWhole(Root(), "a.ini", "new"));
  EXPECT_EQ(Get(At("a.ini")), "new");
  EXPECT_EQ(LookUp(Root(), "a.ini")->permissions, 0444u);
}

TEST_F(ReplaceWholeTest, WhatAStoppedProcessLeftBehindIsTakenOver) {
  Put(At(TemporaryPath("a.ini")), "half");
  EXPECT_FALSE(ReplaceWhole(Root(), "a.ini", "whole"));
  EXPECT_EQ(Get(At("a.ini")), "whole");
  EXPECT_EQ(NamesIn(""), "Fa.ini ");
}

TEST_F(ReplaceWholeTest, WhenItFailsAllIsAsItWas) {
  std::filesystem::create_directories(At("folder/full"));
  EXPECT_TRUE(ReplaceWhole(Root(), "folder", "x"));
  EXPECT_EQ(ReplaceWhole(Root(), "missing/a.ini", "x").kind, Kind::NotFound);
  EXPECT_EQ(NamesIn(""), "Dfolder ");
}

TEST_F(ReplaceWholeTest, ALongNameHasATemporaryOneToo) {
  const std::string name(255, 'n');
  EXPECT_EQ(ParentOf(TemporaryPath("folder/" + name)), "folder");
  EXPECT_FALSE(ReplaceWhole(Root(), name, "x"));
  EXPECT_EQ(NamesIn(""), "F" + name + " ");
}

}  // namespace
}  // namespace norvo
