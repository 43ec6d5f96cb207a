#include "formula/FormulaRun.h"

#include "formula/Evaluation.h"
#include "formula/Refusal.h"

#include <TrelvonUnits/Exceptions.h>
#include <TrelvonUnits/Limits.h>

#include <exception>
#include <stdexcept>
#include <typeinfo>
#include <utility>

using Units::FormulaSpan;

void FormulaRun::run(const std::string& formula, FormulaGoal goal, const Units::Unit* unit) {
  out_.span = {0, 0, 0, formula.size()};
  try {
    std::unique_ptr<Expression> root;
    FormulaReason reason = read(formula, root);
    if (reason == FormulaReason::Done) reason = evaluate(*root, goal, unit);
    if (reason == FormulaReason::Done) return;
    refuse(reason,
           reason == FormulaReason::PowerOfNoUnits ? Thrown::LogicError : Thrown::ParseException,
           messageOf(reason));
  } catch (const Units::ParseException& refusal) {
    if (isForeign_) throw;
    refuse(thrownReason_, Thrown::ParseException, refusal.what());
  } catch (const Units::IncompatibleUnitsException& refusal) {
    if (isForeign_) throw;
    refuse(FormulaReason::Other, Thrown::IncompatibleUnitsException, refusal.what());
  } catch (const std::logic_error& refusal) {
    if (isForeign_ || typeid(refusal) != typeid(std::logic_error)) throw;
    refuse(FormulaReason::Other, Thrown::LogicError, refusal.what());
  }
}

void FormulaRun::refuse(FormulaReason reason, Thrown thrown, const char* message) {
  out_.reason = reason;
  out_.exceptionClass = thrown;
  out_.message = message;
}

FormulaReason FormulaRun::read(const std::string& formula, std::unique_ptr<Expression>& root) {
  FormulaTokenizer tokenizer(
      formula, context_.symbols, context_.unitMath,
      [this](const std::string& name) { return replace(name); }, Units::maximumSubstitutions,
      context_.known);
  FormulaParser parser(arena_, context_.symbols, context_.unitMath, context_.units);
  tokenizer_ = &tokenizer;
  try {
    const FormulaReason reason = parseTokens(tokenizer, parser, root, *this);
    if (reason != FormulaReason::Done) out_.span = refusedSpan(reason, parser);
    return reason;
  } catch (const Units::ParseException&) {
    if (tokenizer.refusal() != FormulaReason::Done) thrownReason_ = tokenizer.refusal();
    out_.span = identifierSpan();
    throw;
  }
}

std::string FormulaRun::replace(const std::string& identifier) {
  std::string replacement = ask(identifier);
  if (replacement == identifier) return replacement;
  const FormulaSpan span = identifierSpan();
  spans_.replaced(span, tokenizer_->unread(), replacement.size() + 2);
  addReplacement(replacement, span);
  return replacement;
}

std::string FormulaRun::ask(const std::string& identifier) {
  try {
    return context_.resolver ? context_.resolver(identifier) : rejectIdentifier(identifier);
  } catch (const std::exception& refusal) {
    isForeign_ = typeid(refusal) != typeid(Units::ParseException);
    thrownReason_ = FormulaReason::UnknownIdentifier;
    throw;
  } catch (...) {
    isForeign_ = true;
    throw;
  }
}

/// Of the identifier that was read last.
FormulaSpan FormulaRun::identifierSpan() {
  return spans_.find(tokenizer_->lastStart(), tokenizer_->identifierSize());
}

FormulaSpan FormulaRun::refusedSpan(FormulaReason reason, const FormulaParser& parser) {
  if (reason == FormulaReason::NeverClosed) return spanOf(*parser.openToken());
  if (reason == FormulaReason::MissingParentheses && !hasEnded_) return spanOf(lastToken() - 1);
  if (reason == FormulaReason::MissingParentheses || !hasEnded_) return lastSpan();
  return {0, out_.span.end, 0, out_.span.end};
}

FormulaReason FormulaRun::evaluate(const Expression& root, FormulaGoal goal,
                                   const Units::Unit* unit) {
  addTree(root);
  EvaluatedValues values;
  const FormulaReason reason = root.walk(values, *this);
  if (reason == FormulaReason::Done) return finish(values.back(), goal, unit);
  out_.span = spanOf(current_->tokenNumber());
  return reason;
}

FormulaReason FormulaRun::finish(EvaluatedValue& result, FormulaGoal goal,
                                 const Units::Unit* unit) {
  addResult(result);
  FormulaReason reason = FormulaReason::Done;
  if (goal == FormulaGoal::InUnit) reason = countInUnit(result, *unit, context_.units, isInverted_);
  if (goal == FormulaGoal::Plain && !result.isUnitless()) reason = FormulaReason::HasUnits;
  if (reason == FormulaReason::Done) out_.value = result.value;
  return reason;
}
