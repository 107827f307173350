#include "lists/ListedItems.h"

#include "lists/AsxItems.h"
#include "lists/ItemText.h"
#include "lists/M3uItems.h"
#include "lists/PlsItems.h"
#include "lists/ReferencePaths.h"
#include "lists/SongNames.h"
#include "services/Utility.h"
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

ListSyntax SyntaxOfAsx(StringView text) {
  if (ContainsIgnoreCase(text, u"<asx")) return ListSyntax::Asx;
  const StringView line = FirstTellingLine(text);
  if (line.empty()) return ListSyntax::Asx;
  if (IsPlsSection(line)) return ListSyntax::Pls;
  return IsM3uDirective(line) || LooksLikeReference(line) ? ListSyntax::M3u : ListSyntax::Asx;
}

}  // namespace

std::optional<ListSyntax> SyntaxOf(StringView fileName, StringView text) {
  const StringView extension = Utility::GetExtension(fileName);
  if (EqualsIgnoreCase(extension, u"pls")) return ListSyntax::Pls;
  if (EqualsIgnoreCase(extension, u"asx")) return SyntaxOfAsx(text);
  if (!EqualsIgnoreCase(extension, u"m3u")) return std::nullopt;
  return HoldsAsx(text) ? ListSyntax::Asx : ListSyntax::M3u;
}

std::vector<ListedItem> ListItems(StringView text, ListSyntax syntax, std::size_t most) {
  switch (syntax) {
    case ListSyntax::Asx:
      return AsxItems(text, most);
    case ListSyntax::M3u:
      return M3uItems(text, most);
    case ListSyntax::Pls:
      break;
  }
  return PlsItems(text, most);
}

String DecodePlaylist(std::string_view bytes, const CodePage& page) {
  return DecodeFile(bytes, page);
}

}  // namespace norvo
