#pragma once

#include "text/Text.h"

namespace norvo {

/// True for a folder in which a disk is mounted that has no letter: who goes by letters does not
/// come to it. `systemPath` is as platform/windows/SystemPath.h has it. False for all else, such as
/// a junction to a folder, and where the system does not tell.
bool IsDiskWithoutLetter(const String& systemPath);

}  // namespace norvo
