#pragma once

#include "engine/Reduction.h"
#include "formula/UnitTerms.h"
#include "model/RecordStore.h"

#include <unordered_map>

namespace Units {

/// The engine's units for the length of one evaluation: a unit that a formula names a thousand
/// times is reduced once, and so is what several of its units depend on.
class FormulaUnits final : public UnitTermsSource {
 public:
  explicit FormulaUnits(const RecordStore<Unit>& units) : units_(units) {}

  const UnitTerms& termsOf(const Unit& unit) override;

 private:
  const RecordStore<Unit>& units_;
  Reducer reducer_;
  std::unordered_map<const void*, UnitTerms> terms_;  // by the identity of units
};

}  // namespace Units
