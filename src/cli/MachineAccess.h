#pragma once

#include <memory>
#include <string>

#include "services/Platform.h"

namespace norvo {

/// A machine that the library can be opened on, and how its paths and those of this system lead to
/// each other. Paths of this system are UTF-8 where they are texts.
class MachineAccess {
 public:
  virtual ~MachineAccess() = default;

  virtual std::shared_ptr<norvo::Platform> Platform() = 0;
  /// Shows the machine's messages from now on. Not owned.
  virtual void SetMessageDialog(MessageDialog& messages) = 0;

  /// Where a machine path is on this system, as far as it exists; for messages. Empty when it can
  /// be nowhere.
  virtual std::string SystemPathOf(StringView machinePath) const = 0;
  /// What the machine calls the file that the user has named, by a path of the machine or of this
  /// system. HostError when the machine cannot have it.
  virtual String MachinePathOf(const std::string& named) const = 0;
};

/// The machine that `--machine` names; on Windows, where nothing names one, the machine that the
/// program runs on. HostError when it is no machine.
std::shared_ptr<MachineAccess> OpenMachine(const std::string& folder);

/// True for "C:\..." and "C:/...".
bool IsMachinePath(std::string_view text);

}  // namespace norvo
