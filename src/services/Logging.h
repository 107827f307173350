#pragma once

#include "services/Component.h"
#include "text/Text.h"

namespace norvo {

/// Takes a finished message and, by the debug switch, drops it, shows it or appends it as one line
/// to "VBLog.txt" in the product folder. Never raises: a message that cannot be written is lost.
void WriteLog(Component& component, StringView message);

}  // namespace norvo
