#pragma once

#include "services/Platform.h"

namespace norvo {

/// The shell's special folders with all their letters, which the functions behind WindowsShell
/// replace by "?" where the 8-bit page lacks them.
class WideShell final : public ShellFolders {
 public:
  std::optional<Answer> FolderPath(std::int32_t identifierAndFlags) override;
  /// Creates the folder when it is missing.
  String SpecialFolderPath(std::int32_t identifier) override;
};

}  // namespace norvo
