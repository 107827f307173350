#include "platform/files/FilesTest.h"
#include "platform/nt/Handle.h"

namespace norvo {
namespace {

using OpenFilesTest = FilesTest;

TEST_F(OpenFilesTest, NoProgramThatIsStartedInheritsAnOpenFile) {
  Put(At("a"), "x");
  const auto isInherited = [](const SystemFile& file) {
    DWORD flags = 0;
    EXPECT_TRUE(::GetHandleInformation(HandleOf(file), &flags));
    return (flags & HANDLE_FLAG_INHERIT) != 0;
  };
  EXPECT_FALSE(isInherited(Root()));
  EXPECT_FALSE(isInherited(Open("a")));
  EXPECT_FALSE(isInherited(*OpenSystemPath(ToDiskPath(At("a")))));
  EXPECT_FALSE(isInherited(*CreateNew(Root(), "b", 0666)));
}

TEST_F(OpenFilesTest, AFileIsClosedWithItsOwner) {
  Put(At("a"), "x");
  HANDLE handle = nullptr;
  DWORD flags = 0;
  {
    SystemFile first = Open("a");
    handle = HandleOf(first);
    const SystemFile second = std::move(first);
    EXPECT_FALSE(first.IsOpen());
    EXPECT_TRUE(::GetHandleInformation(handle, &flags));
  }
  EXPECT_FALSE(::GetHandleInformation(handle, &flags));
}

TEST_F(OpenFilesTest, WhatOthersKeepToThemselvesIsInUseAndCanBeLookedUp) {
  Put(At("a"), "12");
  const SystemFile alone =
      Owned(::CreateFileW(At("a").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_EQ(WhyNotOpen("a", OpenMode::Read), Kind::InUse);
  EXPECT_EQ(WhyNotOpen("a", OpenMode::Append), Kind::InUse);
  EXPECT_EQ(LookUp(Root(), "a")->size, 2u);
}

TEST_F(OpenFilesTest, OthersMayDoEverythingWithWhatIsOpenHere) {
  Put(At("a"), "x");
  const SystemFile file = Open("a");
  constexpr DWORD kShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const SystemFile other = Owned(
      ::CreateFileW(At("a").c_str(), GENERIC_ALL, kShare, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_TRUE(other.IsOpen());
}

TEST_F(OpenFilesTest, FilesHaveNamesAndAsManyMayBeOpenAsTheMemoryHolds) {
  EXPECT_TRUE(CreateUnnamed(Root(), "", 0666).Failure());
  EXPECT_TRUE(GiveName(SystemFile(), Root(), "a"));
  EXPECT_EQ(MostOpenFiles(), 0u);
}

TEST_F(OpenFilesTest, PermissionsAreTheReadOnlyAttribute) {
  { EXPECT_TRUE(CreateNew(Root(), "a", 0444)); }
  EXPECT_EQ(LookUp(Root(), "a")->permissions, 0444u);
  const FileResult<SystemFile> made = CreateNew(Root(), "b", 0644);
  EXPECT_EQ(LookUp(*made)->permissions, 0666u);
  ::SetFileAttributesW(At("b").c_str(), FILE_ATTRIBUTE_HIDDEN);
  EXPECT_FALSE(SetPermissions(*made, 0400));
  EXPECT_EQ(LookUp(*made)->permissions, 0444u);
  EXPECT_FALSE(SetPermissions(*made, 0600));
  EXPECT_EQ(LookUp(*made)->permissions, 0666u);
}

TEST_F(OpenFilesTest, WhatIsOpenForReadingIsFlushedToo) {
  Put(At("a"), "x");
  Put(At("read-only"), "x");
  std::filesystem::permissions(At("read-only"), std::filesystem::perms(0444));
  const SystemFile file = Open("a");
  const SystemFile readOnly = Open("read-only");
  const SystemFile* const files[] = {&file, &readOnly};
  for (const FileFailure& failure : FlushToDisk(files)) EXPECT_FALSE(failure);
}

}  // namespace
}  // namespace norvo
