#include "console/setup/Table.h"

#include <algorithm>
#include <ostream>

#include "tools/Text.h"

namespace console {

std::size_t CharacterCount(const std::string& text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

void Table::Add(std::vector<std::string> cells) {
  for (std::string& cell : cells) cell = tools::EscapeControlCharacters(cell);
  rows_.push_back(std::move(cells));
}

void Table::WriteAligned(std::ostream& output, const std::string& indent) {
  std::vector<std::size_t> widths(columns_.size());
  for (const auto& row : rows_) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      widths[i] = std::max(widths[i], CharacterCount(row[i]));
    }
  }
  for (const auto& row : rows_) {
    std::string line = indent;
    for (std::size_t i = 0; i < row.size(); ++i) {
      const std::string filling(widths[i] - CharacterCount(row[i]), ' ');
      if (i > 0) line += "  ";
      line += columns_[i] == Align::Right ? filling + row[i] : row[i] + filling;
    }
    output << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
  }
  rows_.clear();
}

void WriteTabbed(std::ostream& output, std::vector<std::string> cells) {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    std::ranges::replace(cells[i], '\t', ' ');
    output << (i > 0 ? "\t" : "") << tools::EscapeControlCharacters(cells[i]);
  }
  output << '\n';
}

}  // namespace console
