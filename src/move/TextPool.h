#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "text/Text.h"

namespace norvo {

/// Texts of a move, each kept once however many entries of however many playlists have it. They
/// stand in large blocks, so that a text costs its units and a few bytes more.
class TextPool {
 public:
  /// Of a text; equal texts have the same. 0 is the empty text.
  using Id = std::uint32_t;

  TextPool();

  Id Add(StringView text);
  /// Holds as long as the pool.
  StringView Text(Id id) const { return texts_[id]; }
  /// The same text as one that holds as long as the pool.
  StringView Keep(StringView text) { return Text(Add(text)); }

 private:
  StringView Store(StringView text);
  void Grow();
  std::size_t SlotOf(StringView text) const;

  std::vector<StringView> texts_;  // by id
  std::vector<Id> slots_;          // of a table with open addressing; 0 for a free one
  std::vector<std::unique_ptr<char16_t[]>> blocks_;
  std::size_t free_ = 0;  // units of the last block
};

}  // namespace norvo
