#include "host/migrate/Planner.h"

#include <algorithm>

#include "automation/Conversions.h"
#include "automation/RunTimeError.h"
#include "host/LibraryCalls.h"
#include "host/migrate/PortableNames.h"
#include "services/DataCop.h"
#include "services/ProfileFile.h"
#include "services/Utility.h"
#include "text/Encoding.h"
#include "text/Number.h"
#include "text/WindowsPath.h"

namespace norvo::host {
namespace {

constexpr StringView kGlobals = u"Global Properties";
constexpr int kPlayListSlot = 5;
constexpr int kMostNumbers = 100000;
// Room that is left to artist and album each when the path would be too long otherwise.
constexpr std::size_t kShortName = 40;
// So many playlists of one name are told apart by the numbers that the restoring adds.
constexpr int kMostOfOneName = 10;

String SectionOf(std::size_t entry) {
  return u"Entry " + FormatInteger(static_cast<std::int64_t>(entry)) + u" Properties";
}

/// Two old machines may have different files of one path; no path holds a "|".
String NameInLedger(const Song& song) {
  return song.source + u"|" + FormatNumber(song.size);
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

/// The folders above a path, the innermost first, down to those below the root.
template <class Visit>
void ForEachFolderAbove(const String& path, std::size_t rootLength, Visit&& visit) {
  for (std::size_t end = path.rfind(u'\\'); end != String::npos && end > rootLength;
       end = path.rfind(u'\\', end - 1)) {
    visit(path.substr(0, end));
  }
}

}  // namespace

Planner::Planner(Component& old, Component& library, OverlayPlatform& overlay, FilePlacer& placer,
                 RestoreLedger& ledger, Console& console)
    : old_(old),
      library_(library),
      overlay_(overlay),
      placer_(placer),
      ledger_(ledger),
      console_(console),
      root_(DataCop::GetGroupRoot(library)),
      draftPath_(DataArea(root_) + u"draft.ini") {}

void Planner::Run(Move& move) {
  std::vector<Draft> drafts;
  std::vector<std::vector<Vote>> votes(move.songs.size());
  for (std::size_t i = 0; i < move.playlists.size(); ++i) {
    console_.Bar().Advance("planning", i + 1, move.playlists.size(), move.playlists[i].source);
    if (move.playlists[i].state != MovedPlaylist::State::Collected) continue;
    Draft draft = Read(move, i);
    if (move.playlists[i].state != MovedPlaylist::State::Collected) continue;
    const std::vector<MovedItem>& items = move.playlists[i].items;
    for (std::size_t entry = 0; entry < items.size(); ++entry) {
      if (!items[entry].song) continue;
      std::vector<Vote>& of = votes[*items[entry].song];
      const auto same = std::find_if(of.begin(), of.end(), [&](const Vote& vote) {
        return vote.answer.place == draft.answers[entry].place;
      });
      if (same == of.end()) {
        of.push_back({draft.answers[entry], 1});
      } else {
        ++same->count;
      }
    }
    drafts.push_back(std::move(draft));
  }
  chosen_.resize(move.songs.size());
  std::vector<bool> kept(move.songs.size());
  for (std::size_t song = 0; song < move.songs.size(); ++song) {
    kept[song] = !votes[song].empty() && KeepPlace(song, move.songs[song]);
  }
  for (std::size_t song = 0; song < move.songs.size(); ++song) {
    console_.Bar().Advance("planning song", song + 1, move.songs.size(), move.songs[song].source);
    if (!votes[song].empty() && !kept[song]) Choose(move, song, votes[song]);
  }
  for (Draft& draft : drafts) Adjust(move, draft);
  for (Draft& draft : drafts) {
    Confirm(move, draft);
    move.playlists[draft.playlist].carriedBytes = BytesOf(draft);
  }
  if (!drafts.empty()) overlay_.Files().RemoveFile(draftPath_, true);
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
std::vector<Planner::Answer> Planner::AskAll(const Move& move, const Draft& draft) {
  IniDocument copy(draft.document.ToText());
  const std::vector<MovedItem>& items = move.playlists[draft.playlist].items;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i].song) copy.SetValue(copy.FindOrAddSection(SectionOf(i + 1)), u"SourceURL", {});
  }
  std::vector<Answer> answers =
      AskFile(EncodeSettings(copy.ToText(), library_.Machine().AnsiPage()));
  // Without an address an entry does not tell its file name, though it uses it.
  for (std::size_t i = 0; i < answers.size(); ++i) {
    const std::size_t section = copy.FindOrAddSection(SectionOf(i + 1));
    answers[i].fileName = copy.Value(section, u"FileName").value_or(StringView());
  }
  return answers;
}

std::vector<Planner::Answer> Planner::AskFile(const std::string& bytes) {
  overlay_.Settings().Write(draftPath_, bytes);
  const ObjectRef playlist = library_.Create(u"PlayList");
  CallWith(*playlist, u"ReadGeneric", draftPath_);
  std::vector<Answer> answers;
  for (const ObjectRef& entry : EntriesOf(*playlist)) {
    Answer answer;
    answer.place = ToText(entry->Call(u"Entry_DestinationPath"));
    answer.artist = TextOf(*entry, u"Entry_ArtistName");
    answer.album = TextOf(*entry, u"Entry_AlbumName");
    answers.push_back(std::move(answer));
  }
  return answers;
}

/// The same question for an entry with these names.
Planner::Answer Planner::Ask(const Answer& names) {
  const ObjectRef entry = library_.Create(u"M3UEntry");
  entry->Let(u"Entry_ArtistName", names.artist);
  entry->Let(u"Entry_AlbumName", names.album);
  entry->Let(u"Entry_FileName", names.fileName);
  Answer answer = names;
  answer.place = ToText(entry->Call(u"Entry_DestinationPath"));
  return answer;
}

/// The place that most of the song's entries have without a change, if it will do.
void Planner::Choose(Move& move, std::size_t number, std::vector<Vote> votes) {
  Song& song = move.songs[number];
  std::stable_sort(votes.begin(), votes.end(),
                   [](const Vote& left, const Vote& right) { return left.count > right.count; });
  for (const Vote& vote : votes) {
    if (Judge(song, vote.answer.place) == Fault::None) return Settle(number, song, vote.answer);
  }
  Answer names = votes.front().answer;
  const CodePage& page = library_.Machine().AnsiPage();
  if (names.fileName.empty()) names.fileName = LastComponent(song.source);
  names.fileName = PortableName(names.fileName, &page);
  const auto portable = [&page](const String& name, std::size_t most) {
    return name.empty() ? name : PortableName(name, &page, most);
  };
  const auto numbered = [&portable](const String& name) {
    return name.empty() ? name : NumberedName(portable(name, kShortName), 2);
  };
  const Answer attempts[] = {
      names,
      {{},
       portable(names.artist, kLongestName),
       portable(names.album, kLongestName),
       names.fileName},
      {{}, portable(names.artist, kShortName), portable(names.album, kShortName), names.fileName},
      {{}, numbered(names.artist), numbered(names.album), names.fileName},
      {{}, {}, {}, names.fileName}};
  for (const Answer& attempt : attempts) {
    if (TryNames(number, song, attempt)) return;
  }
  song.state = Song::State::LeftOut;
  song.reason = "the new machine has no place for it: " + WhyNowhere(song, attempts[4]);
}

/// Why a song has no place even under its plainest names.
std::string Planner::WhyNowhere(const Song& song, const Answer& names) {
  const String place = Ask(names).place;
  switch (Judge(song, place)) {
    case Fault::TooLong:
      return "the path " + ToUtf8(place) + " would be too long";
    case Fault::Blocked:
      return "a file stands where one of the folders of " + ToUtf8(place) + " should be";
    case Fault::None:
    case Fault::Taken:
      return "all numbers of " + ToUtf8(place) + " are taken";
    case Fault::Illegal:
      break;
  }
  return "see that its group root " + ToUtf8(root_) + " is a path of plain characters";
}

/// Varies the file name until the place will do; false when artist or album are in the way.
bool Planner::TryNames(std::size_t number, Song& song, const Answer& names) {
  Answer answer = Ask(names);
  std::size_t most = kLongestName;
  if (answer.place.size() > kLongestPath) {
    const std::size_t others = answer.place.size() - names.fileName.size();
    constexpr std::size_t kLeastName = 24;  // leaves room for a number and an extension
    if (others + kLeastName > kLongestPath) return false;
    most = kLongestPath - others;
    answer.fileName = PortableName(names.fileName, &library_.Machine().AnsiPage(), most);
    answer = Ask(answer);
  }
  const String fileName = answer.fileName;
  int& mark = nextMarks_.try_emplace(Fold(answer.place), 2).first->second;
  for (; mark < kMostNumbers; ++mark) {
    const Fault fault = Judge(song, answer.place);
    if (fault == Fault::None) {
      Settle(number, song, answer);
      return true;
    }
    if (fault != Fault::Taken) return false;
    answer.fileName = NumberedName(fileName, mark, most);
    answer = Ask(answer);
  }
  return false;
}

/// What an earlier move has decided stands, whatever else has come since.
bool Planner::KeepPlace(std::size_t number, Song& song) {
  const KnownPlace* const known = ledger_.PlaceOf(NameInLedger(song));
  if (known == nullptr || !overlay_.Files().FileExists(known->place)) return false;
  if (Judge(song, known->place) != Fault::None) return false;
  Settle(number, song,
         {known->place, known->artist, known->album, String(LastComponent(known->place))});
  return true;
}

void Planner::Settle(std::size_t number, Song& song, const Answer& answer) {
  song.place = answer.place;
  const KnownPlace* const known = ledger_.PlaceOf(NameInLedger(song));
  if (known == nullptr || !overlay_.Files().FileExists(known->place)) {
    ledger_.SetPlace(NameInLedger(song), {answer.place, answer.artist, answer.album});
  }
  chosen_[number] = answer;
  places_.emplace(Fold(song.place), number);
  ForEachFolderAbove(song.place, root_.size(),
                     [this](const String& folder) { folders_.insert(Fold(folder)); });
  const bool there = overlay_.Files().FileExists(song.place);
  if (there) song.state = Song::State::AlreadyThere;
  FileFacts facts;
  facts.name =
      there ? overlay_.Files().FactsOf(song.place)->name : String(LastComponent(song.place));
  facts.size = song.size;
  overlay_.Pretend(song.place, facts);
}

Planner::Fault Planner::Judge(const Song& song, const String& place) {
  const bool inside = place.size() > root_.size() &&
                      EqualsIgnoreCase(StringView(place).substr(0, root_.size()), root_);
  if (!inside || !HasPortableNames(place, library_.Machine().AnsiPage())) return Fault::Illegal;
  if (place.size() > kLongestPath) return Fault::TooLong;
  if (IsBlocked(place)) return Fault::Blocked;
  return IsTaken(song, place) ? Fault::Taken : Fault::None;
}

bool Planner::IsBlocked(const String& place) {
  bool blocked = false;
  ForEachFolderAbove(place, root_.size(), [&](const String& folder) {
    const String folded = Fold(folder);
    if (folders_.contains(folded)) return;
    blocked = blocked || places_.contains(folded) || overlay_.Files().FileExists(folder);
  });
  return blocked;
}

/// Another song, another file or a folder is there.
bool Planner::IsTaken(const Song& song, const String& place) {
  const String folded = Fold(place);
  if (places_.contains(folded) || folders_.contains(folded)) return true;
  FileSystem& files = overlay_.Files();
  if (files.FolderExists(place)) return true;
  return files.FileExists(place) && !placer_.IsSame(song.source, place);
}

/// The native playlists take their names from what stands before the first point of this one.
void Planner::AdjustName(Move& move, Draft& draft) {
  const std::size_t section = draft.document.FindOrAddSection(String(kGlobals));
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
  if (point != String::npos && name == Trim(base)) return;
  const String extension = point == String::npos ? u".m3u" : original.substr(original.rfind(u'.'));
  Set(move, draft, 0, u"OriginalFileName", name + extension, reason);
}

/// The nearest name that native playlists can have, numbers added.
String Planner::NativeName(const String& base) {
  // Room for the folder of a player, an extension and some digits.
  constexpr std::size_t kTaken = 48;
  const std::size_t taken = DataCop::GetSubNamePath(library_, kPlayListSlot).size() + kTaken;
  const std::size_t room = taken < kLongestPath ? kLongestPath - taken : 1;
  String name = PortableName(base, nullptr, std::min(room, kLongestName - kTaken));
  Utility::CleanString(name);
  name = String(Trim(name));
  return IsPortableName(name) ? name : String(Trim(u"Playlist " + name));
}

/// Texts go into native ASX files as they are; one that holds an element would become one.
void Planner::AdjustMarkup(Move& move, Draft& draft, std::size_t entry) {
  const std::size_t section =
      draft.document.FindOrAddSection(entry == 0 ? String(kGlobals) : SectionOf(entry));
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
  const Answer& answer = draft.answers[index];
  if (song.place.empty() || EqualsIgnoreCase(answer.place, song.place)) return;
  Answer names = answer;
  if (names.fileName.empty()) names.fileName = LastComponent(song.source);
  const std::string reason = WhyNot(number, Ask(names).place);
  names.fileName = LastComponent(song.place);
  const bool fillsIn = reason.empty();
  Set(move, draft, index + 1, u"FileName", names.fileName,
      fillsIn ? "a relative reference gives no file name" : reason,
      fillsIn ? Adjustment::Kind::FilledIn : Adjustment::Kind::Changed);
  if (EqualsIgnoreCase(Ask(names).place, song.place)) return;
  Set(move, draft, index + 1, u"Artist", chosen_[number].artist, reason);
  Set(move, draft, index + 1, u"Album", chosen_[number].album, reason);
}

/// Why a song does not go where its entry would have it; empty when it does.
std::string Planner::WhyNot(std::size_t number, const String& place) {
  const CodePage& page = library_.Machine().AnsiPage();
  if (!page.Fits(place)) return "playlists cannot tell this path: it does not fit the 8-bit page";
  if (place.size() > kLongestPath) return "the path would be too long";
  if (!HasPortableNames(place, page)) return "no path on Windows may be called so";
  if (!EqualsIgnoreCase(StringView(place).substr(0, root_.size()), root_)) {
    return "the path would leave the group root";
  }
  const auto owner = places_.find(Fold(place));
  if (owner != places_.end()) {
    return owner->second == number ? "" : "another song has this place";
  }
  if (folders_.contains(Fold(place)) || overlay_.Files().FolderExists(place)) {
    return "a folder has this name";
  }
  if (overlay_.Files().FileExists(place)) return "another file has this place";
  return "the song has its one place elsewhere";
}

/// Asks once more, now that all places are known: an entry whose old address is some file's place
/// on the new machine would take that file's name.
void Planner::Confirm(Move& move, Draft& draft) {
  const std::vector<MovedItem>& items = move.playlists[draft.playlist].items;
  const std::vector<Answer> answers = AskFile(BytesOf(draft));
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
  const std::size_t section =
      draft.document.FindOrAddSection(entry == 0 ? String(kGlobals) : SectionOf(entry));
  const String before(draft.document.Value(section, key).value_or(StringView()));
  if (before == value) return;
  draft.document.SetValue(section, key, value);
  move.adjustments.push_back({draft.playlist, entry, String(key), before, value, reason, kind});
}

std::string Planner::BytesOf(const Draft& draft) const {
  return EncodeSettings(draft.document.ToText(), library_.Machine().AnsiPage());
}

}  // namespace norvo::host
