#include <nlohmann/json.hpp>

#include "cli/CommonOptions.h"
#include "cli/ConsoleObserver.h"
#include "cli/MoveReport.h"
#include "machines/FolderMove.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

constexpr const char* kHelp = R"(Examples:
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

/// Shows a move's work on the console.
class MoveObserver final : public WorkObserver {
 public:
  explicit MoveObserver(Console& console) : console_(console), log_(console) {}

  void OnProgress(const WorkProgress& progress) override {
    Progress& bar = console_.Bar();
    switch (progress.phase) {
      case WorkPhase::Scanning:
        return bar.Count("folders", progress.position, progress.current);
      case WorkPhase::BringingSongs:
        return bar.Bytes("bringing songs", progress.bytesDone, progress.bytesTotal, {});
      default:
        return bar.Advance(WordFor(progress.phase), progress.position, progress.count,
                           progress.current);
    }
  }
  void OnWarning(const WorkWarning& warning) override { console_.Tell(MoveWarningText(warning)); }
  void OnLog(MachineSide side, const LogFile& log) override { log_.OnLog(side, log); }

 private:
  static const char* WordFor(WorkPhase phase) {
    switch (phase) {
      case WorkPhase::Collecting:
        return "collecting";
      case WorkPhase::Checking:
        return "checking";
      case WorkPhase::Planning:
        return "planning";
      case WorkPhase::PlanningSongs:
        return "planning song";
      case WorkPhase::Restoring:
        return "restoring";
      default:
        return "verifying";
    }
  }

  Console& console_;
  ConsoleObserver log_;
};

class MigrateCommand final : public Command {
 public:
  CLI::App* AddTo(CLI::App& program, CommonArguments& common) override {
    CLI::App* const app =
        program.add_subcommand("migrate", "Move playlists and songs from one machine to another");
    app->add_option("--from", from_, "The old machine, or its disk")->type_name("DIR")->required();
    app->add_option("--to", to_, "The new machine")->type_name("DIR")->required();
    app->add_option("--work", work_, "Keeps what is written for the old machine")->type_name("DIR");
    AddMediaOptions(*app);
    app->add_flag("--dry-run", options_.dryRun, "Print the plan; write nothing on the new machine");
    app->footer(kHelp);
    AddOutputOptions(*app, common);
    return app;
  }

  Json Run(const CommonArguments& common, Console& console) override {
    options_.log = common.log;
    const MoveTerms terms{from_, to_, options_.dryRun, options_.media != MediaMode::None};
    MoveObserver observer(console);
    const FolderMove folders{from_, to_, work_, &console, {"--from", "--to", "--work"}};
    const MoveResult result = MovePlaylists(folders, options_, observer);
    for (const WorkWarning& warning : result.warnings) {
      console.KeepLeftOut(MoveWarningText(warning));
    }
    TellLeftOut(result, terms, console);
    SayMove(result, terms, console);
    return console.IsJson() ? MoveDocument(result, terms) : Json();
  }

 private:
  void AddMediaOptions(CLI::App& app) {
    CLI::Option* const copy = app.add_flag_callback(
        "--copy", [] {}, "Copy the songs (the default)");
    CLI::Option* const link = app.add_flag_callback(
        "--link", [this] { options_.media = MediaMode::Link; },
        "Link the songs where both disks are one, else copy them");
    CLI::Option* const none = app.add_flag_callback(
        "--no-media", [this] { options_.media = MediaMode::None; },
        "Leave the songs where they are");
    link->excludes(copy)->excludes(none);
    none->excludes(copy);
  }

  std::string from_;
  std::string to_;
  std::string work_;
  MoveOptions options_;
};

}  // namespace

std::unique_ptr<Command> NewMigrateCommand() {
  return std::make_unique<MigrateCommand>();
}

}  // namespace norvo::cli
