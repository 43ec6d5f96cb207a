#pragma once

#include "model/RecordAccess.h"

#include <string>
#include <vector>

namespace Units {

/// Adds the type ids of the parents of a factor, or of the parent units of a unit.
inline void addParents(const Factor& factor, std::vector<std::string>& out) {
  const auto& powers = RecordAccess::parentFactorPowers(RecordAccess::factorComponent(factor));
  for (const auto& [parent, exponent] : powers) out.push_back(parent);
}

inline void addParents(const Unit& unit, std::vector<std::string>& out) {
  if (const auto* const absolute = RecordAccess::absolute(unit))
    out.push_back(RecordAccess::parentUnit(*absolute));
  if (const auto* const derived = RecordAccess::derived(unit))
    for (const auto& [parent, exponent] : RecordAccess::parentUnitPowers(*derived))
      out.push_back(parent);
}

}  // namespace Units
