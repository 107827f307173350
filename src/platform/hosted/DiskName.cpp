#include "platform/hosted/DiskName.h"

#include <algorithm>
#include <type_traits>

#include "text/Ascii.h"
#include "text/Encoding.h"
#include "text/Utf16.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

/// Plain characters only, in the sense of one byte per character and none of them special. Looks at
/// all without a branch, which is the quickest.
template <class Unit>
bool IsPlainAscii(std::basic_string_view<Unit> name) {
  using Bits = std::make_unsigned_t<Unit>;
  Bits others = 0;
  for (const Unit unit : name) {
    const Bits bits = static_cast<Bits>(unit);
    const bool isOther = (bits < 0x20) | (bits >= 0x80) | (bits == '\\');
    others = static_cast<Bits>(others | (isOther ? 1 : 0));
  }
  return others == 0;
}

}  // namespace

bool AppendDiskName(std::string& path, StringView component) {
  component = WithoutTrail(component);
  if (component.empty()) return false;
  if (!IsPlainAscii(component) && (HasControls(component) || !IsWholeUtf16(component))) {
    return false;
  }
  AppendUtf8(path, component);
  return true;
}

std::optional<std::string> ToDiskName(StringView component) {
  std::string name;
  if (!AppendDiskName(name, component)) return std::nullopt;
  return name;
}

std::optional<String> FromDiskName(std::string_view name) {
  if (IsPlainAscii(name)) {
    String text(name.size(), u'\0');
    CopyAscii(name, text.data());
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
