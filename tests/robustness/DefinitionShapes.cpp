#include "tests/robustness/Shapes.h"
#include "tests/support/Check.h"
#include "tests/support/CollidingIds.h"
#include "tests/support/Random.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <cmath>
#include <map>
#include <utility>

namespace {

using Units::UnitsEngine;

enum Dimension : std::size_t {
  name,
  id,
  colliding,
  parents,
  parentFactors,
  factorParents,
  constants,
  repeats,
  listings,
  symbols,
  prefixes,
  symbolText,
  unitChain,
  unitDiamond,
  unitLadder,
  factorChain,
  factorDiamond,
  factorLadder,
  sum,
  nestedSum,
  product,
  reversedProduct,
  nestedProduct,
  powerCount,
  dimensionCount
};

/// `step` is by how much the dimension grows with the size: what is but a byte grows faster.
constexpr struct {
  const char* name;
  int step;
} dimensions[dimensionCount] = {{"name", 10},
                                {"id", 3},
                                {"colliding ids", 1},
                                {"parents", 1},
                                {"parent factors", 1},
                                {"parents of a factor", 1},
                                {"constants", 1},
                                {"repeated listings", 1},
                                {"listings", 1},
                                {"symbols", 1},
                                {"prefix symbols", 1},
                                {"symbol text", 10},
                                {"chain of units", 1},
                                {"diamond of units", 1},
                                {"ladder of units", 1},
                                {"chain of factors", 1},
                                {"diamond of factors", 1},
                                {"ladder of factors", 1},
                                {"sum", 1},
                                {"nested sum", 1},
                                {"product", 4},
                                {"reversed product", 4},
                                {"nested product", 4},
                                {"powers", 1}};

using Sizes = std::array<int, dimensionCount>;

/// Both dimensions blown up, all others small by chance.
Sizes blownUp(Dimension a, Dimension b, int size) {
  Random random(a * dimensionCount + b);
  Sizes sizes;
  for (int& small : sizes) small = random.between(1, 3);
  for (const Dimension dimension : {a, b}) sizes[dimension] = dimensions[dimension].step * size;
  // Their texts together are as long as the square.
  sizes[prefixes] = static_cast<int>(std::sqrt(2.0 * sizes[prefixes]));
  return sizes;
}

/// All of one length, so that they sort by their numbers.
std::string numbered(const std::string& word, int number) {
  return word + std::to_string(5000000 + number);
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

  /// Every third has two parents, which share theirs: twice as many paths at each.
  void addDiamond(int size) {
    for (int made = 0; made + 3 <= size; made += 3) {
      const std::string below = last, left = add({{below, 1}}), right = add({{below, 1}});
      add({{left, 2}, {right, -1}});
    }
  }

  /// Two at each level, both over both of the level below.
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
  explicit Subject(const Sizes& sizes) : sizes_(sizes), unit("unit" + std::string(at(id), 'i')) {
    addFactors();
    addPrimitives();
    addUnits();
    addSymbols();
    std::string listed;
    for (int number = 0; number < sizes_[listings]; ++number)
      listed += "{'typeid':'" + primitiveId(number) + "'},";
    listed += repeated("{'typeid':'" + unit + "'},", sizes_[repeats]);
    add(schema("all", "quantity",
               {value("name", "'n'"),
                "{'id':'units','typedValue':[" + listed + "{'typeid':'" + unit + "'}]}"}));
  }

  /// The highest first.
  Work built(UnitsEngine& engine) const { return batch({texts_.rbegin(), texts_.rend()}, engine); }

  /// Adds the records of an engine to another one.
  void addRecords(const UnitsEngine& from, UnitsEngine& to) const {
    const auto factors = from.getFactors();
    const auto units = from.getUnits();
    const auto symbols = from.getSymbols();
    for (const std::string& text : texts_) {
      const std::size_t begin = text.find(":\"") + 2;
      const std::string typeId = text.substr(begin, text.find('"', begin) - begin);
      if (factors.count(typeId) != 0) to.addFactor(factors.at(typeId));
      if (units.count(typeId) != 0) to.addUnit(units.at(typeId));
      if (symbols.count(typeId) != 0) to.addSymbol(symbols.at(typeId));
    }
    to.addQuantity(from.getQuantity("all"));
  }

  std::vector<std::pair<std::string, std::string>> formulas() const {
    std::string run = std::string(at(prefixes) + 1, 'a');
    std::string products[3];
    for (int number = 0; number < sizes_[product]; ++number)
      products[0] += numbered("1 p", number) + "*";
    for (int number = sizes_[reversedProduct]; number-- > 0;)
      products[1] += numbered("1 p", number) + "*";
    for (int number = 0; number < sizes_[nestedProduct]; ++number)
      products[2] += numbered("(1 p", number) + "*";
    std::string terms;
    for (int number = 0; number < sizes_[sum]; ++number)
      terms += numbered("1 u", number % sizes_[symbols]) + "+";
    const std::string one = numbered("1 u", 0), z(at(symbolText), 'z');
    return {{unit, terms + one},
            {unit,
             repeated("(" + one + "+", sizes_[nestedSum]) + one + repeated(")", sizes_[nestedSum])},
            {"wide", products[0] + "1"},
            {"wide", products[1] + "1"},
            {"wide", products[2] + "1" + repeated(")", sizes_[nestedProduct])},
            {unit, repeated("1 " + run + "+", sizes_[prefixes]) + one},
            {unit, "1 z" + z + "+1 " + z + "y"}};
  }

  std::string primitiveId(int number) const {
    return number < static_cast<int>(colliding_.size())
               ? colliding_[static_cast<std::size_t>(number)]
               : numbered("p", number);
  }

  /// The primitive powers of all units over "wide", each of which counts for every unit.
  std::size_t powersOfUnits() const { return unitsOverWide_ * at(powerCount); }

  const Sizes sizes_;
  const std::string unit;
  std::string top;

 private:
  std::size_t at(Dimension dimension) const { return static_cast<std::size_t>(sizes_[dimension]); }
  void add(std::string text) { texts_.push_back(std::move(text)); }

  void addFactors() {
    Powers all;
    for (int number = 0; number < std::max(sizes_[factorParents], sizes_[parentFactors]);
         ++number) {
      add(schema(numbered("g", number), "factor", {value("factor", "1.0000001")}));
      if (number < sizes_[factorParents]) all[numbered("g", number)] = number % 2 == 0 ? 1 : -1;
    }
    add(factor("many", all));
    Tree tree{"f", "many"};
    tree.addChain(sizes_[factorChain]);
    tree.addDiamond(sizes_[factorDiamond]);
    tree.addLadder(sizes_[factorLadder]);
    for (const auto& [typeId, parents] : tree.nodes) add(factor(typeId, parents));
    topFactor_ = tree.last;
  }

  void addPrimitives() {
    const int products =
        std::max({sizes_[product], sizes_[reversedProduct], sizes_[nestedProduct]});
    const int count = std::max({products, sizes_[powerCount], sizes_[listings], sizes_[colliding]});
    for (int number = 0; number < count; ++number) {
      add(primitive(primitiveId(number)));
      if (number < products)
        add(symbol(numbered("s", number), primitiveId(number), numbered("p", number)));
    }
  }

  void addUnits() {
    Powers primitives, factors, middles;
    for (int number = 0; number < sizes_[powerCount]; ++number) primitives[primitiveId(number)] = 1;
    for (int number = 0; number < sizes_[parentFactors]; ++number)
      factors[numbered("g", number)] = 1;
    add(derived("wide", primitives, {powers("parentFactors", factors)}));
    Tree stem{"stem", "wide"};  // which all parents share
    stem.addChain(sizes_[unitChain]);
    for (const auto& [typeId, over] : stem.nodes) add(derived(typeId, over));
    for (int number = 0; number < sizes_[parents]; ++number) {
      middles[numbered("middle", number)] = number % 2 == 0 ? 2 : -1;  // never cancel out
      add(derived(numbered("middle", number), Powers{{stem.last, 1}}));
    }
    std::string more;
    for (int number = 0; number < sizes_[constants]; ++number)
      more += "," + value(numbered("c", number), "1");
    add(schema(
        unit, "unit.derived",
        {value("name", "'" + std::string(at(name), 'n') + "'"), value("unitSystem", "'Metric'"),
         powers("parentUnits", middles), powers("parentFactors", {{topFactor_, 1}}) + more}));
    Tree tree{"tree", unit};
    tree.addChain(sizes_[unitChain]);
    tree.addDiamond(sizes_[unitDiamond]);
    tree.addLadder(sizes_[unitLadder]);
    for (const auto& [typeId, over] : tree.nodes) add(derived(typeId, over));
    top = tree.last;
    unitsOverWide_ = 2 + at(parents) + stem.nodes.size() + tree.nodes.size();
  }

  void addSymbols() {
    for (int number = 0; number < sizes_[symbols]; ++number)
      add(symbol(numbered("u", number), unit, numbered("u", number)));
    for (int number = 1; number <= sizes_[prefixes]; ++number)
      add(symbol(numbered("a", number), unit, repeated("a", number)));
    add(symbol("z", unit, "z" + std::string(at(symbolText), 'z')));
  }

  const std::vector<std::string> colliding_ = collidingIds(at(colliding));
  std::vector<std::string> texts_;
  std::string topFactor_;
  std::size_t unitsOverWide_ = 0;
};

std::string resolve(const std::string&) { return numbered("1 u", 0); }

struct Use {
  const char* name;
  void (*run)(const Subject& subject, UnitsEngine& engine);
};

constexpr Use uses[] = {{"add",
                         [](const Subject& s, UnitsEngine& e) {
                           const Engine fresh = makeEngine();
                           s.addRecords(e, *fresh);
                         }},
                        {"convert",
                         [](const Subject& s, UnitsEngine& e) {
                           e.canConvert(s.top, s.unit);
                           outcome([&] { return e.convert(1, s.top, s.unit); });
                         }},
                        {"prepare",
                         [](const Subject& s, UnitsEngine& e) {
                           outcome([&] { return Units::PreparedConversion(e, s.top, s.unit)(1); });
                         }},
                        {"query",
                         [](const Subject& s, UnitsEngine& e) {
                           e.getConvertibleUnits(s.unit);
                           e.getUnitsWithPrimitivePowers({{s.primitiveId(0), 1}});
                           e.getPrimitiveUnits();
                           e.getQuantities();
                           e.getQuantitiesOfUnit(s.unit);
                           e.getSymbolsOfUnit(s.unit);
                         }},
                        {"depend", [](const Subject& s, UnitsEngine& e) {
                           for (const std::string& typeId : {s.unit, std::string("all"), s.top}) {
                             e.getDependencies(typeId);
                             e.getDefinition(typeId);
                           }
                         }}};

std::vector<NamedWork> worksOf(Dimension a, Dimension b, int size, UnitsEngine& engine) {
  const auto subject = std::make_shared<Subject>(blownUp(a, b, size));
  std::vector<NamedWork> works = {{"build", Shape::Definitions, subject->built(engine)}};
  constexpr std::size_t bytesOfAPower = 16;  // in a schema text
  const std::size_t bytes = works.front().work.bytes + bytesOfAPower * subject->powersOfUnits();
  for (const Use& use : uses) {
    Work work;
    work.bytes = bytes;
    work.run = [subject, &use, &engine] { use.run(*subject, engine); };
    works.push_back({use.name, Shape::Definitions, work});
  }
  const auto formulas = subject->formulas();
  for (std::size_t number = 0; number < formulas.size(); ++number) {
    const auto& [unit, formula] = formulas[number];
    Work work = evaluation(unit, formula, engine, resolve);
    work.bytes += bytes;
    works.push_back({"formula " + std::to_string(number), Shape::UnitFormula, work});
  }
  return works;
}

std::string nameOf(Dimension a, Dimension b) {
  return a == b ? dimensions[a].name : std::string(dimensions[a].name) + " x " + dimensions[b].name;
}

Shape shapeOf(Dimension a, Dimension b, const std::string& use) {
  const bool isFormula = use.find("formula") == 0;
  return {nameOf(a, b) + ", " + use, isFormula ? Shape::UnitFormula : Shape::Definitions,
          [a, b, use](int size, UnitsEngine& engine) {
            for (const NamedWork& made : worksOf(a, b, size, engine)) {
              if (made.name == use) return made.work;
              if (made.name == "build") made.work.run();
            }
            return Work();
          }};
}

/// Those that have cost too much before.
constexpr struct {
  Dimension a, b;
  const char* use;
} known[] = {{name, repeats, "build"},
             {parents, repeats, "build"},
             {name, symbols, "build"},
             {colliding, colliding, "build"},
             {colliding, listings, "depend"},
             {colliding, powerCount, "convert"},
             {parents, parentFactors, "convert"},
             {parents, parentFactors, "prepare"},
             {parents, parentFactors, "formula 0"},
             {parents, factorParents, "convert"},
             {sum, powerCount, "formula 0"},
             {nestedSum, powerCount, "formula 1"},
             {product, product, "formula 2"},
             {reversedProduct, reversedProduct, "formula 3"},
             {nestedProduct, nestedProduct, "formula 4"},
             {prefixes, prefixes, "formula 5"},
             {symbols, symbolText, "formula 6"}};

/// The highest first, and as many texts that are refused.
Work bundle(int size, UnitsEngine& engine) {
  std::vector<std::string> texts;
  for (int number = size; number-- > 0; texts.emplace_back())
    texts.push_back(factor(numbered("f", -number),
                           number == 0 ? Powers() : Powers{{numbered("f", 1 - number), 1}}));
  return bundleLoad(bundleOf(texts), engine);
}

/// Each over the next one, and the last over the first.
template <class TextOf>
Work cycle(int size, TextOf textOf, UnitsEngine& engine) {
  std::vector<std::string> texts;
  for (int number = 0; number < size; ++number)
    texts.push_back(textOf(numbered("n", number), Powers{{numbered("n", (number + 1) % size), 1}}));
  Work work = batch(texts, engine);
  work.run = [build = work.run] { check(isRefusal(outcome(build)), "a cycle is not refused"); };
  return work;
}

/// Units whose type ids collide, named alike: their symbols differ in case alone.
Work names(int size, UnitsEngine& engine) {
  Work work;
  std::vector<std::string> texts = collidingIds(static_cast<std::size_t>(size));
  for (std::size_t number = texts.size(); number-- > 0;) {
    const std::string text = std::bitset<24>(number).to_string('a', 'A');
    const Units::Unit unit(texts[number], "same", {}, Units::PrimitiveUnitComponent());
    engine.addUnit(unit);
    engine.addSymbol({text, unit, Units::PrefixOrSuffix(text, {}, false)});
    texts.push_back(text);
    work.bytes += 60;  // of the type id, the name and the symbol
  }
  work.run = [texts, &engine] {
    const Units::UnitNames made(engine);
    for (const std::string& text : texts) made.find(text);
    made.find("Same"), made.suggest("smae", 3), made.completions("s", 3);
  };
  return work;
}

}  // namespace

std::vector<Proportion> proportions() {
  std::vector<Proportion> all;
  for (std::size_t i = 0; i < dimensionCount; ++i)
    for (std::size_t j = i; j < dimensionCount; ++j) {
      const auto a = static_cast<Dimension>(i), b = static_cast<Dimension>(j);
      all.push_back(
          {nameOf(a, b), [=](int size, UnitsEngine& e) { return worksOf(a, b, size, e); }});
    }
  return all;
}

std::vector<Shape> proportionShapes() {
  std::vector<Shape> shapes;
  const Engine engine = makeEngine();
  const std::vector<NamedWork> works = worksOf(name, name, 1, *engine);
  for (std::size_t i = 0; i < dimensionCount; ++i)
    for (std::size_t j = i; j < dimensionCount; ++j)
      for (const NamedWork& made : works)
        shapes.push_back(shapeOf(static_cast<Dimension>(i), static_cast<Dimension>(j), made.name));
  return shapes;
}

std::vector<Shape> definitionShapes() {
  std::vector<Shape> shapes = {
      {"bundle of factors", Shape::Definitions, bundle},
      {"names", Shape::Definitions, names},
      {"cycle of factors, build", Shape::Definitions,
       [](int size, UnitsEngine& engine) {
         return cycle(
             size, [](auto id, auto on) { return factor(id, on); }, engine);
       }},
      {"cycle of units, build", Shape::Definitions, [](int size, UnitsEngine& engine) {
         return cycle(
             size, [](auto id, auto on) { return derived(id, on); }, engine);
       }}};
  for (const auto& row : known) shapes.push_back(shapeOf(row.a, row.b, row.use));
  for (const Dimension form : {parents, unitChain, unitDiamond, unitLadder, factorParents,
                               factorChain, factorDiamond, factorLadder})
    for (const char* use : {"build", "add", "convert", "prepare", "query", "depend", "formula 0"})
      shapes.push_back(shapeOf(form, form, use));
  return shapes;
}
