#include "formula/FormulaParser.h"

#include "formula/BinaryOperatorExpression.h"
#include "formula/FunctionExpression.h"
#include "formula/NumberConstantExpression.h"
#include "formula/ParenExpression.h"
#include "formula/SymbolExpression.h"
#include "formula/UnaryOperatorExpression.h"
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

}  // namespace

bool parseFormula(std::string_view text, NodeArena& arena,
                  std::unique_ptr<Expression>& expressionOut, const Units::SymbolTexts& symbols,
                  const Units::UnitMath& unitMath, UnitTermsSource& units,
                  VariableResolver resolver) {
  FormulaTokenizer tokenizer(text, symbols, unitMath, std::move(resolver));
  FormulaParser parser(arena, symbols, unitMath, units);
  FormulaToken token;
  while (tokenizer.nextToken(token))
    if (!parser.take(token)) return false;
  return parser.finish(expressionOut);
}

bool FormulaParser::take(const FormulaToken& token) {
  if (state_ == State::BeforeOpenParen) {
    state_ = State::BeforeOperand;
    return token.type == FormulaTokenType::OpenParen;
  }
  switch (token.type) {
    case FormulaTokenType::Operator:
      return takeOperator(token.text);
    case FormulaTokenType::Function:
      return takeFunction(token.text);
    case FormulaTokenType::Number:
      return takeNumber(token);
    case FormulaTokenType::UnitSymbol:
      return takeUnitSymbol(token.text);
    case FormulaTokenType::OpenParen:
      return takeOpenParen();
    case FormulaTokenType::CloseParen:
      return takeCloseParen();
  }
  throw std::logic_error("legacy code dbgWarn: Unknown token type. Dresmond 8-May-2004");
}

bool FormulaParser::finish(std::unique_ptr<Expression>& expressionOut) {
  if (state_ != State::AfterOperand) return false;
  reduceOperators(operands_, operators_, 0);
  if (!operators_.empty()) return false;
  if (operands_.size() != 1) throwUnexpectedParseError();
  expressionOut = pop(operands_);
  return true;
}

bool FormulaParser::takeOperator(std::string_view spelling) {
  const bool isBinary = state_ == State::AfterOperand;
  return isBinary ? takeBinaryOperator(spelling) : takeUnaryOperator(spelling);
}

bool FormulaParser::takeBinaryOperator(std::string_view spelling) {
  const FormulaBinaryOperator op = unitMath_.getBinaryOperatorMap().find(spelling);
  if (op == FormulaBinaryOperator::None) throwUnexpectedParseError();  // all can be binary
  auto node = arena_.make<BinaryOperatorExpression>(op);
  reduceOperators(operands_, operators_, getPriority(*node));
  operators_.push_back(std::move(node));
  state_ = State::BeforeOperand;
  return true;
}

bool FormulaParser::takeUnaryOperator(std::string_view spelling) {
  const FormulaUnaryOperator op = unitMath_.getUnaryOperatorMap().find(spelling);
  if (op == FormulaUnaryOperator::None) {
    if (unitMath_.getBinaryOperatorMap().find(spelling) == FormulaBinaryOperator::None)
      throwUnexpectedParseError();
    return false;
  }
  operators_.push_back(arena_.make<UnaryOperatorExpression>(op));
  return true;
}

bool FormulaParser::takeFunction(std::string_view name) {
  if (state_ == State::AfterOperand) return false;
  const FormulaFunction function = unitMath_.getFunctionMap().find(name);
  if (function == FormulaFunction::None) throwUnexpectedParseError();
  operators_.push_back(arena_.make<FunctionExpression>(function));
  state_ = State::BeforeOpenParen;
  return true;
}

bool FormulaParser::takeNumber(const FormulaToken& token) {
  if (state_ == State::AfterOperand) return false;
  double value = token.value;
  const Units::Symbol* symbol = token.symbol;
  if (endsInSeparator(symbol) && !Units::parseValueText(token.text, &value, &symbol, symbols_))
    throwUnexpectedParseError();
  // The sign belongs to the whole literal: -5' 6" is minus five feet six inches.
  if (dropUnaryMinus()) value = -value;
  operands_.push_back(symbol ? arena_.make<NumberConstantExpression>(
                                   value, units_.termsOf(Units::RecordAccess::unit(*symbol)))
                             : arena_.make<NumberConstantExpression>(value));
  state_ = State::AfterOperand;
  return true;
}

bool FormulaParser::dropUnaryMinus() {
  if (operators_.empty()) return false;
  const auto* const top = nodeAs<UnaryOperatorExpression>(operators_.back().get());
  if (!top || top->getOperator() != FormulaUnaryOperator::Negate) return false;
  operators_.pop_back();
  return true;
}

bool FormulaParser::takeUnitSymbol(std::string_view text) {
  const Units::Symbol* const symbol = symbols_.withText(text);
  if (!symbol) return false;
  if (Units::RecordAccess::prefixOrSuffix(*symbol)->getPlacement() == Units::Placement::Suffix) {
    if (state_ == State::BeforeOperand || operands_.empty()) return false;
    operands_.push_back(arena_.make<SymbolExpression>(*symbol, units_, pop(operands_)));
  } else {
    if (state_ == State::AfterOperand) return false;
    operators_.push_back(arena_.make<SymbolExpression>(*symbol, units_));
    state_ = State::BeforeOpenParen;
  }
  return true;
}

bool FormulaParser::takeOpenParen() {
  if (state_ == State::AfterOperand) return false;
  auto* const justOpened =
      operators_.empty() ? nullptr : nodeAs<ParenExpression>(operators_.back().get());
  if (justOpened)
    justOpened->openAnother();
  else
    operators_.push_back(arena_.make<ParenExpression>());
  return true;
}

bool FormulaParser::takeCloseParen() {
  if (state_ == State::AfterOperand) reduceOperators(operands_, operators_, 0);
  if (operators_.empty() || !close(*operators_.back())) return false;
  state_ = State::AfterOperand;
  return true;
}

/// Turns an opener and its contents into an operand. Returns false if `opener` does not open a
/// parenthesis, or if its parentheses are empty, which only a function's may be: "pi()".
bool FormulaParser::close(Expression& opener) {
  const bool isEmpty = state_ == State::BeforeOperand;
  if (auto* const paren = nodeAs<ParenExpression>(&opener)) {
    if (isEmpty) return false;
    if (!paren->closeOne()) return true;  // other parentheses of this node are still open
    paren->setInner(popOperand(operands_));
  } else if (auto* const symbol = nodeAs<SymbolExpression>(&opener)) {
    if (isEmpty) return false;
    symbol->setOperand(popOperand(operands_));
  } else if (auto* const function = nodeAs<FunctionExpression>(&opener)) {
    if (!isEmpty) function->addInput(popOperand(operands_));
  } else {
    if (!isEmpty) throwUnexpectedParseError();
    return false;
  }
  operands_.push_back(pop(operators_));
  return true;
}
