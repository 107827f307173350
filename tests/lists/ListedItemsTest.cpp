#include "lists/ListedItems.h"

#include <algorithm>
#include <random>

#include "lists/ListedText.h"

namespace norvo {
namespace {

using namespace std::string_view_literals;

constexpr ListSyntax kSyntaxes[] = {ListSyntax::Asx,   ListSyntax::M3u,  ListSyntax::Pls,
                                    ListSyntax::Wpl,   ListSyntax::Xspf, ListSyntax::B4s,
                                    ListSyntax::ITunes};

TEST(ListedItems, TextsThatHoldNothingListNothing) {
  for (const ListSyntax syntax : kSyntaxes) {
    for (const StringView text :
         {u""sv, u"\0\0"sv, u"\r\n\r\r\n \t\n"sv, u"\xFEFF"sv, u"\n\0 "sv}) {
      EXPECT_EQ(Listed(text, syntax), Lines{}) << Utf8(text);
    }
  }
}

void ExpectWellFormed(const std::vector<ListedItem>& items, StringView text) {
  for (const ListedItem& item : items) {
    ASSERT_FALSE(item.references.empty()) << Utf8(text);
    for (const String& reference : item.references) {
      ASSERT_FALSE(reference.empty()) << Utf8(text);
      ASSERT_EQ(reference.find_first_of(u"\0\r\n"sv), String::npos) << Utf8(text);
      ASSERT_TRUE(reference.front() > u' ' && reference.back() > u' ') << Utf8(text);
    }
  }
}

TEST(ListedItems, AnyTextIsReadAndNoReferenceIsEmptyOrBroken) {
  constexpr StringView kPieces[] = {u"<Entry>",
                                    u"</Entry>",
                                    u"<Ref href",
                                    u"=",
                                    u"\"",
                                    u"'",
                                    u"a.mp3",
                                    u"/>",
                                    u">",
                                    u"<Banner>",
                                    u"<!--",
                                    u"-->",
                                    u"\r\n",
                                    u"\n",
                                    u"</Asx>",
                                    u"\r",
                                    u"</Banner>",
                                    u"<Title>",
                                    u"&#38;",
                                    u"&",
                                    u" ",
                                    u"#EXTINF:",
                                    u",",
                                    u"[playlist]",
                                    u"File1",
                                    u"Title1",
                                    u"#",
                                    u"<",
                                    u"<Param",
                                    u" value",
                                    u" name=Album",
                                    u"\xD83D",
                                    u"File2",
                                    u"]",
                                    u"<media src=",
                                    u"<track>",
                                    u"</track>",
                                    u"<location>",
                                    u"</location>",
                                    u"<entry Playstring=",
                                    u"<dict>",
                                    u"</dict>",
                                    u"<key>",
                                    u"</key>",
                                    u"Tracks",
                                    u"Playlists",
                                    u"Playlist Items",
                                    u"Track ID",
                                    u"Location",
                                    u"<array>",
                                    u"<![CDATA[",
                                    u"<!DOCTYPE",
                                    u"[",
                                    u"<?xml"};
  std::mt19937 random(20030514);
  for (int i = 0; i < 20000; ++i) {
    String text;
    for (std::size_t pieces = random() % 24; pieces > 0; --pieces) {
      const std::size_t piece = random() % (std::size(kPieces) + 1);
      text += piece == std::size(kPieces) ? String(1, u'\0') : String(kPieces[piece]);
    }
    for (const ListSyntax syntax : kSyntaxes) ExpectWellFormed(ListItems(text, syntax), text);
  }
}

TEST(ListedItems, AListIsCutBehindAsManyItemsAsAreAskedFor) {
  constexpr StringView kTexts[] = {
      u"<Entry><Ref href=a><Ref href=a2><Entry><Ref href=b><Entry><Ref href=c>",
      u"a\nb\nc",
      u"[playlist]\nFile3=c\nFile2=b\nFile1=a\n",
      u"<smil><media src='a'/><media src='b'/><media src='c'/></smil>",
      u"<playlist><track><location>a</location></track><track><location>b</location></track>"
      u"<track><location>c</location></track></playlist>",
      u"<WinampXML><entry Playstring='a'/><entry Playstring='b'/><entry Playstring='c'/>",
      u"<plist><dict><key>Tracks</key><dict>"
      u"<key>1</key><dict><key>Location</key><string>a</string></dict>"
      u"<key>2</key><dict><key>Location</key><string>b</string></dict>"
      u"<key>3</key><dict><key>Location</key><string>c</string></dict></dict>"
      u"<key>Playlists</key><array><dict><key>Playlist Items</key><array>"
      u"<dict><key>Track ID</key><integer>1</integer></dict>"
      u"<dict><key>Track ID</key><integer>2</integer></dict>"
      u"<dict><key>Track ID</key><integer>3</integer></dict></array></dict></array>"};
  for (const ListSyntax syntax : kSyntaxes) {
    const StringView text = kTexts[static_cast<std::size_t>(syntax)];
    for (const std::size_t most : {0u, 1u, 2u, 3u, 4u}) {
      const ListedList list = ReadLists(text, syntax, most).front();
      ASSERT_EQ(list.items.size(), std::min<std::size_t>(most, 3)) << Utf8(text);
      EXPECT_EQ(list.isCut, most < 3) << Utf8(text);
      if (most > 1) {
        EXPECT_TEXT(list.items[1].references.front(), u"b");
      }
    }
  }
}

TEST(ListedItems, AListIsCutBetweenAnEntryAndTheOtherListThatEndsIt) {
  constexpr StringView kText = u"<Asx><Entry><Ref href='a'/><EntryRef href='b'/></Asx>";
  EXPECT_EQ(ListItems(kText, ListSyntax::Asx, 2).size(), 2u);
  const std::vector<ListedItem> items = ListItems(kText, ListSyntax::Asx, 1);
  ASSERT_EQ(items.size(), 1u);
  EXPECT_TEXT(items.front().references.front(), u"a");
}

TEST(ListedItems, NoListIsLongerThanTheLimit) {
  String lines;
  for (std::size_t i = 0; i < kMostListedItems; ++i) lines += u"a\n";
  EXPECT_EQ(ListItems(lines, ListSyntax::M3u).size(), kMostListedItems);
  EXPECT_FALSE(ReadLists(lines, ListSyntax::M3u).front().isCut);
  EXPECT_EQ(ListItems(lines + u"a", ListSyntax::M3u).size(), kMostListedItems);
  EXPECT_TRUE(ReadLists(lines + u"a", ListSyntax::M3u).front().isCut);
}

}  // namespace
}  // namespace norvo
