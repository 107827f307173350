#pragma once

#include <string>

#include "platform/hosted/HostCalls.h"
#include "platform/hosted/HostPath.h"

namespace norvo {

/// A file in the making. Until it is put in place it has no name at all, or where the disk has no
/// files without names a temporary one; if it is not put in place, it is gone with its owner.
class NewFile {
 public:
  NewFile() = default;
  ~NewFile() { Discard(); }
  NewFile(NewFile&& other) noexcept;
  NewFile& operator=(NewFile&& other) noexcept;
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// An empty file, open for writing, that is to stand at `place`. `mode` holds its permissions,
  /// without those that the process's mask takes away. Not open, with the reason in `errno`, when
  /// it cannot be.
  static NewFile For(const HostPlace& place, unsigned mode);

  const HostFile& File() const { return file_; }
  /// Gives the file its name and closes it. 0 or `errno`, `EEXIST` when something has that name,
  /// which is never replaced; the file is then gone.
  int PutInPlace();

 private:
  void Discard();
  int GiveName(const HostFile& folder, const std::string& name);

  const HostDrive* drive_ = nullptr;
  std::string path_;
  std::string temporary_;  // empty: no name yet
  HostFile file_;
};

/// Opens the folder that holds a path of a drive, to be the start of other paths; no link is
/// followed.
HostFile OpenFolderOf(const HostPlace& place);

/// Gives an open file one more name. 0 or `errno`. The place is where the file was found.
int LinkFile(const HostFile& file, const HostPlace& found, const HostPlace& place);

/// Removes what a stopped process left behind while it made the file at that place.
void RemoveLeftover(const HostPlace& place);

}  // namespace norvo
