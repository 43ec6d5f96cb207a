#pragma once

#include <map>
#include <string>

namespace peers {

struct Scale {
  double factor;
  double offset;
};
using Scales = std::map<std::string, Scale>;

/// All units of the catalog. The scales are correct for the units of the mixed pairs.
const Scales& scalesOfPairs();

/// The minimum that any conversion needs: two lookups and the arithmetic. The ids are copied, as
/// the interface requires.
double bareConvert(double value, std::string from, std::string to);

/// The same, without copies.
double bareConvertByReference(double value, const std::string& from, const std::string& to);

}  // namespace peers
