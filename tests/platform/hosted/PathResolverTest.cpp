#include "platform/hosted/HostedFileSystem.h"
#include "support/FileTimes.h"
#include "support/TestMachine.h"

namespace norvo {
namespace {

class PathResolverTest : public TestMachine {
 protected:
  /// Not every system takes a name for another one that differs in case only.
  void ChangeCase(const std::string& from, const std::string& to) {
    std::filesystem::rename(Disk(from), Disk("C/between"));
    std::filesystem::rename(Disk("C/between"), Disk(to));
  }
};

TEST_F(PathResolverTest, FindsAFileAsItIsSpelled) {
  Put(Disk("C/Music/Pop/Song.mp3"), "12345");
  const std::optional<FileFacts> facts = Files().FactsOf(u"C:\\Music\\Pop\\Song.mp3");
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Song.mp3");
  EXPECT_EQ(facts->size, 5);
}

TEST_F(PathResolverTest, SpellingsThatMeanTheSameFile) {
  Put(Disk("C/Music/Änderung Pop/Song.mp3"), "x");
  const StringView paths[] = {
      u"c:\\music\\änderung pop\\SONG.MP3",       u"C:/MUSIC/ÄNDERUNG POP/song.mp3",
      u"C:\\Music. .\\Änderung Pop \\Song.mp3. ", u"C:\\Music\\.\\x\\..\\Änderung Pop\\\\Song.mp3",
      u"\\Music\\Änderung Pop\\Song.mp3",         u"Music\\Änderung Pop\\Song.mp3"};
  for (const StringView path : paths) {
    EXPECT_EQ(NameOf(path), "Song.mp3") << ToUtf8(path);
    EXPECT_EQ(NameOf(path), "Song.mp3") << "again: " << ToUtf8(path);
  }
}

TEST_F(PathResolverTest, APathThatNamesNoFileFindsNothing) {
  Put(Disk("C/Music/a.mp3"), "x");
  const StringView paths[] = {u"",
                              u"C:",
                              u"C:\\",
                              u"C:\\Music",
                              u"C:\\Music\\a.mp3\\",
                              u"C:\\Music\\a.mp3\\b",
                              u"C:\\Music\\b.mp3",
                              u"C:\\Nowhere\\a.mp3",
                              u"X:\\Music\\a.mp3",
                              u"\\\\server\\share\\a.mp3",
                              u"//server/share/a.mp3",
                              u"C:\\Music\\...",
                              u"C:\\Music\\ \\a.mp3",
                              StringView(u"C:\\Music\\a.mp3\0", 15),
                              StringView(u"C:\\Mu\0sic\\a.mp3", 15),
                              u"C:\\Music\\a\n.mp3",
                              u"C:\\Music\\\xD800"};
  for (const StringView path : paths) EXPECT_EQ(NameOf(path), "(none)") << ToUtf8(path);
}

TEST_F(PathResolverTest, ANameWithTrailingPointsOnTheDiskIsFound) {
  Put(Disk("C/Artists/Mr. T./a.mp3"), "x");
  EXPECT_EQ(NameOf(u"C:\\Artists\\Mr. T.\\a.mp3"), "a.mp3");
  EXPECT_EQ(NameOf(u"C:\\artists\\mr. t\\A.mp3"), "a.mp3");
}

TEST_F(PathResolverTest, FilesThatComeGoAndChangeCaseAreSeenAtOnce) {
  Put(Disk("C/m/other"), "x");
  EXPECT_EQ(NameOf(u"C:\\m\\new.mp3"), "(none)");
  Put(Disk("C/m/NEW.mp3"), "x");
  EXPECT_EQ(NameOf(u"C:\\m\\new.mp3"), "NEW.mp3");
  ChangeCase("C/m/NEW.mp3", "C/m/New.mp3");
  EXPECT_EQ(NameOf(u"C:\\m\\new.mp3"), "New.mp3");
  ChangeCase("C/m", "C/M");
  EXPECT_EQ(NameOf(u"C:\\m\\new.mp3"), "New.mp3");
  std::filesystem::remove_all(Disk("C/M"));
  EXPECT_EQ(NameOf(u"C:\\m\\new.mp3"), "(none)");
}

TEST_F(PathResolverTest, AFileThatThePlatformItselfCreatesIsFoundInAnyCase) {
  Put(Disk("C/m/other"), "x");
  EXPECT_FALSE(Files().FileExists(u"C:\\m\\LOG.TXT"));
  Files().OpenForAppending(u"C:\\m\\log.txt", true)->Append("x");
  EXPECT_EQ(NameOf(u"C:\\m\\LOG.TXT"), "log.txt");
  Files().RemoveFile(u"C:\\m\\LOG.txt", false);
  EXPECT_FALSE(Files().FileExists(u"C:\\m\\log.TXT"));
}

TEST_F(PathResolverTest, MissingFilesInAnOldFolderDoNotHideNewOnes) {
  Put(Disk("C/m/other"), "x");
  MakeOld(Disk("C/m"));
  for (int i = 0; i < 50; ++i) {
    EXPECT_EQ(NameOf(u"C:\\m\\new.mp3"), "(none)");
    Put(Disk("C/m/NEW.mp3"), "x");
    ASSERT_EQ(NameOf(u"C:\\m\\new.mp3"), "NEW.mp3");
    std::filesystem::remove(Disk("C/m/NEW.mp3"));
  }
}

TEST_F(PathResolverTest, NeverLeavesTheDriveByPoints) {
  Put(Outside("secret.txt"), "x");
  Put(Disk("secret.txt"), "x");
  for (const StringView path :
       {u"C:\\..\\secret.txt", u"C:\\..\\..\\secret.txt", u"..\\secret.txt",
        u"C:\\m\\..\\..\\secret.txt", u"C:/../secret.txt", u"C:\\.. \\secret.txt"}) {
    EXPECT_EQ(NameOf(path), "(none)") << ToUtf8(path);
  }
}

TEST_F(PathResolverTest, ALinkOutOfTheDriveDoesNotExist) {
  NEEDS_LINKS();
  Put(Outside("away/secret.txt"), "x");
  MakeFolderLink(Outside("away"), Disk("C/away"));
  MakeFileLink(Outside("away/secret.txt"), Disk("C/file.txt"));
  MakeFileLink("../../away/secret.txt", Disk("C/relative.txt"));
  EXPECT_FALSE(Files().FolderExists(u"C:\\away"));
  EXPECT_EQ(NameOf(u"C:\\away\\secret.txt"), "(none)");
  EXPECT_EQ(NameOf(u"C:\\file.txt"), "(none)");
  EXPECT_EQ(NameOf(u"C:\\relative.txt"), "(none)");
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\file.txt"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\away\\secret.txt"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Files().RemoveFile(u"C:\\file.txt", true); }), 53);
  EXPECT_NE(NumberRaisedBy([&] { Files().OpenForAppending(u"C:\\file.txt", true); }), 0);
  EXPECT_NE(NumberRaisedBy([&] { Machine().Settings().Write(u"C:\\file.txt", "y"); }), 0);
  EXPECT_NE(NumberRaisedBy([&] { Machine().Settings().Write(u"C:\\away\\new.txt", "y"); }), 0);
  EXPECT_TRUE(Files().ListFolder(u"C:\\", {}).empty());
  EXPECT_EQ(Get(Outside("away/secret.txt")), "x");
  EXPECT_FALSE(std::filesystem::exists(Outside("away/new.txt")));
}

TEST_F(PathResolverTest, ALinkOutOfTheDriveIsToldOnceOfADriveWhereSomethingIsLookedForBehindIt) {
  NEEDS_LINKS();
  Put(Outside("away/secret.txt"), "x");
  Put(Disk("C/real/a.txt"), "x");
  MakeFolderLink(Outside("away"), Disk("C/away"));
  MakeFolderLink("real", Disk("C/within"));
  MakeFolderLink("nothing", Disk("C/nowhere"));
  EXPECT_EQ(NameOf(u"C:\\within\\a.txt"), "a.txt");
  EXPECT_EQ(NameOf(u"C:\\within\\b.txt"), "(none)");
  EXPECT_EQ(warnings_, std::vector<std::string>());
  for (const StringView path :
       {u"C:\\away\\deep\\secret.txt", u"C:\\away\\secret.txt", u"C:\\nowhere\\c"}) {
    EXPECT_EQ(NameOf(path), "(none)") << ToUtf8(path);
  }
  EXPECT_EQ(warnings_, std::vector<std::string>{
                           "C:\\away\\deep\\secret.txt: a link on the way there leads out of the "
                           "disk, or nowhere; no such link of this disk is followed, and what is "
                           "reached only by it counts as not there"});
  EXPECT_EQ(weights_, std::vector{WarningWeight::LeftOut});
}

TEST_F(PathResolverTest, AFileThatIsALinkOutOfTheDriveIsANoticeOnceOfADrive) {
  NEEDS_LINKS();
  Put(Outside("away.mp3"), "x");
  MakeFileLink(Outside("away.mp3"), Disk("C/song.mp3"));
  MakeFileLink("nowhere", Disk("C/other.mp3"));
  EXPECT_EQ(NameOf(u"C:\\song.mp3"), "(none)");
  EXPECT_EQ(NameOf(u"C:\\other.mp3"), "(none)");
  EXPECT_EQ(NameOf(u"Q:\\song.mp3"), "(none)");
  EXPECT_EQ(warnings_, std::vector<std::string>{
                           "C:\\song.mp3: this link leads out of the disk, or nowhere; no such "
                           "link of this disk is followed, and it counts as not there"});
  EXPECT_EQ(weights_, std::vector{WarningWeight::Notice});
}

/// Drives C and D, each in a folder of its own, whose links may lead to each other.
class CrossingLinksTest : public TestMachine {
 protected:
  CrossingLinksTest() {
    std::filesystem::create_directories(Outside("c"));
    std::filesystem::create_directories(Outside("d/Docs"));
    HostedLayout layout;
    layout.drives = {{u'C', DriveType::Fixed, Outside("c")},
                     {u'D', DriveType::Fixed, Outside("d")}};
    layout.linksCross = true;
    machine_ = std::make_unique<HostedPlatform>(std::move(layout));
    machine_->SetWarningSink(
        [this](StringView line, WarningWeight) { warnings_.push_back(ToUtf8(line)); });
  }
  HostedFileSystem& Crossing() { return machine_->HostedFiles(); }

  std::unique_ptr<HostedPlatform> machine_;
};

TEST_F(CrossingLinksTest, AFolderOfAnotherDriveIsReadAndWrittenThroughALink) {
  NEEDS_LINKS();
  Put(Outside("d/Docs/One.mp3"), "one");
  MakeFolderLink(Outside("d/Docs"), Outside("c/My Documents"));
  EXPECT_TRUE(Crossing().FolderExists(u"C:\\My Documents"));
  EXPECT_EQ(Crossing().FactsOf(u"C:\\My Documents\\one.mp3")->size, 3);
  EXPECT_EQ(Crossing().OpenRegular(u"C:\\my documents\\ONE.mp3").record.size, 3U);
  EXPECT_EQ(Crossing().ListFolder(u"C:\\My Documents", {}).size(), 1U);
  Crossing().ReplaceWhole(u"C:\\My Documents\\Music\\Two.mp3", "two");
  EXPECT_EQ(Get(Outside("d/Docs/Music/Two.mp3")), "two");
  Crossing().RemoveFile(u"C:\\My Documents\\One.mp3", false);
  EXPECT_FALSE(std::filesystem::exists(Outside("d/Docs/One.mp3")));
  EXPECT_EQ(warnings_, std::vector<std::string>());
}

TEST_F(CrossingLinksTest, AFileOfAnotherDriveIsReadThroughALinkAndDeletedAsALink) {
  NEEDS_LINKS();
  Put(Outside("d/One.mp3"), "one");
  MakeFileLink(Outside("d/One.mp3"), Outside("c/Alias.mp3"));
  EXPECT_EQ(ToUtf8(Crossing().FactsOf(u"C:\\Alias.mp3")->name), "Alias.mp3");
  EXPECT_EQ(Crossing().OpenRegular(u"C:\\Alias.mp3").record.size, 3U);
  EXPECT_EQ(Crossing().ListFolder(u"C:\\", {}).size(), 1U);
  Crossing().RemoveFile(u"C:\\Alias.mp3", false);
  EXPECT_TRUE(std::filesystem::exists(Outside("d/One.mp3")));
  EXPECT_FALSE(std::filesystem::is_symlink(Outside("c/Alias.mp3")));
}

TEST_F(CrossingLinksTest, WhatLiesOnNoDriveIsNotReached) {
  NEEDS_LINKS();
  Put(Outside("away/One.mp3"), "one");
  MakeFolderLink(Outside("away"), Outside("c/away"));
  EXPECT_FALSE(Crossing().FactsOf(u"C:\\away\\One.mp3"));
  EXPECT_EQ(warnings_.size(), 1U);
}

TEST_F(PathResolverTest, AFolderThatBecomesALinkOutOfTheDriveIsNotFollowedByAnOpening) {
  NEEDS_LINKS();
  Put(Outside("away/a.txt"), "secret");
  Put(Disk("C/m/a.txt"), "own");
  EXPECT_EQ(Read(u"C:\\m\\a.txt"), "own");
  std::filesystem::remove_all(Disk("C/m"));
  MakeFolderLink(Outside("away"), Disk("C/m"));
  EXPECT_NE(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\m\\a.txt"); }), 0);
  EXPECT_NE(NumberRaisedBy([&] { Files().ListFolder(u"C:\\m", {}); }), 0);
}

TEST_F(PathResolverTest, AFolderThatBecomesALinkOutOfTheDriveIsNotFollowedByAChange) {
  NEEDS_LINKS();
  Put(Disk("C/m/sub/a.ini"), "own");
  Put(Outside("away/sub/a.ini"), "secret");
  EXPECT_EQ(Read(u"C:\\m\\sub\\a.ini"), "own");
  EXPECT_TRUE(Files().FolderExists(u"C:\\m\\sub"));
  std::filesystem::remove_all(Disk("C/m"));
  MakeFolderLink(Outside("away"), Disk("C/m"));
  EXPECT_NE(NumberRaisedBy([&] { Files().CreateFolder(u"C:\\m\\sub\\new"); }), 0);
  EXPECT_NE(NumberRaisedBy([&] { Files().RemoveFile(u"C:\\m\\sub\\a.ini", true); }), 0);
  EXPECT_NE(NumberRaisedBy([&] { Machine().Settings().Write(u"C:\\m\\sub\\a.ini", "x"); }), 0);
  EXPECT_NE(NumberRaisedBy([&] { Machine().Settings().Write(u"C:\\m\\sub\\b\\c", "x"); }), 0);
  EXPECT_NE(NumberRaisedBy([&] { Files().OpenForAppending(u"C:\\m\\sub\\log", true); }), 0);
  EXPECT_EQ(Get(Outside("away/sub/a.ini")), "secret");
  const std::filesystem::directory_iterator all(Outside("away/sub"));
  EXPECT_EQ(std::distance(begin(all), end(all)), 1);
}

TEST_F(PathResolverTest, ALinkWithinTheDriveWorks) {
  NEEDS_LINKS();
  Put(Disk("C/real/Song.mp3"), "123");
  MakeFolderLink("real", Disk("C/Relative"));
  MakeFolderLink(Disk("C/real"), Disk("C/Absolute"));
  MakeFileLink("real/Song.mp3", Disk("C/Alias.mp3"));
  EXPECT_EQ(NameOf(u"C:\\relative\\song.mp3"), "Song.mp3");
  EXPECT_EQ(NameOf(u"C:\\Absolute\\Song.mp3"), "Song.mp3");
  EXPECT_EQ(NameOf(u"C:\\Alias.mp3"), "Alias.mp3");
  EXPECT_EQ(Files().FactsOf(u"C:\\Alias.mp3")->size, 3);
  EXPECT_EQ(Read(u"C:\\Alias.mp3"), "123");
  EXPECT_EQ(Read(u"C:\\Absolute\\Song.mp3"), "123");
  Files().RemoveFile(u"C:\\Alias.mp3", false);
  EXPECT_TRUE(Files().FileExists(u"C:\\real\\Song.mp3")) << "only the link is deleted";
}

TEST_F(PathResolverTest, LinksThatGoRoundInACircleDoNotExist) {
  NEEDS_LINKS();
  MakeFileLink("b", Disk("C/a"));
  MakeFileLink("a", Disk("C/b"));
  MakeFileLink("self", Disk("C/self"));
  EXPECT_EQ(NameOf(u"C:\\a"), "(none)");
  EXPECT_FALSE(Files().FolderExists(u"C:\\self"));
  EXPECT_TRUE(Files().ListFolder(u"C:\\", {}).empty());
}

TEST_F(PathResolverTest, OverLongNamesAndPathsDoNotExist) {
  EXPECT_EQ(NameOf(u"C:\\" + String(300, u'a')), "(none)");
  EXPECT_FALSE(Files().FolderExists(u"C:\\" + String(40000, u'a')));
  String deep = u"C:";
  for (int i = 0; i < 16000; ++i) deep += u"\\a";
  EXPECT_NE(NumberRaisedBy([&] { Machine().Settings().Write(deep, "x"); }), 0);
  EXPECT_NE(NumberRaisedBy([&] { Files().CreateFolder(u"C:\\" + String(300, u'a')); }), 0);
}

TEST_F(PathResolverTest, APathOfThousandsOfNamesEndsAtTheFirstThatIsMissing) {
  Put(Disk("C/a/a/song.mp3"), "x");
  String deep = u"C:";
  while (deep.size() < 32000) deep += u"\\a";
  // To look up each of the 16,000 folders that it names would hash half a gigabyte every time.
  for (int i = 0; i < 500; ++i) ASSERT_EQ(NameOf(deep), "(none)");
  EXPECT_EQ(NameOf(u"C:\\A\\a\\SONG.mp3"), "song.mp3");
}

}  // namespace
}  // namespace norvo
