#pragma once

#include <cstdint>

namespace norvo {

/// What the controller's queue does with the playlists.
namespace queue_mode {
inline constexpr std::int32_t kCollect = 0;  ///< listed ones become generic files
inline constexpr std::int32_t kRestore = 1;  ///< generic files become native playlists
}  // namespace queue_mode

}  // namespace norvo
