#pragma once

#include <map>
#include <string>

namespace peers {

struct Scale {
  double factor;
  double offset;
};
using Scales = std::map<std::string, Scale>;

/// All units of the catalogue, with scales that are right for the mixed pairs.
const Scales& scalesOfPairs();

/// What no conversion can do without: two look-ups and the arithmetic, the ids copied as the
/// interface has it.
double bareConvert(double value, std::string from, std::string to);

}  // namespace peers
