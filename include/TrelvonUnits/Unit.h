#pragma once

#include <TrelvonUnits/AbsoluteUnitComponent.h>
#include <TrelvonUnits/DerivedUnitComponent.h>
#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/PrimitiveUnitComponent.h>
#include <TrelvonUnits/Shared.h>
#include <TrelvonUnits/System.h>

#include <optional>
#include <string>

namespace Units {

/// A unit of measure: primitive, derived from other units, or absolute (a scale with a shifted
/// zero). A relative unit is one that is not absolute.
class TRELVONUNITS_API Unit {
 public:
  /// @param typeId      names the unit; an engine refuses an empty one when it is added.
  /// @param name        for display; an engine refuses an empty one.
  /// @param unitSystem  the family that the unit belongs to.
  /// @param component   what kind of unit it is, and how it hangs on others.
  Unit(const std::string& typeId, const std::string& name, System unitSystem,
       const AbsoluteUnitComponent& component);
  Unit(const std::string& typeId, const std::string& name, System unitSystem,
       const DerivedUnitComponent& component);
  Unit(const std::string& typeId, const std::string& name, System unitSystem,
       const PrimitiveUnitComponent& component);

  Unit(const Unit& other) noexcept;
  Unit(Unit&& other) noexcept;  ///< Copies; `other` stays readable.
  ~Unit();
  Unit& operator=(const Unit&) = delete;

  std::string getTypeId() const;
  std::string getName() const;
  System getUnitSystem() const;

  // Exactly one of these three holds a value: the kind that the unit was constructed as.
  std::optional<AbsoluteUnitComponent> getAbsoluteUnitComponent() const;
  std::optional<DerivedUnitComponent> getDerivedUnitComponent() const;
  std::optional<PrimitiveUnitComponent> getPrimitiveUnitComponent() const;

  // Units are compared by their type ids alone, byte by byte.
  bool operator==(const Unit& other) const;
  bool operator!=(const Unit& other) const;
  bool operator<(const Unit& other) const;
  bool operator>(const Unit& other) const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  const Shared<Contents> contents_;
};

}  // namespace Units
