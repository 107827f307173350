#include "cli/ListNotes.h"

#include <algorithm>

#include "cli/MoveWords.h"
#include "cli/TextLayout.h"
#include "text/Encoding.h"
#include "text/WindowsPath.h"

namespace norvo::cli {
namespace {

using Reason = Adjustment::Reason;
using Weight = Note::Weight;

std::string Quoted(StringView text) {
  return '"' + ToUtf8(text) + '"';
}

StringView WithoutExtension(StringView name) {
  return name.substr(0, name.rfind(u'.'));
}

std::string SongText(const MovedSong& song) {
  return ToUtf8(song.source) + " (" + SizeText(song.size) + ')';
}

/// What only serves to give a song the place that it would have anyway.
bool IsSilent(Reason reason) {
  return reason == Reason::RelativeReference || reason == Reason::PlaceElsewhere ||
         reason == Reason::OldAddressTaken;
}

/// What the library's own rules would have lost, and nobody can see now.
bool IsInner(Mending::Kind kind) {
  return kind != Mending::Kind::Split;
}

}  // namespace

ListNotes::ListNotes(const MoveResult& move) : move_(move), changes_(move.playlists.size()) {
  for (const MovedPlaylist& playlist : move.playlists) {
    names_.insert(Fold(FromUtf8Lossy(NameOf(playlist))));
  }
  for (const WorkWarning& warning : move.warnings) {
    if (warning.side == MachineSide::New) wrongFiles_.insert(warning.subject);
  }
  for (const Adjustment& row : move.adjustments) {
    if (IsSilent(row.reason)) continue;
    const std::string because = std::string(", because ") + TextOf(row.reason);
    if (row.reason == Reason::Markup) {
      changes_[row.playlist].push_back(
          {Quoted(row.before) + " is written " + Quoted(row.after) + " now" + because,
           Weight::Detail});
    } else if (row.entry == 0) {
      NoteListName(row, because);
    } else {
      NoteSong(row, because);
    }
  }
}

std::string ListNotes::NameOf(const MovedPlaylist& playlist) {
  return ToUtf8(playlist.name.empty() ? LastComponent(playlist.source) : playlist.name);
}

std::string ListNotes::PlaceOf(const MovedPlaylist& playlist) {
  return ToUtf8(playlist.name.empty() ? ParentFolder(playlist.source) : playlist.source);
}

bool ListNotes::IsNameUnique(const MovedPlaylist& playlist) const {
  return names_.count(Fold(FromUtf8Lossy(NameOf(playlist)))) < 2;
}

std::string ListNotes::Outcome(const MovedPlaylist& playlist) const {
  using State = MovedPlaylist::State;
  if (playlist.state == State::Skipped) return "skipped";
  if (playlist.state == State::LeftOut) {
    return playlist.fault == MovedPlaylist::Fault::KindNotRead ? "not read" : "left out";
  }
  const std::size_t addresses = CountAddresses(playlist);
  const std::size_t listed = playlist.items.size() - addresses;
  const std::size_t kept = listed - CountMissing(move_, playlist);
  std::string text;
  if (listed > 0) text = std::to_string(kept) + " of " + Counted(listed, "song");
  if (addresses > 0) {
    text += (text.empty() ? "" : ", ") + std::to_string(addresses) +
            (addresses == 1 ? " address" : " addresses");
  }
  if (text.empty()) text = "empty";
  if (playlist.state == State::AlreadyRestored) text += ", moved before";
  if (playlist.state == State::Collected) text += ", not moved yet";
  return text;
}

std::vector<String> ListNotes::WrongFilesOf(const MovedPlaylist& playlist) const {
  std::vector<String> files = playlist.natives;
  files.push_back(playlist.companion);
  std::erase_if(files, [&](const String& path) { return !wrongFiles_.contains(path); });
  return files;
}

bool ListNotes::IsProblem(const MovedPlaylist& playlist) const {
  return playlist.state == MovedPlaylist::State::LeftOut || CountMissing(move_, playlist) > 0 ||
         !WrongFilesOf(playlist).empty();
}

/// Grouped by what happened to them, each thing once however often it is listed.
void ListNotes::AddProblems(const MovedPlaylist& playlist, std::vector<Note>& notes) const {
  std::set<std::string> told;
  const auto add = [&](const std::string& text) {
    if (told.insert(text).second) notes.push_back({text, Weight::Problem});
  };
  for (const String& path : WrongFilesOf(playlist)) {
    add("not as it was written; was it changed or deleted? " + ToUtf8(path));
  }
  for (const MovedItem& item : playlist.items) {
    if (item.IsSong()) {
      const MovedSong& song = move_.songs[item.song];
      if (song.state == MovedSong::State::LeftOut) {
        add("left out: " + SongText(song) + ": " + ReasonText(song));
      }
    } else if (!item.IsCarried()) {
      std::string text = ReasonText(item) + ": " + ToUtf8(item.reference);
      for (std::size_t i = 0; i < item.candidates.size(); ++i) {
        text += (i == 0 ? "; it may be " : " or ") + ToUtf8(item.candidates[i]);
      }
      if (item.candidateCount > item.candidates.size()) {
        text +=
            " or one of " + std::to_string(item.candidateCount - item.candidates.size()) + " more";
      }
      add(text);
    }
  }
}

void ListNotes::AddItems(const MovedPlaylist& playlist, std::vector<Note>& notes) const {
  std::set<std::string> told;
  const auto add = [&](const std::string& text) {
    if (told.insert(text).second) notes.push_back({text, Weight::Change});
  };
  for (const MovedItem& item : playlist.items) {
    if (item.foundElsewhere && item.IsSong()) {
      const String& source = move_.songs[item.song].source;
      const bool isTold = !item.reference.empty() && item.reference != source;
      add("found elsewhere: " + (isTold ? ToUtf8(item.reference) + " is " : "") + ToUtf8(source));
    }
    // Such a song plays only where the new machine has that drive.
    if (item.fate == MovedItem::Fate::Address && HasDrive(item.reference)) {
      add("stays where it is, on a removable or network drive: " + ToUtf8(item.reference));
    }
  }
}

std::vector<Note> ListNotes::Of(std::size_t number) const {
  const MovedPlaylist& playlist = move_.playlists[number];
  std::vector<Note> notes;
  const std::string reason = ReasonText(playlist);
  if (!reason.empty()) {
    const bool isSkipped = playlist.state == MovedPlaylist::State::Skipped;
    notes.push_back({reason, isSkipped ? Weight::Change : Weight::Problem});
  }
  AddProblems(playlist, notes);
  AddItems(playlist, notes);
  notes.insert(notes.end(), changes_[number].begin(), changes_[number].end());
  for (const Mending& mending : playlist.mendings) {
    notes.push_back({TextOf(mending), IsInner(mending.kind) ? Weight::Detail : Weight::Change});
  }
  return notes;
}

void ListNotes::NoteListName(const Adjustment& row, const std::string& because) {
  const StringView name = WithoutExtension(row.after);
  if (EqualsIgnoreCase(WithoutExtension(row.before), name)) return;
  changes_[row.playlist].push_back({"is now called " + Quoted(name) + because, Weight::Change});
}

void ListNotes::NoteSong(const Adjustment& row, const std::string& because) {
  const MovedItem* const item = ItemOf(row);
  if (item == nullptr || !item->IsSong() || !toldSongs_.insert(item->song).second) return;
  const MovedSong& song = move_.songs[item->song];
  const StringView before = LastComponent(song.source);
  const StringView after = LastComponent(song.place);
  if (!song.secondPlace.empty()) {
    changes_[row.playlist].push_back(
        {"older players find " + Quoted(after) + " as " + ToUtf8(song.secondPlace) +
             ", a second name of it, since their lists cannot hold all of its letters",
         Weight::Detail});
    return;
  }
  const bool isSame = EqualsIgnoreCase(before, after);
  changes_[row.playlist].push_back({Quoted(before) +
                                        (isSame ? " is now in " + ToUtf8(ParentFolder(song.place))
                                                : " is now called " + Quoted(after)) +
                                        because,
                                    isSame ? Weight::Detail : Weight::Change});
}

/// The rows of one playlist come one behind the other, so its entries are looked through once.
const MovedItem* ListNotes::ItemOf(const Adjustment& row) {
  if (entriesOf_ != row.playlist) {
    entriesOf_ = row.playlist;
    entries_.clear();
    for (const MovedItem& item : move_.playlists[row.playlist].items) {
      if (item.entry > 0) entries_[item.entry] = &item;
    }
  }
  const auto found = entries_.find(row.entry);
  return found == entries_.end() ? nullptr : found->second;
}

}  // namespace norvo::cli
