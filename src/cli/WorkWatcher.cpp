#include "cli/WorkWatcher.h"

#include "text/Encoding.h"

namespace norvo {
namespace {

std::string Entries(const PlaylistResult& result) {
  return "has " + std::to_string(result.kept) + (result.kept == 1 ? " entry" : " entries");
}

/// Why a playlist has no neutral file; empty for an outcome that is no failure.
std::string Failure(const PlaylistResult& result) {
  switch (*result.outcome) {
    case PlaylistOutcome::Written:
    case PlaylistOutcome::Empty:
      return {};
    case PlaylistOutcome::Unnamed:
      return Entries(result) +
             " but no name for its neutral file: rename it so that its name holds \".m3u\"";
    case PlaylistOutcome::NotWritten:
      return Entries(result) +
             " but its neutral file cannot be written: see that its name can stand in a path, that "
             "the folder KVs of the group root is writable and the disk not full";
    case PlaylistOutcome::UnknownType:
      return "its first lines tell no playlist type: look into the file";
    case PlaylistOutcome::Restored:
      break;
    case PlaylistOutcome::Unreadable:
      return "cannot be read to its end: see that it is whole and readable";
  }
  return {};
}

}  // namespace

void WorkWatcher::OnWarning(const Warning& warning) {
  lastWarning_ = ToUtf8(warning.text);
  console_.LeftOut("Warning: " + lastWarning_);
}

void WorkWatcher::OnItem(StringView reference, ItemOutcome outcome) {
  if (const auto reason = DropReasonOf(outcome)) KeepDrop({*reason, String(reference)});
}

void WorkWatcher::KeepDrop(const Drop& drop) {
  PlaylistResult& result = inPlaylist_ ? results_.back() : own_;
  ++result.dropped[static_cast<std::size_t>(drop.reason)];
  // Kept only where it is needed again: a disk can hold a great many.
  if (console_.IsJson()) result.drops.push_back(drop);
  const std::string where = result.path.empty() ? std::string() : ToUtf8(result.path) + ": ";
  const std::string what = drop.reference.empty() ? "an entry" : '"' + ToUtf8(drop.reference) + '"';
  console_.LeftOut(where + "left out " + what + ": " + DescriptionOf(drop.reason));
}

void WorkWatcher::OnFolder(StringView path) {
  ++folders_;
  console_.Bar().Count("folders", folders_, path);
}

void WorkWatcher::OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) {
  inPlaylist_ = true;
  results_.emplace_back().path = path;
  console_.Bar().Advance("playlist", position, count, path);
}

void WorkWatcher::OnPlaylistEnd(StringView path, std::int32_t type, PlaylistOutcome outcome,
                                std::size_t kept, StringView genericFile) {
  inPlaylist_ = false;
  PlaylistResult& result = results_.back();
  result.type = type;
  result.outcome = outcome;
  result.kept = kept;
  result.genericFile = genericFile;
  const std::string failure = Failure(result);
  if (!failure.empty()) console_.LeftOut(ToUtf8(path) + ": " + failure);
  if (!genericFile.empty()) NoteGenericFile(results_.size() - 1);
}

void WorkWatcher::NoteGenericFile(std::size_t index) {
  const PlaylistResult& later = results_[index];
  const auto [place, isNew] = byGenericFile_.try_emplace(later.genericFile, index);
  if (isNew) return;
  PlaylistResult& earlier = results_[place->second];
  earlier.replacedBy = index;
  place->second = index;
  console_.LeftOut(ToUtf8(earlier.path) + ": its neutral file is replaced by that of " +
                   ToUtf8(later.path) + ", which has the same name: rename one of the two");
}

}  // namespace norvo
