#pragma once

#include "engine/Reduction.h"
#include "formula/UnitTerms.h"
#include "model/RecordStore.h"

#include <array>
#include <optional>
#include <unordered_map>

namespace Units {

/// Reduces the units that a formula names, once each per evaluation. Ancestors that they share are
/// reduced once, too.
class FormulaUnits final : public UnitTermsSource {
 public:
  explicit FormulaUnits(const RecordStore<Unit>& units) : units_(units) {}

  const UnitTerms& termsOf(const Unit& unit) override;

 private:
  struct KnownUnit {
    const void* identity;
    UnitTerms terms;
  };

  UnitTerms reduce(const Unit& unit);

  const RecordStore<Unit>& units_;
  Reducer reducer_;
  std::array<std::optional<KnownUnit>, 4> first_;      // tuning: all that most formulas name
  std::unordered_map<const void*, UnitTerms> others_;  // by identity of the unit
};

}  // namespace Units
