#include "controller/HeaderSniffer.h"

#include "automation/Attempt.h"
#include "automation/RunTimeError.h"
#include "controller/ScanWarnings.h"
#include "model/PlaylistTypes.h"
#include "services/ProfileFile.h"
#include "services/TextStream.h"
#include "text/Wildcard.h"

namespace norvo {
namespace {

constexpr int kExaminedLines = 4;

bool Tells(const HeaderMark& mark, StringView line) {
  if (!mark.text.empty()) return ContainsIgnoreCase(line, mark.text);
  return !mark.pattern.empty() && Matches(line, mark.pattern, Compare::Text);
}

std::int32_t TypeOfLine(StringView line) {
  for (const PlaylistType& type : PlaylistTypes()) {
    if (Tells(type.mark, line)) return type.code;
  }
  return playlist_type::kUnknown;
}

std::int32_t TypeOfText(TextStream& stream) {
  for (int line = 1; line <= kExaminedLines && !stream.AtEnd(); ++line) {
    const std::int32_t type = TypeOfLine(stream.ReadLine());
    if (type != playlist_type::kUnknown) return type;
  }
  return playlist_type::kUnknown;
}

/// The first type whose mark fits the keys of the selected section.
std::int32_t TypeOfSection(const ProfileFile& file) {
  String value;
  for (const PlaylistType& type : PlaylistTypes()) {
    const StringView key = type.mark.key;
    if (!key.empty() && file.ReadValue(key, value) == 0) return type.code;
  }
  const bool hasVersion = file.ReadValue(u"Version", value) == 0;
  for (const PlaylistType& type : PlaylistTypes()) {
    const HeaderMark& mark = type.mark;
    const bool fits =
        hasVersion ? !mark.version.empty() && value == mark.version : mark.withoutVersion;
    if (fits) return type.code;
  }
  return playlist_type::kUnknown;
}

std::int32_t TypeOfSettings(Component& component, StringView path) {
  ProfileFile file(component);
  if (!file.OpenFile(path, kLargestPlaylist)) WarnNotRead(component, u"ParsePLSHeader", path);
  file.SelectSection(u"playlist");
  return TypeOfSection(file);
}

/// Runs one sniffer; an error is told as a warning and gives the unknown type.
template <class Sniff>
std::int32_t UnknownOnError(Component& component, StringView member, StringView path,
                            Sniff&& sniff) {
  return AnswerOrElse(sniff, [&](const RunTimeError& failure) {
    WarnNotRead(component, member, path, failure.Description());
    return playlist_type::kUnknown;
  });
}

}  // namespace

std::int32_t TypeByLines(Component& component, StringView path) {
  return UnknownOnError(component, u"ParseM3UHeader", path, [&] {
    TextStream stream(component.Files(), path, component.Machine().AnsiPage());
    return TypeOfText(stream);
  });
}

std::int32_t TypeByKeys(Component& component, StringView path) {
  return UnknownOnError(component, u"ParsePLSHeader", path,
                        [&] { return TypeOfSettings(component, path); });
}

std::int32_t TypeByHeader(Component& component, StringView path) {
  const PlaylistType* const type = FindTypeOfFile(path, [](const PlaylistType&) { return true; });
  const bool hasKeys = type != nullptr && type->header == Header::SettingsKeys;
  return hasKeys ? TypeByKeys(component, path) : TypeByLines(component, path);
}

std::int32_t ListedType(Component& component, StringView path,
                        std::optional<std::int32_t> byHeader) {
  const PlaylistType* const type =
      FindTypeOfFile(path, [](const PlaylistType& each) { return each.isToldByExtension; });
  if (type != nullptr) return type->code;
  return byHeader ? *byHeader : TypeByHeader(component, path);
}

}  // namespace norvo
