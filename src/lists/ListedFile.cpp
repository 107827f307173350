#include "lists/ListedFile.h"

#include <algorithm>

#include "lists/ItemText.h"
#include "lists/ListEncoding.h"
#include "lists/ListMarks.h"
#include "lists/M3uItems.h"

namespace norvo {
namespace {

bool HasDirective(StringView text) {
  while (!text.empty()) {
    if (IsM3uDirective(CleanText(TakeLine(text)))) return true;
  }
  return false;
}

/// The tag that ends a file of that syntax; empty where none must.
StringView EndOf(ListSyntax syntax) {
  switch (syntax) {
    case ListSyntax::Wpl:
      return u"</smil>";
    case ListSyntax::Xspf:
      return u"</playlist>";
    case ListSyntax::B4s:
      return u"</WinampXML>";
    case ListSyntax::ITunes:
      return u"</plist>";
    case ListSyntax::Asx:  // which many write without one
    case ListSyntax::M3u:
    case ListSyntax::Pls:
      break;
  }
  return {};
}

/// Nothing but blanks and NULs, and of these at least one: what a failing disk leaves of a file.
bool IsBlankedOut(StringView text) {
  const auto isNothing = [](char16_t unit) { return unit == 0 || IsBlankOrControl(unit); };
  return text.find(u'\0') != StringView::npos && std::all_of(text.begin(), text.end(), isNothing);
}

bool IsDamaged(StringView text, ListSyntax syntax) {
  if (SaysNothing(text)) return IsBlankedOut(text);
  return !ContainsIgnoreCase(text, EndOf(syntax));
}

}  // namespace

std::optional<ListedFile> ReadListFile(StringView fileName, std::string_view bytes,
                                       const CodePage& page, std::size_t most) {
  const String text = DecodePlaylist(bytes, page);
  const std::optional<ListSyntax> syntax = SyntaxOf(fileName, text);
  if (!syntax) return std::nullopt;
  return ListedFile{*syntax, *syntax == ListSyntax::M3u && HasDirective(text),
                    ReadLists(text, *syntax, most), IsDamaged(text, *syntax)};
}

}  // namespace norvo
