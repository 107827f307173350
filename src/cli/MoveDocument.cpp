#include "cli/MoveDocument.h"

#include <nlohmann/json.hpp>

#include "cli/MoveCodes.h"
#include "cli/MoveReport.h"
#include "cli/MoveTotals.h"
#include "cli/MoveWords.h"
#include "cli/PathDocument.h"
#include "cli/PlaylistWords.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

template <class Rows, class MakeDocument>
Json ArrayOf(const Rows& rows, MakeDocument&& make) {
  Json array = Json::array();
  for (const auto& row : rows) array.push_back(make(row));
  return array;
}

Json Texts(const std::vector<String>& texts) {
  return ArrayOf(texts, [](const String& text) { return ToUtf8(text); });
}

/// The words and the code stand beside each other; neither for what needs no reason.
void AddReason(Json& document, const std::string& reason, const char* code) {
  if (*code == '\0') return;
  document["reason"] = reason;
  document["reasonCode"] = code;
}

void AddPath(Json& document, const char* key, StringView path) {
  if (!path.empty()) document[key] = ToUtf8(path);
}

Json ItemDocument(const MovedItem& item, const MoveResult& move) {
  Json document{{"outcome", item.IsCarried() ? CodeOf(item.fate) : "leftOut"}};
  if (item.entry > 0) document["entry"] = item.entry;
  if (item.IsSong()) {
    document["song"] = item.song;
    document["source"] = ToUtf8(move.songs[item.song].source);
    document["foundElsewhere"] = item.foundElsewhere;
  }
  // Of a song it matters only where it does not lead to it.
  if (!item.IsSong() || item.foundElsewhere) AddPath(document, "reference", item.reference);
  if (!item.IsCarried()) AddReason(document, ReasonText(item), CodeOf(item.fate));
  if (!item.candidates.empty()) {
    document["candidates"] = Texts(item.candidates);
    document["candidateCount"] = item.candidateCount;
  }
  return document;
}

Json MendingDocument(const Mending& mending) {
  Json document{{"reason", TextOf(mending)}, {"reasonCode", CodeOf(mending.kind)}};
  if (mending.count > 0) document["count"] = mending.count;
  return document;
}

Json PlaylistDocument(const MovedPlaylist& playlist, const MoveResult& move) {
  Json document{{"path", ToUtf8(playlist.source)}};
  AddPath(document, "name", playlist.name);
  document["kind"] = playlist.kind;
  document["typeName"] = TypeName(playlist.type);
  document["outcome"] = CodeOf(playlist.state);
  AddReason(document, ReasonText(playlist), ReasonCode(playlist));
  document["songs"] = CountSongs(playlist);
  document["addresses"] = CountAddresses(playlist);
  document["missing"] = CountMissing(move, playlist);
  document["items"] =
      ArrayOf(playlist.items, [&](const MovedItem& item) { return ItemDocument(item, move); });
  document["healed"] = ArrayOf(playlist.mendings, MendingDocument);
  AddPath(document, "neutralFile", playlist.carried);
  document["natives"] = Texts(playlist.natives);
  AddPath(document, "companion", playlist.companion);
  return document;
}

Json SongDocument(const MovedSong& song) {
  Json document{{"source", ToUtf8(song.source)},
                {"place", ToUtf8(song.place)},
                {"bytes", JsonNumber(song.size)},
                {"listed", song.listed},
                {"outcome", CodeOf(song.state)}};
  AddPath(document, "plainPlace", song.PlainPlace());
  AddReason(document, ReasonText(song), ReasonCode(song));
  return document;
}

Json UnlistedDocument(const UnlistedSong& song) {
  Json document{{"source", ToUtf8(song.source)}, {"bytes", JsonNumber(song.size)}};
  if (song.rule != MovedPlaylist::SkipRule::None) document["rule"] = CodeOf(song.rule);
  return document;
}

Json AdjustmentDocument(const Adjustment& row, const MoveResult& move) {
  return {{"neutralFile", ToUtf8(move.playlists[row.playlist].carried)},
          {"entry", row.entry},
          {"key", ToUtf8(row.key)},
          {"before", ToUtf8(row.before)},
          {"after", ToUtf8(row.after)},
          {"reason", TextOf(row.reason)},
          {"reasonCode", CodeOf(row.reason)}};
}

Json WarningDocument(const WorkWarning& warning) {
  Json document{{"machine", warning.side == MachineSide::Old ? "old" : "new"},
                {"reason", MoveWarningText(warning)},
                {"reasonCode", CodeOf(warning.kind)}};
  AddPath(document, "subject", warning.subject);
  AddPath(document, "detail", warning.detail);
  AddPath(document, "wanted", warning.wanted);
  if (warning.expected > 0) {
    document["found"] = warning.found;
    document["expected"] = warning.expected;
  }
  return document;
}

Json AmountDocument(const Amount& amount) {
  return {{"songs", amount.count}, {"bytes", JsonNumber(amount.bytes)}};
}

Json SummaryDocument(const MoveResult& move) {
  const MoveTotals totals = TotalsOf(move);
  return {{"playlists", move.playlists.size()},
          {"restored", CountOf(move, MovedPlaylist::State::Restored)},
          {"alreadyRestored", CountOf(move, MovedPlaylist::State::AlreadyRestored)},
          {"noSongs", CountOf(move, MovedPlaylist::State::NoSongs)},
          {"skipped", totals.skipped},
          {"otherForms", totals.forms},
          {"leftOut", CountOf(move, MovedPlaylist::State::LeftOut)},
          {"inPart", totals.partly},
          {"healed", CountMended(move)},
          {"songs", move.songs.size()},
          {"brought", AmountDocument(totals.brought)},
          {"alreadyThere", AmountDocument(totals.there)},
          {"planned", AmountDocument(totals.planned)},
          {"songsLeftOut", AmountDocument(totals.songsLeftOut)},
          {"unlisted", AmountDocument(totals.unlisted)},
          {"discarded", AmountDocument(totals.discarded)},
          {"foundElsewhere", totals.elsewhere},
          {"referencesChecked", move.verification.checked},
          {"referencesFound", move.verification.found}};
}

}  // namespace

Json MoveDocument(const MoveResult& move, const MoveTerms& terms) {
  Json document{{"from", terms.from}, {"to", terms.to}, {"dryRun", terms.dryRun}};
  document["playlists"] = ArrayOf(move.playlists, [&](const MovedPlaylist& playlist) {
    return PlaylistDocument(playlist, move);
  });
  document["media"] = ArrayOf(move.songs, SongDocument);
  document["unlisted"] = ArrayOf(move.unlisted, UnlistedDocument);
  document["adjustments"] = ArrayOf(
      move.adjustments, [&](const Adjustment& row) { return AdjustmentDocument(row, move); });
  document["settings"] = SettingsDocument(move.settings);
  document["warnings"] = ArrayOf(move.warnings, WarningDocument);
  document["count"] = {{"playlists", move.count.playlists},
                       {"wholePlaylists", move.count.wholePlaylists},
                       {"songs", move.count.songs},
                       {"rightSongs", move.count.rightSongs}};
  document["summary"] = SummaryDocument(move);
  Json logs = Json::object();
  for (const MoveLog& log : move.logs) {
    AddLog(logs, log.file, log.side == MachineSide::Old ? "from" : "to");
  }
  if (!logs.empty()) document["logs"] = std::move(logs);
  return document;
}

}  // namespace norvo::cli
