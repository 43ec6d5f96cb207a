#include "tests/catalogue/Describe.h"

#include <cinttypes>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace Units {
namespace {

std::string describe(const FactorComponent& component) {
  return bitsOf(component.getFactor()) + "\t" + Units::describe(component.getParentFactorPowers());
}

std::string componentOf(const Unit& unit) {
  if (const auto absolute = unit.getAbsoluteUnitComponent())
    return "absolute\t" + absolute->getParentUnit() + "\t" + bitsOf(absolute->getOffset());
  if (const auto derived = unit.getDerivedUnitComponent())
    return "derived\t" + describe(derived->getFactorComponent()) + "\t" +
           Units::describe(derived->getParentUnitPowers());
  const auto dimension = unit.getPrimitiveUnitComponent()->getDimension();
  return "primitive\t" + (dimension ? dimension->getTypeId() : "none");
}

template <class Record>
void describeEach(const std::map<std::string, Record>& records,
                  std::map<std::string, std::string>& described) {
  for (const auto& [typeId, record] : records) described.emplace(typeId, describe(record));
}

}  // namespace

std::string bitsOf(double number) {
  std::uint64_t bits = 0;
  static_assert(sizeof bits == sizeof number);
  std::memcpy(&bits, &number, sizeof bits);
  char text[17];
  std::snprintf(text, sizeof text, "%016" PRIx64, bits);
  return text;
}

std::string describe(const std::map<std::string, int>& powers) {
  std::string text;
  for (const auto& [typeId, power] : powers) text += typeId + "^" + std::to_string(power) + " ";
  return text;
}

std::string describe(const Dimension& dimension) { return "dimension\t" + dimension.getTypeId(); }

std::string describe(const Factor& factor) {
  return "factor\t" + factor.getTypeId() + "\t" + describe(factor.getFactorComponent());
}

std::string describe(const Unit& unit) {
  const char* system = unit.getUnitSystem() == System::Metric ? "Metric" : "Imperial";
  return "unit\t" + unit.getTypeId() + "\t" + unit.getName() + "\t" + system + "\t" +
         componentOf(unit);
}

std::string describe(const Symbol& symbol) {
  std::string text = "symbol\t" + symbol.getTypeId() + "\t" + symbol.getUnit().getTypeId();
  if (const auto decoration = symbol.getPrefixOrSuffix()) {
    text += "\t" + decoration->getText();
    text += decoration->getPlacement() == Placement::Prefix ? "\tPrefix" : "\tSuffix";
    text += decoration->hasSpace() ? "\ttrue" : "\tfalse";
  }
  return text;
}

std::string describe(const Quantity& quantity) {
  std::string text = "quantity\t" + quantity.getTypeId() + "\t" + quantity.getName();
  for (const Unit& unit : quantity.getUnits()) text += "\t" + unit.getTypeId();
  return text;
}

std::map<std::string, std::string> describeAll(const UnitsEngine& engine) {
  std::map<std::string, std::string> described;
  describeEach(engine.getDimensions(), described);
  describeEach(engine.getFactors(), described);
  describeEach(engine.getUnits(), described);
  describeEach(engine.getSymbols(), described);
  describeEach(engine.getQuantities(), described);
  return described;
}

std::vector<Unit> copiesOf(const UnitsEngine& engine) {
  std::vector<Unit> copies;
  for (const auto& [typeId, symbol] : engine.getSymbols()) copies.push_back(symbol.getUnit());
  for (const auto& [typeId, quantity] : engine.getQuantities())
    for (const Unit& unit : quantity.getUnits()) copies.push_back(unit);
  return copies;
}

}  // namespace Units
