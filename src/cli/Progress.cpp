#include "cli/Progress.h"

#include <algorithm>
#include <cstdio>

#include "cli/Terminal.h"
#include "cli/TerminalText.h"
#include "text/Encoding.h"

namespace norvo::cli {
namespace {

constexpr std::chrono::milliseconds kInterval{100};
constexpr std::size_t kBarCells = 20;
constexpr std::size_t kUsualWidth = 80;

/// The end of a text, as much of it as fits.
std::string TailThatFits(StringView text, std::size_t cells) {
  std::string shown = TerminalText(ToUtf8(text));
  while (!text.empty() && DisplayWidth(shown) > cells) {
    text.remove_prefix(1);
    shown = TerminalText(ToUtf8(text));
  }
  return shown;
}

std::string Bar(std::size_t filled) {
  return '[' + std::string(filled, '#') + std::string(kBarCells - filled, '.') + "] ";
}

/// With one digit behind the point.
std::string Megabytes(double bytes) {
  char text[32];
  std::snprintf(text, sizeof text, "%.1f", bytes / 1e6);
  return text;
}

}  // namespace

std::string TimeLeft(double done, double total, double elapsed) {
  constexpr double kLongest = 359999;
  if (elapsed < 1 || done <= 0) return {};
  // A file that grows while it is copied is done with more than its size.
  const double rest = std::max(total - done, 0.0);
  const auto seconds = static_cast<long>(std::min(elapsed / done * rest, kLongest));
  char text[32];
  if (seconds < 3600) {
    std::snprintf(text, sizeof text, ", %ld:%02ld left", seconds / 60, seconds % 60);
  } else {
    std::snprintf(text, sizeof text, ", %ld:%02ld:%02ld left", seconds / 3600, seconds / 60 % 60,
                  seconds % 60);
  }
  return text;
}

void Progress::TurnOff() {
  Clear();
  on_ = false;
}

bool Progress::IsDue() {
  if (!on_) return false;
  const auto now = std::chrono::steady_clock::now();
  if (now < next_) return false;
  next_ = now + kInterval;
  return true;
}

void Progress::Count(std::string_view what, std::size_t done, StringView current) {
  if (IsDue()) Draw(std::string(what) + ' ' + std::to_string(done) + ' ', current);
}

void Progress::Advance(std::string_view what, std::size_t position, std::size_t count,
                       StringView current) {
  if (!IsDue() || count == 0) return;
  const std::size_t filled = (position - 1) * kBarCells / count;
  Draw(Bar(filled) + std::string(what) + ' ' + std::to_string(position) + " of " +
           std::to_string(count) + ' ',
       current);
}

void Progress::Bytes(std::string_view what, double done, double total, StringView current) {
  const auto now = std::chrono::steady_clock::now();
  if (!bytesBegan_) {
    bytesBegan_ = now;
    bytesBefore_ = done;
  }
  if (!IsDue() || total <= 0) return;
  const double part = std::min(done / total, 1.0);
  const auto filled = static_cast<std::size_t>(part * kBarCells);
  const std::chrono::duration<double> elapsed = now - *bytesBegan_;
  Draw(Bar(filled) + std::string(what) + ' ' + Megabytes(done) + " of " + Megabytes(total) + " MB" +
           TimeLeft(done - bytesBefore_, total - bytesBefore_, elapsed.count()) + ' ',
       current);
}

void Progress::Draw(const std::string& head, StringView current) {
  const std::size_t width = TerminalWidth().value_or(kUsualWidth);
  // The last cell stays free: some terminals would start a new line.
  const std::size_t room = width > head.size() + 1 ? width - head.size() - 1 : 0;
  terminal_ << "\r\x1B[K" << head.substr(0, width - 1) << TailThatFits(current, room) << std::flush;
  drawn_ = true;
}

void Progress::Clear() {
  if (drawn_) terminal_ << "\r\x1B[K" << std::flush;
  drawn_ = false;
}

}  // namespace norvo::cli
