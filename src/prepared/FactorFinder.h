#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace Units {

/// Finds the factor of a unit by conversion, since no engine returns it.
///
/// A second engine gets a copy of the unit and a twin: a unit of the same primitive units all of
/// whose factors are 1. From the copy to its twin, 1 converts to the factor, to the bit:
/// pow((0 + 1) * factor, 1) / 1 - 0.
class FactorFinder {
 public:
  /// @param source  units and factors are copied from it; must outlive this.
  explicit FactorFinder(const UnitsEngine& source);

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
  std::set<std::string> units_;  // that the second engine has
  std::set<std::string> factors_;
};

}  // namespace Units
