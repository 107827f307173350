#include "lists/ListedFile.h"

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

}  // namespace

std::optional<ListedFile> ReadListFile(StringView fileName, std::string_view bytes,
                                       const CodePage& page, std::size_t most) {
  const String text = DecodePlaylist(bytes, page);
  const std::optional<ListSyntax> syntax = SyntaxOf(fileName, text);
  if (!syntax) return std::nullopt;
  return ListedFile{*syntax, *syntax == ListSyntax::M3u && HasDirective(text),
                    ReadLists(text, *syntax, most)};
}

}  // namespace norvo
