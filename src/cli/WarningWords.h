#pragma once

#include <string>

#include "move/WorkObserver.h"

namespace norvo::cli {

/// What was not done or found wrong, in a line for people. `library` goes in front of what the
/// library itself tells: "Old machine: ".
std::string TextOf(const WorkWarning& warning, const char* library = "Warning: ");

/// Whether it names a file that is there and cannot be read.
bool IsOfUnreadFile(const WorkWarning& warning);

/// What the library did not do, without its own terms: "C:\Music: this folder cannot be listed:
/// Permission denied".
std::string PlainText(const Warning& warning);

}  // namespace norvo::cli
