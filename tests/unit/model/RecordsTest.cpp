#include "model/RecordAccess.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

namespace Units {
namespace {

const std::map<std::string, int> powers = {{"a", -2}, {"b", 3}};

const Unit derived("u", "other", System::Metric,
                   DerivedUnitComponent(powers, FactorComponent(0.5, {{"f", 1}})));

TEST(Records, HaveTheFactorOneWhereNoneIsGiven) {
  EXPECT_EQ(FactorComponent().getFactor(), 1.0);
  EXPECT_EQ(FactorComponent(powers).getFactor(), 1.0);
}

TEST(Records, AreMovedByCopyingAndNeverAssigned) {
  const std::string longId(100, 'x');
  Symbol symbol(longId, derived, PrefixOrSuffix(longId, Placement::Suffix, false));
  const Symbol moved(std::move(symbol));
  EXPECT_EQ(symbol.getTypeId(), longId);
  EXPECT_EQ(symbol.getPrefixOrSuffix()->getText(), longId);
  EXPECT_EQ(symbol.getUnit().getDerivedUnitComponent()->getParentUnitPowers(), powers);
  EXPECT_EQ(moved.getTypeId(), longId);

  static_assert(!std::is_copy_assignable_v<Unit> && !std::is_move_assignable_v<Unit>);
  static_assert(!std::is_polymorphic_v<Unit>);
}

}  // namespace
}  // namespace Units
