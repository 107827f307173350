// Any bytes as a playlist that the host looks at on its own, behind a letter that tells its name:
// what is listed can be looked for, and what is found is there.
#include "FuzzedPlaylist.h"
#include "lists/ListKinds.h"
#include "lists/ListMarks.h"
#include "lists/ListedFile.h"
#include "lists/ReferenceFinder.h"
#include "lists/SongSearch.h"

namespace {

using namespace norvo;

const std::vector<norvo::String> kSongs = {u"C:\\Music\\a.mp3", u"C:\\Music\\A & B.mp3",
                                           u"C:\\#1.mp3", u"C:\\Music\\\u00F6.mp3"};

/// The machine stays the same: looking for files changes nothing.
norvo::Component& Machine() {
  static const auto platform = [] {
    auto machine = std::make_shared<norvo::MemoryPlatform>();
    machine->AddDrive(u'E', norvo::DriveType::CdRom);
    for (const norvo::String& path : kSongs) machine->AddFile(path, "ID3");
    machine->AddFile(u"C:\\b.txt", "ID3");
    return machine;
  }();
  static const auto component = norvo::OpenLibrary(platform);
  return *component;
}

void LookFor(const norvo::String& reference) {
  static const SongSearch search(kSongs);
  if (reference.empty() || reference.find(u'\0') != norvo::String::npos) std::abort();
  const FoundReference found = ReferenceFinder(Machine()).Find(reference, u"C:\\Music");
  const bool isFile =
      found.kind == FoundReference::Kind::File || found.kind == FoundReference::Kind::NotMedia;
  if (isFile && !Machine().Files().FileExists(found.path)) std::abort();
  if (found.path.empty()) std::abort();
  for (const norvo::String& path : search.Find(reference).paths) {
    if (!Machine().Files().FileExists(path)) std::abort();
  }
}

void CheckItem(const ListedItem& item) {
  if (item.references.empty() || !(item.seconds >= 0) || item.track < 0) std::abort();
  for (const norvo::String& reference : item.references) LookFor(reference);
}

/// The name that a letter stands for, of all that lists have and one of no list: 'a' for the first.
norvo::StringView NameBy(std::uint8_t letter) {
  static const auto names = [] {
    std::vector<norvo::StringView> endings = norvo::ListEndings();
    endings.push_back(u"a.txt");
    return endings;
  }();
  return names[static_cast<std::uint8_t>(letter - 'a') % names.size()];
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const norvo::StringView name = NameBy(data[0]);
  const std::string_view bytes = norvo::AsBytes(data + 1, size - 1);
  LooksLikeList(bytes.substr(0, 512));
  const std::optional<ListedFile> file =
      ReadListFile(name, std::string(bytes), norvo::Windows1252());
  const ListKind* const kind = KindOf(name);
  if (!file && kind != nullptr && kind->syntax) std::abort();
  if (!file) return 0;
  for (const ListedList& list : file->lists) {
    for (const ListedItem& item : list.items) CheckItem(item);
  }
  // The machine notes every call; it would grow with every input.
  static_cast<norvo::MemoryPlatform&>(Machine().Machine()).Log().Clear();
  return 0;
}
