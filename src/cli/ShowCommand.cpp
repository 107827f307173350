#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/CommonOptions.h"
#include "cli/ConsoleObserver.h"
#include "cli/NamedMachine.h"
#include "cli/PlaylistWords.h"
#include "cli/Table.h"
#include "cli/WarningWords.h"
#include "model/PlaylistTypes.h"
#include "move/ReadPlaylist.h"
#include "services/DataCop.h"
#include "text/Encoding.h"
#include "text/Number.h"

namespace norvo::cli {
namespace {

constexpr HelpText kShowHelp = {R"(Examples:
  norvo-playlists show --machine /mnt/old-disk 'C:\Music\Mix.m3u'
  norvo-playlists show /mnt/old-pc/C/Music/Mix.m3u
  norvo-playlists show ~/Music/Mix.m3u --type 3

Types: 1 ASX of Windows Media Player, 2 M3U of Windows Media Player, 3 M3U of Winamp,
4 PLS of Winamp, 5 PLS of Sonique, 6 M3U of MusicMatch Jukebox.
Nothing on the disk is changed, but for the log that --log asks for. A file that lies in no
machine folder is read as if its own folder were drive C.)",
                                R"(Examples:
  norvo-playlists show C:\Music\Mix.m3u
  norvo-playlists show Mix.m3u --type 3

Types: 1 ASX of Windows Media Player, 2 M3U of Windows Media Player, 3 M3U of Winamp,
4 PLS of Winamp, 5 PLS of Sonique, 6 M3U of MusicMatch Jukebox.
Nothing on the disk is changed, but for the log that --log asks for.)"};

constexpr HelpText kShownPathHelp = {"Path on the machine (C:\\...) or on this system",
                                     "The playlist's path"};

/// Tells at once what is left out.
class ShowObserver final : public ConsoleObserver {
 public:
  using ConsoleObserver::ConsoleObserver;
  void OnDropped(const CollectedPlaylist& playlist, const DroppedItem& drop) override {
    Out().LeftOut(ToUtf8(playlist.path) + ": " + LeftOutText(drop));
  }
};

/// "0 drive" and so on. The readers give all references that they take unchecked the type 9.
std::string UrlTypeText(std::int32_t type) {
  switch (type) {
    case url_type::kFixedDrive:
      return "0 drive";
    case url_type::kDriveRoot:
      return "1 root";
    case url_type::kDotted:
      return "2 dotted";
    case url_type::kRelative:
      return "3 relative";
    case url_type::kBareName:
      return "4 name";
    case url_type::kRamDisk:
      return "5 RAM disk";
    default:
      return std::to_string(type) + " unchecked";
  }
}

void PrintTable(const std::vector<ReadEntry>& entries, Console& console) {
  Table table({{"#", Align::Right},
               {"Type"},
               {"Artist"},
               {"Title"},
               {"Duration", Align::Right},
               {"Size", Align::Right},
               {"Source"}});
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const ReadEntry& entry = entries[i];
    table.AddRow({std::to_string(i + 1), UrlTypeText(entry.urlType), ToUtf8(entry.artist),
                  ToUtf8(entry.title), ToUtf8(entry.duration), ToUtf8(FormatNumber(entry.size)),
                  ToUtf8(entry.source)});
  }
  for (const std::string& line : table.Lines()) console.Print(line);
}

Json EntryDocument(const ReadEntry& entry) {
  return {{"urlType", entry.urlType},       {"artist", ToUtf8(entry.artist)},
          {"title", ToUtf8(entry.title)},   {"duration", ToUtf8(entry.duration)},
          {"size", JsonNumber(entry.size)}, {"source", ToUtf8(entry.source)}};
}

Json Document(const ReadResult& result, const std::string& folder) {
  Json document{{"path", ToUtf8(result.path)},
                {"machine", folder},
                {"type", result.type},
                {"typeName", TypeName(result.type)},
                {"name", ToUtf8(result.name)}};
  Json& entries = document["entries"] = Json::array();
  for (const ReadEntry& entry : result.entries) entries.push_back(EntryDocument(entry));
  Json& dropped = document["dropped"] = Json::array();
  for (const DroppedItem& drop : result.drops) dropped.push_back(DropDocument(drop));
  return document;
}

/// Tells of a playlist that was not read as a whole. Another type helps none that cannot be read.
void TellUnread(const ReadResult& result, Console& console) {
  const auto namesIt = [&result](const WorkWarning& warning) {
    return IsOfUnreadFile(warning) && warning.warning.path == result.path;
  };
  if (std::any_of(result.warnings.begin(), result.warnings.end(), namesIt)) return;
  const std::string path = ToUtf8(result.path);
  if (result.type == playlist_type::kUnknown) {
    console.LeftOut(path + ": its first lines tell no playlist type. Name it with --type 1 to 6.");
  } else if (!result.whole) {
    console.LeftOut(path + ": cannot be read to its end as " + TypeTitle(result.type) +
                    ". Try another --type.");
  }
}

void Print(const ReadResult& result, Console& console) {
  TellUnread(result, console);
  if (result.type == playlist_type::kUnknown) return;
  DropCounts dropped;
  dropped.Add(result.drops);
  console.Say(ToUtf8(result.path) + ": " + TypeTitle(result.type));
  PrintTable(result.entries, console);
  console.Say("Entries kept: " + std::to_string(result.entries.size()) +
              ", dropped: " + dropped.Text());
}

class ShowCommand final : public Command {
 public:
  CLI::App* AddTo(CLI::App& program, CommonArguments& common) override {
    CLI::App* const app = program.add_subcommand("show", "Print the entries of one playlist");
    AddCommonOptions(*app, common, false);
    app->add_option("PATH", path_, kShownPathHelp.Here())->required();
    std::vector<std::string> types{"auto"};
    for (const PlaylistType& type : PlaylistTypes()) types.push_back(std::to_string(type.code));
    app->add_option("--type", type_, "Type of the playlist: auto, or 1 to " + types.back())
        ->type_name("TYPE")
        ->check(CLI::IsMember(types));
    app->footer(kShowHelp.Here());
    return app;
  }

  Json Run(const CommonArguments& common, Console& console) override {
    const NamedPlaylist playlist = OpenPlaylist(common, path_, console);
    if (playlist.lacksSettings) {
      console.Note(
          "This machine has no settings of the product yet; before scan or collect run "
          "norvo-playlists init --machine DIR.");
    }
    const bool canLog = playlist.hasLog;
    ShowObserver observer(console);
    const std::int32_t type = type_ == "auto" ? playlist_type::kUnknown : std::stoi(type_);
    const ReadResult result = ReadPlaylist(playlist.machine, ToUtf8(playlist.path), type,
                                           {common.log && canLog}, observer);
    if (common.log && !canLog) {
      console.LeftOut("No log is written: " + path_ +
                      " belongs to no machine folder. Name one with --machine.");
    }
    Print(result, console);
    if (!console.IsJson()) return {};
    return Document(result, playlist.folder);
  }

 private:
  std::string path_;
  std::string type_ = "auto";
};

}  // namespace

std::unique_ptr<Command> NewShowCommand() {
  return std::make_unique<ShowCommand>();
}

}  // namespace norvo::cli
