#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>

#include <string>

namespace Units {

/// How a unit with a shifted zero, such as a temperature scale, hangs on the unit below it.
///
/// A reading v on such a scale is v + getOffset() of the parent unit: with parent kelvin and
/// offset 273.15, a reading of 20 is 293.15 K.
class TRELVONUNITS_API AbsoluteUnitComponent {
 public:
  /// @param parentUnit  type id of a relative unit. Kept as given: only an engine knows which ids
  ///                    exist, and it looks when the unit is added.
  /// @param offset      counted in parent units; any double.
  AbsoluteUnitComponent(const std::string& parentUnit, double offset);

  AbsoluteUnitComponent(const AbsoluteUnitComponent& other) noexcept;
  AbsoluteUnitComponent(
      AbsoluteUnitComponent&& other) noexcept;  ///< Copies; `other` stays readable.
  ~AbsoluteUnitComponent();
  AbsoluteUnitComponent& operator=(const AbsoluteUnitComponent&) = delete;

  std::string getParentUnit() const;
  double getOffset() const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  const Shared<Contents> contents_;
};

}  // namespace Units
