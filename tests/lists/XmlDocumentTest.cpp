#include "lists/ListedText.h"

namespace norvo {
namespace {

using namespace std::string_view_literals;

constexpr ListSyntax kXmlSyntaxes[] = {ListSyntax::Wpl, ListSyntax::Xspf, ListSyntax::B4s,
                                       ListSyntax::ITunes};

String Repeated(StringView piece, int times) {
  String text;
  for (int i = 0; i < times; ++i) text += piece;
  return text;
}

TEST(XmlDocument, AnyDepthIsRead) {
  constexpr int kDepth = 200'000;  // a call for each would need more than the stack has
  const String start = Repeated(u"<dict>", kDepth);
  const String end = Repeated(u"</dict>", kDepth);
  const String media = u"<media src='a'/>";
  EXPECT_EQ(Listed(start + media + end, ListSyntax::Wpl), Lines{"a"});
  EXPECT_EQ(Listed(start + media, ListSyntax::Wpl), Lines{"a"}) << "never closed";
  for (const ListSyntax syntax : kXmlSyntaxes) {
    for (const StringView piece :
         {u"<track>", u"<entry>", u"<dict>", u"<a", u"<!--", u"<![CDATA["}) {
      EXPECT_EQ(Listed(Repeated(piece, kDepth / 10), syntax), Lines{}) << Utf8(piece);
    }
  }
}

/// What makes a careless reader slow: each row would cost the square of its length.
TEST(XmlDocument, HostileTextsAreReadInOneGo) {
  for (const StringView piece : std::initializer_list<StringView>{
           u"<x>", u"</x>", u"<x y='", u" y=1", u"&", u"&#", u"<!DOCTYPE [", u"<!ENTITY a 'b'>",
           u"<?", u"]]>", u"<a></b>", u"<dict><key>", u"<key>Tracks</key>", u"\0"sv}) {
    String text = u"<smil><media src='a'/>";
    while (text.size() < (1u << 16)) text += piece;
    EXPECT_EQ(Listed(text, ListSyntax::Wpl), Lines{"a"}) << Utf8(piece);
    for (const ListSyntax syntax : kXmlSyntaxes) ReadLists(text, syntax);
  }
}

TEST(XmlDocument, EntitiesThatAreDeclaredAreNotExpanded) {
  EXPECT_EQ(Listed(u"<!DOCTYPE smil [<!ENTITY a \"aaaa\"><!ENTITY b \"&a;&a;&a;\">]>"
                   u"<smil><media src='&b;.mp3'/></smil>",
                   ListSyntax::Wpl),
            Lines{"&b;.mp3"});
}

TEST(XmlDocument, NulsAndHalvesOfCharactersDoNoHarm) {
  EXPECT_EQ(Listed(u"\0<smil>\0<media src='a\0b'/>\0\0"sv, ListSyntax::Wpl), Lines{"a b"});
  EXPECT_EQ(Listed(u"<smil><media src='a\xD83D.mp3'/></smil>", ListSyntax::Wpl),
            Lines{"a\uFFFD.mp3"});
  EXPECT_EQ(Listed(u"<smil><media src='a&#0;b&#xD800;'/></smil>", ListSyntax::Wpl), Lines{"a"});
}

}  // namespace
}  // namespace norvo
