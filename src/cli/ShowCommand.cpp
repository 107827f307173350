#include <nlohmann/json.hpp>

#include "automation/Conversions.h"
#include "cli/Commands.h"
#include "cli/Report.h"
#include "cli/ShowMachine.h"
#include "cli/Table.h"
#include "model/PlaylistTypes.h"
#include "move/LibraryCalls.h"
#include "services/DataCop.h"
#include "services/ObserverScope.h"
#include "text/Encoding.h"
#include "text/Number.h"

namespace norvo {
namespace {

struct ShownEntry {
  std::int32_t urlType = 0;
  std::string artist;
  std::string title;
  std::string duration;
  double size = 0;
  std::string source;
};

std::string Text(AutomationObject& object, StringView property) {
  return ToUtf8(TextOf(object, property));
}

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

std::string TitleOf(AutomationObject& entry) {
  std::string title = Text(entry, u"Entry_SongName");
  if (title.empty() && entry.ClassName() == u"AsxEntry") title = Text(entry, u"ASX_Title");
  if (title.empty()) title = Text(entry, u"Entry_SongTitle");
  return title;
}

ShownEntry Read(AutomationObject& entry) {
  ShownEntry shown;
  shown.urlType = NumberOf(entry, u"Entry_URLType");
  shown.artist = Text(entry, u"Entry_ArtistName");
  shown.title = TitleOf(entry);
  shown.duration = Text(entry, u"Entry_Duration");
  shown.size = ToDouble(entry.Get(u"Entry_FileSize"));
  shown.source = Text(entry, u"Entry_SourceURL");
  return shown;
}

std::vector<ShownEntry> ReadEntries(AutomationObject& playlist) {
  std::vector<ShownEntry> shown;
  for (const ObjectRef& entry : EntriesOf(playlist)) shown.push_back(Read(*entry));
  return shown;
}

void PrintTable(const std::vector<ShownEntry>& entries, Console& console) {
  Table table({{"#", Align::Right},
               {"Type"},
               {"Artist"},
               {"Title"},
               {"Duration", Align::Right},
               {"Size", Align::Right},
               {"Source"}});
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const ShownEntry& entry = entries[i];
    table.AddRow({std::to_string(i + 1), UrlTypeText(entry.urlType), entry.artist, entry.title,
                  entry.duration, ToUtf8(FormatNumber(entry.size)), entry.source});
  }
  for (const std::string& line : table.Lines()) console.Print(line);
}

Json EntriesDocument(const std::vector<ShownEntry>& entries) {
  Json document = Json::array();
  for (const ShownEntry& entry : entries) {
    document.push_back({{"urlType", entry.urlType},
                        {"artist", entry.artist},
                        {"title", entry.title},
                        {"duration", entry.duration},
                        {"size", JsonNumber(entry.size)},
                        {"source", entry.source}});
  }
  return document;
}

Json Document(const ShowMachine& machine, std::int32_t type, AutomationObject& playlist,
              const std::vector<ShownEntry>& entries, const PlaylistResult& own) {
  Json document{{"path", ToUtf8(machine.Path())},
                {"machine", machine.Folder()},
                {"type", type},
                {"typeName", TypeName(type)},
                {"name", Text(playlist, u"PlayListName")},
                {"entries", EntriesDocument(entries)}};
  document["dropped"] = Json::array();
  for (const Drop& drop : own.drops) document["dropped"].push_back(DropDocument(drop));
  return document;
}

}  // namespace

Json RunShow(const CommonArguments& common, const ShowArguments& arguments, Console& console) {
  const std::unique_ptr<ShowMachine> machine = OpenToShow(common, arguments.path, console);
  Component& library = machine->Library();
  const std::string path = ToUtf8(machine->Path());
  WorkWatcher watcher(console);
  watcher.BeginOwn(machine->Path());
  const ObserverScope scope(library, watcher);
  const std::int32_t type =
      arguments.type != 0 ? arguments.type : TellType(library, machine->Path());
  const ObjectRef playlist = library.Create(u"PlayList");
  std::vector<ShownEntry> entries;
  if (type == playlist_type::kUnknown) {
    console.LeftOut(path + ": its first lines tell no playlist type. Name it with --type 1 to 6.");
  } else {
    if (!ReadPlaylist(*playlist, machine->Path(), type)) {
      console.LeftOut(path + ": cannot be read to its end as " + TypeTitle(type) +
                      ". Try another --type.");
    }
    entries = ReadEntries(*playlist);
    console.Say(path + ": " + TypeTitle(type));
    PrintTable(entries, console);
    console.Say("Entries kept: " + std::to_string(entries.size()) +
                ", dropped: " + DropCountsText(watcher.Own().dropped));
  }
  if (!console.IsJson()) return {};
  return Document(*machine, type, *playlist, entries, watcher.Own());
}

}  // namespace norvo
