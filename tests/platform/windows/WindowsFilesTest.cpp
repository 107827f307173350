#include <array>

#include <algorithm>
#include <thread>

#include "ScratchFolder.h"

namespace norvo {
namespace {

class WindowsFilesTest : public ScratchFolder {};

TEST_F(WindowsFilesTest, ReadsAtAnyPlace) {
  Put(u"a.bin", "0123456789");
  const std::unique_ptr<BinaryFile> file = Files().OpenForReading(Path(u"A.BIN"));
  std::array<char, 4> buffer{};
  EXPECT_EQ(file->Size(), 10u);
  EXPECT_EQ(file->ReadAt(3, buffer), 4u);
  EXPECT_EQ(std::string(buffer.data(), 4), "3456");
  EXPECT_EQ(file->ReadAt(8, buffer), 2u);
  EXPECT_EQ(std::string(buffer.data(), 2), "89");
  EXPECT_EQ(file->ReadAt(10, buffer), 0u);
  EXPECT_EQ(file->ReadAt(std::uint64_t{1} << 40, buffer), 0u);
  EXPECT_EQ(file->ReadAt(~std::uint64_t{0}, buffer), 0u);
  EXPECT_EQ(file->ReadAt(0, std::span<char>()), 0u);
}

TEST_F(WindowsFilesTest, AReadFileMayBeReadAndWrittenAndDeletedMeanwhile) {
  Put(u"a.bin", "01");
  const std::unique_ptr<BinaryFile> file = Files().OpenForReading(Path(u"a.bin"));
  EXPECT_EQ(Files().OpenForReading(Path(u"a.bin"))->Size(), 2u);
  Files().OpenForAppending(Path(u"a.bin"), false)->Append("23");
  EXPECT_EQ(file->Size(), 4u);
  Files().RemoveFile(Path(u"a.bin"), false);
  std::array<char, 4> buffer{};
  EXPECT_EQ(file->ReadAt(0, buffer), 4u);
}

TEST_F(WindowsFilesTest, OpeningWhatIsNoFileFails) {
  MakeFolder(u"folder");
  Put(u"folder\\a", "");
  const auto errorOfReading = [&](const String& path) {
    return ErrorOf([&] { Files().OpenForReading(path); });
  };
  EXPECT_EQ(errorOfReading(Path(u"b")), 53);
  EXPECT_EQ(errorOfReading(Path(u"folder")), 53);
  EXPECT_EQ(errorOfReading(Path(u"folder\\a\\")), 53);
  EXPECT_EQ(errorOfReading(Path(u"folder\\*")), 53);
  EXPECT_EQ(errorOfReading(Path(u"folder\\a:x")), 53);
  EXPECT_EQ(errorOfReading(Path(u"nul")), 53) << "no device is ever opened";
  EXPECT_EQ(errorOfReading(Path(u"nowhere\\b")), 76);
  EXPECT_EQ(errorOfReading(Path(u"folder\\a\\b")), 76);
  EXPECT_EQ(errorOfReading(MissingDrive() + u"\\b"), 76);
  EXPECT_EQ(errorOfReading(u"\\\\server"), 76);
}

TEST_F(WindowsFilesTest, OpeningForAppendingFails) {
  MakeFolder(u"folder");
  const auto errorOfAppending = [&](StringView inside, bool create) {
    return ErrorOf([&] { Files().OpenForAppending(Path(inside), create); });
  };
  EXPECT_EQ(errorOfAppending(u"b", false), 53);
  EXPECT_EQ(errorOfAppending(u"nowhere\\b", true), 76);
  EXPECT_EQ(errorOfAppending(u"folder", true), 75);
  EXPECT_EQ(errorOfAppending(u"folder", false), 53);
  EXPECT_EQ(errorOfAppending(u"a*b", true), 75);
}

TEST_F(WindowsFilesTest, NothingIsAddedToAReadOnlyFile) {
  Put(u"locked", "x");
  SetReadOnly(u"locked");
  const FileHandle writer(::CreateFileW(ToWide(System(Path(u"locked"))), GENERIC_WRITE, 0, nullptr,
                                        OPEN_EXISTING, 0, nullptr));
  if (writer.IsOpen()) GTEST_SKIP() << "this system lets its administrator write all the same";
  EXPECT_EQ(ErrorOf([&] { Files().OpenForAppending(Path(u"locked"), false); }), 70);
  EXPECT_EQ(ErrorOf([&] { Files().OpenForAppending(Path(u"locked"), true); }), 70);
}

TEST_F(WindowsFilesTest, AppendsInWhateverSpelling) {
  Files().OpenForAppending(Path(u"Log.txt"), true)->Append("one\r\n");
  Files().OpenForAppending(Path(u"LOG.TXT"), true)->Append("two\r\n");
  Files().OpenForAppending(Path(u"Log.txt"), false)->Append("three\r\n");
  EXPECT_EQ(Get(u"Log.txt"), "one\r\ntwo\r\nthree\r\n");
  EXPECT_EQ(List(Path(u"")), Lines{"Log.txt"});
}

TEST_F(WindowsFilesTest, TwoWritersAddBehindEachOther) {
  const std::unique_ptr<AppendFile> first = Files().OpenForAppending(Path(u"Log.txt"), true);
  const std::unique_ptr<AppendFile> second = Files().OpenForAppending(Path(u"Log.txt"), true);
  first->Append("1");
  second->Append("2");
  first->Append("3");
  EXPECT_EQ(Get(u"Log.txt"), "123") << "read while it is open";
}

TEST_F(WindowsFilesTest, AMediaListWithATornLineEndsAnew) {
  MakeFolder(u"Root");
  MakeFolder(u"Root\\KVs");
  Put(u"Root\\KVs\\MediaList.txt",
      "\xEF\xBB\xBF"
      "Cat\tC:\\a\tx\r\nCat\tC:\\to");
  MigrationList& list = Machine().Migration();
  ASSERT_TRUE(list.EnsureGroup(u"Group", Path(u"Root")));
  EXPECT_TRUE(list.Add({u"C:\\b", u"x", u"Cat"}));
  EXPECT_TRUE(list.Flush());
  EXPECT_EQ(Get(u"Root\\KVs\\MediaList.txt"),
            "\xEF\xBB\xBF"
            "Cat\tC:\\a\tx\r\nCat\tC:\\b\tx\r\n");
}

/// What the library of one apartment does: records of its own, and some that both have.
void AddRecords(const String& root, StringView own) {
  WindowsPlatform machine;
  MigrationList& list = machine.Migration();
  list.EnsureGroup(u"Group", root);
  for (std::int32_t i = 0; i < 10; ++i) {
    list.Add({String(own) + FormatInteger(i), u"x", u"Cat"});
    list.Add({u"both" + FormatInteger(i), u"x", u"Cat"});
    if (i == 4) list.Flush();
  }
  list.Flush();
}

TEST_F(WindowsFilesTest, TwoThatBeginOneMediaListLeaveEachRecordOnce) {
  for (int round = 0; round < 30; ++round) {
    const String root = Path(u"Root" + FormatInteger(round));
    std::thread first(AddRecords, root, u"a"), second(AddRecords, root, u"b");
    first.join();
    second.join();
    const std::string bytes = Get(u"Root" + FormatInteger(round) + u"\\KVs\\MediaList.txt");
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 30) << bytes;
  }
}

}  // namespace
}  // namespace norvo
