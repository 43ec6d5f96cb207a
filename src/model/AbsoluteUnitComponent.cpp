#include <TrelvonUnits/AbsoluteUnitComponent.h>

#include "model/RecordContents.h"

namespace Units {

AbsoluteUnitComponent::AbsoluteUnitComponent(const std::string& parentUnit, double offset)
    : contents_(new Contents(parentUnit, offset)) {}

// The contents are shared: moving copies, too.
AbsoluteUnitComponent::AbsoluteUnitComponent(const AbsoluteUnitComponent& other) noexcept = default;
AbsoluteUnitComponent::AbsoluteUnitComponent(AbsoluteUnitComponent&& other) noexcept = default;
AbsoluteUnitComponent::~AbsoluteUnitComponent() = default;

std::string AbsoluteUnitComponent::getParentUnit() const { return contents_->parentUnit; }

double AbsoluteUnitComponent::getOffset() const { return contents_->offset; }

}  // namespace Units
