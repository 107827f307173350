// Any bytes as the ledger of what was moved: opening it raises nothing, it is whole afterwards, and
// reads as the same again; no file goes that it does not name.
#include <functional>

#include "FuzzedPlaylist.h"
#include "move/RestoreLedger.h"
#include "text/Encoding.h"

namespace {

using namespace norvo;

const String kArea = u"C:\\KVs\\";
const String kLedger = kArea + u"Restored.txt";
const String kList = kArea + u"a.ini";
const String kOther = u"C:\\other";
const String kNative = u"C:\\a.m3u";

/// Reads the ledger and writes it anew; gives its bytes.
std::string Compacted(MemoryPlatform& machine, Component& component) {
  RestoreLedger ledger(component, kArea);
  try {
    ledger.IsRestored(kList);
    ledger.CarriedFor("key");
  } catch (const RunTimeError&) {
    // What the ledger names can be a folder, which cannot be read as a file.
  }
  for (const String& native : ledger.NativesOf(kList)) {
    Require(native.find(u'\t') == String::npos && native.find(u"\r\n") == String::npos);
  }
  ledger.Compact();
  return machine.Bytes(kLedger);
}

void CheckNewList(MemoryPlatform& machine, Component& component) {
  if (!machine.HasFile(kList)) machine.AddFile(kList, "x");
  RestoreLedger ledger(component, kArea);
  ledger.Begin(kList, "key");
  ledger.AddNative(kNative);
  machine.AddFile(kNative, "#EXTM3U\r\n");  // one that is not there is no list that was made
  ledger.AddPlace(u"C:\\a.mp3", {u"D:\\a.mp3", u"artist", u"album"});
  ledger.End(true);
  ledger.Compact();
  RestoreLedger again(component, kArea);
  Require(again.IsRestored(kList) && again.CarriedFor("key") == kList);
  Require(again.NativesOf(kList) == std::vector<String>{kNative});
  Require(!again.PlacesOf(u"C:\\a.mp3").empty());
  Require(machine.Bytes(kLedger).ends_with("\r\n"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto machine = std::make_shared<MemoryPlatform>();
  static const auto component = OpenLibrary(machine);
  const std::string_view bytes = AsBytes(data, size);
  for (const String& path : {kList, kOther}) {
    if (!machine->HasFile(path)) machine->AddFile(path, "x");
  }
  machine->AddFile(kLedger, bytes);
  const std::string once = Compacted(*machine, *component);
  Require(Compacted(*machine, *component) == once);
  Require(machine->HasFile(kOther) || ContainsIgnoreCase(FromUtf8Lossy(bytes), u"other"));
  // This takes as long as all the rest, and asks less of what was read: some inputs are enough.
  if (std::hash<std::string_view>()(bytes) % 4 == 0) CheckNewList(*machine, *component);
  machine->Log().Clear();
  return 0;
}
