#include "cli/WarningWords.h"

#include "cli/ErrorWords.h"
#include "cli/MachineWords.h"
#include "cli/TypedCommand.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

using Kind = WorkWarning::Kind;

std::string KeptText(const std::string& what, const WorkWarning& warning, const char* value) {
  return "The " + what + " stays " + ToUtf8(warning.subject) + ": it was there before. Change " +
         value + " in " + Words(warning.side).registry + " for another one.";
}

std::string UnusableText(const WorkWarning& warning) {
  const std::string value = ToUtf8(warning.subject);
  const char* const why = value == "mode" ? " is no number" : " is no text, or empty";
  return "The registry value " + value + why + ". It is left as it is; correct or remove it in " +
         Words(warning.side).registry + ", then run init again.";
}

/// The setting is "file, key" or "registry key, value".
std::string NotPointedText(const WorkWarning& warning) {
  const std::string setting = ToUtf8(warning.subject);
  const std::string reason =
      WithoutPath(ToUtf8(warning.detail), setting.substr(0, setting.rfind(',')));
  return setting + ": this setting of a player cannot be changed to " + ToUtf8(warning.wanted) +
         (reason.empty() ? "" : ": " + reason) + ". " +
         WithCommand(Words(warning.side).makeSettable);
}

/// Of what the new lists turned out to hold.
std::string FindingText(const WorkWarning& warning) {
  const std::string subject = ToUtf8(warning.subject) + ": ";
  const std::string detail = '"' + ToUtf8(warning.detail) + '"';
  const std::string counts =
      std::to_string(warning.found) + " of " + std::to_string(warning.expected) + ' ';
  switch (warning.kind) {
    case Kind::NativesMissing:
      return subject + "only " + std::to_string(warning.found) + " of its " +
             std::to_string(warning.expected) + " new lists were written";
    case Kind::UntellableAddress:
      return subject + "lists of older players cannot hold all letters of " + detail;
    case Kind::NativeGone:
      return subject + "was written, and is gone now";
    case Kind::NativeIncomplete:
      return subject + "reads back with " + counts + "entries";
    case Kind::WrongSong:
      return subject + detail + " does not lead to " + ToUtf8(warning.wanted);
    case Kind::NoPlainName:
      return subject + "older players cannot find it under its own name, and a second name, " +
             ToUtf8(warning.wanted) + ", cannot be made: " + ToUtf8(warning.detail);
    case Kind::ListDamaged:
      return subject + "is damaged: it ends before its own end, and what stood behind that is lost";
    case Kind::TimesLost:
      return subject + "is whole, but its date is that of the copying: " + ToUtf8(warning.detail);
    case Kind::CompanionMissing:
      return subject + "its new list for players of today (.m3u8) was not written";
    case Kind::PlayerNotPointed:
      return NotPointedText(warning);
    case Kind::CountedListWrong:
      return subject + "the check at the end has found " + counts + "songs in it";
    case Kind::CountedSongWrong:
      return subject + "the check at the end has found " + detail + ", which is not the song " +
             ToUtf8(warning.wanted);
    case Kind::CopiesNotNoted:
      return subject + "the lists that were made here could not be noted: " +
             WithoutPath(ToUtf8(warning.detail), ToUtf8(warning.subject)) +
             ". Later, collect takes them for lists of this machine's own";
    case Kind::TagsNotRead:
      return subject + "the names in it (its tags) could not be read: " +
             WithoutPath(ToUtf8(warning.detail), ToUtf8(warning.subject)) +
             ". It may stand among the songs without an artist";
    default:
      return subject + detail + " was " + ToUtf8(warning.wanted);
  }
}

const char* WordsFor(WarningKind kind) {
  switch (kind) {
    case WarningKind::FolderNotListed:
      return "this folder cannot be listed";
    case WarningKind::FolderNotChecked:
      return "nobody can tell whether this folder is there";
    case WarningKind::FileNotChecked:
      return "nobody can tell whether this file is there";
    case WarningKind::FileNotRead:
      return "this file cannot be read";
    case WarningKind::FolderNotCreated:
      return "this folder cannot be made";
    case WarningKind::ShellFolderNotTold:
      return "the place of the documents is not known";
    case WarningKind::VersionNotRead:
      return "the version of this file cannot be read";
    case WarningKind::GroupRootNotRead:
      return "the place of the music is not known";
    case WarningKind::DrivesNotListed:
      return "the drives cannot be listed, so none was searched";
    case WarningKind::ScanStopped:
      return "the search for playlists ended before its end";
    case WarningKind::QueueStopped:
      return "the reading of the playlists ended before its end";
    case WarningKind::ListNotRead:
      return "the list of the playlists found cannot be read";
    case WarningKind::PlaylistNotListed:
      return "this playlist was found and cannot be listed";
    case WarningKind::SizeNotWritten:
      return "the size of all songs cannot be noted";
    case WarningKind::MediaListNotWritten:
      return "the songs of a playlist cannot be noted";
  }
  return "";
}

}  // namespace

bool IsOfUnreadFile(const WorkWarning& warning) {
  return warning.kind == Kind::Library && warning.warning.kind == WarningKind::FileNotRead;
}

std::string PlainText(const Warning& warning) {
  const std::string path = ToUtf8(warning.path);
  const std::string reason = WithoutPath(ToUtf8(warning.reason), path);
  return (path.empty() ? "" : path + ": ") + WordsFor(warning.kind) +
         (reason.empty() ? "" : ": " + reason);
}

std::string TextOf(const WorkWarning& warning, const char* library) {
  switch (warning.kind) {
    case Kind::Library:
      return library + PlainText(warning.warning);
    case Kind::Oddity:
    case Kind::LinkNotFollowed:
      return "Warning: " + ToUtf8(warning.warning.text);
    case Kind::SettingUnusable:
      return UnusableText(warning);
    case Kind::RoleKept:
      return KeptText("role", warning, "mode");
    case Kind::GroupRootKept:
      return KeptText("group root", warning, "SubGroupRootName");
    case Kind::NoLogFolder:
      return "No log is written: the product folder " + ToUtf8(warning.subject) +
             " is missing. norvo-playlists init creates it.";
    case Kind::LogNotWritten:
      return "No log is written: " + ToUtf8(warning.subject) + ": " +
             WithoutPath(ToUtf8(warning.detail), ToUtf8(warning.subject)) + ". " + kFileAdvice;
    case Kind::LogFolderNotMade:
      return "The product folder " + ToUtf8(warning.subject) +
             " cannot be created: " + WithoutPath(ToUtf8(warning.detail), ToUtf8(warning.subject)) +
             ". It takes the log alone; nothing else hangs on that.";
    case Kind::SettingsOfUser:
      return "The program's settings hold for this user alone, in HKEY_CURRENT_USER\\" +
             ToUtf8(warning.subject) +
             ": only an administrator may write those of all users. Nothing else hangs on that. To "
             "have them for all, remove that key, and run " +
             Words(warning.side).initCommand + " as an administrator.";
    default:
      return FindingText(warning);
  }
}

}  // namespace norvo::cli
