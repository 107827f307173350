#include "services/NVServices.h"

#include "automation/RunTimeError.h"
#include "support/LibraryTest.h"

namespace norvo {
namespace {

using namespace NVServices;

class NVServicesTest : public LibraryTest {
 protected:
  Lines TraceOf(StringView operation) {
    Lines lines;
    for (const String& line : platform->Trace()) {
      if (line.starts_with(String(operation) + u" ")) lines.push_back(Utf8(line));
    }
    return lines;
  }
};

TEST_F(NVServicesTest, AFolderExistsOrIsCreatedWhenAsked) {
  platform->AddFolder(u"C:\\Music");
  platform->AddFile(u"C:\\file", "x");
  EXPECT_TRUE(DoesPathExist(component, u"c:\\MUSIC\\", false));
  EXPECT_FALSE(DoesPathExist(component, u"C:\\a\\b", false));
  EXPECT_FALSE(DoesPathExist(component, u"C:\\file", false));
  EXPECT_EQ(platform->Calls(u"CreateFolder"), 0u);
  EXPECT_TRUE(DoesPathExist(component, u"C:\\a\\b", true));
  EXPECT_TRUE(platform->HasFolder(u"C:\\a\\b"));
  EXPECT_TRUE(log.empty());
}

TEST_F(NVServicesTest, AnErrorOfTheFolderQuestionIsLoggedAndFalse) {
  platform->AddFolder(u"C:\\Music");
  platform->FailOn(u"FolderExists", 1, error::kPermissionDenied);
  EXPECT_FALSE(DoesPathExist(component, u"C:\\Music", true));
  EXPECT_EQ(Utf8(log), (Lines{"NVServices::DoesPathExist -> ERROR!!!  Permission denied"}));
}

TEST_F(NVServicesTest, AFileExistsAndAFolderIsNone) {
  platform->AddFile(u"C:\\a.mp3", "x");
  platform->AddFolder(u"C:\\b.mp3");
  EXPECT_TRUE(DoesFileExist(component, u"C:\\A.MP3"));
  EXPECT_FALSE(DoesFileExist(component, u"C:\\b.mp3"));
  EXPECT_FALSE(DoesFileExist(component, u"C:\\c.mp3"));
  EXPECT_FALSE(DoesFileExist(component, u""));
  EXPECT_TRUE(log.empty());
}

TEST_F(NVServicesTest, TheFactsOfAFileAreTheDisks) {
  platform->AddFile(u"C:\\Song.mp3", "12345", 77);
  const std::optional<FileFacts> facts = FactsOfFile(component, u"c:\\sONG.MP3");
  ASSERT_TRUE(facts.has_value());
  EXPECT_TEXT(facts->name, u"Song.mp3");
  EXPECT_EQ(facts->size, 5);
  EXPECT_EQ(facts->created, 77);
}

TEST_F(NVServicesTest, AnErrorOfTheFileQuestionIsLoggedAndFalse) {
  platform->AddFile(u"C:\\a.mp3", "x");
  platform->FailOn(u"FactsOf", 1, error::kDeviceInputOutput);
  EXPECT_FALSE(DoesFileExist(component, u"C:\\a.mp3"));
  EXPECT_EQ(Utf8(log), (Lines{"NVServices::DoesFileExist -> ERROR!!!  Device I/O error"}));
}

TEST_F(NVServicesTest, AChainOfFoldersIsCreatedFromTheRootOutwards) {
  EXPECT_TRUE(CreatePath(component, u"C:\\a\\b\\c"));
  EXPECT_EQ(TraceOf(u"CreateFolder"),
            (Lines{"CreateFolder C:\\a", "CreateFolder C:\\a\\b", "CreateFolder C:\\a\\b\\c"}));
  EXPECT_TRUE(platform->HasFolder(u"C:\\a\\b\\c"));
  EXPECT_TRUE(log.empty());
}

TEST_F(NVServicesTest, ATrailingBackslashMakesNoDifference) {
  EXPECT_TRUE(CreatePath(component, u"C:\\a\\b\\"));
  EXPECT_EQ(TraceOf(u"CreateFolder"), (Lines{"CreateFolder C:\\a", "CreateFolder C:\\a\\b"}));
}

TEST_F(NVServicesTest, ExistingFoldersAreNotCreated) {
  platform->AddFolder(u"C:\\a\\b");
  EXPECT_TRUE(CreatePath(component, u"C:\\A\\B"));
  EXPECT_TRUE(CreatePath(component, u"C:\\"));
  EXPECT_EQ(platform->Calls(u"CreateFolder"), 0u);
  EXPECT_TRUE(log.empty());
}

TEST_F(NVServicesTest, ALevelThatFailsIsReportedAndTheWalkGoesOn) {
  platform->FailOn(u"CreateFolder", 1, error::kPermissionDenied);
  EXPECT_FALSE(CreatePath(component, u"C:\\a\\b"));
  EXPECT_EQ(TraceOf(u"CreateFolder"), (Lines{"CreateFolder C:\\a", "CreateFolder C:\\a\\b"}));
  EXPECT_EQ(Utf8(log), (Lines{" NVServices::CreatePath -> ERROR!!!  Permission denied",
                              " NVServices::CreatePath -> ERROR!!!  Path not found"}));
}

TEST_F(NVServicesTest, APassingErrorAtOneLevelDoesNotSpoilTheResult) {
  platform->AddFolder(u"C:\\a");
  platform->FailOn(u"FolderExists", 1, error::kDeviceInputOutput);
  EXPECT_TRUE(CreatePath(component, u"C:\\a\\b"));
  EXPECT_EQ(Utf8(log), (Lines{" NVServices::CreatePath -> ERROR!!!  Device I/O error"}));
}

TEST_F(NVServicesTest, EachLevelOfAChainIsAskedForOnceAndTheWholeOnceMore) {
  const std::pair<StringView, Lines> rows[] = {
      {u"C:\\", {"C:", "C:"}},
      {u"C:\\a\\\\", {"C:\\", "C:\\a", "C:\\a\\", "C:\\a\\"}},
      {u"\\\\server\\share", {"\\", "\\\\server", "\\\\server\\share", "\\\\server\\share"}}};
  platform->AddFolder(u"C:\\a");
  for (const auto& [path, asked] : rows) {
    platform->Log().Clear();
    CreatePath(component, path);
    Lines expected;
    for (const std::string& folder : asked) expected.push_back("FolderExists " + folder);
    EXPECT_EQ(TraceOf(u"FolderExists"), expected) << Utf8(path);
  }
  platform->Log().Clear();
  CreatePath(component, {});
  EXPECT_EQ(platform->Calls(u"FolderExists"), 2u);
}

TEST_F(NVServicesTest, WhatCannotBeAFolderIsNotCreated) {
  platform->AddFile(u"C:\\file", "x");
  for (const StringView path :
       {u"C:\\file", u"C:\\file\\b", u"Q:\\a", u"\\\\server\\share\\a", u""}) {
    EXPECT_FALSE(CreatePath(component, path)) << Utf8(path);
  }
  EXPECT_FALSE(log.empty());
}

TEST_F(NVServicesTest, TheDocumentsFolderHasOneBackslashAndIsCreated) {
  EXPECT_TEXT(GetCSIDLPath(component, 5), u"C:\\My Documents\\");
  EXPECT_TRUE(platform->HasFolder(u"C:\\My Documents"));
  EXPECT_EQ(TraceOf(u"Shell.FolderPath"), (Lines{"Shell.FolderPath 32773"}));
  EXPECT_EQ(TraceOf(u"FileVersion"), (Lines{"FileVersion C:\\WINDOWS\\system32\\shfolder.dll"}));
  EXPECT_EQ(platform->Calls(u"Shell.SpecialFolderPath"), 0u);
  platform->Shell().SetFolder(5, u"C:\\Docs\\");
  EXPECT_TEXT(GetCSIDLPath(component, 5), u"C:\\Docs\\");
  EXPECT_TRUE(log.empty());
}

TEST_F(NVServicesTest, TheOlderCallIsAskedWhereTheLibraryHasNoVersion) {
  platform->Files().SetVersion(u"C:\\WINDOWS\\system32\\shfolder.dll", u"");
  platform->Shell().SetSpecialFolder(5, u"C:\\Older");
  EXPECT_TEXT(GetCSIDLPath(component, 5), u"C:\\Older\\");
  EXPECT_EQ(platform->Calls(u"Shell.FolderPath"), 0u);
  EXPECT_EQ(TraceOf(u"Shell.SpecialFolderPath"), (Lines{"Shell.SpecialFolderPath 5"}));
}

TEST_F(NVServicesTest, TheOlderCallIsAskedWhenTheNewerGivesNothingUsable) {
  using Answer = ShellFolders::Answer;
  const std::optional<Answer> answers[] = {std::nullopt, Answer{0, u""}, Answer{0x80004005, u""},
                                           Answer{0x80070057, u"C:\\Newer"}};
  platform->Shell().SetSpecialFolder(5, u"C:\\Older");
  for (const std::optional<Answer>& answer : answers) {
    platform->Shell().SetAnswer(answer);
    EXPECT_TEXT(GetCSIDLPath(component, 5), u"C:\\Older\\");
  }
}

TEST_F(NVServicesTest, AnyOtherStatusKeepsWhatTheBufferHolds) {
  platform->Shell().SetAnswer(ShellFolders::Answer{1, u"C:\\Newer"});
  EXPECT_TEXT(GetCSIDLPath(component, 5), u"C:\\Newer\\");
}

TEST_F(NVServicesTest, OnlyFoldersOnADriveAreGiven) {
  for (const StringView path : {u"\\\\server\\docs", u"", u"docs", u"C:", u"C:\\", u"C:/Docs"}) {
    platform->Shell().SetFolder(5, path);
    EXPECT_TEXT(GetCSIDLPath(component, 5), u"") << Utf8(path);
  }
  EXPECT_EQ(platform->Calls(u"CreateFolder"), 0u);
}

TEST_F(NVServicesTest, AnUnknownFolderIsEmpty) {
  EXPECT_TEXT(GetCSIDLPath(component, 99), u"");
  EXPECT_TEXT(GetCSIDLPath(component, -1), u"");
}

TEST_F(NVServicesTest, TheBufferIsCutAtItsFirstNulAndEndsAfter259Characters) {
  platform->Shell().SetFolder(5, StringView(u"C:\\Docs\0rest", 12));
  EXPECT_TEXT(GetCSIDLPath(component, 5), u"C:\\Docs\\");
  platform->Shell().SetFolder(5, u"C:\\" + String(400, u'd'));
  EXPECT_TEXT(GetCSIDLPath(component, 5), u"C:\\" + String(256, u'd') + u"\\");
}

TEST_F(NVServicesTest, AFolderThatCannotBeCreatedIsEmpty) {
  platform->Shell().SetFolder(5, u"Q:\\Docs");
  EXPECT_TEXT(GetCSIDLPath(component, 5), u"");
}

TEST_F(NVServicesTest, AnErrorOfTheShellIsLoggedAndEmpty) {
  platform->FailOn(u"Shell.FolderPath", 1, error::kOutOfMemory);
  EXPECT_TEXT(GetCSIDLPath(component, 5), u"");
  EXPECT_EQ(Utf8(log), (Lines{" NVServices::GetCSIDLPath -> ERROR!!!  Out of memory"}));
}

TEST_F(NVServicesTest, AFileVersionIsGivenWhenThereIsOne) {
  platform->Files().SetVersion(u"C:\\a.exe", u"1.2.3.4");
  String version = u"before";
  EXPECT_FALSE(GetFileVersionString(component, u"", version));
  EXPECT_EQ(platform->Calls(u"FileVersion"), 0u);
  EXPECT_FALSE(GetFileVersionString(component, u"C:\\b.exe", version));
  EXPECT_TEXT(version, u"before");
  EXPECT_TRUE(GetFileVersionString(component, u"C:\\a.exe", version));
  EXPECT_TEXT(version, u"1.2.3.4");
}

TEST_F(NVServicesTest, AnErrorOfTheVersionIsLoggedAndFalse) {
  platform->Files().SetVersion(u"C:\\a.exe", u"1.2.3.4");
  platform->FailOn(u"FileVersion", 1, error::kPermissionDenied);
  String version = u"before";
  EXPECT_FALSE(GetFileVersionString(component, u"C:\\a.exe", version));
  EXPECT_TEXT(version, u"before");
  ASSERT_EQ(log.size(), 1u);
  EXPECT_TRUE(log[0].ends_with(u" -> ERROR!!!  Permission denied"));
}

TEST_F(NVServicesTest, TextsAreCutAtTheirFirstNulAndTrimmed) {
  EXPECT_TEXT(StripNull(u""), u"");
  EXPECT_TEXT(StripNull(u"abc"), u"abc");
  EXPECT_TEXT(StripNull(u"  a c  "), u"a c");
  EXPECT_TEXT(StripNull(StringView(u" ab \0cd", 7)), u"ab");
  EXPECT_TEXT(StripNull(StringView(u"\0abc", 4)), u"");
  EXPECT_TEXT(StripNull(StringView(u"\0", 1)), u"");
  EXPECT_TEXT(StripNull(StringView(u"a\0\0", 3)), u"a");
  EXPECT_TEXT(StripNull(u"\ta\r\n"), u"\ta\r\n");
}

TEST_F(NVServicesTest, TheGroupRootComesFromTheProductsKey) {
  platform->ConfigureProduct();
  String root;
  GetSubGroupRoot(component, u"KVMediaPlayLists", root);
  EXPECT_TEXT(root, kGroupRoot);
  platform->SetRegistry(Hive::CurrentUser, String(kBaseKey) + u"\\KVS\\KVMediaPlayLists",
                        u"SubGroupRootName", String(u"D:\\User"));
  GetSubGroupRoot(component, u"KVMediaPlayLists", root);
  EXPECT_TEXT(root, u"D:\\User");
}

TEST_F(NVServicesTest, AGroupRootThatCannotBeHadLeavesTheResult) {
  String root = u"before";
  GetSubGroupRoot(component, u"KVMediaPlayLists", root);
  EXPECT_TEXT(root, u"before");
  platform->ConfigureProduct();
  GetSubGroupRoot(component, u"Other", root);
  EXPECT_TEXT(root, u"before");
  platform->Product().SetBaseKey(u"");
  GetSubGroupRoot(component, u"KVMediaPlayLists", root);
  EXPECT_TEXT(root, u"before");
  platform->Product().SetBaseKey(kBaseKey);
  platform->SetRegistry(Hive::LocalMachine, String(kBaseKey) + u"\\KVS\\KVMediaPlayLists",
                        u"SubGroupRootName", std::int32_t{7});
  GetSubGroupRoot(component, u"KVMediaPlayLists", root);
  EXPECT_TEXT(root, u"before");
  EXPECT_TRUE(log.empty());
}

TEST_F(NVServicesTest, AnErrorOfTheGroupRootIsLogged) {
  platform->ConfigureProduct();
  platform->FailOn(u"Registry.Read", 1, error::kPermissionDenied);
  String root = u"before";
  GetSubGroupRoot(component, u"KVMediaPlayLists", root);
  EXPECT_TEXT(root, u"before");
  EXPECT_EQ(Utf8(log), (Lines{"NVServices::GetSubGroupRoot -> ERROR!!!  Permission denied"}));
}

TEST_F(NVServicesTest, AllDrivesAreListedInLetterOrder) {
  platform->AddDrive(u'N', DriveType::Network);
  platform->AddDrive(u'a', DriveType::Removable);
  platform->AddDrive(u'D', DriveType::CdRom);
  String letters;
  for (const Drive& drive : GetPartitionList(component)) letters.push_back(drive.letter);
  EXPECT_TEXT(letters, u"ACDN");
}

TEST_F(NVServicesTest, AnErrorOfTheDrivesIsLoggedAndGivesNone) {
  platform->FailOn(u"Drives", 1, error::kDeviceInputOutput);
  EXPECT_TRUE(GetPartitionList(component).empty());
  EXPECT_EQ(Utf8(log), (Lines{" NVServices::GetPartitionList -> Encountered Errors: Error Data "
                              "is: Device I/O error"}));
}

TEST_F(NVServicesTest, EveryFailureIsLoggedAndNoneReachesTheCaller) {
  void (*const kRoutines[])(Component&) = {
      [](Component& c) { DoesPathExist(c, u"C:\\a\\b", true); },
      [](Component& c) { DoesFileExist(c, u"C:\\a.mp3"); },
      [](Component& c) { CreatePath(c, u"C:\\c\\d"); },
      [](Component& c) { GetCSIDLPath(c, 5); },
      [](Component& c) {
        String version;
        GetFileVersionString(c, u"C:\\a.exe", version);
      },
      [](Component& c) {
        String root;
        GetSubGroupRoot(c, u"KVMediaPlayLists", root);
      },
      [](Component& c) { GetPartitionList(c); },
  };
  for (std::size_t routine = 0; routine < std::size(kRoutines); ++routine) {
    for (const bool memory : {false, true}) {
      std::size_t k = 0;
      do {
        const auto machine = std::make_shared<MemoryPlatform>();
        machine->ConfigureProduct();
        Component fresh(machine, {});
        fresh.SetObserver(&watcher);
        log.clear();
        ++k;
        if (memory) {
          machine->Log().RunOutOfMemoryAt(k);
        } else {
          machine->FailAt(k, error::kDeviceInputOutput);
        }
        EXPECT_NO_THROW(kRoutines[routine](fresh)) << "routine " << routine << ", call " << k;
        machine->Log().StopFailing();
        platform = machine;
        EXPECT_EQ(log.empty(), !machine->Log().HasFailed())
            << "routine " << routine << ", call " << k;
      } while (platform->Log().HasFailed());
      EXPECT_GT(k, 1u);
    }
  }
}

}  // namespace
}  // namespace norvo
