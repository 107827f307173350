#include "cli/Commands.h"

#include "machines/ThisPc.h"

namespace norvo::cli {

// Each stands in the file of its command.
std::unique_ptr<Command> NewInitCommand();
std::unique_ptr<Command> NewScanCommand();
std::unique_ptr<Command> NewCollectCommand();
std::unique_ptr<Command> NewShowCommand();
std::unique_ptr<Command> NewRestoreCommand();
std::unique_ptr<Command> NewVerifyCommand();
std::unique_ptr<Command> NewMigrateCommand();

namespace {

constexpr NewCommand kCommands[] = {NewInitCommand,   NewScanCommand,    NewCollectCommand,
                                    NewShowCommand,   NewRestoreCommand, NewVerifyCommand,
                                    NewMigrateCommand};

}  // namespace

bool Command::IsOnThisPc(const CommonArguments& common) const {
  return common.machine.empty() && IsThisPcAMachine();
}

std::span<const NewCommand> AllCommands() {
  return kCommands;
}

}  // namespace norvo::cli
