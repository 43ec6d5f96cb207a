#include "tools/trelvon/csv/CellReader.h"

#include "tools/trelvon/ShownText.h"
#include "tools/trelvon/csv/PlainNumber.h"

#include <TrelvonUnits/Exceptions.h>
#include <TrelvonUnits/FormulaExplanation.h>

namespace tool {

namespace {

using Explanation = Units::FormulaExplanation;

/// Nobody writes a value as long as this, and explaining it would take much memory.
constexpr std::size_t longestValue = 1000;

/// Whether the tokens are a literal, with or without a minus sign before it.
bool areOneLiteral(const std::vector<Explanation::Token>& tokens) {
  const bool isSigned = tokens.size() == 2 && tokens[0].kind() == Explanation::TokenKind::Operator;
  return (tokens.size() == 1 || isSigned) && tokens.back().kind() == Explanation::TokenKind::Number;
}

}  // namespace

bool CellReader::isOneValue(const std::string& cell) const {
  // Without any of these, a formula is either one literal or refused.
  if (cell.find_first_of("+*/^(") == std::string::npos &&
      cell.find('-', cell.find_first_not_of(' ') + 1) == std::string::npos)
    return true;
  return areOneLiteral(explainFormula(engine_, unitTypeId_, cell, {}).tokens());
}

std::optional<double> CellReader::read(const std::string& cell) const {
  if (const auto number = readPlainNumber(cell)) return number;
  if (cell.size() > longestValue) return std::nullopt;
  try {
    const double value = engine_.evaluateExpressionInUnit(unitTypeId_, cell);
    if (isOneValue(cell)) return value;
  } catch (const Units::ParseException&) {
  }
  return std::nullopt;
}

std::string CellReader::reasonAgainst(const std::string& cell) const {
  if (cell.find_first_not_of(' ') == std::string::npos) return "the cell is empty";
  if (cell.size() > longestValue) return "a value can have at most 1000 bytes";
  const auto explanation =
      explainFormula(engine_, unitTypeId_, cell, [](const std::string& name) -> std::string {
        throw Units::ParseException("Unrecognized identifier: " + name + ".");
      });
  if (explanation.reason() == Units::FormulaReason::Done)
    return "a cell must be one value, not a formula";
  return shown(explanation.sentence());
}

}  // namespace tool
