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
  const AudioTag second = Read(kStamp);
  EXPECT_EQ(platform->Calls(u"OpenForReading"), 1u);
  EXPECT_EQ(second.kind, first.kind);
  EXPECT_TEXT(second.song, first.song);
  EXPECT_TEXT(second.year, first.year);
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

TEST(TagCache, KeepsSoManyTagsAndNoMore) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  AudioTag tag;
  tag.kind = AudioTag::Kind::Id3v2;
  const auto path = [](std::size_t i) { return u"C:\\" + ToText(static_cast<std::int32_t>(i)); };
  for (std::size_t i = 0; i < TagCache::kMostTags; ++i) cache.Keep(path(i), stamp, tag);
  EXPECT_TRUE(cache.Find(path(TagCache::kMostTags - 1), stamp));
  cache.Keep(path(TagCache::kMostTags), stamp, tag);
  EXPECT_FALSE(cache.Find(path(TagCache::kMostTags), stamp));
  EXPECT_TRUE(cache.Find(path(0), stamp));
}

TEST(TagCache, KeepsTextsUpToTheirLimit) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  AudioTag tag;
  tag.album = String(TagCache::kLongestText, u'x');
  cache.Keep(u"C:\\a", stamp, tag);
  ASSERT_TRUE(cache.Find(u"C:\\a", stamp));
  EXPECT_EQ(cache.Find(u"C:\\a", stamp)->album, tag.album);
  tag.album += u'x';
  cache.Keep(u"C:\\b", stamp, tag);
  EXPECT_FALSE(cache.Find(u"C:\\b", stamp));
}

TEST(TagCache, FilesWhoseNamesDifferInCaseAreTwo) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  cache.Keep(u"C:\\a", stamp, AudioTag());
  EXPECT_FALSE(cache.Find(u"C:\\A", stamp));
}

TEST(TagCache, GivesEachTextBackWithItsNuls) {
  TagCache cache;
  const FileStamp stamp{1, 1};
  AudioTag tag;
  tag.album = String(u"A\0", 2);
  tag.artist = u"";
  tag.genre = u"G";
  tag.song = String(u"\0", 1);
  tag.year = u"Y";
  cache.Keep(u"C:\\a", stamp, tag);
  const std::optional<AudioTag> found = cache.Find(u"C:\\a", stamp);
  ASSERT_TRUE(found);
  EXPECT_EQ(found->album, tag.album);
  EXPECT_EQ(found->artist, tag.artist);
  EXPECT_EQ(found->genre, tag.genre);
  EXPECT_EQ(found->song, tag.song);
  EXPECT_EQ(found->year, tag.year);
}

}  // namespace
}  // namespace norvo
