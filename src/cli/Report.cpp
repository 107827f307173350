#include "cli/Report.h"

#include <nlohmann/json.hpp>

#include "model/PlaylistTypes.h"
#include "text/Encoding.h"

namespace norvo {

std::string TypeName(std::int32_t type) {
  const PlaylistType* const row = FindPlaylistType(type);
  return row == nullptr ? "unknown" : ToUtf8(row->name);
}

std::string TypeTitle(std::int32_t type) {
  const PlaylistType* const row = FindPlaylistType(type);
  if (row == nullptr) return "unknown";
  const std::string name = ToUtf8(row->name);
  return name.substr(name.rfind('_') + 1) + " of " + ToUtf8(row->playerFolder);
}

Json PlaceDocument(const Machine& machine, StringView machinePath) {
  return {{"machine", ToUtf8(machinePath)}, {"system", machine.Access().SystemPathOf(machinePath)}};
}

void AddLog(Json& document, Machine& machine, const char* key) {
  if (machine.HasLog()) document[key] = PlaceDocument(machine, machine.LogPath());
}

Json DropDocument(const Drop& drop) {
  return {{"reference", ToUtf8(drop.reference)}, {"reason", NameOf(drop.reason)}};
}

Json DropCountsDocument(const DropCounts& counts) {
  Json document = Json::object();
  for (std::size_t i = 0; i < counts.size(); ++i) {
    document[NameOf(static_cast<DropReason>(i))] = counts[i];
  }
  return document;
}

std::string DropCountsText(const DropCounts& counts) {
  std::size_t total = 0;
  std::string reasons;
  for (std::size_t i = 0; i < counts.size(); ++i) {
    total += counts[i];
    if (counts[i] == 0) continue;
    reasons += reasons.empty() ? " (" : ", ";
    reasons += std::to_string(counts[i]) + ' ' + DescriptionOf(static_cast<DropReason>(i));
  }
  return std::to_string(total) + reasons + (reasons.empty() ? "" : ")");
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

void SaySetup(const std::vector<SetupStep>& steps, Console& console) {
  for (const SetupStep& step : steps) {
    console.Say((step.written ? "Written:        " : "Already there:  ") + step.what);
  }
}

Json SetupDocument(const std::vector<SetupStep>& steps) {
  Json written = Json::array();
  Json there = Json::array();
  for (const SetupStep& step : steps) (step.written ? written : there).push_back(step.what);
  return {{"written", written}, {"alreadyThere", there}};
}

}  // namespace norvo
