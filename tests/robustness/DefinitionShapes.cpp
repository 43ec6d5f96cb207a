#include "tests/robustness/Shapes.h"
#include "tests/support/Check.h"

#include <map>
#include <utility>

namespace {

using Units::UnitsEngine;

/// Definitions from the lowest up, each with its parents, which are among those before it.
struct Tree {
  std::vector<std::pair<std::string, Powers>> nodes;

  /// Names fall as the tree grows: a walk in byte order meets the highest first.
  void add(Powers parents) {
    nodes.emplace_back("n" + std::to_string(1999999999 - nodes.size()), std::move(parents));
  }
  const std::string& first() const { return nodes.front().first; }
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
  Powers all = {{tree.first(), 1}};
  for (int made = 2; made < size; ++made) {
    tree.add({{tree.first(), 1}});
    all.emplace(tree.last(), made % 2 == 0 ? 1 : -1);
  }
  tree.add(all);
  return tree;
}

/// Each over the next one, and the last over the first.
Tree circle(int size) {
  Tree tree = chain(size);
  tree.nodes.front().second = {{tree.last(), 1}};
  return tree;
}

std::string factorText(const std::string& typeId, const Powers& parents) {
  return schema(typeId, "factor.derived",
                {value("factor", "1.0000001"), powers("parentFactors", parents)});
}

std::string unitText(const std::string& typeId, const Powers& parents) {
  return parents.empty() ? primitive(typeId) : derived(typeId, parents);
}

void addFactor(UnitsEngine& engine, const std::string& typeId, const Powers& parents) {
  engine.addFactor(Units::Factor(typeId, Units::FactorComponent(1.0000001, parents)));
}

void addUnit(UnitsEngine& engine, const std::string& typeId, const Powers& parents) {
  engine.addUnit(parents.empty() ? Units::Unit(typeId, "n", Units::System::Metric,
                                               Units::PrimitiveUnitComponent())
                                 : derivedUnit(typeId, parents, {1.0000001, {{"twelve", 1}}}));
}

/// The highest first.
template <class TextOf>
std::vector<std::string> textsOf(const Tree& tree, TextOf textOf) {
  std::vector<std::string> texts;
  for (auto node = tree.nodes.rbegin(); node != tree.nodes.rend(); ++node)
    texts.push_back(textOf(node->first, node->second));
  return texts;
}

template <class Run>
Work working(const Run& run) {
  Work work;
  work.run = run;
  return work;
}

template <class Add>
Work addition(const Tree& tree, Add add, UnitsEngine& engine) {
  return working([tree, add, &engine] {
    for (const auto& [typeId, parents] : tree.nodes) add(engine, typeId, parents);
  });
}

/// A unit above the last factor.
void addOver(const Tree& tree, UnitsEngine& engine) {
  addition(tree, addFactor, engine).run();
  engine.addUnit(derivedUnit("over", {{"inch", 1}}, {1, {{tree.last(), 1}}}));
}

Work factorsPrepared(const Tree& tree, UnitsEngine& engine) {
  addOver(tree, engine);
  return working([&engine] { Units::PreparedConversion(engine, "over", "inch")(1); });
}

Work unitsPrepared(const Tree& tree, UnitsEngine& engine) {
  addition(tree, addUnit, engine).run();
  return working([&engine, from = tree.last(), to = tree.first()] {
    Units::PreparedConversion(engine, from, to)(1);
  });
}

Work factorQueries(const Tree& tree, UnitsEngine& engine) {
  addOver(tree, engine);
  return working([&engine, last = tree.last()] {
    engine.convert(1, "over", "inch");
    engine.getDependencies("over");
    engine.getDefinition(last);
    engine.getFactors();
  });
}

Work unitQueries(const Tree& tree, UnitsEngine& engine) {
  addition(tree, addUnit, engine).run();
  addSuffix(engine, "over", tree.last(), "over");
  std::vector<Units::Unit> units;
  for (const auto& [typeId, unit] : engine.getUnits()) units.push_back(unit);
  engine.addQuantity(Units::Quantity("all", "n", units));
  return working([&engine, last = tree.last(), first = tree.first()] {
    engine.canConvert(last, first);
    outcome([&] { return engine.convert(1, last, first); });
    outcome([&] { return engine.evaluateExpressionInUnit(last, "2 over + 3 over"); });
    engine.getConvertibleUnits(first);
    engine.getUnitsWithPrimitivePowers({{first, 1}});
    engine.getDependencies("all");
    engine.getDefinition("all");
    engine.getPrimitiveUnits();
    engine.getQuantitiesOfUnit(last);
    engine.getSymbolsOfUnit(last);
  });
}

/// The highest first, and as many texts that are refused.
Work bundle(int size, UnitsEngine& engine) {
  std::vector<std::string> texts;
  for (const std::string& text : textsOf(chain(size), factorText)) {
    texts.push_back(text);
    texts.emplace_back();
  }
  return bundleLoad(bundleOf(texts), engine);
}

template <class TextOf>
Work cycle(int size, TextOf textOf, UnitsEngine& engine) {
  Work work = batch(textsOf(circle(size), textOf), engine);
  work.run = [build = work.run] { check(isRefusal(outcome(build)), "a cycle is not refused"); };
  return work;
}

struct Form {
  const char* name;
  Tree (*make)(int size);
};
constexpr Form forms[] = {
    {"chain", chain}, {"diamond", diamond}, {"star", star}, {"ladder", ladder}};

struct Use {
  const char* name;
  Work (*prepare)(const Tree& tree, UnitsEngine& engine);
};
constexpr Use uses[] = {
    {"factors, added", [](const Tree& t, UnitsEngine& e) { return addition(t, addFactor, e); }},
    {"factors, built",
     [](const Tree& t, UnitsEngine& e) { return batch(textsOf(t, factorText), e); }},
    {"factors, asked", factorQueries},
    {"factors, prepared", factorsPrepared},
    {"units, added", [](const Tree& t, UnitsEngine& e) { return addition(t, addUnit, e); }},
    {"units, built", [](const Tree& t, UnitsEngine& e) { return batch(textsOf(t, unitText), e); }},
    {"units, asked", unitQueries},
    {"units, prepared", unitsPrepared}};

}  // namespace

std::vector<Shape> definitionShapes() {
  std::vector<Shape> shapes = {
      {"bundle of factors", Shape::Definitions, bundle},
      {"cycle of factors, built", Shape::Definitions,
       [](int size, UnitsEngine& engine) { return cycle(size, factorText, engine); }},
      {"cycle of units, built", Shape::Definitions,
       [](int size, UnitsEngine& engine) { return cycle(size, unitText, engine); }}};
  for (const Form& form : forms)
    for (const Use& use : uses)
      shapes.push_back({std::string(form.name) + " of " + use.name, Shape::Definitions,
                        [&form, &use](int size, UnitsEngine& engine) {
                          return use.prepare(form.make(size), engine);
                        }});
  return shapes;
}
