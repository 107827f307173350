#include "platform/windows/WindowsSettings.h"

#include <windows.h>

#include <utility>

#include "platform/win32/QuietDrives.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/UniqueHandle.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsError.h"
#include "platform/windows/WindowsFiles.h"
#include "services/TextStream.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

/// A file beside another one that takes its place when it is whole, and else is gone. What a
/// stopped process left behind is taken over when the same file is written again.
class Replacement {
 public:
  explicit Replacement(const String& target)
      : target_(target),
        path_(String(ParentFolder(target)) + u"\\.norvo-" +
              FormatInteger(static_cast<std::uint32_t>(CaselessHash()(target))) + u".tmp"),
        file_(::CreateFileW(ToWide(path_), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr)),
        leftOver_(file_.IsOpen()) {}
  ~Replacement() {
    file_.Close();
    if (leftOver_) ::DeleteFileW(ToWide(path_));
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  /// False, with the reason in `GetLastError` and the target as it was, when anything fails.
  bool Replace(std::string_view bytes) {
    constexpr DWORD kFlags = MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH;
    if (!file_.IsOpen() || !WriteAll(file_, bytes) || !::FlushFileBuffers(file_.Get())) {
      return false;
    }
    file_.Close();
    if (!::MoveFileExW(ToWide(path_), ToWide(target_), kFlags)) return false;
    leftOver_ = false;
    return true;
  }

 private:
  const String& target_;
  String path_;
  FileHandle file_;
  bool leftOver_;
};

}  // namespace

std::optional<std::string> WindowsSettings::Read(StringView path) {
  return ReadFileIfThere(files_, path);
}

void WindowsSettings::Write(StringView path, const std::string& bytes) {
  const std::optional<String> target = ToSystemPath(path);
  if (!target || IsSeparator(path.back()) || files_.FolderExists(path)) {
    RaiseWindowsError(ERROR_INVALID_NAME, Subject::New, path);
  }
  files_.MakeFolders(ParentFolder(FullPath(path)));
  const QuietDrives quiet;
  // Not every system refuses to put another file in the place of a read-only one.
  const DWORD attributes = ::GetFileAttributesW(ToWide(*target));
  const bool there = attributes != INVALID_FILE_ATTRIBUTES;
  if (!there && ::GetLastError() != ERROR_FILE_NOT_FOUND) {
    RaiseWindowsError(::GetLastError(), Subject::New, path);
  }
  if (there && (attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    RaiseWindowsError(ERROR_ACCESS_DENIED, Subject::New, path);
  }
  Replacement replacement(*target);
  if (!replacement.Replace(bytes)) RaiseWindowsError(::GetLastError(), Subject::New, path);
}

}  // namespace norvo
