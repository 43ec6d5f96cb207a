#include "engine/Reduction.h"

#include "engine/UnitsEngineImpl.h"
#include "registry/Commit.h"
#include "tests/support/Messages.h"
#include "tests/support/SchemaTexts.h"

#include <gtest/gtest.h>

#include <cmath>
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

/// Two factors and two units a level, each resting on both of the level below: 2^64 paths.
TEST(Reduction, OfDefinitionsThatShareParentsCostsTheirNumber) {
  UnitsEngineImpl engine;
  for (int level = 0; level <= 64; ++level)
    for (const char* side : {"a", "b"}) {
      const std::string own = side + std::to_string(level);
      const std::string a = "a" + std::to_string(level + 1), b = "b" + std::to_string(level + 1);
      engine.addDefinition(level == 64 ? factor("f" + own, {})
                                       : factor("f" + own, {"f" + a, "f" + b}));
      engine.addDefinition(level == 64 ? primitive("u" + own)
                                       : derived("u" + own, {"u" + a, "u" + b}, {"f" + own}));
    }
  engine.addDefinition(quantity("q", {"ua0", "ub0", "ua32"}));
  engine.buildSchemas();
  EXPECT_EQ(engine.getDependencies("q").size(), 4 * 65u);
  EXPECT_EQ(engine.convert(1.0, "ua0", "ua0"), 1.0);
}

TEST(Reduction, TakesFactorsWithAllTheyRestOn) {
  UnitsEngineImpl engine;
  engine.addFactor(Factor("two", FactorComponent(2.0)));
  engine.addFactor(Factor("three", FactorComponent(3.0)));
  engine.addFactor(Factor("eighteen", FactorComponent(2.0, {{"three", 2}})));
  engine.addFactor(
      Factor("divided", FactorComponent(5.0, {{"eighteen", -1}, {"three", 1}, {"two", 3}})));
  engine.addUnit(primitiveUnit("m"));
  engine.addUnit(
      derivedUnit("u", {{"m", 1}}, FactorComponent(7.0, {{"divided", 1}, {"eighteen", 2}})));
  EXPECT_EQ(engine.convert(1.0, "u", "m"), 7.0 * (5.0 * std::pow(18.0, -1.0) * 3.0 * 8.0) * 324.0);
}

// Powers are compared in the order in which the units lie in memory.
TEST(Reduction, IsTheSameInWhateverOrderUnitsCame) {
  for (const auto& [first, second] : {std::pair("a", "b"), std::pair("b", "a")}) {
    UnitsEngineImpl engine;
    engine.addUnit(primitiveUnit(first));
    engine.addUnit(primitiveUnit(second));
    engine.addUnit(derivedUnit("product", {{"a", 1}, {"b", 2}}));
    engine.addUnit(derivedUnit("same", {{"product", 1}}));
    EXPECT_EQ(engine.convert(3.0, "product", "same"), 3.0);
    EXPECT_EQ(engine.getUnitsWithPrimitivePowers({{"a", 1}, {"b", 2}}).size(), 2u);
  }
}

TEST(Reduction, KeepsExponentsThatCancelAndStaysWithin32Bits) {
  const int most = std::numeric_limits<int>::max();
  const int least = std::numeric_limits<int>::min();
  const struct {
    const char* typeId;
    Parents parents;
    PrimitivePowers powers;
  } rows[] = {{"M", {{"m", -1}}, {{"m", -1}}},
              {"none", {{"M", 1}, {"m", 1}}, {{"m", 0}}},
              {"ofNone", {{"none", 5}}, {}},
              {"huge", {{"m", most}}, {{"m", most}}},
              {"product", {{"huge", 2}}, {{"m", most}}},
              {"negative", {{"huge", -2}}, {{"m", least}}},
              {"sum", {{"huge", 1}, {"m", 1}}, {{"m", most}}},
              {"least", {{"m", least}}, {{"m", least}}},
              {"turned", {{"least", -1}}, {{"m", most}}},
              {"wrapped", {{"least", least}}, {{"m", most}}}};
  UnitsEngineImpl engine;
  engine.addUnit(primitiveUnit("m"));
  for (const auto& row : rows) {
    engine.addUnit(derivedUnit(row.typeId, row.parents));
    double factor = 0;
    double offset = 0;
    PrimitivePowers powers;
    engine.reduceUnit(engine.getUnit(row.typeId), factor, offset, powers);
    EXPECT_EQ(powers, row.powers) << row.typeId;
  }
}

TEST(Reduction, TurnsValuesIntoPrimitiveTerms) {
  UnitsEngineImpl engine;
  engine.addUnit(primitiveUnit("k"));
  engine.addUnit(derivedUnit("inverse", {{"k", -1}}));
  engine.addUnit(derivedUnit("cancelled", {{"k", 1}, {"inverse", 1}}, FactorComponent(2.0)));
  engine.addUnit(Unit("scale", "name", System::Metric, AbsoluteUnitComponent("k", 273.15)));
  double value = 0;
  UnitPowerMap powers = {{"replaced", 1.0}};
  engine.reduceValue(engine.getUnit("scale"), value, powers);
  EXPECT_EQ(value, 273.15);
  EXPECT_EQ(powers, (UnitPowerMap{{"k", 1.0}}));
  engine.reduceValue(engine.getUnit("cancelled"), value = 4, powers);
  EXPECT_EQ(value, 8);
  EXPECT_EQ(powers, (UnitPowerMap{{"k", 0.0}}));
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
