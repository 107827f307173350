#include "lists/ListKinds.h"

#include <algorithm>
#include <iterator>

#include "text/WindowsPath.h"

namespace norvo {
namespace {

// All that are known. The first row of a syntax has the extension of its own.
constexpr ListKind kKinds[] = {
    {u".m3u", "M3U playlist", ListSyntax::M3u},
    {u".m3u8", "M3U playlist in Unicode", ListSyntax::M3u},
    {u".pls", "PLS playlist", ListSyntax::Pls},
    {u".asx", "Windows Media playlist", ListSyntax::Asx},
    {u".wax", "Windows Media audio playlist", ListSyntax::Asx},
    {u".wvx", "Windows Media video playlist", ListSyntax::Asx},
    {u".wpl", "Windows Media Player playlist", ListSyntax::Wpl},
    {u".zpl", "Zune playlist", ListSyntax::Wpl},
    {u".xspf", "XSPF playlist", ListSyntax::Xspf},
    {u".b4s", "Winamp 3 playlist", ListSyntax::B4s},
    {u".kpl", "Kazaa playlist", std::nullopt},
    {u".fpl", "foobar2000 playlist", std::nullopt},
    {u".mpcpl", "Media Player Classic playlist", std::nullopt},
    {u".pla", "portable player's playlist", std::nullopt},
    {u"iTunes Library.xml", "iTunes library", ListSyntax::ITunes},
    {u"iTunes Music Library.xml", "iTunes library", ListSyntax::ITunes},
};

bool IsOfKind(StringView name, const ListKind& kind) {
  return kind.extension.starts_with(u'.') ? EndsWithIgnoreCase(name, kind.extension)
                                          : EqualsIgnoreCase(name, kind.extension);
}

}  // namespace

const ListKind* KindOf(StringView path) {
  const StringView name = LastComponent(path);
  const auto* const kind =
      std::find_if(std::begin(kKinds), std::end(kKinds),
                   [name](const ListKind& row) { return IsOfKind(name, row); });
  return kind == std::end(kKinds) ? nullptr : kind;
}

std::vector<StringView> ListEndings() {
  std::vector<StringView> endings;
  for (const ListKind& kind : kKinds) endings.push_back(kind.extension);
  return endings;
}

StringView ExtensionOf(ListSyntax syntax) {
  return std::find_if(std::begin(kKinds), std::end(kKinds),
                      [syntax](const ListKind& kind) { return kind.syntax == syntax; })
      ->extension;
}

}  // namespace norvo
