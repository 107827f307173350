#pragma once

#include <string>
#include <vector>

namespace norvo::cli {

enum class Align { Left, Right };

struct Column {
  std::string title;
  Align align = Align::Left;
};

/// A table of text. Cells are shown whole; a cell that is wider than most pushes its line only.
class Table {
 public:
  explicit Table(std::vector<Column> columns) : columns_(std::move(columns)) {}

  /// As many cells as there are columns.
  void AddRow(const std::vector<std::string>& cells);
  /// The title line, a rule, and the rows; no blanks at the ends.
  std::vector<std::string> Lines() const;

 private:
  std::string Line(const std::vector<std::string>& cells,
                   const std::vector<std::size_t>& widths) const;

  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace norvo::cli
