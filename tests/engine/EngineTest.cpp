#include "tests/support/Messages.h"

#include <TrelvonUnits/TrelvonUnits.h>
#include <gtest/gtest.h>

#include <memory>

namespace Units {
namespace {

TEST(Engine, StartsEmptyAndSaysWhatItCannotFind) {
  const std::unique_ptr<const UnitsEngine> engine(CreateUnitsEngine());
  EXPECT_TRUE(engine->getDimensions().empty());
  EXPECT_TRUE(engine->getFactors().empty());
  EXPECT_TRUE(engine->getUnits().empty());
  EXPECT_TRUE(engine->getSymbols().empty());
  EXPECT_TRUE(engine->getQuantities().empty());
  EXPECT_FALSE(engine->isRegistered("x"));
  EXPECT_FALSE(engine->isRegistered(""));

  using E = UnrecognizedIdentifierException;
  EXPECT_EQ(messageOf<E>([&] { engine->getDimension("x"); }),
            "Could not find dimension with typeid x.");
  EXPECT_EQ(messageOf<E>([&] { engine->getFactor("x"); }), "Could not find factor with typeid x.");
  EXPECT_EQ(messageOf<E>([&] { engine->getUnit("x"); }), "Could not find unit with typeid x.");
  EXPECT_EQ(messageOf<E>([&] { engine->getSymbol("x"); }), "Could not find symbol with typeid x.");
  EXPECT_EQ(messageOf<E>([&] { engine->getQuantity("x"); }),
            "Could not find quantity with typeid x.");
}

TEST(Engine, HandsOutCopiesOfWhatItHolds) {
  std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
  engine->addDimension(Dimension("length"));
  engine->addFactor(Factor("kilo", FactorComponent(1000.0)));
  engine->addUnit(Unit("m", "meter", System::Metric, PrimitiveUnitComponent(Dimension("length"))));
  engine->addSymbol(
      Symbol("sm", engine->getUnit("m"), PrefixOrSuffix("m", Placement::Suffix, true)));
  engine->addQuantity(Quantity("ql", "length", {engine->getUnit("m")}));

  const auto units = engine->getUnits();
  const Symbol symbol = engine->getSymbol("sm");
  EXPECT_EQ(engine->getDimension("length"), engine->getDimensions().at("length"));
  EXPECT_EQ(engine->getFactor("kilo").getFactorComponent().getFactor(), 1000.0);
  EXPECT_EQ(engine->getQuantity("ql").getName(), "length");
  EXPECT_EQ(engine->getFactors().size() + engine->getSymbols().size(), 2u);
  EXPECT_EQ(engine->getQuantities().count("ql"), 1u);
  for (const char* typeId : {"length", "kilo", "m", "sm", "ql"})
    EXPECT_TRUE(engine->isRegistered(typeId));

  engine.reset();
  EXPECT_EQ(units.at("m").getPrimitiveUnitComponent()->getDimension()->getTypeId(), "length");
  EXPECT_EQ(symbol.getUnit().getName(), "meter");
}

}  // namespace
}  // namespace Units
