/// Random records of all kinds whose references are mostly valid, and their schema texts. There are
/// few ids, so that they collide, and odd ones.
#pragma once

#include "schema/DimensionSchema.h"
#include "schema/FactorSchema.h"
#include "schema/QuantitySchema.h"
#include "schema/SymbolSchema.h"
#include "schema/UnitSchema.h"
#include "tests/support/Random.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <limits>
#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Units {

using Definition = std::variant<Dimension, Factor, Unit, Symbol, Quantity>;

class RandomDefinitions {
 public:
  explicit RandomDefinitions(Random& random) : random_(random) {}

  Definition next() {
    const std::size_t kind = random_.below(20);
    if (kind < 2) return Dimension(newId(dimensions_));
    if (kind < 6) {
      const FactorComponent component = anyComponent();
      return Factor(newId(factors_), component);
    }
    if (kind < 8) return symbol();
    if (kind == 8) return quantity();
    return unit(kind);
  }

  /// A number that JSON cannot represent makes a text that is not a schema.
  std::string nextText() {
    try {
      return std::visit([](const auto& record) { return write(record); }, next());
    } catch (const ValidationException& error) {
      return error.what();
    }
  }

 private:
  using Ids = std::vector<std::string>;

  static std::string write(const Dimension& record) { return writeDimensionSchema(record); }
  static std::string write(const Factor& record) { return writeFactorSchema(record); }
  static std::string write(const Unit& record) { return writeUnitSchema(record); }
  static std::string write(const Symbol& record) { return writeSymbolSchema(record); }
  static std::string write(const Quantity& record) { return writeQuantitySchema(record); }

  /// A letter, or at times something odd, or both.
  std::string anyId() {
    using namespace std::string_literals;
    static const std::string odd[] = {"",  "\xFF", "a\0"s, "\"\\", "\xC2\xB0", "m^2",
                                      "$", "\n",   "/",    "x y",  "-",        "1"};
    std::string id(1, static_cast<char>('a' + random_.below(12)));
    if (random_.oneIn(2)) id = random_.oneOf(odd);
    if (random_.oneIn(4)) id += random_.oneOf(odd);
    return random_.oneIn(24) ? id + ":feetHyphenInches-1.0.0" : id;
  }

  std::string newId(Ids& known) {
    known.push_back(anyId());
    return known.back();
  }

  std::string pick(const Ids& known) {
    return known.empty() || random_.oneIn(20) ? anyId() : random_.oneOf(known);
  }

  double number() {
    if (random_.oneIn(8)) return random_.anyDouble();
    const double places[] = {1, 1, 10, 100, 1e6, 1e14};
    const int part = random_.between(1, 65535);
    return part / random_.oneOf(places);
  }

  std::map<std::string, int> anyPowers(const Ids& known, std::size_t fewest) {
    constexpr int most = std::numeric_limits<int>::max(), least = std::numeric_limits<int>::min();
    static const int exponents[] = {1, 1, 1, 1, 1, 1, -1, 2, -2, 3, most, least};
    std::map<std::string, int> made;
    for (std::size_t count = fewest + random_.below(3); count > 0; --count) {
      const std::string parent = pick(known);
      made[parent] = random_.oneIn(64) ? 0 : random_.oneOf(exponents);
    }
    return made;
  }

  FactorComponent anyComponent() {
    const double factor = number();
    return FactorComponent(factor, anyPowers(factors_, 0));
  }

  Unit unit(std::size_t kind) {
    const std::string name = random_.oneIn(64) ? "" : "n";
    const System system = random_.oneIn(2) ? System::Imperial : System::Metric;
    if (kind == 9) {
      const Dimension dimension(pick(dimensions_));
      return Unit(newId(units_), name, system, PrimitiveUnitComponent(dimension));
    }
    if (kind == 10) {
      const AbsoluteUnitComponent component(pick(units_), number());
      Ids none;  // other units seldom refer to it
      return Unit(newId(random_.oneIn(6) ? units_ : none), name, system, component);
    }
    if (kind < 13 || units_.empty())
      return Unit(newId(units_), name, system, PrimitiveUnitComponent());
    const auto parents = anyPowers(units_, 1);
    const DerivedUnitComponent component(parents, anyComponent());
    return Unit(newId(units_), name, system, component);
  }

  /// Stands for the engine's own.
  static Unit named(const std::string& typeId) {
    return Unit(typeId, "another", System::Metric, PrimitiveUnitComponent());
  }

  Symbol symbol() {
    Ids none;
    const Unit unit = named(pick(units_));
    if (random_.oneIn(2)) return Symbol(newId(none) + ":feetAndInches-1", unit, std::nullopt);
    const std::string text = anyId();
    const Placement placement = random_.oneIn(2) ? Placement::Prefix : Placement::Suffix;
    return Symbol(newId(none), unit, PrefixOrSuffix(text, placement, random_.oneIn(2)));
  }

  Quantity quantity() {
    Ids none;
    std::vector<Unit> units;
    for (std::size_t count = random_.below(4); count > 0; --count)
      units.push_back(named(pick(units_)));
    return Quantity(newId(none), random_.oneIn(64) ? "" : "n", units);
  }

  Random& random_;
  Ids dimensions_, factors_, units_;
};

}  // namespace Units
