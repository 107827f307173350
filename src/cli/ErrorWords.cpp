#include "cli/ErrorWords.h"

#include "automation/RunTimeError.h"
#include "cli/MachineWords.h"
#include "cli/TextLayout.h"
#include "cli/TypedCommand.h"
#include "move/SetUpMachine.h"

namespace norvo::cli {
namespace {

std::string MissingSettings(const char* missing) {
  return std::string("The machine's registry lacks ") + missing + ". Run " + Words().initCommand +
         " first, or collect --init.";
}

/// Of the product's settings.
std::string SettingsText(const MoveError& error) {
  const std::string& subject = error.Subject();
  switch (error.Fault()) {
    case MoveFault::GroupRootNotFull:
      return "--group-root " + subject +
             R"( is no full path of the machine, such as D:\Norvo Media\)";
    case MoveFault::GroupRootUnfit:
      return "--group-root " + subject + " cannot hold songs. It has " +
             std::to_string(kLongestGroupRoot) +
             " characters at most, and names that Windows and the "
             "lists "
             "of older players know: none of another code page, of a device, such as con, with a "
             "point or a blank at its end, or with characters such as * and ?. Choose another one, "
             R"(such as D:\Norvo Media\)";
    case MoveFault::UsualGroupRootNotFull:
      return subject +
             ", the usual place of lists and songs, is no path on a drive. Choose another one with "
             R"(--group-root PATH, such as C:\Norvo Media\)";
    case MoveFault::GroupRootUnusable:
      return "The group root " + subject +
             " is no full path of the machine. Correct SubGroupRootName in " + Words().registry +
             ".";
    case MoveFault::GroupRootNowhere:
      return "The group root " + subject + " lies on drive " + error.Detail() + ", which " +
             Words().lacksDrive + ". Choose another place with --group-root PATH.";
    case MoveFault::RegistryUnwritable:
      return WithCommand(Words().unwritableRegistry);
    case MoveFault::FolderNotCreated:
      return "The folder " + subject + " cannot be created: " + error.Detail() + ". " +
             Words().makeWritable + ", or choose a place on another drive.";
    case MoveFault::FileNotWritten:
      return "The file " + subject + " cannot be written: " + error.Detail() +
             ". Make its folder writable.";
    case MoveFault::FileNotRead:
      return "The file " + subject +
             " cannot be read. See that the disk is in order, and run it again.";
    case MoveFault::FileInUse:
      return "The file " + subject + " cannot be used: " + WithoutPath(error.Detail(), subject) +
             ". " + kFileAdvice + '.';
    case MoveFault::RoleMissing:
      return MissingSettings("the machine's role (mode)");
    case MoveFault::GroupRootMissing:
      return MissingSettings("the group root (SubGroupRootName)");
    case MoveFault::RoleAndGroupRootMissing:
      return MissingSettings("the machine's role (mode) and the group root (SubGroupRootName)");
    case MoveFault::RoleTakesNoPart:
      return "The machine's role (mode) is 3: it is neither source nor destination, and nothing "
             "can be listed. Set mode to 0 in " +
             std::string(Words().registry) + ".";
    default:
      return {};
  }
}

std::string SpaceText(const MoveError& error) {
  const std::string elsewhere = ", choose a place on another drive with --group-root PATH";
  return "Drive " + error.Subject() + " of the new machine has no room for the songs: they need " +
         SizeText(static_cast<double>(error.Shortage().needed)) + ", and " +
         SizeText(static_cast<double>(error.Shortage().free)) + " are free. Make room there" +
         (error.Detail().empty() ? elsewhere : "") + ", or bring the lists alone with --no-media.";
}

/// Of work on machines.
std::string WorkText(const MoveError& error) {
  const std::string& subject = error.Subject();
  switch (error.Fault()) {
    case MoveFault::SpaceMissing:
      return SpaceText(error);
    case MoveFault::ScanFailed:
      return "The scan of the old machine failed. See that its data area can be written.";
    case MoveFault::NoPlaylistFolder:
      return "The machine has no folder of restored playlists" +
             (subject.empty() ? std::string() : ", " + subject) +
             ". Name the playlists to verify, or run norvo-playlists restore first.";
    case MoveFault::NoDocumentsFolder:
      return std::string("The new machine has no documents folder, and none can be made. ") +
             Words().nameDocuments;
    default:
      return {};
  }
}

/// Of machines that are held in folders.
std::string FolderText(const MoveError& error) {
  const std::string& subject = error.Subject();
  const std::string& detail = error.Detail();
  switch (error.Fault()) {
    case MoveFault::NoMachine:
      return detail +
             ". A machine folder holds a folder per drive, named by its letter (such as C), or a "
             "machine.ini that names the drives. Name one with --machine, or the folder where a "
             "disk is mounted.";
    case MoveFault::NoFolder:
      return subject +
             " is no folder. Name the old machine's folder, or the folder where its disk is "
             "mounted, with --from.";
    case MoveFault::EmptyFolder:
      return subject +
             " is empty. See that the old disk is mounted there, or name its folder with --from.";
    case MoveFault::SettingsNotRead:
      return subject + " cannot be read: " + detail +
             ". It should tell the machine's drives, in a text of a few lines; correct it or take "
             "it away.";
    case MoveFault::NotListed:
      return subject + ": " + detail;
    case MoveFault::WorkNotCreated:
      return subject + ": " + detail + ". Choose another --work.";
    case MoveFault::WorkTaken:
      return subject +
             ": holds a machine of its own. Name an empty folder, or that of an earlier run.";
    case MoveFault::NoFreeLetter:
      return subject + " has no free drive letter. Leave --work out.";
    case MoveFault::MachineNotMade:
      return subject + " cannot be made a machine: " + detail +
             ". Name a folder that can be written with --to.";
    case MoveFault::MachineBusy:
      return subject + " is being worked on by " + (detail.empty() ? "another run" : detail) +
             ". Try again when that is done, or let this run wait for it with --wait.";
    case MoveFault::LinkWritesToSource:
      return "--link writes to the old disk, which counts the links of a file. Use --copy, or name "
             "a machine folder with --from and leave --work out.";
    case MoveFault::FoldersOverlap:
      return subject + " and " + detail + " lie in each other. Name folders that stand apart.";
    case MoveFault::HoldsDocuments:
      return subject + " holds the documents of this PC, " + detail +
             ", which would not be searched then. Name a folder that does not.";
    case MoveFault::LeadsOut:
      return subject + " leads out of the disk " + detail +
             ", and nothing is written elsewhere. Take the link away.";
    case MoveFault::NoTemporaryFolder:
      return "No folder can be made in " + subject +
             ". Set TMPDIR, on Windows TMP, to a folder that can be written.";
    default:
      return {};
  }
}

/// Of this PC, and of the drives of an old machine.
std::string DrivesText(const MoveError& error) {
  const std::string& subject = error.Subject();
  const std::string& detail = error.Detail();
  switch (error.Fault()) {
    case MoveFault::DriveLetterUnusable:
      return subject + " is no drive. Name a letter from C to Z, such as D.";
    case MoveFault::DriveTold:
      return subject + " has a machine.ini, which tells its drives. Leave --to-drive " + detail +
             " out, or correct machine.ini.";
    case MoveFault::OneMachine:
      return "Both machines would be this PC. Name the other one's folder, or its disk, with "
             "--from or --to.";
    case MoveFault::WorkUnneeded:
      return "Nothing is written to this PC when lists are taken from it. Leave --work out.";
    case MoveFault::FolderWishes:
      return "This PC has its own drives and documents folder. Leave --to-drive, --user and "
             "--documents out, or name a folder with --to.";
    case MoveFault::DrivesTold:
      return "The old machine tells its own drives. Leave --drive out, or name a disk with --from.";
    case MoveFault::DriveTwice:
      return "The old machine would have two drives " + subject +
             ". Its disk is drive C; name another letter with --drive.";
    case MoveFault::NoDriveFolder:
      return subject + " is no folder. Name that of drive " + detail + " with --drive " + detail +
             "=DIR.";
    default:
      return {};
  }
}

/// Of the documents folder of a disk.
std::string DocumentsText(const MoveError& error) {
  const std::string& subject = error.Subject();
  const std::string& detail = error.Detail();
  switch (error.Fault()) {
    case MoveFault::ManyUsers:
      return subject + " has the documents of several users: " + detail +
             ". Whose are meant? Say it with --user NAME.";
    case MoveFault::UnknownUser:
      return "--user " + subject + ": nobody of that name has a documents folder there. " +
             (detail.empty() ? "Nobody else has one, either: leave --user out."
                             : "Those who have one: " + detail + ".");
    case MoveFault::OtherUser:
      return "--user " + subject + ": the music on this disk stands in the documents of " + detail +
             " already. Leave --user out, or name " + detail + ".";
    case MoveFault::DocumentsNotFull:
      return "--documents " + subject +
             R"( is no full path of the new machine, such as C:\Users\Ann\Documents)";
    case MoveFault::DocumentsNowhere:
      return "--documents " + subject + " lies on drive " + detail +
             ", which the new machine does not have. Name a path on one of its drives.";
    default:
      return {};
  }
}

}  // namespace

std::string TextOf(const MoveError& error) {
  for (const auto text : {SettingsText, WorkText, FolderText, DrivesText, DocumentsText}) {
    std::string words = text(error);
    if (!words.empty()) return words;
  }
  return error.what();
}

bool MayBeDenied(const String& reason) {
  return reason.empty() || reason.starts_with(DescriptionOf(error::kPermissionDenied));
}

std::string WithoutPath(std::string description, const std::string& path) {
  const std::size_t at = path.empty() ? std::string::npos : description.rfind(": " + path);
  if (at != std::string::npos) description.erase(at);
  return description;
}

}  // namespace norvo::cli
