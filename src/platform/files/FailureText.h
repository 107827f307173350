#pragma once

#include "platform/files/FileFailure.h"
#include "text/Text.h"

namespace norvo {

/// What a failure means, in words that end a sentence: "the disk is full".
String FailureText(FileFailure failure);

}  // namespace norvo
