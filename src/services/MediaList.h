#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "services/Platform.h"
#include "services/SharedFile.h"
#include "text/FingerprintSet.h"

namespace norvo {

/// The migration list as a text file, "MediaList.txt" in the group's data area: one line per
/// record (category, source path, destination expression, separated by tabs) in UTF-8 with a byte
/// order mark. Lines are added in one write per flush, so that a stop at any moment leaves whole
/// records and at most one torn line, which is no record and is left out by the next flush. Very
/// many lines are written before they are flushed, so that they do not gather in memory. Several
/// lists of one file, in one process or in several, add to each other's lines: what one has added
/// is not added again by the next.
class MediaList final : public MigrationList {
 public:
  MediaList(SharedFiles& files, SettingsStorage& storage) : files_(files), storage_(storage) {}

  bool EnsureGroup(StringView group, StringView root) override;
  bool Add(const MediaRecord& record) override;
  bool Flush() override;

 private:
  // Some 2,000 lines: an ordinary playlist is written once.
  static constexpr std::size_t kManyBytes = std::size_t{256} * 1024;

  void Load(std::string_view bytes);
  void Write();

  SharedFiles& files_;
  SettingsStorage& storage_;
  String root_;
  String path_;
  /// The records, each by its source and destination.
  FingerprintSet known_;
  std::string pending_;            // lines not yet in the file
  std::size_t most_ = kManyBytes;  // of them, before they are written
  std::uint64_t seen_ = 0;         // bytes of the file up to the end of the last line that is known
};

}  // namespace norvo
