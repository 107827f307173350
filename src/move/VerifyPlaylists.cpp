#include "move/VerifyPlaylists.h"

#include <algorithm>

#include "library/Library.h"
#include "model/PlaylistTypes.h"
#include "move/LogBox.h"
#include "move/MoveError.h"
#include "move/NativeReading.h"
#include "move/OpenedLibrary.h"
#include "overlay/OverlayPlatform.h"
#include "services/DataCop.h"
#include "services/FolderWalk.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

class PlaylistFinder final : public FolderVisitor {
 public:
  void VisitFile(StringView folder, StringView name) override {
    found.push_back(String(folder).append(name));
  }
  /// What was restored can be listed.
  void CannotList(StringView, const RunTimeError& failure) override { throw failure; }

  std::vector<String> found;
};

std::vector<String> RestoredPlaylists(Component& library) {
  const String root = DataCop::GetSubNamePath(library, DataCop::kPlayListSlot);
  if (root.empty() || !library.Files().FolderExists(root)) {
    throw MoveError(MoveFault::NoPlaylistFolder, ToUtf8(root));
  }
  PlaylistFinder finder;
  WalkFolders(library.Files(), root, PlaylistExtensions(), finder);
  return std::move(finder.found);
}

}  // namespace

std::size_t VerifiedPlaylist::Count(VerifiedReference::Kind kind) const {
  return static_cast<std::size_t>(
      std::count_if(references.begin(), references.end(),
                    [kind](const VerifiedReference& row) { return row.kind == kind; }));
}

VerifyResult VerifyPlaylists(const std::shared_ptr<Platform>& machine,
                             const std::vector<std::string>& paths, const WorkOptions& options,
                             WorkObserver& observer) {
  VerifyResult result;
  WorkReport report(observer, result.warnings);
  OpenedLibrary opened(machine, MachineSide::Old, report);
  // Reading a playlist notes its songs in the machine's media list; verifying changes nothing.
  const auto overlay = std::make_shared<OverlayPlatform>(machine);
  const std::unique_ptr<Component> library = OpenLibrary(overlay);
  LogBox log(opened.Get());
  if (options.log) {
    result.log = opened.StartLog();
    overlay->SetMessageDialog(log);
    library->SetLogMode(log_mode::kMessageBox);
  }
  std::vector<String> playlists;
  for (const std::string& path : paths) playlists.push_back(FromUtf8Lossy(path));
  if (playlists.empty()) playlists = RestoredPlaylists(*library);
  SeenLists seen;
  NativeReader reader(*library, seen);
  result.cancelled = WasCancelled([&] {
    for (std::size_t i = 0; i < playlists.size(); ++i) {
      report.Progress({WorkPhase::Verifying, i + 1, playlists.size(), 0, 0, playlists[i]});
      result.playlists.push_back(reader.Read(playlists[i]));
      observer.OnVerified(result.playlists.back());
    }
  });
  return result;
}

}  // namespace norvo
