#include "schema/Definitions.h"

#include <TrelvonUnits/Exceptions.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <random>

namespace Units {
namespace {

using Ids = std::vector<std::string>;
using Powers = std::map<std::string, int>;

/// The checks of a build as a slow walk that remembers nothing: recursive, from every root anew,
/// with the path in a vector. The batch is still pending.
class LiteralBuild {
 public:
  explicit LiteralBuild(const Registries& registries) : all_(registries) {}

  void check() const {
    for (const auto& [id, data] : all_.units.pending)
      if (const auto* unit = std::get_if<DimensionalPrimitiveUnitSchemaData>(&data))
        depend(all_.dimensions, unit->dimension, id);
    for (const auto& [id, data] : all_.symbols.pending) depend(all_.units, data.unit, id);
    for (const auto& [id, data] : all_.quantities.pending)
      for (const std::string& unit : data.units) depend(all_.units, unit, id);
    for (const auto& [id, data] : all_.factors.pending)
      visit({id}, all_.factors, [&](const std::string& factor) {
        return std::get<DerivedFactorSchemaData>(all_.factors.pending.at(factor)).parentFactors;
      });
    for (const auto& [id, data] : all_.units.pending) {
      if (const auto* unit = std::get_if<DerivedUnitSchemaData>(&data)) checkDerived(id, *unit);
      if (const auto* unit = std::get_if<AbsoluteUnitSchemaData>(&data))
        checkAbsolute(id, unit->parentUnit);
    }
  }

 private:
  template <class Kind>
  static void depend(const Kind& kind, const std::string& id, const std::string& schema) {
    if (kind.objects.records().count(id) + kind.pending.count(id) == 0)
      throw ValidationException(
          "Dependency " + id + " in schema " + schema +
          " is missing or does not represent an object of the expected type.");
  }

  template <class Kind, class ParentsOf>
  static void visit(const Ids& path, const Kind& kind, const ParentsOf& parentsOf) {
    if (kind.objects.records().count(path.back()) != 0) return;
    if (kind.pending.count(path.back()) == 0)
      throw ValidationException("Parent " + path.back() + " has an unexpected type.");
    for (const auto& [parent, exponent] : parentsOf(path.back())) {
      if (std::find(path.begin(), path.end(), parent) != path.end())
        throw ValidationException("A schema identifies its descendant " + parent +
                                  " as one of its parents.");
      Ids longer = path;
      longer.push_back(parent);
      visit(longer, kind, parentsOf);
    }
  }

  bool isAbsolute(const std::string& id) const {
    if (all_.units.objects.records().count(id) != 0)
      return all_.units.objects.records().at(id).getAbsoluteUnitComponent().has_value();
    return std::holds_alternative<AbsoluteUnitSchemaData>(all_.units.pending.at(id));
  }

  void refuseAbsolute(const std::string& id, const std::string& child) const {
    if (isAbsolute(id))
      throw ValidationException("Parent unit " + id + " in " + child + " is not a relative unit.");
  }

  void checkDerived(const std::string& root, const DerivedUnitSchemaData& unit) const {
    for (const auto& [parent, exponent] : unit.parentFactors) depend(all_.factors, parent, root);
    for (const auto& [parent, exponent] : unit.parentUnits) {
      depend(all_.units, parent, root);
      refuseAbsolute(parent, "derived unit " + root);
    }
    visit({root}, all_.units, [&](const std::string& id) {
      refuseAbsolute(id, "derived unit " + root);
      const auto* data = std::get_if<DerivedUnitSchemaData>(&all_.units.pending.at(id));
      return data ? data->parentUnits : Powers();
    });
  }

  void checkAbsolute(const std::string& id, const std::string& parent) const {
    if (all_.units.pending.count(parent) != 0)
      refuseAbsolute(parent, "absolute unit " + id);
    else if (all_.units.objects.records().count(parent) == 0 || isAbsolute(parent))
      throw ValidationException("Could not find relative unit with typeid " + parent + ".");
  }

  const Registries& all_;
};

/// Fills `pending` with schemas of all kinds, that mostly refer to what they should.
class RandomBatch {
 public:
  RandomBatch(std::mt19937& random, Registries& registries) : random_(random), all_(registries) {
    for (const auto& [id, record] : all_.dimensions.objects.records()) dimensions_.push_back(id);
    for (const auto& [id, record] : all_.factors.objects.records()) factors_.push_back(id);
    for (const auto& [id, record] : all_.units.objects.records()) units_.push_back(id);
    for (int count = 0; count != 15; ++count) {
      const std::string id = std::to_string(below(20));
      if (!isRegistered(id, all_)) add(id);
    }
  }

 private:
  std::size_t below(std::size_t end) { return random_() % end; }

  std::string pick(const Ids& known) {
    const bool isKnown = !known.empty() && below(30) != 0;
    return isKnown ? known[below(known.size())] : std::to_string(below(20));
  }

  Powers pickSome(const Ids& known, std::size_t least) {
    Powers powers;
    for (std::size_t count = least + below(3); count != 0; --count) powers[pick(known)] = 1;
    return powers;
  }

  void add(const std::string& id) {
    all_.pendingTypeIds.insert(id);
    const std::size_t kind = below(20);
    if (kind < 2) {
      all_.dimensions.pending.emplace(id, id);
      dimensions_.push_back(id);
    } else if (kind < 7) {
      all_.factors.pending.emplace(id, DerivedFactorSchemaData{1, pickSome(factors_, 0)});
      factors_.push_back(id);
    } else if (kind == 7) {
      all_.symbols.pending.emplace(id, SymbolSchemaData{pick(units_), std::nullopt});
    } else if (kind == 8) {
      all_.quantities.pending.emplace(id, QuantitySchemaData{"n", {pick(units_), pick(units_)}});
    } else {
      const UnitSchemaData data = unit(kind);
      all_.units.pending.emplace(id, data);
      // Seldom an absolute one: no other unit may rest on it.
      if (!std::holds_alternative<AbsoluteUnitSchemaData>(data) || below(6) == 0)
        units_.push_back(id);
    }
  }

  UnitSchemaData unit(std::size_t kind) {
    const System metric = System::Metric;
    if (kind == 9) return DimensionalPrimitiveUnitSchemaData{"n", metric, pick(dimensions_)};
    if (kind == 10) return AbsoluteUnitSchemaData{"n", metric, 0, pick(units_)};
    if (kind == 11 || units_.empty()) return PrimitiveUnitSchemaData{"n", metric};
    return DerivedUnitSchemaData{"n", metric, 1, pickSome(factors_, 0), pickSome(units_, 1)};
  }

  std::mt19937& random_;
  Registries& all_;
  Ids dimensions_, factors_, units_;
};

std::string messageOrNone(const std::function<void()>& action) {
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
  for (int round = 0; round != 5000; ++round) {
    Registries registries;
    for (int batch = 0; batch != 3; ++batch) {  // later ones refer to what earlier ones stored
      RandomBatch(random, registries);
      std::string expected = messageOrNone([&] { LiteralBuild(registries).check(); });
      auto expectedIds = registries.registeredTypeIds;
      if (expected.empty())
        expectedIds.insert(registries.pendingTypeIds.begin(), registries.pendingTypeIds.end());
      ASSERT_EQ(messageOrNone([&] { buildSchemas(registries); }), expected) << "round " << round;
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
