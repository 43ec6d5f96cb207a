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

template <class Record>
class RecordOrder : public testing::Test {};

template <class Record>
Record named(const std::string& typeId, const std::string& other) {
  if constexpr (std::is_same_v<Record, Dimension>) return Dimension(typeId);
  if constexpr (std::is_same_v<Record, Factor>)
    return Factor(typeId, FactorComponent(static_cast<double>(other.size())));
  if constexpr (std::is_same_v<Record, Unit>)
    return Unit(typeId, other, System::Metric, PrimitiveUnitComponent());
  if constexpr (std::is_same_v<Record, Symbol>)
    return Symbol(typeId, named<Unit>(other, other), std::nullopt);
  if constexpr (std::is_same_v<Record, Quantity>) return Quantity(typeId, other, {});
}

using ComparedRecords = testing::Types<Dimension, Factor, Unit, Symbol, Quantity>;
TYPED_TEST_SUITE(RecordOrder, ComparedRecords, );

TYPED_TEST(RecordOrder, IsTheByteOrderOfTypeIdsAlone) {
  const auto a = named<TypeParam>("a", "other");
  const auto sameId = named<TypeParam>("a", "different");
  EXPECT_TRUE(a == sameId);
  EXPECT_FALSE(a != sameId || a < sameId || a > sameId);

  const std::pair<std::string, std::string> ascending[] = {
      {"a", "ab"}, {"B", "a"}, {"", "a"}, {"z", "\x80"}, {std::string("a\0", 2), "aa"}};
  for (const auto& [less, greater] : ascending) {
    const auto low = named<TypeParam>(less, "other");
    const auto high = named<TypeParam>(greater, "other");
    EXPECT_TRUE(low < high && high > low && low != high);
    EXPECT_FALSE(high < low || low > high || low == high);
  }
}

}  // namespace
}  // namespace Units
