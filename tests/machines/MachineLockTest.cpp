#include "machines/MachineLock.h"

#include <memory>

#include "machines/FolderMove.h"
#include "machines/MachineFoldersTest.h"

namespace norvo {
namespace {

class MachineLockTest : public MachineFoldersTest {
 protected:
  /// A lock that somebody else has.
  FileLock Others(const std::string& folder) const {
    return {std::move(*OpenRoot(At(folder).string())), ".norvo-playlists.lock"};
  }
  FolderMove Folders() const {
    FolderMove folders;
    folders.from = At("disk");
    folders.to = At("new");
    return folders;
  }
  static void Move(const FolderMove& folders, bool dryRun = false) {
    WorkObserver nobody;
    MoveOptions options;
    options.dryRun = dryRun;
    MovePlaylists(folders, options, nobody);
  }
  /// A move is refused while somebody else works in that folder, and says who.
  void ExpectRefused(const FolderMove& folders, const std::string& locked) const {
    FileLock other = Others(locked);
    ASSERT_TRUE(other.Take(false));
    const std::string holder = Get(At(locked) / ".norvo-playlists.lock");
    ExpectError(ErrorOf([&] { Move(folders); }), MoveFault::MachineBusy, At(locked).string(),
                holder);
  }
};

TEST_F(MachineLockTest, AFolderThatIsMissingIsMadeAndGoesWhenItStaysEmpty) {
  { const MachineLock lock(At("Norvo"), {}); }
  EXPECT_FALSE(fs::exists(At("Norvo")));
  {
    const MachineLock lock(At("Norvo"), {});
    Put(At("Norvo") / "registry.reg", "x");
  }
  EXPECT_EQ(Tree(At("")).size(), 2u);
}

TEST_F(MachineLockTest, AnEmptyFolderThatWasThereStays) {
  fs::create_directories(At("Norvo"));
  { const MachineLock lock(At("Norvo"), {}); }
  EXPECT_TRUE(fs::exists(At("Norvo")));
}

TEST_F(MachineLockTest, AMoveToAMachineThatIsWorkedOnEndsAtOnceAndSaysByWhom) {
  PutDisk("disk");
  fs::create_directories(At("new/C"));
  ExpectRefused(Folders(), "new");
  EXPECT_EQ(Tree(At("new")).size(), 1u) << "nothing was written";
}

TEST_F(MachineLockTest, ADryRunNeedsNoLock) {
  PutDisk("disk");
  fs::create_directories(At("new/C"));
  FileLock other = Others("new");
  ASSERT_TRUE(other.Take(false));
  EXPECT_NO_THROW(Move(Folders(), true));
}

TEST_F(MachineLockTest, AnOldMachineThatIsWrittenToIsLockedAsWell) {
  PutDisk("disk/C");
  ExpectRefused(Folders(), "disk");
}

TEST_F(MachineLockTest, AWorkFolderIsLockedInsteadOfTheOldMachine) {
  PutDisk("disk/C");
  fs::create_directories(At("work"));
  FileLock onOld = Others("disk");
  ASSERT_TRUE(onOld.Take(false));
  FolderMove folders = Folders();
  folders.work = At("work");
  EXPECT_NO_THROW(Move(folders));
  ExpectRefused(folders, "work");
}

TEST_F(MachineLockTest, WhoWaitsHearsForWhom) {
  PutDisk("disk");
  fs::create_directories(At("new/C"));
  std::unique_ptr<FileLock> other(new FileLock(Others("new")));
  ASSERT_TRUE(other->Take(false));
  std::string heard;
  FolderMove folders = Folders();
  folders.lock.wait = true;
  folders.lock.onWaiting = [&](const std::string& folder, const std::string& holder) {
    heard = folder + ": " + holder;
    other.reset();
  };
  const std::string holder = Get(At("new/.norvo-playlists.lock"));
  Move(folders);
  EXPECT_EQ(heard, At("new").string() + ": " + holder);
  EXPECT_TRUE(fs::exists(At("new/registry.reg")));
  EXPECT_FALSE(fs::exists(At("new/.norvo-playlists.lock")));
}

TEST_F(MachineLockTest, OfADiskTheProductsFolderIsLocked) {
  PutDisk("disk");
  PutDisk("newdisk");
  fs::create_directories(At("newdisk/Norvo"));
  FolderMove folders = Folders();
  folders.to = At("newdisk");
  ExpectRefused(folders, "newdisk/Norvo");
}

}  // namespace
}  // namespace norvo
