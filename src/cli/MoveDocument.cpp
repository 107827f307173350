#include "cli/MoveDocument.h"

#include <nlohmann/json.hpp>

#include "cli/MoveWords.h"
#include "cli/PathDocument.h"
#include "cli/PlaylistWords.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

Json PlaylistDocument(const MovedPlaylist& playlist) {
  Json mended = Json::array();
  Json leftOut = Json::array();
  Json natives = Json::array();
  for (const Mending& mending : playlist.mendings) mended.push_back(TextOf(mending));
  for (const MovedItem& item : playlist.items) {
    if (!item.IsCarried()) leftOut.push_back(TextOf(item));
  }
  for (const String& native : playlist.natives) natives.push_back(ToUtf8(native));
  Json document{{"path", ToUtf8(playlist.source)},       {"typeName", TypeName(playlist.type)},
                {"outcome", NameOf(playlist.state)},     {"songs", CountSongs(playlist)},
                {"addresses", CountAddresses(playlist)}, {"healed", std::move(mended)},
                {"leftOut", std::move(leftOut)}};
  if (!playlist.carried.empty()) document["neutralFile"] = ToUtf8(playlist.carried);
  document["natives"] = std::move(natives);
  const std::string reason = ReasonText(playlist);
  if (!reason.empty()) document["reason"] = reason;
  return document;
}

Json SongDocument(const MovedSong& song) {
  Json document{{"source", ToUtf8(song.source)},
                {"place", ToUtf8(song.place)},
                {"bytes", JsonNumber(song.size)},
                {"outcome", NameOf(song.state)}};
  const std::string reason = ReasonText(song);
  if (!reason.empty()) document["reason"] = reason;
  return document;
}

Json AdjustmentDocument(const Adjustment& row, const MoveResult& move) {
  return {{"neutralFile", ToUtf8(move.playlists[row.playlist].carried)},
          {"entry", row.entry},
          {"key", ToUtf8(row.key)},
          {"before", ToUtf8(row.before)},
          {"after", ToUtf8(row.after)},
          {"reason", TextOf(row.reason)}};
}

}  // namespace

Json MoveDocument(const MoveResult& move, const MoveTerms& terms) {
  Json playlists = Json::array();
  Json media = Json::array();
  Json adjustments = Json::array();
  for (const MovedPlaylist& playlist : move.playlists) {
    playlists.push_back(PlaylistDocument(playlist));
  }
  for (const MovedSong& song : move.songs) media.push_back(SongDocument(song));
  for (const Adjustment& row : move.adjustments) {
    adjustments.push_back(AdjustmentDocument(row, move));
  }
  Json document{{"from", terms.from}, {"to", terms.to}, {"dryRun", terms.dryRun}};
  document["playlists"] = std::move(playlists);
  document["media"] = std::move(media);
  document["adjustments"] = std::move(adjustments);
  document["settings"] = SettingsDocument(move.settings);
  document["summary"] = {{"playlists", move.playlists.size()},
                         {"restored", CountOf(move, MovedPlaylist::State::Restored)},
                         {"alreadyRestored", CountOf(move, MovedPlaylist::State::AlreadyRestored)},
                         {"noSongs", CountOf(move, MovedPlaylist::State::NoSongs)},
                         {"leftOut", CountOf(move, MovedPlaylist::State::LeftOut)},
                         {"healed", CountMended(move)},
                         {"songs", move.songs.size()},
                         {"referencesChecked", move.verification.checked},
                         {"referencesFound", move.verification.found}};
  Json logs = Json::object();
  for (const MoveLog& log : move.logs) {
    AddLog(logs, log.file, log.side == MachineSide::Old ? "from" : "to");
  }
  if (!logs.empty()) document["logs"] = std::move(logs);
  return document;
}

}  // namespace norvo::cli
