#include "controller/HeaderSniffer.h"

#include "automation/Attempt.h"
#include "automation/RunTimeError.h"
#include "model/PlaylistTypes.h"
#include "services/Logging.h"
#include "services/ProfileFile.h"
#include "services/TextStream.h"
#include "text/Wildcard.h"

namespace norvo {
namespace {

constexpr int kExaminedLines = 4;

std::int32_t TypeByLine(StringView line) {
  if (ContainsIgnoreCase(line, u"<Asx")) return playlist_type::kWmpM3u;
  if (ContainsIgnoreCase(line, u"#EXTM3U")) return playlist_type::kWinampM3u;
  if (Matches(line, u"?:\\*", Compare::Text)) return playlist_type::kMmjbM3u;
  return playlist_type::kUnknown;
}

std::int32_t SniffLines(TextStream& stream) {
  for (int line = 1; line <= kExaminedLines && !stream.AtEnd(); ++line) {
    const std::int32_t type = TypeByLine(stream.ReadLine());
    if (type != playlist_type::kUnknown) return type;
  }
  return playlist_type::kUnknown;
}

std::int32_t TypeByKeys(Component& component, StringView path) {
  ProfileFile file(component);
  if (!file.OpenFile(path)) {
    WriteWarning(component,
                 {WarningKind::FileNotRead,
                  String(path),
                  {},
                  u"HelperMan::ParsePLSHeader -> The file cannot be read: " + String(path)});
  }
  file.SelectSection(u"playlist");
  String value;
  if (file.ReadValue(u"CachedInfo", value) == 0) return playlist_type::kSoniquePls;
  if (file.ReadValue(u"Version", value) != 0) return playlist_type::kSoniquePls;
  return value == u"2" ? playlist_type::kWinampPls : playlist_type::kUnknown;
}

/// Runs one sniffer; an error is told as a warning and gives the unknown type.
template <class Sniff>
std::int32_t UnknownOnError(Component& component, StringView member, StringView path,
                            Sniff&& sniff) {
  return AnswerOrElse(sniff, [&](const RunTimeError& failure) {
    WriteWarning(component, {WarningKind::FileNotRead, String(path), failure.Description(),
                             u"HelperMan::" + String(member) + u" -> " + failure.Description() +
                                 u": " + String(path)});
    return playlist_type::kUnknown;
  });
}

}  // namespace

std::int32_t SniffM3uHeader(Component& component, StringView path) {
  return UnknownOnError(component, u"ParseM3UHeader", path, [&] {
    TextStream stream(component.Files(), path, component.Machine().AnsiPage());
    return SniffLines(stream);
  });
}

std::int32_t SniffPlsHeader(Component& component, StringView path) {
  return UnknownOnError(component, u"ParsePLSHeader", path,
                        [&] { return TypeByKeys(component, path); });
}

}  // namespace norvo
