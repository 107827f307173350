#include "lists/AsxItems.h"

#include "lists/ListedText.h"

namespace norvo {
namespace {

using namespace std::string_view_literals;

Lines Asx(StringView text) {
  return Listed(text, ListSyntax::Asx);
}

struct AsxRow {
  StringView text;
  Lines items;
};

void ExpectItems(const std::vector<AsxRow>& rows) {
  for (const AsxRow& row : rows) EXPECT_EQ(Asx(row.text), row.items) << Utf8(row.text);
}

TEST(AsxItems, AnEntryPerLineOrManyOnOneAreTheSame) {
  const Lines expected = {"a.mp3 title=One artist=Ann", "b.mp3 title=Two"};
  EXPECT_EQ(Asx(u"<Asx Version=\"3.0\">\r\n<Title>Mix</Title>\r\n<Entry>\r\n<Title>One</Title>\r\n"
                u"<Author>Ann</Author>\r\n<Ref Href=\"a.mp3\"/>\r\n</Entry>\r\n<Entry>\r\n"
                u"<Ref Href=\"b.mp3\"/>\r\n<Title>Two</Title>\r\n</Entry>\r\n</Asx>"),
            expected);
  EXPECT_EQ(Asx(u"<ASX VERSION=3><ENTRY><REF HREF='a.mp3'></REF><TITLE>One</TITLE>"
                u"<AUTHOR>Ann</AUTHOR></ENTRY><entry><title>Two</title><ref href=b.mp3></entry>"),
            expected);
}

TEST(AsxItems, TagsMaySpreadOverLines) {
  ExpectItems({{u"<Entry\n><Ref\r\n  href\n=\r\"a.mp3\"\n/\n></Entry\n>", {"a.mp3"}},
               {u"<Entry><Ref href=\"\r\n  a b.mp3\r\n\"/></Entry>", {"a b.mp3"}},
               {u"<Entry><Ref href='a.mp3'/><Title>\n One\r\nTwo \n</Title></Entry>",
                {"a.mp3 title=One  Two"}}});
}

TEST(AsxItems, ValuesHaveAnyQuotesOrNone) {
  ExpectItems({{u"<Entry><Ref href=\"it's.mp3\"/>", {"it's.mp3"}},
               {u"<Entry><Ref href = 'a b.mp3' />", {"a b.mp3"}},
               {u"<Entry><Ref href=a.mp3/>", {"a.mp3"}},
               {u"<Entry><Ref href=a.mp3 />", {"a.mp3"}},
               {u"<Entry><Ref href=a/b.mp3>", {"a/b.mp3"}},
               {u"<Entry><Ref href=http://x/>", {"http://x"}},
               {u"<Entry><Ref x='1' HREF=\"C:\\a.mp3\" y>", {"C:\\a.mp3"}},
               {u"<Entry><Ref href=\"a.mp3\" href=\"x.mp3\"/>", {"a.mp3"}},
               {u"<Entry><Ref>href=\"x.mp3\"</Ref></Entry>", {}},
               {u"<Entry><Ref href/><Ref href=/><Ref href=\"\"/><Ref =\"x\"/></Entry>", {}}});
}

TEST(AsxItems, AForgottenQuoteEndsWithItsTag) {
  ExpectItems(
      {{u"<Entry><Ref href=\"a.mp3></Entry><Entry><Ref href=\"b.mp3\"/></Entry>",
        {"a.mp3", "b.mp3"}},
       {u"<Entry><Ref href=\"a.mp3/></Entry><Entry><Ref href='b.mp3></Entry>", {"a.mp3", "b.mp3"}},
       {u"<Entry><Ref href=\"a.mp3\r\n</Entry><Entry><Ref href=\"b.mp3\"/></Entry>",
        {"a.mp3", "b.mp3"}},
       {u"<Entry><Ref href=\"a.mp3> He said \"no\" </Entry>", {"a.mp3"}},
       {u"<Entry><Ref href=\"a.mp3", {"a.mp3"}},
       {u"<Entry><Ref href=a.mp3\"></Entry>", {"a.mp3\""}},
       {u"<Entry><Param name=\"Artist\" value=\"Ann><Ref href=\"a.mp3\"/></Entry>",
        {"a.mp3 artist=Ann"}}});
}

TEST(AsxItems, SeveralRefsAreAlternatives) {
  ExpectItems({{u"<Entry><Ref href='a.mp3'/><Ref href='http://x/b'/><Ref href='c'/></Entry>",
                {"a.mp3|http://x/b|c"}}});
}

TEST(AsxItems, EntriesWithoutARefAreNoItems) {
  ExpectItems({{u"<Entry><Title>One</Title></Entry><Entry/><Entry></Entry>", {}},
               {u"<Ref href='x.mp3'/><Entry></Entry><Ref href='y.mp3'/>", {}},
               {u"<Entry/><Ref href='x.mp3'/>", {}}});
}

TEST(AsxItems, AnEntryEndsWhereTheNextOneBeginsOrTheTextEnds) {
  ExpectItems({{u"<Entry><Ref href='a.mp3'/><Entry><Ref href='b.mp3'/>", {"a.mp3", "b.mp3"}},
               {u"<Entry><Ref href='a.mp3'/><Title>One", {"a.mp3 title=One"}},
               {u"<Entry><Ref href='a.mp3'/><Entry/><Ref href='x.mp3'/>", {"a.mp3"}},
               {u"</Entry><Entry><Ref href='a.mp3'/></Entry></Entry>", {"a.mp3"}}});
}

TEST(AsxItems, AReferenceToAnotherListIsAnItem) {
  ExpectItems(
      {{u"<EntryRef href='x.asx'/><Entry><Ref href='a'/></Entry>", {"x.asx", "a"}},
       {u"<Entry><Ref href='a'/><EntryRef HREF=\"http://x/y.asx\" />", {"a", "http://x/y.asx"}},
       {u"<EntryRef/><EntryRef href=''/>", {}}});
}

TEST(AsxItems, OtherElementsAreNoEntries) {
  ExpectItems({{u"<Entrys><Ref href='x'/></Entrys>", {}},
               {u"<Entry><Reference href='x'/><MoreInfo href='y'/><Ref href='a'/></Entry>", {"a"}},
               {u"<Repeat count=2><Entry><Ref href='a'/></Entry></Repeat>", {"a"}}});
}

TEST(AsxItems, NothingCountsBehindTheEnd) {
  ExpectItems({{u"<Asx><Entry><Ref href='a'/></Entry></ASX ><Entry><Ref href='x'/></Entry>", {"a"}},
               {u"<Entry><Ref href='a'/><Title>One</Asx><Ref href='x'/>", {"a title=One"}},
               {u"<Entry><Ref href='a'/></Entry><Asx><Entry><Ref href='b'/></Entry>", {"a", "b"}}});
}

TEST(AsxItems, NamesComeFromElementsAndParams) {
  ExpectItems(
      {{u"<Entry><Ref href='a'/><Param name='ARTIST' value='Ann'/><param Name=Album Value='Best'>"
        u"</param><Param Name=\"name\" Value=\"One\" /></Entry>",
        {"a title=One artist=Ann album=Best"}},
       {u"<Entry><Param Value='Ann' Name='Artist'/><Ref href='a'/></Entry>", {"a artist=Ann"}},
       {u"<Entry><Ref href='a'/><Param name='Artist' value='Ann'/><Param name='Artist' value=' '/>",
        {"a artist=Ann"}},
       {u"<Entry><Ref href='a'/><Param name='Name' value='One'/><Title>X</Title></Entry>",
        {"a title=One"}},
       {u"<Entry><Ref href='a'/><Param name='Artist' value='Ann'/><Author>X</Author></Entry>",
        {"a artist=Ann"}},
       {u"<Entry><Ref href='a'/><Param name='WM/AlbumTitle' value='Best'/></Entry>",
        {"a album=Best"}},
       {u"<Entry><Ref href='a'/><Param name='Album' value=''/><Param name='Genre' value='Pop'/>"
        u"<Param name='Artist'/><Param value='x'/></Entry>",
        {"a"}}});
}

TEST(AsxItems, DurationsAreLengths) {
  ExpectItems(
      {{u"<Entry><Ref href='a'/><Duration value='00:03:35.5'/></Entry>", {"a length=215.5"}},
       {u"<Entry><DURATION VALUE=3:35></DURATION><Ref href='a'/></Entry>", {"a length=215"}},
       {u"<Entry><Ref href='a'/><Duration value='x'/><Duration/></Entry>", {"a"}},
       {u"<Duration value='9'/><Entry><Ref href='a'/></Entry>", {"a"}}});
}

TEST(AsxItems, TheTitleInFrontOfTheEntriesIsTheListsName) {
  const auto name = [](StringView text) {
    return Utf8(ReadLists(text, ListSyntax::Asx).front().name);
  };
  EXPECT_EQ(name(u"<Asx><Title>A &amp; B</Title><Entry><Title>x</Title><Ref href='a'/></Entry>"),
            "A & B");
  EXPECT_EQ(name(u"<Asx><Title>One</Title><Title>Two</Title>"), "One");
  EXPECT_EQ(name(u"<Asx><Entry><Title>x</Title><Ref href='a'/></Entry><Title>y</Title>"), "");
  EXPECT_EQ(name(u""), "");
}

TEST(AsxItems, NamesOutsideOfEntriesAreThePlaylists) {
  ExpectItems(
      {{u"<Title>Mix</Title><Param name='Artist' value='X'/><Entry><Ref href='a'/></Entry>"
        u"<Author>X</Author>",
        {"a"}}});
}

TEST(AsxItems, TextEndsAtTheNextTagAndTheFirstTextHolds) {
  ExpectItems(
      {{u"<Entry><Ref href='a'/><Title>One<Author>Ann</Entry>", {"a title=One artist=Ann"}},
       {u"<Entry><Ref href='a'/><Title/>x<Author/>y</Entry>", {"a"}},
       {u"<Entry><Ref href='a'/><Title></Title>x</Entry>", {"a"}},
       {u"<Entry><Ref href='a'/><Title>One</Title><Title>X</Title></Entry>", {"a title=One"}},
       {u"<Entry><Ref href='a'/><Title>I <3 you > me</Title></Entry>", {"a title=I <3 you > me"}},
       {u"<Entry><Ref href='a'/><Title>One<!-- x -->Two</Title></Entry>", {"a title=One"}}});
}

TEST(AsxItems, EntitiesAreDecodedInNamesAndStayInReferences) {
  ExpectItems({{u"<Entry><Ref href='A &amp; B&#46;mp3'/><Title>A &amp; B</Title>"
                u"<Param name='Album' value='&quot;&#x263A;&quot;'/></Entry>",
                {"A &amp; B&#46;mp3 title=A & B album=\"☺\""}},
               {u"<Entry><Ref href='a'/><Title>x&#10;y&#0;&#;&;&amp</Title></Entry>",
                {"a title=x y&#0;&#;&;&amp"}}});
}

TEST(AsxItems, CommentsAreSkippedUnlessTheyNeverEnd) {
  ExpectItems({{u"<!-- <Entry><Ref href='x'/></Entry> --><Entry><Ref href='a'/></Entry>", {"a"}},
               {u"<Entry><!--><Ref href='x'/>--><Ref href='a'/></Entry>", {"a"}},
               {u"<Entry><!-- x --<Ref href='a'/></Entry><!-- y", {"a"}},
               {u"<!-- a --><!-- b <Entry><Ref href='a'/></Entry>", {"a"}},
               {u"<Entry><Ref href='<!--'/><Ref href='a'/>--></Entry>", {"a"}},
               {u"<!-- </Asx> --><Entry><Ref href='a'/></Entry>", {"a"}}});
}

TEST(AsxItems, ABannerHidesWhatItHolds) {
  ExpectItems(
      {{u"<Banner href='x.gif'><Entry><Ref href='x'/></Entry></Banner>"
        u"<Entry><Ref href='a'/></Entry>",
        {"a"}},
       {u"<Entry><Banner href='x.gif'><MoreInfo href='y'/><Title>X</Title><Ref href='x'/>"
        u"</Banner><Ref href='a'/></Entry>",
        {"a"}},
       {u"<Entry><Title>One<Banner>X</Banner></Title><Ref href='a'/></Entry>", {"a title=One"}},
       {u"<BANNER><Entry></BANNER ><Ref href='x'/><Entry><Ref href='a'/>", {"a"}}});
}

TEST(AsxItems, ABannerThatIsNotClosedHidesNothing) {
  ExpectItems(
      {{u"<Banner href='x.gif'/><Entry><Ref href='a'/></Entry></Banner>", {"a"}},
       {u"<Banner href=x.gif/><Entry><Ref href='a'/></Entry></Banner>", {"a"}},
       {u"<Banner href='x.gif'><Entry><Ref href='a'/></Entry>", {"a"}},
       {u"<Banner><Entry><Ref href='a'/></Entry></Asx></Banner>", {"a"}},
       {u"<Entry><Ref href='a'/><Banner></Entry><Entry><Banner>x</Banner><Ref href='b'/>",
        {"a", "b"}},
       {u"<Entry><Banner><Ref href='a'/></Entry><Entry><Ref href='b'/></Entry></Banner>",
        {"a", "b"}},
       {u"<Banner><Entry><Ref href='a'/></Entry><Banner><Ref href='x'/></Banner>", {"a"}},
       {u"<Entry><Ref href='a'/><Banner><Entry></Entry></Entry><Entry><Ref href='b'/></Banner>",
        {"a", "b"}}});
}

TEST(AsxItems, NulsAreNoPartOfWhatIsListed) {
  EXPECT_EQ(Asx(u"\0<Entry><Ref href='a.mp3\0x'/><Title>One\0X</Title><Ref href='\0'/>"sv),
            (Lines{"a.mp3 title=One"}));
}

/// What makes a careless scanner slow: each row would cost the square of its length.
TEST(AsxItems, HostileTextsAreReadInOneGo) {
  for (const StringView piece : {u"<!--", u"<Banner>", u"<Title>", u"<Entry>", u"<a b=\"",
                                 u"<a b='>", u"<Entry><Ref href=\"x>", u"&", u"&#", u"<", u"<a ",
                                 u"</", u"\"'", u"<!-->", u"<Banner></Entry>", u"<Param name="}) {
    String text = u"<Entry><Ref href='a'/><Title>";
    while (text.size() < (1u << 18)) text += piece;
    const std::vector<ListedItem> items = ListItems(text, ListSyntax::Asx);
    ASSERT_FALSE(items.empty()) << Utf8(piece);
    EXPECT_TEXT(items.front().references.front(), u"a") << Utf8(piece);
  }
}

TEST(AsxItems, LongListsAndLongLinesAreReadWhole) {
  String text;
  for (int i = 0; i < 40000; ++i) text += u"<Entry><Ref href=\"a.mp3\"/></Entry>";
  EXPECT_EQ(ListItems(text, ListSyntax::Asx).size(), 40000u);
  const String reference(1 << 20, u'x');
  const std::vector<ListedItem> items =
      ListItems(u"<Entry><Ref href=\"" + reference + u"\"/>", ListSyntax::Asx);
  ASSERT_EQ(items.size(), 1u);
  EXPECT_EQ(items.front().references.front(), reference);
}

}  // namespace
}  // namespace norvo
