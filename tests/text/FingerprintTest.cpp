#include "text/Fingerprint.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

/// The bytes as the published programs put them out on most machines.
std::string BytesOf(const Fingerprint& print) {
  std::string bytes;
  for (const std::uint64_t half : {print.first, print.second}) {
    for (int shift = 0; shift < 64; shift += 8) bytes += static_cast<char>(half >> shift);
  }
  return bytes;
}

TEST(Fingerprint, OfBytesHasThePublishedValues) {
  const std::pair<std::string_view, const char*> rows[] = {
      {"", "00000000000000000000000000000000"},
      {"hello", "cbd8a7b341bd9b025b1e906a48ae1d19"},
      {"hello, world", "342fac623a5ebc8e4cdcbc079642414d"},
      {"19 Jan 2038 at 3:14:07 AM", "b89e5988b737affc664fc2950231b2cb"},
      {"The quick brown fox jumps over the lazy dog.", "cd99481f9ee902c9695da1a38987b6e7"},
  };
  for (const auto& [bytes, print] : rows) EXPECT_EQ(TextOf(FingerprintOf(bytes)), print) << bytes;
}

/// The procedure by which programs that hash are compared: keys of every length up to 255, each
/// with a seed of its own, and the hash of all their hashes.
TEST(Fingerprint, OfBytesHasThePublishedVerificationValue) {
  std::string key;
  std::string hashes;
  for (std::uint32_t length = 0; length < 256; ++length) {
    hashes += BytesOf(FingerprintOf(key, 256 - length));
    key += static_cast<char>(length);
  }
  EXPECT_EQ(FingerprintOf(hashes).first & 0xFFFFFFFFu, 0x6384BA69u);
}

TEST(Fingerprint, OfATextIsThatOfItsUnitsWithTheLowerByteFirst) {
  String text;
  std::string bytes;
  for (const char16_t unit : u"C:\\\u00C4\u0416\u20AC\U0001F3B5 and some more units\\\xD800") {
    EXPECT_EQ(FingerprintOf(text), FingerprintOf(bytes)) << Utf8(text);
    text += unit;
    bytes += static_cast<char>(unit);
    bytes += static_cast<char>(unit >> 8);
  }
}

TEST(Fingerprint, CaselessIsThatOfTheFoldedText) {
  String text;
  for (int unit = 0; unit < 0x10000; ++unit) {
    // In each place of a word, among characters of ASCII and among others.
    text = String(static_cast<std::size_t>(unit % 11), u'z') + static_cast<char16_t>(unit) +
           u"a\u00E4";
    ASSERT_EQ(CaselessFingerprintOf(text), FingerprintOf(Fold(text))) << unit;
  }
  EXPECT_EQ(CaselessFingerprintOf(u"C:\\Ärzte\\a.MP3"), CaselessFingerprintOf(u"c:\\äRZTE\\A.mp3"));
  EXPECT_NE(CaselessFingerprintOf(u"a"), FingerprintOf(u"a"));
}

TEST(Fingerprint, OfAnAsciiTextIsThatOfItsUnits) {
  std::string ascii;
  for (char character = 0;; ++character) {
    EXPECT_EQ(CaselessFingerprintOfAscii(ascii),
              CaselessFingerprintOf(String(ascii.begin(), ascii.end())));
    ascii += character;
    if (character == 0x7F) break;
  }
}

TEST(Fingerprint, OfFieldsIsThatOfTheirFingerprints) {
  const Fingerprint a = FingerprintOf(u"a");
  const Fingerprint b = FingerprintOf(u"b");
  EXPECT_EQ(FingerprintOf({a, b}), FingerprintOf(BytesOf(a) + BytesOf(b)));
  EXPECT_EQ(FingerprintOf({}), FingerprintOf(""));
}

TEST(Fingerprint, TellsFieldsApartThatAreOneText) {
  const auto of = [](StringView first, StringView second) {
    return FingerprintOf({FingerprintOf(first), FingerprintOf(second)});
  };
  EXPECT_NE(of(u"ab", u"c"), of(u"a", u"bc"));
  EXPECT_NE(of(u"abc", u""), of(u"", u"abc"));
  EXPECT_NE(of(u"abc", u""), FingerprintOf({FingerprintOf(u"abc")}));
  EXPECT_NE(of(u"ab", u"c"), FingerprintOf(u"abc"));
  EXPECT_EQ(of(u"ab", u"c"), of(u"ab", u"c"));
}

TEST(Fingerprint, TellsTextsApartByEveryCharacterAndTheirOrder) {
  std::set<std::pair<std::uint64_t, std::uint64_t>> seen;
  const StringView texts[] = {u"", u"A", u"B", u"AB", u"BA", u"A ", u" A", StringView(u"A\0", 2)};
  for (const StringView text : texts) {
    const Fingerprint print = CaselessFingerprintOf(text);
    EXPECT_TRUE(seen.emplace(print.first, print.second).second);
  }
}

TEST(Fingerprint, IsWrittenInHexadecimalDigitsWithTheirZeros) {
  EXPECT_EQ(TextOf({0x0123456789ABCDEFu, 0xFu}), "0123456789abcdef000000000000000f");
}

}  // namespace
}  // namespace norvo
