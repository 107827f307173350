#include "platform/hosted/HostedFileSystem.h"

#include <utility>

#include "automation/Dates.h"
#include "platform/files/DiskPath.h"
#include "platform/files/FileError.h"
#include "platform/files/ReplaceWhole.h"
#include "platform/hosted/DiskName.h"
#include "platform/hosted/HostedFiles.h"
#include "platform/hosted/ProgramVersion.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

using Kind = FileFailure::Kind;

constexpr unsigned kAnyWriter = 0222;

// No system that we know takes longer ones; it also bounds how deep the creating of folders goes.
constexpr std::size_t kLongestPath = 4096;

/// `folders` may be null.
FileResult<SystemFile> OpenIn(LastFolder* folders, const DrivePath& file, OpenMode mode) {
  const SystemFile& root = file.drive->Root();
  if (folders == nullptr) return OpenBeneath(root, file.path, mode);
  const auto folder = folders->Open(root, ParentOf(file.path));
  if (!folder) return folder.Failure();
  return OpenBeneath(**folder, std::string(LeafOf(file.path)), mode);
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

FileRecord RecordOfRegular(const SystemFile& file, StringView path) {
  const FileResult<FileRecord> record = LookUp(file);
  if (!record) RaiseFileError(record.Failure(), Subject::File, path);
  if (record->kind != FileRecord::Kind::File) RaiseFileError(Kind::NotFound, Subject::File, path);
  return *record;
}

}  // namespace

/// What the disk cannot tell of must not count as "not there": a song would be missed, or another
/// one take its place.
std::optional<DiskEntry> HostedFileSystem::Look(StringView path) {
  std::optional<DiskEntry> entry = resolver_.Find(path);
  const Kind reason = resolver_.Reason();
  const bool isUntold = reason == Kind::DiskFailed || reason == Kind::TooManyOpenFiles ||
                        reason == Kind::OutOfMemory || reason == Kind::Other;
  if (!entry && isUntold) RaiseFileError(reason, Subject::File, path);
  if (!entry && reason == Kind::AccessDenied) WarnOfDenial(path);
  if (!entry && reason == Kind::LinkInTheWay) {
    WarnOfLink(path);
  } else if (!entry && resolver_.EndedAtLink()) {
    NoteLink(path,
             u"this link leads out of the disk, or nowhere; no such link of this disk is followed, "
             u"and it counts as not there");
  }
  return entry;
}

/// Of very many things it does not remember the last, which are told again.
bool HostedFileSystem::WasTold(std::string what) {
  constexpr std::size_t kMostRemembered = 10000;
  return warned_.size() < kMostRemembered && !warned_.insert(std::move(what)).second;
}

/// Once of what one folder holds, which may be thousands of songs.
void HostedFileSystem::WarnOfDenial(StringView path) {
  const String folder(FolderOf(AbsolutePathName(path)));
  if (WasTold(ToUtf8(folder))) return;
  warn_(String(path) +
            u": the system denies a look at it; it counts as not there, and so does "
            u"what else is denied in its folder",
        WarningWeight::LeftOut);
}

/// Once of a drive: a disk that was taken out of its machine has many links to its own folders,
/// which lead elsewhere now.
void HostedFileSystem::WarnOfLink(StringView path) {
  const String absolute = AbsolutePathName(path);
  if (WasTold("link on " + ToUtf8(DriveName(absolute)))) return;
  warn_(absolute +
            u": a link on the way there leads out of the disk, or nowhere; no such link of this "
            u"disk is followed, and what is reached only by it counts as not there",
        WarningWeight::LeftOut);
}

/// A link that was met itself, once of a drive for each text. That nobody has asked for what lies
/// behind it, or that a name is thought to be free, is no reason to miss anything.
void HostedFileSystem::NoteLink(StringView path, StringView text) {
  const String absolute = AbsolutePathName(path);
  if (WasTold(ToUtf8(text) + ToUtf8(DriveName(absolute)))) return;
  warn_(absolute + u": " + String(text), WarningWeight::Notice);
}

bool HostedFileSystem::FolderExists(StringView path) {
  const std::optional<DiskEntry> entry = Look(path);
  return entry && entry->record.kind == FileRecord::Kind::Folder;
}

std::optional<FileFacts> HostedFileSystem::FactsOf(StringView path) {
  std::optional<DiskEntry> entry = Look(path);
  if (!entry || entry->record.kind != FileRecord::Kind::File) return std::nullopt;
  const DrivePath& named = entry->named;
  std::optional<std::string> longPath;
  if (!entry->isLink) longPath = named.drive->LongPathOf(named.path);
  std::optional<String> name = FromDiskName(LeafOf(longPath ? *longPath : named.path));
  if (!name) return std::nullopt;
  const FileRecord& record = entry->record;
  FileFacts facts{std::move(*name), static_cast<double>(record.size), record.created,
                  record.modified.seconds * 1'000'000'000 + record.modified.nanoseconds};
  lastSize_ = record.size;
  lastAsked_ = path;
  lastSeen_ = std::move(entry->isLink ? entry->target : entry->named);
  return facts;
}

void HostedFileSystem::RaiseMissing(StringView path) {
  const Kind reason = resolver_.Reason();
  if (reason == Kind::AccessDenied) RaiseFileError(reason, Subject::File, path);
  const String absolute = AbsolutePathName(path);
  const bool folderThere = FolderExists(FolderOf(absolute));
  RaiseFileError(Kind::NotFound, folderThere ? Subject::File : Subject::Folder, path);
}

/// Where a name that does not exist yet is to stand, as it is spelled in the path.
DrivePath HostedFileSystem::PathOfNew(const DrivePath& folder, StringView path) {
  const String absolute = AbsolutePathName(path);
  const std::optional<std::string> name = ToDiskName(LastComponent(WithoutLastSeparator(absolute)));
  if (!name) RaiseFileError(Kind::InvalidName, Subject::File, path);
  return {folder.drive, JoinDiskPath(folder.path, *name)};
}

void HostedFileSystem::CreateFolder(StringView path) {
  if (resolver_.Find(path)) RaiseFileError(Kind::AlreadyExists, Subject::Folder, path);
  const std::optional<DrivePath> parent = resolver_.FindFolder(FolderOf(AbsolutePathName(path)));
  if (!parent) RaiseFileError(Kind::NotFound, Subject::Folder, path);
  const DrivePath folder = PathOfNew(*parent, path);
  if (const FileFailure failure = MakeFolder(folder.drive->Root(), folder.path)) {
    RaiseFileError(failure, Subject::Folder, path);
  }
  resolver_.Changed(*parent->drive, parent->path);
}

void HostedFileSystem::RemoveFile(StringView path, bool force) {
  const std::optional<DiskEntry> entry = resolver_.Find(path);
  if (!entry || entry->record.kind != FileRecord::Kind::File) RaiseMissing(path);
  // The disk gives read-only files away too; a Windows machine does so only when forced.
  if (!force && (entry->record.permissions & kAnyWriter) == 0) {
    RaiseFileError(Kind::AccessDenied, Subject::File, path);
  }
  if (const FileFailure failure =
          norvo::RemoveFile(entry->named.drive->Root(), entry->named.path)) {
    RaiseFileError(failure, Subject::File, path);
  }
  resolver_.Changed(*entry->named.drive, ParentOf(entry->named.path));
}

/// Opens what stands just where a path says, without a look at the folder; nothing when there is
/// nothing, or when it is spelled otherwise on the disk.
std::optional<HostedFileSystem::Opened> HostedFileSystem::OpenAsSpelled(StringView path,
                                                                        OpenMode mode,
                                                                        LastFolder* folders) {
  const bool asFolder = !path.empty() && IsSeparator(path.back());
  // What is remembered serves one opening, and never grows old.
  std::optional<DrivePath> guess;
  DrivePath seen = std::exchange(lastSeen_, {});
  const bool wasSeen = seen.drive != nullptr && SameUnits(path, lastAsked_);
  if (wasSeen) {
    guess = std::move(seen);
  } else if (!asFolder) {
    guess = resolver_.Guess(path);
  }
  if (!guess) return std::nullopt;
  FileResult<SystemFile> file = OpenIn(folders, *guess, mode);
  if (file) return Opened{std::move(*guess), std::move(*file), wasSeen};
  if (file.Failure().kind != Kind::AccessDenied) return std::nullopt;
  RaiseFileError(file.Failure(), Subject::File, path);
}

/// Opens what a path names; nothing when there is nothing. What is no file, such as a pipe, is to
/// be turned down by the caller.
std::optional<HostedFileSystem::Opened> HostedFileSystem::OpenExisting(StringView path,
                                                                       OpenMode mode,
                                                                       LastFolder* folders) {
  std::optional<Opened> opened = OpenAsSpelled(path, mode, folders);
  if (opened) return opened;
  const std::optional<DiskEntry> entry = resolver_.Find(path);
  if (!entry || entry->record.kind != FileRecord::Kind::File) return opened;
  FileResult<SystemFile> file =
      OpenBeneath(entry->Place().drive->Root(), entry->Place().path, mode);
  if (!file) RaiseFileError(file.Failure(), Subject::File, path);
  opened = Opened{entry->Place(), std::move(*file), false};
  return opened;
}

std::unique_ptr<BinaryFile> HostedFileSystem::OpenForReading(StringView path) {
  std::optional<Opened> opened = OpenExisting(path, OpenMode::Read);
  if (!opened) RaiseMissing(path);
  std::uint64_t end = lastSize_;
  std::optional<std::uint64_t> size;
  if (!opened->wasSeen) size = end = RecordOfRegular(opened->file, path).size;
  return std::make_unique<HostedBinaryFile>(std::move(opened->file), end, size, path);
}

OpenedFile HostedFileSystem::OpenRegular(StringView path, LastFolder* folders) {
  std::optional<Opened> opened = OpenExisting(path, OpenMode::Read, folders);
  if (!opened) RaiseMissing(path);
  const FileRecord record = RecordOfRegular(opened->file, path);
  return {std::move(opened->file), std::move(opened->path), record};
}

/// Makes a file, or opens one that somebody else has made meanwhile.
HostedFileSystem::Opened HostedFileSystem::Create(StringView path, OpenMode mode) {
  // What exists and could not be opened is a folder or no file at all.
  const std::optional<DiskEntry> there = resolver_.Find(path);
  if (there && there->record.kind != FileRecord::Kind::File) {
    RaiseFileError(Kind::IsAFolder, Subject::File, path);
  }
  const std::optional<DrivePath> folder = resolver_.FindFolder(FolderOf(AbsolutePathName(path)));
  if (!folder) RaiseFileError(Kind::NotFound, Subject::Folder, path);
  DrivePath made = there ? there->Place() : PathOfNew(*folder, path);
  FileResult<SystemFile> file = OpenBeneath(made.drive->Root(), made.path, mode);
  if (!file) RaiseFileError(file.Failure(), Subject::File, path);
  if (!there) resolver_.Written(made);
  return {std::move(made), std::move(*file), false};
}

std::unique_ptr<AppendFile> HostedFileSystem::OpenForAppending(StringView path, bool create) {
  std::optional<Opened> opened = OpenExisting(path, OpenMode::Append);
  if (!opened) {
    if (!create || (!path.empty() && IsSeparator(path.back()))) RaiseMissing(path);
    opened = Create(path, OpenMode::CreateForAppending);
  }
  RecordOfRegular(opened->file, path);
  return std::make_unique<HostedAppendFile>(std::move(opened->file), path);
}

std::unique_ptr<SharedFile> HostedFileSystem::OpenShared(StringView path) {
  std::optional<Opened> opened = OpenAsSpelled(path, OpenMode::Share);
  if (!opened) {
    MakeFolderOf(path);
    opened = Create(path, OpenMode::CreateToShare);
  }
  RecordOfRegular(opened->file, path);
  LockFile(opened->file, true);
  return std::make_unique<HostedSharedFile>(std::move(opened->file), std::move(opened->path), path);
}

void HostedFileSystem::MakeDurable(std::span<const String> paths) {
  constexpr std::size_t kOpenAtOnce = 64;
  for (std::size_t done = 0; done < paths.size(); done += kOpenAtOnce) {
    Flush(paths.subspan(done, std::min(kOpenAtOnce, paths.size() - done)));
  }
}

void HostedFileSystem::Flush(std::span<const String> paths) {
  std::vector<Opened> opened;
  for (const String& path : paths) {
    if (std::optional<Opened> file = OpenExisting(path, OpenMode::Read)) {
      opened.push_back(*std::move(file));
    }
  }
  std::vector<const SystemFile*> files;
  for (const Opened& each : opened) files.push_back(&each.file);
  for (const FileFailure& failure : FlushToDisk(files)) {
    if (failure) RaiseFileError(failure, Subject::File, paths.front());
  }
}

DrivePath HostedFileSystem::CreateFolders(StringView path) {
  if (const std::optional<DrivePath> folder = resolver_.FindFolder(path)) return *folder;
  const StringView parent = FolderOf(path);
  // Upwards the way ends at a drive's root, which nobody can create.
  if (parent.empty() || parent == path) RaiseFileError(Kind::NotFound, Subject::Folder, path);
  CreateFolders(parent);
  try {
    CreateFolder(path);
  } catch (const RunTimeError&) {
    if (!FolderExists(path)) throw;  // somebody else may have made it meanwhile
  }
  const std::optional<DrivePath> folder = resolver_.FindFolder(path);
  if (!folder) RaiseFileError(Kind::NotFound, Subject::Folder, path);
  return *folder;
}

DrivePath HostedFileSystem::MakeFolderOf(StringView path) {
  const String absolute = AbsolutePathName(path);
  if (path.empty() || absolute.back() == u'\\') {
    RaiseFileError(Kind::IsAFolder, Subject::File, path);
  }
  if (absolute.size() > kLongestPath) RaiseFileError(Kind::NameTooLong, Subject::File, path);
  return CreateFolders(FolderOf(absolute));
}

DrivePath HostedFileSystem::PathOfNewFile(StringView path) {
  DrivePath made = PathOfNew(MakeFolderOf(path), path);
  // A link that leads nowhere or out of the drive is in the way; it is not ours to remove.
  const FileResult<FileRecord> there = LookUp(made.drive->Root(), made.path);
  if (there) RaiseFileError(Kind::AlreadyExists, Subject::File, path);
  if (there.Failure().kind != Kind::NotFound) {
    RaiseFileError(there.Failure(), Subject::File, path);
  }
  return made;
}

void HostedFileSystem::ReplaceWhole(StringView path, std::string_view bytes) {
  DrivePath file;
  if (const std::optional<DiskEntry> entry = resolver_.Find(path)) {
    if (entry->record.kind != FileRecord::Kind::File) {
      RaiseFileError(Kind::IsAFolder, Subject::File, path);
    }
    file = entry->Place();
  } else {
    file = PathOfNewFile(path);
  }
  if (const FileFailure failure = norvo::ReplaceWhole(file.drive->Root(), file.path, bytes)) {
    resolver_.Changed(*file.drive, ParentOf(file.path));
    RaiseFileError(failure, Subject::File, path);
  }
  resolver_.Written(file);
}

HostedFileSystem::Opened HostedFileSystem::OpenListed(StringView path) {
  const String absolute = path.empty() ? String() : AbsolutePathName(path);
  if (std::optional<DrivePath> guess = resolver_.Guess(absolute)) {
    FileResult<SystemFile> folder = OpenBeneath(guess->drive->Root(), guess->path, OpenMode::List);
    if (folder) {
      resolver_.Remember(absolute, *guess);
      return {std::move(*guess), std::move(*folder), false};
    }
    if (folder.Failure().kind == Kind::AccessDenied) {
      RaiseFileError(folder.Failure(), Subject::Folder, path);
    }
  }
  std::optional<DrivePath> found = resolver_.FindFolder(path);
  if (!found) {
    const bool denied = resolver_.Reason() == Kind::AccessDenied;
    RaiseFileError(denied ? Kind::AccessDenied : Kind::NotFound, Subject::Folder, path);
  }
  FileResult<SystemFile> folder = OpenBeneath(found->drive->Root(), found->path, OpenMode::List);
  if (!folder) RaiseFileError(folder.Failure(), Subject::Folder, path);
  resolver_.Remember(absolute, *found);
  return {std::move(*found), std::move(*folder), false};
}

String HostedFileSystem::AbsolutePathName(StringView path) {
  return AbsolutePath(path, u"C:");
}

DriveType HostedFileSystem::TypeOfDrive(StringView path) {
  if (path.empty()) return DriveType::Unknown;
  const char16_t letter = HasDrive(path) ? path.front() : AbsolutePathName(path).front();
  const DriveFolder* const drive = drives_.Find(letter);
  return drive == nullptr ? DriveType::Unknown : drive->Type();
}

std::vector<Drive> HostedFileSystem::Drives() {
  return drives_.List();
}

String HostedFileSystem::FileVersion(StringView path) {
  return FileExists(path) ? ProgramVersion(*OpenForReading(path)) : String();
}

/// A guess between two names, which needs no answer of the disk.
String HostedFileSystem::SystemFolder() {
  const bool older = !resolver_.FindFolder(u"C:\\Windows") && resolver_.FindFolder(u"C:\\WINNT");
  return older ? u"C:\\WINNT\\System32\\" : u"C:\\Windows\\System32\\";
}

Date HostedFileSystem::LocalDate(FileTime time) {
  const std::optional<std::chrono::local_seconds> local = LocalTime(time);
  return local ? DateOf(*local) : Date();
}

}  // namespace norvo
