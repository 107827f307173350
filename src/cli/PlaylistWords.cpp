#include "cli/PlaylistWords.h"

#include <nlohmann/json.hpp>

#include "model/PlaylistTypes.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

/// As documents have it.
const char* DropName(ItemOutcome outcome) {
  switch (outcome) {
    case ItemOutcome::Kept:
      break;
    case ItemOutcome::Missing:
      return "missing";
    case ItemOutcome::NotMedia:
      return "notMedia";
    case ItemOutcome::Empty:
      return "emptyReference";
    case ItemOutcome::NotRegistered:
      return "notRegistered";
  }
  return "";
}

}  // namespace

std::string TypeName(std::int32_t type) {
  const PlaylistType* const row = FindPlaylistType(type);
  return row == nullptr ? "unknown" : ToUtf8(row->name);
}

std::string TypeTitle(std::int32_t type) {
  const PlaylistType* const row = FindPlaylistType(type);
  return row == nullptr ? "unknown" : ToUtf8(row->Title());
}

const char* DropText(ItemOutcome outcome) {
  switch (outcome) {
    case ItemOutcome::Kept:
      break;
    case ItemOutcome::Missing:
      return "no such file";
    case ItemOutcome::NotMedia:
      return "not a media file";
    case ItemOutcome::Empty:
      return "empty reference";
    case ItemOutcome::NotRegistered:
      return "not taken by the media list";
  }
  return "";
}

std::string LeftOutText(const DroppedItem& drop) {
  const std::string what = drop.reference.empty() ? "an entry" : '"' + ToUtf8(drop.reference) + '"';
  return "left out " + what + ": " + DropText(drop.outcome);
}

Json DropDocument(const DroppedItem& drop) {
  return {{"reference", ToUtf8(drop.reference)},
          {"reason", DropText(drop.outcome)},
          {"reasonCode", DropName(drop.outcome)}};
}

void DropCounts::Add(const std::vector<DroppedItem>& drops) {
  for (const DroppedItem& drop : drops) {
    for (std::size_t i = 0; i < counts_.size(); ++i) counts_[i] += kReasons[i] == drop.outcome;
  }
}

std::string DropCounts::Text() const {
  std::size_t total = 0;
  std::string reasons;
  for (std::size_t i = 0; i < counts_.size(); ++i) {
    total += counts_[i];
    if (counts_[i] == 0) continue;
    reasons += reasons.empty() ? " (" : ", ";
    reasons += std::to_string(counts_[i]) + ' ' + DropText(kReasons[i]);
  }
  return std::to_string(total) + reasons + (reasons.empty() ? "" : ")");
}

Json DropCounts::Document() const {
  Json document = Json::object();
  for (std::size_t i = 0; i < counts_.size(); ++i) document[DropName(kReasons[i])] = counts_[i];
  return document;
}

std::string SettingText(const PlayerSetting& setting) {
  return ToUtf8(setting.player) + ": " + ToUtf8(setting.place) + " = " + ToUtf8(setting.value);
}

Json SettingsDocument(const std::vector<PlayerSetting>& settings) {
  Json rows = Json::array();
  for (const PlayerSetting& setting : settings) {
    rows.push_back({{"player", ToUtf8(setting.player)},
                    {"place", ToUtf8(setting.place)},
                    {"value", ToUtf8(setting.value)}});
  }
  return rows;
}

}  // namespace norvo::cli
