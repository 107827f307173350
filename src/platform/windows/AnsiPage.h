#pragma once

#include "text/CodePage.h"

namespace norvo {

/// The system's 8-bit code page, as it is set on this machine.
const CodePage& SystemAnsiPage();

}  // namespace norvo
