#pragma once

#include "text/Text.h"

namespace norvo {

/// What was not done. The reason tells why, where there is one.
enum class WarningKind {
  FolderNotListed,   ///< a folder's files are not looked at
  FolderNotChecked,  ///< whether a folder is there, or it can be had, is not known: taken as no
  FileNotChecked,    ///< whether a file is there is not known: taken as no
  FileNotRead,       ///< a file's kind or content is not known
  FolderNotCreated,  ///< a level of a chain of folders; the levels below it are tried all the same
  ShellFolderNotTold,  ///< a special folder of the system, such as the documents
  VersionNotRead,      ///< a file's version
  GroupRootNotRead,    ///< the root of the migration data
  DrivesNotListed,     ///< none is searched
  ScanStopped,         ///< the scan of the drives ended before its end
  QueueStopped,        ///< the queue ended before its end
  ListNotRead,         ///< the list of the playlists that were found
  PlaylistNotListed,   ///< a playlist was found and not listed
  SizeNotWritten,      ///< the media byte total
  MediaListNotWritten  ///< what a playlist has registered is kept for the next write
};

/// Work that was not done.
struct Warning {
  WarningKind kind = WarningKind::FolderNotListed;  ///< what was not done
  String path;    ///< what the work was on; empty where it was on no one file or folder
  String reason;  ///< the error's description; empty where there is none
  String text;    ///< the whole line as it stands in the log
};

}  // namespace norvo
