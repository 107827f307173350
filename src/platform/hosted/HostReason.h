#pragma once

#include "text/Text.h"

namespace norvo {

/// What an `errno` means, in words that end a sentence: "the disk is full".
String HostReason(int code);

}  // namespace norvo
