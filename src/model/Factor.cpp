#include "model/RecordContents.h"

#include <TrelvonUnits/Factor.h>

namespace Units {

Factor::Factor(const std::string& typeId, const FactorComponent& factorComponent)
    : contents_(new Contents(SharedText(typeId), factorComponent)) {}

// Contents are shared, so a move is a copy.
Factor::Factor(const Factor& other) noexcept = default;
Factor::Factor(Factor&& other) noexcept = default;
Factor::~Factor() = default;

std::string Factor::getTypeId() const { return contents_->typeId; }

FactorComponent Factor::getFactorComponent() const { return contents_->factorComponent; }

bool Factor::operator==(const Factor& other) const {
  return contents_->typeId.str() == other.contents_->typeId.str();
}

bool Factor::operator!=(const Factor& other) const { return !(*this == other); }

bool Factor::operator<(const Factor& other) const {
  return contents_->typeId.str() < other.contents_->typeId.str();
}

bool Factor::operator>(const Factor& other) const { return other < *this; }

}  // namespace Units
