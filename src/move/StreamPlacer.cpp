#include "move/StreamPlacer.h"

#include <memory>
#include <vector>

#include "automation/RunTimeError.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr std::size_t kPiece = std::size_t{256} * 1024;

PlaceOutcome Failed(PlaceFailure failure, String reason = {}) {
  return {PlaceResult::Failed, failure, std::move(reason)};
}

bool HaveSameContent(BinaryFile& left, BinaryFile& right) {
  if (left.Size() != right.Size()) return false;
  std::vector<char> first(kPiece);
  std::vector<char> second(kPiece);
  for (std::uint64_t at = 0;; at += kPiece) {
    const std::size_t got = left.ReadAt(at, first);
    if (right.ReadAt(at, second) != got) return false;
    if (!std::equal(first.begin(), first.begin() + static_cast<std::ptrdiff_t>(got),
                    second.begin())) {
      return false;
    }
    if (got < kPiece) return true;
  }
}

}  // namespace

void StreamPlacer::PlaceAll(std::span<const PlaceJob> jobs, PlaceMode, PlaceListener& listener) {
  for (std::size_t job = 0; job < jobs.size(); ++job) {
    listener.OnPlaced(job, Place(jobs[job], listener));
  }
}

PlaceOutcome StreamPlacer::Place(const PlaceJob& job, PlaceListener& listener) {
  std::unique_ptr<BinaryFile> source;
  try {
    if (!from_.FileExists(job.source)) return Failed(PlaceFailure::SourceMissing);
    source = from_.OpenForReading(job.source);
  } catch (const RunTimeError& failure) {
    return Failed(PlaceFailure::SourceUnreadable, failure.Description());
  }
  try {
    if (to_.FolderExists(job.target)) return Failed(PlaceFailure::FolderThere);
    if (to_.FileExists(job.target)) return Compare(job);
    Copy(*source, job.target, listener);
    return {PlaceResult::Copied, PlaceFailure::None, {}};
  } catch (const RunTimeError& failure) {
    return Failed(PlaceFailure::NotCopied, failure.Description());
  }
}

PlaceOutcome StreamPlacer::Compare(const PlaceJob& job) {
  switch (Compare(job.source, job.target)) {
    case Comparison::Same:
      return {PlaceResult::AlreadyThere, PlaceFailure::None, {}};
    case Comparison::Other:
      return Failed(PlaceFailure::OtherFileThere);
    case Comparison::Unknown:
      break;
  }
  return Failed(PlaceFailure::NotComparable);
}

void StreamPlacer::Copy(BinaryFile& source, StringView target, PlaceListener& listener) {
  CreateFolders(ParentFolder(target));
  try {
    const std::unique_ptr<AppendFile> file = to_.OpenForAppending(target, true);
    std::vector<char> piece(kPiece);
    for (std::uint64_t at = 0;; at += kPiece) {
      const std::size_t got = source.ReadAt(at, piece);
      file->Append({piece.data(), got});
      listener.OnBytes(got);
      if (got < kPiece) return;
    }
  } catch (...) {
    if (to_.FileExists(target)) to_.RemoveFile(target, true);
    throw;
  }
}

void StreamPlacer::CreateFolders(StringView path) {
  if (path.empty() || to_.FolderExists(path)) return;
  const StringView parent = ParentFolder(path);
  if (parent != path) CreateFolders(parent);
  to_.CreateFolder(path);
}

Comparison StreamPlacer::Compare(StringView source, StringView target) {
  std::unique_ptr<BinaryFile> ours;
  try {
    ours = from_.OpenForReading(source);
  } catch (const RunTimeError&) {
    return Comparison::Other;
  }
  try {
    const bool same = HaveSameContent(*ours, *to_.OpenForReading(target));
    return same ? Comparison::Same : Comparison::Other;
  } catch (const RunTimeError&) {
    return Comparison::Unknown;
  }
}

std::string StreamPlacer::IdentityOf(StringView source) {
  return ToUtf8(Fold(from_.AbsolutePathName(source)));
}

}  // namespace norvo
