#include "tools/trelvon/Columns.h"

#include "tools/trelvon/ShownText.h"

#include <algorithm>

namespace tool {

namespace {

constexpr std::size_t widest = 40;  // longer texts push the columns after them to the right

}  // namespace

void writeColumns(Output& out, const std::vector<Row>& rows) {
  std::vector<std::size_t> widths;
  for (const Row& row : rows) {
    widths.resize(std::max(widths.size(), row.size()));
    for (std::size_t column = 0; column < row.size(); ++column)
      widths[column] = std::max(widths[column], std::min(widthOf(row[column]), widest));
  }
  for (const Row& row : rows) {
    std::string line;
    for (std::size_t column = 0; column < row.size(); ++column) {
      line += row[column];
      const std::size_t width = widthOf(row[column]);
      line.append(widths[column] > width ? widths[column] - width : 0, ' ');
      line += "  ";
    }
    out.write(line.erase(line.find_last_not_of(' ') + 1) + '\n');
  }
}

}  // namespace tool
