#include "controller/HelperManFixture.h"

namespace norvo {
namespace {

class DriveScanTest : public HelperManFixture {
 protected:
  std::string Header() { return "[" + Utf8(kGroupRoot) + "]\r\n"; }
};

TEST_F(DriveScanTest, ThePlaylistsFoundAreListedByType) {
  AddSamplePlaylists(*platform);
  EXPECT_TRUE(GetAllPlaylists(Controller()));
  EXPECT_EQ(LogLines(), Lines({"Starting Drive Scan..."}));
  EXPECT_EQ(ListText(), Header() +
                            "WINAMP_PLS Total=1\r\nWMP_ASX Total=1\r\nMMJB_M3U Total=1\r\n"
                            "WINAMP_M3U Total=1\r\nSONIQUE_PLS Total=1\r\nWMP_M3U Total=1\r\n"
                            "[WINAMP_PLS]\r\nFile1=C:\\Music\\Amp.pls\r\n"
                            "[WMP_ASX]\r\nFile1=C:\\Music\\Best.m3u.asx\r\n"
                            "[MMJB_M3U]\r\nFile1=C:\\Music\\Jukebox.m3u\r\n"
                            "[WINAMP_M3U]\r\nFile1=C:\\Music\\Road Trip.m3u\r\n"
                            "[SONIQUE_PLS]\r\nFile1=C:\\Music\\Sonic.pls\r\n"
                            "[WMP_M3U]\r\nFile1=C:\\Music\\Window.m3u\r\n");
  EXPECT_EQ(GetPLSList(Controller()),
            Lines({"C:\\Music\\Best.m3u.asx", "C:\\Music\\Window.m3u", "C:\\Music\\Road Trip.m3u",
                   "C:\\Music\\Amp.pls", "C:\\Music\\Jukebox.m3u", "C:\\Music\\Sonic.pls"}));
}

TEST_F(DriveScanTest, WithoutAPlaylistThereIsNoList) {
  AddList({"WMP_ASX Total=1"});
  EXPECT_TRUE(GetAllPlaylists(Controller()));
  EXPECT_FALSE(platform->HasFile(kListFile));
}

TEST_F(DriveScanTest, ASecondScanReplacesTheList) {
  AddSamplePlaylists(*platform);
  ASSERT_TRUE(GetAllPlaylists(Controller()));
  const std::string first = ListText();
  ASSERT_TRUE(GetAllPlaylists(Controller()));
  EXPECT_EQ(ListText(), first);
  platform->Files().SetReadOnly(kListFile);
  ASSERT_TRUE(GetAllPlaylists(NewController()));
  EXPECT_EQ(ListText(), first);
}

TEST_F(DriveScanTest, FixedDrivesAreWalkedInLetterOrderFilesBeforeFolders) {
  platform->AddDrive(u'E', DriveType::Fixed);
  platform->AddDrive(u'D', DriveType::Fixed);
  platform->AddDrive(u'F', DriveType::CdRom);
  platform->AddDrive(u'G', DriveType::Removable);
  platform->AddDrive(u'H', DriveType::Network);
  platform->AddDrive(u'I', DriveType::RamDisk);
  for (const StringView path :
       {u"E:\\1.asx", u"D:\\b.asx", u"D:\\A\\x.asx", u"D:\\C.asx", u"D:\\a\\b\\y.asx", u"C:\\z.asx",
        u"F:\\1.asx", u"G:\\1.asx", u"H:\\1.asx", u"I:\\1.asx"}) {
    platform->AddFile(path, "x");
  }
  ASSERT_TRUE(GetAllPlaylists(Controller()));
  EXPECT_EQ(GetPLSList(Controller()), Lines({"C:\\z.asx", "D:\\b.asx", "D:\\C.asx", "D:\\A\\x.asx",
                                             "D:\\A\\b\\y.asx", "E:\\1.asx"}));
}

TEST_F(DriveScanTest, SystemFoldersAreSkippedWithAllBelow) {
  for (const StringView folder : {u"System Volume Information", u"system volume information 2",
                                  u"RECYCLER", u"Recycled", u"$Recycle.Bin", u"My recycle things",
                                  u"Temporary Internet Files", u"Old TEMPORARY INTERNET FILES 5"}) {
    platform->AddFile(u"C:\\top\\" + String(folder) + u"\\a.asx", "x");
    platform->AddFile(u"C:\\top\\" + String(folder) + u"\\deep\\a.asx", "x");
  }
  platform->AddFile(u"C:\\top\\My System Volume Information\\a.asx", "x");
  platform->AddFile(u"C:\\top\\Recycle.asx", "x");
  ASSERT_TRUE(GetAllPlaylists(Controller()));
  EXPECT_EQ(GetPLSList(Controller()),
            Lines({"C:\\top\\Recycle.asx", "C:\\top\\My System Volume Information\\a.asx"}));
}

TEST_F(DriveScanTest, NamesAreToldByTheirEndingWithoutRegardToCase) {
  platform->AddFile(u"C:\\MIX.ASX", "x");
  platform->AddFile(u"C:\\Mix.M3U", "#EXTM3U");
  platform->AddFile(u"C:\\Mix.Pls", "[playlist]\r\n");
  platform->AddFile(u"C:\\nopointasx", "x");
  platform->AddFile(u"C:\\x.myasx", "x");
  platform->AddFile(u"C:\\x.asx.bak", "x");
  platform->AddFolder(u"C:\\folder.asx");
  ASSERT_TRUE(GetAllPlaylists(Controller()));
  EXPECT_EQ(GetPLSList(Controller()), Lines({"C:\\MIX.ASX", "C:\\Mix.M3U", "C:\\Mix.Pls"}));
}

TEST_F(DriveScanTest, FilesOfNoTypeAreNotListedAndAnAsxAlwaysIs) {
  platform->AddFile(u"C:\\a.m3u", "a.mp3\r\n");
  platform->AddFile(u"C:\\b.m3u", "");
  platform->AddFile(u"C:\\c.pls", "[playlist]\r\nVersion=7\r\n");
  platform->AddFile(u"C:\\d.asx", "");
  platform->AddFile(u"C:\\e.asx", "#EXTM3U");
  ASSERT_TRUE(GetAllPlaylists(Controller()));
  EXPECT_EQ(ListText(),
            Header() + "WMP_ASX Total=2\r\n[WMP_ASX]\r\nFile1=C:\\d.asx\r\nFile2=C:\\e.asx\r\n");
}

TEST_F(DriveScanTest, NamesOfAnyScriptComeBackFromTheList) {
  platform->AddFile(u"C:\\Музыка\\音楽.asx", "x");
  platform->AddFile(u"C:\\Musik\\Ä = [1];.asx", "x");
  ASSERT_TRUE(GetAllPlaylists(Controller()));
  EXPECT_EQ(GetPLSList(NewController()),
            Lines({"C:\\Musik\\Ä = [1];.asx", "C:\\Музыка\\音楽.asx"}));
}

TEST_F(DriveScanTest, AFolderThatCannotBeListedCostsOneLine) {
  platform->AddFile(u"C:\\a\\1.asx", "x");
  platform->AddFile(u"C:\\b\\2.asx", "x");
  platform->AddFile(u"C:\\c\\3.asx", "x");
  platform->Files().Deny(u"C:\\b");
  EXPECT_TRUE(GetAllPlaylists(Controller()));
  EXPECT_EQ(GetPLSList(Controller()), Lines({"C:\\a\\1.asx", "C:\\c\\3.asx"}));
  EXPECT_EQ(LogLines(),
            Lines({"Starting Drive Scan...", "HelperMan::GetAllPlayLists -> Permission denied"}));
}

TEST_F(DriveScanTest, AFileThatCannotBeReadDoesNotStopTheScan) {
  platform->AddFile(u"C:\\a.m3u", "#EXTM3U");
  platform->AddFile(u"C:\\b.m3u", "#EXTM3U");
  platform->Files().Deny(u"C:\\a.m3u");
  EXPECT_TRUE(GetAllPlaylists(Controller()));
  EXPECT_EQ(GetPLSList(Controller()), Lines({"C:\\b.m3u"}));
}

TEST_F(DriveScanTest, WithoutADriveScannerTheFolderWalkServes) {
  AddSamplePlaylists(*platform);
  platform->AddFile(u"C:\\Recycled\\a.asx", "x");
  ASSERT_TRUE(GetAllPlaylists(Controller()));
  const Lines scanned = GetPLSList(Controller());
  platform->SetScanner(MemoryPlatform::ScannerKind::Absent);
  ASSERT_TRUE(GetAllPlaylists(Controller()));
  EXPECT_EQ(GetPLSList(Controller()), scanned);
}

TEST_F(DriveScanTest, AScannerThatCannotBeCreatedEndsTheScan) {
  platform->AddFile(u"C:\\a.asx", "x");
  AddList({"WMP_ASX Total=1"});
  platform->SetScanner(MemoryPlatform::ScannerKind::Raising);
  EXPECT_FALSE(GetAllPlaylists(Controller()));
  EXPECT_EQ(LogLines(), Lines({"Starting Drive Scan...",
                               "HelperMan::GetAllPlayLists -> Exception Thrown: ActiveX component "
                               "can't create object"}));
  EXPECT_FALSE(platform->HasFile(kListFile));
}

TEST_F(DriveScanTest, AMachineOfNeitherRoleIsNotScanned) {
  platform->SetRegistry(Hive::LocalMachine, String(kBaseKey) + u"\\KVS", u"mode", std::int32_t{3});
  platform->AddFile(u"C:\\a.asx", "x");
  EXPECT_FALSE(GetAllPlaylists(Controller()));
  EXPECT_FALSE(platform->HasFile(kListFile));
  ASSERT_EQ(log.size(), 1u);
  EXPECT_TRUE(LogLines()[0].starts_with("HelperMan::GetAllPlayLists -> Exception Thrown: "));
}

TEST_F(DriveScanTest, TheListIsWrittenOnceHoweverManyPlaylistsThereAre) {
  const auto callsFor = [this](int count) {
    for (int i = 0; i < count; ++i) {
      const std::string name = std::to_string(1000 + i);
      platform->AddFile(u"C:\\many\\" + String(name.begin(), name.end()) + u".asx", "x");
    }
    platform->Log().Clear();
    EXPECT_TRUE(GetAllPlaylists(Controller()));
    EXPECT_EQ(platform->Calls(u"Settings.Write"), 1u);
    return platform->Log().Total();
  };
  callsFor(1);
  EXPECT_EQ(callsFor(100), callsFor(300));  // an .asx is listed without being opened
}

}  // namespace
}  // namespace norvo
