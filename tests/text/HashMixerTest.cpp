#include "text/HashMixer.h"

#include <gtest/gtest.h>

#include <string_view>

namespace norvo {
namespace {

std::uint64_t HashOf(std::string_view bytes) {
  std::uint64_t hash = kHashStart;
  for (const char byte : bytes) hash = MixIn(hash, static_cast<unsigned char>(byte));
  return hash;
}

TEST(HashMixer, BytesHaveTheValuesOfFnv1a) {
  EXPECT_EQ(HashOf(""), 0xcbf29ce484222325u);
  EXPECT_EQ(HashOf("a"), 0xaf63dc4c8601ec8cu);
  EXPECT_EQ(HashOf("foobar"), 0x85944171f73967e8u);
}

TEST(HashMixer, FoldingBringsTheHigherHalfIntoTheLower) {
  EXPECT_EQ(FoldHash(0x0123456700000000u), 0x0123456701234567u);
  EXPECT_EQ(FoldHash(0x89ABCDEFu), 0x89ABCDEFu);
}

}  // namespace
}  // namespace norvo
