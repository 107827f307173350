#include <algorithm>

#include "support/LibraryTest.h"
#include "tags/Mp3TagReader.h"
#include "tags/TagBuilder.h"

namespace norvo {
namespace {

using namespace std::string_literals;

class Mp3FrameWalkTest : public LibraryTest {
 protected:
  bool Read(std::string_view bytes) {
    platform->AddFile(u"C:\\a.mp3", bytes);
    return reader.ReadFile(u"C:\\a.mp3");
  }

  /// Reads a tag of one TIT2 frame with these size bytes, an encoding byte and x to fill 20000.
  bool ReadTitleOfSize(const SizeBytes& size) {
    return Read(Id3(FrameHeader("TIT2", size) + "\0"s + std::string(20000, 'x'), 0));
  }

  Mp3TagReader reader{component};
};

TEST_F(Mp3FrameWalkTest, TheTextBeginsBehindTheEncodingByte) {
  EXPECT_TRUE(Read(Id3(FrameHeader("TIT2", {0, 0, 0, 6}) + "\0Hello"s)));
  EXPECT_TEXT(reader.ID3SongName(), u"Hello");
}

TEST_F(Mp3FrameWalkTest, TheEncodingByteIsNotInterpreted) {
  for (const char encoding : {'\0', '\1', '\2', '\3', 'H'}) {
    EXPECT_TRUE(Read(Id3(Frame("TIT2", encoding + "ello"s))));
    EXPECT_TEXT(reader.ID3SongName(), u"ello");
  }
}

TEST_F(Mp3FrameWalkTest, Utf16TextsComeThroughAsTheirBytes) {
  EXPECT_TRUE(Read(Id3(Frame("TIT2", "\1\xFF\xFEH\0i\0"s) + TextFrame("TPE1", "next"))));
  EXPECT_TEXT(reader.ID3SongName(), StringView(u"ÿþH\0i\0", 6));
  EXPECT_TEXT(reader.ID3Artist(), u"next");
}

TEST_F(Mp3FrameWalkTest, NulsAndBlanksInATextAreKept) {
  EXPECT_TRUE(Read(Id3(TextFrame("TALB", " a\0b \0\0"s) + TextFrame("TCON", "\0"s))));
  EXPECT_TEXT(reader.ID3Album(), StringView(u" a\0b \0\0", 7));
  EXPECT_TEXT(reader.ID3Genre(), StringView(u"\0", 1));
}

TEST_F(Mp3FrameWalkTest, TheTagHeaderIsSkippedWithoutBeingRead) {
  std::string bytes = Id3(TextFrame("TIT2", "Hello"));
  for (std::size_t i = 3; i < 10; ++i) bytes[i] = '\xFF';
  EXPECT_TRUE(Read(bytes));
  EXPECT_TEXT(reader.ID3SongName(), u"Hello");
}

TEST_F(Mp3FrameWalkTest, ALaterFrameReplacesAnEarlierOne) {
  EXPECT_TRUE(Read(Id3(TextFrame("TIT2", "first") + TextFrame("TIT2", "2nd") +
                       TextFrame("TPE1", "gone") + TextFrame("TPE1", ""))));
  EXPECT_TEXT(reader.ID3SongName(), u"2nd");
  EXPECT_TEXT(reader.ID3Artist(), u"");
}

TEST_F(Mp3FrameWalkTest, CommentsAndUnknownFramesAreSteppedOver) {
  for (const std::string_view id : {"COMM", "WCOM", "PRIV", "TPE2", "TXX9", "WXXX", "ABCD"}) {
    SCOPED_TRACE(id);
    EXPECT_TRUE(Read(Id3(Frame(id, "some content") + TextFrame("TIT2", "Hello"))));
    EXPECT_TEXT(reader.ID3SongName(), u"Hello");
    EXPECT_TEXT(reader.ID3WebAddress(), u"");
    EXPECT_TEXT(reader.ID3Artist(), u"");
  }
}

TEST_F(Mp3FrameWalkTest, WebAddressesHaveNoEncodingByte) {
  EXPECT_TRUE(Read(Id3(Frame("WOAR", "http://x") + TextFrame("TIT2", "Hello"))));
  EXPECT_TEXT(reader.ID3WebAddress(), u"http://x");
  EXPECT_TEXT(reader.ID3SongName(), u"Hello");
}

TEST_F(Mp3FrameWalkTest, AWebAddressOfSizeZeroIsEmptyAndTheWalkGoesOn) {
  for (const std::string_view id : {"WOAR", "WCOM"}) {
    SCOPED_TRACE(id);
    EXPECT_TRUE(Read(Id3(Frame("WOAR", "old") + Frame(id, "") + TextFrame("TIT2", "Hello"))));
    EXPECT_TEXT(reader.ID3WebAddress(), id == "WOAR" ? u"" : u"old");
    EXPECT_TEXT(reader.ID3SongName(), u"Hello");
  }
}

TEST_F(Mp3FrameWalkTest, ATextFrameOfSizeZeroEndsTheReadingWithFalse) {
  for (const std::string_view id : {"TIT2", "TALB", "USLT", "COMM", "PRIV", "WXXX", "ABC1"}) {
    SCOPED_TRACE(id);
    EXPECT_FALSE(
        Read(Id3(TextFrame("TPE1", "before") + Frame(id, "") + TextFrame("TCOP", "after")) +
             Trailer{"t", "", "", "", "", 0}.Bytes()));
    EXPECT_TRUE(reader.HasID3());
    EXPECT_TEXT(reader.ID3Artist(), u"before");
    EXPECT_TEXT(reader.ID3RecordingStudio(), u"");
    EXPECT_FALSE(reader.HasTAG());
    EXPECT_EQ(reader.FileSize(), 0);
  }
}

TEST_F(Mp3FrameWalkTest, ATextFrameOfSizeOneIsEmpty) {
  EXPECT_TRUE(Read(Id3(TextFrame("TIT2", "") + TextFrame("TPE1", "Singer"))));
  EXPECT_TEXT(reader.ID3SongName(), u"");
  EXPECT_TEXT(reader.ID3Artist(), u"Singer");
}

TEST_F(Mp3FrameWalkTest, FourCapitalsOrThreeAndADigitAreAnId) {
  const struct {
    std::string_view id;
    bool isFrame;
  } rows[] = {{"AAAA", true},
              {"ZZZZ", true},
              {"AAA0", true},
              {"ZZZ9", true},
              {"tIT2", false},
              {"TiT2", false},
              {"TIt2", false},
              {"TITx", false},
              {"TI12", false},
              {"1IT2", false},
              {"T1T2", false},
              {"TIT ", false},
              {"TT2\0", false},
              {"@AAA", false},
              {"[AAA", false},
              {"AAA:", false},
              {"AAA/", false},
              {"\xC4"
               "AAA",
               false},
              {"AAA\xDC", false}};
  for (const auto& row : rows) {
    const std::string id(row.id.data(), 4);
    SCOPED_TRACE(id);
    // As a frame it is stepped over as a whole; as a miss the walk goes on 11 bytes later.
    const std::string next = TextFrame("TIT2", "behind");
    EXPECT_TRUE(Read(Id3(FrameHeader(id, {0, 0, 0, 60}) + "x" + TextFrame("TPE1", "within") +
                         std::string(60 - 1 - 17, 'x') + next)));
    EXPECT_TEXT(reader.ID3SongName(), row.isFrame ? u"behind" : u"");
    EXPECT_TEXT(reader.ID3Artist(), row.isFrame ? u"" : u"within");
  }
}

TEST_F(Mp3FrameWalkTest, SizesAreWeightedIn65536And4096And256And1) {
  const struct {
    SizeBytes bytes;
    std::size_t size;
  } rows[] = {{{0, 0, 0, 255}, 255}, {{0, 0, 1, 0}, 256},     {{0, 0, 2, 5}, 517},
              {{0, 0, 10, 1}, 2561}, {{0, 0, 15, 255}, 4095}, {{0, 0, 16, 1}, 4097},
              {{0, 1, 0, 0}, 4096}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.size);
    EXPECT_TRUE(Read(Id3(
        FrameHeader("USLT", row.bytes) + std::string(row.size, 'x') + TextFrame("TIT2", "behind"),
        20000)));
    EXPECT_EQ(reader.ID3SongLyrics().size(), row.size - 1);
    EXPECT_TEXT(reader.ID3SongName(), u"behind");
  }
}

TEST_F(Mp3FrameWalkTest, TheFirstSizeByteCounts65536) {
  EXPECT_TRUE(Read(
      Id3(FrameHeader("PRIV", {1, 0, 0, 2}) + std::string(65538, 'x') + TextFrame("TIT2", "behind"),
          150000)));
  EXPECT_TEXT(reader.ID3SongName(), u"behind");
}

TEST_F(Mp3FrameWalkTest, TheLowerSizeBytesOverflowIn16Bits) {
  const struct {
    SizeBytes bytes;
    bool overflows;
  } rows[] = {{{0, 0, 127, 255}, false},  // 32767
              {{0, 0, 128, 0}, true},    {{0, 0, 255, 0}, true}, {{0, 7, 0, 0}, false},
              {{0, 8, 0, 0}, true},      {{0, 255, 0, 0}, true}, {{0, 7, 15, 255}, false},  // 32767
              {{0, 7, 16, 0}, true},     {{0, 4, 64, 0}, true},  {{0, 1, 112, 0}, true},
              {{0, 1, 111, 255}, false},  // 32767
              {{1, 7, 16, 0}, true},     {{1, 4, 64, 0}, true},  {{255, 0, 128, 0}, true},
              {{255, 7, 15, 255}, false}};
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.bytes));
    EXPECT_EQ(ReadTitleOfSize(row.bytes), !row.overflows);
    EXPECT_TRUE(reader.HasID3());
    EXPECT_EQ(reader.ID3SongName().empty(), row.overflows);
    EXPECT_EQ(reader.FileSize(), row.overflows ? 0 : 20021);
  }
}

TEST_F(Mp3FrameWalkTest, AnOverflowKeepsTheFramesBeforeAndHidesTheTrailer) {
  EXPECT_FALSE(Read(Id3(TextFrame("TALB", "Record") + FrameHeader("TIT2", {0, 0, 0x80, 0})) +
                    Trailer{"t", "", "", "", "", 0}.Bytes()));
  EXPECT_TRUE(reader.HasID3());
  EXPECT_TEXT(reader.ID3Album(), u"Record");
  EXPECT_FALSE(reader.HasTAG());
}

TEST_F(Mp3FrameWalkTest, TheThirdMissEndsTheWalk) {
  const std::string miss(11, '\0');
  const std::string frame = TextFrame("TIT2", "Hello");
  EXPECT_TRUE(Read(Id3(miss + frame)));
  EXPECT_TEXT(reader.ID3SongName(), u"Hello");
  EXPECT_TRUE(Read(Id3(miss + miss + frame)));
  EXPECT_TEXT(reader.ID3SongName(), u"Hello");
  EXPECT_TRUE(Read(Id3(miss + miss + miss + frame)));
  EXPECT_TEXT(reader.ID3SongName(), u"");
}

TEST_F(Mp3FrameWalkTest, MissesAreCountedOverTheWholeWalk) {
  // Behind a frame a miss also steps over as many bytes as the last payload had.
  const auto missBehind = [](std::size_t payload) { return std::string(11 + payload, '\0'); };
  const std::string start =
      missBehind(0) + TextFrame("TIT2", "four") + missBehind(4) + TextFrame("TPE1", "sixsix");
  EXPECT_TRUE(Read(Id3(start + TextFrame("TALB", "straight"))));
  EXPECT_TEXT(reader.ID3SongName(), u"four");
  EXPECT_TEXT(reader.ID3Artist(), u"sixsix");
  EXPECT_TEXT(reader.ID3Album(), u"straight");
  EXPECT_TRUE(Read(Id3(start + missBehind(6) + TextFrame("TALB", "too late"))));
  EXPECT_TEXT(reader.ID3Artist(), u"sixsix");
  EXPECT_TEXT(reader.ID3Album(), u"");
}

TEST_F(Mp3FrameWalkTest, AMissStepsOverTheLastPayloadOfAnyFrame) {
  EXPECT_TRUE(Read(
      Id3(Frame("PRIV", "0123456789") + std::string(11 + 9, '\0') + TextFrame("TIT2", "text"))));
  EXPECT_TEXT(reader.ID3SongName(), u"text");
  EXPECT_TRUE(Read(
      Id3(Frame("WOAR", "0123456789") + std::string(11 + 10, '\0') + TextFrame("TIT2", "web"))));
  EXPECT_TEXT(reader.ID3SongName(), u"web");
}

TEST_F(Mp3FrameWalkTest, TwoMissesInARowEachStepOverTheLastPayload) {
  EXPECT_TRUE(Read(Id3(TextFrame("TPE1", "abc") + std::string(2 * (11 + 3), '\0') +
                       TextFrame("TIT2", "found"))));
  EXPECT_TEXT(reader.ID3SongName(), u"found");
}

TEST_F(Mp3FrameWalkTest, FramesAnywhereAcrossTheReadWindowAreReadWhole) {
  for (std::size_t start = 4060; start <= 4100; ++start) {
    SCOPED_TRACE(start);
    EXPECT_TRUE(Read(Id3(Frame("PRIV", std::string(start - 20, 'p')) + TextFrame("TIT2", "Hello") +
                             Frame("WOAR", "http://x") + TextFrame("TPE1", "Singer"),
                         20000)));
    EXPECT_TEXT(reader.ID3SongName(), u"Hello");
    EXPECT_TEXT(reader.ID3WebAddress(), u"http://x");
    EXPECT_TEXT(reader.ID3Artist(), u"Singer");
  }
}

TEST_F(Mp3FrameWalkTest, ASizePastTheFilesEndIsFilledWithNuls) {
  EXPECT_TRUE(Read(Id3(FrameHeader("TIT2", SizeBytesOf(1000)) + "\0Hello"s, 200)));
  EXPECT_TEXT(reader.ID3SongName(), String(u"Hello") + String(994, u'\0'));
}

TEST_F(Mp3FrameWalkTest, AHugeSizeCostsNeitherTimeNorMemoryNorTheTrailer) {
  EXPECT_TRUE(
      Read(Id3(TextFrame("TPE1", "Singer") + FrameHeader("TIT2", {255, 7, 15, 255}) + "\0Hello"s) +
           Trailer{"Title", "", "", "", "", 0}.Bytes()));
  EXPECT_TEXT(reader.ID3Artist(), u"Singer");
  EXPECT_TEXT(reader.ID3SongName().substr(0, 6), StringView(u"Hello\0", 6));
  EXPECT_LE(reader.ID3SongName().size(), 65536u);
  EXPECT_TEXT(reader.SongName(), u"Title");
}

TEST_F(Mp3FrameWalkTest, TextsAreKeptUpToTheirLimitAndTheWalkGoesByTheWholeSize) {
  const struct {
    std::string_view id;
    StringView (Mp3TagReader::*text)() const;
  } rows[] = {{"TALB", &Mp3TagReader::ID3Album},
              {"WOAR", &Mp3TagReader::ID3WebAddress},
              {"USLT", &Mp3TagReader::ID3SongLyrics}};
  constexpr std::size_t kLimit = 65536;
  for (const auto& row : rows) {
    for (const std::size_t length : {kLimit, kLimit + 1}) {
      SCOPED_TRACE(std::string(row.id) + " " + std::to_string(length));
      const std::string content = (row.id == "WOAR" ? "" : "\0"s) + std::string(length, 'x');
      EXPECT_TRUE(Read(Id3(Frame(row.id, content) + TextFrame("TIT2", "behind"), 200000)));
      EXPECT_EQ((reader.*row.text)().size(), kLimit);
      EXPECT_TEXT(reader.ID3SongName(), u"behind");
    }
  }
}

TEST_F(Mp3FrameWalkTest, TheLongestTextThatTheLowerSizeBytesCanTellIsStoredAsItStands) {
  std::string text;
  for (int i = 0; text.size() < 32766; ++i) text += std::to_string(i) + (i % 7 == 0 ? "\0"s : " ");
  text.resize(32766);
  for (const std::string_view id : {"TIT2", "TPE1", "TALB", "TCON", "TCOP", "USLT"}) {
    SCOPED_TRACE(id);
    EXPECT_TRUE(Read(Id3(TextFrame(id, text) + TextFrame("TYER", "1999"), 100000)));
    const StringView stored[] = {reader.ID3SongName(),        reader.ID3Artist(),
                                 reader.ID3Album(),           reader.ID3Genre(),
                                 reader.ID3RecordingStudio(), reader.ID3SongLyrics()};
    const auto found = std::find_if(std::begin(stored), std::end(stored),
                                    [](StringView each) { return !each.empty(); });
    ASSERT_NE(found, std::end(stored));
    EXPECT_EQ(*found, String(text.begin(), text.end()));
    EXPECT_TEXT(reader.ID3Year(), u"1999");
  }
}

TEST_F(Mp3FrameWalkTest, FramesThatReplaceEachOtherLeaveTheTextsOfTheOthersAlone) {
  std::string frames = TextFrame("TPE1", "Singer") + TextFrame("TALB", "Record");
  for (int i = 0; i < 100; ++i)
    frames += TextFrame("TIT2", std::string(32000, 'x') + std::to_string(i));
  EXPECT_TRUE(Read(Id3(frames + TextFrame("TCON", "Rock"), 4'000'000)));
  EXPECT_TEXT(reader.ID3Artist(), u"Singer");
  EXPECT_TEXT(reader.ID3Album(), u"Record");
  EXPECT_TEXT(reader.ID3SongName(), String(32000, u'x') + u"99");
  EXPECT_TEXT(reader.ID3Genre(), u"Rock");
}

TEST_F(Mp3FrameWalkTest, ATagCutOffAnywhereIsReadAsFarAsItGoes) {
  const std::string first = Id3(Frame("PRIV", std::string(150, 'p')), 0);
  const std::string second = first + TextFrame("TIT2", "Hello");
  const std::string whole = second + TextFrame("TPE1", "Singer");
  // An id whose size bytes are gone is a text frame of size 0.
  const auto lacksSize = [](std::size_t size, const std::string& before) {
    return size >= before.size() + 4 && size < before.size() + 8;
  };
  for (std::size_t size = 128; size <= whole.size(); ++size) {
    SCOPED_TRACE(size);
    const bool fails = lacksSize(size, first) || lacksSize(size, second);
    EXPECT_EQ(Read(whole.substr(0, size)), !fails);
    EXPECT_TRUE(reader.HasID3());
    EXPECT_EQ(reader.FileSize(), fails ? 0 : static_cast<std::int32_t>(size));
    EXPECT_EQ(reader.ID3SongName() == u"Hello", size >= second.size());
  }
  EXPECT_TEXT(reader.ID3Artist(), u"Singer");
}

}  // namespace
}  // namespace norvo
