#include "lists/ListedFile.h"

#include <random>

#include "automation/RunTimeError.h"
#include "lists/ListedText.h"
#include "services/TextStream.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

using namespace std::string_literals;

std::optional<ListedFile> Read(StringView fileName, std::string_view bytes) {
  return ReadListFile(fileName, std::string(bytes), Windows1252());
}

TEST(ListedFile, EveryKindThatIsReadTellsItsLists) {
  struct Row {
    StringView fileName;
    std::string bytes;
    ListSyntax syntax;
    Lines lists;
  };
  const std::string asx = "<asx><title>Mix</title><entry><ref href='a.mp3'/></entry></asx>";
  const std::string smil = "<smil><title>Mix</title><media src='a.mp3'/></smil>";
  const Row rows[] = {
      {u"a.m3u",
       "#EXTM3U\r\n#EXTINF:3,One\r\na.mp3",
       ListSyntax::M3u,
       {"[]", "a.mp3 title=One length=3"}},
      {u"a.m3u8",
       "Gr\xC3\xB6\xC3\x9F"
       "e.mp3",
       ListSyntax::M3u,
       {"[]", "Größe.mp3"}},
      {u"a.pls", "[playlist]\nFile1=a.mp3", ListSyntax::Pls, {"[]", "a.mp3"}},
      {u"a.asx", asx, ListSyntax::Asx, {"[Mix]", "a.mp3"}},
      {u"a.wax", asx, ListSyntax::Asx, {"[Mix]", "a.mp3"}},
      {u"a.wvx", asx, ListSyntax::Asx, {"[Mix]", "a.mp3"}},
      {u"a.wpl", "<?wpl version=\"1.0\"?>" + smil, ListSyntax::Wpl, {"[Mix]", "a.mp3"}},
      {u"a.zpl", "<?zpl version=\"2.0\"?>" + smil, ListSyntax::Wpl, {"[Mix]", "a.mp3"}},
      {u"a.xspf",
       "<playlist><title>Mix</title><trackList><track><location>a.mp3</location></track></"
       "trackList>"
       "</playlist>",
       ListSyntax::Xspf,
       {"[Mix]", "a.mp3"}},
      {u"a.b4s",
       "<WinampXML><playlist label='Mix'><entry Playstring='a.mp3'/></playlist></WinampXML>",
       ListSyntax::B4s,
       {"[Mix]", "a.mp3"}},
      {u"C:\\iTunes Library.xml",
       "<plist><dict><key>Tracks</key><dict><key>1</key><dict><key>Location</key>"
       "<string>a.mp3</string></dict></dict><key>Playlists</key><array><dict><key>Name</key>"
       "<string>Mix</string><key>Playlist Items</key><array><dict><key>Track ID</key>"
       "<integer>1</integer></dict></array></dict></array></dict></plist>",
       ListSyntax::ITunes,
       {"[Mix]", "a.mp3"}},
  };
  for (const Row& row : rows) {
    const std::optional<ListedFile> file = Read(row.fileName, row.bytes);
    ASSERT_TRUE(file) << Utf8(row.fileName);
    EXPECT_EQ(file->syntax, row.syntax) << Utf8(row.fileName);
    EXPECT_EQ(Listed(file->lists), row.lists) << Utf8(row.fileName);
    // The same under the name of any other list that is read, as far as it says so itself.
    if (row.fileName == u"a.m3u8") continue;
    for (const Row& other : rows) {
      const std::optional<ListedFile> same = Read(other.fileName, row.bytes);
      ASSERT_TRUE(same) << Utf8(row.fileName) << " as " << Utf8(other.fileName);
      EXPECT_EQ(Listed(same->lists), row.lists)
          << Utf8(row.fileName) << " as " << Utf8(other.fileName);
    }
  }
}

TEST(ListedFile, KindsThatAreNotReadAndOtherFilesGiveNothing) {
  for (const StringView name : {u"a.kpl", u"a.fpl", u"a.mpcpl", u"a.pla", u"a.txt", u"a", u""}) {
    EXPECT_FALSE(Read(name, "C:\\Music\\a.mp3\r\n")) << Utf8(name);
    EXPECT_TRUE(Read(name, "#EXTM3U\r\nC:\\Music\\a.mp3\r\n")) << Utf8(name);
  }
}

TEST(ListedFile, AnM3uWithDirectivesHasTitles) {
  EXPECT_TRUE(Read(u"a.m3u", "a.mp3\r #EXTINF:1,x\r")->hasTitles);
  EXPECT_TRUE(Read(u"a.txt", "#EXTM3U")->hasTitles);
  EXPECT_FALSE(Read(u"a.m3u", "a.mp3\n#comment\nx #EXTINF:1,x")->hasTitles);
  EXPECT_FALSE(Read(u"a.pls", "[playlist]\nFile1=a\n#EXTINF:1,x")->hasTitles);
}

TEST(ListedFile, EmptyFilesHaveAListWithoutItems) {
  for (const StringView name : {u"a.m3u", u"a.pls", u"a.asx", u"a.wpl", u"a.xspf", u"a.b4s"}) {
    for (const std::string& bytes : {""s, "\0\0"s, "\xEF\xBB\xBF"s, "\xFF\xFE"s, "\r\n"s}) {
      EXPECT_EQ(Listed(Read(name, bytes)->lists), Lines{"[]"}) << Utf8(name);
    }
  }
  EXPECT_EQ(Listed(Read(u"iTunes Library.xml", "")->lists), Lines{});
}

TEST(ListedFile, NoMoreItemsAreReadThanAreAskedFor) {
  EXPECT_EQ(ReadListFile(u"a.m3u", "a\nb\nc", Windows1252(), 2)->lists.front().items.size(), 2u);
}

TEST(ListedFile, AllListsAreReadInUnicode) {
  const String text = u"#EXTM3U\r\n#EXTINF:3,Ан - Оне\r\nC:\\Музыка\\日本 🎵.mp3\r\n";
  for (const FileEncoding encoding :
       {FileEncoding::Utf8, FileEncoding::Utf16LittleEndian, FileEncoding::Utf16BigEndian}) {
    EXPECT_EQ(Listed(Read(u"a.m3u", EncodeFile(text, encoding, Windows1252()))->lists),
              (Lines{"[]", "C:\\Музыка\\日本 🎵.mp3 title=Оне artist=Ан length=3"}));
  }
}

TEST(ListedFile, AnyBytesAreRead) {
  constexpr StringView kNames[] = {u"a.m3u", u"a.pls",  u"a.asx", u"a.wpl",
                                   u"a.b4s", u"a.xspf", u"a.txt", u"iTunes Library.xml"};
  std::mt19937 random(20030514);
  for (int i = 0; i < 5000; ++i) {
    std::string bytes(random() % 64, '\0');
    for (char& byte : bytes)
      byte =
          "<>/=\"'#[]&;! \0\r\n\xC3\xA4\xFF\xFE"
          "aA1?"[random() % 24];
    for (const StringView name : kNames) {
      const std::optional<ListedFile> file = Read(name, bytes);
      if (!file) continue;
      for (const ListedList& list : file->lists) {
        for (const ListedItem& item : list.items) {
          ASSERT_FALSE(item.references.empty());
          ASSERT_FALSE(item.references.front().empty());
        }
      }
    }
  }
}

/// Why a file is refused; empty when it is not.
std::string Refusal(StringView fileName, const std::string& bytes) {
  try {
    Read(fileName, bytes);
    return {};
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.Number(), error::kOutOfMemory);
    return Utf8(failure.Description());
  }
}

TEST(ListedFile, OfMoreBytesThanAnyListIsRefusedAndALibraryMayHaveMore) {
  // Blank lines about as long as lines may be: so many empty ones would take their time.
  std::string most(kLargestPlaylist, ' ');
  for (std::size_t end = 0; end < most.size(); end += 4'000'000) most[end] = '\n';
  EXPECT_EQ(Refusal(u"a.m3u", most), "");
  for (const StringView name : {u"a.m3u", u"a.pls", u"a.asx", u"a.wpl", u"a.xspf", u"a.b4s"}) {
    EXPECT_EQ(Refusal(name, most + '\n'), "File larger than 40 MB") << Utf8(name);
  }
  EXPECT_EQ(Refusal(u"iTunes Library.xml", most + '\n'), "");
  const std::string library = "<plist><dict><key>Major Version</key><integer>1</integer>";
  EXPECT_EQ(Refusal(u"other.xml", library + most), "");
}

TEST(ListedFile, OfMoreTagsThanAnyListIsRefused) {
  constexpr std::size_t kMost = 800'000;
  std::string list = "<smil>";
  for (std::size_t i = 1; i < kMost; ++i) list += "<a/>";
  EXPECT_EQ(Refusal(u"a.wpl", list + "</smil>"), "");
  EXPECT_EQ(Refusal(u"a.wpl", list + "<a/></smil>"), "it has more than 800000 tags");
  for (std::size_t i = 0; i < kMost; ++i) list += "</a>";
  EXPECT_EQ(Refusal(u"a.wpl", list + "</smil>"), "it has more than 800000 tags");
}

TEST(ListedFile, OfMoreTextsThanAnyListIsRefused) {
  std::string most;
  for (int i = 0; i < 20; ++i) most += std::string(1'000'000, 'x') + '\n';
  EXPECT_EQ(Refusal(u"a.m3u", most), "");
  EXPECT_EQ(Refusal(u"a.m3u", most + 'x'),
            "its titles and paths have more than 20000000 characters");
  EXPECT_EQ(Refusal(u"a.m3u", most + "#EXTINF:1,x\n"), "");
  EXPECT_EQ(Refusal(u"a.m3u", "#EXTINF:1,x\n" + most),
            "its titles and paths have more than 20000000 characters");
}

TEST(ListedFile, OfALongerPieceThanAnyListIsRefused) {
  const std::string most(4'194'304, 'x');
  const std::string reason = "it has a line of more than 4194304 characters";
  EXPECT_EQ(Refusal(u"a.m3u", most + "\n" + most + "\r" + most), "");
  EXPECT_EQ(Refusal(u"a.m3u", most + "x"), reason);
  const std::string start = "<Asx><Entry><Ref href=a><Title ";
  EXPECT_EQ(Refusal(u"a.asx", start + most.substr(6) + "</Title></Entry></Asx>"), "");
  EXPECT_EQ(Refusal(u"a.asx", start + most.substr(5) + "</Title></Entry></Asx>"), reason);
}

TEST(ListedFile, ALibraryOfMoreListsThanAnybodyHasIsRefused) {
  std::string text = "<plist><dict><key>Tracks</key><dict></dict><key>Playlists</key><array>";
  for (std::size_t i = 0; i < kMostLists; ++i) text += "<dict></dict>";
  const std::string end = "</array></dict></plist>";
  const std::optional<ListedFile> most = Read(u"iTunes Library.xml", text + end);
  ASSERT_TRUE(most);
  EXPECT_EQ(most->lists.size(), kMostLists);
  EXPECT_EQ(Refusal(u"iTunes Library.xml", text + "<dict></dict>" + end),
            "it has more than 10000 lists");
}

}  // namespace
}  // namespace norvo
