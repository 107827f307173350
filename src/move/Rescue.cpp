#include "move/Rescue.h"

#include <algorithm>
#include <deque>
#include <map>
#include <unordered_map>
#include <utility>

#include "automation/RunTimeError.h"
#include "controller/HeaderSniffer.h"
#include "lists/ListKinds.h"
#include "model/GenericSections.h"
#include "model/NewEntry.h"
#include "model/PlaylistTypes.h"
#include "move/LibraryCalls.h"
#include "move/OtherForms.h"
#include "services/DataCop.h"
#include "text/Encoding.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// A generic file counts its entries in 16 bits.
constexpr std::size_t kMostEntries = 32767;

/// What identifies an item that goes along, whatever its spelling.
String KeyOf(const MovedItem& item) {
  if (item.IsSong()) return u"#" + FormatInteger(static_cast<std::int64_t>(item.song));
  const bool isUrl = item.reference.find(u"://") != String::npos;
  return Fold(isUrl ? String(item.reference) : AbsolutePath(item.reference, u"C:"));
}

/// True when both have one key; what is mostly asked, of two songs, takes no text.
bool IsSameItem(const MovedItem& left, const MovedItem& right) {
  if (left.IsSong() && right.IsSong()) return left.song == right.song;
  return KeyOf(left) == KeyOf(right);
}

/// True for a generic file of one type with entries of another, which no reading takes.
bool HasForeignEntries(const GenericDraft& document) {
  const std::size_t globals = document.FindSection(kGlobalSection);
  const std::size_t entry = document.FindEntry(1);
  if (globals == GenericDraft::kNone || entry == GenericDraft::kNone) return false;
  const std::optional<StringView> type = document.Value(entry, u"EntryType");
  return type && type != document.Value(globals, u"PlaylistType");
}

/// Of a part of a playlist that is split, from its first entry, which is 0-based.
std::int64_t PartNumber(std::size_t first) {
  return static_cast<std::int64_t>(first / kMostEntries + 1);
}

/// What new playlists take their names from: the file's, or of a file that holds several lists the
/// list's own.
String FileNameOf(StringView path, const String& listName) {
  if (listName.empty()) return String(LastComponent(path));
  String name = listName;
  // A point would be taken for the start of an extension.
  std::replace(name.begin(), name.end(), u'.', u' ');
  return name + u".m3u";
}

}  // namespace

Rescue::Rescue(Component& library, const ProductSettings& settings, const Stock& stock,
               SongBook& songs, MoveWork& work)
    : library_(library),
      songs_(songs),
      work_(work),
      stock_(stock),
      reader_(library, stock, songs, work.sections.Texts()),
      maker_(library, DataAreaOf(settings)) {}

/// In the order of the stock.
std::vector<Rescue::CollectedFile> Rescue::FilesOf(const CollectResult& collected) const {
  std::vector<CollectedFile> files;
  std::unordered_map<StringView, std::size_t> byPath;
  const auto fileOf = [&](const String& path) -> CollectedFile& {
    const auto [found, isNew] = byPath.try_emplace(path, files.size());
    if (isNew) files.emplace_back().stock = {path, "playlist", true, MovedPlaylist::SkipRule::None};
    return files[found->second];
  };
  for (const StockList& list : stock_.lists) fileOf(list.path).stock = list;
  for (const String& path : collected.met) fileOf(path).isMet = true;
  for (const ListedPlaylist& listed : collected.scan.playlists) fileOf(listed.path).isListed = true;
  for (const CollectedPlaylist& playlist : collected.playlists) {
    CollectedFile& file = fileOf(playlist.path);
    file.type = playlist.type;
    file.outcome = playlist.outcome;
    if (!playlist.replacedBy) file.genericFile = playlist.genericFile;
  }
  return files;
}

/// What the list of a file holds, whatever its songs are called: a song may have a second name for
/// players that cannot tell the first. Nothing for a file that holds none, or several.
std::optional<String> Rescue::ContentOf(const String& path) {
  try {
    const PatientReader::File file = reader_.Read(path);
    if (file.lists.size() != 1 || file.isDamaged) return std::nullopt;
    String content;
    for (const FoundItem& found : file.lists.front().items) {
      const double size = found.item.IsSong() ? work_.result.songs[found.item.song].size : 0;
      // Empty songs are told apart by their names, as addresses are.
      content += size > 0 ? FormatNumber(size) : PlainName(found.item);
      content += u'\n';
    }
    return content;
  } catch (const RunTimeError&) {
    return std::nullopt;
  }
}

/// The last name of an item as a list in the 8-bit page tells it.
String Rescue::PlainName(const MovedItem& item) {
  const CodePage& page = library_.Machine().AnsiPage();
  const StringView path = item.IsSong() ? StringView(songs_.SourceOf(item.song)) : item.reference;
  return page.Decode(page.Encode(LastComponent(path)));
}

void Rescue::SkipOtherForms(std::vector<CollectedFile>& files) {
  using Rule = MovedPlaylist::SkipRule;
  std::vector<String> paths;
  for (const CollectedFile& file : files) {
    if (file.stock.rule == Rule::None && file.stock.isRead) paths.push_back(file.stock.path);
  }
  const OtherForms forms(paths, [this](const String& path) { return ContentOf(path); });
  // All songs that are known by now are those of the forms.
  for (const MovedSong& song : work_.result.songs) work_.otherNames.push_back(song.source);
  for (CollectedFile& file : files) {
    if (forms.Contains(file.stock.path)) file.stock.rule = Rule::OtherForm;
  }
}

void Rescue::Run(const CollectResult& collected) {
  std::vector<CollectedFile> files = FilesOf(collected);
  SkipOtherForms(files);
  for (const CollectedFile& file : files) {
    if (!file.genericFile.empty()) maker_.Take(file.genericFile);
  }
  for (std::size_t i = 0; i < files.size(); ++i) {
    work_.report.Progress({WorkPhase::Checking, i + 1, files.size(), 0, 0, files[i].stock.path});
    Take(files[i]);
  }
}

void Rescue::Add(MovedPlaylist playlist, PlaylistDraft draft) {
  // They are there until the end, and there may be very many.
  playlist.items.shrink_to_fit();
  draft.told.shrink_to_fit();
  work_.result.playlists.push_back(std::move(playlist));
  work_.drafts.push_back(std::move(draft));
}

void Rescue::AddItem(const FoundItem& found, MovedPlaylist& playlist, PlaylistDraft& draft) {
  playlist.items.push_back(found.item);
  draft.told.push_back(found.told);
}

MovedPlaylist Rescue::NewPlaylist(const CollectedFile& file) {
  MovedPlaylist playlist;
  playlist.source = file.stock.path;
  playlist.kind = file.stock.kind;
  playlist.type = file.type;
  return playlist;
}

void Rescue::Take(const CollectedFile& file) {
  MovedPlaylist playlist = NewPlaylist(file);
  if (file.stock.rule != MovedPlaylist::SkipRule::None) {
    playlist.state = MovedPlaylist::State::Skipped;
    playlist.rule = file.stock.rule;
  } else if (!file.stock.isRead) {
    LeaveOut(playlist, MovedPlaylist::Fault::KindNotRead);
  } else {
    try {
      return TakeLists(file);
    } catch (const RunTimeError& failure) {
      LeaveOut(playlist, MovedPlaylist::Fault::Unreadable, failure.Description());
    }
  }
  Add(std::move(playlist), {});
}

void Rescue::TakeLists(const CollectedFile& file) {
  PatientReader::File found = reader_.Read(file.stock.path);
  const auto takeAll = [&] {
    for (Listing& listing : found.lists) {
      TakeList(file, listing);
      listing.items = std::vector<FoundItem>();  // a library has very many in all
    }
  };
  const bool hasSongs = std::any_of(found.lists.begin(), found.lists.end(),
                                    [](const Listing& listing) { return listing.hasSongs; });
  if (hasSongs) {
    if (found.isDamaged) WarnOfDamage(file.stock.path);
    takeAll();
  } else if (found.isDamaged) {
    MovedPlaylist playlist = NewPlaylist(file);
    LeaveOut(playlist, MovedPlaylist::Fault::NotUnderstood);
    Add(std::move(playlist), {});
  } else if (found.lists.empty()) {
    MovedPlaylist playlist = NewPlaylist(file);
    playlist.state = MovedPlaylist::State::NoSongs;
    Add(std::move(playlist), {});
  } else {
    takeAll();
  }
}

void Rescue::WarnOfDamage(const String& path) {
  WorkWarning warning;
  warning.kind = WorkWarning::Kind::ListDamaged;
  warning.subject = path;
  work_.report.Warn(std::move(warning));
}

void Rescue::TakeList(const CollectedFile& file, const Listing& listing) {
  MovedPlaylist playlist = NewPlaylist(file);
  playlist.name = listing.name;
  PlaylistDraft draft;
  draft.content = listing.content;
  if (!file.genericFile.empty()) draft.document = ReadGenericFile(file.genericFile);
  if (!listing.hasSongs && file.genericFile.empty()) {
    playlist.state = MovedPlaylist::State::NoSongs;
    playlist.items.reserve(listing.items.size());
    draft.told.reserve(listing.items.size());
    for (const FoundItem& found : listing.items) AddItem(found, playlist, draft);
  } else if (!file.genericFile.empty() && IsComplete(listing, playlist, draft)) {
    playlist.collected = file.genericFile;
  } else {
    return Rewrite(file, listing);
  }
  Add(std::move(playlist), std::move(draft));
}

MovedItem Rescue::ItemOf(StringView address, std::int32_t urlType) {
  MovedItem item;
  item.reference = work_.sections.Texts().Keep(address);
  const bool isSong = urlType < url_type::kRemovable;
  item.fate = isSong ? MovedItem::Fate::Song : MovedItem::Fate::Address;
  if (isSong) item.song = songs_.NumberOf(address);
  return item;
}

GenericDraft Rescue::ReadGenericFile(const String& path) {
  const std::optional<std::string> bytes = library_.Machine().Settings().Read(path);
  return {DecodeFile(bytes.value_or(""), library_.Machine().AnsiPage()), work_.sections};
}

/// The generic file has all the items that the playlist lists, in their order. What it has beyond
/// them counts too: then it was the reader who understood more.
bool Rescue::IsComplete(const Listing& listing, MovedPlaylist& playlist, PlaylistDraft& draft) {
  const GenericDraft& document = draft.document;
  if (HasForeignEntries(document)) return false;
  auto next = listing.items.begin();
  const auto takeLeftOut = [&] {
    for (; next != listing.items.end() && !next->item.IsCarried(); ++next) {
      AddItem(*next, playlist, draft);
    }
  };
  for (std::size_t entry = 1;; ++entry) {
    const std::size_t section = document.FindEntry(entry);
    if (section == GenericDraft::kNone) break;
    const auto value = [&](StringView key) {
      return String(document.Value(section, key).value_or(StringView()));
    };
    const double urlType = ParseNumber(value(u"URLType")).value_or(0);
    FoundItem found;
    found.item = ItemOf(value(u"SourceURL"), static_cast<std::int32_t>(urlType));
    found.item.entry = entry;
    takeLeftOut();
    if (next != listing.items.end() && IsSameItem(found.item, next->item)) {
      found.told = next->told;
      ++next;
    }
    AddItem(found, playlist, draft);
  }
  takeLeftOut();
  if (next == listing.items.end()) return true;
  playlist.items.clear();
  draft.told.clear();
  return false;
}

/// By how the text is written, whatever the file's name says.
std::int32_t Rescue::FittingType(const CollectedFile& file, const Listing& listing) {
  const PlaylistType& standIn = StandInType(ExtensionOf(listing.syntax), listing.hasTitles);
  if (standIn.header != Header::SettingsKeys) return standIn.code;
  const std::int32_t type = TypeByKeys(library_, file.stock.path);
  return type == playlist_type::kUnknown ? standIn.code : type;
}

/// Why the queue left a playlist without a whole generic file.
Mending::Kind Rescue::WhyLost(const CollectedFile& file) {
  if (!file.isMet) return Mending::Kind::OtherKind;
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
  MovedPlaylist playlist = NewPlaylist(file);
  playlist.type = type;
  playlist.mendings.push_back({WhyLost(file), 0});
  if (added > 0 && file.isMet) playlist.mendings.push_back({Mending::Kind::EntriesAdded, added});
  if (isSplit) playlist.mendings.push_back({Mending::Kind::Split, 0});
  return playlist;
}

/// The library's own reading of the file, as far as it goes.
ObjectRef Rescue::ReadByLibrary(const CollectedFile& file, std::int32_t type) {
  const ObjectRef read = library_.Create(u"PlayList");
  if (file.isMet) ReadInto(*read, file.stock.path, type);
  return read;
}

void Rescue::Rewrite(const CollectedFile& file, const Listing& listing) {
  const std::int32_t type = FittingType(file, listing);
  const ObjectRef read = ReadByLibrary(file, type);
  std::size_t added = 0;
  const std::vector<ObjectRef> entries = CompleteEntries(EntriesOf(*read), listing, type, added);
  // What was written for it before is replaced.
  if (!file.genericFile.empty()) maker_.Release(file.genericFile);
  auto found = listing.items.begin();
  for (std::size_t at = 0; at < entries.size(); at += kMostEntries) {
    const auto part = std::span(entries).subspan(at, std::min(kMostEntries, entries.size() - at));
    MovedPlaylist playlist = NewPart(file, type, added, entries.size() > kMostEntries);
    playlist.name = listing.name;
    PlaylistDraft draft;
    draft.content = listing.content;
    for (std::size_t entry = 0; entry < part.size() && found != listing.items.end(); ++found) {
      AddItem(*found, playlist, draft);
      MovedItem& item = playlist.items.back();
      if (!item.IsCarried()) continue;
      // The reader may spell an address anew.
      if (!item.IsSong()) {
        item.reference = work_.sections.Texts().Keep(TextOf(*part[entry], u"Entry_SourceURL"));
      }
      item.entry = ++entry;
    }
    if (at + part.size() == entries.size()) {
      for (; found != listing.items.end(); ++found) AddItem(*found, playlist, draft);
    }
    const String number = at == 0 ? String() : u' ' + FormatInteger(PartNumber(at));
    const String fileName = FileNameOf(file.stock.path, listing.name);
    playlist.collected = maker_.Write(*read, fileName, number, type, part);
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
  entry->Let(u"Entry_SourceURL",
             isSong ? songs_.SourceOf(found.item.song) : String(found.item.reference));
  const ToldDetails told = found.told.In(work_.sections.Texts());
  entry->Let(u"Entry_SongName", String(told.title));
  entry->Let(u"Entry_ArtistName", String(told.artist));
  entry->Let(u"Entry_AlbumName", String(told.album));
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

}  // namespace norvo
