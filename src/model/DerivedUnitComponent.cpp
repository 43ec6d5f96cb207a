#include <TrelvonUnits/DerivedUnitComponent.h>

namespace Units {

DerivedUnitComponent::DerivedUnitComponent(const std::map<std::string, int>& parentUnitPowers,
                                           const FactorComponent& factorComponent)
    : parentUnitPowers_(parentUnitPowers), factorComponent_(factorComponent) {}

// The fields are const: moving copies.
DerivedUnitComponent::DerivedUnitComponent(const DerivedUnitComponent& other) = default;
DerivedUnitComponent::DerivedUnitComponent(DerivedUnitComponent&& other) = default;
DerivedUnitComponent::~DerivedUnitComponent() = default;

std::map<std::string, int> DerivedUnitComponent::getParentUnitPowers() const {
  return parentUnitPowers_;
}

FactorComponent DerivedUnitComponent::getFactorComponent() const { return factorComponent_; }

}  // namespace Units
