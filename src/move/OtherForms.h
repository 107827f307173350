#pragma once

#include <functional>
#include <optional>
#include <span>
#include <unordered_set>

#include "text/Text.h"

namespace norvo {

/// Of one playlist a move makes a list for each player, in folders named after them that stand side
/// by side. When the machine that it went to is an old one itself, as a disk between two PCs is,
/// these are forms of one playlist, and one of them is enough: the one for players of today, which
/// tells the most. A list that was changed since is a playlist of its own again.
class OtherForms {
 public:
  /// What a list holds, in the same words for all forms; nothing for one that cannot be read.
  using ContentOf = std::function<std::optional<String>(const String& path)>;

  /// Looks at the lists, by their full paths, and asks for the contents of those that may be forms
  /// of others.
  OtherForms(std::span<const String> lists, const ContentOf& contentOf);

  /// True for a list that another one stands for.
  bool Contains(const String& path) const { return others_.contains(path); }

 private:
  std::unordered_set<String> others_;
};

}  // namespace norvo
