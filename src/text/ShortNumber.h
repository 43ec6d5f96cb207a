#pragma once

#include <string>

namespace Units {

/// A number with at most 15 significant digits, as %.15g writes it in the classic locale: "0.05",
/// "1e+30", "inf". It reads well, but may be another double.
std::string shortNumber(double value);

}  // namespace Units
