#pragma once

#include "formula/FormulaTokenizer.h"
#include "formula/NodeArena.h"
#include "formula/OperatorReduction.h"
#include "formula/UnitMath.h"
#include "formula/UnitTerms.h"
#include "model/SymbolTexts.h"

#include <TrelvonUnits/VariableResolver.h>

#include <cstddef>
#include <memory>
#include <string_view>

/// Builds the tree of a formula.
///
/// @param arena          allocates the tree's nodes.
/// @param expressionOut  set to the root on success.
/// @param resolver       returns the text that replaces an identifier.
/// @return  false if the text is not a formula.
/// @throws Units::ParseException  as FormulaTokenizer::nextToken.
bool parseFormula(std::string_view text, NodeArena& arena,
                  std::unique_ptr<Expression>& expressionOut, const Units::SymbolTexts& symbols,
                  const Units::UnitMath& unitMath, UnitTermsSource& units,
                  VariableResolver resolver);

/// An operator-precedence parser: builds a tree from tokens with two stacks.
class FormulaParser {
 public:
  FormulaParser(NodeArena& arena, const Units::SymbolTexts& symbols,
                const Units::UnitMath& unitMath, UnitTermsSource& units)
      : arena_(arena), symbols_(symbols), unitMath_(unitMath), units_(units) {
    constexpr std::size_t usualDepth = 8;  // tuning: enough for most formulas
    operands_.reserve(usualDepth);
    operators_.reserve(usualDepth);
  }

  /// Returns false if no formula continues with this token.
  bool take(const FormulaToken& token);

  /// Sets the root of the tree. Returns false if the formula is incomplete.
  bool finish(std::unique_ptr<Expression>& expressionOut);

 private:
  enum class State {
    BeforeOperand,
    AfterOperand,
    BeforeOpenParen,  // after a function or a prefix symbol, which counts as the parenthesis
  };

  bool takeOperator(std::string_view spelling);
  bool takeBinaryOperator(std::string_view spelling);
  bool takeUnaryOperator(std::string_view spelling);
  bool takeFunction(std::string_view name);
  bool takeNumber(const FormulaToken& token);
  bool takeUnitSymbol(std::string_view text);
  bool takeOpenParen();
  bool takeCloseParen();
  bool close(Expression& opener);
  bool dropUnaryMinus();

  NodeArena& arena_;
  const Units::SymbolTexts& symbols_;
  const Units::UnitMath& unitMath_;
  UnitTermsSource& units_;
  State state_ = State::BeforeOperand;
  ExpressionStack operands_;
  ExpressionStack operators_;
};
