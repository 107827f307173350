#pragma once

#include "platform/windows/UniqueHandle.h"
#include "services/Platform.h"

namespace norvo {

/// The shell's special folders. The functions speak in the 8-bit code page.
class WindowsShell final : public ShellFolders {
 public:
  /// `SHGetFolderPathA` of shfolder.dll, which older systems may lack; it is looked for when this
  /// is first called, and stays loaded as long as this lives.
  std::optional<Answer> FolderPath(std::int32_t identifierAndFlags) override;
  /// `SHGetSpecialFolderPathA`, which creates the folder when it is missing.
  String SpecialFolderPath(std::int32_t identifier) override;

 private:
  LibraryHandle library_;
};

}  // namespace norvo
