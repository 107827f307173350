#include "platform/files/SystemCalls.h"

#include "platform/files/FilesTest.h"

namespace norvo {
namespace {

class SystemCallsTest : public FilesTest {
 protected:
  FileRecord::Kind KindOf(const std::string& path) const {
    const FileResult<FileRecord> record = LookUp(Root(), path);
    EXPECT_TRUE(record) << path;
    return record ? record->kind : FileRecord::Kind::Other;
  }
};

TEST_F(SystemCallsTest, ALookUpTellsKindAndSizeOfAName) {
  Put(At("a.mp3"), "12345");
  EXPECT_EQ(KindOf(""), FileRecord::Kind::Folder);
  EXPECT_EQ(KindOf("a.mp3"), FileRecord::Kind::File);
  EXPECT_EQ(LookUp(Root(), "a.mp3")->size, 5u);
  EXPECT_EQ(LookUp(Open("a.mp3"))->size, 5u);
  EXPECT_EQ(LookUpSystemPath(ToDiskPath(At("a.mp3")))->size, 5u);
  EXPECT_EQ(LookUp(Root(), "b.mp3").Failure().kind, Kind::NotFound);
  EXPECT_EQ(LookUp(Root(), "a.mp3/b").Failure().kind, Kind::NotAFolder);
}

TEST_F(SystemCallsTest, ALookUpTellsOfALinkItself) {
  NEEDS_LINKS();
  Put(At("a.mp3"), "12345");
  MakeFileLink("a.mp3", At("link"));
  EXPECT_EQ(KindOf("link"), FileRecord::Kind::Link);
  EXPECT_EQ(LookUpSystemPath(ToDiskPath(At("link")))->kind, FileRecord::Kind::Link);
}

TEST_F(SystemCallsTest, TwoNamesOfOneFileHaveOneNumber) {
  Put(At("a"), "x");
  Put(At("b"), "x");
  std::filesystem::create_hard_link(At("a"), At("c"));
  EXPECT_TRUE(IsSameFile(*LookUp(Root(), "a"), *LookUp(Root(), "c")));
  EXPECT_FALSE(IsSameFile(*LookUp(Root(), "a"), *LookUp(Root(), "b")));
}

TEST_F(SystemCallsTest, CreationIsNeverLaterThanTheLastWrite) {
  Put(At("a"), "x");
  FileResult<SystemFile> file = OpenBeneath(Root(), "a", OpenMode::Append);
  ASSERT_FALSE(SetTimes(*file, {1000000000, 100}, {1000000007, 999999900}));
  const FileResult<FileRecord> record = LookUp(Root(), "a");
  EXPECT_EQ(record->accessed, (DiskTime{1000000000, 100}));
  EXPECT_EQ(record->modified, (DiskTime{1000000007, 999999900}));
  EXPECT_EQ(record->created, 1000000007);
}

TEST_F(SystemCallsTest, TellsHowMuchADiskHasRoomForOrNothing) {
  EXPECT_FALSE(FreeBytes(SystemFile()));
  const std::optional<std::uint64_t> free = FreeBytes(Root());
  if (!free) GTEST_SKIP() << "this disk does not tell";
  // Others may write to it at the same time.
  constexpr double kGigabyte = 1e9;
  EXPECT_NEAR(static_cast<double>(*free),
              static_cast<double>(std::filesystem::space(At("")).available), kGigabyte);
}

TEST_F(SystemCallsTest, NoPathLeadsUpwards) {
  Put(Beside("secret"), "x");
  std::filesystem::create_directory(At("in"));
  for (const std::string folder : {"..", "../beside", "in/../../beside"}) {
    EXPECT_NE(WhyNotOpen(folder + "/secret", OpenMode::Read), Kind::None) << folder;
    EXPECT_NE(WhyNotOpen(folder, OpenMode::List), Kind::None) << folder;
    EXPECT_TRUE(MakeFolder(Root(), folder + "/new")) << folder;
    EXPECT_TRUE(RemoveFile(Root(), folder + "/secret")) << folder;
  }
  EXPECT_EQ(Get(Beside("secret")), "x");
  EXPECT_FALSE(std::filesystem::exists(Beside("new")));
}

TEST_F(SystemCallsTest, NoOpeningLeadsOutOfTheRoot) {
  NEEDS_LINKS();
  Put(Beside("secret"), "x");
  MakeFileLink(Beside("secret"), At("file"));
  MakeFolderLink(Beside(""), At("folder"));
  EXPECT_EQ(WhyNotOpen("file", OpenMode::Read), Kind::LinkInTheWay);
  EXPECT_NE(WhyNotOpen("folder", OpenMode::List), Kind::None);
  EXPECT_EQ(WhyNotOpen("folder/secret", OpenMode::Read), Kind::LinkInTheWay);
  EXPECT_EQ(WhyNotOpen("folder/new", OpenMode::CreateForAppending), Kind::LinkInTheWay);
  EXPECT_EQ(CreateNew(Root(), "folder/new", 0666).Failure().kind, Kind::LinkInTheWay);
  EXPECT_FALSE(std::filesystem::exists(Beside("new")));
}

TEST_F(SystemCallsTest, NothingIsMadeNamedOrRemovedThroughALink) {
  NEEDS_LINKS();
  Put(Beside("a"), "x");
  Put(At("own"), "own");
  MakeFolderLink(Beside(""), At("folder"));
  EXPECT_EQ(MakeFolder(Root(), "folder/new").kind, Kind::LinkInTheWay);
  EXPECT_EQ(RenameNew(Root(), "folder/a", "folder/new").kind, Kind::LinkInTheWay);
  EXPECT_EQ(RenameOver(Root(), "folder/a", "folder/new").kind, Kind::LinkInTheWay);
  EXPECT_EQ(RemoveFile(Root(), "folder/a").kind, Kind::LinkInTheWay);
  EXPECT_EQ(LinkFile(Open("own"), Root(), "own", Root(), "folder/new").kind, Kind::LinkInTheWay);
  EXPECT_FALSE(std::filesystem::exists(Beside("new")));
  EXPECT_EQ(Get(Beside("a")), "x");
}

TEST_F(SystemCallsTest, EachModeOpensWhatItIsFor) {
  Put(At("there"), "x");
  std::filesystem::create_directory(At("folder"));
  EXPECT_EQ(WhyNotOpen("there", OpenMode::Read), Kind::None);
  EXPECT_EQ(WhyNotOpen("missing", OpenMode::Read), Kind::NotFound);
  EXPECT_EQ(WhyNotOpen("missing", OpenMode::Append), Kind::NotFound);
  EXPECT_EQ(WhyNotOpen("folder", OpenMode::Append), Kind::IsAFolder);
  EXPECT_EQ(WhyNotOpen("there", OpenMode::List), Kind::NotAFolder);
  EXPECT_EQ(WhyNotOpen("there", OpenMode::Start), Kind::NotAFolder);
  EXPECT_EQ(WhyNotOpen("", OpenMode::List), Kind::None);
  const FileResult<SystemFile> start = OpenBeneath(Root(), "folder", OpenMode::Start);
  EXPECT_FALSE(MakeFolder(*start, "below"));
  EXPECT_TRUE(std::filesystem::is_directory(At("folder/below")));
}

TEST_F(SystemCallsTest, AppendingNeverShortensAFile) {
  for (int i = 0; i < 2; ++i) {
    const auto file = OpenBeneath(Root(), "log", OpenMode::CreateForAppending);
    ASSERT_TRUE(file);
    EXPECT_FALSE(WriteAll(*file, "line\n"));
  }
  EXPECT_EQ(Get(At("log")), "line\nline\n");
}

TEST_F(SystemCallsTest, PathsOfTheSystemAreOpenedAndMadeReal) {
  Put(At("in/a"), "x");
  EXPECT_EQ(LookUp(*OpenSystemPath(ToDiskPath(At("in/a"))))->size, 1u);
  EXPECT_TRUE(LookUp(*OpenRoot(ToDiskPath(At("in"))), "a"));
  EXPECT_EQ(OpenSystemPath(ToDiskPath(At("missing"))).Failure().kind, Kind::NotFound);
  EXPECT_EQ(OpenRoot(ToDiskPath(At("in/a"))).Failure().kind, Kind::NotAFolder);
  EXPECT_EQ(*RealPath(ToDiskPath(At("in/../in/./a"))), *RealPath(ToDiskPath(At("in"))) + "/a");
  EXPECT_EQ(RealPath(ToDiskPath(At("missing"))).Failure().kind, Kind::NotFound);
}

TEST_F(SystemCallsTest, OutsideOfARootLinksAreFollowed) {
  NEEDS_LINKS();
  Put(Beside("a"), "x");
  MakeFileLink(Beside("a"), At("file"));
  MakeFolderLink(Beside(""), At("folder"));
  EXPECT_EQ(LookUp(*OpenSystemPath(ToDiskPath(At("file"))))->size, 1u);
  EXPECT_TRUE(LookUp(*OpenRoot(ToDiskPath(At("folder"))), "a"));
  EXPECT_EQ(OpenRoot(ToDiskPath(At("file"))).Failure().kind, Kind::NotAFolder);
  EXPECT_EQ(*RealPath(ToDiskPath(At("folder/a"))), *RealPath(ToDiskPath(Beside("a"))));
}

TEST_F(SystemCallsTest, AFolderTellsItsNamesAndTheirKinds) {
  Put(At("in/file"), "");
  std::filesystem::create_directory(At("in/folder"));
  EXPECT_EQ(NamesIn("in"), "Dfolder Ffile ");
  EXPECT_EQ(NamesIn("in/folder"), "");
}

TEST_F(SystemCallsTest, AFolderTellsItsLinks) {
  NEEDS_LINKS();
  MakeFileLink("file", At("link"));
  EXPECT_EQ(NamesIn(""), "Llink ");
}

TEST_F(SystemCallsTest, AFolderOfThousandsOfNamesTellsThemAll) {
  constexpr std::size_t kNames = 3000;
  for (std::size_t i = 0; i < kNames; ++i) {
    ASSERT_TRUE(CreateNew(Root(), "a name of some length " + std::to_string(i), 0666));
  }
  const std::string names = NamesIn("");
  EXPECT_EQ(std::count(names.begin(), names.end(), 'F'), std::ptrdiff_t{kNames});
}

TEST_F(SystemCallsTest, NamesAreTakenOnlyWhereTheyAreFree) {
  Put(At("a"), "a");
  Put(At("b"), "b");
  EXPECT_EQ(CreateNew(Root(), "a", 0666).Failure().kind, Kind::AlreadyExists);
  EXPECT_EQ(RenameNew(Root(), "a", "b").kind, Kind::AlreadyExists);
  EXPECT_EQ(MakeFolder(Root(), "a").kind, Kind::AlreadyExists);
  EXPECT_EQ(LinkFile(Open("a"), Root(), "a", Root(), "b").kind, Kind::AlreadyExists);
  EXPECT_EQ(Get(At("b")), "b");
  EXPECT_FALSE(RenameNew(Root(), "a", "c"));
  EXPECT_EQ(NamesIn(""), "Fb Fc ");
  EXPECT_FALSE(RenameOver(Root(), "c", "b"));
  EXPECT_EQ(Get(At("b")), "a");
  EXPECT_EQ(NamesIn(""), "Fb ");
}

TEST_F(SystemCallsTest, ALinkedFileHasTwoNames) {
  Put(At("one/a"), "x");
  std::filesystem::create_directory(At("two"));
  EXPECT_FALSE(LinkFile(Open("one/a"), Root(), "one/a", Root(), "two/b"));
  EXPECT_TRUE(IsSameFile(*LookUp(Root(), "one/a"), *LookUp(Root(), "two/b")));
  EXPECT_EQ(LinkFile(Open("one/a"), Root(), "one/a", Root(), "three/b").kind, Kind::NotFound);
}

TEST_F(SystemCallsTest, ReadOnlyFilesAreRemovedToo) {
  Put(At("a"), "x");
  std::filesystem::permissions(At("a"), std::filesystem::perms::owner_read);
  EXPECT_EQ(LookUp(Root(), "a")->permissions & 0222u, 0u);
  EXPECT_FALSE(RemoveFile(Root(), "a"));
  EXPECT_EQ(RemoveFile(Root(), "a").kind, Kind::NotFound);
  EXPECT_EQ(NamesIn(""), "");
}

TEST_F(SystemCallsTest, BytesAreReadAtAnyPlaceAndNoneBehindTheEnd) {
  Put(At("a"), "0123456789");
  const SystemFile file = Open("a");
  char buffer[4] = {};
  EXPECT_EQ(*ReadSome(file, 7, buffer), 3u);
  EXPECT_EQ(std::string(buffer, 3), "789");
  EXPECT_EQ(*ReadSome(file, 2, buffer), 4u);
  EXPECT_EQ(std::string(buffer, 4), "2345");
  EXPECT_EQ(*ReadSome(file, 10, buffer), 0u);
  EXPECT_EQ(*ReadSome(file, ~std::uint64_t{0}, buffer), 0u);
}

TEST_F(SystemCallsTest, EachFlushedFileHasItsAnswer) {
  std::vector<SystemFile> files;
  for (int i = 0; i < 6; ++i) {
    files.push_back(std::move(*CreateNew(Root(), std::to_string(i), 0666)));
  }
  const SystemFile closed;
  std::vector<const SystemFile*> asked;
  EXPECT_TRUE(FlushToDisk(asked).empty());
  for (const SystemFile& file : files) asked.push_back(&file);
  for (const FileFailure& failure : FlushToDisk(asked)) EXPECT_FALSE(failure);
  asked[2] = &closed;
  const std::vector<FileFailure> failures = FlushToDisk(asked);
  ASSERT_EQ(failures.size(), 6u);
  for (std::size_t i = 0; i < failures.size(); ++i) EXPECT_EQ(bool(failures[i]), i == 2) << i;
}

TEST_F(SystemCallsTest, TheDisksClockRunsWithTheFilesTimes) {
  const DiskTime before = DiskNow();
  Put(At("a"), "x");
  const DiskTime written = LookUp(Root(), "a")->modified;
  // The disk counts in steps.
  EXPECT_GE(written.seconds, before.seconds - 2);
  EXPECT_LE(written.seconds, DiskNow().seconds);
}

}  // namespace
}  // namespace norvo
