#include "cli/HelpTexts.h"

namespace norvo {

const HelpTexts kHelp = {
    .about = "Moves the playlists of a Windows machine, and their songs, to another one.",
    .showPath = "Path on the machine (C:\\...) or on this system",
    .verifyPath = "Playlists: paths on the machine or on this system",
    .program = R"(Examples:
  norvo-playlists migrate --from /mnt/old-pc --to /mnt/new-pc
  norvo-playlists init --machine /mnt/old-disk
  norvo-playlists scan --machine /mnt/old-disk
  norvo-playlists collect --init --machine /mnt/old-disk
  norvo-playlists show --machine /mnt/old-disk 'C:\Music\Mix.m3u'

A machine folder holds a folder per drive, named by its letter (C, D, ...), and may hold
machine.ini (types and places of the drives) and registry.reg (the machine's registry).

Exit codes: 0 done; 1 done, but something was left out, which is named on standard error;
2 wrong usage, or a machine that cannot be worked on.)",

    .init = R"(Examples:
  norvo-playlists init --machine /mnt/old-disk
  norvo-playlists init --machine /mnt/new-disk --role destination
  norvo-playlists init --machine /mnt/old-disk --group-root 'D:\Norvo Media\'

Writes only what is missing: settings that are there stay as they are. A group root on
another drive than C takes the product's folder, with the debug log, along to that drive.)",

    .scan = R"(Examples:
  norvo-playlists scan --machine /mnt/old-disk
  norvo-playlists scan --machine /mnt/old-disk --json | jq '.playlists[].path'

The list stays in PlayLists.txt of the machine's data area.)",

    .collect = R"(Examples:
  norvo-playlists collect --machine /mnt/old-disk
  norvo-playlists collect --init --machine /mnt/old-disk --log
  norvo-playlists collect --machine /mnt/old-disk --json > report.json)",

    .show = R"(Examples:
  norvo-playlists show --machine /mnt/old-disk 'C:\Music\Mix.m3u'
  norvo-playlists show /mnt/old-disk/C/Music/Mix.m3u
  norvo-playlists show ~/Music/Mix.m3u --type 3

Types: 1 ASX of Windows Media Player, 2 M3U of Windows Media Player, 3 M3U of Winamp,
4 PLS of Winamp, 5 PLS of Sonique, 6 M3U of MusicMatch Jukebox.
Nothing on the disk is changed, but for the log that --log asks for. A file that lies in no
machine folder is read as if its own folder were drive C.)",

    .restore = R"(Examples:
  norvo-playlists restore --machine /mnt/new-disk

Every neutral file in the documents folder and below is restored, each time anew: a second run
writes a second set of playlists. migrate remembers what it has restored.)",

    .verify = R"(Examples:
  norvo-playlists verify --machine /mnt/new-disk
  norvo-playlists verify --machine /mnt/new-disk 'C:\Music\Mix.m3u'

Without PATH all playlists in the folder of the restored ones. Nothing on the machine is changed,
but for the log that --log asks for. Addresses on the
internet, shares and removable drives are not looked up. Exit code 1: a file is missing.)",
};

}  // namespace norvo
