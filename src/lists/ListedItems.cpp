#include "lists/ListedItems.h"

#include <algorithm>
#include <iterator>

#include "lists/AsxItems.h"
#include "lists/ItemText.h"
#include "lists/M3uItems.h"
#include "lists/PlsItems.h"
#include "lists/ReferencePaths.h"
#include "lists/SongNames.h"
#include "text/Encoding.h"
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

/// True for an ASX element that is no part of a title in an M3U.
bool HoldsAsx(StringView text) {
  if (!ContainsIgnoreCase(text, u"<asx")) return false;
  const StringView line = FirstTellingLine(text);
  if (line.empty() || line.front() == u'<') return !line.empty();
  return !IsM3uDirective(line) && !LooksLikeReference(line);
}

ListSyntax InM3uFile(StringView text) {
  return HoldsAsx(text) ? ListSyntax::Asx : ListSyntax::M3u;
}

ListSyntax InAsxFile(StringView text) {
  if (ContainsIgnoreCase(text, u"<asx")) return ListSyntax::Asx;
  const StringView line = FirstTellingLine(text);
  if (line.empty()) return ListSyntax::Asx;
  if (IsPlsSection(line)) return ListSyntax::Pls;
  return IsM3uDirective(line) || LooksLikeReference(line) ? ListSyntax::M3u : ListSyntax::Asx;
}

/// An extension that playlists have, and what is written in such files.
struct SyntaxRow {
  StringView extension;
  ListSyntax syntax;
  ListSyntax (*byText)(StringView text);  // the syntax of one file; null: always that of the row
  std::vector<ListedItem> (*items)(StringView text, std::size_t most);
};

// All that is known of the syntaxes. The first row of a syntax has the extension of its own.
constexpr SyntaxRow kSyntaxes[] = {
    {u".asx", ListSyntax::Asx, InAsxFile, AsxItems},
    {u".m3u", ListSyntax::M3u, InM3uFile, M3uItems},
    {u".pls", ListSyntax::Pls, nullptr, PlsItems},
};

const SyntaxRow& RowOf(ListSyntax syntax) {
  return *std::find_if(std::begin(kSyntaxes), std::end(kSyntaxes),
                       [syntax](const SyntaxRow& row) { return row.syntax == syntax; });
}

}  // namespace

std::optional<ListSyntax> SyntaxOf(StringView fileName, StringView text) {
  for (const SyntaxRow& row : kSyntaxes) {
    if (!EndsWithIgnoreCase(fileName, row.extension)) continue;
    return row.byText == nullptr ? row.syntax : row.byText(text);
  }
  return std::nullopt;
}

StringView ExtensionOf(ListSyntax syntax) {
  return RowOf(syntax).extension;
}

std::vector<ListedItem> ListItems(StringView text, ListSyntax syntax, std::size_t most) {
  return RowOf(syntax).items(text, most);
}

String DecodePlaylist(std::string_view bytes, const CodePage& page) {
  return DecodeFile(bytes, page);
}

}  // namespace norvo
