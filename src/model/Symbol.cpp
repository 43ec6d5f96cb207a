#include "model/RecordContents.h"

#include <TrelvonUnits/Symbol.h>

namespace Units {

Symbol::Symbol(const std::string& typeId, const Unit& unit,
               const std::optional<PrefixOrSuffix>& prefixOrSuffix)
    : contents_(new Contents(SharedText(typeId), unit, prefixOrSuffix)) {}

// Contents are shared, so a move is a copy.
Symbol::Symbol(const Symbol& other) noexcept = default;
Symbol::Symbol(Symbol&& other) noexcept = default;
Symbol::~Symbol() = default;

std::string Symbol::getTypeId() const { return contents_->typeId; }

Unit Symbol::getUnit() const { return contents_->unit; }

std::optional<PrefixOrSuffix> Symbol::getPrefixOrSuffix() const {
  return contents_->prefixOrSuffix;
}

bool Symbol::operator==(const Symbol& other) const {
  return contents_->typeId.str() == other.contents_->typeId.str();
}

bool Symbol::operator!=(const Symbol& other) const { return !(*this == other); }

bool Symbol::operator<(const Symbol& other) const {
  return contents_->typeId.str() < other.contents_->typeId.str();
}

bool Symbol::operator>(const Symbol& other) const { return other < *this; }

}  // namespace Units
