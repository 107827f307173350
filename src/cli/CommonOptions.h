#pragma once

#include <CLI/CLI.hpp>

#include "cli/Command.h"
#include "cli/SystemWords.h"

namespace norvo::cli {

/// `--log`, `--json` and `--quiet`.
void AddOutputOptions(CLI::App& command, CommonArguments& common);

/// The same, and `--machine DIR` with `--user NAME`, which the machines of this system may not
/// need, and then refuse.
void AddCommonOptions(CLI::App& command, CommonArguments& common, bool machineRequired);

/// `--wait`, of commands that write to a machine, where machines are locked.
void AddWaitOption(CLI::App& command, CommonArguments& common);

/// `--no-read-ahead`, where something reads ahead.
void AddReadAheadOption(CLI::App& command, CommonArguments& common);

/// `--machine DIR` and `--user NAME` alone; each system has its own.
void AddMachineOption(CLI::App& command, CommonArguments& common, bool required);

/// A text of the help that differs on systems whose machines are held in folders, and on those
/// where the machine is the one that the program runs on.
struct HelpText {
  const char* folders;
  const char* own;

  const char* Here() const { return kWords.machinesAreFolders ? folders : own; }
};

}  // namespace norvo::cli
