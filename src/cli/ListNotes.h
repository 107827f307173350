#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "move/MoveResult.h"
#include "text/Text.h"

namespace norvo::cli {

/// Something that a person may want to know of a playlist, in a line.
struct Note {
  /// How much it matters.
  enum class Weight {
    Problem,  ///< something of the playlist did not come over
    Change,   ///< something is otherwise than it was
    Detail    ///< nothing that is seen from outside
  };

  std::string text;
  Weight weight = Weight::Change;
};

/// How people are told of the playlists of a move; the move must outlive this.
class ListNotes {
 public:
  explicit ListNotes(const MoveResult& move);

  /// What people call it.
  static std::string NameOf(const MovedPlaylist& playlist);
  /// The folder that it stands in, or the file that it is one of several in.
  static std::string PlaceOf(const MovedPlaylist& playlist);
  /// False when another playlist has the same name.
  bool IsNameUnique(const MovedPlaylist& playlist) const;

  /// "5 of 6 songs, 1 address"; "not read".
  std::string Outcome(const MovedPlaylist& playlist) const;
  /// True when something that it lists did not come over, or itself did not, or a new list is not
  /// as it was written.
  bool IsProblem(const MovedPlaylist& playlist) const;
  /// All there is to say of a playlist, by its number, problems first. A song that is called
  /// otherwise now is told of with one playlist only.
  std::vector<Note> Of(std::size_t playlist) const;

 private:
  /// Those of its new files that the move warns of.
  std::vector<String> WrongFilesOf(const MovedPlaylist& playlist) const;
  void AddProblems(const MovedPlaylist& playlist, std::vector<Note>& notes) const;
  void AddItems(const MovedPlaylist& playlist, std::vector<Note>& notes) const;
  void NoteListName(const Adjustment& row, const std::string& because);
  void NoteSong(const Adjustment& row, const std::string& because);
  const MovedItem* ItemOf(const Adjustment& row);

  const MoveResult& move_;
  std::set<String> wrongFiles_;             // of which the move warns
  std::multiset<String> names_;             // as Fold() has them
  std::vector<std::vector<Note>> changes_;  // by playlist: what the adjustments mean
  std::set<std::size_t> toldSongs_;
  std::size_t entriesOf_ = std::string::npos;        // the playlist of
  std::map<std::size_t, const MovedItem*> entries_;  // these, by their numbers
};

}  // namespace norvo::cli
