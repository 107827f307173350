// Any text as a neutral file: what is written of what was read reads back as the same, and no
// section that is not there makes an entry more than is declared. An empty name behind one of
// the own names of ASX files is not written, and comes back as that one: once.
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

IniDocument DocumentOf(std::string_view bytes) {
  return IniDocument(DecodeFile(bytes, Windows1252()));
}

/// Names that ASX files have beside those of all kinds, and that fill these when they are empty.
bool HasOwnNames(const std::string& written) {
  const String text = DecodeFile(written, Windows1252());
  for (const StringView key :
       {u"\nASX_Artist=", u"\nASX_Album=", u"\nASX_SongName=", u"\nASX_Title="}) {
    if (text.find(key) != String::npos) return true;
  }
  return false;
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
  const IniDocument document = DocumentOf(AsBytes(data, size));
  if (DeclaresMany(document)) return 0;
  std::string written = Written(machine, document);
  if (!written.empty()) {
    const auto again = [](const std::string& text) { return Written(machine, DocumentOf(text)); };
    if (HasOwnNames(written)) written = again(written);
    Require(again(written) == written);
  }
  machine.platform->Log().Clear();
  return 0;
}
