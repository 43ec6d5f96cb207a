#include "model/RecordContents.h"

#include <TrelvonUnits/Quantity.h>

namespace Units {

Quantity::Quantity(const std::string& typeId, const std::string& name,
                   const std::vector<Unit>& units)
    : contents_(new Contents(SharedText(typeId), name, units)) {}

// Contents are shared, so a move is a copy.
Quantity::Quantity(const Quantity& other) noexcept = default;
Quantity::Quantity(Quantity&& other) noexcept = default;
Quantity::~Quantity() = default;

std::string Quantity::getTypeId() const { return contents_->typeId; }

std::string Quantity::getName() const { return contents_->name; }

std::vector<Unit> Quantity::getUnits() const { return contents_->units; }

bool Quantity::operator==(const Quantity& other) const {
  return contents_->typeId.str() == other.contents_->typeId.str();
}

bool Quantity::operator!=(const Quantity& other) const { return !(*this == other); }

bool Quantity::operator<(const Quantity& other) const {
  return contents_->typeId.str() < other.contents_->typeId.str();
}

bool Quantity::operator>(const Quantity& other) const { return other < *this; }

}  // namespace Units
