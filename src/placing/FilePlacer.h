#pragma once

#include "move/MediaPlacer.h"
#include "platform/hosted/HostedPlatform.h"

namespace norvo {

/// Places files of one machine that is held in folders on another.
///
/// A file comes whole or not at all: it gets its name only when all its bytes are on the disk. What
/// stands there already is never replaced. A run that was stopped at any moment is completed by
/// another one over the same jobs, and nothing is left over of the first. Copies keep both times of
/// their source, if the system lets them; they can be written to by their owner and not be
/// executed, and nobody may read them who may not read the source.
class FilePlacer final : public MediaPlacer {
 public:
  /// Both machines must outlive this; they may be the same.
  FilePlacer(HostedPlatform& from, HostedPlatform& to);

  void PlaceAll(std::span<const PlaceJob> jobs, PlaceMode mode, PlaceListener& listener) override;
  Comparison Compare(StringView source, StringView target) override;
  bool IsBlocked(StringView target) override;
  /// Where it stands on this system's disk, however its path is spelled and whatever links lead to
  /// it.
  std::string IdentityOf(StringView source) override;

 private:
  HostedFileSystem& from_;
  HostedFileSystem& to_;
};

}  // namespace norvo
