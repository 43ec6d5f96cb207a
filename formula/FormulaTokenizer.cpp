#include "formula/FormulaTokenizer.h"

#include "formula/Separators.h"
#include "text/ValueText.h"

#include <TrelvonUnits/Exceptions.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

namespace {

std::size_t countLeadingSeparators(std::string_view text) {
  return std::min(text.find_first_not_of(tokenSeparators), text.size());
}

std::string_view trim(std::string_view text) {
  text.remove_prefix(countLeadingSeparators(text));
  return text.substr(0, text.find_last_not_of(tokenSeparators) + 1);
}

}  // namespace

FormulaTokenizer::FormulaTokenizer(std::string_view formula, const Units::SymbolTexts& symbols,
                                   const Units::UnitMath& unitMath, VariableResolver resolver,
                                   int mostSubstitutions)
    : text_(formula),
      operators_(unitMath),
      symbols_(symbols),
      unitMath_(unitMath),
      resolver_(std::move(resolver)),
      substitutionsLeft_(mostSubstitutions) {}

bool FormulaTokenizer::nextToken(FormulaToken& token) {
  while (true) {
    text_.skip(countLeadingSeparators(text_.rest()));
    if (text_.rest().empty()) return false;

    const auto first = operators_.find(0, text_.rest());
    if (first && first->position == 0) {
      takeOperator(token, first->length);
      return true;
    }
    if (scanValueOrSymbol(token)) return true;

    const std::string_view name = takeTrimmed(first ? first->position : text_.rest().size());
    if (unitMath_.getFunctionMap().find(name) != FormulaFunction::None) {
      token = {FormulaTokenType::Function, name};
      return true;
    }
    substitute(name);
  }
}

void FormulaTokenizer::takeOperator(FormulaToken& token, std::size_t length) {
  const std::string_view text = text_.rest().substr(0, length);
  text_.skip(length);
  token = {text == "("   ? FormulaTokenType::OpenParen
           : text == ")" ? FormulaTokenType::CloseParen
                         : FormulaTokenType::Operator,
           text};
}

bool FormulaTokenizer::scanValueOrSymbol(FormulaToken& token) {
  const std::string_view rest = text_.rest();
  std::array<std::size_t, OperatorSearch::reach> ends = {};
  std::size_t count = 0;
  for (bool isLast = false; count < ends.size() && !isLast; ++count) {
    const auto found = operators_.find(count, rest);
    ends[count] = found ? found->position : rest.size();
    isLast = !found;
  }

  if (takeNumber(token, rest.substr(0, ends[--count]))) return true;
  // Looked for once: a symbol that begins a shorter text begins the longest one too, since what
  // follows it there, an operator, is no letter.
  if (takeSymbol(token, rest.substr(0, ends[count]))) return true;
  while (count-- > 0)
    if (takeNumber(token, rest.substr(0, ends[count]))) return true;
  return false;
}

bool FormulaTokenizer::takeNumber(FormulaToken& token, std::string_view candidate) {
  double value = 0;
  const Units::Symbol* symbol = nullptr;
  if (!Units::parseValueText(candidate, &value, &symbol, symbols_)) return false;
  token = {FormulaTokenType::Number, takeTrimmed(candidate.size()), value, symbol};
  return true;
}

bool FormulaTokenizer::takeSymbol(FormulaToken& token, std::string_view candidate) {
  std::string_view after = candidate;
  if (!Units::matchLeadingSymbol(after, std::nullopt, nullptr, symbols_)) return false;
  token = {FormulaTokenType::UnitSymbol, takeTrimmed(candidate.size() - after.size())};
  return true;
}

std::string_view FormulaTokenizer::takeTrimmed(std::size_t length) {
  const std::string_view text = text_.rest().substr(0, length);
  text_.skip(length);
  return trim(text);
}

/// Puts the resolver's text in the place of an identifier that has been taken off the front.
void FormulaTokenizer::substitute(std::string_view identifier) {
  checkSubstitution();
  const std::string name(identifier);
  const std::string replacement = resolver_(name);
  if (replacement == name) throw Units::ParseException("Variable resolved to an identical string.");

  openSubstitutions_.push_back(text_.rest().size());
  text_.putInFront("(" + replacement + ")");
  operators_.restart();
}

void FormulaTokenizer::checkSubstitution() {
  while (!openSubstitutions_.empty() && openSubstitutions_.back() >= text_.rest().size())
    openSubstitutions_.pop_back();
  if (openSubstitutions_.size() >= std::size_t{Units::maximumSubstitutionDepth})
    throw Units::ParseException("Variables are nested too deeply.");
  if (substitutionsLeft_ <= 0) throw Units::ParseException("Too many variables.");
  --substitutionsLeft_;
}
