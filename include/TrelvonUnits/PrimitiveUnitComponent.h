#pragma once

#include <TrelvonUnits/Dimension.h>
#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>

#include <optional>

namespace Units {

/// Marks a base unit, one that is not expressed through others.
///
/// The dimension groups primitive units for hosts. It takes no part in conversion: two primitive
/// units never convert into each other, whatever dimension they share.
class TRELVONUNITS_API PrimitiveUnitComponent {
 public:
  PrimitiveUnitComponent(const std::optional<Dimension>& dimension = std::nullopt);

  PrimitiveUnitComponent(const PrimitiveUnitComponent& other) noexcept;
  PrimitiveUnitComponent(
      PrimitiveUnitComponent&& other) noexcept;  ///< Copies; `other` stays readable.
  ~PrimitiveUnitComponent();
  PrimitiveUnitComponent& operator=(const PrimitiveUnitComponent&) = delete;

  std::optional<Dimension> getDimension() const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  const Shared<Contents> contents_;
};

}  // namespace Units
