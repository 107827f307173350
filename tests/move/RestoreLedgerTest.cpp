#include "move/RestoreLedger.h"

#include <chrono>

#include "automation/RunTimeError.h"
#include "cli/ProgramFixture.h"
#include "library/Library.h"
#include "platform/hosted/HostedPlatform.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// One machine; each ledger is that of a new run.
class RestoreLedgerTest : public ProgramTest {
 protected:
  static constexpr StringView kMix = u"C:\\Docs\\Mix.ini";
  static constexpr StringView kPop = u"C:\\Docs\\Pop.ini";

  void SetUp() override {
    ProgramTest::SetUp();
    WriteFile(Place("C/Docs/Mix.ini"), "mix");
    WriteFile(Place("C/Docs/Pop.ini"), "pop");
    Restart();
  }
  void Restart() {
    library_ = OpenLibrary(std::make_shared<HostedPlatform>(Machine()));
    ledger_ = std::make_unique<RestoreLedger>(*library_, u"C:\\Data\\");
  }
  RestoreLedger& Ledger() { return *ledger_; }
  fs::path File() const { return Place("C/Data/Restored.txt"); }

  /// What the queue does to write one native playlist.
  void WriteNative(const std::string& name) {
    Ledger().AddNative(PathOf(name));
    WriteFile(NativePlace(name), "native");
  }
  void Restore(StringView neutralFile, const std::vector<std::string>& natives) {
    Ledger().Begin(String(neutralFile));
    for (const std::string& name : natives) WriteNative(name);
    Ledger().End(true);
  }
  static String PathOf(const std::string& name) { return u"C:\\Lists\\" + FromUtf8Lossy(name); }
  fs::path NativePlace(const std::string& name) const { return Place("C/Lists/" + name); }
  bool IsThere(const std::string& name) const { return fs::exists(NativePlace(name)); }
  bool IsRestored(StringView neutralFile) { return Ledger().IsRestored(String(neutralFile)); }
  std::vector<String> Natives(StringView neutralFile) {
    return Ledger().NativesOf(String(neutralFile));
  }

 private:
  std::unique_ptr<Component> library_;
  std::unique_ptr<RestoreLedger> ledger_;
};

TEST_F(RestoreLedgerTest, AnEmptyLedgerKnowsNothingAndWritesNothing) {
  EXPECT_FALSE(IsRestored(kMix));
  EXPECT_TRUE(Natives(kMix).empty());
  EXPECT_FALSE(fs::exists(File()));
}

TEST_F(RestoreLedgerTest, WhatIsDoneIsRememberedAcrossRuns) {
  Restore(kMix, {"Mix.asx", "Mix.m3u"});
  for (int run = 0; run < 3; ++run) {
    EXPECT_TRUE(IsRestored(kMix));
    EXPECT_EQ(Natives(kMix), (std::vector<String>{PathOf("Mix.asx"), PathOf("Mix.m3u")}));
    EXPECT_FALSE(IsRestored(kPop));
    EXPECT_TRUE(IsThere("Mix.asx"));
    Restart();
  }
}

TEST_F(RestoreLedgerTest, ANeutralFileWithoutNativesIsNotRestored) {
  Restore(kMix, {});
  EXPECT_FALSE(IsRestored(kMix));
  Restart();
  EXPECT_FALSE(IsRestored(kMix));
}

TEST_F(RestoreLedgerTest, ANeutralFileThatIsNotedAsDoneWithoutNativesIsNotRestored) {
  Restore(kPop, {"Pop.asx"});
  Ledger().Begin(String(kMix), "key");
  WriteFile(File(), ReadFile(File()) + "done\r\n");
  Restart();
  EXPECT_FALSE(IsRestored(kMix));
  EXPECT_EQ(Ledger().CarriedFor("key"), u"");
  EXPECT_TRUE(IsRestored(kPop));
  Restore(kMix, {"Mix.asx"});
  Restart();
  EXPECT_TRUE(IsRestored(kMix));
}

TEST_F(RestoreLedgerTest, CaseOfAPathDoesNotMatter) {
  Restore(u"C:\\Docs\\Mix.ini", {"Mix.asx"});
  Restart();
  EXPECT_TRUE(IsRestored(u"c:\\DOCS\\mIX.INI"));
  EXPECT_EQ(Natives(u"c:\\DOCS\\mIX.INI").size(), 1u);
}

TEST_F(RestoreLedgerTest, AChangedNeutralFileIsAnotherOne) {
  Restore(kMix, {"Mix.asx"});
  WriteFile(Place("C/Docs/Mix.ini"), "MIX");
  Restart();
  EXPECT_FALSE(IsRestored(kMix));
  Restore(kMix, {"Mix1.asx"});
  Restart();
  EXPECT_TRUE(IsRestored(kMix));
  EXPECT_EQ(Natives(kMix), (std::vector<String>{PathOf("Mix1.asx")}));
  EXPECT_TRUE(IsThere("Mix.asx"));  // it was whole, and is the user's now
}

TEST_F(RestoreLedgerTest, ANeutralFileThatIsGoneIsNotRestored) {
  Restore(kMix, {"Mix.asx"});
  fs::remove(Place("C/Docs/Mix.ini"));
  Restart();
  EXPECT_FALSE(IsRestored(kMix));
}

TEST_F(RestoreLedgerTest, WhatARunHasLeftUnfinishedIsDeletedAndNothingElse) {
  Restore(kPop, {"Pop.asx"});
  WriteFile(NativePlace("Mix2.m3u"), "of the user");
  Ledger().Begin(String(kMix));
  WriteNative("Mix.asx");
  WriteNative("Mix.m3u");
  Ledger().AddNative(PathOf("Mix.pls"));  // killed before it was created
  Restart();
  EXPECT_FALSE(IsThere("Mix.asx"));
  EXPECT_FALSE(IsThere("Mix.m3u"));
  EXPECT_TRUE(IsThere("Pop.asx"));
  EXPECT_TRUE(IsThere("Mix2.m3u"));
  EXPECT_TRUE(fs::exists(Place("C/Docs/Mix.ini")));
  EXPECT_FALSE(IsRestored(kMix));
  EXPECT_TRUE(IsRestored(kPop));
  EXPECT_FALSE(Holds(ReadFile(File()), "Mix"));
}

TEST_F(RestoreLedgerTest, WhatSomebodyElseWroteUnderANotedNameStays) {
  Ledger().Begin(String(kMix));
  WriteNative("Mix.asx");
  Ledger().AddNative(PathOf("Mix.m3u"));  // killed before it was created
  WriteFile(NativePlace("Mix.m3u"), "of the user, later");
  fs::last_write_time(NativePlace("Mix.m3u"),
                      fs::last_write_time(File()) + std::chrono::minutes(5));
  Ledger().AddNative(PathOf("Mix.pls"));
  WriteFile(NativePlace("Mix.pls"), "of the user, from before");
  fs::last_write_time(NativePlace("Mix.pls"), fs::last_write_time(File()) - std::chrono::hours(2));
  Restart();
  EXPECT_FALSE(IsThere("Mix.asx"));
  EXPECT_EQ(ReadFile(NativePlace("Mix.m3u")), "of the user, later");
  EXPECT_EQ(ReadFile(NativePlace("Mix.pls")), "of the user, from before");
}

TEST_F(RestoreLedgerTest, AFileThatCameLaterThanTheKilledRunIsNotItsOwn) {
  Ledger().Begin(String(kMix));
  WriteNative("Mix.asx");
  WriteNative("Mix.m3u");
  WriteNative("Mix.pls");
  // Two are somebody else's: saved since under that name, or put there from elsewhere.
  const auto now = fs::last_write_time(File());
  fs::last_write_time(NativePlace("Mix.m3u"), now + std::chrono::minutes(1));
  fs::last_write_time(NativePlace("Mix.pls"), now - std::chrono::hours(2));
  Restart();
  EXPECT_FALSE(IsThere("Mix.asx"));
  EXPECT_TRUE(IsThere("Mix.m3u"));
  EXPECT_TRUE(IsThere("Mix.pls"));
}

TEST_F(RestoreLedgerTest, WhatIsUndoneIsDeletedAtOnceAndNotRestored) {
  Ledger().Begin(String(kMix));
  WriteNative("Mix.asx");
  Ledger().End(false);
  EXPECT_FALSE(IsThere("Mix.asx"));
  EXPECT_FALSE(IsRestored(kMix));
  Restart();
  EXPECT_FALSE(IsRestored(kMix));
}

TEST_F(RestoreLedgerTest, WhatALaterPlaylistTookOverFromAnUndoneOneStays) {
  Ledger().Begin(String(kMix));
  WriteNative("Same.asx");
  Ledger().End(false);
  Restore(kPop, {"Same.asx"});
  Restart();
  Restart();
  EXPECT_TRUE(IsThere("Same.asx"));
  EXPECT_TRUE(IsRestored(kPop));
}

TEST_F(RestoreLedgerTest, AnEarlierRestoreHoldsWhenALaterOneIsUndone) {
  Restore(kMix, {"Mix.asx"});
  Ledger().Begin(String(kMix));
  WriteNative("Mix1.asx");
  Ledger().End(false);
  Restart();
  EXPECT_TRUE(IsRestored(kMix));
  EXPECT_TRUE(IsThere("Mix.asx"));
  EXPECT_FALSE(IsThere("Mix1.asx"));
}

TEST_F(RestoreLedgerTest, WhereverTheLedgerIsTornTheNextRunIsRight) {
  Restore(kPop, {"Pop.asx"});
  const std::size_t whole = fs::file_size(File());
  Ledger().Begin(String(kMix));
  WriteNative("Mix.asx");
  Ledger().End(true);
  const std::string full = ReadFile(File());
  for (std::size_t size = whole; size <= full.size(); ++size) {
    WriteFile(File(), full.substr(0, size));
    WriteFile(NativePlace("Mix.asx"), "native");
    Restart();
    const bool done = size == full.size();
    // Until its line is whole the native playlist is not created by the run.
    const bool known = full.substr(0, size).find("Mix.asx\r\n") != std::string::npos;
    EXPECT_TRUE(IsRestored(kPop)) << size;
    EXPECT_EQ(IsRestored(kMix), done) << size;
    EXPECT_EQ(IsThere("Mix.asx"), done || !known) << size;
    // What is added next does not run into the torn line.
    if (!done) Restore(kMix, {"Mix.asx"});
    Restart();
    EXPECT_TRUE(IsRestored(kMix)) << size;
    EXPECT_TRUE(IsRestored(kPop)) << size;
    EXPECT_EQ(Natives(kMix).size(), 1u) << size;
  }
}

TEST_F(RestoreLedgerTest, WhatALossOfPowerHasCutOffIsRestoredAnew) {
  for (const char* const left : {"nat", ""}) {
    Restore(kPop, {"Pop.asx"});
    Restore(kMix, {"Mix.asx", "Mix.m3u"});
    WriteFile(NativePlace("Mix.m3u"), left);
    Restart();
    EXPECT_FALSE(IsRestored(kMix)) << left;
    EXPECT_FALSE(IsThere("Mix.asx")) << left;
    EXPECT_FALSE(IsThere("Mix.m3u")) << left;
    EXPECT_TRUE(IsRestored(kPop)) << left;
    EXPECT_TRUE(IsThere("Pop.asx")) << left;
  }
}

TEST_F(RestoreLedgerTest, WhatWasIntendedIsTakenAwayThoughNothingSaysThatItWasMade) {
  Ledger().Begin(String(kMix), "", "", {PathOf("Mix.asx"), PathOf("Mix.m3u")});
  const std::string lasting = ReadFile(File());
  WriteNative("Mix.asx");
  WriteNative("Stray.m3u");
  WriteFile(File(), lasting);
  Restart();
  EXPECT_FALSE(IsRestored(kMix));
  EXPECT_FALSE(IsThere("Mix.asx"));
  EXPECT_TRUE(IsThere("Stray.m3u"));
}

TEST_F(RestoreLedgerTest, WhatWasIntendedAndNotMadeIsNoNative) {
  Ledger().Begin(String(kMix), "", "", {PathOf("Mix.asx"), PathOf("Mix.m3u")});
  WriteNative("Mix.asx");
  Ledger().End(true);
  Restart();
  EXPECT_TRUE(IsRestored(kMix));
  EXPECT_EQ(Natives(kMix), (std::vector<String>{PathOf("Mix.asx")}));
}

TEST_F(RestoreLedgerTest, WhatALossOfPowerHasTakenAwayIsRestoredAnew) {
  Restore(kMix, {"Mix.asx", "Mix.m3u"});
  fs::remove(NativePlace("Mix.asx"));
  Restart();
  EXPECT_FALSE(IsRestored(kMix));
  EXPECT_FALSE(IsThere("Mix.m3u"));
}

TEST_F(RestoreLedgerTest, OnceItIsWrittenAnewItsListsAreTheUsers) {
  Restore(kMix, {"Mix.asx", "Mix.m3u"});
  Ledger().Compact();
  WriteFile(NativePlace("Mix.asx"), "edited");
  fs::remove(NativePlace("Mix.m3u"));
  Restart();
  EXPECT_TRUE(IsRestored(kMix));
  EXPECT_TRUE(IsThere("Mix.asx"));
}

TEST_F(RestoreLedgerTest, CompactedItDoesNotTellTheOrderOfTheWork) {
  Restore(kMix, {"Mix.asx"});
  Ledger().Begin(u"C:\\Docs\\Gone.ini");
  Ledger().End(false);
  Restore(kPop, {"Pop.asx"});
  Restore(kMix, {"Mix.asx"});
  Ledger().Compact();
  const std::string bytes = ReadFile(File());
  EXPECT_FALSE(Holds(bytes, "Gone")) << bytes;
  fs::remove(File());
  Restart();
  Restore(kPop, {"Pop.asx"});
  Restore(kMix, {"Mix.asx"});
  Ledger().Compact();
  EXPECT_EQ(ReadFile(File()), bytes);
  Restart();
  EXPECT_EQ(ReadFile(File()), bytes);
  EXPECT_TRUE(IsRestored(kMix));
  EXPECT_TRUE(IsRestored(kPop));
}

TEST_F(RestoreLedgerTest, NamesOutsideThe8BitPageComeBack) {
  const String neutral = u"C:\\Docs\\Žluté 東京 \U0001F3B5.ini";
  WriteFile(Place("C/Docs/" + ToUtf8(u"Žluté 東京 \U0001F3B5.ini")), "x");
  const std::string name = ToUtf8(u"プレイリスト \U0001F3B5.asx");
  Restart();
  Restore(neutral, {name});
  Restart();
  EXPECT_TRUE(IsRestored(neutral));
  EXPECT_EQ(Natives(neutral), (std::vector<String>{PathOf(name)}));
  Ledger().Compact();
  Restart();
  EXPECT_EQ(Natives(neutral), (std::vector<String>{PathOf(name)}));
}

TEST_F(RestoreLedgerTest, APlaylistIsKnownAgainByItsKey) {
  EXPECT_EQ(Ledger().CarriedFor("key"), u"");
  Ledger().Begin(String(kMix), "key");
  WriteNative("Mix.asx");
  EXPECT_EQ(Ledger().CarriedFor("key"), u"");  // not before it is done
  Ledger().End(true);
  EXPECT_EQ(Ledger().CarriedFor("key"), kMix);
  Restart();
  EXPECT_EQ(Ledger().CarriedFor("key"), kMix);
  EXPECT_EQ(Ledger().CarriedFor("other"), u"");
  EXPECT_EQ(Ledger().CarriedFor(""), u"");
  // Deleted, it has been restored all the same; changed, it is another one.
  fs::remove(Place("C/Docs/Mix.ini"));
  EXPECT_EQ(Ledger().CarriedFor("key"), kMix);
  WriteFile(Place("C/Docs/Mix.ini"), "MIX");
  EXPECT_EQ(Ledger().CarriedFor("key"), u"");
}

TEST_F(RestoreLedgerTest, OfTwoPlaylistsWithOneKeyTheLaterIsKnownWhateverTheirNames) {
  Ledger().Begin(String(kPop), "key");
  WriteNative("Pop.asx");
  Ledger().End(true);
  WriteFile(Place("C/Docs/Pop.ini"), "POP");  // so that the next move carries the list anew
  Ledger().Begin(String(kMix), "key");
  WriteNative("Mix.asx");
  Ledger().End(true);
  EXPECT_EQ(Ledger().CarriedFor("key"), kMix);
  Ledger().Compact();
  Restart();
  EXPECT_EQ(Ledger().CarriedFor("key"), kMix);
}

TEST_F(RestoreLedgerTest, AnUnfinishedPlaylistIsNotKnownAgain) {
  Ledger().Begin(String(kMix), "key");
  WriteNative("Mix.asx");
  Restart();
  EXPECT_EQ(Ledger().CarriedFor("key"), u"");
  Ledger().Begin(String(kMix), "key");
  Ledger().End(false);
  EXPECT_EQ(Ledger().CarriedFor("key"), u"");
}

TEST_F(RestoreLedgerTest, PlacesOfSongsAreRememberedOnceItIsCompacted) {
  const String song = u"C:\\Music\\Žluté.mp3";
  EXPECT_TRUE(Ledger().PlacesOf(song).empty());
  Ledger().AddPlace(song, {u"C:\\N\\Music\\Ann\\x.mp3", u"Ann", u""});
  EXPECT_FALSE(fs::exists(File()));
  Ledger().Compact();
  Restart();
  ASSERT_EQ(Ledger().PlacesOf(song).size(), 1u);
  EXPECT_EQ(Ledger().PlacesOf(song)[0].place, u"C:\\N\\Music\\Ann\\x.mp3");
  EXPECT_EQ(Ledger().PlacesOf(song)[0].artist, u"Ann");
  EXPECT_EQ(Ledger().PlacesOf(song)[0].album, u"");
}

TEST_F(RestoreLedgerTest, APlaceInEveryScriptIsRememberedBesideThePlainOne) {
  const String song = u"C:\\Music\\Žluté.mp3";
  Ledger().AddPlace(song, {u"C:\\N\\_.mp3", u"", u"", u"C:\\N\\Жёлтый.mp3"});
  Ledger().Compact();
  Restart();
  ASSERT_EQ(Ledger().PlacesOf(song).size(), 1u);
  EXPECT_EQ(Ledger().PlacesOf(song)[0].place, u"C:\\N\\_.mp3");
  EXPECT_EQ(Ledger().PlacesOf(song)[0].fullPlace, u"C:\\N\\Жёлтый.mp3");
}

TEST_F(RestoreLedgerTest, ASongHasAllItsPlacesAndTheNamesThatCameLast) {
  const String song = u"C:\\a.mp3";
  Ledger().AddPlace(song, {u"C:\\x.mp3", u"Ann", u""});
  Ledger().AddPlace(song, {u"C:\\y.mp3", u"", u"B"});
  Ledger().AddPlace(song, {u"C:\\X.mp3", u"", u""});
  Ledger().Compact();
  Restart();
  ASSERT_EQ(Ledger().PlacesOf(song).size(), 2u);
  EXPECT_EQ(Ledger().PlacesOf(song)[0].place, u"C:\\X.mp3");
  EXPECT_EQ(Ledger().PlacesOf(song)[0].artist, u"");
  EXPECT_EQ(Ledger().PlacesOf(song)[1].place, u"C:\\y.mp3");
}

TEST_F(RestoreLedgerTest, NamesThatALineCannotHoldDoNotSpoilIt) {
  Restore(kMix, {"Mix.asx"});
  Ledger().AddPlace(u"C:\\a.mp3", {u"C:\\1.mp3", u"tab\there", u""});
  Ledger().AddPlace(u"C:\\b.mp3", {u"C:\\2.mp3", u"", u"line\r\ndone"});
  Ledger().AddPlace(u"C:\\c.mp3", {u"C:\\3.mp3", u"", u""});
  Ledger().Compact();
  Restart();
  EXPECT_TRUE(Ledger().PlacesOf(u"C:\\a.mp3").empty());
  EXPECT_TRUE(Ledger().PlacesOf(u"C:\\b.mp3").empty());
  EXPECT_FALSE(Ledger().PlacesOf(u"C:\\c.mp3").empty());
  EXPECT_TRUE(IsRestored(kMix));
}

TEST_F(RestoreLedgerTest, ItsLinesAreUnderstoodAsTheyStandInTheFile) {
  WriteFile(Place("C/Docs/Mix.ini"), "mix\xE4");
  WriteFile(File(),
            "; What was moved to this machine: the neutral files that were restored, the playlists "
            "made of them, and the songs' places.\r\n"
            "begin\tdaba79afa0302c03039676d631cbef80\tC:\\Docs\\Mix.ini\tkey\r\n"
            "native\tC:\\Lists\\Mix.asx\r\ndone\r\n");
  Restart();
  EXPECT_TRUE(IsRestored(kMix));
  EXPECT_EQ(Ledger().CarriedFor("key"), kMix);
  EXPECT_EQ(Natives(kMix), (std::vector<String>{PathOf("Mix.asx")}));
}

TEST_F(RestoreLedgerTest, ListsAreRememberedAsTheyWereMade) {
  Restore(kMix, {"Mix.asx", "Mix.m3u"});
  Restore(kPop, {"Pop.asx"});
  const std::string print = Ledger().MadeLists()[0].print;
  for (int run = 0; run < 3; ++run) {
    const std::vector<MadeList> lists = Ledger().MadeLists();
    ASSERT_EQ(lists.size(), 3u) << run;
    EXPECT_EQ(lists[0].path, PathOf("Mix.asx"));
    EXPECT_EQ(lists[1].path, PathOf("Mix.m3u"));
    EXPECT_EQ(lists[2].path, PathOf("Pop.asx"));
    for (const MadeList& list : lists) EXPECT_EQ(list.print, print) << run;
    WriteFile(NativePlace("Mix.asx"), "edited");  // as long as what was written
    if (run == 1) Ledger().Compact();
    Restart();
  }
}

TEST_F(RestoreLedgerTest, HowListsOfAnEarlierVersionWereMadeIsNotKnown) {
  WriteFile(File(),
            "begin\tdaba79afa0302c03039676d631cbef80\tC:\\Docs\\Mix.ini\tkey\r\n"
            "native\tC:\\Lists\\Mix.asx\r\ndone\r\n"
            "begin\tdaba79afa0302c03039676d631cbef80\tC:\\Docs\\Pop.ini\tkey\r\n"
            "native\tC:\\Lists\\Pop.asx\r\nnative\tC:\\Lists\\Pop.m3u\r\n"
            "prints\tone for two\r\ndone\r\n");
  Restart();
  EXPECT_EQ(Natives(kPop).size(), 2u);
  EXPECT_TRUE(Ledger().MadeLists().empty());
}

TEST_F(RestoreLedgerTest, LinesThatMakeNoSenseAreSkipped) {
  Restore(kMix, {"Mix.asx"});
  WriteFile(File(), ReadFile(File()) +
                        "native\tC:\\Lists\\Stray.m3u\r\ndone\r\n\r\nbegin\r\nbegin\ta\r\n"
                        "\t\t\t\r\nnonsense\tx\r\n");
  WriteFile(NativePlace("Stray.m3u"), "of the user");
  Restart();
  EXPECT_TRUE(IsRestored(kMix));
  EXPECT_EQ(Natives(kMix).size(), 1u);
  EXPECT_TRUE(IsThere("Stray.m3u"));
}

TEST_F(RestoreLedgerTest, OfMoreSongsThanItHoldsTheOthersArePlannedAnew) {
  std::string lines;
  for (int i = 0; i <= 200'000; ++i) lines += "song\t" + std::to_string(i) + "\tb\tc\td\r\n";
  WriteFile(File(), lines);
  Restart();
  Ledger().AddPlace(u"new", {u"C:\\new.mp3", u"", u""});
  Ledger().AddPlace(u"7", {u"C:\\7.mp3", u"", u""});
  EXPECT_EQ(Ledger().PlacesOf(u"7").size(), 2u);
  EXPECT_EQ(Ledger().PlacesOf(u"199999").size(), 1u);
  EXPECT_TRUE(Ledger().PlacesOf(u"200000").empty());
  EXPECT_TRUE(Ledger().PlacesOf(u"new").empty());
}

TEST_F(RestoreLedgerTest, OneOfMoreLinesThanAnyHasIsNamedAndALineOfAMebibyteIsSkipped) {
  std::string lines;
  for (int i = 0; i < 300'000; ++i) lines += "\r\n";
  const std::string longest = "song\t" + std::string(1024 * 1024, 'x') + "\tb\tc\td\r\n";
  WriteFile(File(), lines + longest);
  Restart();
  EXPECT_TRUE(Ledger().PlacesOf(String(1024 * 1024, u'x')).empty());
  WriteFile(File(), lines + longest + "\r\n");
  try {
    Restart();
    FAIL() << "it was read";
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.Number(), error::kOutOfMemory);
    EXPECT_EQ(ToUtf8(failure.Description()),
              "File of more than 300000 lines: C:\\Data\\Restored.txt");
  }
}

}  // namespace
}  // namespace norvo
