#pragma once

#include <cstdint>

#include "services/Subject.h"
#include "text/Text.h"

namespace norvo {

/// Number of the run-time error that stands for a system error code (`GetLastError`).
std::int32_t ErrorNumber(std::uint32_t code, Subject subject);

/// True for a code that does not tell what there is, because the disk, memory or handles fail. All
/// others count as "there is none", also that of a server that cannot be reached: many lists hold
/// songs of one that has long been gone.
bool IsUntold(std::uint32_t code);

/// Raises that error; its description names the path.
[[noreturn]] void RaiseWindowsError(std::uint32_t code, Subject subject, StringView path);

/// Raises it for such a code, so that nothing counts as missing that may be there.
void RaiseIfUntold(std::uint32_t code, Subject subject, StringView path);

}  // namespace norvo
