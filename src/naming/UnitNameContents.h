#pragma once

#include "model/RecordContents.h"

#include <TrelvonUnits/UnitNames.h>

#include <string>
#include <utility>

namespace Units {

/// What all copies of a `UnitName` share.
struct UnitName::Contents : CountedContents {
  Contents(const Unit& named, NameKind textKind, std::string name)
      : unit(named), kind(textKind), text(std::move(name)) {}

  const Unit unit;
  const NameKind kind;
  const std::string text;
};

}  // namespace Units
