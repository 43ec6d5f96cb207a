/// A unit picker: the quantities, the units of one of them, and a search while the user types.
#include <TrelvonUnits/TrelvonUnits.h>

#include <iostream>
#include <memory>
#include <string>

namespace {

/// The text after the unit's name in the list: that of its own symbol, not of an alias.
std::string textOf(const Units::UnitsEngine& engine, const Units::Unit& unit) {
  for (const auto& [typeId, symbol] : engine.getSymbolsOfUnit(unit.getTypeId()))
    if (typeId.rfind("trelvon.symbol:", 0) == 0)
      if (const auto shown = symbol.getPrefixOrSuffix()) return shown->getText();
  return "";
}

}  // namespace

int main(int, char** arguments) {
  const std::string schemas = arguments[1];
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* pack : {"/core", "/symbols", "/aliases"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + pack, *engine);

  // The list: the units of a quantity, its default unit first.
  const auto torque = engine->getQuantity("trelvon.quantity:torque-1.0.0");
  for (const Units::Unit& unit : torque.getUnits())
    std::cout << unit.getName() << " (" << textOf(*engine, unit) << ")\n";

  // The search: names that begin with the text or are similar to it.
  const Units::UnitNames names(*engine);
  for (const char* typed : {"newton m", "in", "kilometre"}) {
    std::cout << '"' << typed << "\":";
    auto found = names.completions(typed, 3);
    if (found.empty())
      for (const Units::UnitName& name : names.suggest(typed, 1)) found.push_back(name);
    for (const Units::UnitName& name : found) std::cout << "  " << name.getText();
    std::cout << '\n';
  }

  // The choice: the number changes, the length does not.
  const std::string inch = "trelvon.unit:inch-1.0.0", chosen = "trelvon.unit:millimeter-1.0.0";
  std::cout << "2.5 in = " << engine->convert(2.5, inch, chosen) << " mm\n";
}
