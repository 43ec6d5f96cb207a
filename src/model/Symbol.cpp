#include <TrelvonUnits/Symbol.h>

namespace Units {

Symbol::Symbol(const std::string& typeId, const Unit& unit,
               const std::optional<PrefixOrSuffix>& prefixOrSuffix)
    : typeId_(typeId), unit_(unit), prefixOrSuffix_(prefixOrSuffix) {}

// The fields are const: moving copies.
Symbol::Symbol(const Symbol& other) = default;
Symbol::Symbol(Symbol&& other) = default;
Symbol::~Symbol() = default;

std::string Symbol::getTypeId() const { return typeId_; }

Unit Symbol::getUnit() const { return unit_; }

std::optional<PrefixOrSuffix> Symbol::getPrefixOrSuffix() const { return prefixOrSuffix_; }

bool Symbol::operator==(const Symbol& other) const { return typeId_ == other.typeId_; }

bool Symbol::operator!=(const Symbol& other) const { return !(*this == other); }

bool Symbol::operator<(const Symbol& other) const { return typeId_ < other.typeId_; }

bool Symbol::operator>(const Symbol& other) const { return other < *this; }

}  // namespace Units
