#include "schema/Definitions.h"
#include "tests/support/SchemaTexts.h"

#include <gtest/gtest.h>

#include <vector>

namespace Units {
namespace {

using Texts = std::vector<std::string>;

void addAll(const Texts& texts, Registries& registries) {
  for (const std::string& text : texts) addDefinition(text, registries);
}

/// One of each, that later schemas may rest on.
const Texts stored = {dimension("d0"), factor("f0", {}), primitive("u0"), absolute("a0", "u0")};

/// Parents before and after their children in byte order, of all kinds.
const Texts soundBatch = {derived("b", {"a", "c"}, {"f"}),
                          derived("a", {"c", "u0"}),
                          dimensional("c", "d"),
                          dimension("d"),
                          absolute("e", "b"),
                          factor("f", {"g", "f0"}),
                          factor("g", {}),
                          composite("s:feetAndInches-1", "b"),
                          quantity("q", {"e", "a"})};

TEST(GetDependencies, ListsAllThatADefinitionRestsOn) {
  Registries registries;
  addAll(stored, registries);
  addAll(soundBatch, registries);
  buildSchemas(registries);
  const std::set<std::string> ofB = {"a", "c", "d", "f", "f0", "g", "u0"};
  const std::set<std::string> withB = {"a", "b", "c", "d", "f", "f0", "g", "u0"};
  const std::set<std::string> ofQuantity = {"a", "b", "c", "d", "e", "f", "f0", "g", "u0"};
  const std::vector<std::pair<std::string, std::set<std::string>>> rows = {
      {"d", {}},      {"g", {}},         {"f", {"f0", "g"}},          {"u0", {}},
      {"c", {"d"}},   {"b", ofB},        {"a", {"c", "d", "u0"}},     {"e", withB},
      {"a0", {"u0"}}, {"q", ofQuantity}, {"s:feetAndInches-1", withB}};
  for (const auto& [typeId, dependencies] : rows)
    EXPECT_EQ(getDependencies(typeId, registries), dependencies) << typeId;
}

}  // namespace
}  // namespace Units
