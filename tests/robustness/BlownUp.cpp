#include "tests/robustness/Shapes.h"
#include "tests/support/CollidingIds.h"
#include "tests/support/Random.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>

namespace {

using Units::UnitsEngine;

/// What can be blown up.
const char* const dimensions[] = {"name",
                                  "id",
                                  "colliding ids",
                                  "parents",
                                  "parent factors",
                                  "parents of a factor",
                                  "constants",
                                  "repeated listings",
                                  "listings",
                                  "symbols",
                                  "prefix symbols",
                                  "symbol text",
                                  "chain of units",

                                  "ladder of units",
                                  "chain of factors",

                                  "ladder of factors",
                                  "sum",
                                  "nested sum",
                                  "product",
                                  "reversed product",
                                  "nested product",
                                  "calls in a product",
                                  "powers"};

/// By how much it grows with the size: what is but a byte or a few grows faster.
int stepOf(const std::string& dimension) {
  static const std::map<std::string, int> steps = {{"name", 10}, {"symbol text", 10}, {"id", 3}};
  if (dimension.find("product") != std::string::npos) return 4;
  return steps.count(dimension) != 0 ? steps.at(dimension) : 1;
}

using Sizes = std::map<std::string, int>;

/// Both dimensions blown up, all others small by chance.
Sizes blownUp(std::size_t a, std::size_t b, int size) {
  Random random(a * std::size(dimensions) + b);
  Sizes sizes;
  for (const char* name : dimensions) sizes[name] = random.between(1, 3);
  for (const char* name : {dimensions[a], dimensions[b]}) sizes[name] = stepOf(name) * size;
  // Their texts together are as long as the square.
  int& prefixes = sizes["prefix symbols"];
  prefixes = static_cast<int>(std::sqrt(2.0 * prefixes));
  return sizes;
}

/// All of one length, so that they sort by their numbers.
std::string numbered(const std::string& word, int number) {
  return word + std::to_string(5000000 + number);
}

/// `count` words, each with the next number and `after` behind it.
std::string series(const std::string& word, int first, int count, const std::string& after) {
  std::string all;
  for (int made = 0; made < count; ++made) all += numbered(word, std::abs(first + made)) + after;
  return all;
}

/// Definitions over `below`, of which each depends on those before it. Their names fall: a walk in
/// byte order meets the highest first.
struct Tree {
  std::string word, last;
  std::vector<std::pair<std::string, Powers>> nodes = {};

  const std::string& add(const Powers& parents) {
    last = numbered(word, -static_cast<int>(nodes.size()));
    nodes.emplace_back(last, parents);
    return last;
  }

  void addChain(int size) {
    for (int made = 0; made < size; ++made) add({{last, 1}});
  }

  /// Two at each level, both over both of the level below: twice as many paths at each.
  void addLadder(int size) {
    const std::string below = last;
    std::string left = add({{below, 1}}), right = add({{below, 1}});
    for (int made = 2; made + 2 <= size; made += 2) {
      const std::string higher = add({{left, 2}, {right, -1}});
      right = add({{left, -1}, {right, 2}});
      left = higher;
    }
    add({{left, 2}, {right, -1}});
  }
};

/// The schema texts of units over one another, and formulas of them:
///
///   tree of units > unit > middle units > chain of units > "wide" > primitive units
///                        > tree of factors > factors
class Subject {
 public:
  explicit Subject(Sizes sizes) : sizes_(std::move(sizes)) {
    unit = "unit" + filled("id", 'i');
    addFactors();
    addPrimitives();
    addUnits();
    addSymbols();
    std::string listed;
    for (int number = 0; number < at("listings"); ++number)
      listed += "{'typeid':'" + primitiveId(number) + "'},";
    listed += repeated("{'typeid':'" + unit + "'},", at("repeated listings"));
    add("all", schema("all", "quantity",
                      {value("name", "'n'"),
                       "{'id':'units','typedValue':[" + listed + "{'typeid':'" + unit + "'}]}"}));
  }

  Work built(UnitsEngine& engine) const {
    std::vector<std::string> texts;
    for (const auto& definition : definitions_) texts.push_back(definition.second);
    std::reverse(texts.begin(), texts.end());  // what depends on others comes first
    return batch(texts, engine);
  }

  /// Adds the records of an engine to another one.
  void addRecords(const UnitsEngine& from, UnitsEngine& to) const {
    const auto factors = from.getFactors();
    const auto units = from.getUnits();
    const auto symbols = from.getSymbols();
    for (const auto& [typeId, text] : definitions_) {
      if (factors.count(typeId) != 0) to.addFactor(factors.at(typeId));
      if (units.count(typeId) != 0) to.addUnit(units.at(typeId));
      if (symbols.count(typeId) != 0) to.addSymbol(symbols.at(typeId));
    }
    to.addQuantity(from.getQuantity("all"));
  }

  /// Each with the unit that it comes to.
  std::vector<std::pair<std::string, std::string>> formulas() const {
    const int reversed = at("reversed product"), nested = at("nested product");
    const int calls = at("calls in a product"), sum = at("nested sum");
    const std::string one = numbered("1 u", 0), z = filled("symbol text", 'z');
    std::string terms;
    for (int number = 0; number < at("sum"); ++number)
      terms += numbered("1 u", number % at("symbols")) + "+";
    const std::string longest = "1 a" + filled("prefix symbols", 'a') + "+";
    return {{unit, terms + one},
            {unit, repeated("(" + one + "+", sum) + one + repeated(")", sum)},
            {"wide", series("1 p", 0, at("product"), "*") + "1"},
            {"wide", series("1 p", 1 - reversed, reversed, "*") + "1"},
            {"wide", series("(1 p", 0, nested, "*") + "1" + repeated(")", nested)},
            {unit, repeated(longest, at("prefix symbols")) + one},
            {unit, "1 z" + z + "+1 " + z + "y"},
            {"wide", series("abs(1 p", 0, calls, "*") + "1" + repeated(")", calls)}};
  }

  std::string primitiveId(int number) const {
    return number < at("colliding ids") ? colliding_[static_cast<std::size_t>(number)]
                                        : numbered("p", number);
  }

  /// The primitive powers of all units over "wide", each of which counts for every unit.
  std::size_t powersOfUnits() const {
    return unitsOverWide_ * static_cast<std::size_t>(at("powers"));
  }

  std::string unit, top;

 private:
  int at(const std::string& dimension) const { return sizes_.at(dimension); }
  std::string filled(const std::string& dimension, char c) const {
    return std::string(static_cast<std::size_t>(at(dimension)), c);
  }
  void add(const std::string& typeId, const std::string& text) {
    definitions_.emplace_back(typeId, text);
  }

  Tree treeOver(const std::string& word, const std::string& below, const std::string& kind) const {
    Tree tree{word, below};
    tree.addChain(at("chain of " + kind));
    tree.addLadder(at("ladder of " + kind));
    return tree;
  }

  void addFactors() {
    Powers all;
    for (int number = 0; number < std::max(at("parents of a factor"), at("parent factors"));
         ++number) {
      const std::string typeId = numbered("g", number);
      add(typeId, schema(typeId, "factor", {value("factor", "1.0000001")}));
      if (number < at("parents of a factor")) all[typeId] = number % 2 == 0 ? 1 : -1;
    }
    add("many", factor("many", all));
    const Tree tree = treeOver("f", "many", "factors");
    for (const auto& [typeId, parents] : tree.nodes) add(typeId, factor(typeId, parents));
    topFactor_ = tree.last;
  }

  void addPrimitives() {
    const int products = std::max(
        {at("product"), at("reversed product"), at("nested product"), at("calls in a product")});
    const int count = std::max({products, at("powers"), at("listings"), at("colliding ids")});
    for (int number = 0; number < count; ++number) {
      const std::string typeId = primitiveId(number);
      add(typeId, primitive(typeId));
      if (number < products) addSymbol(numbered("s", number), typeId, numbered("p", number));
    }
  }

  void addUnits() {
    Powers primitives, factors, middles;
    for (int number = 0; number < at("powers"); ++number) primitives[primitiveId(number)] = 1;
    for (int number = 0; number < at("parent factors"); ++number)
      factors[numbered("g", number)] = 1;
    add("wide", derived("wide", primitives, {powers("parentFactors", factors)}));
    Tree stem{"stem", "wide"};  // which all parents share
    stem.addChain(at("chain of units"));
    for (const auto& [typeId, over] : stem.nodes) add(typeId, derived(typeId, over));
    for (int number = 0; number < at("parents"); ++number) {
      const std::string typeId = numbered("middle", number);
      middles[typeId] = number % 2 == 0 ? 2 : -1;  // never cancel out
      add(typeId, derived(typeId, Powers{{stem.last, 1}}));
    }
    std::string more;
    for (int number = 0; number < at("constants"); ++number)
      more += "," + value(numbered("c", number), "1");
    add(unit, schema(unit, "unit.derived",
                     {value("name", "'" + filled("name", 'n') + "'"),
                      value("unitSystem", "'Metric'"), powers("parentUnits", middles),
                      powers("parentFactors", {{topFactor_, 1}}) + more}));
    const Tree tree = treeOver("tree", unit, "units");
    for (const auto& [typeId, over] : tree.nodes) add(typeId, derived(typeId, over));
    top = tree.last;
    unitsOverWide_ = 2 + middles.size() + stem.nodes.size() + tree.nodes.size();
  }

  void addSymbol(const std::string& typeId, const std::string& of, const std::string& text) {
    add(typeId, symbol(typeId, of, text));
  }

  void addSymbols() {
    for (int number = 0; number < at("symbols"); ++number)
      addSymbol(numbered("u", number), unit, numbered("u", number));
    for (int number = 1; number <= at("prefix symbols"); ++number)
      addSymbol(numbered("a", number), unit, repeated("a", number));
    addSymbol("z", unit, "z" + filled("symbol text", 'z'));
  }

  const Sizes sizes_;
  const std::vector<std::string> colliding_ =
      collidingIds(static_cast<std::size_t>(at("colliding ids")));
  std::vector<std::pair<std::string, std::string>> definitions_;  // by type id; parents first
  std::string topFactor_;
  std::size_t unitsOverWide_ = 0;
};

std::string resolve(const std::string&) { return numbered("1 u", 0); }

std::vector<std::pair<std::string, Work>> worksOf(const Sizes& sizes, UnitsEngine& engine) {
  const auto subject = std::make_shared<Subject>(sizes);
  std::vector<std::pair<std::string, Work>> works = {{"build", subject->built(engine)}};
  constexpr std::size_t bytesOfAPower = 16;  // in a schema text
  const std::size_t bytes = works.front().second.bytes + bytesOfAPower * subject->powersOfUnits();
  const auto add = [&, &e = engine](const char* name, auto use) {
    works.emplace_back(name, Work{[=, &e] { use(*subject, e); }, bytes});
  };
  add("add", [](const Subject& s, UnitsEngine& e) { s.addRecords(e, *makeEngine()); });
  add("convert", [](const Subject& s, UnitsEngine& e) {
    e.canConvert(s.top, s.unit);
    outcome([&] { return e.convert(1, s.top, s.unit); });
  });
  add("prepare", [](const Subject& s, UnitsEngine& e) {
    outcome([&] { return Units::PreparedConversion(e, s.top, s.unit)(1); });
  });
  add("query", [](const Subject& s, UnitsEngine& e) {
    e.getConvertibleUnits(s.unit);
    e.getUnitsWithPrimitivePowers({{s.primitiveId(0), 1}});
    e.getPrimitiveUnits();
    e.getQuantities();
    e.getQuantitiesOfUnit(s.unit);
    e.getSymbolsOfUnit(s.unit);
  });
  add("depend", [](const Subject& s, UnitsEngine& e) {
    for (const std::string& typeId : {s.unit, std::string("all"), s.top}) {
      e.getDependencies(typeId);
      e.getDefinition(typeId);
    }
  });
  int number = 0;
  for (const auto& [unit, formula] : subject->formulas()) {
    Work work = evaluation(unit, formula, engine, resolve);
    work.bytes += bytes;
    works.emplace_back("formula " + std::to_string(number++), work);
  }
  return works;
}

}  // namespace

std::vector<Proportion> proportions() {
  std::vector<Proportion> all;
  for (std::size_t a = 0; a < std::size(dimensions); ++a)
    for (std::size_t b = a; b < std::size(dimensions); ++b) {
      const std::string first = dimensions[a];
      all.push_back({a == b ? first : first + " x " + dimensions[b], false,
                     [=](int size, UnitsEngine& e) { return worksOf(blownUp(a, b, size), e); }});
    }
  return all;
}

const std::vector<Shape>& proportionShapes() {
  static const std::vector<Shape> all = [] {
    std::vector<Shape> shapes;
    const Engine engine = makeEngine();
    const auto works = worksOf(blownUp(0, 0, 1), *engine);
    for (const Proportion& proportion : proportions())
      for (std::size_t at = 0; at < works.size(); ++at)
        shapes.push_back(
            {proportion.name + ", " + works[at].first, false, [=](int size, UnitsEngine& e) {
               const auto made = proportion.prepare(size, e);
               if (at > 0) made.front().second.run();
               return made[at].second;
             }});
    return shapes;
  }();
  return all;
}
