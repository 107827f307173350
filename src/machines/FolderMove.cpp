#include "machines/FolderMove.h"

#include <algorithm>

#include "machines/FoldersApart.h"
#include "machines/SourceFolder.h"
#include "machines/TargetFolder.h"
#include "move/MoveError.h"
#include "placing/FilePlacer.h"

namespace norvo {

MoveResult MovePlaylists(const FolderMove& folders, const MoveOptions& options,
                         WorkObserver& observer) {
  RequireApart(folders);
  SourceFolder source(folders.from, folders.work);
  if (source.IsReadOnly() && options.media == MediaMode::Link) {
    throw MoveError(MoveFault::LinkWritesToSource);
  }
  TargetFolder target(folders, options.dryRun);
  if (folders.onOpened)
    folders.onOpened({source.Taken(), target.Taken(), target.Registry(), source.Machine()});
  if (folders.messages != nullptr) {
    source.Machine()->SetMessageDialog(*folders.messages);
    target.Machine()->SetMessageDialog(*folders.messages);
  }
  FilePlacer placer(*source.Machine(), *target.Machine());
  FilePlacer namer(*target.Machine(), *target.Machine());
  MoveResult result =
      MovePlaylists({source.Machine(), target.Machine(), &placer, &namer, source.GroupRoot(),
                     folders.groupRoot, target.UsualGroupRoot()},
                    options, observer);
  if (source.IsTemporary()) {
    std::erase_if(result.logs, [](const MoveLog& log) { return log.side == MachineSide::Old; });
  }
  return result;
}

}  // namespace norvo
