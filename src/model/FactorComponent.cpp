#include <TrelvonUnits/FactorComponent.h>

namespace Units {

FactorComponent::FactorComponent(const std::map<std::string, int>& parentFactorPowers)
    : factor_(1.0), parentFactorPowers_(parentFactorPowers) {}

FactorComponent::FactorComponent(double factor,
                                 const std::map<std::string, int>& parentFactorPowers)
    : factor_(factor), parentFactorPowers_(parentFactorPowers) {}

// The fields are const: moving copies.
FactorComponent::FactorComponent(const FactorComponent& other) = default;
FactorComponent::FactorComponent(FactorComponent&& other) = default;
FactorComponent::~FactorComponent() = default;

double FactorComponent::getFactor() const { return factor_; }

std::map<std::string, int> FactorComponent::getParentFactorPowers() const {
  return parentFactorPowers_;
}

}  // namespace Units
