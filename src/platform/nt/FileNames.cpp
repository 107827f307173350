#include <bit>
#include <cstddef>
#include <cstring>
#include <vector>

#include "platform/files/DiskPath.h"
#include "platform/files/SystemCalls.h"
#include "platform/nt/FileAttributes.h"
#include "platform/nt/Handle.h"
#include "platform/nt/InsideFolder.h"
#include "platform/nt/WideNames.h"
#include "platform/nt/WindowsCode.h"

namespace norvo {
namespace {

using Kind = FileFailure::Kind;

// What the header's enumeration lacks (FileDispositionInformationEx, FileRenameInformationEx):
// changes as POSIX has them, in one step whoever has the file open.
const auto kDisposeAsPosix = std::bit_cast<FILE_INFORMATION_CLASS>(64);
const auto kRenameAsPosix = std::bit_cast<FILE_INFORMATION_CLASS>(65);
constexpr ULONG kReplace = 0x1;
constexpr ULONG kRenamePosix = 0x2;
constexpr ULONG kRenameReadOnly = 0x40;
constexpr ULONG kDelete = 0x1;
constexpr ULONG kDeletePosix = 0x2;
constexpr ULONG kDeleteReadOnly = 0x10;

/// To give a file another name, or none.
constexpr Opening kToRename{DELETE | FILE_READ_ATTRIBUTES, 0, FILE_OPEN, 0, true};
constexpr Opening kToAsk{FILE_READ_ATTRIBUTES, 0, FILE_OPEN, 0, true};
constexpr Opening kToProtect{FILE_READ_ATTRIBUTES | FILE_WRITE_ATTRIBUTES, 0, FILE_OPEN, 0, true};

/// The name that a file is to have in an open folder, as the calls want it.
class NewName {
 public:
  NewName(HANDLE folder, StringView name)
      : bytes_(sizeof(FILE_RENAME_INFORMATION) + name.size() * sizeof(wchar_t)) {
    FILE_RENAME_INFORMATION facts = {};
    facts.RootDirectory = folder;
    facts.FileNameLength = static_cast<ULONG>(name.size() * sizeof(wchar_t));
    std::memcpy(bytes_.data(), &facts, sizeof facts);
    std::memcpy(bytes_.data() + offsetof(FILE_RENAME_INFORMATION, FileName), name.data(),
                facts.FileNameLength);
  }

  /// `flags`: those of the change, or 1 for one that replaces.
  NTSTATUS Give(HANDLE file, FILE_INFORMATION_CLASS change, ULONG flags) {
    std::memcpy(bytes_.data(), &flags, sizeof flags);
    IO_STATUS_BLOCK block = {};
    return ::NtSetInformationFile(file, &block, bytes_.data(), static_cast<ULONG>(bytes_.size()),
                                  change);
  }

 private:
  // A link's structure is the same one.
  static_assert(sizeof(FILE_LINK_INFORMATION) == sizeof(FILE_RENAME_INFORMATION));

  std::vector<char> bytes_;
};

/// The other name in the folder of the first.
FileResult<String> SecondName(const std::string& path) {
  std::optional<String> name = ToWideName(LeafOf(path));
  if (!name) return FailureOfCode(ERROR_INVALID_NAME);
  if (const FileFailure failure = FailureOfName(*name)) return failure;
  return std::move(*name);
}

FileFailure SetReadOnlyIn(HANDLE folder, const String& name, bool readOnly) {
  const FileResult<SystemFile> file = OpenPart(folder, name, kToProtect);
  return file ? SetReadOnly(HandleOf(*file), readOnly) : file.Failure();
}

bool IsReadOnlyIn(HANDLE folder, const String& name) {
  const FileResult<SystemFile> file = OpenPart(folder, name, kToAsk);
  return file && IsReadOnly(HandleOf(*file));
}

/// The old kinds of changes refuse read-only files. What such a name stands for is none during the
/// change, and afterwards unless that has succeeded.
template <class Change>
FileFailure DespiteReadOnly(HANDLE folder, const String& name, Change&& change) {
  if (!IsReadOnlyIn(folder, name)) return change();
  if (const FileFailure failure = SetReadOnlyIn(folder, name, false)) return failure;
  const FileFailure failure = change();
  if (failure) SetReadOnlyIn(folder, name, true);
  return failure;
}

FileFailure ReplaceIn(HANDLE file, HANDLE folder, const String& name) {
  NewName as(folder, name);
  const NTSTATUS status = as.Give(file, kRenameAsPosix, kReplace | kRenamePosix | kRenameReadOnly);
  if (!IsUnknownHere(status)) return FailureOfStatus(status);
  return DespiteReadOnly(folder, name, [&] {
    return FailureOfStatus(as.Give(file, FileRenameInformation, kReplace));
  });
}

/// A name that nobody asks for.
String NameOfRemoved(HANDLE file) {
  FILE_INTERNAL_INFORMATION index = {};
  Query(file, FileInternalInformation, index);
  const std::string number = std::to_string(index.IndexNumber.QuadPart);
  return u".norvo-removed-" + String(number.begin(), number.end()) + u".tmp";
}

FileFailure DisposeOf(HANDLE file) {
  FILE_DISPOSITION_INFORMATION gone = {TRUE};
  return FailureOfStatus(Set(file, FileDispositionInformation, gone));
}

/// The old kind of removing leaves the name there until the last who has the file open has closed
/// it. Who has it open meanwhile is to find it gone all the same, as everywhere else.
FileFailure RemoveAsOfOld(const InsideFolder& in) {
  Opening alone = kToRename;
  alone.isAlone = true;
  FileResult<SystemFile> file = in.Open(alone);
  if (file) return DisposeOf(HandleOf(*file));
  if (file.Failure().kind != Kind::InUse) return file.Failure();
  file = in.Open(kToRename);
  if (!file) return file.Failure();
  const HANDLE handle = HandleOf(*file);
  NewName(in.Folder(), NameOfRemoved(handle)).Give(handle, FileRenameInformation, 0);
  return DisposeOf(handle);
}

}  // namespace

FileFailure GiveName(const SystemFile&, const SystemFile&, const std::string&) {
  return FailureOfCode(ERROR_NOT_SUPPORTED);
}

FileFailure LinkFile(const SystemFile& file, const SystemFile&, const std::string&,
                     const SystemFile& toRoot, const std::string& to) {
  const InsideFolder target(toRoot, to);
  if (target.Failure()) return target.Failure();
  NewName name(target.Folder(), target.Name());
  const FileFailure failure = FailureOfStatus(name.Give(HandleOf(file), FileLinkInformation, 0));
  if (failure.kind != Kind::AccessDenied) return failure;
  // It may be open for less than some disks want for that.
  const FileResult<SystemFile> again = OpenPart(HandleOf(file), {}, {FILE_WRITE_ATTRIBUTES});
  return again ? FailureOfStatus(name.Give(HandleOf(*again), FileLinkInformation, 0)) : failure;
}

FileFailure RenameNew(const SystemFile& root, const std::string& from, const std::string& to) {
  const InsideFolder in(root, from);
  if (in.Failure()) return in.Failure();
  const FileResult<String> name = SecondName(to);
  if (!name) return name.Failure();
  const FileResult<SystemFile> file = in.Open(kToRename);
  if (!file) return file.Failure();
  NewName as(in.Folder(), *name);
  return FailureOfStatus(as.Give(HandleOf(*file), FileRenameInformation, 0));
}

FileFailure RenameOver(const SystemFile& root, const std::string& from, const std::string& to) {
  const InsideFolder in(root, from);
  if (in.Failure()) return in.Failure();
  const FileResult<String> name = SecondName(to);
  if (!name) return name.Failure();
  const FileResult<SystemFile> file = in.Open(kToRename);
  return file ? ReplaceIn(HandleOf(*file), in.Folder(), *name) : file.Failure();
}

FileFailure MakeFolder(const SystemFile& root, const std::string& path) {
  const InsideFolder in(root, path);
  if (in.Failure()) return in.Failure();
  return in.Open({FILE_READ_ATTRIBUTES, FILE_DIRECTORY_FILE, FILE_CREATE}).Failure();
}

FileFailure RemoveFile(const SystemFile& root, const std::string& path) {
  const InsideFolder in(root, path);
  if (in.Failure()) return in.Failure();
  FileResult<SystemFile> file = in.Open(kToRename);
  if (!file) return file.Failure();
  if (IsPlainFolder(HandleOf(*file))) return {Kind::IsAFolder, ERROR_ACCESS_DENIED};
  ULONG flags = kDelete | kDeletePosix | kDeleteReadOnly;
  const NTSTATUS status = Set(HandleOf(*file), kDisposeAsPosix, flags);
  if (!IsUnknownHere(status)) return FailureOfStatus(status);
  file->Close();
  return DespiteReadOnly(in.Folder(), in.Name(), [&in] { return RemoveAsOfOld(in); });
}

FileFailure SetPermissions(const SystemFile& file, std::uint32_t permissions) {
  return SetReadOnly(HandleOf(file), (permissions & kAnyWriter) == 0);
}

}  // namespace norvo
