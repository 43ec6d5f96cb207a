#include "explaining/ExplainedFormula.h"
#include "explaining/NearNames.h"
#include "explaining/ValueKinds.h"
#include "formula/SpellingTables.h"
#include "model/RecordAccess.h"
#include "model/ShownText.h"
#include "model/Tolerances.h"

#include <TrelvonUnits/Limits.h>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

namespace Units {

namespace {

using Contents = ExplanationContents;
using NodeKind = FormulaExplanation::NodeKind;

/// What a function requires of its input.
constexpr struct {
  FormulaFunction function;
  const char* needs;
} domains[] = {
    {FormulaFunction::Tan, "an input whose cosine is not 0"},
    {FormulaFunction::Asin, "a number from -1 to 1"},
    {FormulaFunction::Acos, "a number from -1 to 1"},
    {FormulaFunction::Log, "a number of at least 0.000000001"},
    {FormulaFunction::Ln, "a number of at least 0.000000001"},
    {FormulaFunction::Sqrt, "a number that is not negative"},
};

/// Makes the sentence for each reason.
class Sentence {
 public:
  explicit Sentence(const ExplainedFormula& explained)
      : explained_(explained),
        contents_(explained.contents),
        kinds_(explained.registries),
        it_(explained.quoted(contents_.span)) {}

  std::string make() const;

 private:
  std::string missingOperand() const;
  std::string missingParentheses() const;
  std::string suffixWithoutOperand() const;
  static std::string parenthesesOf(const std::string& function);
  std::string unknownIdentifier() const;
  bool isBeforeLineBreak() const;
  std::string unitsDiffer() const;
  std::string outsideDomain() const;
  std::string undefinedPower() const;
  std::string unitsDoNotFit() const;

  const Contents::NodeData& node() const { return contents_.nodes[contents_.refusedNode]; }
  std::string kindOf(std::size_t operand) const {
    return kinds_.ofNode(contents_, node().operands[operand]);
  }
  std::string resultKind() const {
    return kinds_.ofNode(contents_, static_cast<std::uint32_t>(contents_.nodes.size() - 1));
  }
  bool hasRatio(std::size_t operand) const;

  const ExplainedFormula& explained_;
  const Contents& contents_;
  const ValueKinds kinds_;
  const std::string it_;  // what was refused
};

std::string Sentence::make() const {
  switch (contents_.reason) {
    case FormulaReason::Done:
      return "";
    case FormulaReason::MissingOperand:
      return missingOperand();
    case FormulaReason::NotAfterOperand:
      return it_ + " follows a value: multiplication is always written out.";
    case FormulaReason::NeverClosed:
      return it_ == "`(`" ? "`(` is never closed."
                          : "The parenthesis after " + it_ + " is never closed.";
    case FormulaReason::NeverOpened:
      return it_ + " closes a parenthesis that was never opened.";
    case FormulaReason::EmptyParentheses:
      return "The parentheses are empty.";
    case FormulaReason::MissingParentheses:
      return missingParentheses();
    case FormulaReason::SuffixWithoutOperand:
      return suffixWithoutOperand();
    case FormulaReason::UnusableSymbol:
      return it_ + " is the text of a unit that ends in a space, so it cannot be used alone.";
    case FormulaReason::UnknownIdentifier:
      return unknownIdentifier();
    case FormulaReason::VariableIsItself:
      return "The value of " + it_ + " is its own name.";
    case FormulaReason::NestedTooDeeply:
      return "Variables are nested more than " + std::to_string(maximumSubstitutionDepth) +
             " levels deep. " + it_ + " may depend on itself.";
    case FormulaReason::TooManyVariables:
      return "The formula uses more than " + std::to_string(maximumSubstitutions) + " variables.";
    case FormulaReason::UnitsDiffer:
      return unitsDiffer();
    case FormulaReason::DivisorNearZero:
      return "The divisor counts as 0: it is between -0.000000001 and 0.000000001.";
    case FormulaReason::UndefinedPower:
      return undefinedPower();
    case FormulaReason::ExponentHasUnits:
      return "An exponent must be a plain number; this one is " + kindOf(1) + ".";
    case FormulaReason::PowerOfNoUnits:
      return "The value has a unit that cancels to a plain number, such as percent, and cannot be "
             "raised to a power.";
    case FormulaReason::OutsideDomain:
      return outsideDomain();
    case FormulaReason::OutOfRange:
      return "The result of " + it_ + " is too large or too small.";
    case FormulaReason::InputHasUnits:
      return it_ + " needs a plain number; its input is " + kindOf(0) + ".";
    case FormulaReason::InputNotExpected:
      return it_ + " takes no input: write `pi()`.";
    case FormulaReason::InputMissing:
      return it_ + " needs an input.";
    case FormulaReason::SymbolAfterUnits:
      return it_ + " gives a plain number its unit; this value is already " + kindOf(0) + ".";
    case FormulaReason::UnitsDoNotFit:
      return unitsDoNotFit();
    case FormulaReason::HasUnits:
      return "The result is " + resultKind() + ", but a plain number is needed.";
    case FormulaReason::Other:
      break;
  }
  return contents_.message;
}

std::string Sentence::missingOperand() const {
  if (contents_.tokens.empty()) return "The formula is empty.";
  if (contents_.span.begin != contents_.span.end) return "A number is missing before " + it_ + ".";
  return "The formula ends where a number is expected, after " +
         explained_.quoted(contents_.tokens.back().span) + ".";
}

std::string Sentence::missingParentheses() const {
  const std::string text = contents_.textAt(contents_.span);
  const bool isFunction = FunctionMap().find(text) != FormulaFunction::None;
  return isFunction
             ? it_ + " is a function: " + parenthesesOf(text)
             : "A number after " + it_ + " needs parentheses, unless the formula ends with it.";
}

std::string Sentence::parenthesesOf(const std::string& function) {
  return FunctionMap().find(function) == FormulaFunction::Pi
             ? "write its parentheses, with nothing in them."
             : "put its input in parentheses.";
}

std::string Sentence::suffixWithoutOperand() const {
  return it_ + " is the text of a unit and must follow a number or `)`.";
}

/// Whether what was read as an identifier would be a literal without the tab or line break after
/// it.
bool Sentence::isBeforeLineBreak() const {
  const FormulaSpan& span = contents_.span;
  const std::string& text = contents_.textOf(span.text);
  const std::size_t next = text.find_first_not_of(' ', span.end);
  return next != std::string::npos && (text[next] == '\t' || text[next] == '\n') &&
         wordStart(contents_.textAt(span)) > 0;
}

std::string Sentence::unknownIdentifier() const {
  constexpr std::string_view own = "Unrecognized identifier";  // anything else is the resolver's
  const std::string text = contents_.textAt(contents_.span);
  if (contents_.message.compare(0, own.size(), own) != 0) return shownText(contents_.message);
  if (isBeforeLineBreak())
    return it_ +
           " is followed by a tab or line break. Only a space may come directly after a number or "
           "unit.";
  const std::string first = text.substr(0, text.find(' '));
  if (FunctionMap().find(first) != FormulaFunction::None)
    return "`" + first + "` is a function: " + parenthesesOf(first);
  const std::string word = text.substr(wordStart(text));
  const bool isOneWord = !word.empty() && word.find_first_of(" 0123456789") == std::string::npos;
  const bool isProduct = FunctionMap().find(word) != FormulaFunction::None;
  if (word.size() < text.size() && (!isOneWord || isProduct))
    return it_ +
           " is not one number with one unit. Multiplication and addition are always written "
           "out, and the decimal mark is a point.";
  std::string sentence = word.size() < text.size() ? "`" + shownText(word) + "` is not a unit."
                                                   : it_ + " is not a unit, function or variable.";
  const std::vector<std::string> near = nearNames(text, explained_.registries);
  for (std::size_t i = 0; i < near.size(); ++i)
    sentence += (i == 0                 ? " Did you mean `"
                 : i + 1 == near.size() ? " or `"
                                        : ", `") +
                shownText(near[i]) + "`";
  return near.empty() ? sentence : sentence + "?";
}

/// Whether primitive units of an operand have canceled, which keep an exponent of 0.
bool Sentence::hasRatio(std::size_t operand) const {
  const auto* const powers = contents_.powersOf(contents_.nodes[node().operands[operand]]);
  return powers && std::any_of(powers->begin(), powers->end(),
                               [](const auto& power) { return power.second == 0; });
}

std::string Sentence::unitsDiffer() const {
  std::string sentence = it_ + " needs the same units on both sides: left is " + kindOf(0) +
                         ", right is " + kindOf(1) + ".";
  if (hasRatio(0) || hasRatio(1))
    sentence +=
        " A ratio such as percent is not a plain number, and a product keeps it only if it is on "
        "the "
        "left of `*`.";
  return sentence;
}

std::string Sentence::outsideDomain() const {
  const FormulaFunction function = FunctionMap().find(contents_.textAt(contents_.span));
  for (const auto& row : domains)
    if (row.function == function) return it_ + " needs " + row.needs + ".";
  return it_ + " is not defined for its input.";
}

std::string Sentence::undefinedPower() const {
  const bool isNegative = contents_.nodes[node().operands[0]].value < 0 &&
                          !isNearZero(contents_.nodes[node().operands[0]].value);
  return isNegative ? "A negative number can only be raised to a whole power."
                    : "0 can only be raised to a power above 0.";
}

std::string Sentence::unitsDoNotFit() const {
  return "The result is " + resultKind() + "; `" + shownText(RecordAccess::name(*explained_.unit)) +
         "` measures " + kinds_.ofUnit(*explained_.unit) + ".";
}

}  // namespace

std::string sentenceOf(const ExplainedFormula& explained) { return Sentence(explained).make(); }

}  // namespace Units
