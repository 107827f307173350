#pragma once

#include <string>
#include <string_view>

namespace norvo::cli {

/// A name or path as HTML: nothing of it can become markup or end an attribute, what nobody can see
/// (control characters, NUL) is shown by a sign, and its writing direction ends with it.
std::string HtmlName(std::string_view name);

/// A sentence that may hold names; marks of the writing direction in them are spelt out.
std::string HtmlText(std::string_view text);

}  // namespace norvo::cli
