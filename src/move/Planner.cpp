#include "move/Planner.h"

#include <algorithm>
#include <utility>

#include "model/GenericSections.h"
#include "model/PlaylistTypes.h"
#include "move/PortableNames.h"
#include "services/DataCop.h"
#include "services/Utility.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// A folder that denies every look blocks all names; the writing there tells of it.
constexpr int kMostBlocked = 100;

// So many playlists of one name are told apart by the numbers that the restoring adds.
constexpr int kMostOfOneName = 10;

/// 0 is the playlist itself.
std::size_t SectionOf(const GenericDraft& document, std::size_t entry) {
  return entry == 0 ? document.FindSection(kGlobalSection) : document.FindEntry(entry);
}

/// One of the elements that readers of ASX files look for, closed or not.
bool HoldsElement(StringView text) {
  constexpr StringView kElements[] = {u"asx", u"entry", u"ref", u"param", u"banner", u"duration"};
  for (std::size_t at = text.find(u'<'); at != StringView::npos; at = text.find(u'<', at + 1)) {
    StringView rest = Trim(text.substr(at + 1));
    if (!rest.empty() && rest.front() == u'/') rest.remove_prefix(1);
    for (const StringView element : kElements) {
      if (EqualsIgnoreCase(rest.substr(0, element.size()), element)) return true;
    }
  }
  return false;
}

/// The restoring cuts a name at its first point.
String WithoutPoints(StringView name) {
  String text;
  for (const char16_t unit : name) {
    const char16_t instead = unit == u'.' ? u' ' : unit;
    const bool doubled = unit == u'.' && (text.empty() || text.back() == u' ');
    if (!doubled) text.push_back(instead);
  }
  return text;
}

}  // namespace

Planner::Planner(Component& library, OverlayPlatform& overlay, MediaPlacer& placer,
                 const RestoreLedger& ledger, MoveWork& work)
    : library_(library),
      placer_(placer),
      work_(work),
      entries_(library, work.sections.Texts()),
      places_(entries_, library, overlay, placer, ledger, work) {}

void Planner::Run() {
  const std::vector<Asked> all = AskAll();
  AskForUnlisted();
  places_.ChooseAll();
  for (const Asked& asked : all) Adjust(asked);
  for (const Asked& asked : all) {
    Confirm(asked.playlist);
  }
}

/// Each entry has a say in the place of its song.
std::vector<Planner::Asked> Planner::AskAll() {
  std::vector<MovedPlaylist>& playlists = work_.result.playlists;
  std::vector<Asked> all;
  for (std::size_t i = 0; i < playlists.size(); ++i) {
    work_.report.Progress(
        {WorkPhase::Planning, i + 1, playlists.size(), 0, 0, playlists[i].source});
    if (playlists[i].state != MovedPlaylist::State::Collected) continue;
    Asked asked{i, entries_.AskAll(DocumentOf(i))};
    if (asked.answers.size() != CountSongs(playlists[i]) + CountAddresses(playlists[i])) {
      LeaveOut(playlists[i], MovedPlaylist::Fault::GenericDoesNotReadBack);
      continue;
    }
    for (const MovedItem& item : playlists[i].items) {
      if (item.IsSong()) places_.Vote(item.song, *asked.answers[item.entry - 1]);
    }
    all.push_back(std::move(asked));
  }
  return all;
}

/// Songs that no playlist names go where their tags would have them.
void Planner::AskForUnlisted() {
  for (std::size_t i = 0; i < work_.result.songs.size(); ++i) {
    const MovedSong& song = work_.result.songs[i];
    if (song.listed) continue;
    const ToldDetails tags = work_.tags[i].In(work_.sections.Texts());
    places_.Vote(
        i, entries_.Keep(entries_.Ask(
               {{}, String(tags.artist), String(tags.album), String(LastComponent(song.source))})));
  }
  work_.tags = std::vector<KeptDetails>();  // nobody asks for them any more
}

/// The native playlists take their names from what stands before the first point of this one.
void Planner::AdjustName(std::size_t playlist) {
  GenericDraft& document = DocumentOf(playlist);
  const std::size_t section = document.FindOrAddSection(kGlobalSection);
  const String original(document.Value(section, u"OriginalFileName").value_or(StringView()));
  const std::size_t point = original.find(u'.');
  String base = original.substr(0, point);
  Utility::CleanString(base);  // as the restoring will do
  String whole = WithoutPoints(original.substr(0, original.rfind(u'.')));
  Utility::CleanString(whole);
  String name = NativeName(whole);
  Reason reason = Reason::NameUnusable;
  const int count = ++nativeNames_[Fold(name)];
  if (count > kMostOfOneName) {
    // The numbers that the restoring adds pile up, until no disk takes the name.
    name += u' ' + FormatInteger(count);
    reason = Reason::ManyOfOneName;
  }
  const String wished = name;
  for (int number = 2; number <= kMostBlocked && IsBlocked(name); ++number) {
    name = wished + u' ' + FormatInteger(number);
    reason = Reason::NativeBlocked;
  }
  if (point != String::npos && name == Trim(base)) return;
  const String extension =
      point == String::npos ? String(kUsualExtension) : original.substr(original.rfind(u'.'));
  Set(playlist, 0, u"OriginalFileName", name + extension, reason);
}

/// Something that is no file stands where the restoring would put a native playlist of this name,
/// or one of those with the numbers that it adds.
bool Planner::IsBlocked(const String& name) {
  const String root = DataCop::GetSubNamePath(library_, DataCop::kPlayListSlot);
  const std::vector<const PlaylistType*> types = NativeTypes();
  return std::any_of(types.begin(), types.end(), [&](const PlaylistType* type) {
    return IsBlockedIn(root + String(type->playerFolder) + u'\\', name, type->extension);
  });
}

bool Planner::IsBlockedIn(const String& folder, const String& name, StringView extension) {
  const auto [known, isNew] = playerFolders_.try_emplace(folder, false);
  if (isNew) known->second = library_.Files().FolderExists(folder);
  if (!known->second) return false;
  String base = name;
  for (int number = 1; number <= kMostOfOneName; ++number) {
    if (placer_.IsBlocked(folder + base + String(extension))) return true;
    base += FormatInteger(number);  // the numbers pile up
  }
  return false;
}

/// The nearest name that native playlists can have, numbers added.
String Planner::NativeName(const String& base) {
  // Room for the folder of a player, an extension and some digits.
  constexpr std::size_t kTaken = 48;
  const std::size_t taken =
      DataCop::GetSubNamePath(library_, DataCop::kPlayListSlot).size() + kTaken;
  const std::size_t room = taken < kLongestPath ? kLongestPath - taken : 1;
  String name = PortableName(base, nullptr, std::min(room, kLongestName - kTaken));
  Utility::CleanString(name);
  name = String(Trim(name));
  return IsPortableName(name) ? name : String(Trim(u"Playlist " + name));
}

/// Texts go into native ASX files as they are; one that holds an element would become one.
void Planner::AdjustMarkup(std::size_t playlist, std::size_t entry) {
  const GenericDraft& document = DocumentOf(playlist);
  const std::size_t section = SectionOf(document, entry);
  if (section == GenericDraft::kNone) return;
  if (plain_.contains(document.ContentOf(section))) return;
  std::vector<std::pair<String, String>> changes;
  document.ForEachValue(section, [&](StringView key, StringView) {
    String value(*document.Value(section, key));  // of equal keys the first holds
    if (!HoldsElement(value)) return;
    std::replace(value.begin(), value.end(), u'<', u'(');
    std::replace(value.begin(), value.end(), u'>', u')');
    changes.emplace_back(key, std::move(value));
  });
  if (changes.empty()) plain_.insert(document.ContentOf(section));
  for (const auto& [key, value] : changes) Set(playlist, entry, key, value, Reason::Markup);
}

void Planner::Adjust(const Asked& asked) {
  AdjustName(asked.playlist);
  for (std::size_t i = 0; i <= asked.answers.size(); ++i) AdjustMarkup(asked.playlist, i);
  for (const MovedItem& item : work_.result.playlists[asked.playlist].items) {
    if (item.IsSong()) AdjustEntry(asked.playlist, item, *asked.answers[item.entry - 1]);
  }
}

void Planner::AdjustEntry(std::size_t playlist, const MovedItem& item, const KeptAnswer& answer) {
  const MovedSong& song = work_.result.songs[item.song];
  if (song.place.empty() || EqualsIgnoreCase(answer.Place(), song.PlainPlace())) return;
  EntryAnswer names = answer.Copy();
  if (names.fileName.empty()) names.fileName = LastComponent(song.source);
  const Reason reason = places_.WhyNot(item.song, entries_.Ask(names).place);
  names.fileName = LastComponent(song.PlainPlace());
  Set(playlist, item.entry, u"FileName", names.fileName, reason);
  if (EqualsIgnoreCase(entries_.Ask(names).place, song.PlainPlace())) return;
  KeepBothNames(playlist, item.entry, places_.ChosenFor(item.song).artist, reason);
  Set(playlist, item.entry, u"Artist", places_.ChosenFor(item.song).artist, reason);
  Set(playlist, item.entry, u"Album", places_.ChosenFor(item.song).album, reason);
}

/// A playlist that tells names in the other order, title first, would tell the artist twice.
void Planner::KeepBothNames(std::size_t playlist, std::size_t entry, StringView artist,
                            Reason reason) {
  const GenericDraft& document = DocumentOf(playlist);
  const std::size_t section = SectionOf(document, entry);
  const auto value = [&](StringView key) {
    return String(document.Value(section, key).value_or(StringView()));
  };
  const String title = value(u"Artist");
  if (artist.empty() || title.empty() || !EqualsIgnoreCase(artist, value(u"SongName"))) return;
  for (const StringView key : {u"SongName", u"ASX_SongName", u"ASX_Title"}) {
    if (EqualsIgnoreCase(value(key), artist)) Set(playlist, entry, key, title, reason);
  }
  for (const StringView key : {u"ASX_Artist", u"ASX_Author"}) {
    if (value(key) == title) Set(playlist, entry, key, artist, reason);
  }
}

/// Now that all places are known: an entry whose old address is some file's place on the new
/// machine would take that file's name.
void Planner::Confirm(std::size_t playlist) {
  const GenericDraft& document = DocumentOf(playlist);
  for (const MovedItem& item : work_.result.playlists[playlist].items) {
    if (!item.IsSong()) continue;
    const String& place = work_.result.songs[item.song].PlainPlace();
    const std::size_t section = document.FindEntry(item.entry);
    const auto value = [&](StringView key) {
      return String(document.Value(section, key).value_or(StringView()));
    };
    const String& name = NameAtOldAddress(document.Value(section, u"SourceURL").value_or(u""));
    if (place.empty() || name.empty()) continue;
    const EntryAnswer answer = entries_.Ask({{}, value(u"Artist"), value(u"Album"), name});
    if (EqualsIgnoreCase(answer.place, place)) continue;
    Set(playlist, item.entry, u"SourceURL", place, Reason::OldAddressTaken);
  }
}

/// Empty when no file stands there on the new machine.
const String& Planner::NameAtOldAddress(StringView address) {
  const auto [known, isNew] = oldAddresses_.try_emplace(address);
  if (isNew && !address.empty()) {
    const std::optional<FileFacts> facts = library_.Files().FactsOf(address);
    if (facts) known->second = facts->name;
  }
  return known->second;
}

void Planner::Set(std::size_t playlist, std::size_t entry, StringView key, StringView value,
                  Reason reason) {
  GenericDraft& document = DocumentOf(playlist);
  const std::size_t section =
      entry == 0 ? document.FindOrAddSection(kGlobalSection) : document.FindOrAddEntry(entry);
  const String before(document.Value(section, key).value_or(StringView()));
  if (before == value) return;
  document.SetValue(section, key, value);
  work_.result.adjustments.push_back({playlist, entry, String(key), before, String(value), reason});
}

}  // namespace norvo
