#include "explaining/ExplainedFormula.h"
#include "explaining/NearNames.h"
#include "formula/SpellingTables.h"
#include "model/Characters.h"
#include "model/RecordAccess.h"
#include "model/ShownText.h"
#include "model/Tolerances.h"
#include "text/ShortNumber.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <tuple>
#include <utility>

namespace Units {

namespace {

using Contents = ExplanationContents;
using NodeKind = FormulaExplanation::NodeKind;
using TokenKind = FormulaExplanation::TokenKind;
using Kind = FormulaExplanation::WarningKind;

/// Finds what may surprise in the tokens, the tree and the result.
class Warnings {
 public:
  Warnings(const ExplainedFormula& explained, std::vector<Contents::WarningData>& out)
      : explained_(explained), contents_(explained.contents), out_(out) {
    findOutsideBase();
  }

  void checkToken(const Contents::TokenData& token);
  void checkNode(std::uint32_t number);
  void checkResult();

 private:
  void checkComposite(const Contents::TokenData& token);
  bool isOfFeet(const Symbol& symbol) const;
  bool isWantedIn(const Unit& unit) const;
  void checkPower(const Contents::NodeData& node);
  void checkScales();
  double scalesOf(const Contents::NodeData& node, std::uint32_t number) const;
  void addScaleWarning(const Contents::NodeData& node);
  void checkRounding(const Contents::NodeData& node, std::uint32_t number);
  void checkReciprocal();
  std::string between(const FormulaSpan& first, const FormulaSpan& second) const;
  void findOutsideBase();
  std::string asDifferenceOfScales(std::uint32_t number) const;

  void add(Kind kind, const FormulaSpan& span, std::string sentence, std::string spelling = {}) {
    out_.push_back({kind, span, std::move(sentence), std::move(spelling)});
  }
  bool hasSpellings() const { return explained_.maySpell(); }
  std::string spelled(const FormulaSpan& span, const std::string& replacement) const {
    const bool isInFormula = span.text == 0 && span.endText == 0;
    return isInFormula && hasSpellings() ? explained_.with(span, replacement) : std::string();
  }
  const Contents::TokenData& tokenOf(const Contents::NodeData& node) const {
    return contents_.tokens[node.token];
  }
  /// The operator's character.
  char operatorOf(const Contents::NodeData& node) const {
    const FormulaSpan& span = tokenOf(node).span;
    return contents_.textOf(span.text)[span.begin];
  }
  /// The unit of a literal or symbol, in parentheses or not; null if there is none.
  const Unit* unitOf(std::uint32_t number) const;
  bool isScale(std::uint32_t number) const;
  bool isPlainLiteral(std::uint32_t number) const {
    const Contents::NodeData& node = contents_.nodes[number];
    return node.kind == NodeKind::Number && !contents_.symbolOf(tokenOf(node));
  }

  const ExplainedFormula& explained_;
  const Contents& contents_;
  std::vector<Contents::WarningData>& out_;
  std::vector<bool> isOutsideBase_;  // by node
  std::vector<double> scales_;       // by node
};

void Warnings::checkToken(const Contents::TokenData& token) {
  if (token.form) checkComposite(token);
  const Symbol* const symbol = contents_.symbolOf(token);
  const auto* const shown = symbol ? RecordAccess::prefixOrSuffix(*symbol) : nullptr;
  if (token.kind == TokenKind::Number && shown && RecordAccess::text(*shown) == "'" &&
      isOfFeet(*symbol) && !isWantedIn(RecordAccess::unit(*symbol)))
    add(Kind::MarkMeansFeet, token.span,
        explained_.quoted(token.span) + " is in `" +
            shownText(RecordAccess::name(RecordAccess::unit(*symbol))) + "`, not in minutes.",
        spelled(token.span, "0\xC2\xB0 " + contents_.textAt(token.span)));
}

/// Whether the mark ' of a symbol is that of feet.
bool Warnings::isOfFeet(const Symbol& symbol) const {
  const SymbolTexts& texts = explained_.registries.symbolTexts;
  const Symbol* const feet = texts.composite(CompositeForm::FeetAndInches);
  return feet && texts.composite(CompositeForm::DegreesMinutesSeconds) &&
         RecordAccess::identity(RecordAccess::unit(*feet)) ==
             RecordAccess::identity(RecordAccess::unit(symbol));
}

/// Whether the requested unit has the dimension of a unit.
bool Warnings::isWantedIn(const Unit& unit) const {
  return explained_.unit && haveSamePowers(explained_.units.termsOf(*explained_.unit).powers,
                                           explained_.units.termsOf(unit).powers);
}

/// Where a hyphen separates the parts of a composite literal; npos if none does.
std::size_t findSeparator(std::string_view literal) {
  for (std::size_t i = 1; i < literal.size(); ++i)
    if (literal[i] == '-' && literal[i - 1] != 'e' && literal[i - 1] != 'E') return i;
  return std::string_view::npos;
}

/// Where a digit follows a letter of a mark: 4 in "7 ft2"; npos if none does.
std::size_t findJoint(std::string_view literal) {
  for (std::size_t i = 1; i < literal.size(); ++i)
    if (isDigit(literal[i]) && isLetter(literal[i - 1])) return i;
  return std::string_view::npos;
}

std::string_view trimmed(std::string_view text) {
  text.remove_prefix(countLeading<isSpace>(text));
  while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
  return text;
}

/// The text after the digits of a part, such as the mark "m" of "10 m"; empty if there is none.
std::string_view markOf(std::string_view part) {
  part = trimmed(part);
  const std::size_t mark = part.find_first_not_of("0123456789. /");
  return mark == std::string_view::npos ? std::string_view() : part.substr(mark);
}

/// The parts of a composite literal as a difference: "10 m - (35 cm)". A fraction after a number
/// without a mark forms one number with it: "1 1/2".
std::string asDifference(std::string_view literal, std::size_t hyphen) {
  const std::string first(trimmed(literal.substr(0, hyphen)));
  std::string second(trimmed(literal.substr(hyphen + 1)));
  const std::string mark(markOf(first));
  if (mark.empty() && second.find('/') != std::string::npos) return first + " " + second;
  if (markOf(second).empty() && !mark.empty()) second += " " + mark;
  return first + " - (" + second + ")";
}

void Warnings::checkComposite(const Contents::TokenData& token) {
  const std::string literal = contents_.textAt(token.span);
  const std::string it = explained_.quoted(token.span);
  const std::size_t hyphen = findSeparator(literal), joint = findJoint(literal);
  const bool isLastMarked = !isDigit(literal.back());
  const bool hasWord = std::any_of(literal.begin(), literal.end(), isLetter);
  if (hyphen != std::string::npos)
    add(Kind::HyphenIsSeparator, token.span,
        it + " is one value: `-` only separates its parts, and subtracts nothing.",
        spelled(token.span, asDifference(literal, hyphen)));
  else if (hasWord && !isLastMarked)
    add(Kind::NumbersJoined, token.span, it + " is one value of two parts.",
        joint == std::string::npos
            ? std::string()
            : spelled(token.span, literal.substr(0, joint) + "^" + literal.substr(joint)));
  if (!contents_.symbolOf(token))
    add(Kind::NoCompositeSymbol, token.span,
        it + " is the plain number " + shortNumber(token.value) +
            ": no composite symbol gives it a unit.");
}

void Warnings::checkNode(std::uint32_t number) {
  const Contents::NodeData& node = contents_.nodes[number];
  if (node.kind == NodeKind::Operator) {
    if (number != contents_.refusedNode) checkPower(node);
  } else if (node.kind == NodeKind::Function && node.wasReached) {
    const FormulaSpan& function = tokenOf(node).span;
    if (contents_.textAt(function) == "log")
      add(Kind::LogarithmToBaseTen, function, "`log` is the logarithm to base 10.",
          spelled(function, "ln"));
    checkRounding(node, number);
  }
}

void Warnings::checkPower(const Contents::NodeData& node) {
  if (node.operands[1] == Contents::none || operatorOf(node) != '^') return;
  const Contents::NodeData &base = contents_.nodes[node.operands[0]],
                           &exponent = contents_.nodes[node.operands[1]];
  const Contents::TokenData& literal = tokenOf(base);
  if (base.kind != NodeKind::Number || !contents_.symbolOf(literal) || literal.form) return;
  if (literal.value == 1) return;
  const std::string text = contents_.textAt(literal.span);
  const std::size_t suffix = wordStart(text);
  const FormulaSpan& last = tokenOf(exponent).span;
  const bool isSimple = exponent.kind == NodeKind::Number && suffix > 0;
  add(Kind::PowerOfLiteral, literal.span,
      "The power is taken of all of " + explained_.quoted(literal.span) + ", number and unit.",
      isSimple ? spelled(ExplainedFormula::join(literal.span, last),
                         "(" + std::string(trimmed(text.substr(0, suffix))) + " * (1 " +
                             text.substr(suffix) + ")" + between(literal.span, last) +
                             contents_.textAt(last) + ")")
               : std::string());
}

/// The formula between two spans, such as an operator and the minus sign after it.
std::string Warnings::between(const FormulaSpan& first, const FormulaSpan& second) const {
  const bool isInFormula = first.endText == 0 && second.text == 0;
  return isInFormula ? explained_.formula().substr(first.end, second.begin - first.end) : "";
}

const Unit* Warnings::unitOf(std::uint32_t number) const {
  const Contents::NodeData* node = &contents_.nodes[number];
  while (node->kind == NodeKind::Parentheses) node = &contents_.nodes[node->operands[0]];
  const Symbol* const symbol = contents_.symbolOf(tokenOf(*node));
  return symbol ? &RecordAccess::unit(*symbol) : nullptr;
}

bool Warnings::isScale(std::uint32_t number) const {
  const Unit* const unit = unitOf(number);
  return unit && RecordAccess::absolute(*unit);
}

/// How many values on scales a node adds up: 1 for 20 °C, 2 for 20 °C + 5 °C, 1 for half of that, 0
/// for a difference. Other operations have none.
double Warnings::scalesOf(const Contents::NodeData& node, std::uint32_t number) const {
  if (node.kind == NodeKind::Number || node.kind == NodeKind::Symbol) return isScale(number);
  if (node.operands[0] == Contents::none) return 0;
  const double left = scales_[node.operands[0]];
  if (node.kind == NodeKind::Parentheses) return left;
  if (node.kind == NodeKind::Function)
    return contents_.nodes[node.operands[0]].powers == Contents::none ? 0 : left;
  if (node.operands[1] == Contents::none) return -left;
  const double right = scales_[node.operands[1]];
  const Contents::NodeData &first = contents_.nodes[node.operands[0]],
                           &second = contents_.nodes[node.operands[1]];
  switch (operatorOf(node)) {
    case '+':
      return left + right;
    case '-':
      return left - right;
    case '*':
      return second.powers == Contents::none  ? left * second.value
             : first.powers == Contents::none ? first.value * right
                                              : 0;
    case '/':
      return second.powers == Contents::none ? left / second.value : 0;
    default:
      return 0;
  }
}

/// If the number of scales in the result is neither 0 nor 1, warns of the first operation after
/// which that is so. Also warns of a difference that is requested on a scale.
void Warnings::checkScales() {
  const auto isOdd = [](double scales) {
    return !isNearZero(scales) && !areNearlyEqual(scales, 1);
  };
  scales_.resize(contents_.nodes.size());
  for (std::uint32_t number = 0; number < scales_.size(); ++number)
    scales_[number] = scalesOf(contents_.nodes[number], number);
  const bool wantsScale = explained_.unit && RecordAccess::absolute(*explained_.unit);
  const bool hasScale = std::find(scales_.begin(), scales_.end(), 1) != scales_.end();
  const bool isDifference = wantsScale && hasScale && isNearZero(scales_.back());
  if (!isOdd(scales_.back()) && !isDifference) return;
  for (std::uint32_t number = 0; number < scales_.size(); ++number) {
    const Contents::NodeData& node = contents_.nodes[number];
    const bool isCause = node.kind == NodeKind::Operator &&
                         (isOdd(scales_[number]) || (isDifference && operatorOf(node) == '-' &&
                                                     scales_[node.operands[0]] != 0));
    if (isCause) return addScaleWarning(node);
  }
}

void Warnings::addScaleWarning(const Contents::NodeData& node) {
  const bool isUnary = node.operands[1] == Contents::none;
  const FormulaSpan& span = tokenOf(node).span;
  if (!isUnary && (operatorOf(node) == '+' || operatorOf(node) == '-'))
    add(Kind::ScalesAdded, span,
        "Both sides are counted from absolute zero. A difference has a unit of its own.",
        asDifferenceOfScales(node.operands[1]));
  else
    add(Kind::ScaleMultiplied, span, "The value on the scale is counted from absolute zero.");
}

/// The formula with a literal on a scale, such as 5 °C, as the difference that its unit counts.
std::string Warnings::asDifferenceOfScales(std::uint32_t number) const {
  const Contents::NodeData& node = contents_.nodes[number];
  if (!hasSpellings() || node.kind != NodeKind::Number || !isScale(number)) return {};
  const auto* const parent = explained_.registries.units.objects.find(
      RecordAccess::parentUnit(*RecordAccess::absolute(*unitOf(number))));
  const std::string text = contents_.textAt(tokenOf(node).span);
  const std::string suffix = parent ? suffixOf(*parent, explained_.registries) : "";
  return suffix.empty() ? suffix
                        : spelled(tokenOf(node).span, text.substr(0, wordStart(text)) + suffix);
}

void Warnings::checkRounding(const Contents::NodeData& node, std::uint32_t number) {
  const std::string function = contents_.textAt(tokenOf(node).span);
  if (function.compare(0, 5, "round") != 0 || node.operands[0] == Contents::none) return;
  if (!isOutsideBase_[number] || !contents_.powersOf(node)) return;
  const Contents::NodeData& input = contents_.nodes[node.operands[0]];
  const Unit* const unit = unitOf(node.operands[0]);
  std::string spelling;
  const std::string suffix =
      hasSpellings() && unit ? suffixOf(*unit, explained_.registries) : std::string();
  if (input.kind == NodeKind::Number && !suffix.empty()) {
    const FormulaSpan& literal = tokenOf(input).span;
    const FormulaSpan& begin = tokenOf(node).span;
    spelling = spelled(ExplainedFormula::join(begin, contents_.tokens[input.token + 1].span),
                       "(" + contents_.textAt(begin) + between(begin, literal) +
                           contents_.textAt(literal) + " / 1 " + suffix + ") * 1 " + suffix + ")");
  }
  add(Kind::RoundsInBaseUnits, tokenOf(node).span,
      "`" + function + "` rounds the number of base units.", std::move(spelling));
}

/// Whether a unit has another size or zero than its base units.
bool countsOtherwise(const UnitTerms& terms) { return terms.factor != 1 || terms.offset != 0; }

/// Marks the nodes that have a unit of another size or zero than its base units at or below them.
void Warnings::findOutsideBase() {
  isOutsideBase_.resize(contents_.nodes.size());
  for (std::uint32_t number = 0; number < contents_.nodes.size(); ++number) {
    const Contents::NodeData& node = contents_.nodes[number];
    const Symbol* const symbol = contents_.symbolOf(tokenOf(node));
    isOutsideBase_[number] =
        symbol && countsOtherwise(explained_.units.termsOf(RecordAccess::unit(*symbol)));
    for (const std::uint32_t operand : node.operands)
      if (operand != Contents::none && isOutsideBase_[operand]) isOutsideBase_[number] = true;
  }
}

void Warnings::checkResult() {
  const FormulaSpan whole = {0, 0, 0, explained_.formula().size()};
  if (explained_.unit && contents_.resultPowers == Contents::none &&
      !explained_.units.termsOf(*explained_.unit).powers.empty())
    add(Kind::PlainNumber, whole,
        "The result is a plain number. It is taken to be in `" +
            shownText(RecordAccess::name(*explained_.unit)) + "`.");
  if (contents_.inverted) checkReciprocal();
  checkScales();
}

void Warnings::checkReciprocal() {
  const FormulaSpan whole = {0, 0, 0, explained_.formula().size()};
  const Contents::NodeData& root = contents_.nodes.back();
  const bool isQuotient = root.kind == NodeKind::Operator && operatorOf(root) == '/';
  if (!isQuotient || !isPlainLiteral(root.operands[0]) || !unitOf(root.operands[1]) ||
      contents_.nodes[root.operands[1]].kind != NodeKind::Number) {
    add(Kind::ReciprocalConverted, whole,
        "The result has the reciprocal dimension of the requested unit, so its reciprocal was "
        "taken.");
    return;
  }
  const FormulaSpan &left = tokenOf(contents_.nodes[root.operands[0]]).span,
                    &right = tokenOf(contents_.nodes[root.operands[1]]).span;
  const std::string divisor = contents_.textAt(right);
  const std::size_t suffix = wordStart(divisor);
  add(Kind::QuotientIsReciprocal, whole,
      "The unit belongs to the divisor " + explained_.quoted(right) +
          ", and the reciprocal of the result was taken.",
      spelled(ExplainedFormula::join(left, right),
              "(" + contents_.textAt(left) + between(left, right) +
                  std::string(trimmed(divisor.substr(0, suffix))) + ") " + divisor.substr(suffix)));
}

}  // namespace

void addWarnings(const ExplainedFormula& explained, Contents& out) {
  Warnings warnings(explained, out.warnings);
  for (const Contents::TokenData& token : out.tokens) warnings.checkToken(token);
  for (std::uint32_t node = 0; node < out.nodes.size(); ++node) warnings.checkNode(node);
  if (out.reason == FormulaReason::Done) warnings.checkResult();
  std::sort(out.warnings.begin(), out.warnings.end(), [](const auto& a, const auto& b) {
    return std::tie(a.span.text, a.span.begin, a.kind) <
           std::tie(b.span.text, b.span.begin, b.kind);
  });
}

}  // namespace Units
