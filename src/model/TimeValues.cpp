#include "model/TimeValues.h"

#include <vector>

#include "automation/Attempt.h"
#include "automation/Conversions.h"
#include "automation/RunTimeError.h"
#include "text/Number.h"

namespace norvo {
namespace {

constexpr std::int16_t kSecondsPerHour = 3600;
constexpr std::int16_t kSecondsPerMinute = 60;

String TwoDigits(std::int16_t number) {
  String text = FormatInteger(number);
  return number < 10 ? u"0" + text : text;
}

/// A rounding division, as the time form wants it: its result may be one too high.
std::int16_t RoundedShare(std::int16_t seconds, std::int16_t unit) {
  return NarrowToInt16(static_cast<double>(seconds) / unit);
}

String ClockText(std::int16_t hours, std::int16_t minutes, std::int16_t seconds) {
  return TwoDigits(hours) + u":" + TwoDigits(minutes) + u":" + TwoDigits(seconds) + u".000";
}

String ClockOf(std::int16_t seconds) {
  // Below a minute there is nothing to round: 59 seconds are no minute.
  if (seconds < kSecondsPerMinute) {
    return ClockText(0, 0, static_cast<std::int16_t>(seconds % kSecondsPerMinute));
  }
  const auto rest = static_cast<std::int16_t>(seconds % kSecondsPerHour);
  const std::int16_t hours =
      seconds < kSecondsPerHour ? std::int16_t{0} : RoundedShare(seconds, kSecondsPerHour);
  return ClockText(hours, RoundedShare(rest, kSecondsPerMinute),
                   static_cast<std::int16_t>(rest % kSecondsPerMinute));
}

String SecondsOf(StringView clock) {
  const std::vector<StringView> parts = Split(clock, u':');
  if (parts.size() < 3) throw RunTimeError(error::kSubscriptOutOfRange);
  const std::int16_t hours = NarrowToInt16(Int16FromText(parts[0]) * kSecondsPerHour);
  const std::int16_t minutes = NarrowToInt16(Int16FromText(parts[1]) * kSecondsPerMinute);
  const std::size_t point = parts[2].find(u'.');
  if (point == StringView::npos) throw RunTimeError(error::kInvalidArgument);
  const double seconds = ToDouble(String(parts[2].substr(0, point)));
  return FormatNumber(static_cast<double>(hours) + minutes + seconds);
}

}  // namespace

String FormatAsxTime(StringView seconds) {
  if (seconds.empty() || seconds == u"-1" || seconds.find(u':') != StringView::npos) {
    return u"00:00:00.000";
  }
  return AnswerOr(String(), [&] { return ClockOf(Int16FromText(seconds)); });
}

String ParseAsxTime(StringView clock) {
  if (clock.find(u':') == StringView::npos) return u"0";
  return AnswerOr(String(), [&] { return SecondsOf(clock); });
}

}  // namespace norvo
