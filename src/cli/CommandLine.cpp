#include "cli/CommandLine.h"

#include <CLI/CLI.hpp>

#include "cli/Console.h"
#include "cli/FolderOptions.h"
#include "cli/HelpTexts.h"
#include "cli/Shown.h"
#include "services/Utility.h"

namespace norvo {
namespace {

void AddOutput(CLI::App& command, CommonArguments& common) {
  command.add_flag("--log", common.log, "Write the debug log, VBLog.txt in the product's folder");
  command.add_flag("--json", common.json, "Report as one JSON document on standard output");
  command.add_flag("--quiet", common.quiet,
                   "No progress and no summary; show and verify still print their tables");
}

void AddCommon(CLI::App& command, CommonArguments& common, bool machineRequired) {
  AddMachineOption(command, common, machineRequired);
  AddOutput(command, common);
}

struct Parser {
  CLI::App app{kHelp.about};
  CommonArguments common;
  InitArguments init;
  CollectArguments collect;
  ShowArguments show;
  std::string role;
  std::string groupRoot;
  std::string type = "auto";
  VerifyArguments verify;
  MigrateArguments migrate;

  Parser() {
    app.name("norvo-playlists");
    // "/Music/Mix.m3u" is a path, on Windows too.
    app.allow_windows_style_options(false);
    app.set_version_flag("--version", "norvo-playlists " NORVO_VERSION);
    app.footer(kHelp.program);
    app.require_subcommand(1);
    AddInit();
    AddScan();
    AddCollect();
    AddShow();
    AddRestore();
    AddVerify();
    AddOutput(*AddMigrateCommand(app, migrate), common);
  }

  void AddInit() {
    CLI::App* const command = app.add_subcommand("init", "Write the settings that are missing");
    AddCommon(*command, common, true);
    command->add_option("--role", role, "What the machine is: source (the default) or destination")
        ->type_name("ROLE")
        ->check(CLI::IsMember({"source", "destination"}));
    command->add_option("--group-root", groupRoot, R"(Default: C:\My Documents\Norvo Media\)")
        ->type_name("PATH");
    command->footer(kHelp.init);
  }

  void AddScan() {
    CLI::App* const command = app.add_subcommand("scan", "Find and list the playlists");
    AddCommon(*command, common, true);
    command->footer(kHelp.scan);
  }

  void AddCollect() {
    CLI::App* const command =
        app.add_subcommand("collect", "Find the playlists and write their neutral files");
    AddCommon(*command, common, true);
    command->add_flag("--init", collect.init, "First write the settings that are missing");
    command->footer(kHelp.collect);
  }

  void AddShow() {
    CLI::App* const command = app.add_subcommand("show", "Print the entries of one playlist");
    AddCommon(*command, common, false);
    command->add_option("PATH", show.path, kHelp.showPath)->required();
    command->add_option("--type", type, "Type of the playlist: auto, or 1 to 6")
        ->type_name("TYPE")
        ->check(CLI::IsMember({"auto", "1", "2", "3", "4", "5", "6"}));
    command->footer(kHelp.show);
  }

  void AddRestore() {
    CLI::App* const command =
        app.add_subcommand("restore", "Write native playlists from the neutral files");
    AddCommon(*command, common, true);
    command->footer(kHelp.restore);
  }

  void AddVerify() {
    CLI::App* const command =
        app.add_subcommand("verify", "Check that the songs of native playlists exist");
    AddCommon(*command, common, true);
    command->add_option("PATH", verify.paths, kHelp.verifyPath);
    command->footer(kHelp.verify);
  }

  CommandLine Result() {
    const std::string name = app.get_subcommands().front()->get_name();
    if (name == "init") return {common, Init()};
    if (name == "scan") return {common, ScanArguments()};
    if (name == "collect") return {common, collect};
    if (name == "restore") return {common, RestoreArguments()};
    if (name == "verify") return {common, verify};
    if (name == "migrate") return {common, migrate};
    show.type = type == "auto" ? 0 : std::stoi(type);
    return {common, show};
  }

  InitArguments Init() {
    const CLI::App& command = *app.get_subcommand("init");
    if (command.count("--role") > 0) {
      init.role = role == "source" ? Utility::role::kSource : Utility::role::kDestination;
    }
    if (command.count("--group-root") > 0) init.groupRoot = groupRoot;
    return init;
  }
};

void TellWrongUsage(const CLI::ParseError& error, std::ostream& err) {
  err << "norvo-playlists: " << Shown(error.what())
      << "\nRun norvo-playlists --help, or norvo-playlists COMMAND --help.\n";
}

}  // namespace

std::optional<CommandLine> ParseCommandLine(const std::vector<std::string>& words,
                                            std::ostream& out, std::ostream& err, int& code) {
  Parser parser;
  try {
    parser.app.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    return parser.Result();
  } catch (const CLI::ParseError& error) {
    const bool isHelp = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success);
    if (isHelp) {
      parser.app.exit(error, out, err);
    } else {
      TellWrongUsage(error, err);
    }
    code = isHelp ? exit_code::kDone : exit_code::kUnusable;
    return std::nullopt;
  }
}

}  // namespace norvo
