#include "lists/M3uItems.h"

#include "lists/ListedText.h"

namespace norvo {
namespace {

using namespace std::string_view_literals;

Lines M3u(StringView text) {
  return Listed(text, ListSyntax::M3u);
}

TEST(M3uItems, EveryLineEndEndsALine) {
  EXPECT_EQ(M3u(u"a.mp3\r\nb.mp3\nc.mp3\rd.mp3"), (Lines{"a.mp3", "b.mp3", "c.mp3", "d.mp3"}));
  EXPECT_EQ(M3u(u"a.mp3\n\rb.mp3\r\r\n\n"), (Lines{"a.mp3", "b.mp3"}));
}

TEST(M3uItems, ALineIsTrimmedAndCutAtTheFirstNulBehindItsStart) {
  EXPECT_EQ(M3u(u"  a.mp3 \t\0junk\r\n\0b.mp3\r\nc d.mp3\x1A\r\n\0"sv),
            (Lines{"a.mp3", "b.mp3", "c d.mp3"}));
}

TEST(M3uItems, InformationBelongsToTheNextReference) {
  EXPECT_EQ(M3u(u"#EXTM3U\r\n#EXTINF:215,Ann - One\r\na.mp3\r\nb.mp3\r\n"),
            (Lines{"a.mp3 title=One artist=Ann length=215", "b.mp3"}));
  EXPECT_EQ(M3u(u"#extinf:-1, Ann - One - Live \n\n\na.mp3"),
            (Lines{"a.mp3 title=One - Live artist=Ann"}));
  EXPECT_EQ(M3u(u"#EXTINF:1,One\na.mp3"), (Lines{"a.mp3 title=One length=1"}));
  EXPECT_EQ(M3u(u"#EXTINF:1,One, Two\na.mp3"), (Lines{"a.mp3 title=One, Two length=1"}));
  EXPECT_EQ(M3u(u"#EXTINF:1, - One\na.mp3"), (Lines{"a.mp3 title=One length=1"}));
}

TEST(M3uItems, InformationWithoutACommaTellsTheLengthAtMost) {
  EXPECT_EQ(M3u(u"#EXTINF:1\na.mp3\n#EXTINF\nb.mp3\n#EXTINF:\nc.mp3\n#EXTINF:1,\nd.mp3"),
            (Lines{"a.mp3 length=1", "b.mp3", "c.mp3", "d.mp3 length=1"}));
}

TEST(M3uItems, ALengthThatMakesNoSenseIsNone) {
  for (const StringView length :
       {u"-1", u"0", u"-0.5", u"x", u"", u" ", u"1e999", u"99999999999"}) {
    EXPECT_EQ(M3u(u"#EXTINF:" + String(length) + u",One\na.mp3"), (Lines{"a.mp3 title=One"}))
        << Utf8(length);
  }
  EXPECT_EQ(M3u(u"#EXTINF: 215.5 ,One\na.mp3"), (Lines{"a.mp3 title=One length=215.5"}));
  EXPECT_EQ(M3u(u"#EXTINF:3:35,One\na.mp3"), (Lines{"a.mp3 title=One length=215"}));
}

TEST(M3uItems, AttributesBeforeTheNameAreNoPartOfIt) {
  EXPECT_EQ(M3u(u"#EXTINF:215 tvg-id=x,One\na.mp3"), (Lines{"a.mp3 title=One length=215"}));
  EXPECT_EQ(M3u(u"#EXTINF:215 group=\"a,b\",Ann - One\na.mp3"),
            (Lines{"a.mp3 title=One artist=Ann length=215"}));
  EXPECT_EQ(M3u(u"#EXTINF:215 group=\"a,One\na.mp3"), (Lines{"a.mp3 title=One length=215"}));
  EXPECT_EQ(M3u(u"#EXTINF:215,\"One\", Two\na.mp3"),
            (Lines{"a.mp3 title=\"One\", Two length=215"}));
}

TEST(M3uItems, InformationBeforeFurtherInformationIsVoid) {
  EXPECT_EQ(M3u(u"#EXTINF:1,Ann - One\n#EXTINF:2,Bob - Two\nb.mp3"),
            (Lines{"b.mp3 title=Two artist=Bob length=2"}));
  EXPECT_EQ(M3u(u"#EXTINF:1,Ann - One\n#EXTINF:2\nb.mp3"), (Lines{"b.mp3 length=2"}));
}

TEST(M3uItems, InformationAtTheEndTellsOfNothing) {
  EXPECT_EQ(M3u(u"a.mp3\n#EXTINF:1,Ann - One"), (Lines{"a.mp3"}));
}

TEST(M3uItems, DirectivesAreNoItemsWhereverTheyStand) {
  EXPECT_EQ(M3u(u"a.mp3\n#EXTM3U\n#EXT-X-VERSION:3\n#EXTALB:Best\n#extm3u something\nb.mp3"),
            (Lines{"a.mp3", "b.mp3"}));
}

TEST(M3uItems, ALineThatStartsWithASharpMayBeAFile) {
  EXPECT_EQ(
      M3u(u"# my list\n#1 Hit.mp3\n#Extra.mp3\n#EXTREME - More.mp3\n#\na.mp3"),
      (Lines{"?# my list", "?#1 Hit.mp3", "?#Extra.mp3", "?#EXTREME - More.mp3", "?#", "a.mp3"}));
}

TEST(M3uItems, ARemarkDoesNotTakeTheInformationAndASongDoes) {
  EXPECT_EQ(M3u(u"#EXTINF:1,Ann - One\n# my list\na.mp3"),
            (Lines{"?# my list", "a.mp3 title=One artist=Ann length=1"}));
  EXPECT_EQ(M3u(u"#EXTINF:1,Ann - One\n#1 Hit.MP3\na.mp3"),
            (Lines{"?#1 Hit.MP3 title=One artist=Ann length=1", "a.mp3"}));
}

TEST(M3uItems, AReferenceMayHoldTheWordsOfDirectives) {
  EXPECT_EQ(
      M3u(u"C:\\EXTINF\\a.mp3\nMy EXTM3U.mp3\nEXTINF.mp3\n#EXTINF:1,EXTM3U\nb.mp3"),
      (Lines{"C:\\EXTINF\\a.mp3", "My EXTM3U.mp3", "EXTINF.mp3", "b.mp3 title=EXTM3U length=1"}));
}

TEST(M3uItems, LongListsAndLongLinesAreReadWhole) {
  String text = u"#EXTM3U\n";
  for (int i = 0; i < 40000; ++i) text += u"#EXTINF:1,Ann - One\na.mp3\n";
  const std::vector<ListedItem> items = ListItems(text, ListSyntax::M3u);
  ASSERT_EQ(items.size(), 40000u);
  EXPECT_TEXT(items.back().title, u"One");

  const String line(1 << 20, u'x');
  const std::vector<ListedItem> one = ListItems(line, ListSyntax::M3u);
  ASSERT_EQ(one.size(), 1u);
  EXPECT_EQ(one.front().references.front(), line);
}

}  // namespace
}  // namespace norvo
