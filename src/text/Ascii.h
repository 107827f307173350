#pragma once

#include <string_view>

#include "text/Text.h"

namespace norvo {

/// True when every unit is below 128. Most texts are, and such a text needs no table on its way in
/// or out. Looks at all units without a branch, which is the quickest.
inline bool IsAscii(std::string_view bytes) noexcept {
  unsigned all = 0;
  for (const char byte : bytes) all |= static_cast<unsigned char>(byte);
  return all < 0x80;
}

inline bool IsAscii(StringView text) noexcept {
  unsigned all = 0;
  for (const char16_t unit : text) all |= unit;
  return all < 0x80;
}

}  // namespace norvo
