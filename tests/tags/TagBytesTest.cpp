#include "tags/TagBytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace norvo {
namespace {

/// A file of known bytes that notes where it was read.
class NotedFile final : public BinaryFile {
 public:
  explicit NotedFile(std::string bytes) : bytes_(std::move(bytes)) {}

  std::size_t ReadAt(std::uint64_t offset, std::span<char> buffer) override {
    reads.push_back(offset);
    if (offset >= bytes_.size()) return 0;
    const auto from = static_cast<std::size_t>(offset);
    const std::size_t length = std::min(buffer.size(), bytes_.size() - from);
    std::memcpy(buffer.data(), bytes_.data() + from, length);
    return length;
  }
  std::uint64_t Size() override { return bytes_.size(); }

  std::vector<std::uint64_t> reads;

 private:
  std::string bytes_;
};

std::string Counting(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 7 + i / 251);
  return bytes;
}

TEST(TagBytesTest, NeighbouringRequestsCostOneRead) {
  const std::string content = Counting(5000);
  NotedFile file(content);
  TagBytes bytes(file);
  for (const std::size_t offset : {0u, 3u, 10u, 4000u, 20u, 4093u}) {
    EXPECT_EQ(bytes.At(offset, 3), content.substr(offset, 3)) << offset;
  }
  EXPECT_EQ(file.reads, std::vector<std::uint64_t>{0});
}

TEST(TagBytesTest, ARequestAcrossTheWindowsEndReadsOn) {
  const std::string content = Counting(9000);
  NotedFile file(content);
  TagBytes bytes(file);
  EXPECT_EQ(bytes.At(0, 4), content.substr(0, 4));
  EXPECT_EQ(bytes.At(4092, 10), content.substr(4092, 10));
  EXPECT_EQ(bytes.At(4095, 4), content.substr(4095, 4));
  EXPECT_EQ(bytes.At(0, 4), content.substr(0, 4));
  EXPECT_EQ(file.reads, (std::vector<std::uint64_t>{0, 4092, 0}));
}

TEST(TagBytesTest, ARequestLargerThanTheWindowIsReadWhole) {
  const std::string content = Counting(20000);
  NotedFile file(content);
  TagBytes bytes(file);
  EXPECT_EQ(bytes.At(5, 15000), content.substr(5, 15000));
  EXPECT_EQ(file.reads.size(), 1u);
}

TEST(TagBytesTest, BytesPastTheEndAreZeros) {
  NotedFile file("abc");
  TagBytes bytes(file);
  EXPECT_EQ(bytes.At(1, 5), std::string("bc\0\0\0", 5));
  EXPECT_EQ(bytes.At(3, 2), std::string(2, '\0'));
  EXPECT_EQ(bytes.At(5000000000u, 4), std::string(4, '\0'));
  EXPECT_EQ(bytes.At(5000000000u, 9000), std::string(9000, '\0'));
}

TEST(TagBytesTest, AShorterFileLeavesNothingOfTheWindowBefore) {
  NotedFile file(std::string(4096, 'x') + "yz");
  TagBytes bytes(file);
  EXPECT_EQ(bytes.At(0, 2), "xx");
  EXPECT_EQ(bytes.At(4096, 4), std::string("yz\0\0", 4));
}

TEST(TagBytesTest, AnEmptyFileIsAllZeros) {
  NotedFile file("");
  TagBytes bytes(file);
  EXPECT_EQ(bytes.At(0, 3), std::string(3, '\0'));
  EXPECT_EQ(bytes.Size(), 0u);
}

}  // namespace
}  // namespace norvo
