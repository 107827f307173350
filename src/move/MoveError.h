#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace norvo {

/// Why a call on machines cannot be done at all. What `Subject` and `Detail` are stands beside
/// each; what is not named is empty.
enum class MoveFault {
  // Settings of the product.
  GroupRootNotFull,         ///< the wished group root (subject) is no full path of the machine
  GroupRootUnfit,           ///< no list could tell a song below the wished one (subject)
  UsualGroupRootNotFull,    ///< none is wished, and the usual one (subject) is no full path
  GroupRootUnusable,        ///< the machine's group root (subject) is no full path
  GroupRootNowhere,         ///< the group root (subject) lies on a drive (detail) that there is not
  RegistryUnwritable,       ///< the system refuses
  FolderNotCreated,         ///< subject: the folder; detail: why
  FileNotWritten,           ///< subject: the file; detail: why
  FileNotRead,              ///< subject: the file
  FileInUse,                ///< subject: a file of the product's; detail: why it cannot be used
  RoleMissing,              ///< the machine has no role yet; SetUpMachine gives it one
  GroupRootMissing,         ///< it has no group root yet
  RoleAndGroupRootMissing,  ///< it has neither
  RoleTakesNoPart,          ///< the machine's role is neither source nor destination
  // Work on one machine.
  SpaceMissing,  ///< `Shortage`; subject: the new machine's drive; detail: its group root, if kept
  ScanFailed,    ///< subject: the data area; detail: the last warning, may be empty
  NoPlaylistFolder,   ///< subject: the folder of restored playlists; empty when it is not known
  NoDocumentsFolder,  ///< the new machine has none
  // Machines that are held in folders.
  NoMachine,            ///< subject: a folder that holds none; detail: why
  NoFolder,             ///< subject: what should be the old machine's folder
  EmptyFolder,          ///< subject: what should be the old machine's folder, and holds nothing
  SettingsNotRead,      ///< subject: a machine.ini; detail: why it cannot be read
  NotListed,            ///< subject: a folder; detail: why it cannot be listed
  WorkNotCreated,       ///< subject: the work folder; detail: why
  WorkTaken,            ///< subject: the work folder, which holds a machine of its own
  NoFreeLetter,         ///< subject: the old machine's folder, which has all 24 drives
  MachineNotMade,       ///< subject: the new machine's folder; detail: why
  MachineBusy,          ///< subject: a machine's folder; detail: who works on it, may be empty
  LinkWritesToSource,   ///< linking would write to a machine that is only to be read
  FoldersOverlap,       ///< subject and detail: two folders that lie in each other
  HoldsDocuments,       ///< subject: the new machine's folder, in which the documents of the PC lie
                        ///< that is to be searched (detail)
  DriveLetterUnusable,  ///< subject: what should be a letter from C to Z
  DriveTold,          ///< subject: a folder whose machine.ini tells its drives; detail: the letter
  LeadsOut,           ///< subject: the registry's file, which a link leads out of a disk (detail)
  ManyUsers,          ///< subject: a folder with the documents of several users; detail: "Ann, Bob"
  UnknownUser,        ///< subject: a name; detail: the users that there are, may be empty
  OtherUser,          ///< subject: a name; detail: the user in whose documents the music is
  DocumentsNotFull,   ///< the wished documents folder (subject) is no full path of the machine
  DocumentsNowhere,   ///< it (subject) lies on a drive (detail) that there is not
  NoTemporaryFolder,  ///< subject: the folder that takes none
  OneMachine,         ///< both machines would be this PC
  WorkUnneeded,       ///< a work folder for this PC, to which nothing is written
  FolderWishes,       ///< this PC has its drives and users; none can be wished for
  DrivesTold,         ///< the old machine tells its drives; none can be added
  DriveTwice,         ///< subject: a letter that two drives of the old machine would have
  NoDriveFolder       ///< subject: what should be the folder of a drive; detail: the letter
};

/// Of songs that are too many for a disk: bytes.
struct SpaceShortage {
  std::uint64_t needed = 0;  ///< by the songs that are not there yet
  std::uint64_t free = 0;    ///< on the disk
};

/// Ends a call. `what()` is a sentence about it in English, in UTF-8.
class MoveError : public std::runtime_error {
 public:
  /// The texts are in UTF-8.
  explicit MoveError(MoveFault fault, std::string subject = {}, std::string detail = {},
                     SpaceShortage shortage = {});

  /// Why.
  MoveFault Fault() const noexcept { return fault_; }
  /// What it is about, in UTF-8; see MoveFault.
  const std::string& Subject() const noexcept { return subject_; }
  /// More of it, in UTF-8; see MoveFault.
  const std::string& Detail() const noexcept { return detail_; }
  /// Of SpaceMissing; else both are 0.
  const SpaceShortage& Shortage() const noexcept { return shortage_; }

 private:
  MoveFault fault_;
  std::string subject_;
  std::string detail_;
  SpaceShortage shortage_;
};

}  // namespace norvo
