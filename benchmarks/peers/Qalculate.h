#pragma once

#include <string>

namespace peers {

/// libqalculate with its own definitions, told to be no slower than it need: plain numbers, no
/// intervals, no more digits than a double shows.
class Qalculate {
 public:
  Qalculate();  ///< @throws Skipped  it is not installed.

  /// The value of a formula that comes to a bare number.
  double evaluate(const std::string& formula) const;
};

}  // namespace peers
