#include "tests/docs/Page.h"

#include <TrelvonUnits/ParameterTable.h>

namespace {

/// `a = 2 m; b = a + 1`; the last one is asked for.
double valueOfLast(const std::string& parameters, const std::string& unit,
                   const Units::UnitsEngine& engine) {
  Units::ParameterTable table(engine);
  std::istringstream entries(parameters);
  std::string name;
  for (std::string entry; std::getline(entries >> std::ws, entry, ';');) {
    name = entry.substr(0, entry.find(" = "));
    table.set(name, entry.substr(entry.find(" = ") + 3));
  }
  return unit == "none" ? table.value(name) : table.value(name, typeIdOf("unit", unit));
}

TEST(ParametersPage, ParametersGiveWhatItSays) {
  const auto engine = makeCatalogEngine();
  for (const auto& row : rowsOf("parameters.md", {"parameters", "in", "gives"}))
    EXPECT_EQ(answerOf([&] { return valueOfLast(row[0], row[1], *engine); }), row[2]) << row[0];
}

}  // namespace
