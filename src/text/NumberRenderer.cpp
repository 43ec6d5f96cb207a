#include "text/NumberRenderer.h"

#include "model/Tolerances.h"

#include <cmath>

namespace Units {

double roundToStep(double value, double step, bool& negative) {
  negative = false;
  // Subtraction from zero, unlike negation, does not make -0.0.
  const double magnitude = value > 0.0 ? value : 0.0 - value;
  double rounded = std::floor(magnitude / step + 0.5 + roundingTolerance) * step;
  if (value <= 0.0) rounded = 0.0 - rounded;
  if (rounded < 0.0) {
    negative = true;
    rounded = -rounded;
  }
  return rounded;
}

}  // namespace Units
