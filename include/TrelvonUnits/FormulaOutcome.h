#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/FormulaExplanation.h>
#include <TrelvonUnits/FormulaReason.h>
#include <TrelvonUnits/UnitsEngine.h>
#include <TrelvonUnits/VariableResolver.h>

#include <limits>
#include <string>

namespace Units {

/// What came of a formula: its value, or why and where it was refused. Its members are part of the
/// binary interface and stay as they are.
struct FormulaOutcome {
  double value = std::numeric_limits<double>::quiet_NaN();  ///< NaN if the formula was refused.
  FormulaReason reason = FormulaReason::Done;               ///< Done if there is a value.
  /// The class of the exception that the engine throws.
  FormulaExplanation::ExceptionClass exceptionClass = FormulaExplanation::ExceptionClass::None;
  std::string message;  ///< Letter for letter as the engine's exception.
  /// The bytes of the formula that were refused: of what replaced a variable, those of the variable.
  /// The whole formula if it is its result that does not fit, or if nothing was refused.
  FormulaSpan span;
};

/// Evaluates a formula as `UnitsEngine::evaluateExpressionInUnit` does. Instead of throwing a refusal,
/// it returns it with its place.
///
/// It takes about as long as evaluating, whatever comes of it. For a sentence, suggestions and the
/// reading, there is `explainFormula`, which takes a few times as long.
///
/// The resolver is called as the engine calls it. A ParseException of the resolver is a refusal; any
/// other exception of it, of a derived class, too, reaches the caller. An empty resolver rejects every
/// identifier.
///
/// For an engine that the library has not made, all definitions are first copied through its public
/// operations, whose exceptions reach the caller, and the library's own engine evaluates.
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
