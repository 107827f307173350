#include "text/Fingerprint.h"

#include <cstdio>

namespace norvo {

namespace {

template <class Map>
void Mix(Fingerprint& print, StringView text, Map map) noexcept {
  std::uint64_t first = print.first;
  std::uint64_t second = print.second;
  for (const char16_t unit : text) {
    const std::uint64_t value = map(unit);
    first = (first ^ value) * 0x9E3779B97F4A7C15u;
    second = (second + value + 1) * 0xD6E8FEB86659FD93u;
    second ^= second >> 32;
  }
  print.first = first;
  print.second = second;
}

}  // namespace

Fingerprint& Fingerprint::Add(StringView text) noexcept {
  Mix(*this, text, ToUpper);
  return *this;
}

Fingerprint& Fingerprint::AddExact(StringView text) noexcept {
  Mix(*this, text, [](char16_t unit) { return unit; });
  return *this;
}

std::string TextOf(const Fingerprint& print) {
  char text[40];
  std::snprintf(text, sizeof text, "%016llx%016llx", static_cast<unsigned long long>(print.first),
                static_cast<unsigned long long>(print.second));
  return text;
}

}  // namespace norvo
