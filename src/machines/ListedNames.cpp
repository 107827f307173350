#include "machines/ListedNames.h"

#include <system_error>
#include <utility>

#include "platform/files/DiskPath.h"

namespace norvo {

FileResult<std::vector<ListedName>> NamesIn(const std::filesystem::path& folder) {
  const FileResult<SystemFile> root = OpenRoot(ToDiskPath(folder));
  if (!root) return root.Failure();
  FileResult<SystemFile> listed = OpenBeneath(*root, {}, OpenMode::List);
  if (!listed) return listed.Failure();
  std::vector<ListedName> names;
  const FileFailure failure =
      ForEachName(std::move(*listed), [&names](std::string_view name, ListedKind kind) {
        names.push_back({std::string(name), kind});
      });
  if (failure) return failure;
  return names;
}

bool IsFolder(const std::filesystem::path& parent, const ListedName& name) {
  if (name.kind != ListedKind::Link) return name.kind == ListedKind::Folder;
  std::error_code ignored;
  return std::filesystem::is_directory(parent / ToSystemPath(name.name), ignored);
}

}  // namespace norvo
