#include "controller/MediaSearch.h"

#include "automation/Conversions.h"
#include "automation/RunTimeError.h"
#include "controller/ScanRules.h"
#include "controller/ScanWarnings.h"
#include "services/Utility.h"
#include "text/Wildcard.h"

namespace norvo {
namespace {

class MediaVisitor final : public ScanVisitor {
 public:
  MediaVisitor(Component& component, StringView patterns)
      : component_(component), patterns_(SplitPatterns(patterns)) {}

  bool EnterFolder(StringView path) override {
    CountToInt16(++folders_);
    files_ = 0;
    if (Matches(path, u"*Temporary Internet Files*", Compare::Text)) return false;
    component_.Watcher().OnFolder(path);
    return true;
  }

  void VisitFile(StringView folder, StringView name) override {
    if (!MatchesAny(name, patterns_)) return;
    CountToInt16(++files_);
    // Nothing else is done with the file: intended.
    component_.Watcher().OnMediaFile(Utility::AddBackslash(folder) + String(name));
  }

  void CannotList(StringView folder, StringView reason) override {
    WarnNotListed(component_, u"MigrateMediaByType", folder, reason);
  }

 private:
  Component& component_;
  std::vector<StringView> patterns_;
  std::size_t folders_ = 0;
  std::size_t files_ = 0;  // of the current folder
};

}  // namespace

void SearchMedia(Component& component, StringView patterns) {
  DriveScanner* const scanner = component.Machine().Scanner();
  if (scanner == nullptr) throw RunTimeError(error::kCannotCreateObject);
  MediaVisitor visitor(component, patterns);
  scanner->Scan({}, visitor);
}

}  // namespace norvo
