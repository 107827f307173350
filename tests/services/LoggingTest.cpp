#include "services/Logging.h"

#include "automation/RunTimeError.h"
#include "support/LibraryTest.h"

namespace norvo {
namespace {

class LoggingTest : public LibraryTest {
 protected:
  void SwitchTo(std::int32_t mode) {
    platform->SetRegistry(Hive::CurrentUser, kDebugKey, u"VBDebugOut", mode);
  }
  bool NothingWasWrittenOrShown() {
    return platform->Files().AllFiles().empty() && platform->Messages().Shown().empty();
  }
};

TEST_F(LoggingTest, WithoutADebugKeyNothingIsWrittenOrShown) {
  platform->AddFolder(u"C:\\Norvo");
  WriteLog(component, u"message");
  EXPECT_TRUE(NothingWasWrittenOrShown());
}

TEST_F(LoggingTest, OnlyModesOneAndThreeDoAnything) {
  for (const std::int32_t mode : {0, 2, 4, -1, 2147483647}) {
    Component fresh(platform, {});
    platform->AddFolder(u"C:\\Norvo");
    SwitchTo(mode);
    WriteLog(fresh, u"message");
    EXPECT_TRUE(NothingWasWrittenOrShown()) << mode;
  }
}

TEST_F(LoggingTest, ModeOneShowsEachMessageWithoutATitle) {
  SwitchTo(1);
  WriteLog(component, u"first");
  WriteLog(component, u"second");
  const auto& shown = platform->Messages().Shown();
  ASSERT_EQ(shown.size(), 2u);
  EXPECT_TEXT(shown[0].first, u"");
  EXPECT_TEXT(shown[0].second, u"first");
  EXPECT_TEXT(shown[1].second, u"second");
}

TEST_F(LoggingTest, ModeThreeAppendsOneLinePerMessageInCallOrder) {
  SwitchTo(3);
  platform->AddFile(u"C:\\Norvo\\VBLog.txt", "old\r\n");
  WriteLog(component, u"first");
  WriteLog(component, u"");
  WriteLog(component, u"third, with   blanks  ");
  EXPECT_EQ(platform->Bytes(u"C:\\Norvo\\VBLog.txt"),
            "old\r\nfirst\r\n\r\nthird, with   blanks  \r\n");
}

TEST_F(LoggingTest, ModeThreeCreatesTheFile) {
  SwitchTo(3);
  platform->AddFolder(u"C:\\Norvo");
  WriteLog(component, u"message");
  EXPECT_EQ(platform->Bytes(u"C:\\Norvo\\VBLog.txt"), "message\r\n");
}

TEST_F(LoggingTest, EachMessageIsOneWriteIntoAFileOpenedForIt) {
  SwitchTo(3);
  platform->AddFolder(u"C:\\Norvo");
  WriteLog(component, u"first");
  WriteLog(component, u"second");
  EXPECT_EQ(platform->Calls(u"OpenForAppending"), 2u);
  EXPECT_EQ(platform->Calls(u"Append"), 2u);
}

TEST_F(LoggingTest, LineBreaksWithinAMessageStayAsTheyAre) {
  SwitchTo(3);
  platform->AddFolder(u"C:\\Norvo");
  WriteLog(component, u"a\r\nb\nc");
  EXPECT_EQ(platform->Bytes(u"C:\\Norvo\\VBLog.txt"), "a\r\nb\nc\r\n");
}

TEST_F(LoggingTest, TheFileIsInTheCodePage) {
  SwitchTo(3);
  platform->AddFolder(u"C:\\Norvo");
  WriteLog(component, u"Größe 日");
  EXPECT_EQ(platform->Bytes(u"C:\\Norvo\\VBLog.txt"),
            "Gr\xF6\xDF"
            "e ?\r\n");
}

TEST_F(LoggingTest, TheFolderIsPutBeforeTheNameAsItIs) {
  SwitchTo(3);
  platform->Product().SetFolder(u"C:\\Norvo");
  WriteLog(component, u"message");
  EXPECT_EQ(platform->Bytes(u"C:\\NorvoVBLog.txt"), "message\r\n");
}

TEST_F(LoggingTest, AMissingFolderLosesEveryMessageAndIsNeverCreated) {
  SwitchTo(3);
  WriteLog(component, u"first");
  WriteLog(component, u"second");
  EXPECT_TRUE(NothingWasWrittenOrShown());
  EXPECT_FALSE(platform->HasFolder(u"C:\\Norvo"));
  EXPECT_EQ(platform->Calls(u"CreateFolder"), 0u);
}

TEST_F(LoggingTest, ALockedFileLosesTheMessage) {
  SwitchTo(3);
  platform->AddFile(u"C:\\Norvo\\VBLog.txt", "old\r\n");
  platform->Files().Deny(u"C:\\Norvo\\VBLog.txt");
  WriteLog(component, u"message");
  EXPECT_EQ(platform->Bytes(u"C:\\Norvo\\VBLog.txt"), "old\r\n");
}

TEST_F(LoggingTest, TheCurrentUsersSwitchGoesBeforeTheMachines) {
  platform->SetRegistry(Hive::LocalMachine, kDebugKey, u"VBDebugOut", std::int32_t{1});
  SwitchTo(2);
  WriteLog(component, u"message");
  EXPECT_TRUE(platform->Messages().Shown().empty());
}

TEST_F(LoggingTest, TheMachinesSwitchCountsWhereTheUserHasNoKey) {
  platform->SetRegistry(Hive::LocalMachine, kDebugKey, u"vbdebugout", std::int32_t{1});
  WriteLog(component, u"message");
  EXPECT_EQ(platform->Messages().Shown().size(), 1u);
}

TEST_F(LoggingTest, ASwitchOfAnotherTypeIsNoSwitch) {
  platform->SetRegistry(Hive::CurrentUser, kDebugKey, u"VBDebugOut", String(u"1"));
  WriteLog(component, u"message");
  EXPECT_TRUE(NothingWasWrittenOrShown());
}

TEST_F(LoggingTest, TheSwitchIsReadOnce) {
  WriteLog(component, u"first");
  SwitchTo(1);
  WriteLog(component, u"second");
  EXPECT_TRUE(platform->Messages().Shown().empty());
  Component fresh(platform, {});
  WriteLog(fresh, u"third");
  EXPECT_EQ(platform->Messages().Shown().size(), 1u);
}

TEST_F(LoggingTest, ProductFactsAreAskedOnceAndInOrderBeforeTheSwitch) {
  SwitchTo(0);
  WriteLog(component, u"first");
  EXPECT_EQ(Utf8(platform->Trace()),
            (Lines{"Product.BaseKey", "Product.Folder", "Product.Name",
                   "Registry.KeyExists HKCU\\Software\\Norvo\\Debug",
                   "Registry.Read HKCU\\Software\\Norvo\\Debug\\VBDebugOut"}));
  platform->Log().Clear();
  WriteLog(component, u"second");
  EXPECT_EQ(platform->Log().Total(), 0u);
}

TEST_F(LoggingTest, AFailedProductServiceIsAskedAgain) {
  SwitchTo(1);
  for (const StringView operation : {u"Product.BaseKey", u"Product.Folder", u"Product.Name"}) {
    Component fresh(platform, {});
    const std::size_t before = platform->Messages().Shown().size();
    platform->FailOn(operation, 1, error::kCannotCreateObject);
    WriteLog(fresh, u"lost");
    EXPECT_EQ(platform->Messages().Shown().size(), before) << Utf8(operation);
    EXPECT_TRUE(fresh.Log().productBaseKey.empty());
    WriteLog(fresh, u"kept");
    EXPECT_EQ(platform->Messages().Shown().size(), before + 1) << Utf8(operation);
  }
}

TEST_F(LoggingTest, AFailedRegistryIsAskedAgainAndTheProductIsNot) {
  SwitchTo(1);
  for (const StringView operation : {u"Registry.KeyExists", u"Registry.Read"}) {
    Component fresh(platform, {});
    const std::size_t before = platform->Messages().Shown().size();
    platform->Log().Clear();
    platform->FailOn(operation, 1, error::kPermissionDenied);
    WriteLog(fresh, u"lost");
    EXPECT_FALSE(fresh.Log().loaded);
    WriteLog(fresh, u"kept");
    EXPECT_EQ(platform->Messages().Shown().size(), before + 1) << Utf8(operation);
    EXPECT_EQ(platform->Calls(u"Product.BaseKey"), 1u);
  }
}

TEST_F(LoggingTest, TheSwitchOfTheHostGoesBeforeTheMachines) {
  SwitchTo(3);
  component.SetLogMode(log_mode::kMessageBox);
  WriteLog(component, u"message");
  EXPECT_EQ(platform->Messages().Shown().size(), 1u);
  EXPECT_EQ(platform->Calls(u"Registry.Read"), 0u);
}

TEST_F(LoggingTest, TheObserverGetsEveryLineWhateverTheSwitchSays) {
  platform->FailAt(1, error::kCannotCreateObject);
  WriteLog(component, u"first");
  WriteLog(component, u"second");
  EXPECT_EQ(Utf8(log), (Lines{"first", "second"}));
}

TEST_F(LoggingTest, NoFailureOfTheMachineReachesTheCaller) {
  platform->AddFolder(u"C:\\Norvo");
  for (const std::int32_t mode : {1, 3}) {
    SwitchTo(mode);
    for (const bool memory : {false, true}) {
      std::size_t k = 0;
      do {
        Component fresh(platform, {});
        ++k;
        if (memory) {
          platform->Log().RunOutOfMemoryAt(k);
        } else {
          platform->FailAt(k, error::kDeviceInputOutput);
        }
        EXPECT_NO_THROW(WriteLog(fresh, u"message")) << "mode " << mode << ", call " << k;
        platform->Log().StopFailing();
      } while (platform->Log().HasFailed());
      EXPECT_GT(k, 5u);
    }
  }
}

}  // namespace
}  // namespace norvo
