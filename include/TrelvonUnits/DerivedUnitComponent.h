#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/FactorComponent.h>
#include <TrelvonUnits/Shared.h>

#include <map>
#include <string>

namespace Units {

/// How a derived unit is defined: a factor times a product of integer powers of parent units.
///
///   DerivedUnitComponent({{meter, 1}}, FactorComponent(0.3048))      foot
///   DerivedUnitComponent({{kilometer, 1}, {hour, -1}}, {})           kilometer per hour
///   DerivedUnitComponent({{meter, 1}}, FactorComponent({{kilo, 1}})) kilometer
///
/// Avoid parents whose powers cancel, such as a meter times a reciprocal meter: sums in formulas
/// can then fail, because a sum also compares powers that have canceled to 0.
class TRELVONUNITS_API DerivedUnitComponent {
 public:
  /// Nothing is checked here. When the unit is added, an engine rejects an empty map, exponents of
  /// 0, unknown units and absolute units.
  ///
  /// @param parentUnitPowers  type id of a relative unit to its exponent, of either sign.
  /// @param factorComponent   how many products of the parents make one of this unit: 0.3048 for a
  ///                          foot whose parent is the meter.
  DerivedUnitComponent(const std::map<std::string, int>& parentUnitPowers,
                       const FactorComponent& factorComponent);

  DerivedUnitComponent(const DerivedUnitComponent& other) noexcept;
  DerivedUnitComponent(DerivedUnitComponent&& other) noexcept;  ///< Copies; `other` stays readable.
  ~DerivedUnitComponent();
  DerivedUnitComponent& operator=(const DerivedUnitComponent&) = delete;

  std::map<std::string, int> getParentUnitPowers() const;  ///< Type id to exponent, as given.
  FactorComponent getFactorComponent() const;              ///< Relative to the parents' product.

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  explicit DerivedUnitComponent(Shared<Contents>&& contents) noexcept;
  const Shared<Contents> contents_;
};

}  // namespace Units
