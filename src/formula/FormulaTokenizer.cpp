#include "formula/FormulaTokenizer.h"

#include "formula/Refusal.h"
#include "text/ValueText.h"

#include <optional>
#include <string>
#include <utility>

using Units::FormulaReason;

namespace {

/// @param text  must not begin with a separator.
std::string_view withoutTrailingSeparators(std::string_view text) {
  while (Units::isSeparator(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace

FormulaTokenizer::FormulaTokenizer(std::string_view formula, const Units::SymbolTexts& symbols,
                                   const Units::UnitMath& unitMath, VariableResolver resolver,
                                   int maxSubstitutions, KnownVariables* known)
    : text_(formula),
      symbols_(symbols),
      unitMath_(unitMath),
      resolver_(std::move(resolver)),
      known_(known),
      substitutionsLeft_(maxSubstitutions) {}

bool FormulaTokenizer::takeOperand(FormulaToken& token) {
  lastStart_ = text_.rest().size();
  const Units::LiteralEnds& ends = operators_.findEnds(text_.rest());
  if (scanValueOrSymbol(token, ends)) return true;
  const std::string_view name = takeTrimmed(ends.ends.front());
  if (unitMath_.getFunctionMap().find(name) != FormulaFunction::None) {
    token = {FormulaTokenType::Function, name};
    return true;
  }
  const VariableValue* const variable = known_ ? known_->find(name) : nullptr;
  if (!variable) return substitute(name), false;
  token = {FormulaTokenType::Variable, name};
  token.variable = variable;
  return true;
}

bool FormulaTokenizer::scanValueOrSymbol(FormulaToken& token, const Units::LiteralEnds& ends) {
  const std::string_view longest = text_.rest().substr(0, ends.ends[ends.count - 1]);
  const auto literal = Units::parseLongestValueText(longest, ends, symbols_);
  // A symbol takes precedence over a literal that is shorter than `longest`. One search suffices: a
  // symbol that a shorter text begins with also begins `longest`, since the operator that follows
  // the shorter text is not a letter.
  if ((!literal || literal->length < longest.size()) && mayBeSymbol(longest)) {
    std::string_view after = longest;
    if (Units::matchLeadingSymbol(after, std::nullopt, nullptr, symbols_)) {
      token = {FormulaTokenType::UnitSymbol, takeTrimmed(longest.size() - after.size())};
      return true;
    }
  }
  if (!literal) return false;
  token = {FormulaTokenType::Number, takeTrimmed(literal->length), literal->value, literal->symbol,
           literal->form};
  return true;
}

bool FormulaTokenizer::mayBeSymbol(std::string_view text) const {
  return symbols_.anyBeginsAs(text, Units::Placement::Prefix) ||
         symbols_.anyBeginsAs(text, Units::Placement::Suffix);
}

std::string_view FormulaTokenizer::takeTrimmed(std::size_t length) {
  const std::string_view text = text_.rest().substr(0, length);
  text_.skip(length);
  return withoutTrailingSeparators(text);
}

/// Puts the replacement of the identifier that was just read in front of the unread text.
void FormulaTokenizer::substitute(std::string_view identifier) {
  identifierSize_ = identifier.size();
  checkSubstitution();
  const std::string name(identifier);
  const std::string replacement = resolver_(name);
  if (replacement == name) refuse(FormulaReason::VariableIsItself);

  openSubstitutions_.push_back(text_.rest().size());
  text_.putInFront("(" + replacement + ")");
  operators_.restart();
}

void FormulaTokenizer::checkSubstitution() {
  while (!openSubstitutions_.empty() && openSubstitutions_.back() >= text_.rest().size())
    openSubstitutions_.pop_back();
  if (openSubstitutions_.size() >= std::size_t{Units::maximumSubstitutionDepth})
    refuse(FormulaReason::NestedTooDeeply);
  if (substitutionsLeft_ <= 0) refuse(FormulaReason::TooManyVariables);
  --substitutionsLeft_;
}

void FormulaTokenizer::refuse(FormulaReason reason) {
  refusal_ = reason;
  throwRefusal(reason);
}
