#pragma once

#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "move/RestoredCopies.h"
#include "move/TextPool.h"
#include "services/Component.h"

namespace norvo {

/// The place that a song has got, and the names by which an entry computes it.
struct KnownPlace {
  StringView place;  ///< in the 8-bit page
  StringView artist;
  StringView album;
  StringView fullPlace{};  ///< in every script; empty where both are one
};

/// What a machine remembers of the moves to it: the generic files that were restored, by path and
/// content, with the native playlists made of each, and the places of the songs. It stands in
/// "Restored.txt" of the data area, is written ahead of each step, and so survives a run that is
/// killed: what such a run has left unfinished is taken away before the next. What was done counts
/// from its writing anew on without a look; before, the sizes of the native playlists are noted
/// with it, and what a loss of power has cut off is unfinished.
class RestoreLedger {
 public:
  /// Reads the machine's ledger. Playlists that were begun and not finished are deleted. Raises
  /// when a native playlist whose size was noted cannot be looked up.
  RestoreLedger(Component& machine, const String& dataArea);

  /// True for a generic file that was restored as it is now.
  bool IsRestored(const String& genericFile);
  /// The generic file that was restored for a playlist with this key, by which a move knows it
  /// again; empty when there is none, or when it is another file now.
  String CarriedFor(const std::string& key);
  /// The native playlists made of a generic file, in the order of their writing.
  std::vector<String> NativesOf(const String& genericFile) const;
  /// All native playlists of all moves, as they were made. Those that an earlier version has made
  /// are not among them.
  std::vector<MadeList> MadeLists() const;

  /// `key` may be empty, and holds no tab. `print` is the file's fingerprint where the caller knows
  /// it; `intended` are the native playlists that will be made, as far as can be told: none of them
  /// is there yet. They stand on the disk when this returns.
  void Begin(const String& genericFile, const std::string& key = {}, const std::string& print = {},
             const std::vector<String>& intended = {});
  /// Before it is made; one that was not intended stands on the disk when this returns.
  void AddNative(const String& path);
  /// With `whole` false, without any native playlist, or with one that cannot be read, the generic
  /// file counts as not restored, and what was written of it is deleted.
  void End(bool whole);

  /// By which a song is known: every playlist may spell its path in another way, and two old
  /// machines may have different files of one path.
  static String NameOf(StringView source, double size);
  /// The places of a song, by whatever name the caller gives it: several when songs of several old
  /// machines have one name. Some may be gone. The texts hold as long as the ledger.
  const std::vector<KnownPlace>& PlacesOf(const String& song) const;
  /// Adds a place, or the names of one that is known. Is durable after the next `Compact`. Of more
  /// than 200,000 songs the first ones are known.
  void AddPlace(const String& song, const KnownPlace& place);
  /// The same of texts that outlive the ledger, and are not copied.
  void LendPlace(const String& song, const KnownPlace& place);

  /// Waits until all native playlists that were noted since the last `Compact` are on the disk.
  void MakeDurable();

  /// The same, and writes the ledger anew, in the order of the names.
  void Compact();

 private:
  struct Row {
    String genericFile;
    std::string key;
    std::string fingerprint;
    std::vector<String> natives;
    std::vector<String> intended;
    bool isDurable = true;              // they are on the disk, and not only noted
    std::vector<std::string> prints{};  // of the natives as they were made, or none
  };

  bool Load();
  void Take(const std::vector<String>& fields);
  std::string FingerprintOf(const String& path);
  void Append(const std::string& line);
  void Flush();
  void DeleteNatives(const Row& row);
  void DeleteUnfinished(const Row& row);
  String SizeOf(const String& native);
  std::optional<std::string> SizesOf(const std::vector<String>& natives);
  std::optional<std::vector<std::string>> PrintsOf(const std::vector<String>& natives);
  bool AreWhole(const std::vector<String>& natives, std::span<const String> sizes);
  void Keep();
  void TakeKey(const std::string& key, const String& folded);

  Component& machine_;
  String path_;
  bool exists_ = false;
  std::unique_ptr<AppendFile> growing_;  // open from the first added line to the next writing anew
  std::map<String, Row> restored_;       // by the folded path, so that the order ignores case
  std::map<std::string, String> byKey_;  // the folded paths of those with a key
  TextPool texts_;                       // of the places
  std::map<String, std::vector<KnownPlace>> places_;
  std::optional<Row> current_;  // begun and not ended
  std::vector<Row> cutOff_;     // noted as done, and not whole
};

}  // namespace norvo
