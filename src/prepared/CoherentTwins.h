#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace Units {

/// Finds the factor of a unit by asking an engine to convert, since no engine tells it.
///
/// An engine aside gets a copy of the unit, and of a twin of it that rests on the same primitive
/// units, and all of whose factors are 1. From the unit to its twin, 1 converts to the factor, to
/// the bit: pow((0 + 1) * factor, 1) / 1 - 0.
class CoherentTwins {
 public:
  /// @param source  where units and factors are copied from; must outlive this.
  explicit CoherentTwins(const UnitsEngine& source);

  /// @param unitTypeId  a relative unit of the source.
  double factorOf(const std::string& unitTypeId);

  /// Whether two relative units of the source that convert into each other are reciprocal.
  bool areReciprocal(const std::string& unitTypeId, const std::string& otherTypeId);

 private:
  using Parents = std::map<std::string, int>;

  void addUnits(const std::string& root);
  void addFactors(const std::string& root);
  Parents parentsOfUnit(const std::string& typeId) const;
  void addUnitWithTwin(const std::string& typeId);
  void addFactor(const std::string& typeId);

  const UnitsEngine& source_;
  std::unique_ptr<UnitsEngine> engine_;
  std::set<std::string> units_;  // those that the engine has
  std::set<std::string> factors_;
};

}  // namespace Units
