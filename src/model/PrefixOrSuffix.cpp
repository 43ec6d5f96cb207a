#include <TrelvonUnits/PrefixOrSuffix.h>

namespace Units {

PrefixOrSuffix::PrefixOrSuffix(const std::string& text, Placement placement, bool hasSpace)
    : text_(text), placement_(placement), space_(hasSpace) {}

// The fields are const: moving copies.
PrefixOrSuffix::PrefixOrSuffix(const PrefixOrSuffix& other) = default;
PrefixOrSuffix::PrefixOrSuffix(PrefixOrSuffix&& other) = default;
PrefixOrSuffix::~PrefixOrSuffix() = default;

std::string PrefixOrSuffix::getText() const { return text_; }

Placement PrefixOrSuffix::getPlacement() const { return placement_; }

bool PrefixOrSuffix::hasSpace() const { return space_; }

}  // namespace Units
