#pragma once

#include <chrono>
#include <optional>
#include <ostream>
#include <string>

#include "text/Text.h"

namespace norvo::cli {

/// ", 1:05 left" for work of which `done` of `total` has taken so many seconds; empty for the first
/// second, which tells too little. Never more than 99:59:59.
std::string TimeLeft(double done, double total, double elapsed);

/// One line on a terminal that tells how far the work is; it is drawn again at most ten times a
/// second. Draws nothing when it is off.
class Progress {
 public:
  Progress(std::ostream& terminal, bool on) : terminal_(terminal), on_(on) {}
  ~Progress() { Clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  void TurnOff();

  /// Work of unknown length.
  void Count(std::string_view what, std::size_t done, StringView current);
  /// The `position`th of `count` is begun.
  void Advance(std::string_view what, std::size_t position, std::size_t count, StringView current);
  /// So many of `total` bytes are done; tells the remaining time once that can be guessed. The work
  /// is taken to begin with the first call.
  void Bytes(std::string_view what, double done, double total, StringView current);
  /// Takes the line off the screen, before anything else is written there.
  void Clear();

 private:
  bool IsDue();
  void Draw(const std::string& head, StringView current);

  std::ostream& terminal_;
  bool on_;
  bool drawn_ = false;
  std::chrono::steady_clock::time_point next_;
  std::optional<std::chrono::steady_clock::time_point> bytesBegan_;
  double bytesBefore_ = 0;  // done when the work began
};

}  // namespace norvo::cli
