#pragma once

#include <cstdint>
#include <vector>

#include "move/Settings.h"

namespace norvo {

struct ListedPlaylist {
  std::int32_t type = 0;
  String path;
};

/// What the last scan has found, in the order in which the queue takes it. Reads the list file and
/// leaves it as it is, unlike the library's own list reader.
std::vector<ListedPlaylist> ReadListFile(Component& component, const Settings& settings);

/// Path of the list file on the machine.
String ListFilePath(const Settings& settings);

}  // namespace norvo
