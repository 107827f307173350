#include "machines/FoldersApart.h"

#include "machines/MachineFoldersTest.h"

namespace norvo {
namespace {

class FoldersApartTest : public MachineFoldersTest {
 protected:
  FolderMove Folders(const std::string& from, const std::string& to,
                     const std::string& work = {}) const {
    FolderMove folders;
    folders.from = At(from);
    folders.to = At(to);
    if (!work.empty()) folders.work = At(work);
    return folders;
  }
  void ExpectOverlap(const FolderMove& folders, const std::string& one, const std::string& other) {
    ExpectError(ErrorOf([&] { RequireApart(folders); }), MoveFault::FoldersOverlap, one, other);
  }

  const std::string kFrom = "the old machine's folder";
  const std::string kTo = "the new machine's folder";
  const std::string kWork = "the work folder";
};

TEST_F(FoldersApartTest, FoldersBesideEachOtherAreAllowedWhetherTheyExistOrNot) {
  EXPECT_NO_THROW(RequireApart(Folders("old", "new", "work")));
  PutDisk("old/C");
  PutDisk("new/C");
  EXPECT_NO_THROW(RequireApart(Folders("old", "new", "work")));
  EXPECT_NO_THROW(RequireApart(Folders("old", "older")));
}

TEST_F(FoldersApartTest, NoTwoMayLieInEachOther) {
  fs::create_directories(At("a/b"));
  for (const auto& [one, other] : {std::pair{"a", "a"}, std::pair{"a", "a/b"},
                                   std::pair{"a/b", "a"}, std::pair{"a/", "a/b/../c"}}) {
    ExpectOverlap(Folders(one, other), kFrom, kTo);
    ExpectOverlap(Folders(one, "x", other), kFrom, kWork);
    ExpectOverlap(Folders("x", one, other), kTo, kWork);
  }
}

TEST_F(FoldersApartTest, LinksAreFollowed) {
  fs::create_directories(At("a/b"));
  fs::create_directory_symlink(At("a/b"), At("link"));
  ExpectOverlap(Folders("a", "link/new"), kFrom, kTo);
}

TEST_F(FoldersApartTest, TheyAreCalledAsTheCallerCallsThem) {
  FolderMove folders = Folders("a", "a/b");
  folders.names = {"--from", "--to", "--work"};
  ExpectOverlap(folders, "--from", "--to");
}

TEST_F(FoldersApartTest, ADriveOfTheOldMachineMayNotHoldTheNewOne) {
  fs::create_directories(At("disk/new"));
  Put(At("old/machine.ini"), "[Drives]\r\nC=fixed\r\nD=fixed," + At("disk").string() + "\r\n");
  ExpectOverlap(Folders("old", "disk/new"),
                "drive D of " + kFrom + " (" + At("disk").string() + ")", kTo);
}

TEST_F(FoldersApartTest, ADriveThatIsWrittenMayNotBeOneThatIsScanned) {
  fs::create_directories(At("disk"));
  const std::string drives = "[Drives]\r\nC=fixed," + At("disk").string() + "\r\n";
  Put(At("old/machine.ini"), drives);
  Put(At("new/machine.ini"), drives);
  const std::string place = " (" + At("disk").string() + ")";
  ExpectOverlap(Folders("old", "new"), "drive C of " + kFrom + place, "drive C of " + kTo + place);
}

TEST_F(FoldersApartTest, ADiskThatMovedAlongMayBeAnotherDriveOfBoth) {
  fs::create_directories(At("disk"));
  const std::string drives = "[Drives]\r\nC=fixed\r\nD=fixed," + At("disk").string() + "\r\n";
  Put(At("old/machine.ini"), drives);
  Put(At("new/machine.ini"), drives);
  EXPECT_NO_THROW(RequireApart(Folders("old", "new")));
}

TEST_F(FoldersApartTest, ADriveThatTakesWhatIsWishedForIsWrittenToo) {
  fs::create_directories(At("disk"));
  const std::string drives = "[Drives]\r\nC=fixed\r\nD=fixed," + At("disk").string() + "\r\n";
  Put(At("old/machine.ini"), drives);
  Put(At("new/machine.ini"), drives);
  const std::string place = " (" + At("disk").string() + ")";
  FolderMove folders = Folders("old", "new");
  folders.groupRoot = "D:\\Media";
  ExpectOverlap(folders, "drive D of " + kFrom + place, "drive D of " + kTo + place);
  folders.groupRoot = {};
  folders.documents = "d:\\Mine";
  ExpectOverlap(folders, "drive D of " + kFrom + place, "drive D of " + kTo + place);
}

TEST_F(FoldersApartTest, ADiskIsOneFolderWhateverDrivesItsFoldersLookLike) {
  PutDisk("disk/C");
  PutDisk("disk/Windows");
  EXPECT_NO_THROW(RequireApart(Folders("disk", "new")));
  ExpectOverlap(Folders("disk", "disk/C"), kFrom, kTo);
}

TEST_F(FoldersApartTest, NothingIsChanged) {
  PutDisk("old/C");
  fs::create_directories(At("new/C"));
  const auto before = Tree(At(""));
  RequireApart(Folders("old", "new", "work"));
  EXPECT_EQ(Tree(At("")), before);
}

}  // namespace
}  // namespace norvo
