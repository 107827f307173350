#include "cli/FolderWords.h"

#include <gtest/gtest.h>

namespace norvo::cli {
namespace {

using Kind = TakenFolder::Kind;

TEST(FolderWords, TellWhatAFolderWasTakenAsAndWhy) {
  EXPECT_EQ(TextOf({"/mnt/new", Kind::WindowsDisk, u'C', "/mnt/new", "WINDOWS"}),
            "C: = /mnt/new (WINDOWS found)");
  EXPECT_EQ(TextOf({"/mnt/new", Kind::OtherDisk, u'C', "/mnt/new", {}}),
            "C: = /mnt/new (no machine found, so it is taken as a disk)");
  EXPECT_EQ(TextOf({"/mnt/new", Kind::NamedDrive, u'D', "/mnt/new", {}}),
            "D: = /mnt/new (as asked for)");
  EXPECT_EQ(TextOf({"/mnt/new", Kind::MadeMachine, u'C', "/mnt/new/C", {}}),
            "C: = /mnt/new/C (drives and registry.reg found)");
  EXPECT_EQ(TextOf({"/mnt/new", Kind::DrivesAlone, u'C', "/mnt/new/C", {}}),
            "C: = /mnt/new/C (drives found, and nothing else)");
  EXPECT_EQ(TextOf({"/mnt/new", Kind::Empty, u'C', "/mnt/new/C", {}}),
            "C: = /mnt/new/C (the folder was empty, so a machine is made there)");
}

TEST(FolderWords, AreNoneWhereItCannotBeMeantOtherwise) {
  EXPECT_EQ(TextOf({"new", Kind::DescribedMachine, u'C', "new/C", {}}), "");
  EXPECT_EQ(TextOf({"new", Kind::Missing, u'C', "new/C", {}}), "");
}

}  // namespace
}  // namespace norvo::cli
