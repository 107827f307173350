#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/Commands.h"
#include "cli/Report.h"
#include "model/PlaylistTypes.h"
#include "move/Scanning.h"
#include "services/ObserverScope.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

void SayByType(const std::vector<ListedPlaylist>& playlists, Console& console) {
  for (const PlaylistType& type : PlaylistTypes()) {
    const auto isOfType = [&](const ListedPlaylist& listed) { return listed.type == type.code; };
    const auto count = std::count_if(playlists.begin(), playlists.end(), isOfType);
    if (count == 0) continue;
    console.Say(TypeTitle(type.code) + " (" + ToUtf8(type.name) + "): " + std::to_string(count));
    for (const ListedPlaylist& listed : playlists) {
      if (isOfType(listed)) console.Say("  " + ToUtf8(listed.path));
    }
  }
}

Json ListDocument(const std::vector<ListedPlaylist>& playlists) {
  Json list = Json::array();
  Json byType = Json::object();
  for (const PlaylistType& type : PlaylistTypes()) byType[ToUtf8(type.name)] = 0;
  for (const ListedPlaylist& listed : playlists) {
    const std::string name = TypeName(listed.type);
    byType[name] = byType[name].get<int>() + 1;
    list.push_back({{"path", ToUtf8(listed.path)}, {"type", listed.type}, {"typeName", name}});
  }
  return {{"playlists", list}, {"byType", byType}};
}

}  // namespace

Json RunScan(const CommonArguments& common, Console& console) {
  Machine machine(OpenMachine(common.machine), console);
  Component& library = machine.Library();
  const Settings settings = RequireSettings(library);
  if (common.log) machine.StartLog();
  WorkWatcher watcher(console);
  const ObserverScope scope(library, watcher);
  const ObjectRef controller = library.Create(u"helperMan");
  const std::vector<ListedPlaylist> playlists = Scan(machine, *controller, settings, watcher);

  SayByType(playlists, console);
  console.Say("Playlists found: " + std::to_string(playlists.size()));
  if (!playlists.empty()) console.Say("List: " + machine.Both(ListFilePath(settings)));
  if (!console.IsJson()) return {};
  Json document = ListDocument(playlists);
  document["folders"] = watcher.Folders();
  document["listFile"] = PlaceDocument(machine, ListFilePath(settings));
  AddLog(document, machine);
  return document;
}

}  // namespace norvo
