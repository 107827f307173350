#include "platform/files/FileLock.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "platform/files/FilesTest.h"

namespace norvo {
namespace {

class LockOnPosixTest : public FilesTest {
 protected:
  SystemFile Folder() const { return std::move(*OpenBeneath(Root(), "", OpenMode::Start)); }
};

TEST_F(LockOnPosixTest, AKilledProcessLeavesAFileThatCountsForNothing) {
  const pid_t child = ::fork();
  if (child == 0) {
    FileLock lock(Folder(), "lock");
    lock.Take(false);
    ::kill(::getpid(), SIGKILL);
  }
  int status = 0;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_EQ(NamesIn(""), "Flock ");
  const std::string left = Get(At("lock"));
  {
    FileLock lock(Folder(), "lock");
    EXPECT_TRUE(lock.Take(false));
    EXPECT_NE(Get(At("lock")), left);
    EXPECT_EQ(Get(At("lock")).find(ThisProcess()), 0u);
  }
  EXPECT_EQ(NamesIn(""), "");
}

TEST_F(LockOnPosixTest, APipeOfThatNameDoesNotBlock) {
  ASSERT_EQ(::mkfifo(At("lock").c_str(), 0600), 0);
  EXPECT_TRUE(FileLock(Folder(), "lock").Take(true));
  EXPECT_EQ(NamesIn(""), "Olock ");
}

}  // namespace
}  // namespace norvo
