#include "model/SizeAndPowers.h"

#include "model/Parents.h"
#include "model/Powers.h"
#include "model/RecordAccess.h"

#include <cmath>
#include <cstdint>
#include <set>
#include <vector>

namespace Units {

namespace {

/// Works out what a record needs, parents first, and then the record.
/// @param get      returns the record of a type id.
/// @param combine  returns the terms of a record, once those of its parents are known.
template <class Value, class Get, class Combine>
const Value& know(const std::string& typeId, std::map<std::string, Value>& known, const Get& get,
                  const Combine& combine) {
  std::vector<std::string> waiting = {typeId};
  std::set<std::string> entered;
  while (!waiting.empty()) {
    const std::string next = waiting.back();
    if (known.count(next) != 0) {
      waiting.pop_back();
      continue;
    }
    const auto record = get(next);
    if (entered.insert(next).second) addParents(record, waiting);
    if (waiting.back() != next) continue;
    known.emplace(next, combine(record));
    waiting.pop_back();
  }
  return known.at(typeId);
}

/// Clamps each sum once it is whole, as the engine does.
void saturateAll(SizeAndPowers& terms) {
  for (auto& [primitive, sum] : terms.powers) {
    const std::int64_t clamped = saturate(sum);
    if (clamped != sum) terms.overflows = true;
    sum = clamped;
  }
}

}  // namespace

double SizeFinder::valueOf(const std::string& factorTypeId) {
  return know(
      factorTypeId, factors_, [&](const std::string& id) { return engine_.getFactor(id); },
      [&](const Factor& factor) {
        const FactorComponent& component = RecordAccess::factorComponent(factor);
        double product = RecordAccess::factor(component);
        for (const auto& [parent, exponent] : RecordAccess::parentFactorPowers(component))
          product *= std::pow(factors_.at(parent), exponent);
        return product;
      });
}

SizeAndPowers SizeFinder::combine(const Unit& unit) const {
  SizeAndPowers terms;
  if (const auto* const absolute = RecordAccess::absolute(unit)) {
    terms = units_.at(RecordAccess::parentUnit(*absolute));
    terms.isAbsolute = true;
    return terms;
  }
  const auto* const derived = RecordAccess::derived(unit);
  if (!derived) {
    terms.powers.emplace(RecordAccess::typeId(unit), 1);
    return terms;
  }
  const FactorComponent& component = RecordAccess::factorComponent(*derived);
  terms.factor = RecordAccess::factor(component);
  for (const auto& [parent, exponent] : RecordAccess::parentFactorPowers(component))
    terms.factor *= std::pow(factors_.at(parent), exponent);
  for (const auto& [parent, exponent] : RecordAccess::parentUnitPowers(*derived)) {
    const SizeAndPowers& known = units_.at(parent);
    terms.factor *= std::pow(known.factor, exponent);
    for (const auto& [primitive, power] : known.powers) {
      std::int64_t& sum = terms.powers[primitive];
      sum = clampTerm(sum + clampTerm(power * exponent));
    }
  }
  saturateAll(terms);
  for (const auto& [parent, exponent] : RecordAccess::parentUnitPowers(*derived))
    for (const auto& [primitive, power] : units_.at(parent).powers)
      if (power != 0 && terms.powers.at(primitive) == 0) terms.cancels = true;
  return terms;
}

const SizeAndPowers& SizeFinder::termsOf(const std::string& unitTypeId) {
  return know(
      unitTypeId, units_, [&](const std::string& id) { return engine_.getUnit(id); },
      [&](const Unit& unit) {
        if (const auto* const derived = RecordAccess::derived(unit))
          for (const auto& [parent, exponent] :
               RecordAccess::parentFactorPowers(RecordAccess::factorComponent(*derived)))
            valueOf(parent);
        return combine(unit);
      });
}

}  // namespace Units
