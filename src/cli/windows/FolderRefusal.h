#pragma once

namespace norvo::cli {

/// Why machines that are held in folders are refused.
inline constexpr const char* kFolderRefusal =
    "machines held in folders, and the move from one machine to another, need the program for "
    "Linux; this one works on the machine that it runs on";

}  // namespace norvo::cli
