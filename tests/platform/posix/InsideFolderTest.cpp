// What Linux alone has: a call that opens a path at one stroke, and a way to refuse it.

#ifdef __linux__

#include "platform/posix/InsideFolder.h"

#include <stdio.h>
#include <sys/syscall.h>

#include <atomic>
#include <cerrno>
#include <functional>
#include <thread>

#include "platform/files/FilesTest.h"
#include "platform/files/NewFile.h"
#include "platform/files/ReplaceWhole.h"
#include "support/ChildProcess.h"
#include "support/RefusedCalls.h"

namespace norvo {
namespace {

class InsideFolderTest : public FilesTest {
 protected:
  /// Does the work, and does it again in processes that are refused the call in each way that a
  /// system may refuse it.
  void WithAndWithoutOneStroke(const std::function<void()>& work) {
    work();
    for (const int reason : {ENOSYS, EPERM, EINVAL, E2BIG, EAGAIN}) {
      const int result = ExitOfChild([&] {
        if (!RefuseCalls({{SYS_openat2, static_cast<std::uint32_t>(reason)}})) return kSkip;
        work();
        return HasFailure() ? 1 : 0;
      });
      if (result == kSkip) GTEST_SKIP() << "no call can be refused here";
      EXPECT_EQ(result, 0) << "refused by " << reason;
    }
  }

  /// Everything that changes something, tried below "in".
  void ChangeAll(int round) {
    const std::string number = std::to_string(round);
    MakeFolder(Root(), "in/folder" + number);
    MakeFolder(Root(), "in/sub/folder" + number);
    CreateNew(Root(), "in/new" + number, 0666);
    ReplaceWhole(Root(), "in/replaced", number);
    RenameNew(Root(), "in/new" + number, "in/sub" + number);
    RenameOver(Root(), "in/new" + number, "in/victim");
    RemoveFile(Root(), "in/victim");
    LinkFile(Open("own"), Root(), "own", Root(), "in/linked" + number);
    LastFolder folders, now;
    FileResult<NewFile> file = NewFile::At(Root(), "in/put" + number, 0666, folders);
    if (file) file->PutInPlace(now);
    OpenBeneath(Root(), "in/log" + number, OpenMode::CreateForAppending);
  }

  /// All that stands beside the root, with its content.
  std::string AllBeside() const {
    std::vector<std::string> rows;
    for (const auto& each : std::filesystem::recursive_directory_iterator(Beside(""))) {
      const bool isFile = each.is_regular_file();
      rows.push_back(each.path().string() + (isFile ? " " + Get(each.path()) : "") + "\n");
    }
    std::sort(rows.begin(), rows.end());
    std::string all;
    for (const std::string& row : rows) all += row;
    return all;
  }
};

TEST_F(InsideFolderTest, PathsAreOpenedAndChangedWhateverTheSystemRefuses) {
  WithAndWithoutOneStroke([this] {
    std::filesystem::remove_all(At("a"));
    Put(At("a/b/c/file"), "x");
    EXPECT_EQ(LookUp(Open("a/b/c/file"))->size, 1u);
    EXPECT_EQ(LookUp(Root(), "a/b/c/file")->size, 1u);
    EXPECT_EQ(LookUp(Root(), "")->kind, FileRecord::Kind::Folder);
    EXPECT_EQ(NamesIn("a/b/c"), "Ffile ");
    EXPECT_FALSE(MakeFolder(Root(), "a/b/d"));
    EXPECT_TRUE(CreateNew(Root(), "a/b/d/new", 0666));
    EXPECT_FALSE(RenameNew(Root(), "a/b/d/new", "a/b/d/newer"));
    EXPECT_FALSE(RenameOver(Root(), "a/b/d/newer", "a/b/d/newest"));
    EXPECT_EQ(NamesIn("a/b/d"), "Fnewest ");
    EXPECT_FALSE(RemoveFile(Root(), "a/b/d/newest"));
    EXPECT_FALSE(ReplaceWhole(Root(), "a/b/d/whole", "x"));
    LastFolder folders;
    EXPECT_FALSE(NewFile::At(Root(), "a/b/d/put", 0666, folders)->PutInPlace(folders));
    EXPECT_EQ(NamesIn("a/b/d"), "Fput Fwhole ");
    EXPECT_EQ(WhyNotOpen("a/x/file", OpenMode::Read), Kind::NotFound);
    EXPECT_EQ(LookUp(Root(), "a/x/file").Failure().kind, Kind::NotFound);
    EXPECT_EQ(WhyNotOpen("a/b/c/file/x", OpenMode::Read), Kind::NotAFolder);
    EXPECT_EQ(MakeFolder(Root(), "a/b/c/file/x").kind, Kind::NotAFolder);
    EXPECT_EQ(MakeFolder(Root(), "a/b/c").kind, Kind::AlreadyExists);
    EXPECT_EQ(CreateNew(Root(), "a/b/c/file", 0666).Failure().kind, Kind::AlreadyExists);
  });
}

TEST_F(InsideFolderTest, NoLinkIsFollowedWhereverItStandsInThePath) {
  Put(Beside("sub/victim"), "secret");
  Put(Beside("victim"), "secret");
  Put(At("own"), "own");
  std::filesystem::create_directories(At("real/sub"));
  std::filesystem::create_directory_symlink(Beside(""), At("in"));
  std::filesystem::create_directory_symlink(Beside("sub"), At("real/sub/in"));
  std::filesystem::create_directory_symlink("real", At("inner"));
  const std::string before = AllBeside();
  WithAndWithoutOneStroke([this] {
    ChangeAll(1);
    for (const std::string folder : {"in", "in/sub", "real/sub/in", "inner", "inner/sub"}) {
      EXPECT_EQ(WhyNotOpen(folder + "/victim", OpenMode::Read), Kind::LinkInTheWay) << folder;
      EXPECT_EQ(MakeFolder(Root(), folder + "/new").kind, Kind::LinkInTheWay) << folder;
      EXPECT_EQ(RemoveFile(Root(), folder + "/victim").kind, Kind::LinkInTheWay) << folder;
      EXPECT_EQ(RenameNew(Root(), folder + "/victim", folder + "/x").kind, Kind::LinkInTheWay);
      EXPECT_EQ(RenameOver(Root(), folder + "/victim", folder + "/x").kind, Kind::LinkInTheWay);
      EXPECT_EQ(ReplaceWhole(Root(), folder + "/victim", "x").kind, Kind::LinkInTheWay);
      EXPECT_EQ(LinkFile(Open("own"), Root(), "own", Root(), folder + "/x").kind,
                Kind::LinkInTheWay);
      LastFolder folders;
      EXPECT_EQ(NewFile::At(Root(), folder + "/x", 0666, folders).Failure().kind,
                Kind::LinkInTheWay);
    }
    EXPECT_EQ(WhyNotOpen("in", OpenMode::List), Kind::LinkInTheWay);
    EXPECT_EQ(WhyNotOpen("in", OpenMode::Start), Kind::LinkInTheWay);
    EXPECT_EQ(LookUp(Root(), "in")->kind, FileRecord::Kind::Link);
  });
  EXPECT_EQ(AllBeside(), before);
  EXPECT_EQ(NamesIn("real/sub"), "Lin ");
}

TEST_F(InsideFolderTest, WhereALookCostsMoreThanOneCallItFollowsNoLinkEither) {
  if (OpensAtOneStroke()) GTEST_SKIP() << "this system has the call; see without_openat2";
  Put(Beside("victim"), "secret");
  std::filesystem::create_directory_symlink(Beside(""), At("in"));
  EXPECT_EQ(LookUp(Root(), "in/victim").Failure().kind, Kind::LinkInTheWay);
}

TEST_F(InsideFolderTest, NoPathLeadsUpwards) {
  Put(Beside("a"), "x");
  Put(At("own"), "x");
  std::filesystem::create_directory(At("in"));
  WithAndWithoutOneStroke([this] {
    for (const std::string folder : {"..", "../beside", "in/../../beside"}) {
      EXPECT_NE(WhyNotOpen(folder + "/a", OpenMode::Read), Kind::None);
      EXPECT_NE(WhyNotOpen(folder, OpenMode::List), Kind::None);
      EXPECT_TRUE(MakeFolder(Root(), folder + "/new"));
      EXPECT_TRUE(RemoveFile(Root(), folder + "/a"));
    }
    EXPECT_NE(WhyNotOpen(Beside("a").string(), OpenMode::Read), Kind::None) << "a full path";
    EXPECT_TRUE(MakeFolder(Root(), Beside("new").string()));
  });
  EXPECT_EQ(AllBeside(), Beside("a").string() + " x\n");
}

TEST_F(InsideFolderTest, AFolderThatBecomesALinkAtAnyMomentIsNotFollowed) {
  Put(Beside("victim"), "secret");
  Put(Beside("replaced"), "secret");
  Put(Beside("sub/x"), "secret");
  Put(At("own"), "own");
  std::filesystem::create_directories(At("in/sub"));
  std::filesystem::create_directory_symlink(Beside(""), At("link"));
  const std::string before = AllBeside();
  WithAndWithoutOneStroke([this] {
    std::atomic<bool> isOver = false;
    std::thread meddler([this, &isOver] {
      const std::string in = At("in").string();
      const std::string link = At("link").string();
      while (!isOver) {
        ::renameat2(AT_FDCWD, in.c_str(), AT_FDCWD, link.c_str(), RENAME_EXCHANGE);
      }
    });
    for (int round = 0; round < 400; ++round) ChangeAll(round);
    isOver = true;
    meddler.join();
  });
  EXPECT_EQ(AllBeside(), before);
}

}  // namespace
}  // namespace norvo

#endif
