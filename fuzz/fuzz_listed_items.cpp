// Any bytes as a playlist that the host looks at on its own, in every syntax: what is listed can be
// looked for, and what is found is there.
#include "FuzzedPlaylist.h"
#include "lists/ListedItems.h"
#include "lists/ReferenceFinder.h"

namespace {

using namespace norvo;

/// The machine stays the same: looking for files changes nothing.
norvo::Component& Machine() {
  static const auto platform = [] {
    auto machine = std::make_shared<norvo::MemoryPlatform>();
    machine->AddDrive(u'E', norvo::DriveType::CdRom);
    for (const norvo::StringView path :
         {u"C:\\Music\\a.mp3", u"C:\\Music\\A & B.mp3", u"C:\\b.txt", u"C:\\#1.mp3"}) {
      machine->AddFile(path, "ID3");
    }
    return machine;
  }();
  static const auto component = norvo::OpenLibrary(platform);
  return *component;
}

void LookFor(norvo::StringView reference) {
  if (reference.empty() || reference.find(u'\0') != norvo::String::npos) std::abort();
  const FoundReference found = ReferenceFinder(Machine()).Find(reference, u"C:\\Music");
  const bool isFile =
      found.kind == FoundReference::Kind::File || found.kind == FoundReference::Kind::NotMedia;
  if (isFile && !Machine().Files().FileExists(found.path)) std::abort();
  if (found.path.empty()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const norvo::String text = DecodePlaylist(norvo::AsBytes(data, size), norvo::Windows1252());
  for (const norvo::StringView name : {u"a.asx", u"a.m3u", u"a.pls"}) {
    if (!SyntaxOf(name, text)) std::abort();
  }
  for (const ListSyntax syntax : {ListSyntax::Asx, ListSyntax::M3u, ListSyntax::Pls}) {
    for (const ListedItem& item : ListItems(text, syntax)) {
      if (item.references.empty()) std::abort();
      for (const norvo::String& reference : item.references) LookFor(reference);
    }
  }
  // The machine notes every call; it would grow with every input.
  static_cast<norvo::MemoryPlatform&>(Machine().Machine()).Log().Clear();
  return 0;
}
