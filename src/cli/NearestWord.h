#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace norvo::cli {

/// The known word that a mistyped one most likely stands for: one that it is the start of, or the
/// one with the fewest letters changed, added or left out. Case does not matter. Of equally near
/// ones the first. Empty when none resembles it: more than half of its letters are wrong. Dashes in
/// front are no letters.
std::string NearestWord(std::string_view word, const std::vector<std::string>& known);

}  // namespace norvo::cli
