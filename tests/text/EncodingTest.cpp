#include "text/Encoding.h"

#include <gtest/gtest.h>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

using namespace std::string_literals;

TEST(Encoding, TheByteOrderMarkTellsTheEncoding) {
  EXPECT_EQ(DetectEncoding("\xEF\xBB\xBFx"), FileEncoding::Utf8);
  EXPECT_EQ(DetectEncoding("\xFF\xFEx"), FileEncoding::Utf16LittleEndian);
  EXPECT_EQ(DetectEncoding("\xFE\xFFx"), FileEncoding::Utf16BigEndian);
  for (const char* bytes :
       {"", "x", "\xEF", "\xEF\xBB", "\xEF\xBBx", "\xFF", "\xFE", "x\xFF\xFE"}) {
    EXPECT_EQ(DetectEncoding(bytes), FileEncoding::CodePage) << bytes;
  }
}

TEST(Encoding, AFileIsReadByItsMark) {
  EXPECT_TEXT(DecodeFile("\xC4", Windows1252()), u"Ä");
  EXPECT_TEXT(DecodeFile("\xEF\xBB\xBF\xC3\x84", Windows1252()), u"Ä");
  EXPECT_TEXT(DecodeFile("\xFF\xFE\xC4\0"s, Windows1252()), u"Ä");
  EXPECT_TEXT(DecodeFile("\xFE\xFF\0\xC4"s, Windows1252()), u"Ä");
  EXPECT_TEXT(DecodeFile("", Windows1252()), u"");
}

TEST(Encoding, AFileOfAMarkAloneIsEmpty) {
  for (const char* mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
    EXPECT_TEXT(DecodeFile(mark, Windows1252()), u"") << mark;
  }
}

TEST(Encoding, ASecondMarkIsACharacter) {
  EXPECT_EQ(DecodeFile("\xFF\xFE\xFF\xFE", Windows1252()), String(u"\xFEFF"));
}

TEST(Encoding, HalfAUnitAtTheEndIsLeftOut) {
  EXPECT_TEXT(DecodeFile("\xFF\xFEx\0y"s, Windows1252()), u"x");
  EXPECT_TEXT(DecodeFile("\xFE\xFF\0x\0"s, Windows1252()), u"x");
  EXPECT_TEXT(DecodeUtf16("x", false), u"");
  EXPECT_TEXT(DecodeUtf16("", true), u"");
}

TEST(Encoding, EveryEncodingBringsATextBack) {
  const String text = u"Größe €\r\n\t";
  for (const FileEncoding encoding :
       {FileEncoding::CodePage, FileEncoding::Utf8, FileEncoding::Utf16LittleEndian,
        FileEncoding::Utf16BigEndian}) {
    const std::string bytes = EncodeFile(text, encoding, Windows1252());
    EXPECT_EQ(DetectEncoding(bytes), encoding);
    EXPECT_TEXT(DecodeFile(bytes, Windows1252()), text);
  }
  EXPECT_EQ(EncodeFile(u"Ā", FileEncoding::CodePage, Windows1252()), "?");
  EXPECT_EQ(EncodeFile(u"Ā", FileEncoding::Utf16LittleEndian, Windows1252()), "\xFF\xFE\0\1"s);
}

TEST(Encoding, LoneHalvesSurviveInUtf16) {
  const String text =
      u"\xD83D"
      u"a\xDE00";
  const std::string bytes = EncodeFile(text, FileEncoding::Utf16LittleEndian, Windows1252());
  EXPECT_TEXT(DecodeFile(bytes, Windows1252()), text);
}

TEST(Encoding, Utf8SequencesOfEveryLengthAreRead) {
  EXPECT_TEXT(FromUtf8("a\xC3\x84\xE2\x82\xAC\xF0\x9F\x98\x80").value_or(u"?"), u"aÄ€\xD83D\xDE00");
  EXPECT_TEXT(FromUtf8("").value_or(u"?"), u"");
  EXPECT_EQ(FromUtf8("\0"s).value_or(u"?"), String(1, u'\0'));
  EXPECT_EQ(FromUtf8("\xF4\x8F\xBF\xBF").value_or(u"?"), String(u"\xDBFF\xDFFF"));
}

TEST(Encoding, WhatIsNotUtf8IsRefused) {
  for (const char* bytes :
       {"\x80", "\xC3", "\xC3x", "\xC0\x80", "\xC1\xBF", "\xE0\x80\x80", "\xE2\x82", "\xED\xA0\x80",
        "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "a\xFE"}) {
    EXPECT_FALSE(FromUtf8(bytes).has_value()) << bytes;
  }
}

TEST(Encoding, EachByteThatIsNotUtf8IsReplacedAlone) {
  EXPECT_TEXT(FromUtf8Lossy("a\xFF\xFE"
                            "b"),
              u"a\xFFFD\xFFFD"
              u"b");
  EXPECT_TEXT(FromUtf8Lossy("\xC3"), u"\xFFFD");
  EXPECT_TEXT(FromUtf8Lossy("\xE2\x82"
                            "a"),
              u"\xFFFD\xFFFD"
              u"a");
  EXPECT_TEXT(FromUtf8Lossy("\xC3\xC3\x84"), u"\xFFFDÄ");
}

TEST(Encoding, Utf8IsWrittenByCodePoint) {
  EXPECT_EQ(ToUtf8(u"aÄ€\xD83D\xDE00"), "a\xC3\x84\xE2\x82\xAC\xF0\x9F\x98\x80");
  EXPECT_EQ(ToUtf8(u"\x7F\x80\x7FF\x800\xFFFF"), "\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF");
  EXPECT_EQ(ToUtf8(u"\xDBFF\xDFFF"), "\xF4\x8F\xBF\xBF");
}

TEST(Encoding, HalfAPairIsReplacedInUtf8) {
  EXPECT_EQ(ToUtf8(u"\xD83D"), "\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(u"\xDE00\xD83D"), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(ToUtf8(u"\xD83D"
                   u"a"),
            "\xEF\xBF\xBD"
            "a");
}

TEST(Encoding, HalfAPairIsNoWholeText) {
  EXPECT_TRUE(IsWholeUtf16(u""));
  EXPECT_TRUE(IsWholeUtf16(u"a\U0001D11Eb"));
  EXPECT_FALSE(IsWholeUtf16(String(u"a") + char16_t{0xD834}));
  EXPECT_FALSE(IsWholeUtf16(String(1, char16_t{0xDD1E}) + u"a"));
  EXPECT_FALSE(IsWholeUtf16(String(1, char16_t{0xD834}) + u"a"));
}

TEST(Encoding, AppendingKeepsWhatIsThere) {
  std::string bytes = "x";
  AppendUtf8(bytes, u"ä");
  AppendUtf8(bytes, u"");
  EXPECT_EQ(bytes, "x\xC3\xA4");
}

}  // namespace
}  // namespace norvo
