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

/// Adds the line that begins it, without the line's end.
inline void AppendEntrySection(String& text, std::int64_t position) {
  constexpr StringView kStart = u"[Entry ";
  constexpr StringView kEnd = u" Properties]";
  text += kStart;
  AppendInteger(text, position);
  text += kEnd;
}

}  // namespace norvo
