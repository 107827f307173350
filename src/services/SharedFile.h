#pragma once

#include <memory>

#include "services/FileSystem.h"

namespace norvo {

/// A file that several libraries add to, in one process or in several. Whoever has it open holds it
/// alone: the others wait until it is closed, or until their process has ended. Where the disk
/// knows no locks nobody waits, and only what is added to it stays whole.
class SharedFile : public BinaryFile {
 public:
  /// From the offset on, which is no farther than the end, the file is these bytes and nothing
  /// else. At the end they are added in one write. Raises what `AppendFile::Append` raises.
  virtual void EndWith(std::uint64_t offset, std::string_view bytes) = 0;
};

/// A disk that has such files.
class SharedFiles {
 public:
  virtual ~SharedFiles() = default;
  /// Never null. The file, and the folders above it, are made when they are missing; who makes them
  /// at the same moment is not in the way. Raises as the operations of `FileSystem` do.
  virtual std::unique_ptr<SharedFile> OpenShared(StringView path) = 0;
};

}  // namespace norvo
