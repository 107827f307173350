#include <chrono>
#include <string>

#include "overlay/OverlayFixture.h"

namespace norvo {
namespace {

/// What is written, deleted and listed, and what is refused.
class OverlayFilesTest : public OverlayFixture {};

TEST_F(OverlayFilesTest, RaisesWhatTheMachineBelowRaises) {
  const auto open = [&](StringView path) { Files().OpenForReading(path); };
  EXPECT_EQ(NumberRaisedBy([&] { open(u"C:\\Music\\Two.mp3"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { open(u"C:\\Music"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { open(u"C:\\No\\Two.mp3"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Files().RemoveFile(u"C:\\Music\\Two.mp3", true); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Files().RemoveFile(u"C:\\No\\Two.mp3", true); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Files().RemoveFile(u"C:\\Music", true); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Append(u"C:\\Two.txt", "x", false); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Append(u"C:\\No\\Two.txt", "x", false); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Append(u"C:\\No\\Two.txt", "x"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Append(u"C:\\Music", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Append(u"C:\\Two.txt\\", "x"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Append(u"C:\\a\1b.txt", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Names(u"C:\\No"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Names(u"C:\\Old.txt"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"C:\\Music"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"C:\\Old.txt"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"C:\\No\\New"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"D:\\New"); }), 76);
  EXPECT_EQ(NumberRaisedBy([&] { Write(u"", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Write(u"C:\\Music", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Write(u"C:\\New\\", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Write(u"C:\\Old.txt\\New", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Write(u"D:\\New\\x.ini", "x"); }), 76);
  EXPECT_TRUE(Overlay().WrittenPaths().empty());
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"Old.txt"}));
}

TEST_F(OverlayFilesTest, KeepsALongFileWholeWhileItIsReadAndGrows) {
  std::string text;
  for (int i = 0; i < 5'000; ++i) text += "C:\\Music\\" + std::to_string(i) + ".mp3\r\n";
  Write(u"C:\\Long.m3u", text);
  EXPECT_EQ(Read(u"C:\\Long.m3u"), text);
  EXPECT_EQ(Files().FactsOf(u"C:\\Long.m3u")->size, static_cast<double>(text.size()));
  const auto reader = Files().OpenForReading(u"C:\\Long.m3u");
  Append(u"C:\\Long.m3u", "more");  // whoever has it open sees it, as on a disk
  EXPECT_EQ(reader->Size(), text.size() + 4);
  EXPECT_EQ(Overlay().Written(u"C:\\Long.m3u"), text + "more");
  EXPECT_EQ(Overlay().Settings().Read(u"C:\\Long.m3u"), text + "more");
  EXPECT_EQ(Read(u"C:\\Long.m3u"), text + "more");
}

TEST_F(OverlayFilesTest, RefusesPathsAndNamesThatAreTooLong) {
  const String name(255, u'n');
  EXPECT_EQ(NumberRaisedBy([&] { Write(u"C:\\" + name, "x"); }), 0);
  EXPECT_EQ(NumberRaisedBy([&] { Write(u"C:\\" + name + u"n", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Write(u"C:\\" + name + u"n\\x.txt", "x"); }), 75);
  String path = u"C:";
  while (path.size() < 4094) path += u'\\' + String(123, u'a');
  EXPECT_EQ(NumberRaisedBy([&] { Write(path + u"\\b", "x"); }), 0);
  EXPECT_EQ(NumberRaisedBy([&] { Write(path + u"\\bc", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Overlay().Pretend(path + u"\\bc", Planned()); }), 75);
}

TEST_F(OverlayFilesTest, KeepsWhatIsWritten) {
  Write(u"C:\\Data\\Deep\\List.ini", "[a]\r\n");
  EXPECT_TRUE(Files().FolderExists(u"C:\\Data"));
  EXPECT_TRUE(Files().FolderExists(u"c:/data/DEEP/"));
  EXPECT_EQ(Overlay().Settings().Read(u"c:\\data\\deep\\LIST.INI"), "[a]\r\n");
  EXPECT_EQ(Read(u"C:\\Data\\x\\..\\Deep. \\List.ini. "), "[a]\r\n");
  EXPECT_EQ(Overlay().Written(u"C:/Data/Deep/list.ini"), "[a]\r\n");
  EXPECT_FALSE(Files().FactsOf(u"C:\\Data\\Deep\\List.ini\\"));
  EXPECT_FALSE(Files().FactsOf(u"C:\\Data\\Deep"));
  EXPECT_FALSE(FilesBelow().FolderExists(u"C:\\Data"));
}

TEST_F(OverlayFilesTest, GivesAWrittenFileTheTimeOfItsWriting) {
  const auto seconds = [] {
    return std::chrono::duration_cast<std::chrono::seconds>(
               std::chrono::system_clock::now().time_since_epoch())
        .count();
  };
  const std::int64_t start = seconds();
  Write(u"C:\\OLD.TXT", "newer");
  const std::int64_t end = seconds();
  const std::optional<FileFacts> facts = Files().FactsOf(u"C:\\old.txt");
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Old.txt") << "a replaced file keeps its spelling";
  EXPECT_EQ(facts->size, 5);
  EXPECT_GE(facts->created, start);
  EXPECT_LE(facts->created, end);
  EXPECT_EQ(facts->modified / 1'000'000'000, facts->created);
  EXPECT_EQ(Overlay().WrittenPaths(), (Paths{u"C:\\Old.txt"}));
}

TEST_F(OverlayFilesTest, AnOpenFileStaysWhatItWasWhenItIsReplaced) {
  Write(u"C:\\New.txt", "first");
  const std::unique_ptr<BinaryFile> open = Files().OpenForReading(u"C:\\New.txt");
  Write(u"C:\\New.txt", "the second one");
  std::string bytes(20, '\0');
  EXPECT_EQ(open->Size(), 5u);
  EXPECT_EQ(open->ReadAt(0, bytes), 5u);
  EXPECT_EQ(bytes.substr(0, 5), "first");
  EXPECT_EQ(open->ReadAt(3, std::span(bytes).first(1)), 1u);
  EXPECT_EQ(bytes[0], 's');
  EXPECT_EQ(open->ReadAt(5, bytes), 0u);
  EXPECT_EQ(open->ReadAt(99, bytes), 0u);
  EXPECT_EQ(Read(u"C:\\New.txt"), "the second one");
}

TEST_F(OverlayFilesTest, AppendsBehindTheContentBelow) {
  const std::optional<FileFacts> below = Files().FactsOf(u"C:\\Old.txt");
  Append(u"c:\\old.TXT", " and new", false);
  Append(u"C:\\Old.txt", "er");
  EXPECT_EQ(Read(u"C:\\Old.txt"), "old and newer");
  EXPECT_EQ(FilesBelow().FactsOf(u"C:\\Old.txt")->size, 3);
  const std::optional<FileFacts> facts = Files().FactsOf(u"C:\\Old.txt");
  EXPECT_EQ(facts->created, below->created);
  EXPECT_GT(facts->modified, below->modified);
  EXPECT_EQ(facts->size, 13);
}

TEST_F(OverlayFilesTest, CreatesAFileToAppendToOnlyWhenAsked) {
  EXPECT_EQ(NumberRaisedBy([&] { Append(u"C:\\Log.txt", "x", false); }), 53);
  EXPECT_FALSE(Files().FileExists(u"C:\\Log.txt"));
  Append(u"C:\\Log.txt", "1");
  Append(u"C:\\LOG.TXT", "2", false);
  EXPECT_EQ(Overlay().Written(u"C:\\Log.txt"), "12");
}

TEST_F(OverlayFilesTest, HidesADeletedFile) {
  Files().RemoveFile(u"c:\\music\\MIX.M3U", false);
  EXPECT_FALSE(Files().FileExists(u"C:\\Music\\Mix.m3u"));
  EXPECT_EQ(Names(u"C:\\Music"), (Paths{u"One.mp3"}));
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\Music\\Mix.m3u"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Files().RemoveFile(u"C:\\Music\\Mix.m3u", true); }), 53);
  EXPECT_EQ(Overlay().Settings().Read(u"C:\\Music\\Mix.m3u"), std::nullopt);
  EXPECT_EQ(Files().FileVersion(u"C:\\Music\\Mix.m3u"), u"");
  EXPECT_TRUE(FilesBelow().FileExists(u"C:\\Music\\Mix.m3u"));

  Append(u"C:\\Music\\mix.m3u", "anew");
  EXPECT_EQ(Read(u"C:\\Music\\Mix.m3u"), "anew");
  EXPECT_EQ(Names(u"C:\\Music"), (Paths{u"mix.m3u", u"One.mp3"}));
  Files().RemoveFile(u"C:\\Music\\Mix.m3u", false);
  EXPECT_FALSE(Files().FileExists(u"C:\\Music\\Mix.m3u"));
  EXPECT_EQ(Overlay().Written(u"C:\\Music\\Mix.m3u"), std::nullopt);
  EXPECT_TRUE(Overlay().WrittenPaths().empty());
}

TEST_F(OverlayFilesTest, AFolderMayTakeTheNameOfADeletedFile) {
  Files().RemoveFile(u"C:\\Old.txt", false);
  Files().CreateFolder(u"C:\\Old.txt");
  EXPECT_TRUE(Files().FolderExists(u"C:\\Old.txt"));
  EXPECT_FALSE(Files().FileExists(u"C:\\Old.txt"));
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"Old.txt\\"}));
  EXPECT_TRUE(Names(u"C:\\Old.txt").empty());
}

TEST_F(OverlayFilesTest, CreatesOneFolderAtATime) {
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"C:\\New\\Deep"); }), 76);
  Files().CreateFolder(u"C:\\New\\");
  Files().CreateFolder(u"c:\\new\\Deep");
  EXPECT_TRUE(Files().FolderExists(u"C:\\NEW\\deep\\"));
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"C:\\new"); }), 75);
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"New\\", u"Old.txt"}));
  EXPECT_EQ(Names(u"C:\\new"), (Paths{u"Deep\\"}));
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\New\\Deep\\a.txt"); }), 53);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\New\\Deeper\\a.txt"); }), 76);
}

TEST_F(OverlayFilesTest, ListsBothWorldsAsOne) {
  Write(u"C:\\Music\\ONE.MP3", "one more");
  Write(u"C:\\Music\\Sub\\x.txt", "x");
  Write(u"C:\\Music\\Two.m3u", "two");
  Write(u"C:\\Music\\Two.txt", "two");
  Overlay().Pretend(u"C:\\Music\\Sub\\Deep\\Planned.m3u", Planned());
  Overlay().Pretend(u"C:\\Music\\Album\\Planned.M3U", Planned());
  Overlay().Pretend(u"C:\\Music\\Planned.M3U", Planned());
  EXPECT_EQ(Names(u"C:\\Music"), (Paths{u"Album\\", u"Mix.m3u", u"One.mp3", u"Planned.M3U",
                                        u"Sub\\", u"Two.m3u", u"Two.txt"}));
  EXPECT_EQ(Names(u"c:/music/", {u".m3u", u".pls"}),
            (Paths{u"Album\\", u"Mix.m3u", u"Planned.M3U", u"Sub\\", u"Two.m3u"}));
  EXPECT_EQ(Names(u"C:\\Music\\Sub"), (Paths{u"Deep\\", u"x.txt"}));
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"Old.txt"}));
}

TEST_F(OverlayFilesTest, ListsALinkedFolderNoMoreThanTheMachineBelow) {
  fs::create_directory_symlink("Music", Place("C/Link"));
  Write(u"C:\\Link\\New.txt", "new");
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"Old.txt"}));
  EXPECT_EQ(Names(u"C:\\Link"), (Paths{u"Mix.m3u", u"New.txt", u"One.mp3"}));
}

TEST_F(OverlayFilesTest, TellsWrittenPathsInTheOrderOfWriting) {
  Write(u"C:/Z/last.ini", "1");
  Append(u"C:\\Old.txt", "2");
  Write(u"C:\\A.ini", "3");
  Write(u"C:\\z\\LAST.ini", "4");
  Overlay().Pretend(u"C:\\B.mp3", Planned());
  EXPECT_EQ(Overlay().WrittenPaths(), (Paths{u"C:\\Z\\last.ini", u"C:\\Old.txt", u"C:\\A.ini"}));
  Files().RemoveFile(u"C:\\Z\\last.ini", false);
  Write(u"C:\\Z\\last.ini", "5");
  EXPECT_EQ(Overlay().WrittenPaths(), (Paths{u"C:\\Old.txt", u"C:\\A.ini", u"C:\\Z\\last.ini"}));
  EXPECT_EQ(Overlay().Written(u"C:\\Z\\last.ini"), "5");
  EXPECT_EQ(Overlay().Written(u"C:\\Music\\One.mp3"), std::nullopt);
  EXPECT_EQ(Overlay().Written(u"C:\\Z"), std::nullopt);
}

}  // namespace
}  // namespace norvo
