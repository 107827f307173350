#include "host/LogLines.h"

#include <algorithm>

namespace norvo::host {
namespace {

/// A reader's message: the tag, the reader's name, the text, the reference.
struct Message {
  StringView start;
  StringView text;
};

constexpr Message kMissing = {u"NVERR_FILE_NOT_FOUND, PLAYLIST::", u", File Not Found: "};
constexpr Message kRefused = {u"NVERR_INVALID_ARG, PLAYLIST::",
                              u", Invalid Argument or Bad Data: "};

// Starts of the lines that tell of undone work.
constexpr StringView kWarnings[] = {
    u"HelperMan::", u"NVServices::", u" NVServices::",
    u"NVERR_OPFAIL, PLAYLIST::ReadPlayList, The media list could not be written"};

std::optional<StringView> ReferenceIn(StringView line, const Message& message) {
  if (!line.starts_with(message.start)) return std::nullopt;
  const std::size_t at = line.find(message.text, message.start.size());
  if (at == StringView::npos) return std::nullopt;
  return line.substr(at + message.text.size());
}

}  // namespace

const char* DescriptionOf(DropReason reason) {
  switch (reason) {
    case DropReason::Missing:
      return "no such file";
    case DropReason::NotMedia:
      return "not a media file";
    case DropReason::EmptyReference:
      return "empty reference";
  }
  return "";
}

const char* NameOf(DropReason reason) {
  switch (reason) {
    case DropReason::Missing:
      return "missing";
    case DropReason::NotMedia:
      return "notMedia";
    case DropReason::EmptyReference:
      return "emptyReference";
  }
  return "";
}

std::optional<Drop> DropOf(StringView logLine) {
  if (const auto reference = ReferenceIn(logLine, kMissing)) {
    return Drop{DropReason::Missing, String(*reference)};
  }
  const auto reference = ReferenceIn(logLine, kRefused);
  if (!reference) return std::nullopt;
  return Drop{reference->empty() ? DropReason::EmptyReference : DropReason::NotMedia,
              String(*reference)};
}

bool IsWarning(StringView logLine) {
  return std::any_of(std::begin(kWarnings), std::end(kWarnings),
                     [logLine](StringView start) { return logLine.starts_with(start); });
}

}  // namespace norvo::host
