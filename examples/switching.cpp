/// The calls on the page for users of other libraries.
#include <TrelvonUnits/TrelvonUnits.h>

#include <iostream>
#include <memory>
#include <string>

int main(int, char** arguments) {
  const std::string schemas = arguments[1];
  const std::string ft = "trelvon.unit:foot-1.0.0", m = "trelvon.unit:meter-1.0.0";
  const std::string kg = "trelvon.unit:kilogram-1.0.0", smoot = "my.unit:smoot-1.0.0";
  const std::string symbol = "trelvon.symbol:foot-1.0.0";

  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* pack : {"/core", "/symbols", "/aliases"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + pack, *engine);
  const Units::UnitNames names(*engine);

  std::cout << names.findBest("square foot").at(0).getUnit().getTypeId() << '\n';
  std::cout << engine->convert(6, ft, m) << '\n';
  const Units::PreparedConversion toMeters(*engine, ft, m);
  double values[] = {1, 2, 3};
  toMeters.convert(values, values, 3);
  std::cout << toMeters(6) << ", " << values[2] << '\n';
  std::cout << engine->canConvert(ft, kg) << ' ' << engine->getConvertibleUnits(ft).size() << '\n';

  std::cout << engine->evaluateExpressionInUnit(m, "2 ft + 3 in") << '\n';
  std::cout << engine->formatFixedPoint(6, 2, &symbol, true) << '\n';
  engine->addUnit(Units::Unit(smoot, "smoot", Units::System::Imperial,
                              Units::DerivedUnitComponent({{"trelvon.unit:inch-1.0.0", 1}}, 67)));
  std::cout << engine->convert(3, smoot, m) << '\n';
  try {
    engine->convert(6, ft, kg);
  } catch (const Units::IncompatibleUnitsException& error) {
    std::cout << error.what() << '\n';
  }
  try {
    engine->convert(6, "fot", m);
  } catch (const Units::UnrecognizedIdentifierException& error) {
    std::cout << error.what() << ' ' << names.suggest("fot", 1).at(0).getText() << "?\n";
  }
}
