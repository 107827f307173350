#pragma once

#include <cstdint>

#include "text/Text.h"

namespace norvo {

/// What a failed call was about. What is missing has another number for a file than for a folder;
/// for something new it is the folder around it that is missing.
enum class Subject { File, Folder, New };

/// Number of the run-time error that stands for a system error code (`GetLastError`).
std::int32_t ErrorNumber(std::uint32_t code, Subject subject);

/// Raises that error; its description names the path.
[[noreturn]] void RaiseWindowsError(std::uint32_t code, Subject subject, StringView path);

}  // namespace norvo
