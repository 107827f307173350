#include "lists/ListEncoding.h"

#include "support/TextPrinting.h"

namespace norvo {
namespace {

using namespace std::string_literals;

String Decoded(std::string_view bytes) {
  return DecodePlaylist(bytes, Windows1252());
}

TEST(ListEncoding, TheMarkTellsTheEncoding) {
  EXPECT_TEXT(Decoded("\xEF\xBB\xBF\xC3\x84.mp3"), u"Ä.mp3");
  EXPECT_TEXT(Decoded("\xFF\xFE\xC4\0"s), u"Ä");
  EXPECT_TEXT(Decoded("\xFE\xFF\0\xC4"s), u"Ä");
  EXPECT_TEXT(Decoded("\xEF\xBB\xBF"), u"");
}

TEST(ListEncoding, WithoutAMarkValidUtf8IsThat) {
  EXPECT_TEXT(Decoded("\xC3\x84.mp3"), u"Ä.mp3");
  EXPECT_TEXT(Decoded("\xD0\x9C \xF0\x9F\x8E\xB5.mp3"), u"М 🎵.mp3");
  EXPECT_TEXT(Decoded("a.mp3"), u"a.mp3");
  EXPECT_TEXT(Decoded(""), u"");
}

TEST(ListEncoding, OtherBytesAreOfTheCodePage) {
  EXPECT_TEXT(Decoded("\xC4.mp3"), u"Ä.mp3");
  EXPECT_TEXT(Decoded("\xC3\x84 \xC4.mp3"), u"Ã„ Ä.mp3");
  EXPECT_TEXT(Decoded("\xC3\x84 cut\xC3"), u"Ã„ cutÃ");
}

TEST(ListEncoding, AMarkOfUtf8OverOtherBytesIsAMistake) {
  EXPECT_TEXT(Decoded("\xEF\xBB\xBF\xC4.mp3"), u"Ä.mp3");
}

TEST(ListEncoding, Utf16IsToldWithoutAMark) {
  EXPECT_TEXT(Decoded("a\0.\0\xC4\0"s), u"a.Ä");
  EXPECT_TEXT(Decoded("\0a\0.\0\xC4"s), u"a.Ä");
  EXPECT_TEXT(Decoded("a\0\0\0"s), u"a\0\0\0"s);
  EXPECT_TEXT(Decoded("ab\0\0"s), u"ab\0\0"s);
}

TEST(ListEncoding, TheDeclarationOfXmlHolds) {
  const auto declared = [](std::string_view name, std::string_view bytes) {
    const std::string start = "<?xml version=\"1.0\" encoding=\"" + std::string(name) + "\"?>";
    return Decoded(start + std::string(bytes)).substr(start.size());
  };
  EXPECT_TEXT(declared("ISO-8859-1", "\xC3\x84"), u"Ã„");
  EXPECT_TEXT(declared("windows-1252", "\xC3\x84"), u"Ã„");
  EXPECT_TEXT(declared("windows-1251", "\xC3\x84"), u"Ã„");
  EXPECT_TEXT(declared("UTF-8", "\xC3\x84"), u"Ä");
  EXPECT_TEXT(declared("UTF-8", "\xC4"), u"Ä");
  EXPECT_TEXT(declared("anything", "\xC3\x84"), u"Ä");
  EXPECT_TEXT(declared("anything", "\xC4"), u"Ä");
}

TEST(ListEncoding, AnEncodingThatIsOnlyMentionedIsNone) {
  EXPECT_TEXT(Decoded("encoding=\"ISO-8859-1\" \xC3\x84"), u"encoding=\"ISO-8859-1\" Ä");
  EXPECT_TEXT(Decoded("<a encoding=\"ISO-8859-1\"> \xC3\x84"), u"<a encoding=\"ISO-8859-1\"> Ä");
  EXPECT_TEXT(Decoded("<?xml ?><a encoding='latin1'> \xC3\x84"),
              u"<?xml ?><a encoding='latin1'> Ä");
}

}  // namespace
}  // namespace norvo
