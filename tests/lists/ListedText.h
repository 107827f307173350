#pragma once

#include <string>
#include <vector>

#include "lists/ListedItems.h"
#include "support/TextPrinting.h"

namespace norvo {

/// Items as tests expect them, a line each: the references with "|" between them, then the title,
/// artist and album that are told, as in "a.mp3 title=One artist=Ann album=Best"; a line that may
/// be a comment begins with "?".
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
    lines.push_back(line);
  }
  return lines;
}

inline Lines Listed(StringView text, ListSyntax syntax) {
  return Listed(ListItems(text, syntax));
}

}  // namespace norvo
