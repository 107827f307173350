#include "platform/hosted/HostedFileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <time.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <utility>

#include "automation/RunTimeError.h"
#include "platform/hosted/AtomicFile.h"
#include "platform/hosted/HostName.h"
#include "platform/hosted/HostedFiles.h"
#include "platform/hosted/ProgramVersion.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr unsigned kAnyWriter = 0222;
constexpr std::uint32_t kNewFile = 0666;
constexpr mode_t kNewFolder = 0777;

/// Days from 1 January 1970 to a date of the Gregorian calendar.
std::int64_t DaysFromCivil(std::int64_t year, std::int64_t month, std::int64_t day) {
  year -= month <= 2 ? 1 : 0;
  const std::int64_t era = (year >= 0 ? year : year - 399) / 400;
  const std::int64_t yearOfEra = year - era * 400;
  const std::int64_t dayOfYear = (153 * (month > 2 ? month - 3 : month + 9) + 2) / 5 + day - 1;
  const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * 146097 + dayOfEra - 719468;
}

StringView WithoutLastSeparator(StringView absolute) {
  if (absolute.size() > 2 && absolute.back() == u'\\') absolute.remove_suffix(1);
  return absolute;
}

/// The folder of a path in full, whether or not a separator follows the last name; empty for a path
/// that is on no drive.
StringView FolderOf(StringView absolute) {
  return HasDrive(absolute) ? ParentFolder(WithoutLastSeparator(absolute)) : StringView();
}

}  // namespace

bool HostedFileSystem::FolderExists(StringView path) {
  const std::optional<HostEntry> entry = resolver_.Find(path);
  return entry && entry->facts.kind == HostFacts::Kind::Folder;
}

std::optional<FileFacts> HostedFileSystem::FactsOf(StringView path) {
  std::optional<HostEntry> entry = resolver_.Find(path);
  if (!entry || entry->facts.kind != HostFacts::Kind::File) return std::nullopt;
  std::optional<String> name = FromHostName(HostLeaf(entry->place));
  if (!name) return std::nullopt;
  const HostTime& modified = entry->facts.modified;
  FileFacts facts{std::move(*name), static_cast<double>(entry->facts.size), entry->facts.created,
                  modified.seconds * 1'000'000'000 + modified.nanoseconds};
  lastSize_ = entry->facts.size;
  lastSeen_ = {entry->drive, std::move(entry->isLink ? entry->target : entry->place)};
  return facts;
}

void HostedFileSystem::RaiseMissing(StringView path) {
  const int reason = resolver_.Reason();
  if (reason == EACCES || reason == EPERM) RaiseHostCallError(reason, Subject::File, path);
  const String absolute = AbsolutePathName(path);
  const bool folderThere = FolderExists(FolderOf(absolute));
  RaiseHostCallError(ENOENT, folderThere ? Subject::File : Subject::Folder, path);
}

/// The place of a name that does not exist yet, as it is spelled in the path.
HostPlace HostedFileSystem::PlaceOfNew(const HostPlace& folder, StringView path) {
  const String absolute = AbsolutePathName(path);
  const std::optional<std::string> name = ToHostName(LastComponent(WithoutLastSeparator(absolute)));
  if (!name) RaiseHostCallError(EINVAL, Subject::File, path);
  return {folder.drive, JoinHost(folder.path, *name)};
}

void HostedFileSystem::CreateFolder(StringView path) {
  if (resolver_.Find(path)) RaiseHostCallError(EEXIST, Subject::Folder, path);
  const std::optional<HostPlace> parent = resolver_.FindFolder(FolderOf(AbsolutePathName(path)));
  if (!parent) RaiseHostCallError(ENOENT, Subject::Folder, path);
  const HostPlace place = PlaceOfNew(*parent, path);
  if (::mkdirat(place.drive->Root(), place.path.c_str(), kNewFolder) != 0) {
    RaiseHostCallError(errno, Subject::Folder, path);
  }
  resolver_.Changed(*parent->drive, parent->path);
}

void HostedFileSystem::RemoveFile(StringView path, bool force) {
  const std::optional<HostEntry> entry = resolver_.Find(path);
  if (!entry || entry->facts.kind != HostFacts::Kind::File) RaiseMissing(path);
  // The host deletes read-only files too; a Windows machine does so only when forced.
  if (!force && (entry->facts.mode & kAnyWriter) == 0) {
    RaiseHostCallError(EACCES, Subject::File, path);
  }
  if (::unlinkat(entry->drive->Root(), entry->place.c_str(), 0) != 0) {
    RaiseHostCallError(errno, Subject::File, path);
  }
  resolver_.Changed(*entry->drive, HostParent(entry->place));
}

/// Opens what a path names; not open when there is nothing. Never waits: a pipe is opened without
/// blocking, and turned down by the caller.
HostFile HostedFileSystem::OpenExisting(StringView path, int flags, HostPlace& place) {
  flags |= O_NONBLOCK | O_NOCTTY;
  const bool asFolder = !path.empty() && IsSeparator(path.back());
  std::optional<HostPlace> guess = asFolder ? std::nullopt : resolver_.Guess(path);
  if (guess) {
    HostFile file = OpenInside(guess->drive->Root(), guess->path, flags);
    if (!file.IsOpen() && errno == EACCES) RaiseHostCallError(EACCES, Subject::File, path);
    place = std::move(*guess);
    if (file.IsOpen()) return file;
  }
  const std::optional<HostEntry> entry = resolver_.Find(path);
  if (!entry || entry->facts.kind != HostFacts::Kind::File) return {};
  place = {entry->drive, entry->Path()};
  HostFile file = OpenInside(place.drive->Root(), place.path, flags);
  if (!file.IsOpen()) RaiseHostCallError(errno, Subject::File, path);
  return file;
}

std::unique_ptr<BinaryFile> HostedFileSystem::OpenForReading(StringView path) {
  HostPlace place;
  HostFile file = OpenExisting(path, O_RDONLY, place);
  if (!file.IsOpen()) RaiseMissing(path);
  std::uint64_t end = lastSize_;
  std::optional<std::uint64_t> size;
  if (place.drive != lastSeen_.drive || place.path != lastSeen_.path) {
    const std::optional<HostFacts> facts = LookUp(file);
    if (!facts) RaiseHostCallError(errno, Subject::File, path);
    if (facts->kind != HostFacts::Kind::File) RaiseHostCallError(ENOENT, Subject::File, path);
    size = end = facts->size;
  }
  lastSeen_ = {};  // what is remembered serves one opening, and never grows old
  return std::make_unique<HostedBinaryFile>(std::move(file), end, size, path);
}

HostFile HostedFileSystem::OpenRegular(StringView path, HostPlace& place, HostFacts& facts) {
  HostFile file = OpenExisting(path, O_RDONLY, place);
  if (!file.IsOpen()) RaiseMissing(path);
  const std::optional<HostFacts> found = LookUp(file);
  if (!found) RaiseHostCallError(errno, Subject::File, path);
  if (found->kind != HostFacts::Kind::File) RaiseHostCallError(ENOENT, Subject::File, path);
  facts = *found;
  return file;
}

HostFile HostedFileSystem::CreateForAppending(StringView path) {
  // What exists and could not be opened is a folder or no file at all.
  if (resolver_.Find(path)) RaiseHostCallError(EISDIR, Subject::File, path);
  const std::optional<HostPlace> folder = resolver_.FindFolder(FolderOf(AbsolutePathName(path)));
  if (!folder) RaiseHostCallError(ENOENT, Subject::Folder, path);
  const HostPlace place = PlaceOfNew(*folder, path);
  HostFile file = OpenInside(place.drive->Root(), place.path,
                             O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK | O_NOCTTY, kNewFile);
  if (!file.IsOpen()) RaiseHostCallError(errno, Subject::File, path);
  resolver_.Changed(*folder->drive, folder->path);
  return file;
}

std::unique_ptr<AppendFile> HostedFileSystem::OpenForAppending(StringView path, bool create) {
  HostPlace place;
  HostFile file = OpenExisting(path, O_WRONLY | O_APPEND, place);
  if (!file.IsOpen()) {
    if (!create || (!path.empty() && IsSeparator(path.back()))) RaiseMissing(path);
    file = CreateForAppending(path);
  }
  const std::optional<HostFacts> facts = LookUp(file);
  if (!facts) RaiseHostCallError(errno, Subject::File, path);
  if (facts->kind != HostFacts::Kind::File) RaiseHostCallError(ENOENT, Subject::File, path);
  return std::make_unique<HostedAppendFile>(std::move(file), path);
}

HostPlace HostedFileSystem::CreateFolders(StringView path) {
  if (const std::optional<HostPlace> folder = resolver_.FindFolder(path)) return *folder;
  const StringView parent = FolderOf(path);
  // Upwards the way ends at a drive's root, which nobody can create.
  if (parent.empty() || parent == path) RaiseHostCallError(ENOENT, Subject::Folder, path);
  CreateFolders(parent);
  CreateFolder(path);
  const std::optional<HostPlace> folder = resolver_.FindFolder(path);
  if (!folder) RaiseHostCallError(ENOENT, Subject::Folder, path);
  return *folder;
}

HostPlace HostedFileSystem::MakeFolderOf(StringView path) {
  const String absolute = AbsolutePathName(path);
  if (path.empty() || absolute.back() == u'\\') RaiseHostCallError(EISDIR, Subject::File, path);
  if (absolute.size() > PATH_MAX) RaiseHostCallError(ENAMETOOLONG, Subject::File, path);
  return CreateFolders(FolderOf(absolute));
}

HostPlace HostedFileSystem::PlaceOfNewFile(StringView path) {
  HostPlace place = PlaceOfNew(MakeFolderOf(path), path);
  // A link that leads nowhere or out of the drive is in the way; it is not ours to remove.
  if (LookUp(place.drive->Root(), place.path)) RaiseHostCallError(EEXIST, Subject::File, path);
  if (errno != ENOENT) RaiseHostCallError(errno, Subject::File, path);
  return place;
}

void HostedFileSystem::ReplaceWhole(StringView path, std::string_view bytes) {
  HostPlace place;
  if (const std::optional<HostEntry> entry = resolver_.Find(path)) {
    if (entry->facts.kind != HostFacts::Kind::File) RaiseHostCallError(EISDIR, Subject::File, path);
    place = {entry->drive, entry->Path()};
  } else {
    place = PlaceOfNewFile(path);
  }
  const int reason = ReplaceFile(place.drive->Root(), place.path, bytes);
  if (reason != 0) {
    resolver_.Changed(*place.drive, HostParent(place.path));
    RaiseHostCallError(reason, Subject::File, path);
  }
  resolver_.Written(place);
}

HostFile HostedFileSystem::OpenListed(StringView path, HostPlace& place) {
  constexpr int kFlags = O_RDONLY | O_DIRECTORY | O_NONBLOCK;
  const String absolute = path.empty() ? String() : AbsolutePathName(path);
  if (std::optional<HostPlace> guess = resolver_.Guess(absolute)) {
    HostFile folder = OpenInside(guess->drive->Root(), guess->path, kFlags);
    if (!folder.IsOpen() && errno == EACCES) RaiseHostCallError(EACCES, Subject::Folder, path);
    if (folder.IsOpen()) {
      resolver_.Remember(absolute, *guess);
      place = std::move(*guess);
      return folder;
    }
  }
  const std::optional<HostPlace> found = resolver_.FindFolder(path);
  if (!found) {
    const bool denied = resolver_.Reason() == EACCES;
    RaiseHostCallError(denied ? EACCES : ENOENT, Subject::Folder, path);
  }
  HostFile folder = OpenInside(found->drive->Root(), found->path, kFlags);
  if (!folder.IsOpen()) RaiseHostCallError(errno, Subject::Folder, path);
  resolver_.Remember(absolute, *found);
  place = *found;
  return folder;
}

String HostedFileSystem::AbsolutePathName(StringView path) {
  return AbsolutePath(path, u"C:");
}

DriveType HostedFileSystem::TypeOfDrive(StringView path) {
  const String absolute = path.empty() ? String() : AbsolutePathName(path);
  const HostDrive* const drive = HasDrive(absolute) ? drives_.Find(absolute.front()) : nullptr;
  return drive == nullptr ? DriveType::Unknown : drive->Type();
}

std::vector<Drive> HostedFileSystem::Drives() {
  return drives_.List();
}

String HostedFileSystem::FileVersion(StringView path) {
  return FileExists(path) ? ProgramVersion(*OpenForReading(path)) : String();
}

String HostedFileSystem::SystemFolder() {
  const bool older = !FolderExists(u"C:\\Windows") && FolderExists(u"C:\\WINNT");
  return older ? u"C:\\WINNT\\System32\\" : u"C:\\Windows\\System32\\";
}

Date HostedFileSystem::LocalDate(FileTime time) {
  constexpr double kSecondsPerDay = 86400;
  constexpr std::int64_t kDaysFromDateZero = 25569;  // 30 December 1899 to 1 January 1970
  const auto moment = static_cast<time_t>(time);
  struct tm local = {};
  if (::localtime_r(&moment, &local) == nullptr) return {};
  const std::int64_t days =
      DaysFromCivil(local.tm_year + std::int64_t{1900}, local.tm_mon + 1, local.tm_mday) +
      kDaysFromDateZero;
  const double part = (local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec) / kSecondsPerDay;
  // Before date zero the fraction still counts forward from midnight, but is written backward.
  return {days < 0 ? static_cast<double>(days) - part : static_cast<double>(days) + part};
}

}  // namespace norvo
