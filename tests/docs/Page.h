/// A page of docs/, read for the tables and examples that tests run: the pages say what is true, or
/// a test fails.
#pragma once

#include <TrelvonUnits/SchemaUtility.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <exception>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

/// A file below the root of the sources.
inline std::string readFile(const std::string& path) {
  std::ifstream file(TRELVON_TESTS_SOURCE_DIR "/" + path, std::ios::binary);
  if (!file) throw std::runtime_error(path + " cannot be opened.");
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The cells of a row. Cells hold no bars, and code that fills a cell stands without its backticks.
inline std::vector<std::string> cellsOf(const std::string& line) {
  std::vector<std::string> cells;
  std::istringstream bars(line.substr(1));
  for (std::string cell; std::getline(bars, cell, '|');) {
    cell.erase(0, cell.find_first_not_of(' '));
    cell.erase(cell.find_last_not_of(' ') + 1);
    if (cell.find('`') == 0 && cell.find('`', 1) == cell.size() - 1)
      cell = cell.substr(1, cell.size() - 2);
    cells.push_back(std::move(cell));
  }
  return cells;
}

/// The rows of all tables whose first columns bear these names.
inline std::vector<std::vector<std::string>> rowsOf(const std::string& page,
                                                    const std::vector<std::string>& columns) {
  std::vector<std::vector<std::string>> rows;
  std::istringstream lines(readFile("docs/" + page));
  bool isBefore = true;
  bool isAsked = false;
  for (std::string line; std::getline(lines, line); isBefore = line.empty() || line[0] != '|') {
    if (line.empty() || line[0] != '|') continue;
    std::vector<std::string> cells = cellsOf(line);
    if (isBefore) {
      isAsked = cells.size() >= columns.size() &&
                std::equal(columns.begin(), columns.end(), cells.begin());
    } else if (isAsked && line.rfind("|--", 0) != 0) {
      cells.resize(std::max(cells.size(), columns.size()));
      rows.push_back(std::move(cells));
    }
  }
  if (rows.empty()) ADD_FAILURE() << page << " has no table that begins with " << columns.front();
  return rows;
}

/// The examples in JSON.
inline std::vector<std::string> examplesOf(const std::string& page) {
  std::vector<std::string> examples;
  const std::string text = readFile("docs/" + page);
  const std::string fence = "```";
  for (std::size_t begin = 0; (begin = text.find(fence + "json\n", begin)) != std::string::npos;) {
    begin += fence.size() + 5;
    examples.push_back(text.substr(begin, text.find(fence, begin) - begin));
  }
  if (examples.empty()) ADD_FAILURE() << page << " has no examples.";
  return examples;
}

/// A number as the pages write it: in the shortest form that names it.
inline std::string written(double value) {
  char text[32];
  return {text, std::to_chars(text, std::end(text), value).ptr};
}
inline std::string written(std::string text) { return text; }

/// What an action gives, or its message in quotes.
template <class Action>
std::string answerOf(Action&& action) {
  try {
    return written(action());
  } catch (const std::exception& thrown) {
    return std::string("\"") + thrown.what() + "\"";
  }
}

/// An engine with the whole catalog and a host's dollar.
inline std::unique_ptr<Units::UnitsEngine> makeCatalogEngine() {
  std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* const pack : {"core", "symbols", "aliases", "legacy", "gauge"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(
        std::string(TRELVON_TESTS_SOURCE_DIR "/schemas/") + pack, *engine);
  for (const std::string& example : examplesOf("value-text.md")) engine->addDefinition(example);
  engine->buildSchemas();
  return engine;
}

/// The type id of a name on a page: the catalog's local names stand alone.
inline std::string typeIdOf(const std::string& kind, const std::string& name) {
  return name.find(':') == std::string::npos ? "trelvon." + kind + ":" + name + "-1.0.0" : name;
}
