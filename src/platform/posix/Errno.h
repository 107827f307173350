#pragma once

#include "platform/files/FileFailure.h"

namespace norvo {

/// The failure that an `errno` tells of; none for 0.
FileFailure FailureOf(int code);

/// That of the call that has just failed.
FileFailure LastFailure();

/// For a call that answers 0 when it succeeds.
inline FileFailure FailureUnlessZero(int result) {
  return result == 0 ? FileFailure() : LastFailure();
}

}  // namespace norvo
