#include "cli/HelpTexts.h"

namespace norvo {

const HelpTexts kHelp = {
    .about = "Writes the playlists of this machine as neutral files, and native ones from those.",
    .showPath = "The playlist's path",
    .verifyPath = "Paths of playlists",
    .program = R"(Examples:
  norvo-playlists init
  norvo-playlists scan
  norvo-playlists collect --init
  norvo-playlists show C:\Music\Mix.m3u
  norvo-playlists restore
  norvo-playlists verify

The program works on the machine that it runs on: its drives, its registry, its players.

Exit codes: 0 done; 1 done, but something was left out, which is named on standard error;
2 wrong usage, or a machine that cannot be worked on.)",
    .init = R"(Examples:
  norvo-playlists init
  norvo-playlists init --role destination
  norvo-playlists init --group-root "D:\Norvo Media"

Writes only what is missing: settings that are there stay as they are. They stand in the registry
below HKEY_LOCAL_MACHINE\SOFTWARE\Norvo, which an administrator may write. A group root on
another drive than C takes the product's folder, with the debug log, along to that drive.)",
    .scan = R"(Examples:
  norvo-playlists scan
  norvo-playlists scan --json > playlists.json

The list stays in PlayLists.txt of the machine's data area.)",
    .collect = R"(Examples:
  norvo-playlists collect
  norvo-playlists collect --init --log
  norvo-playlists collect --json > report.json)",
    .show = R"(Examples:
  norvo-playlists show C:\Music\Mix.m3u
  norvo-playlists show Mix.m3u --type 3

Types: 1 ASX of Windows Media Player, 2 M3U of Windows Media Player, 3 M3U of Winamp,
4 PLS of Winamp, 5 PLS of Sonique, 6 M3U of MusicMatch Jukebox.
Nothing on the disk is changed, but for the log that --log asks for.)",
    .restore = R"(Examples:
  norvo-playlists restore

Every neutral file in the documents folder and below is restored, each time anew: a second run
writes a second set of playlists.)",
    .verify = R"(Examples:
  norvo-playlists verify
  norvo-playlists verify C:\Music\Mix.m3u

Without PATH all playlists in the folder of the restored ones. Nothing on the machine is changed,
but for the log that --log asks for. Addresses on the
internet, shares and removable drives are not looked up. Exit code 1: a file is missing.)",
};

}  // namespace norvo
