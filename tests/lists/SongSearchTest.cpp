#include "lists/SongSearch.h"

#include <algorithm>
#include <random>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

/// The paths that are found; none for nothing.
Lines Find(const std::vector<String>& files, const String& reference) {
  const SongSearch::Found found = SongSearch(files).Find(reference);
  const std::size_t count = found.paths.size();
  const auto kind = count == 0   ? SongSearch::Kind::None
                    : count == 1 ? SongSearch::Kind::Unique
                                 : SongSearch::Kind::Several;
  EXPECT_EQ(found.kind, kind) << Utf8(reference);
  return Utf8(found.paths);
}

TEST(SongSearch, TheSamePathOnAnotherDriveGoesFirst) {
  const std::vector<String> files = {u"D:\\Old\\Music\\a.mp3", u"E:\\Music\\a.mp3", u"D:\\a.mp3"};
  for (const StringView reference :
       {u"C:\\Music\\a.mp3", u"c:/MUSIC/A.mp3", u"\\Music\\a.mp3", u"C|\\Music\\.\\a.mp3",
        u"C:\\x\\..\\Music\\a.mp3", u"file:///C:/Music/a.mp3", u"file://localhost/C:/Music/%61.mp3",
        u"\\\\?\\C:\\Music\\a.mp3", u"C:\\Music\\a.mp3\\", u"\"C:\\Music\\a.mp3\""}) {
    EXPECT_EQ(Find(files, String(reference)), Lines{"E:\\Music\\a.mp3"}) << Utf8(reference);
  }
  EXPECT_EQ(Find(files, u"C:\\a.mp3"), Lines{"D:\\a.mp3"});
}

TEST(SongSearch, TheSamePathOnSeveralDrivesIsNotGuessed) {
  EXPECT_EQ(Find({u"E:\\Music\\a.mp3", u"D:\\Music\\a.mp3", u"D:\\a.mp3"}, u"C:\\Music\\a.mp3"),
            (Lines{"E:\\Music\\a.mp3", "D:\\Music\\a.mp3"}));
}

TEST(SongSearch, ARelativePathIsNoPathOfAnotherDrive) {
  EXPECT_EQ(Find({u"D:\\Music\\a.mp3", u"D:\\Old\\Music\\a.mp3"}, u"Music\\a.mp3"),
            (Lines{"D:\\Music\\a.mp3", "D:\\Old\\Music\\a.mp3"}));
}

TEST(SongSearch, TheLongestEndOfThePathDecides) {
  const std::vector<String> files = {u"D:\\Songs\\Ann\\Best\\1.mp3", u"D:\\Songs\\Bob\\Best\\1.mp3",
                                     u"D:\\1.mp3"};
  EXPECT_EQ(Find(files, u"C:\\Music\\Bob\\Best\\1.mp3"), Lines{"D:\\Songs\\Bob\\Best\\1.mp3"});
  EXPECT_EQ(Find(files, u"..\\..\\Ann\\Best\\1.mp3"), Lines{"D:\\Songs\\Ann\\Best\\1.mp3"});
  EXPECT_EQ(Find(files, u"/Users/x/Music/Ann/Best/1.mp3"), Lines{"D:\\Songs\\Ann\\Best\\1.mp3"});
}

TEST(SongSearch, TwoWithTheLongestEndAreNotGuessed) {
  EXPECT_EQ(Find({u"D:\\Ann\\Best\\1.mp3", u"D:\\Bob\\Best\\1.mp3", u"D:\\1.mp3"},
                 u"C:\\Dan\\Best\\1.mp3"),
            (Lines{"D:\\Ann\\Best\\1.mp3", "D:\\Bob\\Best\\1.mp3"}));
}

TEST(SongSearch, AnEndIsOneOfWholeNames) {
  EXPECT_EQ(Find({u"D:\\The Best\\1.mp3", u"D:\\Other\\1.mp3"}, u"C:\\Best\\1.mp3").size(), 2u);
}

TEST(SongSearch, AUniqueFileOfThatNameIsFoundInTheEnd) {
  EXPECT_EQ(Find({u"D:\\x\\a.mp3", u"D:\\x\\b.mp3"}, u"C:\\y\\A.MP3"), Lines{"D:\\x\\a.mp3"});
  EXPECT_EQ(Find({u"D:\\x\\a.mp3", u"D:\\z\\a.mp3"}, u"C:\\y\\a.mp3"),
            (Lines{"D:\\x\\a.mp3", "D:\\z\\a.mp3"}));
  EXPECT_EQ(Find({u"D:\\x\\a.mp3"}, u"a.mp3"), Lines{"D:\\x\\a.mp3"});
}

TEST(SongSearch, SpellingAndCaseDoNotMatter) {
  const std::vector<String> files = {u"D:\\Bjo\u0308rk\\JO\u0301GA.mp3", u"D:\\x\\j\u00F3ga.mp3"};
  EXPECT_EQ(Find(files, u"C:\\BJ\u00D6RK\\j\u00F3ga.mp3"),
            Utf8(std::vector<String>{files.front()}));
  EXPECT_EQ(Find(files, u"file:///C:/bj%C3%B6rk/jo%CC%81ga.mp3"),
            Utf8(std::vector<String>{files.front()}));
}

TEST(SongSearch, TheSpellingThatHasMostOfThePathDecides) {
  // As written only the name is known, of two files; decoded it is the path of one.
  const SongSearch search({u"C:\\Łódź\\a.mp3", u"C:\\Other\\a.mp3"});
  const SongSearch::Found found = search.Find(u"file:///E:/%C5%81%C3%B3d%C5%BA/a.mp3");
  EXPECT_EQ(found.kind, SongSearch::Kind::Unique);
  EXPECT_EQ(found.paths, std::vector<String>{u"C:\\Łódź\\a.mp3"});
}

TEST(SongSearch, WhatNamesNoFileOfTheMachineIsNotFound) {
  for (const StringView reference : {u"", u"C:\\", u"\\", u"..", u"C:\\x\\b.mp3", u"http://x/a.mp3",
                                     u"a", u"a.mp3.bak", u"file:", u"C:\\a.mp3\\b"}) {
    EXPECT_EQ(Find({u"D:\\x\\a.mp3"}, String(reference)), Lines{}) << Utf8(reference);
  }
  EXPECT_EQ(Find({}, u"a.mp3"), Lines{});
}

TEST(SongSearch, AnyTextGivesAFileOfTheMachineOrNothing) {
  const std::vector<String> files = {u"D:\\x\\a.mp3", u"D:\\y\\a.mp3", u"E:\\x\\\u00F6.mp3"};
  const SongSearch search(files);
  constexpr StringView kPieces[] = {u"a.mp3",  u"x",       u"y",      u"\\", u"/",
                                    u"..",     u"C:",      u"file:",  u"%",  u"&",
                                    u"\u00F6", u"o\u0308", u"\xD83D", u"\"", u" "};
  std::mt19937 random(20030514);
  std::size_t found = 0;
  for (int i = 0; i < 5000; ++i) {
    String text;
    for (std::size_t pieces = random() % 8; pieces > 0; --pieces) {
      text += kPieces[random() % std::size(kPieces)];
    }
    for (const String& path : search.Find(text).paths) {
      ++found;
      ASSERT_NE(std::find(files.begin(), files.end(), path), files.end()) << Utf8(text);
    }
  }
  EXPECT_GT(found, 100u);
}

TEST(SongSearch, ManyFilesAreSearchedQuickly) {
  std::vector<String> files;
  for (int i = 0; i < 20000; ++i) {
    files.push_back(u"D:\\Music\\" + String(1, static_cast<char16_t>(0x4E00 + i)) + u".mp3");
  }
  const SongSearch search(files);
  for (const String& file : files) {
    const SongSearch::Found found = search.Find(u"C" + file.substr(1));
    ASSERT_EQ(found.paths, std::vector<String>{file});
  }
}

}  // namespace
}  // namespace norvo
