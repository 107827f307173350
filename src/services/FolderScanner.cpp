#include "services/FolderScanner.h"

#include <algorithm>
#include <vector>

#include "automation/RunTimeError.h"

namespace norvo {
namespace {

String Join(StringView folder, StringView name) {
  String path(folder);
  if (path.back() != u'\\') path.push_back(u'\\');
  return path.append(name);
}

/// Lists one folder, reports its files, and gives its sub-folders in order.
std::vector<String> VisitFolder(FileSystem& files, const String& folder,
                                std::span<const StringView> endings, ScanVisitor& visitor) {
  std::vector<String> subFolders;
  std::vector<FolderItem> items;
  try {
    items = ListSorted(files, folder, endings);
  } catch (const RunTimeError& failure) {
    visitor.CannotList(folder, failure.Description());
    return subFolders;
  }
  for (const FolderItem& item : items) {
    if (item.isFolder) {
      subFolders.push_back(Join(folder, item.name));
    } else {
      visitor.VisitFile(folder, item.name);
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

void FolderScanner::Scan(std::span<const StringView> endings, ScanVisitor& visitor) {
  for (const Drive& drive : files_.Drives()) {
    if (drive.type != DriveType::Fixed) continue;
    // Folders still to be visited, the next one last; no recursion, however deep the tree is.
    std::vector<String> waiting{String(1, drive.letter) + u":\\"};
    while (!waiting.empty()) {
      const String folder = std::move(waiting.back());
      waiting.pop_back();
      if (!visitor.EnterFolder(folder)) continue;
      std::vector<String> subFolders = VisitFolder(files_, folder, endings, visitor);
      std::move(subFolders.rbegin(), subFolders.rend(), std::back_inserter(waiting));
    }
  }
}

}  // namespace norvo
