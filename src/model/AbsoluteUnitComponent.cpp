#include "model/RecordContents.h"

#include <TrelvonUnits/AbsoluteUnitComponent.h>

namespace Units {

AbsoluteUnitComponent::AbsoluteUnitComponent(const std::string& parentUnit, double offset)
    : contents_(new Contents(SharedText(parentUnit), offset)) {}

// Contents are shared, so a move is a copy.
AbsoluteUnitComponent::AbsoluteUnitComponent(const AbsoluteUnitComponent& other) noexcept = default;
AbsoluteUnitComponent::AbsoluteUnitComponent(AbsoluteUnitComponent&& other) noexcept = default;
AbsoluteUnitComponent::~AbsoluteUnitComponent() = default;

std::string AbsoluteUnitComponent::getParentUnit() const { return contents_->parentUnit; }

double AbsoluteUnitComponent::getOffset() const { return contents_->offset; }

}  // namespace Units
