// How files are renamed and removed where the system has changes as POSIX has them. Those that it
// has are stood in for by those that it had before.

#include "platform/files/FilesTest.h"
#include "platform/nt/Handle.h"
#include "support/windows/ImportTable.h"

namespace norvo {
namespace {

using Change = decltype(&::NtSetInformationFile);

Change realChange = nullptr;
std::vector<std::string> asked;

/// "65:43" for a change of that class with those flags.
NTSTATUS NTAPI Answer(HANDLE file, PIO_STATUS_BLOCK block, PVOID facts, ULONG size,
                      FILE_INFORMATION_CLASS what) {
  ULONG flags = 0;
  std::copy_n(static_cast<const char*>(facts), sizeof flags, reinterpret_cast<char*>(&flags));
  char text[40];
  std::snprintf(text, sizeof text, "%d:%lx", static_cast<int>(what), flags);
  asked.push_back(text);
  if (static_cast<int>(what) == 64) {
    FILE_DISPOSITION_INFORMATION gone = {TRUE};
    return realChange(file, block, &gone, sizeof gone, FileDispositionInformation);
  }
  if (static_cast<int>(what) == 65) {
    static_cast<FILE_RENAME_INFORMATION*>(facts)->ReplaceIfExists = TRUE;
    return realChange(file, block, facts, size, FileRenameInformation);
  }
  return realChange(file, block, facts, size, what);
}

class PosixChangesTest : public FilesTest {
 protected:
  PosixChangesTest() {
    asked.clear();
    realChange = reinterpret_cast<Change>(
        ExchangeImport("NtSetInformationFile", reinterpret_cast<Address>(&Answer)));
  }
  ~PosixChangesTest() override {
    ExchangeImport("NtSetInformationFile", reinterpret_cast<Address>(realChange));
  }
};

TEST_F(PosixChangesTest, AFileIsReplacedInOneStepEvenAReadOnlyOne) {
  Put(At("a"), "new");
  Put(At("b"), "old");
  EXPECT_FALSE(RenameOver(Root(), "a", "b"));
  EXPECT_EQ(Get(At("b")), "new");
  EXPECT_EQ(asked, std::vector<std::string>{"65:43"});
}

TEST_F(PosixChangesTest, AFileIsRemovedInOneStepEvenAReadOnlyOne) {
  Put(At("a"), "x");
  EXPECT_FALSE(RemoveFile(Root(), "a"));
  EXPECT_EQ(NamesIn(""), "");
  EXPECT_EQ(asked, std::vector<std::string>{"64:13"});
}

TEST_F(PosixChangesTest, WhatTakesAFreeNameNeverReplaces) {
  Put(At("a"), "x");
  Put(At("b"), "y");
  EXPECT_EQ(RenameNew(Root(), "a", "b").kind, Kind::AlreadyExists);
  EXPECT_EQ(asked, std::vector<std::string>{"10:0"});
  EXPECT_EQ(Get(At("b")), "y");
}

}  // namespace
}  // namespace norvo
