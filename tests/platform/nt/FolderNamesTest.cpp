#include <windows.h>
#include <winternl.h>

#include <gtest/gtest.h>

#include "platform/files/FilesTest.h"
#include "support/windows/ImportTable.h"

namespace norvo {
namespace {

using Listing = NTSTATUS(NTAPI*)(HANDLE, HANDLE, PVOID, PVOID, PIO_STATUS_BLOCK, PVOID, ULONG,
                                 FILE_INFORMATION_CLASS, BOOLEAN, PUNICODE_STRING, BOOLEAN);

constexpr const char* kListing = "NtQueryDirectoryFile";
constexpr auto kInvalidInfoClass = static_cast<NTSTATUS>(0xC0000003);
Listing realListing = nullptr;

/// As shares of other systems answer that know no numbers of files.
NTSTATUS NTAPI ListWithoutNumbers(HANDLE folder, HANDLE event, PVOID apc, PVOID context,
                                  PIO_STATUS_BLOCK block, PVOID facts, ULONG size,
                                  FILE_INFORMATION_CLASS what, BOOLEAN single,
                                  PUNICODE_STRING pattern, BOOLEAN restart) {
  if (what == FileIdBothDirectoryInformation || what == FileIdFullDirectoryInformation) {
    return kInvalidInfoClass;
  }
  return realListing(folder, event, apc, context, block, facts, size, what, single, pattern,
                     restart);
}

ULONG pointTag = 0;

/// Every folder is listed as a reparse point.
NTSTATUS NTAPI ListPoints(HANDLE folder, HANDLE event, PVOID apc, PVOID context,
                          PIO_STATUS_BLOCK block, PVOID facts, ULONG size,
                          FILE_INFORMATION_CLASS what, BOOLEAN single, PUNICODE_STRING pattern,
                          BOOLEAN restart) {
  const NTSTATUS status =
      realListing(folder, event, apc, context, block, facts, size, what, single, pattern, restart);
  if (!NT_SUCCESS(status)) return status;
  for (char* at = static_cast<char*>(facts);;) {
    auto& entry = *reinterpret_cast<FILE_FULL_DIR_INFORMATION*>(at);
    if ((entry.FileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      entry.FileAttributes |= FILE_ATTRIBUTE_REPARSE_POINT;
      entry.EaSize = pointTag;
    }
    if (entry.NextEntryOffset == 0) return status;
    at += entry.NextEntryOffset;
  }
}

class FolderNamesTest : public FilesTest {
 protected:
  /// NamesIn of the root, whose listing is asked of another function.
  std::string NamesBy(Listing listing) {
    realListing =
        reinterpret_cast<Listing>(ExchangeImport(kListing, reinterpret_cast<Address>(listing)));
    const std::string names = NamesIn("");
    ExchangeImport(kListing, reinterpret_cast<Address>(realListing));
    return names;
  }
};

TEST_F(FolderNamesTest, AShareThatKnowsNoNumbersOfFilesIsListed) {
  Put(At("file"), "");
  EXPECT_EQ(NamesBy(&ListWithoutNumbers), "Ffile ");
}

TEST_F(FolderNamesTest, WhatStandsForAnotherPlaceIsALinkAndWhatStoresItsBytesOtherwiseIsNot) {
  std::filesystem::create_directory(At("folder"));
  Put(At("file"), "");
  const struct {
    ULONG tag;
    const char* names;
  } rows[] = {{IO_REPARSE_TAG_MOUNT_POINT, "Ffile Lfolder "},
              {IO_REPARSE_TAG_SYMLINK, "Ffile Lfolder "},
              {static_cast<ULONG>(0x9000001A), "Dfolder Ffile "},   // of a cloud
              {static_cast<ULONG>(0x80000017), "Dfolder Ffile "}};  // compressed
  for (const auto& row : rows) {
    pointTag = row.tag;
    EXPECT_EQ(NamesBy(&ListPoints), row.names) << row.tag;
  }
}

}  // namespace
}  // namespace norvo
