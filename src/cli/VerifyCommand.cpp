#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/Commands.h"
#include "cli/Machine.h"
#include "cli/Report.h"
#include "library/Library.h"
#include "move/NativeCheck.h"
#include "overlay/OverlayPlatform.h"
#include "services/DataCop.h"
#include "services/FolderScanner.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

struct Checked {
  std::string path;
  CheckedPlaylist playlist;

  std::size_t Count(CheckedReference::Kind kind) const {
    return static_cast<std::size_t>(
        std::count_if(playlist.references.begin(), playlist.references.end(),
                      [kind](const CheckedReference& row) { return row.kind == kind; }));
  }
};

/// All playlists in a folder and below.
std::vector<String> PlaylistsBelow(Component& library, const String& root) {
  constexpr StringView kEndings[] = {u".asx", u".m3u", u".pls"};
  std::vector<String> found;
  std::vector<String> waiting{root};
  while (!waiting.empty()) {
    const String folder = std::move(waiting.back());
    waiting.pop_back();
    const std::vector<FolderItem> items = ListSorted(library.Files(), folder, kEndings);
    for (const FolderItem& item : items) {
      if (!item.isFolder) found.push_back(folder + item.name);
    }
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
      if (item->isFolder) waiting.push_back(folder + item->name + u"\\");
    }
  }
  return found;
}

std::vector<String> Playlists(const Machine& machine, Component& library,
                              const VerifyArguments& arguments) {
  std::vector<String> paths;
  for (const std::string& path : arguments.paths) {
    paths.push_back(machine.Access().MachinePathOf(path));
  }
  if (!paths.empty()) return paths;
  const String root = DataCop::GetSubNamePath(library, DataCop::kPlayListSlot);
  if (root.empty() || !library.Files().FolderExists(root)) {
    throw HostError("The machine has no folder of restored playlists" +
                    (root.empty() ? std::string() : ", " + ToUtf8(root)) +
                    ". Name the playlists to verify, or run norvo-playlists restore first.");
  }
  return PlaylistsBelow(library, root);
}

Json Document(const std::vector<Checked>& playlists) {
  Json rows = Json::array();
  for (const Checked& checked : playlists) {
    Json missing = Json::array();
    for (const CheckedReference& row : checked.playlist.references) {
      if (row.kind == CheckedReference::Kind::Missing) missing.push_back(ToUtf8(row.reference));
    }
    rows.push_back({{"path", checked.path},
                    {"whole", checked.playlist.whole},
                    {"found", checked.Count(CheckedReference::Kind::Found)},
                    {"addresses", checked.Count(CheckedReference::Kind::Address)},
                    {"missing", std::move(missing)}});
  }
  return {{"playlists", std::move(rows)}};
}

void Tell(const Checked& checked, Console& console) {
  const std::size_t missing = checked.Count(CheckedReference::Kind::Missing);
  console.Print(checked.path + ": " + std::to_string(checked.Count(CheckedReference::Kind::Found)) +
                " found, " + std::to_string(missing) + " missing, " +
                std::to_string(checked.Count(CheckedReference::Kind::Address)) + " addresses");
  if (!checked.playlist.whole) console.LeftOut(checked.path + ": cannot be read to its end");
  for (const CheckedReference& row : checked.playlist.references) {
    if (row.kind != CheckedReference::Kind::Missing) continue;
    console.LeftOut(checked.path + ": missing: " + ToUtf8(row.reference));
  }
}

}  // namespace

Json RunVerify(const CommonArguments& common, const VerifyArguments& arguments, Console& console) {
  Machine machine(OpenMachine(common.machine), console);
  if (common.log) machine.StartLog();
  // Reading a playlist notes its songs in the machine's media list; verifying changes nothing.
  const auto overlay = std::make_shared<OverlayPlatform>(machine.Platform());
  const std::unique_ptr<Component> library = OpenLibrary(overlay);
  const std::vector<String> paths = Playlists(machine, *library, arguments);
  std::vector<Checked> playlists;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    console.Bar().Advance("verifying", i + 1, paths.size(), paths[i]);
    playlists.push_back({ToUtf8(paths[i]), CheckNative(*library, paths[i])});
    Tell(playlists.back(), console);
  }
  if (!console.IsJson()) return {};
  Json document = Document(playlists);
  AddLog(document, machine);
  return document;
}

}  // namespace norvo
