#pragma once

#include <memory>
#include <span>

#include "cli/Command.h"

namespace norvo::cli {

/// Makes one command.
using NewCommand = std::unique_ptr<Command> (*)();

/// All commands, in the order of the help.
std::span<const NewCommand> AllCommands();

}  // namespace norvo::cli
