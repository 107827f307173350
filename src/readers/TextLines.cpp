#include "readers/TextLines.h"

#include <algorithm>

namespace norvo {

std::vector<StringView> SplitLines(StringView text) {
  std::vector<StringView> lines;
  for (std::size_t end = text.find(u"\r\n"); end != StringView::npos; end = text.find(u"\r\n")) {
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end + 2);
  }
  lines.push_back(text);
  return lines;
}

bool ExceedsLineLimit(const std::vector<StringView>& lines) {
  const std::size_t endPiece = !lines.empty() && lines.back().empty() ? 1 : 0;
  return lines.size() - endPiece > kMostLines;
}

std::size_t ReachableLines(const std::vector<StringView>& lines) {
  return ExceedsLineLimit(lines) ? kMostLines : lines.size();
}

}  // namespace norvo
