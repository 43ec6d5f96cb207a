#include "model/RecordContents.h"

#include <TrelvonUnits/Dimension.h>

#include <utility>

namespace Units {

Dimension::Dimension(std::string typeId) : contents_(new Contents(SharedText(std::move(typeId)))) {}

// Contents are shared, so a move is a copy.
Dimension::Dimension(const Dimension& other) noexcept = default;
Dimension::Dimension(Dimension&& other) noexcept = default;
Dimension::~Dimension() = default;

std::string Dimension::getTypeId() const { return contents_->typeId; }

bool Dimension::operator==(const Dimension& other) const {
  return contents_->typeId.str() == other.contents_->typeId.str();
}

bool Dimension::operator!=(const Dimension& other) const { return !(*this == other); }

bool Dimension::operator<(const Dimension& other) const {
  return contents_->typeId.str() < other.contents_->typeId.str();
}

bool Dimension::operator>(const Dimension& other) const { return other < *this; }

}  // namespace Units
