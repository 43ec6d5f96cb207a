#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>

namespace Units {

/// Finds the factor of a unit by conversion, since the public interface does not return it.
///
/// A second engine gets a copy of the unit and a twin: a unit with the same primitive units but
/// with all factors 1. Converting 1 from the copy to the twin returns the factor, bit for bit:
/// pow((0 + 1) * factor, 1) / 1 - 0.
class FactorFinder {
 public:
  /// @param source  units and factors are copied from it; must outlive this object.
  explicit FactorFinder(const UnitsEngine& source);

  /// @param unitTypeId  a relative unit of the source.
  double factorOf(const std::string& unitTypeId);

  /// Whether two relative, convertible units of the source are reciprocal.
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
  std::set<std::string> units_;  // added to the second engine
  std::set<std::string> factors_;
};

}  // namespace Units
