#include "cli/FolderOptions.h"

namespace norvo {
namespace {

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

}  // namespace

void AddMachineOption(CLI::App& command, CommonArguments& common, bool required) {
  command.add_option("--machine", common.machine, "Folder that holds the machine")
      ->type_name("DIR")
      ->required(required);
}

CLI::App* AddMigrateCommand(CLI::App& program, MigrateArguments& migrate) {
  CLI::App* const command =
      program.add_subcommand("migrate", "Move playlists and songs from one machine to another");
  command->add_option("--from", migrate.from, "The old machine, or its disk")
      ->type_name("DIR")
      ->required();
  command->add_option("--to", migrate.to, "The new machine")->type_name("DIR")->required();
  command->add_option("--work", migrate.work, "Keeps what is written for the old machine")
      ->type_name("DIR");
  CLI::Option* const copy = command->add_flag_callback(
      "--copy", [] {}, "Copy the songs (the default)");
  CLI::Option* const link = command->add_flag_callback(
      "--link", [&migrate] { migrate.media = MediaMode::Link; },
      "Link the songs where both disks are one, else copy them");
  CLI::Option* const none = command->add_flag_callback(
      "--no-media", [&migrate] { migrate.media = MediaMode::None; },
      "Leave the songs where they are");
  link->excludes(copy)->excludes(none);
  none->excludes(copy);
  command->add_flag("--dry-run", migrate.trial, "Print the plan; write nothing on the new machine");
  command->footer(kMigrateFooter);
  return command;
}

}  // namespace norvo
