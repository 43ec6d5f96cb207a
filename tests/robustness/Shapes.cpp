#include "tests/robustness/Shapes.h"

const std::vector<Shape>& allShapes() {
  static const std::vector<Shape> all = [] {
    std::vector<Shape> shapes = formulaShapes();
    for (const auto& more : {textShapes(), definitionShapes()})
      shapes.insert(shapes.end(), more.begin(), more.end());
    return shapes;
  }();
  return all;
}

Work bundleLoad(const std::string& bundle, Units::UnitsEngine& engine) {
  Work work;
  work.bytes = bundle.size();
  work.run = [=, &engine] { Schemas::SchemaBundle::addDefinitionsFromBuffer(bundle, engine); };
  return work;
}

std::string repeated(const std::string& text, int count) {
  std::string all;
  all.reserve(text.size() * static_cast<std::size_t>(count));
  for (int made = 0; made < count; ++made) all += text;
  return all;
}
