#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>

#include "cli/CommonOptions.h"
#include "cli/ConsoleObserver.h"
#include "cli/NamedMachine.h"
#include "cli/PathDocument.h"
#include "cli/PlaylistWords.h"
#include "cli/WarningWords.h"
#include "library/Library.h"
#include "model/PlaylistTypes.h"
#include "move/ProductSettings.h"
#include "move/RestorePlaylists.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

constexpr HelpText kRestoreHelp = {R"(Examples:
  norvo-playlists restore --machine /mnt/new-disk

Every neutral file in the documents folder and below is restored, each time anew: a second run
writes a second set of playlists. migrate remembers what it has restored.)",
                                   R"(Examples:
  norvo-playlists restore

Every neutral file in the documents folder and below is restored, each time anew: a second run
writes a second set of playlists.)"};

/// Tells at once what is left out.
class RestoreObserver final : public ConsoleObserver {
 public:
  using ConsoleObserver::ConsoleObserver;

  void OnRestored(const RestoredPlaylist& playlist) override {
    if (FindPlaylistType(playlist.type) == nullptr) {
      Out().LeftOut(ToUtf8(playlist.genericFile) + ": it tells no known type of playlist");
    } else if (playlist.entries == 0) {
      Out().LeftOut(ToUtf8(playlist.genericFile) + ": no entry of it could be read");
    }
  }
  void OnNative(const NativePlaylist& native) override {
    if (native.replaced > 0) Out().LeftOut(ToUtf8(native.path) + ReplacedText(native.replaced));
    if (native.whole) return;
    Out().LeftOut(ToUtf8(native.path) +
                  ": not written to its end: see that the disk is writable and not full");
  }

 private:
  static std::string ReplacedText(std::size_t lines) {
    return ": " + std::to_string(lines) + (lines == 1 ? " line" : " lines") +
           " of it cannot hold all letters of their names, and have \"?\" in their place; "
           "migrate gives such songs plain names and writes a list that holds all letters";
  }
};

/// Says where neutral files were sought, and where `collect` would have put some.
void TellNothingFound(const std::shared_ptr<Platform>& machine, Console& console) {
  const std::unique_ptr<Component> library = OpenLibrary(machine);
  const String documents = machine->Shell().SpecialFolderPath(ShellFolders::kDocuments);
  const String dataArea = DataAreaOf(ReadProductSettings(*library));
  console.LeftOut("Nothing to restore: no neutral file in " + BothPaths(*machine, documents) +
                  " and below. collect would have put them into " + BothPaths(*machine, dataArea) +
                  "; those of another machine belong anywhere in the former.");
}

template <class Visit>
void ForEachNative(const RestoreResult& result, Visit&& visit) {
  for (const RestoredPlaylist& playlist : result.playlists) {
    for (const NativePlaylist& native : playlist.natives) visit(native);
  }
}

void SayRestored(const RestoreResult& result, Console& console) {
  std::map<std::int32_t, std::size_t> byType;
  ForEachNative(
      result, [&](const NativePlaylist& native) { byType[native.type] += native.whole ? 1U : 0U; });
  console.Say("Neutral files restored:  " + std::to_string(result.playlists.size()));
  for (const auto& [type, count] : byType) {
    const std::string title = "  " + TypeTitle(type) + ":";
    console.Say(title + std::string(title.size() < 32 ? 32 - title.size() : 1, ' ') +
                std::to_string(count));
  }
  ForEachNative(result,
                [&](const NativePlaylist& native) { console.Say("    " + ToUtf8(native.path)); });
  console.Say("Player settings changed: " + std::to_string(result.settings.size()));
  for (const PlayerSetting& setting : result.settings) console.Say("  " + SettingText(setting));
}

Json RestoredDocument(const RestoreResult& result) {
  Json neutralFiles = Json::array();
  Json natives = Json::array();
  for (const RestoredPlaylist& playlist : result.playlists) {
    neutralFiles.push_back(ToUtf8(playlist.genericFile));
  }
  ForEachNative(result, [&](const NativePlaylist& native) {
    natives.push_back({{"path", ToUtf8(native.path)},
                       {"typeName", TypeName(native.type)},
                       {"whole", native.whole},
                       {"replaced", native.replaced}});
  });
  return {{"neutralFiles", neutralFiles},
          {"natives", natives},
          {"settings", SettingsDocument(result.settings)}};
}

class RestoreCommand final : public Command {
 public:
  CLI::App* AddTo(CLI::App& program, CommonArguments& common) override {
    CLI::App* const app =
        program.add_subcommand("restore", "Write native playlists from the neutral files");
    AddCommonOptions(*app, common, true);
    AddWaitOption(*app, common);
    app->footer(kRestoreHelp.Here());
    return app;
  }

  Json Run(const CommonArguments& common, Console& console) override {
    const auto named = OpenMachine(common, console, DocumentsUse::Needed);
    named->Lock();
    const std::shared_ptr<Platform> machine = named->Platform();
    RestoreObserver observer(console);
    const RestoreResult result = RestorePlaylists(machine, {common.log}, observer);
    if (result.cancelled) {
      throw CommandEnded(
          "Ended before it was done. The lists that are written stay; the next run "
          "writes all of them anew.");
    }
    const bool isUnreadTold =
        std::any_of(result.warnings.begin(), result.warnings.end(), IsOfUnreadFile);
    if (result.playlists.empty() && !isUnreadTold) TellNothingFound(machine, console);
    SayRestored(result, console);
    if (!console.IsJson()) return {};
    Json document = RestoredDocument(result);
    AddLog(document, result.log);
    return document;
  }
};

}  // namespace

std::unique_ptr<Command> NewRestoreCommand() {
  return std::make_unique<RestoreCommand>();
}

}  // namespace norvo::cli
