#pragma once

#include <functional>
#include <string>

namespace norvo {

/// What is to be done when another run works on a machine.
struct LockWishes {
  bool wait = false;  ///< wait until it is done; else MoveError
  /// Hears, before the waiting, which folder it is and who works on it; may be empty.
  std::function<void(const std::string& folder, const std::string& holder)> onWaiting;
};

}  // namespace norvo
