#include "cli/TextLayout.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "cli/TerminalText.h"

namespace norvo::cli {
namespace {

constexpr std::string_view kEllipsis = "...";

/// Length of the longest start that takes no more than so many cells; at least one character. Marks
/// that combine stay with their character.
std::size_t StartThatFits(std::string_view text, std::size_t cells) {
  std::size_t end = 0;
  std::size_t taken = 0;
  for (std::size_t at = 0; at < text.size();) {
    taken += NextCharacter(text, at);
    if (taken > cells && end > 0) return end;
    end = at;
  }
  return end;
}

/// Start of the shortest end of a text that leaves out at least so many cells.
std::size_t EndWithout(std::string_view text, std::size_t cells) {
  std::size_t at = 0;
  std::size_t left = 0;
  while (at < text.size() && left < cells) left += NextCharacter(text, at);
  for (std::size_t next = at; next < text.size() && NextCharacter(text, next) == 0;) at = next;
  return at;
}

/// True when a word does not fit any more behind what is taken; of a long one little is looked at.
bool GoesBeyond(std::size_t width, std::size_t taken, std::string_view word) {
  for (std::size_t at = 0; at < word.size() && taken <= width;) taken += NextCharacter(word, at);
  return taken > width;
}

/// The part of a word that a line of its own takes.
std::size_t BreakIn(std::string_view word, std::size_t cells) {
  const std::size_t end = StartThatFits(word, cells);
  if (end == word.size()) return end;
  const std::size_t separator = word.substr(0, end).find_last_of("\\/");
  return separator == std::string_view::npos || separator + 1 < end / 2 ? end : separator + 1;
}

class Wrapping {
 public:
  Wrapping(std::size_t width, std::size_t indent) : width_(width), indent_(indent, ' ') {}

  void Add(std::string_view word) {
    if (!isEmpty_ && !GoesBeyond(width_, taken_ + 1, word)) {
      Put(' ', word);
      return;
    }
    if (!isEmpty_ && IsBetterOnItsOwn(word)) {
      NewLine();
    } else if (!isEmpty_) {
      Put(' ', {});
    }
    while (GoesBeyond(width_, taken_, word) && !word.empty()) {
      const std::size_t end = BreakIn(word, width_ > taken_ ? width_ - taken_ : 1);
      Put('\0', word.substr(0, end));
      word.remove_prefix(end);
      if (!word.empty()) NewLine();
    }
    if (!word.empty()) Put('\0', word);
  }
  std::vector<std::string> Take() && {
    lines_.push_back(std::move(line_));
    return std::move(lines_);
  }

 private:
  /// A path that no line can hold begins where it is if there is room worth it.
  bool IsBetterOnItsOwn(std::string_view word) const {
    return word.find_first_of("\\/") == std::string_view::npos ||
           !GoesBeyond(width_, indent_.size(), word) || width_ - taken_ < width_ / 3;
  }
  void NewLine() {
    lines_.push_back(std::move(line_));
    line_ = indent_;
    taken_ = indent_.size();
    isEmpty_ = true;
  }
  void Put(char before, std::string_view text) {
    if (before != '\0') line_ += before;
    line_ += text;
    taken_ = DisplayWidth(line_);
    isEmpty_ = false;
  }

  std::size_t width_;
  std::string indent_;
  std::vector<std::string> lines_;
  std::string line_;
  std::size_t taken_ = 0;
  bool isEmpty_ = true;
};

std::string Decimal(double number, const char* unit) {
  char text[48];
  std::snprintf(text, sizeof text, "%.1f %s", number, unit);
  return text;
}

}  // namespace

std::vector<std::string> Wrapped(std::string_view shown, std::size_t width, std::size_t indent) {
  Wrapping wrapping(width, indent);
  while (!shown.empty()) {
    const std::size_t end = std::min(shown.find(' '), shown.size());
    wrapping.Add(shown.substr(0, end));
    shown.remove_prefix(std::min(end + 1, shown.size()));
  }
  return std::move(wrapping).Take();
}

std::string ShortPath(std::string_view shown, std::size_t cells) {
  const std::size_t width = DisplayWidth(shown);
  if (width <= cells) return std::string(shown);
  if (cells <= kEllipsis.size()) return std::string(kEllipsis.substr(0, cells));
  const std::size_t kept = cells - kEllipsis.size();
  // The end of a path tells more than its start.
  const std::size_t front = kept < 3 ? 0 : StartThatFits(shown, kept / 3);
  const std::size_t rest = kept - DisplayWidth(shown.substr(0, front));
  return std::string(shown.substr(0, front)) + std::string(kEllipsis) +
         std::string(shown.substr(EndWithout(shown, width - rest)));
}

std::string PaddedTo(std::string text, std::size_t cells) {
  const std::size_t taken = DisplayWidth(text);
  if (taken < cells) text.append(cells - taken, ' ');
  return text;
}

std::string Counted(std::size_t count, const std::string& thing) {
  return std::to_string(count) + ' ' + thing + (count == 1 ? "" : "s");
}

std::string SizeText(double bytes) {
  if (bytes < 1e5) return std::to_string(static_cast<long>(std::ceil(bytes / 1e3))) + " KB";
  return bytes > 1e9 ? Decimal(bytes / 1e9, "GB") : Decimal(bytes / 1e6, "MB");
}

}  // namespace norvo::cli
