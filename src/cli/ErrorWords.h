#pragma once

#include <string>

#include "move/MoveError.h"
#include "text/Text.h"

namespace norvo::cli {

/// What is wrong and what to do about it, for the person who has given a command.
std::string TextOf(const MoveError& error);

/// An error's description for a line that begins with the path: without it, where it ends with it.
std::string ReasonBeside(StringView path, StringView description);

}  // namespace norvo::cli
