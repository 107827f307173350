#pragma once

#include <string>

#include "move/MoveError.h"

namespace norvo::cli {

/// What is wrong and what to do about it, for the person who has given a command.
std::string TextOf(const MoveError& error);

}  // namespace norvo::cli
