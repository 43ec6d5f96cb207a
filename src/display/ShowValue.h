#pragma once

#include <TrelvonUnits/ValueDisplay.h>

#include <string>

namespace Units {

struct DisplayScale;
struct NumberForm;
struct NumberStyle;

/// The text of an amount in the unit of a scale.
std::string showAmount(double amount, const DisplayScale& scale, const NumberForm& form,
                       const NumberStyle& style);

/// The amount that the text shows.
double shownAmount(double amount, const NumberForm& form);

}  // namespace Units
