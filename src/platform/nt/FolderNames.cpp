#include <vector>

#include "platform/files/SystemCalls.h"
#include "platform/nt/Handle.h"
#include "platform/nt/WideNames.h"
#include "platform/nt/WindowsCode.h"

namespace norvo {
namespace {

// Some hundred names at once.
constexpr std::size_t kBuffer = std::size_t{64} * 1024;

/// A folder's entry tells the kind of a reparse point where its extended attributes would be.
ListedKind KindOf(const FILE_ID_BOTH_DIR_INFO& entry) {
  const bool isPoint = (entry.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (isPoint && IsReparseTagNameSurrogate(entry.EaSize) != 0) return ListedKind::Link;
  const bool isFolder = (entry.FileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return isFolder ? ListedKind::Folder : ListedKind::File;
}

bool IsDots(StringView name) {
  return name == u"." || name == u"..";
}

using Visit = std::function<void(std::string_view name, ListedKind kind)>;

void VisitAll(const char* entries, const Visit& visit) {
  for (;;) {
    const auto& entry = *reinterpret_cast<const FILE_ID_BOTH_DIR_INFO*>(entries);
    const StringView name(reinterpret_cast<const char16_t*>(entry.FileName),
                          entry.FileNameLength / sizeof(wchar_t));
    if (!IsDots(name)) visit(FromWideName(name), KindOf(entry));
    if (entry.NextEntryOffset == 0) return;
    entries += entry.NextEntryOffset;
  }
}

}  // namespace

FileFailure ForEachName(SystemFile folder, const Visit& visit) {
  std::vector<std::uint64_t> buffer(kBuffer / sizeof(std::uint64_t));
  FILE_INFO_BY_HANDLE_CLASS what = FileIdBothDirectoryRestartInfo;
  while (::GetFileInformationByHandleEx(HandleOf(folder), what, buffer.data(),
                                        static_cast<DWORD>(kBuffer))) {
    VisitAll(reinterpret_cast<const char*>(buffer.data()), visit);
    what = FileIdBothDirectoryInfo;
  }
  const DWORD end = ::GetLastError();
  // The second is said of an empty disk, whose root has not even "." and "..".
  const bool isOver = end == ERROR_NO_MORE_FILES || end == ERROR_FILE_NOT_FOUND;
  return isOver ? FileFailure() : FailureOfCode(end);
}

}  // namespace norvo
