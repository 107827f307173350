#include "platform/nt/InsideFolder.h"

#include "platform/files/FileBytes.h"
#include "platform/files/FilesTest.h"
#include "platform/files/NewFile.h"
#include "platform/files/ReplaceWhole.h"
#include "platform/nt/FakePoints.h"
#include "support/windows/Junction.h"

namespace norvo {
namespace {

constexpr ULONG kSymbolicLink = 0xA000000C;
constexpr ULONG kMountPoint = 0xA0000003;
constexpr ULONG kCloud = 0x9000601A;
constexpr ULONG kCompressed = 0x80000017;
constexpr ULONG kAway = 0x00400000;  // FILE_ATTRIBUTE_RECALL_ON_DATA_ACCESS

class InsideFolderTest : public FilesTest {
 protected:
  /// Nothing is opened, made, changed or removed below that folder.
  void ExpectClosed(const SystemFile& root, const std::string& folder) {
    const auto why = [&](const std::string& path, OpenMode mode) {
      return OpenBeneath(root, path, mode).Failure().kind;
    };
    EXPECT_EQ(why(folder + "/victim", OpenMode::Read), Kind::LinkInTheWay) << folder;
    EXPECT_EQ(why(folder + "/log", OpenMode::CreateForAppending), Kind::LinkInTheWay) << folder;
    EXPECT_EQ(LookUp(root, folder + "/victim").Failure().kind, Kind::LinkInTheWay) << folder;
    EXPECT_EQ(MakeFolder(root, folder + "/new").kind, Kind::LinkInTheWay) << folder;
    EXPECT_EQ(CreateNew(root, folder + "/new", 0666).Failure().kind, Kind::LinkInTheWay);
    EXPECT_EQ(RemoveFile(root, folder + "/victim").kind, Kind::LinkInTheWay) << folder;
    EXPECT_EQ(RenameNew(root, folder + "/victim", folder + "/x").kind, Kind::LinkInTheWay);
    EXPECT_EQ(RenameOver(root, folder + "/victim", folder + "/x").kind, Kind::LinkInTheWay);
    EXPECT_EQ(ReplaceWhole(root, folder + "/victim", "x").kind, Kind::LinkInTheWay) << folder;
    EXPECT_EQ(LinkFile(Open("own"), Root(), "own", root, folder + "/x").kind, Kind::LinkInTheWay);
    LastFolder folders;
    EXPECT_EQ(NewFile::At(root, folder + "/x", 0666, folders).Failure().kind, Kind::LinkInTheWay);
  }
};

TEST_F(InsideFolderTest, NoJunctionIsFollowedWhereverItStandsInThePath) {
  Put(At("in/victim"), "secret");
  Put(At("real/sub/in/deep/victim"), "secret");
  Put(At("own"), "own");
  {
    const FakePoints points(L"in", kMountPoint);
    for (const std::string folder : {"in", "real/sub/in", "real/sub/in/deep"}) {
      ExpectClosed(Root(), folder);
    }
    EXPECT_EQ(WhyNotOpen("in", OpenMode::List), Kind::LinkInTheWay);
    EXPECT_EQ(WhyNotOpen("in", OpenMode::Start), Kind::LinkInTheWay);
    EXPECT_EQ(WhyNotOpen("in", OpenMode::Read), Kind::LinkInTheWay);
    EXPECT_EQ(WhyNotOpen("in", OpenMode::Append), Kind::LinkInTheWay);
    EXPECT_EQ(LookUp(Root(), "in")->kind, FileRecord::Kind::Link);
    EXPECT_EQ(LookUpSystemPath(ToDiskPath(At("in")))->kind, FileRecord::Kind::Link);
  }
  EXPECT_EQ(NamesIn("in"), "Fvictim ");
  EXPECT_EQ(NamesIn("real/sub/in/deep"), "Fvictim ");
  EXPECT_EQ(Get(At("in/victim")), "secret");
}

TEST_F(InsideFolderTest, AJunctionThatIsPutInBetweenIsNotFollowed) {
  Put(Beside("victim"), "secret");
  Put(At("own"), "own");
  std::filesystem::create_directory(At("in"));
  const FileResult<SystemFile> before = OpenBeneath(Root(), "in", OpenMode::Start);
  const auto full = [](std::filesystem::path path) { return path.make_preferred().wstring(); };
  if (!MakeJunction(full(At("in")), full(Beside("victim").parent_path()))) {
    GTEST_SKIP() << "this disk knows no junctions";
  }
  ExpectClosed(Root(), "in");
  CreateNew(*before, "new", 0666);  // from a folder that has become one since it was opened
  EXPECT_FALSE(std::filesystem::exists(Beside("new")));
  EXPECT_EQ(NamesIn(""), "Lin Fown ");
  EXPECT_FALSE(RemoveFile(Root(), "in"));
  EXPECT_EQ(Get(Beside("victim")), "secret");
}

TEST_F(InsideFolderTest, ALinkToAFileIsNotFollowedButRemovedItself) {
  Put(At("link"), "secret");
  const FakePoints points(L"link", kSymbolicLink);
  EXPECT_EQ(WhyNotOpen("link", OpenMode::Read), Kind::LinkInTheWay);
  EXPECT_EQ(WhyNotOpen("link", OpenMode::CreateForAppending), Kind::LinkInTheWay);
  EXPECT_EQ(LookUp(Root(), "link")->kind, FileRecord::Kind::Link);
  EXPECT_EQ(CreateNew(Root(), "link", 0666).Failure().kind, Kind::AlreadyExists);
  EXPECT_FALSE(RemoveFile(Root(), "link"));
  EXPECT_EQ(NamesIn(""), "");
}

TEST_F(InsideFolderTest, AJunctionIsRemovedItselfAndAFolderIsNot) {
  std::filesystem::create_directory(At("folder"));
  std::filesystem::create_directory(At("junction"));
  EXPECT_EQ(RemoveFile(Root(), "folder").kind, Kind::IsAFolder);
  const FakePoints points(L"junction", kMountPoint);
  EXPECT_FALSE(RemoveFile(Root(), "junction"));
  EXPECT_EQ(NamesIn(""), "Dfolder ");
}

TEST_F(InsideFolderTest, ADiskThatIsMountedInAFolderIsNotEntered) {
  // Some systems mount one in each of these folders, of which Wine tells as of a reparse point.
  const FileResult<SystemFile> devices = OpenRoot("Z:/dev");
  const FileResult<FileRecord> memory = devices ? LookUp(*devices, "shm") : devices.Failure();
  if (!memory || memory->kind != FileRecord::Kind::Link) GTEST_SKIP() << "none is mounted here";
  Put(At("own"), "own");
  ExpectClosed(*devices, "shm");
  EXPECT_EQ(OpenBeneath(*devices, "shm", OpenMode::List).Failure().kind, Kind::LinkInTheWay);
  EXPECT_TRUE(OpenRoot("Z:/dev/shm")) << "a path that is given may lead there";
}

TEST_F(InsideFolderTest, AFolderThatIsExchangedMeanwhileIsGoneOnWithByItsHandle) {
  Put(At("in/sub/a"), "own");
  Put(Beside("sub/a"), "secret");
  const FileResult<SystemFile> in = OpenBeneath(Root(), "in", OpenMode::Start);
  std::filesystem::rename(At("in"), At("was"));
  std::filesystem::rename(Beside(""), At("in"));
  EXPECT_EQ(*ReadWhole(*OpenBeneath(*in, "sub/a", OpenMode::Read), 100), "own");
  EXPECT_TRUE(CreateNew(*in, "sub/new", 0666));
  EXPECT_FALSE(MakeFolder(*in, "sub/folder"));
  EXPECT_EQ(NamesIn("was/sub"), "Dfolder Fa Fnew ");
  EXPECT_EQ(NamesIn("in/sub"), "Fa ");
}

TEST_F(InsideFolderTest, AFileWhoseBytesAreElsewhereIsSeenAndNotRead) {
  Put(At("song"), "zeros");
  for (const auto& [tag, attributes] : {std::pair(kCloud, kAway), std::pair(kCompressed, 0ul)}) {
    const FakePoints points(L"song", tag, attributes);
    EXPECT_EQ(LookUp(Root(), "song")->kind, FileRecord::Kind::File);
    const FileFailure failure = OpenBeneath(Root(), "song", OpenMode::Read).Failure();
    EXPECT_EQ(failure.code, ERROR_CANT_ACCESS_FILE);
    EXPECT_EQ(WhyNotOpen("song", OpenMode::Append), Kind::BytesElsewhere);
  }
}

TEST_F(InsideFolderTest, WhatACloudHasBroughtHereIsAFileAndAFolderAsAnyOther) {
  Put(At("Cloud/song"), "bytes");
  {
    const FakePoints points(L"song", kCloud);
    EXPECT_EQ(*ReadWhole(Open("Cloud/song"), 100), "bytes");
  }
  const FakePoints points(L"Cloud", kCloud, kAway);
  EXPECT_EQ(LookUp(Root(), "Cloud")->kind, FileRecord::Kind::Folder);
  EXPECT_EQ(NamesIn("Cloud"), "Fsong ");
  EXPECT_EQ(*ReadWhole(Open("Cloud/song"), 100), "bytes");
}

}  // namespace
}  // namespace norvo
