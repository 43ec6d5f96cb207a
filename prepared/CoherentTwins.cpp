#include "prepared/CoherentTwins.h"

#include <vector>

namespace Units {

namespace {

// Names of the copies, which must not meet: a source has one id for one thing.
std::string copyOf(const std::string& typeId) { return "copy " + typeId; }
std::string twinOf(const std::string& typeId) { return "twin " + typeId; }

std::map<std::string, int> renamed(const std::map<std::string, int>& powers,
                                   std::string (*name)(const std::string&)) {
  std::map<std::string, int> result;
  for (const auto& [typeId, exponent] : powers) result.emplace(name(typeId), exponent);
  return result;
}

/// Adds a record after all that it rests on, however long the way down is.
/// @param added  the records that are there already.
void addParentsFirst(const std::string& root, std::set<std::string>& added,
                     const std::function<std::map<std::string, int>(const std::string&)>& parentsOf,
                     const std::function<void(const std::string&)>& add) {
  std::vector<std::string> waiting = {root};
  while (!waiting.empty()) {
    const std::string typeId = waiting.back();
    const std::size_t before = waiting.size();
    if (added.count(typeId) == 0) {
      for (const auto& [parent, exponent] : parentsOf(typeId))
        if (added.count(parent) == 0) waiting.push_back(parent);
      if (waiting.size() != before) continue;
      add(typeId);
      added.insert(typeId);
    }
    waiting.pop_back();
  }
}

}  // namespace

CoherentTwins::CoherentTwins(const UnitsEngine& source)
    : source_(source), engine_(CreateUnitsEngine()) {}

double CoherentTwins::factorOf(const std::string& unitTypeId) {
  addUnits(unitTypeId);
  return engine_->convert(1.0, copyOf(unitTypeId), twinOf(unitTypeId));
}

bool CoherentTwins::areReciprocal(const std::string& unitTypeId, const std::string& otherTypeId) {
  addUnits(unitTypeId);
  addUnits(otherTypeId);
  return engine_->convert(2.0, twinOf(unitTypeId), twinOf(otherTypeId)) != 2.0;
}

void CoherentTwins::addUnits(const std::string& root) {
  addParentsFirst(
      root, units_, [this](const std::string& typeId) { return parentsOfUnit(typeId); },
      [this](const std::string& typeId) { addUnitWithTwin(typeId); });
}

void CoherentTwins::addFactors(const std::string& root) {
  addParentsFirst(
      root, factors_,
      [this](const std::string& typeId) {
        return source_.getFactor(typeId).getFactorComponent().getParentFactorPowers();
      },
      [this](const std::string& typeId) { addFactor(typeId); });
}

CoherentTwins::Parents CoherentTwins::parentsOfUnit(const std::string& typeId) const {
  const auto derived = source_.getUnit(typeId).getDerivedUnitComponent();
  return derived ? derived->getParentUnitPowers() : Parents();
}

void CoherentTwins::addUnitWithTwin(const std::string& typeId) {
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

void CoherentTwins::addFactor(const std::string& typeId) {
  const FactorComponent component = source_.getFactor(typeId).getFactorComponent();
  engine_->addFactor(Factor(
      copyOf(typeId),
      FactorComponent(component.getFactor(), renamed(component.getParentFactorPowers(), copyOf))));
}

}  // namespace Units
