#pragma once

#include "formula/Expression.h"
#include "formula/FormulaParser.h"
#include "formula/FormulaTokenizer.h"
#include "formula/KnownVariables.h"
#include "formula/NodeArena.h"
#include "formula/SpanFinder.h"
#include "formula/UnitMath.h"
#include "formula/UnitTerms.h"
#include "model/SymbolTexts.h"

#include <TrelvonUnits/FormulaOutcome.h>
#include <TrelvonUnits/VariableResolver.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

/// What a formula is asked for.
enum class FormulaGoal {
  InUnit,     // a value in a unit
  Plain,      // a plain number
  Primitive,  // a value in primitive units, whichever
};

/// What a formula is read with.
struct FormulaContext {
  const VariableResolver& resolver;
  const Units::SymbolTexts& symbols;
  const Units::UnitMath& unitMath;
  UnitTermsSource& units;
  KnownVariables* known;  // null if all identifiers are replaced
};

/// Reads and evaluates one formula as evaluateExpressionInUnit and evaluateUnitlessExpression do, and
/// tells what came of it. What is noted on the way is up to a derived class. It must note where tokens
/// are: only after all of them were read is it known which node is refused.
class FormulaRun {
 public:
  FormulaRun(const FormulaRun&) = delete;
  FormulaRun& operator=(const FormulaRun&) = delete;

  /// @param unit  the requested unit. Null except for InUnit.
  /// @throws whatever the resolver throws, unless it is a Units::ParseException.
  void run(const std::string& formula, FormulaGoal goal, const Units::Unit* unit);

  // Watches the reading and the evaluation.
  void onToken(const FormulaToken& token) {
    ++tokenCount_;
    lastSize_ = token.text.size();
    addToken(token);
  }
  void onEnd() { hasEnded_ = true; }
  void before(const Expression& node) { current_ = &node; }
  void after(const Expression&, EvaluatedValues& values) { addValue(values.back()); }

 protected:
  FormulaRun(const FormulaContext& context, std::size_t formulaSize, SpanFinder::Spans spans,
             Units::FormulaOutcome& out)
      : context_(context), out_(out), spans_(formulaSize, spans) {}
  ~FormulaRun() = default;

  virtual void addToken(const FormulaToken& token) = 0;
  /// @param token  neither a literal nor a closing parenthesis, which are refused at once or never.
  virtual Units::FormulaSpan spanOf(std::uint32_t token) const = 0;
  virtual void addReplacement(const std::string& /*text*/, const Units::FormulaSpan& /*of*/) {}
  virtual void addTree(const Expression& /*root*/) {}
  virtual void addValue(EvaluatedValue& /*ofNextNode*/) {}
  virtual void addResult(EvaluatedValue& /*beforeItIsCounted*/) {}

  /// Of the token that was read last.
  Units::FormulaSpan lastSpan() { return spans_.find(tokenizer_->lastStart(), lastSize_); }
  std::uint32_t lastToken() const { return tokenCount_ - 1; }

  const FormulaContext context_;
  LocalNodeArena arena_;
  bool isInverted_ = false;  // the value was converted to the reciprocal dimension

 private:
  using Thrown = Units::FormulaExplanation::ExceptionClass;

  FormulaReason read(const std::string& formula, std::unique_ptr<Expression>& root);
  FormulaReason evaluate(const Expression& root, FormulaGoal goal, const Units::Unit* unit);
  FormulaReason finish(EvaluatedValue& result, FormulaGoal goal, const Units::Unit* unit);
  std::string replace(const std::string& identifier);
  std::string ask(const std::string& identifier);
  Units::FormulaSpan identifierSpan();
  Units::FormulaSpan refusedSpan(FormulaReason reason, const FormulaParser& parser);
  void refuse(FormulaReason reason, Thrown thrown, const char* message);

  Units::FormulaOutcome& out_;
  SpanFinder spans_;
  const FormulaTokenizer* tokenizer_ = nullptr;
  const Expression* current_ = nullptr;                // the node that is evaluated
  FormulaReason thrownReason_ = FormulaReason::Other;  // of a ParseException
  bool isForeign_ = false;                             // the resolver threw what is no refusal
  bool hasEnded_ = false;                              // all tokens were taken
  std::uint32_t tokenCount_ = 0;
  std::size_t lastSize_ = 0;  // of the token that was read last
};
