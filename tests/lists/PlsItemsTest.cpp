#include "lists/PlsItems.h"

#include <algorithm>

#include "lists/ListedText.h"
#include "text/Number.h"

namespace norvo {
namespace {

using namespace std::string_view_literals;

Lines Pls(StringView text) {
  return Listed(text, ListSyntax::Pls);
}

TEST(PlsItems, ItemsStandInTheOrderOfTheirNumbers) {
  EXPECT_EQ(Pls(u"[playlist]\r\nFile10=j.mp3\r\nTitle2=Ann - Two\r\nFile2=b.mp3\r\n"
                u"File1=a.mp3\r\nTitle10=Ten\r\nLength1=3\r\nVersion=2\r\n"),
            (Lines{"a.mp3 length=3", "b.mp3 title=Two artist=Ann", "j.mp3 title=Ten"}));
}

TEST(PlsItems, NamesOfSectionsAndKeysHaveNoCase) {
  EXPECT_EQ(Pls(u"[PlayList]\nFILE1=a.mp3\ntitle1=One\nnumberofentries=1\nfile2=b.mp3"),
            (Lines{"a.mp3 title=One", "b.mp3"}));
}

TEST(PlsItems, BlanksAroundNamesAndValuesAreNoPart) {
  EXPECT_EQ(Pls(u"  [ playlist ]\n \tFile1 \t=  C:\\a b.mp3 \n Title1 = One "),
            (Lines{"C:\\a b.mp3 title=One"}));
}

TEST(PlsItems, EveryLineEndEndsALine) {
  EXPECT_EQ(Pls(u"[playlist]\rFile1=a.mp3\nFile2=b.mp3\r\nFile3=c.mp3"),
            (Lines{"a.mp3", "b.mp3", "c.mp3"}));
}

TEST(PlsItems, OtherSectionsAndLinesAreLeftOut) {
  EXPECT_EQ(Pls(u"File1=x.mp3\n[other]\nFile2=x.mp3\n[playlist]\n;File3=x.mp3\nFile4=d.mp3\n"
                u"words\n=x.mp3\n[more]\nFile5=x.mp3\n[playlist]\nFile6=f.mp3"),
            (Lines{"d.mp3", "f.mp3"}));
}

TEST(PlsItems, WithoutASectionOfItemsTheKeysCountWhereverTheyStand) {
  EXPECT_EQ(Pls(u"File1=a.mp3\nTitle1=One"), (Lines{"a.mp3 title=One"}));
  EXPECT_EQ(Pls(u"[playlist\nFile1=a.mp3"), (Lines{"a.mp3"}));
  EXPECT_EQ(Pls(u"File2=b.mp3\n[Liste]\nFile1=a.mp3"), (Lines{"a.mp3", "b.mp3"}));
  EXPECT_EQ(Pls(u"[playlist]\n[Liste]\nFile1=a.mp3"), Lines{});
}

TEST(PlsItems, NumbersMayHaveLeadingZerosAndNothingElse) {
  EXPECT_EQ(Pls(u"[playlist]\nFile=x\nFile-1=x\nFile1a=x\nFile 1=x\n"
                u"File99999999999999999999=x\nFile2=b.mp3\nFile999999999999999999=z.mp3\n"
                u"File001=a.mp3\nFile0=0.mp3"),
            (Lines{"0.mp3", "a.mp3", "b.mp3", "z.mp3"}));
}

TEST(PlsItems, LengthsAreSecondsAndNonsenseTellsNone) {
  EXPECT_EQ(Pls(u"[playlist]\nFile1=a\nLength1=215\nFile2=b\nLength2=-1\nFile3=c\nLength3=x\n"
                u"Length4=9\nFile5=e\nLength5= 12.5 "),
            (Lines{"a length=215", "b", "c", "e length=12.5"}));
}

TEST(PlsItems, TheCountLimitsNothing) {
  for (const StringView count : {u"0", u"1", u"2", u"3", u"-1", u"2.5", u"99999999999", u"",
                                 u"many", u"4 songs", u"1e999", u"-1e999"}) {
    const String key = u"NumberOfEntries=" + String(count) + u"\n";
    EXPECT_EQ(Pls(u"[playlist]\n" + key + u"File1=a\nFile2=b\nFile4=d"), (Lines{"a", "b", "d"}))
        << Utf8(count);
    EXPECT_EQ(Pls(u"[playlist]\nFile1=a\nFile2=b\nFile4=d\n" + key), (Lines{"a", "b", "d"}))
        << Utf8(count);
  }
}

TEST(PlsItems, OfEqualKeysTheFirstHolds) {
  EXPECT_EQ(Pls(u"[playlist]\nFile1=a\nFile1=x\nTitle1=One\nTitle1=X\nFile2=b\nFile2="),
            (Lines{"a title=One", "b"}));
  EXPECT_EQ(Pls(u"[playlist]\nFile1=\nFile1=a\nFile2=b"), (Lines{"b"}));
}

TEST(PlsItems, AValueIsCutAtItsFirstNulAndKeepsItsEqualsSigns) {
  EXPECT_EQ(Pls(u"[playlist]\nFile1=a=b.mp3\0junk\nFile2=\0x\nTitle1=1=1"sv),
            (Lines{"a=b.mp3 title=1=1"}));
}

TEST(PlsItems, WithoutAPlaylistSectionTheReferenceSectionHoldsTheItems) {
  EXPECT_EQ(Pls(u"[Reference]\r\nRef2=http://b/\r\nRef1=C:\\a.mp3\r\nFile3=x\r\n"),
            (Lines{"C:\\a.mp3", "http://b/"}));
  EXPECT_EQ(Pls(u"[reference]\nRef1=x\n[playlist]\nFile1=a"), (Lines{"a"}));
}

TEST(PlsItems, ThousandsOfKeysInAnyOrderAreSorted) {
  constexpr int kCount = 40000;
  String text = u"[playlist]\n";
  for (int i = kCount; i > 0; --i) {
    const String number = FormatInteger(i);
    text += u"File" + number + u"=" + number + u"\nTitle" + number + u"=t" + number + u"\n";
  }
  const std::vector<ListedItem> items = ListItems(text, ListSyntax::Pls);
  ASSERT_EQ(items.size(), static_cast<std::size_t>(kCount));
  for (int i = 0; i < kCount; ++i) {
    const ListedItem& item = items[static_cast<std::size_t>(i)];
    ASSERT_TEXT(item.references.front(), FormatInteger(i + 1));
    ASSERT_TEXT(item.title, u"t" + FormatInteger(i + 1));
  }
}

}  // namespace
}  // namespace norvo
