/// Tables of any bytes, read in blocks of any size: the rows, cells and lines are those of a slow
/// and obvious reader, no byte is lost, and plain numbers have the engine's bits.
#include "tests/fuzz/Fuzzer.h"
#include "tools/trelvon/csv/CsvReader.h"
#include "tools/trelvon/csv/PlainNumber.h"

#include <TrelvonUnits/UnitsEngine.h>

#include <cstdio>
#include <memory>

namespace {

struct Row {
  std::string bytes;
  std::vector<std::string> cells;
};

/// One byte after the other, as Python's csv module reads them.
std::vector<Row> rowsOf(const std::string& table, const std::string& separator) {
  std::vector<Row> rows;
  enum { Start, Plain, Quoted, AfterQuote } state = Start;
  std::string cell;
  std::size_t begin = 0, at = table.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0;
  const auto endCell = [&](std::vector<std::string>& cells) {
    cells.push_back(cell);
    cell.clear();
    state = Start;
  };
  std::vector<std::string> cells;
  while (begin < table.size()) {
    if (at == table.size() || (state != Quoted && table[at] == '\n')) {
      const bool hasFeed = at != table.size();
      if (hasFeed && !cell.empty() && table[at - 1] == '\r') cell.pop_back();
      endCell(cells);
      at += hasFeed ? 1 : 0;
      rows.push_back({table.substr(begin, at - begin), cells});
      cells.clear();
      begin = at;
    } else if (state != Quoted && table.compare(at, separator.size(), separator) == 0) {
      endCell(cells);
      at += separator.size();
    } else {
      const char c = table[at++];
      if (c == '"' && (state == Start || state == AfterQuote)) {
        if (state == AfterQuote) cell += c;
        state = Quoted;
      } else if (c == '"' && state == Quoted) {
        state = AfterQuote;
      } else {
        cell += c;
        if (state != Quoted) state = Plain;
      }
    }
  }
  return rows;
}

std::vector<std::string> textsOf(const tool::CsvReader& reader,
                                 const std::vector<tool::CellPlace>& places) {
  std::vector<std::string> texts;
  for (const tool::CellPlace& place : places)
    texts.push_back(place.isMissing ? "missing" : reader.textOf(place));
  return texts;
}

void checkRows(const std::string& table, const std::string& separator, std::size_t block) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::tmpfile(), std::fclose);
  std::fwrite(table.data(), 1, table.size(), file.get());
  std::rewind(file.get());
  tool::CsvReader reader(fileno(file.get()), separator, block);
  reader.setColumns({0, 2});
  const std::string told = " in " + table + " by " + separator;
  std::size_t line = 1;
  for (const Row& row : rowsOf(table, separator)) {
    check(reader.next(), "a row is missing: ", row.bytes);
    checkEqual(reader.row(), row.bytes, "the bytes of a row");
    checkEqual(reader.line(), line, "the line");
    check(textsOf(reader, reader.allPlaces()) == row.cells, "the cells of ", row.bytes, told);
    const std::vector<std::string> wanted = {row.cells[0],
                                             row.cells.size() > 2 ? row.cells[2] : "missing"};
    check(textsOf(reader, reader.places()) == wanted, "the columns of ", row.bytes, told);
    line += static_cast<std::size_t>(std::count(row.bytes.begin(), row.bytes.end(), '\n'));
  }
  check(!reader.next(), "a row too many");
}

void checkNumber(const std::string& text) {
  static const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  const auto number = tool::readPlainNumber(text);
  if (!number) return;
  // A minus sign is an operator, whose zero has no sign.
  const double value = engine->evaluateUnitlessExpression(text);
  check(areSame(*number, value) || (*number == 0.0 && value == 0.0), "the number ", text);
}

}  // namespace

void fuzz(Random& random) {
  const std::string separator = random.oneOf({",", ";", "\t", "::", "ab"});
  const std::size_t block = 1 + random.below(9);
  std::string table;
  if (random.takes('#'))
    table = random.text(std::vector<std::string>{separator, separator, "\"", "\"\"", "\n", "\r\n",
                                                 "\r", "a", ":", " ", "12", "\xEF\xBB\xBF"},
                        40);
  else
    table = random.rest();
  checkRows(table, separator, block);
  for (const std::string& text : split(table, '\n')) checkNumber(text);
  checkNumber(random.text(std::vector<std::string>{"-", " ", ".", "e", "E-", "+", "0", "9", "1",
                                                   "4503599627370497", "00000"},
                          9));
}
