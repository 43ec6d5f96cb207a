#pragma once

#include "prepared/LinearSteps.h"

#include <string>

namespace Units {

struct ConversionSteps {
  LinearSteps linear;
  bool inverted;  // whether pow(x, -1.0) comes between the product and the quotient
};

/// An engine that reports the steps of its conversions, as this library's own does. For others,
/// they are worked out through the public interface, which takes hundreds of times as long.
class ConversionSource {
 public:
  /// Throws as `convert` does.
  virtual ConversionSteps stepsOf(const std::string& fromUnitTypeId,
                                  const std::string& toUnitTypeId) const = 0;

 protected:
  ~ConversionSource() = default;
};

}  // namespace Units
