#include "lists/WplItems.h"

#include "lists/ListedText.h"

namespace norvo {
namespace {

Lines Wpl(StringView text) {
  return Listed(ReadLists(text, ListSyntax::Wpl));
}

TEST(WplItems, AListOfWindowsMediaPlayerIsRead) {
  EXPECT_EQ(Wpl(u"<?wpl version=\"1.0\"?>\r\n<smil>\r\n    <head>\r\n"
                u"        <meta name=\"Generator\" content=\"Microsoft Windows Media Player\"/>\r\n"
                u"        <author/>\r\n        <title>Rock &amp; Pop</title>\r\n    </head>\r\n"
                u"    <body>\r\n        <seq>\r\n"
                u"            <media src=\"..\\Ann\\A &amp; B.mp3\" cid=\"{1}\" tid=\"{2}\"/>\r\n"
                u"            <media src=\"C:\\Music\\Größe.wma\"/>\r\n"
                u"        </seq>\r\n    </body>\r\n</smil>\r\n"),
            (Lines{"[Rock & Pop]", "..\\Ann\\A & B.mp3", "C:\\Music\\Größe.wma"}));
}

TEST(WplItems, AListOfZuneTellsNamesAndLengthsInMilliseconds) {
  EXPECT_EQ(Wpl(u"<?zpl version=\"2.0\"?><smil><head><title>Mix</title></head><body><seq>"
                u"<media src='a.mp3' serviceId='{1}' albumTitle='Best' albumArtist='Ann' "
                u"trackTitle='One' trackArtist='Bob' duration='215500'/>"
                u"<media src='b.mp3' albumArtist='Ann' duration='0:03:35'/>"
                u"<media src='c.mp3' duration='x'/></seq></body></smil>"),
            (Lines{"[Mix]", "a.mp3 title=One artist=Bob album=Best length=215.5",
                   "b.mp3 artist=Ann length=215", "c.mp3"}));
}

TEST(WplItems, WhatPlaysNoFileIsNoItem) {
  EXPECT_EQ(Wpl(u"<smil><seq><media/><media src=' '/><img src='x.gif'/><audio src='a.mp3'/>"
                u"<VIDEO SRC='b.avi'></VIDEO><ref src='c.mp3'/><smartPlaylist/></seq></smil>"),
            (Lines{"[]", "a.mp3", "b.avi", "c.mp3"}));
  EXPECT_EQ(Wpl(u""), Lines{"[]"});
}

TEST(WplItems, OnlyATitleBeforeTheItemsIsTheName) {
  EXPECT_EQ(Wpl(u"<smil><media src='a'><title>x</title></media></smil>"), (Lines{"[]", "a"}));
  EXPECT_EQ(Wpl(u"<smil><title/><title>One</title><title>Two</title></smil>"), Lines{"[One]"});
}

TEST(WplItems, ListsThatAreNotWellFormedAreReadWhole) {
  const Lines expected = {"[R & B]", "A & B.mp3", "b.mp3", "c.mp3"};
  for (const StringView text :
       {u"<smil><title>R & B</title><media src=\"A & B.mp3\"/><media src='b.mp3'/>"
        u"<media src='c.mp3'/>",
        u"<?wpl version=\"1.0\"?><smil><head><title>R &amp; B<seq><media src='A &amp; B.mp3'>"
        u"<media src=b.mp3 /><media src=\"c.mp3></seq></smil>",
        u"junk <smil></head><title>R & B</title><media 1='x' src=\"A & B.mp3\" =/><media "
        u"src='b.mp3'/></body></body><x><media\nsrc = 'c.mp3'",
        u"<smil><title>R & B</smil><media src='A & B.mp3'/></a><!-- <media src='b.mp3'/> "
        u"<media src='c.mp3'/>"}) {
    EXPECT_EQ(Wpl(text), expected) << Utf8(text);
  }
}

}  // namespace
}  // namespace norvo
