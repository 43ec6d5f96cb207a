#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <cstdint>
#include <map>
#include <string>

namespace Units {

/// A unit in primitive terms. An absolute unit has the terms of its parent.
struct SizeAndPowers {
  bool isAbsolute = false;
  double factor = 1.0;  // nearly: not in the order of arithmetic of `convert`
  std::map<std::string, std::int64_t> powers;  // of primitive units; those that cancel are 0
  bool cancels = false;                        // a power cancels here, not only in a parent
  bool overflows = false;                      // a power does not fit into 32 bits
};

/// Finds the terms of units, for uses where the last bits of a factor do not matter. Visits shared
/// parents once.
class SizeFinder {
 public:
  explicit SizeFinder(const UnitsEngine& engine) : engine_(engine) {}

  /// @param unitTypeId  of a stored unit.
  const SizeAndPowers& termsOf(const std::string& unitTypeId);

  /// The number that a stored factor stands for, with its parents.
  double valueOf(const std::string& factorTypeId);

 private:
  SizeAndPowers combine(const Unit& unit) const;

  const UnitsEngine& engine_;
  std::map<std::string, SizeAndPowers> units_;
  std::map<std::string, double> factors_;
};

}  // namespace Units
