#include "prepared/FactorFinder.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace Units {

namespace {

// Type ids in the second engine. They are unique because type ids of the source are.
std::string copyOf(const std::string& typeId) { return "copy:" + typeId; }
std::string twinOf(const std::string& typeId) { return "twin:" + typeId; }

std::map<std::string, int> renamed(const std::map<std::string, int>& powers,
                                   std::string (*name)(const std::string&)) {
  std::map<std::string, int> result;
  for (const auto& [typeId, exponent] : powers) result.emplace(name(typeId), exponent);
  return result;
}

/// A subnormal double, given 2^1000 times its value. Arithmetic might flush it to zero, so its bits
/// are set instead: they are its value in multiples of the smallest double.
double subnormal(double scaled) {
  const double count = std::fabs(scaled) * 0x1p74;
  const auto bits = static_cast<std::uint64_t>(count);
  double value;
  std::memcpy(&value, &bits, sizeof value);
  return value;
}

/// Adds a record after all of its ancestors, without recursion.
/// @param added  the records that have been added already.
/// @throws std::logic_error  a record is its own ancestor. This library's engine rejects such
///                           records, but the source may be a host's own engine.
void addParentsFirst(const std::string& root, std::set<std::string>& added,
                     const std::function<std::map<std::string, int>(const std::string&)>& parentsOf,
                     const std::function<void(const std::string&)>& add) {
  std::set<std::string> entered;
  std::vector<std::string> waiting = {root};
  while (!waiting.empty()) {
    const std::string typeId = waiting.back();
    if (added.count(typeId) == 0 && entered.insert(typeId).second) {
      for (const auto& [parent, exponent] : parentsOf(typeId)) {
        if (added.count(parent) != 0) continue;
        if (entered.count(parent) != 0)
          throw std::logic_error("The parents of " + parent + " lead back to it.");
        waiting.push_back(parent);
      }
      continue;
    }
    if (added.insert(typeId).second) add(typeId);
    waiting.pop_back();
  }
}

}  // namespace

FactorFinder::FactorFinder(const UnitsEngine& source)
    : source_(source), engine_(CreateUnitsEngine()) {}

double FactorFinder::factorOf(const std::string& unitTypeId) {
  addUnits(unitTypeId);
  const std::string copy = copyOf(unitTypeId);
  const std::string twin = twinOf(unitTypeId);
  const double factor = engine_->convert(1.0, copy, twin);
  if (factor != 0.0) return factor;
  // The factor is zero, or subnormal on a processor that flushes subnormal results to zero. The
  // sign comes from 1 / 0, because 0 / 1 - 0 is always -0 when rounding downward.
  const double sign = engine_->convert(1.0, twin, copy);
  return std::copysign(subnormal(engine_->convert(0x1p1000, copy, twin)), sign);
}

bool FactorFinder::areReciprocal(const std::string& unitTypeId, const std::string& otherTypeId) {
  addUnits(unitTypeId);
  addUnits(otherTypeId);
  return engine_->convert(2.0, twinOf(unitTypeId), twinOf(otherTypeId)) != 2.0;
}

void FactorFinder::addUnits(const std::string& root) {
  addParentsFirst(
      root, units_, [this](const std::string& typeId) { return parentsOfUnit(typeId); },
      [this](const std::string& typeId) { addUnitWithTwin(typeId); });
}

void FactorFinder::addFactors(const std::string& root) {
  addParentsFirst(
      root, factors_,
      [this](const std::string& typeId) {
        return source_.getFactor(typeId).getFactorComponent().getParentFactorPowers();
      },
      [this](const std::string& typeId) { addFactor(typeId); });
}

FactorFinder::Parents FactorFinder::parentsOfUnit(const std::string& typeId) const {
  const auto derived = source_.getUnit(typeId).getDerivedUnitComponent();
  return derived ? derived->getParentUnitPowers() : Parents();
}

void FactorFinder::addUnitWithTwin(const std::string& typeId) {
  const auto add = [&](const std::string& name, const auto& component) {
    engine_->addUnit(Unit(name, name, System::Metric, component));
  };
  const auto derived = source_.getUnit(typeId).getDerivedUnitComponent();
  if (!derived) {
    add(copyOf(typeId), PrimitiveUnitComponent());
    add(twinOf(typeId), DerivedUnitComponent({{copyOf(typeId), 1}}, FactorComponent()));
    return;
  }
  const FactorComponent component = derived->getFactorComponent();
  const Parents factors = component.getParentFactorPowers();
  for (const auto& [factor, exponent] : factors) addFactors(factor);
  const Parents parents = derived->getParentUnitPowers();
  add(copyOf(typeId),
      DerivedUnitComponent(renamed(parents, copyOf),
                           FactorComponent(component.getFactor(), renamed(factors, copyOf))));
  add(twinOf(typeId), DerivedUnitComponent(renamed(parents, twinOf), FactorComponent()));
}

void FactorFinder::addFactor(const std::string& typeId) {
  const FactorComponent component = source_.getFactor(typeId).getFactorComponent();
  engine_->addFactor(Factor(
      copyOf(typeId),
      FactorComponent(component.getFactor(), renamed(component.getParentFactorPowers(), copyOf))));
}

}  // namespace Units
