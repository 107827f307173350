#include "cli/MoveDocument.h"

#include <nlohmann/json.hpp>

#include "cli/Report.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

Json Texts(const std::vector<std::string>& texts) {
  Json document = Json::array();
  for (const std::string& text : texts) document.push_back(text);
  return document;
}

Json PlaylistDocument(const MovedPlaylist& playlist) {
  const std::size_t songs = CountSongs(playlist);
  Json natives = Json::array();
  for (const String& native : playlist.natives) natives.push_back(ToUtf8(native));
  Json document{{"path", ToUtf8(playlist.source)},
                {"typeName", TypeName(playlist.type)},
                {"outcome", NameOf(playlist.state)},
                {"songs", songs},
                {"addresses", playlist.items.size() - songs},
                {"healed", Texts(playlist.healed)},
                {"leftOut", Texts(playlist.missed)}};
  if (!playlist.carried.empty()) document["neutralFile"] = ToUtf8(playlist.carried);
  document["natives"] = std::move(natives);
  if (!playlist.reason.empty()) document["reason"] = playlist.reason;
  return document;
}

Json SongDocument(const Song& song) {
  Json document{{"source", ToUtf8(song.source)},
                {"place", ToUtf8(song.place)},
                {"bytes", JsonNumber(song.size)},
                {"outcome", NameOf(song.state)}};
  if (!song.reason.empty()) document["reason"] = song.reason;
  return document;
}

Json AdjustmentDocument(const Adjustment& row, const Move& move) {
  return {{"neutralFile", ToUtf8(move.playlists[row.playlist].carried)},
          {"entry", row.entry},
          {"key", ToUtf8(row.key)},
          {"before", ToUtf8(row.before)},
          {"after", ToUtf8(row.after)},
          {"reason", row.reason}};
}

}  // namespace

Json MoveDocument(const Move& move, const MoveTerms& terms) {
  Json playlists = Json::array();
  Json media = Json::array();
  Json adjustments = Json::array();
  for (const MovedPlaylist& playlist : move.playlists) {
    playlists.push_back(PlaylistDocument(playlist));
  }
  for (const Song& song : move.songs) media.push_back(SongDocument(song));
  for (const Adjustment& row : move.adjustments) {
    adjustments.push_back(AdjustmentDocument(row, move));
  }
  Json document{{"from", terms.from}, {"to", terms.to}, {"dryRun", terms.trial}};
  document["playlists"] = std::move(playlists);
  document["media"] = std::move(media);
  document["adjustments"] = std::move(adjustments);
  document["settings"] = SettingsDocument(move.settings);
  document["summary"] = {{"playlists", move.playlists.size()},
                         {"restored", CountOf(move, MovedPlaylist::State::Restored)},
                         {"alreadyRestored", CountOf(move, MovedPlaylist::State::AlreadyRestored)},
                         {"noSongs", CountOf(move, MovedPlaylist::State::NoSongs)},
                         {"leftOut", CountOf(move, MovedPlaylist::State::LeftOut)},
                         {"healed", CountHealed(move)},
                         {"songs", move.songs.size()},
                         {"referencesChecked", move.checked},
                         {"referencesFound", move.found}};
  return document;
}

}  // namespace norvo
