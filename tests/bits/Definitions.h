/// The definitions that the operations use: units of a few dimensions, in groups of eight.
#pragma once

#include "tests/support/Random.h"
#include "tests/support/SchemaTexts.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <memory>
#include <string>

/// The plain units of a group, such as "lengtha", need only products. What the powered ones, such
/// as "length^a", are defined by is raised to powers, by the C library's pow.
struct Group {
  std::string name;
  Powers powers;
};

inline const Group groups[] = {{"length", {{"length", 1}}},
                               {"mass", {{"mass", 1}}},
                               {"time", {{"time", 1}}},
                               {"area", {{"length", 2}}},
                               {"speed", {{"length", 1}, {"time", -1}}},
                               {"pace", {{"length", -1}, {"time", 1}}},
                               {"force", {{"mass", 1}, {"length", 1}, {"time", -2}}}};
inline const std::string letters[] = {"a", "b", "c", "d", "e", "f", "g", "h"};

/// The symbols beside those that show the type id of a plain unit.
inline const std::string oddSymbols[] = {"foot",
                                         "degree",
                                         "dollar",
                                         "solidus",
                                         "scale",
                                         ":degreesMinutesSeconds-1",
                                         ":feetAndInches-1",
                                         ":feetHyphenInches-1",
                                         ":metersAndCentimeters-1"};

class Maker {
 public:
  std::unique_ptr<Units::UnitsEngine> make() {
    for (const char* unit : {"length", "mass", "time"}) add(primitive(unit));
    for (const std::string& letter : letters)
      add(schema("f" + letter, "factor", {value("factor", number())}));
    for (const Group& group : groups) addUnits(group);
    for (const std::string& letter : letters) {
      const std::string parent = "length" + random_.oneOf(letters);
      add(absolute("scale" + letter, parent, "-" + number()));
    }
    add(symbol("foot", "lengtha", "\\u0027"));
    add(symbol("degree", "lengthb", "\xC2\xB0"));
    add(symbol("dollar", "lengthc", "$", "Prefix"));
    add(symbol("solidus", "speeda", "m/s", "Suffix", "false"));
    add(symbol("scale", "scalea", "\xC2\xB0x"));
    for (const std::string& typeId : oddSymbols)
      if (typeId[0] == ':') add(composite(typeId, "length" + random_.oneOf(letters)));
    engine_->buildSchemas();
    return std::move(engine_);
  }

 private:
  void add(const std::string& text) { engine_->addDefinition(text); }

  std::string number() {
    const std::string whole = std::to_string(random_.between(1, 3000));
    return whole + "." + random_.digits(1, 18);
  }

  /// Each plain unit rests on the one before it or on primitive units.
  void addUnits(const Group& group) {
    Powers parents = group.powers;
    for (const std::string& letter : letters) {
      const std::string plain = group.name + letter;
      const Powers factors = random_.oneIn(2) ? Powers{{"f" + letter, 1}} : Powers();
      add(derived(plain, parents, {powers("parentFactors", factors), value("factor", number())}));
      add(symbol("of " + plain, plain, plain, "Suffix", random_.oneIn(2) ? "true" : "false"));
      parents = random_.oneIn(2) ? group.powers : Powers{{plain, 1}};

      Powers raised;
      for (const auto& [unit, exponent] : group.powers)
        raised[unit + random_.oneOf(letters)] = exponent;
      const int exponent = random_.oneIn(2) ? -1 : 2;
      add(derived(
          group.name + "^" + letter, raised,
          {powers("parentFactors", {{"f" + letter, exponent}}), value("factor", number())}));
    }
  }

  Random random_{1};
  std::unique_ptr<Units::UnitsEngine> engine_{Units::CreateUnitsEngine()};
};
