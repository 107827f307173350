#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/Text.h"

namespace norvo {

/// An 8-bit code page: how the bytes of files and tags become text, and back.
class CodePage {
 public:
  virtual ~CodePage() = default;

  /// Adds the text of these bytes.
  virtual void AppendDecoded(String& text, std::string_view bytes) const = 0;
  /// The text of these bytes.
  String Decode(std::string_view bytes) const {
    String text;
    AppendDecoded(text, bytes);
    return text;
  }
  /// The bytes of a text. A character that the page lacks becomes "?".
  virtual std::string Encode(StringView text) const = 0;
  /// True when every character of the text has a byte of its own.
  virtual bool Fits(StringView text) const = 0;
  /// The bytes of a text that fits.
  virtual std::optional<std::string> EncodeFitting(StringView text) const {
    if (!Fits(text)) return std::nullopt;
    return Encode(text);
  }
};

/// Windows-1252, with its five unassigned bytes taken as the C1 controls, so that every byte
/// comes back as it was.
const CodePage& Windows1252();

}  // namespace norvo
