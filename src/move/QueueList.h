#pragma once

#include <vector>

#include "move/ProductSettings.h"
#include "move/ScanPlaylists.h"

namespace norvo {

/// What the last scan has found, in the order in which the queue takes it. Reads the list file and
/// leaves it as it is, unlike the library's own reader, which consumes it.
std::vector<ListedPlaylist> ReadQueueList(Component& component, const ProductSettings& settings);

/// Path of the list file on the machine.
String QueueListPath(const ProductSettings& settings);

}  // namespace norvo
