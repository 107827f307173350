#include <algorithm>
#include <set>

#include "move/MoveFixture.h"
#include "move/PortableNames.h"

namespace norvo {
namespace {

/// Songs and playlists whose names Windows or the players do not take.
class PlannedNamesTest : public MoveTest {};

struct OddNames {
  const char* artist;
  const char* album;
  const char* place;
};

TEST_F(PlannedNamesTest, NoArtistOrAlbumLeadsOutOfItsFolder) {
  const OddNames rows[] = {{"..\\..\\x", "", "..-..-x"},
                           {"..", "..", "_/_"},
                           {".", "", "_"},
                           {"", "D:\\x", "D--x"},
                           {"C:\\x", "", "C--x"},
                           {"\\\\server\\share", "", "--server-share"},
                           {"C:\\My Documents\\Norvo Media\\", "", "C--My Documents-Norvo Media-"},
                           {"CON", "nul", "_CON/_nul"},
                           {"com1.x", "", "_com1.x"},
                           {"Trailing.", "Blank ", "Trailing/Blank"},
                           {"...", " ", "_"},
                           {"a/b\\c", "d:e*f?g\"h<i>j|k", "a-b-c/d-e_f_g'h(i)j-k"},
                           {"tab\there", "", "tab here"},
                           {"EXTINF", "EXTM3U", "EXT_INF/EXT_M3U"},
                           {"\xC9lan", "\xFC", "\xC3\x89lan/\xC3\xBC"}};
  References songs;
  Texts expected;
  for (const OddNames& row : rows) {
    const std::string name = "S" + std::to_string(songs.size()) + ".mp3";
    songs.push_back("C:\\Music\\" + name);
    AddSong(songs.back(), {"T", row.artist, row.album});
    expected.push_back(std::string(row.place) + '/' + name);
  }
  WriteOld(kMix, M3u(songs));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0) << moved.at("leftOut").dump(1);
  ExpectMoved("Mix", songs);
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), expected);
  // Nothing stands where it has no business.
  for (const std::string& file : NewFiles()) {
    EXPECT_TRUE(file.starts_with("C/My Documents/Norvo Media/") ||
                file.starts_with("C/My Documents/Norvo PlayLists/"))
        << file;
  }
}

TEST_F(PlannedNamesTest, NamesOutsideThe8BitPageAreKeptBesideTheNearestPlainOnes) {
  const References songs{"C:\\Music\\Příliš žluťoučký.mp3", "C:\\Music\\東京.mp3",
                         "C:\\Music\\Мир.mp3", "C:\\Music\\🎵.mp3"};
  for (const std::string& song : songs) AddSong(song);
  WriteOld(kMix, "\xEF\xBB\xBF" + M3u(songs));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  ExpectMoved("Mix", songs);
  EXPECT_EQ(PlaceOf(moved, songs[0]), kRoot + "Music\\Příliš žluťoučký.mp3");
  EXPECT_EQ(NewFilesIn(kRoot + "Music"),
            (Texts{"Príliš žlutoucký.mp3", "Příliš žluťoučký.mp3", "_.mp3", "__.mp3", "___.mp3",
                   "Мир.mp3", "東京.mp3", "🎵.mp3"}));
  EXPECT_EQ(moved.at("adjustments")[0].at("reasonCode"), "notInCodePage");
}

TEST_F(PlannedNamesTest, NamesThatNoWindowsPathMayHoldAreMoved) {
  // A disk of another system has such names.
  const References songs{R"(C:\Music\con.mp3)", R"(C:\Music\ lead.mp3)", R"(C:\Music\EXTINF.mp3)"};
  for (const std::string& song : songs) AddSong(song);
  WriteOld(kMix, M3u(songs));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", songs);
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), (Texts{"EXT_INF.mp3", "_con.mp3", "lead.mp3"}));
}

TEST_F(PlannedNamesTest, LongNamesAreCutUntilThePathIsShortEnough) {
  const std::string longName(200, 'n');
  const References songs{"C:\\Music\\" + longName + ".mp3", "C:\\Other\\" + longName + ".mp3",
                         R"(C:\Music\Short.mp3)"};
  for (const std::string& song : songs) AddSong(song);
  const auto entry = [&](const std::string& song, std::size_t artist, std::size_t album) {
    return AsxEntry(song, AsxParam("Artist", std::string(artist, 'a')) +
                              AsxParam("Album", std::string(album, 'b')));
  };
  WriteOld(R"(C:\Music\Mix.asx)",
           Asx(entry(songs[0], 30, 30) + entry(songs[1], 30, 30) + entry(songs[2], 250, 400)));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0) << moved.at("leftOut").dump(1);
  ExpectMoved("Mix", songs);
  for (const std::string& song : songs) {
    EXPECT_LE(PlaceOf(moved, song).size(), kLongestPath);
    EXPECT_TRUE(PlaceOf(moved, song).ends_with(".mp3"));
  }
  EXPECT_EQ(PlaceOf(moved, songs[0]).size(), kLongestPath);
  EXPECT_EQ(PlaceOf(moved, songs[2]),
            kRoot + "Music\\" + std::string(40, 'a') + '\\' + std::string(40, 'b') + "\\Short.mp3");
}

TEST_F(PlannedNamesTest, ANumberFindsRoomInAPathThatIsAsLongAsMayBe) {
  const std::string folder = kRoot + "Music\\";
  const std::string name = std::string(kLongestPath - folder.size() - 4, 'n') + ".mp3";
  const References songs{"C:\\A\\" + name, "C:\\B\\" + name};
  for (const std::string& song : songs) AddSong(song);
  WriteOld(kMix, M3u(songs));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0) << moved.at("leftOut").dump(1);
  ExpectMoved("Mix", songs);
  EXPECT_EQ(PlaceOf(moved, songs[0]), folder + name);
  EXPECT_EQ(PlaceOf(moved, songs[1]), folder + std::string(name.size() - 8, 'n') + " (2).mp3");
}

TEST_F(PlannedNamesTest, NativePlaylistsGetNamesThatWindowsTakes) {
  AddSong(R"(C:\Music\One.mp3)");
  const std::vector<std::pair<std::string, std::string>> names{
      {"con", "Playlist con"}, {"'LPT1'", "Playlist LPT1"},
      {"it's", "its"},         {"Mix [2003] & (more)", "Mix 2003 & more"},
      {"a_b", "a b"},          {"Сборник", "Сборник"},
      {"EXTINF", "EXT INF"},   {std::string(200, 'x'), std::string(173, 'x')},
      {"v1.2", "v1 2"}};
  for (const auto& [name, native] : names) {
    WriteOld("C:\\Music\\" + name + ".m3u", M3u({R"(C:\Music\One.mp3)"}));
  }
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0) << moved.at("leftOut").dump(1);
  for (const auto& [name, native] : names) ExpectMoved(native, {R"(C:\Music\One.mp3)"});
  for (const auto& row : moved.at("adjustments")) {
    EXPECT_EQ(row.at("key"), "OriginalFileName");
    EXPECT_EQ(row.at("entry"), 0);
    EXPECT_EQ(row.at("reasonCode"), "nameUnusable");
  }
  EXPECT_EQ(moved.at("adjustments").size(), 5u);
}

TEST_F(PlannedNamesTest, NamesOfNothingButPunctuationAreReplaced) {
  AddSong(R"(C:\Music\One.mp3)");
  for (const char* const name : {"!!!", "()[]", "___", ""}) {
    WriteOld("C:\\Music\\" + std::string(name) + ".m3u", M3u({R"(C:\Music\One.mp3)"}));
  }
  EXPECT_EQ(Moved().at("exitCode"), 0);
  for (const char* const name : {"", "1", "12", "123"}) {
    ExpectMoved(std::string("Playlist") + name, {R"(C:\Music\One.mp3)"});
  }
}

TEST_F(PlannedNamesTest, ManyPlaylistsOfOneNameAllFindAName) {
  constexpr int kCount = 130;  // with the numbers that pile up the last would be too long
  std::string longest;
  for (int i = 0; i < kCount; ++i) {
    const std::string folder = "C:\\Album " + std::to_string(1000 + i) + "\\";
    AddSong(folder + "Song.mp3");
    WriteOld(folder + "playlist.m3u", M3u({"Song.mp3"}));
  }
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0) << moved.at("leftOut").dump(1);
  std::set<std::string> natives;
  for (const auto& playlist : moved.at("playlists")) {
    ASSERT_EQ(playlist.at("natives").size(), 4u);
    for (const std::string native : playlist.at("natives")) {
      EXPECT_TRUE(natives.insert(native).second) << native;
      const References references = ReferencesIn(native);
      ASSERT_EQ(references.size(), 1u);
      const std::string path = playlist.at("path");
      ExpectLeadsTo(references[0], path.substr(0, path.rfind('\\')) + "\\Song.mp3");
    }
  }
  EXPECT_EQ(natives.size(), 4u * kCount);
  ExpectMoved("playlist 130", {R"(C:\Album 1129\Song.mp3)"});
  EXPECT_EQ(RecordOf(moved.at("adjustments"), "after", "playlist 11.m3u").at("reasonCode"),
            "manyOfOneName");
}

}  // namespace
}  // namespace norvo
