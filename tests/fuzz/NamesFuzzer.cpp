/// Texts that may name units, and mappings of codes. Whatever the bytes, they find units or there is
/// a reason why not, and a mapping that is read is written as it was read. Expressions that are made
/// of codes find the units of their size and powers.
#include "tests/fuzz/Fuzzer.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <cmath>
#include <map>
#include <memory>
#include <set>

namespace {

using namespace Units;

/// Powers of ten, meters and seconds.
struct Terms {
  int tens, meters, seconds;

  bool operator==(const Terms& other) const {
    return tens == other.tens && meters == other.meters && seconds == other.seconds;
  }
};

struct Coded {
  const char* name;
  const char* code;
  Terms terms;
};

constexpr Coded stored[] = {{"km", "km", {3, 1, 0}},         {"km/s", "km.s-1", {3, 1, -1}},
                            {"m", "m", {0, 1, 0}},           {"m^3", "m3", {0, 3, 0}},
                            {"per km", "km-1", {-3, -1, 0}}, {"s", "s", {0, 0, 1}}};

UnitNames makeNames() {
  const std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
  const auto add = [&](const std::string& name, const auto& component) {
    engine->addUnit(Unit(name, name, System::Metric, component));
  };
  add("m", PrimitiveUnitComponent());
  add("s", PrimitiveUnitComponent());
  std::string rows;
  for (const Coded& unit : stored) {
    const auto& [tens, meters, seconds] = unit.terms;
    std::map<std::string, int> parents;
    if (meters != 0) parents["m"] = meters;
    if (seconds != 0) parents["s"] = seconds;
    if (!engine->isRegistered(unit.name))
      add(unit.name, DerivedUnitComponent(parents, FactorComponent(std::pow(10, tens))));
    const std::string codes = std::string("[\"") + unit.code + "\"]";
    rows += std::string(rows.empty() ? "" : ",") + '"' + unit.name + "\":{\"ucum\":" + codes +
            ",\"udunits\":" + codes + '}';
  }
  return UnitNames(*engine, UnitCodes::fromText("{\"version\":1,\"codes\":{" + rows + "}}"));
}

const UnitNames& names() {
  static const UnitNames all = makeNames();
  return all;
}

/// A product or quotient of codes, some of it in parentheses, and what it stands for.
std::string makeExpression(Random& random, Terms& sum) {
  const std::pair<const char*, Terms> atoms[] = {{"m", {0, 1, 0}},   {"km", {3, 1, 0}},
                                                 {"s", {0, 0, 1}},   {"Mm", {6, 1, 0}},
                                                 {"10*", {1, 0, 0}}, {"ds", {-1, 0, 1}}};
  std::string text;
  std::vector<int> signs = {1};  // of what is in the parentheses that are open
  int sign = 1;
  for (int count = random.between(1, 6); count > 0; --count) {
    if (!text.empty()) {
      sign = random.oneIn(3) ? -1 : 1;
      text += sign < 0 ? '/' : '.';
    }
    for (; random.oneIn(5); sign = 1) {
      signs.push_back(signs.back() * sign);
      text += '(';
    }
    const auto& [code, terms] = random.oneOf(atoms);
    const int exponent = random.oneIn(2) ? 1 : random.between(-3, 3);
    text +=
        code + (exponent == 1 ? "" : std::to_string(exponent)) + (random.oneIn(9) ? "{a b}" : "");
    const int power = exponent * sign * signs.back();
    sum.tens += power * terms.tens;
    sum.meters += power * terms.meters;
    sum.seconds += power * terms.seconds;
    for (; signs.size() > 1 && random.oneIn(3); signs.pop_back()) text += ')';
  }
  return text.append(signs.size() - 1, ')');
}

void checkExpression(Random& random) {
  Terms terms{};
  const std::string text = makeExpression(random, terms);
  std::set<std::string> expected, actual;
  for (const Coded& unit : stored)
    if (unit.terms == terms) expected.insert(unit.name);
  for (const UnitName& name : names().findCode("ucum", text))
    actual.insert(name.getUnit().getName());
  check(actual == expected, text + ": " + names().whyNot("ucum:" + text));
}

void checkText(const std::string& text) {
  check(names().find(text).empty() == names().findBest(text).empty(), text);
  check(names().find(text).empty() != names().whyNot(text).empty(), text);
  for (const UnitName& name : names().suggest(text, 3)) check(!name.getText().empty(), text);
  for (const UnitName& name : names().completions(text, 3))
    check(name.getKind() != NameKind::Code, text);
  try {
    const std::string written = UnitCodes::fromText(ExactText(text)).toText();
    checkEqual(UnitCodes::fromText(written).toText(), written, text);
  } catch (const std::logic_error& error) {
    check(std::string(error.what()).find("unit codes, ") == 0, error.what());
  }
}

}  // namespace

void fuzz(Random& random) {
  if (random.takes('#')) return checkExpression(random);
  checkText(random.rest());
}
