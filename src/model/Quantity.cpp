#include <TrelvonUnits/Quantity.h>

namespace Units {

Quantity::Quantity(const std::string& typeId, const std::string& name,
                   const std::vector<Unit>& units)
    : typeId_(typeId), name_(name), units_(units) {}

// The fields are const: moving copies.
Quantity::Quantity(const Quantity& other) = default;
Quantity::Quantity(Quantity&& other) = default;
Quantity::~Quantity() = default;

std::string Quantity::getTypeId() const { return typeId_; }

std::string Quantity::getName() const { return name_; }

std::vector<Unit> Quantity::getUnits() const { return units_; }

bool Quantity::operator==(const Quantity& other) const { return typeId_ == other.typeId_; }

bool Quantity::operator!=(const Quantity& other) const { return !(*this == other); }

bool Quantity::operator<(const Quantity& other) const { return typeId_ < other.typeId_; }

bool Quantity::operator>(const Quantity& other) const { return other < *this; }

}  // namespace Units
