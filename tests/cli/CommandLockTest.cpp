#include <chrono>
#include <memory>
#include <thread>

#include "cli/ProgramFixture.h"
#include "platform/files/FileLock.h"

namespace norvo::cli {
namespace {

/// Commands on a machine that somebody else works on.
class CommandLockTest : public ProgramTest {
 protected:
  void SetUp() override {
    ProgramTest::SetUp();
    WriteMix();
    ASSERT_EQ(Init().code, 0);
    other_ = std::make_unique<FileLock>(std::move(*OpenRoot(Machine())), ".norvo-playlists.lock");
    ASSERT_TRUE(other_->Take(false));
  }
  std::string Holder() const { return ReadFile(Place(".norvo-playlists.lock")); }
  void OtherIsDone() { other_.reset(); }

 private:
  std::unique_ptr<FileLock> other_;
};

TEST_F(CommandLockTest, CommandsThatWriteEndAtOnceAndSayWhoWorksOnIt) {
  const auto before = Snapshot(Machine());
  for (const char* const command : {"init", "scan", "collect", "restore"}) {
    const Outcome outcome = RunProgram({command, "--machine", Machine()});
    EXPECT_EQ(outcome.code, 2) << command;
    EXPECT_EQ(outcome.err, "norvo-playlists: " + Machine() + " is being worked on by " + Holder() +
                               ". Try again when that is done, or let this run wait for it with "
                               "--wait.\n");
  }
  EXPECT_EQ(Snapshot(Machine()), before);
}

TEST_F(CommandLockTest, CommandsThatOnlyReadNeedNoLock) {
  const Outcome shown = RunProgram({"show", "--machine", Machine(), R"(C:\Music\Mix.m3u)"});
  EXPECT_TRUE(Holds(shown.out, "Ann")) << shown.err;
  EXPECT_FALSE(Holds(shown.err, "is being worked on")) << shown.err;
  const Outcome verified = RunProgram({"verify", "--machine", Machine(), R"(C:\Music\Mix.m3u)"});
  EXPECT_FALSE(Holds(verified.err, "is being worked on")) << verified.err;
}

TEST_F(CommandLockTest, WithWaitACommandSaysForWhomAndGoesOnWhenThatIsDone) {
  const std::string holder = Holder();
  Outcome outcome;
  std::thread waiting([&] { outcome = RunProgram({"collect", "--machine", Machine(), "--wait"}); });
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_FALSE(fs::exists(DataArea() / "Mix.ini"));
  OtherIsDone();
  waiting.join();
  EXPECT_TRUE(Holds(outcome.err, Machine() + " is being worked on by " + holder +
                                     "; waiting until that is done."))
      << outcome.err;
  EXPECT_TRUE(fs::exists(DataArea() / "Mix.ini"));
  EXPECT_FALSE(fs::exists(Place(".norvo-playlists.lock")));
}

}  // namespace
}  // namespace norvo::cli
