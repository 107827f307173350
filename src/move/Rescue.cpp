#include "move/Rescue.h"

#include <algorithm>
#include <deque>
#include <map>
#include <unordered_map>
#include <utility>

#include "automation/Conversions.h"
#include "automation/RunTimeError.h"
#include "controller/HeaderSniffer.h"
#include "lists/XmlEntities.h"
#include "model/GenericSections.h"
#include "model/NewEntry.h"
#include "model/PlaylistTypes.h"
#include "move/LibraryCalls.h"
#include "move/PortableNames.h"
#include "services/DataCop.h"
#include "services/TextStream.h"
#include "text/Encoding.h"
#include "text/Number.h"
#include "text/WindowsPath.h"
#include "writers/GenericNaming.h"

namespace norvo {
namespace {

// A generic file counts its entries in 16 bits.
constexpr std::size_t kMostEntries = 32767;

/// What identifies an item that goes along, whatever its spelling.
String KeyOf(const MovedItem& item) {
  if (item.IsSong()) return u"#" + FormatInteger(static_cast<std::int64_t>(item.song));
  const bool isUrl = item.reference.find(u"://") != String::npos;
  return Fold(isUrl ? item.reference : AbsolutePath(item.reference, u"C:"));
}

/// True for a generic file of one type with entries of another, which no reading takes.
bool HasForeignEntries(const IniDocument& document) {
  const std::size_t globals = document.FindSection(kGlobalSection);
  const std::size_t entry = document.FindSection(EntrySection(1));
  if (globals == IniDocument::kNone || entry == IniDocument::kNone) return false;
  const std::optional<StringView> type = document.Value(entry, u"EntryType");
  return type && type != document.Value(globals, u"PlaylistType");
}

/// Of a part of a playlist that is split, from its first entry, which is 0-based.
std::int64_t PartNumber(std::size_t first) {
  return static_cast<std::int64_t>(first / kMostEntries + 1);
}

String BaseOf(StringView path) {
  const StringView name = LastComponent(path);
  return String(name.substr(0, name.rfind(u'.')));
}

}  // namespace

Rescue::Rescue(Component& library, const ProductSettings& settings, SongBook& songs, MoveWork& work)
    : library_(library),
      dataArea_(DataAreaOf(settings)),
      songs_(songs),
      work_(work),
      finder_(library) {}

/// In the order in which the scan met them.
std::vector<Rescue::CollectedFile> Rescue::FilesOf(const CollectResult& collected) {
  std::vector<CollectedFile> files;
  std::unordered_map<StringView, std::size_t> byPath;
  const auto fileOf = [&](const String& path) -> CollectedFile& {
    const auto [found, isNew] = byPath.try_emplace(path, files.size());
    if (isNew) files.emplace_back().path = path;
    return files[found->second];
  };
  for (const String& path : collected.met) fileOf(path);
  for (const ListedPlaylist& listed : collected.scan.playlists) fileOf(listed.path).isListed = true;
  for (const CollectedPlaylist& playlist : collected.playlists) {
    CollectedFile& file = fileOf(playlist.path);
    file.type = playlist.type;
    file.outcome = playlist.outcome;
    if (!playlist.replacedBy) file.genericFile = playlist.genericFile;
  }
  return files;
}

void Rescue::Run(const CollectResult& collected) {
  const std::vector<CollectedFile> files = FilesOf(collected);
  for (const CollectedFile& file : files) {
    if (!file.genericFile.empty()) taken_.insert(Fold(file.genericFile));
  }
  for (std::size_t i = 0; i < files.size(); ++i) {
    work_.report.Progress({WorkPhase::Checking, i + 1, files.size(), 0, 0, files[i].path});
    Take(files[i]);
  }
}

void Rescue::Add(MovedPlaylist playlist, PlaylistDraft draft) {
  work_.result.playlists.push_back(std::move(playlist));
  work_.drafts.push_back(std::move(draft));
}

void Rescue::Take(const CollectedFile& file) {
  MovedPlaylist playlist;
  playlist.source = file.path;
  playlist.type = file.type;
  PlaylistDraft draft;
  try {
    const Listing listing = Look(file.path);
    draft.content = listing.content;
    if (!file.genericFile.empty()) draft.document = ReadGenericFile(file.genericFile);
    if (!listing.hasSongs && file.genericFile.empty()) {
      playlist.state = MovedPlaylist::State::NoSongs;
      for (const FoundItem& found : listing.items) playlist.items.push_back(found.item);
    } else if (!file.genericFile.empty() && IsComplete(draft.document, listing, playlist.items)) {
      playlist.collected = file.genericFile;
    } else {
      return Rewrite(file, listing);
    }
  } catch (const RunTimeError& failure) {
    LeaveOut(playlist, MovedPlaylist::Fault::Unreadable, failure.Description());
  }
  Add(std::move(playlist), std::move(draft));
}

Rescue::Listing Rescue::Look(const String& path) {
  const std::string bytes = ReadWholeFile(*library_.Files().OpenForReading(path));
  const String text = DecodePlaylist(bytes, library_.Machine().AnsiPage());
  Listing listing;
  listing.content = FingerprintOf(bytes);
  // The scan goes by the last three characters, whether or not a point stands before them.
  const String ending = u"." + path.substr(path.size() - 3);
  listing.syntax = SyntaxOf(ending, text).value_or(ListSyntax::M3u);
  listing.hasTitles = ContainsIgnoreCase(text, u"#EXT");
  const String folder(ParentFolder(path));
  const bool isMarkup = listing.syntax == ListSyntax::Asx;
  for (const ListedItem& item : ListItems(text, listing.syntax)) {
    FoundItem found = Find(item, folder, isMarkup);
    if (item.maybeComment && !found.item.IsSong()) continue;
    listing.hasSongs = listing.hasSongs || found.item.IsCarried();
    listing.items.push_back(std::move(found));
  }
  return listing;
}

/// By the first of an item's references that is a song; else by the first address.
Rescue::FoundItem Rescue::Find(const ListedItem& listed, const String& folder, bool isMarkup) {
  using Kind = FoundReference::Kind;
  std::optional<FoundReference> best;
  for (const String& reference : listed.references) {
    FoundReference found = finder_.Find(reference, folder);
    const bool better = !best || (found.kind == Kind::File && best->kind != Kind::File) ||
                        (found.kind == Kind::Address && best->kind > Kind::Address);
    if (better) best = std::move(found);
  }
  FoundItem found;
  found.listed = listed;
  found.item.reference = listed.references.front();
  switch (best->kind) {
    case Kind::File:
      found.item.song = songs_.NumberOf(best->path, best->size);
      found.item.fate = MovedItem::Fate::Song;
      break;
    case Kind::Address:
      found.item.reference = isMarkup ? DecodeEntities(best->path) : best->path;
      found.item.fate = MovedItem::Fate::Address;
      break;
    case Kind::NotMedia:
      found.item.fate = MovedItem::Fate::NotMedia;
      break;
    case Kind::Missing:
      found.item.fate = MovedItem::Fate::NoSuchFile;
      break;
  }
  return found;
}

MovedItem Rescue::ItemOf(const String& address, std::int32_t urlType) {
  MovedItem item;
  item.reference = address;
  const bool isSong = urlType < url_type::kRemovable;
  item.fate = isSong ? MovedItem::Fate::Song : MovedItem::Fate::Address;
  if (isSong) item.song = songs_.NumberOf(address);
  return item;
}

IniDocument Rescue::ReadGenericFile(const String& path) {
  const std::optional<std::string> bytes = library_.Machine().Settings().Read(path);
  return IniDocument(DecodeFile(bytes.value_or(""), library_.Machine().AnsiPage()));
}

/// The generic file has all the items that the playlist lists, in their order. What it has beyond
/// them counts too: then it was the reader who understood more.
bool Rescue::IsComplete(const IniDocument& document, const Listing& listing,
                        std::vector<MovedItem>& items) {
  if (HasForeignEntries(document)) return false;
  auto next = listing.items.begin();
  const auto takeLeftOut = [&] {
    for (; next != listing.items.end() && !next->item.IsCarried(); ++next) {
      items.push_back(next->item);
    }
  };
  for (std::size_t entry = 1;; ++entry) {
    const std::size_t section =
        document.FindSection(EntrySection(static_cast<std::int64_t>(entry)));
    if (section == IniDocument::kNone) break;
    const auto value = [&](StringView key) {
      return String(document.Value(section, key).value_or(StringView()));
    };
    const double urlType = ParseNumber(value(u"URLType")).value_or(0);
    MovedItem item = ItemOf(value(u"SourceURL"), static_cast<std::int32_t>(urlType));
    item.entry = entry;
    takeLeftOut();
    if (next != listing.items.end() && KeyOf(item) == KeyOf(next->item)) ++next;
    items.push_back(std::move(item));
  }
  takeLeftOut();
  if (next == listing.items.end()) return true;
  items.clear();
  return false;
}

/// By how the text is written, whatever the file's name says.
std::int32_t Rescue::FittingType(const String& path, const Listing& listing) {
  const PlaylistType& standIn = StandInType(ExtensionOf(listing.syntax), listing.hasTitles);
  if (standIn.header != Header::SettingsKeys) return standIn.code;
  const std::int32_t type = TypeByKeys(library_, path);
  return type == playlist_type::kUnknown ? standIn.code : type;
}

/// Why the queue left a playlist without a whole generic file.
Mending::Kind Rescue::WhyLost(const CollectedFile& file) {
  if (!file.isListed) return Mending::Kind::NotListed;
  if (!file.outcome) return Mending::Kind::QueueEnded;
  switch (*file.outcome) {
    case PlaylistOutcome::Unnamed:
      return Mending::Kind::Unnamed;
    case PlaylistOutcome::NotWritten:
      return Mending::Kind::NotWritten;
    case PlaylistOutcome::Empty:
      return Mending::Kind::NothingUnderstood;
    case PlaylistOutcome::UnknownType:
      return Mending::Kind::UnknownType;
    case PlaylistOutcome::Unreadable:
      return Mending::Kind::NotReadToEnd;
    case PlaylistOutcome::Written:
    case PlaylistOutcome::Restored:
      break;
  }
  return file.genericFile.empty() ? Mending::Kind::NameTaken : Mending::Kind::Incomplete;
}

MovedPlaylist Rescue::NewPart(const CollectedFile& file, std::int32_t type, std::size_t added,
                              bool isSplit) {
  MovedPlaylist playlist;
  playlist.source = file.path;
  playlist.type = type;
  playlist.mendings.push_back({WhyLost(file), 0});
  if (added > 0) playlist.mendings.push_back({Mending::Kind::EntriesAdded, added});
  if (isSplit) playlist.mendings.push_back({Mending::Kind::Split, 0});
  return playlist;
}

void Rescue::Rewrite(const CollectedFile& file, const Listing& listing) {
  const std::int32_t type = FittingType(file.path, listing);
  const ObjectRef read = library_.Create(u"PlayList");
  ReadInto(*read, file.path, type);
  std::size_t added = 0;
  const std::vector<ObjectRef> entries = CompleteEntries(EntriesOf(*read), listing, type, added);
  // What was written for it before is replaced.
  if (!file.genericFile.empty()) taken_.erase(Fold(file.genericFile));
  auto found = listing.items.begin();
  for (std::size_t at = 0; at < entries.size(); at += kMostEntries) {
    const auto part = std::span(entries).subspan(at, std::min(kMostEntries, entries.size() - at));
    MovedPlaylist playlist = NewPart(file, type, added, entries.size() > kMostEntries);
    for (std::size_t entry = 0; entry < part.size() && found != listing.items.end(); ++found) {
      MovedItem& item = playlist.items.emplace_back(found->item);
      if (!item.IsCarried()) continue;
      item.reference = TextOf(*part[entry], u"Entry_SourceURL");  // the reader may spell it anew
      item.entry = ++entry;
    }
    if (at + part.size() == entries.size()) {
      for (; found != listing.items.end(); ++found) playlist.items.push_back(found->item);
    }
    const String number = at == 0 ? String() : u' ' + FormatInteger(PartNumber(at));
    playlist.collected = Write(*read, file.path, number, type, part);
    PlaylistDraft draft;
    draft.content = listing.content;
    if (playlist.collected.empty()) {
      LeaveOut(playlist, MovedPlaylist::Fault::GenericNotWritten);
    } else {
      draft.document = ReadGenericFile(playlist.collected);
    }
    Add(std::move(playlist), std::move(draft));
  }
}

/// The listed items in their order, by the reader's own entries where it has them.
std::vector<ObjectRef> Rescue::CompleteEntries(const std::vector<ObjectRef>& read,
                                               const Listing& listing, std::int32_t type,
                                               std::size_t& added) {
  std::map<String, std::deque<ObjectRef>> byKey;
  for (const ObjectRef& entry : read) {
    const MovedItem item =
        ItemOf(TextOf(*entry, u"Entry_SourceURL"), NumberOf(*entry, u"Entry_URLType"));
    byKey[KeyOf(item)].push_back(entry);
  }
  std::vector<ObjectRef> entries;
  for (const FoundItem& found : listing.items) {
    if (!found.item.IsCarried()) continue;
    std::deque<ObjectRef>& same = byKey[KeyOf(found.item)];
    if (same.empty()) {
      entries.push_back(NewEntry(found, type));
      ++added;
    } else {
      entries.push_back(same.front());
      same.pop_front();
    }
  }
  return entries;
}

ObjectRef Rescue::NewEntry(const FoundItem& found, std::int32_t type) {
  const ObjectRef entry = norvo::NewEntry(library_, type);
  const bool isSong = found.item.IsSong();
  entry->Let(u"Entry_URLType", isSong ? url_type::kFixedDrive : url_type::kInternet);
  entry->Let(u"Entry_SourceURL", isSong ? songs_.SourceOf(found.item.song) : found.item.reference);
  entry->Let(u"Entry_SongName", found.listed.title);
  entry->Let(u"Entry_ArtistName", found.listed.artist);
  entry->Let(u"Entry_AlbumName", found.listed.album);
  if (isSong) entry->Call(u"Entry_GetID3TagInfo");
  const String artist = TextOf(*entry, u"Entry_ArtistName");
  const String song = TextOf(*entry, u"Entry_SongName");
  if (HasAsxEntries(type)) {
    entry->Let(u"ASX_Title", song);
    entry->Let(u"ASX_SongName", song);
  }
  entry->Let(u"HasExtendedInfo", !artist.empty() && !song.empty());
  return entry;
}

ObjectRef Rescue::NewPlaylist(AutomationObject& read, const String& fileName, std::int32_t type) {
  constexpr StringView kCopied[] = {u"CreationTime", u"ASX_AllowShuffle",     u"ASX_Artist",
                                    u"ASX_Album",    u"ASX_Author",           u"ASX_Title",
                                    u"ASX_Version",  u"ASX_PlayListAttribute"};
  const ObjectRef playlist = library_.Create(u"PlayList");
  playlist->Let(u"PlayListType", type);
  playlist->Let(u"OriginalFileName", fileName);
  for (const StringView property : kCopied) playlist->Let(property, read.Get(property));
  return playlist;
}

/// Gives the playlist the attempt's name; false when no generic file can be written under it.
bool Rescue::Name(AutomationObject& playlist, const String& path, std::int32_t type, int attempt) {
  String base = BaseOf(path);
  if (attempt > 1) {
    // A point would be taken for the start of an extension.
    std::replace(base.begin(), base.end(), u'.', u' ');
    base = PortableName(base) + u" " + FormatInteger(attempt);
  }
  playlist.Let(u"PlayListName", base + String(FindPlaylistType(type)->extension));
  const String name = TextOf(playlist, u"PlayListName");
  if (name.empty() || name.find_first_of(u"\\/:") != String::npos) return false;
  return taken_.insert(Fold(dataArea_ + PlayListToIni(name))).second;
}

/// The path of the generic file; empty when none can be written.
String Rescue::Write(AutomationObject& read, const String& path, const String& number,
                     std::int32_t type, std::span<const ObjectRef> entries) {
  const String fileName(LastComponent(path));
  const String base = fileName.substr(0, fileName.find(u'.'));
  const ObjectRef playlist = NewPlaylist(read, base + number + fileName.substr(base.size()), type);
  const ObjectRef collection = ToObject(playlist->Get(u"PlayListEntries"));
  collection->Let(u"CollectionType", type);
  for (const ObjectRef& entry : entries) {
    entry->Let(u"Entry_EntryType", type);
    CallWith(*collection, u"Add", entry);
  }
  int& attempt = nextNames_.try_emplace(Fold(BaseOf(path)), 1).first->second;
  for (int failures = 0; failures < 2; ++attempt) {
    if (!Name(*playlist, path, type, attempt)) continue;
    if (ToBoolean(CallWith(*playlist, u"WriteGeneric", fileName))) {
      return dataArea_ + PlayListToIni(TextOf(*playlist, u"PlayListName"));
    }
    ++failures;  // the name may be one that this disk cannot have, or the disk is full
  }
  return {};
}

}  // namespace norvo
