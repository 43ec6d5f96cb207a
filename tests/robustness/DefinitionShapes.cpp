#include "tests/robustness/Shapes.h"
#include "tests/support/Check.h"

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

const char* const known[] = {"name x repeated listings, build",
                             "parents x repeated listings, build",
                             "name x symbols, build",
                             "colliding ids, build",
                             "colliding ids x listings, depend",
                             "colliding ids x powers, convert",
                             "parents x parent factors, convert",
                             "parents x parent factors, prepare",
                             "parents x parent factors, formula 0",
                             "parents x parents of a factor, convert",
                             "sum x powers, formula 0",
                             "nested sum x powers, formula 1",
                             "product, formula 2",
                             "reversed product, formula 3",
                             "nested product, formula 4",
                             "prefix symbols, formula 5",
                             "symbols x symbol text, formula 6",
                             "calls in a product, formula 7"};

}  // namespace

std::vector<Shape> definitionShapes() {
  std::vector<Shape> shapes = {
      {"cycle of factors, build", false, [](int size, auto& e) { return cycle(size, true, e); }},
      {"cycle of units, build", false, [](int size, auto& e) { return cycle(size, false, e); }}};
  std::vector<std::string> names(std::begin(known), std::end(known));
  for (const std::string form :
       {"parents", "chain of units", "diamond of units", "ladder of units", "parents of a factor",
        "chain of factors", "diamond of factors", "ladder of factors"})
    for (const char* use : {"build", "add", "convert", "prepare", "query", "depend", "formula 0"})
      names.push_back(form + ", " + use);
  for (const Shape& shape : proportionShapes())
    if (std::count(names.begin(), names.end(), shape.name) != 0) shapes.push_back(shape);
  return shapes;
}
