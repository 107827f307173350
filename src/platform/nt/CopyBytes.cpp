#include <algorithm>
#include <memory>

#include "platform/files/SystemCalls.h"
#include "platform/nt/Clock.h"
#include "platform/nt/Handle.h"
#include "platform/nt/WindowsCode.h"

namespace norvo {
namespace {

// Calls are dear here, and most songs are read by a handful of them.
constexpr std::size_t kPiece = std::size_t{1024} * 1024;

}  // namespace

FileFailure CopyBytes(const SystemFile& source, const SystemFile& target, std::uint64_t size,
                      const ByteSink& sink) {
  const auto most = static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, size));
  const std::unique_ptr<char[]> buffer = std::make_unique_for_overwrite<char[]>(most);
  for (std::uint64_t done = 0; done < size;) {
    const auto piece = static_cast<std::size_t>(std::min<std::uint64_t>(most, size - done));
    const FileResult<std::size_t> got = ReadSome(source, done, {buffer.get(), piece});
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
