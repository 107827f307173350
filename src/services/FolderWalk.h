#pragma once

#include <span>
#include <vector>

#include "automation/RunTimeError.h"
#include "services/FileSystem.h"

namespace norvo {

/// The names of a folder in order without regard to case; see `FileSystem::ListFolder`.
std::vector<FolderItem> ListSorted(FileSystem& files, StringView folder,
                                   std::span<const StringView> endings);

/// What a walk over folders asks and tells. Folders come with a trailing backslash. What any of
/// these raises ends the walk.
class FolderVisitor {
 public:
  virtual ~FolderVisitor() = default;

  /// True for a sub-folder that is passed over with all below, by its own name.
  virtual bool Skips(StringView /*name*/) { return false; }
  /// A folder is about to be listed; false passes it over with all below.
  virtual bool EnterFolder(StringView /*folder*/) { return true; }
  virtual void VisitFile(StringView folder, StringView name) = 0;
  /// The folder cannot be listed, a shortage of memory (error 7) included; the walk goes on.
  virtual void CannotList(StringView folder, const RunTimeError& failure) = 0;
};

/// Walks a folder and all below: in each folder the names in order without regard to case, the
/// files before the sub-folders, whose own come before the next one. Visits the files whose last
/// characters are one of `endings`, or all files when there are none.
void WalkFolders(FileSystem& files, StringView root, std::span<const StringView> endings,
                 FolderVisitor& visitor);

}  // namespace norvo
