#include "reporting/ExplanationWords.h"
#include "tests/docs/Page.h"

#include <TrelvonUnits/Exceptions.h>
#include <TrelvonUnits/FormulaExplanation.h>

#include <map>
#include <set>
#include <string>

namespace {

using Units::FormulaExplanation;

std::string resolve(const std::string& name) {
  static const std::map<std::string, std::string> variables = {{"self", "self"}, {"loop", "pool"},
                                                               {"pool", "loop"}, {"ten", "10"},
                                                               {"x1", "2"},      {"h1", "2"}};
  const auto found = variables.find(name);
  if (found == variables.end()) throw Units::ParseException("Unrecognized identifier.");
  return found->second;
}

FormulaExplanation explain(const Units::UnitsEngine& engine, const std::string& unit,
                           const std::string& formula) {
  const auto ask = Units::HiddenVariables::Ask;
  return unit == "none" ? explainUnitlessFormula(engine, formula, resolve, ask)
                        : explainFormula(engine, typeIdOf("unit", unit), formula, resolve, ask);
}

/// A word of the page, what is said, and what is suggested instead.
using Said = std::vector<std::string>;

Said reasonIn(const FormulaExplanation& explained, const std::string&) {
  std::string spellings;
  for (const std::string& spelling : explained.spellings())
    spellings += (spellings.empty() ? "`" : ", `") + spelling + "`";
  return {wordOf(explained.reason()), explained.sentence(), spellings};
}

Said warningIn(const FormulaExplanation& explained, const std::string& word) {
  for (const auto& warning : explained.warnings())
    if (wordOf(warning.kind()) == word)
      return {word, warning.sentence(),
              warning.spelling().empty() ? "" : "`" + warning.spelling() + "`"};
  return {"none"};
}

/// Checks the rows of a table. Every word but `without` must have a row.
template <class E>
void expectRows(const std::string& column,
                Said (*find)(const FormulaExplanation&, const std::string&), E last,
                std::set<std::string> words) {
  const std::unique_ptr<Units::UnitsEngine> engine = makeCatalogEngine();
  for (const auto& row : rowsOf("explain.md", {column, "formula", "in", "says"})) {
    words.insert(row[0]);
    Said said = find(explain(*engine, row[2], row[1]), row[0]);
    if (said.size() > 2 && !said[2].empty() && said[2].find('`', 1) == said[2].size() - 1)
      said[2] = said[2].substr(1, said[2].size() - 2);  // as cells are read
    EXPECT_EQ(said, (Said{row[0], row[3], row[4]})) << row[1];
    EXPECT_NE(find(explain(*engine, row[2], row[5]), row[0])[0], row[0]) << row[5];
  }
  for (int value = 1; value <= static_cast<int>(last); ++value)
    EXPECT_EQ(words.count(wordOf(static_cast<E>(value))), 1u) << wordOf(static_cast<E>(value));
}

TEST(ExplainPage, ReasonsAndWarningsAreThoseOfItsTables) {
  expectRows("reason", reasonIn, Units::FormulaReason::Other,
             {"too-many-variables", "unusable-symbol", "other"});
  expectRows("warning", warningIn, FormulaExplanation::WarningKind::MarkMeansFeet,
             {"no-composite-symbol"});
}

/// Everything that is said of a formula, by the words.
std::string wordsOf(const FormulaExplanation& explained) {
  std::string words =
      explained.reason() == Units::FormulaReason::Done ? "" : wordOf(explained.reason());
  for (const auto& warning : explained.warnings())
    words += (words.empty() ? "" : ", ") + std::string(wordOf(warning.kind()));
  return words;
}

TEST(FormulaPage, PitfallsAreWarnedOf) {
  const std::unique_ptr<Units::UnitsEngine> engine = makeCatalogEngine();
  for (const auto& row :
       rowsOf("formula-language.md", {"formula", "in", "gives", "why", "warning"})) {
    const FormulaExplanation explained = explain(*engine, row[1], row[0]);
    EXPECT_EQ(wordsOf(explained), row[4]) << row[0];
    EXPECT_EQ(answerOf([&]() -> double {
                if (explained.reason() == Units::FormulaReason::Done) return explained.value();
                throw std::logic_error(explained.message());
              }),
              row[2])
        << row[0];
  }
}

}  // namespace
