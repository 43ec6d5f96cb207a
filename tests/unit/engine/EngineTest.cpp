#include "tests/support/Messages.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <gtest/gtest.h>

#include <memory>

namespace Units {
namespace {

TEST(Engine, StartsEmptyAndSaysWhatItCannotFind) {
  const std::unique_ptr<const UnitsEngine> engine(CreateUnitsEngine());
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
  engine->addUnit(Unit("m", "metre", System::Metric, PrimitiveUnitComponent()));
  const PrefixOrSuffix text("m", Placement::Suffix, true);
  engine->addSymbol(Symbol("sm", engine->getUnit("m"), text));
  const auto units = engine->getUnits();
  const Symbol symbol = engine->getSymbol("sm");
  engine.reset();
  EXPECT_TRUE(units.at("m").getPrimitiveUnitComponent());
  EXPECT_EQ(symbol.getUnit().getName(), "metre");
}

}  // namespace
}  // namespace Units
