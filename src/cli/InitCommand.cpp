#include <nlohmann/json.hpp>
#include <optional>

#include "cli/CommonOptions.h"
#include "cli/ConsoleObserver.h"
#include "cli/NamedMachine.h"
#include "cli/PathDocument.h"
#include "cli/SetupReport.h"
#include "services/Utility.h"

namespace norvo::cli {
namespace {

constexpr HelpText kInitHelp = {R"(Examples:
  norvo-playlists init --machine /mnt/old-disk
  norvo-playlists init --machine /mnt/new-disk --role destination
  norvo-playlists init --machine /mnt/old-pc --group-root 'D:\Norvo Media\'

Writes only what is missing: settings that are there stay as they are. A group root on
another drive than C takes the product's folder, with the debug log, along to that drive.
Of a mounted disk, which is drive C, the registry is Norvo/registry.reg on it, and the group root
is below the documents folder of its user.)",
                                R"(Examples:
  norvo-playlists init
  norvo-playlists init --role destination
  norvo-playlists init --group-root "D:\Norvo Media"

Writes only what is missing: settings that are there stay as they are. They stand in the registry
below HKEY_LOCAL_MACHINE\SOFTWARE\Norvo; without an administrator's rights below
HKEY_CURRENT_USER, for this user alone. A group root on another drive than C takes the product's
folder, with the debug log, along to that drive.)"};

constexpr HelpText kGroupRootHelp = {R"(Default: C:\My Documents\Norvo Media\)",
                                     "Default: Norvo Media in the documents folder"};

class InitCommand final : public Command {
 public:
  CLI::App* AddTo(CLI::App& program, CommonArguments& common) override {
    app_ = program.add_subcommand("init", "Write the settings that are missing");
    AddCommonOptions(*app_, common, true);
    AddWaitOption(*app_, common);
    app_->add_option("--role", role_, "What the machine is: source (the default) or destination")
        ->type_name("ROLE")
        ->check(CLI::IsMember({"source", "destination"}));
    app_->add_option("--group-root", groupRoot_, kGroupRootHelp.Here())->type_name("PATH");
    app_->footer(kInitHelp.Here());
    return app_;
  }

  Json Run(const CommonArguments& common, Console& console) override {
    const auto machine = OpenMachine(
        common, console, groupRoot_.empty() ? DocumentsUse::Needed : DocumentsUse::Unneeded);
    machine->Lock();
    ConsoleObserver observer(console);
    const SetupResult result =
        SetUpMachine(machine->Platform(), Wishes(*machine), {common.log}, observer);
    SaySetup(result.steps, console);
    Json document = SetupDocument(result.steps);
    AddLog(document, result.log);
    return document;
  }

 private:
  SetupWishes Wishes(const NamedMachine& machine) const {
    SetupWishes wishes;
    wishes.usualGroupRoot = machine.UsualGroupRoot();
    if (app_->count("--role") > 0) {
      wishes.role = role_ == "source" ? Utility::role::kSource : Utility::role::kDestination;
    }
    if (app_->count("--group-root") > 0) wishes.groupRoot = groupRoot_;
    return wishes;
  }

  CLI::App* app_ = nullptr;
  std::string role_;
  std::string groupRoot_;
};

}  // namespace

std::unique_ptr<Command> NewInitCommand() {
  return std::make_unique<InitCommand>();
}

}  // namespace norvo::cli
