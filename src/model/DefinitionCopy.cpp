#include "model/DefinitionCopy.h"

#include "model/RecordAccess.h"

#include <TrelvonUnits/Exceptions.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Units {

namespace {

std::vector<std::string> parentsOf(const Factor& factor) {
  std::vector<std::string> parents;
  const FactorComponent& component = RecordAccess::factorComponent(factor);
  for (const auto& [parent, exponent] : RecordAccess::parentFactorPowers(component))
    parents.push_back(parent);
  return parents;
}

std::vector<std::string> parentsOf(const Unit& unit) {
  std::vector<std::string> parents;
  if (const auto* const absolute = RecordAccess::absolute(unit))
    parents.push_back(RecordAccess::parentUnit(*absolute));
  if (const auto* const derived = RecordAccess::derived(unit))
    for (const auto& [parent, exponent] : RecordAccess::parentUnitPowers(*derived))
      parents.push_back(parent);
  return parents;
}

template <class Record>
std::vector<std::string> parentsOf(const Record&) {
  return {};
}

/// Passes each record on, behind its parents.
template <class Record, class Add>
void addParentsFirst(const std::map<std::string, Record>& records, Add add) {
  std::set<std::string> entered;
  std::vector<std::pair<const Record*, bool>> path;  // and whether its parents were passed on
  const auto enter = [&](const std::string& typeId) {
    const auto found = records.find(typeId);
    if (found != records.end() && entered.insert(typeId).second)
      path.emplace_back(&found->second, false);
  };
  for (const auto& listed : records) {
    enter(listed.first);
    while (!path.empty()) {
      const Record& next = *path.back().first;
      if (path.back().second) {
        add(next);
        path.pop_back();
      } else {
        path.back().second = true;
        for (const std::string& parent : parentsOf(next)) enter(parent);
      }
    }
  }
}

template <class Record>
void addAll(const std::map<std::string, Record>& records, void (UnitsEngine::*add)(Record),
            UnitsEngine& to) {
  addParentsFirst(records, [&](const Record& record) {
    try {
      (to.*add)(record);
    } catch (const ValidationException&) {  // left out
    }
  });
}

}  // namespace

void copyDefinitions(const UnitsEngine& from, UnitsEngine& to) {
  addAll(from.getDimensions(), &UnitsEngine::addDimension, to);
  addAll(from.getFactors(), &UnitsEngine::addFactor, to);
  addAll(from.getUnits(), &UnitsEngine::addUnit, to);
  addAll(from.getSymbols(), &UnitsEngine::addSymbol, to);
  addAll(from.getQuantities(), &UnitsEngine::addQuantity, to);
}

}  // namespace Units
