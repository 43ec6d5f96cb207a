#include "registry/PendingSchemas.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace Units {
namespace {

using namespace std::string_view_literals;

/// A type id with the same hash for every number.
std::string collidingId(std::uint64_t number) {
  std::uint64_t hash = (16 ^ number) * 0x9E3779B97F4A7C15;  // as hashOf begins
  hash ^= hash >> 32;
  const std::uint64_t words[] = {number, hash};
  std::string id(sizeof words, '\0');
  std::memcpy(id.data(), words, sizeof words);
  return id;
}

/// Type ids that share a hash, that are many, and that differ late, in length or in the sign of a
/// byte.
std::set<std::string> awkwardIds() {
  std::set<std::string> ids;
  for (unsigned number = 0; number < 100; ++number) ids.insert(collidingId(number));
  for (int number = 0; number < 3000; ++number) ids.insert("id" + std::to_string(number));
  for (const auto id : {"id"sv, "id\0"sv, "id\0\0"sv, "id\x7F"sv, "id\x80"sv, "id12345678901"sv,
                        "id12345678902"sv, "id1234567890"sv})
    ids.emplace(id);
  return ids;
}

TEST(PendingSchemas, FindsEachTypeIdAndPutsThemInOrder) {
  ASSERT_EQ(hashOf(collidingId(1)), hashOf(collidingId(2)));
  const std::set<std::string> ids = awkwardIds();
  PendingSchemas pending;
  for (auto id = ids.rbegin(); id != ids.rend(); ++id) {  // not in order, and kinds mixed
    ASSERT_EQ(pending.find(HashedText(*id)), nullptr) << *id;
    PendingSchema& schema = pending.share(HashedText(*id));
    if (id->size() % 2 == 0)
      schema.contents.emplace<Dimension>(*id);
    else if (id->size() % 3 == 0)
      schema.contents.emplace<Factor>(*id, FactorComponent(1));
  }
  std::vector<std::string> dimensions, factors, ordered;
  for (const std::string& id : ids) {
    const PendingSchema* const found = pending.find(HashedText(id));
    ASSERT_NE(found, nullptr) << id;
    EXPECT_EQ(found->typeId.str(), id);
    EXPECT_EQ(&pending.share(HashedText(id)), found) << id;
    if (std::holds_alternative<Dimension>(found->contents)) dimensions.push_back(id);
    if (std::holds_alternative<Factor>(found->contents)) factors.push_back(id);
  }
  for (const PendingSchema* const schema : pending.inOrder())
    ordered.push_back(schema->typeId.str());
  dimensions.insert(dimensions.end(), factors.begin(), factors.end());
  EXPECT_EQ(ordered, dimensions);
  EXPECT_EQ(pending.size(), ids.size());
}

}  // namespace
}  // namespace Units
