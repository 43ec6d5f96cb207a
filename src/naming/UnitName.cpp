#include "naming/UnitNameContents.h"

namespace Units {

UnitName::UnitName(const Shared<Contents>& contents, bool isExact) noexcept
    : contents_(contents), isExact_(isExact) {}

// Contents are shared, so a move is a copy.
UnitName::UnitName(const UnitName& other) noexcept = default;
UnitName::UnitName(UnitName&& other) noexcept = default;
UnitName::~UnitName() = default;

Unit UnitName::getUnit() const { return contents_->unit; }

NameKind UnitName::getKind() const { return contents_->kind; }

std::string UnitName::getText() const { return contents_->text; }

bool UnitName::isExact() const { return isExact_; }

}  // namespace Units
