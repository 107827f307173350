#include "model/Entry.h"

#include "model/ModelTest.h"

namespace norvo {
namespace {

constexpr StringView kNoSourceUrl = u"Must set the SourceURL property to obtain the File name ";
constexpr StringView kNoSize = u"Must set the SourceURL property to obtain a size ";
constexpr StringView kFile = u"C:\\Music\\Some Song.mp3";

class EntryTest : public LibraryTest {
 protected:
  EntryTest() { platform->AddFile(kFile, std::string(1234, 'x'), kUsualFileTime - 5); }

  String Text(StringView name) { return TextOf(object, name); }
  std::int32_t Number(StringView name) { return ToInt32(object.Get(name)); }

  const ObjectRef reference = component.Create(u"Entry");
  AutomationObject& object = *reference;
  Entry& entry = dynamic_cast<Entry&>(object);
};

TEST_F(EntryTest, AFreshEntryIsEmpty) {
  for (const StringView name :
       {u"AlbumName", u"ArtistName", u"SongName", u"CreationDate", u"Duration", u"Genre",
        u"PlayListName", u"SongTitle", u"SourceURL", u"TrackNumber"}) {
    SCOPED_TRACE(Utf8(name));
    EXPECT_EQ(object.Get(name), Variant(String()));
  }
  for (const StringView name : {u"EntryType", u"NativeFormat", u"Urltype"}) {
    SCOPED_TRACE(Utf8(name));
    EXPECT_EQ(object.Get(name), Variant(std::int32_t{0}));
  }
  EXPECT_TRUE(log.empty());
  EXPECT_EQ(object.Get(u"FileName"), Variant(String()));
  EXPECT_EQ(object.Get(u"FileSize"), Variant(0.0));
  EXPECT_EQ(Utf8(log), (Lines{Utf8(kNoSourceUrl), Utf8(kNoSize)}));
}

TEST_F(EntryTest, PlainFieldsComeBackAsTheyWereGiven) {
  const String odd(u"  a\0b  ", 7);
  for (const StringView name : {u"CreationDate", u"Genre", u"TrackNumber", u"SourceURL"}) {
    SCOPED_TRACE(Utf8(name));
    object.Let(name, odd);
    EXPECT_TEXT(Text(name), odd);
  }
  for (const StringView name : {u"EntryType", u"NativeFormat", u"Urltype"}) {
    SCOPED_TRACE(Utf8(name));
    for (const std::int32_t value : {-2147483647 - 1, 2147483647, 10, 99}) {
      object.Let(name, value);
      EXPECT_EQ(Number(name), value);
    }
  }
}

TEST_F(EntryTest, NamesAreReadBackCutAtTheFirstNulAndTrimmed) {
  const struct {
    String stored;
    StringView read;
  } rows[] = {{u"plain", u"plain"},
              {u"  both ends  ", u"both ends"},
              {String(u"padded\0\0\0", 9), u"padded"},
              {String(u" cut \0junk", 10), u"cut"},
              {String(u"\0junk", 5), u""},
              {u"   ", u""},
              {u"\ttab\t", u"\ttab\t"}};
  for (const StringView name : {u"AlbumName", u"ArtistName", u"SongName"}) {
    for (const auto& row : rows) {
      SCOPED_TRACE(Utf8(name) + " " + Utf8(row.stored));
      object.Let(name, row.stored);
      EXPECT_TEXT(Text(name), row.read);
    }
  }
}

TEST_F(EntryTest, ADurationOfAnyTypeIsKeptAsText) {
  const struct {
    Variant given;
    StringView kept;
  } rows[] = {{String(u"00:03:35.000"), u"00:03:35.000"},
              {std::int16_t{180}, u"180"},
              {std::int32_t{-1}, u"-1"},
              {2.5, u"2.5"},
              {215.0, u"215"},
              {true, u"True"},
              {Variant(), u""}};
  for (const auto& row : rows) {
    SCOPED_TRACE(Utf8(row.kept));
    object.Let(u"Duration", row.given);
    EXPECT_EQ(object.Get(u"Duration"), Variant(String(row.kept)));
  }
  object.Let(u"Duration", String(u"5"));
  EXPECT_EQ(NumberRaisedBy([&] { object.Let(u"Duration", reference); }), error::kTypeMismatch);
  EXPECT_TEXT(Text(u"Duration"), u"5");
}

TEST_F(EntryTest, TheFileSizeCannotBeSet) {
  EXPECT_EQ(NumberRaisedBy([&] { object.Let(u"FileSize", 5.0); }), error::kNoSuchMember);
}

TEST_F(EntryTest, ASetFileNameIsAnsweredOnceThereIsASource) {
  object.Let(u"FileName", String(u" mine.mp3 "));
  EXPECT_TEXT(Text(u"FileName"), u"");
  EXPECT_EQ(Utf8(log), Lines{Utf8(kNoSourceUrl)});
  object.Let(u"SourceURL", String(u"http://radio"));
  EXPECT_TEXT(Text(u"FileName"), u" mine.mp3 ");
  EXPECT_EQ(log.size(), 1u);
}

TEST_F(EntryTest, TheSourceOfALocalTypeGivesNameAndSizeByOneLookUp) {
  for (const std::int32_t type : {0, 1}) {
    SCOPED_TRACE(type);
    const ObjectRef other = component.Create(u"Entry");
    platform->Log().Clear();
    SetAll(*other, {{u"Urltype", type}, {u"SourceURL", String(u"c:\\music\\SOME SONG.MP3")}});
    EXPECT_TEXT(TextOf(*other, u"SourceURL"), u"c:\\music\\SOME SONG.MP3");
    EXPECT_TEXT(TextOf(*other, u"FileName"), u"Some Song.mp3");
    EXPECT_EQ(other->Get(u"FileSize"), Variant(1234.0));
    EXPECT_TEXT(TextOf(*other, u"CreationDate"), u"");
    EXPECT_EQ(platform->Trace().size(), 1u);
    EXPECT_EQ(platform->Calls(u"FactsOf"), 1u);
  }
  EXPECT_TRUE(log.empty());
}

TEST_F(EntryTest, TheSourceOfAnyOtherTypeIsNotLookedAt) {
  for (const std::int32_t type : {2, 3, 4, 5, 6, 7, 8, 9, 10, -1}) {
    SCOPED_TRACE(type);
    const ObjectRef other = component.Create(u"Entry");
    SetAll(*other, {{u"Urltype", type}, {u"SourceURL", String(kFile)}});
    EXPECT_TEXT(TextOf(*other, u"FileName"), u"");
    EXPECT_EQ(other->Get(u"FileSize"), Variant(0.0));
  }
  EXPECT_TRUE(platform->Trace().empty());
  EXPECT_TRUE(log.empty());
}

TEST_F(EntryTest, SettingTheTypeAfterTheSourceReadsNothing) {
  SetAll(object, {{u"Urltype", std::int32_t{4}}, {u"SourceURL", String(kFile)}});
  object.Let(u"Urltype", std::int32_t{0});
  EXPECT_TEXT(Text(u"FileName"), u"");
}

TEST_F(EntryTest, AMissingFileChangesNoOtherField) {
  SetAll(object, {{u"FileName", String(u"old.mp3")},
                  {u"CreationDate", String(u"2001")},
                  {u"Urltype", std::int32_t{0}},
                  {u"SourceURL", String(u"C:\\Music\\missing.mp3")}});
  EXPECT_TEXT(Text(u"SourceURL"), u"C:\\Music\\missing.mp3");
  EXPECT_TEXT(Text(u"FileName"), u"old.mp3");
  EXPECT_TEXT(Text(u"CreationDate"), u"2001");
  EXPECT_EQ(object.Get(u"FileSize"), Variant(0.0));
  EXPECT_EQ(entry.FileCreationDate(), std::nullopt);
  EXPECT_TRUE(log.empty());
}

TEST_F(EntryTest, ASecondSourceThatIsNotLookedAtLeavesTheFactsOfTheFirst) {
  object.Let(u"SourceURL", String(kFile));
  object.Let(u"SourceURL", String(u"C:\\Music"));  // a folder is no file
  EXPECT_TEXT(Text(u"FileName"), u"Some Song.mp3");
  SetAll(object, {{u"Urltype", std::int32_t{3}}, {u"SourceURL", String(u"x\\y.mp3")}});
  EXPECT_TEXT(Text(u"FileName"), u"Some Song.mp3");
  EXPECT_EQ(object.Get(u"FileSize"), Variant(1234.0));
}

TEST_F(EntryTest, AnEmptySourceHidesNameAndSizeAgain) {
  object.Let(u"SourceURL", String(kFile));
  object.Let(u"SourceURL", String());
  EXPECT_TEXT(Text(u"FileName"), u"");
  EXPECT_EQ(object.Get(u"FileSize"), Variant(0.0));
  EXPECT_EQ(Utf8(log), (Lines{Utf8(kNoSourceUrl), Utf8(kNoSize)}));
}

TEST_F(EntryTest, ALookUpThatFailsLeavesTheFactsAndRaisesNothing) {
  object.Let(u"FileName", String(u"old.mp3"));
  platform->FailOn(u"FactsOf", 1, error::kDeviceInputOutput);
  EXPECT_EQ(NumberRaisedBy([&] { object.Let(u"SourceURL", String(kFile)); }), 0);
  platform->Log().RunOutOfMemoryAt(1);
  EXPECT_NO_THROW(object.Let(u"SourceURL", String(kFile)));
  EXPECT_TEXT(Text(u"SourceURL"), kFile);
  EXPECT_TEXT(Text(u"FileName"), u"old.mp3");
  EXPECT_EQ(Utf8(log), (Lines{"NVServices::DoesFileExist -> ERROR!!!  Device I/O error",
                              "NVServices::DoesFileExist -> ERROR!!!  Out of memory"}));
}

TEST_F(EntryTest, TheFilesCreationDateIsTakenUnlessTheEntryIsOfAnAsxType) {
  for (std::int32_t type = -1; type <= 7; ++type) {
    SCOPED_TRACE(type);
    Entry other(component);
    other.SetEntryType(type);
    other.SetSourceURL(String(kFile));
    const bool asx = type == 1 || type == 2;
    EXPECT_EQ(other.FileCreationDate().has_value(), !asx);
    if (!asx) {
      EXPECT_EQ(other.FileCreationDate(), kUsualFileTime - 5);
    }
    EXPECT_TEXT(other.FileName(), u"Some Song.mp3");
    EXPECT_EQ(other.FileSize(), 1234);
  }
}

TEST_F(EntryTest, FactsHandedOverHaveTheSameEffectAsALookUp) {
  const FileFacts facts{u"Other.mp3", 77, 99};
  for (std::int32_t type = 0; type <= 10; ++type) {
    SCOPED_TRACE(type);
    Entry other(component);
    other.SetUrltype(type);
    other.SetSource(u"C:\\x.mp3", &facts);
    EXPECT_TEXT(other.SourceURL(), u"C:\\x.mp3");
    EXPECT_TEXT(other.FileName(), type <= 1 ? u"Other.mp3" : u"");
    EXPECT_EQ(other.FileSize(), type <= 1 ? 77 : 0);
    EXPECT_EQ(other.FileCreationDate().has_value(), type <= 1);
    other.SetSource(u"C:\\y.mp3", nullptr);
    EXPECT_TEXT(other.SourceURL(), u"C:\\y.mp3");
    EXPECT_TEXT(other.FileName(), type <= 1 ? u"Other.mp3" : u"");
  }
  EXPECT_TRUE(platform->Trace().empty());
}

TEST_F(EntryTest, ThePlayListNameIsStoredWithoutTheExtensionOfItsType) {
  const struct {
    std::int32_t type;
    StringView given;
    StringView stored;
  } rows[] = {{3, u"Rock.m3u", u"Rock"},
              {3, u"My.Mix.M3U", u"My.Mix"},
              {4, u"Rock.m3u", u"old"},
              {1, u"Mix.asx", u"Mix"},
              {2, u"Mix.asx", u"Mix"},
              {2, u"Mix.m3u", u"old"},
              {6, u"Mix.m3u", u"Mix"},
              {5, u"Mix.pls", u"Mix"},
              {4, u"Mix.PLS", u"Mix"},
              {3, u"x.m3u.bak", u"x"},
              {3, u"a.m3u.b.m3u", u"a"},
              {0, u"Mix.m3u", u"old"},
              {7, u"Mix.m3u", u"old"},
              {3, u"No point", u"No point"},
              {0, u"No point", u"No point"},
              {3, u"", u""},
              {3, u".m3u", u""},
              {3, u"a.", u"old"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(std::to_string(row.type) + " " + Utf8(row.given));
    object.Let(u"PlayListName", String(u"old"));
    object.Let(u"EntryType", row.type);
    object.Let(u"PlayListName", String(row.given));
    EXPECT_TEXT(entry.StoredPlayListName(), row.stored);
    EXPECT_TEXT(Text(u"PlayListName"), u"");
  }
}

TEST_F(EntryTest, TheFirstTitleThatIsNotEmptyWins) {
  object.Let(u"SongTitle", String());
  object.Let(u"SongTitle", String(u"first"));
  object.Let(u"SongTitle", String(u"second"));
  object.Let(u"SongTitle", String());
  EXPECT_TEXT(Text(u"SongTitle"), u"first");
}

TEST_F(EntryTest, ATitleIsComposedByTheFirstReadingAndAnsweredByTheNext) {
  SetAll(object, {{u"ArtistName", String(u"A")}, {u"SongName", String(u"S")}});
  EXPECT_TEXT(Text(u"SongTitle"), u"");
  EXPECT_TEXT(Text(u"SongTitle"), u"A - S");
  SetAll(object, {{u"ArtistName", String(u"B")}, {u"SongTitle", String(u"late")}});
  EXPECT_TEXT(Text(u"SongTitle"), u"A - S");
}

TEST_F(EntryTest, ATitleIsComposedFromTheStoredNames) {
  SetAll(object, {{u"ArtistName", String(u" A\0", 3)}, {u"SongName", String(u"S \0x", 4)}});
  EXPECT_TEXT(Text(u"SongTitle"), u"");
  EXPECT_TEXT(Text(u"SongTitle"), StringView(u" A\0 - S \0x", 10));
}

TEST_F(EntryTest, ATitleNeedsArtistAndSong) {
  object.Let(u"ArtistName", String(u"A"));
  EXPECT_TEXT(Text(u"SongTitle"), u"");
  EXPECT_TEXT(Text(u"SongTitle"), u"");
  SetAll(object, {{u"ArtistName", String()}, {u"SongName", String(u"S")}});
  EXPECT_TEXT(Text(u"SongTitle"), u"");
  EXPECT_TEXT(Text(u"SongTitle"), u"");
  object.Let(u"SongTitle", String(u"T"));
  EXPECT_TEXT(Text(u"SongTitle"), u"T");
}

TEST_F(EntryTest, NoOperationRaisesTheOutOfMemoryEvent) {
  int raised = 0;
  const unsigned ticket = entry.OutOfMemory().Subscribe([&] { ++raised; });
  for (std::size_t k = 1; k <= 6; ++k) {
    platform->Log().RunOutOfMemoryAt(k);
    object.Let(u"SourceURL", String(kFile));
    object.Get(u"FileName");
    platform->Log().StopFailing();
  }
  EXPECT_EQ(raised, 0);
  entry.OutOfMemory().Raise();
  EXPECT_EQ(raised, 1);
  entry.OutOfMemory().Unsubscribe(ticket);
  entry.OutOfMemory().Raise();
  EXPECT_EQ(raised, 1);
}

}  // namespace
}  // namespace norvo
