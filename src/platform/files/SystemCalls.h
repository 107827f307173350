#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/FileFailure.h"
#include "platform/files/FileRecord.h"
#include "platform/files/SystemFile.h"

namespace norvo {

/// What each system defines: these functions and SystemFile::Close. The system is chosen by what is
/// linked.
///
/// A path is UTF-8 with "/" between its names. One that comes with an open folder is relative to it
/// and may be empty, which means the folder itself. Nothing leads out of that folder: whatever
/// opens or changes something follows no link, neither at the path's end nor within (LinkInTheWay),
/// not even where a folder becomes one at the same moment.

/// Of a link, not of its target. A look opens and changes nothing, so it is one system call
/// wherever opening is one: a folder that has just become a link may deceive it there. Where names
/// that differ in case are the same to the disk, all other calls take them so; a look below a
/// folder finds a name only as the disk spells it.
FileResult<FileRecord> LookUp(const SystemFile& root, const std::string& path);
FileResult<FileRecord> LookUp(const SystemFile& file);
FileResult<FileRecord> LookUpSystemPath(const std::string& path);

/// The path in full with all links resolved.
FileResult<std::string> RealPath(const std::string& path);

/// None waits: a pipe is opened at once.
enum class OpenMode {
  Read,
  Append,              ///< to a file that exists
  CreateForAppending,  ///< or one that is made by it
  Share,               ///< for reading and appending to a file that exists
  CreateToShare,       ///< or one that is made by it
  List,                ///< a folder, for its names
  Start                ///< a folder, only to be the start of other paths
};

/// Opens a path below the folder.
FileResult<SystemFile> OpenBeneath(const SystemFile& root, const std::string& path, OpenMode mode);
/// A folder anywhere, opened only to be the start of other paths. Links are followed.
FileResult<SystemFile> OpenRoot(const std::string& path);
/// A file anywhere, opened for reading. Links are followed.
FileResult<SystemFile> OpenSystemPath(const std::string& path);

/// Makes a file that must not exist, open for writing. `permissions` are as in FileRecord, without
/// those that the process's mask takes away.
FileResult<SystemFile> CreateNew(const SystemFile& root, const std::string& path,
                                 unsigned permissions);
/// Makes a file in a folder that has no name yet, open for writing. It fails where the disk has no
/// files without names, or none that could get one.
FileResult<SystemFile> CreateUnnamed(const SystemFile& root, const std::string& folder,
                                     unsigned permissions);
/// Names a file without a name. AlreadyExists when something has that name.
FileFailure GiveName(const SystemFile& unnamed, const SystemFile& root, const std::string& path);
/// Gives an open file, found at `from`, one more name. AlreadyExists when something has it.
FileFailure LinkFile(const SystemFile& file, const SystemFile& fromRoot, const std::string& from,
                     const SystemFile& toRoot, const std::string& to);
/// Renames within a folder, which both paths have in common. AlreadyExists when something has that
/// name.
FileFailure RenameNew(const SystemFile& root, const std::string& from, const std::string& to);
/// The same in one step, in place of what has that name.
FileFailure RenameOver(const SystemFile& root, const std::string& from, const std::string& to);
FileFailure MakeFolder(const SystemFile& root, const std::string& path);
/// Removes a file or a link, whatever its permissions.
FileFailure RemoveFile(const SystemFile& root, const std::string& path);
/// Cuts a file that is longer.
FileFailure CutFile(const SystemFile& root, const std::string& path, std::uint64_t size);
FileFailure SetPermissions(const SystemFile& file, std::uint32_t permissions);

/// What the disk tells of a name while it lists a folder.
enum class ListedKind { File, Folder, Link, Other };

/// Calls `visit` for every name of an open folder but "." and "..", in the disk's order.
FileFailure ForEachName(SystemFile folder,
                        const std::function<void(std::string_view name, ListedKind kind)>& visit);

/// Bytes from a 0-based offset, as many as one call gives; 0 at the file's end.
FileResult<std::size_t> ReadSome(const SystemFile& file, std::uint64_t offset,
                                 std::span<char> buffer);
/// Has the system fetch these bytes of a file into its memory, where it can. Waits for none of
/// them, and leaves the file's times as they are.
void WillRead(const SystemFile& file, std::uint64_t offset, std::uint64_t size);
/// A number that grows whenever this thread asks a disk for something or waits for it: between two
/// equal ones the system had all in its memory. Nothing where the system does not tell.
std::optional<std::uint64_t> DiskWaits();
/// In one call wherever the system takes all bytes at once.
FileFailure WriteAll(const SystemFile& file, std::string_view bytes);

/// Is told how many bytes more are done, at least once per megabyte.
using ByteSink = std::function<void(std::uint64_t more)>;

/// Copies so many bytes into a new file, by the quickest way that the system has between the two.
/// SourceChanged when there are fewer. The bytes are on their way to the disk afterwards.
FileFailure CopyBytes(const SystemFile& source, const SystemFile& target, std::uint64_t size,
                      const ByteSink& sink);
/// Sets both times of a file, with all their digits.
FileFailure SetTimes(const SystemFile& file, const DiskTime& accessed, const DiskTime& modified);
/// Lets the file's last access be as it is when it is read, where the system lets us.
void KeepAccessTime(const SystemFile& file);
/// Claims the space that a file is going to take. Fails when the disk says that it has not got it;
/// a disk that cannot say so has it.
FileFailure ClaimSpace(const SystemFile& file, std::uint64_t size);
/// How much this process can put on the disk of an open folder. Nothing where the system does not
/// tell, and where a copy may take less than its size, since files of the disk can share bytes.
std::optional<std::uint64_t> FreeBytes(const SystemFile& folder);

/// Waits until what was written to open files is on the disk; an answer for each. Many files of one
/// disk are flushed at once, along with all else that waits to be written to it. May run on a
/// thread of its own.
std::vector<FileFailure> FlushToDisk(std::span<const SystemFile* const> files);
/// Into how many calls, made at once, the flushing of many files is best divided: 1 where one call
/// flushes the whole disk.
std::size_t FlushesAtOnce();

/// What the asking for a lock gave.
enum class LockAnswer {
  Taken,
  Busy,    ///< another open file has it
  Refused  ///< the disk has no locks
};

/// Takes the lock of an open file, and waits for it when it is to. It ends when the file is closed,
/// and so with the process, however that ends.
LockAnswer LockFile(const SystemFile& file, bool wait);
/// Ends the lock before the file is closed: a closing that fails may keep it, and who asks for the
/// file again would wait for good.
void UnlockFile(const SystemFile& file);
/// This process, for people: "norvo-playlists (process 1234 of ann on pc7)".
std::string ThisProcess();

/// How many files the process may have open; 0 when the system does not say.
std::size_t MostOpenFiles();

/// The moment as the disks' clock has it.
DiskTime DiskNow();
/// The moment on this system's clock, by the rules for its zone; in seconds since 1970, UTC.
/// Nothing for a moment outside the system's calendar.
std::optional<std::chrono::local_seconds> LocalTime(std::int64_t moment);

/// What one of the system's numbers means, in its own words, UTF-8.
std::string SystemMessage(int code);

}  // namespace norvo
