#include "tests/robustness/Shapes.h"
#include "tests/support/Check.h"
#include "tests/support/CollidingIds.h"

#include <algorithm>
#include <bitset>

namespace {

/// Each over the next one, and the last over the first.
Work cycle(int size, bool ofFactors, Units::UnitsEngine& engine) {
  std::vector<std::string> texts;
  for (int number = 0; number < size; ++number) {
    const std::string typeId = "n" + std::to_string(number);
    const Powers parents = {{"n" + std::to_string((number + 1) % size), 1}};
    texts.push_back(ofFactors ? factor(typeId, parents) : derived(typeId, parents));
  }
  Work work = batch(texts, engine);
  work.run = [build = work.run] { check(isRefusal(outcome(build)), "a cycle is not refused"); };
  return work;
}

/// Units whose type ids collide, named alike: their symbols differ in case alone.
Work unitNames(int size, Units::UnitsEngine& engine) {
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

std::vector<Shape> definitionShapes() {
  std::vector<Shape> shapes = {
      {"names", false, unitNames},
      {"cycle of factors, build", false, [](int size, auto& e) { return cycle(size, true, e); }},
      {"cycle of units, build", false, [](int size, auto& e) { return cycle(size, false, e); }}};
  std::vector<std::string> names = {"name x repeated listings, build",
                                    "colliding ids, build",
                                    "colliding ids x powers, convert",
                                    "parents x parent factors, convert",
                                    "parents x parents of a factor, convert",
                                    "sum x powers, formula 0",
                                    "nested sum x powers, formula 1",
                                    "product, formula 2",
                                    "reversed product, formula 3",
                                    "nested product, formula 4",
                                    "prefix symbols, formula 5",
                                    "symbols x symbol text, formula 6",
                                    "calls in a product, formula 7"};
  for (const char* form : {"parents", "chain of units", "ladder of units", "parents of a factor",
                           "chain of factors", "ladder of factors"})
    for (const char* use : {"build", "add", "convert", "prepare", "query", "depend", "formula 0"})
      names.push_back(form + std::string(", ") + use);
  std::sort(names.begin(), names.end());
  for (const Shape& shape : proportionShapes())
    if (std::binary_search(names.begin(), names.end(), shape.name)) shapes.push_back(shape);
  return shapes;
}
