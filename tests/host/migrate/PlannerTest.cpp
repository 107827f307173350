#include <set>

#include "host/migrate/MoveFixture.h"
#include "host/migrate/PortableNames.h"

namespace norvo::host {
namespace {

using Texts = std::vector<std::string>;

/// Where the songs go, and what the carried neutral files are made to say.
class PlannerTest : public MoveTest {
 protected:
  static constexpr const char* kMix = R"(C:\Music\Mix.m3u)";

  /// One song with a tag, in a playlist of its own; gives the song's path.
  std::string AddMix(const std::string& name, const Tag& tag = {}) const {
    const std::string path = "C:\\Music\\" + name;
    tag.Bytes() == Tag().Bytes() ? AddSong(path) : AddSong(path, tag);
    WriteOld(kMix, M3u({path}));
    return path;
  }
  std::string Carried(const std::string& name) const {
    return ReadFile(NewPlace("C:\\My Documents\\Norvo PlayLists\\" + name));
  }
  std::string Collected(const std::string& name) const {
    return ReadFile(OldPlace(kRoot + "KVs\\" + name));
  }
  /// The neutral file of the old machine with one text instead of another, which is there once.
  std::string CollectedWith(const std::string& name, const std::string& before,
                            const std::string& after) const {
    std::string bytes = Collected(name);
    const std::size_t at = bytes.find(before);
    EXPECT_NE(at, std::string::npos) << before;
    EXPECT_EQ(bytes.find(before, at + 1), std::string::npos) << before;
    return bytes.replace(at, before.size(), after);
  }
};

TEST_F(PlannerTest, ThePlaceIsTheOneThatTheEntryComputes) {
  AddSong(R"(C:\Music\Both.mp3)", {"T", "Ann", "Best"});
  AddSong(R"(C:\Music\Artist.mp3)", {"T", "Ann", ""});
  AddSong(R"(C:\Music\Album.mp3)", {"T", "", "Best"});
  AddSong(R"(C:\Music\None.mp3)");
  WriteOld(kMix, M3u({R"(C:\Music\Both.mp3)", R"(C:\Music\Artist.mp3)", R"(C:\Music\Album.mp3)",
                      R"(C:\Music\None.mp3)"}));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(PlaceOf(moved, R"(C:\Music\Both.mp3)"), kRoot + R"(Music\Ann\Best\Both.mp3)");
  EXPECT_EQ(PlaceOf(moved, R"(C:\Music\Artist.mp3)"), kRoot + R"(Music\Ann\Artist.mp3)");
  EXPECT_EQ(PlaceOf(moved, R"(C:\Music\Album.mp3)"), kRoot + R"(Music\Best\Album.mp3)");
  EXPECT_EQ(PlaceOf(moved, R"(C:\Music\None.mp3)"), kRoot + R"(Music\None.mp3)");
  EXPECT_EQ(AdjustmentsOf(moved), Texts());
}

TEST_F(PlannerTest, TheNewMachinesOwnSubNamesAreAsked) {
  AddMix("One.mp3", {"T", "Ann", "Best"});
  RunHost({"init", "--machine", New()});  // no machine yet
  fs::create_directories(NewPlace("C:\\"));
  RunHost({"init", "--machine", New(), "--role", "destination", "--group-root", R"(C:\Songs\)"});
  WriteNew(R"(C:\Songs\SubNames.txt)",
           "[PlayListStrings]\r\nSzID001=Complete\\Here\r\nszID005=Lists\r\n");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(PlaceOf(moved, R"(C:\Music\One.mp3)"), R"(C:\Songs\Complete\Here\Ann\Best\One.mp3)");
  EXPECT_EQ(ReferencesIn(R"(C:\Songs\Lists\WinAmp\Mix.m3u)"),
            References{R"(C:\Songs\Complete\Here\Ann\Best\One.mp3)"});
}

TEST_F(PlannerTest, TwoFilesThatWantOnePlaceGetTwo) {
  for (const char* const folder : {"A", "B", "C"}) {
    AddSong(std::string("C:\\") + folder + "\\One.mp3", {"T", "Ann", "Best"});
  }
  const References songs{R"(C:\A\One.mp3)", R"(C:\B\One.mp3)", R"(C:\C\One.mp3)"};
  WriteOld(kMix, M3u(songs));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  ExpectMoved("Mix", songs);
  EXPECT_EQ(NewFilesIn(kRoot + "Music"),
            (Texts{"Ann/Best/One (2).mp3", "Ann/Best/One (3).mp3", "Ann/Best/One.mp3"}));
  EXPECT_EQ(AdjustmentsOf(moved),
            (Texts{"2 FileName: One.mp3 -> One (2).mp3", "3 FileName: One.mp3 -> One (3).mp3"}));
  EXPECT_EQ(moved.at("adjustments")[0].at("reason"), "another song has this place");
  EXPECT_EQ(moved.at("adjustments")[0].at("neutralFile"),
            R"(C:\My Documents\Norvo PlayLists\Mix.ini)");
}

TEST_F(PlannerTest, NamesThatDifferInCaseAloneAreOnePlace) {
  AddSong(R"(C:\A\one.mp3)");
  AddSong(R"(C:\B\ONE.MP3)");
  AddSong(R"(C:\A\ärger.mp3)");
  AddSong(R"(C:\B\ÄRGER.mp3)");
  const References songs{R"(C:\A\one.mp3)", R"(C:\B\ONE.MP3)", R"(C:\A\ärger.mp3)",
                         R"(C:\B\ÄRGER.mp3)"};
  WriteOld(kMix, "\xEF\xBB\xBF" + M3u(songs));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", songs);
  EXPECT_EQ(NewFilesIn(kRoot + "Music"),
            (Texts{"ONE (2).MP3", "one.mp3", "ÄRGER (2).mp3", "ärger.mp3"}));
}

TEST_F(PlannerTest, FilesOfTheSameContentKeepTheirOwnPlaces) {
  WriteOld(R"(C:\A\One.mp3)", "the same");
  WriteOld(R"(C:\B\One.mp3)", "the same");
  WriteOld(kMix, M3u({R"(C:\A\One.mp3)", R"(C:\B\One.mp3)"}));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), (Texts{"One (2).mp3", "One.mp3"}));
}

TEST_F(PlannerTest, AManyTimesTakenNameIsNumberedOn) {
  References songs;
  for (int i = 0; i < 30; ++i) {
    songs.push_back("C:\\F" + std::to_string(i) + "\\One.mp3");
    AddSong(songs.back());
  }
  WriteOld(kMix, M3u(songs));
  WriteNew(kRoot + R"(Music\One (7).mp3)", "another song");
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", songs);
  EXPECT_EQ(NewFilesIn(kRoot + "Music").size(), 31u);
  EXPECT_TRUE(fs::exists(NewPlace(kRoot + R"(Music\One (31).mp3)")));
  EXPECT_EQ(ReadFile(NewPlace(kRoot + R"(Music\One (7).mp3)")), "another song");
}

TEST_F(PlannerTest, OneFileOfSeveralArtistsHasThePlaceOfMostEntries) {
  AddSong(R"(C:\Music\One.mp3)");
  const std::string song = "\r\nC:\\Music\\One.mp3\r\n";
  WriteOld(R"(C:\Music\A.m3u)", "#EXTM3U\r\n#EXTINF:1,Ann - One" + song);
  WriteOld(R"(C:\Music\B.m3u)", "#EXTM3U\r\n#EXTINF:1,Bob - One" + song);
  WriteOld(R"(C:\Music\C.m3u)", "#EXTM3U\r\n#EXTINF:1,Bob - One" + song);
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), Texts{"Bob/One.mp3"});
  for (const char* const name : {"A", "B", "C"}) ExpectMoved(name, {R"(C:\Music\One.mp3)"});
  EXPECT_EQ(AdjustmentsOf(moved), Texts{"1 Artist: Ann -> Bob"});
  EXPECT_EQ(moved.at("adjustments")[0].at("reason"), "the song has its one place elsewhere");
}

TEST_F(PlannerTest, AmongEqualVotesTheFirstWins) {
  AddSong(R"(C:\Music\One.mp3)");
  WriteOld(kMix,
           "#EXTM3U\r\n#EXTINF:1,Ann - One\r\nC:\\Music\\One.mp3\r\n"
           "#EXTINF:1,Bob - One\r\nC:\\Music\\One.mp3\r\n");
  EXPECT_EQ(Moved().at("exitCode"), 0);
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), Texts{"Ann/One.mp3"});
}

TEST_F(PlannerTest, AnIllegalVoteLosesAgainstALegalOne) {
  AddSong(R"(C:\Music\One.mp3)");
  const std::string song = "\r\nC:\\Music\\One.mp3\r\n";
  WriteOld(kMix, "#EXTM3U\r\n#EXTINF:1,A/B - One" + song + "#EXTINF:1,A/B - One" + song +
                     "#EXTINF:1,Ann - One" + song);
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), Texts{"Ann/One.mp3"});
  EXPECT_EQ(AdjustmentsOf(moved), (Texts{"1 Artist: A/B -> Ann", "2 Artist: A/B -> Ann"}));
}

TEST_F(PlannerTest, OnlyTheFileNameChangesAndAllElseStaysByteForByte) {
  AddSong(R"(C:\A\One.mp3)", {"First", "Ann", "Best"});
  AddSong(R"(C:\B\One.mp3)", {"Second", "Ann", "Best"});
  WriteOld(kMix, M3u({R"(C:\A\One.mp3)", R"(C:\B\One.mp3)", "http://example.com/"}));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  // The entry's section ends with its address.
  const std::string tail = "\r\nFileSize=";
  std::string expected = Collected("Mix.ini");
  const std::size_t second = expected.find("[Entry 2 Properties]");
  const std::size_t name = expected.find("FileName=One.mp3" + tail, second);
  ASSERT_NE(name, std::string::npos) << expected;
  expected.replace(name, 16, "FileName=One (2).mp3");
  EXPECT_EQ(Carried("Mix.ini"), expected);
}

TEST_F(PlannerTest, WhereTheArtistIsInTheWayOnlyThatChanges) {
  AddMix("One.mp3", {"T", "AC/DC", "Best"});
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(AdjustmentsOf(moved), Texts{"1 Artist: AC/DC -> AC-DC"});
  EXPECT_EQ(moved.at("adjustments")[0].at("reason"), "no path on Windows may be called so");
  EXPECT_EQ(Carried("Mix.ini"), CollectedWith("Mix.ini", "Artist=AC/DC", "Artist=AC-DC"));
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), Texts{"AC-DC/Best/One.mp3"});
}

TEST_F(PlannerTest, TitlesAndAddressesOfTheCarriedFileAreThoseOfTheOldMachine) {
  AddMix("One.mp3", {"A title / with: all?", "..\\x", "CON"});
  EXPECT_EQ(Moved().at("exitCode"), 0);
  const std::string carried = Carried("Mix.ini");
  EXPECT_TRUE(Holds(carried, "SongName=A title / with: all?\r\n")) << carried;
  EXPECT_TRUE(Holds(carried, "SourceURL=C:\\Music\\One.mp3\r\n")) << carried;
}

struct OddNames {
  const char* artist;
  const char* album;
  const char* place;
};

TEST_F(PlannerTest, NoArtistOrAlbumLeadsOutOfItsFolder) {
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
                           {"tab\there", "", "tab_here"},
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

TEST_F(PlannerTest, NamesOutsideThe8BitPageGetTheNearestOnes) {
  const References songs{"C:\\Music\\Příliš žluťoučký.mp3", "C:\\Music\\東京.mp3",
                         "C:\\Music\\Мир.mp3", "C:\\Music\\🎵.mp3"};
  for (const std::string& song : songs) AddSong(song);
  WriteOld(kMix, "\xEF\xBB\xBF" + M3u(songs));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  ExpectMoved("Mix", songs);
  EXPECT_EQ(PlaceOf(moved, songs[0]), kRoot + "Music\\Príliš žlutoucký.mp3");
  EXPECT_EQ(NewFilesIn(kRoot + "Music").size(), 4u);
  EXPECT_EQ(moved.at("adjustments")[0].at("reason"),
            "playlists cannot tell this path: it does not fit the 8-bit page");
}

TEST_F(PlannerTest, NamesThatNoWindowsPathMayHoldAreMoved) {
  // A disk of another system has such names.
  const References songs{R"(C:\Music\con.mp3)", R"(C:\Music\ lead.mp3)", R"(C:\Music\EXTINF.mp3)"};
  for (const std::string& song : songs) AddSong(song);
  WriteOld(kMix, M3u(songs));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", songs);
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), (Texts{"EXT_INF.mp3", "_con.mp3", "lead.mp3"}));
}

TEST_F(PlannerTest, LongNamesAreCutUntilThePathIsShortEnough) {
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

TEST_F(PlannerTest, AFileOfAnotherContentAtThePlaceStays) {
  const std::string song = AddMix("One.mp3");
  const fs::path there = NewPlace(kRoot + R"(Music\One.mp3)");
  WriteFile(there, "of the user");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(ReadFile(there), "of the user");
  ExpectMoved("Mix", {song});
  EXPECT_EQ(AdjustmentsOf(moved), Texts{"1 FileName: One.mp3 -> One (2).mp3"});
  EXPECT_EQ(moved.at("adjustments")[0].at("reason"), "another file has this place");
  EXPECT_EQ(moved.at("media")[0].at("outcome"), "copied");
}

TEST_F(PlannerTest, AFileOfTheSameSizeAndAnotherContentStaysToo) {
  const std::string song = AddMix("One.mp3");
  std::string other = ReadFile(OldPlace(song));
  other.back() = '!';
  WriteNew(kRoot + R"(Music\One.mp3)", other);
  EXPECT_EQ(Moved().at("exitCode"), 0);
  EXPECT_EQ(ReadFile(NewPlace(kRoot + R"(Music\One.mp3)")), other);
  ExpectMoved("Mix", {song});
}

TEST_F(PlannerTest, TheSameFileAtThePlaceIsNotCopiedAgain) {
  const std::string song = AddMix("One.mp3");
  const fs::path there = NewPlace(kRoot + R"(Music\ONE.mp3)");  // in another case
  WriteFile(there, ReadFile(OldPlace(song)));
  const auto time = fs::last_write_time(there) - std::chrono::hours(1);
  fs::last_write_time(there, time);
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("media")[0].at("outcome"), "alreadyThere");
  EXPECT_EQ(fs::last_write_time(there), time);
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), Texts{"ONE.mp3"});
  EXPECT_EQ(AdjustmentsOf(moved), Texts());
}

TEST_F(PlannerTest, AFolderAtThePlaceIsGivenWay) {
  const std::string song = AddMix("One.mp3");
  WriteNew(kRoot + R"(Music\One.mp3\inside.txt)", "of the user");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  ExpectMoved("Mix", {song});
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), (Texts{"One (2).mp3", "One.mp3/inside.txt"}));
  EXPECT_EQ(moved.at("adjustments")[0].at("reason"), "a folder has this name");
}

TEST_F(PlannerTest, AFileWhereAFolderIsNeededIsGivenWay) {
  const std::string song = AddMix("One.mp3", {"T", "Ann", "Best"});
  WriteNew(kRoot + R"(Music\Ann)", "of the user");
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", {song});
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), (Texts{"Ann", "Ann (2)/Best (2)/One.mp3"}));
  EXPECT_EQ(ReadFile(NewPlace(kRoot + R"(Music\Ann)")), "of the user");
}

TEST_F(PlannerTest, ASongIsNoFolderOfAnotherSong) {
  AddSong(R"(C:\Music\x.mp3)");
  AddSong(R"(C:\Music\One.mp3)", {"T", "x.mp3", ""});
  const References songs{R"(C:\Music\x.mp3)", R"(C:\Music\One.mp3)"};
  WriteOld(R"(C:\Music\A.m3u)", M3u(songs));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("A", songs);
  // And the other way round: the folder is there first.
  fs::remove_all(New());
  WriteOld(R"(C:\Music\A.m3u)", M3u({songs[1], songs[0]}));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("A", {songs[1], songs[0]});
}

TEST_F(PlannerTest, WhereNoFolderCanBeTheSongIsLeftOutAndToldWhy) {
  AddMix("One.mp3", {"T", "Ann", ""});
  WriteNew(kRoot + "Music", "of the user");
  const Outcome outcome = Migrate();
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(Holds(outcome.err, R"(C:\Music\One.mp3: the new machine has no place for it: a file )"
                                 R"(stands where one of the folders of )" +
                                     kRoot + R"(Music\One.mp3 should be)"))
      << outcome.err;
  EXPECT_EQ(ReadFile(NewPlace(kRoot + "Music")), "of the user");
}

TEST_F(PlannerTest, AGroupRootThatPlaylistsCannotTellLeavesTheSongsOut) {
  AddMix("One.mp3");
  fs::create_directories(NewPlace("C:\\"));
  ASSERT_EQ(RunHost({"init", "--machine", New(), "--group-root", "C:\\東京\\"}).code, 0);
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 1);
  EXPECT_EQ(moved.at("leftOut"),
            Texts{R"(C:\Music\One.mp3: the new machine has no place for it: see that its group )"
                  "root C:\\東京\\ is a path of plain characters"});
  EXPECT_EQ(moved.at("media")[0].at("outcome"), "leftOut");
  EXPECT_EQ(moved.at("media")[0].at("place"), "");
  EXPECT_FALSE(fs::exists(NewPlace("C:\\東京\\Music")));
}

TEST_F(PlannerTest, SubNamesThatLeadOutOfTheGroupRootAreNotFollowed) {
  AddMix("One.mp3");
  fs::create_directories(NewPlace("C:\\"));
  ASSERT_EQ(RunHost({"init", "--machine", New()}).code, 0);
  WriteNew(kRoot + "SubNames.txt",
           "[PlayListStrings]\r\nSzID004=..\\..\\Windows\r\nszID005=PlayLists\r\n");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 1);
  EXPECT_EQ(moved.at("media")[0].at("outcome"), "leftOut");
  EXPECT_FALSE(fs::exists(NewPlace("C:\\Windows")));
}

TEST_F(PlannerTest, AnotherFileAtTheOldAddressDoesNotLendItsName) {
  AddSong(R"(C:\A\One.mp3)");
  AddSong(R"(C:\B\One.mp3)");
  const References songs{R"(C:\A\One.mp3)", R"(C:\B\One.mp3)"};
  WriteOld(kMix, M3u(songs));
  WriteNew(R"(C:\A\ONE.mp3)", "of the user");
  WriteNew(R"(C:\B\ONE.mp3)", "of the user too");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  ExpectLeadsTo(ReferencesIn(NativePath(kPlayers[2], "Mix"))[1], songs[1]);
  EXPECT_EQ(ReadFile(NewPlace(R"(C:\A\ONE.mp3)")), "of the user");
  // The first one's name differs in case alone, which leads to the song all the same.
  EXPECT_EQ(ReferencesIn(NativePath(kPlayers[2], "Mix"))[0], kRoot + R"(Music\ONE.mp3)");
  EXPECT_EQ(AdjustmentsOf(moved),
            (Texts{"2 FileName: One.mp3 -> One (2).mp3",
                   "2 SourceURL: C:\\B\\One.mp3 -> " + kRoot + "Music\\One (2).mp3"}));
  EXPECT_EQ(moved.at("adjustments")[1].at("reason"),
            "on the new machine another file stands at the old address");
}

TEST_F(PlannerTest, SongsThatTradePlacesAreFound) {
  // Each one's place is the other one's old address.
  const std::string folder = kRoot + R"(Music\)";
  AddSong(folder + R"(Ann\One.mp3)", {"T", "Bob", ""});
  AddSong(folder + R"(Bob\One.mp3)", {"T", "Ann", ""});
  AddSong(folder + R"(One.mp3)", {"T", "Bob", ""});
  const References songs{folder + R"(Ann\One.mp3)", folder + R"(Bob\One.mp3)", folder + "One.mp3"};
  WriteOld(kMix, M3u(songs));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", songs);
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), (Texts{"Ann/One.mp3", "Bob/One (2).mp3", "Bob/One.mp3"}));
  EXPECT_EQ(Moved().at("summary").at("alreadyRestored"), 1);
}

TEST_F(PlannerTest, NativePlaylistsGetNamesThatWindowsTakes) {
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
    EXPECT_EQ(row.at("reason"),
              "its native playlists would lose the name, or have none that Windows takes");
  }
  EXPECT_EQ(moved.at("adjustments").size(), 5u);
}

TEST_F(PlannerTest, NamesOfNothingButPunctuationAreReplaced) {
  AddSong(R"(C:\Music\One.mp3)");
  for (const char* const name : {"!!!", "()[]", "___", ""}) {
    WriteOld("C:\\Music\\" + std::string(name) + ".m3u", M3u({R"(C:\Music\One.mp3)"}));
  }
  EXPECT_EQ(Moved().at("exitCode"), 0);
  for (const char* const name : {"", "1", "12", "123"}) {
    ExpectMoved(std::string("Playlist") + name, {R"(C:\Music\One.mp3)"});
  }
}

TEST_F(PlannerTest, ManyPlaylistsOfOneNameAllFindAName) {
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
  EXPECT_EQ(RecordOf(moved.at("adjustments"), "after", "playlist 11.m3u").at("reason"),
            "many playlists have this name");
}

TEST_F(PlannerTest, ASecondRunPlansTheSame) {
  for (const char* const folder : {"A", "B"}) {
    AddSong(std::string("C:\\") + folder + "\\One.mp3", {"T", "AC/DC", "Best"});
    AddSong(std::string("C:\\") + folder + "\\Two.mp3");
  }
  WriteNew(kRoot + R"(Music\Two.mp3)", "of the user");
  WriteOld(R"(C:\A\Mix.m3u)", M3u({"One.mp3", "Two.mp3", R"(..\B\One.mp3)"}));
  WriteOld(R"(C:\B\Mix.m3u)", M3u({"One.mp3", "Two.mp3", R"(C:\A\Two.mp3)"}));
  const auto first = Moved();
  EXPECT_EQ(first.at("exitCode"), 0);
  const auto tree = Snapshot(New());
  const auto second = Moved();
  EXPECT_EQ(second.at("exitCode"), 0);
  EXPECT_EQ(Snapshot(New()), tree);
  EXPECT_EQ(second.at("adjustments"), first.at("adjustments"));
  for (const auto& song : first.at("media")) {
    EXPECT_EQ(PlaceOf(second, song.at("source")), song.at("place"));
  }
}

TEST_F(PlannerTest, TheGroupRootMayBeAnotherDrive) {
  const std::string song = AddMix("One.mp3", {"T", "Ann", ""});
  fs::create_directories(NewPlace("C:\\"));
  fs::create_directories(NewPlace("D:\\"));
  ASSERT_EQ(RunHost({"init", "--machine", New(), "--group-root", R"(D:\N\)"}).code, 0);
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(PlaceOf(moved, song), R"(D:\N\Music\Ann\One.mp3)");
  EXPECT_EQ(ReferencesIn(R"(D:\N\PlayLists\Sonique\Mix.pls)"),
            References{R"(D:\N\Music\Ann\One.mp3)"});
}

}  // namespace
}  // namespace norvo::host
