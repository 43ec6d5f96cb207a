#include "tools/trelvon/Ancestors.h"

#include "tools/trelvon/Lookup.h"

#include <TrelvonUnits/Exceptions.h>

#include <map>

namespace tool {

namespace {

void addParents(std::vector<Parent>& parents, const std::map<std::string, int>& powers) {
  for (const auto& [typeId, power] : powers) parents.push_back({typeId, power});
}

Described describeUnit(const Units::Unit& unit) {
  Described described{"", unit.getName(), {}, {}, {}};
  if (const auto derived = unit.getDerivedUnitComponent()) {
    described.kind = "derived unit";
    described.factor = derived->getFactorComponent().getFactor();
    addParents(described.parents, derived->getFactorComponent().getParentFactorPowers());
    addParents(described.parents, derived->getParentUnitPowers());
  } else if (const auto absolute = unit.getAbsoluteUnitComponent()) {
    described.kind = "absolute unit";
    described.offset = absolute->getOffset();
    described.parents.push_back({absolute->getParentUnit()});
  } else {
    described.kind = "primitive unit";
    if (const auto dimension = unit.getPrimitiveUnitComponent()->getDimension())
      described.parents.push_back({dimension->getTypeId()});
  }
  return described;
}

Described describeSymbol(const Units::Symbol& symbol) {
  const std::string text = textOf(symbol);
  return {symbol.getPrefixOrSuffix() ? "symbol" : "composite symbol",
          text.empty() ? Units::UnitNames::localId(symbol.getTypeId()) : text,
          {},
          {},
          {{symbol.getUnit().getTypeId()}}};
}

Described describeQuantity(const Units::Quantity& quantity) {
  Described described{"quantity", quantity.getName(), {}, {}, {}};
  for (const Units::Unit& unit : quantity.getUnits())
    described.parents.push_back({unit.getTypeId()});
  return described;
}

Described describeFactor(const Units::Factor& factor) {
  const Units::FactorComponent component = factor.getFactorComponent();
  Described described{
      "factor", Units::UnitNames::localId(factor.getTypeId()), component.getFactor(), {}, {}};
  addParents(described.parents, component.getParentFactorPowers());
  return described;
}

/// The description of a record, if there is one: an engine does not tell which kind an id belongs
/// to.
template <class Get>
std::optional<Described> ifThere(Get get) {
  try {
    return get();
  } catch (const Units::UnrecognizedIdentifierException&) {
    return std::nullopt;
  }
}

}  // namespace

Described describe(const Units::UnitsEngine& engine, const std::string& typeId) {
  if (const auto unit = ifThere([&] { return describeUnit(engine.getUnit(typeId)); })) return *unit;
  if (const auto factor = ifThere([&] { return describeFactor(engine.getFactor(typeId)); }))
    return *factor;
  if (const auto symbol = ifThere([&] { return describeSymbol(engine.getSymbol(typeId)); }))
    return *symbol;
  if (const auto quantity = ifThere([&] { return describeQuantity(engine.getQuantity(typeId)); }))
    return *quantity;
  return {
      "dimension", Units::UnitNames::localId(engine.getDimension(typeId).getTypeId()), {}, {}, {}};
}

}  // namespace tool
