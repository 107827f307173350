#include <nlohmann/json.hpp>
#include <string>

#include "cli/Commands.h"
#include "cli/FolderOptions.h"

/// Machines that are held in folders, as far as they are refused.
namespace norvo {
namespace {

constexpr const char* kRefusal =
    "machines held in folders, and the move from one machine to another, need the program for "
    "Linux; this one works on the machine that it runs on";

}  // namespace

void AddMachineOption(CLI::App& command, CommonArguments&, bool) {
  const auto refuse = [](const std::string&) { throw CLI::ValidationError("--machine", kRefusal); };
  command.add_option_function<std::string>("--machine", refuse)
      ->expected(0, 1)
      ->group("");  // no group, no help
}

CLI::App* AddMigrateCommand(CLI::App& program, MigrateArguments&) {
  CLI::App* const command = program.add_subcommand("migrate");
  command->group("");
  command->set_help_flag();
  command->allow_extras();
  return command;
}

Json RunMigrate(const CommonArguments&, const MigrateArguments&, Console&) {
  throw HostError(std::string("migrate: ") + kRefusal + ".");
}

}  // namespace norvo
