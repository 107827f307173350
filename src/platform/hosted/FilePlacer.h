#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/hosted/HostedPlatform.h"
#include "text/Text.h"

namespace norvo {

/// Whether a file is copied to its new machine, or gets a second name there. A file that cannot
/// have a second name, since the machines lie on two disks for instance, is copied all the same.
enum class PlaceMode { Copy, Link };

/// One file and where it is to stand: full paths, each on its own machine.
struct PlaceJob {
  String source;
  String target;
};

enum class PlaceResult {
  Copied,
  Linked,
  AlreadyThere,  ///< the target has the source's size and content; it was left as it was
  Failed
};

/// What became of a job.
struct PlaceOutcome {
  PlaceResult result = PlaceResult::Failed;
  String reason;  ///< of a failure, as a part of a sentence: "the source is not there"
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

/// Places files of one machine on another.
///
/// A file comes whole or not at all: it gets its name only when all its bytes are on the disk. What
/// stands there already is never replaced. A run that was stopped at any moment is completed by
/// another one over the same jobs, and nothing is left over of the first. Copies keep both times of
/// their source; they can be written to by their owner and not be executed, and nobody may read
/// them who may not read the source.
class FilePlacer {
 public:
  /// Both machines must outlive this; they may be the same.
  FilePlacer(HostedPlatform& from, HostedPlatform& to);

  /// Tells of each job once. A job that fails does not keep the others; nothing is raised for it.
  /// Missing folders are created.
  void PlaceAll(std::span<const PlaceJob> jobs, PlaceMode mode, PlaceListener& listener);

  /// True when both files exist and have the same size and content; false also when one cannot be
  /// read.
  bool IsSame(StringView source, StringView target);
  /// True when something has the target's name that is no file, so that no file can have it: a
  /// folder, or a link that leads nowhere. Creates nothing.
  bool IsBlocked(StringView target);

 private:
  HostedFileSystem& from_;
  HostedFileSystem& to_;
};

}  // namespace norvo
