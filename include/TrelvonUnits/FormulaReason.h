#pragma once

#include <cstdint>

namespace Units {

/// Why a formula was refused. The comments say which text or part is the cause, and name an
/// example. Later versions may add reasons at the end.
enum class FormulaReason : std::int32_t {
  Done = 0,  ///< Not refused.

  // The text is not a formula.
  MissingOperand,        ///< An operator, `)` or the end where a number is expected: `+2`, `3 *`.
  NotAfterOperand,       ///< A number, function or `(` directly after a value: `2(3)`.
  NeverClosed,           ///< A `(` without its `)`: `2 * (3 + 4`.
  NeverOpened,           ///< A `)` without its `(`: `3 + 4)`.
  EmptyParentheses,      ///< Parentheses around nothing, except those of a function: `2 * ()`.
  MissingParentheses,    ///< A function or prefix symbol without a `(` after it: `sqrt * 2`.
  SuffixWithoutOperand,  ///< The text of a unit without a number before it: `m`, `h1 + 1`.
  UnusableSymbol,        ///< The text of a unit that ends in a separator, which tokens never do.

  // An identifier cannot be replaced.
  UnknownIdentifier,  ///< The resolver rejected it: `5 fot`.
  VariableIsItself,   ///< The resolver returned the identifier.
  NestedTooDeeply,    ///< The depth of Limits.h is exceeded.
  TooManyVariables,   ///< The number of identifiers of Limits.h is exceeded.

  // The value of a part cannot be computed.
  UnitsDiffer,       ///< A sum or difference of different units: `2 m + 3 kg`.
  DivisorNearZero,   ///< A divisor that counts as 0: `1 / 0`.
  UndefinedPower,    ///< 0 to the power 0 or less, or a negative base and a fraction: `0^0`.
  ExponentHasUnits,  ///< `2^(1 m)`.
  PowerOfNoUnits,    ///< A power of a unit whose primitive units cancel: `5%^2`.
  OutsideDomain,     ///< An input for which a function is not defined: `log(0)`.
  OutOfRange,        ///< A power or exponential that is too large or too small: `exp(100)`.
  InputHasUnits,     ///< A function of plain numbers: `sin(30°)`.
  InputNotExpected,  ///< `pi(1)`.
  InputMissing,      ///< `sqrt()`.
  SymbolAfterUnits,  ///< The text of a unit at parentheses that have units: `(1 ft) ft`.

  // The result does not fit what was requested.
  UnitsDoNotFit,  ///< Other units than those of the requested unit, and not the reciprocal.
  HasUnits,       ///< A plain number was requested.

  // Any other exception of the engine. Its message says more.
  Other,
};

}  // namespace Units
