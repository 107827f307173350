#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/CodePage.h"
#include "text/Text.h"

namespace norvo {

/// How a text file stores its characters; known by the byte order mark at its start.
enum class FileEncoding {
  CodePage,           ///< 8-bit text, without a mark
  Utf8,               ///< with a mark
  Utf16LittleEndian,  ///< with a mark
  Utf16BigEndian      ///< with a mark
};

/// Encoding of a file that begins with these bytes.
FileEncoding DetectEncoding(std::string_view bytes);

/// Text of a whole file, without its byte order mark. What is not valid in the file's encoding
/// becomes U+FFFD; a single byte at the end of a UTF-16 file is left out.
String DecodeFile(std::string_view bytes, const CodePage& codePage);

/// Bytes of a whole file in that encoding, byte order mark included. A character that the
/// code page lacks becomes "?".
std::string EncodeFile(StringView text, FileEncoding encoding, const CodePage& codePage);

/// Text of UTF-16 bytes without a mark; a single byte at the end is left out.
String DecodeUtf16(std::string_view bytes, bool bigEndian);

/// Text of UTF-8 bytes; nothing when they are not valid UTF-8.
std::optional<String> FromUtf8(std::string_view bytes);

/// Text of UTF-8 bytes; each byte that is not valid becomes U+FFFD.
String FromUtf8Lossy(std::string_view bytes);

/// False for a text with a unit that is half of no pair.
bool IsWholeUtf16(StringView text);

/// UTF-8 of a text. A unit that is half of no pair becomes U+FFFD.
std::string ToUtf8(StringView text);

/// The same, added to the end of `bytes`.
void AppendUtf8(std::string& bytes, StringView text);

}  // namespace norvo
