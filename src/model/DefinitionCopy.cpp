#include "model/DefinitionCopy.h"

#include "model/Parents.h"

#include <TrelvonUnits/Exceptions.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace Units {

namespace {

template <class Record>
void addParents(const Record&, std::vector<std::string>&) {}  // of other kinds: none

/// Passes each record on, after its parents.
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
        std::vector<std::string> parents;
        addParents(next, parents);
        for (const std::string& parent : parents) enter(parent);
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

void copyUnits(const UnitsEngine& from, UnitsEngine& to) {
  addAll(from.getDimensions(), &UnitsEngine::addDimension, to);
  addAll(from.getFactors(), &UnitsEngine::addFactor, to);
  addAll(from.getUnits(), &UnitsEngine::addUnit, to);
}

void copySymbols(const UnitsEngine& from, UnitsEngine& to) {
  addAll(from.getSymbols(), &UnitsEngine::addSymbol, to);
}

void copyQuantities(const UnitsEngine& from, UnitsEngine& to) {
  addAll(from.getQuantities(), &UnitsEngine::addQuantity, to);
}

}  // namespace Units
