#include "formula/Refusal.h"

#include <TrelvonUnits/Exceptions.h>

#include <stdexcept>

using Units::FormulaReason;

const char* ownMessageOf(FormulaReason reason) {
  switch (reason) {
    case FormulaReason::VariableIsItself:
      return "Variable resolved to an identical string.";
    case FormulaReason::NestedTooDeeply:
      return "Variables are nested too deeply.";
    case FormulaReason::TooManyVariables:
      return "Too many variables.";
    case FormulaReason::ExponentHasUnits:
      return "Right-hand operand of the power operator must be unitless.";
    case FormulaReason::PowerOfNoUnits:
      return "legacy code dbgWarn: Something funny is going on with units. Dresmond 22-Apr-2003";
    case FormulaReason::InputHasUnits:
      return "Function input must be unitless.";
    case FormulaReason::InputNotExpected:
      return "Expected no inputs to function call \"pi()\".";
    case FormulaReason::InputMissing:
      return "Expected one input to function call.";
    case FormulaReason::SymbolAfterUnits:
      return "Unit symbol may be applied only to a unitless expression.";
    case FormulaReason::HasUnits:
      return "Expression must be unitless.";
    default:
      return nullptr;
  }
}

const char* messageOf(FormulaReason reason) {
  const char* const own = ownMessageOf(reason);
  return own ? own : "Unable to parse expression.";
}

void throwRefusal(FormulaReason reason) {
  if (reason == FormulaReason::PowerOfNoUnits) throw std::logic_error(messageOf(reason));
  throw Units::ParseException(messageOf(reason));
}
