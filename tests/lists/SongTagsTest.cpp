#include "lists/SongTags.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "automation/RunTimeError.h"
#include "lists/TagStream.h"
#include "lists/TaggedSongs.h"
#include "support/MemoryPlatform.h"
#include "support/TextPrinting.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

using namespace songs;
using namespace std::string_literals;

class SongTagsTest : public ::testing::Test {
 protected:
  /// "artist|album|title|genre|track|seconds" of a file with these bytes; "nothing" when it is no
  /// sound file.
  std::string Told(StringView name, const std::string& bytes) {
    const std::optional<SongTags> tags = Tags(name, bytes);
    if (!tags) return "nothing";
    return ToUtf8(tags->artist + u"|" + tags->album + u"|" + tags->title + u"|" + tags->genre) +
           "|" + std::to_string(tags->track) + "|" + std::to_string(std::lround(tags->seconds));
  }

  std::optional<SongTags> Tags(StringView name, const std::string& bytes) {
    const String path = u"C:\\Music\\" + String(name);
    platform.AddFile(path, bytes);
    platform.Log().Clear();
    return ReadSongTags(platform.Files(), path);
  }

  /// The artist of an MP3 file whose tag has this frame alone.
  std::string Artist(int version, const std::string& body) {
    const std::string frame = Frame(version, version == 2 ? "TP1" : "TPE1", body);
    const std::optional<SongTags> tags = Tags(u"a.mp3", Id3v2(version, frame) + MpegSound(3));
    return tags ? ToUtf8(tags->artist) : "nothing";
  }

  MemoryPlatform platform;
};

TEST_F(SongTagsTest, WithoutTheLengthAllElseIsTheSame) {
  const std::string tag = Id3v2(3, {{"TPE1", Latin1("Ann")}, {"TCON", Latin1("(17)")}});
  for (const std::string& start : {tag, std::string()}) {
    SongTags expected = Tags(u"a.mp3", start + MpegSound(1000)).value();
    EXPECT_GT(expected.seconds, 0);
    expected.seconds = 0;
    EXPECT_EQ(ReadSongTags(platform.Files(), u"C:\\Music\\a.mp3", false), expected);
  }
  EXPECT_EQ(Tags(u"a.mp3", "no sound"), std::nullopt);
  EXPECT_EQ(ReadSongTags(platform.Files(), u"C:\\Music\\a.mp3", false), std::nullopt);
}

TEST_F(SongTagsTest, OfSeveralFramesTheFirstThatTellsAnythingHolds) {
  const std::string frames = Frame(3, "TPE1", std::string(1, '\0')) +
                             Frame(3, "TPE1", Latin1("Ann")) + Frame(3, "TPE1", Latin1("Bob"));
  EXPECT_EQ(Told(u"a.mp3", Id3v2(3, frames) + MpegSound(1000)), "Ann||||0|26");
}

TEST_F(SongTagsTest, EveryVersionOfId3v2IsRead) {
  EXPECT_EQ(Told(u"a.mp3", Id3v2(2, {{"TP1", Latin1("Ann")},
                                     {"TAL", Latin1("Best")},
                                     {"TT2", Latin1("One")},
                                     {"TCO", Latin1("(17)")},
                                     {"TRK", Latin1("3/12")}}) +
                               MpegSound(1000)),
            "Ann|Best|One|Rock|3|26");
  for (const int version : {3, 4}) {
    EXPECT_EQ(Told(u"a.mp3", Id3v2(version, {{"TPE1", Latin1("Ann")},
                                             {"TALB", Latin1("Best")},
                                             {"TIT2", Latin1("One")},
                                             {"TCON", Latin1("(17)")},
                                             {"TRCK", Latin1("3/12")}}) +
                                 MpegSound(1000)),
              "Ann|Best|One|Rock|3|26");
  }
}

TEST_F(SongTagsTest, EveryEncodingOfId3v2IsRead) {
  EXPECT_EQ(Artist(3, Utf16(u"Земфира")), "Земфира");
  EXPECT_EQ(Artist(2, Utf16(u"Μίκης")), "Μίκης");
  EXPECT_EQ(Artist(4, Utf16Big(u"坂本")), "坂本");
  EXPECT_EQ(Artist(4, songs::Utf8("Björk 🎵")), "Björk 🎵");
  EXPECT_EQ(Artist(3, Latin1("Bj\xF6rk")), "Björk");
}

TEST_F(SongTagsTest, Utf8ThatIsCalledLatin1IsUtf8) {
  EXPECT_EQ(Artist(3, Latin1("Björk")), "Björk");
  EXPECT_EQ(Artist(3, Latin1("Земфира")), "Земфира");
  EXPECT_EQ(Artist(3, Utf16(u"Bj\u00C3\u00B6rk")), "Björk");
  EXPECT_EQ(Artist(3, Utf16(u"\u00C3\u00B6 \u0416")), "Ã¶ Ж");
  EXPECT_EQ(Artist(3, Latin1("\xC3\xB6 \xF6")), "Ã¶ ö");
}

TEST_F(SongTagsTest, BytesThatLatin1HasNoCharactersForAreThoseOfTheCodePage) {
  EXPECT_EQ(Artist(3, Latin1("Don\x92t \x80")), "Don’t €");
}

TEST_F(SongTagsTest, TextsAreOneLineWithoutBlanksAround) {
  EXPECT_EQ(Artist(3, Latin1("  Ann\r\n& Bob \t")), "Ann  & Bob");
}

TEST_F(SongTagsTest, OfSeveralArtistsTheFirstIsTold) {
  EXPECT_EQ(Artist(4, songs::Utf8("Ann\0Bob"s)), "Ann");
  EXPECT_EQ(Told(u"a.flac", Flac({{"ARTIST", "Ann"}, {"ARTIST", "Bob"}}, 5)), "Ann||||0|5");
}

TEST_F(SongTagsTest, TextsAreCutAtTheirLongest) {
  EXPECT_EQ(Artist(3, Latin1(std::string(4096, 'x'))).size(), 4096u);
  EXPECT_EQ(Artist(3, Latin1(std::string(4097, 'x'))).size(), 4096u);
  EXPECT_EQ(Artist(4, songs::Utf8(std::string(4095, 'x') + "🎵")),
            std::string(4095, 'x') + "\uFFFD");
}

TEST_F(SongTagsTest, Id3v1FillsWhatTheOtherTagDoesNotTell) {
  const std::string trailer = Id3v1("Bj\xF6rk's One", "Ann", "Best", 7);
  EXPECT_EQ(Told(u"a.mp3", MpegSound(1000) + trailer), "Ann|Best|Björk's One|Rock|7|26");
  EXPECT_EQ(Told(u"a.mp3", Id3v2(3, {{"TPE1", Utf16(u"Анна")}}) + MpegSound(1000) + trailer),
            "Анна|Best|Björk's One|Rock|7|26");
}

TEST_F(SongTagsTest, ApeTagsAreRead) {
  EXPECT_EQ(Told(u"a.mp3", MpegSound(1000) + ApeTag({{"Artist", "Земфира"},
                                                     {"Album", "Best"},
                                                     {"Title", "One"},
                                                     {"Track", "4/9"}})),
            "Земфира|Best|One||4|26");
}

TEST_F(SongTagsTest, VorbisCommentsAreRead) {
  const Named comments{{"ARTIST", "Björk"},
                       {"album", "Homogenic"},
                       {"Title", "Jóga"},
                       {"GENRE", "Pop"},
                       {"TRACKNUMBER", "2"}};
  EXPECT_EQ(Told(u"a.flac", Flac(comments, 305)), "Björk|Homogenic|Jóga|Pop|2|305");
  EXPECT_EQ(Told(u"a.ogg", OggVorbis(comments, 305)), "Björk|Homogenic|Jóga|Pop|2|305");
  EXPECT_EQ(Told(u"a.opus", Opus(comments, 305)), "Björk|Homogenic|Jóga|Pop|2|305");
}

TEST_F(SongTagsTest, Mp4IsRead) {
  EXPECT_EQ(Told(u"a.m4a", Mp4({{"\xA9"
                                 "ART",
                                 "Björk"},
                                {"\xA9"
                                 "alb",
                                 "Homogenic"},
                                {"\xA9nam", "Jóga"},
                                {"\xA9gen", "Pop"}},
                               2, 305)),
            "Björk|Homogenic|Jóga|Pop|2|305");
}

TEST_F(SongTagsTest, AsfIsRead) {
  EXPECT_EQ(Told(u"a.wma", Asf(u"Jóga", u"Björk", u"Хомо", 2, 305)), "Björk|Хомо|Jóga||2|305");
}

TEST_F(SongTagsTest, ChunksOfWavAndAiffAreRead) {
  const std::string info = InfoList({{"IART", "Ann"}, {"INAM", "One"}});
  const std::string tag = Id3v2(3, {{"TPE1", Utf16(u"Анна")}, {"TALB", Latin1("Best")}});
  EXPECT_EQ(Told(u"a.wav", Wav({{"LIST", info}}, 9)), "Ann||One||0|9");
  EXPECT_EQ(Told(u"a.wav", Wav({{"LIST", info}, {"id3 ", tag}}, 9)), "Анна|Best|One||0|9");
  EXPECT_EQ(Told(u"a.aif", Aiff({{"ID3 ", tag}}, 9)), "Анна|Best|||0|9");
}

TEST_F(SongTagsTest, ModulesTellTheirTitle) {
  EXPECT_EQ(Told(u"a.mod", Module("One")).substr(0, 6), "||One|");
  EXPECT_EQ(Told(u"a.mod", std::string(2000, 'x')), "nothing");
}

TEST_F(SongTagsTest, ContentTellsWhatTheNameDoesNot) {
  const Named comments{{"ARTIST", "Björk"}};
  const std::string asf = Asf(u"Jóga", u"Björk", u"", 0, 5);
  for (const StringView name : {u"a.mp3", u"a.ogg", u"a.wma", u"a.mod", u"a.dat", u"flac"}) {
    EXPECT_EQ(Told(name, Flac(comments, 5)), "Björk||||0|5") << ToUtf8(name);
    EXPECT_EQ(Told(name, Opus(comments, 5)), "Björk||||0|5") << ToUtf8(name);
    EXPECT_EQ(Told(name, asf), "Björk||Jóga||0|5") << ToUtf8(name);
    EXPECT_EQ(Told(name, Id3v2(3, {{"TPE1", Latin1("Ann")}}) + MpegSound(100)), "Ann||||0|3")
        << ToUtf8(name);
  }
}

TEST_F(SongTagsTest, TheTagTellsTheLengthWhereThereIsNoSound) {
  const std::string tag = Id3v2(3, {{"TIT2", Latin1("One")}, {"TLEN", Latin1("215400")}});
  EXPECT_EQ(Tags(u"a.mp3", tag)->seconds, 215.4);
  EXPECT_EQ(Told(u"a.mp3", tag + MpegSound(1000)), "||One||0|26");
  EXPECT_EQ(Tags(u"a.mp3", Id3v2(3, {{"TIT2", Latin1("One")}, {"TLEN", Latin1("-7")}}))->seconds,
            0);
}

TEST_F(SongTagsTest, WhatIsNoSoundFileTellsNothing) {
  for (const StringView name :
       {u"a.mp3", u"a.ogg", u"a.flac", u"a.m4a", u"a.wma", u"a.wav", u"a.it", u"a.mod", u"a.mpc",
        u"a.wv", u"a.tta", u"a.ape", u"a.txt"}) {
    EXPECT_EQ(Told(name, ""), "nothing") << ToUtf8(name);
    EXPECT_EQ(Told(name, "x"), "nothing") << ToUtf8(name);
    EXPECT_EQ(Told(name, std::string(50000, ' ') + "words"), "nothing") << ToUtf8(name);
  }
}

TEST_F(SongTagsTest, AFileThatIsNotThereIsAnError) {
  EXPECT_THROW(ReadSongTags(platform.Files(), u"C:\\missing.mp3"), RunTimeError);
  EXPECT_THROW(ReadSongTags(platform.Files(), u""), RunTimeError);
}

TEST_F(SongTagsTest, ADiskThatFailsIsAnErrorAndNotTheEndOfTheFile) {
  platform.AddFile(u"C:\\a.mp3", Id3v2(3, {{"TPE1", Latin1("Ann")}}) + MpegSound(1000));
  platform.Log().Clear();
  ASSERT_TRUE(ReadSongTags(platform.Files(), u"C:\\a.mp3"));
  const std::size_t calls = platform.Log().Total();
  ASSERT_GT(calls, 3u);
  for (std::size_t k = 1; k <= calls; ++k) {
    platform.Log().FailFrom(k, error::kDeviceInputOutput);
    try {
      ReadSongTags(platform.Files(), u"C:\\a.mp3");
      ADD_FAILURE() << "call " << k << " failed unseen";
    } catch (const RunTimeError& failure) {
      EXPECT_EQ(failure.Number(), error::kDeviceInputOutput) << k;
    }
    platform.Log().StopFailing();
  }
}

TEST_F(SongTagsTest, AFileIsReadInAFewPieces) {
  const std::string song =
      Id3v2(3, {{"TPE1", Latin1("Ann")}, {"APIC", Latin1(std::string(50000, 'p'))}}) +
      MpegSound(12000) + Id3v1("One", "Ann", "Best", 1);
  EXPECT_EQ(Told(u"a.mp3", song), "Ann|Best|One|Rock|1|313");
  EXPECT_LE(platform.Log().Count(u"ReadAt"), 12u);
}

TEST_F(SongTagsTest, CutFilesTellWhatIsThere) {
  const Named comments{{"ARTIST", "Björk"}};
  const std::pair<StringView, std::string> songs[]{
      {u"a.mp3", Id3v2(4, {{"TPE1", Latin1("Ann")}}) + MpegSound(3) + ApeTag(comments)},
      {u"a.flac", Flac(comments, 5)},
      {u"a.ogg", OggVorbis(comments, 5)},
      {u"a.opus", Opus(comments, 5)},
      {u"a.m4a", Mp4({{"\xA9"
                       "ART",
                       "Björk"}},
                     1, 5)},
      {u"a.wma", Asf(u"Jóga", u"Björk", u"", 0, 5)},
      {u"a.wav", Wav({{"id3 ", Id3v2(3, {{"TPE1", Latin1("Ann")}})}}, 1)}};
  for (const auto& [name, song] : songs) {
    const String whole = Tags(name, song)->artist;
    for (std::size_t size = 0; size < std::min<std::size_t>(song.size(), 600); ++size) {
      const std::optional<SongTags> tags = Tags(name, song.substr(0, size));
      const String artist = tags ? tags->artist : String();
      EXPECT_TRUE(whole.starts_with(artist)) << ToUtf8(name) << " " << size;
    }
  }
}

TEST_F(SongTagsTest, SizesThatLieEndWithTheFile) {
  const std::string frame = Frame(3, "TPE1", Latin1("Ann"));
  EXPECT_EQ(Told(u"a.mp3", "ID3\3\0\0\x7F\x7F\x7F\x7F"s + frame), "Ann||||0|0");
  EXPECT_EQ(Told(u"a.mp3", Id3v2(3, frame + "TALB\x7F\xFF\xFF\xFF\0\0\0x"s) + MpegSound(1000)),
            "Ann||||0|26");
}

TEST_F(SongTagsTest, FramesWithoutEndEndTheTag) {
  std::string frames = Frame(3, "TPE1", Latin1("Ann"));
  for (int i = 1; i < 4096; ++i) frames += Frame(3, "TXXX", "x");
  const std::string last = Frame(3, "TALB", Latin1("Best"));
  EXPECT_EQ(Told(u"a.mp3", Id3v2(3, frames.substr(14) + last)), "|Best|||0|0");
  EXPECT_EQ(Told(u"a.mp3", Id3v2(3, frames + last)), "Ann||||0|0");
}

TEST_F(SongTagsTest, CompressedFramesAreLeftOut) {
  // "One", with its encoding, as zlib packs it.
  const std::string packed = "\0\0\0\4\x78\x9C\x63\xF0\xCF\x4B\x05\x00\x02\x32\x01\x23"s;
  EXPECT_EQ(
      Told(u"a.mp3", Id3v2(3, Frame(3, "TIT2", packed, '\x80') + Frame(3, "TPE1", Latin1("Ann")))),
      "Ann||||0|0");
}

TEST_F(SongTagsTest, ChaptersInChaptersDoNoHarm) {
  constexpr std::size_t kDepth = 20'000;
  constexpr std::size_t kEach = 28;
  std::string chapters;
  for (std::size_t level = 0; level < kDepth; ++level) {
    const std::size_t inside = (kDepth - level) * kEach - 10;
    chapters += "CHAP" + BigEndian(inside, 4) + "\0\0c\0"s + std::string(16, '\0');
  }
  const std::string tag = Id3v2(3, Frame(3, "TPE1", Latin1("Ann")) + chapters);
  EXPECT_EQ(Told(u"a.mp3", tag + MpegSound(1000)), "Ann||||0|26");
  EXPECT_EQ(Told(u"a.wav", Wav({{"id3 ", tag}}, 9)), "Ann||||0|9");
}

TEST_F(SongTagsTest, AtomsInAtomsDoNoHarm) {
  std::string atoms;
  for (int i = 0; i < 200'000; ++i) atoms += "\x7F\0\0\0moov"s;
  EXPECT_EQ(Told(u"a.m4a",
                 "\0\0\0\x10"
                 "ftypM4A \0\0\0\0"s +
                     atoms),
            "nothing");
}

TEST_F(SongTagsTest, MoreAttributesThanTheFileHoldsDoNoHarm) {
  std::string asf = Asf(u"Jóga", u"Björk", u"Homogenic", 3, 5);
  const std::string album = Utf16(u"WM/AlbumTitle").substr(3);
  const std::size_t count = asf.find(album) - 4;
  ASSERT_EQ(asf.substr(count, 2), LittleEndian(2, 2));
  asf.replace(count, 2, LittleEndian(65535, 2));
  EXPECT_EQ(Told(u"a.wma", asf), "Björk|Homogenic|Jóga||3|5");

  platform.AddFile(u"C:\\a.wma", asf);
  const std::unique_ptr<BinaryFile> file = platform.Files().OpenForReading(u"C:\\a.wma");
  TagStream stream(*file);
  stream.seek(static_cast<long>(count) - 24, TagLib::IOStream::Beginning);
  stream.readBlock(16);
  stream.readBlock(8);
  EXPECT_EQ(stream.readBlock(2).toUShort(false), (asf.size() - count - 2) / 6);
}

TEST_F(SongTagsTest, ALongFileWithoutSoundIsNotReadWhole) {
  EXPECT_EQ(Told(u"a.mp3", Id3v2(3, {{"TPE1", Latin1("Ann")}}) + std::string(30 << 20, '\x55')),
            "Ann||||0|0");
  // Each request for a piece of 1 KiB, once forwards and once backwards at most.
  EXPECT_LE(platform.Log().Count(u"ReadAt"), TagStream::kMostRequests);
}

}  // namespace
}  // namespace norvo
