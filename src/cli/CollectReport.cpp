#include "cli/CollectReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/Report.h"
#include "text/Encoding.h"
#include "text/Number.h"

namespace norvo {
namespace {

/// The count in which a playlist is.
std::size_t& Bucket(CollectFigures& figures, const PlaylistResult& result) {
  if (!result.outcome) return figures.notProcessed;
  switch (*result.outcome) {
    case PlaylistOutcome::Written:
      return result.replacedBy ? figures.replaced : figures.written;
    case PlaylistOutcome::Unnamed:
    case PlaylistOutcome::NotWritten:
      return figures.notWritten;
    case PlaylistOutcome::Empty:
      return figures.empty;
    case PlaylistOutcome::UnknownType:
      return figures.unknownType;
    case PlaylistOutcome::Unreadable:
    case PlaylistOutcome::Restored:  // never of a collecting run
      break;
  }
  return figures.unreadable;
}

const char* OutcomeName(const PlaylistResult& result) {
  if (!result.outcome) return "notProcessed";
  switch (*result.outcome) {
    case PlaylistOutcome::Written:
      return result.replacedBy ? "replaced" : "written";
    case PlaylistOutcome::Unnamed:
    case PlaylistOutcome::NotWritten:
      return "notWritten";
    case PlaylistOutcome::Empty:
      return "empty";
    case PlaylistOutcome::UnknownType:
      return "unknownType";
    case PlaylistOutcome::Unreadable:
    case PlaylistOutcome::Restored:
      break;
  }
  return "unreadable";
}

Json ResultDocument(const PlaylistResult& result, const std::vector<PlaylistResult>& all) {
  Json document{{"path", ToUtf8(result.path)},
                {"type", result.type},
                {"typeName", TypeName(result.type)},
                {"outcome", OutcomeName(result)},
                {"kept", result.kept}};
  document["dropped"] = Json::array();
  for (const Drop& drop : result.drops) document["dropped"].push_back(DropDocument(drop));
  if (!result.genericFile.empty()) document["neutralFile"] = ToUtf8(result.genericFile);
  if (result.replacedBy) document["replacedBy"] = ToUtf8(all[*result.replacedBy].path);
  return document;
}

/// The playlists of one outcome; those that the queue never began are in the count only.
void SaySkipped(const std::vector<PlaylistResult>& results, std::string_view outcome,
                std::size_t count, const char* title, Console& console) {
  if (count == 0) return;
  console.Say(title + std::to_string(count));
  for (const PlaylistResult& result : results) {
    if (OutcomeName(result) == outcome) console.Say("    " + ToUtf8(result.path));
  }
}

}  // namespace

CollectFigures Count(const std::vector<PlaylistResult>& results, std::size_t found) {
  CollectFigures figures;
  figures.found = std::max(found, results.size());
  figures.notProcessed = figures.found - results.size();
  for (const PlaylistResult& result : results) {
    ++Bucket(figures, result);
    figures.kept += result.kept;
    for (std::size_t i = 0; i < result.dropped.size(); ++i) figures.dropped[i] += result.dropped[i];
  }
  return figures;
}

void SayCollected(const CollectFigures& figures, const std::vector<PlaylistResult>& results,
                  const Machine& machine, const Settings& settings, Console& console) {
  console.Say("Playlists found:     " + std::to_string(figures.found));
  console.Say("  written:           " + std::to_string(figures.written));
  SaySkipped(results, "empty", figures.empty, "  without entries:   ", console);
  SaySkipped(results, "replaced", figures.replaced, "  replaced:          ", console);
  SaySkipped(results, "notWritten", figures.notWritten, "  not written:       ", console);
  SaySkipped(results, "unknownType", figures.unknownType, "  of no known type:  ", console);
  SaySkipped(results, "unreadable", figures.unreadable, "  not readable:      ", console);
  SaySkipped(results, "notProcessed", figures.notProcessed, "  not processed:     ", console);
  console.Say("Entries kept:        " + std::to_string(figures.kept));
  console.Say("Entries dropped:     " + DropCountsText(figures.dropped));
  console.Say("Media:               " + ToUtf8(FormatNumber(figures.mediaBytes)) +
              " bytes in the files that entries name, repeats included");
  console.Say("Neutral files:       " + machine.Both(DataAreaOf(settings)));
}

Json CollectedDocument(const CollectFigures& figures, const std::vector<PlaylistResult>& results,
                       const Machine& machine, const Settings& settings) {
  Json playlists = Json::array();
  for (const PlaylistResult& result : results) playlists.push_back(ResultDocument(result, results));
  Json document;
  document["playlists"] = std::move(playlists);
  document["summary"] = {{"found", figures.found},
                         {"written", figures.written},
                         {"empty", figures.empty},
                         {"replaced", figures.replaced},
                         {"notWritten", figures.notWritten},
                         {"unknownType", figures.unknownType},
                         {"unreadable", figures.unreadable},
                         {"notProcessed", figures.notProcessed},
                         {"entriesKept", figures.kept},
                         {"entriesDropped", DropCountsDocument(figures.dropped)},
                         {"mediaBytes", JsonNumber(figures.mediaBytes)}};
  document["neutralFiles"] = PlaceDocument(machine, DataAreaOf(settings));
  return document;
}

}  // namespace norvo
