#include <TrelvonUnits/Exceptions.h>

#include <map>
#include <sstream>

#include "tests/docs/Catalogue.h"

namespace {

/// `a = 2 m; b = a + 1` as a host's variables.
VariableResolver resolverOf(const std::string& variables) {
  std::map<std::string, std::string> texts;
  std::istringstream entries(variables);
  for (std::string entry; std::getline(entries >> std::ws, entry, ';');) {
    const std::size_t sign = entry.find(" = ");
    texts[entry.substr(0, sign)] = entry.substr(sign + 3);
  }
  return [texts](const std::string& name) { return texts.at(name); };
}

TEST(FormulaPage, FormulasGiveWhatItSays) {
  const std::unique_ptr<Units::UnitsEngine> engine = makeCatalogueEngine();
  for (const auto& row : rowsOf("formula-language.md", {"formula", "in", "gives"}))
    EXPECT_EQ(answerOf([&] {
                return row[1] == "none"
                           ? engine->evaluateUnitlessExpression(row[0])
                           : engine->evaluateExpressionInUnit(typeIdOf("unit", row[1]), row[0]);
              }),
              row[2])
        << row[0] << " in " << row[1];

  for (const auto& row : rowsOf("formula-language.md", {"formula", "with", "in", "gives"}))
    EXPECT_EQ(answerOf([&] {
                return row[2] == "none"
                           ? engine->evaluateUnitlessExpression(row[0], resolverOf(row[1]))
                           : engine->evaluateExpressionInUnit(typeIdOf("unit", row[2]), row[0],
                                                              resolverOf(row[1]));
              }),
              row[3])
        << row[0] << " with " << row[1] << " in " << row[2];
}

}  // namespace
