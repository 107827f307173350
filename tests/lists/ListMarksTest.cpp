#include "lists/ListMarks.h"

#include "support/TextPrinting.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

using namespace std::string_view_literals;

constexpr StringView kXspf =
    u"<?xml version=\"1.0\"?>\n<playlist version=\"1\" xmlns=\"http://xspf.org/ns/0/\">";
constexpr StringView kPlist =
    u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<!DOCTYPE plist PUBLIC \"-//Apple "
    u"Computer//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\r\n"
    u"<plist version=\"1.0\">\r\n<dict>\r\n\t<key>Major Version</key><integer>1</integer>";

constexpr StringView kMarked[] = {
    u"#EXTM3U",
    u"\r\n \t#extm3u\r\na.mp3",
    u"\xFEFF#EXTM3U x-tvg-url=\"a\"\n",
    u"# made by hand\n#EXTM3U\n",
    u"[playlist]\r\nFile1=a",
    u" [ PlayList ] \n",
    u"<asx version=\"3.0\">",
    u"<?xml version=\"1.0\"?> <!-- x --> <ASX>",
    u"<?wpl version=\"1.0\"?>\r\n<smil>",
    u"<?zpl version=\"2.0\"?>\r\n<smil>",
    u"<smil><head>",
    kXspf,
    u"<playlist>\n<trackList>",
    u"<?xml version='1.0'?><WinampXML><playlist>",
    kPlist,
    u"<plist><dict><key>Tracks</key>",
};

constexpr StringView kUnmarked[] = {
    u"",
    u"\r\n\r\n",
    u"a.mp3",
    u"#EXTINF:1,One\na.mp3",
    u"#EXTM3U is how an M3U begins",
    u"#EXTM3U8",
    u"An M3U begins with\n#EXTM3U",
    u"[playlist] is how a PLS begins",
    u"[Reference]\nRef1=a",
    u"[other]\n[playlist]",
    u"Begin with <asx>",
    u"<html><body><asx>",
    u"<html><!-- <asx> -->",
    u"<!-- <asx> --> <html>",
    u"<?php include 'x'; ?><asx>",
    u"<playlist><entry/></playlist>",
    u"<plist version=\"1.0\"><dict><key>CFBundleName</key>",
    u"<rss><trackList>",
    u"< asx>",
    u"</asx>",
};

TEST(ListMarks, AListIsToldByItsFirstWords) {
  for (const StringView text : kMarked) EXPECT_TRUE(LooksLikeList(ToUtf8(text))) << Utf8(text);
}

TEST(ListMarks, WhatIsDoubtfulIsNoList) {
  for (const StringView text : kUnmarked) EXPECT_FALSE(LooksLikeList(ToUtf8(text))) << Utf8(text);
  EXPECT_FALSE(LooksLikeList("ID3\x03\0\0\0\0\0\0"sv));
}

TEST(ListMarks, TheEncodingDoesNotMatter) {
  for (const FileEncoding encoding :
       {FileEncoding::Utf8, FileEncoding::Utf16LittleEndian, FileEncoding::Utf16BigEndian}) {
    for (const StringView text : kMarked) {
      EXPECT_TRUE(LooksLikeList(EncodeFile(text, encoding, Windows1252()))) << Utf8(text);
    }
    for (const StringView text : kUnmarked) {
      EXPECT_FALSE(LooksLikeList(EncodeFile(text, encoding, Windows1252()))) << Utf8(text);
    }
  }
}

TEST(ListMarks, TheFirstBytesAreEnoughWhereverTheyEnd) {
  const std::string text = ToUtf8(String(kXspf) + u"<title>" + String(600, u'é'));
  for (const std::size_t size : {511u, 512u}) {
    EXPECT_TRUE(LooksLikeList(std::string_view(text).substr(0, size)));
  }
}

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

TEST(ListMarks, WithoutAMarkTheNameTellsTheSyntax) {
  ExpectSyntaxes({{u"Mix.asx", u"", ListSyntax::Asx},
                  {u"Mix.m3u", u"", ListSyntax::M3u},
                  {u"a.b.M3u", u"x", ListSyntax::M3u},
                  {u"Mix.m3u8", u"a.mp3", ListSyntax::M3u},
                  {u"Mix.pls", u"", ListSyntax::Pls},
                  {u"Mix.wpl", u"<seq><media src='a'/></seq>", ListSyntax::Wpl},
                  {u"Mix.xspf", u"", ListSyntax::Xspf},
                  {u"Mix.b4s", u"<playlist>", ListSyntax::B4s},
                  {u"iTunes Library.xml", u"<plist>", ListSyntax::ITunes},
                  {u"Mix.kpl", u"a.mp3", std::nullopt},
                  {u"Mix.m3u.bak", u"a.mp3", std::nullopt},
                  {u"", u"", std::nullopt}});
}

TEST(ListMarks, AMarkTellsTheSyntaxUnderAnyName) {
  for (const StringView name : {u"Mix.m3u", u"Mix.m3u8", u"Mix.pls", u"Mix.asx", u"Mix.wpl",
                                u"Mix.xspf", u"Mix.b4s", u"Mix.fpl", u"Mix.txt", u"Mix", u""}) {
    ExpectSyntaxes({{name, u"\r\n #EXTM3U\na.mp3", ListSyntax::M3u},
                    {name, u"\xFEFF [playlist]\nFile1=a", ListSyntax::Pls},
                    {name, u"<Asx></Asx>", ListSyntax::Asx},
                    {name, u"<?wpl version=\"1.0\"?><smil>", ListSyntax::Wpl},
                    {name, kXspf, ListSyntax::Xspf},
                    {name, u"<WinampXML>", ListSyntax::B4s},
                    {name, kPlist, ListSyntax::ITunes}});
  }
}

TEST(ListMarks, BareLinesOfSongsAreAnM3uUnderTheNameOfAnyList) {
  for (const StringView name : {u"a.asx", u"a.pls", u"a.wpl", u"a.xspf", u"a.b4s"}) {
    ExpectSyntaxes({{name, u"C:\\Music\\a.mp3\r\n", ListSyntax::M3u},
                    {name, u"# mine\na.mp3", ListSyntax::M3u},
                    {name, u"#extinf:1,x\nx", ListSyntax::M3u},
                    {name, u"http://x/a", ListSyntax::M3u}});
  }
}

TEST(ListMarks, APlsIsToldByItsKeys) {
  ExpectSyntaxes({{u"a.pls", u"#EXTM3U\n[playlist]\nFile1=a", ListSyntax::Pls},
                  {u"a.pls", u"; of x.mp3\n[playlist]\nFile1=a", ListSyntax::Pls},
                  {u"a.pls", u"File1=a.mp3", ListSyntax::Pls},
                  {u"a.m3u", u"File1=a.mp3", ListSyntax::M3u}});
}

TEST(ListMarks, AnM3uThatHoldsAnAsxIsOne) {
  ExpectSyntaxes({{u"Mix.m3u", u"<ASX version=\"3\">", ListSyntax::Asx},
                  {u"Mix.m3u", u"\r\n<?xml?> <asX>", ListSyntax::Asx},
                  {u"Mix.m3u", u"<!DOCTYPE x> x <asX>", ListSyntax::Asx},
                  {u"Mix.m3u", u"#EXTM3U\n#EXTINF:1,<asx>\na.mp3", ListSyntax::M3u},
                  {u"Mix.m3u", u"a.mp3\n<asx>", ListSyntax::M3u},
                  {u"Mix.m3u", u"asx>\na.asx", ListSyntax::M3u},
                  {u"Mix.m3u", u"[Reference]\nRef1=a", ListSyntax::Pls}});
}

TEST(ListMarks, AnAsxWithoutItsTagIsWhatItsFirstLineLooksLike) {
  ExpectSyntaxes({{u"a.asx", u"[Reference]\r\nRef1=a.mp3", ListSyntax::Pls},
                  {u"a.asx", u"\n\n [reference] \nRef1=a.mp3", ListSyntax::Pls},
                  {u"a.asx", u"C:\\a", ListSyntax::M3u},
                  {u"a.asx", u"\\a", ListSyntax::M3u},
                  {u"a.asx", u"a.ogg", ListSyntax::M3u},
                  {u"a.asx", u"[Other]\nRef1=a.mp3", ListSyntax::Asx},
                  {u"a.asx", u"<Entry><Ref href='a.mp3'/></Entry>", ListSyntax::Asx},
                  {u"a.asx", u"# mine", ListSyntax::Asx},
                  {u"a.asx", u"something", ListSyntax::Asx},
                  {u"a.asx", u"#EXTM3U\n<asx>", ListSyntax::Asx}});
}

}  // namespace
}  // namespace norvo
