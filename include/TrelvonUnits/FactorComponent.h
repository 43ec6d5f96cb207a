#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>

#include <map>
#include <string>

namespace Units {

/// A number together with integer powers of named factors: `factor` times the value of each parent
/// factor raised to its exponent.
class TRELVONUNITS_API FactorComponent {
 public:
  /// A product of parent factors alone: the number is 1.0.
  FactorComponent(const std::map<std::string, int>& parentFactorPowers);

  /// @param factor              any double.
  /// @param parentFactorPowers  type id of a factor to its exponent. Kept as given: an engine
  ///                            refuses exponents of 0 and unknown ids when a record is added.
  FactorComponent(double factor = 1.0, const std::map<std::string, int>& parentFactorPowers = {});

  FactorComponent(const FactorComponent& other) noexcept;
  FactorComponent(FactorComponent&& other) noexcept;  ///< Copies; `other` stays readable.
  ~FactorComponent();
  FactorComponent& operator=(const FactorComponent&) = delete;

  double getFactor() const;
  std::map<std::string, int> getParentFactorPowers() const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  const Shared<Contents> contents_;
};

}  // namespace Units
