#include "platform/hosted/DiskName.h"

#include <algorithm>
#include <cstdint>

#include "text/Ascii.h"
#include "text/Encoding.h"
#include "text/Utf16.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

/// Plain characters only, in the sense of one byte per character and none of them special.
bool IsPlainName(std::string_view name) {
  return !AnyWord(name, 'x', [](std::uint64_t word) {
    constexpr std::uint64_t kBeyond = 0x8080808080808080u;
    constexpr std::uint64_t kAboveControls = 0xE0E0E0E0E0E0E0E0u;
    return (word & kBeyond) | ZeroLanes<char>(word & kAboveControls) |
           ZeroLanes<char>(word ^ InEachLane('\\'));
  });
}

}  // namespace

bool AppendDiskName(std::string& path, StringView component) {
  component = WithoutTrail(component);
  if (component.empty()) return false;
  if (AppendPlainAscii(path, component)) return true;
  if (HasControls(component) || !IsWholeUtf16(component)) return false;
  AppendUtf8(path, component);
  return true;
}

std::optional<std::string> ToDiskName(StringView component) {
  std::string name;
  if (!AppendDiskName(name, component)) return std::nullopt;
  return name;
}

std::optional<String> FromDiskName(std::string_view name) {
  if (IsPlainName(name)) {
    String text;
    AppendAscii(text, name);
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
  if (!name.empty() && name.back() != '.' && name.back() != ' ' && IsPlainName(name)) return true;
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
  if (!IsPlainName(name)) return FingerprintOfName(FromUtf8Lossy(name));
  while (!name.empty() && (name.back() == '.' || name.back() == ' ')) name.remove_suffix(1);
  return CaselessFingerprintOfAscii(name);
}

}  // namespace norvo
