#include "cli/MoveWords.h"

#include "text/Encoding.h"

namespace norvo::cli {
namespace {

const char* WordsFor(PlaceFailure failure) {
  switch (failure) {
    case PlaceFailure::None:
      break;
    case PlaceFailure::SourceMissing:
      return "the source is not there";
    case PlaceFailure::SourceNoFile:
      return "the source is no file";
    case PlaceFailure::SourceUnreadable:
      return "the source cannot be read";
    case PlaceFailure::SourceChanged:
      return "the source changed while it was read";
    case PlaceFailure::TargetUnwritable:
      return "the target cannot be written";
    case PlaceFailure::FolderThere:
      return "a folder of that name is there already";
    case PlaceFailure::OtherFileThere:
      return "another file of that name is there already";
    case PlaceFailure::NotComparable:
      return "a file of that name is there already and cannot be compared";
    case PlaceFailure::NotCopied:
      return "the file cannot be copied";
  }
  return "";
}

std::string WithSystemReason(std::string text, const String& reason) {
  return reason.empty() ? text : text + ": " + ToUtf8(reason);
}

/// Why a playlist was read anew.
const char* LossText(Mending::Kind kind) {
  switch (kind) {
    case Mending::Kind::NotListed:
      return "its first lines tell no type, so it was not listed";
    case Mending::Kind::QueueEnded:
      return "the queue ended before it had a neutral file";
    case Mending::Kind::Unnamed:
      return "it had no name for its neutral file";
    case Mending::Kind::NotWritten:
      return "its neutral file could not be written under its name";
    case Mending::Kind::NothingUnderstood:
      return "none of its lines was understood";
    case Mending::Kind::UnknownType:
      return "its first lines tell no type";
    case Mending::Kind::NotReadToEnd:
      return "it was not read to its end";
    case Mending::Kind::NameTaken:
      return "another playlist's neutral file took its name";
    default:
      return "its neutral file does not tell all that it lists";
  }
}

}  // namespace

const char* NameOf(MovedPlaylist::State state) {
  switch (state) {
    case MovedPlaylist::State::Collected:
      return "collected";
    case MovedPlaylist::State::Restored:
      return "restored";
    case MovedPlaylist::State::AlreadyRestored:
      return "alreadyRestored";
    case MovedPlaylist::State::NoSongs:
      return "noSongs";
    case MovedPlaylist::State::Skipped:
      return "skipped";
    case MovedPlaylist::State::LeftOut:
      return "leftOut";
  }
  return "";
}

const char* NameOf(MovedSong::State state) {
  switch (state) {
    case MovedSong::State::Planned:
      return "planned";
    case MovedSong::State::Copied:
      return "copied";
    case MovedSong::State::Linked:
      return "linked";
    case MovedSong::State::AlreadyThere:
      return "alreadyThere";
    case MovedSong::State::LeftOut:
      return "leftOut";
  }
  return "";
}

std::string ReasonText(const MovedSong& song) {
  const std::string path = ToUtf8(song.faultPath);
  const std::string nowhere = "the new machine has no place for it: ";
  switch (song.fault) {
    case MovedSong::Fault::None:
      break;
    case MovedSong::Fault::PathTooLong:
      return nowhere + "the path " + path + " would be too long";
    case MovedSong::Fault::FolderBlocked:
      return nowhere + "a file stands where one of the folders of " + path + " should be";
    case MovedSong::Fault::NumbersTaken:
      return nowhere + "all numbers of " + path + " are taken";
    case MovedSong::Fault::GroupRootUnusable:
      return nowhere + "see that its group root " + path + " is a path of plain characters";
    case MovedSong::Fault::NotBrought:
      return WithSystemReason(WordsFor(song.failure), song.systemReason);
  }
  return {};
}

std::string ReasonText(const MovedPlaylist& playlist) {
  const auto withReason = [&](const char* text) {
    return WithSystemReason(text, playlist.systemReason);
  };
  switch (playlist.fault) {
    case MovedPlaylist::Fault::None:
      break;
    case MovedPlaylist::Fault::KindNotRead:
      return "only its own player can read a list of this kind";
    case MovedPlaylist::Fault::Unreadable:
      return withReason("cannot be read");
    case MovedPlaylist::Fault::GenericNotWritten:
      return "its neutral file cannot be written: see that the old machine's data area is writable "
             "and its disk not full";
    case MovedPlaylist::Fault::GenericDoesNotReadBack:
      return "its neutral file does not read back";
    case MovedPlaylist::Fault::NotCarried:
      return withReason("its neutral file cannot be written on the new machine");
    case MovedPlaylist::Fault::NotRestored:
      return "its native playlists cannot be written: see that the new machine's disk is writable "
             "and not full, and run again";
    case MovedPlaylist::Fault::NotNoted:
      return withReason("the new machine cannot note what is restored") + ". Run again when it can";
  }
  return {};
}

std::string TextOf(const Mending& mending) {
  switch (mending.kind) {
    case Mending::Kind::EntriesAdded:
      return std::to_string(mending.count) + " of its entries added: the readers do not take them";
    case Mending::Kind::Split:
      return "split, since a playlist holds at most 32767 entries";
    default:
      return std::string("read anew: ") + LossText(mending.kind);
  }
}

const char* TextOf(Adjustment::Reason reason) {
  switch (reason) {
    case Adjustment::Reason::NameUnusable:
      return "its native playlists would lose the name, or have none that Windows takes";
    case Adjustment::Reason::ManyOfOneName:
      return "many playlists have this name";
    case Adjustment::Reason::NativeBlocked:
      return "a folder, or a link that leads nowhere, has the name of a native playlist";
    case Adjustment::Reason::Markup:
      return "ASX files would take it for markup";
    case Adjustment::Reason::RelativeReference:
      return "a relative reference gives no file name";
    case Adjustment::Reason::NotInCodePage:
      return "playlists cannot tell this path: it does not fit the 8-bit page";
    case Adjustment::Reason::PathTooLong:
      return "the path would be too long";
    case Adjustment::Reason::IllegalName:
      return "no path on Windows may be called so";
    case Adjustment::Reason::LeavesGroupRoot:
      return "the path would leave the group root";
    case Adjustment::Reason::OtherSong:
      return "another song has this place";
    case Adjustment::Reason::FolderThere:
      return "a folder has this name";
    case Adjustment::Reason::OtherFile:
      return "another file has this place";
    case Adjustment::Reason::PlaceElsewhere:
      return "the song has its one place elsewhere";
    case Adjustment::Reason::OldAddressTaken:
      return "on the new machine another file stands at the old address";
  }
  return "";
}

std::string TextOf(const MovedItem& item) {
  const char* const why =
      item.fate == MovedItem::Fate::NotMedia ? "not a media file" : "no such file";
  return '"' + ToUtf8(item.reference) + "\": " + why;
}

}  // namespace norvo::cli
