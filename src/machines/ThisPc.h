#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/hosted/HostedPlatform.h"
#include "services/Platform.h"

namespace norvo {

/// The Windows PC that the process runs on, as a machine of a move.
class ThisPc {
 public:
  virtual ~ThisPc() = default;

  /// The machine, which is what its own interfaces tell.
  virtual const std::shared_ptr<Platform>& Machine() = 0;
  /// Its drives as folders, for what copies whole files and stays within a drive.
  virtual const std::shared_ptr<HostedPlatform>& Disks() = 0;
  /// Shows the machine's messages from now on. Not owned.
  virtual void SetMessageDialog(MessageDialog& messages) = 0;
};

/// True on Windows.
bool IsThisPcAMachine();

/// Null where this system is no Windows PC.
std::shared_ptr<ThisPc> OpenThisPc();

/// Where the product's data go on this PC, in UTF-8, unless another place is asked for: below the
/// documents folder, wherever that is. Empty when the system does not tell it.
std::string UsualGroupRootOf(Platform& thisPc);

/// The folder whose lock keeps others from this PC, which all its users may write to; empty when
/// there is none.
std::filesystem::path LockFolderOf(Platform& thisPc);

}  // namespace norvo
