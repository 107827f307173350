#pragma once

#include <cstddef>

#include "text/Text.h"

namespace norvo {

/// A name or a value without what may stand around it in a settings file.
inline StringView TrimBlanksAndTabs(StringView text) {
  return Trim(text, IsBlankOrTab);
}

/// A line of a settings file, as views of its text.
struct SettingsLine {
  enum class Kind {
    Section,  ///< "[name]"
    Key,      ///< "name=value"; the name is not empty
    Other     ///< a comment, which ";" starts, an empty line, or no settings line at all
  };

  Kind kind = Kind::Other;
  StringView name;   ///< of a section or a key, without blanks and tabs around it
  StringView value;  ///< of a key, without blanks and tabs around it; of others the whole line
};

/// Takes the text of a settings file apart, line by line. CR LF, LF and a lone CR end a line.
class SettingsLines {
 public:
  /// The text must outlive this.
  explicit SettingsLines(StringView text) : rest_(text) {}

  /// False behind the last line; a line end at the end of the text begins no further one.
  bool Next(SettingsLine& line);

 private:
  StringView rest_;
};

/// What the text of a settings file can have at most to be held in memory with what is made of it,
/// in some 200 MiB. A generic file of as many entries as can be counted (32,767) has a third of
/// the characters and of the lines, and a sixth of the sections.
inline constexpr std::size_t kMostSettingsUnits = std::size_t{32} * 1024 * 1024;
inline constexpr std::size_t kMostSettingsLines = 2'000'000;
inline constexpr std::size_t kMostSettingsSections = 200'000;

/// Error 7, which says why, for the text of a settings file that has more than that.
void CheckSettings(StringView text);

/// Whether a section of the text has the key; names are matched without regard to case. Reads no
/// further than to the key.
bool HasSetting(StringView text, StringView section, StringView key);

}  // namespace norvo
