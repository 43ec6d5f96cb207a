#include "naming/CodedUnits.h"

#include "model/RecordAccess.h"

#include <cmath>
#include <utility>

namespace Units {

namespace {

constexpr double nearness = 1e-12;  // of factors, relative

CodedUnits::Powers nonZero(const CodedUnits::Powers& powers) {
  CodedUnits::Powers kept;
  for (const auto& power : powers)
    if (power.second != 0) kept.insert(kept.end(), power);
  return kept;
}

}  // namespace

CodedUnits::CodedUnits(const UnitsEngine& engine, std::vector<Unit> units)
    : units_(std::move(units)) {
  SizeFinder reducer(engine);
  terms_.reserve(units_.size());
  for (const Unit& unit : units_) {
    terms_.push_back(reducer.termsOf(RecordAccess::typeId(unit)));
    if (!terms_.back().isAbsolute)
      byPowers_[nonZero(terms_.back().powers)].push_back(terms_.size() - 1);
  }
}

std::vector<std::size_t> CodedUnits::withTerms(const SizeAndPowers& terms) const {
  std::vector<std::size_t> units;
  const auto found = byPowers_.find(nonZero(terms.powers));
  if (found == byPowers_.end()) return units;
  for (const std::size_t unit : found->second)
    if (std::fabs(terms_[unit].factor - terms.factor) <= nearness * std::fabs(terms.factor))
      units.push_back(unit);
  return units;
}

}  // namespace Units
