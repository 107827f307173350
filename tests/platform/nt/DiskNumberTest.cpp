#include "platform/nt/DiskNumber.h"

#include <windows.h>
#include <winternl.h>

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/files/FilesTest.h"
#include "support/windows/ImportTable.h"

namespace norvo {
namespace {

constexpr ULONG kSerial = 0x1234abcd;
constexpr const char* kDiskQuestion = "NtQueryVolumeInformationFile";

NTSTATUS NTAPI OneSerial(HANDLE, PIO_STATUS_BLOCK, PVOID facts, ULONG, FS_INFORMATION_CLASS) {
  static_cast<FILE_FS_VOLUME_INFORMATION*>(facts)->VolumeSerialNumber = kSerial;
  return 0;
}

/// Every disk is a copy of every other one, as long as it lives.
class CopiedDisks {
 public:
  CopiedDisks() : real_(ExchangeImport(kDiskQuestion, reinterpret_cast<Address>(&OneSerial))) {}
  ~CopiedDisks() { ExchangeImport(kDiskQuestion, real_); }
  CopiedDisks(const CopiedDisks&) = delete;
  CopiedDisks& operator=(const CopiedDisks&) = delete;

 private:
  Address real_;
};

std::uint64_t NumberAt(const std::string& path) {
  const FileResult<SystemFile> folder = OpenRoot(path);
  EXPECT_TRUE(folder) << path;
  return folder ? DiskNumberOf(*folder) : 0;
}

class DiskNumberTest : public FilesTest {};

TEST_F(DiskNumberTest, ADiskAndItsCopyAreTwo) {
  if (!std::filesystem::is_directory("Z:/")) GTEST_SKIP() << "there is one disk only";
  const CopiedDisks copied;
  EXPECT_NE(NumberAt("C:/"), NumberAt("Z:/"));
}

TEST_F(DiskNumberTest, AllFoldersOfADiskHaveItsNumber) {
  Put(At("deep/folder/file"), "");
  EXPECT_EQ(NumberAt("C:/"), NumberAt("C:/windows"));
  EXPECT_EQ(NumberAt("c:/WINDOWS"), NumberAt("C:/windows"));
  const std::string here = ToDiskPath(At(""));
  EXPECT_EQ(NumberAt(here), NumberAt(ToDiskPath(At("deep/folder"))));
  EXPECT_EQ(LookUp(Root(), "deep/folder/file")->disk, NumberAt(here));
}

TEST_F(DiskNumberTest, WhatIsNotOpenHasNone) {
  EXPECT_EQ(DiskNumberOf(SystemFile()), 0u);
}

}  // namespace
}  // namespace norvo
