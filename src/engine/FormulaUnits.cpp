#include "engine/FormulaUnits.h"

#include "model/RecordAccess.h"

namespace Units {

const UnitTerms& FormulaUnits::termsOf(const Unit& unit) {
  const auto known = terms_.find(RecordAccess::identity(unit));
  if (known != terms_.end()) return known->second;
  const ReducedUnit reduced = reducer_.reduce(lookUpNode(units_, RecordAccess::typeId(unit)));
  const UnitTerms terms{reduced.factor, reduced.offset, UnitPowers(reduced.powers)};
  return terms_.emplace(RecordAccess::identity(unit), terms).first->second;
}

}  // namespace Units
