#include "tests/robustness/Shapes.h"
#include "tests/support/CollidingIds.h"
#include "tests/support/Random.h"

#include <algorithm>
#include <array>
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
  factorChain,
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
                                {"id", 10},
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
                                {"chain of factors", 1},
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
  return word + std::to_string(1000000 + number);
}

/// The schema texts of units over one another, and formulas of them:
///
///   top > ... > unit > middle units > "wide" > primitive units
///                    > factors       > factors
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

  Work built(UnitsEngine& engine) const { return batch(texts_, engine); }

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

  const Sizes sizes_;
  const std::string unit;

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
    add(factor(numbered("f", 0), all));
    for (int number = 1; number <= sizes_[factorChain]; ++number)
      add(factor(numbered("f", number), Powers{{numbered("f", number - 1), 1}}));
  }

  std::string primitiveId(int number) const {
    return number < static_cast<int>(colliding_.size())
               ? colliding_[static_cast<std::size_t>(number)]
               : numbered("p", number);
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
    for (int number = 0; number < sizes_[parents]; ++number) {
      middles[numbered("middle", number)] = number % 2 == 0 ? 2 : -1;  // never cancel out
      add(derived(numbered("middle", number), Powers{{"wide", 1}}));
    }
    std::string more;
    for (int number = 0; number < sizes_[constants]; ++number)
      more += "," + value(numbered("c", number), "1");
    add(schema(unit, "unit.derived",
               {value("name", "'" + std::string(at(name), 'n') + "'"),
                value("unitSystem", "'Metric'"), powers("parentUnits", middles),
                powers("parentFactors", {{numbered("f", sizes_[factorChain]), 1}}) + more}));
    add(derived(numbered("chain", 0), Powers{{unit, 1}}));
    for (int number = 1; number < sizes_[unitChain]; ++number)
      add(derived(numbered("chain", number), Powers{{numbered("chain", number - 1), 1}}));
    add(derived("top", Powers{{numbered("chain", sizes_[unitChain] - 1), 1}}));
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
};

std::string resolve(const std::string&) { return numbered("1 u", 0); }

struct Use {
  const char* name;
  void (*run)(const Subject& subject, UnitsEngine& engine);
};

constexpr Use uses[] = {
    {"convert", [](const Subject& s,
                   UnitsEngine& e) { outcome([&] { return e.convert(1, "top", s.unit); }); }},
    {"prepare",
     [](const Subject& s, UnitsEngine& e) {
       outcome([&] { return Units::PreparedConversion(e, "top", s.unit)(1); });
     }},
    {"query",
     [](const Subject& s, UnitsEngine& e) {
       e.getConvertibleUnits(s.unit);
       e.getQuantities();
       e.getQuantitiesOfUnit(s.unit);
       e.getSymbolsOfUnit(s.unit);
     }},
    {"depend", [](const Subject& s, UnitsEngine& e) {
       for (const std::string& typeId : {s.unit, std::string("all"), std::string("top")}) {
         e.getDependencies(typeId);
         e.getDefinition(typeId);
       }
     }}};

std::vector<NamedWork> worksOf(Dimension a, Dimension b, int size, UnitsEngine& engine) {
  const auto subject = std::make_shared<Subject>(blownUp(a, b, size));
  std::vector<NamedWork> works = {{"build", Shape::Definitions, subject->built(engine)}};
  const std::size_t bytes = works.front().work.bytes;
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

Shape shapeOf(const std::string& proportion, Dimension a, Dimension b, const std::string& use) {
  const bool isFormula = use.find("formula") == 0;
  return {proportion + ", " + use, isFormula ? Shape::UnitFormula : Shape::Definitions,
          [a, b, use](int size, UnitsEngine& engine) {
            for (const NamedWork& made : worksOf(a, b, size, engine)) {
              if (made.name == use) return made.work;
              if (made.name == "build") made.work.run();
            }
            return Work();
          }};
}

/// Calls `take(name, a, b)` for each dimension alone and each pair.
template <class Take>
void forEach(const Take& take) {
  for (std::size_t a = 0; a < dimensionCount; ++a)
    for (std::size_t b = a; b < dimensionCount; ++b)
      take(a == b ? std::string(dimensions[a].name)
                  : std::string(dimensions[a].name) + " x " + dimensions[b].name,
           static_cast<Dimension>(a), static_cast<Dimension>(b));
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

}  // namespace

std::vector<Proportion> proportions() {
  std::vector<Proportion> all;
  forEach([&](const std::string& pair, Dimension a, Dimension b) {
    all.push_back({pair, [a, b](int size, UnitsEngine& e) { return worksOf(a, b, size, e); }});
  });
  return all;
}

std::vector<Shape> proportionShapes() {
  std::vector<Shape> shapes;
  const Engine engine = makeEngine();
  const std::vector<NamedWork> works = worksOf(name, name, 1, *engine);
  forEach([&](const std::string& pair, Dimension a, Dimension b) {
    for (const NamedWork& made : works) shapes.push_back(shapeOf(pair, a, b, made.name));
  });
  return shapes;
}

std::vector<Shape> knownProportions() {
  std::vector<Shape> shapes;
  for (const auto& row : known)
    forEach([&](const std::string& pair, Dimension a, Dimension b) {
      if (a == row.a && b == row.b) shapes.push_back(shapeOf(pair, a, b, row.use));
    });
  return shapes;
}
