#pragma once

#include <cstdint>

#include "text/Number.h"
#include "text/Text.h"

namespace norvo {

/// The sections of a generic playlist file.

inline constexpr StringView kGlobalSection = u"Global Properties";

/// The section of an entry, by its 1-based position.
inline String EntrySection(std::int64_t position) {
  return u"Entry " + FormatInteger(position) + u" Properties";
}

}  // namespace norvo
