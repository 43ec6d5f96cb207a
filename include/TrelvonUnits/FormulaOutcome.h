#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/FormulaExplanation.h>
#include <TrelvonUnits/FormulaReason.h>
#include <TrelvonUnits/UnitsEngine.h>
#include <TrelvonUnits/VariableResolver.h>

#include <limits>
#include <string>

namespace Units {

/// The outcome of a formula: its value, or why and where it was refused. Its members are part of
/// the binary interface and never change.
struct FormulaOutcome {
  double value = std::numeric_limits<double>::quiet_NaN();  ///< NaN if the formula was refused.
  FormulaReason reason = FormulaReason::Done;               ///< Done if there is a value.
  /// The class of the exception that the engine would throw.
  FormulaExplanation::ExceptionClass exceptionClass = FormulaExplanation::ExceptionClass::None;
  std::string message;  ///< Exactly that of the engine's exception.
  /// The bytes of the formula that were refused. If they are in a text that replaced a variable,
  /// the span is that of the variable. It is the whole formula if the result does not fit what was
  /// requested, or if nothing was refused.
  FormulaSpan span;
};

/// Evaluates a formula as `UnitsEngine::evaluateExpressionInUnit` does, but returns a refusal, with
/// its place in the formula, instead of throwing it.
///
/// This takes about as long as evaluating, even if the formula is refused. `explainFormula` also
/// gives a sentence, suggestions and the reading, but takes a few times as long.
///
/// The resolver is called as the engine calls it. If it throws a ParseException, that is a refusal.
/// Any other exception reaches the caller, even one of a class derived from ParseException. An
/// empty resolver rejects every identifier.
///
/// For an engine that the host implements, all definitions are first copied through its public
/// operations, and the library's own engine evaluates. Exceptions of these operations reach the
/// caller.
///
/// @param engine      any engine; only its const operations are called.
/// @param unitTypeId  type id of a stored unit.
/// @param formula     any bytes.
/// @param resolver    as for `evaluateExpressionInUnit`.
/// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit.
/// @throws std::bad_alloc
TRELVONUNITS_API FormulaOutcome tryFormula(const UnitsEngine& engine, const std::string& unitTypeId,
                                           const std::string& formula, VariableResolver resolver);

/// The same for a plain number, as `UnitsEngine::evaluateUnitlessExpression`.
TRELVONUNITS_API FormulaOutcome tryUnitlessFormula(const UnitsEngine& engine,
                                                   const std::string& formula,
                                                   VariableResolver resolver);

}  // namespace Units
