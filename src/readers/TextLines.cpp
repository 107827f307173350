#include "readers/TextLines.h"

#include <algorithm>

#include "automation/RunTimeError.h"

namespace norvo {

void CheckLine(StringView line) {
  if (line.size() > kLongestLine) throw RunTimeError(error::kOutOfMemory);
}

std::vector<StringView> SplitLines(StringView text) {
  std::vector<StringView> lines;
  // Two pieces past the limit tell that it is exceeded, whether or not the last one is empty.
  constexpr std::size_t kMostPieces = kMostLines + 2;
  while (lines.size() < kMostPieces) {
    std::size_t end = FindUnit(text, u'\r');
    while (end != StringView::npos && text.substr(end, 2) != u"\r\n") {
      end = FindUnit(text, u'\r', end + 1);
    }
    lines.push_back(text.substr(0, end));
    CheckLine(lines.back());
    if (end == StringView::npos) break;
    text.remove_prefix(end + 2);
  }
  return lines;
}

bool ExceedsLineLimit(const std::vector<StringView>& lines) {
  const std::size_t endPiece = !lines.empty() && lines.back().empty() ? 1 : 0;
  return lines.size() - endPiece > kMostLines;
}

std::size_t ReachableLines(const std::vector<StringView>& lines) {
  return ExceedsLineLimit(lines) ? kMostLines + 1 : lines.size();
}

}  // namespace norvo
