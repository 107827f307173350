#include "controller/GenericCollector.h"

#include <optional>
#include <string>

#include "automation/RunTimeError.h"
#include "controller/ScanRules.h"
#include "controller/ScanWarnings.h"
#include "model/GenericKeys.h"
#include "model/GenericSections.h"
#include "services/FolderWalk.h"
#include "services/SettingsLines.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

/// Of the generic files one that has too much in it is told and left out.
bool IsGenericFile(Component& component, const String& path) {
  try {
    const std::optional<std::string> bytes = component.Machine().Settings().Read(path);
    if (!bytes) return false;
    const String text = DecodeFile(*bytes, component.Machine().AnsiPage());
    const bool isGeneric = HasSetting(text, kGlobalSection, kVersionKey);
    if (isGeneric) CheckSettings(text);
    return isGeneric;
  } catch (const RunTimeError&) {
    WarnNotRead(component, u"GenericQueue", path);
    return false;
  }
}

class GenericVisitor final : public FolderVisitor {
 public:
  explicit GenericVisitor(Component& component) : component_(component) {}

  bool Skips(StringView name) override { return IsSkippedFolder(name); }
  bool EnterFolder(StringView folder) override {
    component_.Watcher().OnFolder(folder);
    return true;
  }
  void VisitFile(StringView folder, StringView name) override {
    String path = String(folder) + String(name);
    if (IsGenericFile(component_, path)) found.push_back(std::move(path));
  }
  void CannotList(StringView folder, const RunTimeError& failure) override {
    WarnNotListed(component_, u"GenericQueue", folder, failure.Description());
  }

  std::vector<String> found;

 private:
  Component& component_;
};

}  // namespace

std::vector<String> CollectGenericFiles(Component& component, StringView folder) {
  constexpr StringView kEndings[] = {u".ini"};
  GenericVisitor visitor(component);
  WalkFolders(component.Files(), folder, kEndings, visitor);
  return std::move(visitor.found);
}

}  // namespace norvo
