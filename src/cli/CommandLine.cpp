#include "cli/CommandLine.h"

#include <algorithm>

#include "cli/Commands.h"
#include "cli/CommonOptions.h"
#include "cli/HelpFormatter.h"
#include "cli/TerminalText.h"
#include "cli/UsageWords.h"
#include "cli/Version.h"

namespace norvo::cli {
namespace {

constexpr const char* kAbout =
    "Moves the playlists of a Windows PC, and their songs, to another one.";

constexpr HelpText kExamples = {R"(Examples:
  norvo-playlists migrate --from /mnt/old-pc --to /mnt/new-pc
  norvo-playlists migrate --from /mnt/old-disk --to /mnt/new-disk
  norvo-playlists init --machine /mnt/old-disk
  norvo-playlists scan --machine /mnt/old-disk
  norvo-playlists collect --init --machine /mnt/old-disk
  norvo-playlists show --machine /mnt/old-disk 'C:\Music\Mix.m3u')",
                                R"(Examples:
  norvo-playlists migrate --to E:\Move        on the old PC, with a USB disk
  norvo-playlists migrate --from E:\Move      on the new PC, with the same one
  norvo-playlists migrate --from E:\          on the new PC, with the old disk
  norvo-playlists scan
  norvo-playlists show C:\Music\Mix.m3u
  norvo-playlists verify

A machine that is not named is this PC: its drives, its registry, its players.)"};

constexpr const char* kDirAndCodes = R"(

DIR of --machine, --from and --to is a disk of a Windows PC, which is drive C then, or a machine
folder: it holds a folder per drive, named by its letter (C, D, ...), and nothing else but
machine.ini (types and places of the drives) and registry.reg (the machine's registry). With a
machine.ini that tells of a machine it may hold anything.

Exit codes: 0 done; 1 done, but something was left out, which is named on standard error;
2 wrong usage, or a machine that cannot be worked on; 130 ended by Ctrl+C.)";

}  // namespace

CommandLine::CommandLine() : app_(kAbout) {
  app_.name("norvo-playlists");
  app_.formatter(std::make_shared<HelpFormatter>());
  // "/Music/Mix.m3u" is a path, on Windows too.
  app_.allow_windows_style_options(false);
  app_.set_version_flag("-V,--version", VersionText(), "Tell version, commit and platform");
  app_.footer(std::string(kExamples.Here()) + kDirAndCodes);
  app_.require_subcommand(1);
  for (const NewCommand make : AllCommands()) {
    Row& row = rows_.emplace_back();
    row.command = make();
    row.app = row.command->AddTo(app_, common_);
  }
}

bool CommandLine::Parse(const std::vector<std::string>& words, std::ostream& out, std::ostream& err,
                        int& code) {
  try {
    app_.parse(std::vector<std::string>(words.rbegin(), words.rend()));
    return true;
  } catch (const CLI::ParseError& error) {
    const bool isHelp = error.get_exit_code() == static_cast<int>(CLI::ExitCodes::Success);
    code = isHelp ? exit_code::kDone : exit_code::kUnusable;
    if (isHelp) {
      app_.exit(error, out, err);
    } else {
      err << "norvo-playlists: " << TerminalText(UsageText(app_, error))
          << "\nRun norvo-playlists --help, or norvo-playlists COMMAND --help.\n";
    }
    return false;
  }
}

std::string CommandLine::Name() const {
  return ChosenRow().app->get_name();
}

const CommandLine::Row& CommandLine::ChosenRow() const {
  return *std::find_if(rows_.begin(), rows_.end(),
                       [](const Row& row) { return row.app->parsed(); });
}

}  // namespace norvo::cli
