#include "move/MoveFixture.h"

namespace norvo {
namespace {

/// Where the songs go, and what the carried neutral files are made to say.
class PlannerTest : public MoveTest {
 protected:
  std::string Carried(const std::string& name) const {
    return ReadFile(NewPlace("C:\\My Documents\\Norvo PlayLists\\" + name));
  }
  std::string Collected(const std::string& name) const {
    return ReadFile(OldPlace(kRoot + "KVs\\" + name));
  }
  /// The neutral file of the old machine with one text instead of another, which is there once.
  /// What is new in the carried file, beside what makes it one of the kind that tells most.
  Texts Changed(const std::string& name) const {
    Texts lines = ChangedLines(Collected(name), Carried(name));
    std::erase_if(lines, [](const std::string& line) {
      return line.starts_with("ASX_") ||
             std::find(kAsCarried.begin(), kAsCarried.end(), line) != kAsCarried.end();
    });
    return lines;
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
  RunProgram({"init", "--machine", New()});  // no machine yet
  fs::create_directories(NewPlace("C:\\"));
  RunProgram({"init", "--machine", New(), "--role", "destination", "--group-root", R"(C:\Songs\)"});
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
  EXPECT_EQ(moved.at("adjustments")[0].at("reasonCode"), "otherSong");
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
  EXPECT_EQ(moved.at("adjustments")[0].at("reasonCode"), "placeElsewhere");
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

TEST_F(PlannerTest, OnlyTheFileNameChangesAndAllElseStays) {
  AddSong(R"(C:\A\One.mp3)", {"First", "Ann", "Best"});
  AddSong(R"(C:\B\One.mp3)", {"Second", "Ann", "Best"});
  WriteOld(kMix, M3u({R"(C:\A\One.mp3)", R"(C:\B\One.mp3)", "http://example.com/"}));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  EXPECT_EQ(Changed("Mix.ini"), Texts{"FileName=One (2).mp3"});
}

TEST_F(PlannerTest, WhereTheArtistIsInTheWayOnlyThatChanges) {
  AddMix("One.mp3", {"T", "AC/DC", "Best"});
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(AdjustmentsOf(moved), Texts{"1 Artist: AC/DC -> AC-DC"});
  EXPECT_EQ(moved.at("adjustments")[0].at("reasonCode"), "illegalName");
  EXPECT_EQ(Changed("Mix.ini"), Texts{"Artist=AC-DC"});
  EXPECT_EQ(NewFilesIn(kRoot + "Music"), Texts{"AC-DC/Best/One.mp3"});
}

TEST_F(PlannerTest, TitlesAndAddressesOfTheCarriedFileAreThoseOfTheOldMachine) {
  AddMix("One.mp3", {"A title / with: all?", "..\\x", "CON"});
  EXPECT_EQ(Moved().at("exitCode"), 0);
  const std::string carried = Carried("Mix.ini");
  EXPECT_TRUE(Holds(carried, "SongName=A title / with: all?\r\n")) << carried;
  EXPECT_TRUE(Holds(carried, "SourceURL=C:\\Music\\One.mp3\r\n")) << carried;
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
  ASSERT_EQ(RunProgram({"init", "--machine", New(), "--group-root", R"(D:\N\)"}).code, 0);
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(PlaceOf(moved, song), R"(D:\N\Music\Ann\One.mp3)");
  EXPECT_EQ(ReferencesIn(R"(D:\N\PlayLists\Sonique\Mix.pls)"),
            References{R"(D:\N\Music\Ann\One.mp3)"});
}

}  // namespace
}  // namespace norvo
