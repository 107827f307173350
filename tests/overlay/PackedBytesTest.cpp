#include "overlay/PackedBytes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace norvo {
namespace {

std::string PackedSongLines(int count) {
  std::string lines;
  for (int i = 0; i < count; ++i) {
    lines +=
        "C:\\Music\\Artist " + std::to_string(i / 50) + "\\Song " + std::to_string(i) + ".mp3\r\n";
  }
  return lines;
}

/// The same for each seed, and like nothing that repeats.
std::string PackedNoise(std::size_t size, std::uint32_t seed) {
  std::string bytes;
  for (; bytes.size() < size; seed = seed * 1664525U + 1013904223U) {
    bytes.push_back(static_cast<char>(seed >> 24U));
  }
  return bytes;
}

TEST(PackedBytesTest, GivesBackWhatItTook) {
  const std::string texts[] = {
      "",
      "a",
      "abcdef",
      std::string(7, 'x'),
      std::string(100'000, '\0'),
      std::string("abcdefg") + "abcdefg",
      PackedSongLines(5'000),
      PackedNoise(300'000, 1),
      PackedNoise(1'000, 2) + PackedNoise(200'000, 3) + PackedNoise(1'000, 2)};
  for (const std::string& text : texts) {
    const PackedBytes packed(text);
    EXPECT_EQ(packed.Size(), text.size());
    EXPECT_EQ(packed.Bytes(), text);
  }
}

TEST(PackedBytesTest, GivesBackEachLengthOfARepetition) {
  const std::string words = "Artist Artist Artistry Art Artist!";
  for (std::size_t length = 0; length <= words.size(); ++length) {
    EXPECT_EQ(PackedBytes(words.substr(0, length)).Bytes(), words.substr(0, length));
  }
}

}  // namespace
}  // namespace norvo
