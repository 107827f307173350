#include "controller/ScanWarnings.h"

#include "services/Logging.h"

namespace norvo {
namespace {

/// The line up to what an error says.
String LineStart(StringView member) {
  return String(u"HelperMan::").append(member).append(u" -> ");
}

}  // namespace

void WarnNotListed(Component& component, StringView member, StringView folder, StringView reason) {
  WriteWarning(component, {WarningKind::FolderNotListed, folder, LineStart(member)}, reason);
}

void WarnNotRead(Component& component, StringView member, StringView path, StringView reason) {
  WriteWarning(component, {WarningKind::FileNotRead, path, LineStart(member)}, reason);
}

void WarnNotRead(Component& component, StringView member, StringView path) {
  const String text = LineStart(member).append(u"The file cannot be read: ").append(path);
  WriteWarning(component, {WarningKind::FileNotRead, String(path), {}, text});
}

}  // namespace norvo
