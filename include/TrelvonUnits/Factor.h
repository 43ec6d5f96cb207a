#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/FactorComponent.h>
#include <TrelvonUnits/Shared.h>

#include <string>

namespace Units {

/// A named multiplier, such as kilo or pi, for use in other factors and in derived units.
///
///   Factor("example.factor:kilo-1.0.0", 1000.0)
///   Factor("example.factor:mega-1.0.0", FactorComponent({{"example.factor:kilo-1.0.0", 2}}))
class TRELVONUNITS_API Factor {
 public:
  /// @param typeId           any text; an engine rejects an empty one when the factor is added.
  /// @param factorComponent  the value of the factor, a pure number. A double converts to it.
  Factor(const std::string& typeId, const FactorComponent& factorComponent);

  Factor(const Factor& other) noexcept;
  Factor(Factor&& other) noexcept;  ///< Copies; `other` stays readable.
  ~Factor();
  Factor& operator=(const Factor&) = delete;

  std::string getTypeId() const;               ///< As given.
  FactorComponent getFactorComponent() const;  ///< The value, as given.

  /// Whether both type ids have the same bytes. Two factors with the same type id are equal even if
  /// their values differ.
  bool operator==(const Factor& other) const;
  /// The negation of `==`.
  bool operator!=(const Factor& other) const;
  /// Orders by type id, byte by byte as std::string does: "B" before "a", "a" before "ab". This is
  /// the order of the maps that an engine returns.
  bool operator<(const Factor& other) const;
  /// The same as `other < *this`.
  bool operator>(const Factor& other) const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  explicit Factor(Shared<Contents>&& contents) noexcept;
  const Shared<Contents> contents_;
};

}  // namespace Units
