#include "tests/fuzz/EngineProperties.h"

#include "tests/fuzz/Fuzzer.h"
#include "tests/fuzz/ReferenceReduction.h"
#include "tests/support/Sample.h"

#include <string>

namespace {

using Units::UnitsEngineImpl;

void checkReduction(const UnitsEngineImpl& engine) {
  const auto units = engine.getUnits();
  const auto factors = engine.getFactors();
  for (const auto& [typeId, unit] : units) {
    Units::ReferenceReduction reference{units, factors};
    const auto expected = reference.reduce(unit);
    if (reference.stepsLeft < 0) continue;
    double factor = 0, offset = 0;
    Units::PrimitivePowers powers;
    engine.reduceUnit(unit, factor, offset, powers);
    checkEqual(written(factor), written(expected.factor), "factor of " + typeId);
    checkEqual(written(offset), written(expected.offset), "offset of " + typeId);
    check(powers == expected.powers, "powers of ", typeId);
  }
}

void checkConversions(const UnitsEngineImpl& engine) {
  const auto units = engine.getUnits();
  std::size_t left = 6;  // of as many rows as do not make an input slow
  for (const auto& [from, unit] : units) {
    if (left-- == 0) break;
    const auto convertible = engine.getConvertibleUnits(from);
    for (const auto& [to, other] : units) {
      const bool can = engine.canConvert(from, to);
      const std::string converted =
          outcome([&, a = from, b = to] { return engine.convert(2.5, a, b); });
      check(can == !isRefusal(converted), "convert ", from, " to ", to);
      check(can == (convertible.count(to) != 0), "convertible ", from, " to ", to);
      check(can == engine.canConvert(to, from), "back from ", to, " to ", from);
    }
  }
}

void checkDefinitions(const UnitsEngineImpl& engine) {
  const std::string all = validated([&] { return describe(engine); });
  // Not a number that JSON cannot hold, nor what may be read otherwise: schema strings end at their
  // first NUL, and a number at the edge may be read as too big.
  if (isRefusal(all) || all.find("\\u0000") != std::string::npos ||
      all.find("e308") != std::string::npos)
    return;
  UnitsEngineImpl again;
  const auto add = [&](const auto& records) {
    for (const auto& [typeId, record] : records) again.addDefinition(engine.getDefinition(typeId));
  };
  add(engine.getQuantities());
  add(engine.getSymbols());
  add(engine.getUnits());
  add(engine.getFactors());
  add(engine.getDimensions());
  again.buildSchemas();
  checkEqual(jsonShape(describe(again)), jsonShape(all), "definitions that were written and read");
}

}  // namespace

void checkEngine(const UnitsEngineImpl& engine) {
  checkReduction(engine);
  checkConversions(engine);
  checkDefinitions(engine);
}
