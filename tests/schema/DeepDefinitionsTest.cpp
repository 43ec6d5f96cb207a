#include "schema/Definitions.h"
#include "tests/support/Messages.h"
#include "tests/support/SmallStack.h"

#include <gtest/gtest.h>

namespace Units {
namespace {

using Powers = std::map<std::string, int>;

std::string numbered(const char* letter, int number) {
  return letter + std::to_string(1000000 + number);  // byte order is the order of the numbers
}

void addPending(const std::string& id, const char* letter, Powers parents, Registries& registries) {
  if (*letter == 'f') {
    registries.factors.pending.emplace(id, DerivedFactorSchemaData{2, std::move(parents)});
  } else if (parents.empty()) {
    registries.units.pending.emplace(id, PrimitiveUnitSchemaData{"n", System::Metric});
  } else {
    registries.units.pending.emplace(
        id, DerivedUnitSchemaData{"n", System::Metric, 2, {}, std::move(parents)});
  }
}

class Deep : public testing::TestWithParam<const char*> {};  // "f": factors, "u": units

TEST_P(Deep, ChainsBuildListAndFail) {
  const int length = 100000;
  onSmallStack([&] {
    for (const int step : {1, -1}) {  // the first root walks the whole chain, or a link
      Registries registries;
      const int last = step > 0 ? length - 1 : 0;
      for (int i = 0; i != length; ++i)
        addPending(numbered(GetParam(), i), GetParam(),
                   i == last ? Powers() : Powers{{numbered(GetParam(), i + step), 1}}, registries);
      buildSchemas(registries);
      const auto head = numbered(GetParam(), length - 1 - last);
      EXPECT_EQ(getDependencies(head, registries).size(), std::size_t{length - 1});
    }
    Registries circle;
    for (int i = 0; i != length; ++i)
      addPending(numbered(GetParam(), i), GetParam(), {{numbered(GetParam(), (i + 1) % length), 1}},
                 circle);
    EXPECT_EQ(messageOf<ValidationException>([&] { buildSchemas(circle); }),
              "A schema identifies its descendant " + numbered(GetParam(), 0) +
                  " as one of its parents.");
  });
}

TEST_P(Deep, DiamondsCostTheirRecordsNotTheirPaths) {
  Registries registries;
  QuantitySchemaData all{"n", {}};  // walks that begin at each of them share what they reach
  for (int level = 0; level != 64; ++level)
    for (const char* side : {"a", "b"}) {
      const Powers parents = {{numbered("a", level + 1), 1}, {numbered("b", level + 1), 1}};
      addPending(numbered(side, level), GetParam(), level == 63 ? Powers() : parents, registries);
      if (*GetParam() == 'u') all.units.push_back(numbered(side, level));
    }
  registries.quantities.pending.emplace("q", all);
  buildSchemas(registries);
  EXPECT_EQ(getDependencies(numbered("a", 0), registries).size(), 126u);
  EXPECT_EQ(getDependencies("q", registries).size(), all.units.size());
}

INSTANTIATE_TEST_SUITE_P(Definitions, Deep, testing::Values("f", "u"), [](const auto& row) {
  return *row.param == 'f' ? "OfFactors" : "OfUnits";
});

}  // namespace
}  // namespace Units
