#include "cli/Terminal.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <string_view>

namespace norvo::cli {
namespace {

constexpr std::size_t kUsualWidth = 80;
// Narrower ones get lines that are too long, rather than one word a line.
constexpr std::size_t kNarrowest = 30;

std::string_view Setting(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

/// 0 when nothing of use is asked for.
std::size_t WishedWidth() {
  const std::string_view text = Setting("COLUMNS");
  std::size_t width = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), width);
  return failure == std::errc() && end == text.data() + text.size() ? width : 0;
}

}  // namespace

std::size_t LineWidth(const std::ostream& stream) {
  const std::size_t wished = WishedWidth();
  if (wished > 0) return std::max(wished, kNarrowest);
  if (!IsTerminal(stream)) return kUsualWidth;
  return std::max(TerminalWidth().value_or(kUsualWidth), kNarrowest);
}

bool TakesColour(const std::ostream& stream) {
  return IsTerminal(stream) && Setting("NO_COLOR").empty() && Setting("TERM") != "dumb";
}

}  // namespace norvo::cli
