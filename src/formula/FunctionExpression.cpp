#include "formula/FunctionExpression.h"

#include "formula/Functions.h"

#include <stdexcept>
#include <utility>

void FunctionExpression::addInput(std::unique_ptr<Expression> input) {
  // If the number of inputs is wrong, `apply` rejects them before they are evaluated.
  if (++inputCount_ == 1 && findInputFunction(function_))
    linkOperand(std::move(input));
  else
    unlinkOperands();
}

FormulaReason FunctionExpression::apply(EvaluatedValues& values) const {
  if (function_ == FormulaFunction::Pi) {
    if (inputCount_ != 0) return FormulaReason::InputNotExpected;
    values.emplace_back(3.14159265358979);  // 15 digits: seven ulps below the double nearest to pi
    return FormulaReason::Done;
  }
  const InputFunction* const function = findInputFunction(function_);
  if (!function)
    throw std::logic_error(
        "legacy code dbgWarn: Bad FormulaFunction in FunctionExpression::evaluate. "
        "Dresmond 10-Apr-2003");
  if (inputCount_ != 1) return FormulaReason::InputMissing;

  EvaluatedValue& input = values.back();
  const bool hasUnits = function->unitRule != UnitRule::Keep && !input.isUnitless();
  if (function->unitRule == UnitRule::Reject && hasUnits) return FormulaReason::InputHasUnits;
  const FormulaReason reason = function->compute(input.value);
  if (reason != FormulaReason::Done) return reason;
  const bool takesRoot = function->unitRule == UnitRule::Root && hasUnits;
  return takesRoot ? input.changeableUnits().raiseTo(0.5) : FormulaReason::Done;
}
