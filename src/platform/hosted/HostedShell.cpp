#include "platform/hosted/HostedShell.h"

#include "services/Utility.h"
#include "text/Number.h"

namespace norvo {

std::optional<ShellFolders::Answer> HostedShell::FolderPath(std::int32_t) {
  return std::nullopt;
}

String HostedShell::SpecialFolderPath(std::int32_t identifier) {
  const std::size_t section = settings_.FindSection(u"ShellFolders");
  if (section != IniDocument::kNone) {
    const std::optional<StringView> path = settings_.Value(section, FormatInteger(identifier));
    if (path) return String(*path);
  }
  return identifier == kDocuments ? u"C:\\My Documents" : String();
}

String HostedProduct::BaseKey() {
  return u"SOFTWARE\\Norvo\\Migration";
}

String HostedProduct::Folder() {
  const String folder = TextValue(registry_, BaseKey(), u"ProductFolder");
  return folder.empty() ? u"C:\\Norvo\\" : Utility::AddBackslash(folder);
}

String HostedProduct::Name() {
  return TextValue(registry_, BaseKey(), u"ProductName");
}

}  // namespace norvo
