#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>

#include <string>

namespace Units {

/// How an absolute unit, a scale with a shifted zero, is defined relative to its parent unit.
///
/// A reading v on the scale is v + getOffset() of the parent unit:
///
///   AbsoluteUnitComponent("example.unit:kelvin-1.0.0", 273.15)   20 degrees Celsius are 293.15 K
///
/// An absolute unit converts only to other absolute units. Differences of readings are counted in
/// the parent unit.
class TRELVONUNITS_API AbsoluteUnitComponent {
 public:
  /// Nothing is checked here: an engine checks the parent unit when the unit is added.
  ///
  /// @param parentUnit  type id of a relative unit, that is, one that is not absolute itself.
  /// @param offset      added to a reading; counted in the parent unit, of either sign; any double.
  AbsoluteUnitComponent(const std::string& parentUnit, double offset);

  AbsoluteUnitComponent(const AbsoluteUnitComponent& other) noexcept;
  AbsoluteUnitComponent(
      AbsoluteUnitComponent&& other) noexcept;  ///< Copies; `other` stays readable.
  ~AbsoluteUnitComponent();
  AbsoluteUnitComponent& operator=(const AbsoluteUnitComponent&) = delete;

  std::string getParentUnit() const;  ///< A type id, as given.
  double getOffset() const;           ///< Counted in the parent unit.

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  explicit AbsoluteUnitComponent(Shared<Contents>&& contents) noexcept;
  const Shared<Contents> contents_;
};

}  // namespace Units
