#include "engine/Reduction.h"

#include "engine/UnitsEngineImpl.h"
#include "registry/Commit.h"
#include "tests/support/Messages.h"
#include "tests/support/SampleUnits.h"

#include <gtest/gtest.h>

#include <limits>

namespace Units {
namespace {

// No check lets such a record in; the engine must not fall over it all the same.
TEST(Reduction, RefusesAbsoluteParents) {
  const auto unit = [](const char* typeId, const auto& component) {
    return std::pair<const std::string, Unit>(typeId, {typeId, "n", System::Metric, component});
  };
  Registries registries;
  registries.units.built = RecordStore<Unit>(
      {unit("m", PrimitiveUnitComponent()), unit("scale", AbsoluteUnitComponent("m", 1.0)),
       unit("onScale", DerivedUnitComponent({{"scale", 1}}, 1.0)),
       unit("twice", AbsoluteUnitComponent("scale", 1.0))});
  commit(registries);
  for (const char* typeId : {"onScale", "twice"})
    EXPECT_EQ(messageOf<IncompatibleUnitsException>(
                  [&] { Reducer().reduce(lookUpNode(registries.units.objects, typeId)); }),
              "Parent unit scale is absolute, but all parent units must be relative.");
}

TEST(Reduction, TurnsValuesIntoPrimitiveTerms) {
  const auto engine = filledEngine();
  double value = 4;
  UnitPowerMap powers = {{"replaced", 1.0}};
  dynamic_cast<const UnitsEngineImpl&>(*engine).reduceValue(engine->getUnit("B"), value, powers);
  EXPECT_EQ(value, (459.67 + 4) * (5.0 / 9.0));
  EXPECT_EQ(powers, (UnitPowerMap{{"P", 1.0}}));
}

TEST(Powers, AreTheSameOrReciprocalOrNeither) {
  const int least = std::numeric_limits<int>::min();
  const struct {
    PrimitivePowers a;
    PrimitivePowers b;
    bool compatible;
    bool inverted;
  } rows[] = {
      {{}, {}, true, false},
      {{{"a", 0}}, {}, true, false},
      {{{"a", 0}, {"b", 2}, {"c", 0}}, {{"b", 2}, {"d", 0}}, true, false},
      {{{"a", 1}, {"b", -1}}, {{"a", -1}, {"b", 1}}, true, true},
      {{{"a", 1}, {"b", -1}}, {{"a", 1}, {"b", 1}}, false, false},
      {{{"a", 1}}, {{"b", 1}}, false, false},
      {{{"a", 1}}, {{"a", 1}, {"b", 1}}, false, false},
      {{{"a", 1}, {"b", 1}}, {{"a", 1}}, false, false},
      {{{"a", 2}}, {{"a", -1}}, false, false},
      {{{"a", least}}, {{"a", least}}, true, false},
      {{{"a", least}}, {{"a", least + 1}}, false, false},
      {{{"a", least}}, {{"a", -(least + 1)}}, false, false},
  };
  const UnitsEngineImpl engine;
  for (const auto& row : rows) {
    bool inverted = !row.inverted;
    EXPECT_EQ(engine.arePowersCompatible(row.a, row.b, inverted), row.compatible) << (&row - rows);
    EXPECT_EQ(inverted, row.inverted) << (&row - rows);
  }
}

}  // namespace
}  // namespace Units
