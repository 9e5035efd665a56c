// A table on standard output: aligned for people, tabs between its cells for programs.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

namespace console {

/// Where a column's cells stand.
enum class Align { Left, Right };

class Table {
 public:
  explicit Table(std::vector<Align> columns) : columns_(std::move(columns)) {}

  /// Adds a row with one cell for each column. Their control characters are shown as escapes.
  void Add(std::vector<std::string> cells);

  /// Writes rows with their cells one below the other, two blanks between columns, each line behind
  /// `indent`; then forgets them.
  void WriteAligned(std::ostream& output, const std::string& indent);

 private:
  std::vector<Align> columns_;
  std::vector<std::vector<std::string>> rows_;
};

/// Writes one row with tabs between its cells. A tab inside a cell becomes a blank, other control
/// characters are shown as escapes.
void WriteTabbed(std::ostream& output, std::vector<std::string> cells);

/// The number of characters of a UTF-8 text, with marks that stand above others as one more.
[[nodiscard]] std::size_t CharacterCount(const std::string& text);

}  // namespace console
