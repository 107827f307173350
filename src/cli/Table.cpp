#include "cli/Table.h"

#include <algorithm>

#include "cli/TerminalText.h"

namespace norvo::cli {
namespace {

constexpr std::size_t kWidestAligned = 40;
constexpr const char* kGap = "  ";

std::string Padded(const std::string& cell, std::size_t width, Align align) {
  const std::size_t own = DisplayWidth(cell);
  const std::string blanks(width > own ? width - own : 0, ' ');
  return align == Align::Left ? cell + blanks : blanks + cell;
}

}  // namespace

void Table::AddRow(const std::vector<std::string>& cells) {
  std::vector<std::string>& row = rows_.emplace_back();
  for (const std::string& cell : cells) row.push_back(TerminalText(cell));
}

std::string Table::Line(const std::vector<std::string>& cells,
                        const std::vector<std::size_t>& widths) const {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) line += kGap;
    line += Padded(cells[i], widths[i], columns_[i].align);
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

std::vector<std::string> Table::Lines() const {
  std::vector<std::string> titles;
  std::vector<std::size_t> widths;
  std::vector<std::string> rules;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    std::size_t width = DisplayWidth(columns_[i].title);
    for (const auto& row : rows_) {
      width = std::max(width, std::min(DisplayWidth(row[i]), kWidestAligned));
    }
    titles.push_back(columns_[i].title);
    widths.push_back(width);
    rules.emplace_back(width, '-');
  }
  std::vector<std::string> lines{Line(titles, widths), Line(rules, widths)};
  for (const auto& row : rows_) lines.push_back(Line(row, widths));
  return lines;
}

}  // namespace norvo::cli
