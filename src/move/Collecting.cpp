#include "move/Collecting.h"

#include <unordered_map>
#include <utility>

#include "automation/Conversions.h"
#include "controller/QueueMode.h"
#include "move/LibraryCalls.h"
#include "move/ListFile.h"
#include "services/ObserverScope.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

class CollectWatcher final : public Observer {
 public:
  explicit CollectWatcher(Console& console) : console_(console) {}

  void OnWarning(const Warning& warning) override {
    // What the queue says of single playlists is looked at anew afterwards.
    const bool ofQueue = warning.kind == WarningKind::QueueStopped;
    if (!ofQueue) console_.LeftOut("Old machine: " + ToUtf8(warning.text));
  }
  void OnFolder(StringView path) override { console_.Bar().Count("folders", ++folders_, path); }
  void OnPlaylistFile(StringView path) override { FileOf(path); }
  void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override {
    console_.Bar().Advance("collecting", position, count, path);
  }
  void OnPlaylistEnd(StringView path, std::int32_t type, PlaylistOutcome outcome, std::size_t,
                     StringView genericFile) override {
    const std::size_t index = FileOf(path);
    files_[index].type = type;
    files_[index].outcome = outcome;
    if (genericFile.empty()) return;
    files_[index].neutralFile = genericFile;
    // The neutral file of an earlier playlist of that name is gone now.
    const auto [owner, isNew] = owners_.try_emplace(String(genericFile), index);
    if (!isNew) files_[std::exchange(owner->second, index)].neutralFile.clear();
  }

  void NoteListed(StringView path) { files_[FileOf(path)].isListed = true; }

  std::vector<CollectedFile> Files() { return std::move(files_); }

 private:
  std::size_t FileOf(StringView path) {
    const auto [found, isNew] = byPath_.try_emplace(String(path), files_.size());
    if (isNew) files_.emplace_back().path = path;
    return found->second;
  }

  Console& console_;
  std::size_t folders_ = 0;
  std::vector<CollectedFile> files_;
  std::unordered_map<String, std::size_t> byPath_;
  std::unordered_map<String, std::size_t, CaselessHash, CaselessEqual> owners_;
};

}  // namespace

std::vector<CollectedFile> Collect(Machine& machine, Console& console) {
  CollectWatcher watcher(console);
  Component& library = machine.Library();
  const ObserverScope scope(library, watcher);
  const ObjectRef controller = library.Create(u"helperMan");
  const bool scanned = ToBoolean(controller->Call(u"GetAllPlaylists"));
  for (const ListedPlaylist& listed : ReadListFile(library, ReadSettings(library))) {
    watcher.NoteListed(listed.path);
  }
  if (scanned) RunQueue(*controller, queue_mode::kCollect);
  if (!scanned) {
    throw HostError("The scan of the old machine failed. See that its data area can be written.");
  }
  return watcher.Files();
}

}  // namespace norvo
