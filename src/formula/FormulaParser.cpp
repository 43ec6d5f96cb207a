#include "formula/FormulaParser.h"

#include "formula/BinaryOperatorExpression.h"
#include "formula/FunctionExpression.h"
#include "formula/NumberConstantExpression.h"
#include "formula/ParenExpression.h"
#include "formula/SymbolExpression.h"
#include "formula/UnaryOperatorExpression.h"
#include "formula/VariableExpression.h"
#include "model/Characters.h"
#include "model/RecordAccess.h"
#include "text/ValueText.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace {

/// Whether cutting off trailing separators may change how a literal with this symbol is read.
bool endsInSeparator(const Units::Symbol* symbol) {
  const Units::PrefixOrSuffix* const shown =
      symbol ? Units::RecordAccess::prefixOrSuffix(*symbol) : nullptr;
  return shown && Units::isSeparator(Units::RecordAccess::text(*shown).back());
}

struct NoTokenWatch {
  void onToken(const FormulaToken&) const {}
  void onEnd() const {}
};

}  // namespace

FormulaReason parseFormula(std::string_view text, NodeArena& arena,
                           std::unique_ptr<Expression>& expressionOut,
                           const Units::SymbolTexts& symbols, const Units::UnitMath& unitMath,
                           UnitTermsSource& units, VariableResolver resolver) {
  FormulaTokenizer tokenizer(text, symbols, unitMath, std::move(resolver));
  FormulaParser parser(arena, symbols, unitMath, units);
  return parseTokens(tokenizer, parser, expressionOut, NoTokenWatch());
}

void FormulaParser::throwUnknownToken() {
  throw std::logic_error("legacy code dbgWarn: Unknown token type. Dresmond 8-May-2004");
}

FormulaReason FormulaParser::finish(std::unique_ptr<Expression>& expressionOut) {
  if (state_ == State::BeforeOpenParen) return FormulaReason::MissingParentheses;
  if (state_ == State::BeforeOperand) return FormulaReason::MissingOperand;
  reduceOperators(operands_, operators_, 0);
  if (!operators_.empty()) return FormulaReason::NeverClosed;
  if (operands_.size() != 1) throwUnexpectedParseError();
  expressionOut = pop(operands_);
  return FormulaReason::Done;
}

std::optional<std::uint32_t> FormulaParser::openToken() const {
  if (operators_.empty()) return std::nullopt;
  return operators_.top().tokenNumber();
}

template <class Node, class... Arguments>
std::unique_ptr<Node> FormulaParser::make(Arguments&&... arguments) {
  auto node = arena_.make<Node>(std::forward<Arguments>(arguments)...);
  node->setTokenNumber(tokenCount_ - 1);
  return node;
}

FormulaReason FormulaParser::takeOperator(std::string_view spelling) {
  const bool isBinary = state_ == State::AfterOperand;
  return isBinary ? takeBinaryOperator(spelling) : takeUnaryOperator(spelling);
}

FormulaReason FormulaParser::takeBinaryOperator(std::string_view spelling) {
  const FormulaBinaryOperator op = unitMath_.getBinaryOperatorMap().find(spelling);
  if (op == FormulaBinaryOperator::None) throwUnexpectedParseError();  // all can be binary
  auto node = make<BinaryOperatorExpression>(op);
  reduceOperators(operands_, operators_, getPriority(*node));
  operators_.push(std::move(node));
  state_ = State::BeforeOperand;
  return FormulaReason::Done;
}

FormulaReason FormulaParser::takeUnaryOperator(std::string_view spelling) {
  const FormulaUnaryOperator op = unitMath_.getUnaryOperatorMap().find(spelling);
  if (op == FormulaUnaryOperator::None) {
    if (unitMath_.getBinaryOperatorMap().find(spelling) == FormulaBinaryOperator::None)
      throwUnexpectedParseError();
    return FormulaReason::MissingOperand;
  }
  operators_.push(make<UnaryOperatorExpression>(op));
  return FormulaReason::Done;
}

FormulaReason FormulaParser::takeFunction(std::string_view name) {
  if (state_ == State::AfterOperand) return FormulaReason::NotAfterOperand;
  const FormulaFunction function = unitMath_.getFunctionMap().find(name);
  if (function == FormulaFunction::None) throwUnexpectedParseError();
  operators_.push(make<FunctionExpression>(function));
  state_ = State::BeforeOpenParen;
  return FormulaReason::Done;
}

FormulaReason FormulaParser::takeNumber(const FormulaToken& token) {
  if (state_ == State::AfterOperand) return FormulaReason::NotAfterOperand;
  double value = token.value;
  const Units::Symbol* symbol = token.symbol;
  if (endsInSeparator(symbol) && !Units::parseValueText(token.text, &value, &symbol, symbols_))
    throwUnexpectedParseError();
  // The sign belongs to the whole literal: -5' 6" is minus five feet six inches.
  if (dropUnaryMinus()) value = -value;
  operands_.push(symbol ? make<NumberConstantExpression>(
                              value, units_.termsOf(Units::RecordAccess::unit(*symbol)))
                        : make<NumberConstantExpression>(value));
  state_ = State::AfterOperand;
  return FormulaReason::Done;
}

bool FormulaParser::dropUnaryMinus() {
  if (operators_.empty()) return false;
  const auto* const top = nodeAs<UnaryOperatorExpression>(&operators_.top());
  if (!top || top->getOperator() != FormulaUnaryOperator::Negate) return false;
  operators_.pop();
  return true;
}

FormulaReason FormulaParser::takeUnitSymbol(std::string_view text) {
  const Units::Symbol* const symbol = symbols_.withText(text);
  if (!symbol) return FormulaReason::UnusableSymbol;
  if (Units::RecordAccess::prefixOrSuffix(*symbol)->getPlacement() == Units::Placement::Suffix) {
    if (state_ == State::BeforeOperand || operands_.empty())
      return FormulaReason::SuffixWithoutOperand;
    operands_.push(make<SymbolExpression>(*symbol, units_, pop(operands_)));
  } else {
    if (state_ == State::AfterOperand) return FormulaReason::NotAfterOperand;
    operators_.push(make<SymbolExpression>(*symbol, units_));
    state_ = State::BeforeOpenParen;
  }
  return FormulaReason::Done;
}

FormulaReason FormulaParser::takeOpenParen() {
  if (state_ == State::AfterOperand) return FormulaReason::NotAfterOperand;
  auto* const justOpened =
      operators_.empty() ? nullptr : nodeAs<ParenExpression>(&operators_.top());
  if (!justOpened) return pushParen();
  justOpened->openAnother();
  return FormulaReason::Done;
}

FormulaReason FormulaParser::pushParen() {
  operators_.push(make<ParenExpression>());
  return FormulaReason::Done;
}

/// Closes one of several adjacent parentheses at once: there is nothing to give operands to.
FormulaReason FormulaParser::takeCloseParen() {
  auto* const last = state_ != State::AfterOperand || operators_.empty()
                         ? nullptr
                         : nodeAs<ParenExpression>(&operators_.top());
  return last && last->closeOneOfMany() ? FormulaReason::Done : closeLast();
}

FormulaReason FormulaParser::closeLast() {
  if (state_ == State::AfterOperand) reduceOperators(operands_, operators_, 0);
  if (operators_.empty())
    return operands_.empty() ? FormulaReason::MissingOperand : FormulaReason::NeverOpened;
  const FormulaReason reason = close(operators_.top());
  if (reason == FormulaReason::Done) state_ = State::AfterOperand;
  return reason;
}

/// Turns an opener and its contents into an operand. Refuses an operator that has no right operand,
/// and empty parentheses, which only a function may have: "pi()".
FormulaReason FormulaParser::close(Expression& opener) {
  const bool isEmpty = state_ == State::BeforeOperand;
  if (auto* const paren = nodeAs<ParenExpression>(&opener)) {
    if (isEmpty) return FormulaReason::EmptyParentheses;
    if (paren->closeOneOfMany()) return FormulaReason::Done;
    paren->setInner(popOperand(operands_));
  } else if (auto* const symbol = nodeAs<SymbolExpression>(&opener)) {
    if (isEmpty) return FormulaReason::EmptyParentheses;
    symbol->setOperand(popOperand(operands_));
  } else if (auto* const function = nodeAs<FunctionExpression>(&opener)) {
    if (!isEmpty) function->addInput(popOperand(operands_));
  } else {
    if (!isEmpty) throwUnexpectedParseError();
    return FormulaReason::MissingOperand;
  }
  operands_.push(operators_.pop());
  return FormulaReason::Done;
}

/// Like a replacement, which has its own parentheses, even after a prefix symbol.
FormulaReason FormulaParser::takeVariable(const VariableValue& value) {
  if (state_ == State::AfterOperand) return FormulaReason::NotAfterOperand;
  const bool isEnclosed = state_ == State::BeforeOpenParen;
  operands_.push(make<VariableExpression>(value));
  state_ = State::AfterOperand;
  return isEnclosed ? closeLast() : FormulaReason::Done;
}
