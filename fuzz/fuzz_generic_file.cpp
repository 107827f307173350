// Any text as a neutral file: what is written of what was read reads back as the same, and no
// section that is not there makes an entry more than is declared.
#include "FuzzedPlaylist.h"
#include "model/GenericSections.h"
#include "readers/GenericReader.h"
#include "text/Encoding.h"
#include "text/Number.h"
#include "writers/GenericWriter.h"

namespace {

using namespace norvo;

struct Machine {
  Machine() { platform->ConfigureProduct(); }

  std::shared_ptr<MemoryPlatform> platform = std::make_shared<MemoryPlatform>();
  std::shared_ptr<Component> component = OpenLibrary(platform);
};

/// A count that lies costs time and finds nothing.
bool DeclaresMany(const IniDocument& document) {
  const std::size_t section = document.FindSection(kGlobalSection);
  if (section == IniDocument::kNone) return false;
  const auto declared = document.Value(section, u"TotalSongs");
  return declared && ParseNumber(*declared).value_or(0) > 16;
}

/// The file that is written of a text; empty where none is.
std::string Written(Machine& machine, const IniDocument& document) {
  PlaylistRecord playlist;
  ReadGeneric(*machine.component, playlist, document);
  playlist.name = u"Mix";
  playlist.nameOrigin = NameOrigin::Host;
  if (!WriteGeneric(*machine.component, playlist, u"Mix.m3u")) return {};
  return machine.platform->Bytes(u"C:\\My Documents\\Norvo Media\\KVs\\Mix.ini");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static Machine machine;
  const IniDocument document(DecodeFile(AsBytes(data, size), Windows1252()));
  if (DeclaresMany(document)) return 0;
  const std::string once = Written(machine, document);
  if (!once.empty()) {
    const IniDocument again(DecodeFile(once, Windows1252()));
    Require(Written(machine, again) == once);
  }
  machine.platform->Log().Clear();
  return 0;
}
