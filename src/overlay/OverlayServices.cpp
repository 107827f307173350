#include "overlay/OverlayServices.h"

#include "automation/Attempt.h"
#include "services/Utility.h"

namespace norvo {

bool OverlayShell::Create(StringView path) {
  // After an error the shell answers all the same.
  return Attempt([&] { files_.CreateFolders(path); });
}

std::optional<ShellFolders::Answer> OverlayShell::FolderPath(std::int32_t identifierAndFlags) {
  std::optional<Answer> answer = below_.Shell().FolderPath(identifierAndFlags & ~kCreateFlag);
  const bool create = (identifierAndFlags & kCreateFlag) != 0;
  if (answer && create && Create(answer->path)) answer->status = 0;
  return answer;
}

/// The second way has no flag that could be taken away. It is left to machines that lack the first:
/// those that are held in a folder, which create nothing.
String OverlayShell::SpecialFolderPath(std::int32_t identifier) {
  if (const std::optional<Answer> answer = FolderPath(identifier | kCreateFlag)) {
    return answer->status == 0 ? answer->path : String();
  }
  String path = below_.Shell().SpecialFolderPath(identifier);
  Create(path);
  return path;
}

String OverlayProduct::Folder() {
  const String folder = ReadText(registry_, BaseKey(), product_values::kFolder);
  return folder.empty() ? below_.Product().Folder() : Utility::AddBackslash(folder);
}

String OverlayProduct::Name() {
  const String name = ReadText(registry_, BaseKey(), product_values::kName);
  return name.empty() ? below_.Product().Name() : name;
}

}  // namespace norvo
