#include "services/MediaList.h"

#include "automation/RunTimeError.h"
#include "support/LibraryTest.h"
#include "text/Number.h"

namespace norvo {
namespace {

constexpr StringView kGroup = u"KVMediaPlayLists";
constexpr StringView kMediaRoot = u"C:\\Root\\";
constexpr StringView kPath = u"C:\\Root\\KVs\\MediaList.txt";

class MediaListTest : public LibraryTest {
 protected:
  MediaList Fresh() { return MediaList(platform->Files(), platform->Settings()); }

  static MediaRecord Record(StringView source, StringView destination = u"expression") {
    return {String(source), String(destination), u"Music"};
  }

  std::size_t Occurrences(const std::string& sought) {
    std::size_t count = 0;
    const std::string& bytes = platform->Bytes(kPath);
    for (std::size_t at = bytes.find(sought); at != std::string::npos;
         at = bytes.find(sought, at + 1)) {
      ++count;
    }
    return count;
  }
};

TEST_F(MediaListTest, WithoutAGroupOrARootNothingIsKept) {
  MediaList list = Fresh();
  EXPECT_FALSE(list.EnsureGroup(u"", kMediaRoot));
  EXPECT_FALSE(list.EnsureGroup(kGroup, u""));
  EXPECT_FALSE(list.Add(Record(u"C:\\a.mp3")));
  EXPECT_TRUE(list.Flush());
  EXPECT_TRUE(platform->Files().AllFiles().empty());
}

TEST_F(MediaListTest, RecordsReachTheFileWithTheNextFlush) {
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  EXPECT_TRUE(list.Add(Record(u"C:\\Ärzte\\日.mp3", u"GET_SHELL_FOLDER,5,Music,sub")));
  EXPECT_FALSE(platform->HasFile(kPath));
  EXPECT_TRUE(list.Flush());
  EXPECT_TRUE(list.Add(Record(u"C:\\b.mp3")));
  EXPECT_TRUE(list.Flush());
  EXPECT_EQ(platform->Bytes(kPath),
            "\xEF\xBB\xBF"
            "Music\tC:\\Ärzte\\日.mp3\tGET_SHELL_FOLDER,5,Music,sub\r\n"
            "Music\tC:\\b.mp3\texpression\r\n");
}

TEST_F(MediaListTest, ARootWithoutABackslashNamesTheSameFile) {
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, u"C:\\Root"));
  list.Add(Record(u"C:\\a.mp3"));
  list.Flush();
  EXPECT_TRUE(platform->HasFile(kPath));
}

TEST_F(MediaListTest, TheSameSourceAndDestinationIsKeptOnceWhateverTheCase) {
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  EXPECT_TRUE(list.Add(Record(u"C:\\Ä.mp3", u"one")));
  EXPECT_TRUE(list.Add(Record(u"c:\\ä.MP3", u"ONE")));
  EXPECT_TRUE(list.Add(Record(u"C:\\Ä.mp3", u"two")));
  EXPECT_TRUE(list.Add(Record(u"C:\\Ä.mp", u"3one")));
  list.Flush();
  EXPECT_EQ(Occurrences("\r\n"), 3u);
}

TEST_F(MediaListTest, RecordsOfAnEarlierRunAreKnown) {
  MediaList first = Fresh();
  ASSERT_TRUE(first.EnsureGroup(kGroup, kMediaRoot));
  first.Add(Record(u"C:\\a.mp3"));
  first.Flush();
  MediaList second = Fresh();
  ASSERT_TRUE(second.EnsureGroup(kGroup, kMediaRoot));
  EXPECT_TRUE(second.Add(Record(u"C:\\A.mp3")));
  EXPECT_TRUE(second.Add(Record(u"C:\\b.mp3")));
  second.Flush();
  EXPECT_EQ(Occurrences("\r\n"), 2u);
}

TEST_F(MediaListTest, TheFileIsReadOncePerRoot) {
  MediaList list = Fresh();
  for (int i = 0; i < 3; ++i) ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  EXPECT_EQ(platform->Calls(u"Settings.Read"), 1u);
}

TEST_F(MediaListTest, AFlushIsOneWriteAndNoneWithoutRecords) {
  platform->AddFile(kPath, "\xEF\xBB\xBF");
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  for (const StringView source : {u"C:\\a", u"C:\\b", u"C:\\c"}) list.Add(Record(source));
  EXPECT_TRUE(list.Flush());
  EXPECT_TRUE(list.Flush());
  EXPECT_EQ(platform->Calls(u"Append"), 1u);
}

TEST_F(MediaListTest, AnotherRootHasAListOfItsOwn) {
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  list.Add(Record(u"C:\\a.mp3"));
  ASSERT_TRUE(list.EnsureGroup(kGroup, u"C:\\Other"));
  list.Add(Record(u"C:\\a.mp3"));
  list.Flush();
  EXPECT_EQ(Occurrences("\r\n"), 1u);
  EXPECT_TRUE(platform->HasFile(u"C:\\Other\\KVs\\MediaList.txt"));
}

TEST_F(MediaListTest, WhatCouldNotBeWrittenIsKeptForTheNextFlush) {
  for (const bool exists : {false, true}) {
    platform = std::make_shared<MemoryPlatform>();
    if (exists) platform->AddFile(kPath, "\xEF\xBB\xBFMusic\tC:\\old.mp3\tx\r\n");
    MediaList list = Fresh();
    ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
    list.Add(Record(u"C:\\a.mp3"));
    platform->FailOn(u"Append", 1, error::kDiskFull);
    EXPECT_FALSE(list.Flush());
    list.Add(Record(u"C:\\b.mp3"));
    EXPECT_TRUE(list.Flush());
    EXPECT_EQ(Occurrences("Music\tC:\\a.mp3\texpression\r\n"), 1u);
    EXPECT_EQ(Occurrences("Music\tC:\\b.mp3\texpression\r\n"), 1u);
    EXPECT_EQ(Occurrences("old.mp3"), exists ? 1u : 0u);
  }
}

TEST_F(MediaListTest, LinesThatAreNoRecordsAreKeptButNotKnown) {
  platform->AddFile(kPath, "\xEF\xBB\xBFnote\r\n\r\nMusic\tC:\\a.mp3\r\n");
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  list.Add(Record(u"C:\\a.mp3", u""));
  list.Flush();
  EXPECT_EQ(platform->Bytes(kPath),
            "\xEF\xBB\xBFnote\r\n\r\nMusic\tC:\\a.mp3\r\nMusic\tC:\\a.mp3\t\r\n");
}

TEST_F(MediaListTest, RecordsBehindATornLineBeginALineOfTheirOwn) {
  platform->AddFile(kPath, "\xEF\xBB\xBFMusic\tC:\\a.mp3\tx\r\nMusic\tC:\\to");
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  list.Add(Record(u"C:\\b.mp3"));
  list.Flush();
  EXPECT_EQ(Occurrences("\r\nMusic\tC:\\b.mp3\texpression\r\n"), 1u);
}

TEST_F(MediaListTest, ATornLineNeverBecomesARecord) {
  platform->AddFile(kPath, "\xEF\xBB\xBFMusic\tC:\\torn.mp3\tGET_SH");
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  list.Add(Record(u"C:\\b.mp3"));
  list.Flush();
  EXPECT_EQ(Occurrences("\xEF\xBB\xBFMusic\tC:\\b.mp3\texpression\r\n"), 1u);
  EXPECT_EQ(Occurrences("Music\tC:\\torn.mp3\tGET_SH\r\n"), 0u);
}

TEST_F(MediaListTest, ALineTornWithinItsEndKeepsNoCarriageReturn) {
  platform->AddFile(kPath, "\xEF\xBB\xBFMusic\tC:\\a.mp3\tx\r");
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  list.Add(Record(u"C:\\b.mp3"));
  list.Flush();
  EXPECT_EQ(Occurrences("\r\r\n"), 0u);
}

TEST_F(MediaListTest, RecordsOfARootThatCouldNotBeWrittenAreNotLostOnAChange) {
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  list.Add(Record(u"C:\\a.mp3"));
  platform->FailOn(u"OpenShared", 1, error::kDiskFull);
  list.EnsureGroup(kGroup, u"C:\\Other");
  list.EnsureGroup(kGroup, kMediaRoot);
  list.Flush();
  ASSERT_TRUE(platform->HasFile(kPath));
  EXPECT_EQ(Occurrences("C:\\a.mp3"), 1u);
}

TEST_F(MediaListTest, AListThatCouldNotBeReadIsNeverReplaced) {
  platform->AddFile(kPath, "\xEF\xBB\xBFMusic\tC:\\old.mp3\tx\r\n");
  MediaList list = Fresh();
  platform->FailOn(u"Settings.Read", 1, error::kPermissionDenied);
  try {
    EXPECT_FALSE(list.EnsureGroup(kGroup, kMediaRoot));
  } catch (const RunTimeError&) {
  }
  if (list.EnsureGroup(kGroup, kMediaRoot)) list.Add(Record(u"C:\\b.mp3"));
  list.Flush();
  EXPECT_EQ(Occurrences("Music\tC:\\old.mp3\tx\r\n"), 1u);
}

TEST_F(MediaListTest, TwoThatBeginTheFileLeaveTheRecordsOfBoth) {
  MediaList first = Fresh(), second = Fresh();
  ASSERT_TRUE(first.EnsureGroup(kGroup, kMediaRoot));
  ASSERT_TRUE(second.EnsureGroup(kGroup, kMediaRoot));
  first.Add(Record(u"C:\\a.mp3"));
  second.Add(Record(u"C:\\b.mp3"));
  EXPECT_TRUE(first.Flush());
  EXPECT_TRUE(second.Flush());
  EXPECT_EQ(platform->Bytes(kPath),
            "\xEF\xBB\xBF"
            "Music\tC:\\a.mp3\texpression\r\n"
            "Music\tC:\\b.mp3\texpression\r\n");
}

TEST_F(MediaListTest, WhatAnotherHasAddedIsNotAddedAgain) {
  platform->AddFile(kPath, "\xEF\xBB\xBFMusic\tC:\\old.mp3\tx\r\n");
  MediaList first = Fresh(), second = Fresh();
  for (MediaList* const list : {&first, &second}) {
    ASSERT_TRUE(list->EnsureGroup(kGroup, kMediaRoot));
    list->Add(Record(u"C:\\a.mp3"));
    list->Add(Record(u"C:\\b.mp3"));
  }
  first.Add(Record(u"C:\\first.mp3"));
  second.Add(Record(u"C:\\second.mp3"));
  EXPECT_TRUE(first.Flush());
  EXPECT_TRUE(second.Flush());
  EXPECT_TRUE(second.Add(Record(u"C:\\FIRST.mp3")));
  EXPECT_TRUE(second.Flush());
  EXPECT_EQ(Occurrences("\r\n"), 5u);
  for (const char* const name : {"old", "a", "b", "first", "second"}) {
    EXPECT_EQ(Occurrences("\\" + std::string(name) + ".mp3\t"), 1u) << name;
  }
}

TEST_F(MediaListTest, ALineThatAnotherHasFinishedMeanwhileIsARecord) {
  platform->AddFile(kPath, "\xEF\xBB\xBFMusic\tC:\\a.mp3\texpr");
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  platform->AddFile(kPath, "\xEF\xBB\xBFMusic\tC:\\a.mp3\texpression\r\n");
  list.Add(Record(u"C:\\a.mp3"));
  EXPECT_TRUE(list.Flush());
  EXPECT_EQ(platform->Bytes(kPath), "\xEF\xBB\xBFMusic\tC:\\a.mp3\texpression\r\n");
}

TEST_F(MediaListTest, AFileThatWasBegunAnewIsReadAnew) {
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  list.Add(Record(u"C:\\a.mp3"));
  list.Add(Record(u"C:\\b.mp3"));
  ASSERT_TRUE(list.Flush());
  platform->AddFile(kPath, "\xEF\xBB\xBFMusic\tC:\\c.mp3\texpression\r\n");
  list.Add(Record(u"C:\\c.mp3"));
  list.Add(Record(u"C:\\d.mp3"));
  EXPECT_TRUE(list.Flush());
  EXPECT_EQ(platform->Bytes(kPath),
            "\xEF\xBB\xBF"
            "Music\tC:\\c.mp3\texpression\r\n"
            "Music\tC:\\d.mp3\texpression\r\n");
}

TEST_F(MediaListTest, ManyRecordsAreAllKept) {
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  for (char16_t a = 0; a < 200; ++a) {
    for (char16_t b = 0; b < 100; ++b) {
      const char16_t name[] = {u'C', u':', u'\\', static_cast<char16_t>(0x4E00 + a),
                               static_cast<char16_t>(0x4E00 + b)};
      list.Add(Record(StringView(name, std::size(name))));
    }
  }
  list.Flush();
  EXPECT_EQ(Occurrences("\r\n"), 20000u);
}

TEST_F(MediaListTest, VeryManyRecordsDoNotGatherInMemory) {
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  const String folder = u"C:\\" + String(1000, u'x');
  const auto add = [&](std::int32_t number) { list.Add(Record(folder + FormatInteger(number))); };
  for (std::int32_t i = 0; i < 200; ++i) add(i);
  EXPECT_FALSE(platform->HasFile(kPath));
  for (std::int32_t i = 200; i < 1000; ++i) add(i);
  ASSERT_TRUE(platform->HasFile(kPath));
  EXPECT_GT(Occurrences("\r\n"), 700u);
  list.Flush();
  EXPECT_EQ(Occurrences("\r\n"), 1000u);
}

TEST_F(MediaListTest, VeryManyRecordsThatCannotBeWrittenAreTriedNowAndThenAndNotLost) {
  platform->AddFile(kPath, "\xEF\xBB\xBF");
  MediaList list = Fresh();
  ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
  platform->FailOn(u"Append", 1, error::kDiskFull);
  platform->FailOn(u"OpenShared", 2, error::kDiskFull);
  const String folder = u"C:\\" + String(1000, u'x');
  for (std::int32_t i = 0; i < 1000; ++i) list.Add(Record(folder + FormatInteger(i)));
  EXPECT_EQ(platform->Calls(u"OpenShared"), 3u);
  EXPECT_EQ(platform->Calls(u"Append"), 2u);
  EXPECT_TRUE(list.Flush());
  EXPECT_EQ(Occurrences("\r\n"), 1000u);
}

TEST_F(MediaListTest, TextOutOfATagForgesNoRecord) {
  const MediaRecord record{u"C:\\a.mp3", u"Art\r\nMusic\tC:\\x\tforged", u"Music"};
  for (int run = 0; run < 2; ++run) {
    MediaList list = Fresh();
    ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
    EXPECT_TRUE(list.Add(record));
    EXPECT_TRUE(list.Flush());
    EXPECT_EQ(platform->Bytes(kPath), "\xEF\xBB\xBFMusic\tC:\\a.mp3\tArt  Music C:\\x forged\r\n");
  }
}

TEST_F(MediaListTest, HalfACharacterIsKnownAgain) {
  const MediaRecord record{u"C:\\a.mp3", String(u"x") + char16_t(0xD800) + u"y", u"Music"};
  std::string first;
  for (int run = 0; run < 2; ++run) {
    MediaList list = Fresh();
    ASSERT_TRUE(list.EnsureGroup(kGroup, kMediaRoot));
    list.Add(record);
    list.Flush();
    if (run == 0) first = platform->Bytes(kPath);
  }
  EXPECT_EQ(platform->Bytes(kPath), first);
}

TEST_F(MediaListTest, AListOfMoreThanAMillionRecordsIsNotTaken) {
  std::string bytes;
  for (int i = 0; i < 1'000'000; ++i) bytes += "\t" + std::to_string(i) + "\t\r\n";
  platform->AddFile(kPath, bytes);
  EXPECT_TRUE(Fresh().EnsureGroup(kGroup, kMediaRoot));
  platform->AddFile(kPath, bytes + "\tx\t\r\n");
  EXPECT_FALSE(Fresh().EnsureGroup(kGroup, kMediaRoot));
}

}  // namespace
}  // namespace norvo
