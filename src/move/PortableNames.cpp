#include "move/PortableNames.h"

#include <algorithm>

#include "text/Encoding.h"
#include "text/Number.h"
#include "text/Utf16.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

constexpr StringView kForbidden = u"<>:\"/\\|?*";
constexpr StringView kInstead = u"()-'---__";
static_assert(kForbidden.size() == kInstead.size());

// Readers of M3U files take a line with one of these for something else than a reference.
constexpr StringView kM3uWords[] = {u"EXTINF", u"EXTM3U"};

constexpr std::size_t kLongestExtension = 16;

// U+0100 to U+017F without their accents.
constexpr StringView kPlainLatin =
    u"AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiIiIiJjKkkLlLlLlLlLlNnNnNnnNnOoOoOoOoRrRrRrSsS"
    u"s"
    u"SsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZzs";
static_assert(kPlainLatin.size() == 128);

bool IsControl(char16_t unit) {
  return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

/// The names that belong to devices, whatever extension they have.
bool IsDeviceName(StringView name) {
  constexpr StringView kDevices[] = {u"CON",    u"PRN",     u"AUX",   u"NUL",
                                     u"CONIN$", u"CONOUT$", u"CLOCK$"};
  const StringView base = Trim(name.substr(0, name.find(u'.')));
  if (std::any_of(std::begin(kDevices), std::end(kDevices),
                  [base](StringView device) { return EqualsIgnoreCase(base, device); })) {
    return true;
  }
  constexpr StringView kNumbers = u"0123456789\u00B9\u00B2\u00B3";
  return base.size() == 4 && kNumbers.find(base.back()) != StringView::npos &&
         (EqualsIgnoreCase(base.substr(0, 3), u"COM") ||
          EqualsIgnoreCase(base.substr(0, 3), u"LPT"));
}

bool HoldsM3uWord(StringView name) {
  return std::any_of(std::begin(kM3uWords), std::end(kM3uWords),
                     [name](StringView word) { return ContainsIgnoreCase(name, word); });
}

/// What stands for one character; nothing for a mark that only belongs to the one before.
String Likeness(char16_t unit, const CodePage* page) {
  const std::size_t forbidden = kForbidden.find(unit);
  if (forbidden != StringView::npos) return String(1, kInstead[forbidden]);
  if (IsControl(unit)) return u"_";
  if (page == nullptr || page->Fits(StringView(&unit, 1))) return String(1, unit);
  if (unit >= 0x0100 && unit < 0x0180) return String(1, kPlainLatin[unit - 0x0100U]);
  const bool isMark = unit >= 0x0300 && unit < 0x0370;
  return isMark || IsLowSurrogate(unit) ? u"" : u"_";
}

/// The text with each of these words broken up. No word overlaps itself or comes of the breaking.
String WithoutM3uWord(StringView text, StringView word) {
  constexpr std::size_t kKept = 3;  // in front of the break
  String broken;
  std::size_t done = 0;
  for (std::size_t at = FindIgnoreCase(text, word); at != StringView::npos;
       at = FindIgnoreCase(text, word, done)) {
    broken.append(text.substr(done, at + kKept - done)).append(u"_");
    done = at + kKept;
  }
  return broken.append(text.substr(done));
}

StringView TrimmedEnds(StringView name) {
  return WithoutTrail(TrimStart(name, [](char16_t unit) { return unit == u' '; }));
}

/// The extension with its point; empty for a name without one, or with one that is none.
StringView ExtensionOf(StringView name) {
  const std::size_t point = name.rfind(u'.');
  const bool has = point != StringView::npos && point > 0 &&
                   name.size() - point <= kLongestExtension &&
                   name.find(u' ', point) == StringView::npos;
  return has ? name.substr(point) : StringView();
}

std::size_t ByteCount(StringView text) {
  return ToUtf8(text).size();
}

/// The name with a text in front of its extension; its base is cut until all fit.
String WithMark(StringView name, const String& mark, std::size_t most) {
  const StringView extension = ExtensionOf(name);
  StringView base = name.substr(0, name.size() - extension.size());
  const std::size_t taken = ByteCount(mark) + ByteCount(extension);
  // Every unit takes a byte at least: of a name that is very much too long little is counted.
  base = base.substr(0, std::max<std::size_t>(most, 1));
  while (base.size() > 1 && ByteCount(base) + taken > most) base.remove_suffix(1);
  // No half of a character at the cut.
  if (base.size() > 1 && IsHighSurrogate(base.back())) base.remove_suffix(1);
  base = TrimmedEnds(base);
  return String(base.empty() ? StringView(u"_") : base).append(mark).append(extension);
}

}  // namespace

bool IsPortableName(StringView name, const CodePage* page) {
  if (name.empty() || ByteCount(name) > kLongestName || IsDeviceName(name)) return false;
  if (name.back() == u'.' || name.back() == u' ' || name.front() == u' ') return false;
  const bool plain = std::none_of(name.begin(), name.end(), [](char16_t unit) {
    return IsControl(unit) || kForbidden.find(unit) != StringView::npos;
  });
  return plain && (page == nullptr || page->Fits(name)) && !HoldsM3uWord(name);
}

bool HasPortableNames(StringView path, const CodePage* page) {
  if (path.size() < 4 || !HasDrive(path) || path[2] != u'\\') return false;
  for (std::size_t at = 3; at <= path.size();) {
    const std::size_t end = std::min(path.find(u'\\', at), path.size());
    if (!IsPortableName(path.substr(at, end - at), page)) return false;
    at = end + 1;
  }
  return true;
}

String PortableName(StringView name, const CodePage* page, std::size_t most) {
  String portable;
  for (const char16_t unit : name) portable += Likeness(unit, page);
  for (const StringView word : kM3uWords) portable = WithoutM3uWord(portable, word);
  portable = TrimmedEnds(portable);
  if (portable.empty() || IsDeviceName(portable)) portable.insert(0, u"_");
  return ByteCount(portable) <= most ? portable : WithMark(portable, {}, most);
}

String NumberedName(StringView name, int number, std::size_t most) {
  return WithMark(name, u" (" + FormatInteger(number) + u")", most);
}

}  // namespace norvo
