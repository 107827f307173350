#pragma once

#include <memory>
#include <optional>

#include "automation/MemberTable.h"
#include "playlist/PlayList.h"

namespace norvo {

class ListFile;

/// The controller: finds the machine's playlists and converts them, one after the other. Its
/// public operations never raise, but for the search for media files.
class HelperMan final : public TableObject {
 public:
  /// A controller of the component, which must outlive it. On a machine whose role is neither
  /// source nor destination it finds nothing.
  explicit HelperMan(Component& component);
  ~HelperMan() override;

  /// Runs the queue; the modes are those of queue_mode. Mode 0 turns every listed playlist into a
  /// generic file. Mode 1 turns every generic file of the user's documents into native playlists,
  /// and points the players at them. True when at least one playlist was processed. Every mode
  /// consumes the list; any other one does nothing else.
  bool GenericQueue(std::int32_t mode);

  /// The listed paths, which consumes the list: a second call finds none until the next scan.
  StringArray GetPLSList();

  /// Name of a playlist's generic file: up to and including the last point, then "ini"; without a
  /// point, the name + ".ini". Works on the text alone.
  String PlayListToIni(const String& fileName);

  /// @{
  /// Types, of playlist_type, by a file's keys and by its first lines; 0 for a file that tells none
  /// or cannot be read.
  std::int32_t ParsePLSHeader(const String& path);
  std::int32_t ParseM3UHeader(const String& path);
  /// @}

  /// Scans the fixed drives for playlists and lists them anew; true when the scan ran to its end.
  bool GetAllPlaylists();

  /// Writes the media byte total under the group's registry key, when that key exists.
  bool UpdateTotalFileSize();

  /// Searches the fixed drives for files that match one of the comma-separated patterns, and
  /// visits each without doing anything with it: intended. True when the search ran to its end.
  /// Raises what the search raises.
  bool MigrateMediaByType(const String& mediaTypes);

  /// Does nothing, leaves its arguments and answers with the empty text: intended.
  String DataGrabber(const String& fileName, const String& header, const String& listKeys);

  /// The members that hosts reach by name.
  static const MemberTable& Interface();

 protected:
  const MemberTable& Table() const override { return Interface(); }

 private:
  void StartUp();
  // Both set `processed` as soon as a playlist was; an error then does not take it back.
  void ConvertListed(const std::vector<String>& paths, bool& processed);
  void RestoreAll(bool& processed);
  void RestoreOne(const String& path, std::size_t position, std::size_t count);
  /// True when the playlist had entries, whatever became of its generic file.
  bool ConvertOne(const String& path, std::size_t position, std::size_t count);
  void Write(PlayList& playlist, const String& path);
  /// Lists one playlist by its type, which is sniffed when it is not given.
  void AddPlayList(const String& path, std::optional<std::int32_t> subtype = std::nullopt);
  void ScanDrives();

  Component& component_;
  String groupRoot_;
  String groupKey_;
  std::unique_ptr<ListFile> list_;  // set once the start-up succeeded
};

}  // namespace norvo
