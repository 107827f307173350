#include "cli/NearestWord.h"

#include <algorithm>
#include <cctype>
#include <numeric>

namespace norvo::cli {
namespace {

std::string Lower(std::string_view word) {
  std::string lower(word);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char each) { return static_cast<char>(std::tolower(each)); });
  return lower;
}

/// Letters that are to be changed, added or left out (the distance of Levenshtein).
std::size_t Distance(std::string_view one, std::string_view other) {
  std::vector<std::size_t> row(other.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= one.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= other.size(); ++j) {
      const std::size_t changed = diagonal + (one[i - 1] == other[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, changed});
    }
  }
  return row.back();
}

/// Longer words are no commands, and would take long.
constexpr std::size_t kLongestWord = 40;

}  // namespace

std::string NearestWord(std::string_view word, const std::vector<std::string>& known) {
  const std::size_t letters = word.size() - std::min(word.find_first_not_of('-'), word.size());
  if (letters == 0 || letters > kLongestWord) return {};
  const std::string sought = Lower(word);
  for (const std::string& each : known) {
    if (Lower(each).starts_with(sought)) return each;
  }
  std::string nearest;
  std::size_t least = letters / 2 + 1;
  for (const std::string& each : known) {
    const std::size_t distance = Distance(sought, Lower(each));
    if (distance >= least) continue;
    least = distance;
    nearest = each;
  }
  return nearest;
}

}  // namespace norvo::cli
