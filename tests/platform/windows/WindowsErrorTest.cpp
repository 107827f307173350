#include "platform/windows/WindowsError.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "automation/RunTimeError.h"
#include "support/TextPrinting.h"

namespace norvo {
namespace {

TEST(WindowsErrorTest, EveryCodeHasItsNumber) {
  struct Row {
    DWORD code;
    std::int32_t file, folder, created;
  };
  const Row rows[] = {{ERROR_FILE_NOT_FOUND, 53, 76, 76},
                      {ERROR_INVALID_NAME, 53, 76, 75},
                      {ERROR_PATH_NOT_FOUND, 76, 76, 76},
                      {ERROR_NOT_READY, 76, 76, 76},
                      {ERROR_BAD_NETPATH, 76, 76, 76},
                      {ERROR_ACCESS_DENIED, 70, 70, 70},
                      {ERROR_SHARING_VIOLATION, 70, 70, 70},
                      {ERROR_WRITE_PROTECT, 70, 70, 70},
                      {ERROR_DISK_FULL, 61, 61, 61},
                      {1295, 61, 61, 61},  // the user's share of the disk
                      {ERROR_CRC, 57, 57, 57},
                      {ERROR_IO_DEVICE, 57, 57, 57},
                      {ERROR_NOT_ENOUGH_MEMORY, 7, 7, 7},
                      {ERROR_INVALID_PARAMETER, 5, 5, 5},
                      {ERROR_ALREADY_EXISTS, 75, 75, 75},
                      {ERROR_TOO_MANY_OPEN_FILES, 75, 75, 75}};
  for (const Row& row : rows) {
    EXPECT_EQ(ErrorNumber(row.code, Subject::File), row.file) << row.code;
    EXPECT_EQ(ErrorNumber(row.code, Subject::Folder), row.folder) << row.code;
    EXPECT_EQ(ErrorNumber(row.code, Subject::New), row.created) << row.code;
  }
}

TEST(WindowsErrorTest, AFailingMachineDoesNotTellWhatThereIs) {
  constexpr DWORD kUntold[] = {ERROR_IO_DEVICE, ERROR_CRC, ERROR_NOT_ENOUGH_MEMORY,
                               ERROR_TOO_MANY_OPEN_FILES, ERROR_REGISTRY_IO_FAILED};
  constexpr DWORD kTold[] = {ERROR_FILE_NOT_FOUND,    ERROR_PATH_NOT_FOUND,  ERROR_INVALID_NAME,
                             ERROR_NOT_READY,         ERROR_BAD_NETPATH,     ERROR_ACCESS_DENIED,
                             ERROR_SHARING_VIOLATION, ERROR_HOST_UNREACHABLE};
  for (const DWORD code : kUntold) EXPECT_TRUE(IsUntold(code)) << code;
  for (const DWORD code : kTold) EXPECT_FALSE(IsUntold(code)) << code;
}

TEST(WindowsErrorTest, TheDescriptionNamesThePath) {
  try {
    RaiseWindowsError(ERROR_DISK_FULL, Subject::New, u"C:\\a.ini");
    FAIL();
  } catch (const RunTimeError& failure) {
    EXPECT_EQ(failure.Number(), 61);
    EXPECT_TEXT(failure.Description(), String(DescriptionOf(61)) + u": C:\\a.ini");
  }
}

}  // namespace
}  // namespace norvo
