#include "controller/FolderWalk.h"

#include "automation/RunTimeError.h"
#include "controller/ScanRules.h"
#include "services/FolderScanner.h"
#include "services/Logging.h"
#include "services/Utility.h"
#include "text/Number.h"

namespace norvo {
namespace {

constexpr StringView kPlaylistPatterns = u"*.asx,*.m3u,*.pls";

bool IsSkippedByGetFolders(StringView name) {
  constexpr StringView kSkipped[] = {u".", u"..", u"Temporary Internet Files", u"Recycle*"};
  return MatchesAny(name, kSkipped) || EndsWithIgnoreCase(name, u".sys");
}

bool IsSkippedBySearch(StringView name) {
  constexpr StringView kSkipped[] = {u"Temporary Internet Files", u"Recycler", u"Recycled",
                                     u"System Volume Information"};
  return MatchesAny(name, kSkipped);
}

/// Lists one folder into `found` and gives the sub-folders to enter, in order.
std::vector<String> ListOneFolder(Component& component, const String& folder,
                                  std::vector<String>& found) {
  constexpr StringView kPatterns[] = {u"*.pls", u"*.m3u", u"*.asx"};
  std::vector<String> subFolders;
  for (const FolderItem& item : ListSorted(component.Files(), folder, {})) {
    if (IsSkippedByGetFolders(item.name)) continue;
    if (item.isFolder) {
      subFolders.push_back(folder + item.name);
    } else if (MatchesAny(item.name, kPatterns)) {
      found.push_back(folder + item.name);
    }
  }
  return subFolders;
}

}  // namespace

void GetFolders(Component& component, StringView folderPath, std::vector<String>& found) {
  const String folder = Utility::AddBackslash(folderPath);
  std::vector<String> subFolders;
  try {
    subFolders = Guarded([&] { return ListOneFolder(component, folder, found); });
  } catch (const RunTimeError& failure) {
    WriteWarning(component,
                 {WarningKind::FolderNotListed, folder, failure.Description(),
                  u"HelperMan::GetFolders->Error: <" + FormatInteger(failure.Number()) + u" - " +
                      failure.Description() + u"> !Unexpected Error in " + folder});
  }
  for (const String& subFolder : subFolders) GetFolders(component, subFolder, found);
}

std::vector<String> SearchNow(Component& component, StringView root, StringView patternList) {
  const std::vector<StringView> patterns = SplitPatterns(patternList);
  std::vector<String> found;
  std::vector<String> waiting{Utility::AddBackslash(root)};
  while (!waiting.empty()) {
    const String folder = std::move(waiting.back());
    waiting.pop_back();
    try {
      const std::vector<FolderItem> items =
          Guarded([&] { return ListSorted(component.Files(), folder, {}); });
      for (const FolderItem& item : items) {
        if (!item.isFolder && MatchesAny(item.name, patterns)) found.push_back(folder + item.name);
      }
      for (auto item = items.rbegin(); item != items.rend(); ++item) {
        if (!item->isFolder || IsSkippedBySearch(item->name)) continue;
        waiting.push_back(Utility::AddBackslash(folder + item->name));
      }
    } catch (const RunTimeError& failure) {
      WriteWarning(component, {WarningKind::FolderNotListed, folder, u"HelperMan::SearchNow -> "},
                   failure.Description());
    }
  }
  return found;
}

std::vector<String> SearchDrive(Component& component, char16_t letter) {
  return SearchNow(component, String(1, letter) + u":\\", kPlaylistPatterns);
}

}  // namespace norvo
