#include "model/RecordContents.h"

#include <TrelvonUnits/FactorComponent.h>

namespace Units {

FactorComponent::FactorComponent(const std::map<std::string, int>& parentFactorPowers)
    : contents_(new Contents(1.0, parentFactorPowers)) {}

FactorComponent::FactorComponent(double factor,
                                 const std::map<std::string, int>& parentFactorPowers)
    : contents_(new Contents(factor, parentFactorPowers)) {}

// Contents are shared, so a move is a copy.
FactorComponent::FactorComponent(const FactorComponent& other) noexcept = default;
FactorComponent::FactorComponent(FactorComponent&& other) noexcept = default;
FactorComponent::~FactorComponent() = default;

double FactorComponent::getFactor() const { return contents_->factor; }

std::map<std::string, int> FactorComponent::getParentFactorPowers() const {
  return {contents_->parentFactorPowers.begin(), contents_->parentFactorPowers.end()};
}

}  // namespace Units
