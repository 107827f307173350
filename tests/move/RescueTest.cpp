#include "move/MoveFixture.h"

namespace norvo {
namespace {

/// Ways in which the library's readers and its queue lose songs, each healed.
class RescueTest : public MoveTest {
 protected:
  void SetUp() override {
    MoveTest::SetUp();
    for (const char* const song : {"One", "Two", "Three"}) {
      AddSong(std::string("C:\\Music\\") + song + ".mp3");
    }
  }
  static Texts CodesOf(const nlohmann::json& rows) {
    Texts codes;
    for (const auto& row : rows) codes.push_back(row.at("reasonCode"));
    return codes;
  }
  static Texts HealedOf(const nlohmann::json& moved, const std::string& path) {
    return CodesOf(PlaylistOf(moved, path).at("healed"));
  }
  /// "gone.mp3: noSuchFile"
  static Texts MissedOf(const nlohmann::json& moved, const std::string& path) {
    Texts texts;
    const auto playlist = PlaylistOf(moved, path);
    for (const auto& item : playlist.at("items")) {
      if (item.at("outcome") != "leftOut") continue;
      texts.push_back(item.at("reference").get<std::string>() + ": " +
                      item.at("reasonCode").get<std::string>());
    }
    return texts;
  }
  static std::string TypeOf(const nlohmann::json& moved, const std::string& path) {
    return PlaylistOf(moved, path).at("typeName");
  }

  const References kBoth{R"(C:\Music\One.mp3)", R"(C:\Music\Two.mp3)"};
};

TEST_F(RescueTest, WhatTheQueueMadeWholeIsTakenAsItIs) {
  WriteOld(kMix, M3u(kBoth));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(HealedOf(moved, kMix), Texts());
  EXPECT_EQ(AdjustmentsOf(moved), Texts());
  EXPECT_EQ(ChangedLines(ReadFile(OldPlace(kRoot + R"(KVs\Mix.ini)")),
                         ReadFile(NewPlace(R"(C:\My Documents\Norvo PlayLists\Mix.ini)"))),
            (Texts{"PlaylistType=1", "ASX Version=3.0", "AllowShuffle=yes", "ASX_SongName=One",
                   "ASX_SongName=Two"}));
  ExpectMoved("Mix", kBoth);
}

TEST_F(RescueTest, RelativeReferencesAreGivenAFileName) {
  AddSong(R"(C:\Other\Four.mp3)");
  WriteOld(kMix, M3u({"One.mp3", R"(..\Other\Four.mp3)", R"(.\Two.mp3)", R"(\Music\Three.mp3)"}));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  ExpectMoved("Mix", {R"(C:\Music\One.mp3)", R"(C:\Other\Four.mp3)", R"(C:\Music\Two.mp3)",
                      R"(C:\Music\Three.mp3)"});
  EXPECT_EQ(AdjustmentsOf(moved), (Texts{"1 FileName:  -> One.mp3", "2 FileName:  -> Four.mp3",
                                         "3 FileName:  -> Two.mp3"}));
  EXPECT_EQ(moved.at("adjustments")[0].at("reasonCode"), "relativeReference");
}

TEST_F(RescueTest, AnAsxThatTheQueueFindsNoNameForIsMoved) {
  const std::string path = R"(C:\Music\Plain.asx)";
  WriteOld(path, Asx(AsxEntry(kBoth[0]) + AsxEntry(kBoth[1])));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(HealedOf(moved, path), Texts{"unnamed"});
  EXPECT_EQ(TypeOf(moved, path), "WMP_ASX");
  ExpectMoved("Plain", kBoth);
}

TEST_F(RescueTest, AnAsxThatTheQueueGaveTheOtherTypeIsCarriedAsOne) {
  // Its neutral file is of type 2 with entries of type 1, which no reading takes.
  const std::string path = R"(C:\Music\Old.m3u list.asx)";
  WriteOld(path, Asx(AsxEntry(kBoth[0]) + AsxEntry(kBoth[1])));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(HealedOf(moved, path), Texts{"incomplete"});
  EXPECT_EQ(TypeOf(moved, path), "WMP_ASX");
  EXPECT_TRUE(
      Holds(ReadFile(NewPlace(PlaylistOf(moved, path).at("neutralFile"))), "PlaylistType=1\r\n"));
  ExpectMoved("Old m3u list", kBoth);
}

TEST_F(RescueTest, AnM3uWhoseFirstLinesTellNothingIsMoved) {
  const std::string bare = R"(C:\Music\Bare.m3u)";
  const std::string titled = R"(C:\Music\Titled.m3u)";
  WriteOld(bare, Bare({"One.mp3", "Two.mp3"}));
  WriteOld(titled, Bare({"# 1", "# 2", "# 3", "# 4", "#EXTM3U", "#EXTINF:1,A - B", "One.mp3"}));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  const Texts healed{"notListed"};
  EXPECT_EQ(HealedOf(moved, bare), healed);
  EXPECT_EQ(HealedOf(moved, titled), healed);
  EXPECT_EQ(TypeOf(moved, bare), "MMJB_M3U");
  EXPECT_EQ(TypeOf(moved, titled), "WINAMP_M3U");
  ExpectMoved("Bare", kBoth);
  ExpectMoved("Titled", {kBoth[0]});
}

TEST_F(RescueTest, APlaylistThatEndsInAnInfoLineIsMoved) {
  WriteOld(kMix, "#EXTM3U\r\nOne.mp3\r\nTwo.mp3\r\n#EXTINF:1,A - B");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(HealedOf(moved, kMix), Texts{"notReadToEnd"});
  ExpectMoved("Mix", kBoth);
}

TEST_F(RescueTest, AnM3uThatHoldsAnAsxKeepsItsEntries) {
  WriteOld(kMix, Asx(AsxParam("Name", "Mix.m3u") + AsxEntry(kBoth[0]) + AsxEntry(kBoth[1])));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", kBoth);
}

TEST_F(RescueTest, AnAsxThatHoldsAnM3uIsMoved) {
  WriteOld(R"(C:\Music\Liar.asx)", "#EXTINF:3,A - B\r\nOne.mp3\r\nTwo.mp3\r\n");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(TypeOf(moved, R"(C:\Music\Liar.asx)"), "WINAMP_M3U");
  ExpectMoved("Liar", kBoth);
}

TEST_F(RescueTest, AnM3uWithMarkupInATitleIsNoAsx) {
  // The reader takes the first for what it is; of the second it makes nothing.
  WriteOld(R"(C:\Music\A.m3u)", "#EXTM3U\r\n#EXTINF:1,Asx - <asx\r\nOne.mp3\r\nTwo.mp3\r\n");
  WriteOld(R"(C:\Music\B.m3u)", "#EXTINF:1,Asx - <asx\r\nOne.mp3\r\nTwo.mp3\r\n");
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("A", kBoth);
  ExpectMoved("B", kBoth);
}

TEST_F(RescueTest, APlsWithoutACountIsMoved) {
  WriteOld(R"(C:\Music\Mix.pls)", "[playlist]\r\nFile1=One.mp3\r\nFile2=Two.mp3\r\nVersion=2\r\n");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(HealedOf(moved, R"(C:\Music\Mix.pls)"), (Texts{"nothingUnderstood", "entriesAdded"}));
  EXPECT_EQ(PlaylistOf(moved, R"(C:\Music\Mix.pls)").at("healed")[1].at("count"), 2);
  EXPECT_EQ(TypeOf(moved, R"(C:\Music\Mix.pls)"), "WINAMP_PLS");
  ExpectMoved("Mix", kBoth);
}

TEST_F(RescueTest, APlsOfAnUnknownVersionIsMoved) {
  const std::string text = "[playlist]\r\nFile1=One.mp3\r\nNumberOfEntries=1\r\n";
  WriteOld(R"(C:\Music\Third.pls)", text + "Version=3\r\n");
  WriteOld(R"(C:\Music\Other.pls)", text + "CachedInfo=1\r\n");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(TypeOf(moved, R"(C:\Music\Third.pls)"), "WINAMP_PLS");
  EXPECT_EQ(TypeOf(moved, R"(C:\Music\Other.pls)"), "SONIQUE_PLS");
  ExpectMoved("Third", {kBoth[0]});
  ExpectMoved("Other", {kBoth[0]});
}

TEST_F(RescueTest, ASongWhoseNameTheReaderTakesForAnInfoLineIsMoved) {
  AddSong(R"(C:\Music\EXTINF story.mp3)");
  AddSong(R"(C:\Music\extm3u.mp3)");
  WriteOld(kMix, M3u({"One.mp3", "EXTINF story.mp3", "Two.mp3", "extm3u.mp3"}));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix",
              {kBoth[0], R"(C:\Music\EXTINF story.mp3)", kBoth[1], R"(C:\Music\extm3u.mp3)"});
}

TEST_F(RescueTest, SongsThatAreNoMediaToTheLibraryAreMoved) {
  AddSong(R"(C:\Music\Four.ogg)");
  AddSong(R"(C:\Music\Film.avi)");
  WriteOld(kMix, M3u({"One.mp3", "Four.ogg", "Film.avi"}));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(HealedOf(moved, kMix), (Texts{"incomplete", "entriesAdded"}));
  EXPECT_EQ(PlaylistOf(moved, kMix).at("healed")[1].at("count"), 2);
  ExpectMoved("Mix", {kBoth[0], R"(C:\Music\Four.ogg)", R"(C:\Music\Film.avi)"});
}

TEST_F(RescueTest, FileAddressesSlashesAndForeignEncodingsAreUnderstood) {
  AddSong("C:\\Music\\Žluté 東京.mp3");
  WriteOld(kMix, "#EXTM3U\r\nfile:///C:/Music/One.mp3\r\nC:/Music/Two.mp3\r\nŽluté 東京.mp3\r\n");
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", {kBoth[0], kBoth[1], "C:\\Music\\Žluté 東京.mp3"});
}

TEST_F(RescueTest, LinesThatEndInANulAreWhole) {
  WriteOld(kMix, kBoth[0] + std::string("\0\r\n", 3) + kBoth[1] + std::string("\0\r\n", 3));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", kBoth);
}

TEST_F(RescueTest, OrderAndRepetitionsStayAndMissingOnesAreTold) {
  WriteOld(R"(C:\Music\notes.txt)", "x");
  WriteOld(kMix, M3u({"Two.mp3", "gone.mp3", "One.mp3", "notes.txt", "Two.mp3", "Two.mp3"}));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);  // nothing that exists is missing
  EXPECT_EQ(MissedOf(moved, kMix), (Texts{"gone.mp3: noSuchFile", "notes.txt: notMedia"}));
  ExpectMoved("Mix", {kBoth[1], kBoth[0], kBoth[1], kBoth[1]});
}

TEST_F(RescueTest, OfSeveralSongsOfTheNameNoneIsGuessedUnlessTheyAreOneSong) {
  AddSong(R"(C:\A\Four.mp3)");
  AddSong(R"(C:\B\Four.mp3)");
  WriteOld(kMix, M3u({"One.mp3", R"(D:\Lost\Four.mp3)"}));
  EXPECT_EQ(MissedOf(Moved(), kMix), Texts{R"(D:\Lost\Four.mp3: ambiguous)"});
  WriteOld(R"(C:\B\Four.mp3)", ReadFile(OldPlace(R"(C:\A\Four.mp3)")));
  fs::remove_all(New());
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mix", {R"(C:\Music\One.mp3)", R"(C:\A\Four.mp3)"});
}

TEST_F(RescueTest, AddressesAndSharesStayAsTheyAre) {
  const References items{"http://radio.example.com:8000/",
                         kBoth[0],
                         "https://example.com/live.ogg?a=1&b=2",
                         R"(\\server\share\a b.mp3)",
                         "mms://example.com/x.wma",
                         "rtsp://example.com/y.rm"};
  WriteOld(kMix, M3u(items));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(PlaylistOf(moved, kMix).at("songs"), 1);
  EXPECT_EQ(PlaylistOf(moved, kMix).at("addresses"), 5);
  ExpectMoved("Mix", items);
}

TEST_F(RescueTest, SongsOfARamDiskAreMovedAndRemovableDrivesStayAddresses) {
  WriteFile(fs::path(Old()) / "machine.ini", "[Drives]\r\nC=fixed\r\nE=removable\r\nR=ramdisk\r\n");
  AddSong(R"(R:\Four.mp3)");
  AddSong(R"(E:\Five.mp3)");
  WriteOld(kMix, M3u({R"(R:\Four.mp3)", R"(E:\Five.mp3)"}));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  const References references = ReferencesIn(NativePath(kPlayers[1], "Mix"));
  EXPECT_EQ(references, (References{kRoot + R"(Music\Four.mp3)", R"(E:\Five.mp3)"}));
  EXPECT_EQ(moved.at("media").size(), 1u);
}

TEST_F(RescueTest, OfAlternativesTheFirstThatExistsIsMovedAlone) {
  const std::string path = R"(C:\Music\Mix.asx)";
  WriteOld(path, Asx("<Entry>\r\n<Ref href = \"gone.mp3\" />\r\n<Ref href = \"One.mp3\" />\r\n"
                     "<Ref href = \"Two.mp3\" />\r\n</Entry>\r\n"));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  ExpectMoved("Mix", {kBoth[0]});
  ASSERT_EQ(moved.at("media").size(), 1u);
  EXPECT_EQ(moved.at("media")[0].at("source"), kBoth[0]);
}

TEST_F(RescueTest, TwoPlaylistsOfOneNameBothSurvive) {
  WriteOld(R"(C:\A\Mix.m3u)", M3u({kBoth[0]}));
  WriteOld(R"(C:\B\mix.m3u)", M3u({kBoth[1]}));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(HealedOf(moved, R"(C:\A\Mix.m3u)"), Texts{"nameTaken"});
  EXPECT_EQ(HealedOf(moved, R"(C:\B\mix.m3u)"), Texts());
  ExpectMoved("Mix", {kBoth[0]});
  ExpectMoved("mix1", {kBoth[1]});
}

TEST_F(RescueTest, NamesThatDifferOnlyBehindAPointDoNotReplaceEachOther) {
  WriteOld(R"(C:\Music\a.b.m3u)", M3u({kBoth[0]}));
  WriteOld(R"(C:\Music\a.c.m3u)", M3u({kBoth[1]}));
  WriteOld(R"(C:\Music\a.pls)", Pls({R"(C:\Music\Three.mp3)"}));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("a b", {kBoth[0]});
  ExpectMoved("a c", {kBoth[1]});
  ExpectMoved("a", {R"(C:\Music\Three.mp3)"});
}

TEST_F(RescueTest, AFileThatTheScanMetWithoutAPointInItsNameIsMoved) {
  const std::string longName(240, 'x');
  WriteOld(R"(C:\Music\Mixm3u)", Bare({kBoth[0]}));
  WriteOld(R"(C:\Music\Mypls)", Pls({kBoth[0], kBoth[1]}));
  WriteOld(R"(C:\Music\Myasx)", Asx(AsxEntry(kBoth[1])));
  WriteOld("C:\\Music\\" + longName + "m3u", Bare({kBoth[1]}));
  EXPECT_EQ(Moved().at("exitCode"), 0);
  ExpectMoved("Mixm3u", {kBoth[0]});
  ExpectMoved("Mypls", kBoth);
  ExpectMoved("Myasx", {kBoth[1]});
  ExpectMoved(std::string(173, 'x'), {kBoth[1]});
}

TEST_F(RescueTest, OneFileIsOneSongHoweverItIsSpelled) {
  fs::create_directory_symlink("Music", OldPlace(R"(C:\Same)"));
  fs::create_symlink("One.mp3", OldPlace(R"(C:\Music\Link.mp3)"));
  WriteOld(kMix, M3u({"One.mp3", R"(C:\MUSIC\one.MP3)", R"(C:\Music.\One.mp3)",
                      R"(c:\Music \.\One.mp3)", R"(\Music\..\Music\One.mp3)", R"(C:\Same\One.mp3)",
                      "Link.mp3", "file:///C:/Music/One.mp3"}));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("media").size(), 1u) << moved.at("media").dump(1);
  ExpectMoved("Mix", References(8, kBoth[0]));
}

TEST_F(RescueTest, PlaylistsWithoutSongsAreToldAndNoFailure) {
  WriteOld(R"(C:\Music\Empty.m3u)", "");
  WriteOld(R"(C:\Music\Header.m3u)", "#EXTM3U\r\n");
  WriteOld(R"(C:\Music\Gone.m3u)", M3u({"gone.mp3"}));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  for (const char* const name : {"Empty", "Header", "Gone"}) {
    const auto playlist = PlaylistOf(moved, std::string("C:\\Music\\") + name + ".m3u");
    EXPECT_EQ(playlist.at("outcome"), "noSongs");
    EXPECT_EQ(playlist.at("natives").size(), 0u);
  }
  EXPECT_EQ(moved.at("summary").at("noSongs"), 3);
}

TEST_F(RescueTest, FoldersAndLinksThatLeadNowhereAreNoPlaylists) {
  fs::create_directories(OldPlace(R"(C:\Music\Folder.m3u)"));
  fs::create_symlink("nowhere", OldPlace(R"(C:\Music\Dangling.m3u)"));
  WriteOld(R"(C:\Music\Folder.m3u\Inside.m3u)", M3u({R"(..\One.mp3)"}));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0);
  EXPECT_EQ(moved.at("playlists").size(), 1u);
  ExpectMoved("Inside", {kBoth[0]});
}

TEST_F(RescueTest, APlaylistThatCannotBeReadIsToldAndTheRestGoesOn) {
  WriteOld(R"(C:\Music\Huge.m3u)", "#EXTM3U\r\nOne.mp3\r\n");
  fs::resize_file(OldPlace(R"(C:\Music\Huge.m3u)"), std::uintmax_t{65} << 20);
  WriteOld(kMix, M3u(kBoth));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 1);
  EXPECT_EQ(PlaylistOf(moved, R"(C:\Music\Huge.m3u)").at("outcome"), "leftOut");
  // Once by the library, which would have collected it, and once by what is not moved.
  ASSERT_EQ(moved.at("leftOut").size(), 2u);
  const std::string warning = moved.at("leftOut")[0];
  EXPECT_TRUE(Holds(warning, R"(C:\Music\Huge.m3u: this file cannot be read: )")) << warning;
  const std::string told = moved.at("leftOut")[1];
  EXPECT_TRUE(told.starts_with(R"(C:\Music\Huge.m3u: it cannot be read: )")) << told;
  ExpectMoved("Mix", kBoth);
}

TEST_F(RescueTest, AListThatEndsTheQueueIsSplitAndTheOthersAreMovedToo) {
  constexpr std::size_t kMost = 32767;
  std::string lines;
  for (std::size_t i = 0; i < kMost + 2; ++i) lines += kBoth[i == kMost ? 1 : 0] + "\r\n";
  WriteOld(R"(C:\Music\Big.m3u)", lines);
  WriteOld(R"(C:\Music\Last.m3u)", Bare(kBoth));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0) << moved.at("leftOut").dump(1);
  ASSERT_EQ(moved.at("playlists").size(), 3u);
  EXPECT_EQ(moved.at("playlists")[0].at("songs"), kMost);
  EXPECT_EQ(moved.at("playlists")[1].at("songs"), 2);
  const Texts split{"queueEnded", "split"};
  EXPECT_EQ(CodesOf(moved.at("playlists")[0].at("healed")), split);
  EXPECT_EQ(CodesOf(moved.at("playlists")[1].at("healed")), split);
  EXPECT_EQ(HealedOf(moved, R"(C:\Music\Last.m3u)"), Texts{"queueEnded"});
  for (const PlayerFolder& player : kPlayers) {
    EXPECT_EQ(ReferencesIn(NativePath(player, "Big")),
              References(kMost, kRoot + R"(Music\One.mp3)"));
  }
  ExpectMoved("Big 2", {kBoth[1], kBoth[0]});
  ExpectMoved("Last", kBoth);
  // Each ASX of it has more lines than the library reads, and is verified all the same.
  EXPECT_EQ(moved.at("summary").at("referencesFound"), 4 * (kMost + 2 + 2));
}

TEST_F(RescueTest, ADamagedListIsNeverCalledEmpty) {
  WriteOld("C:\\Music\\a.wpl", "\x89PNG\r\n");
  WriteOld("C:\\Music\\b.m3u", std::string(100, '\0'));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 1);
  for (const char* const path : {"C:\\Music\\a.wpl", "C:\\Music\\b.m3u"}) {
    EXPECT_EQ(PlaylistOf(moved, path).at("reasonCode"), "notUnderstood") << path;
  }
}

TEST_F(RescueTest, AListThatIsCutOffIsMovedAsFarAsItGoesAndTold) {
  WriteOld("C:\\Music\\a.wpl",
           "<?wpl version=\"1.0\"?><smil><body><seq><media src=\"One.mp3\"/><media src=\"Tw");
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 1);
  EXPECT_EQ(PlaylistOf(moved, "C:\\Music\\a.wpl").at("outcome"), "restored");
  EXPECT_EQ(moved.at("warnings")[0].at("reasonCode"), "listDamaged");
}

TEST_F(RescueTest, AListedFileThatIsMusicByItsContentIsMoved) {
  // A frame of MPEG audio after another, without a name that tells so.
  std::string frame("\xFF\xFB\x90\x64", 4);
  frame.resize(417, '\0');
  std::string sound;
  for (int i = 0; i < 20; ++i) sound += frame;
  WriteOld("C:\\Music\\noend", sound);
  WriteOld("C:\\Music\\notes.doc", "no sound at all");
  WriteOld(kMix, M3u({"noend", "notes.doc", "One.mp3"}));
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0) << moved.dump(1);
  EXPECT_EQ(PlaylistOf(moved, kMix).at("songs"), 2);
  EXPECT_FALSE(PlaceOf(moved, "C:\\Music\\noend").empty());
}

TEST_F(RescueTest, TextsThatLookLikeMarkupHarmNoPlayer) {
  const Texts odd{"</Entry>", "<Entry>", "</ASX>",  "<Banner>",   "\" />",   "<Ref href=\"x\"/>",
                  "EXTM3U",   "EXTINF",  "File1=x", "[playlist]", "</Title>"};
  for (std::size_t i = 0; i < odd.size(); ++i) {
    const std::string song = "C:\\Music\\Odd" + std::to_string(i) + ".mp3";
    AddSong(song, {odd[i], "", ""});
    WriteOld("C:\\Music\\L" + std::to_string(i) + ".m3u", M3u({song, kBoth[0]}));
  }
  const auto moved = Moved();
  EXPECT_EQ(moved.at("exitCode"), 0) << moved.at("leftOut").dump(1);
  for (std::size_t i = 0; i < odd.size(); ++i) {
    ExpectMoved("L" + std::to_string(i), {"C:\\Music\\Odd" + std::to_string(i) + ".mp3", kBoth[0]});
  }
}

TEST_F(RescueTest, TitlesOfAddedEntriesComeFromThePlaylistAndTheTag) {
  AddSong(R"(C:\Music\Listed.ogg)");
  AddSong(R"(C:\Music\Tagged.ogg)", {"A title by its tag", "Ann", ""});
  WriteOld(kMix, "#EXTM3U\r\n#EXTINF:5,Bob - Something\r\nListed.ogg\r\nTagged.ogg\r\n");
  EXPECT_EQ(Moved().at("exitCode"), 0);
  const std::string text = ReadFile(NewPlace(NativePath(kPlayers[1], "Mix")));
  EXPECT_TRUE(Holds(text, "#EXTINF:5,Bob - Something\r\n" + kRoot + "Music\\Bob\\Listed.ogg\r\n"))
      << text;
  EXPECT_TRUE(
      Holds(text, "#EXTINF:0,Ann - A title by its tag\r\n" + kRoot + "Music\\Ann\\Tagged.ogg\r\n"))
      << text;
}

}  // namespace
}  // namespace norvo
