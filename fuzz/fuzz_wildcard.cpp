// A text and a pattern, divided at the first zero byte: no pattern may take long or reach outside.
#include "FuzzedPlaylist.h"
#include "text/Wildcard.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes = norvo::AsBytes(data, size).substr(0, 4096);
  const std::size_t zero = bytes.find('\0');
  if (zero == std::string_view::npos) return 0;
  const norvo::String text = norvo::Windows1252().Decode(bytes.substr(0, zero));
  const norvo::String pattern = norvo::Windows1252().Decode(bytes.substr(zero + 1));
  for (const norvo::Compare compare : {norvo::Compare::Binary, norvo::Compare::Text}) {
    const bool matches = norvo::Matches(text, pattern, compare);
    if (matches && !norvo::IsValidPattern(pattern)) std::abort();
    if (!norvo::Matches(text, u"*", compare)) std::abort();
  }
  return 0;
}
