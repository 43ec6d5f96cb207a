#include "tests/robustness/Operations.h"

namespace {

using Units::UnitsEngine;

void addWaiting(UnitsEngine& engine) {
  engine.addDefinition(derived("waiting", Powers{{"area", 2}, {"foot", -1}},
                               {powers("parentFactors", {{"gross", 1}})}));
}

template <class Function>
Operation row(const std::string& name, const Function& function) {
  const auto run = [function](UnitsEngine& engine) {
    if constexpr (std::is_void_v<decltype(function(engine))>)
      return function(engine), std::string();
    else
      return written(function(engine));
  };
  return {name, run, sampleEngine, addWaiting};
}

std::string resolve(const std::string& name) {
  return name == "x" ? "y * 2 + (((1 ft + 3 in) - 5' 6\")) + 0.000001 ft" : "1 ft";
}

std::vector<Operation> numberOperations() {
  static const std::string feetAndInches = "x:feetAndInches-1", dollar = "dollar";
  std::vector<Operation> all = {
      row("formatFixedPoint",
          [](auto& e) { return e.formatFixedPoint(-1e200, 12, &dollar, true); }),
      row("formatFixedPoint, refused",
          [](auto& e) { return e.formatFixedPoint(1, 13, &dollar, true); }),
      row("formatFractional", [](auto& e) { return e.formatFractional(1e18, 9, &feetAndInches); })};
  for (const std::string to : {"foot", "inch", "perInch", "celsius"}) {
    all.push_back(row("convert to " + to, [to](auto& e) { return e.convert(2, "foot", to); }));
    all.push_back(row("canConvert to " + to, [to](auto& e) { return e.canConvert("foot", to); }));
    all.push_back(row("PreparedConversion to " + to,
                      [to](auto& e) { return Units::PreparedConversion(e, "foot", to)(2); }));
  }
  for (const std::string text :
       {"-(2) ft + abs(x) * 2 / pi() - sqrt($(4) * $4) / $(1) * 1 ft + (1) ft * 2^2", "((1+x",
        "x + sin(1 ft)", "(((((((((((((((((1/0)))))))))))))))))", "1 + nothing"}) {
    all.push_back(row("evaluateExpressionInUnit of " + text, [text](auto& e) {
      return e.evaluateExpressionInUnit("foot", text, resolve);
    }));
    all.push_back(row("evaluateUnitlessExpression of " + text, [text](auto& e) {
      return e.evaluateUnitlessExpression("(" + text + ") / 1 ft");
    }));
  }
  return all;
}

std::vector<Operation> addingOperations() {
  const Units::PrefixOrSuffix shown("a text that is long enough", Units::Placement::Suffix, true);
  const Units::Unit unit = derivedUnit("new", {{"foot", 2}, {"inch", -1}}, {2.0, {{"gross", 1}}});
  const Units::Unit foot = derivedUnit("foot", {});
  const Units::FactorComponent component(2, {{"gross", 1}, {"twelve", 3}});
  return {row("addDimension", [](auto& e) { e.addDimension(Units::Dimension("new")); }),
          row("addFactor", [=](auto& e) { e.addFactor(Units::Factor("new", component)); }),
          row("addUnit", [=](auto& e) { e.addUnit(unit); }),
          row("addSymbol", [=](auto& e) { e.addSymbol(Units::Symbol("new", foot, shown)); }),
          row("addQuantity",
              [=](auto& e) {
                e.addQuantity(Units::Quantity("new", "n", {foot, foot}));
              }),
          row("addQuantity, refused",
              [=](auto& e) { e.addQuantity(Units::Quantity("new", "n", {unit})); })};
}

std::vector<Operation> definingOperations() {
  // Deep and long: the reader's stack and its pools grow.
  std::string deep = "{'typeid':'new','inherits':['vellamor.unit:dimension-1.0.0'],'more':";
  for (int level = 0; level < 300; ++level) deep += "[{'c':";
  deep += "'" + std::string(100000, 'x') + "'";
  for (int level = 0; level < 300; ++level) deep += "}]";
  const std::pair<const char*, std::string> rows[] = {
      {"a dimension", dimension("a new type id that is long enough")},
      {"a factor", factor("new", {"gross", "none"})},
      {"a symbol", composite("a new:feetAndInches-1", "none")},
      {"deep properties", quoted(deep + "}")},
      {"deep properties, refused", quoted(deep)},
      {"a unit", derived("new", {"foot", "inch"}, {"twelve"})},
      {"a quantity", quantity("new", {"foot", "inch"})},
      {"a text that is refused", schema("new", "factor", {value("factor", "'x'")})},
      {"what is no JSON", "{\"typeid\": [[[[1.5e400"}};
  std::vector<Operation> all;
  for (const auto& [name, text] : rows)
    all.push_back(row("addDefinition of " + std::string(name),
                      [text = text](auto& engine) { return engine.addDefinition(text); }));
  return all;
}

Operation building(const std::string& name, Engine (*before)(), void (*pending)(UnitsEngine&)) {
  Operation build = row(name, [](auto& engine) { engine.buildSchemas(); });
  build.before = before;
  build.addPending = pending;
  build.isBuild = true;
  return build;
}

std::vector<Operation> buildingOperations() {
  const auto addRefused = [](UnitsEngine& engine) {
    engine.addDefinition(derived("new", {"new"}));
  };
  std::vector<Operation> all = {building("buildSchemas of one", sampleEngine, addWaiting),
                                building("buildSchemas of all", makeEngine, addSample),
                                building("buildSchemas, refused", sampleEngine, addRefused)};
  const std::vector<std::string> texts = sampleSchemas();
  const std::pair<const char*, std::string> rows[] = {
      {"addDefinitionsFromBuffer", bundleOf(texts)},
      {"addDefinitionsFromBuffer, refused by the build", bundleOf({texts.front(), texts.back()})},
      {"addDefinitionsFromBuffer, refused", bundleOf(texts) + "{}"}};
  for (const auto& [name, bundle] : rows)
    all.push_back(loading(name, [bundle = bundle](auto& engine) {
      Schemas::SchemaBundle::addDefinitionsFromBuffer(bundle, engine);
    }));
  all.back().leavesPending = false;
  return all;
}

std::string resolveOne(const std::string& name) {
  return name == "x" ? "2 in * 1 in" : throw Units::ParseException("Unrecognized identifier.");
}

}  // namespace

Operation loading(const std::string& name, const std::function<void(UnitsEngine&)>& load) {
  Operation operation{name, [load](auto& engine) { return load(engine), std::string(); },
                      makeEngine};
  operation.leavesPending = true;
  return operation;
}

std::vector<Operation> readingOperations() {
  std::vector<Operation> all = {
      row("get",
          [](auto& e) {
            return e.getDimension("length").getTypeId() + e.getFactor("gross").getTypeId() +
                   e.getUnit("foot").getName() + e.getSymbol("ft").getTypeId() +
                   e.getQuantity("height").getUnits().front().getName();
          }),
      row("get, refused", [](auto& e) { return e.getUnit("no such unit").getName(); }),
      row("listings, definitions and dependencies", describe),
      row("queries",
          [](auto& e) {
            return written(e.getPrimitiveUnits()) +
                   written(e.getPrimitiveUnitsOfDimension(Units::Dimension("length"))) +
                   written(e.getConvertibleUnits("area")) +
                   written(e.getUnitsWithPrimitivePowers({{"inch", 1}})) +
                   written(e.getSymbolsOfUnit("foot")) + written(e.getQuantitiesOfUnit("inch"));
          }),
      row("ValueDisplay",
          [](auto& e) {
            const auto display = Units::ValueDisplay::fromJson(
                e,
                R"({"symbol":"x:feetAndInches-1","significant":17,"locale":"mr","groups":true})");
            const std::string text = display.show(-1e300);
            return display.toJson() + text + display.read(text).toJson() +
                   display.read("1.234,5").toJson();
          }),
      row("ValueDisplay of the best unit",
          [](auto& e) {
            const auto display = Units::ValueDisplay::fromJson(
                e, R"({"unit":"inch","best":{"symbols":["dollar"]}})");
            return display.show(1) + display.read("$ 5").toJson();
          }),
      row("ValueDisplay, refused",
          [](auto& e) {
            return Units::ValueDisplay::fromJson(e, R"({"a member that is long enough":1})")
                .toJson();
          }),
      row("UnitNames",
          [](auto& e) {
            const Units::UnitNames names(e);
            return names.find(std::string(99, ' ') + "FOOT").at(0).getText() +
                   names.suggest("fooot", 2).at(0).getText() +
                   names.completions("F", 1)[0].getText() +
                   names.unambiguousName(names.findBest("foot").at(0).getUnit());
          }),
      row("explainFormula",
          [](auto& e) {
            std::string texts;
            for (const char* const formula : {"5 ft - 6 in", "1 ft + x", "2 * (x"}) {
              const auto explained = explainFormula(e, "foot", formula, resolveOne);
              texts += explained.toText() + explained.toTree() + explained.toJson();
            }
            return texts;
          }),
      row("explainFormula, refused",
          [](auto& e) {
            const auto explained = explainFormula(e, "2 + fo", resolveOne);
            return "ParseException: " + explained.toText();
          }),
      row("tryFormula",
          [](auto& e) {
            std::string told;
            for (const char* const formula : {"1 ft + x", "2 + fo", "2 * (x", "x + 1 lb"})
              told += tryFormula(e, "foot", formula, resolveOne).message;
            return "ParseException: " + told;
          }),
      row("isRegistered",
          [](auto& e) { return e.isRegistered("a type id that is long enough to be allocated"); })};
  for (const Operation& operation : numberOperations()) all.push_back(operation);
  return all;
}

std::vector<Operation> allOperations() {
  std::vector<Operation> all = readingOperations();
  for (const auto& more : {addingOperations(), definingOperations(), buildingOperations()})
    all.insert(all.end(), more.begin(), more.end());
  return all;
}
