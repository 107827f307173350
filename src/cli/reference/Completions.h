#pragma once

#include <string>

#include "cli/reference/CommandTable.h"

namespace norvo::cli {

/// Scripts by which a shell completes command lines of the program. Each stands in a file of its
/// own.
std::string BashCompletion(const CommandTable& table);
std::string ZshCompletion(const CommandTable& table);
std::string FishCompletion(const CommandTable& table);

}  // namespace norvo::cli
