#include "services/FolderWalk.h"

#include <algorithm>
#include <iterator>

#include "services/Utility.h"

namespace norvo {
namespace {

/// Visits the files of one folder, and gives the sub-folders that are not skipped, in order.
std::vector<String> VisitFolder(FileSystem& files, const String& folder,
                                std::span<const StringView> endings, FolderVisitor& visitor) {
  std::vector<String> subFolders;
  std::vector<FolderItem> items;
  try {
    items = Guarded([&] { return ListSorted(files, folder, endings); });
  } catch (const RunTimeError& failure) {
    visitor.CannotList(folder, failure);
    return subFolders;
  }
  for (const FolderItem& item : items) {
    if (!item.isFolder) {
      visitor.VisitFile(folder, item.name);
    } else if (!visitor.Skips(item.name)) {
      subFolders.push_back(folder + item.name + u"\\");
    }
  }
  return subFolders;
}

}  // namespace

std::vector<FolderItem> ListSorted(FileSystem& files, StringView folder,
                                   std::span<const StringView> endings) {
  std::vector<FolderItem> items = files.ListFolder(folder, endings);
  std::sort(items.begin(), items.end(), [](const FolderItem& left, const FolderItem& right) {
    return LessIgnoreCase(left.name, right.name);
  });
  return items;
}

void WalkFolders(FileSystem& files, StringView root, std::span<const StringView> endings,
                 FolderVisitor& visitor) {
  // Folders still to be visited, the next one last; no recursion, however deep the tree is.
  std::vector<String> waiting{Utility::AddBackslash(root)};
  while (!waiting.empty()) {
    const String folder = std::move(waiting.back());
    waiting.pop_back();
    if (!visitor.EnterFolder(folder)) continue;
    std::vector<String> subFolders = VisitFolder(files, folder, endings, visitor);
    std::move(subFolders.rbegin(), subFolders.rend(), std::back_inserter(waiting));
  }
}

}  // namespace norvo
