#include "benchmarks/peers/Qalculate.h"

#include "benchmarks/peers/Turns.h"

#include <libqalculate/qalculate.h>

namespace peers {

namespace {

const EvaluationOptions& options() {
  static const EvaluationOptions made = [] {
    EvaluationOptions plain;
    plain.approximation = APPROXIMATION_APPROXIMATE;
    plain.interval_calculation = INTERVAL_CALCULATION_NONE;
    plain.auto_post_conversion = POST_CONVERSION_NONE;
    plain.parse_options.unknowns_enabled = false;
    plain.parse_options.angle_unit = ANGLE_UNIT_RADIANS;
    return plain;
  }();
  return made;
}

}  // namespace

Qalculate::Qalculate() {
  // The library keeps a pointer to its only calculator, which cannot be destroyed safely.
  static const bool isLoaded = (new Calculator)->loadGlobalDefinitions();
  check(isLoaded, "libqalculate has no definitions");
  CALCULATOR->setPrecision(12);
}

double Qalculate::evaluate(const std::string& formula) const {
  const MathStructure value = CALCULATOR->calculate(formula, options());
  check(value.isNumber(), "libqalculate on " + formula + " gives no number");
  return value.number().floatValue();
}

}  // namespace peers
