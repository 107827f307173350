#include "lists/ItemNumbers.h"

#include <cmath>
#include <optional>

#include "lists/ItemText.h"
#include "text/Number.h"

namespace norvo {
namespace {

// Eleven days: nothing that is played lasts longer.
constexpr double kMostSeconds = 1e6;
constexpr double kLastTrack = 9999;

double NumberOf(StringView text) {
  const double number = ParseNumber(CleanText(text)).value_or(0);
  return number > 0 ? number : 0;
}

double UpTo(double most, double number) {
  return number <= most ? number : 0;
}

}  // namespace

double SecondsOf(StringView text) {
  constexpr std::size_t kMostParts = 3;
  const std::vector<StringView> parts = Split(CleanText(text), u':');
  if (parts.size() > kMostParts) return 0;
  double seconds = 0;
  for (const StringView part : parts) {
    const std::optional<double> number = ParseNumber(part);
    if (!number || std::signbit(*number)) return 0;
    seconds = seconds * 60 + *number;
  }
  return UpTo(kMostSeconds, seconds);
}

double SecondsOfMilliseconds(StringView text) {
  return UpTo(kMostSeconds, NumberOf(text) / 1000);
}

int TrackOf(StringView text) {
  return static_cast<int>(UpTo(kLastTrack, NumberOf(text)));
}

}  // namespace norvo
