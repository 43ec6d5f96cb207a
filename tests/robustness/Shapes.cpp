#include "tests/robustness/Shapes.h"

#include <stdexcept>

const std::vector<Shape>& allShapes() {
  static const std::vector<Shape> all = [] {
    std::vector<Shape> shapes = formulaShapes();
    for (const auto& more : {explanationShapes(), textShapes(), definitionShapes()})
      shapes.insert(shapes.end(), more.begin(), more.end());
    return shapes;
  }();
  return all;
}

const Shape& findShape(const std::string& name) {
  for (const auto* shapes : {&proportionShapes(), &allShapes()})
    for (const Shape& shape : *shapes)
      if (shape.name == name) return shape;
  throw std::logic_error("No shape is called " + name);
}

Work bundleLoad(const std::vector<std::string>& texts, Units::UnitsEngine& engine) {
  const std::string bundle = bundleOf(texts);
  const auto load = [=, &engine] {
    Schemas::SchemaBundle::addDefinitionsFromBuffer(bundle, engine);
  };
  return {load, bundle.size()};
}

Work evaluation(const std::string& unit, const std::string& formula, Units::UnitsEngine& engine,
                const Units::VariableResolver& resolver) {
  Work work{{}, formula.size(), Work::Formula};
  const auto counted = [resolver, substituted = work.substituted](const std::string& name) {
    std::string text = resolver(name);
    *substituted += text.size();
    return text;
  };
  work.run = [=, &engine] {
    outcome([&] { return engine.evaluateExpressionInUnit(unit, formula, counted); });
    tryFormula(engine, unit, formula, resolver);
  };
  work.explain = [=, &engine] { explainFormula(engine, unit, formula, counted).toText(); };
  return work;
}

std::vector<Shape> explanationShapes() {
  std::vector<Shape> shapes;
  for (const Shape& shape : formulaShapes())
    shapes.push_back({shape.name + ", explained", true, [shape](int size, auto& engine) {
                        Work work = shape.prepare(size, engine);
                        work.run = work.explain;
                        work.kind = Work::Explanation;
                        return work;
                      }});
  return shapes;
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
  const std::size_t place = text.find('%');
  std::string all;
  all.reserve(text.size() * static_cast<std::size_t>(count));
  for (int made = 0; made < count; ++made) {
    all.append(text, 0, place);
    if (place != std::string::npos) all.append(std::to_string(made)).append(text, place + 1);
  }
  return all;
}
