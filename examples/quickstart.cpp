/// Loads the shipped definitions, converts, evaluates and formats.
#include <TrelvonUnits/TrelvonUnits.h>

#include <iostream>
#include <memory>

int main(int, char** arguments) {
  const std::string schemas = arguments[1];
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const char* pack : {"/core", "/symbols", "/aliases"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(schemas + pack, *engine);

  const std::string foot = "trelvon.unit:foot-1.0.0", meter = "trelvon.unit:meter-1.0.0";
  const std::string feetAndInches = "trelvon.symbol:feetAndInches-1.0.0";
  std::cout << engine->convert(6, foot, meter) << '\n';
  std::cout << engine->evaluateExpressionInUnit(meter, "2 ft + 3 in") << '\n';
  std::cout << engine->formatFractional(5.53125, 4, &feetAndInches) << '\n';
  try {
    engine->evaluateExpressionInUnit(meter, "2 ft + 3 kg");
  } catch (const Units::ParseException& error) {
    std::cout << error.what() << '\n';
  }
}
