#include "lists/ListEncoding.h"

#include <algorithm>
#include <iterator>

#include "lists/MarkupScanner.h"
#include "text/Encoding.h"

namespace norvo {
namespace {

constexpr std::size_t kUtf8MarkSize = 3;

/// The declaration stands at the very start and is short.
constexpr std::size_t kLongestDeclaration = 256;

/// UTF-16 without a mark: two characters that each have a byte that is zero.
bool LooksLikeUtf16(std::string_view bytes, bool bigEndian) {
  if (bytes.size() < 4) return false;
  const std::size_t zero = bigEndian ? 0 : 1;
  const std::size_t letter = 1 - zero;
  return bytes[zero] == 0 && bytes[zero + 2] == 0 && bytes[letter] != 0 && bytes[letter + 2] != 0;
}

/// The encoding that an XML declaration names; empty without one.
String DeclaredEncoding(std::string_view bytes) {
  const String start = Windows1252().Decode(bytes.substr(0, kLongestDeclaration));
  const std::size_t open = start.find_first_not_of(u" \t\r\n");
  if (open == String::npos || start.substr(open, 5) != u"<?xml") return {};
  // An element of the same attributes is what the scanner reads.
  const String element = u"<" + start.substr(open + 2);
  MarkupScanner tags(element);
  tags.Next();
  return String(tags.Attribute(u"encoding"));
}

/// The page of an 8-bit encoding of that name; null for all other names.
const CodePage* DeclaredPage(StringView name, const CodePage& page) {
  for (const StringView latin : {u"iso-8859-1", u"latin1", u"windows-1252"}) {
    if (EqualsIgnoreCase(name, latin)) return &Windows1252();
  }
  // Which of them it is only the machine knows that the file is from.
  for (const StringView start : {u"iso-8859-", u"windows-125", u"cp125"}) {
    if (EqualsIgnoreCase(name.substr(0, start.size()), start)) return &page;
  }
  return nullptr;
}

}  // namespace

String DecodePlaylist(std::string_view bytes, const CodePage& page) {
  const FileEncoding marked = DetectEncoding(bytes);
  if (marked == FileEncoding::Utf8) {
    bytes.remove_prefix(kUtf8MarkSize);
  } else if (marked != FileEncoding::CodePage) {
    return DecodeFile(bytes, page);
  } else if (LooksLikeUtf16(bytes, false) || LooksLikeUtf16(bytes, true)) {
    return DecodeUtf16(bytes, LooksLikeUtf16(bytes, true));
  } else if (const CodePage* declared = DeclaredPage(DeclaredEncoding(bytes), page)) {
    return declared->Decode(bytes);
  }
  std::optional<String> text = FromUtf8(bytes);
  return text ? *std::move(text) : page.Decode(bytes);
}

}  // namespace norvo
