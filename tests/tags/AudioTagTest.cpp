#include "tags/AudioTag.h"

#include "automation/Conversions.h"
#include "automation/RunTimeError.h"

#include "support/LibraryTest.h"
#include "tags/TagBuilder.h"
#include "tags/TagCache.h"

namespace norvo {
namespace {

class AudioTagTest : public LibraryTest {
 protected:
  static constexpr StringView kPath = u"C:\\a.mp3";
  static constexpr FileStamp kStamp{1000, 1};

  AudioTag Read(const std::optional<FileStamp>& stamp) {
    return ReadAudioTag(component, kPath, stamp);
  }
  void WriteSong(std::string_view name) {
    platform->AddFile(kPath, Id3(TextFrame("TIT2", name) + TextFrame("TLEN", "215500") +
                                 TextFrame("TRCK", "7") + TextFrame("TYER", "1999")));
  }
};

TEST_F(AudioTagTest, AnId3v2TagGivesAllItsFields) {
  WriteSong("Song");
  const AudioTag tag = Read(std::nullopt);
  EXPECT_EQ(tag.kind, AudioTag::Kind::Id3v2);
  EXPECT_TEXT(tag.song, u"Song");
  EXPECT_TEXT(tag.year, u"1999");
  EXPECT_EQ(tag.duration, 216);
  EXPECT_EQ(tag.track, 7);
}

TEST_F(AudioTagTest, AnId3v1TagGivesTheGenresName) {
  platform->AddFile(kPath, Trailer{"Song", "Artist", "Album", "1999", "", 17}.Bytes());
  const AudioTag tag = Read(std::nullopt);
  EXPECT_EQ(tag.kind, AudioTag::Kind::Id3v1);
  EXPECT_TEXT(tag.genre, u"Rock");
  EXPECT_TEXT(tag.year, u"");
}

TEST_F(AudioTagTest, AFileWithoutATagHasNone) {
  platform->AddFile(kPath, std::string(500, 'x'));
  EXPECT_EQ(Read(std::nullopt).kind, AudioTag::Kind::None);
}

TEST_F(AudioTagTest, TheSameFileIsReadOnce) {
  WriteSong("Song");
  const AudioTag first = Read(kStamp);
  const String song(first.song);
  const String year(first.year);
  const AudioTag second = Read(kStamp);
  EXPECT_EQ(platform->Calls(u"OpenForReading"), 1u);
  EXPECT_EQ(second.kind, first.kind);
  EXPECT_TEXT(second.song, song);
  EXPECT_TEXT(second.year, year);
  EXPECT_EQ(second.duration, first.duration);
  EXPECT_EQ(second.track, first.track);
}

TEST_F(AudioTagTest, AChangedFileIsReadAgain) {
  WriteSong("Old");
  Read(kStamp);
  WriteSong("New");
  EXPECT_TEXT(Read(FileStamp{1000, 2}).song, u"New");
  EXPECT_TEXT(Read(FileStamp{1000, 2}).song, u"New");
  EXPECT_EQ(platform->Calls(u"OpenForReading"), 2u);
  EXPECT_TEXT(Read(FileStamp{1001, 2}).song, u"New");
  EXPECT_EQ(platform->Calls(u"OpenForReading"), 3u);
}

TEST_F(AudioTagTest, WithoutALookUpAFileIsReadEachTime) {
  WriteSong("Old");
  Read(kStamp);
  WriteSong("New");
  EXPECT_TEXT(Read(std::nullopt).song, u"New");
}

TEST_F(AudioTagTest, AFailedReadIsTriedAgain) {
  WriteSong("Song");
  platform->FailOn(u"ReadAt", 1, error::kDeviceInputOutput);
  EXPECT_EQ(Read(kStamp).kind, AudioTag::Kind::None);
  EXPECT_TEXT(Read(kStamp).song, u"Song");
}

Fingerprint Print(StringView path) {
  return FingerprintOf(path);
}

TEST(TagCache, KeepsSoManyTagsAndNoMore) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  AudioTag tag;
  tag.kind = AudioTag::Kind::Id3v2;
  const auto path = [](std::size_t i) { return u"C:\\" + ToText(static_cast<std::int32_t>(i)); };
  for (std::size_t i = 0; i < TagCache::kMostTags; ++i) cache.Keep(Print(path(i)), stamp, tag);
  EXPECT_TRUE(cache.Find(Print(path(TagCache::kMostTags - 1)), stamp));
  cache.Keep(Print(path(TagCache::kMostTags)), stamp, tag);
  EXPECT_FALSE(cache.Find(Print(path(TagCache::kMostTags)), stamp));
  EXPECT_TRUE(cache.Find(Print(path(0)), stamp));
}

TEST(TagCache, KeepsTextsUpToTheirLimit) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  AudioTag tag;
  const String longest(TagCache::kLongestText + 1, u'x');
  tag.album = StringView(longest).substr(1);
  cache.Keep(Print(u"C:\\a"), stamp, tag);
  ASSERT_TRUE(cache.Find(Print(u"C:\\a"), stamp));
  EXPECT_EQ(cache.Find(Print(u"C:\\a"), stamp)->album, tag.album);
  tag.album = longest;
  cache.Keep(Print(u"C:\\b"), stamp, tag);
  EXPECT_FALSE(cache.Find(Print(u"C:\\b"), stamp));
}

TEST(TagCache, KeepsNoMoreTextThanItsLimit) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  AudioTag tag;
  const String text(TagCache::kLongestText, u'\u4e00');
  tag.song = text;
  const std::size_t fitting = TagCache::kMostText / (2 * TagCache::kLongestText);
  for (std::size_t i = 0; i <= fitting; ++i) {
    cache.Keep(Fingerprint{i, 1}, stamp, tag);
  }
  EXPECT_FALSE(cache.Find(Fingerprint{fitting, 1}, stamp));
  for (const std::size_t i : {std::size_t{0}, std::size_t{100}, fitting / 2}) {
    ASSERT_TRUE(cache.Find(Fingerprint{i, 1}, stamp)) << i;
    EXPECT_EQ(cache.Find(Fingerprint{i, 1}, stamp)->song, tag.song) << i;
  }
}

TEST(TagCache, KeepsNoMoreAlbumsThanTheirTextsHaveRoom) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  const std::size_t fitting = TagCache::kMostText / (2 * TagCache::kLongestText);
  String text(TagCache::kLongestText, u'\u4e00');
  AudioTag tag;
  for (std::size_t i = 0; i <= fitting; ++i) {
    text.front() = static_cast<char16_t>(0x5000 + i);
    tag.album = text;
    cache.Keep(Fingerprint{i, 1}, stamp, tag);
  }
  EXPECT_FALSE(cache.Find(Fingerprint{fitting, 1}, stamp));
  text.front() = 0x5000;
  ASSERT_TRUE(cache.Find(Fingerprint{0, 1}, stamp));
  EXPECT_EQ(cache.Find(Fingerprint{0, 1}, stamp)->album, text);
}

TEST(TagCache, SongsOfOneAlbumAndOfAlmostOneKeepTheirOwnTags) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  using Kind = AudioTag::Kind;
  const AudioTag tags[] = {
      {Kind::Id3v2, u"Album", u"Artist", u"Rock", u"First", u"1999", 100, 1},
      {Kind::Id3v2, u"Album", u"Artist", u"Rock", u"Second", u"1999", 200, 2},
      {Kind::Id3v1, u"Album", u"Artist", u"Rock", u"Third", u"1999", 0, 0},
      {Kind::Id3v2, u"AlbumA", u"rtist", u"Rock", u"Fourth", u"1999", 400, 4},
      {Kind::Id3v2, u"Album", u"Artist", u"Rock", u"\u97F3", u"1999", 500, 5},
      {Kind::Id3v2, {}, {}, {}, {}, {}, 600, 6},
      {Kind::Id3v2, u"Album", u"Artist", u"Rock", {}, u"1999", 700, 7},
  };
  for (std::size_t i = 0; i < std::size(tags); ++i) cache.Keep(Fingerprint{i, 1}, stamp, tags[i]);
  for (std::size_t i = 0; i < std::size(tags); ++i) {
    SCOPED_TRACE(i);
    const std::optional<AudioTag> found = cache.Find(Fingerprint{i, 1}, stamp);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->kind, tags[i].kind);
    EXPECT_TEXT(found->album, tags[i].album);
    EXPECT_TEXT(found->artist, tags[i].artist);
    EXPECT_TEXT(found->genre, tags[i].genre);
    EXPECT_TEXT(found->song, tags[i].song);
    EXPECT_TEXT(found->year, tags[i].year);
    EXPECT_EQ(found->duration, tags[i].duration);
    EXPECT_EQ(found->track, tags[i].track);
  }
}

TEST(TagCache, FillsABlockOfTextsToItsEnd) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  const String text(TagCache::kLongestText, u'x');  // of which a whole number fits
  AudioTag tag;
  for (std::size_t i = 0; i < 200; ++i) {
    tag.song = i % 2 == 0 ? StringView(text) : StringView();
    cache.Keep(Fingerprint{i, 1}, stamp, tag);
    ASSERT_TRUE(cache.Find(Fingerprint{i, 1}, stamp)) << i;
    ASSERT_EQ(cache.Find(Fingerprint{i, 1}, stamp)->song, tag.song) << i;
  }
}

TEST(TagCache, FilesWhoseNamesDifferInCaseAreTwo) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  cache.Keep(Print(u"C:\\a"), stamp, AudioTag());
  EXPECT_FALSE(cache.Find(Print(u"C:\\A"), stamp));
}

TEST(TagCache, GivesTextsOfAllLettersBack) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  for (const StringView text : {StringView(u"plain"), StringView(u"\u00FF\u0080"),
                                StringView(u"\u0152uvre"), StringView(u"\u97F3\u697D")}) {
    AudioTag tag;
    tag.artist = u"Someone";
    tag.year = text;
    cache.Keep(Print(text), stamp, tag);
    const std::optional<AudioTag> found = cache.Find(Print(text), stamp);
    ASSERT_TRUE(found);
    EXPECT_TEXT(found->artist, u"Someone");
    EXPECT_TEXT(found->year, text);
  }
}

TEST(TagCache, GivesEachTextBackWithItsNuls) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  AudioTag tag;
  tag.album = StringView(u"A\0", 2);
  tag.artist = u"";
  tag.genre = u"G";
  tag.song = StringView(u"\0", 1);
  tag.year = u"Y";
  cache.Keep(Print(u"C:\\a"), stamp, tag);
  const std::optional<AudioTag> found = cache.Find(Print(u"C:\\a"), stamp);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->album, tag.album);
  EXPECT_EQ(found->artist, tag.artist);
  EXPECT_EQ(found->genre, tag.genre);
  EXPECT_EQ(found->song, tag.song);
  EXPECT_EQ(found->year, tag.year);
}

}  // namespace
}  // namespace norvo
