#include "model/Entry.h"
#include "model/ModelTest.h"
#include "tags/TagBuilder.h"

namespace norvo {
namespace {

using namespace std::string_literals;

class EntryTagTest : public LibraryTest {
 protected:
  bool Complete(const std::string& bytes) {
    platform->AddFile(kPath, bytes);
    object.Let(u"SourceURL", String(kPath));
    return ToBoolean(object.Call(u"GetID3TagInfo"));
  }
  String Text(StringView name) { return TextOf(object, name); }

  static constexpr StringView kPath = u"C:\\a.mp3";
  const Trailer trailer{"Old Song", "Old Artist", "Old Album", "1999", "Comment", 17};
  const std::string frames = TextFrame("TIT2", "Song") + TextFrame("TPE1", "Singer") +
                             TextFrame("TALB", "Record") + TextFrame("TCON", "(17)") +
                             TextFrame("TYER", "2001") + TextFrame("TLEN", "215500") +
                             TextFrame("TRCK", "7");
  const ObjectRef reference = component.Create(u"Entry");
  AutomationObject& object = *reference;
};

TEST_F(EntryTagTest, WithoutASourceNoTagIsConsulted) {
  EXPECT_EQ(object.Call(u"GetID3TagInfo"), Variant(false));
  EXPECT_TRUE(platform->Trace().empty());
  EXPECT_TRUE(log.empty());
}

TEST_F(EntryTagTest, AFileWithoutTagsGivesFalseAndChangesNothing) {
  EXPECT_FALSE(Complete(std::string(500, 'x')));
  EXPECT_FALSE(Complete("x"));
  platform->Files().Deny(kPath);
  EXPECT_EQ(object.Call(u"GetID3TagInfo"), Variant(false));
  object.Let(u"SourceURL", String(u"http://radio/x.mp3"));
  EXPECT_EQ(object.Call(u"GetID3TagInfo"), Variant(false));
  for (const StringView name : {u"AlbumName", u"ArtistName", u"SongName", u"CreationDate",
                                u"Duration", u"Genre", u"TrackNumber"}) {
    EXPECT_TEXT(Text(name), u"");
  }
}

TEST_F(EntryTagTest, TheFramesFillAnEmptyEntry) {
  EXPECT_TRUE(Complete(Id3(frames)));
  EXPECT_TEXT(Text(u"AlbumName"), u"Record");
  EXPECT_TEXT(Text(u"ArtistName"), u"Singer");
  EXPECT_TEXT(Text(u"Duration"), u"216");
  EXPECT_TEXT(Text(u"Genre"), u"(17)");
  EXPECT_TEXT(Text(u"SongName"), u"Song");
  EXPECT_TEXT(Text(u"TrackNumber"), u"7");
  EXPECT_TEXT(Text(u"CreationDate"), u"2001");
}

TEST_F(EntryTagTest, AStoredNameGivesWayOnlyToALongerOne) {
  const struct {
    StringView stored, kept;
  } rows[] = {{u"Greatest Hits", u"Greatest Hits"}, {u"Tags", u"Tags"}, {u"Tag", u"Hits"}};
  const std::string bytes = Id3(TextFrame("TALB", "Hits") + TextFrame("TPE1", "Hits") +
                                TextFrame("TCON", "Hits") + TextFrame("TIT2", "Hits"));
  for (const auto& row : rows) {
    for (const StringView name : {u"AlbumName", u"ArtistName", u"Genre", u"SongName"}) {
      SCOPED_TRACE(Utf8(name) + " " + Utf8(row.stored));
      object.Let(name, String(row.stored));
      EXPECT_TRUE(Complete(bytes));
      EXPECT_TEXT(Text(name), row.kept);
    }
  }
}

TEST_F(EntryTagTest, LengthsCountWithTheirNuls) {
  object.Let(u"AlbumName", String(u"Hits\0\0\0", 7));
  EXPECT_TRUE(Complete(Id3(TextFrame("TALB", "Longer"))));
  EXPECT_TEXT(Text(u"AlbumName"), u"Hits");
  object.Let(u"ArtistName", String(u"Singer"));
  object.Let(u"Genre", String(u"Rock"));
  EXPECT_TRUE(Complete(Id3(TextFrame("TPE1", "S\0\0\0\0\0\0"s) + TextFrame("TCON", "R\0\0\0\0"s))));
  EXPECT_TEXT(Text(u"ArtistName"), u"S");
  EXPECT_TEXT(Text(u"Genre"), StringView(u"R\0\0\0\0", 5));
}

TEST_F(EntryTagTest, GenreAndYearAreTakenAsTheyStand) {
  EXPECT_TRUE(Complete(Id3(TextFrame("TCON", " (17)\0"s) + TextFrame("TYER", " 2001\0"s))));
  EXPECT_TEXT(Text(u"Genre"), StringView(u" (17)\0", 6));
  EXPECT_TEXT(Text(u"CreationDate"), StringView(u" 2001\0", 6));
}

TEST_F(EntryTagTest, DurationAndTrackGiveWayWhereTheyAreZeroOrNoNumber) {
  const struct {
    StringView stored;
    bool replaced;
  } rows[] = {{u"", true},     {u"0", true},     {u"0.0", true},
              {u"abc", true},  {u"-0", true},    {u"00:03:35.000", true},
              {u"3/12", true}, {u"5", false},    {u"-1", false},
              {u"0.5", false}, {u" 12 ", false}, {u"1e2", false},
              {u"5 s", true}};
  for (const auto& row : rows) {
    SCOPED_TRACE(Utf8(row.stored));
    SetAll(object, {{u"Duration", String(row.stored)}, {u"TrackNumber", String(row.stored)}});
    EXPECT_TRUE(Complete(Id3(frames)));
    EXPECT_TEXT(Text(u"Duration"), row.replaced ? u"216" : row.stored);
    EXPECT_TEXT(Text(u"TrackNumber"), row.replaced ? u"7" : row.stored);
  }
}

TEST_F(EntryTagTest, AMissingDurationOrTrackFrameBecomesZero) {
  SetAll(object, {{u"Duration", String(u"00:03:35.000")}, {u"TrackNumber", String(u"abc")}});
  EXPECT_TRUE(Complete(Id3(TextFrame("TIT2", "Song"))));
  EXPECT_TEXT(Text(u"Duration"), u"0");
  EXPECT_TEXT(Text(u"TrackNumber"), u"0");
  object.Let(u"TrackNumber", String());
  EXPECT_TRUE(Complete(Id3(TextFrame("TRCK", "3/12"))));
  EXPECT_TEXT(Text(u"TrackNumber"), u"0");
}

TEST_F(EntryTagTest, AStoredCreationDateStays) {
  object.Let(u"CreationDate", String(u"x"));
  EXPECT_TRUE(Complete(Id3(frames)));
  EXPECT_TEXT(Text(u"CreationDate"), u"x");
}

TEST_F(EntryTagTest, TheTrailerFillsNamesAndGenreOnly) {
  EXPECT_TRUE(Complete(trailer.Bytes()));
  EXPECT_TEXT(Text(u"AlbumName"), u"Old Album");
  EXPECT_TEXT(Text(u"ArtistName"), u"Old Artist");
  EXPECT_TEXT(Text(u"Genre"), u"Rock");
  EXPECT_TEXT(Text(u"SongName"), u"Old Song");
  EXPECT_TEXT(Text(u"Duration"), u"");
  EXPECT_TEXT(Text(u"TrackNumber"), u"");
  EXPECT_TEXT(Text(u"CreationDate"), u"");
}

TEST_F(EntryTagTest, TheTrailersYearLeavesTheFilesDateAlone) {
  platform->AddFile(kPath, trailer.Bytes(), 1000);
  Entry entry(component);
  entry.SetSourceURL(String(kPath));
  EXPECT_TRUE(entry.GetID3TagInfo());
  EXPECT_EQ(entry.FileCreationDate(), FileTime{1000});
  EXPECT_TEXT(entry.CreationDate(), u"");
}

TEST_F(EntryTagTest, TheTrailersNamesToMustBeLongerAndItsGenreIsANameOfTheTable) {
  SetAll(object, {{u"AlbumName", String(u"New Album")},
                  {u"ArtistName", String(u"Art")},
                  {u"Genre", String(u"Pop!")},
                  {u"SongName", String(u"A longer song")}});
  EXPECT_TRUE(Complete(trailer.Bytes()));
  EXPECT_TEXT(Text(u"AlbumName"), u"New Album");
  EXPECT_TEXT(Text(u"ArtistName"), u"Old Artist");
  EXPECT_TEXT(Text(u"Genre"), u"Pop!");
  EXPECT_TEXT(Text(u"SongName"), u"A longer song");
}

TEST_F(EntryTagTest, TheFramesHideTheTrailer) {
  EXPECT_TRUE(Complete(Id3("") + trailer.Bytes()));
  for (const StringView name : {u"AlbumName", u"ArtistName", u"SongName", u"Genre"}) {
    EXPECT_TEXT(Text(name), u"");
  }
  EXPECT_TEXT(Text(u"Duration"), u"0");
  EXPECT_TEXT(Text(u"TrackNumber"), u"0");
}

TEST_F(EntryTagTest, WhatWasReadBeforeAnErrorCountsAndStillHidesTheTrailer) {
  EXPECT_TRUE(Complete(Id3(TextFrame("TPE1", "Singer") + FrameHeader("TIT2", {0, 0, 0x80, 0})) +
                       trailer.Bytes()));
  EXPECT_TEXT(Text(u"ArtistName"), u"Singer");
  EXPECT_TEXT(Text(u"SongName"), u"");
  EXPECT_TEXT(Text(u"AlbumName"), u"");
}

TEST_F(EntryTagTest, AShortFileWithFramesIsConsultedToo) {
  EXPECT_TRUE(Complete(Id3(TextFrame("TPE1", "Singer"), 0)));
  EXPECT_TEXT(Text(u"ArtistName"), u"Singer");
}

TEST_F(EntryTagTest, TheAddressTypeDoesNotMatter) {
  object.Let(u"Urltype", std::int32_t{6});
  EXPECT_TRUE(Complete(Id3(frames)));
  EXPECT_TEXT(Text(u"SongName"), u"Song");
}

TEST_F(EntryTagTest, TagCompletionNeverRaises) {
  platform->AddFile(kPath, Id3(frames, 8000) + trailer.Bytes());
  object.Let(u"SourceURL", String(kPath));
  for (const bool memory : {false, true}) {
    std::size_t k = 1;
    for (;; ++k) {
      SCOPED_TRACE(std::string(memory ? "memory " : "error ") + std::to_string(k));
      if (memory) {
        platform->Log().RunOutOfMemoryAt(k);
      } else {
        platform->FailAt(k, error::kDeviceInputOutput);
      }
      EXPECT_NO_THROW(object.Call(u"GetID3TagInfo"));
      if (!platform->Log().HasFailed()) break;
    }
    EXPECT_GT(k, 2u);  // the opening and a read at least
    platform->Log().StopFailing();
  }
  EXPECT_TRUE(log.empty());
}

}  // namespace
}  // namespace norvo
