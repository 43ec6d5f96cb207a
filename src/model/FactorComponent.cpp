#include "model/RecordContents.h"

#include <TrelvonUnits/FactorComponent.h>

namespace Units {

FactorComponent::FactorComponent(const std::map<std::string, int>& parentFactorPowers)
    : contents_(new Contents(1.0, listOf(parentFactorPowers))) {}

FactorComponent::FactorComponent(double factor,
                                 const std::map<std::string, int>& parentFactorPowers)
    : contents_(new Contents(factor, listOf(parentFactorPowers))) {}

// Contents are shared, so a move is a copy.
FactorComponent::FactorComponent(const FactorComponent& other) noexcept = default;
FactorComponent::FactorComponent(FactorComponent&& other) noexcept = default;
FactorComponent::~FactorComponent() = default;

double FactorComponent::getFactor() const { return contents_->factor; }

std::map<std::string, int> FactorComponent::getParentFactorPowers() const {
  return mapOf(contents_->parentFactorPowers);
}

}  // namespace Units
