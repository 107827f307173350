#include "move/MoveError.h"

#include <utility>

namespace norvo {
namespace {

/// What follows the subject.
const char* StatementOf(MoveFault fault) {
  switch (fault) {
    case MoveFault::GroupRootNotFull:
    case MoveFault::UsualGroupRootNotFull:
    case MoveFault::GroupRootUnusable:
      return "is no full path of the machine, and cannot be the group root";
    case MoveFault::GroupRootUnfit:
      return "cannot be the group root: no list could tell a song below it";
    case MoveFault::GroupRootNowhere:
      return "cannot be the group root: the machine lacks its drive";
    case MoveFault::RegistryUnwritable:
      return "the machine's registry cannot be written";
    case MoveFault::FolderNotCreated:
      return "cannot be created";
    case MoveFault::FileNotWritten:
      return "cannot be written";
    case MoveFault::FileNotRead:
      return "cannot be read";
    case MoveFault::FileInUse:
      return "cannot be used";
    case MoveFault::RoleMissing:
      return "the machine's registry lacks its role";
    case MoveFault::GroupRootMissing:
      return "the machine's registry lacks the group root";
    case MoveFault::RoleAndGroupRootMissing:
      return "the machine's registry lacks its role and the group root";
    case MoveFault::RoleTakesNoPart:
      return "the machine's role is neither source nor destination";
    case MoveFault::SpaceMissing:
      return "has not room enough for the songs";
    case MoveFault::ScanFailed:
      return "cannot take the list: the scan failed";
    case MoveFault::NoPlaylistFolder:
      return "the machine has no folder of restored playlists";
    case MoveFault::NoDocumentsFolder:
      return "the new machine has no documents folder";
    case MoveFault::NoMachine:
      return "holds no machine";
    case MoveFault::NoFolder:
      return "is no folder";
    case MoveFault::EmptyFolder:
      return "is empty";
    case MoveFault::SettingsNotRead:
      return "cannot be read";
    case MoveFault::NotListed:
      return "cannot be listed";
    case MoveFault::WorkNotCreated:
    case MoveFault::MachineNotMade:
      return "cannot be made";
    case MoveFault::WorkTaken:
      return "holds a machine of its own, and cannot be the work folder";
    case MoveFault::NoFreeLetter:
      return "has no free drive letter";
    case MoveFault::MachineBusy:
      return "is being worked on";
    case MoveFault::LinkWritesToSource:
      return "linking songs would write to the old disk, which counts the links of a file";
    case MoveFault::FoldersOverlap:
      return "lies in, or around,";
    case MoveFault::HoldsDocuments:
      return "holds the documents of the old machine";
    case MoveFault::DriveLetterUnusable:
      return "is no drive letter from C to Z";
    case MoveFault::DriveTold:
      return "has a machine.ini, which tells its drives";
    case MoveFault::LeadsOut:
      return "leads out of the disk";
    case MoveFault::ManyUsers:
      return "has the documents of several users";
    case MoveFault::UnknownUser:
      return "is no user with a documents folder";
    case MoveFault::OtherUser:
      return "is not the user whose documents hold the music";
    case MoveFault::DocumentsNotFull:
      return "is no full path of the machine, and cannot be the documents folder";
    case MoveFault::DocumentsNowhere:
      return "cannot be the documents folder: the machine lacks its drive";
    case MoveFault::NoTemporaryFolder:
      return "takes no temporary folder";
    case MoveFault::OneMachine:
      return "the old machine and the new one are both this PC";
    case MoveFault::WorkUnneeded:
      return "nothing is written for this PC, and no work folder is needed";
    case MoveFault::FolderWishes:
      return "this PC has its own drives and documents, and none can be wished for";
    case MoveFault::DrivesTold:
      return "the old machine tells its drives, and none can be added";
    case MoveFault::DriveTwice:
      return "would be the letter of two drives";
    case MoveFault::NoDriveFolder:
      return "is no folder, and cannot be a drive";
  }
  return "";
}

std::string Sentence(MoveFault fault, const std::string& subject, const std::string& detail) {
  std::string text = subject.empty() ? "" : subject + ' ';
  text += StatementOf(fault);
  if (detail.empty()) return text;
  return text + (fault == MoveFault::FoldersOverlap ? " " : ": ") + detail;
}

}  // namespace

MoveError::MoveError(MoveFault fault, std::string subject, std::string detail,
                     SpaceShortage shortage)
    : std::runtime_error(Sentence(fault, subject, detail)),
      fault_(fault),
      subject_(std::move(subject)),
      detail_(std::move(detail)),
      shortage_(shortage) {}

}  // namespace norvo
