#include "placing/FilePlacer.h"

#include <optional>
#include <utility>

#include "placing/PlaceBatch.h"
#include "placing/TargetFolders.h"
#include "platform/files/DiskPath.h"
#include "platform/files/FailureText.h"
#include "platform/files/FileBytes.h"
#include "platform/files/FileCopy.h"
#include "platform/files/FileError.h"
#include "platform/files/LastFolder.h"
#include "platform/files/TemporaryFile.h"
#include "platform/hosted/HostedFileSystem.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

using Kind = FileFailure::Kind;

constexpr unsigned kReadAndWrite = 0666;
constexpr unsigned kOwner = 0600;

/// Ends one job.
struct JobFailure {
  PlaceFailure what = PlaceFailure::None;
  String detail;
};

[[noreturn]] void Fail(PlaceFailure what, FileFailure why) {
  throw JobFailure{what, FailureText(why)};
}

/// Raises FileError. A reading that is part of a move leaves no trace in the file's times, so that
/// a move that is stopped and begun again makes the same copies.
OpenedFile Open(HostedFileSystem& files, StringView path, LastFolder* folders = nullptr) {
  OpenedFile opened = files.OpenRegular(path, folders);
  KeepAccessTime(opened.file);
  return opened;
}

FileResult<bool> HaveSameContent(const OpenedFile& left, const OpenedFile& right,
                                 const ByteSink& sink) {
  if (left.record.size != right.record.size) return false;
  if (IsSameFile(left.record, right.record)) {
    sink(left.record.size);
    return true;
  }
  return SameBytes(left.file, right.file, left.record.size, sink);
}

/// One call of PlaceAll.
class Placing {
 public:
  Placing(HostedFileSystem& from, HostedFileSystem& to, std::span<const PlaceJob> jobs,
          PlaceMode mode, PlaceListener& listener)
      : from_(from),
        to_(to),
        jobs_(jobs),
        mode_(mode),
        listener_(listener),
        sink_([&listener](std::uint64_t more) { listener.OnBytes(more); }),
        folders_(to) {}

  void Run();

 private:
  std::optional<PlaceOutcome> Place(std::size_t job);
  OpenedFile OpenSource(StringView path);
  std::optional<DrivePath> PathOfNew(StringView target);
  PlaceOutcome Compare(const OpenedFile& source, StringView target, const ByteSink& sink);
  FileFailure Link(const OpenedFile& source, const DrivePath& target);
  void Copy(std::size_t job, const OpenedFile& source, DrivePath target);
  FileFailure Fill(const NewFile& file, const OpenedFile& source);

  void TurnOver();
  void FinishAll();
  void Finish(PlaceBatch& batch);
  PlaceOutcome Settle(const PlaceBatch::File& file, FileFailure failure);

  HostedFileSystem& from_;
  HostedFileSystem& to_;
  const std::span<const PlaceJob> jobs_;
  const PlaceMode mode_;
  PlaceListener& listener_;
  const ByteSink sink_;
  TargetFolders folders_;
  LastFolder sourceFolders_;
  LastFolder targetFolders_;
  PlaceBatch filling_;
  PlaceBatch leaving_;
  bool wasFull_ = false;  // the disk has turned a file down
};

template <class Work>
std::optional<PlaceOutcome> OutcomeOf(Work&& work) {
  try {
    return work();
  } catch (JobFailure& failure) {
    return PlaceOutcome{PlaceResult::Failed, failure.what, std::move(failure.detail)};
  }
}

void Placing::Run() {
  for (std::size_t job = 0; job < jobs_.size(); ++job) {
    const std::optional<PlaceOutcome> outcome = OutcomeOf([&] { return Place(job); });
    if (outcome) listener_.OnPlaced(job, *outcome);
    if (filling_.IsFull() || (filling_.IsWorthAFlush() && leaving_.IsDone())) TurnOver();
  }
  FinishAll();
}

/// Nothing for a file that is in a batch now.
std::optional<PlaceOutcome> Placing::Place(std::size_t job) {
  const StringView target = jobs_[job].target;
  const OpenedFile source = OpenSource(jobs_[job].source);
  std::optional<DrivePath> path = PathOfNew(target);
  if (!path) return Compare(source, target, sink_);
  if (mode_ == PlaceMode::Link) {
    const FileFailure failure = Link(source, *path);
    if (!failure) return PlaceOutcome{PlaceResult::Linked, {}, {}};
    if (failure.kind == Kind::AlreadyExists) return Compare(source, target, sink_);
    // Whatever else it is: if it is not the linking alone, the copying is going to tell.
  }
  Copy(job, source, std::move(*path));
  return std::nullopt;
}

OpenedFile Placing::OpenSource(StringView path) {
  try {
    return Open(from_, path, &sourceFolders_);
  } catch (const FileError& error) {
    const FileFailure failure = error.Failure();
    if (failure.kind != Kind::NotFound) Fail(PlaceFailure::SourceUnreadable, failure);
    throw JobFailure{from_.Find(path) ? PlaceFailure::SourceNoFile : PlaceFailure::SourceMissing,
                     {}};
  }
}

/// Where the target is to stand; nothing when there is something already.
std::optional<DrivePath> Placing::PathOfNew(StringView target) {
  try {
    TargetFolders::Answer answer = folders_.Take(target);
    if (answer.isNew) return std::move(answer.path);
    if (to_.Find(target)) return std::nullopt;
    // One that has the name may be on its way.
    FinishAll();
    if (to_.Find(target)) return std::nullopt;
    return to_.PathOfNewFile(target);
  } catch (const FileError& error) {
    Fail(PlaceFailure::TargetUnwritable, error.Failure());
  }
}

/// Something has the target's name.
PlaceOutcome Placing::Compare(const OpenedFile& source, StringView target, const ByteSink& sink) {
  const std::optional<DiskEntry> there = to_.Find(target);
  if (!there) Fail(PlaceFailure::TargetUnwritable, Kind::AlreadyExists);
  // What a stopped process left behind while it made that file.
  const DrivePath temporary{there->named.drive, TemporaryPath(there->named.path)};
  if (folders_.MayHaveHeld(temporary)) RemoveFile(temporary.drive->Root(), temporary.path);
  if (there->record.kind == FileRecord::Kind::Folder) {
    throw JobFailure{PlaceFailure::FolderThere, {}};
  }
  FileResult<bool> same = false;
  try {
    same = HaveSameContent(source, Open(to_, target), sink);
  } catch (const FileError& error) {
    same = error.Failure();
  }
  if (!same) Fail(PlaceFailure::NotComparable, same.Failure());
  if (!*same) throw JobFailure{PlaceFailure::OtherFileThere, {}};
  return {PlaceResult::AlreadyThere, {}, {}};
}

FileFailure Placing::Link(const OpenedFile& source, const DrivePath& target) {
  const FileFailure failure = LinkFile(source.file, source.path.drive->Root(), source.path.path,
                                       target.drive->Root(), target.path);
  if (failure) return failure;
  to_.Written(target);
  sink_(source.record.size);
  return {};
}

void Placing::Copy(std::size_t job, const OpenedFile& source, DrivePath target) {
  const unsigned permissions = (source.record.permissions & kReadAndWrite) | kOwner;
  FileResult<NewFile> file =
      NewFile::At(target.drive->Root(), target.path, permissions, targetFolders_);
  if (!file) Fail(PlaceFailure::TargetUnwritable, file.Failure());
  const FileFailure timesLost = Fill(*file, source);
  filling_.Add({job, std::move(target), std::move(*file), timesLost}, source.record.size);
}

/// Why the system does not set the times, which is no reason to do without the song.
FileFailure Placing::Fill(const NewFile& file, const OpenedFile& source) {
  if (wasFull_) {
    // The disk is asked first, so that no large file is copied for nothing.
    const FileFailure failure = ClaimSpace(file.File(), source.record.size);
    if (failure) Fail(PlaceFailure::TargetUnwritable, failure);
  }
  const FileRecord& record = source.record;
  const FileFailure failure = CopyWhole(source.file, record, file.File(), sink_);
  if (!failure) return SetTimes(file.File(), record.accessed, record.modified);
  if (failure.kind == Kind::SourceChanged) throw JobFailure{PlaceFailure::SourceChanged, {}};
  wasFull_ = wasFull_ || failure.kind == Kind::DiskFull || failure.kind == Kind::QuotaReached;
  Fail(PlaceFailure::NotCopied, failure);
}

/// While one batch gets to the disk the next one is filled.
void Placing::TurnOver() {
  Finish(leaving_);
  leaving_ = std::exchange(filling_, {});
  leaving_.Start();
}

void Placing::FinishAll() {
  TurnOver();
  Finish(leaving_);
}

void Placing::Finish(PlaceBatch& batch) {
  if (batch.IsEmpty()) return;
  const std::vector<FileFailure> failures = batch.Await();
  for (std::size_t i = 0; i < failures.size(); ++i) {
    const PlaceBatch::File& file = batch.Files()[i];
    listener_.OnPlaced(file.job, *OutcomeOf([&]() -> std::optional<PlaceOutcome> {
                         return Settle(file, failures[i]);
                       }));
  }
  batch = {};
}

PlaceOutcome Placing::Settle(const PlaceBatch::File& file, FileFailure failure) {
  if (!failure) {
    to_.Written(file.path);
    const bool isWithout = bool(file.timesLost);
    return {PlaceResult::Copied, {}, isWithout ? FailureText(file.timesLost) : String(), isWithout};
  }
  if (failure.kind != Kind::AlreadyExists) {
    targetFolders_ = {};  // another folder may stand there now
    Fail(PlaceFailure::TargetUnwritable, failure);
  }
  // Somebody else has put something there in the meantime. The bytes are counted already.
  const PlaceJob& job = jobs_[file.job];
  return Compare(OpenSource(job.source), job.target, [](std::uint64_t) {});
}

}  // namespace

FilePlacer::FilePlacer(HostedPlatform& from, HostedPlatform& to)
    : from_(from.HostedFiles()), to_(to.HostedFiles()) {}

void FilePlacer::PlaceAll(std::span<const PlaceJob> jobs, PlaceMode mode, PlaceListener& listener) {
  Placing(from_, to_, jobs, mode, listener).Run();
}

Comparison FilePlacer::Compare(StringView source, StringView target) {
  std::optional<OpenedFile> ours;
  try {
    ours = Open(from_, source);
  } catch (const FileError&) {
    return Comparison::Other;
  }
  try {
    const auto ignore = [](std::uint64_t) {};
    const FileResult<bool> same = HaveSameContent(*ours, Open(to_, target), ignore);
    if (!same) return Comparison::Unknown;
    return *same ? Comparison::Same : Comparison::Other;
  } catch (const FileError&) {
    return Comparison::Unknown;
  }
}

std::string FilePlacer::IdentityOf(StringView source) {
  const std::optional<DiskEntry> found = from_.Find(AbsolutePath(source, u"C:"));
  if (!found) return ToUtf8(source);
  const auto& [drive, path] = found->Place();
  return JoinDiskPath(drive->Folder(), drive->LongPathOf(path).value_or(path));
}

bool FilePlacer::IsBlocked(StringView target) {
  if (const std::optional<DiskEntry> there = to_.Find(target)) {
    return there->record.kind != FileRecord::Kind::File;
  }
  if (!to_.FolderExists(ParentFolder(target))) return false;
  try {
    to_.PathOfNewFile(target);  // creates no folder, since it exists
    return false;
  } catch (const FileError& error) {
    const Kind kind = error.Failure().kind;
    return kind == Kind::AlreadyExists || kind == Kind::AccessDenied;
  }
}

}  // namespace norvo
