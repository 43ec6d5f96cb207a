#include <TrelvonUnits/Unit.h>

namespace Units {

Unit::Unit(const std::string& typeId, const std::string& name, System unitSystem,
           const AbsoluteUnitComponent& component)
    : typeId_(typeId), name_(name), unitSystem_(unitSystem), component_(component) {}

Unit::Unit(const std::string& typeId, const std::string& name, System unitSystem,
           const DerivedUnitComponent& component)
    : typeId_(typeId), name_(name), unitSystem_(unitSystem), component_(component) {}

Unit::Unit(const std::string& typeId, const std::string& name, System unitSystem,
           const PrimitiveUnitComponent& component)
    : typeId_(typeId), name_(name), unitSystem_(unitSystem), component_(component) {}

// The fields are const: moving copies.
Unit::Unit(const Unit& other) = default;
Unit::Unit(Unit&& other) = default;
Unit::~Unit() = default;

std::string Unit::getTypeId() const { return typeId_; }

std::string Unit::getName() const { return name_; }

System Unit::getUnitSystem() const { return unitSystem_; }

namespace {

template <class Component, class Variant>
std::optional<Component> held(const Variant& component) {
  const Component* const found = std::get_if<Component>(&component);
  return found ? std::optional<Component>(*found) : std::nullopt;
}

}  // namespace

std::optional<AbsoluteUnitComponent> Unit::getAbsoluteUnitComponent() const {
  return held<AbsoluteUnitComponent>(component_);
}

std::optional<DerivedUnitComponent> Unit::getDerivedUnitComponent() const {
  return held<DerivedUnitComponent>(component_);
}

std::optional<PrimitiveUnitComponent> Unit::getPrimitiveUnitComponent() const {
  return held<PrimitiveUnitComponent>(component_);
}

bool Unit::operator==(const Unit& other) const { return typeId_ == other.typeId_; }

bool Unit::operator!=(const Unit& other) const { return !(*this == other); }

bool Unit::operator<(const Unit& other) const { return typeId_ < other.typeId_; }

bool Unit::operator>(const Unit& other) const { return other < *this; }

}  // namespace Units
