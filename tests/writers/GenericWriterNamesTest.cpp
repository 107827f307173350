#include "model/ModelTest.h"
#include "writers/GenericWriter.h"

namespace norvo {
namespace {

class GenericWriterNamesTest : public LibraryTest {
 protected:
  GenericWriterNamesTest() {
    platform->ConfigureProduct();
    record.type = 3;
    const ObjectRef entry = component.Create(u"M3UEntry");
    entry->Let(u"Entry_SourceURL", String(u"http://x"));
    record.entries->Add(entry);
  }

  bool Write(StringView fileName) { return WriteGeneric(component, record, fileName); }
  bool HasWritten(StringView name) { return platform->HasFile(String(kDataArea) + String(name)); }

  PlaylistRecord record;
};

TEST_F(GenericWriterNamesTest, APlaylistWithoutNameTakesWhatPrecedesTheExtensionOfTheFileName) {
  const struct {
    StringView fileName, name, file;
  } rows[] = {{u"Mix.m3u", u"Mix", u"Mix.ini"},
              {u"MIX.M3U", u"MIX", u"MIX.ini"},
              {u"x.m3u.asx", u"x", u"x.ini"},
              {u"a.m3u.b.m3u", u"a", u"a.ini"},
              {u"a.b.m3u", u"a.b", u"a.ini"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(Utf8(row.fileName));
    record.name.clear();
    EXPECT_TRUE(Write(row.fileName));
    EXPECT_TEXT(record.name, row.name);
    const std::string& text = platform->Bytes(String(kDataArea) + String(row.file));
    EXPECT_NE(text.find("\r\nPlaylistName=" + Utf8(row.name) + "\r\n"), std::string::npos);
  }
}

TEST_F(GenericWriterNamesTest, WithoutNameAndExtensionNothingIsWrittenOrLogged) {
  for (const StringView fileName : {u"Mix.asx", u"Mix.pls", u"Mix", u""}) {
    SCOPED_TRACE(Utf8(fileName));
    EXPECT_FALSE(Write(fileName));
    EXPECT_TEXT(record.name, u"");
  }
  EXPECT_EQ(platform->Calls(u"Settings.Write"), 0u);
  EXPECT_TRUE(log.empty());
}

TEST_F(GenericWriterNamesTest, AnAsxFileOfTypeTwoFailsUnlessItsNameHoldsTheM3uExtension) {
  const struct {
    StringView fileName;
    bool written;
  } rows[] = {{u"Mix.asx", false}, {u"Other.m3u.asx", true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(Utf8(row.fileName));
    const ObjectRef playlist = component.Create(u"PlayList");
    SetAll(*playlist,
           {{u"PlayListType", std::int32_t{2}}, {u"PlayListName", String(row.fileName)}});
    std::vector<Variant> arguments{component.Create(u"AsxEntry")};
    ToObject(playlist->Get(u"PlayListEntries"))->Call(u"Add", arguments);
    arguments.assign({String(row.fileName)});
    EXPECT_EQ(playlist->Call(u"WriteGeneric", arguments), Variant(row.written));
    EXPECT_TEXT(TextOf(*playlist, u"PlayListName"), row.written ? u"Other" : u"");
  }
  EXPECT_TRUE(HasWritten(u"Other.ini"));
}

TEST_F(GenericWriterNamesTest, TwoNamesThatDifferBehindAPointShareOneFile) {
  record.SetName(u"a.b.m3u", NameOrigin::Host);
  EXPECT_TRUE(Write(u""));
  record.SetName(u"a.c.m3u", NameOrigin::Host);
  EXPECT_TRUE(Write(u""));
  const std::string& text = platform->Bytes(String(kDataArea) + u"a.ini");
  EXPECT_NE(text.find("\r\nPlaylistName=a.c\r\n"), std::string::npos);
}

TEST_F(GenericWriterNamesTest, ANameSetByTheHostMayBeAFullPath) {
  record.SetName(u"D:\\Out\\New\\Mix.m3u", NameOrigin::Host);
  platform->AddDrive(u'D', DriveType::Fixed);
  EXPECT_TRUE(Write(u""));
  EXPECT_TRUE(platform->HasFile(u"D:\\Out\\New\\Mix.ini"));
  EXPECT_EQ(platform->Calls(u"Registry.Read"), 0u);
}

TEST_F(GenericWriterNamesTest, ANameOutOfThePlaylistsTextNamesAFileOfTheDataAreaOnly) {
  for (const StringView name :
       {u"C:\\Out\\Mix.m3u", u"..\\Mix.m3u", u"a\\b.m3u", u"a/b.m3u", u"\\Mix.m3u", u"C:Mix.m3u",
        u"Mix:stream.m3u", u"/.m3u", u"\\\\server\\share\\Mix.m3u"}) {
    SCOPED_TRACE(Utf8(name));
    record.SetName(name, NameOrigin::Playlist);
    EXPECT_FALSE(Write(u"Mix.m3u"));
  }
  EXPECT_EQ(platform->Calls(u"Settings.Write"), 0u);
  EXPECT_TRUE(log.empty());
  for (const StringView name : {u"Mix.m3u", u"...m3u", u"My Mix (1).m3u"}) {
    SCOPED_TRACE(Utf8(name));
    record.SetName(name, NameOrigin::Playlist);
    EXPECT_TRUE(Write(u""));
  }
  EXPECT_TRUE(HasWritten(u"Mix.ini"));
  EXPECT_TRUE(HasWritten(u"My Mix (1).ini"));
}

TEST_F(GenericWriterNamesTest, ADefaultNameComesFromTheHostWhateverCameBefore) {
  record.SetName(u".m3u", NameOrigin::Playlist);  // leaves the name empty
  EXPECT_TRUE(Write(u"C:\\Out\\Mix.m3u"));
  EXPECT_TRUE(platform->HasFile(u"C:\\Out\\Mix.ini"));
}

TEST_F(GenericWriterNamesTest, ABareNameNeedsAGroupRoot) {
  const auto bare = std::make_shared<MemoryPlatform>();
  const auto other = OpenLibrary(bare);
  record.name = u"Mix";
  EXPECT_FALSE(WriteGeneric(*other, record, u""));
  EXPECT_TRUE(bare->Files().AllFiles().empty());
  record.name = u"C:\\Mix";
  EXPECT_TRUE(WriteGeneric(*other, record, u""));
  EXPECT_TRUE(bare->HasFile(u"C:\\Mix.ini"));
}

TEST_F(GenericWriterNamesTest, APlaylistWithoutEntriesIsNotWritten) {
  record.entries = std::make_shared<Entries>();
  record.name.clear();
  platform->Log().Clear();
  EXPECT_FALSE(Write(u"Mix.m3u"));
  EXPECT_TEXT(record.name, u"");
  EXPECT_TRUE(platform->Trace().empty());
  EXPECT_TRUE(log.empty());
}

}  // namespace
}  // namespace norvo
