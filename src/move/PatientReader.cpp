#include "move/PatientReader.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

#include "automation/Attempt.h"
#include "lists/ListKinds.h"
#include "lists/SongTags.h"
#include "lists/XmlEntities.h"
#include "move/StreamPlacer.h"
#include "services/TextStream.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

/// A name whose ending tells how the file is to be read. The scan goes by the last three
/// characters, whether or not a point stands before them; what begins as a list may be called
/// anything.
String NameForReading(const String& path) {
  if (KindOf(path) != nullptr) return String(LastComponent(path));
  const String ending = u"." + path.substr(path.size() - 3);
  return KindOf(ending) != nullptr ? ending : String(u".m3u");
}

KeptDetails DetailsOf(const ListedItem& item, TextPool& texts) {
  return {texts.Add(item.title),
          texts.Add(item.artist),
          texts.Add(item.album),
          texts.Add(item.genre),
          item.track,
          item.seconds};
}

/// Of the list alone: a file that holds several changes with each of them.
Fingerprint ContentOf(const ListedList& list) {
  std::vector<Fingerprint> fields = {FingerprintOf(list.name)};
  for (const ListedItem& item : list.items) {
    for (const String& reference : item.references) fields.push_back(FingerprintOf(reference));
  }
  return FingerprintOf(fields);
}

}  // namespace

PatientReader::PatientReader(Component& library, const Stock& stock, SongBook& songs,
                             TextPool& texts)
    : library_(library), songs_(songs), texts_(texts), finder_(library), stock_(stock) {}

PatientReader::File PatientReader::Read(const String& path) {
  std::string bytes = ReadWholeFile(*library_.Files().OpenForReading(path));
  const Fingerprint content = FingerprintOf(bytes);
  const std::optional<ListedFile> file =
      ReadListFile(NameForReading(path), std::move(bytes), library_.Machine().AnsiPage());
  File found;
  if (!file) return found;
  for (const ListedList& list : file->lists) {
    if (list.isCut) throw RunTimeError(error::kOutOfMemory, kTooManyItems);
  }
  found.isDamaged = file->isDamaged;
  const bool isLibrary = file->syntax == ListSyntax::ITunes;
  for (const ListedList& list : file->lists) {
    Listing listing = Resolve(list, String(ParentFolder(path)), file->syntax);
    listing.hasTitles = file->hasTitles;
    listing.content = isLibrary ? ContentOf(list) : content;
    if (isLibrary) listing.name = list.name;
    found.lists.push_back(std::move(listing));
  }
  return found;
}

Listing PatientReader::Resolve(const ListedList& list, const String& folder, ListSyntax syntax) {
  Listing listing;
  listing.syntax = syntax;
  listing.items.reserve(list.items.size());
  for (const ListedItem& item : list.items) {
    FoundItem found = Find(item, folder, syntax == ListSyntax::Asx);
    if (item.maybeComment && !found.item.IsSong()) continue;
    listing.hasSongs = listing.hasSongs || found.item.IsCarried();
    listing.items.push_back(std::move(found));
  }
  return listing;
}

/// By the first of an item's references that is a song; else by the first address.
FoundItem PatientReader::Find(const ListedItem& listed, const String& folder, bool isMarkup) {
  using Kind = FoundReference::Kind;
  std::optional<FoundReference> best;
  for (const String& reference : listed.references) {
    FoundReference found = finder_.Find(reference, folder);
    const bool better = !best || (found.kind == Kind::File && best->kind != Kind::File) ||
                        (found.kind == Kind::Address && best->kind > Kind::Address);
    if (better) best = std::move(found);
    if (best->kind == Kind::File) break;
  }
  FoundItem found;
  found.told = DetailsOf(listed, texts_);
  found.item.reference = texts_.Keep(listed.references.front());
  switch (best->kind) {
    case Kind::File:
      found.item.song = songs_.NumberOf(best->path, best->size);
      found.item.fate = MovedItem::Fate::Song;
      break;
    case Kind::Address:
      found.item.reference = texts_.Keep(isMarkup ? DecodeEntities(best->path) : best->path);
      found.item.fate = MovedItem::Fate::Address;
      break;
    case Kind::NotMedia:
      found.item.fate = MovedItem::Fate::NotMedia;
      if (MayBeMusic(best->path)) {
        found.item.fate = MovedItem::Fate::Song;
        found.item.song = songs_.NumberOf(best->path, best->size);
      }
      break;
    case Kind::Missing:
      SearchFor(listed, found.item);
      break;
  }
  return found;
}

/// By its content. One that cannot be read may be music: when it is brought that will be told.
bool PatientReader::MayBeMusic(const String& path) {
  return AnswerOr(true, [&] { return ReadSongTags(library_.Files(), path).has_value(); });
}

/// Copies of one song: each of them will do.
bool PatientReader::AreOneSong(const SongSearch::Found& found) {
  if (found.count > found.paths.size()) return false;
  StreamPlacer contents(library_.Files(), library_.Files());
  return std::all_of(found.paths.begin(), found.paths.end(), [&](const String& path) {
    return contents.Compare(found.paths.front(), path) == Comparison::Same;
  });
}

/// It knows all songs of the machine by name, which most machines need not.
const SongSearch& PatientReader::Search() {
  if (!search_) {
    search_.emplace(std::vector<String>(stock_.media.begin(), stock_.media.end()),
                    library_.Machine().AnsiPage());
  }
  return *search_;
}

/// What is not where the references point may be elsewhere, since people move their music about.
void PatientReader::SearchFor(const ListedItem& listed, MovedItem& item) {
  item.fate = MovedItem::Fate::NoSuchFile;
  if (listed.maybeComment) return;
  for (const String& reference : listed.references) {
    const SongSearch::Found found = Search().Find(reference);
    if (found.kind == SongSearch::Kind::None) continue;
    if (found.kind == SongSearch::Kind::Unique || AreOneSong(found)) {
      item.fate = MovedItem::Fate::Song;
      item.song = songs_.NumberOf(found.paths.front());
      item.foundElsewhere = true;
      item.candidates.clear();
      item.candidateCount = 0;
      return;
    }
    item.fate = MovedItem::Fate::Ambiguous;
    item.candidates = found.paths;
    item.candidateCount = found.count;
  }
}

}  // namespace norvo
