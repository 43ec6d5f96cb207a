#include "formula/Functions.h"

#include "formula/Arithmetic.h"
#include "model/Tolerances.h"

#include <algorithm>
#include <cmath>

namespace {

using Units::FormulaReason;

FormulaReason computeSin(double& x) {
  x = std::sin(x);
  return FormulaReason::Done;
}

FormulaReason computeCos(double& x) {
  x = std::cos(x);
  return FormulaReason::Done;
}

FormulaReason computeTan(double& x) {
  if (Units::isNearZero(std::cos(x))) return FormulaReason::OutsideDomain;
  x = std::tan(x);
  return FormulaReason::Done;
}

/// Clamps a sine or cosine that is slightly out of range because of rounding.
bool clampToArc(double& x) {
  if (std::fabs(x) > 1.00000000000001) return false;
  x = std::clamp(x, -1.0, 1.0);
  return true;
}

FormulaReason computeAsin(double& x) {
  if (!clampToArc(x)) return FormulaReason::OutsideDomain;
  x = std::asin(x);
  return FormulaReason::Done;
}

FormulaReason computeAcos(double& x) {
  if (!clampToArc(x)) return FormulaReason::OutsideDomain;
  x = std::acos(x);
  return FormulaReason::Done;
}

FormulaReason computeAtan(double& x) {
  x = std::atan(x);
  return FormulaReason::Done;
}

FormulaReason computeLog(double& x) {
  if (x < 1e-9) return FormulaReason::OutsideDomain;
  x = std::log10(x);
  return FormulaReason::Done;
}

FormulaReason computeLn(double& x) {
  if (x < 1e-9) return FormulaReason::OutsideDomain;
  x = std::log(x);
  return FormulaReason::Done;
}

FormulaReason computeSqrt(double& x) {
  if (x < 0) return FormulaReason::OutsideDomain;
  x = std::sqrt(x);
  return FormulaReason::Done;
}

FormulaReason computeAbs(double& x) {
  x = std::fabs(x);
  return FormulaReason::Done;
}

FormulaReason computeRound(double& x) {
  x = std::floor((x + 0.5) + Units::roundingTolerance);
  return FormulaReason::Done;
}

FormulaReason computeRoundUp(double& x) {
  x = std::ceil(x - Units::roundingTolerance);
  return FormulaReason::Done;
}

FormulaReason computeRoundDown(double& x) {
  x = std::floor(x + Units::roundingTolerance);
  return FormulaReason::Done;
}

constexpr InputFunction inputFunctions[] = {
    {FormulaFunction::Sin, UnitRule::Reject, computeSin},
    {FormulaFunction::Cos, UnitRule::Reject, computeCos},
    {FormulaFunction::Tan, UnitRule::Reject, computeTan},
    {FormulaFunction::Asin, UnitRule::Reject, computeAsin},
    {FormulaFunction::Acos, UnitRule::Reject, computeAcos},
    {FormulaFunction::Atan, UnitRule::Reject, computeAtan},
    {FormulaFunction::Exp, UnitRule::Reject, computeExponential},
    {FormulaFunction::Log, UnitRule::Reject, computeLog},
    {FormulaFunction::Sqrt, UnitRule::Root, computeSqrt},
    {FormulaFunction::Abs, UnitRule::Keep, computeAbs},
    {FormulaFunction::Round, UnitRule::Keep, computeRound},
    {FormulaFunction::RoundUp, UnitRule::Keep, computeRoundUp},
    {FormulaFunction::RoundDown, UnitRule::Keep, computeRoundDown},
    {FormulaFunction::Ln, UnitRule::Reject, computeLn},
};

}  // namespace

const InputFunction* findInputFunction(FormulaFunction function) {
  const auto found = std::find_if(std::begin(inputFunctions), std::end(inputFunctions),
                                  [=](const auto& row) { return row.function == function; });
  return found == std::end(inputFunctions) ? nullptr : found;
}
