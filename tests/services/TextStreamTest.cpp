#include "services/TextStream.h"

#include <random>

#include "automation/RunTimeError.h"
#include "support/LibraryTest.h"
#include "support/RaisedErrors.h"

namespace norvo {
namespace {

using namespace std::string_literals;

class TextStreamTest : public LibraryTest {
 protected:
  TextStream Open(std::string_view bytes) {
    platform->AddFile(u"C:\\a.txt", bytes);
    return TextStream(platform->Files(), u"C:\\a.txt", Windows1252());
  }

  Lines LinesOf(std::string_view bytes) {
    TextStream stream = Open(bytes);
    std::vector<String> lines;
    while (!stream.AtEnd()) lines.push_back(stream.ReadLine());
    return Utf8(lines);
  }

  static std::string InEncoding(StringView text, FileEncoding encoding) {
    return EncodeFile(text, encoding, Windows1252());
  }
};

constexpr FileEncoding kEncodings[] = {FileEncoding::CodePage, FileEncoding::Utf8,
                                       FileEncoding::Utf16LittleEndian,
                                       FileEncoding::Utf16BigEndian};

TEST_F(TextStreamTest, LinesEndAtLineFeedsWithOrWithoutACarriageReturn) {
  EXPECT_EQ(LinesOf("a\r\nb\nc"), (Lines{"a", "b", "c"}));
  EXPECT_EQ(LinesOf("a\r\n"), (Lines{"a"}));
  EXPECT_EQ(LinesOf("\n\r\n\na"), (Lines{"", "", "", "a"}));
  EXPECT_EQ(LinesOf("a\rb\r\nc\r"), (Lines{"a\rb", "c\r"}));
  EXPECT_EQ(LinesOf("a\r\r\nb"), (Lines{"a\r", "b"}));
  EXPECT_EQ(LinesOf(""), (Lines{}));
}

TEST_F(TextStreamTest, NulsAreOrdinaryCharacters) {
  EXPECT_EQ(LinesOf("a\0b\n\0\n"s), (Lines{"a\0b"s, "\0"s}));
}

TEST_F(TextStreamTest, TheMarkTellsTheEncodingAndIsNoCharacter) {
  for (const FileEncoding encoding : kEncodings) {
    EXPECT_EQ(LinesOf(InEncoding(u"Größe €\r\n€ß\n\nÄ", encoding)),
              (Lines{"Größe €", "€ß", "", "Ä"}));
  }
}

TEST_F(TextStreamTest, AFileOfAMarkAloneIsAtItsEnd) {
  for (const char* mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
    TextStream stream = Open(mark);
    EXPECT_TRUE(stream.AtEnd());
    EXPECT_EQ(NumberRaisedBy([&] { stream.ReadAll(); }), error::kInputPastEnd);
  }
}

TEST_F(TextStreamTest, HalfAUnitAtTheEndIsNoCharacter) {
  EXPECT_EQ(LinesOf("\xFF\xFE"
                    "a\0x"s),
            (Lines{"a"}));
  EXPECT_EQ(LinesOf("\xFF\xFE"
                    "a\0\n\0x"s),
            (Lines{"a"}));
  EXPECT_EQ(LinesOf("\xFE\xFF\0a\0"s), (Lines{"a"}));
  EXPECT_TRUE(Open("\xFF\xFEx").AtEnd());
  TextStream stream = Open(
      "\xFF\xFE"
      "a\0b\0x"s);
  EXPECT_TEXT(stream.ReadAll(), u"ab");
  EXPECT_TRUE(stream.AtEnd());
}

TEST_F(TextStreamTest, HalvesOfTwoUnitsAreNoLineFeed) {
  const String text =
      u"\x0A41\x0A00\x000B\x410A\x0D0A"
      u"b";
  for (const FileEncoding encoding :
       {FileEncoding::Utf16LittleEndian, FileEncoding::Utf16BigEndian}) {
    TextStream stream = Open(InEncoding(text, encoding));
    EXPECT_TEXT(stream.ReadLine(), text);
    EXPECT_TRUE(stream.AtEnd());
  }
}

TEST_F(TextStreamTest, BytesThatAreNotUtf8AreReplaced) {
  EXPECT_EQ(LinesOf("\xEF\xBB\xBF"
                    "a\xFF"
                    "b\n\xC3\n"),
            (Lines{"a\xEF\xBF\xBD"
                   "b",
                   "\xEF\xBF\xBD"}));
}

TEST_F(TextStreamTest, ReadingAtTheEndRaises62) {
  TextStream empty = Open("");
  EXPECT_TRUE(empty.AtEnd());
  EXPECT_EQ(NumberRaisedBy([&] { empty.ReadLine(); }), error::kInputPastEnd);
  EXPECT_EQ(NumberRaisedBy([&] { empty.ReadAll(); }), error::kInputPastEnd);
  TextStream stream = Open("a");
  stream.ReadLine();
  EXPECT_EQ(NumberRaisedBy([&] { stream.ReadLine(); }), error::kInputPastEnd);
}

TEST_F(TextStreamTest, EverythingIsTheRestBehindTheLinesThatWereRead) {
  TextStream stream = Open("a\r\nb\r\nc\r\n");
  EXPECT_TEXT(stream.ReadLine(), u"a");
  EXPECT_TEXT(stream.ReadAll(), u"b\r\nc\r\n");
  EXPECT_TRUE(stream.AtEnd());
}

TEST_F(TextStreamTest, LineEndsAndLongCharactersMayLieAcrossThePieces) {
  for (std::size_t length = 4085; length <= 4100; ++length) {
    const String first(length, u'x');
    const String text = first + u"\r\n" + first + u"äö€\r\n" + first + u"\n" + u"ß";
    const Lines expected{Utf8(first), Utf8(first + u"äö€"), Utf8(first), "ß"};
    for (const FileEncoding encoding : kEncodings) {
      ASSERT_EQ(LinesOf(InEncoding(text, encoding)), expected) << length;
    }
  }
  for (std::size_t length = 2040; length <= 2052; ++length) {
    const String text = String(length, u'ä') + u"\r\n" + String(length, u'ö');
    for (const FileEncoding encoding : kEncodings) {
      ASSERT_EQ(LinesOf(InEncoding(text, encoding)).size(), 2u) << length;
    }
  }
}

TEST_F(TextStreamTest, PairsMayLieAcrossThePieces) {
  for (std::size_t length = 4090; length <= 4096; ++length) {
    const String text = String(length, u'x') + u"\xD83D\xDE00\xD83D\xDE00";
    TextStream stream = Open(InEncoding(text, FileEncoding::Utf8));
    ASSERT_TEXT(stream.ReadLine(), text) << length;
  }
}

TEST_F(TextStreamTest, HugeLinesAreReadWhole) {
  const std::string huge(3000000, 'x');
  EXPECT_EQ(LinesOf(huge + "\r\nend"), (Lines{huge, "end"}));
}

TEST_F(TextStreamTest, ManyLinesAreAllRead) {
  std::string bytes;
  for (int i = 0; i < 100000; ++i) bytes += "line " + std::to_string(i) + "\r\n";
  const Lines lines = LinesOf(bytes);
  ASSERT_EQ(lines.size(), 100000u);
  EXPECT_EQ(lines.front(), "line 0");
  EXPECT_EQ(lines.back(), "line 99999");
}

TEST_F(TextStreamTest, LinesAreTheFilesTextSplitAtItsLineFeeds) {
  constexpr StringView kUnits = u"ab\r\nä€\x0A0A\x0D0A";
  std::mt19937 random(20030514);
  for (int i = 0; i < 60; ++i) {
    String text(random() % 9000, u' ');
    for (char16_t& unit : text) unit = kUnits[random() % kUnits.size()];
    for (const FileEncoding encoding : kEncodings) {
      const std::string bytes = InEncoding(text, encoding);
      TextStream stream = Open(bytes);
      String rest = DecodeFile(bytes, Windows1252());
      while (!rest.empty()) {
        const std::size_t end = rest.find(u'\n');
        String line = rest.substr(0, end);
        if (end != String::npos && line.ends_with(u'\r')) line.pop_back();
        rest.erase(0, end == String::npos ? end : end + 1);
        ASSERT_FALSE(stream.AtEnd());
        ASSERT_TEXT(stream.ReadLine(), line);
      }
      ASSERT_TRUE(stream.AtEnd());
    }
  }
}

TEST_F(TextStreamTest, OnlyAsMuchIsReadAsIsAskedFor) {
  TextStream stream = Open("first\n" + std::string(1000000, 'x'));
  EXPECT_TEXT(stream.ReadLine(), u"first");
  EXPECT_EQ(platform->Calls(u"ReadAt"), 1u);
}

TEST_F(TextStreamTest, AFileThatCannotBeOpenedRaises) {
  platform->AddFolder(u"C:\\folder");
  const auto open = [this](StringView path) {
    return NumberRaisedBy([&] { TextStream(platform->Files(), path, Windows1252()); });
  };
  EXPECT_EQ(open(u"C:\\missing.txt"), error::kFileNotFound);
  EXPECT_EQ(open(u"C:\\missing\\a.txt"), error::kPathNotFound);
  EXPECT_NE(open(u"C:\\folder"), 0);
}

TEST_F(TextStreamTest, AFailingDiskRaisesFromEveryQuestion) {
  for (std::size_t k = 1; k <= 3; ++k) {
    TextStream stream = Open(std::string(100000, 'x'));
    platform->FailOn(u"ReadAt", k, error::kDeviceInputOutput);
    EXPECT_EQ(NumberRaisedBy([&] { stream.ReadLine(); }), error::kDeviceInputOutput);
  }
}

TEST_F(TextStreamTest, AClosedStreamNeverRaisesAnErrorOfItsOwn) {
  TextStream stream = Open("a\n");
  stream.Close();
  EXPECT_TRUE(stream.AtEnd());
  EXPECT_NO_THROW(stream.Close());
}

TEST_F(TextStreamTest, TheWriterAppendsItsLinesInTheCodePageWhenItIsClosed) {
  platform->AddFile(u"C:\\out.txt", "old\r\n");
  TextWriter writer(platform->Files(), u"C:\\out.txt", false, Windows1252());
  writer.WriteLine(u"Größe 日");
  writer.WriteLine(u"");
  EXPECT_EQ(platform->Bytes(u"C:\\out.txt"), "old\r\n");
  writer.Close();
  const std::string whole =
      "old\r\nGr\xF6\xDF"
      "e ?\r\n\r\n";
  EXPECT_EQ(platform->Bytes(u"C:\\out.txt"), whole);
  EXPECT_EQ(platform->Calls(u"Append"), 1u);
  writer.Close();
  EXPECT_EQ(platform->Bytes(u"C:\\out.txt"), whole);
}

TEST_F(TextStreamTest, AWriterWithoutLinesAppendsNothing) {
  TextWriter(platform->Files(), u"C:\\out.txt", true, Windows1252()).Close();
  EXPECT_EQ(platform->Bytes(u"C:\\out.txt"), "");
  EXPECT_EQ(platform->Calls(u"Append"), 0u);
}

TEST_F(TextStreamTest, TheWriterTearsNoLineBetweenTwoPieces) {
  constexpr std::size_t kLine = 1000;  // characters, so that no piece ends where a line does
  constexpr std::size_t kLines = 300;
  std::string whole;
  for (std::size_t i = 0; i < kLines; ++i) whole += std::string(kLine, 'x') + "\r\n";
  std::size_t pieces = 0;
  for (std::size_t failing = 1; failing == pieces + 1; ++failing) {
    platform->AddFile(u"C:\\out.txt", "");
    platform->FailOn(u"Append", failing, error::kDiskFull);
    TextWriter writer(platform->Files(), u"C:\\out.txt", false, Windows1252());
    try {
      for (std::size_t i = 0; i < kLines; ++i) writer.WriteLine(String(kLine, u'x'));
      writer.Close();
      EXPECT_TRUE(platform->Bytes(u"C:\\out.txt") == whole);
      EXPECT_GT(pieces, 3u);
    } catch (const RunTimeError& failure) {
      EXPECT_EQ(failure.Number(), error::kDiskFull);
      const std::string& written = platform->Bytes(u"C:\\out.txt");
      EXPECT_EQ(written.size() % (kLine + 2), 0u) << failing;
      EXPECT_TRUE(whole.starts_with(written)) << failing;
      pieces = failing;
    }
    platform->Log().StopFailing();
  }
}

TEST_F(TextStreamTest, WhatAFullDiskRefusesIsNotTriedAgain) {
  {
    TextWriter writer(platform->Files(), u"C:\\out.txt", true, Windows1252());
    writer.WriteLine(u"lost");
    platform->FailOn(u"Append", 1, error::kDiskFull);
    EXPECT_EQ(NumberRaisedBy([&] { writer.Close(); }), error::kDiskFull);
    EXPECT_EQ(NumberRaisedBy([&] { writer.Close(); }), 0);
  }
  EXPECT_EQ(platform->Calls(u"Append"), 1u);
  EXPECT_EQ(platform->Bytes(u"C:\\out.txt"), "");
}

TEST_F(TextStreamTest, AWriterThatIsLetGoOfWritesWhatIsLeftAndNeverRaises) {
  TextWriter(platform->Files(), u"C:\\out.txt", true, Windows1252()).WriteLine(u"a");
  EXPECT_EQ(platform->Bytes(u"C:\\out.txt"), "a\r\n");
  EXPECT_NO_THROW({
    TextWriter writer(platform->Files(), u"C:\\out.txt", true, Windows1252());
    writer.WriteLine(u"b");
    platform->FailOn(u"Append", 1, error::kDiskFull);
  });
  EXPECT_EQ(platform->Bytes(u"C:\\out.txt"), "a\r\n");
}

TEST_F(TextStreamTest, TheWriterCreatesAFileOnlyWhenTold) {
  EXPECT_EQ(
      NumberRaisedBy([&] { TextWriter(platform->Files(), u"C:\\out.txt", false, Windows1252()); }),
      error::kFileNotFound);
  EXPECT_FALSE(platform->HasFile(u"C:\\out.txt"));
  TextWriter(platform->Files(), u"C:\\out.txt", true, Windows1252()).WriteLine(u"a");
  EXPECT_EQ(platform->Bytes(u"C:\\out.txt"), "a\r\n");
}

TEST_F(TextStreamTest, WholeFilesOfAnySizeAreReadByteForByte) {
  for (const std::size_t size : {0u, 1u, 4095u, 4096u, 4097u, 20480u, 20481u, 1000000u}) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) bytes.push_back(static_cast<char>(i * 7));
    platform->AddFile(u"C:\\a.bin", bytes);
    const std::unique_ptr<BinaryFile> file = platform->Files().OpenForReading(u"C:\\a.bin");
    EXPECT_TRUE(ReadWholeFile(*file) == bytes) << size;
  }
}

TEST_F(TextStreamTest, AFileThatIsMissingIsNoneAndOneThatCannotBeReadIsAnError) {
  platform->AddFile(u"C:\\a.bin", "bytes");
  EXPECT_EQ(ReadFileIfThere(platform->Files(), u"C:\\a.bin"), "bytes");
  EXPECT_EQ(ReadFileIfThere(platform->Files(), u"C:\\b.bin"), std::nullopt);
  EXPECT_EQ(ReadFileIfThere(platform->Files(), u"C:\\x\\b.bin"), std::nullopt);
  platform->FailOn(u"OpenForReading", 1, error::kPermissionDenied);
  EXPECT_EQ(NumberRaisedBy([&] { ReadFileIfThere(platform->Files(), u"C:\\a.bin"); }),
            error::kPermissionDenied);
}

TEST_F(TextStreamTest, APlaylistOfTwentyFourMebibytesIsTheLargest) {
  for (const std::size_t size : {kLargestPlaylist, kLargestPlaylist + 1}) {
    platform->AddFile(u"C:\\large.m3u", std::string(size, 'x'));
    TextStream stream(platform->Files(), u"C:\\large.m3u", Windows1252());
    if (size == kLargestPlaylist) {
      EXPECT_EQ(stream.ReadAll().size(), size);
    } else {
      EXPECT_EQ(NumberRaisedBy([&] { stream.ReadAll(); }), error::kOutOfMemory);
    }
  }
}

TEST_F(TextStreamTest, AFileOfSixtyFourMebibytesIsTheLargest) {
  for (const std::size_t size : {kLargestText, kLargestText + 1}) {
    platform->AddFile(u"C:\\large.txt", std::string(size, 'x'));
    const auto file = platform->Files().OpenForReading(u"C:\\large.txt");
    if (size == kLargestText) {
      EXPECT_EQ(ReadWholeFile(*file).size(), size);
    } else {
      EXPECT_THROW(ReadWholeFile(*file), RunTimeError);
      try {
        ReadFileIfThere(platform->Files(), u"C:\\large.txt");
        FAIL() << "it was read";
      } catch (const RunTimeError& failure) {
        EXPECT_EQ(failure.Number(), error::kOutOfMemory);
        EXPECT_TEXT(failure.Description(), u"File larger than 64 MB: C:\\large.txt");
      }
    }
  }
}

}  // namespace
}  // namespace norvo
