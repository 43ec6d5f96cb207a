#include "formula/Functions.h"

#include "formula/Arithmetic.h"
#include "model/Tolerances.h"

#include <algorithm>
#include <cmath>

namespace {

bool computeSin(double& x) {
  x = std::sin(x);
  return true;
}

bool computeCos(double& x) {
  x = std::cos(x);
  return true;
}

bool computeTan(double& x) {
  if (Units::isNearZero(std::cos(x))) return false;
  x = std::tan(x);
  return true;
}

/// Clamps a sine or cosine that is slightly out of range because of rounding.
bool clampToArc(double& x) {
  if (std::fabs(x) > 1.00000000000001) return false;
  x = std::clamp(x, -1.0, 1.0);
  return true;
}

bool computeAsin(double& x) {
  if (!clampToArc(x)) return false;
  x = std::asin(x);
  return true;
}

bool computeAcos(double& x) {
  if (!clampToArc(x)) return false;
  x = std::acos(x);
  return true;
}

bool computeAtan(double& x) {
  x = std::atan(x);
  return true;
}

bool computeLog(double& x) {
  if (x < 1e-9) return false;
  x = std::log10(x);
  return true;
}

bool computeLn(double& x) {
  if (x < 1e-9) return false;
  x = std::log(x);
  return true;
}

bool computeSqrt(double& x) {
  if (x < 0) return false;
  x = std::sqrt(x);
  return true;
}

bool computeAbs(double& x) {
  x = std::fabs(x);
  return true;
}

bool computeRound(double& x) {
  x = std::floor((x + 0.5) + Units::roundingTolerance);
  return true;
}

bool computeRoundUp(double& x) {
  x = std::ceil(x - Units::roundingTolerance);
  return true;
}

bool computeRoundDown(double& x) {
  x = std::floor(x + Units::roundingTolerance);
  return true;
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
