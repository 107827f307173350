#pragma once

#include <cstdint>

namespace norvo {

/// Kinds of references found in playlists: what `Urltype` of an entry tells.
namespace url_type {
inline constexpr std::int32_t kFixedDrive = 0;    ///< full path on a fixed drive
inline constexpr std::int32_t kDriveRoot = 1;     ///< starts with a backslash
inline constexpr std::int32_t kDotted = 2;        ///< starts with a point, holds a backslash
inline constexpr std::int32_t kRelative = 3;      ///< other relative path with a backslash
inline constexpr std::int32_t kBareName = 4;      ///< a file's name alone
inline constexpr std::int32_t kRamDisk = 5;       ///< full path on a RAM disk
inline constexpr std::int32_t kRemovable = 6;     ///< removable drive or CD-ROM
inline constexpr std::int32_t kNetworkDrive = 7;  ///< full path on a network drive
inline constexpr std::int32_t kShare = 8;         ///< starts with two backslashes
inline constexpr std::int32_t kInternet = 9;      ///< also of what a reader takes unchecked
inline constexpr std::int32_t kUnusable = 10;     ///< leads nowhere
}  // namespace url_type

}  // namespace norvo
