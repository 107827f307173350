#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace norvo {

/// Makes room for so many more, by a quarter at a time: of the tables of a large move twice the
/// room, as a vector makes it, would be the most that the move needs.
template <class Value>
void MakeRoom(std::vector<Value>& values, std::size_t more = 1) {
  constexpr std::size_t kFew = 16;
  if (values.capacity() - values.size() >= more) return;
  values.reserve(values.size() + std::max({more, values.size() / 4, kFew}));
}

}  // namespace norvo
