#include "readahead/DriveRoots.h"

#include <gtest/gtest.h>

#include "support/TestMachine.h"

namespace norvo {
namespace {

using FailureKind = FileFailure::Kind;

class DriveRootsTest : public TestMachine {
 protected:
  FailureKind FailureFor(StringView path) {
    const DriveRoots roots(Machine().DriveFolders());
    return roots.Open(path, OpenMode::Read).Failure().kind;
  }
};

TEST_F(DriveRootsTest, APathThatIsSpelledAsOnTheDiskIsOpened) {
  Put(Disk("C/Music/Stra\xC3\x9F"
           "e.mp3"),
      "x");
  EXPECT_EQ(FailureFor(u"C:\\Music\\Stra\u00DFe.mp3"), FailureKind::None);
  EXPECT_EQ(FailureFor(u"c:\\Music\\Stra\u00DFe.mp3"), FailureKind::None);
}

TEST_F(DriveRootsTest, WhatIsMissingOrSpelledOtherwiseIsNotFound) {
  Put(Disk("C/Music/a.mp3"), "x");
  for (const StringView path : {u"C:\\music\\a.mp3", u"D:\\Music\\a.mp3", u"", u"Music\\a.mp3",
                                u"C:\\Music\\..\\Music\\a.mp3"}) {
    EXPECT_EQ(FailureFor(path), FailureKind::NotFound) << ToUtf8(path);
  }
}

TEST_F(DriveRootsTest, NoLinkIsFollowed) {
  Put(Outside("secret/a.mp3"), "x");
  std::filesystem::create_symlink(Outside("secret"), Disk("C/Music"));
  EXPECT_NE(FailureFor(u"C:\\Music\\a.mp3"), FailureKind::None);
}

}  // namespace
}  // namespace norvo
