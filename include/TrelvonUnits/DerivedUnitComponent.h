#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/FactorComponent.h>
#include <TrelvonUnits/Shared.h>

#include <map>
#include <string>

namespace Units {

/// How a unit is built from others: a factor times a product of integer powers of parent units.
///
/// A kilometer per hour is {kilometer: 1, hour: -1} times 1.0.
class TRELVONUNITS_API DerivedUnitComponent {
 public:
  /// @param parentUnitPowers  type id of a relative unit to its exponent. Kept as given: an engine
  ///                          refuses an empty map, exponents of 0, and unknown or absolute units
  ///                          when the unit is added.
  /// @param factorComponent   the multiplier relative to the product of the parents.
  DerivedUnitComponent(const std::map<std::string, int>& parentUnitPowers,
                       const FactorComponent& factorComponent);

  DerivedUnitComponent(const DerivedUnitComponent& other) noexcept;
  DerivedUnitComponent(DerivedUnitComponent&& other) noexcept;  ///< Copies; `other` stays readable.
  ~DerivedUnitComponent();
  DerivedUnitComponent& operator=(const DerivedUnitComponent&) = delete;

  std::map<std::string, int> getParentUnitPowers() const;
  FactorComponent getFactorComponent() const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  const Shared<Contents> contents_;
};

}  // namespace Units
