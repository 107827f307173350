#include <nlohmann/json.hpp>

#include "cli/CollectReport.h"
#include "cli/CommonOptions.h"
#include "cli/ConsoleObserver.h"
#include "cli/NamedMachine.h"
#include "cli/PathDocument.h"
#include "cli/PlaylistWords.h"
#include "cli/ScanFailure.h"
#include "cli/SetupReport.h"
#include "move/CollectPlaylists.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

constexpr HelpText kCollectHelp = {R"(Examples:
  norvo-playlists collect --machine /mnt/old-disk
  norvo-playlists collect --init --machine /mnt/old-disk --log
  norvo-playlists collect --machine /mnt/old-disk --json > report.json)",
                                   R"(Examples:
  norvo-playlists collect
  norvo-playlists collect --init --log
  norvo-playlists collect --json > report.json)"};

/// Tells at once what is left out.
class CollectObserver final : public ConsoleObserver {
 public:
  /// `ahead` hears of the progress, too; it may be null.
  CollectObserver(Console& console, WorkObserver* ahead)
      : ConsoleObserver(console), ahead_(ahead) {}

  void OnProgress(const WorkProgress& progress) override {
    if (ahead_ != nullptr) ahead_->OnProgress(progress);
    ConsoleObserver::OnProgress(progress);
  }
  void OnDropped(const CollectedPlaylist& playlist, const DroppedItem& drop) override {
    Out().LeftOut(ToUtf8(playlist.path) + ": " + LeftOutText(drop));
  }
  void OnCollected(const CollectedPlaylist& playlist) override {
    const std::string failure = FailureText(playlist);
    if (!failure.empty() && !IsToldUnread(playlist.path)) {
      Out().LeftOut(ToUtf8(playlist.path) + ": " + failure);
    }
  }
  void OnReplaced(const CollectedPlaylist& earlier, const CollectedPlaylist& later) override {
    Out().LeftOut(ToUtf8(earlier.path) + ": its neutral file is replaced by that of " +
                  ToUtf8(later.path) + ", which has the same name: rename one of the two");
  }

 private:
  WorkObserver* ahead_;
};

/// The queue stops at a playlist that it cannot count; those behind it are never begun.
void TellUnfinished(const CollectResult& result, Console& console) {
  for (const CollectedPlaylist& playlist : result.playlists) {
    if (playlist.outcome) continue;
    console.LeftOut(ToUtf8(playlist.path) +
                    ": not processed, and the queue ended here: it may have too many entries; "
                    "move it away and run again");
  }
  for (std::size_t i = result.playlists.size(); i < result.scan.playlists.size(); ++i) {
    console.LeftOut(ToUtf8(result.scan.playlists[i].path) +
                    ": not processed, the queue ended before: see the warning above");
  }
}

class CollectCommand final : public Command {
 public:
  CLI::App* AddTo(CLI::App& program, CommonArguments& common) override {
    CLI::App* const app =
        program.add_subcommand("collect", "Find the playlists and write their neutral files");
    AddCommonOptions(*app, common, true);
    AddWaitOption(*app, common);
    AddReadAheadOption(*app, common);
    app->add_flag("--init", init_, "First write the settings that are missing");
    app->footer(kCollectHelp.Here());
    return app;
  }

  Json Run(const CommonArguments& common, Console& console) override {
    const auto named =
        OpenMachine(common, console, init_ ? DocumentsUse::Needed : DocumentsUse::Unneeded);
    named->Lock();
    const std::shared_ptr<Platform> machine = named->Platform();
    const auto ahead = common.noReadAhead ? nullptr : named->ReadAhead();
    CollectObserver observer(console, ahead.get());
    SetupResult setup;
    if (init_) {
      SetupWishes wishes;
      wishes.usualGroupRoot = named->UsualGroupRoot();
      setup = SetUpMachine(machine, wishes, {}, observer);
      SaySetup(setup.steps, console);
    }
    const CollectResult result = NamingScanFailure(
        *machine, [&] { return CollectPlaylists(machine, {common.log}, observer); });
    if (result.cancelled) {
      throw CommandEnded(
          "Ended before it was done. What is done stays; run the same command again.");
    }
    observer.TellSkipped(result.scan.skipped);
    TellUnfinished(result, console);
    SayCollected(result, *machine, console);
    if (!console.IsJson()) return {};
    Json document = CollectedDocument(result, *machine);
    AddLog(document, result.log);
    if (init_) document["init"] = SetupDocument(setup.steps);
    return document;
  }

 private:
  bool init_ = false;
};

}  // namespace

std::unique_ptr<Command> NewCollectCommand() {
  return std::make_unique<CollectCommand>();
}

}  // namespace norvo::cli
