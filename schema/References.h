#pragma once

#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/Unit.h>

#include <set>
#include <string>
#include <unordered_set>

namespace Units {

/// What stored records refer to, gathered by the collectors of the kinds.
///
/// The type ids cannot tell what has been walked: a quantity adds the id of its unit before it
/// walks it. Records that several others share are walked once, so that a collector costs what it
/// reaches, not the number of paths there.
struct References {
  std::set<std::string> typeIds;
  std::unordered_set<const Factor*> walkedFactors;
  std::unordered_set<const Unit*> walkedUnits;
};

}  // namespace Units
