#include "lists/ListedItems.h"

#include <algorithm>
#include <random>

#include "lists/ListedText.h"

namespace norvo {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

struct SyntaxRow {
  StringView fileName;
  StringView text;
  std::optional<ListSyntax> syntax;
};

void ExpectSyntaxes(const std::vector<SyntaxRow>& rows) {
  for (const SyntaxRow& row : rows) {
    EXPECT_EQ(SyntaxOf(row.fileName, row.text), row.syntax)
        << Utf8(row.fileName) << ": " << Utf8(row.text);
  }
}

TEST(ListedItems, TheExtensionTellsTheSyntax) {
  ExpectSyntaxes({{u"Mix.asx", u"", ListSyntax::Asx},
                  {u"C:\\Music\\MIX.ASX", u"<Asx></Asx>", ListSyntax::Asx},
                  {u"Mix.m3u", u"", ListSyntax::M3u},
                  {u"a.b.M3u", u"x", ListSyntax::M3u},
                  {u"Mix.pls", u"", ListSyntax::Pls},
                  {u"Mix.Pls", u"<asx>", ListSyntax::Pls}});
}

TEST(ListedItems, ASyntaxHasTheExtensionThatItsFilesUsuallyHave) {
  EXPECT_TEXT(ExtensionOf(ListSyntax::Asx), u".asx");
  EXPECT_TEXT(ExtensionOf(ListSyntax::M3u), u".m3u");
  EXPECT_TEXT(ExtensionOf(ListSyntax::Pls), u".pls");
}

TEST(ListedItems, OtherFilesAreNoPlaylists) {
  for (const StringView name :
       {u"", u"m3u", u"Mix", u"Mix.", u"Mix.m3u8", u"Mix.m3u.bak", u".m3u\\Mix", u"asx.txt"}) {
    EXPECT_EQ(SyntaxOf(name, u"<asx>"), std::nullopt) << Utf8(name);
  }
}

TEST(ListedItems, AnM3uThatHoldsAnAsxIsOne) {
  ExpectSyntaxes({{u"Mix.m3u", u"<ASX version=\"3\">", ListSyntax::Asx},
                  {u"Mix.m3u", u"\r\n<?xml?> <asX>", ListSyntax::Asx},
                  {u"Mix.m3u", u"asx>\na.asx", ListSyntax::M3u},
                  {u"Mix.m3u", u"[Reference]\nRef1=a", ListSyntax::M3u}});
}

TEST(ListedItems, AnAsxWithoutItsTagIsWhatItsFirstLineLooksLike) {
  ExpectSyntaxes({{u"a.asx", u"[Reference]\r\nRef1=a.mp3", ListSyntax::Pls},
                  {u"a.asx", u"\n\n [reference] \nRef1=a.mp3", ListSyntax::Pls},
                  {u"a.asx", u"[playlist]\nFile1=a.mp3", ListSyntax::Pls},
                  {u"a.asx", u"#EXTM3U\nx", ListSyntax::M3u},
                  {u"a.asx", u"#extinf:1,x\nx", ListSyntax::M3u},
                  {u"a.asx", u"# mine\na.mp3", ListSyntax::M3u},
                  {u"a.asx", u"C:\\a", ListSyntax::M3u},
                  {u"a.asx", u"\\a", ListSyntax::M3u},
                  {u"a.asx", u"http://x/a", ListSyntax::M3u},
                  {u"a.asx", u"a.ogg", ListSyntax::M3u},
                  {u"a.asx", u"[Other]\nRef1=a.mp3", ListSyntax::Asx},
                  {u"a.asx", u"<Entry><Ref href='a.mp3'/></Entry>", ListSyntax::Asx},
                  {u"a.asx", u"# mine", ListSyntax::Asx},
                  {u"a.asx", u"something", ListSyntax::Asx},
                  {u"a.asx", u"#EXTM3U\n<asx>", ListSyntax::Asx}});
}

TEST(ListedItems, AFileIsDecodedByItsMarkElseByThePage) {
  EXPECT_TEXT(DecodePlaylist("\xC4.mp3", Windows1252()), u"Ä.mp3");
  EXPECT_TEXT(DecodePlaylist("\xC3\x84.mp3", Windows1252()), u"Ã„.mp3");
  EXPECT_TEXT(DecodePlaylist("\xEF\xBB\xBF\xC3\x84.mp3", Windows1252()), u"Ä.mp3");
  EXPECT_TEXT(DecodePlaylist("\xFF\xFE\xC4\0"s, Windows1252()), u"Ä");
  EXPECT_TEXT(DecodePlaylist("\xFE\xFF\0\xC4"s, Windows1252()), u"Ä");
  EXPECT_TEXT(DecodePlaylist("", Windows1252()), u"");
}

constexpr ListSyntax kSyntaxes[] = {ListSyntax::Asx, ListSyntax::M3u, ListSyntax::Pls};

TEST(ListedItems, TextsThatHoldNothingListNothing) {
  for (const ListSyntax syntax : kSyntaxes) {
    for (const StringView text :
         {u""sv, u"\0\0"sv, u"\r\n\r\r\n \t\n"sv, u"\xFEFF"sv, u"\n\0a.mp3"sv}) {
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
  constexpr StringView kPieces[] = {
      u"<Entry>",  u"</Entry>", u"<Ref href",   u"=",       u"\"",     u"'",    u"a.mp3",
      u"/>",       u">",        u"<Banner>",    u"<!--",    u"-->",    u"\r\n", u"\n",
      u"</Asx>",   u"\r",       u"</Banner>",   u"<Title>", u"&#38;",  u"&",    u" ",
      u"#EXTINF:", u",",        u"[playlist]",  u"File1",   u"Title1", u"#",    u"<",
      u"<Param",   u" value",   u" name=Album", u"\xD83D",  u"File2",  u"]"};
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
      u"<Entry><Ref href=a><Ref href=a2><Entry><Ref href=b><Entry><Ref href=c>", u"a\nb\nc",
      u"[playlist]\nFile3=c\nFile2=b\nFile1=a\n"};
  for (const ListSyntax syntax : kSyntaxes) {
    const StringView text = kTexts[static_cast<std::size_t>(syntax)];
    for (const std::size_t most : {0u, 1u, 2u, 3u, 4u}) {
      const std::vector<ListedItem> items = ListItems(text, syntax, most);
      ASSERT_EQ(items.size(), std::min<std::size_t>(most, 3)) << Utf8(text);
      if (most > 1) {
        EXPECT_TEXT(items[1].references.front(), u"b");
      }
    }
  }
}

TEST(ListedItems, NoListIsLongerThanTheLimit) {
  String lines;
  for (std::size_t i = 0; i < kMostListedItems; ++i) lines += u"a\n";
  EXPECT_EQ(ListItems(lines, ListSyntax::M3u).size(), kMostListedItems);
  EXPECT_EQ(ListItems(lines + u"a", ListSyntax::M3u).size(), kMostListedItems);
}

}  // namespace
}  // namespace norvo
