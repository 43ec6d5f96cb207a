#include "model/RecordContents.h"

#include <TrelvonUnits/PrimitiveUnitComponent.h>

namespace Units {

PrimitiveUnitComponent::PrimitiveUnitComponent(const std::optional<Dimension>& dimension)
    : contents_(new Contents(dimension)) {}

// Contents are shared, so a move is a copy.
PrimitiveUnitComponent::PrimitiveUnitComponent(const PrimitiveUnitComponent& other) noexcept =
    default;
PrimitiveUnitComponent::PrimitiveUnitComponent(PrimitiveUnitComponent&& other) noexcept = default;
PrimitiveUnitComponent::~PrimitiveUnitComponent() = default;

std::optional<Dimension> PrimitiveUnitComponent::getDimension() const {
  return contents_->dimension;
}

}  // namespace Units
