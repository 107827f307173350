#include "controller/GenericCollector.h"

#include "automation/RunTimeError.h"
#include "controller/ScanRules.h"
#include "model/GenericSections.h"
#include "services/FolderScanner.h"
#include "services/Logging.h"
#include "services/ProfileFile.h"
#include "services/Utility.h"

namespace norvo {
namespace {

bool IsGenericFile(Component& component, const String& path) {
  ProfileFile file(component);
  if (!file.OpenFile(path)) {
    WriteWarning(component, {WarningKind::FileNotRead,
                             path,
                             {},
                             u"HelperMan::GenericQueue -> The file cannot be read: " + path});
    return false;
  }
  String version;
  return file.SelectSection(kGlobalSection) && file.ReadValue(u"PavaneVersion", version) == 0;
}

std::vector<FolderItem> List(Component& component, const String& folder) {
  constexpr StringView kEndings[] = {u".ini"};
  try {
    return Guarded([&] { return ListSorted(component.Files(), folder, kEndings); });
  } catch (const RunTimeError& failure) {
    WriteWarning(component,
                 {WarningKind::FolderNotListed, folder,
                  u"HelperMan::GenericQueue -> Cannot list the folder " + folder + u": "},
                 failure.Description());
    return {};
  }
}

}  // namespace

std::vector<String> CollectGenericFiles(Component& component, StringView folder) {
  std::vector<String> found;
  // Folders still to be visited, the next one last; no recursion, however deep the tree is.
  std::vector<String> waiting{Utility::AddBackslash(folder)};
  while (!waiting.empty()) {
    const String current = std::move(waiting.back());
    waiting.pop_back();
    component.Watcher().OnFolder(current);
    const std::vector<FolderItem> items = List(component, current);
    for (const FolderItem& item : items) {
      const String path = current + item.name;
      if (!item.isFolder && IsGenericFile(component, path)) found.push_back(path);
    }
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
      if (!item->isFolder || IsSkippedFolder(item->name)) continue;
      waiting.push_back(Utility::AddBackslash(current + item->name));
    }
  }
  return found;
}

}  // namespace norvo
