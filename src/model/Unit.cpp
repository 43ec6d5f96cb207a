#include "model/RecordContents.h"

#include <TrelvonUnits/Unit.h>

namespace Units {

Unit::Unit(const std::string& typeId, const std::string& name, System unitSystem,
           const AbsoluteUnitComponent& component)
    : contents_(new Contents(SharedText(typeId), name, unitSystem, component)) {}

Unit::Unit(const std::string& typeId, const std::string& name, System unitSystem,
           const DerivedUnitComponent& component)
    : contents_(new Contents(SharedText(typeId), name, unitSystem, component)) {}

Unit::Unit(const std::string& typeId, const std::string& name, System unitSystem,
           const PrimitiveUnitComponent& component)
    : contents_(new Contents(SharedText(typeId), name, unitSystem, component)) {}

// Contents are shared, so a move is a copy.
Unit::Unit(const Unit& other) noexcept = default;
Unit::Unit(Unit&& other) noexcept = default;
Unit::~Unit() = default;

std::string Unit::getTypeId() const { return contents_->typeId; }

std::string Unit::getName() const { return contents_->name; }

System Unit::getUnitSystem() const { return contents_->unitSystem; }

namespace {

template <class Component, class Variant>
std::optional<Component> held(const Variant& component) {
  const Component* const found = std::get_if<Component>(&component);
  return found ? std::optional<Component>(*found) : std::nullopt;
}

}  // namespace

std::optional<AbsoluteUnitComponent> Unit::getAbsoluteUnitComponent() const {
  return held<AbsoluteUnitComponent>(contents_->component);
}

std::optional<DerivedUnitComponent> Unit::getDerivedUnitComponent() const {
  return held<DerivedUnitComponent>(contents_->component);
}

std::optional<PrimitiveUnitComponent> Unit::getPrimitiveUnitComponent() const {
  return held<PrimitiveUnitComponent>(contents_->component);
}

bool Unit::operator==(const Unit& other) const {
  return contents_->typeId.str() == other.contents_->typeId.str();
}

bool Unit::operator!=(const Unit& other) const { return !(*this == other); }

bool Unit::operator<(const Unit& other) const {
  return contents_->typeId.str() < other.contents_->typeId.str();
}

bool Unit::operator>(const Unit& other) const { return other < *this; }

}  // namespace Units
