#pragma once

#include <array>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "cli/Console.h"
#include "cli/Drop.h"
#include "services/Observer.h"

namespace norvo {

using DropCounts = std::array<std::size_t, kDropReasons>;

/// What became of one playlist of the queue.
struct PlaylistResult {
  String path;
  std::int32_t type = 0;
  std::optional<PlaylistOutcome> outcome;  ///< nothing: the queue ended before it was done
  std::size_t kept = 0;
  DropCounts dropped{};
  std::vector<Drop> drops;  ///< filled only for a document
  String genericFile;
  std::optional<std::size_t> replacedBy;  ///< a later playlist with the same neutral file
};

/// Follows the scan and the queue: draws the progress, tells at once what is left out, and keeps
/// the results.
class WorkWatcher final : public Observer {
 public:
  explicit WorkWatcher(Console& console) : console_(console) {}

  void OnWarning(const Warning& warning) override;
  void OnItem(StringView reference, ItemOutcome outcome) override;
  void OnFolder(StringView path) override;
  void OnPlaylistBegin(StringView path, std::size_t position, std::size_t count) override;
  void OnPlaylistEnd(StringView path, std::int32_t type, PlaylistOutcome outcome, std::size_t kept,
                     StringView genericFile) override;

  const std::vector<PlaylistResult>& Results() const { return results_; }
  std::size_t Folders() const { return folders_; }
  /// The last warning, for a message about work that failed as a whole.
  const std::string& LastWarning() const { return lastWarning_; }

  /// From now on what is dropped outside the queue belongs to this playlist, which the host reads
  /// itself.
  void BeginOwn(StringView path) { own_.path = path; }
  const PlaylistResult& Own() const { return own_; }

 private:
  void KeepDrop(const Drop& drop);
  void NoteGenericFile(std::size_t index);

  Console& console_;
  std::vector<PlaylistResult> results_;
  PlaylistResult own_;
  bool inPlaylist_ = false;
  std::size_t folders_ = 0;
  std::string lastWarning_;
  std::unordered_map<String, std::size_t, CaselessHash, CaselessEqual> byGenericFile_;
};

}  // namespace norvo
