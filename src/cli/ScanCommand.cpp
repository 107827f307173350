#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/CommonOptions.h"
#include "cli/ConsoleObserver.h"
#include "cli/NamedMachine.h"
#include "cli/PathDocument.h"
#include "cli/PlaylistWords.h"
#include "cli/ScanFailure.h"
#include "model/PlaylistTypes.h"
#include "move/OpenedLibrary.h"
#include "move/ScanPlaylists.h"
#include "move/SetUpMachine.h"
#include "overlay/OverlayPlatform.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

constexpr HelpText kScanHelp = {R"(Examples:
  norvo-playlists scan --machine /mnt/old-disk
  norvo-playlists scan --machine /mnt/old-disk --json | jq '.playlists[].path'

The list stays in PlayLists.txt of the machine's data area. To a disk on which init was never run
nothing is written.)",
                                R"(Examples:
  norvo-playlists scan
  norvo-playlists scan --json > playlists.json

The list stays in PlayLists.txt of the machine's data area.)"};

void SayByType(const std::vector<ListedPlaylist>& playlists, Console& console) {
  for (const PlaylistType& type : PlaylistTypes()) {
    const auto isOfType = [&](const ListedPlaylist& listed) { return listed.type == type.code; };
    const auto count = std::count_if(playlists.begin(), playlists.end(), isOfType);
    if (count == 0) continue;
    console.Say(TypeTitle(type.code) + " (" + ToUtf8(type.name) + "): " + std::to_string(count));
    for (const ListedPlaylist& listed : playlists) {
      if (isOfType(listed)) console.Say("  " + ToUtf8(listed.path));
    }
  }
}

struct ReasonWords {
  const char* code;
  const char* text;
};

ReasonWords WordsOf(SkippedPlaylist::Reason reason) {
  switch (reason) {
    case SkippedPlaylist::Reason::UnknownType:
      return {"unknownType", "its first lines tell no playlist type"};
    case SkippedPlaylist::Reason::Unreadable:
      return {"unreadable", "it cannot be read"};
    case SkippedPlaylist::Reason::RestoredCopy:
      return {"restoredCopy", "restore or migrate has made it, and nobody has changed it"};
  }
  return {};
}

void SaySkipped(const std::vector<SkippedPlaylist>& skipped, Console& console) {
  if (skipped.empty()) return;
  console.Say("Playlists skipped: " + std::to_string(skipped.size()));
  for (const SkippedPlaylist& playlist : skipped) {
    console.Say("  " + ToUtf8(playlist.path) + ": " + WordsOf(playlist.reason).text);
  }
}

Json SkippedDocument(const std::vector<SkippedPlaylist>& skipped) {
  Json rows = Json::array();
  for (const SkippedPlaylist& playlist : skipped) {
    const ReasonWords words = WordsOf(playlist.reason);
    rows.push_back(
        {{"path", ToUtf8(playlist.path)}, {"reason", words.text}, {"reasonCode", words.code}});
  }
  return rows;
}

Json ListDocument(const std::vector<ListedPlaylist>& playlists) {
  Json list = Json::array();
  Json byType = Json::object();
  for (const PlaylistType& type : PlaylistTypes()) byType[ToUtf8(type.name)] = 0;
  for (const ListedPlaylist& listed : playlists) {
    const std::string name = TypeName(listed.type);
    byType[name] = byType[name].get<int>() + 1;
    list.push_back({{"path", ToUtf8(listed.path)}, {"type", listed.type}, {"typeName", name}});
  }
  return {{"playlists", list}, {"byType", byType}};
}

constexpr const char* kNothingWritten =
    "The disk has no settings of this program, so nothing was written to it; init writes them.";

constexpr const char* kNoLogEither =
    "The disk has no settings of this program, so nothing was written to it, and no log either; "
    "init "
    "writes them.";

/// The machine as it would be with the settings that it lacks; nothing is written to it. What is
/// odd about it is told to the observer, which must outlive it.
std::shared_ptr<Platform> AsIfSetUp(const std::shared_ptr<Platform>& machine,
                                    WorkObserver& observer) {
  machine->SetWarningSink([&observer](StringView line, WarningWeight weight) {
    observer.OnWarning(WarningOf(MachineSide::Old, line, weight));
  });
  auto supposed = std::make_shared<OverlayPlatform>(machine);
  SetUpMachine(supposed);
  return supposed;
}

class ScanCommand final : public Command {
 public:
  CLI::App* AddTo(CLI::App& program, CommonArguments& common) override {
    CLI::App* const app = program.add_subcommand("scan", "Find and list the playlists");
    AddCommonOptions(*app, common, true);
    AddWaitOption(*app, common);
    AddReadAheadOption(*app, common);
    app->footer(kScanHelp.Here());
    return app;
  }

  Json Run(const CommonArguments& common, Console& console) override {
    const auto named = OpenMachine(common, console, DocumentsUse::Unneeded);
    const auto ahead = common.noReadAhead ? nullptr : named->ReadAhead();
    const bool isBare = named->IsBareDisk();
    if (!isBare) named->Lock();
    ConsoleObserver observer(console);
    const auto machine = isBare ? AsIfSetUp(named->Platform(), observer) : named->Platform();
    const ScanResult result = NamingScanFailure(
        *machine, [&] { return ScanPlaylists(machine, {common.log && !isBare}, observer); });
    if (result.cancelled) {
      throw CommandEnded(
          "Ended before it was done. Run the same command again for the whole list.");
    }
    observer.TellSkipped(result.skipped);
    SayByType(result.playlists, console);
    console.Say("Playlists found: " + std::to_string(result.playlists.size()));
    SaySkipped(result.skipped, console);
    if (isBare) console.Note(common.log ? kNoLogEither : kNothingWritten);
    if (!result.playlists.empty() && !isBare)
      console.Say("List: " + BothPaths(*machine, result.listFile));
    if (!console.IsJson()) return {};
    Json document = ListDocument(result.playlists);
    document["skipped"] = SkippedDocument(result.skipped);
    document["folders"] = result.folders;
    if (!isBare) document["listFile"] = PathDocument(*machine, result.listFile);
    AddLog(document, result.log);
    return document;
  }
};

}  // namespace

std::unique_ptr<Command> NewScanCommand() {
  return std::make_unique<ScanCommand>();
}

}  // namespace norvo::cli
