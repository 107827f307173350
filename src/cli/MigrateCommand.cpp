#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>

#include "cli/CommonOptions.h"
#include "cli/ConsoleObserver.h"
#include "cli/FolderWords.h"
#include "cli/LockWords.h"
#include "cli/MovePage.h"
#include "cli/MoveProgress.h"
#include "cli/MoveReport.h"
#include "cli/NextSteps.h"
#include "cli/PageFile.h"
#include "cli/ReadAheadObserver.h"
#include "machines/FolderMove.h"
#include "platform/files/DiskPath.h"
#include "platform/files/ShownTime.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo::cli {
namespace {

constexpr HelpText kMigrateHelp = {R"(Examples:
  norvo-playlists migrate --from /mnt/old-pc --to /mnt/new-pc
  norvo-playlists migrate --from /mnt/old-disk --to /mnt/new-disk --user Ann
  norvo-playlists migrate --from /mnt/old-disk --drive D=/mnt/old-d --to ~/new
  norvo-playlists migrate --from /mnt/old-disk --to ~/new --work ~/old-pc-data
  norvo-playlists migrate --from /mnt/old-pc --to /mnt/new-pc --dry-run

DIR of --from and --to is a machine folder, or any other, such as a mounted disk, which is then
drive C; which one it was taken for is told. To a disk of --from nothing is written; what the product
writes goes to a drive of its own in --work, or in a temporary folder. With --work this holds for a
machine folder too. --drive D=DIR adds a second disk to that of an old PC. An empty or missing folder
of --to is made a machine; --to-drive D makes any
folder drive D of one. On a disk of --to the songs and lists go to Norvo Media in the documents
folder of its user, and the registry to Norvo/registry.reg, which is to be imported on the new PC.

Run it again after an interruption, or later: what is there already stays, and playlists that were
restored are not restored again. No song and no playlist that is there is ever overwritten.
While it runs no other run may write to its machines: that one ends at once, or waits with --wait.
The folders must not lie in each other. --link is refused where nothing is written to --from.
Exit code 1: something that exists was left out, above all a song that no playlist of the new
machine leads to.)",
                                   R"(Examples:
  norvo-playlists migrate --to E:\Move        on the old PC, with a USB disk
  norvo-playlists migrate --from E:\Move      on the new PC, with the same one
  norvo-playlists migrate --from E:\          on the new PC, with the old disk
  norvo-playlists migrate --from E:\ --drive D=F:\       with two of them
  norvo-playlists migrate --from E:\Move --dry-run

Without --from the old machine is this PC, without --to the new one is. To a PC that lists are taken
from nothing is written. DIR is a machine folder, as --to makes one, or any other, such as a disk,
which is then drive C of a machine; which one it was taken for is told. To a disk of --from nothing
is written either; what the product writes goes to a drive of its own in --work, or in a temporary
folder. An empty or missing folder of --to is made a machine; --to-drive D makes any folder drive D
of one. --drive D=DIR adds a second disk to that of an old PC. The songs and lists go to Norvo Media
in the documents folder. A move to this PC needs no administrator; a setting that needs one is named.

Run it again after an interruption, or later: what is there already stays, and playlists that were
restored are not restored again. No song and no playlist that is there is ever overwritten.
While it runs no other run may write to its machines: that one ends at once, or waits with --wait.
The folders must not lie in each other. --link is refused where nothing is written to --from.
Exit code 1: something that exists was left out, above all a song that no playlist of the new
machine leads to.)"};

constexpr const char* kThisPc = "this PC";

/// The move is done, whatever becomes of its page.
void WritePage(PageFile& file, const std::string& page, Console& console) {
  try {
    file.Write(page);
  } catch (const CommandError& error) {
    console.LeftOut(error.what());
  }
}

/// Shows a move's work on the console.
class MoveObserver final : public WorkObserver {
 public:
  explicit MoveObserver(Console& console) : console_(console), log_(console) {}

  /// Reads ahead of the collecting, until that is over.
  void ReadAhead(HostedPlatform& source) { ahead_.emplace(source); }

  bool IsCancelled() override { return log_.IsCancelled(); }
  void OnProgress(const WorkProgress& progress) override {
    if (ahead_) ahead_->OnProgress(progress);
    if (progress.phase > WorkPhase::Collecting) ahead_.reset();
    ShowProgress(progress, console_.Bar());
  }
  void OnWarning(const WorkWarning& warning) override {
    if (!console_.IsReportSeen()) console_.Tell(MoveWarningText(warning));
  }
  void OnLog(MachineSide side, const LogFile& log) override { log_.OnLog(side, log); }

 private:
  Console& console_;
  ConsoleObserver log_;
  std::optional<ReadAheadObserver> ahead_;
};

/// Tells what the folders were taken as, where they could be meant otherwise.
void TellOpened(const OpenedFolders& opened, Console& console) {
  if (opened.from.IsDisk()) console.Note(TextOf(opened.from));
  const std::string to = TextOf(opened.to);
  if (!to.empty()) console.Note(to);
}

/// Of "D=DIR".
OtherDrive DriveOf(const std::string& text) {
  const std::size_t at = text.find('=');
  if (at == std::string::npos || at + 1 == text.size()) {
    throw CommandError("--drive " + text + ": name a letter and a folder, such as D=DIR.");
  }
  return {text.substr(0, at), ToSystemPath(NamedFolder(text.substr(at + 1)))};
}

class MigrateCommand final : public Command {
 public:
  CLI::App* AddTo(CLI::App& program, CommonArguments& common) override {
    CLI::App* const app =
        program.add_subcommand("migrate", "Move playlists and songs from one machine to another");
    const bool isRequired = !IsThisPcAMachine();
    const char* const from[] = {"The old machine, or its disk; else it is this PC",
                                "The old machine, or its disk"};
    const char* const to[] = {"The new machine, or its disk; else it is this PC",
                              "The new machine, or its disk"};
    AddFolderOption(*app, "--from", from_, from[isRequired])->required(isRequired);
    AddFolderOption(*app, "--to", to_, to[isRequired])->required(isRequired);
    app->add_option("--drive", drives_, "One more disk of the old machine, such as D=DIR")
        ->type_name("LETTER=DIR")
        ->allow_extra_args(false);
    AddPlaceOptions(*app);
    AddFolderOption(*app, "--work", work_, "Keeps what is written for the old machine");
    AddMediaOptions(*app);
    AddReportOptions(*app);
    app->add_flag("--dry-run", options_.dryRun, "Print the plan; write nothing on the new machine");
    app->footer(kMigrateHelp.Here());
    AddWaitOption(*app, common);
    AddReadAheadOption(*app, common);
    AddOutputOptions(*app, common);
    return app;
  }

  bool IsOnThisPc(const CommonArguments&) const override { return to_.empty(); }
  bool IsFromThisPc(const CommonArguments&) const override { return from_.empty(); }

  Json Run(const CommonArguments& common, Console& console) override {
    options_.log = common.log;
    const MoveTerms terms{from_.empty() ? kThisPc : from_, to_.empty() ? kThisPc : to_,
                          options_.dryRun, options_.media != MediaMode::None, verbose_};
    std::optional<PageFile> page;
    if (!page_.empty()) page.emplace(page_);
    OpenedFolders opened;  // with the old machine, which the observer reads ahead of
    MoveObserver observer(console);
    const bool readsAhead = !common.noReadAhead;
    const MoveResult result = MovePlaylists(
        Folders(common, console, opened, readsAhead ? &observer : nullptr), options_, observer);
    TellLeftOut(result, console);
    for (const StyledLine& line : MoveReport(result, terms, console.Width())) console.Say(line);
    if (result.cancelled) {
      console.End(
          "Ended before it was done. What is done stays; run the same command again to go on.");
    } else if (!options_.dryRun) {
      SayNextSteps(result, opened.registry, console);
    }
    if (page) WritePage(*page, MovePage(result, terms, ShownNow()), console);
    return console.IsJson() ? MoveDocument(result, terms) : Json();
  }

 private:
  FolderMove Folders(const CommonArguments& common, Console& console, OpenedFolders& opened,
                     MoveObserver* readingAhead) const {
    FolderMove folders;
    folders.from = ToSystemPath(from_);
    for (const std::string& drive : drives_) folders.fromDrives.push_back(DriveOf(drive));
    folders.to = ToSystemPath(to_);
    folders.toDrive = toDrive_;
    folders.user = user_;
    folders.documents = documents_;
    folders.groupRoot = groupRoot_;
    folders.work = ToSystemPath(work_);
    folders.messages = &console;
    folders.lock = LockWishesOf(common, console);
    folders.names = {"--from", "--to", "--work"};
    folders.onOpened = [&, readingAhead](const OpenedFolders& taken) {
      opened = taken;
      TellOpened(taken, console);
      if (readingAhead != nullptr && taken.source) readingAhead->ReadAhead(*taken.source);
    };
    return folders;
  }

  void AddPlaceOptions(CLI::App& app) {
    app.add_option("--to-drive", toDrive_, "--to is this drive of the new machine, such as D")
        ->type_name("LETTER");
    app.add_option("--user", user_, "Whose documents folder takes them, of several users of --to")
        ->type_name("NAME");
    app.add_option("--documents", documents_, R"(The new documents folder, such as C:\Documents)")
        ->type_name("PATH");
    app.add_option("--group-root", groupRoot_,
                   "Takes the songs and lists: a path of the new machine")
        ->type_name("PATH");
  }
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
    app.add_flag("--all-music", options_.allMusic, "Bring the songs that no playlist names, too");
  }
  void AddReportOptions(CLI::App& app) {
    app.add_flag("--verbose", verbose_, "Report each song, and all that was done for it");
    app.add_option("--report", page_, "Write the report as a page to keep, too")
        ->type_name("FILE.html");
  }

  std::string from_;
  std::vector<std::string> drives_;
  std::string to_;
  std::string toDrive_;
  std::string user_;
  std::string documents_;
  std::string groupRoot_;
  std::string work_;
  std::string page_;
  bool verbose_ = false;
  MoveOptions options_;
};

}  // namespace

std::unique_ptr<Command> NewMigrateCommand() {
  return std::make_unique<MigrateCommand>();
}

}  // namespace norvo::cli
