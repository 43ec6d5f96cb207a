/// Creates definitions without files: a unit from a record, a symbol from text, and a quantity.
#include <TrelvonUnits/TrelvonUnits.h>

#include <iostream>
#include <memory>

int main(int, char** arguments) {
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  Schemas::SchemaUtility::addDefinitionsFromFolder(std::string(arguments[1]) + "/core", *engine);

  const std::string cubit = "my.unit:cubit-1.0.0", inch = "trelvon.unit:inch-1.0.0";
  engine->addUnit(Units::Unit(cubit, "cubit", Units::System::Imperial,
                              Units::DerivedUnitComponent({{inch, 1}}, 18.0)));
  engine->addDefinition(R"({
    "typeid": "my.symbol:cubit-1.0.0", "inherits": ["vellamor.unit:symbol.prefixOrSuffix-1.0.0"],
    "constants": [{"id": "unit", "typedValue": {"typeid": "my.unit:cubit-1.0.0"}},
                  {"id": "text", "value": "cbt"}, {"id": "placement", "value": "Suffix"},
                  {"id": "space", "value": true}]})");
  engine->buildSchemas();
  engine->addQuantity({"my.quantity:oldLength-1.0.0",
                       "old lengths",
                       {engine->getUnit(cubit), engine->getUnit("trelvon.unit:foot-1.0.0")}});

  const std::string symbol = "my.symbol:cubit-1.0.0";
  const double cubits = engine->evaluateExpressionInUnit(cubit, "2 cbt * 1.5");
  std::cout << engine->formatFixedPoint(cubits, 1, &symbol, false) << '\n';
  std::cout << engine->convert(cubits, cubit, inch) << " inches\n";
  try {
    engine->addUnit(engine->getUnit(cubit));
  } catch (const Units::ValidationException& error) {
    std::cout << error.what() << '\n';
  }
}
