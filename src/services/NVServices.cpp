#include "services/NVServices.h"

#include "services/Logging.h"
#include "services/Utility.h"
#include "text/Wildcard.h"
#include "text/WindowsPath.h"

namespace norvo::NVServices {
namespace {

constexpr std::size_t kShellBuffer = 260;  // characters, the closing NUL included

constexpr StringView kCreatePathError = u" NVServices::CreatePath -> ERROR!!!  ";

/// One level of a folder chain: a failure is reported, and the walk goes on.
void CreateLevel(Component& component, StringView path) {
  AttemptOrWarn(component, {WarningKind::FolderNotCreated, path, kCreatePathError}, [&] {
    if (!component.Files().FolderExists(path)) component.Files().CreateFolder(path);
  });
}

/// What the shell answers, as far as the buffer takes it.
String ShellFolder(Component& component, std::int32_t identifier) {
  ShellFolders& shell = component.Machine().Shell();
  std::optional<ShellFolders::Answer> answer;
  String version;
  const String library = component.Files().SystemFolder() + u"shfolder.dll";
  if (GetFileVersionString(component, library, version)) {
    answer = shell.FolderPath(identifier | ShellFolders::kCreateFlag);
  }
  const bool usable =
      answer && !answer->path.empty() && answer->status != ShellFolders::kInvalidArgumentStatus;
  String path = usable ? std::move(answer->path) : shell.SpecialFolderPath(identifier);
  if (path.size() >= kShellBuffer) path.resize(kShellBuffer - 1);
  return String(BeforeNul(path));
}

}  // namespace

bool DoesPathExist(Component& component, StringView path, bool createIfMissing) {
  const WarningStart start = {WarningKind::FolderNotChecked, path,
                              u"NVServices::DoesPathExist -> ERROR!!!  "};
  return AnswerOrWarn(component, start, false, [&] {
    if (component.Files().FolderExists(path)) return true;
    return createIfMissing && CreatePath(component, path);
  });
}

std::optional<FileFacts> FactsOfFile(Component& component, StringView path) {
  // A constant, whose length is not counted anew for each file.
  constexpr StringView kText = u"NVServices::DoesFileExist -> ERROR!!!  ";
  const WarningStart start = {WarningKind::FileNotChecked, path, kText};
  return AnswerOrWarn(component, start, std::optional<FileFacts>(),
                      [&] { return component.Files().FactsOf(path); });
}

bool DoesFileExist(Component& component, StringView path) {
  return FactsOfFile(component, path).has_value();
}

bool CreatePath(Component& component, StringView path) {
  if (!path.empty() && path.back() == u'\\') path.remove_suffix(1);
  for (const StringView folder : FoldersAbove(path)) CreateLevel(component, folder);
  CreateLevel(component, path);
  return AnswerOrWarn(component, {WarningKind::FolderNotChecked, path, kCreatePathError}, false,
                      [&] { return component.Files().FolderExists(path); });
}

String GetCSIDLPath(Component& component, std::int32_t identifier) {
  const WarningStart start = {
      WarningKind::ShellFolderNotTold, {}, u" NVServices::GetCSIDLPath -> ERROR!!!  "};
  return AnswerOrWarn(component, start, String(), [&] {
    const String path = Utility::AddBackslash(ShellFolder(component, identifier));
    const bool local = Matches(path, u"?:\\*\\", Compare::Text);
    return local && DoesPathExist(component, path, true) ? path : String();
  });
}

bool GetFileVersionString(Component& component, StringView path, String& result) {
  if (path.empty()) return false;
  const WarningStart start = {WarningKind::VersionNotRead, path,
                              u"NVServices::GetFileVersionString -> ERROR!!!  "};
  return AnswerOrWarn(component, start, false, [&] {
    String version = component.Files().FileVersion(path);
    if (version.empty()) return false;
    result = std::move(version);
    return true;
  });
}

StringView StripNull(StringView text) {
  return Trim(BeforeNul(text));
}

void GetSubGroupRoot(Component& component, StringView group, String& result) {
  if (const std::optional<String>& pinned = component.PinnedGroupRoot()) {
    result = *pinned;
    return;
  }
  const WarningStart start = {
      WarningKind::GroupRootNotRead, {}, u"NVServices::GetSubGroupRoot -> ERROR!!!  "};
  AttemptOrWarn(component, start, [&] {
    const String base = component.Machine().Product().BaseKey();
    if (base.empty()) return;
    RegistryKey key(component.Machine().Registry());
    if (key.Open(base + u"\\KVS\\" + String(group))) key.Read(u"SubGroupRootName", result);
  });
}

std::vector<Drive> GetPartitionList(Component& component) {
  const WarningStart start = {
      WarningKind::DrivesNotListed,
      {},
      u" NVServices::GetPartitionList -> Encountered Errors: Error Data is: "};
  return AnswerOrWarn(component, start, std::vector<Drive>(),
                      [&] { return component.Files().Drives(); });
}

}  // namespace norvo::NVServices
