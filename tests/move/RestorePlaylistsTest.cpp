#include "move/RestorePlaylists.h"

#include <gtest/gtest.h>

#include "move/MoveError.h"
#include "move/WatchedWork.h"

namespace norvo {
namespace {

const std::string kLists = "C:\\My Documents\\Norvo Media\\PlayLists\\";

/// A machine with two generic files in its documents folder.
class RestorePlaylistsTest : public ::testing::Test {
 protected:
  RestorePlaylistsTest() {
    machine->ConfigureProduct();
    AddGeneric(u"Mix", "http://example.com/mix");
    AddGeneric(u"Web", "http://example.com/web");
  }
  void AddGeneric(StringView name, const std::string& address) {
    const std::string text = Utf8(name);
    machine->AddFile(u"C:\\My Documents\\" + String(name) + u".ini",
                     "[Global Properties]\r\nPavaneVersion=1.6\r\nPlaylistName=" + text +
                         "\r\nPlaylistType=3\r\nOriginalFileName=" + text +
                         ".m3u\r\nTotalSongs=1\r\n\r\n[Entry 1 Properties]\r\nSourceURL=" +
                         address + "\r\nURLType=9\r\n");
  }
  static Lines NativesOf(const std::string& name) {
    return {kLists + "Windows Media Player\\" + name + ".asx", kLists + "WinAmp\\" + name + ".m3u",
            kLists + "MusicMatch Jukebox\\" + name + ".m3u", kLists + "Sonique\\" + name + ".pls"};
  }
  void InstallMediaPlayer() {
    machine->SetRegistry(Hive::LocalMachine,
                         u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\wmplayer.exe",
                         u"", String(u"C:\\Player\\wmplayer.exe"));
    machine->SetRegistry(Hive::LocalMachine,
                         u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\wmplayer.exe",
                         u"Path", String(u"C:\\Player"));
    machine->AddFile(u"C:\\Player\\wmplayer.exe", "");
    machine->SetRegistry(Hive::CurrentUser, u"Software\\Microsoft\\MediaPlayer\\Player\\Settings",
                         u"OpenDir", String(u"C:\\"));
  }
  RestoreResult Restore(WatchedWork& watched) { return RestorePlaylists(machine, {}, watched); }

  std::shared_ptr<MemoryPlatform> machine = std::make_shared<MemoryPlatform>();
  WatchedWork heard;
};

TEST_F(RestorePlaylistsTest, TellsTheNativePlaylistsOfEachGenericFile) {
  const RestoreResult result = Restore(heard);
  ASSERT_EQ(result.playlists.size(), 2u);
  EXPECT_TEXT(result.playlists[0].genericFile, u"C:\\My Documents\\Mix.ini");
  EXPECT_EQ(result.playlists[0].type, 3);
  EXPECT_EQ(result.playlists[0].entries, 1u);
  Lines paths;
  Lines types;
  for (const NativePlaylist& native : result.playlists[0].natives) {
    EXPECT_TRUE(native.whole);
    EXPECT_TRUE(machine->HasFile(native.path));
    paths.push_back(Utf8(native.path));
    types.push_back(std::to_string(native.type));
  }
  EXPECT_EQ(paths, NativesOf("Mix"));
  EXPECT_EQ(types, (Lines{"1", "3", "6", "5"}));
  EXPECT_TEXT(result.playlists[1].genericFile, u"C:\\My Documents\\Web.ini");
  EXPECT_TRUE(result.settings.empty());
}

TEST_F(RestorePlaylistsTest, TellsTheObserverOfEachStepInItsOrder) {
  Restore(heard);
  Lines expected;
  for (const std::string name : {"Mix", "Web"}) {
    for (const std::string& native : NativesOf(name)) expected.push_back("native " + native);
    expected.push_back("restored C:\\My Documents\\" + name + ".ini");
  }
  EXPECT_EQ(heard.events, expected);
  EXPECT_EQ(heard.Phases(), std::vector<WorkPhase>{WorkPhase::Restoring});
  EXPECT_EQ(heard.steps.size(), 2u);
}

TEST_F(RestorePlaylistsTest, ANativePlaylistThatCannotBeWrittenIsNotWhole) {
  machine->FailOn(u"OpenForAppending", 2, 70);
  const RestoreResult result = Restore(heard);
  EXPECT_TRUE(result.playlists[0].natives[0].whole);
  EXPECT_FALSE(result.playlists[0].natives[1].whole);
}

TEST_F(RestorePlaylistsTest, CountsLinesThatCannotHoldAllLettersOfTheirNames) {
  const String path = u"C:\\My Documents\\Mix.ini";
  std::string wide = "\xFF\xFE";
  for (const char byte : machine->Bytes(path)) wide += std::string{byte, '\0'};
  wide += std::string("A\0r\0t\0i\0s\0t\0=\0\xE5\x65", 16) + std::string("\r\0\n\0", 4);
  machine->AddFile(path, wide);
  const RestoreResult result = Restore(heard);
  ASSERT_EQ(result.playlists.size(), 2u);
  ASSERT_EQ(result.playlists[0].natives.size(), 4u);
  EXPECT_EQ(result.playlists[0].natives[0].replaced, 1u) << "the artist alone";
  for (const NativePlaylist& native : result.playlists[1].natives) EXPECT_EQ(native.replaced, 0u);
}

TEST_F(RestorePlaylistsTest, FolderNamesThatCannotBeReadEndItBeforeAllGoesElsewhere) {
  machine->Files().Deny(u"C:\\My Documents\\Norvo Media\\SubNames.txt");
  EXPECT_THROW(Restore(heard), MoveError);
  EXPECT_EQ(heard.events, Lines());
}

TEST_F(RestorePlaylistsTest, WarnsOfASettingThatCannotBeChanged) {
  InstallMediaPlayer();
  machine->FailOn(u"Registry.Write", 1, 70);
  const RestoreResult result = Restore(heard);
  EXPECT_EQ(result.settings.size(), 1u);
  EXPECT_EQ(heard.warnings,
            Lines{"old: PlayerNotPointed Software\\Microsoft\\MediaPlayer\\Player\\Settings, "
                  "OpenDir, detail Permission denied, wanted " +
                  kLists + "Windows Media Player"});
  EXPECT_EQ(LinesOf(result.warnings), heard.warnings);
}

TEST_F(RestorePlaylistsTest, TellsTheSettingsThatPointThePlayersAtTheirPlaylists) {
  InstallMediaPlayer();
  const RestoreResult result = Restore(heard);
  ASSERT_EQ(result.settings.size(), 2u);
  EXPECT_TEXT(result.settings[0].player, u"Windows Media Player");
  EXPECT_TEXT(result.settings[0].place,
              u"Software\\Microsoft\\MediaPlayer\\Player\\Settings, OpenDir");
  EXPECT_EQ(Utf8(result.settings[0].value), kLists + "Windows Media Player");
}

TEST_F(RestorePlaylistsTest, EachTimeTheyAreWrittenAnew) {
  Restore(heard);
  const RestoreResult again = Restore(heard);
  EXPECT_EQ(Utf8(again.playlists[0].natives[1].path), kLists + "WinAmp\\Mix1.m3u");
}

TEST_F(RestorePlaylistsTest, CanBeEndedAtAnyGenericFileWithoutAWarning) {
  for (std::size_t n : {1u, 2u}) {
    WatchedWork ending(n);
    const RestoreResult result = Restore(ending);
    EXPECT_TRUE(result.cancelled) << n;
    EXPECT_EQ(result.playlists.size(), n - 1);
    EXPECT_TRUE(result.warnings.empty()) << n;
  }
}

}  // namespace
}  // namespace norvo
