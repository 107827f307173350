#include "platform/files/FileBytes.h"
#include "platform/files/FilesTest.h"
#include "platform/files/NewFile.h"
#include "platform/files/ReplaceWhole.h"
#include "platform/nt/Handle.h"

namespace norvo {
namespace {

class FileNamesTest : public FilesTest {
 protected:
  std::string Read(const std::string& path) const { return *ReadWhole(Open(path), 1000); }
};

TEST_F(FileNamesTest, OnesThatTheSystemsOwnCallsWouldBendNameFilesAndFolders) {
  for (const std::string name : {"Mr. T.", "blank ", "...", "NUL.txt", "NUL", "con", "COM1.mp3"}) {
    EXPECT_FALSE(MakeFolder(Root(), name)) << name;
    EXPECT_FALSE(ReplaceWhole(Root(), name + "/" + name, name)) << name;
    EXPECT_EQ(LookUp(Root(), name)->kind, FileRecord::Kind::Folder) << name;
    EXPECT_EQ(NamesIn(name), "F" + name + " ");
    EXPECT_EQ(Read(name + "/" + name), name);
    EXPECT_EQ(*ReadWhole(*OpenSystemPath(ToDiskPath(At("")) + name + "/" + name), 100), name);
    EXPECT_FALSE(RenameNew(Root(), name + "/" + name, name + "/x")) << name;
    EXPECT_FALSE(RemoveFile(Root(), name + "/x")) << name;
    EXPECT_EQ(NamesIn(name), "");
  }
  EXPECT_FALSE(LookUp(Root(), "Mr. T"));
  EXPECT_FALSE(LookUp(Root(), "blank"));
}

TEST_F(FileNamesTest, WhatFollowsAColonIsNoOtherStreamOfAFile) {
  Put(At("song"), "x");
  for (const std::string path : {"song:stream", "song::$DATA", "new:stream", "C:", "C:/song"}) {
    EXPECT_EQ(LookUp(Root(), path).Failure().kind, Kind::InvalidName) << path;
    EXPECT_EQ(WhyNotOpen(path, OpenMode::Read), Kind::InvalidName) << path;
    EXPECT_EQ(WhyNotOpen(path, OpenMode::CreateForAppending), Kind::InvalidName) << path;
    EXPECT_EQ(CreateNew(Root(), path, 0666).Failure().kind, Kind::InvalidName) << path;
    EXPECT_EQ(MakeFolder(Root(), path).kind, Kind::InvalidName) << path;
    EXPECT_EQ(RemoveFile(Root(), path).kind, Kind::InvalidName) << path;
  }
  EXPECT_EQ(RenameNew(Root(), "song", "a:b").kind, Kind::InvalidName);
  EXPECT_EQ(RenameOver(Root(), "song", "a:b").kind, Kind::InvalidName);
  EXPECT_EQ(LinkFile(Open("song"), Root(), "song", Root(), "a:b").kind, Kind::InvalidName);
  EXPECT_EQ(NamesIn(""), "Fsong ");
}

TEST_F(FileNamesTest, OtherNamesThatCanBeNoneAreRefused) {
  Put(At("in/song"), "x");
  for (const std::string name : {"a\\b", "a?", "*", "a\"b", "<", "|", "a\nb", ".", "\xFF"}) {
    EXPECT_EQ(LookUp(Root(), name).Failure().kind, Kind::InvalidName) << name;
    EXPECT_EQ(CreateNew(Root(), "in/" + name, 0666).Failure().kind, Kind::InvalidName) << name;
    EXPECT_EQ(WhyNotOpen(name + "/song", OpenMode::Read), Kind::InvalidName) << name;
  }
  EXPECT_EQ(WhyNotOpen("in/", OpenMode::List), Kind::InvalidName);
  EXPECT_EQ(WhyNotOpen("in\\song", OpenMode::Read), Kind::InvalidName);
  EXPECT_EQ(LookUp(Root(), std::string(256, 'n')).Failure().kind, Kind::NameTooLong);
}

TEST_F(FileNamesTest, HalfAPairIsANameThatIsToldAndFoundAgain) {
  const std::string name = "half \xED\xA0\xBD";
  if (!CreateNew(Root(), name, 0666)) GTEST_SKIP() << "this disk has no such names";
  EXPECT_EQ(NamesIn(""), "F" + name + " ");
  EXPECT_TRUE(LookUp(Root(), name));
  EXPECT_FALSE(RemoveFile(Root(), name));
}

TEST_F(FileNamesTest, PathsMayBeLongerThanTheOldLimit) {
  std::string folder;
  for (int i = 0; i < 10; ++i) {
    folder = JoinDiskPath(folder, std::string(100, static_cast<char>('a' + i)));
    ASSERT_FALSE(MakeFolder(Root(), folder)) << i;
  }
  const std::string song = folder + "/" + std::string(200, 's');
  EXPECT_FALSE(ReplaceWhole(Root(), song, "bytes"));
  EXPECT_EQ(Read(song), "bytes");
  const std::string full = ToDiskPath(At("")) + song;
  ASSERT_GT(full.size(), 1200u);
  EXPECT_EQ(LookUpSystemPath(full)->size, 5u);
  EXPECT_EQ(*ReadWhole(*OpenSystemPath(full), 100), "bytes");
  EXPECT_TRUE(LookUp(*OpenRoot(std::string(ParentOf(full))), std::string(200, 's')));
  LastFolder folders;
  EXPECT_FALSE(NewFile::At(Root(), song + "2", 0666, folders)->PutInPlace(folders));
  EXPECT_FALSE(RemoveFile(Root(), song));
  EXPECT_EQ(NamesIn(folder), "F" + std::string(200, 's') + "2 ");
}

TEST_F(FileNamesTest, LongPathsAreMadeReal) {
  const std::string name(250, 'n');
  ASSERT_FALSE(ReplaceWhole(Root(), name, "x"));
  const FileResult<std::string> real = RealPath(ToDiskPath(At("")) + "./" + name);
  if (real.Failure().code == ERROR_MORE_DATA) GTEST_SKIP() << "Wine tells of short ones only";
  ASSERT_TRUE(real);
  EXPECT_EQ(*real, *RealPath(ToDiskPath(At(""))) + "/" + name);
}

TEST_F(FileNamesTest, AFileIsFoundAndOpenedInEveryCaseButLookedUpInItsOwnOnly) {
  Put(At("Folder/Song.mp3"), "x");
  EXPECT_EQ(Read("FOLDER/song.MP3"), "x");
  EXPECT_EQ(LookUp(Root(), "Folder/song.MP3").Failure().kind, Kind::NotFound);
  EXPECT_EQ(CreateNew(Root(), "Folder/SONG.mp3", 0666).Failure().kind, Kind::AlreadyExists);
  EXPECT_EQ(*RealPath(ToDiskPath(At("FOLDER/song.MP3"))),
            *RealPath(ToDiskPath(At(""))) + "/Folder/Song.mp3");
}

TEST_F(FileNamesTest, ARemovedFileIsGoneWhoeverHasItOpen) {
  Put(At("a"), "old");
  const SystemFile open = Open("a");
  EXPECT_FALSE(RemoveFile(Root(), "a"));
  EXPECT_EQ(LookUp(Root(), "a").Failure().kind, Kind::NotFound);
  EXPECT_FALSE(ReplaceWhole(Root(), "a", "new"));
  EXPECT_EQ(Read("a"), "new");
  EXPECT_EQ(*ReadWhole(open, 100), "old");
}

TEST_F(FileNamesTest, ReadOnlyFilesAreRenamedReplacedAndRemoved) {
  for (const std::string name : {"a", "b"}) {
    Put(At(name), name);
    ::SetFileAttributesW(At(name).c_str(), FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
  }
  EXPECT_FALSE(RenameNew(Root(), "a", "c"));
  EXPECT_FALSE(RenameOver(Root(), "c", "b"));
  EXPECT_EQ(Get(At("b")), "a");
  EXPECT_EQ(LookUp(Root(), "b")->permissions, 0444u);
  EXPECT_FALSE(RemoveFile(Root(), "b"));
  EXPECT_EQ(NamesIn(""), "");
}

TEST_F(FileNamesTest, AFolderIsNotReplacedByAFile) {
  Put(At("a"), "x");
  Put(At("folder/b"), "x");
  EXPECT_TRUE(RenameOver(Root(), "a", "folder"));
  EXPECT_EQ(NamesIn(""), "Dfolder Fa ");
}

}  // namespace
}  // namespace norvo
