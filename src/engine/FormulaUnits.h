#pragma once

#include "engine/Reduction.h"
#include "formula/UnitTerms.h"
#include "model/RecordStore.h"

#include <unordered_map>

namespace Units {

/// Reduces the units that a formula names, once each per evaluation. Ancestors that they share are
/// reduced once, too.
class FormulaUnits final : public UnitTermsSource {
 public:
  explicit FormulaUnits(const RecordStore<Unit>& units) : units_(units) {}

  const UnitTerms& termsOf(const Unit& unit) override;

 private:
  const RecordStore<Unit>& units_;
  Reducer reducer_;
  std::unordered_map<const void*, UnitTerms> terms_;  // by identity of the unit
};

}  // namespace Units
