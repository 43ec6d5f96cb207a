#include "tests/support/Bits.h"
#include "tests/support/Messages.h"
#include "tests/support/Outcome.h"
#include "tests/support/SampleUnits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Units {
namespace {

struct Row {
  double value;
  const char* from;
  const char* to;
  double expected;
};

TEST(Conversion, IsExactToTheBit) {
  const auto engine = filledEngine();
  const double infinity = std::numeric_limits<double>::infinity();
  const Row rows[] = {
      {1e300, "P", "P", 1e300},
      {-0.0, "P", "P", 0.0},  // 0.0 + -0.0 is +0.0
      {0.1, "P", "P", 0.1},
      {0.0, "A", "B", 31.999999999999943},
      {100.0, "A", "B", 211.99999999999994},
      {1.0, "P", "Q", 1.0 / (5.0 / 9.0)},
      {2.0, "L3", "PerL", std::pow(0.002, -1.0) / 7.0},
      {0.0, "L3", "PerL", infinity},
      {-0.0, "L3", "PerL", infinity},
      {infinity, "PerL", "L3", 0.0},
      {4.0, "Speed", "Slow", 0.25},
  };
  for (const Row& row : rows) {
    const double converted = engine->convert(row.value, row.from, row.to);
    EXPECT_EQ(bitsOf(converted), bitsOf(row.expected))
        << row.value << ' ' << row.from << ' ' << row.to << " gives " << converted;
  }
}

TEST(Conversion, RefusesWhatDoesNotFit) {
  const auto engine = filledEngine();
  const std::pair<const char*, const char*> refused[] = {
      {"P", "M"},       // two primitive units, whatever dimension they share
      {"P", "A"},       // a scale against a relative unit, although both reduce to P
      {"A", "P"},       //
      {"Speed", "MP"},  // exponents the same here and opposite there
      {"M", "L3"},      //
      {"None", "M"}};
  for (const auto& [from, to] : refused) {
    EXPECT_FALSE(engine->canConvert(from, to)) << from << ' ' << to;
    EXPECT_EQ(messageOf<IncompatibleUnitsException>(
                  [&, a = from, b = to] { engine->convert(1.0, a, b); }),
              std::string("Cannot convert between units ") + from + " and " + to + ".");
    EXPECT_THROW(PreparedConversion(*engine, from, to), IncompatibleUnitsException);
  }
  for (const auto& [from, to] :
       {std::pair("A", "B"), {"L3", "PerL"}, {"PerL", "L3"}, {"None", "None"}, {"Slow", "Speed"}})
    EXPECT_TRUE(engine->canConvert(from, to)) << from << ' ' << to;
}

TEST(Conversion, LooksTheFirstUnitUpFirst) {
  const auto engine = filledEngine();
  const std::pair<std::pair<const char*, const char*>, const char*> rows[] = {
      {{"x", "y"}, "Could not find unit with typeid x."},
      {{"P", "y"}, "Could not find unit with typeid y."},
      {{"d", "P"}, "Could not find unit with typeid d."},
      {{"", "P"}, "Could not find unit with typeid ."}};
  for (const auto& [ids, message] : rows) {
    const auto& [from, to] = ids;
    EXPECT_EQ(messageOf<UnrecognizedIdentifierException>(
                  [&, a = from, b = to] { engine->convert(1.0, a, b); }),
              message);
    EXPECT_EQ(messageOf<UnrecognizedIdentifierException>(
                  [&, a = from, b = to] { engine->canConvert(a, b); }),
              message);
    EXPECT_EQ(messageOf<UnrecognizedIdentifierException>(
                  [&, a = from, b = to] { PreparedConversion(*engine, a, b); }),
              message);
  }
}

TEST(UnitQueries, GiveTheUnitsThatFit) {
  const auto engine = filledEngine();
  EXPECT_EQ(written(engine->getPrimitiveUnits()), "M;N;P;");
  EXPECT_EQ(written(engine->getPrimitiveUnitsOfDimension(Dimension("d"))), "M;P;");
  EXPECT_EQ(written(engine->getPrimitiveUnitsOfDimension(std::nullopt)), "N;");
  EXPECT_EQ(written(engine->getPrimitiveUnitsOfDimension(Dimension("e"))), "");
  EXPECT_EQ(written(engine->getConvertibleUnits("P")), "P;Q;");
  EXPECT_EQ(written(engine->getConvertibleUnits("A")), "A;B;");
  EXPECT_EQ(written(engine->getConvertibleUnits("M")), "M;PerM;");
  EXPECT_EQ(written(engine->getUnitsWithPrimitivePowers({{"P", 1}, {"M", 0}})), "A;B;P;Q;");
  EXPECT_EQ(written(engine->getUnitsWithPrimitivePowers({{"M", -3}})), "PerL;");
  EXPECT_EQ(written(engine->getUnitsWithPrimitivePowers({})), "None;");
}

TEST(UnitQueries, CompareExponentsThatAreClamped) {
  const auto engine = filledEngine();
  const auto add = [&](const char* name, const std::map<std::string, int>& parents) {
    engine->addUnit(
        {name, name, System::Metric, DerivedUnitComponent(parents, FactorComponent(1.0))});
  };
  add("Big", {{"M", 2147483647}});
  add("Bigger", {{"Big", 2}});
  add("PerBig", {{"Big", -1}});
  EXPECT_EQ(written(engine->getConvertibleUnits("Big")), "Big;Bigger;PerBig;");
  // Only the whole sum is clamped.
  add("Back", {{"Big", 2}, {"PerBig", 1}});
  add("Gone", {{"Big", 2147483647}, {"PerBig", 2147483647}});
  EXPECT_EQ(written(engine->getConvertibleUnits("Back")), "Back;Big;Bigger;PerBig;");
  EXPECT_EQ(written(engine->getConvertibleUnits("Gone")), "Gone;None;");
}

TEST(UnitQueries, AskForSymbolsAndQuantitiesByUnit) {
  const auto engine = filledEngine();
  const auto unit = [&](const char* typeId) { return engine->getUnit(typeId); };
  engine->addSymbol(Symbol("s1", unit("P"), PrefixOrSuffix("p", Placement::Suffix, true)));
  engine->addSymbol(Symbol("s2", unit("Q"), PrefixOrSuffix("q", Placement::Suffix, true)));
  engine->addQuantity(Quantity("q1", "both", {unit("P"), unit("Q"), unit("P")}));
  engine->addQuantity(Quantity("q2", "one", {unit("P")}));
  EXPECT_EQ(written(engine->getSymbolsOfUnit("P")), "s1;");
  EXPECT_EQ(written(engine->getSymbolsOfUnit("M")), "");
  EXPECT_EQ(written(engine->getQuantitiesOfUnit("P")), "q1;q2;");
  EXPECT_EQ(written(engine->getQuantitiesOfUnit("Q")), "q1;");
  EXPECT_EQ(written(engine->getQuantitiesOfUnit("M")), "");
}

TEST(UnitQueries, RefuseUnknownUnits) {
  const auto engine = filledEngine();
  const std::string unknown = "Could not find unit with typeid x.";
  using E = UnrecognizedIdentifierException;
  EXPECT_EQ(messageOf<E>([&] { engine->getConvertibleUnits("x"); }), unknown);
  EXPECT_EQ(messageOf<E>([&] { engine->getSymbolsOfUnit("x"); }), unknown);
  EXPECT_EQ(messageOf<E>([&] { engine->getQuantitiesOfUnit("x"); }), unknown);
  EXPECT_EQ(messageOf<E>([&] {
              engine->getUnitsWithPrimitivePowers({{"M", 1}, {"x", 0}, {"y", 1}});
            }),
            unknown);

  const std::unique_ptr<UnitsEngine> empty(CreateUnitsEngine());
  EXPECT_TRUE(empty->getConvertibleUnits("x").empty());
  EXPECT_EQ(messageOf<E>([&] { empty->getSymbolsOfUnit("x"); }), unknown);
}

}  // namespace
}  // namespace Units
