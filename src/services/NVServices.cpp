#include "services/NVServices.h"

#include "automation/RunTimeError.h"
#include "services/Logging.h"
#include "services/Utility.h"
#include "text/Wildcard.h"

namespace norvo::NVServices {
namespace {

constexpr std::size_t kShellBuffer = 260;  // characters, the closing NUL included

/// Runs one routine; an error is logged behind `message` and turned into the neutral value.
template <class Result, class Work>
Result LogErrors(Component& component, StringView message, Result neutral, Work&& work) {
  try {
    return Guarded(work);
  } catch (const RunTimeError& failure) {
    WriteLog(component, String(message) + failure.Description());
    return neutral;
  }
}

/// One level of a folder chain: a failure is reported, and the walk goes on.
void CreateLevel(Component& component, StringView path) {
  LogErrors(component, u" NVServices::CreatePath -> ERROR!!!  ", false, [&] {
    if (!component.Files().FolderExists(path)) component.Files().CreateFolder(path);
    return true;
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
  return path.substr(0, path.find(u'\0'));
}

}  // namespace

bool DoesPathExist(Component& component, StringView path, bool createIfMissing) {
  return LogErrors(component, u"NVServices::DoesPathExist -> ERROR!!!  ", false, [&] {
    if (component.Files().FolderExists(path)) return true;
    return createIfMissing && CreatePath(component, path);
  });
}

std::optional<FileFacts> FactsOfFile(Component& component, StringView path) {
  return LogErrors(component, u"NVServices::DoesFileExist -> ERROR!!!  ",
                   std::optional<FileFacts>(), [&] { return component.Files().FactsOf(path); });
}

bool DoesFileExist(Component& component, StringView path) {
  return FactsOfFile(component, path).has_value();
}

bool CreatePath(Component& component, StringView path) {
  if (!path.empty() && path.back() == u'\\') path.remove_suffix(1);
  for (std::size_t end = path.find(u'\\'); end != StringView::npos;
       end = path.find(u'\\', end + 1)) {
    // The first piece keeps its backslash: a drive's root is "C:\".
    const bool first = path.find(u'\\') == end;
    if (end > 0) CreateLevel(component, path.substr(0, first ? end + 1 : end));
  }
  CreateLevel(component, path);
  return LogErrors(component, u" NVServices::CreatePath -> ERROR!!!  ", false,
                   [&] { return component.Files().FolderExists(path); });
}

String GetCSIDLPath(Component& component, std::int32_t identifier) {
  return LogErrors(component, u" NVServices::GetCSIDLPath -> ERROR!!!  ", String(), [&] {
    const String path = Utility::AddBackslash(ShellFolder(component, identifier));
    const bool local = Matches(path, u"?:\\*\\", Compare::Text);
    return local && DoesPathExist(component, path, true) ? path : String();
  });
}

bool GetFileVersionString(Component& component, StringView path, String& result) {
  if (path.empty()) return false;
  return LogErrors(component, u"NVServices::GetFileVersionString -> ERROR!!!  ", false, [&] {
    String version = component.Files().FileVersion(path);
    if (version.empty()) return false;
    result = std::move(version);
    return true;
  });
}

StringView StripNull(StringView text) {
  return Trim(text.substr(0, text.find(u'\0')));
}

void GetSubGroupRoot(Component& component, StringView group, String& result) {
  LogErrors(component, u"NVServices::GetSubGroupRoot -> ERROR!!!  ", false, [&] {
    const String base = component.Machine().Product().BaseKey();
    if (base.empty()) return false;
    RegistryKey key(component.Machine().Registry());
    return key.Open(base + u"\\KVS\\" + String(group)) && key.Read(u"SubGroupRootName", result);
  });
}

std::vector<Drive> GetPartitionList(Component& component) {
  return LogErrors(component,
                   u" NVServices::GetPartitionList -> Encountered Errors: Error Data is: ",
                   std::vector<Drive>(), [&] { return component.Files().Drives(); });
}

}  // namespace norvo::NVServices
