#include <TrelvonUnits/PrimitiveUnitComponent.h>

namespace Units {

PrimitiveUnitComponent::PrimitiveUnitComponent(const std::optional<Dimension>& dimension)
    : dimension_(dimension) {}

// The fields are const: moving copies.
PrimitiveUnitComponent::PrimitiveUnitComponent(const PrimitiveUnitComponent& other) = default;
PrimitiveUnitComponent::PrimitiveUnitComponent(PrimitiveUnitComponent&& other) = default;
PrimitiveUnitComponent::~PrimitiveUnitComponent() = default;

std::optional<Dimension> PrimitiveUnitComponent::getDimension() const { return dimension_; }

}  // namespace Units
