#include <algorithm>
#include <vector>

#include "platform/files/SystemCalls.h"
#include "platform/nt/Clock.h"
#include "platform/nt/DiskNumber.h"
#include "platform/nt/Handle.h"
#include "platform/nt/InsideFolder.h"
#include "platform/nt/NtPath.h"
#include "platform/nt/ReparsePoint.h"
#include "platform/nt/WideNames.h"
#include "platform/nt/WindowsCode.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr std::uint32_t kEverybodyReads = 0444;
constexpr std::uint32_t kEverybodyReadsAndWrites = 0666;

constexpr Opening kItself{FILE_READ_ATTRIBUTES, 0, FILE_OPEN, 0, true};

FileRecord::Kind KindOf(ULONG attributes, bool isLink) {
  if (isLink) return FileRecord::Kind::Link;
  const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return isFolder ? FileRecord::Kind::Folder : FileRecord::Kind::File;
}

FileRecord Convert(const FILE_NETWORK_OPEN_INFORMATION& found) {
  FileRecord record;
  const bool isReadOnly = (found.FileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  record.permissions = isReadOnly ? kEverybodyReads : kEverybodyReadsAndWrites;
  record.size = static_cast<std::uint64_t>(found.EndOfFile.QuadPart);
  record.accessed = DiskTimeOf(found.LastAccessTime.QuadPart);
  record.modified = DiskTimeOf(found.LastWriteTime.QuadPart);
  record.changed = DiskTimeOf(found.ChangeTime.QuadPart);
  record.created = std::min(DiskTimeOf(found.CreationTime.QuadPart), record.modified).seconds;
  return record;
}

FileResult<FileRecord> RecordOf(HANDLE file) {
  FILE_NETWORK_OPEN_INFORMATION found = {};
  if (const FileFailure failure = FailureOfStatus(Query(file, FileNetworkOpenInformation, found))) {
    return failure;
  }
  FILE_INTERNAL_INFORMATION index = {};
  if (const FileFailure failure = FailureOfStatus(Query(file, FileInternalInformation, index))) {
    return failure;
  }
  FileRecord record = Convert(found);
  record.number = static_cast<std::uint64_t>(index.IndexNumber.QuadPart);
  const bool isPoint = (found.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  record.kind = KindOf(found.FileAttributes, isPoint && ReparsePointOf(file).isLink);
  return record;
}

/// The last name of an open file, as the disk spells it; empty where the system does not tell.
String SpellingOf(HANDLE file, FILE_INFORMATION_CLASS what) {
  std::vector<ULONG> buffer(300);
  IO_STATUS_BLOCK block = {};
  const auto ask = [&] {
    return ::NtQueryInformationFile(file, &block, buffer.data(),
                                    static_cast<ULONG>(buffer.size() * sizeof(ULONG)), what);
  };
  NTSTATUS status = ask();
  if (IsTooMuch(status)) {
    buffer.resize(buffer.front() / sizeof(ULONG) + 2);
    status = ask();
  }
  if (!NT_SUCCESS(status)) return {};
  const StringView path(reinterpret_cast<const char16_t*>(buffer.data() + 1),
                        buffer.front() / sizeof(char16_t));
  return String(LastComponent(path));
}

/// The disk takes a name in every case for the same, but it has one of them.
bool IsSpelledOtherwise(HANDLE file, StringView name) {
  String spelling = SpellingOf(file, FileNormalizedNameInformation);
  // Old systems, and some disks, know a file's name as it was opened only.
  if (spelling.empty()) spelling = SpellingOf(file, FileNameInformation);
  return spelling != name && EqualsIgnoreCase(spelling, name);
}

/// With "/" between the names, and without the mark where the path is as good without it.
std::string WithoutMark(StringView path) {
  constexpr StringView kMark = u"\\\\?\\";
  constexpr StringView kShareMark = u"\\\\?\\UNC\\";
  String plain;
  if (path.starts_with(kShareMark)) {
    path.remove_prefix(kShareMark.size());
    plain = u"//";
  } else if (path.starts_with(kMark) && HasDrive(path.substr(kMark.size()))) {
    path.remove_prefix(kMark.size());
  }
  plain.append(path);
  std::replace(plain.begin(), plain.end(), u'\\', u'/');
  return FromWideName(plain);
}

FileResult<std::string> FinalPath(HANDLE file, DWORD form) {
  String path(MAX_PATH, u'\0');
  for (;;) {
    const auto size = static_cast<DWORD>(path.size());
    const DWORD length =
        ::GetFinalPathNameByHandleW(file, reinterpret_cast<wchar_t*>(path.data()), size, form);
    if (length == 0) return LastFailure();
    path.resize(length);
    if (length < size) return WithoutMark(path);
  }
}

}  // namespace

FileResult<FileRecord> LookUp(const SystemFile& root, const std::string& path) {
  if (path.empty()) return LookUp(root);
  const InsideFolder in(root, path);
  if (in.Failure()) return in.Failure();
  const FileResult<SystemFile> file = in.Open(kItself);
  if (!file) return file.Failure();
  if (IsSpelledOtherwise(HandleOf(*file), in.Name())) return FailureOfCode(ERROR_FILE_NOT_FOUND);
  ShareDiskNumber(root, *file);
  return LookUp(*file);
}

FileResult<FileRecord> LookUp(const SystemFile& file) {
  FileResult<FileRecord> record = RecordOf(HandleOf(file));
  if (record) record->disk = DiskNumberOf(file);
  return record;
}

FileResult<FileRecord> LookUpSystemPath(const std::string& path) {
  const FileResult<String> native = ToNtPath(path);
  if (!native) return native.Failure();
  const FileResult<SystemFile> file = OpenNtPath(*native, kItself);
  return file ? LookUp(*file) : file.Failure();
}

FileResult<std::string> RealPath(const std::string& path) {
  const FileResult<String> native = ToNtPath(path);
  if (!native) return native.Failure();
  const FileResult<SystemFile> file = OpenNtPath(*native, Opening());
  if (!file) return file.Failure();
  FileResult<std::string> real = FinalPath(HandleOf(*file), VOLUME_NAME_DOS);
  // A disk without a letter has a number.
  return real ? real : FinalPath(HandleOf(*file), VOLUME_NAME_GUID);
}

}  // namespace norvo
