#pragma once

#include <string>

#include "platform/files/FileFailure.h"
#include "text/Text.h"

namespace norvo {

/// The native form of a path that comes without an open folder, from "E:/Move",
/// "//server/share/x", "//?/E:/Move" or one that begins at the process's folder. "." and ".." are
/// resolved by the text alone, as everywhere on this system; every other name is taken as it is,
/// and the path may be as long as the system's paths can be. InvalidName for what can be none, such
/// as a device.
FileResult<String> ToNtPath(const std::string& path);

}  // namespace norvo
