#pragma once

#include <string>

#include "cli/reference/CommandTable.h"

namespace norvo::cli {

/// The manual page of section 1, in the language of man(7). `version` is the program's.
std::string ManualPage(const CommandTable& table, const std::string& version);

}  // namespace norvo::cli
