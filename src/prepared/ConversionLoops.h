#pragma once

#include "prepared/LaneLoops.h"
#include "prepared/LinearSteps.h"

#include <cstddef>

namespace Units {

/// converted[i] = steps.apply(values[i]), to the bit.
/// @param lanes  null if vectors are left to the compiler.
void convertAll(const double* values, double* converted, std::size_t count,
                const LinearSteps& steps, const LaneLoops* lanes = usableLaneLoops());

/// The same, with pow(x, -1.0) between the product and the quotient.
void convertAllInverted(const double* values, double* converted, std::size_t count,
                        const LinearSteps& steps, const LaneLoops* lanes = usableLaneLoops());

/// The way to divide by `toFactor` that `convertProven` takes. The proof is worth its time for a
/// hundred values or more.
Divisor divisorFor(const LinearSteps& steps, const LaneLoops* lanes);

/// @param by  from `divisorFor` with the same divisor and `lanes`.
void convertProven(const double* values, double* converted, std::size_t count,
                   const LinearSteps& steps, const Divisor& by, const LaneLoops* lanes);

}  // namespace Units
