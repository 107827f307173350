#pragma once

#include "move/MediaPlacer.h"
#include "services/FileSystem.h"

namespace norvo {

/// Brings files from one machine to another through nothing but their file services, which is what
/// all machines have. A file that cannot be copied whole is deleted again. Cannot link.
class StreamPlacer final : public MediaPlacer {
 public:
  /// Both must outlive this.
  StreamPlacer(FileSystem& from, FileSystem& to) : from_(from), to_(to) {}

  void PlaceAll(std::span<const PlaceJob> jobs, PlaceMode mode, PlaceListener& listener) override;
  Comparison Compare(StringView source, StringView target) override;
  bool IsBlocked(StringView target) override { return to_.FolderExists(target); }
  /// The full path without regard to case.
  std::string IdentityOf(StringView source) override;

 private:
  PlaceOutcome Place(const PlaceJob& job, PlaceListener& listener);
  PlaceOutcome Compare(const PlaceJob& job);
  void Copy(BinaryFile& source, StringView target, PlaceListener& listener);
  void CreateFolders(StringView path);

  FileSystem& from_;
  FileSystem& to_;
};

}  // namespace norvo
