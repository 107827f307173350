#pragma once

#include <cstddef>
#include <vector>

#include "text/Text.h"

namespace norvo {

/// Units of the longest line that is read. One of a song has some hundred, and a text whose lines
/// end in another way, so that all of it is one line, has fewer than this with thirty thousand
/// songs. What a line tells is copied to an entry, to log lines and to what a host keeps.
inline constexpr std::size_t kLongestLine = std::size_t{4} * 1024 * 1024;

/// Error 7 for a line that is longer.
void CheckLine(StringView line);

/// The lines of a playlist's text, split at every CR LF pair and nothing else; of a text with more
/// lines than can be read, only so many that this shows. The text must outlive them. See
/// `CheckLine`.
std::vector<StringView> SplitLines(StringView text);

/// Lines are counted with a 16-bit index from 0: counting it up behind one line more overflows, so
/// that this line is still read before the read fails, and none behind it. The empty piece behind
/// a last line end is no line.
inline constexpr std::size_t kMostLines = 32767;

/// How many of the lines a walk visits before it ends or fails.
std::size_t ReachableLines(const std::vector<StringView>& lines);
bool ExceedsLineLimit(const std::vector<StringView>& lines);

}  // namespace norvo
