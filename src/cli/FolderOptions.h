#pragma once

#include <CLI/CLI.hpp>

#include "cli/CommandLine.h"

namespace norvo {

/// Options about machines that are held in folders; a system without such machines refuses them,
/// and leaves them out of its help.

/// `--machine DIR`.
void AddMachineOption(CLI::App& command, CommonArguments& common, bool required);

/// The command `migrate`, but for its options about the output. It belongs to `program`.
CLI::App* AddMigrateCommand(CLI::App& program, MigrateArguments& migrate);

}  // namespace norvo
