#include "controller/PlaylistSearch.h"

#include "controller/ScanRules.h"
#include "model/PlaylistTypes.h"
#include "services/FolderWalk.h"
#include "services/Logging.h"
#include "text/Number.h"

namespace norvo {
namespace {

/// Takes each playlist; files and sub-folders are skipped by the same names.
class PlaylistCollector final : public FolderVisitor {
 public:
  PlaylistCollector(Component& component, std::vector<String>& found)
      : component_(component), found_(found) {}

  bool Skips(StringView name) override {
    constexpr StringView kSkipped[] = {u".", u"..", u"Temporary Internet Files", u"Recycle*"};
    return MatchesAny(name, kSkipped) || EndsWithIgnoreCase(name, u".sys");
  }
  void VisitFile(StringView folder, StringView name) override {
    if (IsPlayListFile(name) && !Skips(name)) found_.push_back(String(folder) + String(name));
  }
  void CannotList(StringView folder, const RunTimeError& failure) override {
    WriteWarning(component_,
                 {WarningKind::FolderNotListed, String(folder), failure.Description(),
                  u"HelperMan::GetFolders->Error: <" + FormatInteger(failure.Number()) + u" - " +
                      failure.Description() + u"> !Unexpected Error in " + String(folder)});
  }

 private:
  Component& component_;
  std::vector<String>& found_;
};

/// Takes each file that matches one of the patterns.
class PatternCollector final : public FolderVisitor {
 public:
  PatternCollector(Component& component, StringView patternList)
      : component_(component), patterns_(SplitPatterns(patternList)) {}

  bool Skips(StringView name) override {
    constexpr StringView kSkipped[] = {u"Temporary Internet Files", u"Recycler", u"Recycled",
                                       u"System Volume Information"};
    return MatchesAny(name, kSkipped);
  }
  void VisitFile(StringView folder, StringView name) override {
    if (MatchesAny(name, patterns_)) found.push_back(String(folder) + String(name));
  }
  void CannotList(StringView folder, const RunTimeError& failure) override {
    WriteWarning(component_, {WarningKind::FolderNotListed, folder, u"HelperMan::SearchNow -> "},
                 failure.Description());
  }

  std::vector<String> found;

 private:
  Component& component_;
  std::vector<StringView> patterns_;
};

/// "*.asx,*.m3u" and so on.
String PlaylistPatterns() {
  String list;
  for (const StringView extension : PlaylistExtensions()) {
    if (!list.empty()) list += u',';
    list.append(u"*").append(extension);
  }
  return list;
}

}  // namespace

void GetFolders(Component& component, StringView folder, std::vector<String>& found) {
  PlaylistCollector collector(component, found);
  WalkFolders(component.Files(), folder, {}, collector);
}

std::vector<String> SearchNow(Component& component, StringView root, StringView patternList) {
  PatternCollector collector(component, patternList);
  WalkFolders(component.Files(), root, {}, collector);
  return std::move(collector.found);
}

std::vector<String> SearchDrive(Component& component, char16_t letter) {
  return SearchNow(component, String(1, letter) + u":\\", PlaylistPatterns());
}

}  // namespace norvo
