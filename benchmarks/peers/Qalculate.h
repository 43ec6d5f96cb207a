#pragma once

#include <string>

namespace peers {

/// libqalculate with its own definitions, configured for speed: plain numbers, no intervals, no
/// more digits than a double has.
class Qalculate {
 public:
  Qalculate();  ///< @throws Skipped  libqalculate is not installed.

  /// Evaluates a formula whose result is a plain number.
  double evaluate(const std::string& formula) const;
};

}  // namespace peers
