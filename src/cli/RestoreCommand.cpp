#include <map>
#include <nlohmann/json.hpp>

#include "cli/Commands.h"
#include "cli/Report.h"
#include "controller/QueueMode.h"
#include "model/PlaylistTypes.h"
#include "move/LibraryCalls.h"
#include "move/Settings.h"
#include "services/ObserverScope.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

struct Native {
  String path;
  std::int32_t type = 0;
  bool whole = false;
};

class RestoreWatcher final : public Observer {
 public:
  explicit RestoreWatcher(Console& console) : console_(console) {}

  void OnWarning(const Warning& warning) override {
    console_.LeftOut("Warning: " + ToUtf8(warning.text));
  }
  void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override {
    console_.Bar().Advance("playlist", position, count, path);
  }
  void OnPlaylistEnd(StringView path, std::int32_t type, PlaylistOutcome, std::size_t entries,
                     StringView) override {
    neutralFiles.emplace_back(path);
    if (FindPlaylistType(type) == nullptr) {
      console_.LeftOut(ToUtf8(path) + ": it tells no known type of playlist");
    } else if (entries == 0) {
      console_.LeftOut(ToUtf8(path) + ": no entry of it could be read");
    }
  }
  void OnNativeFile(StringView path, std::int32_t type) override {
    natives.push_back({String(path), type, false});
  }
  void OnNativeFileEnd(StringView path, bool whole) override {
    natives.back().whole = whole;
    if (whole) return;
    console_.LeftOut(ToUtf8(path) +
                     ": not written to its end: see that the disk is writable and not full");
  }
  void OnPlayerSetting(StringView player, StringView place, StringView value) override {
    settings.push_back({String(player), String(place), String(value)});
  }

  std::vector<String> neutralFiles;
  std::vector<Native> natives;
  std::vector<PlayerSetting> settings;

 private:
  Console& console_;
};

void SayRestored(const RestoreWatcher& watcher, Console& console) {
  std::map<std::int32_t, std::size_t> byType;
  for (const Native& native : watcher.natives) byType[native.type] += native.whole ? 1U : 0U;
  console.Say("Neutral files restored:  " + std::to_string(watcher.neutralFiles.size()));
  for (const auto& [type, count] : byType) {
    const std::string title = "  " + TypeTitle(type) + ":";
    console.Say(title + std::string(title.size() < 32 ? 32 - title.size() : 1, ' ') +
                std::to_string(count));
  }
  for (const Native& native : watcher.natives) console.Say("    " + ToUtf8(native.path));
  console.Say("Player settings changed: " + std::to_string(watcher.settings.size()));
  for (const PlayerSetting& setting : watcher.settings) console.Say("  " + SettingText(setting));
}

Json RestoredDocument(const RestoreWatcher& watcher) {
  Json neutralFiles = Json::array();
  Json natives = Json::array();
  for (const String& path : watcher.neutralFiles) neutralFiles.push_back(ToUtf8(path));
  for (const Native& native : watcher.natives) {
    natives.push_back({{"path", ToUtf8(native.path)},
                       {"typeName", TypeName(native.type)},
                       {"whole", native.whole}});
  }
  return {{"neutralFiles", neutralFiles},
          {"natives", natives},
          {"settings", SettingsDocument(watcher.settings)}};
}

}  // namespace

Json RunRestore(const CommonArguments& common, Console& console) {
  Machine machine(OpenMachine(common.machine), console);
  Component& library = machine.Library();
  RequireSettings(library);
  if (common.log) machine.StartLog();
  RestoreWatcher watcher(console);
  const ObserverScope scope(library, watcher);
  RunQueue(*library.Create(u"helperMan"), queue_mode::kRestore);
  SayRestored(watcher, console);
  if (!console.IsJson()) return {};
  Json document = RestoredDocument(watcher);
  AddLog(document, machine);
  return document;
}

}  // namespace norvo
