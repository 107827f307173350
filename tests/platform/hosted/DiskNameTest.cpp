#include "platform/hosted/DiskName.h"

#include <gtest/gtest.h>

#include "support/TextPrinting.h"

namespace norvo {
namespace {

std::string Text(std::string_view name) {
  const std::optional<String> text = FromDiskName(name);
  EXPECT_EQ(text.has_value(), IsExpressible(name)) << name;
  return text ? Utf8(*text) : "(none)";
}

TEST(DiskName, IsTheUtf8OfAWindowsName) {
  EXPECT_EQ(Text("One.mp3"), "One.mp3");
  EXPECT_EQ(Text("M\xC3\xBCsik"), "Müsik");
  EXPECT_EQ(ToDiskName(u"Müsik"), "M\xC3\xBCsik");
  EXPECT_EQ(ToDiskName(u"One. ."), "One") << "trailing points and blanks do not matter";
  EXPECT_EQ(Text("One. ."), "One. .") << "the disk may have them all the same";
}

TEST(DiskName, WhatNoWindowsPathCanExpressHasNoText) {
  for (const char* const name :
       {"", ".", " . ", "a\\b", "a\nb", "\x1F", "M\xFCsik", "\xC3", "\x80", "\xED\xA0\x80"}) {
    EXPECT_EQ(Text(name), "(none)") << name;
  }
}

TEST(DiskName, ASingleByteDecidesWhereverItStands) {
  for (std::size_t length = 1; length < 20; ++length) {
    for (std::size_t at = 0; at < length; ++at) {
      for (int byte = 1; byte < 256; ++byte) {
        std::string name(length, 'x');
        name[at] = static_cast<char>(byte);
        const bool isPlain = byte >= 0x20 && byte <= 0x7F && byte != '\\';
        const bool isAllTrail = length == 1 && (byte == '.' || byte == ' ');
        EXPECT_EQ(IsExpressible(name), isPlain && !isAllTrail)
            << length << ' ' << at << ' ' << byte;
      }
    }
  }
}

TEST(DiskName, WhatCanBeNoFileHasNoNameOnTheDisk) {
  EXPECT_FALSE(ToDiskName(u""));
  EXPECT_FALSE(ToDiskName(u". ."));
  EXPECT_FALSE(ToDiskName(u"a\tb"));
  EXPECT_FALSE(ToDiskName(String(1, char16_t{0xD800}) + u"a"));
}

TEST(DiskName, BothFormsHaveOneFingerprintWhateverTheCase) {
  const StringView names[] = {u"One.mp3", u"MÜSIK. ", u"€", u"x y. "};
  for (const StringView name : names) {
    EXPECT_EQ(FingerprintOfName(name), FingerprintOfDiskName(*ToDiskName(name))) << Utf8(name);
  }
  EXPECT_EQ(FingerprintOfDiskName("m\xC3\xBCsik"), FingerprintOfDiskName("M\xC3\x9CSIK.."));
  EXPECT_EQ(FingerprintOfDiskName("one"), FingerprintOfDiskName("ONE. "));
  EXPECT_NE(FingerprintOfDiskName("one"), FingerprintOfDiskName("two"));
}

TEST(DiskName, IsShownWithMarksForWhatHasNoText) {
  EXPECT_TEXT(ShownDiskName("a\nb"), u"a\uFFFDb");
  EXPECT_TEXT(ShownDiskName("M\xFCsik"), u"M\uFFFDsik");
}

}  // namespace
}  // namespace norvo
