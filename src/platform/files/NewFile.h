#pragma once

#include <memory>
#include <string>

#include "platform/files/FileFailure.h"
#include "platform/files/LastFolder.h"
#include "platform/files/SystemFile.h"

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

  /// An empty file, open for writing, that is to stand at the path below the open folder, which
  /// must outlive it. `permissions` are as in FileRecord, without those that the process's mask
  /// takes away.
  static FileResult<NewFile> At(const SystemFile& root, std::string path, unsigned permissions,
                                LastFolder& folders);

  const SystemFile& File() const { return file_; }
  /// Gives the file its name and closes it. AlreadyExists when something has that name, which is
  /// never replaced; the file is then gone. One that had a temporary name is gone, too, when
  /// another folder stands at the path by now, which `folders` must not have opened before it was
  /// made.
  FileFailure PutInPlace(LastFolder& folders);

 private:
  void Discard();
  FileFailure TakeName(LastFolder& folders);

  const SystemFile* root_ = nullptr;
  std::string path_;
  std::shared_ptr<const SystemFile> folder_;  // of the temporary name
  std::string temporary_;                     // in that folder; empty: no name yet
  SystemFile file_;
};

}  // namespace norvo
