#pragma once

#include <cstdint>

/// Which end of a migration a machine is.
namespace norvo::Utility::role {

inline constexpr std::int32_t kSource = 0;       ///< its playlists are collected
inline constexpr std::int32_t kDestination = 1;  ///< playlists are restored on it
inline constexpr std::int32_t kNeither = 3;      ///< or unknown

}  // namespace norvo::Utility::role
