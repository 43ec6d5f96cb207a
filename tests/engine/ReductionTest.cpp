#include "engine/Reduction.h"

#include "engine/UnitsEngineImpl.h"
#include "registry/Commit.h"
#include "tests/support/Messages.h"
#include "tests/support/SmallStack.h"

#include <gtest/gtest.h>

#include <limits>

namespace Units {
namespace {

using Parents = std::map<std::string, int>;

Unit derived(const std::string& typeId, const Parents& parents,
             const FactorComponent& factor = {}) {
  return Unit(typeId, "name", System::Metric, DerivedUnitComponent(parents, factor));
}

Unit primitive(const std::string& typeId) {
  return Unit(typeId, "name", System::Metric, PrimitiveUnitComponent());
}

/// Two factors and two units a level, each resting on both of the level before.
TEST(Reduction, OfUnitsThatShareParentsCostsTheirNumber) {
  UnitsEngineImpl engine;
  for (int level = 0; level <= 64; ++level)
    for (const char* side : {"a", "b"}) {
      const std::string own = side + std::to_string(level);
      const std::string before = std::to_string(level - 1);
      const auto both = [&](const std::string& kind) {
        return Parents{{kind + "a" + before, 1}, {kind + "b" + before, -1}};
      };
      engine.addFactor(Factor("f" + own, FactorComponent(1.0, level ? both("f") : Parents())));
      engine.addUnit(level == 0 ? primitive("u" + own)
                                : derived("u" + own, both("u"), Parents{{"f" + own, 1}}));
    }
  EXPECT_EQ(engine.convert(1.0, "ua64", "ua64"), 1.0);
}

TEST(Reduction, OfALongChainNeedsNoStack) {
  const auto name = [](char kind, int i) { return kind + std::to_string(100000 + i); };
  UnitsEngineImpl engine;
  engine.addFactor(Factor(name('f', 0), FactorComponent(3.0)));
  engine.addUnit(primitive(name('u', 0)));
  for (int i = 1; i < 100000; ++i) {
    engine.addFactor(Factor(name('f', i), FactorComponent(Parents{{name('f', i - 1), 1}})));
    engine.addUnit(derived(name('u', i), {{name('u', i - 1), 1}}));
  }
  onSmallStack([&] {
    double factor = 0;
    double offset = 0;
    PrimitivePowers powers;
    engine.addUnit(derived("top", {{name('u', 99999), 2}}, Parents{{name('f', 99999), 1}}));
    engine.reduceUnit(engine.getUnit("top"), factor, offset, powers);
    EXPECT_EQ(factor, 3.0);
    EXPECT_EQ(powers, (PrimitivePowers{{name('u', 0), 2}}));
  });
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
  engine.addUnit(primitive("m"));
  for (const auto& row : rows) {
    engine.addUnit(derived(row.typeId, row.parents));
    double factor = 0;
    double offset = 0;
    PrimitivePowers powers;
    engine.reduceUnit(engine.getUnit(row.typeId), factor, offset, powers);
    EXPECT_EQ(powers, row.powers) << row.typeId;
  }
}

Registries stored(RecordMap<Unit> units, RecordMap<Factor> factors = {}) {
  Registries registries;
  registries.factors.built = RecordStore<Factor>(std::move(factors));
  registries.units.built = RecordStore<Unit>(std::move(units));
  commit(registries);
  return registries;
}

// No check lets such a record in; the engine must not fall over it all the same.
TEST(Reduction, RefusesAbsoluteParents) {
  const Registries registries =
      stored({{"m", primitive("m")},
              {"onScale", derived("onScale", {{"scale", 1}})},
              {"scale", Unit("scale", "n", System::Metric, AbsoluteUnitComponent("m", 1.0))},
              {"twice", Unit("twice", "n", System::Metric, AbsoluteUnitComponent("scale", 1.0))}});
  for (const char* typeId : {"onScale", "twice"})
    EXPECT_EQ(messageOf<IncompatibleUnitsException>(
                  [&] { Reducer().reduce(lookUpNode(registries.units.objects, typeId)); }),
              "Parent unit scale is absolute, but all parent units must be relative.");
}

TEST(Commit, TakesNoRecordThatRestsOnNothing) {
  using E = UnrecognizedIdentifierException;
  EXPECT_EQ(messageOf<E>([] {
              stored({{"unit", derived("unit", {{"gone", 1}})}});
            }),
            "Could not find unit with typeid gone.");
  const Factor factor("factor", FactorComponent(Parents{{"gone", 1}}));
  EXPECT_EQ(messageOf<E>([&] {
              stored({}, {{"factor", factor}});
            }),
            "Could not find factor with typeid gone.");
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
  for (const auto& row : rows) {
    bool inverted = !row.inverted;
    EXPECT_EQ(arePowersCompatible(row.a, row.b, inverted), row.compatible) << (&row - rows);
    EXPECT_EQ(inverted, row.inverted) << (&row - rows);
  }
}

}  // namespace
}  // namespace Units
