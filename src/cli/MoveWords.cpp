#include "cli/MoveWords.h"

#include "cli/ErrorWords.h"

#include "text/Encoding.h"

namespace norvo::cli {
namespace {

const char* WordsFor(PlaceFailure failure) {
  switch (failure) {
    case PlaceFailure::None:
      break;
    case PlaceFailure::SourceMissing:
      return "the old file is not there any more";
    case PlaceFailure::SourceNoFile:
      return "the old one is no file but a folder or a device";
    case PlaceFailure::SourceUnreadable:
      return "the old file cannot be read";
    case PlaceFailure::SourceChanged:
      return "the old file changed while it was read";
    case PlaceFailure::TargetUnwritable:
      return "the new file cannot be written";
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

const char* WordsFor(MovedPlaylist::SkipRule rule) {
  switch (rule) {
    case MovedPlaylist::SkipRule::None:
      break;
    case MovedPlaylist::SkipRule::RecycleBin:
      return "it is in the recycle bin";
    case MovedPlaylist::SkipRule::TemporaryInternetFiles:
      return "it is among the temporary files of a browser";
    case MovedPlaylist::SkipRule::SystemFolder:
      return "it is in a folder that Windows keeps for itself";
    case MovedPlaylist::SkipRule::OtherForm:
      return "it is another form of a list that is moved";
  }
  return "";
}

}  // namespace

const char* SongOutcome(const MovedSong& song, bool dryRun) {
  switch (song.state) {
    case MovedSong::State::Planned:
      return dryRun ? "to be brought" : "not brought";
    case MovedSong::State::Copied:
      return "copied";
    case MovedSong::State::Linked:
      return "linked";
    case MovedSong::State::AlreadyThere:
      return "there already";
    case MovedSong::State::LeftOut:
      break;
  }
  return "left out";
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
      return nowhere + "a file stands where one of the folders of " + path +
             " should be, or what stands there may not be seen";
    case MovedSong::Fault::NumbersTaken:
      return nowhere + "all numbers of " + path + " are taken";
    case MovedSong::Fault::GroupRootUnusable:
      return nowhere + "see that the folder for music, " + path + ", has a name of plain letters";
    case MovedSong::Fault::NotBrought:
      return WithSystemReason(WordsFor(song.failure), song.systemReason);
  }
  return {};
}

std::string ReasonText(const MovedPlaylist& playlist) {
  const auto withReason = [&](const char* text) {
    const std::string reason = WithoutPath(ToUtf8(playlist.systemReason), ToUtf8(playlist.source));
    return reason.empty() ? std::string(text) : text + (": " + reason);
  };
  switch (playlist.fault) {
    case MovedPlaylist::Fault::None:
      break;
    case MovedPlaylist::Fault::NotUnderstood:
      return "the file is damaged, or no playlist but for its name";
    case MovedPlaylist::Fault::KindNotRead:
      return "only its own player can read a " +
             (playlist.kind.empty() ? "list of this kind" : playlist.kind);
    case MovedPlaylist::Fault::Unreadable:
      return withReason("it cannot be read") +
             (MayBeDenied(playlist.systemReason) ? std::string(". ") + kFileAdvice : "");
    case MovedPlaylist::Fault::GenericNotWritten:
      return "what was read of it cannot be kept: see that the folder of the old machine's data "
             "can be written and the disk is not full";
    case MovedPlaylist::Fault::GenericDoesNotReadBack:
      return "what was written down of it reads back as something else";
    case MovedPlaylist::Fault::NotCarried:
      return withReason("it cannot be written on the new machine");
    case MovedPlaylist::Fault::NotRestored:
      return "its new lists cannot be written: see that the new machine's disk can be written "
             "and is not full, and run again";
    case MovedPlaylist::Fault::NotNoted:
      return withReason("the new machine cannot note that it was moved") +
             ". Run again when it can";
  }
  return playlist.state == MovedPlaylist::State::Skipped ? WordsFor(playlist.rule) : "";
}

std::string ReasonText(const MovedItem& item) {
  switch (item.fate) {
    case MovedItem::Fate::Song:
    case MovedItem::Fate::Address:
      break;
    case MovedItem::Fate::NoSuchFile:
      return "no such file";
    case MovedItem::Fate::NotMedia:
      return "not a media file";
    case MovedItem::Fate::Ambiguous:
      return "not where the list says, and several files have that name";
  }
  return {};
}

std::string TextOf(const Mending& mending) {
  switch (mending.kind) {
    case Mending::Kind::NotListed:
    case Mending::Kind::UnknownType:
      return "its first lines do not tell what kind of list it is; it was known by the others";
    case Mending::Kind::QueueEnded:
      return "it was read by itself, since reading the lists before it had ended early";
    case Mending::Kind::Unnamed:
    case Mending::Kind::NotWritten:
      return "it was read by itself, since its name is unusual";
    case Mending::Kind::NothingUnderstood:
      return "it is written in an unusual way; it was read with more patience";
    case Mending::Kind::NotReadToEnd:
      return "it was read with more patience, since something in its middle is unusual";
    case Mending::Kind::NameTaken:
      return "another list has the same name; both are kept";
    case Mending::Kind::Incomplete:
      return "some of it is written in an unusual way; it was read with more patience";
    case Mending::Kind::EntriesAdded:
      return std::to_string(mending.count) + " of its lines " +
             (mending.count == 1 ? "is" : "are") +
             " written in a way that is easily overlooked; none was lost";
    case Mending::Kind::Split:
      return "it is several lists now, since a list of the players holds at most 32767 songs";
    case Mending::Kind::OtherKind:
      return "older players do not read lists of its kind; it was written anew for them";
    case Mending::Kind::DetailsFilled:
      return "the names or lengths of " + std::to_string(mending.count) +
             " of its songs come from the song files";
  }
  return {};
}

const char* TextOf(Adjustment::Reason reason) {
  switch (reason) {
    case Adjustment::Reason::NameUnusable:
      return "players would not find a list of that name";
    case Adjustment::Reason::ManyOfOneName:
      return "many lists have that name";
    case Adjustment::Reason::NativeBlocked:
      return "a folder, or a link that leads nowhere, has that name";
    case Adjustment::Reason::Markup:
      return "Windows Media Player would take its angle brackets for something else";
    case Adjustment::Reason::RelativeReference:
      return "the list tells only where it is seen from the list itself";
    case Adjustment::Reason::NotInCodePage:
      return "lists of older players cannot hold all of its letters";
    case Adjustment::Reason::PathTooLong:
      return "the path would be too long";
    case Adjustment::Reason::IllegalName:
      return "Windows does not allow such a name";
    case Adjustment::Reason::LeavesGroupRoot:
      return "the name would lead out of the folder for music";
    case Adjustment::Reason::OtherSong:
      return "another song has that name in the same folder";
    case Adjustment::Reason::FolderThere:
      return "a folder has that name";
    case Adjustment::Reason::OtherFile:
      return "another file has that name in the same folder";
    case Adjustment::Reason::PlaceElsewhere:
      return "the song stands in one place only, which is another one";
    case Adjustment::Reason::OldAddressTaken:
      return "on the new machine another file stands at its old place";
  }
  return "";
}

}  // namespace norvo::cli
