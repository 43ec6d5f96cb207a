#include "tools/trelvon/csv/ColumnPlan.h"

#include "tools/trelvon/Failure.h"
#include "tools/trelvon/ShownText.h"

#include <algorithm>
#include <charconv>
#include <system_error>

namespace tool {

namespace {

/// A header such as `width [ft]`. Without brackets the unit is empty.
struct Heading {
  std::string name, unit;
};

Heading readHeading(const std::string& text) {
  const std::size_t open = text.rfind('[');
  const std::size_t close = text.find_last_not_of(' ');
  if (open == std::string::npos || close == std::string::npos || text[close] != ']')
    return {text, ""};
  const std::string before = text.substr(0, open);
  return {before.substr(0, before.find_last_not_of(' ') + 1),
          text.substr(open + 1, close - open - 1)};
}

std::vector<std::string> headerTexts(const CsvReader* header) {
  std::vector<std::string> texts;
  if (header != nullptr)
    for (const CellPlace& place : header->allPlaces()) texts.push_back(header->textOf(place));
  return texts;
}

/// The index of a column, given by its number, by its header, or by its header without the unit in
/// brackets.
std::size_t indexOf(const std::string& column, const std::vector<std::string>& headers) {
  std::size_t number = 0;
  const char* const end = column.data() + column.size();
  const auto read = std::from_chars(column.data(), end, number);
  if (read.ec == std::errc() && read.ptr == end && number > 0) return number - 1;
  std::vector<std::size_t> found;
  for (std::size_t index = 0; index < headers.size(); ++index)
    if (headers[index] == column || readHeading(headers[index]).name == column)
      found.push_back(index);
  if (found.size() == 1) return found.front();
  throw Failure(Status::Findings, "--column " + inQuotes(column) +
                                      (found.empty() ? " is not a column of the header"
                                                     : " is the name of several columns"));
}

/// The value of an option for the column at a place: one value for all, or as many as columns.
std::string valueFor(const Arguments& arguments, const std::string& option, std::size_t place) {
  const auto values = arguments.texts(option);
  if (values.size() == 1) return values.front();
  if (values.size() == arguments.texts("column").size()) return values[place];
  throw Failure(Status::Usage, "--column needs one --" + option + ", or one for each column");
}

ColumnPlan planColumn(Context& context, std::size_t place,
                      const std::vector<std::string>& headers) {
  const Arguments& arguments = context.arguments;
  const std::string column = arguments.texts("column")[place];
  const std::size_t index = indexOf(column, headers);
  std::string from, header;
  const std::string to = valueFor(arguments, "to", place);
  if (arguments.has("from-header")) {
    if (index >= headers.size())
      throw Failure(Status::Findings, "the header has no column " + inQuotes(column));
    const Heading heading = readHeading(headers[index]);
    if (heading.unit.empty())
      throw Failure(Status::Findings, "the header " + inQuotes(headers[index]) +
                                          " has no unit in brackets, as width [ft] has");
    from = heading.unit;
    header = heading.name + (heading.name.empty() ? "[" : " [") + to + ']';
  } else {
    from = valueFor(arguments, "from", place);
  }
  const std::string fromId = context.unit(from).getTypeId(), toId = context.unit(to).getTypeId();
  const Units::UnitsEngine& engine = context.definitions.engine();
  return {index, shown(column), CellReader(engine, fromId),
          Units::PreparedConversion(engine, fromId, toId), header};
}

}  // namespace

std::vector<ColumnPlan> planColumns(Context& context, const CsvReader* header) {
  const auto headers = headerTexts(header);
  std::vector<ColumnPlan> plans;
  std::vector<std::size_t> order;
  for (std::size_t place = 0; place < context.arguments.texts("column").size(); ++place) {
    plans.push_back(planColumn(context, place, headers));
    order.push_back(place);
  }
  std::sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
    return plans[left].index < plans[right].index;
  });
  std::vector<ColumnPlan> sorted;
  for (const std::size_t place : order) {
    if (!sorted.empty() && sorted.back().index == plans[place].index)
      throw Failure(Status::Usage, "--column " + plans[place].shownName + " is given twice");
    sorted.push_back(plans[place]);
  }
  return sorted;
}

}  // namespace tool
