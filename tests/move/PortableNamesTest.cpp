#include "move/PortableNames.h"

#include <gtest/gtest.h>

#include "text/Encoding.h"

namespace norvo {
namespace {

const CodePage& Page() {
  return Windows1252();
}

std::string InPage(StringView name, std::size_t most = kLongestName) {
  return ToUtf8(PortableName(name, &Page(), most));
}
std::string Free(StringView name, std::size_t most = kLongestName) {
  return ToUtf8(PortableName(name, nullptr, most));
}

struct PortableRow {
  StringView name;
  const char* portable;
};

TEST(PortableNames, OrdinaryNamesStayAsTheyAre) {
  for (const StringView name :
       {u"One.mp3", u"a", u".mp3", u"..a", u"Don't (live) [2003] {x} 100% #1 & more; a=b, c~.mp3",
        u"Ärzte", u"Ÿ€“x”", u"CONTACT.mp3", u"COM.mp3", u"COM10", u"LPT", u"COMA", u"xCON",
        u"EXTIN", u"a .mp3", u"a. b.mp3"}) {
    EXPECT_EQ(InPage(name), ToUtf8(name));
    EXPECT_TRUE(IsPortableName(name, &Page())) << ToUtf8(name);
  }
}

TEST(PortableNames, WhatWindowsForbidsGetsALikeness) {
  const PortableRow rows[] = {
      {u"AC/DC", "AC-DC"},         {u"a\\b", "a-b"},  {u"1:2", "1-2"},
      {u"a<b>c", "a(b)c"},         {u"\"a\"", "'a'"}, {u"a|b", "a-b"},
      {u"what?.mp3", "what_.mp3"}, {u"a*", "a_"},     {u"..\\..\\x", "..-..-x"},
      {u"D:\\x", "D--x"}};
  for (const PortableRow& row : rows) {
    EXPECT_FALSE(IsPortableName(row.name)) << ToUtf8(row.name);
    EXPECT_EQ(InPage(row.name), row.portable);
    EXPECT_EQ(Free(row.name), row.portable);
  }
}

TEST(PortableNames, ControlCharactersBecomeUnderscores) {
  for (char16_t unit = 1; unit < 0xA0; ++unit) {
    if (unit == 0x20) unit = 0x7F;
    const String name{u'a', unit, u'b'};
    EXPECT_FALSE(IsPortableName(name)) << static_cast<int>(unit);
    EXPECT_EQ(InPage(name), "a_b") << static_cast<int>(unit);
  }
  EXPECT_FALSE(IsPortableName(String(1, u'\0')));
  EXPECT_EQ(InPage(String(1, u'\0')), "_");
}

TEST(PortableNames, DeviceNamesAreNoNamesWhateverTheirExtension) {
  for (const StringView name :
       {u"CON", u"con", u"Prn", u"AUX.mp3", u"nul.tar.gz", u"COM1", u"com0.mp3", u"LPT9.x",
        u"COM\u00B9", u"lpt\u00B2.mp3", u"COM\u00B3.x", u"CONIN$", u"conout$.txt", u"CLOCK$",
        u"CON .txt", u"AUX  .a.b"}) {
    EXPECT_FALSE(IsPortableName(name)) << ToUtf8(name);
    EXPECT_EQ(Free(name), "_" + ToUtf8(name));
    EXPECT_TRUE(IsPortableName(PortableName(name)));
  }
}

TEST(PortableNames, PointsAndBlanksAtTheEndsGo) {
  const PortableRow rows[] = {{u"a.", "a"},         {u"a ", "a"},       {u"a . .", "a"},
                              {u" a", "a"},         {u"  a b ", "a b"}, {u".a", ".a"},
                              {u"x.mp3.", "x.mp3"}, {u"CON.", "_CON"}};
  for (const PortableRow& row : rows) EXPECT_EQ(InPage(row.name), row.portable);
  for (const StringView name : {u"a.", u"a ", u" a", u".", u"..", u" ", u""}) {
    EXPECT_FALSE(IsPortableName(name)) << ToUtf8(name);
  }
}

TEST(PortableNames, NothingLeftGivesAnUnderscore) {
  for (const StringView name : {u"", u".", u"..", u"...", u"   ", u". ."}) {
    EXPECT_EQ(InPage(name), "_");
  }
}

TEST(PortableNames, WordsThatReadersOfM3uFilesTakeForTheirsAreBroken) {
  const PortableRow rows[] = {{u"EXTINF", "EXT_INF"},
                              {u"my extinf story.mp3", "my ext_inf story.mp3"},
                              {u"#EXTM3U.mp3", "#EXT_M3U.mp3"},
                              {u"EXTINFEXTM3Uextinf", "EXT_INFEXT_M3Uext_inf"},
                              {u"EXT\u0128NF", "EXT_INF"}};  // the accent goes first
  for (const PortableRow& row : rows) {
    EXPECT_FALSE(IsPortableName(row.name, &Page())) << ToUtf8(row.name);
    EXPECT_EQ(InPage(row.name), row.portable);
  }
}

TEST(PortableNames, LettersOutsideThePageLoseTheirAccents) {
  const PortableRow rows[] = {{u"Příliš žluťoučký kůň", "Príliš žlutoucký kun"},
                              {u"Łódź", "Lódz"},
                              {u"İstanbul ığdır", "Istanbul igdir"},
                              {u"ŐőŰű", "OoUu"},
                              {u"e\u0301te\u0301.mp3", "ete.mp3"},
                              {u"Song \u2192 Мир", "Song _ ___"},
                              {u"東京", "__"},
                              {u"\U0001F3B5\U0001F3B6.mp3", "__.mp3"}};
  for (const PortableRow& row : rows) {
    EXPECT_FALSE(IsPortableName(row.name, &Page())) << ToUtf8(row.name);
    EXPECT_EQ(InPage(row.name), row.portable);
    // Without a page each of them will do.
    EXPECT_TRUE(IsPortableName(row.name)) << ToUtf8(row.name);
    EXPECT_EQ(Free(row.name), ToUtf8(row.name));
  }
}

TEST(PortableNames, EveryLatinLetterHasALikenessInThePage) {
  for (char16_t unit = 0x0100; unit < 0x0180; ++unit) {
    const String plain = PortableName(String(1, unit), &Page());
    ASSERT_EQ(plain.size(), 1u) << static_cast<int>(unit);
    EXPECT_TRUE(Page().Fits(plain)) << static_cast<int>(unit);
    EXPECT_NE(plain, u"_") << static_cast<int>(unit);
    EXPECT_NE(plain, u"?") << static_cast<int>(unit);
  }
}

TEST(PortableNames, LengthsAreBytesOfUtf8) {
  const String longest(255, u'x');
  EXPECT_TRUE(IsPortableName(longest));
  EXPECT_FALSE(IsPortableName(longest + u'x'));
  EXPECT_EQ(PortableName(longest), longest);
  EXPECT_EQ(PortableName(longest + u'x'), longest);
  EXPECT_TRUE(IsPortableName(String(127, u'é')));
  EXPECT_FALSE(IsPortableName(String(128, u'é')));
  EXPECT_EQ(PortableName(String(128, u'é')), String(127, u'é'));
  EXPECT_EQ(PortableName(String(100, u'東')), String(85, u'東'));
}

TEST(PortableNames, TheExtensionSurvivesTheCut) {
  EXPECT_EQ(InPage(String(300, u'x') + u".mp3"), std::string(251, 'x') + ".mp3");
  EXPECT_EQ(InPage(u"abcdef.mp3", 8), "abcd.mp3");
  EXPECT_EQ(InPage(u"ab  ef.mp3", 8), "ab.mp3");
  EXPECT_EQ(InPage(u"abc.of the year", 6), "abc.of");  // what holds a blank is no extension
  EXPECT_EQ(InPage(u"abc.an-extension-of-22-characters", 6), "abc.an");
}

TEST(PortableNames, ACutLeavesNoHalfOfACharacter) {
  String notes;
  for (int i = 0; i < 100; ++i) notes += u"\U0001D11E";
  for (std::size_t most = 20; most < 40; ++most) {
    const String cut = PortableName(notes, nullptr, most);
    EXPECT_EQ(cut.size() % 2, 0u) << most;
    EXPECT_EQ(cut, notes.substr(0, cut.size())) << most;
    EXPECT_LE(ToUtf8(cut).size(), most);
    EXPECT_GT(ToUtf8(cut).size() + 4, most);
  }
}

TEST(PortableNames, ANumberStandsInFrontOfTheExtension) {
  EXPECT_EQ(NumberedName(u"One.mp3", 2), u"One (2).mp3");
  EXPECT_EQ(NumberedName(u"One", 12), u"One (12)");
  EXPECT_EQ(NumberedName(u"a.b.mp3", 3), u"a.b (3).mp3");
  EXPECT_EQ(NumberedName(u".mp3", 2), u".mp3 (2)");
  EXPECT_EQ(NumberedName(u"One.mp3", 2, 12), u"One (2).mp3");
  EXPECT_EQ(NumberedName(u"Long name.mp3", 2, 12), u"Long (2).mp3");
  EXPECT_EQ(NumberedName(String(255, u'x'), 100000), String(246, u'x') + u" (100000)");
}

// These would take many minutes if the time grew with the square of the length.
TEST(PortableNames, AVeryLongNameIsCutAtOnce) {
  const String name(1'000'000, u'x');
  EXPECT_EQ(PortableName(name), String(255, u'x'));
  EXPECT_EQ(NumberedName(name + u".mp3", 2), String(247, u'x') + u" (2).mp3");
}

TEST(PortableNames, AnyNumberOfWordsOfM3uFilesIsBrokenAtOnce) {
  String name;
  String broken;
  for (int i = 0; i < 100'000; ++i) {
    name += u"EXTINFextm3u";
    broken += u"EXT_INFext_m3u";
  }
  EXPECT_EQ(PortableName(name, nullptr, broken.size()), broken);
}

TEST(PortableNames, APathIsPortableWhenAllItsNamesAre) {
  for (const StringView path :
       {u"C:\\a", u"d:\\My Documents\\Norvo Media\\Music\\Ärzte\\1 - One.mp3", u"C:\\.a\\..b"}) {
    EXPECT_TRUE(HasPortableNames(path, &Page())) << ToUtf8(path);
  }
  EXPECT_TRUE(HasPortableNames(u"C:\\" + String(255, u'x') + u"\\" + String(255, u'x'), &Page()));
}

TEST(PortableNames, WithoutAPageAPathMayBeInAnyScript) {
  EXPECT_FALSE(HasPortableNames(u"C:\\東京\\a", &Page()));
  EXPECT_TRUE(HasPortableNames(u"C:\\東京\\a", nullptr));
  EXPECT_FALSE(HasPortableNames(u"C:\\東京?\\a", nullptr));
}

TEST(PortableNames, OddPathsAreNotPortable) {
  for (const StringView path : {u"",
                                u"C",
                                u"C:",
                                u"C:\\",
                                u"C:\\\\",
                                u"C:\\a\\",
                                u"C:\\\\a",
                                u"C:\\a\\\\b",
                                u"C:a",
                                u"C:/a",
                                u"a\\b",
                                u"\\a\\b",
                                u"\\\\server\\share\\a",
                                u"1:\\a",
                                u"C:\\a\\..\\b",
                                u"C:\\.\\a",
                                u"C:\\a.\\b",
                                u"C:\\a \\b",
                                u"C:\\ a",
                                u"C:\\a/b",
                                u"C:\\D:\\x",
                                u"C:\\CON\\a",
                                u"C:\\a\\nul.mp3",
                                u"C:\\a?",
                                u"C:\\東京\\a",
                                u"C:\\my extm3u\\a"}) {
    EXPECT_FALSE(HasPortableNames(path, &Page())) << ToUtf8(path);
  }
}

}  // namespace
}  // namespace norvo
