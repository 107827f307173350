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
            (Lines{"a.mp3", "b.mp3 title=Two artist=Ann", "j.mp3 title=Ten"}));
}

TEST(PlsItems, NamesOfSectionsAndKeysHaveNoCase) {
  EXPECT_EQ(Pls(u"[PlayList]\nFILE1=a.mp3\ntitle1=One\nnumberofentries=1\nfile2=b.mp3"),
            (Lines{"a.mp3 title=One"}));
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
  EXPECT_EQ(Pls(u"File1=a.mp3"), Lines{});
  EXPECT_EQ(Pls(u"[playlist\nFile1=a.mp3"), Lines{});
}

TEST(PlsItems, NumbersStartAtOneAndHaveNoLeadingZerosNorAnythingElse) {
  EXPECT_EQ(Pls(u"[playlist]\nFile=x\nFile0=x\nFile01=x\nFile-1=x\nFile1a=x\nFile 1=x\n"
                u"File99999999999999999999=x\nFile2=b.mp3\nFile999999999999999999=z.mp3"),
            (Lines{"b.mp3", "z.mp3"}));
}

TEST(PlsItems, OnlyAPositiveCountLimitsTheNumbers) {
  const auto counted = [](StringView count) {
    return Pls(u"[playlist]\nFile1=a\nFile2=b\nFile4=d\nNumberOfEntries=" + String(count)).size();
  };
  EXPECT_EQ(counted(u"1"), 1u);
  EXPECT_EQ(counted(u" 2 "), 2u);
  EXPECT_EQ(counted(u"3"), 2u);
  EXPECT_EQ(counted(u"4"), 3u);
  for (const StringView count : {u"0", u"-1", u"", u"many", u"4 songs", u"1e999", u"-1e999"}) {
    EXPECT_EQ(counted(count), 3u) << Utf8(count);
  }
}

TEST(PlsItems, OfEqualKeysTheFirstHolds) {
  EXPECT_EQ(Pls(u"[playlist]\nNumberOfEntries=2\nFile1=a\nFile1=x\nTitle1=One\nTitle1=X\n"
                u"NumberOfEntries=1\nFile2=b\nFile2=\nFile3=c"),
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
