#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norvo::cli {

/// Remembers the command line (UTF-8, without the program's name) for messages that ask for it
/// again.
void KnowCommand(const std::vector<std::string>& words);

/// A message with the remembered command in place of "{command}", as it is typed at a command
/// prompt of Windows; "the same command" before one is known.
std::string WithCommand(std::string_view message);

}  // namespace norvo::cli
