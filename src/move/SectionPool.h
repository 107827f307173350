#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "move/TextPool.h"

namespace norvo {

/// Sections of the generic files of a move, each kept once: a song that stands in five playlists
/// has mostly one and the same section in their files, and what is known of a section by its number
/// need not be found out again.
class SectionPool {
 public:
  /// Of a section's lines; equal ones have the same. 0 is a section without lines.
  using Id = std::uint32_t;

  /// A key and its value; any other line is a value without a key.
  struct Line {
    TextPool::Id key = 0;
    TextPool::Id value = 0;
    bool operator==(const Line&) const = default;
  };

  SectionPool() : SectionPool(std::make_shared<TextPool>()) {}

  Id Add(std::span<const Line> lines);
  /// Holds until the next section is added.
  std::span<const Line> Lines(Id id) const;

  /// A pool over the same texts, without sections.
  SectionPool Emptied() const { return SectionPool(texts_); }

  TextPool& Texts() { return *texts_; }
  const TextPool& Texts() const { return *texts_; }
  /// The texts alone, for those that outlive this.
  std::shared_ptr<const void> SharedTexts() const { return texts_; }

 private:
  explicit SectionPool(std::shared_ptr<TextPool> texts);
  std::size_t SlotOf(std::span<const Line> lines) const;
  void Grow();

  std::shared_ptr<TextPool> texts_;
  std::vector<Line> lines_;            // of all sections
  std::vector<std::uint32_t> starts_;  // by id; one more at the end
  std::vector<Id> slots_;              // as in TextPool
};

}  // namespace norvo
