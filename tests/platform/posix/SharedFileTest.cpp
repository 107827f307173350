#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <thread>

#include "platform/hosted/HostedFileSystem.h"
#include "support/ChildProcess.h"
#include "support/TestMachine.h"
#include "text/Number.h"

namespace norvo {
namespace {

using SharedFileOfProcessesTest = TestMachine;

/// Adds records of its own and some that both have, flushed one by one, as a process of its own.
void AddRecordsInAProcess(const std::filesystem::path& folder, StringView own) {
  const int answer = ExitOfChild([&] {
    HostedPlatform machine(folder);
    MigrationList& list = machine.Migration();
    bool isWritten = list.EnsureGroup(u"Group", u"C:\\Root");
    for (std::int32_t i = 0; i < 10; ++i) {
      list.Add({String(own) + FormatInteger(i), u"x", u"Cat"});
      list.Add({u"both" + FormatInteger(i), u"x", u"Cat"});
      isWritten = list.Flush() && isWritten;
    }
    return isWritten ? 0 : 1;
  });
  EXPECT_EQ(answer, 0);
}

TEST_F(SharedFileOfProcessesTest, TwoThatBeginOneMediaListLeaveEachRecordOnce) {
  for (int round = 0; round < 30; ++round) {
    std::filesystem::remove_all(Disk("C/Root"));
    std::thread first(AddRecordsInAProcess, Disk(""), u"a");
    std::thread second(AddRecordsInAProcess, Disk(""), u"b");
    first.join();
    second.join();
    const std::string bytes = Get(Disk("C/Root/KVs/MediaList.txt"));
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 30) << bytes;
  }
}

/// As when the system fails to close it.
TEST_F(SharedFileOfProcessesTest, AFileThatWasGivenBackIsFreeThoughSomebodyStillHasItOpen) {
  std::unique_ptr<SharedFile> file = Machine().HostedFiles().OpenShared(u"C:\\list.txt");
  const pid_t child = ::fork();  // has what is open, with its lock
  if (child == 0) {
    ::pause();
    ::_exit(0);
  }
  const int other = ::open(Disk("C/list.txt").c_str(), O_RDWR | O_CLOEXEC);
  EXPECT_NE(::flock(other, LOCK_EX | LOCK_NB), 0);
  file.reset();
  EXPECT_EQ(::flock(other, LOCK_EX | LOCK_NB), 0);
  ::close(other);
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
}

}  // namespace
}  // namespace norvo
