#include <cstddef>
#include <map>
#include <utility>

#include "tests/robustness/Findings.h"
#include "tests/robustness/Shapes.h"

namespace {

using Parents = std::map<std::string, int>;

/// Definitions from the lowest up, each with its parents, among those before it.
struct Tree {
  std::vector<std::pair<std::string, Parents>> nodes;

  /// Names fall as the tree grows: a walk in byte order meets the highest first.
  static std::string name(int number) {
    const std::string digits = std::to_string(1000000000 - number);
    return "n" + std::string(10 - digits.size(), '0') + digits;
  }
  void add(Parents parents) {
    nodes.emplace_back(name(static_cast<int>(nodes.size())), std::move(parents));
  }
  const std::string& last() const { return nodes.back().first; }
};

Tree chain(int size) {
  Tree tree;
  tree.add({});
  for (int made = 1; made < size; ++made) tree.add({{tree.last(), 1}});
  return tree;
}

/// Every third node has two parents, which share theirs: twice as many paths at each.
Tree diamond(int size) {
  Tree tree;
  tree.add({});
  for (int made = 1; made + 3 <= size; made += 3) {
    const std::string below = tree.last();
    tree.add({{below, 1}});
    const std::string left = tree.last();
    tree.add({{below, 1}});
    tree.add({{left, 2}, {tree.last(), -1}});
  }
  return tree;
}

/// Two at each level, both over both of the level below.
Tree ladder(int size) {
  Tree tree;
  tree.add({});
  tree.add({{tree.last(), 1}});
  for (int made = 2; made + 2 <= size; made += 2) {
    const std::string left = tree.nodes[tree.nodes.size() - 2].first;
    const std::string right = tree.last();
    tree.add({{left, 2}, {right, -1}});
    tree.add({{left, -1}, {right, 2}});
  }
  return tree;
}

/// All over the first, and the last over all.
Tree star(int size) {
  Tree tree;
  tree.add({});
  Parents all;
  for (int made = 2; made < size; ++made) {
    tree.add({{tree.nodes.front().first, 1}});
    all.emplace(tree.last(), made % 2 == 0 ? 1 : -1);
  }
  all.emplace(tree.nodes.front().first, 1);
  tree.add(all);
  return tree;
}

std::string powersText(const Parents& parents) {
  std::string text;
  for (const auto& [parent, exponent] : parents)
    text += (text.empty() ? "'" : ",'") + parent + "':" + std::to_string(exponent);
  return "'value':{" + text + "}}";
}

std::string factorText(const std::string& typeId, const Parents& parents) {
  return schema(typeId, "factor.derived",
                "{'id':'factor','value':1.0000001},{'id':'parentFactors'," + powersText(parents));
}

std::string unitText(const std::string& typeId, const Parents& parents) {
  return parents.empty() ? schema(typeId, "unit.primitive", named)
                         : schema(typeId, "unit.derived",
                                  named + ",{'id':'parentUnits'," + powersText(parents));
}

void addFactor(Units::UnitsEngine& engine, const std::string& typeId, const Parents& parents) {
  engine.addFactor(Units::Factor(typeId, Units::FactorComponent(1.0000001, parents)));
}

void addUnit(Units::UnitsEngine& engine, const std::string& typeId, const Parents& parents) {
  if (parents.empty())
    engine.addUnit(
        Units::Unit(typeId, "n", Units::System::Metric, Units::PrimitiveUnitComponent()));
  else
    engine.addUnit(Units::Unit(
        typeId, "n", Units::System::Metric,
        Units::DerivedUnitComponent(parents, Units::FactorComponent(1.0000001, {{"twelve", 1}}))));
}

struct Form {
  const char* name;
  Tree (*make)(int size);
};
constexpr Form forms[] = {
    {"chain", chain}, {"diamond", diamond}, {"star", star}, {"ladder", ladder}};

/// The schema texts, the highest first, and the build.
template <class TextOf>
Work batch(const Tree& tree, TextOf textOf, Units::UnitsEngine& engine) {
  std::vector<std::string> texts;
  Work work;
  for (auto node = tree.nodes.rbegin(); node != tree.nodes.rend(); ++node) {
    texts.push_back(textOf(node->first, node->second));
    work.bytes += texts.back().size();
  }
  work.run = [texts, &engine] {
    for (const std::string& text : texts) engine.addDefinition(text);
    engine.buildSchemas();
  };
  return work;
}

template <class Add>
Work addition(const Tree& tree, Add add, Units::UnitsEngine& engine) {
  Work work;
  work.run = [tree, add, &engine] {
    for (const auto& [typeId, parents] : tree.nodes) add(engine, typeId, parents);
  };
  return work;
}

/// A unit above the last factor.
void addOver(const Tree& tree, Units::UnitsEngine& engine) {
  addition(tree, addFactor, engine).run();
  engine.addUnit(Units::Unit(
      "over", "n", Units::System::Metric,
      Units::DerivedUnitComponent({{"inch", 1}}, Units::FactorComponent(1, {{tree.last(), 1}}))));
}

Work preparation(const std::string& from, const std::string& to, Units::UnitsEngine& engine) {
  Work work;
  work.run = [=, &engine] { Units::PreparedConversion(engine, from, to)(1); };
  return work;
}

Work factorsPrepared(const Tree& tree, Units::UnitsEngine& engine) {
  addOver(tree, engine);
  return preparation("over", "inch", engine);
}

Work unitsPrepared(const Tree& tree, Units::UnitsEngine& engine) {
  addition(tree, addUnit, engine).run();
  return preparation(tree.last(), tree.nodes.front().first, engine);
}

Work factorQueries(const Tree& tree, Units::UnitsEngine& engine) {
  addOver(tree, engine);
  const std::string last = tree.last();
  Work work;
  work.run = [&engine, last] {
    engine.convert(1, "over", "inch");
    engine.getDependencies("over");
    engine.getDefinition(last);
    engine.getFactors();
  };
  return work;
}

Work unitQueries(const Tree& tree, Units::UnitsEngine& engine) {
  addition(tree, addUnit, engine).run();
  const std::string last = tree.last();
  const std::string first = tree.nodes.front().first;
  engine.addSymbol(Units::Symbol("over", engine.getUnit(last),
                                 Units::PrefixOrSuffix("over", Units::Placement::Suffix, true)));
  std::vector<Units::Unit> units;
  for (const auto& [typeId, unit] : engine.getUnits()) units.push_back(unit);
  engine.addQuantity(Units::Quantity("all", "n", units));
  Work work;
  work.run = [=, &engine] {
    engine.canConvert(last, first);
    outcome([&] { return bits(engine.convert(1, last, first)); });
    outcome([&] { return bits(engine.evaluateExpressionInUnit(last, "2 over + 3 over")); });
    engine.getConvertibleUnits(first);
    engine.getUnitsWithPrimitivePowers({{first, 1}});
    engine.getDependencies("all");
    engine.getDefinition("all");
    engine.getPrimitiveUnits();
    engine.getQuantitiesOfUnit(last);
    engine.getSymbolsOfUnit(last);
  };
  return work;
}

/// The highest first, and as many texts that are refused.
Work bundle(int size, Units::UnitsEngine& engine) {
  std::vector<std::string> texts;
  const Tree tree = chain(size);
  for (auto node = tree.nodes.rbegin(); node != tree.nodes.rend(); ++node) {
    texts.push_back(factorText(node->first, node->second));
    texts.emplace_back();
  }
  return bundleLoad(bundleOf(texts), engine);
}

/// Each over the next one, and the last over the first: the build refuses it.
template <class TextOf>
Work circle(int size, TextOf textOf, Units::UnitsEngine& engine) {
  Tree tree = chain(size);
  tree.nodes.front().second = {{tree.last(), 1}};
  Work work = batch(tree, textOf, engine);
  work.run = [build = work.run] {
    check(outcome([&] { return build(), std::string(); }).find("ValidationException: ") == 0,
          "a circle is not refused");
  };
  return work;
}

void addForm(const Form& form, std::vector<Shape>& shapes) {
  const auto add = [&](const char* what, auto prepare) {
    shapes.push_back({std::string(form.name) + " of " + what, Shape::Definitions,
                      [&form, prepare](int size, Units::UnitsEngine& engine) {
                        return prepare(form.make(size), engine);
                      }});
  };
  add("factors, added", [](const Tree& t, auto& e) { return addition(t, addFactor, e); });
  add("factors, built", [](const Tree& t, auto& e) { return batch(t, factorText, e); });
  add("factors, asked", factorQueries);
  add("factors, prepared", factorsPrepared);
  add("units, added", [](const Tree& t, auto& e) { return addition(t, addUnit, e); });
  add("units, built", [](const Tree& t, auto& e) { return batch(t, unitText, e); });
  add("units, asked", unitQueries);
  add("units, prepared", unitsPrepared);
}

}  // namespace

std::vector<Shape> definitionShapes() {
  std::vector<Shape> shapes;
  for (const Form& form : forms) addForm(form, shapes);
  shapes.push_back({"bundle of factors", Shape::Definitions, bundle});
  shapes.push_back({"circle of factors, built", Shape::Definitions,
                    [](int size, auto& engine) { return circle(size, factorText, engine); }});
  shapes.push_back({"circle of units, built", Shape::Definitions,
                    [](int size, auto& engine) { return circle(size, unitText, engine); }});
  return shapes;
}
