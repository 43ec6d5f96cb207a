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

std::size_t sizeOf(const UnitsEngineImpl& engine) {
  return engine.getDimensions().size() + engine.getFactors().size() + engine.getUnits().size() +
         engine.getSymbols().size() + engine.getQuantities().size();
}

class Adder {
 public:
  template <class Record>
  void add(const Record& record) {
    const std::string typeId = record.getTypeId();
    const bool wasRegistered = engine.isRegistered(typeId);
    const bool isAdded = validated([&] { addTo(engine, record); }).empty();
    check(!isAdded || (!wasRegistered && !typeId.empty()), "added twice: ", typeId);
    if (isAdded) ++size_;
    check(engine.isRegistered(typeId) == (wasRegistered || isAdded), typeId);
    checkEqual(sizeOf(engine), size_, "records");
  }

  UnitsEngineImpl engine;

 private:
  std::size_t size_ = 0;
};

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
  Adder adder;
  for (std::size_t count = 12 + random.below(20); count > 0; --count)
    std::visit([&](const auto& record) { adder.add(record); }, definitions.next());
  checkEngine(adder.engine);
  checkRecords(adder.engine);
}
