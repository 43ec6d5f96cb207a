#include "formula/FunctionExpression.h"

#include "formula/Functions.h"

#include <TrelvonUnits/Exceptions.h>

#include <stdexcept>
#include <utility>

void FunctionExpression::addInput(std::unique_ptr<Expression> input) {
  inputs_.push_back(std::move(input));
  // If the number of inputs is wrong, `apply` rejects them before they are evaluated.
  if (inputs_.size() == 1 && findInputFunction(function_))
    linkOperand(*inputs_.front());
  else
    unlinkOperands();
}

bool FunctionExpression::apply(EvaluatedValues& values) const {
  if (function_ == FormulaFunction::Pi) {
    if (!inputs_.empty())
      throw Units::ParseException("Expected no inputs to function call \"pi()\".");
    values.emplace_back(3.14159265358979);  // 15 digits: seven ulps below the double nearest to pi
    return true;
  }
  const InputFunction* const function = findInputFunction(function_);
  if (!function)
    throw std::logic_error(
        "legacy code dbgWarn: Bad FormulaFunction in FunctionExpression::evaluate. "
        "Dresmond 10-Apr-2003");
  if (inputs_.size() != 1) throw Units::ParseException("Expected one input to function call.");

  EvaluatedValue& input = values.back();
  const bool hasUnits = function->unitRule != UnitRule::Keep && !input.isUnitless();
  if (function->unitRule == UnitRule::Reject && hasUnits)
    throw Units::ParseException("Function input must be unitless.");
  if (!function->compute(input.value)) return false;
  if (function->unitRule == UnitRule::Root && hasUnits) input.changeableUnits().raiseTo(0.5);
  return true;
}

void FunctionExpression::removeOperands(Removal& removal) noexcept {
  for (std::unique_ptr<Expression>& input : inputs_) removal.take(input);
}
