#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/FactorComponent.h>
#include <TrelvonUnits/Shared.h>

#include <string>

namespace Units {

/// A named multiplier, such as kilo or pi, for use in other factors and in derived units.
class TRELVONUNITS_API Factor {
 public:
  /// @param typeId           names the factor; an engine refuses an empty one when it is added.
  /// @param factorComponent  its value.
  Factor(const std::string& typeId, const FactorComponent& factorComponent);

  Factor(const Factor& other) noexcept;
  Factor(Factor&& other) noexcept;  ///< Copies; `other` stays readable.
  ~Factor();
  Factor& operator=(const Factor&) = delete;

  std::string getTypeId() const;
  FactorComponent getFactorComponent() const;

  // Factors are compared by their type ids alone, byte by byte.
  bool operator==(const Factor& other) const;
  bool operator!=(const Factor& other) const;
  bool operator<(const Factor& other) const;
  bool operator>(const Factor& other) const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  const Shared<Contents> contents_;
};

}  // namespace Units
