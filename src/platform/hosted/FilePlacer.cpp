#include "platform/hosted/FilePlacer.h"

#include <cerrno>
#include <optional>
#include <utility>

#include "platform/hosted/FileCopy.h"
#include "platform/hosted/HostReason.h"
#include "platform/hosted/HostedFileSystem.h"
#include "platform/hosted/PlaceBatch.h"
#include "platform/hosted/TargetFolders.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr unsigned kReadAndWrite = 0666;
constexpr unsigned kOwner = 0600;

/// Ends one job.
struct Failure {
  String reason;
};

[[noreturn]] void Fail(StringView what, int code) {
  throw Failure{String(what).append(u": ").append(HostReason(code))};
}

constexpr StringView kNoReading = u"the source cannot be read";
constexpr StringView kNoWriting = u"the target cannot be written";

/// A regular file, open for reading.
struct OpenedFile {
  HostFile file;
  HostPlace place;
  HostFacts facts;
};

/// Raises HostCallError. A reading that is part of a move leaves no trace in the file's times, so
/// that a move that is stopped and begun again makes the same copies.
OpenedFile Open(HostedFileSystem& files, StringView path) {
  OpenedFile opened;
  opened.file = files.OpenRegular(path, opened.place, opened.facts);
  KeepAccessTime(opened.file);
  return opened;
}

bool IsSameFile(const HostFacts& left, const HostFacts& right) {
  return left.disk == right.disk && left.record == right.record;
}

/// Nothing, with the reason in `errno`, when one cannot be read.
std::optional<bool> HaveSameContent(const OpenedFile& left, const OpenedFile& right,
                                    const ByteSink& sink) {
  if (left.facts.size != right.facts.size) return false;
  if (IsSameFile(left.facts, right.facts)) {
    sink(left.facts.size);
    return true;
  }
  return SameBytes(left.file, right.file, left.facts.size, sink);
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
  std::optional<HostPlace> PlaceOf(StringView target);
  PlaceOutcome Compare(const OpenedFile& source, StringView target, const ByteSink& sink);
  int Link(const OpenedFile& source, const HostPlace& place);
  void Copy(std::size_t job, const OpenedFile& source, HostPlace place);
  void Fill(const NewFile& file, const OpenedFile& source);

  void TurnOver();
  void FinishAll();
  void Finish(PlaceBatch& batch);
  PlaceOutcome Settle(const PlaceBatch::File& file, int reason);

  HostedFileSystem& from_;
  HostedFileSystem& to_;
  const std::span<const PlaceJob> jobs_;
  const PlaceMode mode_;
  PlaceListener& listener_;
  const ByteSink sink_;
  TargetFolders folders_;
  PlaceBatch filling_;
  PlaceBatch leaving_;
  bool wasFull_ = false;  // the disk has turned a file down
};

template <class Work>
std::optional<PlaceOutcome> OutcomeOf(Work&& work) {
  try {
    return work();
  } catch (Failure& failure) {
    return PlaceOutcome{PlaceResult::Failed, std::move(failure.reason)};
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
  std::optional<HostPlace> place = PlaceOf(target);
  if (!place) return Compare(source, target, sink_);
  if (mode_ == PlaceMode::Link) {
    const int reason = Link(source, *place);
    if (reason == 0) return PlaceOutcome{PlaceResult::Linked, {}};
    if (reason == EEXIST) return Compare(source, target, sink_);
    // Whatever else it is: if it is not the linking alone, the copying is going to tell.
  }
  Copy(job, source, std::move(*place));
  return std::nullopt;
}

OpenedFile Placing::OpenSource(StringView path) {
  try {
    return Open(from_, path);
  } catch (const HostCallError& failure) {
    if (failure.Code() != ENOENT) Fail(kNoReading, failure.Code());
    throw Failure{from_.Find(path) ? u"the source is no file" : u"the source is not there"};
  }
}

/// Where the target is to stand; nothing when there is something already.
std::optional<HostPlace> Placing::PlaceOf(StringView target) {
  try {
    TargetFolders::Answer answer = folders_.Take(target);
    if (answer.isNew) return std::move(answer.place);
    if (to_.Find(target)) return std::nullopt;
    // One that has the name may be on its way.
    FinishAll();
    if (to_.Find(target)) return std::nullopt;
    return to_.PlaceOfNewFile(target);
  } catch (const HostCallError& failure) {
    Fail(kNoWriting, failure.Code());
  }
}

/// Something has the target's name.
PlaceOutcome Placing::Compare(const OpenedFile& source, StringView target, const ByteSink& sink) {
  const std::optional<HostEntry> there = to_.Find(target);
  if (!there) Fail(kNoWriting, EEXIST);
  RemoveLeftover({there->drive, there->place});
  if (there->facts.kind == HostFacts::Kind::Folder) {
    throw Failure{u"a folder of that name is there already"};
  }
  std::optional<bool> same = false;
  int reason = 0;
  try {
    same = HaveSameContent(source, Open(to_, target), sink);
    reason = errno;
  } catch (const HostCallError& failure) {
    same = std::nullopt;
    reason = failure.Code();
  }
  if (!same) Fail(u"a file of that name is there already and cannot be compared", reason);
  if (!*same) throw Failure{u"another file of that name is there already"};
  return {PlaceResult::AlreadyThere, {}};
}

int Placing::Link(const OpenedFile& source, const HostPlace& place) {
  const int reason = LinkFile(source.file, source.place, place);
  if (reason != 0) return reason;
  to_.Written(place);
  sink_(source.facts.size);
  return 0;
}

void Placing::Copy(std::size_t job, const OpenedFile& source, HostPlace place) {
  NewFile file = NewFile::For(place, (source.facts.mode & kReadAndWrite) | kOwner);
  if (!file.File().IsOpen()) Fail(kNoWriting, errno);
  Fill(file, source);
  filling_.Add({job, std::move(place), std::move(file)}, source.facts.size);
}

void Placing::Fill(const NewFile& file, const OpenedFile& source) {
  // A disk that was full once is asked first, so that no large file is copied for nothing.
  if (wasFull_ && !ClaimSpace(file.File(), source.facts.size)) Fail(kNoWriting, errno);
  const int reason = CopyFile(source.file, source.facts, file.File(), sink_);
  if (reason == 0) return;
  if (reason == kSourceChanged) throw Failure{u"the source changed while it was read"};
  wasFull_ = wasFull_ || reason == ENOSPC || reason == EDQUOT;
  Fail(u"the file cannot be copied", reason);
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
  const std::vector<int> reasons = batch.Await();
  for (std::size_t i = 0; i < reasons.size(); ++i) {
    const PlaceBatch::File& file = batch.Files()[i];
    listener_.OnPlaced(file.job, *OutcomeOf([&]() -> std::optional<PlaceOutcome> {
                         return Settle(file, reasons[i]);
                       }));
  }
  batch = {};
}

PlaceOutcome Placing::Settle(const PlaceBatch::File& file, int reason) {
  if (reason == 0) {
    to_.Written(file.place);
    return {PlaceResult::Copied, {}};
  }
  if (reason != EEXIST) Fail(kNoWriting, reason);
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

bool FilePlacer::IsSame(StringView source, StringView target) {
  try {
    const auto ignore = [](std::uint64_t) {};
    return HaveSameContent(Open(from_, source), Open(to_, target), ignore).value_or(false);
  } catch (const HostCallError&) {
    return false;
  }
}

bool FilePlacer::IsBlocked(StringView target) {
  if (const std::optional<HostEntry> there = to_.Find(target)) {
    return there->facts.kind != HostFacts::Kind::File;
  }
  if (!to_.FolderExists(ParentFolder(target))) return false;
  try {
    to_.PlaceOfNewFile(target);  // creates no folder, since it exists
    return false;
  } catch (const HostCallError& failure) {
    return failure.Code() == EEXIST;
  }
}

}  // namespace norvo
