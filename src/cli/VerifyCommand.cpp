#include <nlohmann/json.hpp>

#include "cli/CommonOptions.h"
#include "cli/ConsoleObserver.h"
#include "cli/ErrorWords.h"
#include "cli/NamedMachine.h"
#include "cli/PathDocument.h"
#include "move/VerifyPlaylists.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

constexpr HelpText kVerifyHelp = {R"(Examples:
  norvo-playlists verify --machine /mnt/new-disk
  norvo-playlists verify --machine /mnt/new-disk 'C:\Music\Mix.m3u'

Without PATH all playlists in the folder of the restored ones. Nothing on the machine is changed,
but for the log that --log asks for. Addresses on the
internet, shares and removable drives are not looked up. Exit code 1: a file is missing.)",
                                  R"(Examples:
  norvo-playlists verify
  norvo-playlists verify C:\Music\Mix.m3u

Without PATH all playlists in the folder of the restored ones. Nothing on the machine is changed,
but for the log that --log asks for. Addresses on the
internet, shares and removable drives are not looked up. Exit code 1: a file is missing.)"};

constexpr HelpText kVerifiedPathsHelp = {"Playlists: paths on the machine or on this system",
                                         "Paths of playlists"};

using ReferenceKind = VerifiedReference::Kind;

/// Over all playlists. What is not looked up is not counted.
void SayTotal(const std::vector<VerifiedPlaylist>& playlists, Console& console) {
  std::size_t found = 0;
  std::size_t missing = 0;
  for (const VerifiedPlaylist& playlist : playlists) {
    found += playlist.Count(ReferenceKind::Found);
    missing += playlist.Count(ReferenceKind::Missing);
  }
  console.Say("Playlists: " + std::to_string(playlists.size()) +
              ", references checked: " + std::to_string(found + missing) +
              ", found: " + std::to_string(found) + ", missing: " + std::to_string(missing));
}

/// Prints each playlist as it is read.
class VerifyObserver final : public ConsoleObserver {
 public:
  using ConsoleObserver::ConsoleObserver;

  void OnVerified(const VerifiedPlaylist& playlist) override {
    const std::string path = ToUtf8(playlist.path);
    Out().Print(path + ": " + std::to_string(playlist.Count(ReferenceKind::Found)) + " found, " +
                std::to_string(playlist.Count(ReferenceKind::Missing)) + " missing, " +
                std::to_string(playlist.Count(ReferenceKind::Address)) + " addresses");
    if (!playlist.whole) Out().LeftOut(path + ": " + FaultOf(playlist, path));
    for (const VerifiedReference& row : playlist.references) {
      if (row.kind != ReferenceKind::Missing) continue;
      Out().LeftOut(path + ": missing: " + ToUtf8(row.reference));
    }
  }

 private:
  static std::string FaultOf(const VerifiedPlaylist& playlist, const std::string& path) {
    if (playlist.missing) return "there is no such file";
    return "cannot be read to its end: " + WithoutPath(ToUtf8(playlist.reason), path);
  }
};

Json PlaylistDocument(const VerifiedPlaylist& playlist) {
  Json missing = Json::array();
  for (const VerifiedReference& row : playlist.references) {
    if (row.kind == ReferenceKind::Missing) missing.push_back(ToUtf8(row.reference));
  }
  return {{"path", ToUtf8(playlist.path)},
          {"whole", playlist.whole},
          {"reason", ToUtf8(playlist.reason)},
          {"found", playlist.Count(ReferenceKind::Found)},
          {"addresses", playlist.Count(ReferenceKind::Address)},
          {"missing", std::move(missing)}};
}

class VerifyCommand final : public Command {
 public:
  CLI::App* AddTo(CLI::App& program, CommonArguments& common) override {
    CLI::App* const app =
        program.add_subcommand("verify", "Check that the songs of native playlists exist");
    AddCommonOptions(*app, common, true);
    app->add_option("PATH", paths_, kVerifiedPathsHelp.Here());
    app->footer(kVerifyHelp.Here());
    return app;
  }

  Json Run(const CommonArguments& common, Console& console) override {
    const std::shared_ptr<NamedMachine> machine =
        OpenMachine(common, console, DocumentsUse::Unneeded);
    std::vector<std::string> paths;
    for (const std::string& path : paths_) paths.push_back(ToUtf8(machine->MachinePathOf(path)));
    VerifyObserver observer(console);
    const VerifyResult result = VerifyPlaylists(machine->Platform(), paths, {common.log}, observer);
    if (result.cancelled) {
      throw CommandEnded("Ended before it was done. Run the same command again to see all of it.");
    }
    SayTotal(result.playlists, console);
    if (!console.IsJson()) return {};
    Json rows = Json::array();
    for (const VerifiedPlaylist& playlist : result.playlists) {
      rows.push_back(PlaylistDocument(playlist));
    }
    Json document{{"playlists", std::move(rows)}};
    AddLog(document, result.log);
    return document;
  }

 private:
  std::vector<std::string> paths_;
};

}  // namespace

std::unique_ptr<Command> NewVerifyCommand() {
  return std::make_unique<VerifyCommand>();
}

}  // namespace norvo::cli
