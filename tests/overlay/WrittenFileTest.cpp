#include "overlay/WrittenFile.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

constexpr std::size_t kLong = std::size_t{64} * 1024;

void AppendTo(WrittenFile& file, std::string_view bytes, std::int64_t now) {
  file.Open();
  file.Append(bytes, now);
  file.Close();
}

TEST(WrittenFile, HoldsWhatWasWrittenAndAppendedOpenOrNot) {
  for (const std::size_t size : {std::size_t{3}, kLong}) {
    std::string bytes(size, 'x');
    WrittenFile file(bytes, {}, 1);
    AppendTo(file, "end", 2);
    bytes += "end";
    EXPECT_EQ(file.Bytes(), bytes);
    EXPECT_EQ(file.Size(), bytes.size());
    EXPECT_EQ(file.Modified(), 2);
    file.Open();
    EXPECT_EQ(file.OpenedBytes(), bytes);
    EXPECT_EQ(file.Bytes(), bytes);
    file.Close();
    EXPECT_EQ(file.Bytes(), bytes);
  }
}

TEST(WrittenFile, OneThatIsWrittenWholeHoldsWhatItTookAndGrows) {
  for (const std::size_t size : {std::size_t{3}, kLong}) {
    std::string bytes(size, 'x');
    WrittenFile file = WrittenFile::Whole(bytes, {}, 1);
    EXPECT_EQ(file.Bytes(), bytes);
    EXPECT_EQ(file.Size(), size);
    EXPECT_EQ(file.Modified(), 1);
    AppendTo(file, "end", 2);
    EXPECT_EQ(file.Bytes(), bytes + "end");
  }
}

TEST(WrittenFile, IsWholeForAllThatHaveItOpen) {
  const std::string bytes(kLong, 'x');
  WrittenFile file(bytes, {}, 1);
  file.Open();
  file.Open();
  file.Close();
  EXPECT_EQ(file.OpenedBytes(), bytes);
  file.Append("y", 2);
  EXPECT_EQ(file.OpenedBytes(), bytes + 'y');
  file.Close();
  EXPECT_EQ(file.Bytes(), bytes + 'y');
}

/// A log is opened for each of its lines: packed each time it would take minutes.
TEST(WrittenFile, GrowsLineByLineInTimeInProportion) {
  const std::string line = "a line of a log, which is about as long as this one is\r\n";
  WrittenFile file({}, {}, 0);
  std::string bytes;
  for (int i = 0; i < 100'000; ++i) {
    AppendTo(file, line, i);
    bytes += line;
  }
  EXPECT_EQ(file.Bytes(), bytes);
}

}  // namespace
}  // namespace norvo
