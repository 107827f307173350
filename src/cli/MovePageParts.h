#pragma once

#include <string_view>

namespace norvo::cli {

/// The look of the page of a move: light and dark, on a screen and on paper.
extern const std::string_view kPageStyle;

/// Searches and filters its rows. The page is whole without it.
extern const std::string_view kPageScript;

}  // namespace norvo::cli
