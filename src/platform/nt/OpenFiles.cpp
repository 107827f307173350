#include "platform/files/SystemCalls.h"
#include "platform/nt/DiskNumber.h"
#include "platform/nt/FileAttributes.h"
#include "platform/nt/Handle.h"
#include "platform/nt/InsideFolder.h"
#include "platform/nt/NtPath.h"
#include "platform/nt/WindowsCode.h"

namespace norvo {
namespace {

// Without the right to write elsewhere than at the end, every write goes there. To be locked, a
// file must be open for its bytes.
constexpr ACCESS_MASK kToAppend =
    FILE_READ_DATA | FILE_APPEND_DATA | FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES;

Opening OpeningFor(OpenMode mode) {
  switch (mode) {
    case OpenMode::Append:
    case OpenMode::Share:
      return {kToAppend, FILE_NON_DIRECTORY_FILE};
    case OpenMode::CreateForAppending:
    case OpenMode::CreateToShare:
      return {kToAppend, FILE_NON_DIRECTORY_FILE, FILE_OPEN_IF};
    case OpenMode::List:
      return {FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES, FILE_DIRECTORY_FILE};
    case OpenMode::Start:
      return kStart;
    case OpenMode::Read:
      break;
  }
  // What is no file is turned down by the caller.
  return {FILE_READ_DATA | FILE_READ_ATTRIBUTES};
}

FileResult<SystemFile> OpenOnDiskOf(const SystemFile& root, const std::string& path,
                                    const Opening& how) {
  FileResult<SystemFile> file = OpenInside(root, path, how);
  if (file) ShareDiskNumber(root, *file);
  return file;
}

FileResult<SystemFile> OpenAnywhere(const std::string& path, const Opening& how) {
  const FileResult<String> native = ToNtPath(path);
  return native ? OpenNtPath(*native, how) : native.Failure();
}

}  // namespace

void SystemFile::Close() {
  if (!IsOpen()) return;
  ForgetDiskNumber(native_);
  ::NtClose(reinterpret_cast<HANDLE>(Release()));
}

FileResult<SystemFile> OpenBeneath(const SystemFile& root, const std::string& path, OpenMode mode) {
  return OpenOnDiskOf(root, path, OpeningFor(mode));
}

FileResult<SystemFile> OpenRoot(const std::string& path) {
  return OpenAnywhere(path, kStart);
}

FileResult<SystemFile> OpenSystemPath(const std::string& path) {
  return OpenAnywhere(path, OpeningFor(OpenMode::Read));
}

FileResult<SystemFile> CreateNew(const SystemFile& root, const std::string& path,
                                 unsigned permissions) {
  const bool isReadOnly = (permissions & kAnyWriter) == 0;
  return OpenOnDiskOf(
      root, path,
      {FILE_GENERIC_WRITE | FILE_READ_ATTRIBUTES, FILE_NON_DIRECTORY_FILE, FILE_CREATE,
       static_cast<ULONG>(isReadOnly ? FILE_ATTRIBUTE_READONLY : FILE_ATTRIBUTE_NORMAL)});
}

FileResult<SystemFile> CreateUnnamed(const SystemFile&, const std::string&, unsigned) {
  return FailureOfCode(ERROR_NOT_SUPPORTED);
}

std::size_t MostOpenFiles() {
  return 0;
}

}  // namespace norvo
