#include "model/Entry.h"
#include "model/ModelTest.h"

namespace norvo {
namespace {

class EntryDestinationTest : public LibraryTest {
 protected:
  /// A product with a sub-name of its own for each slot.
  void Configure() {
    platform->ConfigureProduct();
    platform->AddFile(String(kGroupRoot) + u"SubNames.txt",
                      "[PlayListStrings]\r\nSzID001=Both\r\nSzID002=ArtistOnly\r\n"
                      "SzID003=AlbumOnly\r\nSzID004=Neither\r\nszID005=PlayLists\r\n");
  }

  String Destination() { return ToText(object.Call(u"DestinationPath")); }

  static constexpr StringView kNoFileName = u"The FileName Property has not been set";
  const ObjectRef reference = component.Create(u"Entry");
  AutomationObject& object = *reference;
};

TEST_F(EntryDestinationTest, ThePrefixAndTheFoldersFollowArtistAndAlbum) {
  Configure();
  const struct {
    StringView artist, album, path;
  } rows[] = {{u"A", u"B", u"Both\\A\\B\\f.mp3"},
              {u"A", u"", u"ArtistOnly\\A\\f.mp3"},
              {u"", u"B", u"AlbumOnly\\B\\f.mp3"},
              {u"", u"", u"Neither\\f.mp3"},
              {u"  ", u"  ", u"Neither\\f.mp3"}};
  object.Let(u"FileName", String(u"f.mp3"));
  for (const auto& row : rows) {
    SCOPED_TRACE(Utf8(row.path));
    SetAll(object, {{u"ArtistName", String(row.artist)}, {u"AlbumName", String(row.album)}});
    EXPECT_TEXT(Destination(), String(kGroupRoot) + String(row.path));
  }
  EXPECT_TRUE(log.empty());
}

TEST_F(EntryDestinationTest, WithoutADestinationFolderThePathBeginsWithTheNames) {
  const struct {
    StringView artist, album, path;
  } rows[] = {{u"A", u"B", u"A\\B\\f.mp3"},
              {u"A", u"", u"A\\f.mp3"},
              {u"", u"B", u"B\\f.mp3"},
              {u"", u"", u"f.mp3"}};
  object.Let(u"FileName", String(u"f.mp3"));
  for (const auto& row : rows) {
    SetAll(object, {{u"ArtistName", String(row.artist)}, {u"AlbumName", String(row.album)}});
    EXPECT_TEXT(Destination(), row.path);
  }
}

TEST_F(EntryDestinationTest, AddressesThatAreNotRelocatedAreTheirOwnDestination) {
  Configure();
  object.Let(u"SourceURL", String(u" http://radio/x \0junk", 21));
  for (std::int32_t type = -1; type <= 11; ++type) {
    SCOPED_TRACE(type);
    object.Let(u"Urltype", type);
    EXPECT_TEXT(Destination(), type >= 6 && type <= 9 ? u"http://radio/x" : u"");
  }
  EXPECT_EQ(log.size(), 9u);
  for (const String& line : log) EXPECT_TEXT(line, kNoFileName);
}

TEST_F(EntryDestinationTest, AFileNameThatIsEmptyAfterCleaningGivesNoPath) {
  Configure();
  object.Let(u"FileName", String(u" \0f.mp3", 7));
  EXPECT_TEXT(Destination(), u"");
  EXPECT_EQ(Utf8(log), Lines{Utf8(kNoFileName)});
}

TEST_F(EntryDestinationTest, TheFileNameNeedsNoSource) {
  object.Let(u"FileName", String(u"f.mp3"));
  EXPECT_TEXT(Destination(), u"f.mp3");
  EXPECT_TRUE(log.empty());
}

TEST_F(EntryDestinationTest, TheStoredNamesAreCleanedInPlaceWhateverTheResult) {
  for (const std::int32_t type : {0, 9}) {
    for (const bool named : {true, false}) {
      SCOPED_TRACE(type);
      const ObjectRef other = component.Create(u"Entry");
      SetAll(*other, {{u"Urltype", std::int32_t{4}},
                      {u"SourceURL", String(u"f.mp3")},
                      {u"Urltype", type},
                      {u"ArtistName", String(u" A \0x", 5)},
                      {u"AlbumName", String(u" B \0x", 5)},
                      {u"SongName", String(u" S \0x", 5)}});
      if (named) other->Let(u"FileName", String(u" f.mp3 \0x", 9));
      other->Call(u"DestinationPath");
      if (named) {
        EXPECT_TEXT(TextOf(*other, u"FileName"), u"f.mp3");
      }
      other->Get(u"SongTitle");  // is composed of the stored names; the song is not cleaned
      EXPECT_TEXT(TextOf(*other, u"SongTitle"), StringView(u"A -  S \0x", 9));
    }
  }
}

}  // namespace
}  // namespace norvo
