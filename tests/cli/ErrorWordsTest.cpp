#include "cli/ErrorWords.h"

#include "cli/MachineWords.h"
#include "cli/TypedCommand.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace norvo::cli {
namespace {

struct FaultRow {
  MoveFault fault;
  const char* subject;
  const char* detail;
  const char* text;
};

const FaultRow kFaults[] = {
    {MoveFault::GroupRootNotFull, "Media", "",
     R"(--group-root Media is no full path of the machine, such as D:\Norvo Media\)"},
    {MoveFault::GroupRootUnfit, R"(C:\con\)", "",
     R"(--group-root C:\con\ cannot hold songs. It has 159 characters at most, and names that )"
     "Windows and the lists of older players know: none of another code page, of a device, such as "
     "con, with a point or a blank at its end, or with characters such as * and ?. Choose another "
     R"(one, such as D:\Norvo Media\)"},
    {MoveFault::UsualGroupRootNotFull, R"(\\server\ann\Norvo Media\)", "",
     R"(\\server\ann\Norvo Media\, the usual place of lists and songs, is no path on a drive. )"
     R"(Choose another one with --group-root PATH, such as C:\Norvo Media\)"},
    {MoveFault::GroupRootUnusable, "Media", "",
     "The group root Media is no full path of the machine. Correct SubGroupRootName in "
     "registry.reg."},
    {MoveFault::GroupRootNowhere, "Q:\\Media\\", "Q:",
     "The group root Q:\\Media\\ lies on drive Q:, which the machine folder does not hold. Choose "
     "another place with --group-root PATH."},
    {MoveFault::RegistryUnwritable, "", "",
     "registry.reg of the machine folder cannot be written. Make it writable, and make sure that "
     "the disk is not full."},
    {MoveFault::FolderNotCreated, "C:\\Norvo\\", "Permission denied",
     "The folder C:\\Norvo\\ cannot be created: Permission denied. Make the drive's folder "
     "writable, or choose a place on another drive."},
    {MoveFault::FileNotWritten, "C:\\Norvo Media\\SubNames.txt", "Disk full",
     "The file C:\\Norvo Media\\SubNames.txt cannot be written: Disk full. Make its folder "
     "writable."},
    {MoveFault::RoleMissing, "", "",
     "The machine's registry lacks the machine's role (mode). Run norvo-playlists init --machine "
     "DIR first, or collect --init."},
    {MoveFault::GroupRootMissing, "", "",
     "The machine's registry lacks the group root (SubGroupRootName). Run norvo-playlists init "
     "--machine DIR first, or collect --init."},
    {MoveFault::RoleAndGroupRootMissing, "", "",
     "The machine's registry lacks the machine's role (mode) and the group root "
     "(SubGroupRootName). Run norvo-playlists init --machine DIR first, or collect --init."},
    {MoveFault::RoleTakesNoPart, "", "",
     "The machine's role (mode) is 3: it is neither source nor destination, and nothing can be "
     "listed. Set mode to 0 in registry.reg."},
    {MoveFault::SpaceMissing, "D:", "",
     "Drive D: of the new machine has no room for the songs: they need 0 KB, and 0 KB are free. "
     "Make room there, choose a place on another drive with --group-root PATH, or bring the lists "
     "alone with --no-media."},
    {MoveFault::SpaceMissing, "D:", "D:\\Music\\",
     "Drive D: of the new machine has no room for the songs: they need 0 KB, and 0 KB are free. "
     "Make room there, or bring the lists alone with --no-media."},
    {MoveFault::ScanFailed, "C:\\Norvo Media\\KVs\\", "Disk full",
     "The scan of the old machine failed. See that its data area can be written."},
    {MoveFault::NoPlaylistFolder, "C:\\Norvo Media\\PlayLists\\", "",
     "The machine has no folder of restored playlists, C:\\Norvo Media\\PlayLists\\. Name the "
     "playlists to verify, or run norvo-playlists restore first."},
    {MoveFault::NoPlaylistFolder, "", "",
     "The machine has no folder of restored playlists. Name the playlists to verify, or run "
     "norvo-playlists restore first."},
    {MoveFault::NoDocumentsFolder, "", "",
     "The new machine has no documents folder, and none can be made. Name one with --documents, or "
     "in its machine.ini, section [ShellFolders], such as 5=C:\\My Documents."},
    {MoveFault::NoMachine, "old", "old holds no machine",
     "old holds no machine. A machine folder holds a folder per drive, named by its letter (such "
     "as C), or a machine.ini that names the drives. Name one with --machine, or the folder where "
     "a "
     "disk is mounted."},
    {MoveFault::EmptyFolder, "old", "",
     "old is empty. See that the old disk is mounted there, or name its folder with --from."},
    {MoveFault::NoFolder, "old", "",
     "old is no folder. Name the old machine's folder, or the folder where its disk is mounted, "
     "with --from."},
    {MoveFault::SettingsNotRead, "old/machine.ini", "it is no file",
     "old/machine.ini cannot be read: it is no file. It should tell the machine's drives, in a "
     "text "
     "of a few lines; correct it or take it away."},
    {MoveFault::NotListed, "old", "Permission denied", "old: Permission denied"},
    {MoveFault::FileNotRead, "C:\\Norvo Media\\SubNames.txt", "",
     "The file C:\\Norvo Media\\SubNames.txt cannot be read. See that the disk is in order, and "
     "run "
     "it again."},
    {MoveFault::FileInUse, "C:\\Norvo Media\\SubNames.txt",
     "Permission denied: C:\\Norvo Media\\SubNames.txt",
     "The file C:\\Norvo Media\\SubNames.txt cannot be used: Permission denied. Close the program "
     "that uses it, see that it may be read and written, and run again."},
    {MoveFault::WorkNotCreated, "work", "Permission denied",
     "work: Permission denied. Choose another --work."},
    {MoveFault::WorkTaken, "work", "",
     "work: holds a machine of its own. Name an empty folder, or that of an earlier run."},
    {MoveFault::NoFreeLetter, "old", "", "old has no free drive letter. Leave --work out."},
    {MoveFault::MachineNotMade, "new", "Permission denied",
     "new cannot be made a machine: Permission denied. Name a folder that can be written with "
     "--to."},
    {MoveFault::MachineBusy, "/mnt/new",
     "norvo-playlists (process 7 of ann on pc) since 2026-11-22 14:05",
     "/mnt/new is being worked on by norvo-playlists (process 7 of ann on pc) since 2026-11-22 "
     "14:05. Try again when that is done, or let this run wait for it with --wait."},
    {MoveFault::MachineBusy, "/mnt/new", "",
     "/mnt/new is being worked on by another run. Try again when that is done, or let this run "
     "wait "
     "for it with --wait."},
    {MoveFault::LinkWritesToSource, "", "",
     "--link writes to the old disk, which counts the links of a file. Use --copy, or name a "
     "machine folder with --from and leave --work out."},
    {MoveFault::FoldersOverlap, "--from", "--to",
     "--from and --to lie in each other. Name folders that stand apart."},
    {MoveFault::HoldsDocuments, "--to", "C:\\Users\\Ann\\Documents",
     "--to holds the documents of this PC, C:\\Users\\Ann\\Documents, which would not be searched "
     "then. Name a folder that does not."},
    {MoveFault::DriveLetterUnusable, "DD", "",
     "DD is no drive. Name a letter from C to Z, such as D."},
    {MoveFault::DriveTold, "new", "D",
     "new has a machine.ini, which tells its drives. Leave --to-drive D out, or correct "
     "machine.ini."},
    {MoveFault::LeadsOut, "disk/Norvo/registry.reg", "disk",
     "disk/Norvo/registry.reg leads out of the disk disk, and nothing is written elsewhere. Take "
     "the link away."},
    {MoveFault::ManyUsers, "/mnt/disk", "Ann, Bob",
     "/mnt/disk has the documents of several users: Ann, Bob. Whose are meant? Say it with --user "
     "NAME."},
    {MoveFault::UnknownUser, "Zoe", "Ann, Bob",
     "--user Zoe: nobody of that name has a documents folder there. Those who have one: Ann, Bob."},
    {MoveFault::UnknownUser, "Zoe", "",
     "--user Zoe: nobody of that name has a documents folder there. Nobody else has one, either: "
     "leave --user out."},
    {MoveFault::OtherUser, "Zoe", "Ann",
     "--user Zoe: the music on this disk stands in the documents of Ann already. Leave --user out, "
     "or name Ann."},
    {MoveFault::DocumentsNotFull, "Mine", "",
     R"(--documents Mine is no full path of the new machine, such as C:\Users\Ann\Documents)"},
    {MoveFault::DocumentsNowhere, "Q:\\Mine", "Q:",
     "--documents Q:\\Mine lies on drive Q:, which the new machine does not have. Name a path on "
     "one of its drives."},
    {MoveFault::NoTemporaryFolder, "/tmp", "",
     "No folder can be made in /tmp. Set TMPDIR, on Windows TMP, to a folder that can be written."},
    {MoveFault::OneMachine, "", "",
     "Both machines would be this PC. Name the other one's folder, or its disk, with --from or "
     "--to."},
    {MoveFault::WorkUnneeded, "", "",
     "Nothing is written to this PC when lists are taken from it. Leave --work out."},
    {MoveFault::FolderWishes, "", "",
     "This PC has its own drives and documents folder. Leave --to-drive, --user and --documents "
     "out, or name a folder with --to."},
    {MoveFault::DrivesTold, "", "",
     "The old machine tells its own drives. Leave --drive out, or name a disk with --from."},
    {MoveFault::DriveTwice, "C", "",
     "The old machine would have two drives C. Its disk is drive C; name another letter with "
     "--drive."},
    {MoveFault::NoDriveFolder, "/mnt/x", "D",
     "/mnt/x is no folder. Name that of drive D with --drive D=DIR."},
};

TEST(ErrorWords, EachFaultSaysWhatIsWrongAndWhatToDo) {
  for (const FaultRow& row : kFaults) {
    EXPECT_EQ(TextOf(MoveError(row.fault, row.subject, row.detail)), row.text);
  }
}

TEST(ErrorWords, WhatIsNeededAndWhatIsFreeIsTold) {
  const std::string text =
      TextOf(MoveError(MoveFault::SpaceMissing, "D:", {}, {5200000000, 1100000}));
  EXPECT_NE(text.find("they need 5.2 GB, and 1.1 MB are free"), std::string::npos) << text;
}

TEST(ErrorWords, OnThisPcSomeFaultsAreMendedOtherwise) {
  ChooseWords(kThisPcWords, kThisPcWords);
  KnowCommand({"init"});
  const std::string documents = TextOf(MoveError(MoveFault::NoDocumentsFolder));
  const std::string registry = TextOf(MoveError(MoveFault::RegistryUnwritable));
  ChooseWords(kFolderWords, kFolderWords);
  EXPECT_EQ(documents,
            "The new machine has no documents folder, and none can be made. Connect the disk or "
            "share that they stand on, or give them another place in Windows, in the properties of "
            "the folder Documents.");
  EXPECT_EQ(registry,
            "The registry cannot be written below HKEY_LOCAL_MACHINE\\SOFTWARE\\Norvo. Run this as "
            "an administrator: norvo-playlists init");
}

TEST(ErrorWords, NoFaultIsForgottenHere) {
  for (int fault = 0; fault <= static_cast<int>(MoveFault::NoDriveFolder); ++fault) {
    const bool found =
        std::any_of(std::begin(kFaults), std::end(kFaults),
                    [fault](const FaultRow& row) { return static_cast<int>(row.fault) == fault; });
    EXPECT_TRUE(found) << fault;
  }
}

TEST(ErrorWords, BesideItsPathAnErrorDoesNotNameItAgain) {
  EXPECT_EQ(WithoutPath("File not found: C:\\A.m3u", "C:\\A.m3u"), "File not found");
  EXPECT_EQ(WithoutPath("File not found: C:\\B.m3u", "C:\\A.m3u"), "File not found: C:\\B.m3u");
  EXPECT_EQ(WithoutPath("C:\\A.m3u", "C:\\A.m3u"), "C:\\A.m3u");
  EXPECT_EQ(WithoutPath("", "C:\\A.m3u"), "");
  EXPECT_EQ(WithoutPath("It: ", ""), "It: ");
}

}  // namespace
}  // namespace norvo::cli
