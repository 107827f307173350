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

class FolderNamesTest : public FilesTest {};

TEST_F(FolderNamesTest, AShareThatKnowsNoNumbersOfFilesIsListed) {
  Put(At("file"), "");
  realListing = reinterpret_cast<Listing>(
      ExchangeImport(kListing, reinterpret_cast<Address>(&ListWithoutNumbers)));
  const std::string names = NamesIn("");
  ExchangeImport(kListing, reinterpret_cast<Address>(realListing));
  EXPECT_EQ(names, "Ffile ");
}

}  // namespace
}  // namespace norvo
