#include "lists/XspfItems.h"

#include "lists/ListedText.h"

namespace norvo {
namespace {

Lines Xspf(StringView text) {
  return Listed(ReadLists(text, ListSyntax::Xspf));
}

TEST(XspfItems, AListOfVlcIsRead) {
  EXPECT_EQ(Xspf(u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<playlist xmlns=\"http://xspf.org/"
                 u"ns/0/\" xmlns:vlc=\"http://www.videolan.org/vlc/playlist/ns/0/\" version=\"1\">"
                 u"\n\t<title>Mix</title>\n\t<trackList>\n\t\t<track>\n"
                 u"\t\t\t<location>file:///C:/Music/Bj%C3%B6rk/A%20%26%20B.mp3</location>\n"
                 u"\t\t\t<title>Jóga</title>\n\t\t\t<creator>Björk</creator>\n"
                 u"\t\t\t<album>Homogenic</album>\n\t\t\t<trackNum>2</trackNum>\n"
                 u"\t\t\t<duration>305500</duration>\n\t\t\t<extension application=\"http://www."
                 u"videolan.org/vlc/playlist/0\">\n\t\t\t\t<vlc:id>0</vlc:id>\n\t\t\t</extension>"
                 u"\n\t\t</track>\n\t</trackList>\n</playlist>\n"),
            (Lines{"[Mix]",
                   "file:///C:/Music/Bj%C3%B6rk/A%20%26%20B.mp3 title=Jóga artist=Björk "
                   "album=Homogenic track=2 length=305.5"}));
}

TEST(XspfItems, SeveralLocationsAreAlternatives) {
  EXPECT_EQ(Xspf(u"<playlist><trackList><track><location>a.mp3</location><location/>"
                 u"<location>b.mp3</location></track></trackList></playlist>"),
            (Lines{"[]", "a.mp3|b.mp3"}));
}

TEST(XspfItems, TracksWithoutALocationAreNoItems) {
  EXPECT_EQ(Xspf(u"<playlist><trackList><track/><track><title>One</title></track>"
                 u"<track><location> </location></track></trackList></playlist>"),
            Lines{"[]"});
}

TEST(XspfItems, EntitiesSectionsOfTextAndNamesWithASpaceAreUnderstood) {
  EXPECT_EQ(Xspf(u"<x:playlist><x:title><![CDATA[R & B]]></x:title><x:trackList><X:Track>"
                 u"<x:LOCATION>\n  A &amp; &#66;.mp3\n</x:LOCATION></X:Track></x:trackList>"
                 u"</x:playlist>"),
            (Lines{"[R & B]", "A & B.mp3"}));
}

TEST(XspfItems, OnlyTheListsOwnTitleIsItsName) {
  EXPECT_EQ(Xspf(u"<playlist><trackList><track><title>x</title><location>a</location></track>"
                 u"</trackList><title>Mix</title></playlist>"),
            (Lines{"[Mix]", "a title=x"}));
}

TEST(XspfItems, AListThatIsCutOffIsReadAsFarAsItGoes) {
  EXPECT_EQ(Xspf(u"<playlist><trackList><track><location>a</location><title>One</title></track>"
                 u"<track><location>b</location><tit"),
            (Lines{"[]", "a title=One", "b"}));
  EXPECT_EQ(Xspf(u"<playlist><track><location>a<title>One<track><location>b"),
            (Lines{"[]", "a", "b"}));
}

}  // namespace
}  // namespace norvo
