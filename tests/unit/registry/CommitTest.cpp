#include "registry/Commit.h"

#include "tests/support/Messages.h"

#include <gtest/gtest.h>

namespace Units {
namespace {

TEST(Commit, TakesNoRecordThatRestsOnNothing) {
  using E = UnrecognizedIdentifierException;
  const std::map<std::string, int> parents = {{"gone", 1}};
  Registries units, factors;
  units.units.built = RecordStore<Unit>(
      {{"unit", Unit("unit", "name", System::Metric, DerivedUnitComponent(parents, 1.0))}});
  factors.factors.built =
      RecordStore<Factor>({{"factor", Factor("factor", FactorComponent(1.0, parents))}});
  EXPECT_EQ(messageOf<E>([&] { commit(units); }), "Could not find unit with typeid gone.");
  EXPECT_EQ(messageOf<E>([&] { commit(factors); }), "Could not find factor with typeid gone.");
}

}  // namespace
}  // namespace Units
