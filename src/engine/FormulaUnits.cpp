#include "engine/FormulaUnits.h"

#include "model/RecordAccess.h"

namespace Units {

const UnitTerms& FormulaUnits::termsOf(const Unit& unit) {
  const void* const identity = RecordAccess::identity(unit);
  for (std::optional<KnownUnit>& known : first_) {
    if (!known) known.emplace(KnownUnit{identity, reduce(unit)});
    if (known->identity == identity) return known->terms;
  }
  const auto known = others_.find(identity);
  if (known != others_.end()) return known->second;
  return others_.emplace(identity, reduce(unit)).first->second;
}

UnitTerms FormulaUnits::reduce(const Unit& unit) {
  const ReducedUnit reduced = reducer_.reduce(lookUpNode(units_, RecordAccess::typeId(unit)));
  return {reduced.factor, reduced.offset, UnitPowers(reduced.powers)};
}

}  // namespace Units
