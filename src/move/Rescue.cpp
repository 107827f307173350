#include "move/Rescue.h"

#include <algorithm>
#include <deque>
#include <map>

#include "automation/Conversions.h"
#include "automation/RunTimeError.h"
#include "lists/XmlEntities.h"
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

// A neutral file counts its entries in 16 bits.
constexpr std::size_t kMostEntries = 32767;

StringView EntryClass(std::int32_t type) {
  if (HasAsxEntries(type)) return u"AsxEntry";
  return FindPlaylistType(type)->readAs == Syntax::Pls ? u"PlsEntry" : u"M3UEntry";
}

/// What identifies an item, whatever its spelling.
String KeyOf(const MovedItem& item) {
  if (item.song) return u"#" + FormatInteger(static_cast<std::int64_t>(*item.song));
  const bool isUrl = item.address.find(u"://") != String::npos;
  return Fold(isUrl ? item.address : AbsolutePath(item.address, u"C:"));
}

/// Why the queue left a playlist without a whole neutral file.
std::string WhyLost(const CollectedFile& file) {
  if (!file.isListed) return "its first lines tell no type, so it was not listed";
  if (!file.outcome) return "the queue ended before it had a neutral file";
  switch (*file.outcome) {
    case PlaylistOutcome::Unnamed:
      return "it had no name for its neutral file";
    case PlaylistOutcome::NotWritten:
      return "its neutral file could not be written under its name";
    case PlaylistOutcome::Empty:
      return "none of its lines was understood";
    case PlaylistOutcome::UnknownType:
      return "its first lines tell no type";
    case PlaylistOutcome::Unreadable:
      return "it was not read to its end";
    case PlaylistOutcome::Written:
    case PlaylistOutcome::Restored:
      break;
  }
  if (file.neutralFile.empty()) return "another playlist's neutral file took its name";
  return "its neutral file does not tell all that it lists";
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

Rescue::Rescue(Component& library, const Settings& settings, SongBook& songs, Console& console)
    : library_(library),
      dataArea_(DataAreaOf(settings)),
      songs_(songs),
      console_(console),
      finder_(library) {}

std::vector<MovedPlaylist> Rescue::Run(const std::vector<CollectedFile>& files) {
  for (const CollectedFile& file : files) {
    if (!file.neutralFile.empty()) taken_.insert(Fold(file.neutralFile));
  }
  std::vector<MovedPlaylist> playlists;
  for (std::size_t i = 0; i < files.size(); ++i) {
    const CollectedFile& file = files[i];
    console_.Bar().Advance("checking", i + 1, files.size(), file.path);
    MovedPlaylist playlist;
    playlist.source = file.path;
    playlist.type = file.type;
    try {
      const Listing listing = Look(file.path);
      playlist.missed = listing.missed;
      if (listing.wanted.empty() && file.neutralFile.empty()) {
        playlist.state = MovedPlaylist::State::NoSongs;
      } else if (IsComplete(file, listing, playlist.items)) {
        playlist.neutral = file.neutralFile;
      } else {
        Rewrite(file, listing, playlists);
        continue;
      }
    } catch (const RunTimeError& failure) {
      playlist.state = MovedPlaylist::State::LeftOut;
      playlist.reason = "cannot be read: " + ToUtf8(failure.Description());
    }
    playlists.push_back(std::move(playlist));
  }
  return playlists;
}

Rescue::Listing Rescue::Look(const String& path) {
  const auto file = library_.Files().OpenForReading(path);
  const String text = DecodePlaylist(ReadWholeFile(*file), library_.Machine().AnsiPage());
  Listing listing;
  // The scan goes by the last three characters, whether or not a point stands before them.
  const String ending = u"." + path.substr(path.size() - 3);
  listing.syntax = SyntaxOf(ending, text).value_or(ListSyntax::M3u);
  listing.hasTitles = ContainsIgnoreCase(text, u"#EXT");
  const String folder(ParentFolder(path));
  for (const ListedItem& item : ListItems(text, listing.syntax)) Find(item, folder, listing);
  return listing;
}

/// The first of an item's references that is a song; else the first address.
void Rescue::Find(const ListedItem& listed, const String& folder, Listing& listing) {
  using Kind = FoundReference::Kind;
  std::optional<FoundReference> best;
  for (const String& reference : listed.references) {
    FoundReference found = finder_.Find(reference, folder);
    const bool better = !best || (found.kind == Kind::File && best->kind != Kind::File) ||
                        (found.kind == Kind::Address && best->kind > Kind::Address);
    if (better) best = std::move(found);
  }
  if (!best || (listed.maybeComment && best->kind != Kind::File)) return;
  if (best->kind == Kind::File || best->kind == Kind::Address) {
    Wanted& wanted = listing.wanted.emplace_back();
    wanted.listed = listed;
    if (best->kind == Kind::File) wanted.item.song = songs_.NumberOf(best->path);
    if (best->kind == Kind::Address) {
      const bool isMarkup = listing.syntax == ListSyntax::Asx;
      wanted.item.address = isMarkup ? DecodeEntities(best->path) : best->path;
    }
  } else {
    const char* const why = best->kind == Kind::Missing ? "no such file" : "not a media file";
    listing.missed.push_back('"' + ToUtf8(listed.references.front()) + "\": " + why);
  }
}

MovedItem Rescue::ItemOf(AutomationObject& entry) {
  MovedItem item;
  item.address = TextOf(entry, u"Entry_SourceURL");
  if (NumberOf(entry, u"Entry_URLType") < url_type::kRemovable) {
    item.song = songs_.NumberOf(item.address);
  }
  return item;
}

/// The queue's neutral file has all the items that the playlist lists, in their order. What it has
/// beyond them counts too: then it was the reader who understood more.
bool Rescue::IsComplete(const CollectedFile& file, const Listing& listing,
                        std::vector<MovedItem>& items) {
  if (file.neutralFile.empty()) return false;
  const ObjectRef playlist = library_.Create(u"PlayList");
  CallWith(*playlist, u"ReadGeneric", file.neutralFile);
  auto next = listing.wanted.begin();
  for (const ObjectRef& entry : EntriesOf(*playlist)) {
    items.push_back(ItemOf(*entry));
    const bool isNext = next != listing.wanted.end() && KeyOf(items.back()) == KeyOf(next->item);
    if (isNext) ++next;
  }
  return next == listing.wanted.end();
}

std::int32_t Rescue::FittingType(const String& path, const Listing& listing) {
  switch (listing.syntax) {
    case ListSyntax::Asx:
      return playlist_type::kWmpAsx;
    case ListSyntax::Pls: {
      const ObjectRef controller = library_.Create(u"helperMan");
      const std::int32_t type = ToInt32(CallWith(*controller, u"ParsePLSHeader", path));
      return type == playlist_type::kUnknown ? playlist_type::kWinampPls : type;
    }
    case ListSyntax::M3u:
      break;
  }
  return listing.hasTitles ? playlist_type::kWinampM3u : playlist_type::kMmjbM3u;
}

void Rescue::Rewrite(const CollectedFile& file, const Listing& listing,
                     std::vector<MovedPlaylist>& playlists) {
  const std::int32_t type = FittingType(file.path, listing);
  const ObjectRef read = library_.Create(u"PlayList");
  ReadPlaylist(*read, file.path, type);
  std::size_t added = 0;
  const std::vector<ObjectRef> entries = CompleteEntries(EntriesOf(*read), listing, type, added);
  // What was written for it before is replaced.
  if (!file.neutralFile.empty()) taken_.erase(Fold(file.neutralFile));
  for (std::size_t at = 0; at < entries.size(); at += kMostEntries) {
    const auto part = std::span(entries).subspan(at, std::min(kMostEntries, entries.size() - at));
    MovedPlaylist& playlist = playlists.emplace_back();
    playlist.source = file.path;
    playlist.type = type;
    playlist.missed = listing.missed;
    playlist.healed.push_back("read anew: " + WhyLost(file));
    if (added > 0) {
      playlist.healed.push_back(std::to_string(added) +
                                " of its entries added: the readers do "
                                "not take them");
    }
    if (entries.size() > kMostEntries) {
      playlist.healed.push_back("split, since a playlist holds at most 32767 entries");
    }
    for (const ObjectRef& entry : part) playlist.items.push_back(ItemOf(*entry));
    const String number = at == 0 ? String() : u' ' + FormatInteger(PartNumber(at));
    playlist.neutral = Write(*read, file.path, number, type, part);
    if (!playlist.neutral.empty()) continue;
    playlist.state = MovedPlaylist::State::LeftOut;
    playlist.reason =
        "its neutral file cannot be written: see that the old machine's data area is "
        "writable and its disk not full";
  }
}

/// The listed items in their order, by the reader's own entries where it has them.
std::vector<ObjectRef> Rescue::CompleteEntries(const std::vector<ObjectRef>& read,
                                               const Listing& listing, std::int32_t type,
                                               std::size_t& added) {
  std::map<String, std::deque<ObjectRef>> byKey;
  for (const ObjectRef& entry : read) byKey[KeyOf(ItemOf(*entry))].push_back(entry);
  std::vector<ObjectRef> entries;
  for (const Wanted& wanted : listing.wanted) {
    std::deque<ObjectRef>& same = byKey[KeyOf(wanted.item)];
    if (same.empty()) {
      entries.push_back(NewEntry(wanted, type));
      ++added;
    } else {
      entries.push_back(same.front());
      same.pop_front();
    }
  }
  return entries;
}

ObjectRef Rescue::NewEntry(const Wanted& wanted, std::int32_t type) {
  const ObjectRef entry = library_.Create(EntryClass(type));
  const bool isSong = wanted.item.song.has_value();
  entry->Let(u"Entry_URLType", isSong ? url_type::kFixedDrive : url_type::kInternet);
  entry->Let(u"Entry_SourceURL", isSong ? songs_.SourceOf(*wanted.item.song) : wanted.item.address);
  entry->Let(u"Entry_SongName", wanted.listed.title);
  entry->Let(u"Entry_ArtistName", wanted.listed.artist);
  entry->Let(u"Entry_AlbumName", wanted.listed.album);
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

/// Gives the playlist the attempt's name; false when no neutral file can be written under it.
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

/// The path of the neutral file; empty when none can be written.
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
