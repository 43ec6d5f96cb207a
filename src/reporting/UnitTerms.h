#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <cstdint>
#include <map>
#include <string>

namespace Schemas {

/// A unit in primitive terms, as far as lints ask. An absolute unit has the terms of its parent.
struct UnitTerms {
  bool isAbsolute = false;
  double factor = 1.0;                         // its kind alone counts: 0, infinite, or else
  std::map<std::string, std::int64_t> powers;  // of primitive units; those that cancel are 0
  bool cancels = false;                        // a power cancels here, not only in a parent
  bool overflows = false;                      // a power does not fit into 32 bits
};

/// Finds the terms of units. Units that others share are looked at once.
class UnitTermsFinder {
 public:
  explicit UnitTermsFinder(const Units::UnitsEngine& engine) : engine_(engine) {}

  /// @param unitTypeId  of a stored unit.
  const UnitTerms& termsOf(const std::string& unitTypeId);

  /// The number that a stored factor stands for, with its parents; as far as lints ask.
  double valueOf(const std::string& factorTypeId);

 private:
  UnitTerms combine(const Units::Unit& unit) const;

  const Units::UnitsEngine& engine_;
  std::map<std::string, UnitTerms> units_;
  std::map<std::string, double> factors_;
};

}  // namespace Schemas
