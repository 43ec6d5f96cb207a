#include "explaining/ExplainedFormula.h"
#include "explaining/NearNames.h"
#include "formula/SpellingTables.h"
#include "model/Characters.h"
#include "model/RecordAccess.h"
#include "text/ShortNumber.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <utility>

namespace Units {

namespace {

using Contents = ExplanationContents;
using NodeKind = FormulaExplanation::NodeKind;
using TokenKind = FormulaExplanation::TokenKind;

bool isGroupOfDigits(std::string_view text) { return countLeading<isDigit>(text) == 3; }
bool beginsWithDigit(std::string_view text) { return !text.empty() && isDigit(text.front()); }
bool beginsAsWord(std::string_view text) { return !text.empty() && !isDigit(text.front()); }
bool isAnything(std::string_view) { return true; }

/// Notations that people bring from elsewhere. A text is rewritten if the last byte before it and
/// the text after it pass the tests.
constexpr struct {
  const char* from;
  const char* to;
  bool (*precedes)(std::string_view);
  bool (*follows)(std::string_view);
} rewritings[] = {
    {",", "", beginsWithDigit, isGroupOfDigits},     // 1,000 m
    {",", ".", beginsWithDigit, beginsWithDigit},    // 1,5 m
    {" ", "", beginsWithDigit, isGroupOfDigits},     // 1 000 m
    {"x", " * ", beginsWithDigit, beginsWithDigit},  // 2x4
    {"\xE2\x88\x92", "-", isAnything, isAnything},   // a minus sign from a document
    {" \xC3\x97 ", " * ", isAnything, isAnything},
    {"\xC3\x97", " * ", isAnything, isAnything},
    {" x ", " * ", isAnything, isAnything},         // 10 mm x 2
    {" ", " + ", beginsAsWord, beginsWithDigit},    // 1 h 30 min
    {" ", "\xC2\xB7", beginsAsWord, beginsAsWord},  // 12 N m
    {" ", " * 1 ", beginsAsWord, beginsAsWord},
    {" ", "", beginsAsWord, beginsAsWord},  // 1 in Hg
};

template <class Rewriting>
std::string rewrite(std::string_view text, const Rewriting& rewriting) {
  const std::string_view from = rewriting.from;
  std::string out;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t end = i + from.size();
    const bool applies = text.compare(i, from.size(), from) == 0 &&
                         rewriting.precedes(text.substr(i == 0 ? 0 : i - 1, i == 0 ? 0 : 1)) &&
                         rewriting.follows(text.substr(end));
    out += applies ? std::string_view(rewriting.to) : text.substr(i, 1);
    i = applies ? end : i + 1;
  }
  return out;
}

/// Collects formulas in which the refused part is written in another way.
class Candidates {
 public:
  explicit Candidates(const ExplainedFormula& explained)
      : explained_(explained),
        contents_(explained.contents),
        it_(contents_.textAt(contents_.span)) {}

  std::vector<std::string> collect() &&;

 private:
  void rewriteIdentifier();
  void rewriteMissingParentheses();
  void rewriteUnitsDiffer();
  void rewritePower();
  void rewriteInput();
  void addWithoutLineBreak();
  void closeAll();

  /// Adds the formula with the refused part, or another one, replaced.
  void add(const std::string& replacement) { add(contents_.span, replacement); }
  void add(const FormulaSpan& span, const std::string& replacement) {
    if (span.text == 0 && span.endText == 0)
      formulas_.push_back(explained_.with(span, replacement));
  }

  const Contents::NodeData& operand(std::size_t side) const {
    return contents_.nodes[contents_.nodes[contents_.refusedNode].operands[side]];
  }

  const ExplainedFormula& explained_;
  const Contents& contents_;
  const std::string it_;  // what was refused
  std::vector<std::string> formulas_;
};

std::vector<std::string> Candidates::collect() && {
  switch (contents_.reason) {
    case FormulaReason::UnknownIdentifier:
      rewriteIdentifier();
      break;
    case FormulaReason::MissingOperand:
      if (it_ == "+") add("");
      break;
    case FormulaReason::NotAfterOperand:
      add(" * " + it_);
      break;
    case FormulaReason::NeverClosed:
      closeAll();
      break;
    case FormulaReason::NeverOpened:
      add("");
      break;
    case FormulaReason::MissingParentheses:
      if (it_ == "pi") add("pi()");
      rewriteMissingParentheses();
      break;
    case FormulaReason::SuffixWithoutOperand:
      add("1 " + it_);
      break;
    case FormulaReason::UnitsDiffer:
      rewriteUnitsDiffer();
      break;
    case FormulaReason::PowerOfNoUnits:
      rewritePower();
      break;
    case FormulaReason::InputHasUnits:
      rewriteInput();
      break;
    default:
      break;
  }
  return std::move(formulas_);
}

void Candidates::rewriteIdentifier() {
  for (const auto& rewriting : rewritings) {
    const std::string rewritten = rewrite(it_, rewriting);
    if (rewritten != it_) add(rewritten);
  }
  const std::size_t word = wordStart(it_);
  if (it_.find_first_of(" 0123456789", word) == std::string::npos)
    for (const std::string& name : nearNames(it_, explained_.registries))
      add(it_.substr(0, word) + name);
  const std::size_t space = it_.find(' ');
  if (FunctionMap().find(it_.substr(0, space)) != FormulaFunction::None)  // sqrt 4
    add(it_.substr(0, space) + "(" + it_.substr(space + 1) + ")");
  if (word > 0 && FunctionMap().find(it_.substr(word)) != FormulaFunction::None)  // 2 sqrt(3)
    add(it_.substr(0, word) + (it_[word - 1] == ' ' ? "* " : " * ") + it_.substr(word));
  addWithoutLineBreak();
}

/// A literal without the tabs and line breaks after it.
void Candidates::addWithoutLineBreak() {
  FormulaSpan span = contents_.span;
  const std::string& text = contents_.textOf(span.text);
  span.end = std::min(text.find_first_not_of(" \t\n", span.end), text.size());
  if (span.end > contents_.span.end) add(span, it_ + (span.end < text.size() ? " " : ""));
}

void Candidates::closeAll() {
  const auto count = [&](TokenKind kind) {
    return std::count_if(contents_.tokens.begin(), contents_.tokens.end(),
                         [=](const Contents::TokenData& token) { return token.kind == kind; });
  };
  const auto open = count(TokenKind::OpenParenthesis) - count(TokenKind::CloseParenthesis);
  formulas_.push_back(explained_.formula() + std::string(static_cast<std::size_t>(open), ')'));
}

/// $ 20 * 2: the number after a prefix symbol.
void Candidates::rewriteMissingParentheses() {
  const Contents::TokenData& last = contents_.tokens.back();
  if (last.kind == TokenKind::Number) add(last.span, "(" + contents_.textAt(last.span) + ")");
}

void Candidates::rewriteUnitsDiffer() {
  const Contents::NodeData &left = operand(0), &right = operand(1);
  const FormulaSpan rightSpan = contents_.tokens[right.token].span;
  const std::string rightText = contents_.textAt(rightSpan);
  if (right.kind != NodeKind::Number) return;
  const Symbol* const leftSymbol = contents_.symbolOf(contents_.tokens[left.token]);
  const Unit* const leftUnit = leftSymbol ? &RecordAccess::unit(*leftSymbol) : nullptr;
  const auto* const scale = leftUnit ? RecordAccess::absolute(*leftUnit) : nullptr;
  if (right.powers == Contents::none && leftUnit) {  // 3 ft + 1
    const Unit& unit =
        scale ? lookUp(explained_.registries.units.objects, RecordAccess::parentUnit(*scale))
              : *leftUnit;
    const std::string suffix = suffixOf(unit, explained_.registries);
    if (!suffix.empty()) add(rightSpan, rightText + " " + suffix);
  } else if (left.powers == Contents::none) {  // 1 + 5%
    add(rightSpan, "1 * " + rightText);
  } else if (contents_.refusedNode + 1 == contents_.nodes.size() && !scale &&
             left.kind == NodeKind::Number) {  // 5 m + 50%
    add(ExplainedFormula::join(contents_.span, rightSpan),
        "* (1 " + it_ + " 1 * " + rightText + ")");
  }
}

/// 5%^2: the base as a plain number.
void Candidates::rewritePower() {
  const Contents::NodeData& base = operand(0);
  if (base.kind == NodeKind::Number)
    add(contents_.tokens[base.token].span, shortNumber(base.value));
}

/// sin(30°): a literal divided by its primitive unit.
void Candidates::rewriteInput() {
  const Contents::NodeData* input = &operand(0);
  const auto* const powers = contents_.powersOf(*input);
  if (input->kind != NodeKind::Number || !powers || powers->size() != 1) return;
  const FormulaSpan span = contents_.tokens[input->token].span;
  const std::string suffix = suffixOf(powers->front().first, explained_.registries);
  if (!suffix.empty()) add(span, contents_.textAt(span) + " / 1 " + suffix);
}

}  // namespace

std::vector<std::string> nearFormulas(const ExplainedFormula& explained) {
  return Candidates(explained).collect();
}

}  // namespace Units
