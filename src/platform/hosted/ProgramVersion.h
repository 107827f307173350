#pragma once

#include "services/FileSystem.h"
#include "text/Text.h"

namespace norvo {

/// Version text ("5.0.2195.1") that a Windows program or library carries; empty for any other file.
String ProgramVersion(BinaryFile& file);

}  // namespace norvo
