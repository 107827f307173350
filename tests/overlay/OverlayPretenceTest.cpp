#include "overlay/OverlayFixture.h"

namespace norvo {
namespace {

/// Files that stand there as long as they are pretended.
class OverlayPretenceTest : public OverlayFixture {};

TEST_F(OverlayPretenceTest, AFileThatIsPretendedStands) {
  Overlay().Pretend(u"C:\\Music\\Album\\planned.mp3", Planned(u"Planned.mp3"));
  const std::optional<FileFacts> facts = Files().FactsOf(u"c:/music/album/PLANNED.mp3");
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->name, u"Planned.mp3");
  EXPECT_EQ(facts->size, 4711);
  EXPECT_EQ(facts->created, 1000);
  EXPECT_EQ(facts->modified, 2'000'000'000'000);
  EXPECT_TRUE(Files().FolderExists(u"C:\\Music\\Album"));
  EXPECT_FALSE(Files().FileExists(u"C:\\Music\\Album"));
  EXPECT_EQ(Names(u"C:\\Music\\Album"), (Paths{u"Planned.mp3"}));
  EXPECT_EQ(Overlay().Written(u"C:\\Music\\Album\\Planned.mp3"), std::nullopt);
  EXPECT_TRUE(Overlay().WrittenPaths().empty());

  Overlay().Pretend(u"C:\\Other.mp3", Planned(u"Source.mp3"));
  EXPECT_EQ(Files().FactsOf(u"C:\\Other.mp3")->name, u"Other.mp3");
  EXPECT_EQ(Names(u"C:\\"), (Paths{u"Music\\", u"Old.txt", u"Other.mp3"}));
}

TEST_F(OverlayPretenceTest, AFileThatIsPretendedHasNoContent) {
  Overlay().Pretend(u"C:\\Old.txt", Planned());
  EXPECT_EQ(Files().FactsOf(u"C:\\Old.txt")->size, 4711);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForReading(u"C:\\Old.txt"); }), 57);
  EXPECT_EQ(NumberRaisedBy([&] { Files().OpenForAppending(u"C:\\Old.txt", true); }), 57);
  EXPECT_EQ(NumberRaisedBy([&] { Overlay().Settings().Read(u"C:\\Old.txt"); }), 57);
  EXPECT_EQ(Files().FileVersion(u"C:\\Old.txt"), u"");
  Overlay().TakeBack(u"c:/old.txt");
  EXPECT_EQ(Read(u"C:\\Old.txt"), "old");
}

TEST_F(OverlayPretenceTest, TakesPretencesBack) {
  Write(u"C:\\Plan\\Written.txt", "written");
  Overlay().Pretend(u"C:\\Plan\\A\\a.mp3", Planned());
  Overlay().Pretend(u"C:\\Plan\\A\\b.mp3", Planned());
  Overlay().Pretend(u"C:\\Plan\\B\\c.mp3", Planned());
  Overlay().Pretend(u"C:\\Plan\\Written.txt", Planned());
  Overlay().TakeBack(u"c:\\plan\\a\\A.MP3");
  Overlay().TakeBack(u"C:\\Plan\\Nothing.mp3");
  EXPECT_FALSE(Files().FileExists(u"C:\\Plan\\A\\a.mp3"));
  EXPECT_TRUE(Files().FolderExists(u"C:\\Plan\\A"));
  Overlay().TakeBack(u"C:\\Plan\\A\\b.mp3");
  EXPECT_FALSE(Files().FolderExists(u"C:\\Plan\\A"));
  EXPECT_EQ(Files().FactsOf(u"C:\\Plan\\Written.txt")->size, 4711);
  EXPECT_TRUE(Files().FolderExists(u"C:\\Plan\\B"));
  Overlay().TakeBackAll();
  EXPECT_FALSE(Files().FolderExists(u"C:\\Plan\\B"));
  EXPECT_EQ(Read(u"C:\\Plan\\Written.txt"), "written");
}

TEST_F(OverlayPretenceTest, WhatIsWrittenInAPretendedFolderOutlivesIt) {
  Overlay().Pretend(u"C:\\Plan\\A\\a.mp3", Planned());
  Append(u"C:\\Plan\\A\\list.m3u", "a.mp3");
  Files().CreateFolder(u"C:\\Plan\\B");
  Overlay().TakeBackAll();
  EXPECT_TRUE(Files().FolderExists(u"C:\\Plan\\B"));
  EXPECT_EQ(Names(u"C:\\Plan\\A"), (Paths{u"list.m3u"}));
}

TEST_F(OverlayPretenceTest, WritingAndDeletingTakeAPretenceBack) {
  Overlay().Pretend(u"C:\\Music\\One.mp3", Planned());
  Overlay().Pretend(u"C:\\Music\\Two.mp3", Planned());
  Overlay().Pretend(u"C:\\Music\\Three.mp3", Planned());
  Files().RemoveFile(u"C:\\Music\\One.mp3", false);
  Files().RemoveFile(u"C:\\Music\\Two.mp3", false);
  Write(u"C:\\Music\\Three.mp3", "three");
  EXPECT_EQ(Names(u"C:\\Music"), (Paths{u"Mix.m3u", u"Three.mp3"}));
  EXPECT_EQ(Read(u"C:\\Music\\Three.mp3"), "three");
  Overlay().TakeBackAll();
  EXPECT_EQ(Names(u"C:\\Music"), (Paths{u"Mix.m3u", u"Three.mp3"}));
}

TEST_F(OverlayPretenceTest, APretenceThatCannotStandIsRefused) {
  const auto pretend = [&](StringView path) {
    return NumberRaisedBy([&] { Overlay().Pretend(path, Planned()); });
  };
  EXPECT_EQ(pretend(u""), 75);
  EXPECT_EQ(pretend(u"C:\\Music"), 75);
  EXPECT_EQ(pretend(u"C:\\New\\"), 75);
  EXPECT_EQ(pretend(u"C:\\Old.txt\\a.mp3"), 75);
  EXPECT_EQ(pretend(u"C:\\New\\a\1.mp3"), 75);
  EXPECT_EQ(pretend(u"C:\\N\1w\\a.mp3"), 75);
  EXPECT_EQ(pretend(u"D:\\a.mp3"), 76);
  EXPECT_FALSE(Files().FolderExists(u"C:\\New"));
  EXPECT_EQ(pretend(u"C:\\New\\a.mp3"), 0);
  EXPECT_EQ(pretend(u"C:\\New"), 75);
  EXPECT_EQ(pretend(u"C:\\New\\a.mp3\\b.mp3"), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Write(u"C:\\New", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Write(u"C:\\New\\a.mp3\\b.ini", "x"); }), 75);
  EXPECT_EQ(NumberRaisedBy([&] { Files().CreateFolder(u"C:\\New\\A.MP3"); }), 75);
}

}  // namespace
}  // namespace norvo
