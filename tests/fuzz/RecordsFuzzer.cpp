/// Records of any content through the add operations: stored whole, or refused without a trace, and
/// the engine is consistent.
#include "engine/UnitsEngineImpl.h"
#include "tests/fuzz/EngineProperties.h"
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/RandomDefinitions.h"

namespace {

using namespace Units;

void addTo(UnitsEngine& engine, const Dimension& record) { engine.addDimension(record); }
void addTo(UnitsEngine& engine, const Factor& record) { engine.addFactor(record); }
void addTo(UnitsEngine& engine, const Unit& record) { engine.addUnit(record); }
void addTo(UnitsEngine& engine, const Symbol& record) { engine.addSymbol(record); }
void addTo(UnitsEngine& engine, const Quantity& record) { engine.addQuantity(record); }

void checkRecords(const UnitsEngineImpl& engine) {
  for (const auto& [typeId, symbol] : engine.getSymbols()) {
    const std::string unit = symbol.getUnit().getTypeId();
    check(engine.getSymbolsOfUnit(unit).count(typeId) == 1, typeId);
    checkEqual(symbol.getUnit().getName(), engine.getUnit(unit).getName(), "the engine's own unit");
    for (const auto precision : std::initializer_list<unsigned char>{0, 3, 9}) {
      check(!engine.formatFixedPoint(-2.5, precision, &typeId, true).empty(), typeId);
      check(!engine.formatFractional(1e300, precision, &typeId).empty(), typeId);
    }
  }
  for (const auto& [typeId, quantity] : engine.getQuantities())
    for (const Unit& unit : quantity.getUnits())
      check(engine.getQuantitiesOfUnit(unit.getTypeId()).count(typeId) == 1, typeId);
}

}  // namespace

void fuzz(Random& random) {
  RandomDefinitions definitions(random);
  UnitsEngineImpl engine;
  std::set<std::string> added;
  const auto add = [&](const auto& record) {
    const std::string typeId = record.getTypeId();
    if (validated([&] { addTo(engine, record); }).empty())
      check(!typeId.empty() && added.insert(typeId).second, "added twice: ", typeId);
    check(engine.isRegistered(typeId) == (added.count(typeId) != 0), typeId);
  };
  for (std::size_t count = 12 + random.below(20); count > 0; --count)
    std::visit(add, definitions.next());
  checkEqual(engine.getDimensions().size() + engine.getFactors().size() + engine.getUnits().size() +
                 engine.getSymbols().size() + engine.getQuantities().size(),
             added.size(), "records");
  checkEngine(engine);
  checkRecords(engine);
}
