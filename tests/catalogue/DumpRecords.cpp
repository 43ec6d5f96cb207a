/// Prints what the engine serves once all packs are loaded: a line for each record, and one for
/// what each unit reduces to. A script compares them with the files.

#include "engine/UnitsEngineImpl.h"
#include "tests/catalogue/Describe.h"
#include "tests/catalogue/Packs.h"

#include <cstdio>

int main() {
  Units::UnitsEngineImpl engine;
  Units::loadPacks(engine);
  for (const auto& [typeId, description] : Units::describeAll(engine))
    std::printf("%s\n", description.c_str());

  for (const auto& [typeId, unit] : engine.getUnits()) {
    double factor = 0.0;
    double offset = 0.0;
    Units::PrimitivePowers powers;
    engine.reduceUnit(unit, factor, offset, powers);
    std::printf("reduction\t%s\t%s\t%s\t%s\n", typeId.c_str(), Units::bitsOf(factor).c_str(),
                Units::bitsOf(offset).c_str(), Units::describe(powers).c_str());
  }
  return 0;
}
