#include "tests/docs/Page.h"

#include <TrelvonUnits/Exceptions.h>

#include <map>
#include <sstream>

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

/// Without variables through the operations that take none.
void expectFormulas(const std::string& page, const std::vector<std::string>& columns) {
  const std::unique_ptr<Units::UnitsEngine> engine = makeCatalogEngine();
  for (const auto& row : rowsOf(page, columns)) {
    const bool isPlain = columns[1] == "in";
    const std::string unit = row[columns.size() - 2];
    const auto evaluate = [&] {
      if (unit == "none")
        return isPlain ? engine->evaluateUnitlessExpression(row[0])
                       : engine->evaluateUnitlessExpression(row[0], resolverOf(row[1]));
      const std::string typeId = typeIdOf("unit", unit);
      return isPlain ? engine->evaluateExpressionInUnit(typeId, row[0])
                     : engine->evaluateExpressionInUnit(typeId, row[0], resolverOf(row[1]));
    };
    EXPECT_EQ(answerOf(evaluate), row[columns.size() - 1]) << row[0] << " in " << unit;
  }
}

TEST(FormulaPage, FormulasGiveWhatItSays) {
  for (const char* const page : {"formula-language.md", "traps.md", "coming-from.md"})
    expectFormulas(page, {"formula", "in", "gives"});
  expectFormulas("formula-language.md", {"formula", "with", "in", "gives"});
}

}  // namespace
