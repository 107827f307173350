#include <vector>

#include "platform/files/SystemCalls.h"
#include "platform/nt/Handle.h"
#include "platform/nt/WideNames.h"

// Which some headers lack.
extern "C" NTSTATUS NTAPI NtQueryDirectoryFile(HANDLE folder, HANDLE event, PVOID apc,
                                               PVOID context, PIO_STATUS_BLOCK block, PVOID facts,
                                               ULONG size, FILE_INFORMATION_CLASS what,
                                               BOOLEAN single, PUNICODE_STRING pattern,
                                               BOOLEAN restart);

namespace norvo {
namespace {

// Some hundred names at once.
constexpr std::size_t kBuffer = std::size_t{64} * 1024;

/// A folder's entry tells the kind of a reparse point where its extended attributes would be.
ListedKind ListedKindOf(const FILE_FULL_DIR_INFORMATION& entry) {
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
    const auto& entry = *reinterpret_cast<const FILE_FULL_DIR_INFORMATION*>(entries);
    const StringView name(reinterpret_cast<const char16_t*>(entry.FileName),
                          entry.FileNameLength / sizeof(wchar_t));
    if (!IsDots(name)) visit(FromWideName(name), ListedKindOf(entry));
    if (entry.NextEntryOffset == 0) return;
    entries += entry.NextEntryOffset;
  }
}

}  // namespace

/// What is asked is known to every disk: others, shares above all, refuse to tell more, such as the
/// numbers of the files.
FileFailure ForEachName(SystemFile folder, const Visit& visit) {
  std::vector<std::uint64_t> buffer(kBuffer / sizeof(std::uint64_t));
  NTSTATUS status = 0;
  for (BOOLEAN restart = TRUE;; restart = FALSE) {
    IO_STATUS_BLOCK block = {};
    status = ::NtQueryDirectoryFile(HandleOf(folder), nullptr, nullptr, nullptr, &block,
                                    buffer.data(), static_cast<ULONG>(kBuffer),
                                    FileFullDirectoryInformation, FALSE, nullptr, restart);
    if (!NT_SUCCESS(status)) break;
    VisitAll(reinterpret_cast<const char*>(buffer.data()), visit);
  }
  return IsEndOfNames(status) ? FileFailure() : FailureOfStatus(status);
}

}  // namespace norvo
