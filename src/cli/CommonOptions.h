#pragma once

#include <CLI/CLI.hpp>

#include "cli/Command.h"
#include "machines/ThisPc.h"

namespace norvo::cli {

/// `--log`, `--json` and `--quiet`.
void AddOutputOptions(CLI::App& command, CommonArguments& common);

/// The same, and `--machine DIR` with `--user NAME`. Where this PC is a machine, none need be
/// named.
void AddCommonOptions(CLI::App& command, CommonArguments& common, bool machineRequired);

/// `--wait`, of commands that write to a machine.
void AddWaitOption(CLI::App& command, CommonArguments& common);

/// `--no-read-ahead`.
void AddReadAheadOption(CLI::App& command, CommonArguments& common);

/// `--machine DIR` and `--user NAME` alone.
void AddMachineOption(CLI::App& command, CommonArguments& common, bool required);

/// The folder that a person means. On Windows a drive without a separator, such as "E:", would be
/// whatever folder some program has left current there; it is the whole drive. "\\?\" before a
/// drive, by which a path is taken as it is, is left out: here every path is.
std::string NamedFolder(const std::string& text);

/// Adds an option for a folder, which may not be empty: left out by mistake, as a variable without
/// a value is, it would mean something else.
CLI::Option* AddFolderOption(CLI::App& command, const std::string& name, std::string& value,
                             const char* what);

/// A text of the help that differs on systems where all machines are held in folders, and on those
/// where this PC is one.
struct HelpText {
  const char* folders;
  const char* windows;

  const char* Here() const { return IsThisPcAMachine() ? windows : folders; }
};

}  // namespace norvo::cli
