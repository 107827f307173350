#include "readers/ExtendedInfo.h"

#include "readers/PlaylistFixture.h"

namespace norvo {
namespace {

struct FileNameRow {
  StringView name;
  StringView track;
  StringView artist;
  StringView song;
};

TEST(FileNameSplittingTest, TakesTheExtensionOffAndSplitsAtTheDash) {
  constexpr FileNameRow kRows[] = {
      {u"Song.mp3", u"", u"", u"Song"},
      {u"Artist - Song.mp3", u"", u"Artist", u"Song"},
      {u"Artist-Song.mp3", u"", u"Artist", u"Song"},
      {u"01 - Artist - Song.mp3", u"01", u"Artist", u"Song"},
      {u"01-Song.mp3", u"01", u"", u"Song"},
      {u"Artist - Song - Live.mp3", u"", u"Artist", u"Song - Live"},
      {u"01 - Artist - Song - Live.mp3", u"01", u"Artist", u"Song - Live"},
      {u"a.b - c.d.mp3", u"", u"a.b", u"c.d"},
      {u"01a - Song.mp3", u"", u"01a", u"Song"},
      {u"99.mp3", u"", u"", u"99"},
      {u" - Song.mp3", u"", u"", u"Song"},
      {u"Artist - .mp3", u"", u"Artist", u""},
      {u"-.mp3", u"", u"", u""},
      {u"no extension", u"", u"", u"no extension"},
      {u".mp3", u"", u"", u""},
      {u"", u"", u"", u""},
  };
  for (const FileNameRow& row : kRows) {
    const FileNamePieces pieces = SplitFileName(row.name);
    EXPECT_TEXT(pieces.track, row.track) << "name: " << Utf8(row.name);
    EXPECT_TEXT(pieces.artist, row.artist) << "name: " << Utf8(row.name);
    EXPECT_TEXT(pieces.song, row.song) << "name: " << Utf8(row.name);
  }
}

struct TitleRow {
  StringView title;
  bool split;
  StringView artist;
  StringView song;
};

TEST(TitleSplittingTest, SplitsAtTheEarlierSeparator) {
  constexpr TitleRow kRows[] = {
      {u"Artist - Song", true, u"Artist", u"Song"},
      {u"Artist / Song", true, u"Artist", u"Song"},
      {u"Artist - Song / Live", true, u"Artist", u"Song / Live"},
      {u"Artist / Song - Live", true, u"Artist", u"Song - Live"},
      {u"Artist - Song - Live", true, u"Artist", u"Song - Live"},
      {u"Artist-Song", false, u"", u""},
      {u"Artist/Song", false, u"", u""},
      {u"Artist -Song", false, u"", u""},
      {u"Song", false, u"", u""},
      {u"", false, u"", u""},
      {u" - ", true, u"", u""},
      {u"Artist - ", true, u"Artist", u""},
      {u" - Song", true, u"", u"Song"},
      {u"Artist   -   Song", true, u"Artist", u"Song"},
      // Only the separator that was found is cut off the artist's end, as often as it stands.
      {u"Artist- - Song", true, u"Artist", u"Song"},
      {u"Artist --- - Song", true, u"Artist", u"Song"},
      {u"Artist- - - Song", true, u"Artist", u"- Song"},
      {u"Artist// / Song", true, u"Artist", u"Song"},
      {u"Artist/ - Song", true, u"Artist/", u"Song"},
      {u"Artist- / Song", true, u"Artist-", u"Song"},
      {u"-- - Song", true, u"", u"Song"},
  };
  for (const TitleRow& row : kRows) {
    const TitlePieces pieces = SplitTitle(row.title);
    EXPECT_EQ(pieces.split, row.split) << "title: " << Utf8(row.title);
    EXPECT_TEXT(pieces.artist, row.artist) << "title: " << Utf8(row.title);
    EXPECT_TEXT(pieces.song, row.song) << "title: " << Utf8(row.title);
  }
}

class ExtendedInfoTest : public PlaylistFixture {
 protected:
  ExtendedInfoTest() { platform->AddFile(u"C:\\Music\\a.mp3", UntaggedMedia()); }
  bool ReadWinamp(const std::string& info, const std::string& reference = "a.mp3") {
    return ReadText(u"C:\\Music\\Mix.m3u", 3, TextOf({info, reference}));
  }
  bool ReadBare(const std::string& reference) {
    return ReadText(u"C:\\Music\\Mix.m3u", 3, TextOf({reference}));
  }
};

struct InfoRow {
  const char* line;
  const char* duration;
  const char* title;
  const char* artist;
  const char* song;
  const char* hasInfo;
};

TEST_F(ExtendedInfoTest, AnInformationLineGivesLengthTitleArtistAndSong) {
  const InfoRow rows[] = {
      {"#EXTINF:215,Artist - Song", "215", "Artist - Song", "Artist", "Song", "True"},
      {"#EXTINF:215,Artist / Song", "215", "Artist / Song", "Artist", "Song", "True"},
      {"#EXTINF:95,Artist - Song", ":95", "Artist - Song", "Artist", "Song", "True"},
      {"#EXTINF:5,Song", "F:5", "Song", "", "", "True"},
      {"#EXTINF:-1,Radio", ":-1", "Radio", "", "", "True"},
      {"#EXTINF:1234,Song", "234", "Song", "", "", "True"},
      {"#EXTINF: 7 ,Song", "7", "Song", "", "", "True"},
      {"#EXTINF:215,A, B - C", "215", "A B - C", "A B", "C", "True"},
      {"#EXTINF:215,Don't_Stop (Live)!", "215", "Dont Stop Live", "", "", "True"},
      {"#EXTINF:215,(){}[]=+|*<>#@!$%~^`:;?.,'x", "215", "x", "", "", "True"},
      {"#EXTINF:215, Artist  -  Song ", "215", "Artist  -  Song", "Artist", "Song", "True"},
      // No title left, and no tag: no information.
      {"#EXTINF:215,", "215", "", "", "", "False"},
      {"#EXTINF:215,?!.", "215", "", "", "", "False"},
      // A blank title is a title as far as the information goes.
      {"#EXTINF:215,_", "215", "", "", "", "True"},
      // Neither length nor title without a comma.
      {"#EXTINF:215", "", "", "", "", "False"},
      {"#EXTINF", "", "", "", "", "False"},
  };
  for (const InfoRow& row : rows) {
    ASSERT_TRUE(ReadWinamp(row.line)) << row.line;
    EXPECT_EQ(Field(1, u"Entry_Duration"), row.duration) << row.line;
    EXPECT_EQ(Field(1, u"Entry_SongTitle"), row.title) << row.line;
    EXPECT_EQ(Field(1, u"Entry_ArtistName"), row.artist) << row.line;
    EXPECT_EQ(Field(1, u"Entry_SongName"), row.song) << row.line;
    EXPECT_EQ(Field(1, u"HasExtendedInfo"), row.hasInfo) << row.line;
  }
}

TEST_F(ExtendedInfoTest, WithoutInformationTheTagFillsTheEntry) {
  platform->AddFile(u"C:\\Music\\t.mp3", MediaWithOldTag("Song", "Artist", "Album"));
  ASSERT_TRUE(ReadBare("t.mp3"));
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "Artist");
  EXPECT_EQ(Field(1, u"Entry_SongName"), "Song");
  EXPECT_EQ(Field(1, u"Entry_AlbumName"), "Album");
  EXPECT_EQ(Field(1, u"Entry_SongTitle"), "Artist - Song");
  EXPECT_EQ(Field(1, u"HasExtendedInfo"), "True");
}

TEST_F(ExtendedInfoTest, ATagComposesATitleOnlyOfArtistAndSong) {
  platform->AddFile(u"C:\\Music\\song.mp3", MediaWithOldTag("Song", "", ""));
  platform->AddFile(u"C:\\Music\\artist.mp3", MediaWithOldTag("", "Artist", ""));
  for (const char* const reference : {"song.mp3", "artist.mp3"}) {
    ASSERT_TRUE(ReadBare(reference));
    EXPECT_EQ(Field(1, u"Entry_SongTitle"), "") << reference;
    EXPECT_EQ(Field(1, u"HasExtendedInfo"), "True") << reference;
  }
}

TEST_F(ExtendedInfoTest, TheTagIsConsultedBesidesTheLineAndLongerNamesWin) {
  platform->AddFile(u"C:\\Music\\t.mp3", MediaWithOldTag("A longer song", "Tagger", "Album"));
  ASSERT_TRUE(ReadWinamp("#EXTINF:215,Artist - Song", "t.mp3"));
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "Artist");  // as long as the tag's
  EXPECT_EQ(Field(1, u"Entry_SongName"), "A longer song");
  EXPECT_EQ(Field(1, u"Entry_SongTitle"), "Artist - Song");
  EXPECT_EQ(Field(1, u"Entry_AlbumName"), "Album");
}

TEST_F(ExtendedInfoTest, ATagGivesInformationToALineWithoutATitle) {
  platform->AddFile(u"C:\\Music\\t.mp3", MediaWithOldTag("Song", "Artist", ""));
  ASSERT_TRUE(ReadWinamp("#EXTINF:215,", "t.mp3"));
  EXPECT_EQ(Field(1, u"Entry_SongTitle"), "Artist - Song");
  EXPECT_EQ(Field(1, u"HasExtendedInfo"), "True");
}

TEST_F(ExtendedInfoTest, ATagThatLacksTheLengthReplacesAShortLengthByZero) {
  platform->AddFile(u"C:\\Music\\t.mp3", MediaWithFrames({{"TPE1", "Artist"}, {"TIT2", "Song"}}));
  ASSERT_TRUE(ReadWinamp("#EXTINF:95,x", "t.mp3"));
  EXPECT_EQ(Field(1, u"Entry_Duration"), "0");
  EXPECT_EQ(Field(1, u"Entry_TrackNumber"), "0");
  ASSERT_TRUE(ReadWinamp("#EXTINF:195,x", "t.mp3"));
  EXPECT_EQ(Field(1, u"Entry_Duration"), "195");
}

TEST_F(ExtendedInfoTest, ATagWithLengthAndTrackFillsThem) {
  platform->AddFile(u"C:\\Music\\t.mp3", MediaWithFrames({{"TLEN", "215000"}, {"TRCK", "7"}}));
  ASSERT_TRUE(ReadBare("t.mp3"));
  EXPECT_EQ(Field(1, u"Entry_Duration"), "215");
  EXPECT_EQ(Field(1, u"Entry_TrackNumber"), "7");
}

TEST_F(ExtendedInfoTest, TheFileNameServesWhenNothingElseTells) {
  platform->AddFile(u"C:\\Music\\03 - Artist - Song.mp3", UntaggedMedia());
  ASSERT_TRUE(ReadBare("C:\\Music\\03 - Artist - Song.mp3"));
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "Artist");
  EXPECT_EQ(Field(1, u"Entry_SongName"), "Song");
  EXPECT_EQ(Field(1, u"Entry_TrackNumber"), "03");
  EXPECT_EQ(Field(1, u"Entry_SongTitle"), "Artist - Song");
  EXPECT_EQ(Field(1, u"HasExtendedInfo"), "True");
}

TEST_F(ExtendedInfoTest, AFileNameWithoutAnArtistGivesItsSongButNoInformation) {
  platform->AddFile(u"C:\\Music\\Song.mp3", UntaggedMedia());
  ASSERT_TRUE(ReadBare("C:\\Music\\Song.mp3"));
  EXPECT_EQ(Field(1, u"Entry_SongName"), "Song");
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "");
  EXPECT_EQ(Field(1, u"Entry_TrackNumber"), "");
  EXPECT_EQ(Field(1, u"Entry_SongTitle"), "");
  EXPECT_EQ(Field(1, u"HasExtendedInfo"), "False");
}

TEST_F(ExtendedInfoTest, TheFileNameIsNotUsedWhenATitleWasThere) {
  platform->AddFile(u"C:\\Music\\Artist - Song.mp3", UntaggedMedia());
  ASSERT_TRUE(ReadWinamp("#EXTINF:100,Other", "C:\\Music\\Artist - Song.mp3"));
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "");
  EXPECT_EQ(Field(1, u"Entry_SongTitle"), "Other");
}

TEST_F(ExtendedInfoTest, TheFileNameIsNotUsedWhenATagWasConsultedAlthoughItIsEmpty) {
  platform->AddFile(u"C:\\Music\\Artist - Song.mp3", MediaWithOldTag("", "", ""));
  ASSERT_TRUE(ReadBare("C:\\Music\\Artist - Song.mp3"));
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "");
  EXPECT_EQ(Field(1, u"HasExtendedInfo"), "True");
}

TEST_F(ExtendedInfoTest, AnItemFromARelativeReferenceHasNoFileNameToUse) {
  platform->AddFile(u"C:\\Music\\Artist - Song.mp3", UntaggedMedia());
  ASSERT_TRUE(ReadBare("Artist - Song.mp3"));
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "");
  EXPECT_EQ(Field(1, u"Entry_SongName"), "");
  EXPECT_EQ(Field(1, u"HasExtendedInfo"), "False");
}

TEST_F(ExtendedInfoTest, AStreamHasNoFileNameToUse) {
  ASSERT_TRUE(ReadBare("http://host/Artist - Song.mp3"));
  EXPECT_EQ(Field(1, u"Entry_ArtistName"), "");
  EXPECT_EQ(Field(1, u"HasExtendedInfo"), "False");
}

struct TextRow {
  std::int32_t playlistType;
  StringView text;
  StringView title;
  StringView duration;
  bool found;
};

TEST_F(ExtendedInfoTest, ThePlaylistTypeDecidesWhatTheTextHolds) {
  constexpr TextRow kRows[] = {
      {3, u"#EXTINF:215,A - B", u"A - B", u"215", true},
      {4, u"#EXTINF:215,A - B", u"EXTINF215A - B", u"", true},
      {5, u"A - B", u"A - B", u"", true},
      {5, u"Don't Stop (Live)", u"Dont Stop Live", u"", true},
      {4, u"?", u"", u"", true},
      {1, u"A - B", u"", u"", false},
      {2, u"A - B", u"", u"", false},
      {6, u"A - B", u"", u"", false},
      {0, u"A - B", u"", u"", false},
      {7, u"A - B", u"", u"", false},
  };
  for (const TextRow& row : kRows) {
    M3UEntry entry(component);
    entry.SetUrltype(9);
    String buffer;
    EXPECT_EQ(ReadExtendedInfo(row.text, entry, row.playlistType, buffer), row.found)
        << "type " << row.playlistType << ", text " << Utf8(row.text);
    EXPECT_TEXT(entry.SongTitle(), row.title)
        << "type " << row.playlistType << ", text " << Utf8(row.text);
    EXPECT_TEXT(ToText(entry.Duration()), row.duration)
        << "type " << row.playlistType << ", text " << Utf8(row.text);
  }
}

}  // namespace
}  // namespace norvo
