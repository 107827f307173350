#include "platform/hosted/HostedShell.h"

#include "services/Utility.h"

namespace norvo {

std::optional<ShellFolders::Answer> HostedShell::FolderPath(std::int32_t) {
  return std::nullopt;
}

String HostedShell::SpecialFolderPath(std::int32_t identifier) {
  const auto folder = folders_.find(identifier);
  if (folder != folders_.end()) return folder->second;
  return identifier == kDocuments ? u"C:\\My Documents" : String();
}

String HostedProduct::BaseKey() {
  return u"SOFTWARE\\Norvo\\Migration";
}

String HostedProduct::Folder() {
  const String folder = ReadText(registry_, BaseKey(), u"ProductFolder");
  return folder.empty() ? u"C:\\Norvo\\" : Utility::AddBackslash(folder);
}

String HostedProduct::Name() {
  return ReadText(registry_, BaseKey(), u"ProductName");
}

}  // namespace norvo
