#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/hosted/HostedLayout.h"

namespace norvo {

/// The documents folder of one user of a machine.
struct UserDocuments {
  std::string user;  ///< UTF-8, as the disk spells it
  String path;       ///< full, on the machine, without a separator at its end
};

/// The documents folders that stand on a drive where Windows has them: `Users\NAME\Documents` and
/// `Documents and Settings\NAME\My Documents`, by the users' names. Not those of the system's own
/// users, nor what is a link. Case of names does not matter. Of a user with both the former counts.
std::vector<UserDocuments> DocumentsOn(const HostedDrive& drive);

/// "Ann, Bob"
std::string NamesOf(const std::vector<UserDocuments>& users);

}  // namespace norvo
