#include "tests/bits/Definitions.h"

namespace {

constexpr int unitsPerGroup = 8;
const char* const named = R"({"id":"name","value":"n"},{"id":"unitSystem","value":"Metric"})";
const char* const suffix = "\"Suffix\"";

std::string constant(const std::string& id, const std::string& value) {
  return R"({"id":")" + id + R"(","value":)" + value + "}";
}

std::string reference(const std::string& id, const std::string& typeId) {
  return R"({"id":")" + id + R"(","typedValue":{"typeid":")" + typeId + "\"}}";
}

std::string parents(const std::string& id, const Units::PrimitivePowers& powers) {
  std::string members;
  for (const auto& [typeId, exponent] : powers)
    members += (members.empty() ? "\"" : ",\"") + typeId + "\":" + std::to_string(exponent);
  return constant(id, "{" + members + "}");
}

class Maker {
 public:
  Maker() { made_.engine.reset(Units::CreateUnitsEngine()); }

  Definitions make() {
    made_.groups = {{"length", {{"m", 1}}, {}, {}},
                    {"mass", {{"kg", 1}}, {}, {}},
                    {"time", {{"s", 1}}, {}, {}},
                    {"area", {{"m", 2}}, {}, {}},
                    {"speed", {{"m", 1}, {"s", -1}}, {}, {}},
                    {"pace", {{"m", -1}, {"s", 1}}, {}, {}},
                    {"force", {{"kg", 1}, {"m", 1}, {"s", -2}}, {}, {}}};
    for (const char* primitive : {"m", "kg", "s"}) add(primitive, "unit.primitive", named);
    for (int number = 0; number < 8; ++number)
      add("f" + std::to_string(number), "factor", factor());
    for (Group& group : made_.groups)
      for (int number = 0; number < unitsPerGroup; ++number) addPlain(group, number);
    for (Group& group : made_.groups)
      for (int number = 0; number < unitsPerGroup; ++number) addPowered(group, number);
    for (int number = 0; number < unitsPerGroup; ++number)
      addScale("scale" + std::to_string(number));
    addSymbols();
    made_.engine->buildSchemas();
    return std::move(made_);
  }

 private:
  void add(const std::string& typeId, const std::string& kind, const std::string& constants) {
    made_.engine->addDefinition(schema(typeId, kind, constants));
  }

  std::string factor() {
    const std::string whole = std::to_string(random_.between(1, 3000));
    return constant("factor", whole + "." + random_.digits(1, 18));
  }

  void addUnit(const std::string& typeId, const Units::PrimitivePowers& units,
               const Units::PrimitivePowers& factors) {
    const std::string on = parents("parentUnits", units) + "," + parents("parentFactors", factors);
    add(typeId, "unit.derived", std::string(named) + "," + on + "," + factor());
  }

  std::string anyFactor() { return "f" + std::to_string(random_.below(8)); }

  void addPlain(Group& group, int number) {
    const std::string typeId = std::string(group.name) + static_cast<char>('a' + number);
    Units::PrimitivePowers factors;
    if (random_.oneIn(2)) factors[anyFactor()] = 1;
    if (group.plain.empty() || random_.oneIn(2))
      addUnit(typeId, group.powers, factors);
    else
      addUnit(typeId, {{random_.oneOf(group.plain), 1}}, factors);
    group.plain.push_back(typeId);
  }

  void addPowered(Group& group, int number) {
    const std::string typeId = std::string(group.name) + "^" + std::to_string(number);
    Units::PrimitivePowers units;
    for (const auto& [primitive, exponent] : group.powers) {
      const std::size_t base = primitive == "m" ? 0 : primitive == "kg" ? 1 : 2;
      units[random_.oneOf(made_.groups[base].plain)] = exponent;
    }
    const std::string raised = anyFactor();
    addUnit(typeId, units, {{raised, random_.oneIn(2) ? -1 : 2}});
    group.powered.push_back(typeId);
  }

  void addScale(const std::string& typeId) {
    const std::string parent = reference("parentUnit", random_.oneOf(made_.groups[length].plain));
    const std::string whole = std::to_string(random_.between(-300, 300));
    const std::string offset = whole + "." + random_.digits(1, 18);
    add(typeId, "unit.absolute",
        std::string(named) + "," + parent + "," + constant("offset", offset));
    made_.scales.push_back(typeId);
  }

  void addSymbol(const std::string& unit, const std::string& text, const char* placement) {
    const std::string typeId = "symbol " + text;
    add(typeId, "symbol.prefixOrSuffix",
        reference("unit", unit) + "," + constant("text", "\"" + text + "\"") + "," +
            constant("placement", placement) + "," +
            constant("space", random_.oneIn(2) ? "true" : "false"));
    made_.symbols.push_back(typeId);
  }

  void addSymbols() {
    for (const Group& group : made_.groups)
      for (const std::string& unit : group.plain) addSymbol(unit, unit, suffix);
    addSymbol("lengtha", "'", suffix);
    addSymbol("lengthb", "\xC2\xB0", suffix);
    addSymbol("lengthc", "$", "\"Prefix\"");
    addSymbol("speeda", "m/s", suffix);
    addSymbol("scale0", "\xC2\xB0x", suffix);
    for (const char* form :
         {"degreesMinutesSeconds", "feetAndInches", "feetHyphenInches", "metersAndCentimeters"}) {
      const std::string typeId = ":" + std::string(form) + "-1";
      add(typeId, "symbol", reference("unit", random_.oneOf(made_.groups[length].plain)));
      made_.symbols.push_back(typeId);
    }
  }

  Definitions made_;
  Random random_{1};
};

}  // namespace

std::string schema(const std::string& typeId, const std::string& kind,
                   const std::string& constants) {
  return R"({"typeid":")" + typeId + R"(","inherits":["vellamor.unit:)" + kind +
         R"(-1.0.0"],"constants":[)" + constants + "]}";
}

Definitions makeDefinitions() { return Maker().make(); }
