#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

#include "text/Text.h"

namespace norvo {

/// Whether a file is copied to its new machine, or gets a second name there. A file that cannot
/// have a second name, since the machines lie on two disks for instance, is copied all the same.
enum class PlaceMode {
  Copy,  ///< a file of its own
  Link   ///< a second name of the same file
};

/// One file and where it is to stand: full paths, each on its own machine.
struct PlaceJob {
  String source;  ///< on the machine that the file comes from
  String target;  ///< on the machine that it goes to
};

/// How a job has ended.
enum class PlaceResult {
  Copied,        ///< whole
  Linked,        ///< it has a second name now
  AlreadyThere,  ///< the target has the source's size and content; it was left as it was
  Failed         ///< `PlaceFailure` tells why
};

/// Why a job has failed.
enum class PlaceFailure {
  None,              ///< it has not
  SourceMissing,     ///< there is no such file
  SourceNoFile,      ///< but a folder or a device
  SourceUnreadable,  ///< the system refuses
  SourceChanged,     ///< while it was read
  TargetUnwritable,  ///< the system refuses
  FolderThere,       ///< one that has the target's name
  OtherFileThere,    ///< one that has the target's name and another content
  NotComparable,     ///< a file has the target's name and cannot be compared
  NotCopied          ///< any other failure
};

/// What became of a job.
struct PlaceOutcome {
  PlaceResult result = PlaceResult::Failed;   ///< how it has ended
  PlaceFailure failure = PlaceFailure::None;  ///< why it has failed
  /// Why the system refused, in words that end a sentence: "the disk is full". Empty for a failure
  /// that says all.
  String detail;
  /// True for a copy that is whole but for the source's times; `detail` tells why.
  bool hasLostTimes = false;
};

/// Watches files being placed. What it throws ends the work.
class PlaceListener {
 public:
  virtual ~PlaceListener() = default;
  /// So many bytes more are done, whether they were copied, linked or only compared; at least once
  /// per megabyte unless the disk copies at one stroke. Of a file that fails half-way, those that
  /// went before stay counted.
  virtual void OnBytes(std::uint64_t more) = 0;
  /// A job is over; `job` is its 0-based place among all. Copied files are told of in batches, when
  /// they are on the disk, so not in the order of the jobs.
  virtual void OnPlaced(std::size_t job, const PlaceOutcome& outcome) = 0;
};

/// Whether two files have the same size and content.
enum class Comparison {
  Same,    ///< byte for byte
  Other,   ///< another content, or none
  Unknown  ///< the second one cannot be read now, as when another program keeps it to itself
};

/// Places files of one machine on another.
class MediaPlacer {
 public:
  virtual ~MediaPlacer() = default;

  /// Tells of each job once. A job that fails does not keep the others; nothing is raised for it.
  /// Missing folders are created.
  virtual void PlaceAll(std::span<const PlaceJob> jobs, PlaceMode mode,
                        PlaceListener& listener) = 0;

  /// How the two files compare. A source that cannot be read is like no other file.
  virtual Comparison Compare(StringView source, StringView target) = 0;
  /// True when something has the target's name that is no file, so that no file can have it: a
  /// folder, or a link that leads nowhere; or when the system denies a look. Creates nothing.
  virtual bool IsBlocked(StringView target) = 0;
  /// The same text for every path that leads to one file of the first machine.
  virtual std::string IdentityOf(StringView source) = 0;
};

}  // namespace norvo
