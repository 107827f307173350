#include "move/Planner.h"

#include <algorithm>

#include "automation/RunTimeError.h"
#include "model/GenericSections.h"
#include "model/PlaylistTypes.h"
#include "move/PortableNames.h"
#include "services/DataCop.h"
#include "services/ProfileFile.h"
#include "services/Utility.h"
#include "text/Encoding.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

// So many playlists of one name are told apart by the numbers that the restoring adds.
constexpr int kMostOfOneName = 10;

/// 0 is the playlist itself.
String SectionOf(std::size_t entry) {
  return entry == 0 ? String(kGlobalSection) : EntrySection(static_cast<std::int64_t>(entry));
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

Planner::Planner(Component& old, Component& library, OverlayPlatform& overlay, FilePlacer& placer,
                 RestoreLedger& ledger, Console& console)
    : old_(old),
      library_(library),
      placer_(placer),
      console_(console),
      entries_(library, overlay),
      places_(entries_, library, overlay, placer, ledger) {}

void Planner::Run(Move& move) {
  std::vector<Draft> drafts = ReadAll(move);
  places_.ChooseAll(move, console_);
  for (Draft& draft : drafts) Adjust(move, draft);
  for (Draft& draft : drafts) {
    Confirm(move, draft);
    move.playlists[draft.playlist].carriedBytes = BytesOf(draft);
  }
}

/// Each entry has a say in the place of its song.
std::vector<Planner::Draft> Planner::ReadAll(Move& move) {
  std::vector<Draft> drafts;
  for (std::size_t i = 0; i < move.playlists.size(); ++i) {
    MovedPlaylist& playlist = move.playlists[i];
    console_.Bar().Advance("planning", i + 1, move.playlists.size(), playlist.source);
    if (playlist.state != MovedPlaylist::State::Collected) continue;
    Draft draft = Read(move, i);
    if (playlist.state != MovedPlaylist::State::Collected) continue;
    for (std::size_t entry = 0; entry < playlist.items.size(); ++entry) {
      if (playlist.items[entry].song) {
        places_.Vote(*playlist.items[entry].song, draft.answers[entry]);
      }
    }
    drafts.push_back(std::move(draft));
  }
  return drafts;
}

/// Reads a neutral file and asks the new machine about all its entries.
Planner::Draft Planner::Read(Move& move, std::size_t index) {
  MovedPlaylist& playlist = move.playlists[index];
  Draft draft;
  draft.playlist = index;
  const auto leaveOut = [&playlist](const std::string& reason) {
    playlist.state = MovedPlaylist::State::LeftOut;
    playlist.reason = reason;
  };
  try {
    const auto bytes = old_.Machine().Settings().Read(playlist.neutral);
    draft.document = IniDocument(DecodeFile(bytes.value_or(""), old_.Machine().AnsiPage()));
  } catch (const RunTimeError& failure) {
    leaveOut("its neutral file cannot be read: " + ToUtf8(failure.Description()));
    return draft;
  }
  draft.answers = AskAll(move, draft);
  if (draft.answers.size() != playlist.items.size()) {
    leaveOut("its neutral file does not read back");
  }
  return draft;
}

/// The answers as if no file stood at the old addresses: what stands there on the new machine may
/// have been put there by an earlier run, and the plan shall be the same every time.
std::vector<EntryAnswer> Planner::AskAll(const Move& move, const Draft& draft) {
  IniDocument copy(draft.document.ToText());
  const std::vector<MovedItem>& items = move.playlists[draft.playlist].items;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i].song) copy.SetValue(copy.FindOrAddSection(SectionOf(i + 1)), u"SourceURL", {});
  }
  std::vector<EntryAnswer> answers =
      entries_.AskFile(EncodeSettings(copy.ToText(), library_.Machine().AnsiPage()));
  // Without an address an entry does not tell its file name, though it uses it.
  for (std::size_t i = 0; i < answers.size(); ++i) {
    const std::size_t section = copy.FindOrAddSection(SectionOf(i + 1));
    answers[i].fileName = copy.Value(section, u"FileName").value_or(StringView());
  }
  return answers;
}

/// The native playlists take their names from what stands before the first point of this one.
void Planner::AdjustName(Move& move, Draft& draft) {
  const std::size_t section = draft.document.FindOrAddSection(SectionOf(0));
  const String original(draft.document.Value(section, u"OriginalFileName").value_or(StringView()));
  const std::size_t point = original.find(u'.');
  String base = original.substr(0, point);
  Utility::CleanString(base);  // as the restoring will do
  String whole = WithoutPoints(original.substr(0, original.rfind(u'.')));
  Utility::CleanString(whole);
  String name = NativeName(whole);
  std::string reason = "its native playlists would lose the name, or have none that Windows takes";
  const int count = ++nativeNames_[Fold(name)];
  if (count > kMostOfOneName) {
    // The numbers that the restoring adds pile up, until no disk takes the name.
    name += u' ' + FormatInteger(count);
    reason = "many playlists have this name";
  }
  const String wished = name;
  for (int number = 2; IsBlocked(name); ++number) {
    name = wished + u' ' + FormatInteger(number);
    reason = "a folder, or a link that leads nowhere, has the name of a native playlist";
  }
  if (point != String::npos && name == Trim(base)) return;
  const String extension = point == String::npos ? u".m3u" : original.substr(original.rfind(u'.'));
  Set(move, draft, 0, u"OriginalFileName", name + extension, reason);
}

/// Something that is no file stands where the restoring would put a native playlist of this name,
/// or one of those with the numbers that it adds.
bool Planner::IsBlocked(const String& name) {
  const String root = DataCop::GetSubNamePath(library_, DataCop::kPlayListSlot);
  String base = name;
  for (int number = 1; number <= kMostOfOneName; ++number) {
    for (const PlaylistType& type : PlaylistTypes()) {
      const String folder = root + String(type.playerFolder) + u'\\';
      if (placer_.IsBlocked(folder + base + String(type.extension))) return true;
    }
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
void Planner::AdjustMarkup(Move& move, Draft& draft, std::size_t entry) {
  const std::size_t section = draft.document.FindOrAddSection(SectionOf(entry));
  std::vector<String> keys;
  for (const StringView key : draft.document.Keys(section)) keys.emplace_back(key);
  for (const String& key : keys) {
    String value(*draft.document.Value(section, key));
    if (!HoldsElement(value)) continue;
    std::replace(value.begin(), value.end(), u'<', u'(');
    std::replace(value.begin(), value.end(), u'>', u')');
    Set(move, draft, entry, key, value, "ASX files would take it for markup");
  }
}

void Planner::Adjust(Move& move, Draft& draft) {
  AdjustName(move, draft);
  const std::vector<MovedItem>& items = move.playlists[draft.playlist].items;
  for (std::size_t i = 0; i <= items.size(); ++i) AdjustMarkup(move, draft, i);
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i].song) AdjustEntry(move, draft, i);
  }
}

void Planner::AdjustEntry(Move& move, Draft& draft, std::size_t index) {
  const std::size_t number = *move.playlists[draft.playlist].items[index].song;
  const Song& song = move.songs[number];
  const EntryAnswer& answer = draft.answers[index];
  if (song.place.empty() || EqualsIgnoreCase(answer.place, song.place)) return;
  EntryAnswer names = answer;
  if (names.fileName.empty()) names.fileName = LastComponent(song.source);
  const std::string reason = places_.WhyNot(number, entries_.Ask(names).place);
  names.fileName = LastComponent(song.place);
  const bool fillsIn = reason.empty();
  Set(move, draft, index + 1, u"FileName", names.fileName,
      fillsIn ? "a relative reference gives no file name" : reason,
      fillsIn ? Adjustment::Kind::FilledIn : Adjustment::Kind::Changed);
  if (EqualsIgnoreCase(entries_.Ask(names).place, song.place)) return;
  Set(move, draft, index + 1, u"Artist", places_.ChosenFor(number).artist, reason);
  Set(move, draft, index + 1, u"Album", places_.ChosenFor(number).album, reason);
}

/// Asks once more, now that all places are known: an entry whose old address is some file's place
/// on the new machine would take that file's name.
void Planner::Confirm(Move& move, Draft& draft) {
  const std::vector<MovedItem>& items = move.playlists[draft.playlist].items;
  const std::vector<EntryAnswer> answers = entries_.AskFile(BytesOf(draft));
  for (std::size_t i = 0; i < items.size() && i < answers.size(); ++i) {
    if (!items[i].song) continue;
    const String& place = move.songs[*items[i].song].place;
    if (place.empty() || EqualsIgnoreCase(answers[i].place, place)) continue;
    Set(move, draft, i + 1, u"SourceURL", place,
        "on the new machine another file stands at the old address");
  }
}

void Planner::Set(Move& move, Draft& draft, std::size_t entry, StringView key, const String& value,
                  const std::string& reason, Adjustment::Kind kind) {
  const std::size_t section = draft.document.FindOrAddSection(SectionOf(entry));
  const String before(draft.document.Value(section, key).value_or(StringView()));
  if (before == value) return;
  draft.document.SetValue(section, key, value);
  move.adjustments.push_back({draft.playlist, entry, String(key), before, value, reason, kind});
}

std::string Planner::BytesOf(const Draft& draft) const {
  return EncodeSettings(draft.document.ToText(), library_.Machine().AnsiPage());
}

}  // namespace norvo
