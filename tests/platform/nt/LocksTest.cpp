#include <stdlib.h>

#include <chrono>
#include <thread>

#include "platform/files/FileBytes.h"
#include "platform/files/FileLock.h"
#include "platform/files/FilesTest.h"
#include "platform/nt/Handle.h"
#include "support/windows/OwnProgram.h"

namespace norvo {
namespace {

constexpr const wchar_t* kFolder = L"NORVO_TEST_LOCK_FOLDER";

class LocksTest : public FilesTest {
 protected:
  SystemFile Folder() const { return std::move(*OpenBeneath(Root(), "", OpenMode::Start)); }

  /// Another process, which has taken the lock by the time that this is back.
  OwnProgram StartHolder() const {
    ::SetEnvironmentVariableW(kFolder, At("").c_str());
    OwnProgram holder("LockHolder.DISABLED_HoldsTheLockUntilItIsEnded");
    for (int i = 0; i < 600 && Get(At("lock")).empty(); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return holder;
  }
};

/// No test of its own: what the other process of the others does.
TEST(LockHolder, DISABLED_HoldsTheLockUntilItIsEnded) {
  const wchar_t* const folder = ::_wgetenv(kFolder);
  ASSERT_NE(folder, nullptr);
  FileLock lock(std::move(*OpenRoot(ToDiskPath(folder))), "lock");
  ASSERT_TRUE(lock.Take(false));
  std::this_thread::sleep_for(std::chrono::minutes(1));
}

TEST_F(LocksTest, AnotherProcessKeepsItFromThisOneAndTellsWhoItIs) {
  OwnProgram holder = StartHolder();
  FileLock lock(Folder(), "lock");
  EXPECT_FALSE(lock.Take(false));
  const std::string number = "(process " + std::to_string(holder.Number()) + " of ";
  EXPECT_NE(lock.Holder().find(number), std::string::npos) << lock.Holder();
}

TEST_F(LocksTest, AKilledProcessLeavesAFileThatCountsForNothing) {
  { OwnProgram holder = StartHolder(); }
  const std::string left = Get(At("lock"));
  ASSERT_NE(left, "");
  {
    FileLock lock(Folder(), "lock");
    EXPECT_TRUE(lock.Take(false));
    EXPECT_NE(Get(At("lock")), left);
    EXPECT_EQ(Get(At("lock")).find(ThisProcess()), 0u);
  }
  EXPECT_EQ(NamesIn(""), "");
}

TEST_F(LocksTest, WaitingForAProcessEndsWithIt) {
  OwnProgram holder = StartHolder();
  std::thread killer([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    holder.Kill();
  });
  FileLock lock(Folder(), "lock");
  EXPECT_TRUE(lock.Take(true));
  EXPECT_EQ(Get(At("lock")).find(ThisProcess()), 0u);
  killer.join();
}

TEST_F(LocksTest, ALockedFileCanBeReadWrittenAndLookedUp) {
  Put(At("a"), "text");
  const FileResult<SystemFile> locked = OpenBeneath(Root(), "a", OpenMode::Append);
  ASSERT_EQ(LockFile(*locked, false), LockAnswer::Taken);
  EXPECT_EQ(*ReadWhole(Open("a"), 100), "text");
  EXPECT_FALSE(WriteAll(*OpenBeneath(Root(), "a", OpenMode::Append), " and more"));
  EXPECT_EQ(LookUp(Root(), "a")->size, 13u);
  EXPECT_EQ(LockFile(Open("a"), false), LockAnswer::Busy);
}

TEST_F(LocksTest, WhatIsNoFileIsNotLocked) {
  EXPECT_EQ(LockFile(SystemFile(), false), LockAnswer::Refused);
}

}  // namespace
}  // namespace norvo
