#include "tests/robustness/Operations.h"

namespace {

using Units::UnitsEngine;

void addWaiting(UnitsEngine& engine) {
  engine.addDefinition(schema("waiting", "unit.derived",
                              named + ",{'id':'parentUnits','value':{'area':2,'foot':-1}},"
                                      "{'id':'parentFactors','value':{'gross':1}}"));
}

/// With a definition that is still pending.
Engine startEngine() {
  Engine engine = sampleEngine();
  addWaiting(*engine);
  return engine;
}

template <class Function>
Operation row(const std::string& name, const Function& function) {
  return {name, [function](UnitsEngine& engine) -> std::string { return function(engine); },
          startEngine};
}

std::string resolve(const std::string& name) {
  return name == "x" ? std::string("y * 2 + (((1 ft + 3 in) - 5' 6\")) + 0.000001 ft") : "1 ft";
}

void addNumbers(std::vector<Operation>& all) {
  static const std::string feetAndInches = "x:feetAndInches-1", dollar = "dollar";
  all.push_back(row("convert", [](auto& e) { return bits(e.convert(2, "foot", "perInch")); }));
  all.push_back(
      row("convert, refused", [](auto& e) { return bits(e.convert(2, "foot", "celsius")); }));
  all.push_back(row("PreparedConversion", [](auto& e) {
    return bits(Units::PreparedConversion(e, "foot", "perInch")(2));
  }));
  all.push_back(row("PreparedConversion of scales", [](auto& e) {
    return bits(Units::PreparedConversion(e, "celsius", "celsius")(2));
  }));
  all.push_back(row("PreparedConversion, refused", [](auto& e) {
    return bits(Units::PreparedConversion(e, "foot", "celsius")(2));
  }));
  all.push_back(row("canConvert", [](auto& e) { return bits(e.canConvert("area", "foot")); }));
  all.back().mayNeedNone = true;
  all.push_back(row("formatFixedPoint",
                    [](auto& e) { return e.formatFixedPoint(-1e200, 12, &dollar, true); }));
  all.push_back(row("formatFixedPoint, refused",
                    [](auto& e) { return e.formatFixedPoint(1, 13, &dollar, true); }));
  all.push_back(
      row("formatFractional", [](auto& e) { return e.formatFractional(1e18, 9, &feetAndInches); }));
  all.push_back(row("evaluateUnitlessExpression", [](auto& e) {
    return bits(e.evaluateUnitlessExpression("sqrt(2) * (3 ft / 1 in)"));
  }));
  all.push_back(row("evaluateUnitlessExpression, refused",
                    [](auto& e) { return bits(e.evaluateUnitlessExpression("1 + nothing")); }));
  for (const char* text :
       {"-(2) ft + abs(x) * 2 / pi() - sqrt($(4) * $4) / $(1) * 1 ft + (1) ft * 2^2", "((1+x",
        "x + sin(1 ft)", "(((((((((((((((((1/0)))))))))))))))))"})
    all.push_back(row(std::string("evaluateExpressionInUnit of ") + text, [text](auto& e) {
      return bits(e.evaluateExpressionInUnit("foot", text, resolve));
    }));
}

void addReading(std::vector<Operation>& all) {
  all.push_back(row("get", [](auto& e) {
    return e.getDimension("length").getTypeId() + e.getFactor("gross").getTypeId() +
           e.getUnit("foot").getName() + e.getSymbol("ft").getTypeId() +
           e.getQuantity("height").getUnits().front().getName();
  }));
  all.push_back(row("get, refused", [](auto& e) { return e.getUnit("no such unit").getName(); }));
  all.push_back(row("listings", [](auto& e) {
    return keys(e.getDimensions()) + keys(e.getFactors()) + keys(e.getUnits()) +
           keys(e.getSymbols()) + keys(e.getQuantities());
  }));
  all.push_back(row("queries", [](auto& e) {
    return keys(e.getPrimitiveUnits()) +
           keys(e.getPrimitiveUnitsOfDimension(Units::Dimension("length"))) +
           keys(e.getConvertibleUnits("area")) +
           keys(e.getUnitsWithPrimitivePowers({{"inch", 1}})) + keys(e.getSymbolsOfUnit("foot")) +
           keys(e.getQuantitiesOfUnit("inch"));
  }));
  all.push_back(row("getDefinition", [](auto& e) {
    std::string texts;
    for (const std::string& typeId : sampleTypeIds()) texts += e.getDefinition(typeId);
    return texts;
  }));
  all.push_back(row("getDependencies",
                    [](auto& e) { return std::to_string(e.getDependencies("height").size()); }));
  all.push_back(row("isRegistered", [](auto& e) {
    return e.isRegistered("a type id that is long enough to be allocated") ? "1" : "0";
  }));
}

template <class Record>
Operation adding(const std::string& name, const Record& record,
                 void (UnitsEngine::*operation)(Record)) {
  return row(name, [record, operation](auto& engine) {
    (engine.*operation)(record);
    return std::string();
  });
}

void addAdding(std::vector<Operation>& all) {
  const Units::PrefixOrSuffix shown("a text that is long enough", Units::Placement::Suffix, true);
  const Units::Unit unit("new", "a name that is long enough to be allocated", Units::System::Metric,
                         Units::DerivedUnitComponent({{"foot", 2}, {"inch", -1}},
                                                     Units::FactorComponent(2.0, {{"gross", 1}})));
  const Units::Unit foot("foot", "n", Units::System::Metric, Units::PrimitiveUnitComponent());
  all.push_back(adding("addDimension", Units::Dimension("new"), &UnitsEngine::addDimension));
  all.push_back(adding(
      "addFactor", Units::Factor("new", Units::FactorComponent(2, {{"gross", 1}, {"twelve", 3}})),
      &UnitsEngine::addFactor));
  all.push_back(adding("addUnit", unit, &UnitsEngine::addUnit));
  all.push_back(adding("addSymbol", Units::Symbol("new", foot, shown), &UnitsEngine::addSymbol));
  all.push_back(
      adding("addQuantity", Units::Quantity("new", "n", {foot, foot}), &UnitsEngine::addQuantity));
  all.push_back(adding("addQuantity, refused", Units::Quantity("new", "n", {unit}),
                       &UnitsEngine::addQuantity));
}

void addDefining(std::vector<Operation>& all) {
  // Deep and long: the reader's stack and its pools grow.
  std::string deep =
      "{'typeid':'new','inherits':['vellamor.unit:factor-1.0.0'],'properties':["
      "{'id':'p','value':";
  for (int level = 0; level < 300; ++level) deep += "[{'c':";
  deep += "'" + std::string(100000, 'x') + "'";
  for (int level = 0; level < 300; ++level) deep += "}]";
  const std::pair<const char*, std::string> rows[] = {
      {"addDefinition of a dimension",
       schema("a new type id that is long enough", "dimension", "")},
      {"addDefinition of a factor",
       schema("new", "factor.derived", "{'id':'parentFactors','value':{'gross':1,'none':2}}")},
      {"addDefinition of a symbol",
       schema("a new:feetAndInches-1", "symbol", "{'id':'unit','typedValue':{'typeid':'none'}}")},
      {"addDefinition of deep properties", quoted(deep + "}]}")},
      {"addDefinition of deep properties, refused", quoted(deep + "}]")},
      {"addDefinition of a unit",
       schema("new", "unit.derived",
              named + ",{'id':'parentUnits','value':{'foot':2,'inch':-1}},"
                      "{'id':'parentFactors','value':{'twelve':1}}")},
      {"addDefinition of a quantity",
       schema("new", "quantity",
              "{'id':'name','value':'\\u00e9'},"
              "{'id':'units','typedValue':[{'typeid':'foot'},{'typeid':'inch'}]}")},
      {"addDefinition, refused", schema("new", "factor", "{'id':'factor','value':'x'}")},
      {"addDefinition of no JSON", "{\"typeid\": [[[[1.5e400"}};
  for (const auto& [name, text] : rows)
    all.push_back(row(name, [text = text](auto& engine) {
      std::string missing;
      for (const std::string& typeId : engine.addDefinition(text)) missing += typeId + " ";
      return missing;
    }));
}

Operation building(const std::string& name, Engine (*before)(), void (*pending)(UnitsEngine&)) {
  Operation build = row(name, [](auto& engine) {
    engine.buildSchemas();
    return std::string();
  });
  build.start = [=] {
    Engine engine = before();
    pending(*engine);
    return engine;
  };
  build.isBuild = true;
  build.dropped = [=] { return describe(*before()); };
  build.refill = pending;
  return build;
}

void addRefused(UnitsEngine& engine) {
  engine.addDefinition(
      schema("new", "unit.derived", named + ",{'id':'parentUnits','value':{'new':2}}"));
}

void addBundles(std::vector<Operation>& all) {
  const std::string sample = sampleBundle();
  const std::pair<const char*, std::string> rows[] = {
      {"addDefinitionsFromBuffer", sample},
      {"addDefinitionsFromBuffer, refused by the build",
       bundleOf({sampleSchemas().front(), sampleSchemas().back()})},
      {"addDefinitionsFromBuffer, refused", sample + "{}"}};
  for (const auto& [name, bundle] : rows)
    all.push_back(loading(name, [bundle = bundle](auto& engine) {
      Schemas::SchemaBundle::addDefinitionsFromBuffer(bundle, engine);
    }));
  all.back().leavesPending = false;
}

}  // namespace

Operation loading(const std::string& name, const std::function<void(UnitsEngine&)>& load) {
  Operation operation = row(name, [load](auto& engine) { return load(engine), std::string(); });
  operation.start = makeEngine;
  operation.leavesPending = true;
  return operation;
}

std::vector<Operation> readingOperations() {
  std::vector<Operation> all;
  addNumbers(all);
  addReading(all);
  return all;
}

std::vector<Operation> allOperations() {
  std::vector<Operation> all = readingOperations();
  addAdding(all);
  addDefining(all);
  all.push_back(building("buildSchemas of one", sampleEngine, addWaiting));
  all.push_back(building("buildSchemas of all", makeEngine, addSample));
  all.push_back(building("buildSchemas, refused", sampleEngine, addRefused));
  addBundles(all);
  return all;
}
