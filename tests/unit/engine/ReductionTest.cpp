#include "engine/Reduction.h"

#include "engine/UnitsEngineImpl.h"
#include "registry/Commit.h"
#include "tests/support/Messages.h"

#include <gtest/gtest.h>

#include <limits>

namespace Units {
namespace {

using Parents = std::map<std::string, int>;

Unit derivedUnit(const std::string& typeId, const Parents& parents,
                 const FactorComponent& factor = {}) {
  return Unit(typeId, "name", System::Metric, DerivedUnitComponent(parents, factor));
}

Unit primitiveUnit(const std::string& typeId) {
  return Unit(typeId, "name", System::Metric, PrimitiveUnitComponent());
}

Registries stored(RecordMap<Unit> units, RecordMap<Factor> factors = {}) {
  Registries registries;
  registries.factors.built = RecordStore<Factor>(std::move(factors));
  registries.units.built = RecordStore<Unit>(std::move(units));
  commit(registries);
  return registries;
}

/// "heavy" takes long enough to be remembered by conversions too, and is met after other powers.
TEST(Reduction, IsTheSameWhereItIsRemembered) {
  RecordMap<Unit> units;
  Parents pairs;
  for (const char* typeId : {"a", "b", "c"}) units.emplace(typeId, primitiveUnit(typeId));
  for (const char* typeId : {"p", "q", "r", "s", "t", "u", "v", "w"}) {
    units.emplace(typeId, derivedUnit(typeId, {{"a", 1}, {"b", 1}}, FactorComponent(1.1)));
    pairs[typeId] = 1;
  }
  units.emplace("heavy", derivedUnit("heavy", pairs));
  units.emplace("x", derivedUnit("x", {{"a", 1}, {"heavy", 2}}));
  units.emplace("y", derivedUnit("y", {{"c", 3}, {"heavy", -1}, {"x", 1}}));
  units.emplace("z", derivedUnit("z", {{"x", 1}, {"y", -1}}));
  const Registries registries = stored(std::move(units));
  Reducer conversion, listing(13);
  for (const char* typeId : {"y", "x", "heavy", "y", "z"}) {
    const RecordNode<Unit>& unit = lookUpNode(registries.units.objects, typeId);
    const ReducedUnit alone = Reducer().reduce(unit);
    const PrimitivePowers powers = toPrimitivePowers(alone.powers);
    EXPECT_EQ(conversion.reduce(unit).factor, alone.factor) << typeId;
    EXPECT_EQ(toPrimitivePowers(conversion.reduce(unit).powers), powers) << typeId;
    EXPECT_EQ(toPrimitivePowers(listing.reduce(unit).powers), powers) << typeId;
  }
  const auto& y = lookUpNode(registries.units.objects, "y");
  EXPECT_EQ(toPrimitivePowers(conversion.reduce(y).powers),
            (PrimitivePowers{{"a", 9}, {"b", 8}, {"c", 3}}));
}

// No check lets such a record in; the engine must not fall over it all the same.
TEST(Reduction, RefusesAbsoluteParents) {
  const Registries registries =
      stored({{"m", primitiveUnit("m")},
              {"onScale", derivedUnit("onScale", {{"scale", 1}})},
              {"scale", Unit("scale", "n", System::Metric, AbsoluteUnitComponent("m", 1.0))},
              {"twice", Unit("twice", "n", System::Metric, AbsoluteUnitComponent("scale", 1.0))}});
  for (const char* typeId : {"onScale", "twice"})
    EXPECT_EQ(messageOf<IncompatibleUnitsException>(
                  [&] { Reducer().reduce(lookUpNode(registries.units.objects, typeId)); }),
              "Parent unit scale is absolute, but all parent units must be relative.");
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
