#pragma once

#include "model/RecordContents.h"

#include <TrelvonUnits/UnitCodes.h>

#include <map>
#include <string>
#include <vector>

namespace Units {

/// The codes of a unit, by system.
using CodesBySystem = std::map<std::string, std::vector<std::string>>;

/// What all copies of `UnitCodes` share.
struct UnitCodes::Contents : CountedContents {
  std::map<std::string, CodesBySystem> units;  // by type id
};

}  // namespace Units
