#include "platform/hosted/DiskName.h"

#include <algorithm>

#include "text/Encoding.h"
#include "text/Utf16.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

/// Plain characters only, in the sense of one byte per character and none of them special.
bool IsPlainAscii(std::string_view name) {
  return std::all_of(name.begin(), name.end(), [](char c) {
    // A char is negative from 0x80 on with some compilers, and large with others.
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && byte < 0x80 && byte != '\\';
  });
}

}  // namespace

std::optional<std::string> ToDiskName(StringView component) {
  component = WithoutTrail(component);
  if (component.empty() || std::any_of(component.begin(), component.end(), IsAsciiControl) ||
      !IsWholeUtf16(component)) {
    return std::nullopt;
  }
  return ToUtf8(component);
}

std::optional<String> FromDiskName(std::string_view name) {
  if (IsPlainAscii(name)) {
    String text(name.begin(), name.end());
    return WithoutTrail(text).empty() ? std::nullopt : std::optional<String>(std::move(text));
  }
  std::optional<String> text = FromUtf8(name);
  if (!text || text->find(u'\\') != String::npos || WithoutTrail(*text).empty() ||
      std::any_of(text->begin(), text->end(), IsAsciiControl)) {
    return std::nullopt;
  }
  return text;
}

bool IsExpressible(std::string_view name) {
  if (!name.empty() && name.back() != '.' && name.back() != ' ' && IsPlainAscii(name)) return true;
  return FromDiskName(name).has_value();
}

String ShownDiskName(std::string_view name) {
  String text = FromUtf8Lossy(name);
  std::replace_if(text.begin(), text.end(), IsAsciiControl, kReplacementCharacter);
  return text;
}

Fingerprint FingerprintOfName(StringView name) {
  return CaselessFingerprintOf(WithoutTrail(name));
}

Fingerprint FingerprintOfDiskName(std::string_view name) {
  if (!IsPlainAscii(name)) return FingerprintOfName(FromUtf8Lossy(name));
  while (!name.empty() && (name.back() == '.' || name.back() == ' ')) name.remove_suffix(1);
  return CaselessFingerprintOfAscii(name);
}

}  // namespace norvo
