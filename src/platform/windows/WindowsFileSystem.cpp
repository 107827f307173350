#include "platform/windows/WindowsFileSystem.h"

#include "automation/RunTimeError.h"
#include "platform/win32/QuietDrives.h"
#include "platform/windows/FileVersion.h"
#include "platform/windows/MountedDisk.h"
#include "platform/windows/SystemPath.h"
#include "platform/windows/WideText.h"
#include "platform/windows/WindowsFiles.h"
#include "platform/windows/WindowsTime.h"
#include "services/Utility.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Beyond that many reports a name is reported again each time that it is met.
constexpr std::size_t kMostRemembered = 10000;

/// The path as the system takes it; raises for one that can name nothing.
String Required(StringView path, Subject subject) {
  std::optional<String> found = ToSystemPath(path);
  if (found) return std::move(*found);
  const bool onDrive = !path.empty() && HasDrive(FullPath(path));
  RaiseWindowsError(onDrive ? ERROR_INVALID_NAME : ERROR_PATH_NOT_FOUND, subject, path);
}

bool EndsInSeparator(StringView path) {
  return !path.empty() && IsSeparator(path.back());
}

bool IsFolder(DWORD attributes) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

/// True for what stands for another place. Other marked files and folders, such as those that a
/// network keeps copies of, are what they seem to be. A system that tells no tag marks only links.
bool IsLink(const WIN32_FIND_DATAW& found) {
  const DWORD tag = found.dwReserved0;
  return (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 &&
         (tag == 0 || IsReparseTagNameSurrogate(tag));
}

double SizeOf(DWORD high, DWORD low) {
  return static_cast<double>(std::uint64_t{high} << 32 | low);
}

/// The attributes of what is at a path, and `INVALID_FILE_ATTRIBUTES` when there is nothing.
DWORD AttributesOf(const String& systemPath, StringView path) {
  const DWORD attributes = ::GetFileAttributesW(ToWide(systemPath));
  if (attributes == INVALID_FILE_ATTRIBUTES) RaiseIfUntold(::GetLastError(), Subject::File, path);
  return attributes;
}

/// The facts of the file that a link leads to; nothing when it leads to none.
std::optional<FileFacts> FactsBehindLink(const String& systemPath, String name, StringView path) {
  const FileHandle file(::CreateFileW(ToWide(systemPath), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  BY_HANDLE_FILE_INFORMATION found = {};
  if (!file.IsOpen() || !::GetFileInformationByHandle(file.Get(), &found)) {
    RaiseIfUntold(::GetLastError(), Subject::File, path);
    return std::nullopt;
  }
  return FileFacts{std::move(name), SizeOf(found.nFileSizeHigh, found.nFileSizeLow),
                   ToFileTime(found.ftCreationTime), NanosecondsSince1970(found.ftLastWriteTime)};
}

SearchHandle FindFirst(const String& pattern, WIN32_FIND_DATAW& found, DWORD flags) {
  return SearchHandle(::FindFirstFileExW(ToWide(pattern), FindExInfoBasic, &found,
                                         FindExSearchNameMatch, nullptr, flags));
}

}  // namespace

bool WindowsFileSystem::FolderExists(StringView path) {
  const std::optional<String> systemPath = ToSystemPath(path);
  const QuietDrives quiet;
  return systemPath && IsFolder(AttributesOf(*systemPath, path));
}

std::optional<FileFacts> WindowsFileSystem::FactsOf(StringView path) {
  const std::optional<String> systemPath = ToSystemPath(path);
  if (!systemPath || EndsInSeparator(path)) return std::nullopt;
  const QuietDrives quiet;
  WIN32_FIND_DATAW found = {};
  if (!FindFirst(*systemPath, found, 0).IsOpen()) {
    RaiseIfUntold(::GetLastError(), Subject::File, path);
    return std::nullopt;
  }
  if (IsFolder(found.dwFileAttributes)) return std::nullopt;
  String name = FromWide(found.cFileName);
  if (IsLink(found)) return FactsBehindLink(*systemPath, std::move(name), path);
  return FileFacts{std::move(name), SizeOf(found.nFileSizeHigh, found.nFileSizeLow),
                   ToFileTime(found.ftCreationTime), NanosecondsSince1970(found.ftLastWriteTime)};
}

void WindowsFileSystem::CreateFolder(StringView path) {
  const String systemPath = Required(path, Subject::New);
  const QuietDrives quiet;
  if (::CreateDirectoryW(ToWide(systemPath), nullptr)) return;
  const DWORD reason = ::GetLastError();
  // A drive's root is only said to be denied.
  const bool exists = ::GetFileAttributesW(ToWide(systemPath)) != INVALID_FILE_ATTRIBUTES;
  RaiseWindowsError(exists ? ERROR_ALREADY_EXISTS : reason, Subject::New, path);
}

void WindowsFileSystem::MakeFolders(StringView folder) {
  if (FolderExists(folder)) return;
  const StringView parent = ParentFolder(folder);
  // A drive and a share are there, or nobody can create them.
  if (parent.size() == folder.size() || parent.size() < DriveName(folder).size()) {
    RaiseWindowsError(ERROR_PATH_NOT_FOUND, Subject::Folder, folder);
  }
  MakeFolders(parent);
  try {
    CreateFolder(folder);
  } catch (const RunTimeError&) {
    if (!FolderExists(folder)) throw;  // somebody else may have made it meanwhile
  }
}

/// Some systems say of a missing drive, too, that the file is missing.
void WindowsFileSystem::RaiseUnusable(DWORD reason, StringView path) {
  if (reason == ERROR_FILE_NOT_FOUND && !FolderExists(ParentFolder(FullPath(path)))) {
    reason = ERROR_PATH_NOT_FOUND;
  }
  RaiseWindowsError(reason, Subject::File, path);
}

void WindowsFileSystem::RemoveFile(StringView path, bool force) {
  const String systemPath = Required(path, Subject::File);
  const QuietDrives quiet;
  const DWORD attributes = ::GetFileAttributesW(ToWide(systemPath));
  if (attributes == INVALID_FILE_ATTRIBUTES) RaiseUnusable(::GetLastError(), path);
  if (IsFolder(attributes) || EndsInSeparator(path)) {
    RaiseWindowsError(ERROR_FILE_NOT_FOUND, Subject::File, path);
  }
  const bool unlock = force && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (unlock) {
    ::SetFileAttributesW(ToWide(systemPath), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
  }
  if (::DeleteFileW(ToWide(systemPath))) return;
  const DWORD reason = ::GetLastError();
  if (unlock) ::SetFileAttributesW(ToWide(systemPath), attributes);
  RaiseWindowsError(reason, Subject::File, path);
}

FileHandle WindowsFileSystem::OpenFile(StringView path, DWORD access, DWORD sharing, bool create) {
  const String systemPath = Required(path, create ? Subject::New : Subject::File);
  if (EndsInSeparator(path)) RaiseWindowsError(ERROR_FILE_NOT_FOUND, Subject::File, path);
  const QuietDrives quiet;
  FileHandle file(::CreateFileW(ToWide(systemPath), access, sharing, nullptr,
                                create ? OPEN_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                                nullptr));
  // A share can also hold pipes, which might be waited for.
  const DWORD type = file.IsOpen() ? ::GetFileType(file.Get()) : DWORD{FILE_TYPE_UNKNOWN};
  if (type == FILE_TYPE_DISK) return file;
  const DWORD reason = type == FILE_TYPE_UNKNOWN ? ::GetLastError() : DWORD{ERROR_SUCCESS};
  // The system says of a folder that it is denied.
  const bool folder = IsFolder(::GetFileAttributesW(ToWide(systemPath)));
  if (folder && create) RaiseWindowsError(ERROR_ALREADY_EXISTS, Subject::New, path);
  if (folder || reason == ERROR_SUCCESS) {
    RaiseWindowsError(ERROR_FILE_NOT_FOUND, Subject::File, path);
  }
  if (create) RaiseWindowsError(reason, Subject::New, path);
  RaiseUnusable(reason, path);
}

std::unique_ptr<BinaryFile> WindowsFileSystem::OpenForReading(StringView path) {
  return std::make_unique<WindowsBinaryFile>(OpenFile(path, GENERIC_READ, kShareAll, false), path);
}

std::unique_ptr<AppendFile> WindowsFileSystem::OpenForAppending(StringView path, bool create) {
  constexpr DWORD kAccess = FILE_APPEND_DATA | SYNCHRONIZE;
  return std::make_unique<WindowsAppendFile>(
      OpenFile(path, kAccess, FILE_SHARE_READ | FILE_SHARE_WRITE, create), path);
}

std::unique_ptr<SharedFile> WindowsFileSystem::OpenShared(StringView path) {
  constexpr DWORD kAccess = GENERIC_READ | FILE_APPEND_DATA;
  if (!EndsInSeparator(path)) MakeFolders(ParentFolder(FullPath(path)));
  return std::make_unique<WindowsSharedFile>(
      OpenFile(path, kAccess, FILE_SHARE_READ | FILE_SHARE_WRITE, true), path);
}

void WindowsFileSystem::MakeDurable(std::span<const String> paths) {
  for (const String& path : paths) {
    if (!FileExists(path)) continue;
    const FileHandle file = OpenFile(path, GENERIC_WRITE, kShareAll, false);
    if (!::FlushFileBuffers(file.Get())) {
      RaiseWindowsError(::GetLastError(), Subject::File, path);
    }
  }
}

bool WindowsFileSystem::WasTold(StringView folder, StringView name) {
  const String path = String(folder).append(u"\\").append(name);
  return warned_.size() < kMostRemembered && !warned_.insert(path).second;
}

void WindowsFileSystem::WarnOfName(StringView folder, StringView name) {
  if (WasTold(folder, name)) return;
  warn_(String(folder) + u": the name \"" + String(name) +
        u"\" cannot be reached by a path; it is left out");
}

/// Other links lead to what is met under the name of its own.
void WindowsFileSystem::WarnOfMountedDisk(StringView folder, StringView name) {
  const std::optional<String> path = ToSystemPath(Utility::AddBackslash(folder) + String(name));
  if (!path || !IsDiskWithoutLetter(*path) || WasTold(folder, name)) return;
  warn_(Utility::AddBackslash(folder) + String(name) +
        u": a disk without a letter is mounted in this folder; it was not searched");
}

/// Starts at the folder's first name; not open when it holds none.
SearchHandle WindowsFileSystem::OpenListing(StringView path, WIN32_FIND_DATAW& found) {
  const String systemPath = Required(path, Subject::Folder);
  const StringView separator = systemPath.back() == u'\\' ? u"" : u"\\";
  const String pattern = String(systemPath).append(separator).append(u"*");
  SearchHandle search = FindFirst(pattern, found, FIND_FIRST_EX_LARGE_FETCH);
  const DWORD reason = search.IsOpen() ? ERROR_SUCCESS : ::GetLastError();
  // The root of an empty disk holds not even the names of itself and its parent.
  const bool empty = reason == ERROR_FILE_NOT_FOUND && FolderExists(path);
  if (!search.IsOpen() && !empty) RaiseWindowsError(reason, Subject::Folder, path);
  return search;
}

std::vector<FolderItem> WindowsFileSystem::ListFolder(StringView path,
                                                      std::span<const StringView> endings) {
  const QuietDrives quiet;
  WIN32_FIND_DATAW found = {};
  const SearchHandle search = OpenListing(path, found);
  std::vector<FolderItem> items;
  if (!search.IsOpen()) return items;
  do {
    String name = FromWide(found.cFileName);
    const bool isFolder = IsFolder(found.dwFileAttributes);
    if (name == u"." || name == u"..") continue;
    if (isFolder && IsLink(found)) {
      WarnOfMountedDisk(path, name);
      continue;
    }
    if (!isFolder && !HasWantedEnding(name, endings)) continue;
    if (IsReachableName(name)) {
      items.push_back({std::move(name), isFolder});
    } else {
      WarnOfName(path, name);
    }
  } while (::FindNextFileW(search.Get(), &found));
  if (::GetLastError() != ERROR_NO_MORE_FILES) {
    RaiseWindowsError(::GetLastError(), Subject::Folder, path);
  }
  return items;
}

String WindowsFileSystem::AbsolutePathName(StringView path) {
  return FullPath(path);
}

DriveType WindowsFileSystem::TypeOfDrive(StringView path) {
  if (path.empty()) return DriveType::Unknown;
  const String full = FullPath(path);
  if (!HasDrive(full)) {
    return ToSystemPath(path) ? DriveType::Network : DriveType::Unknown;
  }
  const QuietDrives quiet;
  switch (::GetDriveTypeW(ToWide(full.substr(0, 2) + u'\\'))) {
    case DRIVE_REMOVABLE:
      return DriveType::Removable;
    case DRIVE_FIXED:
      return DriveType::Fixed;
    case DRIVE_REMOTE:
      return DriveType::Network;
    case DRIVE_CDROM:
      return DriveType::CdRom;
    case DRIVE_RAMDISK:
      return DriveType::RamDisk;
    default:
      return DriveType::Unknown;
  }
}

std::vector<Drive> WindowsFileSystem::Drives() {
  std::vector<Drive> drives;
  const DWORD present = ::GetLogicalDrives();
  if (present == 0) RaiseWindowsError(::GetLastError(), Subject::Folder, {});
  for (unsigned index = 0; index < 26; ++index) {
    if ((present >> index & 1) == 0) continue;
    const char16_t root[] = {static_cast<char16_t>(u'A' + index), u':'};
    drives.push_back({root[0], TypeOfDrive(StringView(root, 2))});
  }
  return drives;
}

String WindowsFileSystem::FileVersion(StringView path) {
  const QuietDrives quiet;
  return FileExists(path) ? VersionOfFile(*ToSystemPath(path)) : String();
}

String WindowsFileSystem::SystemFolder() {
  return SystemFolderPath();
}

Date WindowsFileSystem::LocalDate(FileTime time) {
  return ToLocalDate(time);
}

}  // namespace norvo
