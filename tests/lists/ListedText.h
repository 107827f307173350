#pragma once

#include <string>
#include <vector>

#include "lists/ListedItems.h"
#include "support/TextPrinting.h"
#include "text/Number.h"

namespace norvo {

/// Items as tests expect them, a line each: the references with "|" between them, then the title,
/// artist, album, genre, track and length that are told, as in "a.mp3 title=One artist=Ann
/// length=215"; a line that may be a comment begins with "?".
inline Lines Listed(const std::vector<ListedItem>& items) {
  Lines lines;
  for (const ListedItem& item : items) {
    std::string line = item.maybeComment ? "?" : "";
    for (const String& reference : item.references) {
      if (&reference != &item.references.front()) line += '|';
      line += Utf8(reference);
    }
    if (!item.title.empty()) line += " title=" + Utf8(item.title);
    if (!item.artist.empty()) line += " artist=" + Utf8(item.artist);
    if (!item.album.empty()) line += " album=" + Utf8(item.album);
    if (!item.genre.empty()) line += " genre=" + Utf8(item.genre);
    if (item.track != 0) line += " track=" + std::to_string(item.track);
    if (item.seconds != 0) line += " length=" + Utf8(FormatNumber(item.seconds));
    lines.push_back(line);
  }
  return lines;
}

/// The items of the lists, each after a line of its name.
inline Lines Listed(const std::vector<ListedList>& lists) {
  Lines lines;
  for (const ListedList& list : lists) {
    lines.push_back("[" + Utf8(list.name) + "]");
    const Lines items = Listed(std::vector<ListedItem>(list.items.begin(), list.items.end()));
    lines.insert(lines.end(), items.begin(), items.end());
  }
  return lines;
}

inline Lines Listed(StringView text, ListSyntax syntax) {
  return Listed(ListItems(text, syntax));
}

}  // namespace norvo
