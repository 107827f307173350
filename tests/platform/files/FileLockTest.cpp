#include "platform/files/FileLock.h"

#include <unistd.h>

#include <chrono>
#include <memory>
#include <thread>

#include "platform/files/FilesTest.h"

namespace norvo {
namespace {

class FileLockTest : public FilesTest {
 protected:
  SystemFile Folder() const {
    FileResult<SystemFile> folder = OpenBeneath(Root(), "", OpenMode::Start);
    EXPECT_TRUE(folder);
    return folder ? std::move(*folder) : SystemFile();
  }
  FileLock NewLock() const { return {Folder(), "lock"}; }
};

TEST_F(FileLockTest, TheFileIsThereAsLongAsTheLockAndTellsWhoHasItSinceWhen) {
  {
    FileLock lock = NewLock();
    EXPECT_EQ(NamesIn(""), "");
    EXPECT_TRUE(lock.Take(false));
    EXPECT_EQ(NamesIn(""), "Flock ");
    const std::string text = Get(At("lock"));
    EXPECT_EQ(text.find(ThisProcess() + " since 20"), 0u) << text;
    EXPECT_EQ(text.size(), (ThisProcess() + " since 2026-11-22 14:05").size()) << text;
  }
  EXPECT_EQ(NamesIn(""), "");
}

TEST_F(FileLockTest, TheProcessIsToldByItsProgramItsNumberAndItsUser) {
  const std::string text = ThisProcess();
  EXPECT_NE(text.find("tests (process " + std::to_string(::getpid()) + " of "), std::string::npos)
      << text;
  EXPECT_NE(text.find(" on "), std::string::npos) << text;
}

TEST_F(FileLockTest, ASecondOneIsTurnedDownAndHearsOfTheFirst) {
  FileLock first = NewLock();
  ASSERT_TRUE(first.Take(false));
  {
    FileLock second = NewLock();
    EXPECT_FALSE(second.Take(false));
    EXPECT_EQ(second.Holder(), Get(At("lock")));
  }
  EXPECT_EQ(NamesIn(""), "Flock ") << "who has not got it does not remove it";
}

TEST_F(FileLockTest, AfterTheFirstASecondOneGetsIt) {
  { EXPECT_TRUE(NewLock().Take(false)); }
  FileLock second = NewLock();
  EXPECT_TRUE(second.Take(false));
  EXPECT_EQ(NamesIn(""), "Flock ");
}

TEST_F(FileLockTest, ASecondOneThatIsToWaitGetsItWhenTheFirstIsDone) {
  auto first = std::make_unique<FileLock>(Folder(), "lock");
  ASSERT_TRUE(first->Take(false));
  std::thread waiting([&] {
    FileLock second = NewLock();
    EXPECT_TRUE(second.Take(true));
    EXPECT_EQ(NamesIn(""), "Flock ") << "the first has removed its own only";
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  first.reset();
  waiting.join();
  EXPECT_EQ(NamesIn(""), "");
}

TEST_F(FileLockTest, WhereNoneCanBeMadeNobodyIsKeptOut) {
  std::filesystem::create_directories(At("lock"));
  EXPECT_TRUE(NewLock().Take(false)) << "a folder has the name";
  EXPECT_EQ(NamesIn(""), "Dlock ");
}

TEST_F(FileLockTest, ALinkOfThatNameIsNotFollowed) {
  NEEDS_LINKS();
  Put(Beside("file"), "another's");
  MakeFileLink(Beside("file"), At("lock"));
  EXPECT_TRUE(NewLock().Take(false));
  EXPECT_EQ(NamesIn(""), "Llock ");
  EXPECT_EQ(Get(Beside("file")), "another's");
}

}  // namespace
}  // namespace norvo
