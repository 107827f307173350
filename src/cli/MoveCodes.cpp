#include "cli/MoveCodes.h"

namespace norvo::cli {
namespace {

const char* FailureCode(PlaceFailure placeFailure) {
  switch (placeFailure) {
    case PlaceFailure::None:
      break;
    case PlaceFailure::SourceMissing:
      return "sourceMissing";
    case PlaceFailure::SourceNoFile:
      return "sourceNoFile";
    case PlaceFailure::SourceUnreadable:
      return "sourceUnreadable";
    case PlaceFailure::SourceChanged:
      return "sourceChanged";
    case PlaceFailure::TargetUnwritable:
      return "targetUnwritable";
    case PlaceFailure::FolderThere:
      return "folderThere";
    case PlaceFailure::OtherFileThere:
      return "otherFileThere";
    case PlaceFailure::NotComparable:
      return "notComparable";
    case PlaceFailure::NotCopied:
      return "notCopied";
  }
  return "";
}

const char* FaultCode(MovedSong::Fault fault) {
  switch (fault) {
    case MovedSong::Fault::None:
      break;
    case MovedSong::Fault::PathTooLong:
      return "pathTooLong";
    case MovedSong::Fault::FolderBlocked:
      return "folderBlocked";
    case MovedSong::Fault::NumbersTaken:
      return "numbersTaken";
    case MovedSong::Fault::GroupRootUnusable:
      return "groupRootUnusable";
    case MovedSong::Fault::NotBrought:
      return "notBrought";
  }
  return "";
}

}  // namespace

const char* CodeOf(MovedPlaylist::State state) {
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

const char* CodeOf(MovedPlaylist::SkipRule skipRule) {
  switch (skipRule) {
    case MovedPlaylist::SkipRule::None:
      break;
    case MovedPlaylist::SkipRule::RecycleBin:
      return "recycleBin";
    case MovedPlaylist::SkipRule::TemporaryInternetFiles:
      return "temporaryInternetFiles";
    case MovedPlaylist::SkipRule::SystemFolder:
      return "systemFolder";
    case MovedPlaylist::SkipRule::OtherForm:
      return "otherForm";
  }
  return "";
}

const char* CodeOf(MovedPlaylist::Fault fault) {
  switch (fault) {
    case MovedPlaylist::Fault::None:
      break;
    case MovedPlaylist::Fault::NotUnderstood:
      return "notUnderstood";
    case MovedPlaylist::Fault::KindNotRead:
      return "kindNotRead";
    case MovedPlaylist::Fault::Unreadable:
      return "unreadable";
    case MovedPlaylist::Fault::GenericNotWritten:
      return "neutralFileNotWritten";
    case MovedPlaylist::Fault::GenericDoesNotReadBack:
      return "neutralFileDoesNotReadBack";
    case MovedPlaylist::Fault::NotCarried:
      return "notCarried";
    case MovedPlaylist::Fault::NotRestored:
      return "notRestored";
    case MovedPlaylist::Fault::NotNoted:
      return "notNoted";
  }
  return "";
}

const char* CodeOf(MovedSong::State state) {
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

const char* CodeOf(MovedItem::Fate fate) {
  switch (fate) {
    case MovedItem::Fate::Song:
      return "song";
    case MovedItem::Fate::Address:
      return "address";
    case MovedItem::Fate::NoSuchFile:
      return "noSuchFile";
    case MovedItem::Fate::NotMedia:
      return "notMedia";
    case MovedItem::Fate::Ambiguous:
      return "ambiguous";
  }
  return "";
}

const char* CodeOf(Mending::Kind kind) {
  switch (kind) {
    case Mending::Kind::NotListed:
      return "notListed";
    case Mending::Kind::QueueEnded:
      return "queueEnded";
    case Mending::Kind::Unnamed:
      return "unnamed";
    case Mending::Kind::NotWritten:
      return "notWritten";
    case Mending::Kind::NothingUnderstood:
      return "nothingUnderstood";
    case Mending::Kind::UnknownType:
      return "unknownType";
    case Mending::Kind::NotReadToEnd:
      return "notReadToEnd";
    case Mending::Kind::NameTaken:
      return "nameTaken";
    case Mending::Kind::Incomplete:
      return "incomplete";
    case Mending::Kind::EntriesAdded:
      return "entriesAdded";
    case Mending::Kind::Split:
      return "split";
    case Mending::Kind::OtherKind:
      return "otherKind";
    case Mending::Kind::DetailsFilled:
      return "detailsFilled";
  }
  return "";
}

const char* CodeOf(Adjustment::Reason reason) {
  switch (reason) {
    case Adjustment::Reason::NameUnusable:
      return "nameUnusable";
    case Adjustment::Reason::ManyOfOneName:
      return "manyOfOneName";
    case Adjustment::Reason::NativeBlocked:
      return "nativeBlocked";
    case Adjustment::Reason::Markup:
      return "markup";
    case Adjustment::Reason::RelativeReference:
      return "relativeReference";
    case Adjustment::Reason::NotInCodePage:
      return "notInCodePage";
    case Adjustment::Reason::PathTooLong:
      return "pathTooLong";
    case Adjustment::Reason::IllegalName:
      return "illegalName";
    case Adjustment::Reason::LeavesGroupRoot:
      return "leavesGroupRoot";
    case Adjustment::Reason::OtherSong:
      return "otherSong";
    case Adjustment::Reason::FolderThere:
      return "folderThere";
    case Adjustment::Reason::OtherFile:
      return "otherFile";
    case Adjustment::Reason::PlaceElsewhere:
      return "placeElsewhere";
    case Adjustment::Reason::OldAddressTaken:
      return "oldAddressTaken";
  }
  return "";
}

const char* CodeOf(WorkWarning::Kind kind) {
  switch (kind) {
    case WorkWarning::Kind::Library:
      return "library";
    case WorkWarning::Kind::Oddity:
      return "oddity";
    case WorkWarning::Kind::SettingUnusable:
      return "settingUnusable";
    case WorkWarning::Kind::RoleKept:
      return "roleKept";
    case WorkWarning::Kind::GroupRootKept:
      return "groupRootKept";
    case WorkWarning::Kind::NoLogFolder:
      return "noLogFolder";
    case WorkWarning::Kind::LogNotWritten:
      return "logNotWritten";
    case WorkWarning::Kind::NativesMissing:
      return "nativesMissing";
    case WorkWarning::Kind::UntellableAddress:
      return "untellableAddress";
    case WorkWarning::Kind::NativeGone:
      return "nativeGone";
    case WorkWarning::Kind::NativeIncomplete:
      return "nativeIncomplete";
    case WorkWarning::Kind::WrongSong:
      return "wrongSong";
    case WorkWarning::Kind::ChangedAddress:
      return "changedAddress";
    case WorkWarning::Kind::NoPlainName:
      return "noPlainName";
    case WorkWarning::Kind::ListDamaged:
      return "listDamaged";
    case WorkWarning::Kind::TimesLost:
      return "timesLost";
    case WorkWarning::Kind::CompanionMissing:
      return "companionMissing";
    case WorkWarning::Kind::PlayerNotPointed:
      return "playerNotPointed";
    case WorkWarning::Kind::CountedListWrong:
      return "countedListWrong";
    case WorkWarning::Kind::CountedSongWrong:
      return "countedSongWrong";
    case WorkWarning::Kind::TagsNotRead:
      return "tagsNotRead";
    case WorkWarning::Kind::SettingsOfUser:
      return "settingsOfUser";
    case WorkWarning::Kind::LinkNotFollowed:
      return "linkNotFollowed";
    case WorkWarning::Kind::CopiesNotNoted:
      return "copiesNotNoted";
    case WorkWarning::Kind::LogFolderNotMade:
      return "logFolderNotMade";
  }
  return "";
}

const char* ReasonCode(const MovedSong& song) {
  const bool wasTried = song.fault == MovedSong::Fault::NotBrought;
  return wasTried && song.failure != PlaceFailure::None ? FailureCode(song.failure)
                                                        : FaultCode(song.fault);
}

const char* ReasonCode(const MovedPlaylist& playlist) {
  const bool isSkipped = playlist.state == MovedPlaylist::State::Skipped;
  return isSkipped ? CodeOf(playlist.rule) : CodeOf(playlist.fault);
}

}  // namespace norvo::cli
