#include <TrelvonUnits/Factor.h>

namespace Units {

Factor::Factor(const std::string& typeId, const FactorComponent& factorComponent)
    : typeId_(typeId), factorComponent_(factorComponent) {}

// The fields are const: moving copies.
Factor::Factor(const Factor& other) = default;
Factor::Factor(Factor&& other) = default;
Factor::~Factor() = default;

std::string Factor::getTypeId() const { return typeId_; }

FactorComponent Factor::getFactorComponent() const { return factorComponent_; }

bool Factor::operator==(const Factor& other) const { return typeId_ == other.typeId_; }

bool Factor::operator!=(const Factor& other) const { return !(*this == other); }

bool Factor::operator<(const Factor& other) const { return typeId_ < other.typeId_; }

bool Factor::operator>(const Factor& other) const { return other < *this; }

}  // namespace Units
