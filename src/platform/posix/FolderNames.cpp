#include <dirent.h>

#include <cerrno>
#include <memory>

#include "platform/files/SystemCalls.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/Errno.h"

namespace norvo {
namespace {

ListedKind ListedKindOf(unsigned char type) {
  switch (type) {
    case DT_REG:
      return ListedKind::File;
    case DT_DIR:
      return ListedKind::Folder;
    case DT_LNK:
      return ListedKind::Link;
    default:
      return ListedKind::Other;
  }
}

/// For disks that do not tell the kind along with the name.
ListedKind KindByLookUp(const SystemFile& folder, const char* name) {
  const FileResult<FileRecord> record = LookUp(folder, name);
  if (!record) return ListedKind::Other;
  switch (record->kind) {
    case FileRecord::Kind::File:
      return ListedKind::File;
    case FileRecord::Kind::Folder:
      return ListedKind::Folder;
    case FileRecord::Kind::Link:
      return ListedKind::Link;
    case FileRecord::Kind::Other:
      break;
  }
  return ListedKind::Other;
}

bool IsDots(const char* name) {
  return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

}  // namespace

FileFailure ForEachName(SystemFile folder,
                        const std::function<void(std::string_view name, ListedKind kind)>& visit) {
  const auto close = [&folder](DIR* stream) {
    folder.Release();  // closed along with the stream, which owns it too
    ::closedir(stream);
  };
  const std::unique_ptr<DIR, decltype(close)> stream(::fdopendir(DescriptorOf(folder)), close);
  if (!stream) return LastFailure();
  for (;;) {
    errno = 0;
    const dirent* const entry = ::readdir(stream.get());
    if (entry == nullptr) return LastFailure();
    if (IsDots(entry->d_name)) continue;
    visit(entry->d_name, entry->d_type == DT_UNKNOWN ? KindByLookUp(folder, entry->d_name)
                                                     : ListedKindOf(entry->d_type));
  }
}

}  // namespace norvo
