#include "platform/files/TemporaryFile.h"

#include <functional>
#include <string_view>

#include "platform/files/DiskPath.h"

namespace norvo {

std::string TemporaryPath(const std::string& path) {
  const std::size_t number = std::hash<std::string_view>()(LeafOf(path));
  return JoinDiskPath(ParentOf(path), ".norvo-" + std::to_string(number) + ".tmp");
}

FileResult<SystemFile> CreateTemporary(const SystemFile& root, const std::string& temporary,
                                       unsigned permissions) {
  FileResult<SystemFile> made = CreateNew(root, temporary, permissions);
  if (made.Failure().kind != FileFailure::Kind::AlreadyExists) return made;
  if (const FileFailure failure = RemoveFile(root, temporary)) return failure;
  return CreateNew(root, temporary, permissions);
}

}  // namespace norvo
