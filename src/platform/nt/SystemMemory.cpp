#include "platform/files/SystemCalls.h"

namespace norvo {

/// The system's own way to fetch bytes ahead works on what a process has mapped.
void WillRead(const SystemFile&, std::uint64_t, std::uint64_t) {}

/// Not told of a thread.
std::optional<std::uint64_t> DiskWaits() {
  return std::nullopt;
}

}  // namespace norvo
