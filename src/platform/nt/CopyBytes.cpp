#include <algorithm>
#include <memory>

#include "platform/files/SystemCalls.h"
#include "platform/nt/Clock.h"
#include "platform/nt/Handle.h"
#include "platform/nt/WindowsCode.h"

namespace norvo {
namespace {

// Small enough to be still in the processor's cache when it is written.
constexpr DWORD kPiece = 128 * 1024;

/// Reads where the last reading has ended, which takes fewer calls than to name a place. Nothing at
/// the file's end.
FileResult<DWORD> ReadNext(const SystemFile& file, char* buffer, DWORD most) {
  DWORD got = 0;
  if (!::ReadFile(HandleOf(file), buffer, most, &got, nullptr)) return LastFailure();
  return got;
}

FileFailure GoToBegin(const SystemFile& file) {
  FILE_POSITION_INFORMATION begin = {};
  return FailureOfStatus(Set(HandleOf(file), FilePositionInformation, begin));
}

}  // namespace

FileFailure CopyBytes(const SystemFile& source, const SystemFile& target, std::uint64_t size,
                      const ByteSink& sink) {
  const auto most = static_cast<DWORD>(std::min<std::uint64_t>(kPiece, size));
  const std::unique_ptr<char[]> buffer = std::make_unique_for_overwrite<char[]>(most);
  if (const FileFailure failure = GoToBegin(source)) return failure;
  for (std::uint64_t done = 0; done < size;) {
    const auto piece = static_cast<DWORD>(std::min<std::uint64_t>(most, size - done));
    const FileResult<DWORD> got = ReadNext(source, buffer.get(), piece);
    if (!got) return got.Failure();
    if (*got == 0) return FileFailure::Kind::SourceChanged;
    if (const FileFailure failure = WriteAll(target, {buffer.get(), *got})) return failure;
    done += *got;
    sink(*got);
  }
  return {};
}

FileFailure SetTimes(const SystemFile& file, const DiskTime& accessed, const DiskTime& modified) {
  FILE_BASIC_INFORMATION facts = {};  // what is 0 stays as it is
  facts.LastAccessTime.QuadPart = TicksOf(accessed);
  facts.LastWriteTime.QuadPart = TicksOf(modified);
  return FailureOfStatus(Set(HandleOf(file), FileBasicInformation, facts));
}

FileFailure ClaimSpace(const SystemFile& file, std::uint64_t size) {
  FILE_STANDARD_INFORMATION now = {};
  Query(HandleOf(file), FileStandardInformation, now);
  // A smaller room would cut the file.
  if (size <= static_cast<std::uint64_t>(now.EndOfFile.QuadPart)) return {};
  FILE_ALLOCATION_INFORMATION wanted = {};
  wanted.AllocationSize.QuadPart = static_cast<LONGLONG>(size);
  const FileFailure failure =
      FailureOfStatus(Set(HandleOf(file), FileAllocationInformation, wanted));
  using Kind = FileFailure::Kind;
  const bool lacksIt = failure.kind == Kind::DiskFull || failure.kind == Kind::QuotaReached ||
                       failure.kind == Kind::FileTooLarge;
  return lacksIt ? failure : FileFailure();
}

void KeepAccessTime(const SystemFile& file) {
  constexpr DWORD kAsItIs = 0xFFFFFFFF;
  const FILETIME accessed = {kAsItIs, kAsItIs};
  ::SetFileTime(HandleOf(file), nullptr, &accessed, nullptr);
}

}  // namespace norvo
