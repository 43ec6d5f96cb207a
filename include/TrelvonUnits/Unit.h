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

/// A unit of measure, of one of three kinds:
///
/// - primitive: not defined in terms of other units (meter);
/// - derived: a factor times powers of other units (foot, newton);
/// - absolute: a scale with a shifted zero (degree Celsius).
///
/// Primitive and derived units are called relative. A unit refers to its parents by type id only,
/// so a host can construct one without an engine; an engine checks it when it is added.
///
///   Unit("example.unit:foot-1.0.0", "foot", System::Imperial,
///        DerivedUnitComponent({{"example.unit:meter-1.0.0", 1}}, FactorComponent(0.3048)))
class TRELVONUNITS_API Unit {
 public:
  /// An absolute unit: a scale with a shifted zero.
  ///
  /// @param typeId      any text; an engine rejects an empty one when the unit is added.
  /// @param name        UTF-8, for display; an engine rejects an empty one when the unit is added.
  /// @param unitSystem  for hosts that offer metric or imperial units; conversion ignores it.
  /// @param component   the definition of the unit; its class decides the kind.
  Unit(const std::string& typeId, const std::string& name, System unitSystem,
       const AbsoluteUnitComponent& component);
  /// A derived unit, from the same arguments: a factor times powers of other units.
  Unit(const std::string& typeId, const std::string& name, System unitSystem,
       const DerivedUnitComponent& component);
  /// A primitive unit, from the same arguments: not defined in terms of other units.
  Unit(const std::string& typeId, const std::string& name, System unitSystem,
       const PrimitiveUnitComponent& component);

  Unit(const Unit& other) noexcept;
  Unit(Unit&& other) noexcept;  ///< Copies; `other` stays readable.
  ~Unit();
  Unit& operator=(const Unit&) = delete;

  std::string getTypeId() const;  ///< As given.
  std::string getName() const;    ///< As given.
  System getUnitSystem() const;   ///< As given.

  /// Exactly one of these three holds a value: the component that the unit was constructed with.
  std::optional<AbsoluteUnitComponent> getAbsoluteUnitComponent() const;
  /// Holds a value if the unit is derived.
  std::optional<DerivedUnitComponent> getDerivedUnitComponent() const;
  /// Holds a value if the unit is primitive.
  std::optional<PrimitiveUnitComponent> getPrimitiveUnitComponent() const;

  /// Whether both type ids have the same bytes. Two units with the same type id are equal even if
  /// their names or components differ.
  bool operator==(const Unit& other) const;
  /// The negation of `==`.
  bool operator!=(const Unit& other) const;
  /// Orders by type id, byte by byte as std::string does: "B" before "a", "a" before "ab". This is
  /// the order of the maps that an engine returns.
  bool operator<(const Unit& other) const;
  /// The same as `other < *this`.
  bool operator>(const Unit& other) const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  explicit Unit(Shared<Contents>&& contents) noexcept;
  const Shared<Contents> contents_;
};

}  // namespace Units
