#pragma once

#include <string>

#include "move/MoveError.h"
#include "text/Text.h"

namespace norvo::cli {

/// What is wrong and what to do about it, for the person who has given a command.
std::string TextOf(const MoveError& error);

/// An error's description without the path at its end, which its reader has just been told.
std::string WithoutPath(std::string description, const std::string& path);

/// Whether something could not be read because the system has denied it, as far as a reason tells.
bool MayBeDenied(const String& reason);

/// What to do about a file that another program may keep to itself.
inline constexpr const char* kFileAdvice =
    "Close the program that uses it, see that it may be read and written, and run again";

}  // namespace norvo::cli
