#include "schema/Definitions.h"
#include "tests/support/Messages.h"
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

/// How much there is of everything.
std::vector<std::size_t> sizes(const Registries& all) {
  std::vector<std::size_t> result = {all.pending.size()};
  const auto add = [&](const auto& kind) {
    for (const auto* const records : {&kind.objects, &kind.built})
      result.push_back(records->records().size());
  };
  add(all.dimensions), add(all.factors), add(all.units), add(all.symbols), add(all.quantities);
  return result;
}

std::string missing(const std::string& dependency, const std::string& schemaTypeId) {
  return "Dependency " + dependency + " in schema " + schemaTypeId +
         " is missing or does not represent an object of the expected type.";
}
std::string unexpected(const std::string& id) {
  return "Parent " + id + " has an unexpected type.";
}
std::string circle(const std::string& id) {
  return "A schema identifies its descendant " + id + " as one of its parents.";
}
std::string notRelative(const std::string& id, const std::string& kindAndUnit) {
  return "Parent unit " + id + " in " + kindAndUnit + " is not a relative unit.";
}
std::string notFound(const std::string& id) {
  return "Could not find relative unit with typeid " + id + ".";
}
const std::string noDimension = dimensional("z", "x");
const std::string noSymbolUnit = composite("z:feetAndInches-1", "x");
const std::string noQuantityUnit = quantity("y", {"u0", "x", "w"});
const std::string noFactor = factor("fz", {"x"});

struct Fault {
  Texts batch;
  std::string message;
};
const Fault faults[] = {
    {{noQuantityUnit, noSymbolUnit, noDimension}, missing("x", "z")},
    {{dimensional("y", "u0")}, missing("u0", "y")},
    {{noFactor, noQuantityUnit, noSymbolUnit}, missing("x", "z:feetAndInches-1")},
    {{composite("s:feetAndInches-1", "f0")}, missing("f0", "s:feetAndInches-1")},
    {{noFactor, noQuantityUnit}, missing("x", "y")},
    {{noFactor}, unexpected("x")},
    {{factor("b", {"a"}), factor("a", {"b"})}, circle("a")},
    {{factor("a", {"b", "c"}), factor("b", {"x"}), factor("c", {"a"})}, unexpected("x")},
    {{factor("a", {"b", "x"}), factor("b", {"a"})}, circle("a")},
    {{derived("a", {"x"}), noFactor}, unexpected("x")},

    {{derived("u", {"a0"}, {"f0", "x"})}, missing("x", "u")},
    {{derived("u", {"a0", "x"})}, notRelative("a0", "derived unit u")},
    {{derived("u", {"a"}), absolute("a", "u0")}, notRelative("a", "derived unit u")},
    // A walk from an earlier unit comes by first, and names that unit.
    {{derived("u", {"v"}), derived("v", {"a"}), absolute("a", "u0")},
     notRelative("a", "derived unit u")},
    {{derived("u", {"v"}), derived("v", {"a0"})}, notRelative("a0", "derived unit v")},
    {{derived("v", {"u"}), derived("u", {"x"})}, missing("x", "u")},
    {{derived("u", {"u"})}, circle("u")},
    {{derived("u", {"v", "x"}), derived("v", {"u"})}, missing("x", "u")},
    {{derived("u", {"u"}), absolute("v", "x")}, circle("u")},
    {{absolute("t", "x"), derived("u", {"u"})}, notFound("x")},
    {{absolute("a", "b"), absolute("b", "u0")}, notRelative("b", "absolute unit a")},
    {{absolute("a", "a0")}, notFound("a0")}};

TEST(BuildSchemas, DropsAFaultyBatchAndNothingElse) {
  for (const auto& [batch, message] : faults) {
    SCOPED_TRACE(batch.front());
    Registries registries;
    addAll(stored, registries);
    buildSchemas(registries);
    const auto before = sizes(registries);
    for (int round = 0; round != 2; ++round) {  // the type ids are free again
      addAll(batch, registries);
      EXPECT_EQ(messageOf<ValidationException>([&] { buildSchemas(registries); }), message);
      EXPECT_EQ(sizes(registries), before);
    }
    buildSchemas(registries);
    EXPECT_EQ(sizes(registries), before);
  }
}

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
