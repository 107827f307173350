#include "model/ModelTest.h"
#include "services/ProfileFile.h"
#include "writers/GenericWriter.h"

namespace norvo {
namespace {

using namespace std::string_literals;

constexpr StringView kFile = u"C:\\Out\\Mix.ini";

/// Each test writes one playlist to a file outside of the data area.
class GenericWriterValuesTest : public LibraryTest {
 protected:
  GenericWriterValuesTest() {
    record.type = 3;
    record.name = u"C:\\Out\\Mix";
    entry->Let(u"Entry_SourceURL", String(u"http://x"));
    record.entries->Add(entry);
  }

  bool Write() { return WriteGeneric(component, record, u""); }

  String ReadBack(StringView section, StringView key) {
    ProfileFile file(component);
    EXPECT_TRUE(file.OpenFile(kFile));
    EXPECT_TRUE(file.SelectSection(section));
    String value = u"<none>";
    file.ReadValue(key, value);
    return value;
  }

  static std::string Utf16(StringView text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text) {
      bytes.push_back(static_cast<char>(unit & 0xFF));
      bytes.push_back(static_cast<char>(unit >> 8));
    }
    return bytes;
  }

  static constexpr StringView kSection = u"Entry 1 Properties";
  const ObjectRef entry = component.Create(u"M3UEntry");
  PlaylistRecord record;
};

TEST_F(GenericWriterValuesTest, TextsOfThe8BitPageAreWrittenInIt) {
  SetAll(*entry, {{u"Entry_ArtistName", String(u"Größe €")}});
  EXPECT_TRUE(Write());
  EXPECT_NE(platform->Bytes(kFile).find("\r\nArtist=Gr\xF6\xDF"
                                        "e \x80\r\n"),
            std::string::npos);
}

TEST_F(GenericWriterValuesTest, ATextOutsideThe8BitPageMakesTheFileUtf16) {
  record.name = u"C:\\Out\\日本";
  SetAll(*entry, {{u"Entry_SourceURL", String(u"http://\xD83D\xDE00/Ä/\xD800")}});
  EXPECT_TRUE(Write());
  EXPECT_EQ(platform->Bytes(u"C:\\Out\\日本.ini"),
            Utf16(String(u"[Global Properties]\r\nPavaneVersion=1.6\r\n"
                         u"PlaylistName=C:\\Out\\日本\r\nPlaylistType=3\r\nOriginalFileName=\r\n"
                         u"CreationTime=\r\nTotalSongs=1\r\n\r\n[Entry 1 Properties]\r\n"
                         u"FileSize=0\r\nHasExtendedInfo=False\r\n"
                         u"SourceURL=http://\xD83D\xDE00/Ä/\xD800\r\nURLType=0\r\n\r\n")));
}

TEST_F(GenericWriterValuesTest, OneForeignCharacterAnywhereIsEnough) {
  const struct {
    StringView value;
    bool utf16;
  } rows[] = {{u"\x0081", false}, {u"ÿ", false}, {u"Ā", true}, {u"‘", false}, {u"\x0080", true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(Utf8(row.value));
    entry->Let(u"Entry_Genre", String(row.value));
    EXPECT_TRUE(Write());
    EXPECT_EQ(platform->Bytes(kFile).substr(0, 2) == "\xFF\xFE", row.utf16);
    EXPECT_TEXT(ReadBack(kSection, u"Genre"), row.value);
  }
}

TEST_F(GenericWriterValuesTest, ALineEndWithinAValueIsWrittenAsABlank) {
  const struct {
    StringView value, line;
  } rows[] = {{u"a\r\nb", u"a b"},
              {u"a\nb", u"a b"},
              {u"a\rb", u"a b"},
              {u"a\r\n\r\nb", u"a  b"},
              {u"a\n\rb", u"a  b"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(Utf8(row.value));
    entry->Let(u"Entry_Genre", String(row.value));
    EXPECT_TRUE(Write());
    EXPECT_NE(platform->Bytes(kFile).find("\r\nGenre=" + Utf8(row.line) +
                                          "\r\nHasExtendedInfo=False\r\n"),
              std::string::npos);
  }
}

TEST_F(GenericWriterValuesTest, NoValueCanForgeASectionOrAKey) {
  const String forged = u"x\r\n[Entry 1 Properties]\r\nSourceURL=http://evil\r\n;\r[Other]\n";
  record.creationTime = forged;
  record.originalFileName = forged;
  SetAll(*entry, {{u"Entry_ArtistName", forged},
                  {u"Entry_Genre", forged},
                  {u"Entry_SongTitle", forged},
                  {u"Entry_Duration", forged}});
  EXPECT_TRUE(Write());
  EXPECT_TEXT(ReadBack(kSection, u"SourceURL"), u"http://x");
  EXPECT_TEXT(ReadBack(u"Global Properties", u"TotalSongs"), u"1");
  ProfileFile file(component);
  ASSERT_TRUE(file.OpenFile(kFile));
  EXPECT_FALSE(file.SelectSection(u"Other"));
  const std::string& text = platform->Bytes(kFile);
  EXPECT_EQ(text.find("\r\n[Entry 1 Properties]"), text.rfind("\r\n[Entry 1 Properties]"));
}

TEST_F(GenericWriterValuesTest, NulsInGenreAndYearGoOutAsTheyAre) {
  SetAll(*entry, {{u"Entry_Genre", String(u"Rock\0\0", 6)},
                  {u"Entry_CreationDate", String(u"19\0"
                                                 u"99",
                                                 5)},
                  {u"Entry_ArtistName", String(u"cut\0junk", 8)}});
  EXPECT_TRUE(Write());
  EXPECT_NE(platform->Bytes(kFile).find("\r\nArtist=cut\r\nCreationDate=19\0"
                                        "99\r\nFileSize=0\r\nGenre=Rock\0\0\r\n"s),
            std::string::npos);
}

TEST_F(GenericWriterValuesTest, NumbersAndBooleansAreWrittenAsText) {
  const auto foreign =
      std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", std::int32_t{0}},
                                             {u"Entry_ArtistName", std::int32_t{-5}},
                                             {u"Entry_AlbumName", 2.5},
                                             {u"Entry_CreationDate", Date{37755.425}},
                                             {u"Entry_Duration", std::int16_t{180}},
                                             {u"Entry_FileName", true},
                                             {u"Entry_FileSize", 5000000000.0},
                                             {u"Entry_Genre", Variant()},
                                             {u"HasExtendedInfo", false},
                                             {u"Entry_SongName", 1e16},
                                             {u"Entry_SongTitle", String(u"\"quoted\"")},
                                             {u"Entry_SourceURL", String(u"a=b;c")},
                                             {u"Entry_TrackNumber", std::uint8_t{7}},
                                             {u"Entry_URLType", std::int32_t{10}}});
  record.entries = std::make_shared<Entries>();
  record.entries->Add(foreign);
  EXPECT_TRUE(Write());
  const std::string& text = platform->Bytes(kFile);
  EXPECT_EQ(text.substr(text.find("[Entry")),
            "[Entry 1 Properties]\r\nArtist=-5\r\nAlbum=2.5\r\n"
            "CreationDate=5/14/2003 10:12:00 AM\r\nDuration=180\r\nFileName=True\r\n"
            "FileSize=5000000000\r\nHasExtendedInfo=False\r\nSongName=10000000000000000\r\n"
            "SongTitle=\"quoted\"\r\nSourceURL=a=b;c\r\nTrackNumber=7\r\nURLType=10\r\n\r\n");
}

TEST_F(GenericWriterValuesTest, EntriesOfSeveralClassesStandSideBySide) {
  record.entries = std::make_shared<Entries>();
  const ObjectRef foreign =
      std::make_shared<ForeignObject>(Values{{u"Entry_EntryType", std::int32_t{0}},
                                             {u"Entry_ArtistName", String(u"2")},
                                             {u"Entry_AlbumName", Variant()},
                                             {u"Entry_CreationDate", Variant()},
                                             {u"Entry_Duration", Variant()},
                                             {u"Entry_FileName", Variant()},
                                             {u"Entry_FileSize", Variant()},
                                             {u"Entry_Genre", Variant()},
                                             {u"HasExtendedInfo", true},
                                             {u"Entry_SongName", Variant()},
                                             {u"Entry_SongTitle", Variant()},
                                             {u"Entry_SourceURL", Variant()},
                                             {u"Entry_TrackNumber", Variant()},
                                             {u"Entry_URLType", std::int32_t{2}}});
  for (const StringView className : {u"M3UEntry", u"", u"AsxEntry", u"", u"PlsEntry"}) {
    const ObjectRef added = className.empty() ? foreign : component.Create(className);
    if (!className.empty()) added->Let(u"Entry_SourceURL", String(className));
    record.entries->Add(added);
  }
  EXPECT_TRUE(Write());
  const std::string& text = platform->Bytes(kFile);
  const auto own = [](const std::string& number, const std::string& name) {
    return "[Entry " + number + " Properties]\r\nFileSize=0\r\nHasExtendedInfo=False\r\n" +
           "SourceURL=" + name + "\r\nURLType=0\r\n\r\n";
  };
  const auto theirs = [](const std::string& number) {
    return "[Entry " + number + " Properties]\r\nArtist=2\r\nHasExtendedInfo=True\r\n" +
           "URLType=2\r\n\r\n";
  };
  EXPECT_EQ(text.substr(text.find("[Entry")), own("1", "M3UEntry") + theirs("2") +
                                                  own("3", "AsxEntry") + theirs("4") +
                                                  own("5", "PlsEntry"));
}

TEST_F(GenericWriterValuesTest, WhatIsWrittenIsReadBackByItsKeys) {
  SetAll(*entry, {{u"Entry_ArtistName", String(u"[Global Properties]")},
                  {u"Entry_SongName", String(u"; no comment")},
                  {u"Entry_SongTitle", String(u"=")}});
  EXPECT_TRUE(Write());
  EXPECT_TEXT(ReadBack(kSection, u"Artist"), u"[Global Properties]");
  EXPECT_TEXT(ReadBack(kSection, u"SongName"), u"; no comment");
  EXPECT_TEXT(ReadBack(kSection, u"SongTitle"), u"=");
  EXPECT_TEXT(ReadBack(kSection, u"URLType"), u"0");
}

}  // namespace
}  // namespace norvo
