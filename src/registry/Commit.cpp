#include "registry/Commit.h"

#include "model/RecordAccess.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Units {

namespace {

/// The node of a record that is built or stored.
/// @throws UnrecognizedIdentifierException  there is no such record.
template <class Kind>
const auto& nodeOf(const std::string& typeId, const Kind& kind) {
  const auto* const built = kind.built.findNode(typeId);
  return built ? *built : lookUpNode(kind.objects, typeId);
}

template <class Parents, class Kind>
void link(Parents& parents, const ParentList& powers, const Kind& kind) {
  parents.reserve(powers.size());
  for (const auto& [typeId, exponent] : powers)
    parents.push_back({&nodeOf(typeId, kind), exponent});
}

void linkFactors(Registries& registries) {
  for (auto& [typeId, node] : registries.factors.built.nodes()) {
    const FactorComponent& component = RecordAccess::factorComponent(node.record);
    node.ownValue = RecordAccess::factor(component);
    link(node.parents, RecordAccess::parentFactorPowers(component), registries.factors);
  }
}

bool isSimple(const RecordNode<Unit>& unit) {
  constexpr std::size_t maxParents = 8;
  return !unit.isAbsolute && unit.parents.size() + unit.parentFactors.size() <= maxParents &&
         std::all_of(unit.parents.begin(), unit.parents.end(), [](const auto& power) {
           return RecordAccess::primitive(power.parent->record) != nullptr;
         });
}

void linkUnits(Registries& registries) {
  for (auto& [typeId, node] : registries.units.built.nodes()) {
    if (const auto* const absolute = RecordAccess::absolute(node.record)) {
      node.isAbsolute = true;
      node.parents = {{&nodeOf(RecordAccess::parentUnit(*absolute), registries.units), 1}};
    } else if (const auto* const derived = RecordAccess::derived(node.record)) {
      const FactorComponent& component = RecordAccess::factorComponent(*derived);
      node.ownFactor = RecordAccess::factor(component);
      link(node.parents, RecordAccess::parentUnitPowers(*derived), registries.units);
      link(node.parentFactors, RecordAccess::parentFactorPowers(component), registries.factors);
    } else {
      node.parents = {{&node, 1}};
    }
    node.isSimple = isSimple(node);
  }
}

template <class Kind>
void reserve(Kind& kind) {
  kind.objects.reserveFor(kind.built);
}

template <class Kind>
void store(Kind& kind) noexcept {
  kind.objects.merge(kind.built);
}

}  // namespace

void commit(Registries& registries) {
  // Steps that may throw come first. None of them changes what is stored.
  linkFactors(registries);
  linkUnits(registries);
  SymbolTexts symbolTexts(registries.symbols.built);
  reserve(registries.dimensions);
  reserve(registries.factors);
  reserve(registries.units);
  reserve(registries.symbols);
  reserve(registries.quantities);

  // From here on, nothing allocates or throws. Nodes change their owner but keep their addresses.
  store(registries.dimensions);
  store(registries.factors);
  store(registries.units);
  store(registries.symbols);
  store(registries.quantities);
  registries.symbolTexts.merge(std::move(symbolTexts));
}

BuiltDropper::~BuiltDropper() {
  registries.dimensions.built = {};
  registries.factors.built = {};
  registries.units.built = {};
  registries.symbols.built = {};
  registries.quantities.built = {};
}

}  // namespace Units
