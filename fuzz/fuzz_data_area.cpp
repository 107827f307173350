// Any bytes as each file of a machine's data area that others may have written: the names of its
// folders, the list of its playlists, that of its songs, which keeps all lines that it has, and
// that of the playlists that were restored there.
#include "FuzzedPlaylist.h"
#include "move/QueueList.h"
#include "move/RestoredCopies.h"
#include "services/DataCop.h"
#include "services/MediaList.h"

namespace {

using namespace norvo;

const String kArea = String(kGroupRoot) + u"KVs\\";
const String kSongs = kArea + u"MediaList.txt";

void CheckSubNames(MemoryPlatform& machine, Component& component, std::string_view bytes) {
  machine.AddFile(String(kGroupRoot) + u"SubNames.txt", bytes);
  Require(DataCop::LoadSubNames(component));
  for (const String& name : component.SubNames().names) {
    Require(name.size() <= bytes.size() && Trim(name, IsBlankOrTab).size() == name.size());
  }
  for (int slot = 1; slot <= 6; ++slot) {
    const String folder = DataCop::GetSubNamePath(component, slot);
    Require(folder.starts_with(kGroupRoot) && folder.ends_with(u'\\'));
  }
}

void CheckQueue(MemoryPlatform& machine, Component& component, std::string_view bytes) {
  machine.AddFile(kArea + u"PlayLists.txt", bytes);
  ProductSettings settings;
  settings.groupRoot = kGroupRoot;
  std::size_t units = 0;
  for (const ListedPlaylist& listed : ReadQueueList(component, settings)) {
    units += listed.path.size();
    Require(listed.path.find_first_of(u"\r\n") == String::npos);
  }
  Require(units <= bytes.size());
}

bool AddSong(MemoryPlatform& machine, const MediaRecord& record) {
  MediaList songs(machine.Files(), machine.Settings());
  return songs.EnsureGroup(u"Group", kGroupRoot) && songs.Add(record) && songs.Flush();
}

void CheckSongs(MemoryPlatform& machine, std::string_view bytes) {
  machine.AddFile(kSongs, bytes);
  const std::size_t behind = bytes.rfind("\r\n");
  const std::string whole(bytes.substr(0, behind == std::string_view::npos ? 0 : behind + 2));
  const MediaRecord record{u"Music", u"C:\\a.mp3", u"D:\\a.mp3"};
  Require(AddSong(machine, record));
  const std::string once = machine.Bytes(kSongs);
  Require(once.starts_with(whole));
  Require(AddSong(machine, record) && machine.Bytes(kSongs) == once);
}

void CheckCopies(MemoryPlatform& machine, Component& component, std::string_view bytes) {
  const String list = u"C:\\Mix.m3u";
  machine.AddFile(list, "#EXTM3U\r\n");
  machine.AddFile(kArea + u"RestoredCopies.txt", bytes);
  RestoredCopies copies(component, kArea);
  Require(!copies.Has(u"C:\\Gone.m3u"));
  copies.Add(std::vector<MadeList>{AsItIs(component, list)});
  Require(RestoredCopies(component, kArea).Has(list));
  machine.AddFile(list, bytes);
  Require(!copies.Has(list) || bytes == "#EXTM3U\r\n");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto machine = [] {
    auto made = std::make_shared<MemoryPlatform>();
    made->ConfigureProduct();
    return made;
  }();
  static const auto component = OpenLibrary(machine);
  const std::string_view bytes = AsBytes(data, size);
  CheckSubNames(*machine, *component, bytes);
  CheckQueue(*machine, *component, bytes);
  CheckSongs(*machine, bytes);
  CheckCopies(*machine, *component, bytes);
  machine->Log().Clear();
  return 0;
}
