#include "move/StockTaking.h"

#include <gtest/gtest.h>

#include "library/Library.h"
#include "support/MemoryPlatform.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

class StockTakingTest : public ::testing::Test {
 protected:
  Stock Take() {
    WorkObserver nobody;
    std::vector<WorkWarning> warnings;
    WorkReport report(nobody, warnings);
    return TakeStock(*OpenLibrary(machine), texts, report);
  }
  Lines Lists() {
    Lines lines;
    for (const StockList& list : Take().lists) {
      lines.push_back(Utf8(list.path) + (list.isRead ? ": " : ", not read: ") + list.kind);
    }
    return lines;
  }
  Lines Media() {
    Lines lines;
    for (const StringView path : Take().media) lines.push_back(Utf8(path));
    return lines;
  }

  std::shared_ptr<MemoryPlatform> machine = std::make_shared<MemoryPlatform>();
  TextPool texts;
};

TEST_F(StockTakingTest, AListIsKnownByItsNameWhateverIsInIt) {
  machine->AddFile(u"C:\\a.M3U8", "");
  machine->AddFile(u"C:\\b.wpl", "");
  machine->AddFile(u"C:\\c.fpl", "");
  machine->AddFile(u"C:\\d\\iTunes Music Library.xml", "");
  machine->AddFile(u"C:\\d\\Other.xml", "");
  const Lines lists = Lists();
  ASSERT_EQ(lists.size(), 4u);
  EXPECT_TRUE(lists[0].starts_with("C:\\a.M3U8: "));
  EXPECT_TRUE(lists[1].starts_with("C:\\b.wpl: "));
  EXPECT_TRUE(lists[2].starts_with("C:\\c.fpl, not read: "));
  EXPECT_TRUE(lists[3].starts_with("C:\\d\\iTunes Music Library.xml: "));
}

TEST_F(StockTakingTest, AListIsKnownByItsBeginningWhateverItIsCalled) {
  machine->AddFile(u"C:\\Party", "#EXTM3U\r\nOne.mp3\r\n");
  machine->AddFile(u"C:\\Party.txt", "[playlist]\r\nFile1=One.mp3\r\n");
  machine->AddFile(u"C:\\Notes.txt", "a list begins with #EXTM3U\r\n");
  EXPECT_EQ(Lists(), (Lines{"C:\\Party: playlist with a name of its own",
                            "C:\\Party.txt: playlist with a name of its own"}));
}

TEST_F(StockTakingTest, FilesWhoseEndingsTellWhatTheyAreAreNotOpened) {
  machine->AddFile(u"C:\\Setup.EXE", "#EXTM3U\r\n");
  machine->AddFile(u"C:\\Photo.jpg", "#EXTM3U\r\n");
  machine->AddFile(u"C:\\Song.mp3", "#EXTM3U\r\n");
  EXPECT_EQ(Lists(), Lines());
  EXPECT_EQ(machine->Calls(u"OpenForReading"), 0u);
}

TEST_F(StockTakingTest, MediaOfEveryKindAreCounted) {
  for (const StringView name : {u"a.mp3", u"b.OGG", u"c.flac", u"d.m4a", u"e.wma", u"f.opus",
                                u"g.avi", u"h.xm", u"i.ape", u"j.mpc", u"k.aiff", u"l.dat"}) {
    machine->AddFile(u"C:\\Music\\" + String(name), "sound");
  }
  EXPECT_EQ(Media(),
            (Lines{"C:\\Music\\a.mp3", "C:\\Music\\b.OGG", "C:\\Music\\c.flac", "C:\\Music\\d.m4a",
                   "C:\\Music\\e.wma", "C:\\Music\\f.opus", "C:\\Music\\g.avi", "C:\\Music\\h.xm",
                   "C:\\Music\\i.ape", "C:\\Music\\j.mpc", "C:\\Music\\k.aiff"}));
}

TEST_F(StockTakingTest, TheSystemsOwnSoundsAreNobodysMusic) {
  machine->AddFile(u"C:\\WINDOWS\\Media\\ding.wav", "sound");
  machine->AddFile(u"C:\\WinNT\\Media\\ding.wav", "sound");
  machine->AddFile(u"C:\\Program Files\\Winamp\\demo.mp3", "sound");
  machine->AddFile(u"C:\\WINDOWS\\Profiles\\Ann\\Music\\own.mp3", "sound");
  EXPECT_EQ(Media(), (Lines{"C:\\Program Files\\Winamp\\demo.mp3",
                            "C:\\WINDOWS\\Profiles\\Ann\\Music\\own.mp3"}));
}

TEST_F(StockTakingTest, WhatWasDeletedOrIsKeptByABrowserIsToldWithItsPlace) {
  machine->AddFile(u"C:\\RECYCLER\\S-1\\Old.m3u", "Song.mp3");
  machine->AddFile(u"C:\\RECYCLER\\S-1\\Old.mp3", "sound");
  machine->AddFile(u"C:\\Users\\A\\Temporary Internet Files\\Web.asx", "");
  machine->AddFile(u"C:\\System Volume Information\\Kept.pls", "");
  const Stock stock = Take();
  ASSERT_EQ(stock.lists.size(), 3u);
  EXPECT_EQ(stock.lists[0].rule, MovedPlaylist::SkipRule::RecycleBin);
  EXPECT_EQ(stock.lists[1].rule, MovedPlaylist::SkipRule::SystemFolder);
  EXPECT_EQ(stock.lists[2].rule, MovedPlaylist::SkipRule::TemporaryInternetFiles);
  EXPECT_TRUE(stock.media.empty());
  ASSERT_EQ(stock.skipped.size(), 1u);
  EXPECT_TEXT(stock.skipped[0].source, u"C:\\RECYCLER\\S-1\\Old.mp3");
  EXPECT_EQ(stock.skipped[0].size, 5);
  EXPECT_EQ(stock.skipped[0].rule, MovedPlaylist::SkipRule::RecycleBin);
}

TEST_F(StockTakingTest, PointsAndBlanksAtTheEndOfANameDoNotCount) {
  machine->AddFile(u"C:\\a.m3u.", "");
  EXPECT_EQ(Lists().size(), 1u);
}

TEST_F(StockTakingTest, OnlyFixedDrivesAreGoneThrough) {
  machine->AddDrive(u'D', DriveType::CdRom);
  machine->AddDrive(u'E', DriveType::Fixed);
  machine->AddFile(u"D:\\Disc.m3u", "");
  machine->AddFile(u"E:\\Mine.m3u", "");
  const Lines lists = Lists();
  ASSERT_EQ(lists.size(), 1u);
  EXPECT_TRUE(lists[0].starts_with("E:\\Mine.m3u: "));
}

TEST_F(StockTakingTest, AFileThatCannotBeOpenedIsNoList) {
  machine->AddFile(u"C:\\Party.txt", "#EXTM3U\r\n");
  machine->FailOn(u"OpenForReading", 1, 70);
  EXPECT_EQ(Lists(), Lines());
}

}  // namespace
}  // namespace norvo
