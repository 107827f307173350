#include "tags/Mp3TagReader.h"

#include "automation/RunTimeError.h"
#include "support/LibraryTest.h"
#include "tags/TagBuilder.h"

namespace norvo {
namespace {

using namespace std::string_literals;

class Mp3TagReaderTest : public LibraryTest {
 protected:
  bool Read(std::string_view bytes) {
    platform->AddFile(kPath, bytes);
    return reader.ReadFile(kPath);
  }

  void ExpectNothingRead() {
    for (const StringView text :
         {reader.SongName(), reader.Artist(), reader.Album(), reader.Year(), reader.Comment(),
          reader.ID3SongName(), reader.ID3Artist(), reader.ID3Album(), reader.ID3Genre(),
          reader.ID3Year(), reader.ID3SongLyrics(), reader.ID3RecordingStudio(),
          reader.ID3WebAddress()}) {
      EXPECT_TEXT(text, u"");
    }
    EXPECT_TEXT(reader.ID3EncodingStyle(), u"Unknown");
    EXPECT_EQ(reader.ID3Duration(), 0);
    EXPECT_EQ(reader.ID3TrackNumber(), 0);
    EXPECT_EQ(reader.Genre(), 0);
    EXPECT_EQ(reader.FileSize(), 0);
    EXPECT_FALSE(reader.HasTAG());
    EXPECT_FALSE(reader.HasID3());
  }

  static constexpr StringView kPath = u"C:\\Music\\a.mp3";
  const Trailer full{"Title", "Artist", "Album", "1999", "Comment", 17};
  const std::string allFrames =
      TextFrame("TIT2", "Song") + TextFrame("TPE1", "Singer") + TextFrame("TALB", "Record") +
      TextFrame("TCON", "(17)") + TextFrame("TYER", "2001") + TextFrame("TLEN", "215000") +
      TextFrame("TRCK", "7") + TextFrame("TMED", "DIG") + TextFrame("USLT", "eng\0La la"s) +
      TextFrame("TCOP", "Studio") + Frame("WOAR", "http://a.b");
  Mp3TagReader reader{component};
};

TEST_F(Mp3TagReaderTest, AFreshReaderHoldsNothing) {
  ExpectNothingRead();
  EXPECT_TEXT(reader.FileName(), u"");
}

TEST_F(Mp3TagReaderTest, AFileThatIsJustATrailerGivesAllItsFields) {
  EXPECT_TRUE(Read(full.Bytes()));
  EXPECT_TRUE(reader.HasTAG());
  EXPECT_FALSE(reader.HasID3());
  EXPECT_EQ(reader.FileSize(), 128);
  EXPECT_TEXT(reader.FileName(), u"a.mp3");
  EXPECT_TEXT(reader.SongName(), u"Title");
  EXPECT_TEXT(reader.Artist(), u"Artist");
  EXPECT_TEXT(reader.Album(), u"Album");
  EXPECT_TEXT(reader.Year(), u"1999");
  EXPECT_TEXT(reader.Comment(), u"Comment");
  EXPECT_EQ(reader.Genre(), 17);
  EXPECT_TEXT(reader.GenreString(), u"Rock");
}

TEST_F(Mp3TagReaderTest, TrailerTextsThatFillTheirFieldsEndAtTheNextField) {
  const Trailer trailer{std::string(30, 't'), std::string(30, 'a'),
                        std::string(30, 'l'), "2003",
                        std::string(30, 'c'), 255};
  EXPECT_TRUE(Read("audio" + trailer.Bytes()));
  EXPECT_TEXT(reader.SongName(), String(30, u't'));
  EXPECT_TEXT(reader.Artist(), String(30, u'a'));
  EXPECT_TEXT(reader.Album(), String(30, u'l'));
  EXPECT_TEXT(reader.Year(), u"2003");
  EXPECT_TEXT(reader.Comment(), String(30, u'c'));
  EXPECT_TEXT(reader.GenreString(), u"No Genre");
  EXPECT_EQ(reader.FileSize(), 133);
}

TEST_F(Mp3TagReaderTest, TrailerTextsAreCutAtTheFirstNulAndTrimmed) {
  const Trailer trailer{"  A b  \0junk"s, "\0hidden"s, "   ", " 99 ", " x\0 y"s, 0};
  EXPECT_TRUE(Read(trailer.Bytes()));
  EXPECT_TEXT(reader.SongName(), u"A b");
  EXPECT_TEXT(reader.Artist(), u"");
  EXPECT_TEXT(reader.Album(), u"");
  EXPECT_TEXT(reader.Year(), u"99");
  EXPECT_TEXT(reader.Comment(), u"x");
}

TEST_F(Mp3TagReaderTest, TextsGoThroughThe8BitCodePage) {
  EXPECT_TRUE(
      Read(Id3(TextFrame("TIT2", "\x80 \xC4")) + Trailer{"\xD6\x96", "", "", "", "", 0}.Bytes()));
  EXPECT_TEXT(reader.SongName(), u"Ö–");
  EXPECT_TEXT(reader.ID3SongName(), u"€ Ä");
}

TEST_F(Mp3TagReaderTest, TheTrailerMarkIsCaseSensitiveAndStandsAt128BytesFromTheEnd) {
  std::string bytes = full.Bytes();
  EXPECT_FALSE(Read(bytes + "x"));
  EXPECT_FALSE(reader.HasTAG());
  EXPECT_EQ(reader.FileSize(), 129);
  bytes[0] = 't';
  EXPECT_FALSE(Read(bytes));
  EXPECT_FALSE(reader.HasTAG());
  EXPECT_TEXT(reader.SongName(), u"");
}

TEST_F(Mp3TagReaderTest, TheHeaderMarkIsCaseSensitiveAndStandsAtTheStart) {
  for (const std::string_view mark : {"Id3", "ID2", "\0ID3", "ID"}) {
    EXPECT_FALSE(Read(std::string(mark) + std::string(200, '\0'))) << mark;
    EXPECT_FALSE(reader.HasID3()) << mark;
  }
  EXPECT_TRUE(Read("ID3" + std::string(125, '\0')));
  EXPECT_TRUE(reader.HasID3());
}

TEST_F(Mp3TagReaderTest, EachFrameFillsItsOwnField) {
  EXPECT_TRUE(Read(Id3(allFrames)));
  EXPECT_TRUE(reader.HasID3());
  EXPECT_FALSE(reader.HasTAG());
  EXPECT_TEXT(reader.ID3SongName(), u"Song");
  EXPECT_TEXT(reader.ID3Artist(), u"Singer");
  EXPECT_TEXT(reader.ID3Album(), u"Record");
  EXPECT_TEXT(reader.ID3Genre(), u"(17)");
  EXPECT_TEXT(reader.ID3Year(), u"2001");
  EXPECT_EQ(reader.ID3Duration(), 215);
  EXPECT_EQ(reader.ID3TrackNumber(), 7);
  EXPECT_TEXT(reader.ID3EncodingStyle(), u"Digital");
  EXPECT_TEXT(reader.ID3SongLyrics(), StringView(u"eng\0La la", 9));
  EXPECT_TEXT(reader.ID3RecordingStudio(), u"Studio");
  EXPECT_TEXT(reader.ID3WebAddress(), u"http://a.b");
}

TEST_F(Mp3TagReaderTest, BothTagsOfOneFileAreRead) {
  EXPECT_TRUE(Read(Id3(allFrames) + full.Bytes()));
  EXPECT_TRUE(reader.HasID3());
  EXPECT_TRUE(reader.HasTAG());
  EXPECT_TEXT(reader.ID3SongName(), u"Song");
  EXPECT_TEXT(reader.SongName(), u"Title");
}

TEST_F(Mp3TagReaderTest, AFileShorterThanATrailerFailsButKeepsWhatWasRead) {
  for (std::size_t size = 0; size < 128; ++size) {
    SCOPED_TRACE(size);
    EXPECT_FALSE(Read(Id3(TextFrame("TIT2", "Hello"), 128).substr(0, size)));
    EXPECT_EQ(reader.HasID3(), size >= 3);
    EXPECT_FALSE(reader.HasTAG());
    // An id whose size bytes are gone is a text frame of size 0, which ends the reading earlier.
    const bool lacksSize = size >= 14 && size < 18;
    EXPECT_EQ(reader.FileSize(), lacksSize ? 0 : static_cast<std::int32_t>(size));
    if (size >= 26) {
      EXPECT_TEXT(reader.ID3SongName(), u"Hello");
    }
    EXPECT_FALSE(Read(full.Bytes().substr(0, size)));
    EXPECT_FALSE(reader.HasID3());
    EXPECT_FALSE(reader.HasTAG());
  }
}

TEST_F(Mp3TagReaderTest, DurationsAreMillisecondsRoundedWithHalvesToEven) {
  const struct {
    std::string_view text;
    std::int32_t seconds;
  } rows[] = {{"", 0},
              {"0", 0},
              {"215000", 215},
              {"215500", 216},
              {"2500", 2},
              {"3500", 4},
              {"500", 0},
              {"501", 1},
              {"499", 0},
              {"1499", 1},
              {" 1500 ", 2},
              {"-2500", -2},
              {"2147483647", 2147484},
              {"2147483648", 0},
              {"3:35", 0},
              {"abc", 0},
              {"12ab", 0},
              {"1e4", 10},
              {"2499.6", 2},
              {"99999999999999999999", 0}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_TRUE(Read(Id3(TextFrame("TLEN", row.text))));
    EXPECT_EQ(reader.ID3Duration(), row.seconds);
  }
}

TEST_F(Mp3TagReaderTest, ADurationThatEndsInNulIsNoNumber) {
  EXPECT_TRUE(Read(Id3(TextFrame("TLEN", "215000\0"s) + TextFrame("TRCK", "7\0"s))));
  EXPECT_EQ(reader.ID3Duration(), 0);
  EXPECT_EQ(reader.ID3TrackNumber(), 0);
}

TEST_F(Mp3TagReaderTest, TracksAre16BitNumbersOrZero) {
  const struct {
    std::string_view text;
    std::int16_t track;
  } rows[] = {{"", 0},    {"7", 7},      {"007", 7}, {"3/12", 0}, {"32767", 32767}, {"32768", 0},
              {"-1", -1}, {"-32769", 0}, {"2.5", 2}, {"3.5", 4},  {"A1", 0},        {" 9 ", 9}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_TRUE(Read(Id3(TextFrame("TRCK", row.text))));
    EXPECT_EQ(reader.ID3TrackNumber(), row.track);
  }
}

TEST_F(Mp3TagReaderTest, TheEncodingStyleComparesTheWholeMediaText) {
  const struct {
    std::string text;
    StringView style;
  } rows[] = {{"DIG", u"Digital"},     {"ANA", u"Analog"},   {"", u"Unknown"},
              {"DIG/A", u"Unknown"},   {"dig", u"Unknown"},  {"ana", u"Unknown"},
              {"DIG\0"s, u"Unknown"},  {" DIG", u"Unknown"}, {"ANA ", u"Unknown"},
              {"ANA/WAC", u"Unknown"}, {"CD", u"Unknown"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_TRUE(Read(Id3(TextFrame("TMED", row.text))));
    EXPECT_TEXT(reader.ID3EncodingStyle(), row.style);
  }
}

TEST_F(Mp3TagReaderTest, EveryReadStartsFromNothing) {
  ASSERT_TRUE(Read(Id3(allFrames) + full.Bytes()));
  EXPECT_FALSE(reader.ReadFile(u"C:\\Music\\missing.mp3"));
  ExpectNothingRead();
  EXPECT_TEXT(reader.FileName(), u"missing.mp3");
}

TEST_F(Mp3TagReaderTest, AFileThatCannotBeOpenedGivesFalse) {
  platform->AddFile(kPath, full.Bytes());
  platform->Files().Deny(kPath);
  platform->AddFolder(u"C:\\Music\\folder.mp3");
  for (const StringView path :
       {kPath, StringView(u"C:\\Music\\folder.mp3"), StringView(u"Q:\\a.mp3"), StringView(u"")}) {
    SCOPED_TRACE(Utf8(path));
    EXPECT_FALSE(reader.ReadFile(path));
    ExpectNothingRead();
  }
  EXPECT_TRUE(log.empty());
}

TEST_F(Mp3TagReaderTest, AnErrorWhileNamingTheFileReachesTheCaller) {
  ASSERT_TRUE(Read(full.Bytes()));
  platform->FailOn(u"AbsolutePathName", 1, error::kPathNotFound);
  try {
    reader.ReadFile(u"C:\\b.mp3");
    FAIL() << "nothing was raised";
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.Number(), error::kPathNotFound);
  }
  ExpectNothingRead();
  EXPECT_TEXT(reader.FileName(), u"a.mp3");
}

TEST_F(Mp3TagReaderTest, AnErrorInTheWalkKeepsTheFramesReadBefore) {
  platform->FailOn(u"ReadAt", 2, error::kDeviceInputOutput);
  EXPECT_FALSE(Read(Id3(TextFrame("TIT2", "Song") + Frame("PRIV", std::string(6000, 'x')) +
                        TextFrame("TPE1", "Singer")) +
                    full.Bytes()));
  EXPECT_TRUE(reader.HasID3());
  EXPECT_TEXT(reader.ID3SongName(), u"Song");
  EXPECT_TEXT(reader.ID3Artist(), u"");
  EXPECT_EQ(reader.FileSize(), 0);
  EXPECT_FALSE(reader.HasTAG());
}

TEST_F(Mp3TagReaderTest, AnErrorAtTheTrailerKeepsTheFrames) {
  const std::string bytes = Id3(allFrames, 8000) + full.Bytes();
  platform->FailOn(u"ReadAt", 2, error::kDeviceInputOutput);
  EXPECT_FALSE(Read(bytes));
  EXPECT_TRUE(reader.HasID3());
  EXPECT_TEXT(reader.ID3Album(), u"Record");
  EXPECT_EQ(reader.FileSize(), static_cast<std::int32_t>(bytes.size()));
  EXPECT_FALSE(reader.HasTAG());
}

TEST_F(Mp3TagReaderTest, NoFailureBehindTheNamingEverRaises) {
  platform->AddFile(kPath, Id3(allFrames, 8000) + full.Bytes());
  for (const bool memory : {false, true}) {
    std::size_t k = 2;  // the first call is the naming
    for (;; ++k) {
      SCOPED_TRACE(k);
      if (memory) {
        platform->Log().RunOutOfMemoryAt(k);
      } else {
        platform->FailAt(k, error::kDeviceInputOutput);
      }
      bool result = true;
      EXPECT_NO_THROW(result = reader.ReadFile(kPath));
      if (!platform->Log().HasFailed()) break;
      EXPECT_FALSE(result);
    }
    EXPECT_GT(k, 4u);
    platform->Log().StopFailing();
  }
}

TEST_F(Mp3TagReaderTest, AnOrdinaryTagCostsOneOpenAndAtMostThreeReads) {
  const std::string audio(20000, 'x');
  for (const std::string& bytes : {audio, audio + full.Bytes(), Id3(allFrames) + audio,
                                   Id3(allFrames) + audio + full.Bytes()}) {
    platform->Log().Clear();
    Read(bytes);
    EXPECT_EQ(platform->Calls(u"OpenForReading"), 1u);
    EXPECT_LE(platform->Calls(u"ReadAt"), 3u);
    EXPECT_EQ(platform->Calls(u"FactsOf"), 0u);
  }
}

TEST_F(Mp3TagReaderTest, APictureBehindTheTextsIsNotRead) {
  Read(Id3(allFrames + Frame("APIC", std::string(30000, '\1')), 100000) + full.Bytes());
  EXPECT_TRUE(reader.HasTAG());
  EXPECT_LE(platform->Calls(u"ReadAt"), 5u);  // the texts, three looks behind it, the trailer
}

TEST_F(Mp3TagReaderTest, WhereFramesHideTheTrailerOnlyTheFramesAreRead) {
  constexpr auto kExtent = Mp3TagReader::Extent::FramesHideTrailer;
  platform->AddFile(kPath, Id3(allFrames, 20000) + full.Bytes());
  EXPECT_TRUE(reader.ReadFile(kPath, kExtent));
  EXPECT_TEXT(reader.ID3SongName(), u"Song");
  EXPECT_TRUE(reader.HasID3());
  EXPECT_FALSE(reader.HasTAG());
  EXPECT_TEXT(reader.SongName(), u"");
  EXPECT_EQ(platform->Calls(u"ReadAt"), 1u);
  platform->AddFile(kPath, std::string(20000, 'x') + full.Bytes());
  EXPECT_TRUE(reader.ReadFile(kPath, kExtent));
  EXPECT_TRUE(reader.HasTAG());
  EXPECT_TEXT(reader.SongName(), u"Title");
  EXPECT_EQ(reader.FileSize(), 20128);
}

TEST_F(Mp3TagReaderTest, ASmallFileCostsOneRead) {
  Read(Id3(allFrames) + full.Bytes());
  EXPECT_EQ(platform->Calls(u"ReadAt"), 1u);
}

}  // namespace
}  // namespace norvo
