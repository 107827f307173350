// Any text as a number and as a length: what is told of one can be told again.
#include <cmath>

#include "Fuzzing.h"
#include "lists/ItemNumbers.h"
#include "model/TimeValues.h"
#include "text/CodePage.h"
#include "text/Number.h"

namespace {

using namespace norvo;

void CheckNumber(StringView text) {
  const std::optional<double> number = ParseNumber(text);
  if (!number || !std::isfinite(*number)) return;
  const std::optional<double> again = ParseNumber(FormatNumber(*number));
  // 15 digits are told.
  Require(again && std::abs(*again - *number) <= std::abs(*number) * 1e-14);
  Require(ParseNumber(FormatNumber(*again)) == again);
  const double rounded = RoundHalfToEven(*number);
  Require(std::abs(rounded - *number) <= 0.5 && std::trunc(rounded) == rounded);
}

void CheckLength(StringView text) {
  for (const double seconds : {SecondsOf(text), SecondsOfMilliseconds(text)}) {
    Require(seconds >= 0 && std::isfinite(seconds));
  }
  Require(TrackOf(text) >= 0);
  const String clock = FormatAsxTime(text);
  Require(clock.empty() || clock.find(u':') != String::npos);
  ParseAsxTime(text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const String text = Windows1252().Decode(AsBytes(data, size));
  CheckNumber(text);
  CheckLength(text);
  return 0;
}
