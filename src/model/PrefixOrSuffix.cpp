#include "model/RecordContents.h"

#include <TrelvonUnits/PrefixOrSuffix.h>

namespace Units {

PrefixOrSuffix::PrefixOrSuffix(const std::string& text, Placement placement, bool hasSpace)
    : contents_(new Contents(text, placement, hasSpace)) {}

// Contents are shared, so a move is a copy.
PrefixOrSuffix::PrefixOrSuffix(const PrefixOrSuffix& other) noexcept = default;
PrefixOrSuffix::PrefixOrSuffix(PrefixOrSuffix&& other) noexcept = default;
PrefixOrSuffix::~PrefixOrSuffix() = default;

std::string PrefixOrSuffix::getText() const { return contents_->text; }

Placement PrefixOrSuffix::getPlacement() const { return contents_->placement; }

bool PrefixOrSuffix::hasSpace() const { return contents_->space; }

}  // namespace Units
