#include "machines/FolderMove.h"

#include <algorithm>
#include <memory>
#include <set>
#include <vector>

#include "machines/FoldersApart.h"
#include "machines/MachineLock.h"
#include "machines/SourceFolder.h"
#include "machines/TargetFolder.h"
#include "move/MoveError.h"
#include "placing/FilePlacer.h"

namespace norvo {
namespace {

/// Of all folders that are written to.
class Locks {
 public:
  Locks(const SourceFolder& source, const TargetFolder& target, const FolderMove& folders,
        bool dryRun) {
    std::set<std::filesystem::path> shared{source.SharedFolder()};
    if (!dryRun) shared.insert(target.SharedFolder());
    // In the order of the paths: two moves in opposite directions would else wait for each other.
    for (const std::filesystem::path& folder : shared) {
      if (!folder.empty()) locks_.push_back(std::make_unique<MachineLock>(folder, folders.lock));
    }
  }

 private:
  std::vector<std::unique_ptr<MachineLock>> locks_;
};

}  // namespace

MoveResult MovePlaylists(const FolderMove& folders, const MoveOptions& options,
                         WorkObserver& observer) {
  if (folders.IsFromThisPc() && folders.IsToThisPc()) throw MoveError(MoveFault::OneMachine);
  RequireApart(folders);
  SourceFolder source(folders);
  if (source.IsReadOnly() && options.media == MediaMode::Link) {
    throw MoveError(MoveFault::LinkWritesToSource);
  }
  TargetFolder target(folders, options.dryRun);
  const Locks locks(source, target, folders, options.dryRun);
  if (folders.onOpened) {
    folders.onOpened({source.Taken(), target.Taken(), target.Registry(),
                      folders.IsFromThisPc() ? nullptr : source.Disks()});
  }
  if (folders.messages != nullptr) {
    source.SetMessageDialog(*folders.messages);
    target.SetMessageDialog(*folders.messages);
  }
  FilePlacer placer(*source.Disks(), *target.Disks());
  FilePlacer namer(*target.Disks(), *target.Disks());
  MoveResult result = MovePlaylists(
      {source.Machine(), target.Machine(), &placer, &namer, source.GroupRoot(), folders.groupRoot,
       target.UsualGroupRoot(), [&target](StringView path) { return target.FreeBytesAt(path); }},
      options, observer);
  if (source.IsTemporary()) {
    std::erase_if(result.logs, [](const MoveLog& log) { return log.side == MachineSide::Old; });
  }
  return result;
}

}  // namespace norvo
