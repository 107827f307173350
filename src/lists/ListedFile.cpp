#include "lists/ListedFile.h"

#include <algorithm>
#include <utility>

#include "automation/RunTimeError.h"
#include "lists/ItemText.h"
#include "lists/ListEncoding.h"
#include "lists/ListMarks.h"
#include "lists/M3uItems.h"
#include "services/TextStream.h"

namespace norvo {
namespace {

// Of start tags, and of end tags: eight for each of as many items as are taken.
constexpr std::size_t kMostTags = 800'000;

// Of all titles, names and references together, which are in memory many times over when the list
// is moved: two hundred for each of as many items as are taken.
constexpr std::size_t kMostUnits = 20'000'000;

// Of what stands in one piece, such as a title: each way to read it makes another copy.
constexpr std::size_t kLongestPiece = std::size_t{4} * 1024 * 1024;

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

/// The bytes are taken, so that they take no room beside the text.
String Decoded(std::string bytes, const CodePage& page) {
  return DecodePlaylist(bytes, page);
}

/// A library holds much of each song, in and out of lists. It is known by how it begins, else by
/// its name.
std::uint64_t MostBytes(StringView fileName, std::string_view bytes, const CodePage& page) {
  constexpr std::size_t kBeginning = 4096;
  const String beginning = DecodePlaylist(bytes.substr(0, kBeginning), page);
  return SyntaxOf(fileName, beginning) == ListSyntax::ITunes ? kLargestText : kLargestPlaylist;
}

bool HasTooManyTags(StringView text) {
  std::size_t starts = 0;
  std::size_t ends = 0;
  for (std::size_t at = FindUnit(text, u'<'); at != StringView::npos;
       at = FindUnit(text, u'<', at + 1)) {
    ++(text.substr(at + 1).starts_with(u'/') ? ends : starts);
  }
  return std::max(starts, ends) > kMostTags;
}

/// Between line ends and tags; a whole list may stand in one line.
bool HasTooLongPiece(StringView text) {
  if (text.size() <= kLongestPiece) return false;
  std::size_t length = 0;
  for (const char16_t unit : text) {
    const bool ends = unit == u'\n' || unit == u'\r' || unit == u'<';
    length = ends ? 0 : length + 1;
    if (length > kLongestPiece) return true;
  }
  return false;
}

/// Of the kinds that are held as a tree, each node of which takes more than its tag.
bool IsTree(ListSyntax syntax) {
  return syntax == ListSyntax::Wpl || syntax == ListSyntax::Xspf || syntax == ListSyntax::B4s;
}

std::size_t UnitsOf(const ListedItem& item) {
  std::size_t units =
      item.title.size() + item.artist.size() + item.album.size() + item.genre.size();
  for (const String& reference : item.references) units += reference.size();
  return units;
}

bool HasTooLongTexts(const ListedList& list) {
  std::size_t units = list.name.size();
  for (const ListedItem& item : list.items) units += UnitsOf(item);
  return units > kMostUnits;
}

[[noreturn]] void Refuse(StringView reason) {
  throw RunTimeError(error::kOutOfMemory, String(reason));
}

}  // namespace

std::optional<ListedFile> ReadListFile(StringView fileName, std::string bytes, const CodePage& page,
                                       std::size_t most) {
  const std::uint64_t mostBytes = MostBytes(fileName, bytes, page);
  if (bytes.size() > mostBytes) throw TooLarge(mostBytes);
  const String text = Decoded(std::move(bytes), page);
  const std::optional<ListSyntax> syntax = SyntaxOf(fileName, text);
  if (!syntax) return std::nullopt;
  if (HasTooLongPiece(text)) Refuse(u"it has a line of more than 4194304 characters");
  if (IsTree(*syntax) && HasTooManyTags(text)) Refuse(u"it has more than 800000 tags");
  ListedFile file{*syntax, *syntax == ListSyntax::M3u && HasDirective(text),
                  ReadLists(text, *syntax, most), IsDamaged(text, *syntax)};
  if (file.lists.size() > kMostLists) Refuse(u"it has more than 10000 lists");
  if (std::any_of(file.lists.begin(), file.lists.end(), HasTooLongTexts)) {
    Refuse(u"its titles and paths have more than 20000000 characters");
  }
  return file;
}

}  // namespace norvo
