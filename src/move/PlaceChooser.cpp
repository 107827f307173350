#include "move/PlaceChooser.h"

#include <algorithm>

#include "move/PortableNames.h"
#include "services/DataCop.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr int kMostNumbers = 100000;
constexpr int kMostUnseen = 100;
// Room that is left to artist and album each when the path would be too long otherwise.
constexpr std::size_t kShortName = 40;

/// The folders above a path, the outermost first, from those below the root on.
template <class Visit>
void ForEachFolderAbove(const String& path, std::size_t rootLength, Visit&& visit) {
  for (std::size_t end = path.find(u'\\', rootLength); end != String::npos;
       end = path.find(u'\\', end + 1)) {
    visit(path.substr(0, end));
  }
}

}  // namespace

PlaceChooser::PlaceChooser(EntryQuestions& entries, Component& library, OverlayPlatform& overlay,
                           MediaPlacer& placer, const RestoreLedger& ledger, MoveWork& work)
    : entries_(entries),
      library_(library),
      overlay_(overlay),
      placer_(placer),
      ledger_(ledger),
      work_(work),
      root_(DataCop::GetGroupRoot(library)) {}

void PlaceChooser::Vote(std::size_t song, const KeptAnswer& answer) {
  if (votes_.size() <= song) votes_.resize(song + 1);
  std::vector<Candidate>& of = votes_[song];
  // Equal places are one text.
  const auto [known, isNew] =
      candidates_.try_emplace({song, answer.folder.data(), answer.name.data()}, of.size());
  if (isNew) of.push_back({&answer, 0});
  ++of[known->second].count;
}

/// Places of earlier moves come first, so that no new song takes one.
void PlaceChooser::ChooseAll() {
  std::vector<MovedSong>& songs = work_.result.songs;
  candidates_ = {};
  votes_.resize(songs.size());
  chosen_.resize(songs.size());
  std::vector<bool> kept(songs.size());
  for (std::size_t song = 0; song < songs.size(); ++song) {
    kept[song] = !votes_[song].empty() && KeepPlace(song, songs[song]);
  }
  for (std::size_t song = 0; song < songs.size(); ++song) {
    work_.report.Progress(
        {WorkPhase::PlanningSongs, song + 1, songs.size(), 0, 0, songs[song].source});
    if (!votes_[song].empty() && !kept[song]) Choose(song, songs[song]);
  }
  votes_ = std::vector<std::vector<Candidate>>();  // nobody asks for them any more
}

/// The place that most entries of the song have without a change, if it will do.
void PlaceChooser::Choose(std::size_t number, MovedSong& song) {
  std::vector<Candidate>& votes = votes_[number];
  std::stable_sort(votes.begin(), votes.end(), [](const Candidate& left, const Candidate& right) {
    return left.count > right.count;
  });
  for (const Candidate& vote : votes) {
    if (Judge(song, vote.answer->Place()) == Fault::None) return Settle(number, song, *vote.answer);
  }
  EntryAnswer names = votes.front().answer->Copy();
  const CodePage& page = library_.Machine().AnsiPage();
  if (names.fileName.empty()) names.fileName = LastComponent(song.source);
  names.fileName = PortableName(names.fileName, &page);
  const auto portable = [&page](const String& name, std::size_t most) {
    return name.empty() ? name : PortableName(name, &page, most);
  };
  const auto numbered = [&portable](const String& name) {
    return name.empty() ? name : NumberedName(portable(name, kShortName), 2);
  };
  const EntryAnswer attempts[] = {
      names,
      {{},
       portable(names.artist, kLongestName),
       portable(names.album, kLongestName),
       names.fileName},
      {{}, portable(names.artist, kShortName), portable(names.album, kShortName), names.fileName},
      {{}, numbered(names.artist), numbered(names.album), names.fileName},
      {{}, {}, {}, names.fileName}};
  for (const EntryAnswer& attempt : attempts) {
    if (TryNames(number, song, attempt)) return;
  }
  LeaveNowhere(song, attempts[4]);
}

/// Says why a song has no place even under its plainest names.
void PlaceChooser::LeaveNowhere(MovedSong& song, const EntryAnswer& names) {
  song.state = MovedSong::State::LeftOut;
  song.faultPath = entries_.Ask(names).place;
  switch (Judge(song, song.faultPath)) {
    case Fault::TooLong:
      song.fault = MovedSong::Fault::PathTooLong;
      return;
    case Fault::Blocked:
      song.fault = MovedSong::Fault::FolderBlocked;
      return;
    case Fault::None:
    case Fault::Taken:
      song.fault = MovedSong::Fault::NumbersTaken;
      return;
    case Fault::Illegal:
      break;
  }
  song.fault = MovedSong::Fault::GroupRootUnusable;
  song.faultPath = root_;
}

/// Varies the file name until the place will do; false when artist or album are in the way.
bool PlaceChooser::TryNames(std::size_t number, MovedSong& song, const EntryAnswer& names) {
  EntryAnswer answer = entries_.Ask(names);
  // What is left to the name, numbers included, when the path shall not be too long.
  constexpr std::size_t kLeastName = 24;
  const std::size_t others =
      answer.place.size() - std::min(answer.place.size(), names.fileName.size());
  if (others + kLeastName > kLongestPath) return false;
  const std::size_t most = std::min(kLongestName, kLongestPath - others);
  if (answer.place.size() > kLongestPath) {
    answer.fileName = PortableName(names.fileName, &library_.Machine().AnsiPage(), most);
    answer = entries_.Ask(answer);
  }
  const String fileName = answer.fileName;
  int& mark = nextMarks_.try_emplace(CaselessFingerprintOf(answer.place), 2).first->second;
  for (; mark < kMostNumbers; ++mark) {
    const Fault fault = Judge(song, answer.place);
    if (fault == Fault::None) {
      Settle(number, song, entries_.Keep(answer));
      return true;
    }
    if (fault != Fault::Taken) return false;
    if (HasOnlyUnseen(mark, answer.place)) return false;
    answer.fileName = NumberedName(fileName, mark, most);
    answer = entries_.Ask(answer);
  }
  return false;
}

/// What an earlier move has decided stands, whatever else has come since.
bool PlaceChooser::KeepPlace(std::size_t number, MovedSong& song) {
  const std::vector<KnownPlace>& known =
      ledger_.PlacesOf(RestoreLedger::NameOf(song.source, song.size));
  for (const auto& [plain, artist, album, otherFull] : known) {
    const String place(plain);
    const String full(otherFull.empty() ? plain : otherFull);
    if (!overlay_.Files().FileExists(full)) continue;
    if (Judge(song, place) != Fault::None) continue;
    Settle(number, song,
           entries_.Keep({place, String(artist), String(album), String(LastComponent(place))}),
           full);
    return true;
  }
  return false;
}

/// The answer must outlive this.
void PlaceChooser::Settle(std::size_t number, MovedSong& song, const KeptAnswer& answer,
                          const String& knownFull) {
  const String plain = answer.Place();
  chosen_[number] = &answer;
  Occupy(number, song, plain);
  const bool isKept = knownFull == plain ||
                      (!knownFull.empty() && Judge(song, knownFull, Spelling::Any) == Fault::None);
  song.place = isKept ? knownFull : FullPlace(song, *votes_[number].front().answer, plain);
  if (song.place != plain) {
    song.secondPlace = plain;
    Occupy(number, song, song.place);
  }
  TextPool& texts = work_.sections.Texts();
  work_.settled.push_back({number, texts.Keep(answer.artist), texts.Keep(answer.album)});
}

/// The place that the song's own names give, in every script; the plain one where that tells them,
/// or where there is no way.
String PlaceChooser::FullPlace(const MovedSong& song, const KeptAnswer& names,
                               const String& plain) {
  EntryAnswer full = names.Copy();
  if (full.fileName.empty()) full.fileName = LastComponent(song.source);
  const CodePage& page = library_.Machine().AnsiPage();
  if (page.Fits(names.folder) && page.Fits(names.name) && page.Fits(full.fileName)) return plain;
  const auto portable = [](const String& name) {
    return name.empty() ? name : PortableName(name, nullptr);
  };
  full = {{}, portable(full.artist), portable(full.album), portable(full.fileName)};
  const std::optional<String> place = FreePlace(song, full);
  if (place) return *place;
  // What stands where the folders should be, or may not be seen, is not in the way of the name.
  return FreePlace(song, {{}, {}, {}, full.fileName}).value_or(plain);
}

/// The first of the numbered names that is free and that the page cannot tell.
std::optional<String> PlaceChooser::FreePlace(const MovedSong& song, EntryAnswer names) {
  const CodePage& page = library_.Machine().AnsiPage();
  const String fileName = names.fileName;
  String place = entries_.Ask(names).place;
  int& mark = nextMarks_.try_emplace(CaselessFingerprintOf(place), 2).first->second;
  for (; mark < kMostNumbers && !page.Fits(place); ++mark) {
    const Fault fault = Judge(song, place, Spelling::Any);
    if (fault == Fault::None) return place;
    if (fault != Fault::Taken || HasOnlyUnseen(mark, place)) break;
    names.fileName = NumberedName(fileName, mark);
    place = entries_.Ask(names).place;
  }
  return std::nullopt;
}

/// From now on no other song can have the place.
void PlaceChooser::Occupy(std::size_t number, MovedSong& song, const String& place) {
  places_.emplace(CaselessFingerprintOf(place), number);
  ForEachFolderAbove(place, root_.size(), [this](const String& folder) {
    folders_.insert(CaselessFingerprintOf(folder));
  });
  const std::optional<FileFacts> there = overlay_.Files().FactsOf(place);
  const bool isThere = there && !doubtful_.contains(CaselessFingerprintOf(place));
  song.state = isThere ? MovedSong::State::AlreadyThere : MovedSong::State::Planned;
  FileFacts facts;
  facts.name = there ? there->name : String(LastComponent(place));
  facts.size = song.size;
  overlay_.Pretend(place, facts);
}

PlaceChooser::Fault PlaceChooser::Judge(const MovedSong& song, const String& place,
                                        Spelling spelling) {
  const bool inside = place.size() > root_.size() &&
                      EqualsIgnoreCase(StringView(place).substr(0, root_.size()), root_);
  const CodePage* const page =
      spelling == Spelling::Plain ? &library_.Machine().AnsiPage() : nullptr;
  if (!inside || !HasPortableNames(place, page)) return Fault::Illegal;
  if (place.size() > kLongestPath) return Fault::TooLong;
  if (IsBlocked(place)) return Fault::Blocked;
  return IsTaken(song, place) ? Fault::Taken : Fault::None;
}

bool PlaceChooser::IsBlocked(const String& place) {
  bool blocked = false;
  ForEachFolderAbove(place, root_.size(), [&](const String& folder) {
    const Fingerprint folded = CaselessFingerprintOf(folder);
    if (blocked || folders_.contains(folded)) return;
    blocked = places_.contains(folded);
    // A folder that is not there is known to hold nothing, so that it is asked for first.
    if (blocked || overlay_.Files().FolderExists(folder)) return;
    blocked = overlay_.Files().FileExists(folder) || IsBlockedOnDisk(folder);
    if (!blocked) absent_.insert(folded);
  });
  return blocked;
}

/// Below a folder that is not there nothing is: the disk need not be asked for each name.
bool PlaceChooser::IsBlockedOnDisk(const String& path) {
  return !absent_.contains(CaselessFingerprintOf(ParentFolder(path))) && placer_.IsBlocked(path);
}

/// All names are taken in a folder that denies every look.
bool PlaceChooser::HasOnlyUnseen(int mark, const String& place) {
  return mark > kMostUnseen && placer_.IsBlocked(place);
}

/// Another song, another file or a folder is there, or what may not be seen.
bool PlaceChooser::IsTaken(const MovedSong& song, const String& place) {
  const Fingerprint folded = CaselessFingerprintOf(place);
  if (places_.contains(folded) || folders_.contains(folded)) return true;
  FileSystem& files = overlay_.Files();
  if (files.FolderExists(place)) return true;
  const std::optional<FileFacts> there = files.FactsOf(place);
  if (!there) return IsBlockedOnDisk(place);
  if (there->size != song.size) return true;
  // One of the same size that cannot be read now is most likely the song, from an earlier move: it
  // is not brought once more under another name, and bringing it tells why nobody can compare it.
  const Comparison comparison = placer_.Compare(song.source, place);
  if (comparison == Comparison::Unknown) doubtful_.insert(folded);
  return comparison == Comparison::Other;
}

Adjustment::Reason PlaceChooser::WhyNot(std::size_t number, const String& place) {
  using Reason = Adjustment::Reason;
  const CodePage& page = library_.Machine().AnsiPage();
  if (!page.Fits(place)) return Reason::NotInCodePage;
  if (place.size() > kLongestPath) return Reason::PathTooLong;
  if (!HasPortableNames(place, &page)) return Reason::IllegalName;
  if (!EqualsIgnoreCase(StringView(place).substr(0, root_.size()), root_)) {
    return Reason::LeavesGroupRoot;
  }
  const Fingerprint folded = CaselessFingerprintOf(place);
  const auto owner = places_.find(folded);
  if (owner != places_.end()) {
    return owner->second == number ? Reason::RelativeReference : Reason::OtherSong;
  }
  if (folders_.contains(folded) || overlay_.Files().FolderExists(place)) {
    return Reason::FolderThere;
  }
  return overlay_.Files().FileExists(place) ? Reason::OtherFile : Reason::PlaceElsewhere;
}

}  // namespace norvo
