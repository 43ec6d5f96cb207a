#include "tests/schema/LiteralBuild.h"

#include "schema/Definitions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <random>

namespace Units {
namespace {

/// Batches of schemas on twenty type ids, that mostly refer to what they should.
class RandomBatch {
 public:
  RandomBatch(std::mt19937& random, Registries& registries)
      : random_(random), registries_(registries) {
    for (int id = 0; id != 20; ++id)
      if (!isRegistered(std::to_string(id), registries)) ids_.push_back(std::to_string(id));
    std::shuffle(ids_.begin(), ids_.end(), random_);
    for (const auto& [id, record] : registries.dimensions.objects) dimensions_.push_back(id);
    for (const auto& [id, record] : registries.factors.objects) factors_.push_back(id);
    for (const auto& [id, record] : registries.units.objects) units_.push_back(id);
  }

  void add() {
    for (std::size_t count = 3 * ids_.size() / 4; count != 0; --count) add(ids_[count]);
  }

 private:
  std::size_t upTo(std::size_t last) {
    return std::uniform_int_distribution<std::size_t>(0, last)(random_);
  }

  std::string pick(const std::vector<std::string>& known) {
    if (known.empty() || upTo(30) == 0) return std::to_string(upTo(19));
    return known[upTo(known.size() - 1)];
  }

  std::map<std::string, int> powers(const std::vector<std::string>& known, std::size_t least) {
    std::map<std::string, int> result;
    for (std::size_t count = least + upTo(2); count != 0; --count) result[pick(known)] = 1;
    return result;
  }

  void add(const std::string& id) {
    registries_.pendingTypeIds.insert(id);
    switch (upTo(9)) {
      case 0:
        registries_.dimensions.pending.emplace(id, id);
        return dimensions_.push_back(id);
      case 1:
      case 2:
      case 3:
        registries_.factors.pending.emplace(id, DerivedFactorSchemaData{1, powers(factors_, 0)});
        return factors_.push_back(id);
      case 4:
        registries_.symbols.pending.emplace(id, SymbolSchemaData{pick(units_), std::nullopt});
        return;
      case 5:
        registries_.quantities.pending.emplace(
            id, QuantitySchemaData{"n", {pick(units_), pick(units_)}});
        return;
      default:
        registries_.units.pending.emplace(id, unit(id));
    }
  }

  UnitSchemaData unit(const std::string& id) {
    const std::size_t kind = upTo(15);
    if (kind == 0)
      return DimensionalPrimitiveUnitSchemaData{"n", System::Metric, pick(dimensions_)};
    if (kind < 3) {  // seldom a parent
      AbsoluteUnitSchemaData absolute{"n", System::Metric, 0, pick(units_)};
      if (upTo(5) == 0) units_.push_back(id);
      return absolute;
    }
    units_.push_back(id);
    const std::vector<std::string> before(units_.begin(), units_.end() - 1);
    if (before.empty() || kind < 6) return PrimitiveUnitSchemaData{"n", System::Metric};
    return DerivedUnitSchemaData{"n", System::Metric, 1, powers(factors_, 0), powers(before, 1)};
  }

  std::mt19937& random_;
  Registries& registries_;
  std::vector<std::string> ids_, dimensions_, factors_, units_;
};

std::string messageOfAny(const std::function<void()>& action) {
  try {
    action();
  } catch (const ValidationException& thrown) {
    return thrown.what();
  }
  return "";
}

TEST(RandomBatches, BuildOrFailAsTheLiteralWalkSays) {
  std::mt19937 random(35);
  std::map<std::string, int> seen;
  for (int round = 0; round != 4000; ++round) {
    Registries registries;
    for (int batch = 0; batch != 3; ++batch) {  // later ones refer to what earlier ones stored
      RandomBatch(random, registries).add();
      std::string expected = messageOfAny([&] { LiteralBuild(registries).check(); });
      auto expectedIds = registries.registeredTypeIds;
      if (expected.empty())
        expectedIds.insert(registries.pendingTypeIds.begin(), registries.pendingTypeIds.end());
      ASSERT_EQ(messageOfAny([&] { buildSchemas(registries); }), expected) << "round " << round;
      ASSERT_EQ(registries.registeredTypeIds, expectedIds) << "round " << round;
      expected.erase(std::remove_if(expected.begin(), expected.end(), ::isdigit), expected.end());
      ++seen[expected];
    }
  }
  for (const auto& [message, count] : seen) EXPECT_GT(count, 20) << message;
  EXPECT_EQ(seen.size(), 7u);  // success, and all that a build can say
}

}  // namespace
}  // namespace Units
