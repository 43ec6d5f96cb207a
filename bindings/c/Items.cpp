#include "bindings/c/Items.h"

namespace C {

trelvon_dimension itemOf(trelvon_list& list, const Units::Dimension& dimension) {
  return {list.keep(dimension.getTypeId())};
}

trelvon_factor itemOf(trelvon_list& list, const Units::Factor& factor) {
  const Units::FactorComponent component = factor.getFactorComponent();
  const auto& parents = list.keep(component.getParentFactorPowers());
  return {list.keep(factor.getTypeId()), component.getFactor(), parents.data(), parents.size()};
}

trelvon_unit itemOf(trelvon_list& list, const Units::Unit& unit) {
  trelvon_unit item{};
  item.type_id = list.keep(unit.getTypeId());
  item.name = list.keep(unit.getName());
  item.system = unit.getUnitSystem() == Units::System::Metric ? TRELVON_METRIC : TRELVON_IMPERIAL;
  if (const auto primitive = unit.getPrimitiveUnitComponent()) {
    item.kind = TRELVON_PRIMITIVE;
    const auto dimension = primitive->getDimension();
    if (dimension) item.dimension = list.keep(dimension->getTypeId());
  } else if (const auto absolute = unit.getAbsoluteUnitComponent()) {
    item.kind = TRELVON_ABSOLUTE;
    item.parent = list.keep(absolute->getParentUnit());
    item.offset = absolute->getOffset();
  } else if (const auto derived = unit.getDerivedUnitComponent()) {
    item.kind = TRELVON_DERIVED;
    const Units::FactorComponent component = derived->getFactorComponent();
    item.factor = component.getFactor();
    const auto& parents = list.keep(derived->getParentUnitPowers());
    item.parents = parents.data();
    item.parent_count = parents.size();
    const auto& factors = list.keep(component.getParentFactorPowers());
    item.parent_factors = factors.data();
    item.parent_factor_count = factors.size();
  }
  return item;
}

trelvon_symbol itemOf(trelvon_list& list, const Units::Symbol& symbol) {
  trelvon_symbol item{};
  item.type_id = list.keep(symbol.getTypeId());
  item.unit = list.keep(symbol.getUnit().getTypeId());
  const auto shown = symbol.getPrefixOrSuffix();
  item.is_composite = !shown;
  if (!shown) return item;
  item.is_prefix = shown->getPlacement() == Units::Placement::Prefix;
  item.has_space = shown->hasSpace();
  item.text = list.keep(shown->getText());
  return item;
}

trelvon_quantity itemOf(trelvon_list& list, const Units::Quantity& quantity) {
  std::vector<trelvon_text> units;
  for (const Units::Unit& unit : quantity.getUnits()) units.push_back(list.keep(unit.getTypeId()));
  list.textArrays.push_back(std::move(units));
  const auto& kept = list.textArrays.back();
  return {list.keep(quantity.getTypeId()), list.keep(quantity.getName()), kept.data(), kept.size()};
}

}  // namespace C
