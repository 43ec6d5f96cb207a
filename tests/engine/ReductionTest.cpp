#include "engine/Reduction.h"

#include "registry/Commit.h"
#include "tests/support/Messages.h"
#include "tests/support/SmallStack.h"

#include <gtest/gtest.h>

#include <limits>

namespace Units {
namespace {

Unit primitive(const std::string& typeId) {
  return Unit(typeId, "name", System::Metric, PrimitiveUnitComponent());
}

Unit derived(const std::string& typeId, const std::map<std::string, int>& parents,
             const FactorComponent& factor = {}) {
  return Unit(typeId, "name", System::Metric, DerivedUnitComponent(parents, factor));
}

template <class Record>
void put(RecordMap<Record>& records, const Record& record) {
  records.emplace(record.getTypeId(), record);
}

Registries stored(const RecordMap<Unit>& units, const RecordMap<Factor>& factors = {}) {
  Registries registries;
  commit({{}, factors, units, {}, {}, {}}, registries);
  return registries;
}

ReducedUnit reduce(Reducer& reducer, const Registries& registries, const std::string& typeId) {
  return reducer.reduce(lookUpNode(registries.units.objects, typeId));
}

TEST(Reduction, OfUnitsThatShareParentsCostsTheirNumber) {
  RecordMap<Factor> factors;
  RecordMap<Unit> units;
  put(units, primitive("u00"));
  put(units, primitive("v00"));
  put(factors, Factor("f00", FactorComponent(1.0)));
  put(factors, Factor("g00", FactorComponent(1.0)));
  const auto level = [](char kind, int i) {
    return kind + std::string(i < 10 ? "0" : "") + std::to_string(i);
  };
  for (int i = 1; i <= 64; ++i) {
    for (const char kind : {'f', 'g'})
      put(factors, Factor(level(kind, i),
                          FactorComponent(1.0, {{level('f', i - 1), 1}, {level('g', i - 1), -1}})));
    for (const char kind : {'u', 'v'})
      put(units, derived(level(kind, i), {{level('u', i - 1), 1}, {level('v', i - 1), -1}},
                         FactorComponent(1.0, {{level('f', i), 1}})));
  }
  Reducer reducer;
  EXPECT_EQ(reduce(reducer, stored(units, factors), "u64").factor, 1.0);
}

TEST(Reduction, OfALongChainNeedsNoStack) {
  const int length = 100000;
  const auto name = [](char kind, int i) {
    return kind + std::string(6 - std::to_string(i).size(), '0') + std::to_string(i);
  };
  RecordMap<Factor> factors;
  RecordMap<Unit> units;
  put(factors, Factor(name('f', 0), FactorComponent(1.0)));
  put(units, primitive(name('u', 0)));
  for (int i = 1; i < length; ++i) {
    put(factors,
        Factor(name('f', i), FactorComponent(i == 1 ? 3.0 : 1.0, {{name('f', i - 1), 1}})));
    put(units, derived(name('u', i), {{name('u', i - 1), 1}}));
  }
  put(units, derived("top", {{name('u', length - 1), 2}},
                     FactorComponent(1.0, {{name('f', length - 1), 1}})));
  onSmallStack([&] {
    const Registries registries = stored(units, factors);
    Reducer reducer;
    const ReducedUnit reduced = reduce(reducer, registries, "top");
    EXPECT_EQ(reduced.factor, 3.0);
    EXPECT_EQ(toPrimitivePowers(reduced.powers), (PrimitivePowers{{name('u', 0), 2}}));
  });
}

TEST(Reduction, KeepsExponentsThatCancelAndStaysWithin32Bits) {
  const int most = std::numeric_limits<int>::max();
  const int least = std::numeric_limits<int>::min();
  RecordMap<Unit> units;
  for (const Unit& unit :
       {primitive("m"), derived("M", {{"m", -1}}), derived("none", {{"M", 1}, {"m", 1}}),
        derived("ofNone", {{"none", 5}}), derived("huge", {{"m", most}}),
        derived("product", {{"huge", 2}}), derived("negative", {{"huge", -2}}),
        derived("sum", {{"huge", 1}, {"m", 1}}), derived("least", {{"m", least}}),
        derived("turned", {{"least", -1}}), derived("wrapped", {{"least", least}})})
    put(units, unit);
  const std::pair<const char*, PrimitivePowers> rows[] = {
      {"none", {{"m", 0}}},         {"ofNone", {}},
      {"huge", {{"m", most}}},      {"product", {{"m", most}}},
      {"negative", {{"m", least}}}, {"sum", {{"m", most}}},
      {"turned", {{"m", most}}},    {"wrapped", {{"m", most}}}};
  const Registries registries = stored(units);
  Reducer reducer;
  for (const auto& [typeId, powers] : rows)
    EXPECT_EQ(toPrimitivePowers(reduce(reducer, registries, typeId).powers), powers) << typeId;
}

TEST(Reduction, RefusesAbsoluteParents) {
  RecordMap<Unit> units;
  for (const Unit& unit :
       {primitive("m"), derived("onScale", {{"scale", 1}}),
        Unit("scale", "n", System::Metric, AbsoluteUnitComponent("m", 1.0)),
        Unit("scaleOnScale", "n", System::Metric, AbsoluteUnitComponent("scale", 1.0))})
    put(units, unit);
  const Registries registries = stored(units);
  for (const char* typeId : {"onScale", "scaleOnScale"})
    EXPECT_EQ(messageOf<IncompatibleUnitsException>([&] {
                Reducer reducer;
                reduce(reducer, registries, typeId);
              }),
              "Parent unit scale is absolute, but all parent units must be relative.");
}

TEST(Commit, TakesNoRecordThatRestsOnNothing) {
  RecordMap<Unit> units;
  put(units, derived("unit", {{"gone", 1}}));
  RecordMap<Factor> factors;
  put(factors, Factor("factor", FactorComponent(1.0, {{"gone", 1}})));
  using E = UnrecognizedIdentifierException;
  EXPECT_EQ(messageOf<E>([&] { stored(units); }), "Could not find unit with typeid gone.");
  EXPECT_EQ(messageOf<E>([&] { stored({}, factors); }), "Could not find factor with typeid gone.");
}

struct Comparison {
  PrimitivePowers a;
  PrimitivePowers b;
  bool compatible;
  bool inverted;
};

TEST(Powers, AreTheSameOrReciprocalOrNeither) {
  const int least = std::numeric_limits<int>::min();
  const Comparison rows[] = {
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
  for (const Comparison& row : rows) {
    bool inverted = !row.inverted;
    EXPECT_EQ(arePowersCompatible(row.a, row.b, inverted), row.compatible) << (&row - rows);
    EXPECT_EQ(inverted, row.inverted) << (&row - rows);
  }
}

}  // namespace
}  // namespace Units
