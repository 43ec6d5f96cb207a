#include <TrelvonUnits/Dimension.h>

#include <utility>

namespace Units {

Dimension::Dimension(std::string typeId) : typeId_(std::move(typeId)) {}

// The fields are const: moving copies.
Dimension::Dimension(const Dimension& other) = default;
Dimension::Dimension(Dimension&& other) = default;
Dimension::~Dimension() = default;

std::string Dimension::getTypeId() const { return typeId_; }

bool Dimension::operator==(const Dimension& other) const { return typeId_ == other.typeId_; }

bool Dimension::operator!=(const Dimension& other) const { return !(*this == other); }

bool Dimension::operator<(const Dimension& other) const { return typeId_ < other.typeId_; }

bool Dimension::operator>(const Dimension& other) const { return other < *this; }

}  // namespace Units
