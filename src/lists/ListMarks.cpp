#include "lists/ListMarks.h"

#include <algorithm>
#include <array>

#include "lists/ItemText.h"
#include "lists/ListEncoding.h"
#include "lists/ListKinds.h"
#include "lists/M3uItems.h"
#include "lists/MarkupScanner.h"
#include "lists/PlsItems.h"
#include "lists/ReferencePaths.h"
#include "lists/SongNames.h"
#include "text/WindowsPath.h"

namespace norvo {
namespace {

/// The first line that says something; comments of an M3U do not.
StringView FirstTellingLine(StringView text) {
  while (!text.empty()) {
    const StringView line = CleanText(TakeLine(text));
    if (line.empty() || (line.front() == u'#' && !IsM3uDirective(line))) continue;
    return line;
  }
  return {};
}

bool LooksLikeReference(StringView line) {
  return IsInternetAddress(line) || HasDrive(line) || IsSeparator(line.front()) ||
         HasSongExtension(line);
}

bool StartsWithIgnoreCase(StringView text, StringView start) {
  return EqualsIgnoreCase(text.substr(0, start.size()), start);
}

/// "#EXTM3U", alone or with attributes; a sentence about it is none.
bool IsM3uMark(StringView line) {
  constexpr StringView kMark = u"#EXTM3U";
  if (!StartsWithIgnoreCase(line, kMark)) return false;
  const StringView rest = line.substr(kMark.size());
  return rest.empty() || (rest.front() <= u' ' && rest.find(u'=') != StringView::npos);
}

bool IsPlsMark(StringView line) {
  return IsPlsSection(line) && line.ends_with(u']') && ContainsIgnoreCase(line, u"playlist");
}

bool IsXspf(StringView text) {
  return ContainsIgnoreCase(text, u"xspf.org/ns/") || ContainsIgnoreCase(text, u"<trackList");
}

bool IsITunes(StringView text) {
  return ContainsIgnoreCase(text, u"<key>Major Version</key>") ||
         ContainsIgnoreCase(text, u"<key>Tracks</key>");
}

/// Of a text whose first unit is "<". A program in a page may have any other instruction in front.
std::optional<ListSyntax> SyntaxOfMarkup(StringView text) {
  if (StartsWithIgnoreCase(text, u"<?wpl") || StartsWithIgnoreCase(text, u"<?zpl")) {
    return ListSyntax::Wpl;
  }
  if (text.starts_with(u"<?") && !StartsWithIgnoreCase(text, u"<?xml")) return std::nullopt;
  MarkupScanner tags(text);
  tags.Next();
  if (tags.Opens(u"asx")) return ListSyntax::Asx;
  if (tags.Opens(u"smil")) return ListSyntax::Wpl;
  if (tags.Opens(u"WinampXML")) return ListSyntax::B4s;
  if (tags.Opens(u"playlist") && IsXspf(text)) return ListSyntax::Xspf;
  if (tags.Opens(u"plist") && IsITunes(text)) return ListSyntax::ITunes;
  return std::nullopt;
}

/// Of a text without a mark, in a file whose name says `named`.
ListSyntax UnmarkedSyntax(StringView text, ListSyntax named) {
  const StringView line = FirstTellingLine(text);
  if (line.empty()) return named;
  if (IsPlsSection(line)) return ListSyntax::Pls;
  if (IsM3uDirective(line) || LooksLikeReference(line)) return ListSyntax::M3u;
  return ContainsIgnoreCase(text, u"<asx") ? ListSyntax::Asx : named;
}

}  // namespace

std::optional<ListSyntax> MarkedSyntax(StringView text) {
  const StringView line = FirstTellingLine(text);
  if (IsM3uMark(line)) return ListSyntax::M3u;
  if (IsPlsMark(line)) return ListSyntax::Pls;
  if (!line.starts_with(u'<')) return std::nullopt;
  return SyntaxOfMarkup(text.substr(static_cast<std::size_t>(line.data() - text.data())));
}

bool LooksLikeList(std::string_view firstBytes) {
  return MarkedSyntax(DecodePlaylist(firstBytes, Windows1252())).has_value();
}

std::optional<ListSyntax> SyntaxOf(StringView fileName, StringView text) {
  const ListKind* const kind = KindOf(fileName);
  if (kind == nullptr || !kind->syntax) return MarkedSyntax(text);
  if (kind->syntax == ListSyntax::Asx && ContainsIgnoreCase(text, u"<asx")) return kind->syntax;
  if (kind->syntax == ListSyntax::Pls && HasPlsKeys(text)) return kind->syntax;
  const std::optional<ListSyntax> marked = MarkedSyntax(text);
  return marked ? marked : UnmarkedSyntax(text, *kind->syntax);
}

}  // namespace norvo
