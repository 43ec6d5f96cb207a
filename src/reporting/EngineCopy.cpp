#include "reporting/EngineCopy.h"

#include "reporting/Parents.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace Schemas {

namespace {

using namespace Units;

/// Calls `add` with each record, parents first.
template <class Record, class Add>
void addInOrder(const std::map<std::string, Record>& records, const Add& add) {
  std::set<std::string> entered;
  std::vector<std::pair<const Record*, std::vector<std::string>>> path;
  const auto enter = [&](const std::string& typeId) {
    const auto found = records.find(typeId);
    if (found == records.end() || !entered.insert(typeId).second) return;
    std::vector<std::string> parents;
    addParents(found->second, parents);
    path.emplace_back(&found->second, std::move(parents));
  };
  for (const auto& [typeId, record] : records) {
    enter(typeId);
    while (!path.empty()) {
      if (path.back().second.empty()) {
        add(*path.back().first);
        path.pop_back();
      } else {
        const std::string parent = std::move(path.back().second.back());
        path.back().second.pop_back();
        enter(parent);
      }
    }
  }
}

template <class Action>
void skipInvalid(const Action& action) {
  try {
    action();
  } catch (const ValidationException&) {
    // Only what a host's own engine lists.
  }
}

}  // namespace

std::unique_ptr<UnitsEngine> copyEngine(const UnitsEngine& engine) {
  std::unique_ptr<UnitsEngine> copy(CreateUnitsEngine());
  for (const auto& [typeId, dimension] : engine.getDimensions())
    skipInvalid([&, record = dimension] { copy->addDimension(record); });
  addInOrder(engine.getFactors(),
             [&](const Factor& factor) { skipInvalid([&] { copy->addFactor(factor); }); });
  addInOrder(engine.getUnits(),
             [&](const Unit& unit) { skipInvalid([&] { copy->addUnit(unit); }); });
  return copy;
}

void copySymbols(const UnitsEngine& engine, UnitsEngine& copy) {
  for (const auto& [typeId, symbol] : engine.getSymbols())
    skipInvalid([&, record = symbol] { copy.addSymbol(record); });
}

void copyQuantities(const UnitsEngine& engine, UnitsEngine& copy) {
  for (const auto& [typeId, quantity] : engine.getQuantities())
    skipInvalid([&, record = quantity] { copy.addQuantity(record); });
}

}  // namespace Schemas
