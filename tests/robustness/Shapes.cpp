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

const Shape* findShape(const std::string& name) {
  static const std::vector<Shape> proportions = proportionShapes();
  for (const std::vector<Shape>* shapes : {&allShapes(), &proportions})
    for (const Shape& shape : *shapes)
      if (shape.name == name) return &shape;
  return nullptr;
}

Work bundleLoad(const std::string& bundle, Units::UnitsEngine& engine) {
  Work work;
  work.bytes = bundle.size();
  work.run = [=, &engine] { Schemas::SchemaBundle::addDefinitionsFromBuffer(bundle, engine); };
  return work;
}

Work evaluation(const std::string& unit, const std::string& formula, Units::UnitsEngine& engine,
                const Units::VariableResolver& resolver) {
  Work work;
  work.bytes = formula.size();
  const auto counted = [resolver, substituted = work.substituted](const std::string& name) {
    std::string text = resolver(name);
    *substituted += text.size();
    return text;
  };
  work.run = [=, &engine] {
    outcome([&] { return engine.evaluateExpressionInUnit(unit, formula, counted); });
  };
  return work;
}

Work batch(const std::vector<std::string>& texts, Units::UnitsEngine& engine) {
  Work work;
  for (const std::string& text : texts) work.bytes += text.size();
  work.run = [texts, &engine] {
    for (const std::string& text : texts) engine.addDefinition(text);
    engine.buildSchemas();
  };
  return work;
}

std::string repeated(const std::string& text, int count) {
  std::string all;
  all.reserve(text.size() * static_cast<std::size_t>(count));
  for (int made = 0; made < count; ++made) all += text;
  return all;
}
