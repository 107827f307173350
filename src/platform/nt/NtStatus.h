#pragma once

#include "platform/files/FileFailure.h"

namespace norvo {

/// The failure that the answer of a native call tells of; none when it succeeded. Its code is the
/// Windows code that stands for the answer.
FileFailure FailureOfStatus(long status);

/// True when it was not the file that was refused: this disk or this system does not know such a
/// question, or such a change.
bool IsUnknownHere(long status);

/// The answer that the buffer takes not all.
bool IsTooMuch(long status);

/// The answer that a folder has no more names.
bool IsEndOfNames(long status);

}  // namespace norvo
