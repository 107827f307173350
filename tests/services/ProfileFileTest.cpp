#include "services/ProfileFile.h"

#include <cstdlib>

#include "automation/RunTimeError.h"
#include "services/SettingsLines.h"
#include "support/LibraryTest.h"
#include "support/RaisedErrors.h"

namespace norvo {
namespace {

using namespace std::string_literals;

class ProfileFileTest : public LibraryTest {
 protected:
  String ReadOne(StringView path, StringView section, StringView key) {
    ProfileFile file(component);
    String value = u"<none>";
    if (!file.OpenFile(path)) return u"<not open>";
    file.SelectSection(section);
    file.ReadValue(key, value);
    return value;
  }
};

TEST_F(ProfileFileTest, StatusIsZeroForAFoundKeyAndTheValueStaysOtherwise) {
  platform->AddFile(u"C:\\a.ini", "[s]\r\nkey=1\r\n");
  ProfileFile file(component);
  ASSERT_TRUE(file.OpenFile(u"C:\\a.ini"));
  EXPECT_TRUE(file.Exists());
  String value = u"before";
  EXPECT_NE(file.ReadValue(u"key", value), 0);  // no section is current yet
  EXPECT_TRUE(file.SelectSection(u"S"));
  EXPECT_NE(file.ReadValue(u"other", value), 0);
  EXPECT_TEXT(value, u"before");
  EXPECT_EQ(file.ReadValue(u"KEY", value), 0);
  EXPECT_TEXT(value, u"1");
  EXPECT_FALSE(file.SelectSection(u"t"));
  EXPECT_NE(file.ReadValue(u"key", value), 0);
}

TEST_F(ProfileFileTest, AMissingFileCountsAsEmpty) {
  ProfileFile file(component);
  EXPECT_TRUE(file.OpenFile(u"C:\\missing.ini"));
  EXPECT_FALSE(file.Exists());
  EXPECT_FALSE(file.SelectSection(u"s"));
  file.Close();
  EXPECT_FALSE(platform->HasFile(u"C:\\missing.ini"));
}

TEST_F(ProfileFileTest, ABareNameStandsInTheDataAreaWhichTheFirstWriteCreates) {
  platform->ConfigureProduct();
  ProfileFile file(component);
  ASSERT_TRUE(file.OpenFile(u"PlayLists.txt"));
  EXPECT_FALSE(platform->HasFolder(u"C:\\My Documents\\Norvo Media\\KVs"));
  file.SelectSection(u"s");
  file.WriteValue(u"key", u"1");
  file.Close();
  EXPECT_EQ(platform->Bytes(u"C:\\My Documents\\Norvo Media\\KVs\\PlayLists.txt"),
            "[s]\r\nkey=1\r\n");
}

TEST_F(ProfileFileTest, TheDataAreaHasOneBackslashBehindTheRoot) {
  EXPECT_TEXT(DataArea(u"C:\\Root"), u"C:\\Root\\KVs\\");
  EXPECT_TEXT(DataArea(u"C:\\Root\\"), u"C:\\Root\\KVs\\");
  EXPECT_TEXT(DataArea(u""), u"");
}

TEST_F(ProfileFileTest, WithoutAGroupRootABareNameCannotBeOpened) {
  ProfileFile file(component);
  EXPECT_FALSE(file.OpenFile(u"PlayLists.txt"));
  EXPECT_FALSE(file.CreateNew(u"PlayLists.txt"));
  EXPECT_FALSE(file.SelectSection(u"s"));
  String value = u"before";
  EXPECT_NE(file.ReadValue(u"key", value), 0);
  EXPECT_TEXT(value, u"before");
  EXPECT_EQ(NumberRaisedBy([&] { file.WriteValue(u"key", u"1"); }), error::kObjectNotSet);
}

TEST_F(ProfileFileTest, AnEmptyNameCannotBeOpened) {
  platform->ConfigureProduct();
  ProfileFile file(component);
  EXPECT_FALSE(file.OpenFile(u""));
  EXPECT_FALSE(file.CreateNew(u""));
}

TEST_F(ProfileFileTest, WritingNeedsAnOpenFileAndASection) {
  ProfileFile file(component);
  EXPECT_EQ(NumberRaisedBy([&] { file.WriteValue(u"key", u"1"); }), error::kObjectNotSet);
  ASSERT_TRUE(file.OpenFile(u"C:\\a.ini"));
  EXPECT_EQ(NumberRaisedBy([&] { file.WriteValue(u"key", u"1"); }), error::kObjectNotSet);
  file.SelectSection(u"s");
  file.WriteValue(u"key", u"1");
  ASSERT_TRUE(file.OpenFile(u"C:\\b.ini"));
  EXPECT_EQ(NumberRaisedBy([&] { file.WriteValue(u"key", u"1"); }), error::kObjectNotSet);
}

TEST_F(ProfileFileTest, ManyValuesCostOneReadAndOneWrite) {
  platform->AddFile(u"C:\\a.ini", "[s]\r\nold=1\r\n");
  ProfileFile file(component);
  ASSERT_TRUE(file.OpenFile(u"C:\\a.ini"));
  for (const StringView section : {u"s", u"t"}) {
    file.SelectSection(section);
    file.WriteValue(u"a", u"1");
    file.WriteValue(u"b", u"2");
  }
  file.Close();
  EXPECT_EQ(platform->Bytes(u"C:\\a.ini"), "[s]\r\nold=1\r\na=1\r\nb=2\r\n[t]\r\na=1\r\nb=2\r\n");
  EXPECT_EQ(platform->Calls(u"Settings.Read"), 1u);
  EXPECT_EQ(platform->Calls(u"Settings.Write"), 1u);
}

TEST_F(ProfileFileTest, AFileThatWasOnlyReadIsNotWritten) {
  platform->AddFile(u"C:\\a.ini", "[s]\nkey=1");
  EXPECT_TEXT(ReadOne(u"C:\\a.ini", u"s", u"key"), u"1");
  EXPECT_EQ(platform->Calls(u"Settings.Write"), 0u);
}

TEST_F(ProfileFileTest, ACreatedFileReplacesTheOldOneWhole) {
  platform->AddFile(u"C:\\a.ini", "[old]\r\nkey=1\r\n");
  ProfileFile file(component);
  ASSERT_TRUE(file.CreateNew(u"C:\\a.ini"));
  EXPECT_FALSE(file.SelectSection(u"old"));
  file.SelectSection(u"new");
  file.WriteValue(u"key", u"2");
  file.Close();
  EXPECT_EQ(platform->Bytes(u"C:\\a.ini"), "[new]\r\nkey=2\r\n");
}

TEST_F(ProfileFileTest, TheLastHolderWritesWhatWasSet) {
  {
    ProfileFile file(component);
    ASSERT_TRUE(file.OpenFile(u"C:\\a.ini"));
    file.SelectSection(u"s");
    file.WriteValue(u"key", u"1");
  }
  EXPECT_EQ(platform->Bytes(u"C:\\a.ini"), "[s]\r\nkey=1\r\n");
}

TEST_F(ProfileFileTest, TextsOfTheCodePageAreWrittenInIt) {
  ProfileFile file(component);
  ASSERT_TRUE(file.CreateNew(u"C:\\a.ini"));
  file.SelectSection(u"s");
  file.WriteValue(u"key", u"Größe €");
  file.Close();
  EXPECT_EQ(platform->Bytes(u"C:\\a.ini"),
            "[s]\r\nkey=Gr\xF6\xDF"
            "e \x80\r\n");
  EXPECT_TEXT(ReadOne(u"C:\\a.ini", u"s", u"key"), u"Größe €");
}

TEST_F(ProfileFileTest, OtherTextsAreWrittenInUtf16AndComeBack) {
  const String path = u"C:\\日本\\\xD83D\xDE00\\Ā.mp3";
  ProfileFile file(component);
  ASSERT_TRUE(file.CreateNew(u"C:\\a.ini"));
  file.SelectSection(u"s");
  file.WriteValue(u"key", path);
  file.Close();
  EXPECT_EQ(platform->Bytes(u"C:\\a.ini").substr(0, 4), "\xFF\xFE[\0"s);
  EXPECT_TEXT(ReadOne(u"C:\\a.ini", u"s", u"key"), path);
}

TEST_F(ProfileFileTest, FilesAreReadByTheirMark) {
  platform->AddFile(u"C:\\8.ini", "\xEF\xBB\xBF[s]\r\nkey=\xC3\x84\r\n");
  platform->AddFile(u"C:\\le.ini", "\xFF\xFE[\0s\0]\0\n\0k\0=\0\xC4\0"s);
  platform->AddFile(u"C:\\be.ini", "\xFE\xFF\0[\0s\0]\0\n\0k\0=\0\xC4\0"s);  // and an odd byte
  EXPECT_TEXT(ReadOne(u"C:\\8.ini", u"s", u"key"), u"Ä");
  EXPECT_TEXT(ReadOne(u"C:\\le.ini", u"s", u"k"), u"Ä");
  EXPECT_TEXT(ReadOne(u"C:\\be.ini", u"s", u"k"), u"Ä");
}

TEST_F(ProfileFileTest, AFileThatCannotBeReadIsNotOpen) {
  platform->AddFile(u"C:\\a.ini", "[s]\r\nkey=1\r\n");
  platform->FailOn(u"Settings.Read", 1, error::kDeviceInputOutput);
  ProfileFile file(component);
  EXPECT_FALSE(file.OpenFile(u"C:\\a.ini"));
  EXPECT_FALSE(file.SelectSection(u"s"));
  EXPECT_EQ(NumberRaisedBy([&] { file.WriteValue(u"key", u"2"); }), error::kObjectNotSet);
  file.Close();
  EXPECT_EQ(platform->Bytes(u"C:\\a.ini"), "[s]\r\nkey=1\r\n");
}

TEST_F(ProfileFileTest, AFailedWriteRaisesOnceAndLeavesTheOldFile) {
  platform->AddFile(u"C:\\a.ini", "[s]\r\nkey=1\r\n");
  platform->FailOn(u"Settings.Write", 1, error::kDiskFull);
  ProfileFile file(component);
  ASSERT_TRUE(file.OpenFile(u"C:\\a.ini"));
  file.SelectSection(u"s");
  file.WriteValue(u"key", u"2");
  EXPECT_EQ(NumberRaisedBy([&] { file.Close(); }), error::kDiskFull);
  EXPECT_EQ(platform->Bytes(u"C:\\a.ini"), "[s]\r\nkey=1\r\n");
  EXPECT_EQ(NumberRaisedBy([&] { file.Close(); }), 0);
  EXPECT_TRUE(file.OpenFile(u"C:\\a.ini"));
}

TEST_F(ProfileFileTest, TheLastHolderNeverRaises) {
  platform->FailOn(u"Settings.Write", 1, error::kDiskFull);
  {
    ProfileFile file(component);
    ASSERT_TRUE(file.OpenFile(u"C:\\a.ini"));
    file.SelectSection(u"s");
    file.WriteValue(u"key", u"1");
  }
  EXPECT_FALSE(platform->HasFile(u"C:\\a.ini"));
  EXPECT_TRUE(platform->Log().HasFailed());
}

using ProfileFileDeathTest = ProfileFileTest;

TEST_F(ProfileFileDeathTest, AShortageOfMemoryAtTheLastHolderDoesNotEndTheProgram) {
  const auto end = [this] {
    {
      ProfileFile file(component);
      file.OpenFile(u"C:\\a.ini");
      file.SelectSection(u"s");
      file.WriteValue(u"key", u"1");
      platform->Log().RunOutOfMemoryAt(1);
    }
    std::_Exit(platform->Log().HasFailed() ? 0 : 1);
  };
  EXPECT_EXIT(end(), ::testing::ExitedWithCode(0), "");
}

TEST_F(ProfileFileTest, AFolderIsNoSettingsFile) {
  platform->AddFolder(u"C:\\folder");
  ProfileFile file(component);
  EXPECT_FALSE(file.OpenFile(u"C:\\folder"));
}

/// A text that is no file, with one value.
IniDocument Held() {
  return IniDocument(u"[s]\r\nkey=1\r\n");
}

TEST_F(ProfileFileTest, ATextThatIsNoFileCanBeRead) {
  ProfileFile file(component);
  file.Hold(Held());
  EXPECT_TRUE(file.Exists());
  EXPECT_FALSE(file.SelectSection(u"none"));
  ASSERT_TRUE(file.SelectSection(u"s"));
  String value;
  EXPECT_EQ(file.ReadValue(u"key", value), 0);
  EXPECT_TEXT(value, u"1");
  EXPECT_EQ(platform->Log().Total(), 0u);
}

TEST_F(ProfileFileTest, WhatIsSetInAHeldTextIsNeverWritten) {
  platform->AddFile(u"C:\\a.ini", "[s]\r\nkey=2\r\n");
  {
    ProfileFile file(component);
    ASSERT_TRUE(file.OpenFile(u"C:\\a.ini"));
    file.Hold(Held());
    file.SelectSection(u"s");
    file.WriteValue(u"key", u"3");
    String value;
    EXPECT_EQ(file.ReadValue(u"key", value), 0);
    EXPECT_TEXT(value, u"3");
    file.Close();
    EXPECT_NE(file.ReadValue(u"key", value), 0);
    file.Hold(Held());
    file.SelectSection(u"s");
    file.WriteValue(u"key", u"4");
  }
  EXPECT_EQ(platform->Bytes(u"C:\\a.ini"), "[s]\r\nkey=2\r\n");
  EXPECT_EQ(platform->Calls(u"Settings.Write"), 0u);
}

TEST_F(ProfileFileTest, WhatWasSetInAFileIsWrittenBeforeATextIsHeld) {
  ProfileFile file(component);
  ASSERT_TRUE(file.OpenFile(u"C:\\a.ini"));
  file.SelectSection(u"s");
  file.WriteValue(u"key", u"2");
  file.Hold(Held());
  EXPECT_EQ(platform->Bytes(u"C:\\a.ini"), "[s]\r\nkey=2\r\n");
}

TEST_F(ProfileFileTest, AfterAHeldTextAFileIsWrittenAgain) {
  ProfileFile file(component);
  file.Hold(Held());
  ASSERT_TRUE(file.OpenFile(u"C:\\a.ini"));
  file.SelectSection(u"s");
  String value;
  EXPECT_NE(file.ReadValue(u"key", value), 0);
  file.WriteValue(u"key", u"2");
  file.Close();
  EXPECT_TRUE(platform->HasFile(u"C:\\a.ini"));
}

TEST_F(ProfileFileTest, AFileOfMoreBytesThanAskedForOrTooManySectionsIsNotOpened) {
  platform->AddFile(u"C:\\a.ini", "[s]\nkey=1");
  ProfileFile file(component);
  EXPECT_TRUE(file.OpenFile(u"C:\\a.ini", 9));
  EXPECT_FALSE(file.OpenFile(u"C:\\a.ini", 8));
  EXPECT_FALSE(file.SelectSection(u"s"));
  std::string sections;
  for (std::size_t i = 0; i <= kMostSettingsSections; ++i) sections += "[s]\n";
  platform->AddFile(u"C:\\b.ini", sections + "key=1");
  EXPECT_TEXT(ReadOne(u"C:\\b.ini", u"s", u"key"), u"<not open>");
}

}  // namespace
}  // namespace norvo
