#include "registry/Commit.h"

#include "model/RecordAccess.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>
#include <vector>

namespace Units {

namespace {

template <class Record>
using Addition = typename RecordStore<Record>::Addition;

/// The node of a record that is on its way in, or in already.
/// @throws UnrecognizedIdentifierException  there is none.
template <class Record>
const RecordNode<Record>& nodeOf(const std::string& typeId, const Addition<Record>& addition,
                                 const RecordStore<Record>& stored) {
  const auto added = addition.nodes.find(typeId);
  return added != addition.nodes.end() ? added->second : lookUpNode(stored, typeId);
}

template <class Record>
std::vector<ParentPower<Record>> link(const std::map<std::string, int>& powers,
                                      const Addition<Record>& addition,
                                      const RecordStore<Record>& stored) {
  std::vector<ParentPower<Record>> parents;
  parents.reserve(powers.size());
  for (const auto& [typeId, exponent] : powers)
    parents.push_back({&nodeOf(typeId, addition, stored), exponent});
  return parents;
}

void linkFactors(Addition<Factor>& factors, const RecordStore<Factor>& stored) {
  for (auto& [typeId, node] : factors.nodes)
    node.parents =
        link(RecordAccess::parentFactorPowers(RecordAccess::factorComponent(*node.record)), factors,
             stored);
}

bool isSimple(const RecordNode<Unit>& unit) {
  constexpr std::size_t few = 8;
  return !RecordAccess::absolute(*unit.record) &&
         unit.parents.size() + unit.parentFactors.size() <= few &&
         std::all_of(unit.parents.begin(), unit.parents.end(), [](const auto& power) {
           return RecordAccess::primitive(*power.parent->record) != nullptr;
         });
}

void linkUnits(Addition<Unit>& units, const Addition<Factor>& factors,
               const Registries& registries) {
  const RecordStore<Unit>& stored = registries.units.objects;
  for (auto& [typeId, node] : units.nodes) {
    if (const auto* const absolute = RecordAccess::absolute(*node.record)) {
      node.parents = link({{RecordAccess::parentUnit(*absolute), 1}}, units, stored);
    } else if (const auto* const derived = RecordAccess::derived(*node.record)) {
      const FactorComponent& component = RecordAccess::factorComponent(*derived);
      node.parents = link(RecordAccess::parentUnitPowers(*derived), units, stored);
      node.parentFactors =
          link(RecordAccess::parentFactorPowers(component), factors, registries.factors.objects);
    } else {
      node.parents = {{&node, 1}};
    }
    node.isSimple = isSimple(node);
  }
}

}  // namespace

void commit(RecordBatch&& batch, Registries& registries) {
  // What may throw comes first: nothing has changed yet.
  auto dimensions = registries.dimensions.objects.prepare(std::move(batch.dimensions));
  auto factors = registries.factors.objects.prepare(std::move(batch.factors));
  auto units = registries.units.objects.prepare(std::move(batch.units));
  auto symbols = registries.symbols.objects.prepare(std::move(batch.symbols));
  auto quantities = registries.quantities.objects.prepare(std::move(batch.quantities));
  linkFactors(factors, registries.factors.objects);
  linkUnits(units, factors, registries);
  SymbolTexts symbolTexts(symbols.records);

  // From here on nothing allocates or throws: nodes change their owner and stay where they are.
  registries.dimensions.objects.add(std::move(dimensions));
  registries.factors.objects.add(std::move(factors));
  registries.units.objects.add(std::move(units));
  registries.symbols.objects.add(std::move(symbols));
  registries.quantities.objects.add(std::move(quantities));
  registries.registeredTypeIds.merge(batch.typeIds);
  registries.symbolTexts.merge(std::move(symbolTexts));
}

}  // namespace Units
