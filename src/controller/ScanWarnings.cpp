#include "controller/ScanWarnings.h"

#include "services/Logging.h"

namespace norvo {
namespace {

String LineOf(StringView member, StringView what, StringView path) {
  return String(u"HelperMan::").append(member).append(u" -> ").append(what).append(path);
}

}  // namespace

void WarnNotListed(Component& component, StringView member, StringView folder, StringView reason) {
  const String text = LineOf(member, u"Cannot list the folder ", folder) + u": ";
  WriteWarning(component, {WarningKind::FolderNotListed, folder, text}, reason);
}

void WarnNotRead(Component& component, StringView member, StringView path) {
  WriteWarning(component, {WarningKind::FileNotRead,
                           String(path),
                           {},
                           LineOf(member, u"The file cannot be read: ", path)});
}

}  // namespace norvo
