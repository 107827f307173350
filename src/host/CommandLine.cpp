#include "host/CommandLine.h"

#include <CLI/CLI.hpp>

#include "host/Console.h"
#include "host/Shown.h"
#include "services/Utility.h"

namespace norvo::host {
namespace {

constexpr const char* kProgramFooter = R"(Examples:
  norvo-playlists migrate --from /mnt/old-pc --to /mnt/new-pc
  norvo-playlists init --machine /mnt/old-disk
  norvo-playlists scan --machine /mnt/old-disk
  norvo-playlists collect --init --machine /mnt/old-disk
  norvo-playlists show --machine /mnt/old-disk 'C:\Music\Mix.m3u'

A machine folder holds a folder per drive, named by its letter (C, D, ...), and may hold
machine.ini (types and places of the drives) and registry.reg (the machine's registry).

Exit codes: 0 done; 1 done, but something was left out, which is named on standard error;
2 wrong usage, or a machine that cannot be worked on.)";

constexpr const char* kInitFooter = R"(Examples:
  norvo-playlists init --machine /mnt/old-disk
  norvo-playlists init --machine /mnt/new-disk --role destination
  norvo-playlists init --machine /mnt/old-disk --group-root 'D:\Norvo Media\'

Writes only what is missing: settings that are there stay as they are. A group root on
another drive than C takes the product's folder, with the debug log, along to that drive.)";

constexpr const char* kScanFooter = R"(Examples:
  norvo-playlists scan --machine /mnt/old-disk
  norvo-playlists scan --machine /mnt/old-disk --json | jq '.playlists[].path'

The list stays in PlayLists.txt of the machine's data area.)";

constexpr const char* kCollectFooter = R"(Examples:
  norvo-playlists collect --machine /mnt/old-disk
  norvo-playlists collect --init --machine /mnt/old-disk --log
  norvo-playlists collect --machine /mnt/old-disk --json > report.json)";

constexpr const char* kShowFooter = R"(Examples:
  norvo-playlists show --machine /mnt/old-disk 'C:\Music\Mix.m3u'
  norvo-playlists show /mnt/old-disk/C/Music/Mix.m3u
  norvo-playlists show ~/Music/Mix.m3u --type 3

Types: 1 ASX of Windows Media Player, 2 M3U of Windows Media Player, 3 M3U of Winamp,
4 PLS of Winamp, 5 PLS of Sonique, 6 M3U of MusicMatch Jukebox.
Nothing on the disk is changed, but for the log that --log asks for. A file that lies in no
machine folder is read as if its own folder were drive C.)";

constexpr const char* kRestoreFooter = R"(Examples:
  norvo-playlists restore --machine /mnt/new-disk

Every neutral file in the documents folder and below is restored, each time anew: a second run
writes a second set of playlists. migrate remembers what it has restored.)";

constexpr const char* kVerifyFooter = R"(Examples:
  norvo-playlists verify --machine /mnt/new-disk
  norvo-playlists verify --machine /mnt/new-disk 'C:\Music\Mix.m3u'

Without PATH all playlists in the folder of the restored ones. Nothing on the machine is changed,
but for the log that --log asks for. Addresses on the
internet, shares and removable drives are not looked up. Exit code 1: a file is missing.)";

constexpr const char* kMigrateFooter = R"(Examples:
  norvo-playlists migrate --from /mnt/old-pc --to /mnt/new-pc
  norvo-playlists migrate --from /mnt/old-disk --to ~/new-pc --work ~/old-pc-data
  norvo-playlists migrate --from /mnt/old-pc --to /mnt/new-pc --dry-run

DIR of --from is a machine folder, or any folder, such as a mounted disk, which is then drive C.
To such a folder nothing is written; what the product writes goes to a drive of its own in --work,
or in a temporary folder. With --work this holds for a machine folder too.
DIR of --to is made a machine where it is none.

Run it again after an interruption, or later: what is there already stays, and playlists that were
restored are not restored again. No song and no playlist that is there is ever overwritten.
The folders must not lie in each other. --link is refused where nothing is written to --from.
Exit code 1: something that exists was left out, above all a song that no playlist of the new
machine leads to.)";

void AddOutput(CLI::App& command, CommonArguments& common) {
  command.add_flag("--log", common.log, "Write the debug log, VBLog.txt in the product's folder");
  command.add_flag("--json", common.json, "Report as one JSON document on standard output");
  command.add_flag("--quiet", common.quiet,
                   "No progress and no summary; show and verify still print their tables");
}

void AddCommon(CLI::App& command, CommonArguments& common, bool machineRequired) {
  CLI::Option* const machine =
      command.add_option("--machine", common.machine, "Folder that holds the machine");
  machine->type_name("DIR");
  if (machineRequired) machine->required();
  AddOutput(command, common);
}

struct Parser {
  CLI::App app{"Moves the playlists of a Windows machine, and their songs, to another one."};
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
    app.set_version_flag("--version", "norvo-playlists " NORVO_VERSION);
    app.footer(kProgramFooter);
    app.require_subcommand(1);
    AddInit();
    AddScan();
    AddCollect();
    AddShow();
    AddRestore();
    AddVerify();
    AddMigrate();
  }

  void AddInit() {
    CLI::App* const command = app.add_subcommand("init", "Write the settings that are missing");
    AddCommon(*command, common, true);
    command->add_option("--role", role, "What the machine is: source (the default) or destination")
        ->type_name("ROLE")
        ->check(CLI::IsMember({"source", "destination"}));
    command->add_option("--group-root", groupRoot, R"(Default: C:\My Documents\Norvo Media\)")
        ->type_name("PATH");
    command->footer(kInitFooter);
  }

  void AddScan() {
    CLI::App* const command = app.add_subcommand("scan", "Find and list the playlists");
    AddCommon(*command, common, true);
    command->footer(kScanFooter);
  }

  void AddCollect() {
    CLI::App* const command =
        app.add_subcommand("collect", "Find the playlists and write their neutral files");
    AddCommon(*command, common, true);
    command->add_flag("--init", collect.init, "First write the settings that are missing");
    command->footer(kCollectFooter);
  }

  void AddShow() {
    CLI::App* const command = app.add_subcommand("show", "Print the entries of one playlist");
    AddCommon(*command, common, false);
    command->add_option("PATH", show.path, "Path on the machine (C:\\...) or on this system")
        ->required();
    command->add_option("--type", type, "Type of the playlist: auto, or 1 to 6")
        ->type_name("TYPE")
        ->check(CLI::IsMember({"auto", "1", "2", "3", "4", "5", "6"}));
    command->footer(kShowFooter);
  }

  void AddRestore() {
    CLI::App* const command =
        app.add_subcommand("restore", "Write native playlists from the neutral files");
    AddCommon(*command, common, true);
    command->footer(kRestoreFooter);
  }

  void AddVerify() {
    CLI::App* const command =
        app.add_subcommand("verify", "Check that the songs of native playlists exist");
    AddCommon(*command, common, true);
    command->add_option("PATH", verify.paths, "Playlists: paths on the machine or on this system");
    command->footer(kVerifyFooter);
  }

  void AddMigrate() {
    CLI::App* const command =
        app.add_subcommand("migrate", "Move playlists and songs from one machine to another");
    command->add_option("--from", migrate.from, "The old machine, or its disk")
        ->type_name("DIR")
        ->required();
    command->add_option("--to", migrate.to, "The new machine")->type_name("DIR")->required();
    command->add_option("--work", migrate.work, "Keeps what is written for the old machine")
        ->type_name("DIR");
    CLI::Option* const copy = command->add_flag_callback(
        "--copy", [] {}, "Copy the songs (the default)");
    CLI::Option* const link = command->add_flag_callback(
        "--link", [this] { migrate.media = MediaMode::Link; },
        "Link the songs where both disks are one, else copy them");
    CLI::Option* const none = command->add_flag_callback(
        "--no-media", [this] { migrate.media = MediaMode::None; },
        "Leave the songs where they are");
    link->excludes(copy)->excludes(none);
    none->excludes(copy);
    command->add_flag("--dry-run", migrate.trial,
                      "Print the plan; write nothing on the new machine");
    AddOutput(*command, common);
    command->footer(kMigrateFooter);
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

}  // namespace norvo::host
