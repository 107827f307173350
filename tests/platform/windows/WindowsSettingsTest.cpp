#include "ScratchFolder.h"

namespace norvo {
namespace {

class WindowsSettingsTest : public ScratchFolder {
 protected:
  SettingsStorage& Settings() { return Machine().Settings(); }
};

TEST_F(WindowsSettingsTest, FilesAreReadWhole) {
  const std::string bytes(100000, 'x');
  Put(u"A.ini", bytes);
  EXPECT_EQ(Settings().Read(Path(u"a.ini")), bytes);
  EXPECT_EQ(Settings().Read(Path(u"b.ini")), std::nullopt);
  EXPECT_EQ(Settings().Read(Path(u"nowhere\\a.ini")), std::nullopt);
  EXPECT_EQ(Settings().Read(MissingDrive() + u"\\a.ini"), std::nullopt);
}

TEST_F(WindowsSettingsTest, AFileThatCannotBeReadRaises) {
  Put(u"a.ini", "x");
  const FileHandle user(::CreateFileW(ToWide(System(Path(u"a.ini"))), GENERIC_READ, 0, nullptr,
                                      OPEN_EXISTING, 0, nullptr));
  EXPECT_EQ(ErrorOf([&] { Settings().Read(Path(u"a.ini")); }), 70);
}

TEST_F(WindowsSettingsTest, AFileThatIsTooLargeRaises) {
  constexpr LONG kMost = 64 * 1024 * 1024;
  Put(u"a.ini", "");
  const FileHandle file(::CreateFileW(ToWide(System(Path(u"a.ini"))), GENERIC_WRITE,
                                      FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  ::SetFilePointer(file.Get(), kMost + 1, nullptr, FILE_BEGIN);
  ASSERT_TRUE(::SetEndOfFile(file.Get()));
  EXPECT_EQ(ErrorOf([&] { Settings().Read(Path(u"a.ini")); }), 7);
}

TEST_F(WindowsSettingsTest, FilesAreWrittenWithTheirFolders) {
  Settings().Write(Path(u"New\\Sub\\a.ini"), "one");
  EXPECT_EQ(Get(u"New\\Sub\\a.ini"), "one");
  Settings().Write(Path(u"NEW\\sub\\A.INI"), "");
  EXPECT_EQ(Get(u"New\\Sub\\a.ini"), "");
  EXPECT_EQ(List(Path(u"New\\Sub")).size(), 1u) << "nothing is left over";
}

TEST_F(WindowsSettingsTest, AReadOnlyFileStaysAsItIs) {
  Put(u"a.ini", "old");
  SetReadOnly(u"a.ini");
  EXPECT_EQ(ErrorOf([&] { Settings().Write(Path(u"a.ini"), "new"); }), 70);
  EXPECT_EQ(Get(u"a.ini"), "old");
  EXPECT_EQ(List(Path(u"")), Lines{"a.ini"}) << "no temporary file is left over";
}

TEST_F(WindowsSettingsTest, AFileInUseStaysAsItIs) {
  Put(u"a.ini", "old");
  {
    const FileHandle user(::CreateFileW(ToWide(System(Path(u"a.ini"))), GENERIC_READ,
                                        FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(ErrorOf([&] { Settings().Write(Path(u"a.ini"), "new"); }), 70);
  }
  EXPECT_EQ(Get(u"a.ini"), "old");
  EXPECT_EQ(List(Path(u"")), Lines{"a.ini"}) << "no temporary file is left over";
}

TEST_F(WindowsSettingsTest, WhatCannotBeAFileIsNotWritten) {
  MakeFolder(u"folder");
  Put(u"file", "");
  const auto errorOfWriting = [&](const String& path) {
    return ErrorOf([&] { Settings().Write(path, "x"); });
  };
  EXPECT_EQ(errorOfWriting(Path(u"folder")), 75);
  EXPECT_EQ(errorOfWriting(Path(u"folder\\")), 75);
  EXPECT_EQ(errorOfWriting(Path(u"a*.ini")), 75);
  EXPECT_EQ(errorOfWriting(u""), 75);
  EXPECT_EQ(errorOfWriting(Path(u"file\\a.ini")), 75);
  EXPECT_EQ(errorOfWriting(MissingDrive() + u"\\sub\\a.ini"), 76);
  EXPECT_NE(errorOfWriting(Path(String(256, u'n'))), 0);
  EXPECT_EQ(List(Path(u"")), (Lines{"file", "folder/"}));
}

TEST_F(WindowsSettingsTest, TheMigrationListIsKeptOnTheDisk) {
  MigrationList& list = Machine().Migration();
  ASSERT_TRUE(list.EnsureGroup(u"Group", Path(u"Root")));
  EXPECT_TRUE(list.Add({u"C:\\a.mp3", u"x,y", u"Cat"}));
  EXPECT_TRUE(list.Flush());
  EXPECT_EQ(Get(u"Root\\KVs\\MediaList.txt"),
            "\xEF\xBB\xBF"
            "Cat\tC:\\a.mp3\tx,y\r\n");
}

}  // namespace
}  // namespace norvo
