#pragma once

#include "formula/FormulaTokenizer.h"
#include "formula/NodeArena.h"
#include "formula/OperatorReduction.h"
#include "formula/UnitMath.h"
#include "formula/UnitTerms.h"
#include "model/SymbolTexts.h"

#include <TrelvonUnits/VariableResolver.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

/// Builds the tree of a formula.
///
/// @param arena          allocates the tree's nodes.
/// @param expressionOut  set to the root on success.
/// @param resolver       returns the text that replaces an identifier.
/// @return  why the text is not a formula.
/// @throws Units::ParseException  as FormulaTokenizer::nextToken.
FormulaReason parseFormula(std::string_view text, NodeArena& arena,
                           std::unique_ptr<Expression>& expressionOut,
                           const Units::SymbolTexts& symbols, const Units::UnitMath& unitMath,
                           UnitTermsSource& units, VariableResolver resolver);

/// An operator-precedence parser: builds a tree from tokens with two stacks.
class FormulaParser {
 public:
  FormulaParser(NodeArena& arena, const Units::SymbolTexts& symbols,
                const Units::UnitMath& unitMath, UnitTermsSource& units)
      : arena_(arena), symbols_(symbols), unitMath_(unitMath), units_(units) {}

  /// Returns why no formula continues with this token. After a refusal, the parser must not be
  /// used.
  FormulaReason take(const FormulaToken& token);

  /// Sets the root of the tree. Returns why the formula is incomplete.
  FormulaReason finish(std::unique_ptr<Expression>& expressionOut);

  /// The number of the token, from 0, of the last operator or parenthesis that waits for an operand
  /// or for its end.
  std::optional<std::uint32_t> openToken() const;

 private:
  enum class State {
    BeforeOperand,
    AfterOperand,
    BeforeOpenParen,  // after a function or a prefix symbol, which counts as the parenthesis
  };

  [[noreturn]] static void throwUnknownToken();

  FormulaReason takeOperator(std::string_view spelling);
  FormulaReason takeBinaryOperator(std::string_view spelling);
  FormulaReason takeUnaryOperator(std::string_view spelling);
  FormulaReason takeFunction(std::string_view name);
  FormulaReason takeNumber(const FormulaToken& token);
  FormulaReason takeUnitSymbol(std::string_view text);
  FormulaReason takeOpenParen();
  FormulaReason pushParen();
  FormulaReason takeCloseParen();
  FormulaReason closeLast();
  FormulaReason close(Expression& opener);
  FormulaReason takeVariable(const VariableValue& value);
  bool dropUnaryMinus();

  /// Makes a node for the token that is being taken.
  template <class Node, class... Arguments>
  std::unique_ptr<Node> make(Arguments&&... arguments);

  NodeArena& arena_;
  const Units::SymbolTexts& symbols_;
  const Units::UnitMath& unitMath_;
  UnitTermsSource& units_;
  State state_ = State::BeforeOperand;
  ExpressionStack operands_;
  ExpressionStack operators_;
  std::uint32_t tokenCount_ = 0;  // including the one that is being taken
};

inline FormulaReason FormulaParser::take(const FormulaToken& token) {
  ++tokenCount_;
  if (state_ == State::BeforeOpenParen) {
    if (token.type == FormulaTokenType::Variable) return takeVariable(*token.variable);
    if (token.type != FormulaTokenType::OpenParen) return FormulaReason::MissingParentheses;
    state_ = State::BeforeOperand;
    return FormulaReason::Done;
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
    case FormulaTokenType::Variable:
      return takeVariable(*token.variable);
  }
  throwUnknownToken();
}

/// Builds a tree from all tokens of a tokenizer.
///
/// @param watch  `watch.onToken(token)` is called before the parser takes a token, `watch.onEnd()`
///               after the last one.
template <class Watch>
FormulaReason parseTokens(FormulaTokenizer& tokenizer, FormulaParser& parser,
                          std::unique_ptr<Expression>& expressionOut, Watch&& watch) {
  FormulaToken token;
  while (tokenizer.nextToken(token)) {
    watch.onToken(token);
    const FormulaReason reason = parser.take(token);
    if (reason != FormulaReason::Done) return reason;
  }
  watch.onEnd();
  return parser.finish(expressionOut);
}
