#include "controller/PlayerFolders.h"

#include "automation/RunTimeError.h"
#include "support/LibraryTest.h"

namespace norvo {
namespace {

constexpr const char* kBase = "C:\\My Documents\\Norvo Media\\PlayLists\\";
constexpr StringView kAppPaths = u"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";
constexpr StringView kMmdbKey = u"SOFTWARE\\MusicMatch\\MusicMatch Jukebox\\4.0\\MMDB_DLL";
constexpr StringView kMainAppKey = u"SOFTWARE\\MusicMatch\\MusicMatch Jukebox\\4.0\\MainApp";
constexpr StringView kSoniqueKey = u"Software\\MediaScience\\Sonique\\General Preferences 0.80";
constexpr StringView kPlayerKey = u"Software\\Microsoft\\MediaPlayer\\Player\\Settings";
constexpr StringView kWinampIni = u"C:\\Programs\\Winamp\\Winamp.ini";

class SettingFollower final : public Observer {
 public:
  void OnPlayerSetting(StringView player, StringView place, StringView value) override {
    settings.push_back(Utf8(player) + " | " + Utf8(place) + " | " + Utf8(value));
  }
  void OnPlayerSettingLost(StringView player, StringView place, StringView value,
                           StringView reason) override {
    lost.push_back(Utf8(player) + " | " + Utf8(place) + " | " + Utf8(value));
    reasons.push_back(Utf8(reason));
  }
  Lines settings;
  Lines lost;  // in the form of the settings
  Lines reasons;
};

class PlayerFoldersTest : public LibraryTest {
 protected:
  PlayerFoldersTest() { platform->ConfigureProduct(); }

  void InstallMusicMatch() {
    platform->SetRegistry(Hive::LocalMachine, String(kAppPaths) + u"MMJB.EXE", u"Path",
                          String(u"C:\\Programs\\MusicMatch"));
    platform->AddFile(u"C:\\Programs\\MusicMatch\\mmjb.exe", "x");
    platform->Registry().AddKey(Hive::LocalMachine, kMmdbKey);
    platform->Registry().AddKey(Hive::LocalMachine, kMainAppKey);
  }
  void SetOpenCommand(StringView fileClass, StringView command) {
    platform->SetRegistry(Hive::ClassesRoot, String(fileClass) + u"\\shell\\open\\command", u"",
                          String(command));
  }
  void InstallSonique() {
    SetOpenCommand(u"Sonique.File", u"C:\\Programs\\Sonique\\Sonique.exe \"%1\"");
    platform->AddFile(u"C:\\Programs\\Sonique\\Sonique.exe", "x");
    platform->Registry().AddKey(Hive::CurrentUser, kSoniqueKey);
  }
  void InstallMediaPlayer() {
    platform->SetRegistry(Hive::LocalMachine, String(kAppPaths) + u"wmplayer.exe", u"Path",
                          String(u"C:\\Programs\\WMP\\"));
    platform->AddFile(u"C:\\Programs\\WMP\\wmplayer.exe", "x");
    platform->Registry().AddKey(Hive::CurrentUser, kPlayerKey);
  }
  void InstallWinamp() {
    SetOpenCommand(u"Winamp.File", u"C:\\Programs\\Winamp\\Winamp.exe \"%1\"");
    platform->AddFile(kWinampIni, "[Winamp]\r\nvolume=90\r\ncwd=C:\\old\r\n[in_mp3]\r\nx=1\r\n");
  }
  void InstallAll() {
    InstallMusicMatch();
    InstallSonique();
    InstallMediaPlayer();
    InstallWinamp();
  }

  /// Sets the folders and gives what the watcher heard.
  Lines Set() {
    follower = {};
    component.SetObserver(&follower);
    EXPECT_NO_THROW(SetPlayerPlayListFolders(component));
    component.SetObserver(&watcher);
    return follower.settings;
  }
  std::string Value(Hive hive, StringView key, StringView name) {
    const std::optional<RegistryValue> value = platform->Registry().ValueOf(hive, key, name);
    if (!value) return "no value";
    const String* const text = std::get_if<String>(&*value);
    return text == nullptr ? "no text" : Utf8(*text);
  }

  SettingFollower follower;  // what it heard last
  const std::string musicMatch1 = "MusicMatch JukeBox | " + Utf8(kMmdbKey) + ", PlayList Path | " +
                                  kBase + "MusicMatch JukeBox";
  const std::string musicMatch2 = "MusicMatch JukeBox | " + Utf8(kMainAppKey) +
                                  ", PlayListPath | " + kBase + "MusicMatch JukeBox";
  const std::string sonique =
      "Sonique | " + Utf8(kSoniqueKey) + ", DefaultFilesDirectory | " + kBase + "Sonique";
  const std::string player1 = "Windows Media Player | " + Utf8(kPlayerKey) + ", OpenDir | " +
                              kBase + "Windows Media Player";
  const std::string player2 = "Windows Media Player | " + Utf8(kPlayerKey) + ", SaveAsDir | " +
                              kBase + "Windows Media Player";
  const std::string winamp = "Winamp | " + Utf8(kWinampIni) + ", cwd | " + kBase + "Winamp";
};

TEST_F(PlayerFoldersTest, EachInstalledPlayerIsPointedAtItsFolder) {
  InstallAll();
  EXPECT_EQ(Set(), Lines({musicMatch1, musicMatch2, sonique, player1, player2, winamp}));
  const std::string base = kBase;
  EXPECT_EQ(Value(Hive::LocalMachine, kMmdbKey, u"PlayList Path"), base + "MusicMatch JukeBox");
  EXPECT_EQ(Value(Hive::LocalMachine, kMainAppKey, u"PlayListPath"), base + "MusicMatch JukeBox");
  EXPECT_EQ(Value(Hive::CurrentUser, kSoniqueKey, u"DefaultFilesDirectory"), base + "Sonique");
  EXPECT_EQ(Value(Hive::CurrentUser, kPlayerKey, u"OpenDir"), base + "Windows Media Player");
  EXPECT_EQ(Value(Hive::CurrentUser, kPlayerKey, u"SaveAsDir"), base + "Windows Media Player");
  EXPECT_EQ(platform->Bytes(kWinampIni),
            "[Winamp]\r\nvolume=90\r\ncwd=" + base + "Winamp\r\n[in_mp3]\r\nx=1\r\n");
  EXPECT_EQ(platform->Calls(u"Registry.Write"), 5u);
  EXPECT_FALSE(platform->HasFolder(u"C:\\My Documents\\Norvo Media\\PlayLists"));
  EXPECT_TRUE(log.empty());
}

TEST_F(PlayerFoldersTest, WithoutAPlayerNothingIsWritten) {
  EXPECT_EQ(Set(), Lines());
  EXPECT_EQ(follower.lost, Lines());
  EXPECT_EQ(platform->Calls(u"Registry.Write") + platform->Calls(u"Settings.Write"), 0u);
  EXPECT_TRUE(log.empty());
}

TEST_F(PlayerFoldersTest, ARegisteredPlayerWithoutItsProgramIsNotInstalled) {
  InstallAll();
  for (const StringView path : {StringView(u"C:\\Programs\\MusicMatch\\mmjb.exe"),
                                StringView(u"C:\\Programs\\Sonique\\Sonique.exe"),
                                StringView(u"C:\\Programs\\WMP\\wmplayer.exe"), kWinampIni}) {
    platform->Files().RemoveFile(path);
    platform->AddFolder(path);  // a folder is no program
  }
  EXPECT_EQ(Set(), Lines());
  EXPECT_EQ(platform->Calls(u"Registry.Write") + platform->Calls(u"Settings.Write"), 0u);
}

TEST_F(PlayerFoldersTest, AProgramThatIsNotRegisteredIsNotInstalled) {
  InstallMusicMatch();
  InstallMediaPlayer();
  for (const StringView program : {u"MMJB.EXE", u"wmplayer.exe"}) {
    platform->SetRegistry(Hive::LocalMachine, String(kAppPaths) + String(program), u"Path",
                          String(u"\\\\server\\share"));
  }
  platform->SetRegistry(Hive::CurrentUser, String(kAppPaths) + u"MMJB.EXE", u"Path",
                        String(u"C:\\Programs\\MusicMatch"));
  EXPECT_EQ(Set(), Lines());
}

TEST_F(PlayerFoldersTest, AProgramInTheDrivesRootIsNotFoundByChance) {
  for (const StringView path : {u"C:\\mmjb.exe", u"C:\\Sonique.exe", u"C:\\wmplayer.exe"}) {
    platform->AddFile(path, "x");
  }
  platform->AddFile(u"C:\\Winamp.ini", "");
  for (const StringView key : {kMmdbKey, kMainAppKey}) {
    platform->Registry().AddKey(Hive::LocalMachine, key);
  }
  for (const StringView key : {kSoniqueKey, kPlayerKey}) {
    platform->Registry().AddKey(Hive::CurrentUser, key);
  }
  EXPECT_EQ(Set(), Lines());
  EXPECT_EQ(platform->Bytes(u"C:\\Winamp.ini"), "");
}

struct CommandRow {
  const char16_t* command;
  bool installed;
};

TEST_F(PlayerFoldersTest, TheCommandOfAFileTypeMustNameTheProgramBehindADrive) {
  constexpr CommandRow kRows[] = {
      {u"C:\\Programs\\Winamp\\Winamp.exe \"%1\"", true},
      {u"c:\\programs\\winamp\\WINAMP.EXE", true},
      {u"C:\\Programs\\Winamp\\Other.exe \"%1\"", false},
      {u"\"C:\\Programs\\Winamp\\Winamp.exe\" \"%1\"", false},
      {u"Winamp.exe \"%1\"", false},
      {u"\\\\server\\Winamp\\Winamp.exe", false},
      {u"", false},
  };
  for (const CommandRow& row : kRows) {
    InstallWinamp();
    SetOpenCommand(u"Winamp.File", row.command);
    EXPECT_EQ(Set().size(), row.installed ? 1u : 0u) << Utf8(row.command);
    EXPECT_EQ(platform->Bytes(kWinampIni).find("cwd=C:\\old") == std::string::npos, row.installed)
        << Utf8(row.command);
  }
}

TEST_F(PlayerFoldersTest, WinampNeedsItsSettingsFileAndNotItsProgram) {
  InstallWinamp();
  ASSERT_FALSE(platform->HasFile(u"C:\\Programs\\Winamp\\Winamp.exe"));
  EXPECT_EQ(Set(), Lines({winamp}));
  platform->Files().RemoveFile(kWinampIni);
  platform->AddFile(u"C:\\Programs\\Winamp\\Winamp.exe", "x");
  EXPECT_EQ(Set(), Lines());
  EXPECT_FALSE(platform->HasFile(kWinampIni));
}

TEST_F(PlayerFoldersTest, ASettingsFileWithoutTheSectionGetsIt) {
  InstallWinamp();
  platform->AddFile(kWinampIni, "");
  EXPECT_EQ(Set(), Lines({winamp}));
  EXPECT_EQ(platform->Bytes(kWinampIni), "[Winamp]\r\ncwd=" + std::string(kBase) + "Winamp\r\n");
}

TEST_F(PlayerFoldersTest, ASettingsFileThatCannotBeReadOrWrittenIsToldAndNotLogged) {
  InstallWinamp();
  const std::string before = platform->Bytes(kWinampIni);
  platform->Files().SetReadOnly(kWinampIni);
  EXPECT_EQ(Set(), Lines());
  EXPECT_EQ(follower.lost, Lines({winamp}));
  EXPECT_TRUE(follower.reasons.front().starts_with("Permission denied")) << follower.reasons[0];
  EXPECT_EQ(platform->Bytes(kWinampIni), before);
  platform->Files().Deny(kWinampIni);
  EXPECT_EQ(Set(), Lines());
  EXPECT_EQ(follower.lost, Lines({winamp}));
  EXPECT_EQ(platform->Bytes(kWinampIni), before);
  EXPECT_TRUE(log.empty());
}

TEST_F(PlayerFoldersTest, KeysAreOpenedInTheirOwnHiveAndNeverMade) {
  platform->AddFile(u"C:\\Programs\\MusicMatch\\mmjb.exe", "x");
  platform->AddFile(u"C:\\Programs\\Sonique\\Sonique.exe", "x");
  platform->AddFile(u"C:\\Programs\\WMP\\wmplayer.exe", "x");
  platform->SetRegistry(Hive::LocalMachine, String(kAppPaths) + u"MMJB.EXE", u"Path",
                        String(u"C:\\Programs\\MusicMatch"));
  platform->SetRegistry(Hive::LocalMachine, String(kAppPaths) + u"wmplayer.exe", u"Path",
                        String(u"C:\\Programs\\WMP"));
  SetOpenCommand(u"Sonique.File", u"C:\\Programs\\Sonique\\Sonique.exe");
  // Each key stands in the other hive only: the players have never been used, and nobody is told.
  platform->Registry().AddKey(Hive::CurrentUser, kMmdbKey);
  platform->Registry().AddKey(Hive::CurrentUser, kMainAppKey);
  platform->Registry().AddKey(Hive::LocalMachine, kSoniqueKey);
  platform->Registry().AddKey(Hive::LocalMachine, kPlayerKey);
  EXPECT_EQ(Set(), Lines());
  EXPECT_EQ(follower.lost, Lines());
  EXPECT_EQ(platform->Calls(u"Registry.Write"), 0u);
  EXPECT_FALSE(platform->Registry().HasKey(Hive::LocalMachine, kMmdbKey));
  EXPECT_FALSE(platform->Registry().HasKey(Hive::CurrentUser, kSoniqueKey));
  EXPECT_EQ(platform->Calls(u"Registry.CreateKey"), 0u);
}

TEST_F(PlayerFoldersTest, TheTwoKeysOfMusicMatchAreIndependent) {
  for (const StringView present : {kMmdbKey, kMainAppKey}) {
    platform = std::make_shared<MemoryPlatform>();
    platform->ConfigureProduct();
    library = OpenLibrary(platform);
    platform->SetRegistry(Hive::LocalMachine, String(kAppPaths) + u"MMJB.EXE", u"Path",
                          String(u"C:\\Programs\\MusicMatch"));
    platform->AddFile(u"C:\\Programs\\MusicMatch\\mmjb.exe", "x");
    platform->Registry().AddKey(Hive::LocalMachine, present);
    SettingFollower hears;
    library->SetObserver(&hears);
    SetPlayerPlayListFolders(*library);
    library->SetObserver(nullptr);
    EXPECT_EQ(hears.settings, Lines({present == kMmdbKey ? musicMatch1 : musicMatch2}));
  }
}

TEST_F(PlayerFoldersTest, AKeyThatRefusesSkipsItsSettingAndTheNextPlayersAreStillHandled) {
  InstallAll();
  platform->FailOn(u"Registry.Write", 1, error::kPermissionDenied);
  EXPECT_EQ(Set(), Lines({musicMatch2, sonique, player1, player2, winamp}));
  EXPECT_EQ(follower.lost, Lines({musicMatch1}));
  EXPECT_EQ(follower.reasons, Lines({"Permission denied"}));
  platform->FailOn(u"Registry.Write", 4, error::kPermissionDenied);
  EXPECT_EQ(Set(), Lines({musicMatch1, musicMatch2, sonique, player2, winamp}));
  EXPECT_EQ(follower.lost, Lines({player1}));
  platform->Registry().RefuseWrites();
  EXPECT_EQ(Set(), Lines({winamp}));
  EXPECT_EQ(follower.lost, Lines({musicMatch1, musicMatch2, sonique, player1, player2}));
  EXPECT_EQ(follower.reasons, Lines(5));  // which the registry does not tell
  EXPECT_TRUE(log.empty());
}

TEST_F(PlayerFoldersTest, WithoutSubNamesTheBaseIsTheGroupRootAlone) {
  InstallSonique();
  platform->Files().RemoveFile(String(kGroupRoot) + u"SubNames.txt");
  Set();
  EXPECT_EQ(Value(Hive::CurrentUser, kSoniqueKey, u"DefaultFilesDirectory"),
            "C:\\My Documents\\Norvo Media\\Sonique");
}

TEST_F(PlayerFoldersTest, WithoutAGroupRootNothingIsWritten) {
  platform = std::make_shared<MemoryPlatform>();
  library = OpenLibrary(platform);
  InstallAll();
  SetPlayerPlayListFolders(*library);
  EXPECT_EQ(platform->Calls(u"Registry.Write") + platform->Calls(u"Settings.Write"), 0u);
}

TEST_F(PlayerFoldersTest, APathOutsideTheCodePageMakesTheSettingsFileWide) {
  platform->SetRegistry(Hive::LocalMachine, String(kBaseKey) + u"\\KVS\\KVMediaPlayLists",
                        u"SubGroupRootName", String(u"C:\\Музыка\\"));
  InstallWinamp();
  Set();
  EXPECT_TRUE(platform->Bytes(kWinampIni).starts_with("\xFF\xFE"));
}

TEST_F(PlayerFoldersTest, NothingEscapesFromAFailingMachineAndTheRestIsStillHandled) {
  InstallAll();
  const std::size_t all = Set().size();
  for (const bool memory : {false, true}) {
    bool failed = true;
    std::size_t k = 0;
    while (failed) {
      const auto fresh = OpenLibrary(platform);
      SettingFollower hears;
      fresh->SetObserver(&hears);
      ++k;
      memory ? platform->Log().RunOutOfMemoryAt(k) : platform->FailAt(k, error::kDeviceInputOutput);
      EXPECT_NO_THROW(SetPlayerPlayListFolders(*fresh)) << k;
      failed = platform->Log().HasFailed();
      // What fails costs one player, unless it is the base of all of them.
      const bool hasBase = !hears.settings.empty();
      EXPECT_GE(hears.settings.size(), hasBase ? all - 2 : 0) << k;
      EXPECT_TRUE(failed || hears.settings.size() == all);
      fresh->SetObserver(nullptr);
    }
    EXPECT_GT(k, 15u);
  }
}

}  // namespace
}  // namespace norvo
