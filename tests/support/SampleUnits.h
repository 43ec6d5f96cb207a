/// Units that convert to each other, and units that do not.
#pragma once

#include <TrelvonUnits/TrelvonUnits.h>

#include <memory>

namespace Units {

/// Primitive units P and M; Q is 5/9 P; A and B are scales on P and Q; L3 and PerL are powers of M
/// and opposite.
inline std::unique_ptr<UnitsEngine> filledEngine() {
  std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
  const auto add = [&](const char* typeId, const auto& component) {
    engine->addUnit(Unit(typeId, "name", System::Metric, component));
  };
  engine->addDimension(Dimension("d"));
  add("P", PrimitiveUnitComponent(Dimension("d")));
  add("M", PrimitiveUnitComponent(Dimension("d")));
  add("N", PrimitiveUnitComponent());
  add("Q", DerivedUnitComponent({{"P", 1}}, 5.0 / 9.0));
  add("A", AbsoluteUnitComponent("P", 273.15));
  add("B", AbsoluteUnitComponent("Q", 459.67));
  add("L3", DerivedUnitComponent({{"M", 3}}, 0.001));
  add("PerL", DerivedUnitComponent({{"M", -3}}, 7.0));
  add("Speed", DerivedUnitComponent({{"M", 1}, {"P", -1}}, FactorComponent()));
  add("Slow", DerivedUnitComponent({{"M", -1}, {"P", 1}}, FactorComponent()));
  add("MP", DerivedUnitComponent({{"M", 1}, {"P", 1}}, FactorComponent()));
  add("PerM", DerivedUnitComponent({{"M", -1}}, FactorComponent()));
  add("None", DerivedUnitComponent({{"M", 1}, {"PerM", 1}}, FactorComponent(100.0)));
  return engine;
}

}  // namespace Units
