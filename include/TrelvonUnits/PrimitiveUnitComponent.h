#pragma once

#include <TrelvonUnits/Dimension.h>
#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>

#include <optional>

namespace Units {

/// Marks a primitive unit, one that is not defined in terms of others: a meter, a kilogram, a
/// dollar.
///
/// The dimension groups primitive units for hosts. It plays no part in conversion: two primitive
/// units never convert into each other, even if they share a dimension.
class TRELVONUNITS_API PrimitiveUnitComponent {
 public:
  /// @param dimension  any dimension, or none. When the unit is added, an engine rejects one that
  ///                   is not stored.
  PrimitiveUnitComponent(const std::optional<Dimension>& dimension = std::nullopt);

  PrimitiveUnitComponent(const PrimitiveUnitComponent& other) noexcept;
  PrimitiveUnitComponent(
      PrimitiveUnitComponent&& other) noexcept;  ///< Copies; `other` stays readable.
  ~PrimitiveUnitComponent();
  PrimitiveUnitComponent& operator=(const PrimitiveUnitComponent&) = delete;

  std::optional<Dimension> getDimension() const;  ///< As given; may be empty.

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  const Shared<Contents> contents_;
};

}  // namespace Units
