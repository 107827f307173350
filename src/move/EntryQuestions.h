#pragma once

#include <cstdint>
#include <deque>
#include <unordered_map>
#include <vector>

#include "move/GenericDraft.h"
#include "move/TextPool.h"
#include "services/Component.h"

namespace norvo {

/// What an entry of a generic file says, and the place that the new machine computes of it.
struct EntryAnswer {
  String place;
  String artist;
  String album;
  String fileName;
};

/// The same as views of texts that are kept elsewhere, each once: there is one for each song. Many
/// songs share a folder, and most have the name that their entries give them.
struct KeptAnswer {
  StringView folder;  ///< of the place, with its separator
  StringView name;    ///< and what follows
  StringView artist;
  StringView album;
  StringView fileName;

  String Place() const { return String(folder).append(name); }
  EntryAnswer Copy() const { return {Place(), String(artist), String(album), String(fileName)}; }
};

/// Asks the new machine's own entries where their songs belong.
class EntryQuestions {
 public:
  /// `library` works on an overlay of the new machine. The texts of the answers go into the pool,
  /// which has most of them. Both must outlive this.
  EntryQuestions(Component& library, TextPool& texts) : library_(library), texts_(texts) {}

  /// All entries of a generic file, as if no file stood at their old addresses: what stands there
  /// may have been put there by an earlier run. The answers stay where they are; entries whose
  /// sections are equal share one.
  std::vector<const KeptAnswer*> AskAll(const GenericDraft& genericFile);
  /// An entry with these names.
  EntryAnswer Ask(const EntryAnswer& names);
  /// The same answer as one that stays where it is, as those of `AskAll` do.
  const KeptAnswer& Keep(const EntryAnswer& answer);

 private:
  std::vector<EntryAnswer> Read(IniDocument genericFile);
  bool AskNew(const GenericDraft& genericFile, std::size_t count);
  std::vector<const KeptAnswer*> AskWhole(const GenericDraft& genericFile);

  Component& library_;
  TextPool& texts_;
  std::deque<KeptAnswer> answers_;
  std::unordered_map<SectionPool::Id, const KeptAnswer*> bySection_;
};

}  // namespace norvo
