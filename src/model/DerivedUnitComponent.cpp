#include "model/RecordContents.h"

#include <TrelvonUnits/DerivedUnitComponent.h>

namespace Units {

DerivedUnitComponent::DerivedUnitComponent(const std::map<std::string, int>& parentUnitPowers,
                                           const FactorComponent& factorComponent)
    : contents_(new Contents(listOf(parentUnitPowers), factorComponent)) {}

// Contents are shared, so a move is a copy.
DerivedUnitComponent::DerivedUnitComponent(const DerivedUnitComponent& other) noexcept = default;
DerivedUnitComponent::DerivedUnitComponent(DerivedUnitComponent&& other) noexcept = default;
DerivedUnitComponent::~DerivedUnitComponent() = default;

std::map<std::string, int> DerivedUnitComponent::getParentUnitPowers() const {
  return mapOf(contents_->parentUnitPowers);
}

FactorComponent DerivedUnitComponent::getFactorComponent() const {
  return contents_->factorComponent;
}

}  // namespace Units
