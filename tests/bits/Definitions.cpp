#include "tests/bits/Definitions.h"

#include "tests/support/SchemaTexts.h"

namespace {

class Maker {
 public:
  Definitions make() {
    made_.engine.reset(Units::CreateUnitsEngine());
    made_.groups = {{"length", {{"m", 1}}},
                    {"mass", {{"kg", 1}}},
                    {"time", {{"s", 1}}},
                    {"area", {{"m", 2}}},
                    {"speed", {{"m", 1}, {"s", -1}}},
                    {"pace", {{"m", -1}, {"s", 1}}},
                    {"force", {{"kg", 1}, {"m", 1}, {"s", -2}}}};
    for (const char* unit : {"m", "kg", "s"}) add(primitive(unit));
    for (const std::string& number : numbers)
      add(schema("f" + number, "factor", {factorConstant()}));
    for (Group& group : made_.groups)
      for (const std::string& number : numbers) addPlain(group, group.name + number);
    for (Group& group : made_.groups)
      for (const std::string& number : numbers) addPowered(group, group.name + ("^" + number));
    for (const std::string& number : numbers) addScale("scale" + number);
    addSymbols();
    made_.engine->buildSchemas();
    return std::move(made_);
  }

 private:
  void add(const std::string& text) { made_.engine->addDefinition(text); }

  std::string factorConstant() {
    const std::string whole = std::to_string(random_.between(1, 3000));
    return value("factor", whole + "." + random_.digits(1, 18));
  }

  void addUnit(const std::string& typeId, const Powers& units, const Powers& factors) {
    add(derived(typeId, units, {powers("parentFactors", factors), factorConstant()}));
  }

  std::string anyFactor() { return "f" + random_.oneOf(numbers); }

  void addPlain(Group& group, const std::string& typeId) {
    Powers factors;
    if (random_.oneIn(2)) factors[anyFactor()] = 1;
    const bool isFirst = group.plain.empty() || random_.oneIn(2);
    addUnit(typeId, isFirst ? group.powers : Powers{{random_.oneOf(group.plain), 1}}, factors);
    group.plain.push_back(typeId);
  }

  void addPowered(Group& group, const std::string& typeId) {
    Powers units;
    for (const auto& [primitive, exponent] : group.powers) {
      const std::size_t base = primitive == "m" ? 0 : primitive == "kg" ? 1 : 2;
      units[random_.oneOf(made_.groups[base].plain)] = exponent;
    }
    const std::string raised = anyFactor();
    addUnit(typeId, units, {{raised, random_.oneIn(2) ? -1 : 2}});
    group.powered.push_back(typeId);
  }

  void addScale(const std::string& typeId) {
    const std::string parent = random_.oneOf(made_.groups[length].plain);
    const std::string whole = std::to_string(random_.between(-300, 300));
    add(absolute(typeId, parent, whole + "." + random_.digits(1, 18)));
    made_.scales.push_back(typeId);
  }

  void addSymbol(const std::string& unit, const std::string& text,
                 const std::string& placement = "Suffix") {
    made_.symbols.push_back("symbol of " + unit + " in " + std::to_string(made_.symbols.size()));
    add(symbol(made_.symbols.back(), unit, text, placement, random_.oneIn(2) ? "true" : "false"));
  }

  void addSymbols() {
    for (const Group& group : made_.groups)
      for (const std::string& unit : group.plain) addSymbol(unit, unit);
    addSymbol("lengtha", "\\u0027");
    addSymbol("lengthb", "\xC2\xB0");
    addSymbol("lengthc", "$", "Prefix");
    addSymbol("speeda", "m/s");
    addSymbol("scalea", "\xC2\xB0x");
    for (const char* form :
         {"degreesMinutesSeconds", "feetAndInches", "feetHyphenInches", "metersAndCentimeters"}) {
      made_.symbols.push_back(":" + std::string(form) + "-1");
      add(composite(made_.symbols.back(), random_.oneOf(made_.groups[length].plain)));
    }
  }

  const std::string numbers[8] = {"a", "b", "c", "d", "e", "f", "g", "h"};
  Definitions made_;
  Random random_{1};
};

}  // namespace

Definitions makeDefinitions() { return Maker().make(); }
