#include "cli/CollectReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/NamedMachine.h"
#include "cli/PathDocument.h"
#include "cli/PlaylistWords.h"
#include "text/Encoding.h"
#include "text/Number.h"

namespace norvo::cli {
namespace {

/// How the report calls what became of a playlist, in its own order.
struct OutcomeRow {
  const char* name;   // in the document
  const char* title;  // in the text
};
constexpr OutcomeRow kSkipped[] = {
    {"empty", "  without entries:   "},       {"replaced", "  replaced:          "},
    {"notWritten", "  not written:       "},  {"unknownType", "  of no known type:  "},
    {"unreadable", "  not readable:      "},  {"restoredCopy", "  restored copies:   "},
    {"notProcessed", "  not processed:     "}};

std::string OutcomeName(const CollectedPlaylist& playlist) {
  if (!playlist.outcome) return "notProcessed";
  switch (*playlist.outcome) {
    case PlaylistOutcome::Written:
      return playlist.replacedBy ? "replaced" : "written";
    case PlaylistOutcome::Unnamed:
    case PlaylistOutcome::NotWritten:
      return "notWritten";
    case PlaylistOutcome::Empty:
      return "empty";
    case PlaylistOutcome::UnknownType:
      return "unknownType";
    case PlaylistOutcome::Restored:  // by another run, and skipped by this one
      return "restoredCopy";
    case PlaylistOutcome::Unreadable:
      break;
  }
  return "unreadable";
}

PlaylistOutcome OutcomeOf(SkippedPlaylist::Reason reason) {
  switch (reason) {
    case SkippedPlaylist::Reason::UnknownType:
      return PlaylistOutcome::UnknownType;
    case SkippedPlaylist::Reason::RestoredCopy:
      return PlaylistOutcome::Restored;
    case SkippedPlaylist::Reason::Unreadable:
      break;
  }
  return PlaylistOutcome::Unreadable;
}

/// Those that the queue has begun, and behind them those that the scan has not listed.
std::vector<CollectedPlaylist> AllOf(const CollectResult& result) {
  std::vector<CollectedPlaylist> all = result.playlists;
  for (const SkippedPlaylist& skipped : result.scan.skipped) {
    CollectedPlaylist& row = all.emplace_back();
    row.path = skipped.path;
    row.outcome = OutcomeOf(skipped.reason);
  }
  return all;
}

/// Listed playlists that the queue never began.
std::size_t UnbegunCount(const CollectResult& result) {
  const std::size_t listed = std::max(result.scan.playlists.size(), result.playlists.size());
  return listed - result.playlists.size();
}

std::size_t FoundCount(const CollectResult& result) {
  return result.playlists.size() + UnbegunCount(result) + result.scan.skipped.size();
}

/// Playlists of one outcome; those that the queue never began were not processed.
std::size_t Count(const CollectResult& result, const std::vector<CollectedPlaylist>& all,
                  std::string_view outcome) {
  const auto count = static_cast<std::size_t>(std::count_if(
      all.begin(), all.end(),
      [outcome](const CollectedPlaylist& row) { return OutcomeName(row) == outcome; }));
  return count + (outcome == "notProcessed" ? UnbegunCount(result) : 0);
}

std::size_t KeptCount(const CollectResult& result) {
  std::size_t kept = 0;
  for (const CollectedPlaylist& playlist : result.playlists) kept += playlist.kept;
  return kept;
}

DropCounts Dropped(const CollectResult& result) {
  DropCounts counts;
  for (const CollectedPlaylist& playlist : result.playlists) counts.Add(playlist.drops);
  return counts;
}

Json PlaylistDocument(const CollectedPlaylist& playlist, const CollectResult& result) {
  Json document{{"path", ToUtf8(playlist.path)},
                {"type", playlist.type},
                {"typeName", TypeName(playlist.type)},
                {"outcome", OutcomeName(playlist)},
                {"kept", playlist.kept}};
  document["dropped"] = Json::array();
  for (const DroppedItem& drop : playlist.drops) document["dropped"].push_back(DropDocument(drop));
  if (!playlist.genericFile.empty()) document["neutralFile"] = ToUtf8(playlist.genericFile);
  if (playlist.replacedBy) {
    document["replacedBy"] = ToUtf8(result.playlists[*playlist.replacedBy].path);
  }
  return document;
}

std::string Entries(const CollectedPlaylist& playlist) {
  return "has " + std::to_string(playlist.kept) + (playlist.kept == 1 ? " entry" : " entries");
}

}  // namespace

std::string FailureText(const CollectedPlaylist& playlist) {
  if (!playlist.outcome) return {};
  switch (*playlist.outcome) {
    case PlaylistOutcome::Written:
    case PlaylistOutcome::Empty:
      return {};
    case PlaylistOutcome::Unnamed:
      return Entries(playlist) +
             " but no name for its neutral file: rename it so that its name holds \".m3u\"";
    case PlaylistOutcome::NotWritten:
      return Entries(playlist) +
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

void SayCollected(const CollectResult& result, Platform& machine, Console& console) {
  const std::vector<CollectedPlaylist> all = AllOf(result);
  console.Say("Playlists found:     " + std::to_string(FoundCount(result)));
  console.Say("  written:           " + std::to_string(Count(result, all, "written")));
  for (const OutcomeRow& row : kSkipped) {
    const std::size_t count = Count(result, all, row.name);
    if (count == 0) continue;
    console.Say(row.title + std::to_string(count));
    for (const CollectedPlaylist& playlist : all) {
      if (OutcomeName(playlist) == row.name) console.Say("    " + ToUtf8(playlist.path));
    }
  }
  console.Say("Entries kept:        " + std::to_string(KeptCount(result)));
  console.Say("Entries dropped:     " + Dropped(result).Text());
  console.Say("Media:               " + ToUtf8(FormatNumber(result.mediaBytes)) +
              " bytes in the files that entries name, repeats included");
  console.Say("Neutral files:       " + BothPaths(machine, result.dataArea));
}

Json CollectedDocument(const CollectResult& result, Platform& machine) {
  const std::vector<CollectedPlaylist> all = AllOf(result);
  Json playlists = Json::array();
  for (const CollectedPlaylist& playlist : all) {
    playlists.push_back(PlaylistDocument(playlist, result));
  }
  Json document;
  document["playlists"] = std::move(playlists);
  Json& summary = document["summary"];
  summary["found"] = FoundCount(result);
  summary["written"] = Count(result, all, "written");
  for (const OutcomeRow& row : kSkipped) summary[row.name] = Count(result, all, row.name);
  summary["entriesKept"] = KeptCount(result);
  summary["entriesDropped"] = Dropped(result).Document();
  summary["mediaBytes"] = JsonNumber(result.mediaBytes);
  document["neutralFiles"] = PathDocument(machine, result.dataArea);
  return document;
}

}  // namespace norvo::cli
