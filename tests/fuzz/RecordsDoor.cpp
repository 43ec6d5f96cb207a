/// Records of any content through the add operations: stored whole, or refused without a trace, and
/// the engine is consistent.
#include <cstdint>
#include <limits>

#include "engine/UnitsEngineImpl.h"
#include "tests/fuzz/Choices.h"
#include "tests/fuzz/Demand.h"
#include "tests/fuzz/EngineProperties.h"

namespace {

using namespace Units;
using namespace std::string_literals;

const std::string texts[] = {"a",
                             "b",
                             "c",
                             "d",
                             "e",
                             "f",
                             "g",
                             "h",
                             "i",
                             "j",
                             "k",
                             "",
                             "\xFF",
                             "a\0"s,
                             "\"\\",
                             "\xC2\xB0",
                             "m^2",
                             "$",
                             "\n",
                             "/",
                             "x y",
                             "-",
                             "1",
                             ":feetAndInches-1",
                             ":feetHyphenInches-1.0.0"};
const std::string names[] = {"n", "n", "n", "n", "n", "n", "n", ""};
const int exponents[] = {
    1, 1, 1, 1, -1, 2, -2, 3, 0, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(),
    1};

class RandomRecords {
 public:
  explicit RandomRecords(Choices& choices) : choices_(choices) {}

  Dimension dimension() { return Dimension(id()); }
  Factor factor() { return Factor(id(), component()); }
  Unit unit() {
    const std::string typeId = id();
    const std::string& name = choices_.oneOf(names);
    const System system = choices_.oneIn(2) ? System::Metric : System::Imperial;
    switch (choices_.below(6)) {
      case 0:
        return Unit(typeId, name, system, PrimitiveUnitComponent(Dimension(id())));
      case 1:
      case 2:
        return Unit(typeId, name, system, PrimitiveUnitComponent());
      case 3:
        return Unit(typeId, name, system, AbsoluteUnitComponent(id(), number()));
      default:
        return Unit(typeId, name, system, DerivedUnitComponent(powers(1), component()));
    }
  }
  Symbol symbol() {
    const std::string typeId = id();
    const Unit unit = named(id());
    if (choices_.oneIn(4)) return Symbol(typeId, unit, std::nullopt);
    const Placement placement = choices_.oneIn(2) ? Placement::Prefix : Placement::Suffix;
    return Symbol(typeId, unit, PrefixOrSuffix(id(), placement, choices_.oneIn(2)));
  }
  Quantity quantity() {
    const std::string typeId = id();
    std::vector<Unit> units;
    for (std::size_t count = choices_.below(4); count > 0; --count) units.push_back(named(id()));
    return Quantity(typeId, choices_.oneOf(names), units);
  }

 private:
  std::string id() {
    const std::string& text = choices_.oneOf(texts);
    return choices_.oneIn(4) ? text + choices_.oneOf(texts) : text;
  }

  static Unit named(const std::string& typeId) {
    return Unit(typeId, "another", System::Metric, PrimitiveUnitComponent());
  }

  double number() {
    if (choices_.oneIn(3)) return choices_.anyDouble();
    const double places[] = {1, 10, 100, 1e6, 1e14};
    return static_cast<double>(choices_.below(65536)) / choices_.oneOf(places);
  }

  std::map<std::string, int> powers(std::size_t least) {
    std::map<std::string, int> made;
    for (std::size_t count = least + choices_.below(2); count > 0; --count)
      made[choices_.oneOf(texts)] = choices_.oneOf(exponents);
    return made;
  }

  FactorComponent component() {
    const double factor = number();
    return choices_.oneIn(2) ? FactorComponent(factor, powers(0)) : FactorComponent(factor);
  }

  Choices& choices_;
};

std::size_t sizeOf(const UnitsEngineImpl& engine) {
  return engine.getDimensions().size() + engine.getFactors().size() + engine.getUnits().size() +
         engine.getSymbols().size() + engine.getQuantities().size();
}

class Adder {
 public:
  template <class Record>
  void add(const Record& record, void (UnitsEngineImpl::*operation)(Record)) {
    const std::string typeId = record.getTypeId();
    const bool wasRegistered = engine.isRegistered(typeId);
    const std::string refusal =
        messageOrNone<ValidationException>([&] { (engine.*operation)(record); });
    if (refusal.empty()) {
      demand(!wasRegistered && !typeId.empty(), "added twice: ", typeId);
      ++size_;
    }
    demand(engine.isRegistered(typeId) == (wasRegistered || refusal.empty()), typeId, refusal);
    demandEqual(sizeOf(engine), size_, "records");
  }

  UnitsEngineImpl engine;

 private:
  std::size_t size_ = 0;
};

void checkRecords(const UnitsEngineImpl& engine) {
  for (const auto& [typeId, symbol] : engine.getSymbols()) {
    const std::string unit = symbol.getUnit().getTypeId();
    demand(engine.getSymbolsOfUnit(unit).count(typeId) == 1, typeId);
    demandEqual(symbol.getUnit().getName(), engine.getUnit(unit).getName(),
                "the engine's own unit");
    for (const auto precision : std::initializer_list<unsigned char>{0, 3, 9}) {
      demand(!engine.formatFixedPoint(-2.5, precision, &typeId, true).empty(), typeId);
      demand(!engine.formatFractional(1e300, precision, &typeId).empty(), typeId);
    }
  }
  for (const auto& [typeId, quantity] : engine.getQuantities())
    for (const Unit& unit : quantity.getUnits())
      demand(engine.getQuantitiesOfUnit(unit.getTypeId()).count(typeId) == 1, typeId);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Choices choices(data, size);
  RandomRecords records(choices);
  Adder adder;
  for (std::size_t count = 12 + choices.below(20); count > 0; --count) {
    switch (choices.below(8)) {
      case 0:
        adder.add(records.dimension(), &UnitsEngineImpl::addDimension);
        break;
      case 1:
        adder.add(records.factor(), &UnitsEngineImpl::addFactor);
        break;
      case 2:
        adder.add(records.symbol(), &UnitsEngineImpl::addSymbol);
        break;
      case 3:
        adder.add(records.quantity(), &UnitsEngineImpl::addQuantity);
        break;
      default:
        adder.add(records.unit(), &UnitsEngineImpl::addUnit);
    }
  }
  checkEngine(adder.engine);
  checkRecords(adder.engine);
  return 0;
}
