#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace norvo::cli {

/// Lines of at most `width` cells that hold a shown text. They are broken at blanks; a word that no
/// line can hold, such as a path, is broken behind a separator or, without one, anywhere. The lines
/// behind the first begin with `indent` blanks, the first with none.
std::vector<std::string> Wrapped(std::string_view shown, std::size_t width, std::size_t indent);

/// A shown path that takes at most `cells`: "..." stands for what is missing in its middle.
std::string ShortPath(std::string_view shown, std::size_t cells);

/// A shown text with blanks behind it, so that it takes `cells` if it does not take more.
std::string PaddedTo(std::string text, std::size_t cells);

/// "3 songs", "1 song".
std::string Counted(std::size_t count, const std::string& thing);

/// "5.3 MB"; small sizes in KB, those above 1000 MB in GB.
std::string SizeText(double bytes);

}  // namespace norvo::cli
