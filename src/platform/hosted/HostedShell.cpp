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
  return String(product_values::kBaseKey);
}

String HostedProduct::Folder() {
  const String folder = ReadText(registry_, product_values::kBaseKey, product_values::kFolder);
  return folder.empty() ? u"C:\\Norvo\\" : Utility::AddBackslash(folder);
}

String HostedProduct::Name() {
  return ReadText(registry_, product_values::kBaseKey, product_values::kName);
}

}  // namespace norvo
