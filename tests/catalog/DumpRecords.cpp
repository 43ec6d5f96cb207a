/// Prints what the engine serves once all packs are loaded: each record as a definition, a line
/// for each, and what each unit reduces to. A script compares them with the files.

#include "engine/UnitsEngineImpl.h"
#include "tests/catalog/Packs.h"

#include <cstdio>

int main() {
  Units::UnitsEngineImpl engine;
  Units::loadPacks(engine);
  for (const std::string& definition : definitionsOf(engine))
    std::printf("%s\n", definition.c_str());

  for (const auto& [typeId, unit] : engine.getUnits()) {
    double factor = 0.0;
    double offset = 0.0;
    Units::PrimitivePowers powers;
    engine.reduceUnit(unit, factor, offset, powers);
    std::printf("reduction\t%s\t%.17g\t%.17g\t", typeId.c_str(), factor, offset);
    for (const auto& [primitive, power] : powers) std::printf("%s^%d ", primitive.c_str(), power);
    std::printf("\n");
  }
  return 0;
}
