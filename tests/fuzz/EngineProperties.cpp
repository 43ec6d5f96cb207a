#include "tests/fuzz/EngineProperties.h"

#include "tests/fuzz/Fuzzer.h"
#include "tests/fuzz/JsonShape.h"
#include "tests/fuzz/ReferenceReduction.h"

#include <cstdlib>
#include <string>

namespace {

using Units::UnitsEngineImpl;

void checkReduction(const UnitsEngineImpl& engine) {
  const auto units = engine.getUnits();
  const auto factors = engine.getFactors();
  for (const auto& [typeId, unit] : units) {
    double expectedFactor = 0;
    double expectedOffset = 0;
    Units::PrimitivePowers expectedPowers;
    Units::ReferenceReduction reference{units, factors};
    reference.reduce(unit, expectedFactor, expectedOffset, expectedPowers);
    double factor = 0;
    double offset = 0;
    Units::PrimitivePowers powers;
    engine.reduceUnit(unit, factor, offset, powers);
    if (reference.stepsLeft < 0) continue;
    check(areSame(factor, expectedFactor), "factor of ", typeId, ": ", factor, ", ",
          expectedFactor);
    check(areSame(offset, expectedOffset), "offset of ", typeId);
    check(powers == expectedPowers, "powers of ", typeId);
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
      bool does = true;
      try {
        engine.convert(2.5, from, to);
      } catch (const Units::IncompatibleUnitsException&) {
        does = false;
      }
      check(can == does, "convert ", from, " to ", to);
      check(can == (convertible.count(to) != 0), "convertible ", from, " to ", to);
      check(can == engine.canConvert(to, from), "back from ", to, " to ", from);
    }
  }
}

/// The text of a number that the reader gives back to the bit, or an empty one.
std::string safeNumber(const std::string& definition) {
  const std::string before = "\"factor\",\"value\":";
  const std::size_t from = definition.find(before);
  if (from == std::string::npos) return "";
  const std::size_t begin = from + before.size();
  const std::string number = definition.substr(begin, definition.find('}', begin) - begin);
  const bool isSafe = number.size() <= 16 && number.find('e') == std::string::npos;
  return isSafe ? number : "";
}

void checkFactors(const UnitsEngineImpl& engine, const UnitsEngineImpl& again) {
  for (const auto& [typeId, factor] : engine.getFactors()) {
    const double value = factor.getFactorComponent().getFactor();
    const std::string number = safeNumber(engine.getDefinition(typeId));
    if (number.empty()) continue;
    check(areSame(std::strtod(number.c_str(), nullptr), value), number);
    const double read = again.getFactor(typeId).getFactorComponent().getFactor();
    check(areSame(read, value), number);
  }
}

void checkDefinitions(const UnitsEngineImpl& engine) {
  std::map<std::string, std::string> definitions;
  const auto write = [&](const auto& records) {
    for (const auto& [typeId, record] : records) definitions[typeId] = engine.getDefinition(typeId);
  };
  try {
    write(engine.getDimensions());
    write(engine.getFactors());
    write(engine.getUnits());
    write(engine.getSymbols());
    write(engine.getQuantities());
  } catch (const Units::ValidationException&) {
    return;  // a number that JSON cannot hold
  }
  UnitsEngineImpl again;
  for (auto next = definitions.rbegin(); next != definitions.rend(); ++next) {
    // Schema strings end at their first NUL, and a number at the edge may be read as too big.
    if (next->second.find("\\u0000") != std::string::npos ||
        next->second.find("e308") != std::string::npos)
      return;
    again.addDefinition(next->second);
  }
  again.buildSchemas();
  for (const auto& [typeId, definition] : definitions) {
    checkEqual(jsonShape(again.getDefinition(typeId)), jsonShape(definition), typeId);
    check(again.getDependencies(typeId) == engine.getDependencies(typeId), typeId);
  }
  checkFactors(engine, again);
}

}  // namespace

void checkEngine(const UnitsEngineImpl& engine) {
  checkReduction(engine);
  checkConversions(engine);
  checkDefinitions(engine);
}
