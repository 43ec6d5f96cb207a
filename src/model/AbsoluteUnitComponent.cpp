#include <TrelvonUnits/AbsoluteUnitComponent.h>

namespace Units {

AbsoluteUnitComponent::AbsoluteUnitComponent(const std::string& parentUnit, double offset)
    : parentUnit_(parentUnit), offset_(offset) {}

// The fields are const: moving copies.
AbsoluteUnitComponent::AbsoluteUnitComponent(const AbsoluteUnitComponent& other) = default;
AbsoluteUnitComponent::AbsoluteUnitComponent(AbsoluteUnitComponent&& other) = default;
AbsoluteUnitComponent::~AbsoluteUnitComponent() = default;

std::string AbsoluteUnitComponent::getParentUnit() const { return parentUnit_; }

double AbsoluteUnitComponent::getOffset() const { return offset_; }

}  // namespace Units
