#include "lists/ITunesLists.h"

#include "lists/ListedText.h"

namespace norvo {
namespace {

Lines ITunes(StringView text) {
  return Listed(ReadLists(text, ListSyntax::ITunes));
}

constexpr StringView kStart =
    u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n<!DOCTYPE plist PUBLIC \"-//Apple "
    u"Computer//DTD "
    u"PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\r\n"
    u"<plist version=\"1.0\">\r\n<dict>\r\n\t<key>Major Version</key><integer>1</integer>\r\n"
    u"\t<key>Music Folder</key><string>file://localhost/C:/Music/</string>\r\n"
    u"\t<key>Tracks</key>\r\n\t<dict>\r\n"
    u"\t\t<key>36</key>\r\n\t\t<dict>\r\n\t\t\t<key>Track ID</key><integer>36</integer>\r\n"
    u"\t\t\t<key>Name</key><string>One &#38; Two</string>\r\n"
    u"\t\t\t<key>Artist</key><string>Björk</string>\r\n"
    u"\t\t\t<key>Album</key><string>Homogenic</string>\r\n"
    u"\t\t\t<key>Genre</key><string>Pop</string>\r\n"
    u"\t\t\t<key>Total Time</key><integer>215500</integer>\r\n"
    u"\t\t\t<key>Track Number</key><integer>3</integer>\r\n"
    u"\t\t\t<key>Location</key><string>file://localhost/C:/Music/Bj%C3%B6rk/A%20B.mp3</string>\r\n"
    u"\t\t</dict>\r\n"
    u"\t\t<key>38</key>\r\n\t\t<dict><key>Location</key><string>b.mp3</string></dict>\r\n"
    u"\t\t<key>40</key>\r\n\t\t<dict><key>Name</key><string>Four</string>"
    u"<key>Artist</key><string>Dan</string></dict>\r\n"
    u"\t\t<key>42</key>\r\n\t\t<dict><key>Year</key><integer>1999</integer></dict>\r\n"
    u"\t</dict>\r\n\t<key>Playlists</key>\r\n\t<array>\r\n";
constexpr StringView kEnd = u"\t</array>\r\n</dict>\r\n</plist>\r\n";

/// A list of the tracks of these numbers, with further keys.
String List(StringView name, StringView keys, const std::vector<StringView>& tracks) {
  String list = u"<dict>\r\n<key>Name</key><string>" + String(name) + u"</string>" + String(keys) +
                u"\r\n<key>Playlist Items</key>\r\n<array>\r\n";
  for (const StringView track : tracks) {
    list +=
        u"<dict>\r\n<key>Track ID</key><integer>" + String(track) + u"</integer>\r\n</dict>\r\n";
  }
  return list + u"</array>\r\n</dict>\r\n";
}

Lines Lists(StringView lists) {
  return ITunes(String(kStart) + String(lists) + String(kEnd));
}

constexpr const char* kFirst =
    "file://localhost/C:/Music/Bj%C3%B6rk/A%20B.mp3 title=One & Two artist=Björk "
    "album=Homogenic genre=Pop track=3 length=215.5";

TEST(ITunesLists, EachListHasItsTracksInItsOrder) {
  EXPECT_EQ(Lists(List(u"Party &amp; more", u"<key>Playlist ID</key><integer>1</integer>",
                       {u"38", u"36", u"38"}) +
                  List(u"Other", u"", {u"36"})),
            (Lines{"[Party & more]", "b.mp3", kFirst, "b.mp3", "[Other]", kFirst}));
}

TEST(ITunesLists, ListsWithoutTracksAndWithTheSameNameStay) {
  EXPECT_EQ(Lists(List(u"Mix", u"", {}) + List(u"Mix", u"", {u"38"}) +
                  u"<dict><key>Name</key><string>None</string></dict>"),
            (Lines{"[Mix]", "[Mix]", "b.mp3", "[None]"}));
}

TEST(ITunesLists, ListsThatITunesKeepsForItselfAreLeftOut) {
  for (const StringView key : {u"Master", u"Folder", u"Music", u"Movies", u"TV Shows", u"Podcasts",
                               u"Audiobooks", u"Purchased Music", u"Party Shuffle"}) {
    const String mark = u"<key>" + String(key) + u"</key>";
    EXPECT_EQ(Lists(List(u"Own", mark + u"<true/>", {u"36"})), Lines{}) << Utf8(key);
    EXPECT_EQ(Lists(List(u"Mine", mark + u"<false/>", {u"38"})), (Lines{"[Mine]", "b.mp3"}));
  }
  EXPECT_EQ(Lists(List(u"Own", u"<key>Distinguished Kind</key><integer>4</integer>", {u"36"})),
            Lines{});
}

TEST(ITunesLists, SmartListsOfAPersonStay) {
  EXPECT_EQ(Lists(List(u"Loved", u"<key>Smart Info</key><data>\r\nAQE\r\n</data>", {u"38"})),
            (Lines{"[Loved]", "b.mp3"}));
}

TEST(ITunesLists, ATrackWithoutALocationIsToldByItsNames) {
  EXPECT_EQ(Lists(List(u"Mix", u"", {u"40", u"42", u"99"})),
            (Lines{"[Mix]", "Dan - Four title=Four artist=Dan"}));
}

TEST(ITunesLists, ALibraryThatIsCutOffIsReadAsFarAsItGoes) {
  EXPECT_EQ(
      ITunes(String(kStart) + List(u"Mix", u"", {u"38"}) +
             u"<dict><key>Name</key><string>Cut</string><key>Playlist Items</key><array><dict>"
             u"<key>Track ID</key><integer>38</integer></dict><dict><key>Tra"),
      (Lines{"[Mix]", "b.mp3", "[Cut]", "b.mp3"}));
  EXPECT_EQ(ITunes(kStart), Lines{});
  EXPECT_EQ(ITunes(u""), Lines{});
}

TEST(ITunesLists, HowManyItemsAListMayHaveIsCountedForEachOfThem) {
  const String text =
      String(kStart) + List(u"A", u"", {u"38", u"38"}) + List(u"B", u"", {u"38", u"38", u"38"});
  const std::vector<ListedList> lists = ReadLists(text, ListSyntax::ITunes, 2);
  ASSERT_EQ(lists.size(), 2u);
  EXPECT_EQ(lists[0].items.size(), 2u);
  EXPECT_FALSE(lists[0].isCut);
  EXPECT_EQ(lists[1].items.size(), 2u);
  EXPECT_TRUE(lists[1].isCut);
}

TEST(ITunesLists, ListsMayStandBeforeTheTracks) {
  EXPECT_EQ(ITunes(u"<plist><dict><key>Playlists</key><array>" + List(u"Mix", u"", {u"2", u"1"}) +
                   u"</array><key>Tracks</key><dict>"
                   u"<key>1</key><dict><key>Location</key><string>a.mp3</string></dict>"
                   u"<key>2</key><dict><key>Location</key><string>b.mp3</string></dict>"
                   u"</dict></dict></plist>"),
            (Lines{"[Mix]", "b.mp3", "a.mp3"}));
}

TEST(ITunesLists, ATrackOfSeveralListsIsInMemoryOnce) {
  const std::vector<ListedList> lists =
      ReadLists(String(kStart) + List(u"A", u"", {u"36", u"38"}) + List(u"B", u"", {u"38"}),
                ListSyntax::ITunes);
  ASSERT_EQ(lists.size(), 2u);
  EXPECT_EQ(&lists[0].items[1], &lists[1].items[0]);
}

TEST(ITunesLists, ALibraryOfMoreItemsThanAnybodyHasIsCut) {
  const String items = List(u"A", u"", std::vector<StringView>(50'000, u"1"));
  String text =
      u"<plist><dict><key>Tracks</key><dict><key>1</key><dict><key>Name</key>"
      u"<string>a</string></dict></dict><key>Playlists</key><array>";
  for (int i = 0; i < 10; ++i) text += items;
  const std::vector<ListedList> lists =
      ITunesLists(text + List(u"B", u"", {u"1"}), kMostListedItems);
  EXPECT_TRUE(lists.back().isCut);
  EXPECT_FALSE(lists[lists.size() - 2].isCut);
}

TEST(ITunesLists, ALibraryOfMoreTrackTextsThanAnybodyHasIsCut) {
  String text = u"<plist><dict><key>Tracks</key><dict>";
  std::vector<StringView> ids = {u"1", u"2", u"3", u"4", u"5", u"6"};
  for (const StringView id : ids) {
    text += u"<key>" + String(id) + u"</key><dict><key>Name</key><string>" +
            String(4'000'000 - 100, u'x') + u"</string></dict>";
  }
  text += u"</dict><key>Playlists</key><array>" + List(u"A", u"", ids);
  EXPECT_TRUE(ITunesLists(text, kMostListedItems).front().isCut);
}

TEST(ITunesLists, ALibraryMadeToFillTheMemoryDoesNot) {
  constexpr std::size_t kLong = 100000;
  String text =
      u"<plist><dict><key>Tracks</key><dict><key>1</key><dict><key>Location</key><string>" +
      String(kLong, u'x') +
      u"</string></dict></dict><key>Playlists</key><array><dict>"
      u"<key>Playlist Items</key><array>";
  for (int i = 0; i < 10000; ++i) {
    text += u"<dict><key>Track ID</key><integer>1</integer></dict>";
  }
  const std::vector<ListedList> lists = ITunesLists(text, kMostListedItems);
  ASSERT_EQ(lists.size(), 1u);
  EXPECT_TRUE(lists.front().isCut);
  EXPECT_GT(lists.front().items.size(), 10u);
  EXPECT_LE(lists.front().items.size() * kLong, text.size() * 16);
}

}  // namespace
}  // namespace norvo
