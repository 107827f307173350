#pragma once

#include <cstdint>

#include "services/Subject.h"
#include "text/Text.h"

namespace norvo {

/// Number of the run-time error that stands for a system error code (`GetLastError`).
std::int32_t ErrorNumber(std::uint32_t code, Subject subject);

/// Raises that error; its description names the path.
[[noreturn]] void RaiseWindowsError(std::uint32_t code, Subject subject, StringView path);

}  // namespace norvo
