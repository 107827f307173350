// Any bytes as a list file, under the name that the first byte chooses: its kind, its encoding, and
// whether it is whole. What a list file is told by does not depend on how it is asked.
#include "ListChecks.h"
#include "lists/ListEncoding.h"
#include "lists/ListKinds.h"
#include "lists/ListMarks.h"
#include "lists/ListedFile.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace norvo;
  if (size == 0) return 0;
  static const std::vector<StringView> names = ListEndings();
  const std::size_t chosen = data[0] % (names.size() + 1);
  const StringView name = chosen == names.size() ? StringView(u"a.txt") : names[chosen];
  const std::string_view bytes = AsBytes(data + 1, size - 1);
  const String text = DecodePlaylist(bytes, Windows1252());
  Require(text.size() <= bytes.size());
  const std::optional<ListSyntax> marked = MarkedSyntax(text);
  const std::optional<ListSyntax> syntax = SyntaxOf(name, text);
  Require(!marked || syntax);
  const std::optional<ListedFile> file = ReadListFile(name, std::string(bytes), Windows1252());
  Require(file.has_value() == syntax.has_value());
  if (!file) return 0;
  Require(file->syntax == *syntax && (!file->hasTitles || file->syntax == ListSyntax::M3u));
  for (const ListedList& list : file->lists) {
    for (const ListedItem& item : list.items) CheckItem(item);
  }
  return 0;
}
