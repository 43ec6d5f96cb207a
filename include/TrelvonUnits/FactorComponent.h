#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>

#include <map>
#include <string>

namespace Units {

/// A number together with integer powers of named factors. Its value is `factor` times the value of
/// each parent factor raised to its exponent.
///
///   FactorComponent()                            1
///   FactorComponent(0.3048)                      0.3048
///   FactorComponent(1 / 180.0, {{pi, 1}})        a degree in radians
///   FactorComponent({{kilo, -1}})                0.001
///
/// The value is computed when it is used: pow and multiplication in doubles, parents in order of
/// type id.
class TRELVONUNITS_API FactorComponent {
 public:
  /// A product of parent factors alone: `getFactor()` is 1.0.
  ///
  /// @param parentFactorPowers  as below.
  FactorComponent(const std::map<std::string, int>& parentFactorPowers);

  /// Nothing is checked here. When the record that holds this is added, an engine rejects exponents
  /// of 0 and unknown factors.
  ///
  /// @param factor              any double. 0, an infinity and NaN are accepted, but the last two
  ///                            cannot be written as schema text.
  /// @param parentFactorPowers  type id of a factor to its exponent, of either sign.
  FactorComponent(double factor = 1.0, const std::map<std::string, int>& parentFactorPowers = {});

  FactorComponent(const FactorComponent& other) noexcept;
  FactorComponent(FactorComponent&& other) noexcept;  ///< Copies; `other` stays readable.
  ~FactorComponent();
  FactorComponent& operator=(const FactorComponent&) = delete;

  double getFactor() const;  ///< The number alone, without the parent factors.
  std::map<std::string, int> getParentFactorPowers() const;  ///< Type id to exponent, as given.

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  explicit FactorComponent(Shared<Contents>&& contents) noexcept;
  const Shared<Contents> contents_;
};

}  // namespace Units
